#pragma once

#include "base.h"
#include "export.h"
#include "forward.h"

#include <vector>

/// A graphic element: what a graph draws of its data.
class LUMO_API CTElementType : public LumoBaseElement {
 public:
  enum ENUM_labelCollisionHandling : int { LabelCollisionHandling1 = 1, LabelCollisionHandling2 = 2 };
  enum ENUM_positionModifier : int {
    PositionModifier1 = 1,
    PositionModifierStack = 3,
    PositionModifierStackedDot = 7,
    PositionModifierDot = 8
  };

  using LumoBaseElement::LumoBaseElement;
  ~CTElementType() override;

  LumoBinStatistic* addBinStatistic();
  LumoColor* addColor();
  LumoConditionalStyle* addConditionalStyle(char16_t const* when, LumoStyle const& style);
  LumoDash* addDash();
  LumoDistributionStatistic* addDistributionStatistic();
  LumoLabeling* addLabeling();
  LumoPattern* addPattern();
  LumoShape* addShape();
  LumoSize* addSize();
  /// With an aesthetic the new style-by takes over its variable.
  LumoStyleBy* addStyleBy(CTAesthetic* aesthetic);
  LumoSummaryStatistic* addSummaryStatistic();
  LumoTransparency* addTransparency();
  LumoTukeyStatistic* addTukeyStatistic();
  LumoX* addX();
  LumoY* addY();
  LumoZ* addZ();

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
  CTCoordinate* getX() const;
  CTCoordinate* getY() const;
  CTCoordinate* getZ() const;

  void removeBinStatistics();
  void removeDistributionStatistics();
  void removeShapes();
  /// Nothing happens past the end of the list.
  void removeStyleBy(unsigned long index);
  void removeStyleBys();
  void removeSummaryStatistics();

  LumoStyle* getStyle() const;
  void removeLabelCollisionHandling();
  void setDot(bool dot);
  void setLabelCollisionHandling(ENUM_labelCollisionHandling handling);
  void setName(char16_t const* name);
  void setPositionModifier(ENUM_positionModifier modifier);
  void setShowCollidingLabels(bool show);
  void setStyle(LumoStyle const& style);
};

class LUMO_API LumoArea : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoArea() override;
};

class LUMO_API LumoEdge : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoEdge() override;
};

class LUMO_API LumoInterval : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoInterval() override;
};

class LUMO_API LumoLine : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoLine() override;
};

class LUMO_API LumoPath : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoPath() override;
};

class LUMO_API LumoPoint : public CTElementType {
 public:
  using CTElementType::CTElementType;
  ~LumoPoint() override;
};

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
  void setExtremeStyle(LumoStyle const& style);
  void setFenceStyle(LumoStyle const& style);
  void setHingeStyle(LumoStyle const& style);
  void setMedianStyle(LumoStyle const& style);
  void setOutlierStyle(LumoStyle const& style);
};

/// Puts a variable on one direction of an element.
class LUMO_API CTCoordinate : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTCoordinate() override;

  CTVariableType* getVariable() const;
  void setVariable(CTVariableType const& variable);
};

class LUMO_API LumoX : public CTCoordinate {
 public:
  using CTCoordinate::CTCoordinate;
  ~LumoX() override;
};

class LUMO_API LumoY : public CTCoordinate {
 public:
  using CTCoordinate::CTCoordinate;
  ~LumoY() override;
};

class LUMO_API LumoZ : public CTCoordinate {
 public:
  using CTCoordinate::CTCoordinate;
  ~LumoZ() override;
};

/// Three texts separated by ";" in the text attributes, one for each direction.
class LUMO_API LumoBinStatistic : public LumoBaseElement {
 public:
  enum ENUM_gridType : int { GridType1 = 1 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoBinStatistic() override;

  void setAugment(bool augment);
  void setBinCount(char16_t const* count);
  void setBinStart(char16_t const* start);
  void setBinWidth(char16_t const* width);
  void setGridType(ENUM_gridType type);
};

class LUMO_API LumoSummaryStatistic : public LumoBaseElement {
 public:
  enum ENUM_augment : int { Augment1 = 1, Augment2 = 2 };
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
  void setAugment(ENUM_augment augment);
  void setMethod(ENUM_method method);
};

class LUMO_API LumoTukeyStatistic : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoTukeyStatistic() override;
};

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

  LumoFormat* addFormat();
  std::vector<LumoFormat*> getFormats() const;
  void setConnectingLines(bool connecting);
  void setDimension(unsigned int dimension);
  void setStyle(LumoStyle const& style);
  void setTextFrameStyle(LumoStyle const& style);
  void setVariable(CTVariableType const& variable);
};
