#pragma once

#include "base.h"
#include "export.h"
#include "forward.h"

#include <vector>

/// One set of visual properties. Lengths are texts with their unit, colours "#RRGGBB" or names.
///
/// The forms with three texts take the preferred, the least and the greatest value; an empty or null text
/// gives no value. Each `remove` takes one property away, those with three values as a whole.
class LUMO_API LumoStyle : public LumoBaseElement {
 public:
  /// @{
  /// The names of two colours.
  static char16_t const _black[];
  static char16_t const _transparent[];
  /// @}

  using LumoBaseElement::LumoBaseElement;
  ~LumoStyle() override;

  /// Appends a style within this one, as in the container of styles.
  LumoStyle* addStyle();
  /// Appends a set of named texts.
  LumoExtension* addExtension();
  /// The styles within this one, in document order.
  std::vector<LumoStyle*> getStyles() const;

  /// The colour: of a text, a line or a mark its own, of a box the background, of an area, a bar or a symbol
  /// the filling.
  char16_t const* getColor() const;
  /// 0 where nothing was set.
  unsigned int getPattern() const;
  /// The colour: of a text, a line or a mark its own, of a box the background, of an area, a bar or a symbol
  /// the filling.
  void setColor(char16_t const* color);
  /// The second colour: of a box the frame, of an area, a bar or a symbol the outline.
  void setColor2(char16_t const* color);
  /// The size of a text.
  void setFontSize(char16_t const* preferred, char16_t const* minimum, char16_t const* maximum);
  /// Room between a box and what is in it.
  void setPadding(char16_t const* padding);
  /// The number of the pattern of a filling.
  void setPattern(unsigned int pattern);
  /// Writes the preferred size alone and leaves the other two.
  void setSize(char16_t const* size);
  /// The size of a symbol or a mark.
  void setSize(char16_t const* preferred, char16_t const* minimum, char16_t const* maximum);
  /// Lengths of dashes and gaps by turns, with commas between them.
  void setStroke_dasharray(char16_t const* lengths);
  /// How thick a line or an outline is.
  void setStroke_width(char16_t const* width);
  /// The name of the symbol, such as "circle".
  void setSymbol(char16_t const* symbol);
  /// Whether the part is drawn.
  void setVisible(bool visible);
  /// The width of a bar or a box.
  void setWidth(char16_t const* preferred, char16_t const* minimum, char16_t const* maximum);

  /// @{
  /// Each takes away the property of that name.
  void removeBackground_image();
  void removeBackground_method();
  void removeBaselineRotated();
  void removeBevel_size();
  void removeColor();
  void removeColor2();
  void removeDepth();
  void removeDepthRelativeToWidth();
  void removeExtensions();
  void removeFill();
  void removeFill_opacity();
  void removeFont_family();
  void removeFont_size();
  void removeFont_style();
  void removeFont_weight();
  void removeGlyph_angle();
  void removeGlyph_aspect();
  void removeGlyph_sides();
  void removeGradient_angle();
  void removeGradient_color();
  void removeGradient_focus();
  void removeGradient_isInverted();
  void removeGradient_method();
  void removeGradient_opacity();
  void removeGradient_size();
  void removeIgnoreNewLines();
  void removeLabelAngle();
  void removeLabelInside();
  void removeLabelLocationHorizontal();
  void removeLabelLocationVertical();
  void removeMargin();
  void removeMargin_bottom();
  void removeMargin_left();
  void removeMargin_right();
  void removeMargin_top();
  void removeMaxAttachedTextHeight();
  void removeMaxAttachedTextWidth();
  void removeOpacity();
  void removeOpacity2();
  void removePadding();
  void removePadding_bottom();
  void removePadding_left();
  void removePadding_right();
  void removePadding_top();
  void removePattern();
  void removeShadow_color();
  void removeShadow_dx();
  void removeShadow_dy();
  void removeShadow_opacity();
  void removeSize();
  void removeStroke();
  void removeStroke_dasharray();
  void removeStroke_decoration();
  void removeStroke_linecap();
  void removeStroke_opacity();
  void removeStroke_width();
  void removeSymbol();
  void removeTextAlignment();
  void removeText_fit();
  void removeTwoCharacterVertical();
  void removeVisible();
  void removeWidth();
  /// @}
};
