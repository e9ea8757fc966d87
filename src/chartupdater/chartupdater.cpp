// What every finished chart gets.

#include "chartupdater.h"

#include "chartupdater_data.h"
#include "date_text.h"

#include "support/chart_parts.h"
#include "support/failure.h"

#include "host/chartbase.h"
#include "model/aesthetics.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/paneling.h"

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>
#include <xercesc/util/XMLString.hpp>

#include <algorithm>

using xercesc::XMLString;

ChartUpdater::ChartUpdaterData::ChartUpdaterData(LumoDocument& document)
    : mDocument(&document), mContainerStyle(&kestrel::findOrMakeContainer(visualization())) {}

LumoVisualization& ChartUpdater::ChartUpdaterData::visualization() const {
  return kestrel::present(mDocument->getVisualization(), "visualization");
}

void ChartUpdater::ChartUpdaterData::reparentStyles() const {
  if (mContainerStyle != nullptr) visualization().reparentStyles(*mContainerStyle);
}

ChartUpdater::ChartUpdater(LumoDocument& document) : mData(std::make_unique<ChartUpdaterData>(document)) {}
ChartUpdater::~ChartUpdater() = default;

ChartString kestrel::dateText(std::tm const& day) {
  ChartString text;
  auto const append = [&text](int number) {
    text.append(number < 10 ? u"-0" : u"-");
    text.appendInteger(number);
  };
  text.appendInteger(day.tm_year + 1900);
  append(day.tm_mon + 1);
  append(day.tm_mday);
  return text;
}

namespace {

ChartString today() {
  std::time_t const now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return kestrel::dateText(local);
}

void findOrMakeRepository(LumoVisualization& visualization) {
  auto const cycles = visualization.getStyleCycles();
  bool const isThere = std::any_of(cycles.begin(), cycles.end(), [](LumoStyleCycle const* cycle) {
    return XMLString::equals(cycle->getId(), ChartBase::_styleCycleRepository);
  });
  if (!isThere) visualization.addStyleCycle(ChartBase::_styleCycleRepository)->addCycle()->addStyle();
}

bool isMatrixScatter(LumoGraph const& graph) {
  auto const points = graph.getPoints();
  return points.size() == 1 && ChartString(points.front()->getId()).ContainsString(ChartBase::_matrixscatter);
}

/// The bins of a chart whose only intervals are counted by method 26 are extended.
void extendBins(LumoGraph const& graph) {
  auto const intervals = graph.getIntervals();
  if (intervals.size() != 1) return;
  auto const bins = intervals.front()->getBinStatistics();
  auto const summaries = intervals.front()->getSummaryStatistics();
  if (bins.empty() || summaries.empty()) return;
  if (summaries.front()->getMethod() == LumoSummaryStatistic::Method26) bins.front()->setAugment(true);
}

}  // namespace

void ChartUpdater::AddDefaultLooks() {
  LumoVisualization& visualization = mData->visualization();
  visualization.setDate(today().xc_str());
  findOrMakeRepository(visualization);
  addExtensions();
  for (LumoGraph const* graph : visualization.getGraphs()) {
    if (LumoFacetLayout* const layout = graph->getFacetLayout()) layout->setTopDown(!isMatrixScatter(*graph));
    extendBins(*graph);
  }
}

bool ChartUpdater::isChartPie() const {
  // A polar transform does not make it one: relied upon.
  return false;
}

bool ChartUpdater::idExists(ChartString const& id, std::vector<ChartString>& ids) const {
  return std::any_of(ids.begin(), ids.end(), [&id](ChartString const& known) { return id.equals(known); });
}

int ChartUpdater::duplicateAttributes(LumoBaseElement const& from, LumoBaseElement& to) const {
  xercesc::DOMNamedNodeMap const& attributes = *from.getImplementation()->getAttributes();
  int count = 0;
  for (XMLSize_t at = 0; at < attributes.getLength(); ++at) {
    xercesc::DOMNode const& attribute = *attributes.item(at);
    if (XMLString::equals(attribute.getNodeName(), LumoUni::_id)) continue;
    to.getImplementation()->setAttribute(attribute.getNodeName(), attribute.getNodeValue());
    ++count;
  }
  return count;
}
