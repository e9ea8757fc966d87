#pragma once

#include "graph_fixture.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace kestrel::test {

/// A categorical variable of the graph's chart; a null label is not set.
XVariable addCategory(XGraph& graph, char16_t const* id, char16_t const* label = nullptr);

/// A wrapper that stands for another variable than the one that it was made on.
class StandIn : public XVariable {
 public:
  StandIn(LumoSourceVariable& own, CTVariableType& other) : XVariable(own), mOther(other) {}

  CTVariableType& getImplementation() const override { return mOther; }

 private:
  CTVariableType& mOther;
};

/// Categorical variables, as the panel variables of one side.
void crossPanels(XGraph& graph, XGraph::ROLE role, std::initializer_list<char16_t const*> ids);
void nestPanels(XGraph& graph, XGraph::ROLE role, std::initializer_list<char16_t const*> ids);

/// Everything below the graph's faceting, such as "cross(island nest(sex year) unity)"; its crosses one
/// behind the other, "(no faceting)" without one.
std::string panelTree(XGraph const& graph);

/// The facet levels in their order, such as "facetLabel_panel_1: level 1, gap 5%, Island, angle (absent)".
std::vector<std::string> facetLevels(XGraph const& graph);

/// A graph whose panel variables are made by their ids.
class PanelTest : public GraphTest {
 protected:
  XVariable category(char16_t const* id, char16_t const* label = nullptr) {
    return addCategory(graph, id, label);
  }
  void columns(std::initializer_list<char16_t const*> ids) { crossPanels(graph, XGraph::ROLE_COLUMN, ids); }
  void rows(std::initializer_list<char16_t const*> ids) { crossPanels(graph, XGraph::ROLE_ROW, ids); }
  void nestedColumns(std::initializer_list<char16_t const*> ids) {
    nestPanels(graph, XGraph::ROLE_COLUMN, ids);
  }
  void nestedRows(std::initializer_list<char16_t const*> ids) { nestPanels(graph, XGraph::ROLE_ROW, ids); }
};

/// Something that is done to a graph.
using GraphStep = std::function<void(XGraph&)>;

/// Lets each write of `operation` fail in turn, each in a prepared chart of its own: once by an ordinary
/// failure, which must be reported under `context` and leave the chart as it stood before that write, and
/// once by the host's unwinding signal, which must come out unreported and leave the same.
void expectGuardedAtEveryWrite(host::Recorder& recorder, GraphStep const& prepare, GraphStep const& operation,
                               std::string const& context);

/// The same of an operation without a guard: both come out, unreported.
void expectUnguardedAtEveryWrite(host::Recorder& recorder, GraphStep const& prepare,
                                 GraphStep const& operation);

}  // namespace kestrel::test
