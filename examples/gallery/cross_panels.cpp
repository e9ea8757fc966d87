// Bill depth by bill length, a panel for each species and sex.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <memory>

void kestrel::gallery::crossPanels(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable length = graph.AddAggregatedVariable(*source, false, u"Bill length (mm)");
  XVariable depth = graph.AddAggregatedVariable(*source, false, u"Bill depth (mm)");
  XVariable species = graph.AddAggregatedVariable(*source, true, u"Species");
  XVariable sex = graph.AddAggregatedVariable(*source, true, u"Sex");
  Categories kinds;
  Categories sexes;
  for (Penguin const& penguin : penguins()) {
    if (penguin.sex.empty()) continue;
    XRow& row = *source->AddRow();
    row.addDataValue(length, penguin.billLength);
    row.addDataValue(depth, penguin.billDepth);
    row.addDataValue(species, kinds.code(penguin.species));
    row.addDataValue(sex, sexes.code(penguin.sex));
  }
  kinds.relabel(species);
  sexes.relabel(sex);

  XElement points = graph.AddPointElement();
  points.AddX(length);
  points.AddY(depth);
  graph.AddPrimaryXAxis(u"Bill length (mm)").addIntervalVariableReference(length);
  graph.AddPrimaryYAxis(u"Bill depth (mm)").addIntervalVariableReference(depth);
  graph.BeginPaneling();
  graph.PanelingAddCrossVariable(species, XGraph::ROLE_COLUMN);
  graph.PanelingAddCrossVariable(sex, XGraph::ROLE_ROW);
  graph.EndPaneling(true, false);

  graph.AddTitle1(u"Bills of penguins");
  document.SetDescription(u"Points of bill depth by bill length, in columns by species and rows by sex.");
}
