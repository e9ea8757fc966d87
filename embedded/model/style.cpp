#include "model/style.h"

#include "access.h"

#include <array>
#include <vector>

using namespace kestrel::model;

char16_t const LumoStyle::_black[] = u"black";
char16_t const LumoStyle::_transparent[] = u"transparent";

namespace {

/// The preferred, the least and the greatest value of a property.
using ThreeNames = std::array<char16_t const*, 3>;

constexpr ThreeNames fontSizeNames{u"font_size", u"font_size_min", u"font_size_max"};
constexpr ThreeNames sizeNames{u"size", u"size_min", u"size_max"};
constexpr ThreeNames widthNames{u"width", u"width_min", u"width_max"};

void writeThree(LumoStyle& style, ThreeNames const& names, char16_t const* preferred, char16_t const* minimum,
                char16_t const* maximum) {
  writeFilled(style, names[0], preferred);
  writeFilled(style, names[1], minimum);
  writeFilled(style, names[2], maximum);
}

void eraseThree(LumoStyle& style, ThreeNames const& names) {
  for (char16_t const* const name : names) erase(style, name);
}

}  // namespace

LumoStyle::~LumoStyle() = default;
LumoStyle* LumoStyle::addStyle() { return add<LumoStyle>(*this); }
LumoExtension* LumoStyle::addExtension() { return add<LumoExtension>(*this); }
std::vector<LumoStyle*> LumoStyle::getStyles() const { return children<LumoStyle>(*this); }
char16_t const* LumoStyle::getColor() const { return read(*this, u"color"); }
unsigned int LumoStyle::getPattern() const { return readUnsigned(*this, u"pattern"); }
void LumoStyle::setColor(char16_t const* color) { write(*this, u"color", color); }
void LumoStyle::setColor2(char16_t const* color) { write(*this, u"color2", color); }

void LumoStyle::setFontSize(char16_t const* preferred, char16_t const* minimum, char16_t const* maximum) {
  writeThree(*this, fontSizeNames, preferred, minimum, maximum);
}

void LumoStyle::setPadding(char16_t const* padding) { write(*this, u"padding", padding); }
void LumoStyle::setPattern(unsigned int pattern) { write(*this, u"pattern", pattern); }
void LumoStyle::setSize(char16_t const* size) { write(*this, u"size", size); }

void LumoStyle::setSize(char16_t const* preferred, char16_t const* minimum, char16_t const* maximum) {
  writeThree(*this, sizeNames, preferred, minimum, maximum);
}

void LumoStyle::setStroke_dasharray(char16_t const* lengths) { write(*this, u"stroke_dasharray", lengths); }
void LumoStyle::setStroke_width(char16_t const* width) { write(*this, u"stroke_width", width); }
void LumoStyle::setSymbol(char16_t const* symbol) { write(*this, u"symbol", symbol); }
void LumoStyle::setVisible(bool visible) { write(*this, u"visible", visible); }

void LumoStyle::setWidth(char16_t const* preferred, char16_t const* minimum, char16_t const* maximum) {
  writeThree(*this, widthNames, preferred, minimum, maximum);
}

void LumoStyle::removeBackground_image() { erase(*this, u"background_image"); }
void LumoStyle::removeBackground_method() { erase(*this, u"background_method"); }
void LumoStyle::removeBaselineRotated() { erase(*this, u"baselineRotated"); }
void LumoStyle::removeBevel_size() { erase(*this, u"bevel_size"); }
void LumoStyle::removeColor() { erase(*this, u"color"); }
void LumoStyle::removeColor2() { erase(*this, u"color2"); }
void LumoStyle::removeDepth() { erase(*this, u"depth"); }
void LumoStyle::removeDepthRelativeToWidth() { erase(*this, u"depthRelativeToWidth"); }
void LumoStyle::removeExtensions() { removeAll<LumoExtension>(*this); }
void LumoStyle::removeFill() { erase(*this, u"fill"); }
void LumoStyle::removeFill_opacity() { erase(*this, u"fill_opacity"); }
void LumoStyle::removeFont_family() { erase(*this, u"font_family"); }
void LumoStyle::removeFont_size() { eraseThree(*this, fontSizeNames); }
void LumoStyle::removeFont_style() { erase(*this, u"font_style"); }
void LumoStyle::removeFont_weight() { erase(*this, u"font_weight"); }
void LumoStyle::removeGlyph_angle() { erase(*this, u"glyph_angle"); }
void LumoStyle::removeGlyph_aspect() { erase(*this, u"glyph_aspect"); }
void LumoStyle::removeGlyph_sides() { erase(*this, u"glyph_sides"); }
void LumoStyle::removeGradient_angle() { erase(*this, u"gradient_angle"); }
void LumoStyle::removeGradient_color() { erase(*this, u"gradient_color"); }
void LumoStyle::removeGradient_focus() { erase(*this, u"gradient_focus"); }
void LumoStyle::removeGradient_isInverted() { erase(*this, u"gradient_isInverted"); }
void LumoStyle::removeGradient_method() { erase(*this, u"gradient_method"); }
void LumoStyle::removeGradient_opacity() { erase(*this, u"gradient_opacity"); }
void LumoStyle::removeGradient_size() { erase(*this, u"gradient_size"); }
void LumoStyle::removeIgnoreNewLines() { erase(*this, u"ignoreNewLines"); }
void LumoStyle::removeLabelAngle() { erase(*this, u"labelAngle"); }
void LumoStyle::removeLabelInside() { erase(*this, u"labelInside"); }
void LumoStyle::removeLabelLocationHorizontal() { erase(*this, u"labelLocationHorizontal"); }
void LumoStyle::removeLabelLocationVertical() { erase(*this, u"labelLocationVertical"); }
void LumoStyle::removeMargin() { erase(*this, u"margin"); }
void LumoStyle::removeMargin_bottom() { erase(*this, u"margin_bottom"); }
void LumoStyle::removeMargin_left() { erase(*this, u"margin_left"); }
void LumoStyle::removeMargin_right() { erase(*this, u"margin_right"); }
void LumoStyle::removeMargin_top() { erase(*this, u"margin_top"); }
void LumoStyle::removeMaxAttachedTextHeight() { erase(*this, u"maxAttachedTextHeight"); }
void LumoStyle::removeMaxAttachedTextWidth() { erase(*this, u"maxAttachedTextWidth"); }
void LumoStyle::removeOpacity() { erase(*this, u"opacity"); }
void LumoStyle::removeOpacity2() { erase(*this, u"opacity2"); }
void LumoStyle::removePadding() { erase(*this, u"padding"); }
void LumoStyle::removePadding_bottom() { erase(*this, u"padding_bottom"); }
void LumoStyle::removePadding_left() { erase(*this, u"padding_left"); }
void LumoStyle::removePadding_right() { erase(*this, u"padding_right"); }
void LumoStyle::removePadding_top() { erase(*this, u"padding_top"); }
void LumoStyle::removePattern() { erase(*this, u"pattern"); }
void LumoStyle::removeShadow_color() { erase(*this, u"shadow_color"); }
void LumoStyle::removeShadow_dx() { erase(*this, u"shadow_dx"); }
void LumoStyle::removeShadow_dy() { erase(*this, u"shadow_dy"); }
void LumoStyle::removeShadow_opacity() { erase(*this, u"shadow_opacity"); }
void LumoStyle::removeSize() { eraseThree(*this, sizeNames); }
void LumoStyle::removeStroke() { erase(*this, u"stroke"); }
void LumoStyle::removeStroke_dasharray() { erase(*this, u"stroke_dasharray"); }
void LumoStyle::removeStroke_decoration() { erase(*this, u"stroke_decoration"); }
void LumoStyle::removeStroke_linecap() { erase(*this, u"stroke_linecap"); }
void LumoStyle::removeStroke_opacity() { erase(*this, u"stroke_opacity"); }
void LumoStyle::removeStroke_width() { erase(*this, u"stroke_width"); }
void LumoStyle::removeSymbol() { erase(*this, u"symbol"); }
void LumoStyle::removeTextAlignment() { erase(*this, u"textAlignment"); }
void LumoStyle::removeText_fit() { erase(*this, u"text_fit"); }
void LumoStyle::removeTwoCharacterVertical() { erase(*this, u"twoCharacterVertical"); }
void LumoStyle::removeVisible() { erase(*this, u"visible"); }
void LumoStyle::removeWidth() { eraseThree(*this, widthNames); }
