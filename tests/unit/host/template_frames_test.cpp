// Frames around the chart and its graphs: addFrame.

#include "template_fixture.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

char const twoGraphs[] =
    R"(<graph id="g" cellStyle="gCell"/><graph id="h"/><style id="container"><style id="gCell" color2="red"/></style>)";

class FrameTest : public TemplateTest {
 protected:
  FrameTest() { load(twoGraphs); }

  std::size_t count(std::string const& part) const {
    std::size_t found = 0;
    std::string const text = chart->text();
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++found;
    return found;
  }
};

struct OwnRow {
  std::string name;
  std::string instruction;
  std::string color2;
  std::string visible;
  bool chart;
};
std::ostream& operator<<(std::ostream& stream, OwnRow const& row) { return stream << row.name; }

// The four that the library itself writes.
OwnRow const libraryFrames[] = {
    {"showOuterFrame",
     R"(<addFrame count="1" styleOnly="true" type="visualization"><style color2="#000000"/></addFrame>)",
     "#000000", "(absent)", true},
    {"hideOuterFrame",
     R"(<addFrame count="1" styleOnly="true" type="visualization"><style color2="transparent"/></addFrame>)",
     "transparent", "(absent)", true},
    {"showInnerFrame",
     R"(<addFrame styleOnly="true" type="graph"><style number="1" color2="#000000" visible="true"/></addFrame>)",
     "#000000", "true", false},
    {"hideInnerFrame",
     R"(<addFrame styleOnly="true" type="graph"><style number="1" color2="transparent" visible="true"/></addFrame>)",
     "transparent", "true", false}};

class LibraryFrameTest : public FrameTest, public testing::WithParamInterface<OwnRow> {};
INSTANTIATE_TEST_SUITE_P(All, LibraryFrameTest, testing::ValuesIn(libraryFrames));

TEST_P(LibraryFrameTest, StylesTheFrameThatEachPlaceHas) {
  OwnRow const& row = GetParam();
  EXPECT_TRUE(apply(row.instruction));
  std::vector<std::string> const styles = row.chart
                                              ? std::vector<std::string>{"template_visualization_style"}
                                              : std::vector<std::string>{"gCell", "template_graph_cellStyle"};
  EXPECT_EQ(styledWith("color2", row.color2), styles);
  for (std::string const& style : styles) EXPECT_EQ(valueOf(style, "visible"), row.visible);
  EXPECT_EQ(count("frameGuide") + count("labelFrame"), 0u);
}

TEST_P(LibraryFrameTest, IsTheSameTheSecondTime) {
  apply(GetParam().instruction);
  std::string const once = chart->text();
  apply(GetParam().instruction);
  EXPECT_EQ(chart->text(), once);
}

TEST_F(FrameTest, OneMoreIsAddedAroundTheChart) {
  EXPECT_TRUE(apply(R"(<addFrame type="visualization"><style color2="blue"/></addFrame>)"));
  EXPECT_NE(chart->text().find(
                R"(<labelFrame id="template_frame" style="template_labelFrame_style">)"
                R"(<location method="0" part="0" value="0%"/><location method="0" part="1" value="100%"/>)"
                R"(<location method="0" part="2" value="0%"/><location method="0" part="3" value="100%"/>)"
                R"(</labelFrame>)"),
            std::string::npos);
  EXPECT_THAT(styledWith("color2", "blue"), ElementsAre("template_labelFrame_style"));
}

TEST_F(FrameTest, OneMoreIsAddedAroundTheDataOfEachGraph) {
  EXPECT_TRUE(apply(R"(<addFrame type="graph" styleOnly="false"><style color2="blue"/></addFrame>)"));
  EXPECT_EQ(count("<frameGuide"), 2u);
  EXPECT_THAT(styledWith("color2", "blue"),
              ElementsAre("template_frameGuide_style", "template_frameGuide_style_1"));
  EXPECT_THAT(styledWith("color2", "red"), ElementsAre("gCell"));
}

TEST_F(FrameTest, CountSaysHowManyAreAdded) {
  apply(R"(<addFrame type="graph" count="3"/><addFrame type="visualization" count="2"/>)");
  EXPECT_EQ(count("<frameGuide"), 6u);
  EXPECT_EQ(count("<labelFrame"), 2u);
}

TEST_F(FrameTest, AddingIsNotIdempotent) {
  std::string const instruction = R"(<addFrame type="visualization"/>)";
  apply(instruction);
  apply(instruction);
  EXPECT_EQ(count("<labelFrame"), 2u);
}

TEST_F(FrameTest, NumbersOfAddedFramesCountThemAlone) {
  apply(R"(<addFrame type="visualization"/>)");
  apply(
      R"(<addFrame type="visualization" count="2"><style color2="blue"/><style number="2" color2="green"/></addFrame>)");
  EXPECT_EQ(valueOf(valueOf("template_frame_1", "style"), "color2"), "blue");
  EXPECT_EQ(valueOf(valueOf("template_frame_2", "style"), "color2"), "green");
  EXPECT_EQ(valueOf("template_frame", "style"), "(absent)");
}

TEST_F(FrameTest, StylesWithoutAddingReachFramesThatWereAddedByTheirNumbers) {
  apply(R"(<addFrame type="visualization"/><addFrame type="graph"/>)");
  apply(R"(<addFrame type="visualization" styleOnly="1"><style number="2" color2="blue"/></addFrame>)"
        R"(<addFrame type="graph" styleOnly="1"><style number="2" color2="green"/></addFrame>)");
  EXPECT_EQ(valueOf(valueOf("template_frame", "style"), "color2"), "blue");
  EXPECT_THAT(styledWith("color2", "green"),
              ElementsAre("template_frameGuide_style", "template_frameGuide_style_1"));
  EXPECT_THAT(styledWith("color2", "red"), ElementsAre("gCell"));
}

TEST_F(FrameTest, CountLimitsTheFramesThatAreStyled) {
  apply(R"(<addFrame type="visualization"/>)");
  apply(R"(<addFrame type="visualization" styleOnly="true" count="1"><style color2="blue"/></addFrame>)");
  EXPECT_EQ(valueOf("template_frame", "style"), "(absent)");
  EXPECT_THAT(styledWith("color2", "blue"), ElementsAre("template_visualization_style"));
}

TEST_F(FrameTest, AStyleForAFrameThatIsNotThereIsForNone) {
  std::string const before = chart->text();
  apply(R"(<addFrame type="graph" styleOnly="true"><style number="2" color2="blue"/></addFrame>)");
  EXPECT_EQ(chart->text(), before);
}

TEST_F(FrameTest, TheNumberIsNoPropertyOfTheStyle) {
  apply(R"(<addFrame type="graph" styleOnly="true"><style number="1" color2="blue"/></addFrame>)");
  EXPECT_EQ(valueOf("gCell", "number"), "(absent)");
  EXPECT_THAT(writes->lines(),
              ElementsAre("gCell color2=blue @2:41", "template_graph_cellStyle color2=blue @2:41"));
}

TEST_F(FrameTest, ObserversHearOfTheFramesThatAreAddedBeforeTheirLooks) {
  apply(
      "<addFrame type=\"visualization\" count=\"2\"/>\n"
      "<addFrame type=\"graph\"><style color2=\"blue\"/></addFrame>");
  EXPECT_THAT(writes->lines(),
              ElementsAre("template_frame frame=true @2:1", "template_frame_1 frame=true @2:1",
                          "frameGuide frame=true @3:1", "frameGuide frame=true @3:1",
                          "template_frameGuide_style color2=blue @3:24",
                          "template_frameGuide_style_1 color2=blue @3:24"));
}

TEST_F(FrameTest, LabelFramesWithATextAreNoFrames) {
  load(R"(<labelFrame id="template_frame"><label><text>T</text></label></labelFrame>)");
  apply(R"(<addFrame type="visualization" styleOnly="true"><style number="2" color2="blue"/></addFrame>)");
  EXPECT_THAT(styledWith("color2", "blue"), IsEmpty());
}

}  // namespace
