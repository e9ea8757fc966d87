// Lines, bars, points and error bars.

#include "change_log.h"
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
using testing::IsEmpty;

namespace {

struct ElementFactory {
  char const* name;
  XElement (*add)(XGraph&);
  std::string id;
  char16_t const* tag;
  std::string collisionHandling;
};

void PrintTo(ElementFactory const& row, std::ostream* out) { *out << row.name; }

ElementFactory const line{"Line", [](XGraph& graph) { return graph.AddLineElement(nullptr); },
                          "element_simpleline_1", u"line", "2"};
ElementFactory const bar{"Bar", [](XGraph& graph) { return graph.AddBarElement(false); }, "element_bar_1",
                         u"interval", "2"};
ElementFactory const clusteredBar{"ClusteredBar", [](XGraph& graph) { return graph.AddBarElement(true); },
                                  "element_clusteredbar_1", u"interval", "2"};
/// Points keep what every wrapper on an element writes.
ElementFactory const point{"Point", [](XGraph& graph) { return graph.AddPointElement(); }, "element_point_1",
                           u"point", "1"};
ElementFactory const errorBar{"ErrorBar", [](XGraph& graph) { return graph.AddErrorBarElement(); },
                              "element_errorbar_1", u"interval", "2"};

class EachElementFactory : public GraphTest, public testing::WithParamInterface<ElementFactory> {
 protected:
  CTElementType& add() { return dynamic_cast<CTElementType&>(*GetParam().add(graph).getImplementation()); }
};

class ElementNumbers : public GraphTest {};
class LineElement : public GraphTest {};
class PointElement : public GraphTest {};
class ErrorBarElement : public GraphTest {};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, EachElementFactory, testing::Values(line, bar, clusteredBar, point, errorBar),
                         caseName<ElementFactory>);

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

TEST_P(EachElementFactory, LetsAFailurePass) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_THROW(add(), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_P(EachElementFactory, LetsALaterFailurePassAndKeepsWhatWasBuilt) {
  ChangeTrap const trap(document, 3, throwOrdinaryFailure());
  EXPECT_THROW(add(), OrdinaryFailure);
  expectNoReport(recorder);
  EXPECT_EQ(elementsOf(visualization, GetParam().tag).size(), 1u);
}

TEST_P(EachElementFactory, LetsTheHostsUnwindingSignalPass) {
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(add(), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_P(EachElementFactory, FailsForTheCallerOnAChartWithoutGraph) {
  LumoDocument other;
  XGraph attached(*other.getVisualization());
  EXPECT_THROW(GetParam().add(attached), ChartException);
  expectNoReport(recorder);
}

TEST_F(ElementNumbers, RunOnAcrossBarsAndErrorBars) {
  graph.AddBarElement(false);
  graph.AddErrorBarElement();
  graph.AddBarElement(true);
  EXPECT_THAT(ids(graph.getGraph()->getIntervals()),
              ElementsAre("element_bar_1", "element_errorbar_2", "element_clusteredbar_3"));
}

TEST_F(ElementNumbers, GiveAClusteredBarBehindABarTheNextOne) {
  graph.AddBarElement(false);
  graph.AddBarElement(true);
  EXPECT_THAT(ids(graph.getGraph()->getIntervals()), ElementsAre("element_bar_1", "element_clusteredbar_2"));
}

TEST_F(ElementNumbers, AreIndependentForLinesPointsAndBars) {
  graph.AddLineElement(nullptr);
  graph.AddPointElement();
  graph.AddBarElement(false);
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

TEST_F(PointElement, IsMadeWithoutCollisionHandlingOfItsOwn) {
  ChangeLog log(document);
  graph.AddPointElement();
  EXPECT_THAT(log.lines(),
              ElementsAre("graph adds point", "point id=element_point_1", "point labelCollisionHandling=1",
                          "style adds style", "style id=element_point_1s", "point style=element_point_1s"));
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

TEST_F(ErrorBarElement, GetsItsLookBeforeItsStyleAndItsStatisticLast) {
  ChangeLog log(document);
  graph.AddErrorBarElement();
  EXPECT_THAT(log.lines(),
              ElementsAre("graph adds interval", "interval id=element_errorbar_1",
                          "interval labelCollisionHandling=1", "interval labelCollisionHandling=2",
                          "style adds style", "style id=element_errorbar_1s", "style symbol=ibeam",
                          "style width=25%", "interval style=element_errorbar_1s",
                          "interval adds summaryStatistic", "summaryStatistic method=7"));
}
