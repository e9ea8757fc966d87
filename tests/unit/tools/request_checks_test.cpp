// What is said of options that do not go together.

#include "chart/request_checks.h"

#include "problem.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using kestrel::tool::binCount;
using kestrel::tool::ChartRequest;
using kestrel::tool::ElementKind;
using kestrel::tool::Problem;
using kestrel::tool::requireSense;

namespace {

/// A request that makes sense.
ChartRequest requestOf(ElementKind element) {
  ChartRequest request;
  request.data = "t.csv";
  request.element = element;
  request.x = "a";
  bool const counts = element == ElementKind::Histogram || element == ElementKind::Pyramid;
  if (!counts) request.y = "b";
  if (element == ElementKind::Pyramid) request.panelColumns = {"side"};
  return request;
}

std::string problemOf(ChartRequest const& request) {
  try {
    requireSense(request);
  } catch (Problem const& problem) {
    EXPECT_EQ(problem.exit(), kestrel::tool::Exit::BadInput);
    return problem.what();
  }
  return "no problem";
}

struct Nonsense {
  char const* name;
  ElementKind element;
  std::function<void(ChartRequest&)> change;
  char const* problem;
};

class RequestProblem : public testing::TestWithParam<Nonsense> {};

TEST_P(RequestProblem, IsToldInOneSentence) {
  ChartRequest request = requestOf(GetParam().element);
  GetParam().change(request);
  EXPECT_EQ(problemOf(request), GetParam().problem);
}

Nonsense const nonsense[] = {
    {"PointWithoutY", ElementKind::Point, [](auto& request) { request.y.clear(); },
     "--y is required with --element point; name the column of the Y axis"},
    {"BoxWithoutY", ElementKind::Box, [](auto& request) { request.y.clear(); },
     "--y is required with --element box; name the column of the Y axis"},
    {"HistogramWithY", ElementKind::Histogram, [](auto& request) { request.y = "b"; },
     "--y does not go with --element histogram, which counts rows; it goes with point, bar, line, box and "
     "errorbar"},
    {"PyramidWithY", ElementKind::Pyramid, [](auto& request) { request.y = "b"; },
     "--y does not go with --element pyramid, which counts rows; it goes with point, bar, line, box and "
     "errorbar"},
    {"BoxWithZ", ElementKind::Box, [](auto& request) { request.z = "c"; },
     "--z does not go with --element box; it goes with point, bar and line"},
    {"HistogramWithZ", ElementKind::Histogram, [](auto& request) { request.z = "c"; },
     "--z does not go with --element histogram; it goes with point, bar and line"},
    {"ClusteredLine", ElementKind::Line, [](auto& request) { request.cluster = "c"; },
     "--cluster does not go with --element line; it goes with bar, box and errorbar"},
    {"ClusteredHistogram", ElementKind::Histogram, [](auto& request) { request.cluster = "c"; },
     "--cluster does not go with --element histogram; it goes with bar, box and errorbar"},
    {"StackedPoint", ElementKind::Point, [](auto& request) { request.stack = "c"; },
     "--stack does not go with --element point; it goes with bar, histogram and pyramid"},
    {"StackedBox", ElementKind::Box, [](auto& request) { request.stack = "c"; },
     "--stack does not go with --element box; it goes with bar, histogram and pyramid"},
    {"LabelOfABar", ElementKind::Bar, [](auto& request) { request.label = "c"; },
     "--label does not go with --element bar; it goes with box"},
    {"BinsOfABar", ElementKind::Bar, [](auto& request) { request.bins = "5"; },
     "--bins does not go with --element bar; it goes with histogram and pyramid"},
    {"PyramidOnItsSide", ElementKind::Pyramid, [](auto& request) { request.transposed = true; },
     "--transpose does not go with --element pyramid, which lies on its side already; it goes with point, "
     "bar, line, histogram, box and errorbar"},
    {"NoBins", ElementKind::Histogram, [](auto& request) { request.bins = "0"; },
     "--bins '0' is no whole number above 0; give the number of bins, such as 20"},
    {"FewerThanNoBins", ElementKind::Pyramid, [](auto& request) { request.bins = "-3"; },
     "--bins '-3' is no whole number above 0; give the number of bins, such as 20"},
    {"HalfABin", ElementKind::Histogram, [](auto& request) { request.bins = "2.5"; },
     "--bins '2.5' is no whole number above 0; give the number of bins, such as 20"},
    {"BinsInWords", ElementKind::Histogram, [](auto& request) { request.bins = "many"; },
     "--bins 'many' is no whole number above 0; give the number of bins, such as 20"},
    {"MoreBinsThanAnyNumber", ElementKind::Histogram, [](auto& request) { request.bins = "3e9"; },
     "--bins '3e9' is no whole number above 0; give the number of bins, such as 20"},
    {"ClusterAndStack", ElementKind::Bar, [](auto& request) { request.cluster = request.stack = "c"; },
     "--cluster and --stack exclude each other; leave one of them out"},
    {"ClusterAndColor", ElementKind::Bar, [](auto& request) { request.cluster = request.color = "c"; },
     "--cluster and --color exclude each other; leave one of them out"},
    {"StackAndColor", ElementKind::Histogram, [](auto& request) { request.stack = request.color = "c"; },
     "--stack and --color exclude each other; leave one of them out"},
    {"PanelTwice", ElementKind::Point,
     [](auto& request) {
       request.panelRows = {"c", "d"};
       request.panelColumns = {"c"};
     },
     "--panel-row and --panel-column name the column 'c' twice; a column splits the chart once"},
    {"PanelRowTwice", ElementKind::Point,
     [](auto& request) {
       request.panelRows = {"c", "c"};
     },
     "--panel-row and --panel-column name the column 'c' twice; a column splits the chart once"},
    {"PyramidWithoutSides", ElementKind::Pyramid, [](auto& request) { request.panelColumns.clear(); },
     "--element pyramid needs --panel-column once, with a column of two categories, one for each side; it "
     "was not given"},
    {"PyramidOfTwoSplits", ElementKind::Pyramid,
     [](auto& request) {
       request.panelColumns = {"c", "d"};
     },
     "--element pyramid needs --panel-column once, with a column of two categories, one for each side; it "
     "was given 2 times"},
    {"FourFootnotes", ElementKind::Point,
     [](auto& request) {
       request.footnotes = {"1", "2", "3", "4"};
     },
     "--footnote was given 4 times; a chart has up to 3 footnotes"},
};

INSTANTIATE_TEST_SUITE_P(Of, RequestProblem, testing::ValuesIn(nonsense),
                         [](auto const& row) { return row.param.name; });

class SensibleRequest : public testing::TestWithParam<Nonsense> {};

TEST_P(SensibleRequest, HasNoProblem) {
  ChartRequest request = requestOf(GetParam().element);
  GetParam().change(request);
  EXPECT_EQ(problemOf(request), "no problem");
}

Nonsense const sense[] = {
    {"Point", ElementKind::Point, [](auto& request) { request.z = request.color = "c"; }, ""},
    {"ClusteredBar", ElementKind::Bar, [](auto& request) { request.cluster = "c"; }, ""},
    {"ClusteredBox", ElementKind::Box, [](auto& request) { request.cluster = request.label = "c"; }, ""},
    {"ClusteredErrorBar", ElementKind::ErrorBar, [](auto& request) { request.cluster = "c"; }, ""},
    {"StackedBar", ElementKind::Bar, [](auto& request) { request.stack = "c"; }, ""},
    {"StackedHistogram", ElementKind::Histogram,
     [](auto& request) {
       request.stack = "c";
       request.bins = "1";
     },
     ""},
    {"StackedPyramid", ElementKind::Pyramid,
     [](auto& request) {
       request.stack = "c";
       request.bins = "2147483647";
       request.panelRows = {"d", "e"};
     },
     ""},
    {"TransposedHistogram", ElementKind::Histogram, [](auto& request) { request.transposed = true; }, ""},
    {"CrossedPanels", ElementKind::Line,
     [](auto& request) {
       request.panelRows = {"c", "d"};
       request.panelColumns = {"e", "f"};
     },
     ""},
    {"ThreeFootnotes", ElementKind::Line,
     [](auto& request) {
       request.footnotes = {"1", "1", "1"};
     },
     ""},
};

INSTANTIATE_TEST_SUITE_P(Of, SensibleRequest, testing::ValuesIn(sense),
                         [](auto const& row) { return row.param.name; });

TEST(BinCount, IsTheNumberThatWasGiven) {
  ChartRequest request;
  request.bins = "20";
  EXPECT_EQ(binCount(request), 20);
}

TEST(BinCount, IsLeftToTheClientWhereNoneWasGiven) { EXPECT_EQ(binCount(ChartRequest()), -1); }

}  // namespace
