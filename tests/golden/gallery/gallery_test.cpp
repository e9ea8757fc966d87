// The charts of the gallery, each as the text that a client would get. The expected texts stand beside this
// file; what their data streams hold is read back in arrow_reader.

#include "gallery.h"

#include "chart_test.h"
#include "golden.h"
#include "schema_validator.h"
#include "wire_decoder.h"
#include "xdocument.h"

#include "model/document.h"

#include <cstdint>
#include <set>
#include <string>

using namespace kestrel::test;
using kestrel::gallery::Example;
using kestrel::gallery::examples;

namespace kestrel::gallery {

// Found by the test library.
static void PrintTo(Example const& example, std::ostream* out) { *out << example.name; }

}  // namespace kestrel::gallery

namespace {

constexpr std::uint32_t chartText = 1;

class Gallery : public ChartTest, public testing::WithParamInterface<Example> {};

std::string caseOf(testing::TestParamInfo<Example> const& tested) {
  std::string name = tested.param.name;
  for (char& character : name) {
    if (character == '-') character = '_';
  }
  return name;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(, Gallery, testing::ValuesIn(examples()), caseOf);

TEST_P(Gallery, ReachesTheClientAsTheExpectedChart) {
  recorder.ignore(kestrel::host::Operation::SetVariableValue);
  XDocument document;
  GetParam().describe(document);
  ASSERT_TRUE(document.SendChart(false, false, false));
  expectNoReport(recorder);
  std::string const sent = inflated(onlyContent(decodeContents(recorder.sent()), chartText).bytes);
  auto const errors = schemaErrors(sent);
  EXPECT_TRUE(errors.empty()) << "not valid: " << (errors.empty() ? "" : errors.front());
  EXPECT_TRUE(sent == document.AsUTF8());
  // The day on which a chart was completed is not the chart's.
  document.getVisualization()->setDate(u"2026-01-31");
  expectGolden(goldenText(*document.getVisualization()), "gallery/" + caseOf({GetParam(), 0}) + ".xml");
}

TEST(GalleryTable, NamesEachChartOnce) {
  std::set<std::string> names;
  for (Example const& example : examples()) names.insert(example.name);
  EXPECT_EQ(names.size(), examples().size());
}
