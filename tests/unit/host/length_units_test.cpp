// One table of units for the sizes of texts in charts and in templates.

#include "length_units.h"

#include "frame_layout_fixture.h"
#include "template_fixture.h"

#include "host/templates.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

using namespace kestrel::test;
using kestrel::host::lengthUnits;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class UnitsOfLengths : public TemplateTest {};

TEST_F(UnitsOfLengths, AreThose) {
  std::vector<std::string> names;
  for (auto const& unit : lengthUnits) names.emplace_back(unit.name);
  EXPECT_THAT(names, ElementsAre("px", "pt", "mm", "cm", "in", "%"));
}

TEST_F(UnitsOfLengths, AreThoseOfTemplatesTheirSchemaAndTheLayout) {
  for (auto const& unit : lengthUnits) {
    std::string const name(unit.name);
    std::string const size = "48" + name;
    load(R"(<labelFrame id="frame_title_1"><label><text>T</text></label></labelFrame>)");
    std::string const instructions = R"(<setFont part="title" size=")" + size + R"("/>)" +
                                     R"(<setLook part="chart"><style padding=")" + size + R"("/></setLook>)" +
                                     R"(<setLook part="gridline"><style stroke_dasharray=")" + size + "," +
                                     size + R"("/></setLook>)";
    EXPECT_TRUE(apply(instructions)) << name;
    EXPECT_THAT(log(), IsEmpty());
    EXPECT_THAT(templateSchemaErrors(templateOf(instructions)), IsEmpty()) << name;
    FramePacker().packFrames(chart->visualization(), nullptr);
    Box const box = Reader().boxOf(*chart->visualization().getLabelFrames().front());
    double const pixels = unit.pixels == 0 ? 16 * 0.48 : std::min(48 * unit.pixels, 2000.0);
    EXPECT_EQ(box.bottom, std::ceil(pixels * 1.75 - 1e-6)) << name;
  }
}

TEST_F(UnitsOfLengths, AreNamedWhereALengthIsWrong) {
  EXPECT_FALSE(apply(R"(<setFont size="12furlong"/>)"));
  for (auto const& unit : lengthUnits) EXPECT_THAT(log().at(0), HasSubstr(std::string(unit.name)));
}

}  // namespace
