#pragma once

#include "base.h"
#include "export.h"
#include "forward.h"

#include <vector>

/// Something drawn over the elements of a graph that depends on no data.
class LUMO_API CTGuideType : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTGuideType() override;

  /// Appends a style that holds where the condition is true, such as `facet1 == "2"`.
  LumoConditionalStyle* addConditionalStyle(char16_t const* when, LumoStyle const& style);
  /// The children of that kind, in document order.
  std::vector<LumoConditionalStyle*> getConditionalStyles() const;
  /// The style of the guide.
  LumoStyle* getStyle() const;
  /// The name of the guide, for people.
  void setName(char16_t const* name);
  /// The style of the guide.
  void setStyle(LumoStyle const& style);
};

/// A line at a value of x or y, or along a function of them.
class LUMO_API LumoLineGuide : public CTGuideType {
 public:
  using CTGuideType::CTGuideType;
  ~LumoLineGuide() override;

  /// The place along x, or a function of y.
  void setX(char16_t const* x);
  /// The place along y, or a function of x.
  void setY(char16_t const* y);
};

/// The line of a function of x.
class LUMO_API LumoFunctionGuide : public CTGuideType {
 public:
  using CTGuideType::CTGuideType;
  ~LumoFunctionGuide() override;

  /// The function, an expression in x.
  void setValue(char16_t const* value);
};

/// A plane in a view in space.
class LUMO_API LumoPlaneGuide : public CTGuideType {
 public:
  /// The position of the dimension that the plane leaves out.
  enum ENUM_normal : int { NormalYZ = 0, NormalXZ = 1, NormalXY = 2 };

  using CTGuideType::CTGuideType;
  ~LumoPlaneGuide() override;

  /// Which plane.
  void setNormal(ENUM_normal normal);
};

/// A frame around the data: the edges of the box in a view in space.
class LUMO_API LumoFrameGuide : public CTGuideType {
 public:
  using CTGuideType::CTGuideType;
  ~LumoFrameGuide() override;

  /// Whether all edges are drawn.
  void setComplete(bool complete);
};
