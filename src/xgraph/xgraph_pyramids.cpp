// Population pyramids: two halves of one bar chart that mirror each other.

#include "xgraph.h"

#include "panels.h"

#include "support/guard.h"

#include "model/graph.h"
#include "model/paneling.h"
#include "model/tokens.h"

using kestrel::addPanelVariable;
using kestrel::guarded;
using kestrel::PanelLook;
using kestrel::present;

namespace {

/// The halves touch; what splits the whole pyramid keeps its distance. No label is turned, unlike those of
/// rows elsewhere.
constexpr PanelLook halves{u"0%", 0.0};
constexpr PanelLook rows{u"10%", 0.0};

/// Every second row variable opens a cross within the cross, behind a filler.
void addRows(XGraph& chart, LumoCross& outermost, std::vector<CTVariableType*> const& variables,
             unsigned int& level) {
  LumoCross* panels = &outermost;
  for (std::size_t at = 0; at < variables.size(); ++at) {
    if (at % 2 == 1) {
      panels = panels->addCross();
      panels->addUnity();
    }
    addPanelVariable(chart, *panels->addVariableReference(), *variables[at], level, rows);
  }
}

}  // namespace

void XGraph::EndPyramidPaneling(bool) {
  guarded("Error in XGraph::EndPyramidPaneling()", [&] {
    if (mColumnPanelVariables.size() != 1) return;
    LumoGraph& graph = present(mGraph, "graph");
    // Without an id, unlike the faceting of EndPaneling.
    LumoFaceting* faceting = graph.getFaceting();
    if (faceting == nullptr) faceting = graph.addFaceting();
    faceting->setMethod(LumoUni::_cross);
    LumoCross& panels = *faceting->addCross()->addCross();
    unsigned int level = 1;
    addPanelVariable(*this, *panels.addVariableReference(), *mColumnPanelVariables.front(), level, halves);
    if (mRowPanelVariables.empty()) return;
    if (mNestRow) {
      nestPanels(*this, panels, mRowPanelVariables, level, rows);
    } else {
      addRows(*this, panels, mRowPanelVariables, level);
    }
  });
}

void XGraph::MirrorCharts() {
  guarded("Error in XGraph::MirrorCharts()", [&] {
    transpose();
    LumoReflectionTransform& reflection = *findOrMakeCoordinates().addReflectionTransform();
    reflection.setDimension(LumoReflectionTransform::DimensionX);
    reflection.setAlternating(true);
  });
}
