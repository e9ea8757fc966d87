// The major ticks of an axis and their labels.

#include "xaxis.h"

#include "support/chart_text.h"
#include "support/guard.h"

#include "model/graph.h"
#include "model/style.h"
#include "model/tokens.h"
#include "model/variables.h"

using kestrel::guarded;
using kestrel::numberText;
using kestrel::present;

void XAxis::AddMajorTicks() {
  guarded("Error in XAxis::AddMajorTicks()", [&] {
    if (mImplementation->getMajorTicks() != nullptr) return;
    LumoMajorTicks* ticks = mImplementation->addMajorTicks();
    ticks->setStyle(*AddStyle(ChartString(LumoUni::_majorTicks), true));
    LumoStyle* const frameStyle = AddStyle(ChartString(u"tickLabelStyle"), true);
    ticks->setTickFrameStyle(*frameStyle);
    frameStyle->setVisible(false);
    ticks->setMarkStyle(*AddStyle(ChartString(LumoUni::_markStyle), true));
    // Takes the place of the first style, which stays behind in the chart: relied upon.
    ticks->setStyle(*AddStyle(ChartString(u"tickStyle"), true));
  });
}

/// The axis's ticks, made again where somebody has removed them. Only that step is guarded: what is then
/// written on them is not. After a reported failure that is done on the ticks that were made before it; where
/// there are none, that is a failure for the caller.
LumoMajorTicks& XAxis::ticksUnderGuard(char const* context) {
  guarded(context, [&] {
    if (mImplementation->getMajorTicks() == nullptr) AddMajorTicks();
  });
  return present(mImplementation->getMajorTicks(), "major ticks");
}

void XAxis::setDelta(double delta) { ticksUnderGuard("Error in XAxis::setDelta()").setDelta(delta); }

void XAxis::setMajorTickLabelAngle(double angle) {
  if (angle < -360.0 || angle > 360.0) return;
  ticksUnderGuard("Error in XAxis::setMajorTickLabelAngle()").setLabelAngle(angle);
}

void XAxis::setMajorTickStagger(bool stagger) {
  ticksUnderGuard("Error in XAxis::setMajorTickStagger()").setStagger(stagger);
}

void XAxis::setMajorTicklabelFrequency(unsigned int frequency) {
  ticksUnderGuard("Error in XAxis::setMajorTicklabelFrequency()").setLabelFrequency(frequency);
}

namespace {

LumoFormat& firstFormat(LumoMajorTicks& ticks) {
  auto const formats = ticks.getFormats();
  return formats.empty() ? *ticks.addFormat() : *formats.front();
}

}  // namespace

void XAxis::setMajorTickLabelPrefix(char16_t const* prefix) {
  firstFormat(ticksUnderGuard("Error in XAxis::setMajorTickLabelPrefix()")).setPrefix(prefix);
}

void XAxis::setMajorTickLabelSuffix(char16_t const* suffix) {
  firstFormat(ticksUnderGuard("Error in XAxis::setMajorTickLabelSuffix()")).setSuffix(suffix);
}

void XAxis::setTickLabelFontSize(double first, double second) {
  if (!(second >= first && first > 0.0)) return;
  LumoMajorTicks& ticks = ticksUnderGuard("Error in XAxis::setTickLabelFontSize()");
  LumoStyle* style = ticks.getStyle();
  if (style == nullptr) {
    style = AddStyle(ChartString(LumoUni::_majorTicks), true);
    ticks.setStyle(*style);
  }
  // The larger value comes first.
  style->setFontSize(numberText(second).xc_str(), numberText(first).xc_str(), nullptr);
}
