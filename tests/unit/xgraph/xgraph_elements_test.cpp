// Lines, bars, points, error bars, histograms and pyramids.

#include "change_log.h"
#include "every_failure.h"
#include "graph_fixture.h"

#include "host/chartbase.h"
#include "host/log.h"
#include "host/messages.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/style.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

struct ElementFactory {
  char const* name;
  XElement (*add)(XGraph&);
  std::string id;
  char16_t const* tag;
  std::string collisionHandling;
  /// What is written, in order.
  std::vector<std::string> changes;
  /// How many of the last changes stand in the guard of another operation.
  std::size_t guardedChanges = 0;
};

void PrintTo(ElementFactory const& row, std::ostream* out) { *out << row.name; }

ElementFactory const line{"Line",
                          [](XGraph& graph) { return graph.AddLineElement(nullptr); },
                          "element_simpleline_1",
                          u"line",
                          "2",
                          {"graph adds line", "line id=element_simpleline_1", "line labelCollisionHandling=1",
                           "line labelCollisionHandling=2", "style adds style",
                           "style id=element_simpleline_1s", "line style=element_simpleline_1s"}};
ElementFactory const bar{"Bar",
                         [](XGraph& graph) { return graph.AddBarElement(false); },
                         "element_bar_1",
                         u"interval",
                         "2",
                         {"graph adds interval", "interval id=element_bar_1",
                          "interval labelCollisionHandling=1", "interval labelCollisionHandling=2",
                          "style adds style", "style id=element_bar_1s", "interval style=element_bar_1s"}};
ElementFactory const clusteredBar{
    "ClusteredBar",
    [](XGraph& graph) { return graph.AddBarElement(true); },
    "element_clusteredbar_1",
    u"interval",
    "2",
    {"graph adds interval", "interval id=element_clusteredbar_1", "interval labelCollisionHandling=1",
     "interval labelCollisionHandling=2", "style adds style", "style id=element_clusteredbar_1s",
     "interval style=element_clusteredbar_1s"}};
/// Points and pyramids keep the collision handling that every wrapper on an element writes.
ElementFactory const point{"Point",
                           [](XGraph& graph) { return graph.AddPointElement(); },
                           "element_point_1",
                           u"point",
                           "1",
                           {"graph adds point", "point id=element_point_1", "point labelCollisionHandling=1",
                            "style adds style", "style id=element_point_1s", "point style=element_point_1s"}};
/// The look comes before the style is attached, the statistic last.
ElementFactory const errorBar{
    "ErrorBar",
    [](XGraph& graph) { return graph.AddErrorBarElement(); },
    "element_errorbar_1",
    u"interval",
    "2",
    {"graph adds interval", "interval id=element_errorbar_1", "interval labelCollisionHandling=1",
     "interval labelCollisionHandling=2", "style adds style", "style id=element_errorbar_1s",
     "style symbol=ibeam", "style width=25%", "interval style=element_errorbar_1s",
     "interval adds summaryStatistic", "summaryStatistic method=7"}};
ElementFactory const histogram{
    "Histogram",
    [](XGraph& graph) { return graph.AddHistogramElement(); },
    "element_histogram_1",
    u"interval",
    "2",
    {"graph adds interval", "interval id=element_histogram_1", "interval labelCollisionHandling=1",
     "interval labelCollisionHandling=2", "style adds style", "style id=element_histogram_1s",
     "interval style=element_histogram_1s", "interval adds binStatistic", "interval adds summaryStatistic",
     "summaryStatistic method=10"},
    3};
ElementFactory const pyramid{
    "Pyramid",
    [](XGraph& graph) { return graph.AddPyramidElement(); },
    "element_populationPyramid_1",
    u"interval",
    "1",
    {"graph adds interval", "interval id=element_populationPyramid_1", "interval labelCollisionHandling=1",
     "style adds style", "style id=element_populationPyramid_1s",
     "interval style=element_populationPyramid_1s", "interval dot=false",
     "interval showCollidingLabels=true"}};

class EachElementFactory : public GraphTest, public testing::WithParamInterface<ElementFactory> {
 protected:
  CTElementType& add() { return dynamic_cast<CTElementType&>(*GetParam().add(graph).getImplementation()); }
};

class ElementNumbers : public GraphTest {};
class LineElement : public GraphTest {};
class ErrorBarElement : public GraphTest {};
class HistogramElement : public GraphTest {};
class PyramidElement : public GraphTest {};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, EachElementFactory,
                         testing::Values(line, bar, clusteredBar, point, errorBar, histogram, pyramid),
                         caseName<ElementFactory>);

TEST_P(EachElementFactory, WritesInAFixedOrder) {
  ChangeLog log(document);
  add();
  EXPECT_THAT(log.lines(), ElementsAreArray(GetParam().changes));
}

TEST_P(EachElementFactory, AddsOneElementToTheGraph) {
  add();
  EXPECT_THAT(childTags(*graph.getGraph()), ElementsAre(utf8(GetParam().tag)));
}

TEST_P(EachElementFactory, NumbersTheFirstElementOne) { EXPECT_EQ(utf8(add().getId()), GetParam().id); }

TEST_P(EachElementFactory, GivesAWrapperOnTheElement) {
  XElement const element = GetParam().add(graph);
  EXPECT_EQ(element.getImplementation()->getImplementation(), onlyElementOf(visualization, GetParam().tag));
}

TEST_P(EachElementFactory, SaysHowCollidingLabelsAreHandled) {
  EXPECT_EQ(attribute(&add(), u"labelCollisionHandling"), GetParam().collisionHandling);
}

TEST_P(EachElementFactory, NamesTheStyleAfterTheElement) {
  CTElementType const& element = add();
  ASSERT_NE(element.getStyle(), nullptr);
  EXPECT_EQ(utf8(element.getStyle()->getId()), GetParam().id + utf8(ChartBase::_default_style));
}

TEST_P(EachElementFactory, MakesOneStyleInTheContainer) {
  add();
  EXPECT_THAT(styleIds(visualization), ElementsAre(GetParam().id + utf8(ChartBase::_default_style)));
}

TEST_P(EachElementFactory, MakesAStyleOfItsOwnWhereTheIdExists) {
  LumoStyle const* const theirs = graph.addStyle(ChartString((GetParam().id + "s").c_str()));
  EXPECT_NE(add().getStyle(), theirs);
}

TEST_P(EachElementFactory, SetsNoName) { EXPECT_EQ(attribute(&add(), u"name"), "(absent)"); }

TEST_P(EachElementFactory, MapsNoVariable) {
  CTElementType const& element = add();
  EXPECT_EQ(element.getX(), nullptr);
  EXPECT_EQ(element.getY(), nullptr);
}

TEST_P(EachElementFactory, TouchesNoDataStore) {
  recorder.clear();
  add();
  EXPECT_THAT(recorder.lines(), IsEmpty());
}

TEST_P(EachElementFactory, LetsAFailureOfEveryChangeOfItsOwnPass) {
  std::size_t const own = GetParam().changes.size() - GetParam().guardedChanges;
  for (unsigned int failing = 1; failing <= own; ++failing) {
    LumoDocument other;
    XGraph chart(*other.getVisualization(), nullptr);
    ChangeTrap const trap(other, failing, throwOrdinaryFailure());
    EXPECT_THROW(GetParam().add(chart), OrdinaryFailure) << "change " << failing;
  }
  expectNoReport(recorder);
}

TEST_P(EachElementFactory, KeepsWhatWasWrittenBeforeAFailure) {
  auto const add = [](ChartOfOneRun& chart) {
    try {
      GetParam().add(chart.graph);
    } catch (OrdinaryFailure const&) {
    }
  };
  expectFailuresToKeepWhatWasWritten(recorder, {[](ChartOfOneRun&) {}, add}, [](auto const&) {});
}

TEST_P(EachElementFactory, LetsTheHostsUnwindingSignalPass) {
  expectUnwindingToKeepWhatWasWritten(
      recorder, {[](ChartOfOneRun&) {}, [](ChartOfOneRun& chart) { GetParam().add(chart.graph); }});
}

TEST_P(EachElementFactory, FailsForTheCallerOnAChartWithoutGraph) {
  LumoDocument other;
  XGraph attached(*other.getVisualization());
  EXPECT_THROW(GetParam().add(attached), ChartException);
  expectNoReport(recorder);
}

TEST_F(ElementNumbers, RunOnAcrossAllKindsOfIntervals) {
  graph.AddBarElement(false);
  graph.AddErrorBarElement();
  graph.AddBarElement(true);
  graph.AddHistogramElement();
  graph.AddPyramidElement();
  graph.AddPyramidElement();
  graph.AddErrorBarElement();
  EXPECT_THAT(
      ids(graph.getGraph()->getIntervals()),
      ElementsAre("element_bar_1", "element_errorbar_2", "element_clusteredbar_3", "element_histogram_4",
                  "element_populationPyramid_5", "element_populationPyramid_6", "element_errorbar_7"));
}

TEST_F(ElementNumbers, GiveAClusteredBarBehindABarTheNextOne) {
  graph.AddBarElement(false);
  graph.AddBarElement(true);
  EXPECT_THAT(ids(graph.getGraph()->getIntervals()), ElementsAre("element_bar_1", "element_clusteredbar_2"));
}

TEST_F(ElementNumbers, AreIndependentForLinesPointsBarsAndBoxPlots) {
  graph.AddBoxplotElement(nullptr);
  graph.AddLineElement(nullptr);
  graph.AddPointElement();
  graph.AddBarElement(false);
  EXPECT_THAT(ids(graph.getGraph()->getSchemas()), ElementsAre("elementGroup_boxplot_11"));
  EXPECT_THAT(ids(graph.getGraph()->getLines()), ElementsAre("element_simpleline_1"));
  EXPECT_THAT(ids(graph.getGraph()->getPoints()), ElementsAre("element_point_1"));
  EXPECT_THAT(ids(graph.getGraph()->getIntervals()), ElementsAre("element_bar_1"));
}

TEST_F(ElementNumbers, CountElementsThatTheChartBroughtAlong) {
  graph.getGraph()->addPoint(u"theirs");
  graph.AddPointElement();
  EXPECT_THAT(ids(graph.getGraph()->getPoints()), ElementsAre("theirs", "element_point_2"));
}

TEST_F(ElementNumbers, NameTheStylesToo) {
  graph.AddPointElement();
  graph.AddPointElement();
  EXPECT_THAT(styleIds(visualization), ElementsAre("element_point_1s", "element_point_2s"));
}

TEST_F(LineElement, HasNoNameForAnEmptyOne) {
  graph.AddLineElement(u"");
  LumoLine const* const element = graph.getGraph()->getLines().front();
  EXPECT_EQ(utf8(element->getId()), "element_simpleline_1");
  EXPECT_EQ(attribute(element, u"name"), "(absent)");
}

TEST_F(LineElement, HasItsNameInItsIdWithUnderscoresForBlanks) {
  graph.AddLineElement(u"Mean line");
  EXPECT_THAT(ids(graph.getGraph()->getLines()), ElementsAre("element_simpleline_Mean_line1"));
}

TEST_F(LineElement, KeepsTheBlanksOfItsName) {
  graph.AddLineElement(u"Mean line");
  EXPECT_EQ(attribute(graph.getGraph()->getLines().front(), u"name"), "Mean line");
}

TEST_F(LineElement, HasAnUnderscoreForEachBlank) {
  graph.AddLineElement(u" a  b ");
  EXPECT_THAT(ids(graph.getGraph()->getLines()), ElementsAre("element_simpleline__a__b_1"));
}

TEST_F(LineElement, KeepsOtherWhiteSpaceInItsId) {
  graph.AddLineElement(u"a\u00a0b");
  EXPECT_THAT(ids(graph.getGraph()->getLines()), ElementsAre("element_simpleline_a\xc2\xa0"
                                                             "b1"));
}

TEST_F(LineElement, DiffersFromOneOfItsNameByTheNumberOnly) {
  graph.AddLineElement(u"A");
  graph.AddLineElement(u"A");
  EXPECT_THAT(ids(graph.getGraph()->getLines()),
              ElementsAre("element_simpleline_A1", "element_simpleline_A2"));
}

TEST_F(LineElement, SharesItsNumbersWithLinesOfOtherNames) {
  graph.AddLineElement(u"A");
  graph.AddLineElement(nullptr);
  EXPECT_THAT(ids(graph.getGraph()->getLines()),
              ElementsAre("element_simpleline_A1", "element_simpleline_2"));
}

TEST_F(LineElement, HasItsNameInItsStyle) {
  graph.AddLineElement(u"Mean line");
  EXPECT_THAT(styleIds(visualization), ElementsAre("element_simpleline_Mean_line1s"));
}

TEST_F(LineElement, TakesItsNameBehindTheWrapperAndBeforeTheCollisionHandling) {
  ChangeLog log(document);
  graph.AddLineElement(u"Mean line");
  EXPECT_THAT(
      log.lines(),
      ElementsAre("graph adds line", "line id=element_simpleline_Mean_line1", "line labelCollisionHandling=1",
                  "line name=Mean line", "line labelCollisionHandling=2", "style adds style",
                  "style id=element_simpleline_Mean_line1s", "line style=element_simpleline_Mean_line1s"));
}

TEST_F(LineElement, WithANameKeepsWhatWasWrittenBeforeAFailure) {
  auto const add = [](ChartOfOneRun& chart) {
    try {
      chart.graph.AddLineElement(u"Mean line");
    } catch (OrdinaryFailure const&) {
    }
  };
  expectFailuresToKeepWhatWasWritten(recorder, {[](ChartOfOneRun&) {}, add}, expectNoReport);
}

TEST_F(ErrorBarElement, IsDrawnAsAnIBeamOfAQuarterOfTheWidth) {
  graph.AddErrorBarElement();
  LumoStyle const* const style = graph.getGraph()->getIntervals().front()->getStyle();
  EXPECT_EQ(attribute(style, u"symbol"), "ibeam");
  EXPECT_EQ(attribute(style, u"width"), "25%");
}

TEST_F(ErrorBarElement, HasNoLimitsOfItsWidth) {
  graph.AddErrorBarElement();
  LumoStyle const* const style = graph.getGraph()->getIntervals().front()->getStyle();
  EXPECT_EQ(attribute(style, u"width_min"), "(absent)");
  EXPECT_EQ(attribute(style, u"width_max"), "(absent)");
}

TEST_F(ErrorBarElement, HasOneSummaryStatisticOfTheErrorBarMethod) {
  graph.AddErrorBarElement();
  auto const statistics = graph.getGraph()->getIntervals().front()->getSummaryStatistics();
  ASSERT_EQ(statistics.size(), 1u);
  EXPECT_EQ(static_cast<int>(statistics.front()->getMethod()), 7);
}

TEST_F(HistogramElement, HasOneBinStatisticWithoutSettings) {
  graph.AddHistogramElement();
  auto const statistics = graph.getGraph()->getIntervals().front()->getBinStatistics();
  ASSERT_EQ(statistics.size(), 1u);
  EXPECT_THAT(attributeNames(*statistics.front()), IsEmpty());
}

TEST_F(HistogramElement, HasOneSummaryStatisticOfTheHistogramMethod) {
  graph.AddHistogramElement();
  auto const statistics = graph.getGraph()->getIntervals().front()->getSummaryStatistics();
  ASSERT_EQ(statistics.size(), 1u);
  EXPECT_EQ(static_cast<int>(statistics.front()->getMethod()), 10);
}

TEST_F(HistogramElement, LeavesTheReportOfAFailingStatisticToItsOwnGuard) {
  std::size_t const all = histogram.changes.size();
  for (std::size_t failing = all - histogram.guardedChanges + 1; failing <= all; ++failing) {
    SCOPED_TRACE("change " + std::to_string(failing));
    LumoDocument other;
    XGraph chart(*other.getVisualization(), nullptr);
    recorder.clear();
    ChangeTrap const trap(other, static_cast<unsigned int>(failing), throwOrdinaryFailure());
    XElement const element = chart.AddHistogramElement();
    expectGuardReport(recorder, "Error in XElement::addHistogramStatistic()");
    EXPECT_EQ(element.getImplementation(), chart.getGraph()->getIntervals().at(0));
  }
}

TEST_F(PyramidElement, ShowsAllItsLabelsAndIsNoDot) {
  graph.AddPyramidElement();
  LumoInterval const* const element = graph.getGraph()->getIntervals().front();
  EXPECT_EQ(attribute(element, u"dot"), "false");
  EXPECT_EQ(attribute(element, u"showCollidingLabels"), "true");
}

TEST_F(PyramidElement, HasNoStatistic) {
  graph.AddPyramidElement();
  EXPECT_THAT(childTags(*graph.getGraph()->getIntervals().front()), IsEmpty());
}
