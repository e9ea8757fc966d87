// Reference and function lines.

#include "asking_graph.h"
#include "change_log.h"
#include "every_failure.h"
#include "graph_fixture.h"

#include "host/chartbase.h"
#include "host/messages.h"
#include "model/aesthetics.h"
#include "model/graph.h"
#include "model/guides.h"
#include "model/style.h"

#include <gmock/gmock.h>

#include <limits>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

/// A reference line of the general form that is shown in all panels.
void addReferenceLine(XGraph& graph, char16_t const* name) {
  graph.AddReferenceLine("2", "", name, 1, nullptr, true);
}

struct GuideFactory {
  char const* name;
  void (*add)(XGraph&, char16_t const* name);
  char16_t const* tag;
  std::string context;
  /// What is written for a guide of the name "Mean line", in order.
  std::vector<std::string> changes;
};

void PrintTo(GuideFactory const& row, std::ostream* out) { *out << row.name; }

GuideFactory const referenceLine{
    "ReferenceLine",
    addReferenceLine,
    u"lineGuide",
    "Error in XGraph::AddReferenceLine()",
    {"graph adds lineGuide", "lineGuide name=Mean line", "lineGuide id=lineGuideMean line1",
     "style adds style", "style id=lineGuideMean line1s", "style visible=true",
     "lineGuide style=lineGuideMean line1s", "style adds style", "style id=hidden", "style visible=false",
     "lineGuide x=2"}};
GuideFactory const xReferenceLine{
    "XReferenceLine",
    [](XGraph& graph, char16_t const* name) { graph.AddXReferenceLine(1.5, name); },
    u"lineGuide",
    "Error in XGraph::AddXReferenceLine()",
    {"graph adds lineGuide", "lineGuide name=Mean line", "lineGuide id=lineGuideMean line1",
     "lineGuide x=1.5", "style adds style", "style id=lineGuideMean line1s",
     "lineGuide style=lineGuideMean line1s"}};
GuideFactory const yReferenceLine{
    "YReferenceLine",
    [](XGraph& graph, char16_t const* name) { graph.AddYReferenceLine(1.5, name); },
    u"lineGuide",
    "Error in XGraph::AddYReferenceLine()",
    {"graph adds lineGuide", "lineGuide name=Mean line", "lineGuide id=lineGuideMean line1",
     "lineGuide y=1.5", "style adds style", "style id=lineGuideMean line1s",
     "lineGuide style=lineGuideMean line1s"}};
GuideFactory const functionLine{
    "FunctionLine",
    [](XGraph& graph, char16_t const* name) { graph.AddFunctionLine("2*x", name); },
    u"functionGuide",
    "Error in XGraph::AddFunctionLine()",
    {"graph adds functionGuide", "functionGuide name=Mean line", "functionGuide id=functionGuideMean line1",
     "functionGuide value=2*x", "style adds style", "style id=functionGuideMean line1s",
     "functionGuide style=functionGuideMean line1s"}};

class EachGuideFactory : public GraphTest, public testing::WithParamInterface<GuideFactory> {
 protected:
  void add(char16_t const* name) { GetParam().add(graph, name); }
  CTGuideType& guide() const {
    auto* const node = onlyElementOf(visualization, GetParam().tag);
    return *static_cast<CTGuideType*>(node->getUserData(GetParam().tag));
  }
};

class GuideNumbers : public GraphTest {};

class LineGuide : public GraphTest {
 protected:
  LumoLineGuide const& guide(std::size_t index = 0) const {
    return *graph.getGraph()->getLineGuides().at(index);
  }
};
class XReferenceLine : public LineGuide {};
class YReferenceLine : public LineGuide {};

class ReferenceLine : public LineGuide {
 protected:
  /// The condition of a new line.
  std::string condition(int facet, std::vector<double> const& values, bool equal) {
    graph.AddReferenceLine("", "", nullptr, facet, &values, equal);
    auto const conditions = graph.getGraph()->getLineGuides().back()->getConditionalStyles();
    return conditions.size() == 1 ? utf8(conditions.front()->getWhen()) : "(not one condition)";
  }
};

class FunctionLine : public GraphTest {
 protected:
  LumoFunctionGuide const& guide() const { return *graph.getGraph()->getFunctionGuides().at(0); }
};

/// A reference line with everything that one can have.
FailingOperation const addWholeReferenceLine = {[](ChartOfOneRun&) {},
                                                [](ChartOfOneRun& chart) {
                                                  std::vector<double> const values{2.0, 3.0};
                                                  chart.graph.AddReferenceLine("5", "6", u"Mean", 1, &values,
                                                                               true);
                                                }};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, EachGuideFactory,
                         testing::Values(referenceLine, xReferenceLine, yReferenceLine, functionLine),
                         caseName<GuideFactory>);

TEST_P(EachGuideFactory, WritesInAFixedOrder) {
  ChangeLog log(document);
  add(u"Mean line");
  EXPECT_THAT(log.lines(), ElementsAreArray(GetParam().changes));
}

TEST_P(EachGuideFactory, AddsOneGuideToTheGraph) {
  add(nullptr);
  EXPECT_THAT(childTags(*graph.getGraph()), ElementsAre(utf8(GetParam().tag)));
}

TEST_P(EachGuideFactory, NumbersTheFirstGuideOne) {
  add(nullptr);
  EXPECT_EQ(utf8(guide().getId()), utf8(GetParam().tag) + "1");
}

TEST_P(EachGuideFactory, NumbersGuidesOfOneNameTwoByTwo) {
  add(u"A");
  add(u"A");
  std::string const stem = utf8(GetParam().tag) + "A";
  EXPECT_THAT(idsOf(visualization, GetParam().tag), ElementsAre(stem + "1", stem + "2"));
}

TEST_P(EachGuideFactory, SetsNoNameForNull) {
  add(nullptr);
  EXPECT_EQ(attribute(&guide(), u"name"), "(absent)");
}

TEST_P(EachGuideFactory, SetsNoNameForAnEmptyOne) {
  add(u"");
  EXPECT_EQ(attribute(&guide(), u"name"), "(absent)");
  EXPECT_EQ(utf8(guide().getId()), utf8(GetParam().tag) + "1");
}

TEST_P(EachGuideFactory, KeepsBlanksInIdAndName) {
  add(u" a  b ");
  EXPECT_EQ(utf8(guide().getId()), utf8(GetParam().tag) + " a  b 1");
  EXPECT_EQ(attribute(&guide(), u"name"), " a  b ");
}

TEST_P(EachGuideFactory, StylesTheGuideByItsId) {
  add(nullptr);
  ASSERT_NE(guide().getStyle(), nullptr);
  EXPECT_EQ(utf8(guide().getStyle()->getId()), utf8(GetParam().tag) + "1" + utf8(ChartBase::_default_style));
}

TEST_P(EachGuideFactory, FindsAStyleThatHasTheId) {
  LumoStyle const* const theirs = graph.addStyle(ChartString((utf8(GetParam().tag) + "1s").c_str()));
  add(nullptr);
  EXPECT_EQ(guide().getStyle(), theirs);
}

TEST_P(EachGuideFactory, AsksForItsStyleByTheVirtualCall) {
  LumoDocument other;
  AskingGraph asking(*other.getVisualization(), nullptr);
  GetParam().add(asking, nullptr);
  ASSERT_FALSE(asking.asked.empty());
  EXPECT_EQ(asking.asked.front(), utf8(GetParam().tag) + "1s");
}

TEST_P(EachGuideFactory, MakesNoElementAndNoCoordinates) {
  add(u"Mean");
  EXPECT_THAT(graph.getGraph()->getCoordinatess(), IsEmpty());
  EXPECT_THAT(graph.getGraph()->getLines(), IsEmpty());
}

TEST_P(EachGuideFactory, TouchesNoDataStore) {
  recorder.clear();
  add(u"Mean");
  EXPECT_THAT(recorder.lines(), IsEmpty());
}

TEST_P(EachGuideFactory, ReportsAFailureAndKeepsWhatWasWritten) {
  expectFailuresToKeepWhatWasWritten(
      recorder,
      {[](ChartOfOneRun&) {}, [](ChartOfOneRun& chart) { GetParam().add(chart.graph, u"Mean line"); }},
      [](kestrel::host::Recorder const& done) { expectGuardReport(done, GetParam().context); });
}

TEST_P(EachGuideFactory, LetsTheHostsUnwindingSignalPass) {
  expectUnwindingToKeepWhatWasWritten(
      recorder,
      {[](ChartOfOneRun&) {}, [](ChartOfOneRun& chart) { GetParam().add(chart.graph, u"Mean line"); }});
}

TEST_P(EachGuideFactory, ReportsAChartWithoutGraph) {
  LumoDocument other;
  XGraph attached(*other.getVisualization());
  GetParam().add(attached, nullptr);
  expectGuardReport(recorder, GetParam().context);
}

TEST_P(EachGuideFactory, ReportsAStyleIdThatIsSomethingElses) {
  visualization.addUserSource((utf8(GetParam().tag) == "lineGuide") ? u"lineGuide1s" : u"functionGuide1s");
  add(nullptr);
  expectGuardReport(recorder, GetParam().context);
  EXPECT_EQ(attribute(&guide(), u"style"), "(absent)");
}

TEST_F(GuideNumbers, RunOnAcrossAllLineForms) {
  graph.AddXReferenceLine(1.5, nullptr);
  graph.AddYReferenceLine(1.5, u"Mean");
  addReferenceLine(graph, nullptr);
  EXPECT_THAT(ids(graph.getGraph()->getLineGuides()),
              ElementsAre("lineGuide1", "lineGuideMean2", "lineGuide3"));
}

TEST_F(GuideNumbers, AreIndependentForFunctions) {
  graph.AddXReferenceLine(1.5, nullptr);
  graph.AddXReferenceLine(2.5, nullptr);
  graph.AddFunctionLine("x", nullptr);
  graph.AddXReferenceLine(3.5, nullptr);
  EXPECT_THAT(ids(graph.getGraph()->getFunctionGuides()), ElementsAre("functionGuide1"));
  EXPECT_THAT(ids(graph.getGraph()->getLineGuides()), ElementsAre("lineGuide1", "lineGuide2", "lineGuide3"));
}

TEST_F(GuideNumbers, CountGuidesThatTheChartBroughtAlong) {
  graph.getGraph()->addLineGuide();
  graph.getGraph()->addFunctionGuide();
  graph.AddXReferenceLine(1.5, nullptr);
  graph.AddFunctionLine("x", nullptr);
  EXPECT_THAT(idsOf(visualization, u"lineGuide"), ElementsAre("(absent)", "lineGuide2"));
  EXPECT_THAT(idsOf(visualization, u"functionGuide"), ElementsAre("(absent)", "functionGuide2"));
}

TEST_F(GuideNumbers, CountAGuideThatFailed) {
  {
    ChangeTrap const trap(document, 2, throwOrdinaryFailure());
    graph.AddXReferenceLine(1.5, nullptr);
  }
  graph.AddXReferenceLine(1.5, nullptr);
  EXPECT_THAT(idsOf(visualization, u"lineGuide"), ElementsAre("(absent)", "lineGuide2"));
}

TEST_F(XReferenceLine, StandsAtXOnly) {
  graph.AddXReferenceLine(-0.25, nullptr);
  EXPECT_EQ(attribute(&guide(), u"x"), "-0.25");
  EXPECT_EQ(attribute(&guide(), u"y"), "(absent)");
}

TEST_F(XReferenceLine, HasUpToSixteenDigits) {
  graph.AddXReferenceLine(0.1 + 0.2, nullptr);
  graph.AddXReferenceLine(1.0 / 3.0, nullptr);
  EXPECT_EQ(attribute(&guide(0), u"x"), "0.3");
  EXPECT_EQ(attribute(&guide(1), u"x"), "0.3333333333333333");
}

TEST_F(XReferenceLine, HasAValueAtZero) {
  graph.AddXReferenceLine(0.0, nullptr);
  EXPECT_EQ(attribute(&guide(), u"x"), "0");
}

TEST_F(XReferenceLine, MakesNoHiddenStyle) {
  graph.AddXReferenceLine(1.5, nullptr);
  EXPECT_THAT(styleIds(visualization), ElementsAre("lineGuide1s"));
}

TEST_F(YReferenceLine, StandsAtYOnly) {
  graph.AddYReferenceLine(-0.25, nullptr);
  EXPECT_EQ(attribute(&guide(), u"y"), "-0.25");
  EXPECT_EQ(attribute(&guide(), u"x"), "(absent)");
}

TEST_F(YReferenceLine, HasUpToSixteenDigits) {
  graph.AddYReferenceLine(0.1 + 0.2, nullptr);
  EXPECT_EQ(attribute(&guide(), u"y"), "0.3");
}

TEST_F(YReferenceLine, MakesNoHiddenStyle) {
  graph.AddYReferenceLine(1.5, nullptr);
  EXPECT_THAT(styleIds(visualization), ElementsAre("lineGuide1s"));
}

TEST_F(FunctionLine, PassesTheFunctionOnAsItStands) {
  graph.AddFunctionLine(" 2*x + 1 < y ", nullptr);
  EXPECT_EQ(attribute(&guide(), u"value"), " 2*x + 1 < y ");
}

TEST_F(FunctionLine, HasNoValueForAnEmptyFunction) {
  graph.AddFunctionLine("", u"Mean");
  EXPECT_EQ(attribute(&guide(), u"value"), "(absent)");
  EXPECT_EQ(attribute(&guide(), u"style"), "functionGuideMean1s");
  expectNoReport(recorder);
}

TEST_F(FunctionLine, ReadsItsBytesInTheLocalCodePage) {
  std::string const before = ChartString::localCodePage();
  ChartString::setLocalCodePage("windows-1252");
  graph.AddFunctionLine("M\xe4rz", nullptr);
  ChartString::setLocalCodePage(before);
  EXPECT_EQ(attribute(&guide(), u"value"), "M\xc3\xa4rz");
}

TEST_F(ReferenceLine, WithEverythingIsWrittenInAFixedOrder) {
  std::vector<double> const values{2.0, 3.0};
  ChangeLog log(document);
  graph.AddReferenceLine("5", "6", u"Mean", 1, &values, true);
  EXPECT_THAT(log.lines(),
              ElementsAre("graph adds lineGuide", "lineGuide name=Mean", "lineGuide id=lineGuideMean1",
                          "style adds style", "style id=lineGuideMean1s", "style visible=true",
                          "lineGuide style=lineGuideMean1s", "style adds style", "style id=hidden",
                          "style visible=false", "lineGuide adds conditionalStyle",
                          "conditionalStyle when=facet1 == \"2\" || facet1 == \"3\"",
                          "conditionalStyle style=hidden", "lineGuide x=5", "lineGuide y=6"));
}

TEST_F(ReferenceLine, WithEverythingReportsAFailureAndKeepsWhatWasWritten) {
  expectFailuresToKeepWhatWasWritten(recorder, addWholeReferenceLine,
                                     [](kestrel::host::Recorder const& done) {
                                       expectGuardReport(done, "Error in XGraph::AddReferenceLine()");
                                     });
}

TEST_F(ReferenceLine, WithEverythingLetsTheHostsUnwindingSignalPass) {
  expectUnwindingToKeepWhatWasWritten(recorder, addWholeReferenceLine);
}

TEST_F(ReferenceLine, IsHiddenWhereAPanelHasOneOfTheValues) {
  EXPECT_EQ(condition(1, {2.0, 3.0}, true), "facet1 == \"2\" || facet1 == \"3\"");
}

TEST_F(ReferenceLine, IsHiddenWhereAPanelHasNoneOfTheValues) {
  EXPECT_EQ(condition(1, {2.0, 3.0}, false), "facet1 != \"2\" && facet1 != \"3\"");
}

TEST_F(ReferenceLine, HasNoSeparatorForASingleValue) {
  EXPECT_EQ(condition(2, {4.0}, true), "facet2 == \"4\"");
  EXPECT_EQ(condition(2, {4.0}, false), "facet2 != \"4\"");
}

TEST_F(ReferenceLine, KeepsTheOrderOfItsValuesAndRepeatsThem) {
  EXPECT_EQ(condition(1, {3.0, 2.0, 3.0}, true), "facet1 == \"3\" || facet1 == \"2\" || facet1 == \"3\"");
}

TEST_F(ReferenceLine, TakesAnyNumberOfAPanelLevel) {
  EXPECT_EQ(condition(0, {1.0}, true), "facet0 == \"1\"");
  EXPECT_EQ(condition(-1, {1.0}, true), "facet-1 == \"1\"");
  EXPECT_EQ(condition(12, {1.0}, true), "facet12 == \"1\"");
}

TEST_F(ReferenceLine, WritesValuesInTheirShortestForm) {
  EXPECT_EQ(condition(1, {0.1 + 0.2, -0.5}, true), "facet1 == \"0.30000000000000004\" || facet1 == \"-0.5\"");
}

TEST_F(ReferenceLine, WritesValuesThatAreNoNumbers) {
  double const infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(condition(1, {std::numeric_limits<double>::quiet_NaN(), -infinity}, true),
            "facet1 == \"NaN\" || facet1 == \"-INF\"");
}

TEST_F(ReferenceLine, HasTheHiddenStyleForItsCondition) {
  std::vector<double> const values{2.0};
  graph.AddReferenceLine("", "", nullptr, 1, &values, true);
  EXPECT_EQ(guide().getConditionalStyles().at(0)->getStyle(), visualization.getStyleById(u"hidden"));
}

TEST_F(ReferenceLine, IsVisibleByItsOwnStyle) {
  graph.AddReferenceLine("", "", nullptr, 1, nullptr, true);
  EXPECT_EQ(attribute(guide().getStyle(), u"visible"), "true");
  EXPECT_EQ(attribute(visualization.getStyleById(u"hidden"), u"visible"), "false");
}

TEST_F(ReferenceLine, WithoutValuesHasNoConditionAndMakesTheHiddenStyle) {
  graph.AddReferenceLine("", "", nullptr, 1, nullptr, true);
  EXPECT_THAT(guide().getConditionalStyles(), IsEmpty());
  EXPECT_THAT(styleIds(visualization), ElementsAre("lineGuide1s", "hidden"));
}

TEST_F(ReferenceLine, WithAnEmptyListOfValuesHasNoConditionAndMakesTheHiddenStyle) {
  std::vector<double> const values;
  graph.AddReferenceLine("", "", nullptr, 1, &values, false);
  EXPECT_THAT(guide().getConditionalStyles(), IsEmpty());
  EXPECT_THAT(styleIds(visualization), ElementsAre("lineGuide1s", "hidden"));
}

TEST_F(ReferenceLine, SharesTheHiddenStyleWithTheOthers) {
  std::vector<double> const values{2.0};
  graph.AddReferenceLine("", "", nullptr, 1, &values, true);
  graph.AddReferenceLine("", "", nullptr, 1, &values, true);
  EXPECT_THAT(styleIds(visualization), ElementsAre("lineGuide1s", "hidden", "lineGuide2s"));
  EXPECT_EQ(guide(0).getConditionalStyles().at(0)->getStyle(),
            guide(1).getConditionalStyles().at(0)->getStyle());
}

TEST_F(ReferenceLine, SharesTheHiddenStyleWithElements) {
  graph.AddBarElement(false).hideInAllPanelsExcept(1, 2.0);
  LumoStyle const* const hidden = visualization.getStyleById(u"hidden");
  EXPECT_EQ(condition(1, {2.0}, true), "facet1 == \"2\"");
  EXPECT_EQ(guide().getConditionalStyles().at(0)->getStyle(), hidden);
}

TEST_F(ReferenceLine, HidesAHiddenStyleThatWasVisible) {
  graph.addStyle(u"hidden")->setVisible(true);
  graph.AddReferenceLine("", "", nullptr, 1, nullptr, true);
  EXPECT_EQ(attribute(visualization.getStyleById(u"hidden"), u"visible"), "false");
}

TEST_F(ReferenceLine, ShowsAStyleOfItsIdThatWasHidden) {
  graph.addStyle(u"lineGuide1s")->setVisible(false);
  graph.AddReferenceLine("", "", nullptr, 1, nullptr, true);
  EXPECT_EQ(attribute(guide().getStyle(), u"visible"), "true");
}

TEST_F(ReferenceLine, ReportsAHiddenStyleWhoseIdIsSomethingElses) {
  visualization.addUserSource(u"hidden");
  graph.AddReferenceLine("5", "6", nullptr, 1, nullptr, true);
  expectGuardReport(recorder, "Error in XGraph::AddReferenceLine()");
  EXPECT_EQ(attribute(&guide(), u"style"), "lineGuide1s");
  EXPECT_EQ(attribute(&guide(), u"x"), "(absent)");
}

TEST_F(ReferenceLine, AsksForBothStylesByTheVirtualCall) {
  LumoDocument other;
  AskingGraph asking(*other.getVisualization(), nullptr);
  addReferenceLine(asking, u"Mean");
  EXPECT_THAT(asking.asked, ElementsAre("lineGuideMean1s", "hidden"));
}

TEST_F(ReferenceLine, WithoutXAndYHasNeither) {
  graph.AddReferenceLine("", "", nullptr, 1, nullptr, true);
  EXPECT_EQ(attribute(&guide(), u"x"), "(absent)");
  EXPECT_EQ(attribute(&guide(), u"y"), "(absent)");
}

TEST_F(ReferenceLine, WithXOnlyHasNoY) {
  graph.AddReferenceLine("5", "", nullptr, 1, nullptr, true);
  EXPECT_EQ(attribute(&guide(), u"x"), "5");
  EXPECT_EQ(attribute(&guide(), u"y"), "(absent)");
}

TEST_F(ReferenceLine, WithYOnlyHasNoX) {
  graph.AddReferenceLine("", "5", nullptr, 1, nullptr, true);
  EXPECT_EQ(attribute(&guide(), u"x"), "(absent)");
  EXPECT_EQ(attribute(&guide(), u"y"), "5");
}

TEST_F(ReferenceLine, PassesXAndYOnAsTheyStand) {
  graph.AddReferenceLine(" 05,50 ", "no <number>", nullptr, 1, nullptr, true);
  EXPECT_EQ(attribute(&guide(), u"x"), " 05,50 ");
  EXPECT_EQ(attribute(&guide(), u"y"), "no <number>");
}

TEST_F(ReferenceLine, ReadsXAndYInTheLocalCodePage) {
  std::string const before = ChartString::localCodePage();
  ChartString::setLocalCodePage("windows-1252");
  graph.AddReferenceLine("M\xe4rz", "\x80", nullptr, 1, nullptr, true);
  ChartString::setLocalCodePage(before);
  EXPECT_EQ(attribute(&guide(), u"x"), "M\xc3\xa4rz");
  EXPECT_EQ(attribute(&guide(), u"y"), "\xe2\x82\xac");
}
