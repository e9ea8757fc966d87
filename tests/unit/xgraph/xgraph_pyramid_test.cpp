// Population pyramids: the panels of their halves, and their mirroring.

#include "change_log.h"
#include "panel_fixture.h"

#include "host/messages.h"
#include "model/graph.h"
#include "model/paneling.h"
#include "model/variables.h"

#include <gmock/gmock.h>

#include <functional>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct PyramidGrid {
  char const* name;
  std::vector<char16_t const*> rows;
  bool nested;
  char const* tree;
};

void PrintTo(PyramidGrid const& row, std::ostream* out) { *out << row.name; }

PyramidGrid const pyramids[] = {
    {"WithoutRows", {}, false, "cross(cross(sex))"},
    {"OfOneRow", {u"r0"}, false, "cross(cross(sex r0))"},
    {"OfTwoRows", {u"r0", u"r1"}, false, "cross(cross(sex r0 cross(unity r1)))"},
    {"OfThreeRows", {u"r0", u"r1", u"r2"}, false, "cross(cross(sex r0 cross(unity r1 r2)))"},
    {"OfFourRows",
     {u"r0", u"r1", u"r2", u"r3"},
     false,
     "cross(cross(sex r0 cross(unity r1 r2 cross(unity r3))))"},
    {"OfFiveRows",
     {u"r0", u"r1", u"r2", u"r3", u"r4"},
     false,
     "cross(cross(sex r0 cross(unity r1 r2 cross(unity r3 r4))))"},
    {"OfOneNestedRow", {u"r0"}, true, "cross(cross(sex nest(r0)))"},
    {"OfThreeNestedRows", {u"r0", u"r1", u"r2"}, true, "cross(cross(sex nest(r0 r1 r2)))"}};

class EachPyramid : public PanelTest, public testing::WithParamInterface<PyramidGrid> {
 protected:
  void SetUp() override {
    columns({u"sex"});
    for (char16_t const* id : GetParam().rows) {
      if (GetParam().nested) {
        nestedRows({id});
      } else {
        rows({id});
      }
    }
    // Each level shows the id of its variable.
    for (LumoSourceVariable* each : visualization.getSourceVariables()) each->setLabel(each->getId());
    graph.EndPyramidPaneling(false);
  }
};

struct NoPyramid {
  char const* name;
  void (*collect)(XGraph&);
};

void PrintTo(NoPyramid const& row, std::ostream* out) { *out << row.name; }

NoPyramid const noPyramids[] = {
    {"Nothing", [](XGraph&) {}},
    {"ARowAlone", [](XGraph& graph) { crossPanels(graph, XGraph::ROLE_ROW, {u"r"}); }},
    {"ANestedRowAlone", [](XGraph& graph) { nestPanels(graph, XGraph::ROLE_ROW, {u"r"}); }},
    {"TwoColumns",
     [](XGraph& graph) {
       crossPanels(graph, XGraph::ROLE_COLUMN, {u"c1", u"c2"});
     }},
    {"TwoNestedColumns",
     [](XGraph& graph) {
       nestPanels(graph, XGraph::ROLE_COLUMN, {u"c1", u"c2"});
     }},
    {"TwoColumnsAndARow",
     [](XGraph& graph) {
       crossPanels(graph, XGraph::ROLE_COLUMN, {u"c1", u"c2"});
       crossPanels(graph, XGraph::ROLE_ROW, {u"r"});
     }},
    {"ABlend", [](XGraph& graph) {
       XVariable mass = addCategory(graph, u"mass");
       graph.PanelingAddBlendVariable(mass);
     }}};

class EachListWithoutPyramid : public PanelTest, public testing::WithParamInterface<NoPyramid> {};

class PyramidPaneling : public PanelTest {};

class MirroredChart : public PanelTest {};

/// Transposes in its own way.
class ForeignTranspose : public XGraph {
 public:
  using XGraph::XGraph;

  void transpose() override {
    ++calls;
    if (fail) fail();
  }

  int calls = 0;
  std::function<void()> fail;
};

class MirroredForeignChart : public ChartTest {
 protected:
  LumoDocument document;
  ForeignTranspose graph{*document.getVisualization(), nullptr};
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, EachPyramid, testing::ValuesIn(pyramids), caseName<PyramidGrid>);
INSTANTIATE_TEST_SUITE_P(, EachListWithoutPyramid, testing::ValuesIn(noPyramids), caseName<NoPyramid>);

TEST_P(EachPyramid, OpensADeeperCrossAtEverySecondRow) { EXPECT_EQ(panelTree(graph), GetParam().tree); }

TEST_P(EachPyramid, HasHalvesThatTouchAndRowsThatDoNotAllUnturned) {
  std::vector<std::string> expected{"facetLabel_panel_1: level 1, gap 0%, sex, angle (absent)"};
  for (char16_t const* id : GetParam().rows) {
    std::string const number = std::to_string(expected.size() + 1);
    expected.push_back("facetLabel_panel_" + number + ": level " + number + ", gap 10%, " + utf8(id) +
                       ", angle (absent)");
  }
  EXPECT_EQ(facetLevels(graph), expected);
}

TEST_P(EachListWithoutPyramid, LeavesTheChartAsItWas) {
  GetParam().collect(graph);
  std::string const before = document.AsUTF8();
  graph.EndPyramidPaneling(true);
  EXPECT_EQ(document.AsUTF8(), before);
  expectNoReport(recorder);
}

TEST_F(PyramidPaneling, MakesAFacetingWithoutId) {
  columns({u"sex"});
  graph.EndPyramidPaneling(false);
  EXPECT_EQ(attribute(graph.getGraph()->getFaceting(), u"id"), "(absent)");
}

TEST_F(PyramidPaneling, SetsTheMethodToCross) {
  columns({u"sex"});
  nestedRows({u"island"});
  graph.EndPyramidPaneling(false);
  EXPECT_EQ(attribute(graph.getGraph()->getFaceting(), u"method"), "cross");
}

TEST_F(PyramidPaneling, UsesAFacetingThatExistsAndKeepsItsId) {
  LumoFaceting* const theirs = graph.getGraph()->addFaceting();
  theirs->setId(u"theirs");
  theirs->setMethod(u"nest");
  theirs->addCross()->addUnity();
  columns({u"sex"});
  graph.EndPyramidPaneling(false);
  auto* const faceting = onlyElementOf(visualization, u"faceting");
  EXPECT_EQ(attribute(faceting, u"id"), "theirs");
  EXPECT_EQ(attribute(faceting, u"method"), "cross");
  EXPECT_EQ(panelTree(graph), "cross(unity) cross(cross(sex))");
}

TEST_F(PyramidPaneling, ReadsNoArgument) {
  LumoDocument other;
  XGraph twin(*other.getVisualization(), nullptr);
  columns({u"sex"});
  crossPanels(twin, XGraph::ROLE_COLUMN, {u"sex"});
  graph.EndPyramidPaneling(false);
  twin.EndPyramidPaneling(true);
  EXPECT_EQ(document.AsUTF8(), other.AsUTF8());
}

TEST_F(PyramidPaneling, MakesNoNestOfItsOnlyColumn) {
  nestedColumns({u"sex"});
  rows({u"island"});
  graph.EndPyramidPaneling(false);
  EXPECT_EQ(panelTree(graph), "cross(cross(sex island))");
}

TEST_F(PyramidPaneling, PutsCrossedRowsIntoTheNestToo) {
  columns({u"sex"});
  rows({u"island"});
  nestedRows({u"year"});
  graph.EndPyramidPaneling(false);
  EXPECT_EQ(panelTree(graph), "cross(cross(sex nest(island year)))");
}

TEST_F(PyramidPaneling, TakesNoNoticeOfABlend) {
  XVariable mass = category(u"mass");
  graph.PanelingAddBlendVariable(mass);
  columns({u"sex"});
  graph.EndPyramidPaneling(false);
  EXPECT_EQ(panelTree(graph), "cross(cross(sex))");
  EXPECT_THAT(visualization.getExpressionVariables(), IsEmpty());
}

TEST_F(PyramidPaneling, RefersToTheVeryVariableThatWasCollected) {
  category(u"sex");
  XVariable second = category(u"sex");
  graph.PanelingAddCrossVariable(second, XGraph::ROLE_COLUMN);
  graph.EndPyramidPaneling(false);
  LumoCross const* const outer = graph.getGraph()->getFaceting()->getCrosss().at(0);
  EXPECT_EQ(outer->getCrosss().at(0)->getVariableReferences().at(0)->getRef(), &second.getImplementation());
}

TEST_F(PyramidPaneling, WritesAnEmptyTextForAVariableWithoutLabel) {
  columns({u"sex"});
  rows({u"island"});
  graph.EndPyramidPaneling(false);
  EXPECT_THAT(facetLevels(graph), ElementsAre("facetLabel_panel_1: level 1, gap 0%, , angle (absent)",
                                              "facetLabel_panel_2: level 2, gap 10%, , angle (absent)"));
  expectNoReport(recorder);
}

TEST_F(PyramidPaneling, LeavesTheCoordinatesAlone) {
  graph.AddPrimaryXAxis(u"");
  columns({u"sex"});
  ChangeLog log(document);
  graph.EndPyramidPaneling(false);
  EXPECT_THAT(log.linesOf({"graph", "coordinates", "dimension", "axis"}),
              ElementsAre("graph adds faceting", "graph adds facetLayout", "axis opposite=true",
                          "axis style=axis_panel_1s", "axis adds label", "axis adds majorTicks"));
}

TEST_F(PyramidPaneling, WritesEverythingInItsOrder) {
  columns({u"sex"});
  rows({u"island", u"year"});
  ChangeLog log(document);
  graph.EndPyramidPaneling(false);
  EXPECT_THAT(
      log.linesOf({"graph", "faceting", "cross", "variableReference", "facetLayout", "facetLevel"}),
      ElementsAre("graph adds faceting", "faceting method=cross", "faceting adds cross", "cross adds cross",
                  "cross adds variableReference", "variableReference ref=sex", "graph adds facetLayout",
                  "facetLayout method=1", "facetLayout topDown=true", "facetLayout adds facetLevel",
                  "facetLevel id=facetLabel_panel_1", "facetLevel level=1", "facetLevel gap=0%",
                  "facetLevel adds axis", "cross adds variableReference", "variableReference ref=island",
                  "facetLayout adds facetLevel", "facetLevel id=facetLabel_panel_2", "facetLevel level=2",
                  "facetLevel gap=10%", "facetLevel adds axis", "cross adds cross", "cross adds unity",
                  "cross adds variableReference", "variableReference ref=year", "facetLayout adds facetLevel",
                  "facetLevel id=facetLabel_panel_3", "facetLevel level=3", "facetLevel gap=10%",
                  "facetLevel adds axis"));
}

TEST_F(PyramidPaneling, FillsANestOneVariableAfterTheOther) {
  columns({u"sex"});
  nestedRows({u"island", u"year"});
  ChangeLog log(document);
  graph.EndPyramidPaneling(false);
  EXPECT_THAT(log.linesOf({"cross", "nest", "variableReference", "facetLayout"}),
              ElementsAre("cross adds cross", "cross adds variableReference", "variableReference ref=sex",
                          "facetLayout method=1", "facetLayout topDown=true", "facetLayout adds facetLevel",
                          "cross adds nest", "nest adds variableReference", "variableReference ref=island",
                          "facetLayout adds facetLevel", "nest adds variableReference",
                          "variableReference ref=year", "facetLayout adds facetLevel"));
}

TEST_F(PyramidPaneling, MakesEverythingAgainAtASecondCall) {
  columns({u"sex"});
  rows({u"island"});
  graph.EndPyramidPaneling(false);
  graph.EndPyramidPaneling(false);
  EXPECT_EQ(panelTree(graph), "cross(cross(sex island)) cross(cross(sex island))");
  EXPECT_THAT(facetLevels(graph), ElementsAre("facetLabel_panel_1: level 1, gap 0%, , angle (absent)",
                                              "facetLabel_panel_2: level 2, gap 10%, , angle (absent)",
                                              "facetLabel_panel_1: level 1, gap 0%, , angle (absent)",
                                              "facetLabel_panel_2: level 2, gap 10%, , angle (absent)"));
}

TEST_F(PyramidPaneling, LeavesItsVariablesToOtherPanels) {
  columns({u"sex"});
  rows({u"island"});
  graph.EndPyramidPaneling(false);
  graph.EndPaneling(true, false);
  EXPECT_EQ(panelTree(graph), "cross(cross(sex island)) cross(sex island)");
  EXPECT_EQ(attribute(graph.getGraph()->getFaceting(), u"id"), "(absent)");
}

TEST_F(PyramidPaneling, DoesNothingOnceASecondColumnWasCollected) {
  columns({u"sex"});
  graph.EndPyramidPaneling(false);
  columns({u"year"});
  std::string const before = document.AsUTF8();
  graph.EndPyramidPaneling(false);
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(PyramidPaneling, StopsAtAWriteThatFailsAndKeepsWhatWasBuilt) {
  expectGuardedAtEveryWrite(
      recorder,
      [](XGraph& chart) {
        crossPanels(chart, XGraph::ROLE_COLUMN, {u"sex"});
        crossPanels(chart, XGraph::ROLE_ROW, {u"island", u"year"});
      },
      [](XGraph& chart) { chart.EndPyramidPaneling(false); }, "Error in XGraph::EndPyramidPaneling()");
}

TEST_F(PyramidPaneling, StopsAtAWriteThatFailsInANest) {
  expectGuardedAtEveryWrite(
      recorder,
      [](XGraph& chart) {
        crossPanels(chart, XGraph::ROLE_COLUMN, {u"sex"});
        nestPanels(chart, XGraph::ROLE_ROW, {u"island", u"year"});
      },
      [](XGraph& chart) { chart.EndPyramidPaneling(false); }, "Error in XGraph::EndPyramidPaneling()");
}

TEST_F(EmptyChartTest, APyramidOfAChartWithoutGraphIsAReportedFailure) {
  XGraph attached(visualization);
  crossPanels(attached, XGraph::ROLE_COLUMN, {u"sex"});
  EXPECT_NO_THROW(attached.EndPyramidPaneling(false));
  expectGuardReport(recorder, "Error in XGraph::EndPyramidPaneling()");
}

TEST_F(EmptyChartTest, NoPyramidOfAChartWithoutGraphIsNoFailure) {
  XGraph attached(visualization);
  attached.EndPyramidPaneling(false);
  expectNoReport(recorder);
}

TEST_F(MirroredChart, IsTransposedAndThenReflected) {
  ChangeLog log(document);
  graph.MirrorCharts();
  EXPECT_THAT(log.lines(),
              ElementsAre("graph adds coordinates", "coordinates id=coordinates0",
                          "coordinates adds transposeTransform", "coordinates adds reflectionTransform",
                          "reflectionTransform dimension=0", "reflectionTransform alternating=true"));
}

TEST_F(MirroredChart, UsesTheCoordinatesThatExist) {
  graph.AddPrimaryXAxis(u"");
  LumoCoordinates* const other = graph.getGraph()->addCoordinates(u"other");
  graph.MirrorCharts();
  EXPECT_THAT(ids(graph.getGraph()->getCoordinatess()), ElementsAre("coordinates0", "other"));
  EXPECT_THAT(childTags(*graph.getGraph()->getCoordinates(0)),
              ElementsAre("dimension", "transposeTransform", "reflectionTransform"));
  EXPECT_THAT(childTags(*other), IsEmpty());
}

TEST_F(MirroredChart, IsTransposedAndReflectedAgainAtASecondCall) {
  graph.MirrorCharts();
  graph.MirrorCharts();
  EXPECT_THAT(
      childTags(*graph.getGraph()->getCoordinates(0)),
      ElementsAre("transposeTransform", "reflectionTransform", "transposeTransform", "reflectionTransform"));
}

TEST_F(MirroredChart, NeedsNoPanels) {
  graph.MirrorCharts();
  EXPECT_EQ(graph.getGraph()->getFaceting(), nullptr);
  EXPECT_EQ(graph.getGraph()->getFacetLayout(), nullptr);
  expectNoReport(recorder);
}

TEST_F(MirroredChart, IsReflectedAlsoWhereItsTranspositionFailed) {
  graph.getGraph()->addCoordinates(u"coordinates0");
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  graph.MirrorCharts();
  expectGuardReport(recorder, "Error in XGraph::transpose()");
  EXPECT_THAT(childTags(*graph.getGraph()->getCoordinates(0)), ElementsAre("reflectionTransform"));
}

TEST_F(MirroredChart, GetsCoordinatesWhereItsTranspositionCouldNotMakeThem) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  graph.MirrorCharts();
  expectGuardReport(recorder, "Error in XGraph::transpose()");
  EXPECT_THAT(ids(graph.getGraph()->getCoordinatess()), ElementsAre("coordinates0"));
}

TEST_F(MirroredChart, StaysTransposedWhereItsReflectionFailed) {
  ChangeTrap const trap(document, 4, throwOrdinaryFailure());
  EXPECT_NO_THROW(graph.MirrorCharts());
  expectGuardReport(recorder, "Error in XGraph::MirrorCharts()");
  EXPECT_THAT(childTags(*graph.getGraph()->getCoordinates(0)), ElementsAre("transposeTransform"));
}

TEST_F(MirroredChart, KeepsAReflectionThatCouldNotBeFilled) {
  ChangeTrap const trap(document, 5, throwOrdinaryFailure());
  graph.MirrorCharts();
  expectGuardReport(recorder, "Error in XGraph::MirrorCharts()");
  EXPECT_THAT(attributeNames(*graph.getGraph()->getCoordinates(0)->getReflectionTransforms().at(0)),
              IsEmpty());
}

TEST_F(MirroredChart, LetsTheHostsUnwindingSignalPassFromTheTransposition) {
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(graph.MirrorCharts(), VexaGoToCaller);
  expectNoReport(recorder);
  EXPECT_THAT(graph.getGraph()->getCoordinatess(), IsEmpty());
}

TEST_F(MirroredChart, LetsTheHostsUnwindingSignalPassFromTheReflection) {
  ChangeTrap const trap(document, 4, throwGoToCaller());
  EXPECT_THROW(graph.MirrorCharts(), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(EmptyChartTest, MirroringWithoutGraphIsReportedByTheTranspositionAndThenByItself) {
  XGraph attached(visualization);
  EXPECT_NO_THROW(attached.MirrorCharts());
  EXPECT_THAT(recorder.failures(),
              ElementsAre("Error in XGraph::transpose()", "Error in XGraph::MirrorCharts()"));
  EXPECT_EQ(recorder.userMessages().size(), 2u);
}

TEST_F(MirroredForeignChart, IsTransposedThroughTheVirtualCall) {
  graph.MirrorCharts();
  EXPECT_EQ(graph.calls, 1);
  EXPECT_THAT(childTags(*graph.getGraph()->getCoordinates(0)), ElementsAre("reflectionTransform"));
}

TEST_F(MirroredForeignChart, IsAReportedFailureAndNotReflectedWhereThatThrows) {
  graph.fail = throwOrdinaryFailure();
  EXPECT_NO_THROW(graph.MirrorCharts());
  expectGuardReport(recorder, "Error in XGraph::MirrorCharts()");
  EXPECT_THAT(graph.getGraph()->getCoordinatess(), IsEmpty());
}

TEST_F(MirroredForeignChart, LetsTheHostsUnwindingSignalPassFromThere) {
  graph.fail = throwGoToCaller();
  EXPECT_THROW(graph.MirrorCharts(), VexaGoToCaller);
  expectNoReport(recorder);
}
