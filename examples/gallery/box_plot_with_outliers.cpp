// Body mass by species as boxes, outliers labelled with the number of their row.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <memory>

void kestrel::gallery::boxPlotWithOutliers(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable species = graph.AddAggregatedVariable(*source, true, u"Species");
  XVariable mass = graph.AddAggregatedVariable(*source, false, u"Body mass (g)");
  XVariable number = graph.AddSystemVariable(true, *source, false);
  Categories kinds;
  double rows = 0;
  for (Penguin const& penguin : penguins()) {
    XRow& row = *source->AddRow();
    row.addDataValue(species, kinds.code(penguin.species));
    row.addDataValue(mass, penguin.bodyMass);
    row.addDataValue(number, ++rows);
  }
  kinds.relabel(species);

  XElement boxes = graph.AddBoxplotElement(&number);
  boxes.AddX(species);
  boxes.AddY(mass);
  graph.AddPrimaryXAxis(u"Species").addCategoricalVariableReference(species);
  graph.AddPrimaryYAxis(u"Body mass (g)").addIntervalVariableReference(mass);

  graph.AddTitle1(u"Body mass of penguins");
  document.SetDescription(u"Boxes of body mass by species.");
}
