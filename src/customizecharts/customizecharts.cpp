// Points that combine colour and pattern, icicle plots, and the swatches of a pair of graphs.

#include "customizecharts.h"

#include "customizecharts_data.h"

#include "support/chart_parts.h"
#include "support/chart_text.h"
#include "support/failure.h"

#include "model/aesthetics.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/paneling.h"
#include "model/style.h"

#include <algorithm>

using kestrel::joined;
using kestrel::numbered;

customizeCharts::customizeCharts(LumoVisualization& visualization)
    : mData(std::make_unique<Data>(Data{&visualization})) {}
customizeCharts::~customizeCharts() = default;

// --- Points that combine colour and pattern

namespace {

struct ValueLook {
  char16_t const* value;
  char16_t const* look;
};
constexpr ValueLook symbols[] = {{u"0", LumoUni::_square}, {u"1", LumoUni::_circle}};
constexpr ValueLook colors[] = {{u"0", u"green"}, {u"1", u"red"}};

void addShape(LumoPoint& point, CTVariableType const& variable) {
  LumoShape& shape = *point.addShape();
  // Counted behind the add.
  shape.setId(numbered(LumoUni::_shape, point.getShapes().size()).xc_str());
  shape.setVariable(variable);
  for (ValueLook const& row : symbols) {
    LumoSymbolMapping& mapping = *shape.addSymbolMapping();
    mapping.setFrom(row.value);
    mapping.setTo(row.look);
  }
}

LumoColor& addColor(LumoPoint& point, ChartString const& id, CTVariableType const& variable) {
  LumoColor& color = *point.addColor();
  color.setId(id.xc_str());
  color.setVariable(variable);
  color.setAffect(LumoColor::Affect2);
  for (ValueLook const& row : colors) {
    LumoColorMapping& mapping = *color.addColorMapping();
    mapping.setFrom(row.value);
    mapping.setTo(row.look);
  }
  return color;
}

bool explains(LumoLegend const& legend, ChartString const& id) {
  auto const targets = legend.getLegendTargets();
  return std::any_of(targets.begin(), targets.end(), [&id](LumoLegendTarget const* target) {
    LumoBaseElement const* const explained = target->getTarget();
    return explained != nullptr && id.equals(explained->getAttribute(LumoUni::_id));
  });
}

/// The first legend that explained what had the id explains the colour too.
void addLegendTarget(LumoVisualization const& visualization, ChartString const& id, LumoColor const& color) {
  for (LumoLegend* legend : kestrel::objectsOf<LumoLegend>(visualization, LumoLegend::getElementName())) {
    if (!explains(*legend, id)) continue;
    ChartString const targetId = numbered(LumoUni::_legendTarget, legend->getLegendTargets().size());
    legend->addLegendTarget(targetId.xc_str(), color);
    return;
  }
}

}  // namespace

bool customizeCharts::customizeSPCharts() {
  bool replaced = false;
  auto const graphs = mData->mVisualization->getGraphs();
  if (graphs.size() != 1) return replaced;
  ChartString const combined = joined({LumoUni::_color, u"_", LumoUni::_pattern});
  for (LumoPoint* point : graphs.front()->getPoints()) {
    // All style-bys go with the first match; the walk goes on over those that there were.
    for (LumoStyleBy const* styleBy : point->getStyleBys()) {
      ChartString const id(styleBy->getId());
      CTVariableType const* const variable = styleBy->getVariable();
      LumoStyleCycle const* const cycle = styleBy->getStyleCycle();
      if (variable == nullptr || cycle == nullptr || !combined.equals(cycle->getId())) continue;
      point->removeStyleBys();
      addShape(*point, *variable);
      addLegendTarget(*mData->mVisualization, id, addColor(*point, id, *variable));
      replaced = true;
    }
  }
  return replaced;
}

// --- Icicle plots

namespace {

void scaleIcicles(LumoCoordinates& coordinates, bool transposed) {
  auto const dimensions = coordinates.getDimensions();
  if (dimensions.size() < 2) return;
  LumoScale& scale = *dimensions[1]->addScale(LumoScale::Method1);
  scale.setOrigin(u"0");
  if (transposed) {
    coordinates.addTransposeTransform();
  } else {
    scale.setInvert(true);
  }
  dimensions[1]->setUpperMargin(u"0%");
  dimensions[1]->setLowerMargin(u"5%");
  dimensions[0]->setUpperMargin(u"5px");
  dimensions[0]->setLowerMargin(u"5px");
}

void locate(LumoVisualization& visualization, LumoLocation::ENUM_part part, ChartString const& value) {
  visualization.addLocation(part)->setValue(value.xc_str());
}

/// Up to 60 leaves a chart has its usual size; then one side grows with them.
ChartString grownSize(unsigned int count, unsigned int usual) {
  constexpr unsigned int fewest = 60;
  constexpr unsigned int most = 1000;
  ChartString text = numbered(u"", std::clamp(count, fewest, most) * usual / fewest);
  text.append(u"px");
  return text;
}

}  // namespace

bool customizeCharts::customizeIciclePlots(bool transposed, unsigned int count) {
  constexpr unsigned int usualWidth = 625;
  constexpr unsigned int usualHeight = 500;
  LumoVisualization& visualization = *mData->mVisualization;
  auto const graphs = visualization.getGraphs();
  if (graphs.size() != 1) return false;
  auto const intervals = graphs.front()->getIntervals();
  if (!intervals.empty()) {
    LumoStyle& style = *visualization.addStyle();
    style.setId(joined({LumoUni::_interval, LumoUni::_style}).xc_str());
    intervals.front()->setStyle(style);
    style.setSize(u"100%");
    style.setStroke_width(u"0.1pt");
  }
  if (LumoCoordinates* const coordinates = graphs.front()->getCoordinates(0))
    scaleIcicles(*coordinates, transposed);
  locate(visualization, LumoLocation::PartLeft, u"0px");
  locate(visualization, LumoLocation::PartTop, u"0px");
  if (transposed) {
    locate(visualization, LumoLocation::PartRight, u"625px");
    locate(visualization, LumoLocation::PartBottom, grownSize(count, usualHeight));
  } else {
    locate(visualization, LumoLocation::PartBottom, u"500px");
    locate(visualization, LumoLocation::PartRight, grownSize(count, usualWidth));
  }
  return !intervals.empty();
}

// --- Swatches

namespace {

/// The cycle that gives the elements of a graph their looks.
struct LookCycle {
  LumoStyleCycle const* cycle = nullptr;
  bool ofColors = true;
};

LookCycle lookCycleOf(CTElementType const& element) {
  auto const elementColors = element.getColors();
  if (!elementColors.empty()) return {elementColors.front()->getCycle(), true};
  auto const patterns = element.getPatterns();
  if (!patterns.empty()) return {patterns.front()->getCycle(), false};
  return {};
}

/// Of the first area, or the first line where there is none.
LookCycle lookCycleOf(LumoGraph const& graph) {
  auto const areas = graph.getAreas();
  if (!areas.empty()) return lookCycleOf(*areas.front());
  auto const lines = graph.getLines();
  return lines.empty() ? LookCycle() : lookCycleOf(*lines.front());
}

void showSwatch(LumoStyle& cell, LumoStyle const& swatch, bool ofColors) {
  if (ofColors) {
    cell.setColor(swatch.getColor());
  } else {
    cell.setPattern(swatch.getPattern());
    cell.setColor(LumoStyle::_black);
  }
}

}  // namespace

bool customizeCharts::customizePDFCDF() {
  auto const graphs = mData->mVisualization->getGraphs();
  if (graphs.size() != 2) return false;
  LookCycle const looks = lookCycleOf(*graphs[0]);
  if (looks.cycle == nullptr || looks.cycle->getCycles().empty()) return false;
  auto const swatches = looks.cycle->getCycles().front()->getStyles();
  LumoFacetLayout const* const layout = graphs[1]->getFacetLayout();
  if (layout == nullptr) return false;
  auto const cells = layout->getSetCellPropertiess();
  for (std::size_t at = 0; at < cells.size(); ++at) {
    for (LumoSetFrameStyle const* frame : cells[at]->getSetFrameStyles()) {
      if (swatches.empty()) kestrel::throwFailure("There is no style in the cycle of the first graph");
      LumoStyle* const cell = frame->getStyle();
      if (cell != nullptr) showSwatch(*cell, *swatches[at % swatches.size()], looks.ofColors);
    }
  }
  return false;
}
