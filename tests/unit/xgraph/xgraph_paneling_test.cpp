// Collecting panel variables, and panel axes on the other side.

#include "change_log.h"
#include "panel_fixture.h"

#include "host/log.h"
#include "host/messages.h"
#include "model/graph.h"
#include "model/paneling.h"
#include "model/variables.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::ElementsAre;

namespace {

struct PanelCollector {
  char const* name;
  void (*add)(XGraph&, XVariable&, XGraph::ROLE);
};

void PrintTo(PanelCollector const& row, std::ostream* out) { *out << row.name; }

class EachPanelCollector : public GraphTest, public testing::WithParamInterface<PanelCollector> {
 protected:
  void add(XVariable& variable, XGraph::ROLE role = XGraph::ROLE_ROW) {
    GetParam().add(graph, variable, role);
  }

  /// The variables of the last cross, nested or not.
  std::vector<CTVariableType*> panelVariables() const {
    LumoCross const* const cross = graph.getGraph()->getFaceting()->getCrosss().back();
    std::vector<CTVariableType*> variables;
    for (LumoVariableReference const* each : cross->getVariableReferences())
      variables.push_back(each->getRef());
    for (LumoNest const* nest : cross->getNests()) {
      for (LumoVariableReference const* each : nest->getVariableReferences())
        variables.push_back(each->getRef());
    }
    return variables;
  }

  std::unique_ptr<XSource> source = addSource();
  XVariable categories = graph.AddAggregatedVariable(*source, true, u"");
  XVariable numbers = graph.AddAggregatedVariable(*source, false, u"");
};

class BeginPaneling : public GraphTest {};

/// What comes of the panel variables that were collected.
class CollectedPanels : public PanelTest {
 protected:
  std::string panels() {
    graph.EndPaneling(true, false);
    return panelTree(graph);
  }
};

/// A graph with a facet layout of two levels, of which the first has two axes.
class PanelAxes : public GraphTest {
 protected:
  LumoAxis& addAxis(LumoFacetLevel& level) { return *level.addAxis(); }

  LumoFacetLayout& layout = *graph.getGraph()->addFacetLayout();
  LumoFacetLevel& first = *layout.addFacetLevel(u"facetLabel_panel_1", 1);
  LumoFacetLevel& second = *layout.addFacetLevel(u"facetLabel_panel_2", 2);
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(
    , EachPanelCollector,
    testing::Values(
        PanelCollector{"Cross", [](XGraph& graph, XVariable& variable,
                                   XGraph::ROLE role) { graph.PanelingAddCrossVariable(variable, role); }},
        PanelCollector{"Nest", [](XGraph& graph, XVariable& variable,
                                  XGraph::ROLE role) { graph.PanelingAddNestVariable(variable, role); }}),
    caseName<PanelCollector>);

TEST(PanelRoles, HaveFixedValues) {
  EXPECT_EQ(static_cast<int>(XGraph::ROLE_ROW), 0);
  EXPECT_EQ(static_cast<int>(XGraph::ROLE_COLUMN), 1);
}

TEST_F(BeginPaneling, DoesNothing) {
  std::string const before = document.AsUTF8();
  recorder.clear();
  graph.BeginPaneling();
  EXPECT_EQ(document.AsUTF8(), before);
  EXPECT_TRUE(recorder.lines().empty());
}

TEST_P(EachPanelCollector, TakesACategoricalVariableOfEitherRoleSilently) {
  EXPECT_NO_THROW(add(categories, XGraph::ROLE_ROW));
  EXPECT_NO_THROW(add(categories, XGraph::ROLE_COLUMN));
  expectNoReport(recorder);
}

TEST_P(EachPanelCollector, WritesNothingIntoTheChart) {
  std::string const before = document.AsUTF8();
  add(categories, XGraph::ROLE_ROW);
  add(categories, XGraph::ROLE_COLUMN);
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_P(EachPanelCollector, RefusesAVariableThatIsNotCategorical) {
  try {
    add(numbers);
    ADD_FAILURE() << "taken";
  } catch (ChartException const& failure) {
    EXPECT_EQ(failure.message(), "Panel variables must be categorical - sourceVariable1_SN");
  }
}

TEST_P(EachPanelCollector, LogsARefusalAndTellsNoUser) {
  EXPECT_THROW(add(numbers, XGraph::ROLE_COLUMN), ChartException);
  EXPECT_THAT(recorder.failures(), ElementsAre("Panel variables must be categorical - sourceVariable1_SN"));
  EXPECT_TRUE(recorder.userMessages().empty());
}

TEST_P(EachPanelCollector, NamesTheColumnOfTheWrapperAndNotThatOfTheChart) {
  XVariable weight = graph.AddWeightVariable("source0");
  EXPECT_THROW(add(weight), ChartException);
  EXPECT_THAT(recorder.failures(), ElementsAre("Panel variables must be categorical - "));
}

TEST_P(EachPanelCollector, LeavesTheChartAsItWasAtARefusal) {
  std::string const before = document.AsUTF8();
  EXPECT_THROW(add(numbers), ChartException);
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_P(EachPanelCollector, AsksTheVariableAnewAtEachCall) {
  numbers.setCategorical(true);
  EXPECT_NO_THROW(add(numbers));
}

TEST_P(EachPanelCollector, CollectsNothingAtARefusal) {
  add(categories, XGraph::ROLE_COLUMN);
  EXPECT_THROW(add(numbers, XGraph::ROLE_COLUMN), ChartException);
  graph.EndPaneling(true, false);
  EXPECT_THAT(ids(panelVariables()), ElementsAre("sourceVariable0"));
}

TEST_P(EachPanelCollector, TellsTheHostNothingElse) {
  recorder.clear();
  add(categories);
  EXPECT_TRUE(recorder.lines().empty());
}

TEST_P(EachPanelCollector, KeepsRowsAndColumnsApart) {
  XVariable more = graph.AddAggregatedVariable(*source, true, u"");
  add(categories, XGraph::ROLE_ROW);
  add(more, XGraph::ROLE_COLUMN);
  graph.EndPaneling(true, false);
  EXPECT_THAT(ids(panelVariables()), ElementsAre("sourceVariable2", "sourceVariable0"));
}

TEST_P(EachPanelCollector, TakesAnyOtherRoleForColumns) {
  XVariable more = graph.AddAggregatedVariable(*source, true, u"");
  add(categories, static_cast<XGraph::ROLE>(7));
  add(more, static_cast<XGraph::ROLE>(-1));
  graph.EndPaneling(true, false);
  EXPECT_THAT(ids(panelVariables()), ElementsAre("sourceVariable0", "sourceVariable2"));
  for (LumoFacetLevel const* level : graph.getGraph()->getFacetLayout()->getFacetLevels()) {
    EXPECT_EQ(attribute(level->getAxiss().at(0)->getMajorTicks(), u"labelAngle"), "(absent)");
  }
}

TEST_P(EachPanelCollector, TakesAVariableAsOftenAsItComes) {
  add(categories);
  add(categories);
  graph.EndPaneling(true, false);
  EXPECT_THAT(ids(panelVariables()), ElementsAre("sourceVariable0", "sourceVariable0"));
}

TEST_P(EachPanelCollector, AsksTheWrapperForItsVariableByTheVirtualCall) {
  auto& own = dynamic_cast<LumoSourceVariable&>(categories.getImplementation());
  StandIn standIn(own, numbers.getImplementation());
  add(standIn);
  graph.EndPaneling(true, false);
  EXPECT_THAT(panelVariables(), ElementsAre(&numbers.getImplementation()));
}

TEST_P(EachPanelCollector, OutlivesTheWrapper) {
  {
    XVariable copy = categories;
    add(copy);
  }
  graph.EndPaneling(true, false);
  EXPECT_THAT(ids(panelVariables()), ElementsAre("sourceVariable0"));
}

TEST_F(CollectedPanels, AreCrossedWithoutANestCall) {
  columns({u"island", u"year"});
  rows({u"sex"});
  EXPECT_EQ(panels(), "cross(island sex year unity)");
}

TEST_F(CollectedPanels, AreNestedOnTheSideOfTheNestCallOnly) {
  columns({u"island", u"year"});
  nestedRows({u"sex"});
  EXPECT_EQ(panels(), "cross(island nest(sex) year unity)");
}

TEST_F(CollectedPanels, AreNestedWithAllOfTheirSide) {
  rows({u"sex"});
  nestedRows({u"year"});
  rows({u"island"});
  EXPECT_EQ(panels(), "cross(unity nest(sex year island))");
}

TEST_F(CollectedPanels, NestTheColumnsForAnyOtherRole) {
  nestPanels(graph, static_cast<XGraph::ROLE>(7), {u"island"});
  rows({u"sex"});
  EXPECT_EQ(panels(), "cross(nest(island) sex)");
}

TEST_F(CollectedPanels, AreNotNestedByACallThatWasRefused) {
  columns({u"island", u"year"});
  XVariable mass = category(u"mass");
  mass.setCategorical(false);
  EXPECT_THROW(graph.PanelingAddNestVariable(mass, XGraph::ROLE_COLUMN), ChartException);
  EXPECT_EQ(panels(), "cross(island unity year unity)");
}

TEST_F(CollectedPanels, AreNotSharedByTwoBuildersOfAChart) {
  columns({u"island"});
  XGraph second(visualization);
  second.EndPaneling(true, false);
  EXPECT_EQ(panelTree(graph), "(no faceting)");
}

TEST_F(BeginPaneling, IsNotNeededBeforeAVariable) {
  auto const source = addSource();
  XVariable categories = graph.AddAggregatedVariable(*source, true, u"");
  EXPECT_NO_THROW(graph.PanelingAddCrossVariable(categories, XGraph::ROLE_ROW));
}

TEST_F(GraphTest, WithoutFacetLayoutNoPanelAxisIsTurnedRound) {
  std::string const before = document.AsUTF8();
  EXPECT_EQ(graph.setPanelAxesOpposite(), 0);
  EXPECT_EQ(document.AsUTF8(), before);
  expectNoReport(recorder);
}

TEST_F(PanelAxes, OfLevelsWithoutAxesAreNone) { EXPECT_EQ(graph.setPanelAxesOpposite(), 0); }

TEST_F(PanelAxes, AreCountedOverAllLevels) {
  addAxis(first);
  addAxis(first);
  addAxis(second);
  EXPECT_EQ(graph.setPanelAxesOpposite(), 3);
}

TEST_F(PanelAxes, ChangeSides) {
  LumoAxis& opposite = addAxis(first);
  opposite.setOpposite(true);
  LumoAxis& usual = addAxis(second);
  graph.setPanelAxesOpposite();
  EXPECT_EQ(attribute(&opposite, u"opposite"), "false");
  EXPECT_EQ(attribute(&usual, u"opposite"), "true");
}

TEST_F(PanelAxes, TurnTheirTickLabelsTheOtherWay) {
  LumoMajorTicks* const ticks = addAxis(first).addMajorTicks();
  ticks->setLabelAngle(90.0);
  graph.setPanelAxesOpposite();
  EXPECT_EQ(attribute(ticks, u"labelAngle"), "-90");
}

TEST_F(PanelAxes, WriteMinusZeroForTickLabelsWithoutAngle) {
  LumoMajorTicks* const ticks = addAxis(first).addMajorTicks();
  graph.setPanelAxesOpposite();
  EXPECT_EQ(attribute(ticks, u"labelAngle"), "-0");
}

TEST_F(PanelAxes, GetNoTicksWhereTheyHaveNone) {
  LumoAxis& axis = addAxis(first);
  EXPECT_EQ(graph.setPanelAxesOpposite(), 1);
  EXPECT_EQ(axis.getMajorTicks(), nullptr);
}

TEST_F(PanelAxes, AreRestoredByASecondCall) {
  LumoAxis& axis = addAxis(first);
  axis.setOpposite(true);
  axis.addMajorTicks()->setLabelAngle(45.0);
  graph.setPanelAxesOpposite();
  graph.setPanelAxesOpposite();
  EXPECT_TRUE(axis.getOpposite());
  EXPECT_EQ(axis.getMajorTicks()->getLabelAngle(), 45.0);
}

TEST_F(PanelAxes, RestoreAZeroAngleByASecondCall) {
  LumoMajorTicks* const ticks = addAxis(first).addMajorTicks();
  graph.setPanelAxesOpposite();
  graph.setPanelAxesOpposite();
  EXPECT_EQ(attribute(ticks, u"labelAngle"), "0");
}

TEST_F(PanelAxes, ChangeSidesBeforeTheirTickLabelsTurn) {
  addAxis(first).addMajorTicks();
  ChangeLog log(document);
  graph.setPanelAxesOpposite();
  EXPECT_THAT(log.lines(), ElementsAre("axis opposite=true", "majorTicks labelAngle=-0"));
}

TEST_F(PanelAxes, ChangeOneAfterTheOtherAlongTheLevels) {
  addAxis(first).setOpposite(true);
  addAxis(first).addMajorTicks()->setLabelAngle(22.5);
  addAxis(second).addMajorTicks()->setLabelAngle(-90.0);
  ChangeLog log(document);
  graph.setPanelAxesOpposite();
  EXPECT_THAT(log.lines(),
              ElementsAre("axis opposite=false", "axis opposite=true", "majorTicks labelAngle=-22.5",
                          "axis opposite=true", "majorTicks labelAngle=90"));
}

TEST_F(PanelAxes, OfMadePanelsTurnBackToTheUsualSide) {
  XVariable island = addCategory(graph, u"island");
  XVariable sex = addCategory(graph, u"sex");
  graph.PanelingAddCrossVariable(island, XGraph::ROLE_COLUMN);
  graph.PanelingAddCrossVariable(sex, XGraph::ROLE_ROW);
  graph.EndPaneling(true, false);
  ChangeLog log(document);
  EXPECT_EQ(graph.setPanelAxesOpposite(), 2);
  EXPECT_THAT(log.lines(), ElementsAre("axis opposite=false", "majorTicks labelAngle=-0",
                                       "axis opposite=false", "majorTicks labelAngle=-90"));
}

TEST_F(PanelAxes, OfABlendTurnToo) {
  graph.addBlendFacetLevel(1);
  ChangeLog log(document);
  EXPECT_EQ(graph.setPanelAxesOpposite(), 1);
  EXPECT_THAT(log.lines(), ElementsAre("axis opposite=true", "majorTicks labelAngle=-0"));
}

TEST_F(PanelAxes, StopAtAWriteThatFailsAndKeepTheSidesSoFar) {
  expectGuardedAtEveryWrite(
      recorder,
      [](XGraph& chart) {
        unsigned int level = 1;
        chart.addFacetLevel(level, u"Island", u"5%", 0.0);
        chart.addFacetLevel(level, u"Sex", u"5%", 90.0);
      },
      [](XGraph& chart) { chart.setPanelAxesOpposite(); }, "Error in XGraph::setPanelAxesOpposite()");
}

TEST_F(PanelAxes, AreNotTheAxesOfTheCoordinates) {
  graph.AddPrimaryXAxis(u"");
  EXPECT_EQ(graph.setPanelAxesOpposite(), 0);
}

TEST_F(PanelAxes, ReportAFailureAndGiveTheCountSoFar) {
  addAxis(first);
  addAxis(second);
  ChangeTrap const trap(document, 2, throwOrdinaryFailure());
  EXPECT_EQ(graph.setPanelAxesOpposite(), 1);
  expectGuardReport(recorder, "Error in XGraph::setPanelAxesOpposite()");
}

TEST_F(PanelAxes, ReportAFailureAtTheFirstAxisAndGiveZero) {
  addAxis(first);
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_EQ(graph.setPanelAxesOpposite(), 0);
  expectGuardReport(recorder, "Error in XGraph::setPanelAxesOpposite()");
}

TEST_F(PanelAxes, LetTheHostsUnwindingSignalPass) {
  addAxis(first);
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(graph.setPanelAxesOpposite(), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(EmptyChartTest, PanelAxesOfAChartWithoutGraphAreAReportedFailure) {
  XGraph attached(visualization);
  EXPECT_EQ(attached.setPanelAxesOpposite(), 0);
  expectGuardReport(recorder, "Error in XGraph::setPanelAxesOpposite()");
}
