// The grids that panel variables of columns and rows, crossed and nested, make.

#include "panel_fixture.h"

#include "model/variables.h"

#include <initializer_list>
#include <string>
#include <vector>

using namespace kestrel::test;

namespace {

using Ids = std::initializer_list<char16_t const*>;

struct PanelGrid {
  char const* name;
  void (*collect)(XGraph&);
  char const* tree;
  /// The facet levels' variables with the angles of their tick labels, in order.
  std::vector<std::string> levels;
};

void PrintTo(PanelGrid const& row, std::ostream* out) { *out << row.name; }

void columnsOf(XGraph& graph, Ids ids) { crossPanels(graph, XGraph::ROLE_COLUMN, ids); }
void rowsOf(XGraph& graph, Ids ids) { crossPanels(graph, XGraph::ROLE_ROW, ids); }
void nestedColumnsOf(XGraph& graph, Ids ids) { nestPanels(graph, XGraph::ROLE_COLUMN, ids); }
void nestedRowsOf(XGraph& graph, Ids ids) { nestPanels(graph, XGraph::ROLE_ROW, ids); }

PanelGrid const grids[] = {
    {"OneColumn", [](XGraph& graph) { columnsOf(graph, {u"c1"}); }, "cross(c1 unity)", {"c1 (absent)"}},
    {"OneRow", [](XGraph& graph) { rowsOf(graph, {u"r1"}); }, "cross(unity r1)", {"r1 90"}},
    {"OneColumnAndOneRow",
     [](XGraph& graph) {
       columnsOf(graph, {u"c1"});
       rowsOf(graph, {u"r1"});
     },
     "cross(c1 r1)",
     {"c1 (absent)", "r1 90"}},
    {"ARowThatWasCollectedBeforeItsColumn",
     [](XGraph& graph) {
       rowsOf(graph, {u"r1"});
       columnsOf(graph, {u"c1"});
     },
     "cross(c1 r1)",
     {"c1 (absent)", "r1 90"}},
    {"TwoColumnsAndOneRow",
     [](XGraph& graph) {
       columnsOf(graph, {u"c1", u"c2"});
       rowsOf(graph, {u"r1"});
     },
     "cross(c1 r1 c2 unity)",
     {"c1 (absent)", "r1 90", "c2 (absent)"}},
    {"OneColumnAndThreeRows",
     [](XGraph& graph) {
       columnsOf(graph, {u"c1"});
       rowsOf(graph, {u"r1", u"r2", u"r3"});
     },
     "cross(c1 r1 unity r2 unity r3)",
     {"c1 (absent)", "r1 90", "r2 90", "r3 90"}},
    {"TwoColumnsAndTwoRows",
     [](XGraph& graph) {
       columnsOf(graph, {u"c1", u"c2"});
       rowsOf(graph, {u"r1", u"r2"});
     },
     "cross(c1 r1 c2 r2)",
     {"c1 (absent)", "r1 90", "c2 (absent)", "r2 90"}},
    {"TwoColumns",
     [](XGraph& graph) {
       columnsOf(graph, {u"c1", u"c2"});
     },
     "cross(c1 unity c2 unity)",
     {"c1 (absent)", "c2 (absent)"}},
    {"TwoRows",
     [](XGraph& graph) {
       rowsOf(graph, {u"r1", u"r2"});
     },
     "cross(unity r1 unity r2)",
     {"r1 90", "r2 90"}},
    {"ANestOfOneColumn",
     [](XGraph& graph) { nestedColumnsOf(graph, {u"c1"}); },
     "cross(nest(c1) unity)",
     {"c1 (absent)"}},
    {"ANestOfOneRow",
     [](XGraph& graph) { nestedRowsOf(graph, {u"r1"}); },
     "cross(unity nest(r1))",
     {"r1 90"}},
    {"NestedColumnsAndOneRow",
     [](XGraph& graph) {
       nestedColumnsOf(graph, {u"c1", u"c2"});
       rowsOf(graph, {u"r1"});
     },
     "cross(nest(c1 c2) r1)",
     {"c1 (absent)", "c2 (absent)", "r1 90"}},
    {"NestedColumnsAndThreeRows",
     [](XGraph& graph) {
       nestedColumnsOf(graph, {u"c1", u"c2"});
       rowsOf(graph, {u"r1", u"r2", u"r3"});
     },
     "cross(nest(c1 c2) r1 unity r2 unity r3)",
     {"c1 (absent)", "c2 (absent)", "r1 90", "r2 90", "r3 90"}},
    {"TwoColumnsAndNestedRows",
     [](XGraph& graph) {
       columnsOf(graph, {u"c1", u"c2"});
       nestedRowsOf(graph, {u"r1", u"r2", u"r3"});
     },
     "cross(c1 nest(r1 r2 r3) c2 unity)",
     {"c1 (absent)", "r1 90", "r2 90", "r3 90", "c2 (absent)"}},
    {"NestedColumnsAndNestedRows",
     [](XGraph& graph) {
       nestedColumnsOf(graph, {u"c1", u"c2"});
       nestedRowsOf(graph, {u"r1", u"r2"});
     },
     "cross(nest(c1 c2) nest(r1 r2))",
     {"c1 (absent)", "c2 (absent)", "r1 90", "r2 90"}},
    {"ANestCallBehindCrossCalls",
     [](XGraph& graph) {
       columnsOf(graph, {u"c1", u"c2"});
       nestedColumnsOf(graph, {u"c3"});
     },
     "cross(nest(c1 c2 c3) unity)",
     {"c1 (absent)", "c2 (absent)", "c3 (absent)"}},
    {"ANestCallBeforeCrossCalls",
     [](XGraph& graph) {
       nestedRowsOf(graph, {u"r1"});
       rowsOf(graph, {u"r2", u"r3"});
     },
     "cross(unity nest(r1 r2 r3))",
     {"r1 90", "r2 90", "r3 90"}},
    {"ANestOfRowsBesideCrossedColumns",
     [](XGraph& graph) {
       columnsOf(graph, {u"c1", u"c2"});
       nestedRowsOf(graph, {u"r1"});
     },
     "cross(c1 nest(r1) c2 unity)",
     {"c1 (absent)", "r1 90", "c2 (absent)"}}};

class EachPanelGrid : public PanelTest, public testing::WithParamInterface<PanelGrid> {
 protected:
  void makePanels() {
    GetParam().collect(graph);
    // Each level shows the id of its variable.
    for (LumoSourceVariable* each : visualization.getSourceVariables()) each->setLabel(each->getId());
    graph.EndPaneling(true, false);
  }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, EachPanelGrid, testing::ValuesIn(grids), caseName<PanelGrid>);

TEST_P(EachPanelGrid, HasColumnsAndRowsInTurn) {
  makePanels();
  EXPECT_EQ(panelTree(graph), GetParam().tree);
}

TEST_P(EachPanelGrid, HasOneFacetLevelForEachVariableInTheOrderOfTheWalk) {
  makePanels();
  std::vector<std::string> expected;
  for (std::string const& level : GetParam().levels) {
    std::string const number = std::to_string(expected.size() + 1);
    auto const blank = level.find(' ');
    expected.push_back("facetLabel_panel_" + number + ": level " + number + ", gap 5%, " +
                       level.substr(0, blank) + ", angle" + level.substr(blank));
  }
  EXPECT_EQ(facetLevels(graph), expected);
}
