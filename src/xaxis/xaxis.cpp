// The label, the scale and the plain settings of an axis and of its dimension.

#include "xaxis.h"

#include "xvariable.h"

#include "support/chart_text.h"
#include "support/guard.h"
#include "support/styles.h"

#include "model/chartstring.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/style.h"
#include "model/tokens.h"

using kestrel::guarded;
using kestrel::numberText;

XAxis::XAxis(LumoDimension& dimension, LumoAxis& axis)
    : XBaseElement(axis), mImplementation(&axis), mDimension(&dimension) {
  // No further class can have taken over yet: this class's own ticks are what every axis starts with.
  AddMajorTicks();  // NOLINT(clang-analyzer-optin.cplusplus.VirtualCall)
}

void XAxis::AddLabel(char16_t const* text) {
  guarded("Error in XAxis::AddLabel()", [&] {
    ChartString shown(text);
    replaceNewline(shown);
    LumoLabel* label = mImplementation->getLabel();
    if (label == nullptr) {
      label = mImplementation->addLabel();
      label->setStyle(*AddStyle(ChartString(LumoUni::_label), true));
    }
    auto const texts = label->getTexts();
    auto* const first = texts.empty() ? label->addText() : texts.front();
    first->setText(shown.xc_str());
  });
}

void XAxis::hideLabel() {
  LumoLabel* label = mImplementation->getLabel();
  if (label == nullptr) return;
  // The style is only named here; what it looks like comes from the default looks or from templates.
  label->setStyle(kestrel::findOrMakeStyle(*this, u"axis_label_hidden_s"));
}

void XAxis::setLowerMargin(char16_t const* margin) { mDimension->setLowerMargin(margin); }

void XAxis::setUpperMargin(char16_t const* margin) { mDimension->setUpperMargin(margin); }

void XAxis::setNiceLowerMapping(bool nice) { mDimension->setNiceLowerMapping(nice); }

void XAxis::setNiceUpperMapping(bool nice) { mDimension->setNiceUpperMapping(nice); }

void XAxis::setUnionDomain(bool unionDomain) { mDimension->setUnionDomain(unionDomain); }

void XAxis::setRepeat(ENUM_repeat repeat) {
  if (repeat != Repeat0 && repeat != Repeat1) return;
  mImplementation->setRepeat(static_cast<LumoAxis::ENUM_repeat>(repeat));
}

void XAxis::Cluster(XVariable const& variable) {
  mDimension->setClusterVariable(variable.getImplementation());
  mDimension->setClusterGap(u"10%");
  mDimension->setUpperMargin(u"5%");
  mDimension->setLowerMargin(u"5%");
}

namespace {

/// The model counts its methods from 1; what this interface does not know is the first one.
LumoScale::ENUM_method modelMethod(XAxis::ENUM_method method) {
  bool const known = method >= XAxis::ScaleMethod0 && method <= XAxis::ScaleMethod4;
  return static_cast<LumoScale::ENUM_method>(known ? method + 1 : 1);
}

LumoScale& findOrMakeScale(LumoDimension& dimension, LumoScale::ENUM_method method) {
  LumoScale* scale = dimension.getScale();
  return scale != nullptr ? *scale : *dimension.addScale(method);
}

}  // namespace

void XAxis::setScale(ENUM_method method, bool invert, double base) {
  guarded("Error in XAxis::setScale()", [&] {
    LumoScale::ENUM_method const chosen = modelMethod(method);
    LumoScale& scale = findOrMakeScale(*mDimension, chosen);
    scale.setMethod(chosen);
    scale.setInvert(invert);
    scale.setBase(base);
  });
}

void XAxis::invertScale(double origin) {
  guarded("Error in XAxis::invertScale()", [&] {
    LumoScale& scale = findOrMakeScale(*mDimension, LumoScale::Method1);
    scale.setInvert(true);
    scale.setOrigin(numberText(origin).xc_str());
  });
}
