// Bill length, bill depth and body mass, seen from a point in space.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <memory>

void kestrel::gallery::scatterIn3D(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable length = graph.AddAggregatedVariable(*source, false, u"Bill length (mm)");
  XVariable depth = graph.AddAggregatedVariable(*source, false, u"Bill depth (mm)");
  XVariable mass = graph.AddAggregatedVariable(*source, false, u"Body mass (g)");
  for (Penguin const& penguin : penguins()) {
    XRow& row = *source->AddRow();
    row.addDataValue(length, penguin.billLength);
    row.addDataValue(depth, penguin.billDepth);
    row.addDataValue(mass, penguin.bodyMass);
  }

  XElement points = graph.AddPointElement();
  points.AddX(length);
  points.AddY(depth);
  points.AddZ(mass);
  graph.AddPrimaryXAxis(u"Bill length (mm)").addIntervalVariableReference(length);
  graph.AddPrimaryYAxis(u"Bill depth (mm)").addIntervalVariableReference(depth);
  graph.AddZAxis(u"Body mass (g)").addIntervalVariableReference(mass);
  graph.make3D(20, 45, 30, 0);

  graph.AddTitle1(u"Bills and body mass of penguins");
  document.SetDescription(u"Points in space of bill length, bill depth and body mass.");
}
