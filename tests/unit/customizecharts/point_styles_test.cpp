// Points that combine colour and pattern.

#include "built_chart.h"
#include "customizecharts.h"
#include "every_failure.h"
#include "xdocument.h"

#include "model/aesthetics.h"
#include "model/elements.h"
#include "model/labels.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A style that combines colour and pattern.
void addCombined(LumoPoint& point, char16_t const* id, CTVariableType const& variable,
                 LumoStyleCycle const& cycle) {
  LumoStyleBy& styleBy = *point.addStyleBy(nullptr);
  styleBy.setId(id);
  styleBy.setVariable(variable);
  styleBy.setStyleCycle(cycle);
}

class CombinedStyles : public BuiltChartTest {
 protected:
  bool customize() { return customizeCharts(visualization).customizeSPCharts(); }

  std::vector<std::string> writes() {
    return writesOf([this] { customize(); });
  }

  LumoStyleCycle& cycle = *visualization.addStyleCycle(u"color_pattern");
  LumoSourceVariable& variable = addVariable(u"v");
  LumoPoint& point = *graph.addPoint(u"point");
};

TEST_F(CombinedStyles, BecomeAShapeAndAColor) {
  addCombined(point, u"style", variable, cycle);
  EXPECT_THAT(writes(),
              ElementsAre("styleBy is removed", "point adds shape", "shape id=shape1", "shape variable=v",
                          "shape adds symbolMapping", "symbolMapping from=0", "symbolMapping to=square",
                          "shape adds symbolMapping", "symbolMapping from=1", "symbolMapping to=circle",
                          "point adds color", "color id=style", "color variable=v", "color affect=2",
                          "color adds colorMapping", "colorMapping from=0", "colorMapping to=green",
                          "color adds colorMapping", "colorMapping from=1", "colorMapping to=red"));
}

TEST_F(CombinedStyles, AreToldOf) {
  EXPECT_FALSE(customize());
  addCombined(point, u"style", variable, cycle);
  EXPECT_TRUE(customize());
  EXPECT_FALSE(customize());
}

TEST_F(CombinedStyles, CountTheShapesThatThereAre) {
  point.addShape();
  point.addShape();
  addCombined(point, u"style", variable, cycle);
  customize();
  EXPECT_THAT(idsOf(point, u"shape"), ElementsAre("(absent)", "(absent)", "shape3"));
}

TEST_F(CombinedStyles, TakeAllOtherStylesOfTheirElementAlong) {
  LumoStyleBy& before = *point.addStyleBy(nullptr);
  before.setId(u"before");
  addCombined(point, u"style", variable, cycle);
  point.addStyleBy(nullptr)->setId(u"after");
  LumoPoint& other = *graph.addPoint(u"other");
  other.addStyleBy(nullptr)->setId(u"others");
  customize();
  EXPECT_THAT(point.getStyleBys(), IsEmpty());
  EXPECT_THAT(idsOf(other, u"styleBy"), ElementsAre("others"));
}

TEST_F(CombinedStyles, AreAllReplacedThoughTheFirstTakesTheOthersAlong) {
  addCombined(point, u"first", variable, cycle);
  addCombined(point, u"second", addVariable(u"w"), cycle);
  customize();
  EXPECT_THAT(idsOf(point, u"shape"), ElementsAre("shape1", "shape2"));
  EXPECT_THAT(idsOf(point, u"color"), ElementsAre("first", "second"));
  EXPECT_EQ(utf8(point.getColors()[1]->getVariable()->getId()), "w");
  EXPECT_EQ(utf8(point.getShapes()[1]->getVariable()->getId()), "w");
}

TEST_F(CombinedStyles, OfEveryElementAreReplaced) {
  LumoPoint& second = *graph.addPoint(u"second");
  addCombined(point, u"a", variable, cycle);
  addCombined(second, u"b", variable, cycle);
  customize();
  EXPECT_THAT(idsOf(second, u"shape"), ElementsAre("shape1"));
  EXPECT_THAT(idsOf(second, u"color"), ElementsAre("b"));
}

TEST_F(CombinedStyles, OfAnotherCycleStay) {
  addCombined(point, u"a", variable, *visualization.addStyleCycle(u"colorpattern"));
  addCombined(point, u"b", variable, *visualization.addStyleCycle(u"Color_Pattern"));
  addCombined(point, u"c", variable, *visualization.addStyleCycle(nullptr));
  EXPECT_THAT(writes(), IsEmpty());
  EXPECT_FALSE(customize());
}

TEST_F(CombinedStyles, WithoutVariableOrCycleStay) {
  point.addStyleBy(nullptr)->setStyleCycle(cycle);
  point.addStyleBy(nullptr)->setVariable(variable);
  EXPECT_FALSE(customize());
  EXPECT_EQ(point.getStyleBys().size(), 2u);
}

TEST_F(CombinedStyles, OfOtherKindsOfElementsStay) {
  LumoStyleBy& styleBy = *graph.addInterval(u"bars")->addStyleBy(nullptr);
  styleBy.setVariable(variable);
  styleBy.setStyleCycle(cycle);
  EXPECT_FALSE(customize());
}

TEST_F(CombinedStyles, InTwoGraphsStay) {
  addCombined(point, u"style", variable, cycle);
  visualization.addGraph(u"second");
  EXPECT_THAT(writes(), IsEmpty());
  EXPECT_FALSE(customize());
}

TEST_F(CombinedStyles, NeedAGraph) {
  LumoDocument empty;
  EXPECT_FALSE(customizeCharts(*empty.getVisualization()).customizeSPCharts());
}

// --- Legends

TEST_F(CombinedStyles, AreExplainedByTheLegendOfTheirOldStyle) {
  addCombined(point, u"style", variable, cycle);
  LumoLegend& legend = *visualization.addLegend(u"legend");
  legend.addLegendTarget(u"other", graph);
  legend.addLegendTarget(u"old", *point.getStyleBys().front());
  auto const lines = writes();
  ASSERT_EQ(lines.size(), 23u);
  EXPECT_THAT(
      std::vector<std::string>(lines.begin() + 20, lines.end()),
      ElementsAre("legend adds legendTarget", "legendTarget id=legendTarget2", "legendTarget target=style"));
  ASSERT_EQ(legend.getLegendTargets().size(), 3u);
  EXPECT_EQ(legend.getLegendTargets()[2]->getTarget(), point.getColors().front());
  EXPECT_EQ(utf8(legend.getLegendTargets()[1]->getId()), "old");
}

TEST_F(CombinedStyles, AreExplainedByTheFirstSuchLegendOnly) {
  addCombined(point, u"style", variable, cycle);
  LumoLegend& other = *visualization.addLegend(u"other");
  other.addLegendTarget(u"target", graph);
  LumoLegend& first = *visualization.addContainer(u"part")->addLegend(u"first");
  first.addLegendTarget(u"target", *point.getStyleBys().front());
  first.addLegendTarget(u"again", *point.getStyleBys().front());
  LumoLegend& second = *visualization.addLegend(u"second");
  second.addLegendTarget(u"target", *point.getStyleBys().front());
  customize();
  EXPECT_EQ(other.getLegendTargets().size(), 1u);
  EXPECT_EQ(first.getLegendTargets().size(), 3u);
  EXPECT_EQ(second.getLegendTargets().size(), 1u);
}

TEST_F(CombinedStyles, GetNoLegend) {
  addCombined(point, u"style", variable, cycle);
  visualization.addLegend(u"empty");
  customize();
  EXPECT_THAT(elementsOf(visualization, u"legendTarget"), IsEmpty());
}

TEST_F(CombinedStyles, AreExplainedByALegendThatKnowsAnyPartOfThatId) {
  addCombined(point, u"point", variable, cycle);
  LumoLegend& legend = *visualization.addLegend(u"legend");
  legend.addLegendTarget(u"target", point);
  customize();
  EXPECT_EQ(legend.getLegendTargets().size(), 2u);
}

TEST_F(CombinedStyles, PassLegendTargetsThatPointNowhere) {
  addCombined(point, u"style", variable, cycle);
  LumoLegend& legend = *visualization.addLegend(u"legend");
  legend.addLegendTarget(u"target", graph)->getImplementation()->setAttribute(u"target", u"gone");
  EXPECT_TRUE(customize());
  EXPECT_EQ(legend.getLegendTargets().size(), 1u);
}

TEST_F(CombinedStyles, AreReplacedInAChartThatCameAsText) {
  visualization.setVersion(2.0);
  addCombined(point, u"first", variable, cycle);
  addCombined(point, u"second", addVariable(u"w"), cycle);
  visualization.addLegend(u"legend")->addLegendTarget(u"target", *point.getStyleBys()[1]);
  XDocument const parsed(document.AsUTF8());
  EXPECT_TRUE(customizeCharts(*parsed.getVisualization()).customizeSPCharts());
  LumoPoint const& points = *parsed.getVisualization()->getGraphs().front()->getPoints().front();
  EXPECT_THAT(points.getStyleBys(), IsEmpty());
  ASSERT_THAT(idsOf(points, u"color"), ElementsAre("first", "second"));
  EXPECT_EQ(utf8(points.getColors()[1]->getVariable()->getId()), "w");
  auto const targets = parsed.getVisualization()->getLegends().front()->getLegendTargets();
  ASSERT_EQ(targets.size(), 2u);
  EXPECT_EQ(targets[1]->getTarget(), points.getColors()[1]);
}

TEST_F(CombinedStyles, LetEveryFailurePassAndKeepWhatWasWritten) {
  FailingOperation const operation = {
      [](ChartOfOneRun& chart) {
        LumoVisualization& made = *chart.document.getVisualization();
        LumoPoint& points = *chart.graph.getGraph()->addPoint(u"point");
        LumoStyleCycle const& combined = *made.addStyleCycle(u"color_pattern");
        LumoSourceVariable const& shown = *made.addSourceVariable(u"v");
        addCombined(points, u"first", shown, combined);
        addCombined(points, u"second", shown, combined);
        made.addLegend(u"legend")->addLegendTarget(u"target", *points.getStyleBys().front());
      },
      [](ChartOfOneRun& chart) { customizeCharts(*chart.document.getVisualization()).customizeSPCharts(); }};
  expectFailuresToPass(recorder, operation);
}

}  // namespace
}  // namespace kestrel::test
