// What every finished chart gets.

#include "date_text.h"
#include "updater_fixture.h"

#include "host/chartbase.h"
#include "host/messages.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/paneling.h"

#include <gmock/gmock.h>

#include <ctime>
#include <ostream>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

// --- The updater

/// A chart without anything in it.
class EmptyChart : public ChartTest {
 protected:
  LumoDocument document;
  LumoVisualization& visualization = *document.getVisualization();
};

TEST_F(EmptyChart, GetsAContainerStyleFromTheUpdaterItself) {
  { ChartUpdater const updater(document); }
  ASSERT_EQ(visualization.getStyles().size(), 1u);
  EXPECT_EQ(utf8(visualization.getStyles().front()->getId()), "container");
}

TEST_F(EmptyChart, KeepsTheContainerStyleThatItHas) {
  visualization.addStyle()->setId(u"other");
  visualization.addStyle()->setId(ChartBase::_container);
  ChangeTrap const trap(document, 0, [] { ADD_FAILURE() << "the chart changes"; });
  ChartUpdater const updater(document);
}

TEST_F(EmptyChart, HasItsFirstContainerStyleWorkedOn) {
  LumoStyle& first = *visualization.addStyle();
  first.setId(ChartBase::_container);
  first.setColor(u"red");
  LumoStyle& second = *visualization.addStyle();
  second.setId(ChartBase::_container);
  second.setColor(u"red");
  ChartUpdater(document).AddDefaultLUMOMLLooks();
  EXPECT_EQ(first.getColor(), nullptr);
  EXPECT_EQ(utf8(second.getColor()), "red");
}

TEST_F(EmptyChart, DoesNotTakeAStyleWithinAnotherOneForItsContainer) {
  visualization.addStyle()->addStyle()->setId(ChartBase::_container);
  ChartUpdater const updater(document);
  EXPECT_EQ(visualization.getStyles().size(), 2u);
}

TEST_F(EmptyChart, StaysEmptyWhereTheContainerStyleCannotBeMade) {
  std::string const before = document.AsUTF8();
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(ChartUpdater{document}, VexaGoToCaller);
  EXPECT_EQ(document.AsUTF8(), before);
}

// --- The date

struct Day {
  char const* name;
  int year;
  int month;
  int day;
  char const* text;
};
void PrintTo(Day const& day, std::ostream* out) { *out << day.name; }

class DateText : public ::testing::TestWithParam<Day> {};

TEST_P(DateText, HasFourTwoAndTwoDigits) {
  std::tm day{};
  day.tm_year = GetParam().year - 1900;
  day.tm_mon = GetParam().month - 1;
  day.tm_mday = GetParam().day;
  EXPECT_EQ(dateText(day).toUTF8(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Days, DateText,
                         ::testing::Values(Day{"BothPartsFilled", 2024, 3, 5, "2024-03-05"},
                                           Day{"NeitherPartFilled", 2024, 10, 20, "2024-10-20"},
                                           Day{"LastFilledMonth", 2024, 9, 30, "2024-09-30"},
                                           Day{"LastFilledDay", 2024, 12, 9, "2024-12-09"},
                                           Day{"FirstDayOfTwoDigits", 2024, 1, 10, "2024-01-10"},
                                           Day{"EndOfACentury", 1999, 12, 31, "1999-12-31"}),
                         [](auto const& tested) { return tested.param.name; });

class DefaultLooks : public UpdaterTest {};

std::string today() {
  std::time_t const now = std::time(nullptr);
  return dateText(*std::localtime(&now)).toUTF8();
}

TEST_F(DefaultLooks, AreOfToday) {
  std::string const before = today();
  updater.AddDefaultLooks();
  EXPECT_THAT(attribute(&visualization, u"date"), AnyOf(before, today()));
}

TEST_F(DefaultLooks, TakeThePlaceOfAnOlderDate) {
  visualization.setDate(u"1999-12-31");
  updater.AddDefaultLooks();
  EXPECT_NE(attribute(&visualization, u"date"), "1999-12-31");
}

// --- The repository

TEST_F(DefaultLooks, AreADateARepositoryWithOneStyleAndARecord) {
  EXPECT_THAT(withoutDate(writesOf([this] { updater.AddDefaultLooks(); })), ElementsAreArray(defaultLooks()));
}

TEST_F(DefaultLooks, KeepTheRepositoryThatIsThere) {
  visualization.addStyleCycle(u"other");
  visualization.addStyleCycle(ChartBase::_styleCycleRepository);
  updater.AddDefaultLooks();
  EXPECT_THAT(idsOf(visualization, u"styleCycle"), ElementsAre("other", "styleCycleRepository"));
  EXPECT_THAT(childTags(*visualization.getStyleCycles()[1]), IsEmpty());
}

TEST_F(DefaultLooks, AddARepositoryBesideOtherCycles) {
  visualization.addStyleCycle(u"stylecyclerepository");
  updater.AddDefaultLooks();
  EXPECT_THAT(idsOf(visualization, u"styleCycle"),
              ElementsAre("stylecyclerepository", "styleCycleRepository"));
}

TEST_F(DefaultLooks, TakeTheLastOfTwoRepositories) {
  visualization.addStyleCycle(ChartBase::_styleCycleRepository);
  LumoStyleCycle* const last = visualization.addStyleCycle(ChartBase::_styleCycleRepository);
  updater.AddDefaultLooks();
  EXPECT_EQ(visualization.getStyleCycles().size(), 2u);
  EXPECT_EQ(record().getStyleCycleRepository(), last);
}

// --- Panels

struct Matrix {
  char const* name;
  std::vector<char16_t const*> points;
  char const* topDown;
};
void PrintTo(Matrix const& row, std::ostream* out) { *out << row.name; }

class PanelOrder : public UpdaterTest, public ::testing::WithParamInterface<Matrix> {};

TEST_P(PanelOrder, GoesByTheOnlyPoints) {
  LumoFacetLayout* const layout = graph.addFacetLayout();
  for (char16_t const* id : GetParam().points) graph.addPoint(id);
  updater.AddDefaultLooks();
  EXPECT_EQ(attribute(layout, u"topDown"), GetParam().topDown);
}

INSTANTIATE_TEST_SUITE_P(
    Charts, PanelOrder,
    ::testing::Values(Matrix{"NoPoints", {}, "true"}, Matrix{"AMatrix", {u"matrixscatter"}, "false"},
                      Matrix{"AMatrixSomewhereInTheId", {u"element_matrixscatter_1"}, "false"},
                      Matrix{"OtherPoints", {u"element_point_1"}, "true"},
                      Matrix{"PointsWithoutId", {nullptr}, "true"},
                      Matrix{"AMatrixInUpperCase", {u"MatrixScatter"}, "true"},
                      Matrix{"AMatrixBesideOtherPoints", {u"matrixscatter", u"element_point_1"}, "true"},
                      Matrix{"TwoMatrices", {u"matrixscatter", u"matrixscatter"}, "true"}),
    [](auto const& tested) { return tested.param.name; });

TEST_F(DefaultLooks, OrderThePanelsOfEachGraphByItsOwnPoints) {
  graph.addFacetLayout();
  graph.addPoint(u"matrixscatter");
  LumoGraph* const second = visualization.addGraph(u"second");
  second->addFacetLayout();
  updater.AddDefaultLooks();
  EXPECT_EQ(attribute(graph.getFacetLayout(), u"topDown"), "false");
  EXPECT_EQ(attribute(second->getFacetLayout(), u"topDown"), "true");
}

TEST_F(DefaultLooks, MakeNoPanels) {
  graph.addPoint(u"matrixscatter");
  updater.AddDefaultLooks();
  EXPECT_EQ(graph.getFacetLayout(), nullptr);
}

TEST_F(DefaultLooks, LeaveGraphsInContainersAlone) {
  LumoFacetLayout* const layout = visualization.addContainer(u"part")->addGraph(u"inner")->addFacetLayout();
  updater.AddDefaultLooks();
  EXPECT_EQ(attribute(layout, u"topDown"), "(absent)");
}

// --- Bins

TEST_F(DefaultLooks, ExtendTheFirstBinsOfTheOnlyIntervalsThatMethod26Counts) {
  LumoInterval& interval = *graph.addInterval(u"bars");
  interval.addBinStatistic();
  interval.addBinStatistic();
  addSummary(interval, 26);
  updater.AddDefaultLooks();
  EXPECT_EQ(attribute(interval.getBinStatistics()[0], u"augment"), "true");
  EXPECT_EQ(attribute(interval.getBinStatistics()[1], u"augment"), "(absent)");
}

TEST_F(DefaultLooks, LeaveTheBinsOfTwoIntervalsAlone) {
  LumoInterval& interval = *graph.addInterval(u"bars");
  interval.addBinStatistic();
  addSummary(interval, 26);
  graph.addInterval(u"more");
  updater.AddDefaultLooks();
  EXPECT_EQ(attribute(interval.getBinStatistics()[0], u"augment"), "(absent)");
}

TEST_F(DefaultLooks, LeaveBinsThatAnotherMethodCountsFirstAlone) {
  LumoInterval& interval = *graph.addInterval(u"bars");
  interval.addBinStatistic();
  addSummary(interval, 10);
  addSummary(interval, 26);
  updater.AddDefaultLooks();
  EXPECT_EQ(attribute(interval.getBinStatistics()[0], u"augment"), "(absent)");
}

TEST_F(DefaultLooks, LeaveBinsThatNothingCountsAlone) {
  LumoInterval& interval = *graph.addInterval(u"bars");
  interval.addBinStatistic();
  updater.AddDefaultLooks();
  EXPECT_EQ(attribute(interval.getBinStatistics()[0], u"augment"), "(absent)");
}

TEST_F(DefaultLooks, MakeNoBins) {
  LumoInterval& interval = *graph.addInterval(u"bars");
  addSummary(interval, 26);
  updater.AddDefaultLooks();
  EXPECT_THAT(interval.getBinStatistics(), IsEmpty());
}

// --- All of them

TEST_F(DefaultLooks, ComeInAFixedOrder) {
  graph.addFacetLayout();
  LumoInterval& interval = *graph.addInterval(u"bars");
  interval.addBinStatistic();
  addSummary(interval, 26);
  visualization.addGraph(u"second")->addFacetLayout();
  auto expected = defaultLooks();
  expected.insert(expected.end(),
                  {"facetLayout topDown=true", "binStatistic augment=true", "facetLayout topDown=true"});
  EXPECT_THAT(withoutDate(writesOf([this] { updater.AddDefaultLooks(); })), ElementsAreArray(expected));
}

TEST_F(DefaultLooks, AreWrittenAgainByASecondCall) {
  graph.addFacetLayout();
  updater.AddDefaultLooks();
  EXPECT_THAT(withoutDate(writesOf([this] { updater.AddDefaultLooks(); })),
              ElementsAre("visualization writes the same", "extension writes the same",
                          "facetLayout writes the same"));
}

TEST_F(DefaultLooks, NeedNoGraph) {
  LumoDocument empty;
  ChartUpdater(empty).AddDefaultLooks();
  EXPECT_THAT(empty.getVisualization()->getGraphs(), IsEmpty());
  EXPECT_EQ(empty.getVisualization()->getStyleCycles().size(), 1u);
}

TEST_F(DefaultLooks, LetEveryFailurePassAndKeepWhatWasWritten) {
  FailingOperation const operation = {
      [](ChartOfOneRun& chart) {
        chart.graph.getGraph()->addFacetLayout();
        chart.document.getVisualization()->addLegend(u"legend1");
        LumoLabelFrame* const frame = chart.document.getVisualization()->addLabelFrame(u"frame_title_1");
        frame->addLabel()->addText()->setText(u" ");
      },
      [](ChartOfOneRun& chart) { ChartUpdater(chart.document).AddDefaultLooks(); }};
  expectFailuresToPass(recorder, operation);
}

// --- Questions

class Questions : public UpdaterTest {};

TEST_F(Questions, SayThatNoChartIsAPie) {
  EXPECT_FALSE(updater.isChartPie());
  graph.addCoordinates(u"coordinates0")->addPolarTransform();
  EXPECT_FALSE(updater.isChartPie());
}

TEST_F(Questions, FindAnIdInAList) {
  std::vector<ChartString> ids = {u"first", u"second"};
  EXPECT_TRUE(updater.idExists(u"first", ids));
  EXPECT_TRUE(updater.idExists(u"second", ids));
}

TEST_F(Questions, DoNotFindAnIdOfOtherCaseOrInPart) {
  std::vector<ChartString> ids = {u"first", u"second"};
  EXPECT_FALSE(updater.idExists(u"First", ids));
  EXPECT_FALSE(updater.idExists(u"fir", ids));
}

TEST_F(Questions, FindNoIdInAnEmptyList) {
  std::vector<ChartString> none;
  EXPECT_FALSE(updater.idExists(u"first", none));
  EXPECT_FALSE(updater.idExists(u"", none));
}

}  // namespace
}  // namespace kestrel::test
