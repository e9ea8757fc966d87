// Flipper lengths as dots that stack up, in colours by species.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <memory>

void kestrel::gallery::dotPlot(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable flipper = graph.AddAggregatedVariable(*source, false, u"Flipper length (mm)");
  XVariable species = graph.AddAggregatedVariable(*source, true, u"Species");
  Categories kinds;
  for (Penguin const& penguin : penguins()) {
    XRow& row = *source->AddRow();
    row.addDataValue(flipper, penguin.flipperLength);
    row.addDataValue(species, kinds.code(penguin.species));
  }
  kinds.relabel(species);

  XElement dots = graph.AddPointElement();
  dots.AddX(flipper);
  dots.makeDotPlot(true);
  dots.Cluster(species, true, false, true, true);
  XAxis x = graph.AddPrimaryXAxis(u"Flipper length (mm)");
  x.addIntervalVariableReference(flipper);
  x.setInterval(170, 235, false);
  graph.AddEmptyYDimension();

  graph.AddTitle1(u"Flipper lengths of penguins");
  document.SetDescription(u"One dot for each penguin over its flipper length.");
}
