// Facet levels: the axes that stand around the panels.

#include "xgraph.h"

#include "support/chart_text.h"
#include "support/guard.h"

#include "host/chartbase.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/paneling.h"
#include "model/style.h"

using kestrel::guarded;
using kestrel::joined;
using kestrel::numbered;
using kestrel::orEmpty;
using kestrel::present;

namespace {

/// What belongs to one level is named by its part, the kind of level, and its number.
ChartString levelId(char16_t const* part, char16_t const* kind, unsigned int level) {
  return numbered(joined({part, u"_", kind, u"_"}), level);
}

constexpr char16_t panel[] = u"panel";
constexpr char16_t blend[] = u"matrixscatterx";

LumoStyle& addDefaultStyle(XGraph& chart, ChartString const& id) {
  return *chart.addStyle(joined({id.xc_str(), ChartBase::_default_style}));
}

/// No separator stands before the last word of an id.
struct TickStyle {
  char16_t const* suffix;
  void (LumoMajorTicks::*attach)(LumoStyle const&);
};
constexpr TickStyle tickStyles[] = {{u"markStyle", &LumoMajorTicks::setMarkStyle},
                                    {u"tickLabelStyle", &LumoMajorTicks::setStyle},
                                    {u"tickFrameStyle", &LumoMajorTicks::setTickFrameStyle}};

/// Gives the last style, which is that of the tick frame.
LumoStyle& styleTicks(XGraph& chart, LumoMajorTicks& ticks, char16_t const* kind, unsigned int level) {
  ChartString const id = levelId(u"majorTicks_axis", kind, level);
  LumoStyle* style = nullptr;
  for (TickStyle const& each : tickStyles) {
    style = chart.addStyle(joined({id.xc_str(), each.suffix}));
    (ticks.*each.attach)(*style);
  }
  return *style;
}

}  // namespace

void XGraph::addFacetLevel(unsigned int& level, char16_t const* label, char16_t const* gap,
                           double labelAngle) {
  LumoGraph& graph = present(mGraph, "graph");
  LumoFacetLayout* layout = graph.getFacetLayout();
  if (layout == nullptr) {
    layout = graph.addFacetLayout();
    layout->setMethod(LumoFacetLayout::Method1);
    layout->setTopDown(true);
  }
  LumoFacetLevel& facetLevel = *layout->addFacetLevel(levelId(u"facetLabel", panel, level).xc_str(), level);
  facetLevel.setGap(gap);
  LumoAxis& axis = *facetLevel.addAxis();
  axis.setOpposite(true);
  axis.setStyle(addDefaultStyle(*this, levelId(u"axis", panel, level)));
  LumoLabel& axisLabel = *axis.addLabel();
  axisLabel.setStyle(addDefaultStyle(*this, levelId(u"label", panel, level)));
  LumoStyle& textFrame = addDefaultStyle(*this, levelId(u"textFrame", panel, level));
  axisLabel.setTextFrameStyle(textFrame);
  textFrame.setVisible(false);
  axisLabel.addText()->setText(orEmpty(label));
  LumoMajorTicks& ticks = *axis.addMajorTicks();
  if (labelAngle != 0) ticks.setLabelAngle(labelAngle);
  styleTicks(*this, ticks, panel, level).setVisible(false);
  ++level;
}

void XGraph::addBlendFacetLevel(unsigned int level) {
  LumoGraph& graph = present(mGraph, "graph");
  LumoFacetLayout* layout = graph.getFacetLayout();
  if (layout == nullptr) {
    // Without a method, unlike the layout of panel variables.
    layout = graph.addFacetLayout();
    layout->setTopDown(true);
  }
  LumoFacetLevel& facetLevel = *layout->addFacetLevel(levelId(u"facetLabel", blend, level).xc_str(), level);
  LumoAxis& axis = *facetLevel.addAxis();
  axis.setStyle(addDefaultStyle(*this, levelId(u"axis", blend, level)));
  LumoMajorTicks& ticks = *axis.addMajorTicks();
  // In unsigned integers, also for levels above 1: relied upon.
  ticks.setLabelAngle(90U - 90U * level);
  ticks.setLength(u"0.0px");
  ticks.setBase(u"0");
  ticks.setStagger(false);
  styleTicks(*this, ticks, blend, level);
}

namespace {

/// New styles in the place of those that the label had, which stay in the chart.
void hideLabel(XGraph& chart, LumoLabel& label, ChartString const& id) {
  LumoStyle& style = *chart.addStyle(id);
  label.setStyle(style);
  style.setVisible(false);
  LumoStyle& frame = *chart.addStyle(joined({id.xc_str(), u"_textFrame"}));
  label.setTextFrameStyle(frame);
  frame.setVisible(false);
}

ChartString hiddenLabelId(LumoFacetLevel const& level, std::size_t axis) {
  ChartString const levelPart = numbered(u"facetLevel", level.getLevel());
  return joined({numbered(joined({levelPart.xc_str(), u"_axis_"}), axis).xc_str(), u"_label_style"});
}

}  // namespace

void XGraph::HideAllPanelLabels() {
  guarded("Error in XGraph::HideAllPanelLabels()", [&] {
    LumoFacetLayout const* const layout = present(mGraph, "graph").getFacetLayout();
    if (layout == nullptr) return;
    for (LumoFacetLevel const* level : layout->getFacetLevels()) {
      auto const axes = level->getAxiss();
      for (std::size_t at = 0; at < axes.size(); ++at) {
        if (LumoLabel* const label = axes[at]->getLabel())
          hideLabel(*this, *label, hiddenLabelId(*level, at));
      }
    }
  });
}

int XGraph::setPanelAxesOpposite() {
  int count = 0;
  guarded("Error in XGraph::setPanelAxesOpposite()", [&] {
    LumoFacetLayout const* const layout = present(mGraph, "graph").getFacetLayout();
    if (layout == nullptr) return;
    for (LumoFacetLevel const* level : layout->getFacetLevels()) {
      for (LumoAxis* axis : level->getAxiss()) {
        axis->setOpposite(!axis->getOpposite());
        // Negated by sign, so that 0 becomes -0.
        if (LumoMajorTicks* const ticks = axis->getMajorTicks())
          ticks->setLabelAngle(-ticks->getLabelAngle());
        ++count;
      }
    }
  });
  return count;
}
