// Charts with very many label frames are explained in a time that grows as they do.

#include "chart_test.h"
#include "explain/explanation.h"
#include "work_growth.h"
#include "xdocument.h"

#include "model/document.h"

#include <ostream>

using namespace kestrel::tool;

namespace {

/// The start tags of a frame and of its label.
struct FrameRow {
  char const* name;
  char const* frame;
  char const* label;
};

void PrintTo(FrameRow const& row, std::ostream* out) { *out << row.name; }

constexpr FrameRow frameRows[] = {
    {"WithoutIds", "<labelFrame>", "<label style=\"s\">"},
    {"OfOneId", "<labelFrame id=\"frame_title_1\">", "<label style=\"s\">"},
    {"OfOneRole", "<labelFrame>", "<label style=\"s\" purpose=\"5\">"},
    {"ThatArePlaced", "<labelFrame><location method=\"0\" part=\"3\" value=\"100%\"/>",
     "<label style=\"s\" purpose=\"5\">"},
};

std::string chartWith(FrameRow const& row, std::size_t frames) {
  std::string text = "<visualization xmlns=\"http://xml.vexa.example/visualization\" version=\"2.8\">";
  for (std::size_t at = 0; at < frames; ++at) {
    text += std::string(row.frame) + row.label + "<text>T</text></label></labelFrame>";
  }
  return text + "<style id=\"s\" font_size=\"10pt\"/></visualization>";
}

void explain(std::string const& text) {
  XDocument document(text);
  LumoVisualization const& chart = *document.getVisualization();
  Provenance provenance;
  provenance.noteBuilder(chart);
  document.getChartXML();
  EXPECT_NE(explanationText({"c.xml", {}, explainElements(chart, provenance)}, false), "");
}

class ExplanationOfManyFrames : public kestrel::test::ChartTest,
                                public testing::WithParamInterface<FrameRow> {};

INSTANTIATE_TEST_SUITE_P(, ExplanationOfManyFrames, testing::ValuesIn(frameRows),
                         [](auto const& row) { return std::string(row.param.name); });

TEST_P(ExplanationOfManyFrames, CostsAsMuchForEachAsThatOfFew) {
  auto const work = [](std::size_t frames) { explain(chartWith(GetParam(), frames)); };
  EXPECT_LT(kestrel::test::growthOf(work, 250), kestrel::test::mostGrowth);
}

}  // namespace
