// The columns of a request, and what is said of those that cannot stand for what they are to stand for.

#include "chart/chart_data.h"

#include "chart_table.h"

#include <gmock/gmock.h>

#include <functional>
#include <limits>
#include <string>

using kestrel::test::dataOf;
using kestrel::test::problemWith;
using kestrel::tool::ChartData;
using kestrel::tool::ChartRequest;
using kestrel::tool::ElementKind;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr double missing = std::numeric_limits<double>::lowest();

/// A column of each type: numbers, dates, texts, and texts of two categories.
constexpr char const* table =
    "number,date,text,side\n"
    "1,2024-01-01,pear,left\n"
    "2,2024-01-02,apple,right\n"
    "2,2024-01-03,fig,left\n"
    "4,2024-01-03,apple,\n";

ChartRequest requestOf(ElementKind element, std::string const& x, std::string const& y = "") {
  ChartRequest request;
  request.element = element;
  request.x = x;
  request.y = y;
  return request;
}

ChartRequest pyramid() {
  ChartRequest request = requestOf(ElementKind::Pyramid, "number");
  request.panelColumns = {"side"};
  return request;
}

struct Unfit {
  char const* name;
  ChartRequest request;
  std::function<void(ChartRequest&)> change;
  char const* problem;
};

class UnfitColumn : public testing::TestWithParam<Unfit> {};

TEST_P(UnfitColumn, IsAProblem) {
  ChartRequest request = GetParam().request;
  GetParam().change(request);
  EXPECT_EQ(problemWith(table, request), GetParam().problem);
}

ChartRequest const bars = requestOf(ElementKind::Bar, "text", "number");
ChartRequest const points = requestOf(ElementKind::Point, "number", "number");

Unfit const unfit[] = {
    {"ClusterOfNumbers", bars, [](auto& request) { request.cluster = "number"; },
     "t.csv: column 'number' for --cluster has numbers, but categories are needed; choose a column of text, "
     "or give --categorical too with this one"},
    {"StackOfDates", bars, [](auto& request) { request.stack = "date"; },
     "t.csv: column 'date' for --stack has dates, but categories are needed; choose a column of text, or "
     "give --categorical too with this one"},
    {"PanelRowOfNumbers", points,
     [](auto& request) {
       request.panelRows = {"text", "number"};
     },
     "t.csv: column 'number' for --panel-row has numbers, but categories are needed; choose a column of "
     "text, or give --categorical too with this one"},
    {"PanelColumnOfNumbers", points, [](auto& request) { request.panelColumns = {"number"}; },
     "t.csv: column 'number' for --panel-column has numbers, but categories are needed; choose a column of "
     "text, or give --categorical too with this one"},
    {"SortedNumbers", points, [](auto& request) { request.sort = "ascending"; },
     "t.csv: column 'number' for --x with --sort has numbers, but categories are needed; choose a column of "
     "text, or give --categorical too with this one"},
    {"ExcludedNumber", points, [](auto& request) { request.excluded = {"1"}; },
     "t.csv: column 'number' for --x with --exclude has numbers, but categories are needed; choose a column "
     "of text, or give --categorical too with this one"},
    {"HistogramOfTexts", requestOf(ElementKind::Histogram, "text"), [](auto&) {},
     "t.csv: column 'text' for --x has categories, but --element histogram needs numbers or dates; choose "
     "another column"},
    {"PyramidOfTexts", pyramid(), [](auto& request) { request.x = "text"; },
     "t.csv: column 'text' for --x has categories, but --element pyramid needs numbers or dates; choose "
     "another column"},
    {"BoxOfTexts", requestOf(ElementKind::Box, "text", "side"), [](auto&) {},
     "t.csv: column 'side' for --y has categories, but --element box needs numbers or dates; choose another "
     "column"},
    {"ErrorBarOfTexts", requestOf(ElementKind::ErrorBar, "text", "side"), [](auto&) {},
     "t.csv: column 'side' for --y has categories, but --element errorbar needs numbers or dates; choose "
     "another column"},
    {"PyramidOfThreeSides", pyramid(), [](auto& request) { request.panelColumns = {"text"}; },
     "t.csv: column 'text' for --panel-column has 3 categories, but a pyramid has two sides; choose a column "
     "of two categories"},
    {"ExcludedCategoryThatIsNot", bars, [](auto& request) { request.excluded = {"aple"}; },
     "t.csv: there is no category 'aple' in column 'text' for --exclude; did you mean 'apple'? The "
     "categories are: pear, apple, fig"},
    {"ReferenceOnCategories", bars, [](auto& request) { request.referenceX = {"1"}; },
     "--reference-x needs an axis of numbers or dates, but column 'text' has categories; leave it out, or "
     "choose another column for the axis"},
    {"ReferenceThatIsNoNumber", bars,
     [](auto& request) {
       request.referenceY = {"1", "high"};
     },
     "--reference-y 'high' is no number; its axis shows numbers, such as 12.5"},
};

INSTANTIATE_TEST_SUITE_P(As, UnfitColumn, testing::ValuesIn(unfit),
                         [](auto const& row) { return row.param.name; });

TEST(ChartColumns, AreReadOnceForAllTheirRoles) {
  ChartRequest request = bars;
  request.cluster = "side";
  request.panelColumns = {"side"};
  request.panelRows = {"text"};
  ChartData const data = dataOf(table, request);
  EXPECT_EQ(data.columns.size(), 3u);
  EXPECT_EQ(data.x, 0u);
  EXPECT_EQ(data.y, 1u);
  EXPECT_EQ(data.cluster, 2u);
  EXPECT_THAT(data.panelColumns, ElementsAre(2u));
  EXPECT_THAT(data.panelRows, ElementsAre(0u));
}

TEST(ChartColumns, OfACountHaveNoY) {
  ChartData const data = dataOf(table, requestOf(ElementKind::Histogram, "number"));
  EXPECT_EQ(data.columns.size(), 1u);
  EXPECT_FALSE(data.y.has_value());
}

TEST(ChartColumns, OfNumbersSplitWhereTheyAreCategorical) {
  ChartRequest request = bars;
  request.stack = "number";
  request.categorical = {"number"};
  EXPECT_EQ(problemWith(table, request), "no problem");
}

TEST(ChartColumns, KeepTheOrderOfTheTableUnlessSorted) {
  EXPECT_THAT(dataOf(table, bars).columns[0].categories, ElementsAre("pear", "apple", "fig"));
}

TEST(ChartColumns, AreNumberedAnewInSortedOrderWhicheverWayItGoes) {
  for (char const* const order : {"ascending", "descending"}) {
    ChartRequest request = bars;
    request.sort = order;
    ChartData const data = dataOf(table, request);
    EXPECT_THAT(data.columns[0].categories, ElementsAre("apple", "fig", "pear"));
    EXPECT_THAT(data.columns[0].values, ElementsAre(3, 1, 2, 1));
  }
}

TEST(ChartColumns, HaveTheExcludedCategoriesByTheirNumbersInSortedOrder) {
  ChartRequest request = bars;
  request.sort = "ascending";
  request.excluded = {"pear", "apple"};
  EXPECT_THAT(dataOf(table, request).excluded, ElementsAre(3, 1));
}

TEST(ChartColumns, OfAPyramidAreWithoutRowsThatHaveNoSide) {
  ChartData const data = dataOf(table, pyramid());
  EXPECT_EQ(data.droppedRows, 1u);
  EXPECT_EQ(data.rows(), 3u);
  EXPECT_THAT(data.columns[0].values, ElementsAre(1, 2, 2));
  EXPECT_THAT(data.columns[1].values, ElementsAre(1, 2, 1));
  EXPECT_EQ(data.columns[1].missing, 0u);
}

TEST(ChartColumns, OfAPyramidKeepOtherMissingValues) {
  ChartRequest request = pyramid();
  ChartData const data = dataOf("number,side\n,left\n,\n1,right\n", request);
  EXPECT_THAT(data.columns[0].values, ElementsAre(missing, 1));
  EXPECT_EQ(data.columns[0].missing, 1u);
}

TEST(ChartColumns, OfPanelsKeepRowsWithoutAPanel) {
  ChartRequest request = points;
  request.panelColumns = {"side"};
  ChartData const data = dataOf(table, request);
  EXPECT_EQ(data.rows(), 4u);
  EXPECT_EQ(data.droppedRows, 0u);
}

TEST(ChartReferences, AreOfTheAxesThatTheyAreGivenFor) {
  ChartRequest request = requestOf(ElementKind::Line, "date", "number");
  request.referenceX = {"1970-01-02"};
  request.referenceY = {"2.5", "-1"};
  ChartData const data = dataOf(table, request);
  EXPECT_THAT(data.referenceX, ElementsAre(86400));
  EXPECT_THAT(data.referenceY, ElementsAre(2.5, -1));
  EXPECT_THAT(data.excluded, IsEmpty());
}

TEST(ChartReferences, OfCountsAreNumbers) {
  ChartRequest request = requestOf(ElementKind::Histogram, "date");
  request.referenceY = {"10"};
  EXPECT_THAT(dataOf(table, request).referenceY, ElementsAre(10));
}

}  // namespace
