#include "chart/chart_words.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using kestrel::tool::ChartRequest;
using kestrel::tool::defaultDescription;
using kestrel::tool::ElementKind;

namespace {

struct Description {
  char const* name;
  ElementKind element;
  std::function<void(ChartRequest&)> change;
  char const* sentence;
};

class DefaultDescription : public testing::TestWithParam<Description> {};

TEST_P(DefaultDescription, IsOneSentence) {
  ChartRequest request;
  request.element = GetParam().element;
  request.x = "x";
  bool const counts = request.element == ElementKind::Histogram || request.element == ElementKind::Pyramid;
  if (!counts) request.y = "y";
  GetParam().change(request);
  EXPECT_EQ(defaultDescription(request), GetParam().sentence);
}

Description const descriptions[] = {
    {"Points", ElementKind::Point, [](auto& request) { request.z = "z"; }, "A point chart of y by x and z."},
    {"Bars", ElementKind::Bar, [](auto& request) { request.cluster = "c"; },
     "A bar chart of y by x, clustered by c."},
    {"Lines", ElementKind::Line, [](auto& request) { request.color = "c"; },
     "A line chart of y by x, coloured by c."},
    {"Histogram", ElementKind::Histogram, [](auto& request) { request.stack = "c"; },
     "A histogram of x, stacked by c."},
    {"Boxes", ElementKind::Box, [](auto& request) { request.title = "Title"; },
     "Title: a box plot of y by x."},
    {"ErrorBars", ElementKind::ErrorBar, [](auto& request) { request.title = "Title"; },
     "Title: an error bar chart of y by x."},
    {"Pyramid", ElementKind::Pyramid,
     [](auto& request) {
       request.panelColumns = {"s"};
       request.panelRows = {"r"};
     },
     "A population pyramid of x, split by s and r."},
    {"Panels", ElementKind::Point,
     [](auto& request) {
       request.color = "c";
       request.panelColumns = {"s"};
     },
     "A point chart of y by x, coloured by c, in panels of s."},
};

INSTANTIATE_TEST_SUITE_P(Of, DefaultDescription, testing::ValuesIn(descriptions),
                         [](auto const& row) { return row.param.name; });

}  // namespace
