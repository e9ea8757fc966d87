// What requests of the command line become as charts. The expected texts stand beside this file.

#include "chart/chart_builder.h"
#include "chart/request_checks.h"
#include "chart_test.h"
#include "golden.h"
#include "schema_validator.h"
#include "xdocument.h"

#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <string>

using namespace kestrel::test;
using kestrel::tool::ChartRequest;
using kestrel::tool::ElementKind;

namespace {

constexpr char const* table =
    "day,place,kind,size,weight,side\n"
    "2024-01-01,north,pear,3,1.5,left\n"
    "2024-01-02,south,apple,3,2.5,right\n"
    "2024-01-03,north,fig,4,3.5,left\n"
    "2024-01-04,south,fig,4,4.5,\n";

struct ChartText {
  char const* name;
  ElementKind element;
  char const* x;
  char const* y;
  std::function<void(ChartRequest&)> change;
};

/// A file for the time of a test.
class Table {
 public:
  Table() : mPath(testing::TempDir() + "kestrel_golden_" + std::to_string(::getpid()) + ".csv") {
    std::ofstream(mPath, std::ios::binary) << table;
  }
  ~Table() { std::remove(mPath.c_str()); }
  Table(Table const&) = delete;
  Table& operator=(Table const&) = delete;

  std::string const& path() const { return mPath; }

 private:
  std::string mPath;
};

class RequestedChart : public ChartTest, public testing::WithParamInterface<ChartText> {};

TEST_P(RequestedChart, IsTheExpectedText) {
  Table const file;
  ChartRequest request;
  request.data = file.path();
  request.element = GetParam().element;
  request.x = GetParam().x;
  request.y = GetParam().y;
  GetParam().change(request);
  kestrel::tool::requireSense(request);

  XDocument document;
  kestrel::tool::describeChart(document, request, kestrel::tool::readChartData(request));
  expectNoReport(recorder);
  auto const errors = schemaErrors(document.AsUTF8());
  EXPECT_TRUE(errors.empty()) << "not valid: " << (errors.empty() ? "" : errors.front());
  expectGolden(goldenText(*document.getVisualization()), "tools/" + std::string(GetParam().name) + ".xml");
}

ChartText const charts[] = {
    {"points_in_space", ElementKind::Point, "size", "weight",
     [](auto& request) {
       request.z = "day";
       request.color = "weight";
     }},
    {"bars_clustered_and_arranged", ElementKind::Bar, "kind", "weight",
     [](auto& request) {
       request.cluster = "place";
       request.sort = "descending";
       request.excluded = {"pear", "fig"};
       request.referenceY = {"2"};
       request.transposed = true;
     }},
    {"bars_of_numbers_stacked", ElementKind::Bar, "size", "weight",
     [](auto& request) {
       request.categorical = {"size"};
       request.stack = "kind";
       request.excluded = {"3"};
     }},
    {"line_with_references", ElementKind::Line, "day", "weight",
     [](auto& request) {
       request.color = "place";
       request.referenceX = {"2024-01-02", "2024-01-03T12:00"};
       request.referenceY = {"-0.5"};
     }},
    {"histogram_stacked", ElementKind::Histogram, "weight", "",
     [](auto& request) {
       request.stack = "place";
       request.bins = "4";
     }},
    {"histogram_of_dates", ElementKind::Histogram, "day", "", [](auto& request) { request.yLabel = "Days"; }},
    {"boxes_labelled_by_rows", ElementKind::Box, "place", "weight",
     [](auto& request) { request.cluster = "kind"; }},
    {"boxes_labelled_by_a_column", ElementKind::Box, "place", "weight",
     [](auto& request) {
       request.color = "kind";
       request.label = "day";
     }},
    {"error_bars_in_panels", ElementKind::ErrorBar, "place", "weight",
     [](auto& request) {
       request.panelColumns = {"kind", "side"};
       request.panelRows = {"size"};
       request.categorical = {"size"};
     }},
    {"pyramid", ElementKind::Pyramid, "weight", "",
     [](auto& request) {
       request.panelColumns = {"side"};
       request.panelRows = {"place"};
       request.bins = "3";
     }},
};

INSTANTIATE_TEST_SUITE_P(Of, RequestedChart, testing::ValuesIn(charts),
                         [](auto const& row) { return row.param.name; });

}  // namespace
