// Words and side information on the chart as a whole.

#include "xdocument.h"

#include "xdocument_data.h"

#include "support/chart_parts.h"
#include "support/chart_text.h"
#include "support/guard.h"

#include "host/locale.h"
#include "model/elements.h"
#include "model/graph.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

using kestrel::findOrMakeExtension;
using kestrel::present;

namespace {

/// The default locale without its last part, which names an encoding.
std::string localeName() {
  std::array<char, 124> buffer{};
  if (VexaMBDefaultLocaleName_A(buffer.data(), static_cast<int>(buffer.size())) <= 0) return {};
  std::string const name = buffer.data();
  return name.substr(0, name.rfind('.'));
}

}  // namespace

void XDocument::setLanguage() {
  if (!implementationExists()) return;
  LumoVisualization& visualization = chart();
  ChartString language(visualization.getLang());
  if (!language.empty()) return;
  std::string const locale = localeName();
  if (locale.empty()) {
    kestrel::logFailure("VexaMBDefaultLocaleName() returned empty string.", __FILE__, __LINE__);
  }
  language.assign(locale.c_str());
  language.replaceChars(u'_', u'-');
  visualization.setLang(language.xc_str());
  // The creator holds the language code: relied upon.
  visualization.setCreator(ChartString(OLang().GetLanguageCode().c_str()).xc_str());
}

void XDocument::SetDataHandle(ChartString const& name, ChartString const& handle) {
  // For the process, over all its charts: relied upon.
  static std::int32_t dataSetNumber = 0;
  if (mData->mGraph == nullptr || name.empty() || handle.empty()) return;
  LumoExtensionVis& extension =
      findOrMakeExtension(present(mData->mGraph->getImplementation(), "visualization"));
  auto const attribute = [](char16_t const* word) {
    ChartString text(word);
    text.appendInteger(dataSetNumber);
    return text;
  };
  extension.setAttribute(attribute(u"dataSetName_"), name);
  extension.setAttribute(attribute(u"dataSetHandle_"), handle);
  ++dataSetNumber;
}

LumoVisualization& XDocument::chart() const { return present(getVisualization(), "visualization"); }

LumoVisualization& XDocument::chartWithGraph() {
  if (mData->mGraph == nullptr) mData->mGraph = std::make_unique<XGraph>(chart());
  return present(mData->mGraph->getImplementation(), "visualization");
}

void XDocument::addExtension(char16_t const* name, char16_t const* value) {
  findOrMakeExtension(chartWithGraph()).setAttribute(ChartString(name), ChartString(value));
}

// The signature is fixed.
void XDocument::addSwingController(std::string function) {  // NOLINT(performance-unnecessary-value-param)
  LumoSwingController& controller = *chartWithGraph().addSwingController();
  controller.setFunction(ChartString(function.c_str()).xc_str());
  controller.setTarget(present(mData->mGraph->getGraph(), "graph").getId());
}

namespace {

constexpr char16_t percent[] = u"%";

/// Of the first axis of the second dimension.
LumoMajorTicks* valueTicks(LumoGraph const& graph) {
  LumoCoordinates const* const coordinates = graph.getCoordinates(0);
  if (coordinates == nullptr) return nullptr;
  auto const dimensions = coordinates->getDimensions();
  if (dimensions.size() < 2) return nullptr;
  auto const axes = dimensions[1]->getAxiss();
  return axes.empty() ? nullptr : axes.front()->getMajorTicks();
}

}  // namespace

bool XDocument::addPercentSuffixToYAxis() {
  auto const graphs = chartWithGraph().getGraphs();
  LumoGraph const& graph = present(graphs.empty() ? nullptr : graphs.front(), "graph");
  LumoMajorTicks* const ticks = valueTicks(graph);
  if (ticks != nullptr) ticks->addFormat()->setSuffix(percent);
  auto const intervals = graph.getIntervals();
  if (!intervals.empty()) {
    auto const labelings = intervals.front()->getLabelings();
    if (!labelings.empty()) labelings.front()->addFormat()->setSuffix(percent);
  }
  return ticks != nullptr;
}

namespace {

template <typename Source>
void appendIds(std::vector<ChartString>& ids, std::vector<Source*> const& sources) {
  for (Source const* source : sources) ids.emplace_back(source->getId());
}

}  // namespace

void XDocument::getSourceNameCount(std::vector<std::string> const& names, unsigned int& found,
                                   unsigned int& notFound) {
  kestrel::guarded("Error in XDocument::getSourceNameCount()", [&] {
    found = 0;
    notFound = 0;
    LumoVisualization const& visualization = chart();
    std::vector<ChartString> ids;
    appendIds(ids, visualization.getDatabaseSources());
    appendIds(ids, visualization.getDelimitedFileSources());
    appendIds(ids, visualization.getEmbeddedSources());
    appendIds(ids, visualization.getStreamingSources());
    appendIds(ids, visualization.getUserSources());
    for (std::string const& name : names) {
      ChartString const id(name.c_str());
      bool const isThere =
          std::any_of(ids.begin(), ids.end(), [&id](ChartString const& known) { return id.equals(known); });
      ++(isThere ? found : notFound);
    }
  });
}
