// Body masses in classes, females to the left and males to the right.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <memory>

void kestrel::gallery::populationPyramid(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable mass = graph.AddAggregatedVariable(*source, false, u"Body mass (g)");
  XVariable sex = graph.AddAggregatedVariable(*source, true, u"Sex");
  Categories sexes;
  sexes.code("female");
  for (Penguin const& penguin : penguins()) {
    if (penguin.sex.empty()) continue;
    XRow& row = *source->AddRow();
    row.addDataValue(mass, penguin.bodyMass);
    row.addDataValue(sex, sexes.code(penguin.sex));
  }
  sexes.relabel(sex);

  XElement bars = graph.AddPyramidElement();
  bars.AddX(mass);
  bars.addHistogramStatistic(nullptr, 12, -1, true);
  graph.AddPrimaryXAxis(u"Body mass (g)").addIntervalVariableReference(mass);
  graph.AddPrimaryYAxis(u"Number of penguins");
  graph.PanelingAddCrossVariable(sex, XGraph::ROLE_COLUMN);
  graph.EndPyramidPaneling(false);
  graph.MirrorCharts();

  graph.AddTitle1(u"Male penguins are heavier");
  document.SetDescription(u"Two histograms of body mass that mirror each other, one for each sex.");
}
