// The number of days by kind of weather, in descending order, on its side, without drizzle.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <map>
#include <memory>

void kestrel::gallery::sortedBars(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable weather = graph.AddAggregatedVariable(*source, true, u"Weather");
  XVariable number = graph.AddAggregatedVariable(*source, false, u"Number of days");
  std::map<std::string, double> counts;
  for (Day const& day : seattleWeather()) ++counts[day.weather];
  Categories kinds;
  for (auto const& [kind, count] : counts) {
    XRow& row = *source->AddRow();
    row.addDataValue(weather, kinds.code(kind));
    row.addDataValue(number, count);
  }
  kinds.relabel(weather);
  weather.sortCategories(true);
  // A category goes by its value in the data.
  weather.excludeCategory(ChartString(static_cast<unsigned long>(kinds.code("drizzle"))));

  XElement bars = graph.AddBarElement(false);
  bars.AddX(weather);
  bars.AddY(number);
  graph.AddPrimaryXAxis(u"Weather").addCategoricalVariableReference(weather);
  graph.AddPrimaryYAxis(u"Number of days").addIntervalVariableReference(number);
  graph.transpose();
  graph.setOuterFrameHeight(1.2);

  graph.AddTitle1(u"Weather in Seattle, 2012 to 2015");
  graph.AddFootnote1(u"Days with drizzle are left out.");
  document.SetDescription(u"Bars of the number of days by kind of weather.");
}
