// Bill depth by bill length of one species, with the line that fits best and equal scales.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <cstdio>
#include <memory>

void kestrel::gallery::scatterWithFunctionLine(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable length = graph.AddAggregatedVariable(*source, false, u"Bill length (mm)");
  XVariable depth = graph.AddAggregatedVariable(*source, false, u"Bill depth (mm)");
  double count = 0, sumX = 0, sumY = 0, sumXX = 0, sumXY = 0;
  for (Penguin const& penguin : penguins()) {
    if (penguin.species != "Gentoo" || penguin.billLength == systemMissing) continue;
    XRow& row = *source->AddRow();
    row.addDataValue(length, penguin.billLength);
    row.addDataValue(depth, penguin.billDepth);
    ++count;
    sumX += penguin.billLength;
    sumY += penguin.billDepth;
    sumXX += penguin.billLength * penguin.billLength;
    sumXY += penguin.billLength * penguin.billDepth;
  }
  // Least squares.
  double const slope = (count * sumXY - sumX * sumY) / (count * sumXX - sumX * sumX);
  double const intercept = (sumY - slope * sumX) / count;
  char function[64];
  std::snprintf(function, sizeof function, "%.3f + %.4f*x", intercept, slope);

  XElement points = graph.AddPointElement();
  points.AddX(length);
  points.AddY(depth);
  graph.AddPrimaryXAxis(u"Bill length (mm)").addIntervalVariableReference(length);
  graph.AddPrimaryYAxis(u"Bill depth (mm)").addIntervalVariableReference(depth);
  graph.AddFunctionLine(function, u"Best fit");
  graph.makeIsotropic(true);

  graph.AddTitle1(u"Bills of Gentoo penguins");
  graph.AddSubTitle(u"A millimetre is as long on both axes.");
  document.SetDescription(u"Points of bill depth by bill length, with the line of the best fit.");
}
