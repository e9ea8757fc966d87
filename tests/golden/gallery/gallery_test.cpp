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
#include <memory>
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

namespace {

/// The chart without the day on which it was completed, which is not the chart's.
std::string withoutDay(std::string text) {
  std::size_t const day = text.find(" date=\"");
  EXPECT_NE(day, std::string::npos);
  return text.erase(day, text.find('"', day + 7) + 1 - day);
}

/// The services of a host that works by itself, with the messages in memory.
kestrel::host::Host usualHost() {
  kestrel::host::Host host;
  host.channel = std::make_shared<kestrel::host::MemoryChannel>();
  return host;
}

std::string described(Example const& example) {
  XDocument document;
  example.describe(document);
  return document.AsUTF8();
}

void useShippedTemplates(XDocument& document) {
  for (char const* const name : {"default_look", "dark"})
    document.SetChartTemplate(KESTREL_SHARE_DIR "/templates/" + std::string(name) + ".xml");
}

std::string completed(std::string const& text, bool withTemplates) {
  XDocument document(text);
  if (withTemplates) useShippedTemplates(document);
  return withoutDay(document.getChartXML());
}

std::string sent(Example const& example, bool withTemplates) {
  XDocument document;
  example.describe(document);
  if (withTemplates) useShippedTemplates(document);
  EXPECT_TRUE(document.SendChart(false, false, false));
  return withoutDay(document.AsUTF8());
}

}  // namespace

TEST_P(Gallery, IsCompletedToTheSameBytesEachTime) {
  kestrel::host::ScopedHost const scope(usualHost());
  std::string const text = described(GetParam());
  EXPECT_TRUE(completed(text, false) == completed(text, false));
}

TEST_P(Gallery, IsCompletedToTheSameBytesEachTimeWithTemplates) {
  kestrel::host::ScopedHost const scope(usualHost());
  std::string const text = described(GetParam());
  std::string const once = completed(text, true);
  EXPECT_NE(once.find("#1E1E1E"), std::string::npos) << "no template was applied";
  EXPECT_TRUE(once == completed(text, true));
}

TEST_P(Gallery, IsSentAsTheSameTextEachTimeThatItIsDescribed) {
  kestrel::host::ScopedHost const scope(usualHost());
  for (bool const withTemplates : {false, true}) {
    EXPECT_TRUE(sent(GetParam(), withTemplates) == sent(GetParam(), withTemplates));
  }
}

TEST(GalleryTable, NamesEachChartOnce) {
  std::set<std::string> names;
  for (Example const& example : examples()) names.insert(example.name);
  EXPECT_EQ(names.size(), examples().size());
}
