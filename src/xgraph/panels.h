#pragma once

#include <vector>

class CTVariableType;
class LumoCross;
class LumoVariableReference;
class XGraph;

namespace kestrel {

/// How the panels of a variable look.
struct PanelLook {
  /// Distance from panel to panel, with its unit.
  char16_t const* gap;
  /// Of the tick labels, in degrees; 0 is left out.
  double labelAngle;
};

/// Puts a panel variable in its place and gives it the next facet level.
void addPanelVariable(XGraph& chart, LumoVariableReference& place, CTVariableType const& variable,
                      unsigned int& level, PanelLook const& look);

/// Puts all of them into one nest.
void nestPanels(XGraph& chart, LumoCross& panels, std::vector<CTVariableType*> const& variables,
                unsigned int& level, PanelLook const& look);

}  // namespace kestrel
