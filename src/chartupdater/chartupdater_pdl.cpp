// Charts that were converted from PDL.

#include "chartupdater.h"

#include "chartupdater_data.h"

#include "support/chart_parts.h"
#include "support/chart_text.h"

#include "host/templates.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/labels.h"

#include <algorithm>

using kestrel::joined;

namespace {

bool isTiedToATarget(LumoGraph const& graph) {
  auto const locations = graph.getLocations();
  return std::any_of(locations.begin(), locations.end(), [](LumoLocation const* location) {
    return location->getMethod() == LumoLocation::Method3;
  });
}

/// For a chart whose graphs all lie in containers.
void emptyContainers(LumoVisualization& visualization) {
  visualization.reparentContainerChildren();
  for (LumoContainer* container : visualization.getContainers()) container->removeLocations();
  for (LumoGraph* graph : visualization.getGraphs()) {
    if (isTiedToATarget(*graph)) graph->removeLocations();
  }
}

bool isAreaOrLine(CTElementType const& element) {
  return dynamic_cast<LumoArea const*>(&element) != nullptr ||
         dynamic_cast<LumoLine const*>(&element) != nullptr;
}

/// How the values of a statistic are shown: whole where they count something.
struct StatisticFormat {
  LumoSummaryStatistic::ENUM_method method;
  unsigned int fractionDigits;
};
constexpr StatisticFormat statisticFormats[] = {
    {LumoSummaryStatistic::MethodHistogram, 0}, {LumoSummaryStatistic::Method11, 0},
    {LumoSummaryStatistic::Method14, 0},        {LumoSummaryStatistic::Method20, 1},
    {LumoSummaryStatistic::Method26, 0},        {LumoSummaryStatistic::Method31, 0},
    {LumoSummaryStatistic::Method34, 1},        {LumoSummaryStatistic::Method35, 1},
    {LumoSummaryStatistic::Method36, 1},        {LumoSummaryStatistic::Method37, 1}};

/// On ticks that have no format yet.
void formatValueAxes(LumoGraph const& graph, unsigned int fractionDigits) {
  LumoCoordinates const* const coordinates = graph.getCoordinates(0);
  if (coordinates == nullptr) return;
  auto const dimensions = coordinates->getDimensions();
  if (dimensions.size() < 2) return;
  for (LumoAxis const* axis : dimensions[1]->getAxiss()) {
    LumoMajorTicks* const ticks = axis->getMajorTicks();
    if (ticks == nullptr || !ticks->getFormats().empty()) continue;
    LumoFormat& format = *ticks->addFormat();
    format.setUseGrouping(true);
    format.setMinimumFractionDigits(fractionDigits);
    format.setMaximumFractionDigits(fractionDigits);
  }
}

void showStatistics(LumoGraph const& graph, CTElementType const& element) {
  bool const hasZ = element.getZ() != nullptr;
  for (LumoSummaryStatistic* statistic : element.getSummaryStatistics()) {
    auto const method = statistic->getMethod();
    for (StatisticFormat const& row : statisticFormats) {
      if (row.method == method) formatValueAxes(graph, row.fractionDigits);
    }
    if (hasZ && isAreaOrLine(element)) statistic->setAugment(LumoSummaryStatistic::Augment2);
  }
}

}  // namespace

void ChartUpdater::AddDefaultPDLLooks() {
  mData->reparentStyles();
  LumoVisualization& visualization = mData->visualization();
  if (visualization.getGraphs().empty()) emptyContainers(visualization);

  // Tick styles split off where they are shared with the axis's label.
  auto const split = [&](LumoStyle const& shared, LumoAxis const& axis,
                         char16_t const* suffix) -> LumoStyle& {
    LumoStyle& made = *mData->mContainerStyle->addStyle();
    duplicateAttributes(shared, made);
    made.setId(joined({axis.getId(), suffix}).xc_str());
    return made;
  };
  for (LumoAxis const* axis : kestrel::objectsOf<LumoAxis>(visualization, LumoUni::_axis)) {
    if (axis->getLabel() == nullptr || axis->getMajorTicks() == nullptr) continue;
    LumoStyle const* const labelStyle = axis->getLabel()->getStyle();
    if (labelStyle == nullptr) continue;
    LumoMajorTicks& ticks = *axis->getMajorTicks();
    LumoStyle const* const markStyle = ticks.getMarkStyle();
    LumoStyle const* const tickStyle = ticks.getStyle();
    if (markStyle == labelStyle) ticks.setMarkStyle(split(*labelStyle, *axis, LumoUni::_markStyle));
    if (tickStyle == labelStyle) ticks.setStyle(split(*labelStyle, *axis, u"tickStyle"));
  }

  for (LumoGraph const* graph : visualization.getGraphs()) {
    std::vector<CTElementType*> elements;
    BaseTemplate::getAllElements(*graph, elements);
    for (CTElementType const* element : elements) showStatistics(*graph, *element);
  }
  AddDefaultLooks();
}
