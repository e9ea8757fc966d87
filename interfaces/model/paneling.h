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

  /// Appends a child of that kind.
  LumoCross* addCross();
  /// The children of that kind, in document order.
  std::vector<LumoCross*> getCrosss() const;
  /// "cross" or "nest".
  void setMethod(char16_t const* method);
};

/// The panel variables side by side, in order; a unity stands for a direction that has run out of them.
class LUMO_API LumoCross : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoCross() override;

  /// @{
  /// Each appends a child of its kind.
  LumoCross* addCross();
  LumoNest* addNest();
  LumoUnity* addUnity();
  LumoVariableReference* addVariableReference();
  /// @}

  /// @{
  /// The children of a kind, in document order.
  std::vector<LumoCross*> getCrosss() const;
  std::vector<LumoNest*> getNests() const;
  std::vector<LumoUnity*> getUnitys() const;
  std::vector<LumoVariableReference*> getVariableReferences() const;
  /// @}
};

/// Panel variables one within the other.
class LUMO_API LumoNest : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoNest() override;

  /// Appends a child of that kind.
  LumoVariableReference* addVariableReference();
  /// The children of that kind, in document order.
  std::vector<LumoVariableReference*> getVariableReferences() const;
};

/// Stands for a direction of the panels that has no further variable.
class LUMO_API LumoUnity : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoUnity() override;
};

/// How panels are laid out.
class LUMO_API LumoFacetLayout : public LumoBaseElement {
 public:
  /// How panels are laid out; a number of the client.
  enum ENUM_method : int { Method1 = 1 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoFacetLayout() override;

  /// Appends the level with that number, from 1.
  LumoFacetLevel* addFacetLevel(char16_t const* id, unsigned int level);
  /// Appends a child of that kind.
  LumoSetCellProperties* addSetCellProperties();

  /// @{
  /// The children of a kind, in document order.
  std::vector<LumoFacetLevel*> getFacetLevels() const;
  std::vector<LumoSetCellProperties*> getSetCellPropertiess() const;
  /// @}

  /// Width by height of a panel.
  void setCellAspect(double aspect);
  /// How panels are laid out.
  void setMethod(ENUM_method method);
  /// Whether the first row of panels is the upper one.
  void setTopDown(bool topDown);
};

/// The axes of the panels along one panel variable.
class LUMO_API LumoFacetLevel : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoFacetLevel() override;

  /// Appends a child of that kind.
  LumoAxis* addAxis();
  /// The children of that kind, in document order.
  std::vector<LumoAxis*> getAxiss() const;
  /// Counts from 1; 0 where nothing was set.
  unsigned int getLevel() const;
  /// Distance from panel to panel: a length.
  void setGap(char16_t const* gap);
};

/// The looks of one panel.
class LUMO_API LumoSetCellProperties : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoSetCellProperties() override;

  /// Appends a child of that kind.
  LumoSetFrameStyle* addSetFrameStyle();
  /// The children of that kind, in document order.
  std::vector<LumoSetFrameStyle*> getSetFrameStyles() const;
};

/// The style of the frame of a panel.
class LUMO_API LumoSetFrameStyle : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoSetFrameStyle() override;

  /// The style of the frame.
  LumoStyle* getStyle() const;
  /// The style of the frame.
  void setStyle(LumoStyle const& style);
};
