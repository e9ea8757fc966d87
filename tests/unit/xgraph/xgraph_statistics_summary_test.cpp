// The label frame that shows the figures of a histogram.

#include "change_log.h"
#include "every_failure.h"
#include "graph_fixture.h"

#include "model/elements.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/style.h"
#include "model/variables.h"

#include <gmock/gmock.h>

#include <memory>
#include <optional>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class StatisticsSummary : public GraphTest {
 protected:
  void add(char16_t const* first, char16_t const* second, char16_t const* third) {
    graph.AddHistogramStatisticsSummary(element, first, second, third);
  }
  LumoLabelFrame& frame(std::size_t index = 0) const { return *visualization.getLabelFrames().at(index); }
  LumoLabel& label(std::size_t index = 0) const { return *frame(index).getLabel(); }
  LumoDescriptionGroup& group() const { return *label().getDescriptionGroups().at(0); }

  std::vector<std::string> descriptionNames() const {
    std::vector<std::string> names;
    for (LumoDescription const* description : group().getDescriptions())
      names.push_back(attribute(description, u"name"));
    return names;
  }

  XElement element = graph.AddHistogramElement();
};

/// A wrapper on an element writes when it is made, so that it is made beforehand.
FailingOperation addSummary() {
  auto const element = std::make_shared<std::optional<XElement>>();
  return {[element](ChartOfOneRun& chart) { element->emplace(chart.graph.AddHistogramElement()); },
          [element](ChartOfOneRun& chart) {
            chart.graph.AddHistogramStatisticsSummary(**element, u"Mean = ", u"Std. Dev. = ", u"N = ");
          }};
}

}  // namespace

TEST_F(StatisticsSummary, IsWrittenInAFixedOrder) {
  ChangeLog log(document);
  add(u"Mean = ", u"Std. Dev. = ", u"N = ");
  EXPECT_THAT(
      log.lines(),
      ElementsAre(
          "visualization adds labelFrame", "labelFrame id=frame_statistics_summary_1", "style adds style",
          "style id=frame_statistics_summary_1s", "labelFrame style=frame_statistics_summary_1s",
          "labelFrame adds label", "label id=label_statistics_summary_1", "style adds style",
          "style id=label_statistics_summary_1s", "label style=label_statistics_summary_1s",
          "label adds descriptionGroup", "descriptionGroup target=element_histogram_1",
          "descriptionGroup adds text", "text reads Mean = ", "descriptionGroup adds description",
          "description name=5", "description adds format", "format maximumFractionDigits=2",
          "format minimumFractionDigits=0", "descriptionGroup adds text",
          "text reads Std. Dev. = ", "descriptionGroup adds description", "description name=7",
          "description adds format", "format maximumFractionDigits=2", "format minimumFractionDigits=0",
          "descriptionGroup adds text", "text reads N = ", "descriptionGroup adds description",
          "description name=6", "description adds format", "format maximumFractionDigits=0"));
}

TEST_F(StatisticsSummary, IsAFrameOfTheVisualization) {
  add(u"a", u"b", u"c");
  EXPECT_THAT(ids(visualization.getLabelFrames()), ElementsAre("frame_statistics_summary_1"));
}

TEST_F(StatisticsSummary, ReadsTextAndValueInTurn) {
  add(u"a", u"b", u"c");
  EXPECT_THAT(childTags(group()),
              ElementsAre("text", "description", "text", "description", "text", "description"));
}

TEST_F(StatisticsSummary, ShowsTheFiguresFiveSevenSix) {
  add(u"a", u"b", u"c");
  EXPECT_THAT(descriptionNames(), ElementsAre("5", "7", "6"));
}

TEST_F(StatisticsSummary, SetsNoMinimumOfDigitsForTheWholeNumber) {
  add(nullptr, nullptr, u"N = ");
  LumoFormat const& format = *group().getDescriptions().at(0)->getFormats().at(0);
  EXPECT_THAT(attributeNames(format), ElementsAre("maximumFractionDigits"));
  EXPECT_EQ(attribute(&format, u"maximumFractionDigits"), "0");
}

TEST_F(StatisticsSummary, BelongsToTheElement) {
  add(u"a", u"b", u"c");
  EXPECT_EQ(group().getTarget(), element.getImplementation());
}

TEST_F(StatisticsSummary, BelongsToAnElementOfAnyKind) {
  XElement const line = graph.AddLineElement(nullptr);
  graph.AddHistogramStatisticsSummary(line, u"a", u"b", u"c");
  EXPECT_EQ(group().getTarget(), line.getImplementation());
}

TEST_F(StatisticsSummary, WithoutTextsHasAnEmptyDescriptionGroup) {
  add(nullptr, nullptr, nullptr);
  ASSERT_EQ(label().getDescriptionGroups().size(), 1u);
  EXPECT_THAT(childTags(group()), IsEmpty());
  expectNoReport(recorder);
}

TEST_F(StatisticsSummary, WithoutTheFirstTextLeavesItsFigureOut) {
  add(nullptr, u"b", u"c");
  EXPECT_THAT(descriptionNames(), ElementsAre("7", "6"));
  EXPECT_EQ(group().getTexts().size(), 2u);
}

TEST_F(StatisticsSummary, WithoutTheSecondTextLeavesItsFigureOut) {
  add(u"a", nullptr, u"c");
  EXPECT_THAT(descriptionNames(), ElementsAre("5", "6"));
  EXPECT_EQ(group().getTexts().size(), 2u);
}

TEST_F(StatisticsSummary, WithoutTheThirdTextLeavesItsFigureOut) {
  add(u"a", u"b", nullptr);
  EXPECT_THAT(descriptionNames(), ElementsAre("5", "7"));
  EXPECT_EQ(group().getTexts().size(), 2u);
}

TEST_F(StatisticsSummary, HasAFigureForAnEmptyText) {
  add(u"", nullptr, nullptr);
  EXPECT_THAT(descriptionNames(), ElementsAre("5"));
  EXPECT_EQ(utf8(group().getTexts().at(0)->getText()), "");
}

TEST_F(StatisticsSummary, PassesTextsOnAsTheyStand) {
  add(u" M\u00e4rz\\n<1> ", nullptr, nullptr);
  EXPECT_EQ(utf8(group().getTexts().at(0)->getText()), " M\xc3\xa4rz\\n<1> ");
}

TEST_F(StatisticsSummary, CountsTitlesAndFootnotes) {
  graph.AddTitle1(u"Mass");
  graph.AddFootnote1(u"in grams");
  add(u"a", u"b", u"c");
  EXPECT_EQ(utf8(frame(2).getId()), "frame_statistics_summary_3");
  EXPECT_EQ(utf8(label(2).getId()), "label_statistics_summary_3");
}

TEST_F(StatisticsSummary, OfASecondCallHasTheNextNumber) {
  add(u"a", u"b", u"c");
  add(u"a", u"b", u"c");
  EXPECT_THAT(ids(visualization.getLabelFrames()),
              ElementsAre("frame_statistics_summary_1", "frame_statistics_summary_2"));
  EXPECT_EQ(utf8(label(1).getId()), "label_statistics_summary_2");
}

TEST_F(StatisticsSummary, OfASecondCallBehindATitleSkipsANumber) {
  add(u"a", u"b", u"c");
  graph.AddTitle1(u"Mass");
  add(u"a", u"b", u"c");
  EXPECT_EQ(utf8(frame(2).getId()), "frame_statistics_summary_3");
}

TEST_F(StatisticsSummary, MakesStylesOfItsOwnWhereTheIdsExist) {
  LumoStyle const* const frameStyle = graph.addStyle(u"frame_statistics_summary_1s");
  LumoStyle const* const labelStyle = graph.addStyle(u"label_statistics_summary_1s");
  add(u"a", u"b", u"c");
  ASSERT_NE(frame().getStyle(), nullptr);
  EXPECT_NE(frame().getStyle(), frameStyle);
  ASSERT_NE(label().getStyle(), nullptr);
  EXPECT_NE(label().getStyle(), labelStyle);
}

TEST_F(StatisticsSummary, WorksOnAChartWithoutGraph) {
  LumoDocument other;
  XGraph(*other.getVisualization()).AddHistogramStatisticsSummary(element, nullptr, nullptr, nullptr);
  EXPECT_THAT(ids(other.getVisualization()->getLabelFrames()), ElementsAre("frame_statistics_summary_1"));
  expectNoReport(recorder);
}

TEST_F(StatisticsSummary, TouchesNoDataStore) {
  recorder.clear();
  add(u"a", u"b", u"c");
  EXPECT_THAT(recorder.lines(), IsEmpty());
}

TEST_F(StatisticsSummary, ReportsAFailureAndKeepsWhatWasWritten) {
  expectFailuresToKeepWhatWasWritten(recorder, addSummary(), [](kestrel::host::Recorder const& done) {
    expectGuardReport(done, "Error in XGraph::AddHistogramStatisticsSummary()");
  });
}

TEST_F(StatisticsSummary, LetsTheHostsUnwindingSignalPass) {
  expectUnwindingToKeepWhatWasWritten(recorder, addSummary());
}
