// Collecting panel variables, and panel axes on the other side.

#include "change_log.h"
#include "graph_fixture.h"

#include "host/log.h"
#include "host/messages.h"
#include "model/graph.h"
#include "model/paneling.h"

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

  std::unique_ptr<XSource> source = addSource();
  XVariable categories = graph.AddAggregatedVariable(*source, true, u"");
  XVariable numbers = graph.AddAggregatedVariable(*source, false, u"");
};

class BeginPaneling : public GraphTest {};

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
