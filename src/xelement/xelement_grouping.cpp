// Splitting an element by a variable, and its computed statistics.

#include "xelement.h"

#include "xgraph.h"
#include "xvariable.h"

#include "support/chart_parts.h"
#include "support/chart_text.h"
#include "support/guard.h"
#include "support/styles.h"

#include "host/chartbase.h"
#include "model/aesthetics.h"
#include "model/document.h"
#include "model/elements.h"
#include "model/labels.h"
#include "model/style.h"
#include "model/tokens.h"

using kestrel::findOrMakeExtension;
using kestrel::guarded;
using kestrel::joined;
using kestrel::numbered;
using kestrel::visualizationOf;

namespace {

/// Exactly one cycle with one empty style, for a template to fill.
LumoStyleCycle& addEmptyCycle(LumoVisualization& visualization, bool pattern) {
  // Counted before the add, so that the number is that of the cycles before.
  ChartString const id =
      numbered(joined({LumoUni::_styleCycle, u"_"}), visualization.getStyleCycles().size());
  LumoStyleCycle* cycle = visualization.addStyleCycle(id.xc_str());
  cycle->addCycle()->addStyle();
  cycle->addExtension()->setAttribute(LumoUni::_aesthetic, pattern ? LumoUni::_pattern : LumoUni::_color);
  return *cycle;
}

/// A legend in the first free one of the two slots, or null where both are taken.
LumoLegend* addFrameLegend(LumoVisualization& visualization, LumoExtensionVis& extension) {
  if (extension.getLegend1() == nullptr) {
    LumoLegend* legend = visualization.addLegend(u"frame_legend_1");
    extension.setLegend1(*legend);
    return legend;
  }
  if (extension.getLegend2() == nullptr) {
    LumoLegend* legend = visualization.addLegend(u"frame_legend_2");
    extension.setLegend2(*legend);
    return legend;
  }
  return nullptr;
}

}  // namespace

void XElement::Stack(XVariable const& variable, bool color, bool pattern, bool legend, bool label) {
  mImplementation->setPositionModifier(CTElementType::PositionModifierStack);
  Cluster(variable, color, pattern, legend, label);
}

void XElement::Cluster(XVariable const& variable, bool color, bool pattern, bool legend, bool label) {
  guarded("Error in XElement::cluster()", [&] {
    LumoStyleBy* styleBy = mImplementation->addStyleBy(nullptr);
    // Counted behind the add: the first aesthetic ends in 1.
    ChartString const id = numbered(joined({mImplementation->getId(), u"_", pattern ? LumoUni::_pattern : u"",
                                            color ? LumoUni::_color : u"", LumoUni::_styleBy}),
                                    mImplementation->getStyleBys().size());
    styleBy->setId(id.xc_str());
    styleBy->setVariable(variable.getImplementation());
    LumoVisualization& visualization = visualizationOf(*mImplementation);
    LumoExtensionVis& extension = findOrMakeExtension(visualization);
    // The pattern decides; without it the cycle is one of colours, also where no colour was asked for.
    styleBy->setStyleCycle(addEmptyCycle(visualization, pattern));
    if (!legend) return;
    LumoLegend* const frameLegend = addFrameLegend(visualization, extension);
    if (frameLegend == nullptr) return;
    describeLegend(*frameLegend, *styleBy);
    if (label) labelLegend(*frameLegend, variable);
  });
}

void XElement::describeLegend(LumoLegend& legend, LumoStyleBy const& styleBy) {
  char16_t const* const legendId = legend.getId();
  legend.setStyle(kestrel::findOrMakeStyle(*this, joined({legendId, ChartBase::_default_style})));
  legend.setTickTextStyle(kestrel::findOrMakeStyle(
      *this, joined({legendId, u"_", LumoUni::_legend, u"_", u"1", ChartBase::_default_style})));
  ChartString const targetId =
      numbered(joined({legendId, u"_", LumoUni::_legendTarget}), legend.getLegendTargets().size());
  legend.addLegendTarget(targetId.xc_str(), styleBy);
}

void XElement::labelLegend(LumoLegend& legend, XVariable const& variable) {
  LumoLabel* label = legend.addLabel();
  ChartString const labelId = joined({legend.getId(), u"_legend_1_label_1"});
  label->setId(labelId.xc_str());
  label->setStyle(kestrel::findOrMakeStyle(*this, joined({labelId.xc_str(), ChartBase::_default_style})));
  auto* const text = label->addText();
  ChartString title = variable.getVexaVariableLabel();
  if (title.empty()) title = variable.getVexaVariableShortLabel();
  replaceNewline(title);
  text->setText(title.xc_str());
}

void XElement::makeDotPlot(bool stacked) {
  guarded("Error in XElement::makeDotPlot()", [&] {
    if (!mImplementation->getBinStatistics().empty()) mImplementation->removeBinStatistics();
    mImplementation->addBinStatistic()->setGridType(LumoBinStatistic::GridType1);
    mImplementation->setPositionModifier(stacked ? CTElementType::PositionModifierStackedDot
                                                 : CTElementType::PositionModifierDot);
  });
}

namespace {

/// The client reads bin settings as one for each dimension.
ChartString forThreeDimensions(ChartString const& setting) {
  return joined({setting.xc_str(), u";", setting.xc_str(), u";", setting.xc_str()});
}

}  // namespace

void XElement::addHistogramStatistic(char16_t const* binStart, int binCount, int binWidth, bool) {
  guarded("Error in XElement::addHistogramStatistic()", [&] {
    if (!mImplementation->getBinStatistics().empty()) mImplementation->removeBinStatistics();
    if (!mImplementation->getSummaryStatistics().empty()) mImplementation->removeSummaryStatistics();
    LumoBinStatistic* bins = mImplementation->addBinStatistic();
    ChartString const start(binStart);
    if (!start.empty()) bins->setBinStart(forThreeDimensions(start).xc_str());
    ChartString number;
    if (binCount >= 0) {
      number.assignInteger(binCount);
      bins->setBinCount(forThreeDimensions(number).xc_str());
    }
    if (binWidth >= 0) {
      number.assignInteger(binWidth);
      number.append(u'd');
      bins->setBinWidth(forThreeDimensions(number).xc_str());
    }
    mImplementation->addSummaryStatistic()->setMethod(LumoSummaryStatistic::MethodHistogram);
  });
}

void XElement::addDistributionStatistic() {
  guarded("Error in XElement::addDistributionStatistic()", [&] {
    if (!mImplementation->getDistributionStatistics().empty())
      mImplementation->removeDistributionStatistics();
  });
  mImplementation->addDistributionStatistic();
}

void XElement::colorByVariable(XVariable const& variable, std::vector<ChartString> colors, bool legend,
                               char16_t const* legendTitle) {
  guarded("Error in XElement::colorByVariable()", [&] {
    LumoColor* color = mImplementation->addColor();
    color->setVariable(variable.getImplementation());
    char16_t const* const elementId = mImplementation->getId();
    std::size_t const number = mImplementation->getColors().size();
    color->setId(numbered(joined({elementId, u"_", LumoUni::_color}), number).xc_str());
    ChartString const cycleId =
        numbered(joined({elementId, u"_", LumoUni::_color, LumoUni::_styleCycle, u"_"}), number);
    LumoVisualization& visualization = visualizationOf(*mImplementation);
    if (!colors.empty()) {
      LumoStyleCycle* styleCycle = visualization.addStyleCycle(cycleId.xc_str());
      color->setCycle(*styleCycle);
      LumoCycle* cycle = styleCycle->addCycle();
      for (ChartString const& text : colors) cycle->addStyle()->setColor(text.xc_str());
    }
    if (!legend) return;
    XLegend const wrapper = XGraph(visualization).addLegend(legendTitle);
    LumoLegend& target = dynamic_cast<LumoLegend&>(*wrapper.getImplementation());
    ChartString const targetId =
        numbered(joined({elementId, u"_", LumoUni::_legendTarget, u"_"}), target.getLegendTargets().size());
    target.addLegendTarget(targetId.xc_str(), *color);
  });
}

bool XElement::hideInAllPanelsExcept(int level, double value) {
  bool done = false;
  guarded("Error in XElement::hideInAllPanelsExcept()", [&] {
    if (level <= 0) return;
    LumoStyle& hidden = kestrel::findOrMakeStyle(*this, u"hidden");
    hidden.setVisible(false);
    ChartString condition = numbered(u"facet", static_cast<std::size_t>(level));
    condition.append(u" != \"");
    condition.appendDouble(value);
    condition.append(u'"');
    auto const conditionalStyles = mImplementation->getConditionalStyles();
    if (conditionalStyles.empty()) {
      mImplementation->addConditionalStyle(condition.xc_str(), hidden);
    } else {
      LumoConditionalStyle& first = *conditionalStyles.front();
      first.setWhen(joined({first.getWhen(), u" && ", condition.xc_str()}).xc_str());
    }
    done = true;
  });
  return done;
}
