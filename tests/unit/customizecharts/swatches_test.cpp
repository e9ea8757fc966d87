// The cells of a second graph that show the looks of the first one's elements.

#include "built_chart.h"
#include "customizecharts.h"
#include "every_failure.h"

#include "host/log.h"
#include "model/aesthetics.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/paneling.h"
#include "model/style.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Swatches : public BuiltChartTest {
 protected:
  bool customize() { return customizeCharts(visualization).customizePDFCDF(); }

  LumoStyleCycle& addCycle(char16_t const* id, std::vector<char16_t const*> const& colors) {
    LumoStyleCycle& cycle = *visualization.addStyleCycle(id);
    LumoCycle& looks = *cycle.addCycle();
    for (char16_t const* color : colors) {
      looks.addStyle()->setColor(color);
      looks.getStyles().back()->setPattern(static_cast<unsigned int>(looks.getStyles().size()));
    }
    return cycle;
  }

  LumoStyle& addCell() {
    LumoStyle& style = *container.addStyle();
    layout.addSetCellProperties()->addSetFrameStyle()->setStyle(style);
    style.setId(u"cell");
    return style;
  }

  std::vector<std::string> cellValues(char16_t const* name) const {
    std::vector<std::string> values;
    for (LumoStyle const* style : container.getStyles()) values.push_back(attribute(style, name));
    return values;
  }

  LumoFacetLayout& layout = *visualization.addGraph(u"second")->addFacetLayout();
};

TEST_F(Swatches, AreTheColorsOfTheFirstAreaInTurn) {
  graph.addArea(u"area")->addColor()->setCycle(addCycle(u"cycle", {u"red", u"green"}));
  for (int cell = 0; cell < 3; ++cell) addCell();
  EXPECT_THAT(writesOf([this] { customize(); }),
              ElementsAre("style color=red", "style color=green", "style color=red"));
  EXPECT_THAT(cellValues(u"pattern"), Each("(absent)"));
}

TEST_F(Swatches, AreThePatternsOfTheFirstAreaOnBlack) {
  graph.addArea(u"area")->addPattern()->setCycle(addCycle(u"cycle", {u"red", u"green"}));
  addCell();
  addCell();
  EXPECT_THAT(writesOf([this] { customize(); }),
              ElementsAre("style pattern=1", "style color=black", "style pattern=2", "style color=black"));
}

TEST_F(Swatches, AreColorsWhereThereArePatternsToo) {
  LumoArea& area = *graph.addArea(u"area");
  area.addPattern()->setCycle(addCycle(u"patterns", {u"green"}));
  area.addColor()->setCycle(addCycle(u"colors", {u"red"}));
  addCell();
  customize();
  EXPECT_THAT(cellValues(u"color"), ElementsAre("red"));
}

TEST_F(Swatches, AreNotPatternsWhereTheFirstColorHasNoCycle) {
  LumoArea& area = *graph.addArea(u"area");
  area.addColor();
  area.addColor()->setCycle(addCycle(u"colors", {u"red"}));
  area.addPattern()->setCycle(addCycle(u"patterns", {u"green"}));
  addCell();
  EXPECT_THAT(writesOf([this] { customize(); }), IsEmpty());
}

TEST_F(Swatches, AreThoseOfTheFirstLineWhereThereIsNoArea) {
  graph.addLine(u"line")->addColor()->setCycle(addCycle(u"cycle", {u"red"}));
  graph.addLine(u"other")->addColor()->setCycle(addCycle(u"other", {u"green"}));
  addCell();
  customize();
  EXPECT_THAT(cellValues(u"color"), ElementsAre("red"));
}

TEST_F(Swatches, AreNotThoseOfALineBesideAnArea) {
  graph.addLine(u"line")->addColor()->setCycle(addCycle(u"cycle", {u"red"}));
  graph.addArea(u"area");
  graph.addArea(u"other")->addColor()->setCycle(addCycle(u"other", {u"green"}));
  addCell();
  EXPECT_THAT(writesOf([this] { customize(); }), IsEmpty());
}

TEST_F(Swatches, AreNotThoseOfOtherElements) {
  graph.addInterval(u"bars")->addColor()->setCycle(addCycle(u"cycle", {u"red"}));
  addCell();
  EXPECT_THAT(writesOf([this] { customize(); }), IsEmpty());
}

TEST_F(Swatches, AreThoseOfTheFirstOfSeveralCycles) {
  LumoStyleCycle& cycle = addCycle(u"cycle", {u"red"});
  cycle.addCycle()->addStyle()->setColor(u"green");
  graph.addArea(u"area")->addColor()->setCycle(cycle);
  addCell();
  addCell();
  customize();
  EXPECT_THAT(cellValues(u"color"), ElementsAre("red", "red"));
}

TEST_F(Swatches, CountByCellAndNotByStyle) {
  graph.addArea(u"area")->addColor()->setCycle(addCycle(u"cycle", {u"red", u"green"}));
  addCell();
  LumoStyle& further = *container.addStyle();
  layout.getSetCellPropertiess()[0]->addSetFrameStyle()->setStyle(further);
  layout.addSetCellProperties();
  addCell();
  customize();
  EXPECT_THAT(cellValues(u"color"), ElementsAre("red", "red", "red"));
}

TEST_F(Swatches, PassCellsWithoutStyle) {
  graph.addArea(u"area")->addColor()->setCycle(addCycle(u"cycle", {u"red", u"green"}));
  layout.addSetCellProperties()->addSetFrameStyle();
  addCell();
  EXPECT_THAT(writesOf([this] { customize(); }), ElementsAre("style color=green"));
}

TEST_F(Swatches, WithoutColorTakeTheCellsColor) {
  LumoStyleCycle& cycle = *visualization.addStyleCycle(u"cycle");
  cycle.addCycle()->addStyle();
  graph.addArea(u"area")->addColor()->setCycle(cycle);
  addCell().setColor(u"red");
  customize();
  EXPECT_THAT(cellValues(u"color"), ElementsAre("(absent)"));
}

TEST_F(Swatches, MayBeTheStylesOfTheCellsThemselves) {
  LumoStyleCycle& cycle = addCycle(u"cycle", {u"a color of a very long name"});
  graph.addArea(u"area")->addColor()->setCycle(cycle);
  LumoStyle& swatch = *cycle.getCycles().front()->getStyles().front();
  swatch.setId(u"swatch");
  layout.addSetCellProperties()->addSetFrameStyle()->setStyle(swatch);
  customize();
  EXPECT_EQ(utf8(swatch.getColor()), "a color of a very long name");
}

// --- What they need

TEST_F(Swatches, AreNeverToldOf) {
  EXPECT_FALSE(customize());
  graph.addArea(u"area")->addColor()->setCycle(addCycle(u"cycle", {u"red"}));
  addCell();
  EXPECT_FALSE(customize());
}

TEST_F(Swatches, NeedExactlyTwoGraphs) {
  graph.addArea(u"area")->addColor()->setCycle(addCycle(u"cycle", {u"red"}));
  addCell();
  visualization.addGraph(u"third");
  EXPECT_THAT(writesOf([this] { customize(); }), IsEmpty());
  LumoDocument empty;
  EXPECT_FALSE(customizeCharts(*empty.getVisualization()).customizePDFCDF());
}

TEST_F(Swatches, NeedAnElement) {
  addCell();
  EXPECT_THAT(writesOf([this] { customize(); }), IsEmpty());
}

TEST_F(Swatches, NeedAColorOrAPattern) {
  graph.addArea(u"area")->addShape()->setCycle(addCycle(u"cycle", {u"red"}));
  addCell();
  EXPECT_THAT(writesOf([this] { customize(); }), IsEmpty());
}

TEST_F(Swatches, NeedACycleInTheStyleCycle) {
  graph.addArea(u"area")->addColor()->setCycle(*visualization.addStyleCycle(u"cycle"));
  addCell();
  EXPECT_THAT(writesOf([this] { customize(); }), IsEmpty());
}

TEST_F(Swatches, WithoutStylesAreAFailureWhereThereIsACell) {
  graph.addArea(u"area")->addColor()->setCycle(addCycle(u"cycle", {}));
  addCell();
  EXPECT_THROW(customize(), ChartException);
  expectNoReport(recorder);
}

TEST_F(Swatches, WithoutStylesAreNoFailureWhereThereIsNoCell) {
  graph.addArea(u"area")->addColor()->setCycle(addCycle(u"cycle", {}));
  EXPECT_NO_THROW(customize());
}

/// Two graphs without panels.
class UnpaneledSwatches : public BuiltChartTest {};

TEST_F(UnpaneledSwatches, AreNoFailure) {
  LumoStyleCycle& cycle = *visualization.addStyleCycle(u"cycle");
  cycle.addCycle();
  graph.addArea(u"area")->addColor()->setCycle(cycle);
  graph.addFacetLayout()->addSetCellProperties()->addSetFrameStyle()->setStyle(container);
  visualization.addGraph(u"second");
  EXPECT_THAT(writesOf([this] { customizeCharts(visualization).customizePDFCDF(); }), IsEmpty());
}

TEST_F(Swatches, LetEveryFailurePassAndKeepWhatWasWritten) {
  FailingOperation const operation = {
      [](ChartOfOneRun& chart) {
        LumoVisualization& made = *chart.document.getVisualization();
        LumoStyleCycle& cycle = *made.addStyleCycle(u"cycle");
        cycle.addCycle()->addStyle()->setPattern(3);
        chart.graph.getGraph()->addArea(u"area")->addPattern()->setCycle(cycle);
        LumoStyle& cell = *made.addStyle();
        cell.setId(u"cell");
        made.addGraph(u"second")->addFacetLayout()->addSetCellProperties()->addSetFrameStyle()->setStyle(
            cell);
      },
      [](ChartOfOneRun& chart) { customizeCharts(*chart.document.getVisualization()).customizePDFCDF(); }};
  expectFailuresToPass(recorder, operation);
}

}  // namespace
}  // namespace kestrel::test
