// Very many frames are laid out in a time that grows as they do.

#include "template_fixture.h"
#include "work_growth.h"

#include "host/templates.h"
#include "model/graph.h"

#include <ostream>

using namespace kestrel::test;

namespace {

/// Frames that a layout has to hold against each other, if it is not careful.
struct ManyRow {
  char const* name;
  /// `#` stands for the number of the frame, `@` for the next number.
  char const* frame;
};

void PrintTo(ManyRow const& row, std::ostream* out) { *out << row.name; }

constexpr ManyRow manyRows[] = {
    {"FootnotesWithoutIds", R"(<labelFrame><label purpose="5"><text>T</text></label></labelFrame>)"},
    {"FramesThatLieOnEachOther",
     R"(<labelFrame id="frame_statistics_summary_#"><location method="3" part="3" target="frame_statistics_summary_@"/>)"
     R"(<label><text>T</text></label></labelFrame>)"},
    {"TitlesBesidePlacedOnes",
     R"(<labelFrame id="frame_title_1"><location method="0" part="2" value="#px"/><location method="0" part="5" value="1px"/>)"
     R"(<label><text>T</text></label></labelFrame>)"
     R"(<labelFrame id="frame_title_2"><label><text>T</text></label></labelFrame>)"},
};

std::string chartWith(ManyRow const& row, std::size_t frames) {
  std::string text;
  for (std::size_t at = 1; at <= frames; ++at) {
    for (char const* character = row.frame; *character != '\0'; ++character) {
      if (*character == '#') {
        text += std::to_string(at);
      } else if (*character == '@') {
        text += std::to_string(at + 1);
      } else {
        text += *character;
      }
    }
  }
  return chartOf(text + R"(<labelFrame id="frame_statistics_summary_)" + std::to_string(frames + 1) +
                 R"("><location method="0" part="3" value="100%"/>)" +
                 R"(<label><text>T</text></label></labelFrame>)");
}

class ManyFrames : public testing::TestWithParam<ManyRow> {};

INSTANTIATE_TEST_SUITE_P(, ManyFrames, testing::ValuesIn(manyRows),
                         [](auto const& row) { return std::string(row.param.name); });

TEST_P(ManyFrames, CostAsMuchForEachAsFew) {
  auto const work = [](std::size_t frames) {
    ParsedChart chart(chartWith(GetParam(), frames));
    FramePacker().packFrames(chart.visualization(), nullptr);
  };
  EXPECT_LT(growthOf(work, 500), mostGrowth);
}

/// A chart with one graph of so many dimensions.
class ManyDimensions : public testing::Test {
 protected:
  static void findRoles(std::size_t dimensions) {
    LumoDocument document;
    LumoGraph& graph = *document.getVisualization()->addGraph(u"g");
    LumoCoordinates& coordinates = *graph.addCoordinates(u"c");
    for (std::size_t at = 0; at < dimensions; ++at) coordinates.addDimension();
    BaseTemplate const part(nullptr, *document.getVisualization());
    EXPECT_EQ(part.getDimensionsByRole(graph, ChartString(u"z")).size(), 1u);
  }
};

TEST_F(ManyDimensions, CostAsMuchForEachAsFew) { EXPECT_LT(growthOf(findRoles, 1000), mostGrowth); }

}  // namespace
