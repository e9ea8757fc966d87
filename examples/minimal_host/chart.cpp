// One chart through the host of this folder.
#include "xdocument.h"
#include "xgraph.h"

#include <cstdio>
#include <memory>

int main() {
  XDocument document;
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable day = graph.AddAggregatedVariable(*source, false, u"Day");
  XVariable rain = graph.AddAggregatedVariable(*source, false, u"Rain (mm)");
  for (int number = 1; number <= 7; ++number) {
    XRow& row = *source->AddRow();
    row.addDataValue(day, static_cast<double>(number));
    row.addDataValue(rain, 0.5 * number);
  }
  graph.AddPrimaryXAxis(u"Day").addIntervalVariableReference(day);
  graph.AddPrimaryYAxis(u"Rain (mm)").addIntervalVariableReference(rain);
  XElement line = graph.AddLineElement(nullptr);
  line.AddX(day);
  line.AddY(rain);
  document.SetDescription(u"A line of rain by day.");
  bool const sent = document.SendChart(false, false, true);
  std::puts(sent ? "chart.kcap has a chart" : "not sent");
  return sent ? 0 : 1;
}
