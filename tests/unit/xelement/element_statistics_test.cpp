// Dot plots, histograms, distributions, and colours by a variable.

#include "element_fixture.h"

#include "host/messages.h"
#include "model/aesthetics.h"
#include "model/labels.h"
#include "model/style.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using DotPlotTest = ElementTest;

TEST_F(DotPlotTest, AStackedDotPlotHasItsPositionModifier) {
  element.makeDotPlot(true);
  EXPECT_EQ(attribute(&model, u"positionModifier"), "7");
}

TEST_F(DotPlotTest, ADotPlotSideBySideHasItsPositionModifier) {
  element.makeDotPlot(false);
  EXPECT_EQ(attribute(&model, u"positionModifier"), "8");
}

TEST_F(DotPlotTest, MakesBinsOfTheGridTypeOne) {
  element.makeDotPlot(false);
  ASSERT_EQ(model.getBinStatistics().size(), 1u);
  EXPECT_EQ(attribute(model.getBinStatistics().front(), u"gridType"), "1");
}

TEST_F(DotPlotTest, ReplacesAllBinStatistics) {
  model.addBinStatistic()->setBinCount(u"1");
  model.addBinStatistic()->setBinCount(u"2");
  element.makeDotPlot(true);
  ASSERT_EQ(model.getBinStatistics().size(), 1u);
  EXPECT_EQ(attribute(model.getBinStatistics().front(), u"binCount"), "(absent)");
}

TEST_F(DotPlotTest, LeavesSummaryStatistics) {
  model.addSummaryStatistic();
  element.makeDotPlot(true);
  EXPECT_EQ(model.getSummaryStatistics().size(), 1u);
}

TEST_F(DotPlotTest, WritesInItsFixedOrder) {
  model.addBinStatistic();
  EXPECT_THAT(writesOf([&] { element.makeDotPlot(true); }),
              ElementsAre("binStatistic is removed", "point adds binStatistic", "binStatistic gridType=1",
                          "point positionModifier=7"));
}

class HistogramTest : public ElementTest {
 protected:
  LumoBinStatistic* bins() const { return model.getBinStatistics().at(0); }
  LumoSummaryStatistic* summary() const { return model.getSummaryStatistics().at(0); }
};

TEST_F(HistogramTest, WritesEachSettingOnceForEachDirection) {
  element.addHistogramStatistic(u"5", 10, 2, false);
  EXPECT_EQ(attribute(bins(), u"binStart"), "5;5;5");
  EXPECT_EQ(attribute(bins(), u"binCount"), "10;10;10");
  EXPECT_EQ(attribute(bins(), u"binWidth"), "2d;2d;2d");
}

TEST_F(HistogramTest, TheStartIsWrittenAsItStands) {
  element.addHistogramStatistic(u" -1.5e3 x", -1, -1, false);
  EXPECT_EQ(attribute(bins(), u"binStart"), " -1.5e3 x; -1.5e3 x; -1.5e3 x");
}

TEST_F(HistogramTest, ANullOrEmptyStartIsLeftOut) {
  for (char16_t const* const start : {static_cast<char16_t const*>(nullptr), u""}) {
    element.addHistogramStatistic(start, 1, 1, false);
    EXPECT_EQ(attribute(bins(), u"binStart"), "(absent)");
  }
}

TEST_F(HistogramTest, NegativeNumbersAreLeftOut) {
  element.addHistogramStatistic(u"5", -1, -1, false);
  EXPECT_EQ(attribute(bins(), u"binCount"), "(absent)");
  EXPECT_EQ(attribute(bins(), u"binWidth"), "(absent)");
}

TEST_F(HistogramTest, ZeroIsWritten) {
  element.addHistogramStatistic(nullptr, 0, 0, false);
  EXPECT_EQ(attribute(bins(), u"binCount"), "0;0;0");
  EXPECT_EQ(attribute(bins(), u"binWidth"), "0d;0d;0d");
}

TEST_F(HistogramTest, LargeNumbersAreWrittenWhole) {
  element.addHistogramStatistic(nullptr, std::numeric_limits<int>::max(), 1000000, false);
  EXPECT_EQ(attribute(bins(), u"binCount"), "2147483647;2147483647;2147483647");
  EXPECT_EQ(attribute(bins(), u"binWidth"), "1000000d;1000000d;1000000d");
}

TEST_F(HistogramTest, WithoutSettingsTheBinStatisticIsEmptyAndTheStatisticsAreReplaced) {
  model.addBinStatistic()->setBinCount(u"1");
  model.addSummaryStatistic()->setMethod(LumoSummaryStatistic::MethodErrorBar);
  element.addHistogramStatistic(nullptr, -1, -1, false);
  ASSERT_EQ(model.getBinStatistics().size(), 1u);
  EXPECT_THAT(attributeNames(*bins()), IsEmpty());
  ASSERT_EQ(model.getSummaryStatistics().size(), 1u);
  EXPECT_EQ(attribute(summary(), u"method"), "10");
}

TEST_F(HistogramTest, ReplacesAllStatisticsOfBothKinds) {
  for (int count = 0; count < 2; ++count) {
    model.addBinStatistic();
    model.addSummaryStatistic();
  }
  element.addHistogramStatistic(u"5", 10, 2, false);
  EXPECT_EQ(model.getBinStatistics().size(), 1u);
  EXPECT_EQ(model.getSummaryStatistics().size(), 1u);
}

TEST_F(HistogramTest, LeavesOtherStatistics) {
  model.addDistributionStatistic();
  model.addTukeyStatistic();
  element.addHistogramStatistic(u"5", 10, 2, false);
  EXPECT_EQ(model.getDistributionStatistics().size(), 1u);
  EXPECT_EQ(model.getTukeyStatistics().size(), 1u);
}

TEST_F(HistogramTest, TheSummaryIsThatOfAHistogram) {
  element.addHistogramStatistic(u"5", 10, 2, true);
  EXPECT_EQ(attribute(summary(), u"method"), "10");
}

TEST_F(HistogramTest, TheFlagIsNotRead) {
  element.addHistogramStatistic(u"5", 10, 2, false);
  std::string const without = model.AsUTF8();
  element.addHistogramStatistic(u"5", 10, 2, true);
  EXPECT_EQ(model.AsUTF8(), without);
}

TEST_F(HistogramTest, WritesInItsFixedOrder) {
  model.addBinStatistic();
  model.addSummaryStatistic();
  EXPECT_THAT(writesOf([&] { element.addHistogramStatistic(u"5", 10, 2, false); }),
              ElementsAre("binStatistic is removed", "summaryStatistic is removed", "point adds binStatistic",
                          "binStatistic binStart=5;5;5", "binStatistic binCount=10;10;10",
                          "binStatistic binWidth=2d;2d;2d", "point adds summaryStatistic",
                          "summaryStatistic method=10"));
}

class DistributionTest : public ElementTest {
 protected:
  static constexpr char const* context = "Error in XElement::addDistributionStatistic()";
};

TEST_F(DistributionTest, AddsADistributionStatistic) {
  element.addDistributionStatistic();
  EXPECT_EQ(model.getDistributionStatistics().size(), 1u);
}

TEST_F(DistributionTest, ReplacesAllDistributionStatistics) {
  model.addDistributionStatistic();
  model.addDistributionStatistic();
  EXPECT_THAT(writesOf([&] { element.addDistributionStatistic(); }),
              ElementsAre("distributionStatistic is removed", "distributionStatistic is removed",
                          "point adds distributionStatistic"));
}

TEST_F(DistributionTest, AFailureOfTheRemovalIsReportedAndTheStatisticIsAddedAllTheSame) {
  model.addDistributionStatistic();
  failAtChange(1, [&] { element.addDistributionStatistic(); });
  expectGuardReport(recorder, context);
  EXPECT_EQ(model.getDistributionStatistics().size(), 2u);
}

TEST_F(DistributionTest, TheUnwindingSignalOfTheRemovalPasses) {
  model.addDistributionStatistic();
  EXPECT_THROW(unwindAtChange(1, [&] { element.addDistributionStatistic(); }), VexaGoToCaller);
  expectNoReport(recorder);
  EXPECT_EQ(model.getDistributionStatistics().size(), 1u);
}

TEST_F(DistributionTest, AFailureOfTheAdditionReachesTheCaller) {
  EXPECT_THROW(failAtChange(1, [&] { element.addDistributionStatistic(); }), OrdinaryFailure);
  expectNoReport(recorder);
}

class ColorByTest : public ElementTest {
 protected:
  LumoColor* color(std::size_t index = 0) const { return model.getColors().at(index); }
  LumoLegend* legend(std::size_t index = 0) const { return visualization.getLegends().at(index); }

  std::vector<ChartString> const threeColors = {u"#ff0000", u"green", u"#0000FF"};
  std::vector<ChartString> const none{};
};

TEST_F(ColorByTest, MakesAColorOfTheVariable) {
  element.colorByVariable(sex, none, false, nullptr);
  ASSERT_EQ(model.getColors().size(), 1u);
  EXPECT_EQ(color()->getVariable(), &sexModel);
  EXPECT_EQ(utf8(color()->getId()), "points_color1");
}

TEST_F(ColorByTest, WithoutColorsThereIsNoCycle) {
  element.colorByVariable(sex, none, false, nullptr);
  EXPECT_EQ(color()->getCycle(), nullptr);
  EXPECT_THAT(visualization.getStyleCycles(), IsEmpty());
}

TEST_F(ColorByTest, ThreeColorsMakeOneCycleWithThreeStyles) {
  element.colorByVariable(sex, threeColors, false, nullptr);
  ASSERT_EQ(visualization.getStyleCycles().size(), 1u);
  auto const cycles = visualization.getStyleCycles().front()->getCycles();
  ASSERT_EQ(cycles.size(), 1u);
  std::vector<std::string> written;
  for (LumoStyle const* style : cycles.front()->getStyles()) written.push_back(attribute(style, u"color"));
  EXPECT_THAT(written, ElementsAre("#ff0000", "green", "#0000FF"));
}

TEST_F(ColorByTest, TheCycleBearsTheNumberOfItsColor) {
  element.colorByVariable(sex, threeColors, false, nullptr);
  EXPECT_EQ(color()->getCycle(), visualization.getStyleCycles().front());
  EXPECT_EQ(utf8(color()->getCycle()->getId()), "points_colorstyleCycle_1");
}

TEST_F(ColorByTest, ASecondColorEndsInTwo) {
  element.colorByVariable(sex, none, false, nullptr);
  element.colorByVariable(age, threeColors, false, nullptr);
  EXPECT_EQ(utf8(color(1)->getId()), "points_color2");
  EXPECT_EQ(utf8(color(1)->getCycle()->getId()), "points_colorstyleCycle_2");
}

TEST_F(ColorByTest, NamesThatAreTakenAreNotLookedAt) {
  visualization.addStyleCycle(u"points_colorstyleCycle_1");
  element.colorByVariable(sex, threeColors, false, nullptr);
  EXPECT_THAT(idsOf(visualization, u"styleCycle"),
              ElementsAre("points_colorstyleCycle_1", "points_colorstyleCycle_1"));
}

TEST_F(ColorByTest, ColorsCountForThemselvesBesideStackedOnes) {
  element.Cluster(sex, true, false, false, false);
  element.colorByVariable(sex, threeColors, false, nullptr);
  EXPECT_EQ(utf8(color()->getId()), "points_color1");
}

TEST_F(ColorByTest, WithoutLegendThereIsNone) {
  element.colorByVariable(sex, threeColors, false, u"Sex");
  EXPECT_THAT(visualization.getLegends(), IsEmpty());
}

TEST_F(ColorByTest, TheLegendStaysInTheChart) {
  element.colorByVariable(sex, threeColors, true, u"Sex\\nof it");
  ASSERT_EQ(visualization.getLegends().size(), 1u);
  EXPECT_EQ(visualization.getExtension()->getLegend1(), legend());
  ASSERT_EQ(legend()->getLabels().size(), 1u);
  EXPECT_EQ(utf8(legend()->getLabels().front()->getTexts().front()->getText()), "Sex\nof it");
}

TEST_F(ColorByTest, WithoutTitleTheLegendHasNoLabel) {
  element.colorByVariable(sex, none, true, nullptr);
  EXPECT_THAT(legend()->getLabels(), IsEmpty());
}

TEST_F(ColorByTest, TheLegendShowsTheColor) {
  element.colorByVariable(sex, none, true, nullptr);
  auto const targets = legend()->getLegendTargets();
  ASSERT_EQ(targets.size(), 1u);
  EXPECT_EQ(utf8(targets.front()->getId()), "points_legendTarget_0");
  EXPECT_EQ(targets.front()->getTarget(), color());
}

TEST_F(ColorByTest, TargetsOfALegendThatIsTakenAgainCountUp) {
  for (int call = 0; call < 3; ++call) element.colorByVariable(sex, none, true, nullptr);
  ASSERT_EQ(visualization.getLegends().size(), 2u);
  EXPECT_THAT(idsOf(*legend(1), u"legendTarget"),
              ElementsAre("points_legendTarget_0", "points_legendTarget_1"));
  EXPECT_EQ(legend(1)->getLegendTargets().at(1)->getTarget(), color(2));
}

TEST_F(ColorByTest, TheGraphIsNotTouched) {
  element.colorByVariable(sex, none, true, nullptr);
  EXPECT_EQ(visualization.getGraphs().size(), 1u);
}

TEST_F(ColorByTest, WritesInItsFixedOrder) {
  EXPECT_THAT(
      writesOf([&] {
        element.colorByVariable(sex, {u"red", u"blue"}, true, u"Sex");
      }),
      ElementsAre("point adds color", "color variable=sex", "color id=points_color1",                //
                  "visualization adds styleCycle", "styleCycle id=points_colorstyleCycle_1",         //
                  "color cycle=points_colorstyleCycle_1", "styleCycle adds cycle",                   //
                  "cycle adds style", "style color=red", "cycle adds style", "style color=blue",     //
                  "visualization adds extension", "visualization adds legend", "legend id=legend1",  //
                  "extension legend1=legend1", "legend adds label", "label id=legend1_label_1",      //
                  "label adds text", "text reads Sex",                                               //
                  "legend adds legendTarget", "legendTarget id=points_legendTarget_0",               //
                  "legendTarget target=points_color1"));
}

/// The operations of the element that are guarded as a whole.
struct Guarded {
  char const* name;
  void (*run)(XElement&, XVariable const&);
  std::string context;
};

void PrintTo(Guarded const& operation, std::ostream* stream) { *stream << operation.name; }

class GuardedElementTest : public ElementTest, public ::testing::WithParamInterface<Guarded> {};

INSTANTIATE_TEST_SUITE_P(
    Operations, GuardedElementTest,
    ::testing::Values(
        Guarded{"makeDotPlot", [](XElement& element, XVariable const&) { element.makeDotPlot(true); },
                "Error in XElement::makeDotPlot()"},
        Guarded{"addHistogramStatistic",
                [](XElement& element, XVariable const&) { element.addHistogramStatistic(u"1", 2, 3, true); },
                "Error in XElement::addHistogramStatistic()"},
        Guarded{"colorByVariable",
                [](XElement& element, XVariable const& variable) {
                  element.colorByVariable(variable, {u"red"}, true, nullptr);
                },
                "Error in XElement::colorByVariable()"}),
    [](auto const& row) { return std::string(row.param.name); });

TEST_P(GuardedElementTest, AFailureOfTheFirstStepIsReported) {
  failAtChange(1, [&] { GetParam().run(element, age); });
  expectGuardReport(recorder, GetParam().context);
  EXPECT_THAT(childTags(model), IsEmpty());
}

TEST_P(GuardedElementTest, AFailureOfTheSecondStepIsReportedAndWhatWasWrittenStays) {
  failAtChange(2, [&] { GetParam().run(element, age); });
  expectGuardReport(recorder, GetParam().context);
  EXPECT_EQ(childTags(model).size(), 1u);
}

TEST_P(GuardedElementTest, TheUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { GetParam().run(element, age); }), VexaGoToCaller);
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
