#include "operations.h"
#include "samples.h"

#include <vector>

// Every reference, and every operation that takes a property off a style.

namespace {

template <typename T>
LumoBaseElement* target(LumoVisualization& chart, char16_t const* id) {
  T* const element = sample<T>(chart);
  element->setId(id);
  return element;
}

#define REFER(Class, setter, getter, attribute, Target)                                                              \
  ReferenceProperty {                                                                                                \
#Class "." #setter "." #Target, [](LumoVisualization& chart) -> LumoBaseElement* { return sample<Class>(chart); }, \
        &target<Target>,                                                                                       \
        [](LumoBaseElement& element, LumoBaseElement& named) {                                                 \
          static_cast<Class&>(element).setter(static_cast<Target&>(named));                                    \
        },                                                                                                     \
        [](LumoBaseElement& element) -> LumoBaseElement* { return static_cast<Class&>(element).getter(); },    \
        u"" #attribute \
  }

#define NAME(Class, setter, attribute, Target)                                                                       \
  ReferenceProperty {                                                                                                \
#Class "." #setter "." #Target, [](LumoVisualization& chart) -> LumoBaseElement* { return sample<Class>(chart); }, \
        &target<Target>,                                                                                       \
        [](LumoBaseElement& element, LumoBaseElement& named) {                                                 \
          static_cast<Class&>(element).setter(static_cast<Target&>(named));                                    \
        },                                                                                                     \
        nullptr, u"" #attribute \
  }

/// References that an adder or an operation with a number makes.
ReferenceProperty special(char const* name, std::function<LumoBaseElement*(LumoVisualization&)> make,
                          std::function<LumoBaseElement*(LumoVisualization&, char16_t const*)> makeTarget,
                          std::function<void(LumoBaseElement&, LumoBaseElement&)> set,
                          std::function<LumoBaseElement*(LumoBaseElement&)> get, char16_t const* attribute) {
  return {name, std::move(make), std::move(makeTarget), std::move(set), std::move(get), attribute};
}

LumoExtensionVis& vis(LumoBaseElement& element) { return static_cast<LumoExtensionVis&>(element); }

}  // namespace

std::vector<ReferenceProperty> const& referenceProperties() {
  static std::vector<ReferenceProperty> const rows{
      REFER(LumoExtensionVis, setTitle1, getTitle1, title1, LumoLabelFrame),
      REFER(LumoExtensionVis, setTitle2, getTitle2, title2, LumoLabelFrame),
      REFER(LumoExtensionVis, setSubtitle, getSubtitle, subtitle, LumoLabelFrame),
      REFER(LumoExtensionVis, setFootnote1, getFootnote1, footnote1, LumoLabelFrame),
      REFER(LumoExtensionVis, setFootnote2, getFootnote2, footnote2, LumoLabelFrame),
      REFER(LumoExtensionVis, setFootnote3, getFootnote3, footnote3, LumoLabelFrame),
      REFER(LumoExtensionVis, setLegend1, getLegend1, legend1, LumoLegend),
      REFER(LumoExtensionVis, setLegend2, getLegend2, legend2, LumoLegend),
      REFER(LumoExtensionVis, setStyleCycleRepository, getStyleCycleRepository, styleCycleRepository,
            LumoStyleCycle),
      special(
          "LumoExtensionVis.setLegend(17)", &sample<LumoExtensionVis>, &target<LumoLegend>,
          [](LumoBaseElement& e, LumoBaseElement& named) {
            vis(e).setLegend(17, static_cast<LumoLegend&>(named));
          },
          [](LumoBaseElement& e) { return vis(e).getLegend(17); }, u"legend17"),
      special(
          "LumoExtensionVis.setStatisticsSummary(0)", &sample<LumoExtensionVis>, &target<LumoLabelFrame>,
          [](LumoBaseElement& e, LumoBaseElement& named) {
            vis(e).setStatisticsSummary(static_cast<LumoLabelFrame&>(named), 0);
          },
          [](LumoBaseElement& e) { return vis(e).getStatisticsSummary(0); }, u"statisticsSummary0"),
      REFER(LumoGraph, setCellStyle, getCellStyle, cellStyle, LumoStyle),
      REFER(LumoDimension, setClusterVariable, getClusterVariable, clusterVariable, LumoSourceVariable),
      REFER(LumoDimension, setClusterVariable, getClusterVariable, clusterVariable, LumoDerivedVariable),
      REFER(LumoDimension, setDomain, getDomain, domain, LumoCategoricalDomain),
      REFER(LumoDimension, setDomain, getDomain, domain, LumoIntervalDomain),
      REFER(LumoDimensionReference, setRef, getRef, ref, LumoDimension),
      REFER(LumoAxis, setStyle, getStyle, style, LumoStyle),
      REFER(LumoMajorTicks, setMarkStyle, getMarkStyle, markStyle, LumoStyle),
      REFER(LumoMajorTicks, setStyle, getStyle, style, LumoStyle),
      REFER(LumoMajorTicks, setTickFrameStyle, getTickFrameStyle, tickFrameStyle, LumoStyle),
      REFER(CTElementType, setStyle, getStyle, style, LumoStyle),
      NAME(LumoSchema, setExtremeStyle, extremeStyle, LumoStyle),
      NAME(LumoSchema, setFenceStyle, fenceStyle, LumoStyle),
      NAME(LumoSchema, setHingeStyle, hingeStyle, LumoStyle),
      NAME(LumoSchema, setMedianStyle, medianStyle, LumoStyle),
      NAME(LumoSchema, setOutlierStyle, outlierStyle, LumoStyle),
      REFER(CTCoordinate, setVariable, getVariable, variable, LumoExpressionVariable),
      NAME(LumoLabeling, setStyle, style, LumoStyle),
      NAME(LumoLabeling, setTextFrameStyle, textFrameStyle, LumoStyle),
      NAME(LumoLabeling, setVariable, variable, LumoSourceVariable),
      REFER(CTAesthetic, setVariable, getVariable, variable, LumoSourceVariable),
      REFER(CTAesthetic, setDomain, getDomain, domain, LumoCategoricalDomain),
      REFER(LumoColor, setCycle, getCycle, cycle, LumoStyleCycle),
      REFER(LumoDash, setCycle, getCycle, cycle, LumoStyleCycle),
      REFER(LumoPattern, setCycle, getCycle, cycle, LumoStyleCycle),
      REFER(LumoShape, setCycle, getCycle, cycle, LumoStyleCycle),
      REFER(LumoStyleBy, setStyleCycle, getStyleCycle, styleCycle, LumoStyleCycle),
      REFER(LumoConditionalStyle, setStyle, getStyle, style, LumoStyle),
      REFER(CTVariableType, setDomain, getDomain, domain, LumoCategoricalDomain),
      NAME(CTVariableType, setSource, source, LumoUserSource),
      REFER(LumoVariableReference, setRef, getRef, ref, LumoSourceVariable),
      NAME(LumoLocation, setTarget, target, LumoGraph),
      NAME(LumoLocation, setTarget, target, LumoLabelFrame),
      REFER(CTLabelType, setStyle, getStyle, style, LumoStyle),
      REFER(CTLabelType, setTextFrameStyle, getTextFrameStyle, textFrameStyle, LumoStyle),
      REFER(LumoLabelFrame, setStyle, getStyle, style, LumoStyle),
      REFER(LumoLegend, setStyle, getStyle, style, LumoStyle),
      REFER(LumoLegend, setTickTextStyle, getTickTextStyle, tickTextStyle, LumoStyle),
      REFER(CTGuideType, setStyle, getStyle, style, LumoStyle),
      REFER(LumoSetFrameStyle, setStyle, getStyle, style, LumoStyle),
  };
  return rows;
}

#define OFF(property, ...)                                                                  \
  StyleRemover {                                                                            \
    "remove" #property, [](LumoStyle& style) { style.remove##property(); }, { __VA_ARGS__ } \
  }

std::vector<StyleRemover> const& styleRemovers() {
  static std::vector<StyleRemover> const rows{
      OFF(Background_image, u"background_image"),
      OFF(Background_method, u"background_method"),
      OFF(BaselineRotated, u"baselineRotated"),
      OFF(Bevel_size, u"bevel_size"),
      OFF(Color, u"color"),
      OFF(Color2, u"color2"),
      OFF(Depth, u"depth"),
      OFF(DepthRelativeToWidth, u"depthRelativeToWidth"),
      OFF(Fill, u"fill"),
      OFF(Fill_opacity, u"fill_opacity"),
      OFF(Font_family, u"font_family"),
      OFF(Font_size, u"font_size", u"font_size_min", u"font_size_max"),
      OFF(Font_style, u"font_style"),
      OFF(Font_weight, u"font_weight"),
      OFF(Glyph_angle, u"glyph_angle"),
      OFF(Glyph_aspect, u"glyph_aspect"),
      OFF(Glyph_sides, u"glyph_sides"),
      OFF(Gradient_angle, u"gradient_angle"),
      OFF(Gradient_color, u"gradient_color"),
      OFF(Gradient_focus, u"gradient_focus"),
      OFF(Gradient_isInverted, u"gradient_isInverted"),
      OFF(Gradient_method, u"gradient_method"),
      OFF(Gradient_opacity, u"gradient_opacity"),
      OFF(Gradient_size, u"gradient_size"),
      OFF(IgnoreNewLines, u"ignoreNewLines"),
      OFF(LabelAngle, u"labelAngle"),
      OFF(LabelInside, u"labelInside"),
      OFF(LabelLocationHorizontal, u"labelLocationHorizontal"),
      OFF(LabelLocationVertical, u"labelLocationVertical"),
      OFF(Margin, u"margin"),
      OFF(Margin_bottom, u"margin_bottom"),
      OFF(Margin_left, u"margin_left"),
      OFF(Margin_right, u"margin_right"),
      OFF(Margin_top, u"margin_top"),
      OFF(MaxAttachedTextHeight, u"maxAttachedTextHeight"),
      OFF(MaxAttachedTextWidth, u"maxAttachedTextWidth"),
      OFF(Opacity, u"opacity"),
      OFF(Opacity2, u"opacity2"),
      OFF(Padding, u"padding"),
      OFF(Padding_bottom, u"padding_bottom"),
      OFF(Padding_left, u"padding_left"),
      OFF(Padding_right, u"padding_right"),
      OFF(Padding_top, u"padding_top"),
      OFF(Pattern, u"pattern"),
      OFF(Shadow_color, u"shadow_color"),
      OFF(Shadow_dx, u"shadow_dx"),
      OFF(Shadow_dy, u"shadow_dy"),
      OFF(Shadow_opacity, u"shadow_opacity"),
      OFF(Size, u"size", u"size_min", u"size_max"),
      OFF(Stroke, u"stroke"),
      OFF(Stroke_dasharray, u"stroke_dasharray"),
      OFF(Stroke_decoration, u"stroke_decoration"),
      OFF(Stroke_linecap, u"stroke_linecap"),
      OFF(Stroke_opacity, u"stroke_opacity"),
      OFF(Stroke_width, u"stroke_width"),
      OFF(Symbol, u"symbol"),
      OFF(TextAlignment, u"textAlignment"),
      OFF(Text_fit, u"text_fit"),
      OFF(TwoCharacterVertical, u"twoCharacterVertical"),
      OFF(Visible, u"visible"),
      OFF(Width, u"width", u"width_min", u"width_max"),
  };
  return rows;
}
