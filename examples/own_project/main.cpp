// A week of rain as bars.
#include "xdocument.h"
#include "xgraph.h"

#include <cstdio>
#include <memory>

int main() {
  XDocument document;
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable day = graph.AddAggregatedVariable(*source, true, u"Day");
  XVariable rain = graph.AddAggregatedVariable(*source, false, u"Rain (mm)");
  char16_t const* const days[] = {u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat", u"Sun"};
  double const millimetres[] = {0, 2.5, 11, 4, 0, 0, 1.5};
  for (unsigned int number = 0; number < 7; ++number) {
    XRow& row = *source->AddRow();
    row.addDataValue(day, static_cast<double>(number));
    row.addDataValue(rain, millimetres[number]);
    day.addRelabel(number, days[number]);
  }

  XElement bars = graph.AddBarElement(false);
  bars.AddX(day);
  bars.AddY(rain);
  graph.AddPrimaryXAxis(u"Day").addCategoricalVariableReference(day);
  graph.AddPrimaryYAxis(u"Rain (mm)").addIntervalVariableReference(rain);
  graph.AddTitle1(u"It rained on four days");
  document.SetDescription(u"Bars of the rain of each day of a week.");

  bool const sent = document.SendChart(false, false, false);
  std::puts(sent ? "a chart is in capture.kcap" : "not sent");
  return sent ? 0 : 1;
}
