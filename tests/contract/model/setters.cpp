#include "operations.h"
#include "samples.h"

#include <type_traits>
#include <vector>

// Every setter of a number, a truth value or an enumeration, and every setter of a text.

namespace {

#define SET(Class, call, attribute, value)                                                             \
  Setter {                                                                                             \
#Class "." #call, [](LumoVisualization& chart) -> LumoBaseElement* {                                 \
      Class* const element = sample<Class>(chart);                                                       \
      element->call;                                                                                     \
      return element;                                                                                    \
    },                                                                                                   \
        u"" #attribute, value \
  }

#define TEXT(Class, method, attribute)                                                                   \
  TextProperty {                                                                                         \
#Class "." #method, [](LumoVisualization& chart) -> LumoBaseElement* { return sample<Class>(chart); }, \
        [](LumoBaseElement& element, char16_t const* text) { static_cast<Class&>(element).method(text); },  \
        u"" #attribute \
  }

}  // namespace

std::vector<Setter> const& setters() {
  static std::vector<Setter> const rows{
      SET(LumoVisualization, setVersion(2.8), version, "2.8"),
      SET(LumoExtensionVis, setPreserveLocations(true), preserveLocations, "true"),
      SET(LumoExtensionSV, setMax(7.5), max, "7.5"),
      SET(LumoExtensionSV, setMin(-0.0), min, "-0"),
      SET(LumoExtensionSV, setStatistic(static_cast<LumoExtensionSV::ENUM_statistic>(15)), statistic, "15"),
      SET(LumoExtensionSV, setValue(1e17), value, "1e17"),
      SET(LumoExtensionSV, setValuesAreGroupedMidpoints(true), valuesAreGroupedMidpoints, "true"),
      SET(LumoDimension, setNiceLowerMapping(false), niceLowerMapping, "false"),
      SET(LumoDimension, setNiceUpperMapping(true), niceUpperMapping, "true"),
      SET(LumoDimension, setUnionDomain(true), unionDomain, "true"),
      SET(LumoAxis, setCombineAxisLabels(true), combineAxisLabels, "true"),
      SET(LumoAxis, setOpposite(true), opposite, "true"),
      SET(LumoAxis, setRepeat(LumoAxis::Repeat0), repeat, "0"),
      SET(LumoAxis, setTransform(LumoAxis::TransformDerived), transform, "1"),
      SET(LumoMajorTicks, setDelta(0.25), delta, "0.25"),
      SET(LumoMajorTicks, setLabelAngle(-90), labelAngle, "-90"),
      SET(LumoMajorTicks, setLabelFrequency(4000000000U), labelFrequency, "4000000000"),
      SET(LumoMajorTicks, setStagger(false), stagger, "false"),
      SET(LumoScale, setBase(10), base, "10"),
      SET(LumoScale, setInvert(true), invert, "true"),
      SET(LumoScale, setMethod(LumoScale::Method5), method, "5"),
      SET(LumoRectangularTransform, setDistance(1.5), distance, "1.5"),
      SET(LumoRectangularTransform, setPhi(30), phi, "30"),
      SET(LumoRectangularTransform, setTheta(45), theta, "45"),
      SET(LumoRectangularTransform, setZeta(0), zeta, "0"),
      SET(LumoReflectionTransform, setAlternating(true), alternating, "true"),
      SET(LumoReflectionTransform, setDimension(LumoReflectionTransform::DimensionX), dimension, "0"),
      SET(LumoSameRatioTransform, setCenter(true), center, "true"),
      SET(CTElementType, setDot(false), dot, "false"),
      SET(CTElementType, setLabelCollisionHandling(CTElementType::LabelCollisionHandling2),
          labelCollisionHandling, "2"),
      SET(CTElementType, setPositionModifier(CTElementType::PositionModifierStack), positionModifier, "3"),
      SET(CTElementType, setShowCollidingLabels(true), showCollidingLabels, "true"),
      SET(LumoBinStatistic, setAugment(true), augment, "true"),
      SET(LumoBinStatistic, setGridType(LumoBinStatistic::GridType1), gridType, "1"),
      SET(LumoSummaryStatistic, setAugment(LumoSummaryStatistic::Augment2), augment, "2"),
      SET(LumoSummaryStatistic, setMethod(LumoSummaryStatistic::MethodErrorBar), method, "7"),
      SET(LumoLabeling, setConnectingLines(false), connectingLines, "false"),
      SET(LumoLabeling, setDimension(0U), dimension, "0"),
      SET(LumoColor, setAffect(LumoColor::Affect2), affect, "2"),
      SET(LumoTransparency, setHigh(0.01), high, "0.01"),
      SET(LumoTransparency, setLow(0.6), low, "0.6"),
      SET(CTVariableType, setCategorical(true), categorical, "true"),
      SET(CTVariableType, setKey(true), key, "true"),
      SET(CTVariableType, setWeight(false), weight, "false"),
      SET(LumoFormat, setBaseFormat(LumoFormat::BaseFormat3), baseFormat, "3"),
      SET(LumoFormat, setMaximumFractionDigits(2), maximumFractionDigits, "2"),
      SET(LumoFormat, setMinimumFractionDigits(0), minimumFractionDigits, "0"),
      SET(LumoFormat, setUseGrouping(true), useGrouping, "true"),
      SET(CTDomainType, setDate(true), date, "true"),
      SET(LumoIntervalDomain, setDate(true), date, "true"),
      SET(LumoCategories, setRemove(true), remove, "true"),
      SET(LumoSimpleSort, setDescending(true), descending, "true"),
      SET(LumoSimpleSort, setMethod(LumoSimpleSort::Method2), method, "2"),
      SET(LumoRange, setExact(false), exact, "false"),
      SET(LumoLocation, setMethod(LumoLocation::Method3), method, "3"),
      SET(LumoLabel, setPurpose(LumoLabel::PurposeFootnote3), purpose, "6"),
      SET(LumoPlaneGuide, setNormal(LumoPlaneGuide::NormalXY), normal, "2"),
      SET(LumoFrameGuide, setComplete(false), complete, "false"),
      SET(LumoFacetLayout, setCellAspect(1.0), cellAspect, "1"),
      SET(LumoFacetLayout, setMethod(LumoFacetLayout::Method1), method, "1"),
      SET(LumoFacetLayout, setTopDown(true), topDown, "true"),
      SET(LumoStyle, setPattern(3), pattern, "3"),
      SET(LumoStyle, setVisible(false), visible, "false"),
  };
  return rows;
}

std::vector<TextProperty> const& textProperties() {
  static std::vector<TextProperty> const rows{
      TEXT(LumoVisualization, setCreator, creator),
      TEXT(LumoVisualization, setDate, date),
      TEXT(LumoVisualization, setDescription, description),
      TEXT(LumoVisualization, setId, id),
      TEXT(LumoVisualization, setLang, lang),
      TEXT(LumoVisualization, setName, name),
      TEXT(LumoVisualization, setType, type),
      TEXT(LumoSwingController, setFunction, function),
      TEXT(LumoSwingController, setTarget, target),
      TEXT(LumoDimension, setClusterGap, clusterGap),
      TEXT(LumoDimension, setLowerMargin, lowerMargin),
      TEXT(LumoDimension, setUpperMargin, upperMargin),
      TEXT(LumoMajorTicks, setBase, base),
      TEXT(LumoMajorTicks, setLength, length),
      TEXT(LumoScale, setOrigin, origin),
      TEXT(CTElementType, setName, name),
      TEXT(LumoBinStatistic, setBinCount, binCount),
      TEXT(LumoBinStatistic, setBinStart, binStart),
      TEXT(LumoBinStatistic, setBinWidth, binWidth),
      TEXT(CTAesthetic, setId, id),
      TEXT(CTAestheticMapping, setFrom, from),
      TEXT(LumoColorMapping, setTo, to),
      TEXT(LumoSymbolMapping, setFrom, from),
      TEXT(LumoSymbolMapping, setTo, to),
      TEXT(LumoSize, setHigh, high),
      TEXT(LumoSize, setLow, low),
      TEXT(LumoConditionalStyle, setWhen, when),
      TEXT(CTVariableType, setCreator, creator),
      TEXT(CTVariableType, setDescription, description),
      TEXT(CTVariableType, setLabel, label),
      TEXT(CTVariableType, setShortLabel, shortLabel),
      TEXT(LumoSourceVariable, setInputDateFormatPattern, inputDateFormatPattern),
      TEXT(LumoSourceVariable, setSourceName, sourceName),
      TEXT(LumoDerivedVariable, setValue, value),
      TEXT(LumoExpressionVariable, setExpression, expression),
      TEXT(CTFormatType, setPrefix, prefix),
      TEXT(CTFormatType, setSuffix, suffix),
      TEXT(LumoFormat, setErrorCharacter, errorCharacter),
      TEXT(LumoFormat, setPattern, pattern),
      TEXT(LumoRange, setMax, max),
      TEXT(LumoRange, setMin, min),
      TEXT(LumoLocation, setValue, value),
      TEXT(LumoLabel, setId, id),
      TEXT(CTGuideType, setId, id),
      TEXT(CTGuideType, setName, name),
      TEXT(LumoLineGuide, setX, x),
      TEXT(LumoLineGuide, setY, y),
      TEXT(LumoFunctionGuide, setValue, value),
      TEXT(LumoFaceting, setId, id),
      TEXT(LumoFaceting, setMethod, method),
      TEXT(LumoFacetLevel, setGap, gap),
      TEXT(LumoStyle, setColor, color),
      TEXT(LumoStyle, setColor2, color2),
      TEXT(LumoStyle, setId, id),
      TEXT(LumoStyle, setPadding, padding),
      TEXT(LumoStyle, setSize, size),
      TEXT(LumoStyle, setStroke_dasharray, stroke_dasharray),
      TEXT(LumoStyle, setStroke_width, stroke_width),
      TEXT(LumoStyle, setSymbol, symbol),
  };
  return rows;
}
