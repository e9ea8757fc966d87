// The number of days by kind of weather, with a second axis for their share.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <map>
#include <memory>

void kestrel::gallery::secondaryYAxis(XDocument& document) {
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

  XElement bars = graph.AddBarElement(false);
  bars.AddX(weather);
  bars.AddY(number);
  graph.AddPrimaryXAxis(u"Weather").addCategoricalVariableReference(weather);
  graph.AddPrimaryYAxis(u"Number of days").addIntervalVariableReference(number);
  XAxis share = graph.AddDerivedYAxis(u"Share of all days", true);
  share.setMajorTickLabelSuffix(u"%");

  graph.AddTitle1(u"Weather in Seattle, 2012 to 2015");
  document.SetDescription(
      u"Bars of the number of days by kind of weather, with a second axis for the share.");
}
