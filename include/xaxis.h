#pragma once

#include "kestrel_export.h"
#include "xbaseelement.h"

class LumoAxis;
class LumoDimension;
class LumoMajorTicks;
class XVariable;

/// The builder of one axis together with the dimension that carries it: the axis holds what is drawn, the
/// dimension what is measured.
class KESTREL_API XAxis : public XBaseElement {
 public:
  /// Methods of the scale; what they mean is the chart model's.
  enum ENUM_method : int { ScaleMethod0, ScaleMethod1, ScaleMethod2, ScaleMethod3, ScaleMethod4 };
  /// Repetition of the axis in panels; what the two mean is the chart model's.
  enum ENUM_repeat : int { Repeat0, Repeat1 };

  /// Gives the axis its major ticks unless it has them.
  XAxis(LumoDimension& dimension, LumoAxis& axis);

  /// Writes the axis title; a second call replaces it. A backslash followed by n is a line break. Guarded.
  virtual void AddLabel(char16_t const* text);

  /// Makes the major ticks with their styles, unless they exist. Guarded.
  virtual void AddMajorTicks();

  /// Adds a range to the axis's domain, in data units. The range is never exact: the flag is not read.
  /// Guarded.
  virtual void setInterval(double min, double max, bool exact);
  /// As `setInterval`, without a maximum.
  virtual void setMinInterval(double min, bool exact);

  /// Distance of the major ticks, in data units.
  virtual void setDelta(double delta);
  /// Angle of the tick labels in degrees; beyond -360 and 360 nothing happens.
  virtual void setMajorTickLabelAngle(double angle);
  /// Whether tick labels stand in two alternating rows.
  virtual void setMajorTickStagger(bool stagger);
  /// Every how many ticks a label is drawn.
  virtual void setMajorTicklabelFrequency(unsigned int frequency);

  /// Points the label at the chart's style for hidden labels; that style is not filled here. Nothing without
  /// a label.
  void hideLabel();

  /// @{
  /// Room at the ends of the dimension: a length such as "5%" or "5px".
  void setLowerMargin(char16_t const* margin);
  void setUpperMargin(char16_t const* margin);
  /// @}

  /// @{
  /// Whether the scale's ends are rounded to nice values.
  void setNiceLowerMapping(bool nice);
  void setNiceUpperMapping(bool nice);
  /// @}

  /// Whether all panels share one domain.
  void setUnionDomain(bool unionDomain);
  /// Values other than the two of the enumeration do nothing.
  void setRepeat(ENUM_repeat repeat);

  /// @{
  /// Text before and behind each tick label.
  void setMajorTickLabelPrefix(char16_t const* prefix);
  void setMajorTickLabelSuffix(char16_t const* suffix);
  /// @}

  /// @{
  /// Makes the axis's domain cover the values of a variable too. Where the dimension has no domain yet it
  /// gets one of numbers, or one of categories. Guarded.
  void addIntervalVariableReference(XVariable const& variable);
  void addCategoricalVariableReference(XVariable const& variable);
  /// @}

  /// Marks the domain as dates. Both ends are written as the minimum of one range, the second over the first:
  /// clients rely on it. Null leaves that end out. Guarded.
  void addDateInterval(char16_t const* min, char16_t const* max);

  /// Clusters the dimension by a variable and sets its gap and margins.
  void Cluster(XVariable const& variable);

  /// @param base base of a logarithm or exponent of a power
  void setScale(ENUM_method method, bool invert, double base);

  /// Turns the scale round and sets its origin, in data units. Guarded.
  void invertScale(double origin);

  /// Font sizes of tick labels in points: the smallest first, the preferred second. Nothing happens unless
  /// 0 < first <= second.
  void setTickLabelFontSize(double first, double second);

 private:
  LumoMajorTicks& ticksUnderGuard(char const* context);

  LumoAxis* mImplementation;
  LumoDimension* mDimension;
};
