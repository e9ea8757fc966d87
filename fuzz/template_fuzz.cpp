// A template of any content: what is refused is told of and changes nothing, and what is accepted leaves a
// chart that parses again. Without frames that are added each time, the second time changes nothing more.

#include "xdocument.h"

#include "host/templates.h"
#include "kestrelhost/recorder.h"
#include "kestrelhost/template_engine.h"
#include "model/aesthetics.h"
#include "model/document.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/style.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

using kestrel::host::Operation;
using kestrel::host::Recorder;
using kestrel::host::ScopedHost;

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

kestrel::host::Host hostWithEngine() {
  kestrel::host::Host host = kestrel::host::MemoryServices().host();
  host.templateEngine = std::make_shared<kestrel::host::XmlTemplateEngine>();
  return host;
}

/// Some of everything, and a style that two parts share.
void describe(LumoVisualization& chart) {
  LumoStyle& container = *chart.addStyle();
  container.setId(u"container");
  LumoStyle& shared = *container.addStyle();
  shared.setId(u"shared");
  LumoGraph& graph = *chart.addGraph(u"graph");
  LumoCoordinates& coordinates = *graph.addCoordinates(u"coordinates");
  LumoAxis& axis = *coordinates.addDimension()->addAxis();
  axis.setStyle(shared);
  axis.addLabel();
  axis.addMajorTicks()->addGridline();
  coordinates.addDimension()->addAxis()->addMajorTicks();
  LumoPoint& point = *graph.addPoint(u"point");
  point.setStyle(shared);
  point.addColor();
  point.addStyleBy(nullptr);
  graph.addInterval(u"interval")->addBinStatistic();
  graph.addSchema(u"schema");
  graph.addLineGuide();
  chart.addLegend(u"legend")->addLabel();
  LumoLabel& label = *chart.addLabelFrame(u"frame")->addLabel();
  label.setPurpose(LumoLabel::PurposeTitle1);
}

bool apply(LumoVisualization& chart, std::string const& text) {
  ChartTemplate application(chart, nullptr);
  bool const accepted = application.setTemplate(text);
  application.applyTemplate();
  return accepted;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  static Recorder recorder(hostWithEngine());
  static ScopedHost const scope(recorder.host());
  recorder.clear();
  std::string const text(reinterpret_cast<char const*>(data), size);
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
  describe(chart);
  std::string const before = document.AsUTF8();
  bool const accepted = apply(chart, text);
  bool const hasErrors = recorder.count(Operation::Error) != 0;
  require(accepted || hasErrors);
  require(recorder.count(Operation::Fetch) == 0);
  std::string const once = document.AsUTF8();
  // What is accepted may still be too much for the chart.
  if (hasErrors) require(once == before);
  XDocument const again(once);
  require(again.implementationExists());
  require(again.AsUTF8() == once);
  apply(chart, text);
  if (text.find("addFrame") == std::string::npos) require(document.AsUTF8() == once);
  return 0;
}
