// The second X axis, which depends on how many axes there are.

#include "change_log.h"
#include "graph_fixture.h"

#include "host/log.h"
#include "host/messages.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/style.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SecondaryXAxis : public GraphTest {
 protected:
  std::vector<LumoAxis*> axes() const {
    return graph.getGraph()->getCoordinates(0)->getDimensions().front()->getAxiss();
  }

  /// Axes with nothing in them.
  void makeAxes(int count) {
    LumoDimension* const dimension = graph.getGraph()->addCoordinates(u"coordinates0")->addDimension();
    for (int made = 0; made < count; ++made) dimension->addAxis();
  }
};

constexpr char const* outsideTheChart =
    "XGraph::AddSecondaryXAxis(): no secondary axis; the result stands outside the chart.";

/// Counts the calls of what a secondary axis may make first.
class CountingGraph : public XGraph {
 public:
  using XGraph::XGraph;

  XAxis AddPrimaryXAxis(ChartString const& label) override {
    ++primaryCalls;
    return XGraph::AddPrimaryXAxis(label);
  }

  int primaryCalls = 0;
};

}  // namespace

TEST_F(SecondaryXAxis, IsTheSecondAxisBehindThePrimaryOne) {
  XAxis const primary = graph.AddPrimaryXAxis(u"");
  XAxis const secondary = graph.AddSecondaryXAxis(u"");
  ASSERT_EQ(axes().size(), 2u);
  EXPECT_EQ(primary.getImplementation(), axes()[0]);
  EXPECT_EQ(secondary.getImplementation(), axes()[1]);
}

TEST_F(SecondaryXAxis, StandsOnTheOppositeSide) {
  graph.AddPrimaryXAxis(u"");
  graph.AddSecondaryXAxis(u"");
  EXPECT_TRUE(axes()[1]->getOpposite());
}

TEST_F(SecondaryXAxis, HasTheStyleOfItsName) {
  graph.AddPrimaryXAxis(u"");
  graph.AddSecondaryXAxis(u"");
  EXPECT_EQ(utf8(axes()[1]->getStyle()->getId()), "axis_axisx_2s");
}

TEST_F(SecondaryXAxis, IsMadeInAFixedOrder) {
  makeAxes(1);
  ChangeLog log(document);
  graph.AddSecondaryXAxis(u"top");
  EXPECT_THAT(
      log.linesOf({"dimension", "axis"}),
      ElementsAre("dimension adds axis", "axis opposite=true", "axis style=axis_axisx_2s",
                  "axis adds majorTicks", "axis adds label", "axis repeat=0", "axis combineAxisLabels=true"));
}

TEST_F(SecondaryXAxis, TakesTheLabelForItself) {
  graph.AddPrimaryXAxis(u"bottom");
  graph.AddSecondaryXAxis(u"top");
  EXPECT_EQ(utf8(axes()[0]->getLabel()->getTexts().front()->getText()), "bottom");
  EXPECT_EQ(utf8(axes()[1]->getLabel()->getTexts().front()->getText()), "top");
}

TEST_F(SecondaryXAxis, HasNoLabelForAnEmptyText) {
  graph.AddPrimaryXAxis(u"");
  graph.AddSecondaryXAxis(u"");
  EXPECT_EQ(axes()[1]->getLabel(), nullptr);
}

TEST_F(SecondaryXAxis, LeavesNoTraceLineWhereItWasMade) {
  makeAxes(1);
  graph.AddSecondaryXAxis(u"");
  EXPECT_THAT(recorder.trace(), IsEmpty());
}

TEST_F(SecondaryXAxis, LetsAFailurePass) {
  makeAxes(1);
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_THROW(graph.AddSecondaryXAxis(u""), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(SecondaryXAxis, WithoutAnyAxisMakesThePrimaryOneAndNothingElse) {
  graph.AddSecondaryXAxis(u"label");
  std::string const chart = document.AsUTF8();
  LumoDocument other;
  XGraph expected(*other.getVisualization(), nullptr);
  expected.AddPrimaryXAxis(u"label");
  EXPECT_EQ(chart, other.AsUTF8());
}

TEST_F(SecondaryXAxis, WithoutAnyAxisGoesThroughTheVirtualCallForThePrimaryOne) {
  LumoDocument other;
  CountingGraph counting(*other.getVisualization(), nullptr);
  counting.AddSecondaryXAxis(u"");
  EXPECT_EQ(counting.primaryCalls, 1);
}

TEST_F(SecondaryXAxis, WithoutAnyAxisSaysSoInTheTrace) {
  graph.AddSecondaryXAxis(u"");
  EXPECT_THAT(recorder.trace(), ElementsAre(outsideTheChart));
  expectNoReport(recorder);
}

TEST_F(SecondaryXAxis, WithoutAnyAxisGivesAWrapperThatStandsOutsideTheChart) {
  XAxis axis = graph.AddSecondaryXAxis(u"");
  std::string const before = document.AsUTF8();
  axis.AddLabel(u"nowhere");
  axis.setDelta(5.0);
  axis.hideLabel();
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(SecondaryXAxis, WithTwoAxesLeavesTheChartAsItWas) {
  makeAxes(2);
  std::string const before = document.AsUTF8();
  graph.AddSecondaryXAxis(u"label");
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(SecondaryXAxis, AskedForAgainLeavesTheFirstOneAsItWas) {
  graph.AddPrimaryXAxis(u"");
  graph.AddSecondaryXAxis(u"top");
  std::string const before = document.AsUTF8();
  graph.AddSecondaryXAxis(u"again");
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(SecondaryXAxis, WithTwoAxesSaysInTheTraceThatThereIsNone) {
  makeAxes(2);
  graph.AddSecondaryXAxis(u"label");
  EXPECT_THAT(recorder.trace(), ElementsAre(outsideTheChart));
  expectNoReport(recorder);
}

TEST_F(SecondaryXAxis, WithTwoAxesGivesAWrapperThatStandsOutsideTheChart) {
  makeAxes(2);
  std::string const before = document.AsUTF8();
  XAxis axis = graph.AddSecondaryXAxis(u"");
  axis.AddLabel(u"nowhere");
  axis.setMajorTickLabelAngle(45.0);
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(SecondaryXAxis, OutsideTheChartStillWritesOnTheDimensionOfTheChart) {
  makeAxes(2);
  graph.AddSecondaryXAxis(u"").setLowerMargin(u"5%");
  EXPECT_EQ(attribute(onlyElementOf(visualization, u"dimension"), u"lowerMargin"), "5%");
}

TEST_F(SecondaryXAxis, FailsForTheCallerWhereItsDimensionCouldNotBeMade) {
  graph.getGraph()->addCoordinates(u"coordinates0");
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_THROW(graph.AddSecondaryXAxis(u""), ChartException);
  expectGuardReport(recorder, "Error in XBaseElement::getXDimension()");
}

TEST_F(SecondaryXAxis, LetsTheHostsUnwindingSignalPass) {
  graph.getGraph()->addCoordinates(u"coordinates0");
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(graph.AddSecondaryXAxis(u""), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(SecondaryXAxis, OutsideTheChartOutlivesTheChart) {
  auto chart = std::make_unique<LumoDocument>();
  XAxis axis = XGraph(*chart->getVisualization(), nullptr).AddSecondaryXAxis(u"");
  chart.reset();
  axis.AddLabel(u"still there");
  EXPECT_NE(axis.AsUTF8().find("still there"), std::string::npos);
}

TEST_F(SecondaryXAxis, WithTwoAxesMakesNoPrimaryOne) {
  LumoDocument other;
  CountingGraph counting(*other.getVisualization(), nullptr);
  LumoDimension* const dimension = counting.getGraph()->addCoordinates(u"coordinates0")->addDimension();
  dimension->addAxis();
  dimension->addAxis();
  counting.AddSecondaryXAxis(u"");
  EXPECT_EQ(counting.primaryCalls, 0);
}

TEST_F(SecondaryXAxis, WithThreeAxesIsTheThird) {
  makeAxes(3);
  XAxis const axis = graph.AddSecondaryXAxis(u"");
  EXPECT_EQ(axis.getImplementation(), axes()[2]);
  EXPECT_EQ(axes().size(), 3u);
}

TEST_F(SecondaryXAxis, WithFourAxesIsStillTheThird) {
  makeAxes(4);
  XAxis const axis = graph.AddSecondaryXAxis(u"");
  EXPECT_EQ(axis.getImplementation(), axes()[2]);
}

TEST_F(SecondaryXAxis, WithThreeAxesTakesLabelRepeatAndCombination) {
  makeAxes(3);
  graph.AddSecondaryXAxis(u"third");
  EXPECT_EQ(utf8(axes()[2]->getLabel()->getTexts().front()->getText()), "third");
  EXPECT_EQ(attribute(axes()[2], u"repeat"), "0");
  EXPECT_EQ(attribute(axes()[2], u"combineAxisLabels"), "true");
}

TEST_F(SecondaryXAxis, WithThreeAxesGivesItNeitherStyleNorSide) {
  makeAxes(3);
  graph.AddSecondaryXAxis(u"");
  EXPECT_EQ(axes()[2]->getStyle(), nullptr);
  EXPECT_EQ(attribute(axes()[2], u"opposite"), "(absent)");
}

TEST_F(SecondaryXAxis, WithThreeAxesLeavesNoTraceLine) {
  makeAxes(3);
  graph.AddSecondaryXAxis(u"");
  EXPECT_THAT(recorder.trace(), IsEmpty());
}
