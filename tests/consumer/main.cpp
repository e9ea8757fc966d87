// A program against an installed kestrel. It uses every exported class, and sends content of each kind to a
// channel in memory.
#include "chartupdater.h"
#include "chartxmlcontent.h"
#include "customizecharts.h"
#include "kestrel_export.h"
#include "xaxis.h"
#include "xbaseelement.h"
#include "xdatavalue.h"
#include "xdocument.h"
#include "xelement.h"
#include "xember.h"
#include "xgraph.h"
#include "xgraphservice.h"
#include "ximage.h"
#include "xinteractive.h"
#include "xlegend.h"
#include "xlumotemplate.h"
#include "xrow.h"
#include "xsource.h"
#include "xutility.h"
#include "xvariable.h"

#include "host/data_store.h"
#include "kestrelhost/host.h"
#include "model/document.h"
#include "model/variables.h"

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

namespace {

void addRows(XSource& source, XVariable const& day, XVariable const& rain) {
  for (int i = 0; i < 7; ++i) {
    XRow& row = *source.AddRow();
    row.addDataValue(day, static_cast<double>(i + 1));
    row.addDataValue(rain, 0.5 * i);
  }
}

/// A value beside those of the rows.
bool addValue(XSource& source, XVariable const& rain) {
  VarDataProcessor store;
  std::string const id = ChartString(source.getImplemenation()->getId()).toUTF8();
  XDataValue const value(store, id, rain, 0, 1.0);
  static_cast<void>(value);
  return XDataValue::addDataValue(store, id, "column", 0, 2.0);
}

bool sendChart() {
  LumoDocument model;
  XDocument document(model);
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable day = graph.AddAggregatedVariable(*source, false, ChartString(u"Day"));
  XVariable rain = graph.AddAggregatedVariable(*source, false, ChartString(u"Rain (mm)"));
  day.sortCategories(false);
  addRows(*source, day, rain);
  addValue(*source, rain);
  XAxis axis = graph.AddPrimaryXAxis(ChartString(u"Day"));
  axis.setDelta(1.0);
  XElement points = graph.AddPointElement();
  points.AddX(day);
  points.AddY(rain);
  XLegend legend = graph.addLegend(u"Rain");
  legend.addLegendElement(points);
  XBaseElement const& base = points;
  bool const hasText = !base.AsUTF8().empty();
  graph.AddXReferenceLine(3.0, XGraph::_primaryXAxisId);
  ChartUpdater(model).addExtensions();
  customizeCharts(*document.getVisualization()).customizeSPCharts();
  bool const sent = document.SendChart(false, false, false);
  VarDataProcessor another;
  return hasText && sent && source->clear(another) == 7;
}

bool sendImage() {
  XImage image;
  image.SetDescription(XUtility::chartStringFromRGB(1, 2, 3));
  image.setImageInline(ChartXMLContentSubType{1}, "an image");
  return image.sendImage();
}

bool sendPage() {
  xInteractive page;
  page.setInteractiveJSON("{}");
  return page.sendInteractive();
}

bool sendEngineChart() {
  xEmber chart;
  chart.setOptions("size=1");
  return chart.addGeoJSON("lakes", "{}") && chart.sendChart();
}

bool sendService() {
  XGraphService service;
  service.setChartOptions("type=bar");
  service.createDocument(ChartString(u"source0"));
  service.addVariable("rain", 0);
  return service.sendChartOptions();
}

/// Nobody is here to answer it.
bool describeARequest() {
  XLumoTemplate request;
  ChartString name(u"bars");
  request.setTemplateName(name, XLumoTemplate::LOCATION_LOCAL);
  return request.getDataMapName().empty();
}

}  // namespace

int main() {
  auto channel = std::make_shared<kestrel::host::MemoryChannel>();
  kestrel::host::Host host;
  host.channel = channel;
  kestrel::host::ScopedHost const scope(host);

  bool const sent = sendChart() && sendImage() && sendPage() && sendEngineChart() && sendService();
  if (!sent || !describeARequest()) return 1;

  std::size_t bytes = 0;
  for (auto const& message : channel->messages()) bytes += message.bytes.size();
  std::printf("%zu bytes in %zu messages\n", bytes, channel->messages().size());
  return 0;
}
