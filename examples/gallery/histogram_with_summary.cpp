// Body masses in classes, with their mean, standard deviation and number.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <memory>

void kestrel::gallery::histogramWithSummary(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable mass = graph.AddAggregatedVariable(*source, false, u"Body mass (g)");
  for (Penguin const& penguin : penguins()) source->AddRow()->addDataValue(mass, penguin.bodyMass);

  XElement histogram = graph.AddHistogramElement();
  histogram.AddX(mass);
  histogram.addHistogramStatistic(u"2500", -1, 250, true);
  graph.AddPrimaryXAxis(u"Body mass (g)").addIntervalVariableReference(mass);
  graph.AddPrimaryYAxis(u"Number of penguins");
  graph.AddHistogramStatisticsSummary(histogram, u"Mean = ", u"\nStd. Dev. = ", u"\nN = ");

  graph.AddTitle1(u"Body mass of penguins");
  document.SetDescription(u"Bars of the number of penguins in classes of 250 g.");
}
