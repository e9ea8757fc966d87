#pragma once

#include "base.h"
#include "export.h"
#include "forward.h"

#include <vector>

/// A graphic element: what a graph draws of its data.
class LUMO_API CTElementType : public LumoBaseElement {
 public:
  /// What happens to labels that would lie upon each other; a number of the client.
  enum ENUM_labelCollisionHandling : int { LabelCollisionHandling1 = 1, LabelCollisionHandling2 = 2 };
  /// What happens to parts at one place: they stand beside each other, are stacked, or become dots in stacks
  /// or side by side.
  enum ENUM_positionModifier : int {
    PositionModifier1 = 1,
    PositionModifierStack = 3,
    PositionModifierStackedDot = 7,
    PositionModifierDot = 8
  };

  using LumoBaseElement::LumoBaseElement;
  ~CTElementType() override;

  /// @{
  /// Each appends a child of its kind.
  LumoBinStatistic* addBinStatistic();
  LumoColor* addColor();
  /// @}

  /// Appends a style that holds where the condition is true, such as `facet1 == "2"`.
  LumoConditionalStyle* addConditionalStyle(char16_t const* when, LumoStyle const& style);

  /// @{
  /// Each appends a child of its kind.
  LumoDash* addDash();
  LumoDistributionStatistic* addDistributionStatistic();
  LumoLabeling* addLabeling();
  LumoPattern* addPattern();
  LumoShape* addShape();
  LumoSize* addSize();
  /// @}

  /// With an aesthetic the new style-by takes over its variable.
  LumoStyleBy* addStyleBy(CTAesthetic* aesthetic);

  /// @{
  /// Each appends a child of its kind.
  LumoSummaryStatistic* addSummaryStatistic();
  LumoTransparency* addTransparency();
  LumoTukeyStatistic* addTukeyStatistic();
  LumoX* addX();
  LumoY* addY();
  LumoZ* addZ();
  /// @}

  /// @{
  /// The children of a kind, in document order. Of a kind that stands alone the first one, or null.
  std::vector<LumoBinStatistic*> getBinStatistics() const;
  std::vector<LumoColor*> getColors() const;
  std::vector<LumoConditionalStyle*> getConditionalStyles() const;
  std::vector<LumoDash*> getDashs() const;
  std::vector<LumoDistributionStatistic*> getDistributionStatistics() const;
  std::vector<LumoLabeling*> getLabelings() const;
  std::vector<LumoPattern*> getPatterns() const;
  std::vector<LumoShape*> getShapes() const;
  std::vector<LumoSize*> getSizes() const;
  std::vector<LumoStyleBy*> getStyleBys() const;
  std::vector<LumoSummaryStatistic*> getSummaryStatistics() const;
  std::vector<LumoTransparency*> getTransparencys() const;
  std::vector<LumoTukeyStatistic*> getTukeyStatistics() const;
  /// @{
  /// The first variable on that direction, or null.
  CTCoordinate* getX() const;
  CTCoordinate* getY() const;
  CTCoordinate* getZ() const;
  /// @}
  /// @}

  /// @{
  /// Each detaches all children of its kind.
  void removeBinStatistics();
  void removeDistributionStatistics();
  void removeShapes();
  /// @}

  /// Nothing happens past the end of the list.
  void removeStyleBy(unsigned long index);

  /// @{
  /// Each detaches all children of its kind.
  void removeStyleBys();
  void removeSummaryStatistics();
  /// @}

  /// The looks of the element where no aesthetic says otherwise.
  LumoStyle* getStyle() const;
  /// Leaves the handling of labels to the client.
  void removeLabelCollisionHandling();
  /// Whether the client is to draw dots; passed on to it.
  void setDot(bool dot);
  /// What happens to labels that would lie upon each other.
  void setLabelCollisionHandling(ENUM_labelCollisionHandling handling);
  /// The name of the element, for people.
  void setName(char16_t const* name);
  /// What happens to parts at one place.
  void setPositionModifier(ENUM_positionModifier modifier);
  /// Whether labels that lie upon each other are shown.
  void setShowCollidingLabels(bool show);
  /// The looks of the element where no aesthetic says otherwise.
  void setStyle(LumoStyle const& style);
};

/// The area under a line, or between two lines.
class LUMO_API LumoArea : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoArea() override;
};

/// A line from one place to another, such as the links of a network.
class LUMO_API LumoEdge : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoEdge() override;
};

/// A bar from the origin to each value, or from one value to another.
class LUMO_API LumoInterval : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoInterval() override;
};

/// A line through the data in the order of x.
class LUMO_API LumoLine : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoLine() override;
};

/// A line through the data in the order of the rows.
class LUMO_API LumoPath : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoPath() override;
};

/// A symbol for each row or statistic.
class LUMO_API LumoPoint : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoPoint() override;
};

/// The area around the data in the order of the rows, such as a place of a map.
class LUMO_API LumoPolygon : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoPolygon() override;
};

/// A box plot.
class LUMO_API LumoSchema : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoSchema() override;

  /// Drops the reference only.
  void removeFenceStyle();
  /// The style of outliers far off.
  void setExtremeStyle(LumoStyle const& style);
  /// The style of the whiskers.
  void setFenceStyle(LumoStyle const& style);
  /// The style of the box.
  void setHingeStyle(LumoStyle const& style);
  /// The style of the line at the median.
  void setMedianStyle(LumoStyle const& style);
  /// The style of outliers.
  void setOutlierStyle(LumoStyle const& style);
};

/// Puts a variable on one direction of an element.
class LUMO_API CTCoordinate : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTCoordinate() override;

  /// The variable on that direction.
  CTVariableType* getVariable() const;
  /// The variable on that direction.
  void setVariable(CTVariableType const& variable);
};

/// The variable on the first dimension.
class LUMO_API LumoX : public CTCoordinate {
 public:
  using CTCoordinate::CTCoordinate;
  ~LumoX() override;
};

/// The variable on the second dimension.
class LUMO_API LumoY : public CTCoordinate {
 public:
  using CTCoordinate::CTCoordinate;
  ~LumoY() override;
};

/// The variable on the third dimension.
class LUMO_API LumoZ : public CTCoordinate {
 public:
  using CTCoordinate::CTCoordinate;
  ~LumoZ() override;
};

/// Three texts separated by ";" in the text attributes, one for each direction.
class LUMO_API LumoBinStatistic : public LumoBaseElement {
 public:
  /// The form of the bins; a number of the client.
  enum ENUM_gridType : int { GridType1 = 1 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoBinStatistic() override;

  /// Whether the client adds to the bins; passed on to it.
  void setAugment(bool augment);
  /// How many bins there are.
  void setBinCount(char16_t const* count);
  /// Where the first bin begins.
  void setBinStart(char16_t const* start);
  /// How wide a bin is; a "d" behind the number says that it is in data units.
  void setBinWidth(char16_t const* width);
  /// The form of the bins.
  void setGridType(ENUM_gridType type);
};

/// A statistic computed over the values of an element.
class LUMO_API LumoSummaryStatistic : public LumoBaseElement {
 public:
  /// What the client adds to the values; a number of the client.
  enum ENUM_augment : int { Augment1 = 1, Augment2 = 2 };
  /// 1 sum, 2 mean, 4 median, 5 least and 6 greatest value, 7 mean with error bar, 10 count, 11 cumulative
  /// count; 3, 12 (cumulative), 22 and 23 percentages; the others are numbers of the client.
  enum ENUM_method : int {
    MethodPercentage3 = 3,
    MethodErrorBar = 7,
    MethodHistogram = 10,
    Method11 = 11,
    MethodPercentage12 = 12,
    Method14 = 14,
    Method20 = 20,
    MethodPercentage22 = 22,
    MethodPercentage23 = 23,
    Method26 = 26,
    Method31 = 31,
    Method34 = 34,
    Method35 = 35,
    Method36 = 36,
    Method37 = 37
  };

  using LumoBaseElement::LumoBaseElement;
  ~LumoSummaryStatistic() override;

  /// 0 where nothing was set.
  ENUM_method getMethod() const;
  /// What the client adds to the values.
  void setAugment(ENUM_augment augment);
  /// Which statistic is computed.
  void setMethod(ENUM_method method);
};

/// The figures of a box plot: median, hinges, fences and outliers.
class LUMO_API LumoTukeyStatistic : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoTukeyStatistic() override;
};

/// The distribution of the values of an element.
class LUMO_API LumoDistributionStatistic : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoDistributionStatistic() override;
};

/// Labels the data of an element.
class LUMO_API LumoLabeling : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoLabeling() override;

  /// Appends a child of that kind.
  LumoFormat* addFormat();
  /// The children of that kind, in document order.
  std::vector<LumoFormat*> getFormats() const;
  /// Whether lines join the labels with what they label.
  void setConnectingLines(bool connecting);
  /// The position of the dimension whose values are shown, from 0.
  void setDimension(unsigned int dimension);
  /// The style of the texts.
  void setStyle(LumoStyle const& style);
  /// The style of the frames behind the texts.
  void setTextFrameStyle(LumoStyle const& style);
  /// The variable whose values are shown.
  void setVariable(CTVariableType const& variable);
};
