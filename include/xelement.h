#pragma once

#include "kestrel_export.h"
#include "xbaseelement.h"

#include "model/chartstring.h"

#include <vector>

class CTElementType;
class LumoLegend;
class LumoStyle;
class LumoStyleBy;
class XVariable;

/// The builder of one graphic element: a line, bars, points and so on. Maps variables onto it and sets its
/// appearance.
class KESTREL_API XElement : public XBaseElement {
 public:
  /// Unit of a width. Any other value counts as points.
  enum WidthType : int { WidthPixels, WidthPercent, WidthCentimeters, WidthInches, WidthPoints };

  /// Line patterns: solid, and fifteen dash arrays. Any other value writes an empty dash array.
  enum StrokeLineType : int {
    LineSolid,
    LineDash1,
    LineDash2,
    LineDash3,
    LineDash4,
    LineDash5,
    LineDash6,
    LineDash7,
    LineDash8,
    LineDash9,
    LineDash10,
    LineDash11,
    LineDash12,
    LineDash13,
    LineDash14,
    LineDash15
  };

  /// Sets the element's label collision handling to 1.
  explicit XElement(CTElementType& element);

  /// @{
  /// Adds a coordinate bound to the variable; a second call adds a second one. Guarded.
  virtual void AddX(XVariable const& variable);
  virtual void AddY(XVariable const& variable);
  virtual void AddZ(XVariable const& variable);
  /// @}

  /// The name of the element in the chart text; null takes it away.
  virtual void SetName(char16_t const* name);

  /// Splits the element by a variable into parts that stand on each other; arguments as of `Cluster`.
  virtual void Stack(XVariable const& variable, bool color, bool pattern, bool legend, bool label);

  /// Splits the element by a variable, by way of a style cycle. Guarded.
  /// @param color part of the id only
  /// @param pattern the cycle is one of patterns; otherwise one of colours
  /// @param legend makes one of the chart's two frame legends, if one is free
  /// @param label titles that legend with the variable's label, or its short label where it has none
  virtual void Cluster(XVariable const& variable, bool color, bool pattern, bool legend, bool label);

  /// Bins the element as a dot plot, stacked or side by side. Guarded.
  virtual void makeDotPlot(bool stacked);

  /// Replaces the element's bin and summary statistics by those of a histogram. Guarded.
  /// @param binStart first bin's lower end, null or empty for none
  /// @param binCount number of bins, negative for none
  /// @param binWidth width of a bin in data units, negative for none
  /// @param unused not read
  virtual void addHistogramStatistic(char16_t const* binStart, int binCount, int binWidth, bool unused);

  /// Replaces the element's distribution statistics by a new one.
  virtual void addDistributionStatistic();

  /// Colours the element by a variable. Guarded.
  /// @param colors one for each category; empty leaves the choice to the template
  /// @param legendTitle null for none
  virtual void colorByVariable(XVariable const& variable, std::vector<ChartString> colors, bool legend,
                               char16_t const* legendTitle);

  /// Hides the element in every panel but those whose variable at this facet level has the value; further
  /// calls narrow it to the panels that all of them leave. Guarded.
  /// @param level number of the facet level, from 1; for 0 and below nothing is done
  /// @return whether anything was done
  bool hideInAllPanelsExcept(int level, double value);

  /// One hexadecimal digit as the chart text has it: digits and the point stay, "a" to "f" become upper case,
  /// anything else becomes U+0000.
  char16_t getXMLCharDigit(char16_t digit);

  /// @{
  /// Colours of the element's own style, written as "#RRGGBB"; a component above 255 counts as 255.
  void SetPrimaryColor(unsigned int red, unsigned int green, unsigned int blue);
  void SetSecondaryColor(unsigned int red, unsigned int green, unsigned int blue);
  /// @}

  /// Width of the element in `unit`; a value that is not above 0 is left out. The third text carries the
  /// second value, which clients rely on: the third value only switches it on.
  void SetWidth(WidthType unit, double first, double second, double third);

  /// The line of the element's own style. `LineSolid` takes the dashes away.
  void SetLineType(StrokeLineType type);

 private:
  LumoStyle& findOrMakeStyle();
  ChartString colorText(unsigned int red, unsigned int green, unsigned int blue);
  void describeLegend(LumoLegend& legend, LumoStyleBy const& styleBy);
  void labelLegend(LumoLegend& legend, XVariable const& variable);

  CTElementType* mImplementation;
};
