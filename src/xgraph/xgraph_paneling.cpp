// Panels: the variables that split a chart into a grid, or lay several measures side by side.

#include "xgraph.h"

#include "panels.h"

#include "support/chart_text.h"
#include "support/guard.h"

#include "model/document.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/paneling.h"
#include "model/tokens.h"
#include "model/variables.h"

#include <string>
#include <vector>

using kestrel::addPanelVariable;
using kestrel::guarded;
using kestrel::joined;
using kestrel::nestPanels;
using kestrel::numbered;
using kestrel::orEmpty;
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

void XGraph::PanelingAddBlendVariable(XVariable& variable) {
  mBlendVariables.push_back(&variable.getImplementation());
}

namespace {

/// A constant beside the variable that names it in its panels.
ChartString addBlendLabel(LumoVisualization& visualization, CTVariableType& variable) {
  ChartString const id(variable.getId());
  ChartString const labelId = joined({id.xc_str(), LumoUni::_label});
  LumoDerivedVariable& label = *visualization.addDerivedVariable(labelId.xc_str());
  label.setCategorical(true);
  label.setLabel(labelId.xc_str());
  // The words swap places here, "label" before the id: clients look the constant up in that form.
  label.setValue(joined({u"constant(label", id.xc_str(), u")"}).xc_str());
  ChartString const from = joined({LumoUni::_label, id.xc_str()});
  label.addFormat()->addRelabel(from.xc_str(), orEmpty(variable.getLabel()));
  return joined({id.xc_str(), u"/", labelId.xc_str()});
}

template <typename Element>
void append(std::vector<CTElementType*>& elements, std::vector<Element*> const& more) {
  elements.insert(elements.end(), more.begin(), more.end());
}

std::vector<CTElementType*> elementsOf(LumoGraph const& graph) {
  std::vector<CTElementType*> elements;
  append(elements, graph.getAreas());
  append(elements, graph.getIntervals());
  append(elements, graph.getLines());
  append(elements, graph.getEdges());
  append(elements, graph.getPaths());
  append(elements, graph.getPoints());
  append(elements, graph.getPolygons());
  append(elements, graph.getSchemas());
  return elements;
}

void blendVariables(XGraph& chart, std::vector<CTVariableType*> const& variables) {
  LumoVisualization& visualization = *chart.getImplementation();
  ChartString expression;
  for (CTVariableType* variable : variables) {
    variable->setCategorical(false);
    ChartString const term = addBlendLabel(visualization, *variable);
    if (!expression.empty()) expression.append(u" + ");
    expression.append(term);
  }
  // One more than the count, unlike the ids of AddExpressionVariable: relied upon.
  ChartString const id =
      numbered(LumoUni::_expressionVariable, visualization.getExpressionVariables().size() + 1);
  LumoExpressionVariable& blend = *visualization.addExpressionVariable(id.xc_str());
  blend.setExpression(expression.xc_str());
  blend.setCategorical(false);
  blend.setShortLabel(u"Y Axis");
  blend.addFormat();
  chart.addBlendFacetLevel(1);
  // Every element plots the blend, whatever it plotted before.
  for (CTElementType* element : elementsOf(present(chart.getGraph(), "graph"))) {
    CTCoordinate* y = element->getY();
    if (y == nullptr) y = element->addY();
    y->setVariable(blend);
  }
}

/// The panel variables of one direction, as far as they have found their place.
struct PanelSide {
  std::vector<CTVariableType*> const& variables;
  bool nested;
  double labelAngle;
  std::size_t next = 0;

  bool hasMore() const { return next < variables.size(); }
};

/// The next place of a direction: its next variable, all of them where they are nested, or a filler where
/// they have run out.
void addTurn(XGraph& chart, LumoCross& panels, PanelSide& side, unsigned int& level) {
  kestrel::PanelLook const look{u"5%", side.labelAngle};
  if (!side.hasMore()) {
    panels.addUnity();
  } else if (side.nested) {
    nestPanels(chart, panels, side.variables, level, look);
    side.next = side.variables.size();
  } else {
    addPanelVariable(chart, *panels.addVariableReference(), *side.variables[side.next], level, look);
    ++side.next;
  }
}

LumoFaceting& findOrMakeFaceting(LumoGraph& graph) {
  LumoFaceting* faceting = graph.getFaceting();
  if (faceting == nullptr) {
    faceting = graph.addFaceting();
    faceting->setId(numbered(LumoUni::_faceting, 0).xc_str());
  }
  return *faceting;
}

/// Coordinates that are not there are not made.
void repeatFirstAxis(XGraph& chart, LumoCoordinates& coordinates) {
  LumoDimension const* const x = chart.getXDimension(coordinates, true);
  if (x == nullptr) return;
  auto const axes = x->getAxiss();
  if (!axes.empty()) axes.front()->setRepeat(LumoAxis::Repeat0);
}

void splitIntoPanels(XGraph& chart, PanelSide columns, PanelSide rows, bool cross) {
  LumoGraph& graph = present(chart.getGraph(), "graph");
  LumoFaceting& faceting = findOrMakeFaceting(graph);
  if (LumoCoordinates* const coordinates = graph.getCoordinates(0)) repeatFirstAxis(chart, *coordinates);
  faceting.setMethod(cross ? LumoUni::_cross : LumoUni::_nest);
  // A cross also where the method is nest: relied upon.
  LumoCross& panels = *faceting.addCross();
  unsigned int level = 1;
  while (columns.hasMore() || rows.hasMore()) {
    addTurn(chart, panels, columns, level);
    addTurn(chart, panels, rows, level);
  }
}

}  // namespace

void kestrel::addPanelVariable(XGraph& chart, LumoVariableReference& place, CTVariableType const& variable,
                               unsigned int& level, PanelLook const& look) {
  place.setRef(variable);
  chart.addFacetLevel(level, variable.getLabel(), look.gap, look.labelAngle);
}

void kestrel::nestPanels(XGraph& chart, LumoCross& panels, std::vector<CTVariableType*> const& variables,
                         unsigned int& level, PanelLook const& look) {
  LumoNest& nest = *panels.addNest();
  for (CTVariableType const* variable : variables) {
    addPanelVariable(chart, *nest.addVariableReference(), *variable, level, look);
  }
}

void XGraph::EndPaneling(bool cross, bool) {
  guarded("Error in XGraph::EndPaneling()", [&] {
    if (!mBlendVariables.empty()) {
      blendVariables(*this, mBlendVariables);
    } else if (!mRowPanelVariables.empty() || !mColumnPanelVariables.empty()) {
      splitIntoPanels(*this, {mColumnPanelVariables, mNestColumn, 0.0}, {mRowPanelVariables, mNestRow, 90.0},
                      cross);
    }
  });
}
