// The warmest and the coldest temperature of each day as one blend, a colour for each.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <memory>

void kestrel::gallery::blendedPanels(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable date = graph.AddAggregatedVariable(*source, false, u"Date");
  date.setFormat({Vexa_Format::FormatDate, 11, 0});
  XVariable warmest = graph.AddAggregatedVariable(*source, false, u"Warmest");
  XVariable coldest = graph.AddAggregatedVariable(*source, false, u"Coldest");
  for (Day const& day : seattleWeather()) {
    XRow& row = *source->AddRow();
    row.addDataValue(date, day.date);
    row.addDataValue(warmest, day.warmest);
    row.addDataValue(coldest, day.coldest);
  }

  XElement line = graph.AddLineElement(nullptr);
  line.AddX(date);
  XAxis x = graph.AddPrimaryXAxis(u"Date");
  x.addIntervalVariableReference(date);
  x.addDateInterval(nullptr, nullptr);
  graph.AddPrimaryYAxis(u"Temperature (°C)");
  graph.BeginPaneling();
  graph.PanelingAddBlendVariable(warmest);
  graph.PanelingAddBlendVariable(coldest);
  graph.EndPaneling(true, false);

  graph.AddTitle1(u"Temperatures in Seattle, 2012 to 2015");
  document.SetDescription(u"Lines of the warmest and the coldest temperature, one panel for each.");
}
