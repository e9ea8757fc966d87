// Mapping and appearance of an element.

#include "xelement.h"

#include "xvariable.h"

#include "support/chart_text.h"
#include "support/guard.h"
#include "support/styles.h"

#include "host/chartbase.h"
#include "model/elements.h"
#include "model/style.h"

#include <algorithm>
#include <iterator>

using kestrel::guarded;

XElement::XElement(CTElementType& element) : XBaseElement(element), mImplementation(&element) {
  element.setLabelCollisionHandling(CTElementType::LabelCollisionHandling1);
}

void XElement::AddX(XVariable const& variable) {
  guarded("Error in XElement::AddX()",
          [&] { mImplementation->addX()->setVariable(variable.getImplementation()); });
}

void XElement::AddY(XVariable const& variable) {
  guarded("Error in XElement::AddY()",
          [&] { mImplementation->addY()->setVariable(variable.getImplementation()); });
}

void XElement::AddZ(XVariable const& variable) {
  guarded("Error in XElement::AddZ()",
          [&] { mImplementation->addZ()->setVariable(variable.getImplementation()); });
}

void XElement::SetName(char16_t const* name) { mImplementation->setName(name); }

/// The element's own style, into which all of its appearance goes.
LumoStyle& XElement::findOrMakeStyle() {
  LumoStyle* style = mImplementation->getStyle();
  if (style == nullptr) {
    ChartString id(mImplementation->getId());
    id.append(ChartBase::_default_style);
    style = &kestrel::findOrMakeStyle(*this, id);
    mImplementation->setStyle(*style);
  }
  return *style;
}

char16_t XElement::getXMLCharDigit(char16_t digit) {
  if (digit == u'.' || (digit >= u'0' && digit <= u'9')) return digit;
  if (digit >= u'a' && digit <= u'f') return static_cast<char16_t>(digit - u'a' + u'A');
  return u'\0';
}

/// "#RRGGBB" in upper case; XUtility writes the same form in lower case, and both stay so.
ChartString XElement::colorText(unsigned int red, unsigned int green, unsigned int blue) {
  static constexpr char16_t digits[] = u"0123456789abcdef";
  ChartString text(u"#");
  for (unsigned int const component : {red, green, blue}) {
    unsigned int const value = std::min(component, 255u);
    text.append(getXMLCharDigit(digits[value / 16]));
    text.append(getXMLCharDigit(digits[value % 16]));
  }
  return text;
}

void XElement::SetPrimaryColor(unsigned int red, unsigned int green, unsigned int blue) {
  findOrMakeStyle().setColor(colorText(red, green, blue).xc_str());
}

void XElement::SetSecondaryColor(unsigned int red, unsigned int green, unsigned int blue) {
  findOrMakeStyle().setColor2(colorText(red, green, blue).xc_str());
}

namespace {

char16_t const* unitText(XElement::WidthType unit) {
  switch (unit) {
    case XElement::WidthPixels:
      return u"px";
    case XElement::WidthPercent:
      return u"%";
    case XElement::WidthCentimeters:
      return u"cm";
    case XElement::WidthInches:
      return u"in";
    case XElement::WidthPoints:
      break;
  }
  return u"pt";
}

/// The text of `written`, or nothing where `given` is not above 0.
ChartString widthText(double given, double written, char16_t const* unit) {
  if (!(given > 0.0)) return {};
  ChartString text = kestrel::numberText(written);
  text.append(unit);
  return text;
}

/// Lengths of dashes and gaps, in points, by line type from LineDash1 on.
constexpr char16_t const* dashArrays[] = {
    u"12pt,2pt,2pt,10pt,2pt,2pt",
    u"8pt,8pt",
    u"10pt,2pt,2pt,2pt",
    u"3pt,6pt",
    u"12pt,2pt,2pt,2pt,2pt,2pt,2pt,2pt",
    u"6pt,3pt,6pt",
    u"8pt,1pt,8pt,7pt,2pt,7pt",
    u"6pt,2pt,3pt,5pt,2pt,2pt",
    u"15pt,2pt,6pt,2pt",
    u"5pt,5pt",
    u"8pt,2pt,4pt,2pt",
    u"3pt,2pt",
    u"12pt,5pt,3pt,5pt",
    u"6pt,3pt,3pt,3pt",
    u"12pt,3pt",
};

}  // namespace

void XElement::SetWidth(WidthType unit, double first, double second, double third) {
  char16_t const* const unitName = unitText(unit);
  ChartString const firstText = widthText(first, first, unitName);
  ChartString const secondText = widthText(second, second, unitName);
  // The second value again: the third only switches the text on. Relied upon.
  ChartString const thirdText = widthText(third, second, unitName);
  findOrMakeStyle().setWidth(firstText.xc_str(), secondText.xc_str(), thirdText.xc_str());
}

void XElement::SetLineType(StrokeLineType type) {
  LumoStyle& style = findOrMakeStyle();
  if (type == LineSolid) {
    style.removeStroke_dasharray();
    return;
  }
  auto const row = static_cast<std::size_t>(type) - 1;
  style.setStroke_dasharray(row < std::size(dashArrays) ? dashArrays[row] : u"");
}
