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

  LumoConditionalStyle* addConditionalStyle(char16_t const* when, LumoStyle const& style);
  std::vector<LumoConditionalStyle*> getConditionalStyles() const;
  LumoStyle* getStyle() const;
  void setName(char16_t const* name);
  void setStyle(LumoStyle const& style);
};

/// A line at a value of x or y, or along a function of them.
class LUMO_API LumoLineGuide : public CTGuideType {
 public:
  using CTGuideType::CTGuideType;
  ~LumoLineGuide() override;

  void setX(char16_t const* x);
  void setY(char16_t const* y);
};

class LUMO_API LumoFunctionGuide : public CTGuideType {
 public:
  using CTGuideType::CTGuideType;
  ~LumoFunctionGuide() override;

  void setValue(char16_t const* value);
};

class LUMO_API LumoPlaneGuide : public CTGuideType {
 public:
  /// The position of the dimension that the plane leaves out.
  enum ENUM_normal : int { NormalYZ = 0, NormalXZ = 1, NormalXY = 2 };

  using CTGuideType::CTGuideType;
  ~LumoPlaneGuide() override;

  void setNormal(ENUM_normal normal);
};

class LUMO_API LumoFrameGuide : public CTGuideType {
 public:
  using CTGuideType::CTGuideType;
  ~LumoFrameGuide() override;

  void setComplete(bool complete);
};
