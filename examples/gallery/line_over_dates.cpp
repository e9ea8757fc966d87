// The warmest and the coldest temperature of each day of a year.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <memory>

void kestrel::gallery::lineOverDates(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable date = graph.AddAggregatedVariable(*source, false, u"Date");
  date.setFormat({Vexa_Format::FormatDate, 11, 0});
  XVariable warmest = graph.AddAggregatedVariable(*source, false, u"Warmest");
  XVariable coldest = graph.AddAggregatedVariable(*source, false, u"Coldest");
  constexpr std::size_t daysOf2012 = 366;
  std::vector<Day> days = seattleWeather();
  days.resize(daysOf2012);
  for (Day const& day : days) {
    XRow& row = *source->AddRow();
    row.addDataValue(date, day.date);
    row.addDataValue(warmest, day.warmest);
    row.addDataValue(coldest, day.coldest);
  }

  XElement upper = graph.AddLineElement(u"Warmest");
  upper.AddX(date);
  upper.AddY(warmest);
  upper.SetPrimaryColor(213, 94, 0);
  XElement lower = graph.AddLineElement(u"Coldest");
  lower.AddX(date);
  lower.AddY(coldest);
  lower.SetPrimaryColor(0, 114, 178);
  lower.SetLineType(XElement::LineDash2);
  XAxis x = graph.AddPrimaryXAxis(u"2012");
  x.addIntervalVariableReference(date);
  x.addDateInterval(nullptr, nullptr);
  XAxis y = graph.AddPrimaryYAxis(u"Temperature (°C)");
  y.addIntervalVariableReference(warmest);
  y.addIntervalVariableReference(coldest);
  graph.AddYReferenceLine(0, u"Freezing");

  graph.AddTitle1(u"Temperatures in Seattle");
  document.SetDescription(u"Lines of the warmest and the coldest temperature of each day of 2012.");
}
