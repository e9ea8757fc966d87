#pragma once

#include "base.h"
#include "export.h"
#include "forward.h"

#include <vector>

/// Splits a graph into panels.
class LUMO_API LumoFaceting : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoFaceting() override;

  LumoCross* addCross();
  std::vector<LumoCross*> getCrosss() const;
  /// "cross" or "nest".
  void setMethod(char16_t const* method);
};

/// The panel variables side by side, in order; a unity stands for a direction that has run out of them.
class LUMO_API LumoCross : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoCross() override;

  LumoCross* addCross();
  LumoNest* addNest();
  LumoUnity* addUnity();
  LumoVariableReference* addVariableReference();
  std::vector<LumoCross*> getCrosss() const;
  std::vector<LumoNest*> getNests() const;
  std::vector<LumoUnity*> getUnitys() const;
  std::vector<LumoVariableReference*> getVariableReferences() const;
};

/// Panel variables one within the other.
class LUMO_API LumoNest : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoNest() override;

  LumoVariableReference* addVariableReference();
  std::vector<LumoVariableReference*> getVariableReferences() const;
};

class LUMO_API LumoUnity : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoUnity() override;
};

class LUMO_API LumoFacetLayout : public LumoBaseElement {
 public:
  enum ENUM_method : int { Method1 = 1 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoFacetLayout() override;

  LumoFacetLevel* addFacetLevel(char16_t const* id, unsigned int level);
  LumoSetCellProperties* addSetCellProperties();
  std::vector<LumoFacetLevel*> getFacetLevels() const;
  std::vector<LumoSetCellProperties*> getSetCellPropertiess() const;

  /// Width by height of a panel.
  void setCellAspect(double aspect);
  void setMethod(ENUM_method method);
  void setTopDown(bool topDown);
};

/// The axes of the panels along one panel variable.
class LUMO_API LumoFacetLevel : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoFacetLevel() override;

  LumoAxis* addAxis();
  std::vector<LumoAxis*> getAxiss() const;
  /// Counts from 1; 0 where nothing was set.
  unsigned int getLevel() const;
  void setGap(char16_t const* gap);
};

/// The looks of one panel.
class LUMO_API LumoSetCellProperties : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoSetCellProperties() override;

  LumoSetFrameStyle* addSetFrameStyle();
  std::vector<LumoSetFrameStyle*> getSetFrameStyles() const;
};

class LUMO_API LumoSetFrameStyle : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoSetFrameStyle() override;

  LumoStyle* getStyle() const;
  void setStyle(LumoStyle const& style);
};
