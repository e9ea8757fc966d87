// Panels: the variables that split a chart into a grid.

#include "xgraph.h"

#include "support/guard.h"

#include "model/graph.h"
#include "model/paneling.h"

#include <string>

using kestrel::guarded;
using kestrel::present;

void XGraph::BeginPaneling() {}

void XGraph::collectPanelVariable(XVariable& variable, ROLE role) {
  if (!variable.getCategorical()) {
    kestrel::reportAndThrow("Panel variables must be categorical - " + variable.getSourceName());
  }
  auto& list = role == ROLE_ROW ? mRowPanelVariables : mColumnPanelVariables;
  list.push_back(&variable.getImplementation());
}

void XGraph::PanelingAddCrossVariable(XVariable& variable, ROLE role) {
  collectPanelVariable(variable, role);
}

void XGraph::PanelingAddNestVariable(XVariable& variable, ROLE role) {
  collectPanelVariable(variable, role);
  // Never reset: one nested variable turns the whole list of its role into a nest.
  (role == ROLE_ROW ? mNestRow : mNestColumn) = true;
}

int XGraph::setPanelAxesOpposite() {
  int count = 0;
  guarded("Error in XGraph::setPanelAxesOpposite()", [&] {
    LumoFacetLayout const* const layout = present(mGraph, "graph").getFacetLayout();
    if (layout == nullptr) return;
    for (LumoFacetLevel const* level : layout->getFacetLevels()) {
      for (LumoAxis* axis : level->getAxiss()) {
        axis->setOpposite(!axis->getOpposite());
        // Negated by sign, so that 0 becomes -0.
        if (LumoMajorTicks* const ticks = axis->getMajorTicks())
          ticks->setLabelAngle(-ticks->getLabelAngle());
        ++count;
      }
    }
  });
  return count;
}
