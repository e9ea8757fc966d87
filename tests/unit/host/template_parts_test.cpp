// What setLook, setFont and setAxis address, and what they write.

#include "template_parts.h"

#include "template_fixture.h"
#include "template_language.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>

using namespace kestrel::test;
using kestrel::host::AttributeRule;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

using Ids = std::vector<std::string>;

struct PartRow {
  std::string part;
  Ids styles;
};

std::ostream& operator<<(std::ostream& stream, PartRow const& row) { return stream << row.part; }

// clang-format off
PartRow const parts[] = {
    {"graph",           {"cell"}},
    {"title",           {"t1Text", "t2Text"}},
    {"titleFrame",      {"t1Frame", "t2Frame"}},
    {"subtitle",        {"stText"}},
    {"subtitleFrame",   {"stFrame"}},
    {"footnote",        {"f1Text", "f2Text", "f3Text"}},
    {"footnoteFrame",   {"f1Frame", "f2Frame", "f3Frame"}},
    {"summary",         {"sumText"}},
    {"summaryFrame",    {"sumFrame"}},
    {"otherLabel",      {"otherText"}},
    {"otherFrame",      {"otherFrame"}},
    {"axisLine",        {"xLine", "yLine", "y2Line", "zLine", "line4"}},
    {"axisLabel",       {"xTitle", "yTitle"}},
    {"axisLabelFrame",  {"xTitleFrame", "yTitleFrame"}},
    {"tickLabel",       {"xLabel", "yLabel", "zLabel"}},
    {"panelLine",       {"panelLine"}},
    {"panelTitle",      {"panelTitle"}},
    {"panelTitleFrame", {"panelTitleFrame"}},
    {"panelLabel",      {"panelLabel"}},
    {"panelLabelFrame", {"panelLabelFrame"}},
    {"gridline",        {"xGrid", "yGrid"}},
    {"legend",          {"legendBox"}},
    {"legendLabel",     {"legendText"}},
    {"legendTitle",     {"legendTitle"}},
    {"dataLabel",       {"dataText"}},
    {"dataLabelFrame",  {"dataFrame"}},
    {"referenceLine",   {"lineGuide"}},
    {"functionLine",    {"functionGuide"}},
    {"referencePlane",  {"planeGuide"}},
};
// clang-format on

class PartTest : public TemplateTest, public testing::WithParamInterface<PartRow> {};
INSTANTIATE_TEST_SUITE_P(All, PartTest, testing::ValuesIn(parts));

TEST_P(PartTest, GetsItsLookAndNothingElseDoes) {
  EXPECT_TRUE(apply("<setLook part=\"" + GetParam().part + "\"><style color=\"#010203\"/></setLook>"));
  EXPECT_EQ(styledWith("color", "#010203"), GetParam().styles);
}

TEST_F(TemplateTest, EveryPartIsKnown) {
  Ids known = {"chart", "tickLabelFrame", "tickMark"};
  for (PartRow const& row : parts) known.push_back(row.part);
  Ids names;
  for (std::string_view const name : kestrel::host::partNames()) names.emplace_back(name);
  EXPECT_THAT(names, testing::UnorderedElementsAreArray(known));
}

TEST_F(TemplateTest, TheFrameBehindTickLabelsIsAPart) {
  apply(R"(<setLook part="tickLabelFrame" role="x"><style color="#010203"/></setLook>)");
  EXPECT_THAT(styledWith("color", "#010203"), ElementsAre("xLabelFrame"));
}

TEST_F(TemplateTest, TheMarksOfTicksAreAPart) {
  apply(R"(<setLook part="tickMark" role="y"><style color="#010203"/></setLook>)");
  EXPECT_THAT(styledWith("color", "#010203"), ElementsAre("yMark"));
}

TEST_F(TemplateTest, TheWholePageGetsAStyleOfItsOwn) {
  apply(R"(<setLook part="chart"><style color="#010203"/></setLook>)");
  EXPECT_THAT(styledWith("color", "#010203"), ElementsAre("template_visualization_style"));
  EXPECT_EQ(chart->visualization().getAttribute(u"style"), std::u16string(u"template_visualization_style"));
}

struct RoleRow {
  std::string role;
  Ids styles;
};

std::ostream& operator<<(std::ostream& stream, RoleRow const& row) { return stream << row.role; }

class RoleTest : public TemplateTest, public testing::WithParamInterface<RoleRow> {};
INSTANTIATE_TEST_SUITE_P(All, RoleTest,
                         testing::Values(RoleRow{"x", {"xLine"}}, RoleRow{"y", {"yLine", "y2Line"}},
                                         RoleRow{"z", {"zLine"}}));

// A dimension reference takes a place, so that the dimension behind it is y and not x.
TEST_P(RoleTest, ChoosesTheAxesByThePlaceOfTheirDimension) {
  apply("<setLook part=\"axisLine\" role=\"" + GetParam().role + "\"><style color=\"#010203\"/></setLook>");
  EXPECT_EQ(styledWith("color", "#010203"), GetParam().styles);
}

TEST_F(TemplateTest, FramesGoByTheirPurposeAndIdWhereTheChartHasNoRecord) {
  load(R"(<labelFrame id="a"><label purpose="3" style="sub"/></labelFrame>)"
       R"(<labelFrame id="frame_footnote_2"><label style="foot"/></labelFrame>)"
       R"(<style id="container"><style id="sub"/><style id="foot"/></style>)");
  apply(R"(<setLook part="subtitle"><style color="red"/></setLook>)"
        R"(<setLook part="footnote"><style color="blue"/></setLook>)");
  EXPECT_EQ(valueOf("sub", "color"), "red");
  EXPECT_EQ(valueOf("foot", "color"), "blue");
}

TEST_F(TemplateTest, APartThatTheChartDoesNotHaveIsNotMade) {
  load(R"(<graph id="g"><coordinates id="c"><dimension><axis/></dimension></coordinates></graph>)");
  std::string const before = chart->text();
  for (char const* const part : {"title", "axisLabel", "tickLabel", "tickMark", "tickLabelFrame", "gridline",
                                 "axisLabelFrame", "legend", "legendLabel", "dataLabel", "panelLabel"}) {
    apply("<setLook part=\"" + std::string(part) + "\"><style color=\"red\"/></setLook>");
  }
  EXPECT_EQ(chart->text(), before);
}

// The font of everything, and what is text.
TEST_F(TemplateTest, AFontWithoutAPartIsThatOfAllText) {
  EXPECT_TRUE(apply(R"(<setFont family="serif"/>)"));
  EXPECT_THAT(styledWith("font_family", "serif"),
              ElementsAre("t1Text", "t2Text", "stText", "f1Text", "f2Text", "f3Text", "sumText", "otherText",
                          "xTitle", "xLabel", "yTitle", "yLabel", "zLabel", "panelTitle", "panelLabel",
                          "dataText", "legendText", "legendTitle"));
}

TEST_F(TemplateTest, AFontOfAllIsTheSameAsOneWithoutAPart) {
  apply(R"(<setFont family="serif"/>)");
  Ids const expected = styledWith("font_family", "serif");
  load(everyPart);
  apply(R"(<setFont part="all" family="serif"/>)");
  EXPECT_EQ(styledWith("font_family", "serif"), expected);
}

TEST_F(TemplateTest, AFontCanBeThatOfAxesOfOneRole) {
  apply(R"(<setFont part="tickLabel" role="z" size="7pt"/>)");
  EXPECT_THAT(styledWith("font_size", "7pt"), ElementsAre("zLabel"));
}

TEST_F(TemplateTest, EveryPropertyOfAFontIsWritten) {
  EXPECT_TRUE(apply(
      R"(<setFont part="title" family="Serif A" size="12pt" weight="bold" style="italic" color="navy"/>)"));
  EXPECT_EQ(valueOf("t1Text", "font_family"), "Serif A");
  EXPECT_EQ(valueOf("t1Text", "font_size"), "12pt");
  EXPECT_EQ(valueOf("t1Text", "font_weight"), "bold");
  EXPECT_EQ(valueOf("t1Text", "font_style"), "italic");
  EXPECT_EQ(valueOf("t1Text", "color"), "navy");
}

TEST_F(TemplateTest, WhatAFontDoesNotSayStays) {
  apply(R"(<setFont part="title" size="12pt" color="red"/>)");
  apply(R"(<setFont part="title" size="14pt"/>)");
  EXPECT_EQ(valueOf("t1Text", "color"), "red");
  EXPECT_EQ(valueOf("t1Text", "font_size"), "14pt");
}

// Axes.
TEST_F(TemplateTest, GridlinesAreAddedWhereThereAreTicksWithoutThem) {
  apply(R"(<setAxis role="z" gridlines="true"/>)");
  EXPECT_NE(chart->text().find(R"(<majorTicks id="zTicks" style="zLabel"><gridline/></majorTicks>)"),
            std::string::npos);
}

TEST_F(TemplateTest, GridlinesThatAreThereAreNotAddedAgain) {
  std::string const before = chart->text();
  apply(R"(<setAxis role="x" gridlines="1"/>)");
  EXPECT_EQ(chart->text(), before);
}

char const derivedAxis[] =
    R"(<graph id="g"><coordinates id="c"><dimension><axis/></dimension><dimension><axis><majorTicks id="own"/></axis>)"
    R"(<axis transform="1"><majorTicks id="derived">%</majorTicks></axis></dimension></coordinates></graph>)";

std::string withDerivedAxis(std::string const& gridline) {
  std::string text = derivedAxis;
  return text.replace(text.find('%'), 1, gridline);
}

TEST_F(TemplateTest, GridlinesAreNotAddedAtDerivedAxes) {
  load(withDerivedAxis(""));
  apply(R"(<setAxis role="y" gridlines="true" tickLength="3pt"/>)");
  EXPECT_NE(chart->text().find(R"(<majorTicks id="own" length="3pt"><gridline/></majorTicks>)"),
            std::string::npos);
  EXPECT_NE(chart->text().find(R"(<majorTicks id="derived" length="3pt"/>)"), std::string::npos);
}

TEST_F(TemplateTest, GridlinesOfDerivedAxesAreTakenAway) {
  load(withDerivedAxis("<gridline id=\"line\"/>"));
  apply(R"(<setAxis gridlines="false"/>)");
  EXPECT_EQ(valueOf("line", "id"), "(no element line)");
}

TEST_F(TemplateTest, GridlinesThatDerivedAxesHaveStay) {
  load(withDerivedAxis("<gridline id=\"line\"/>"));
  apply(R"(<setAxis gridlines="true"/>)");
  EXPECT_EQ(valueOf("line", "id"), "line");
}

TEST_F(TemplateTest, GridlinesAreTakenAwayByRole) {
  apply(R"(<setAxis role="y" gridlines="false"/>)");
  EXPECT_EQ(valueOf("yGridline", "id"), "(no element yGridline)");
  EXPECT_EQ(valueOf("xGridline", "id"), "xGridline");
}

TEST_F(TemplateTest, AnAxisInstructionWithoutARoleIsForAllAxesOfDimensions) {
  apply(R"(<setAxis tickLength="3pt"/>)");
  EXPECT_EQ(valueOf("xTicks", "length"), "3pt");
  EXPECT_EQ(valueOf("yTicks", "length"), "3pt");
  EXPECT_EQ(valueOf("zTicks", "length"), "3pt");
}

TEST_F(TemplateTest, AnAxisInstructionWithARoleLeavesTheOthers) {
  apply(R"(<setAxis role="x" tickLength="3pt" stagger="true"/>)");
  EXPECT_EQ(valueOf("xTicks", "stagger"), "true");
  EXPECT_EQ(valueOf("yTicks", "length"), "(absent)");
}

struct AngleRow {
  std::string written;
  std::string expected;
};
class AngleTest : public TemplateTest, public testing::WithParamInterface<AngleRow> {};
INSTANTIATE_TEST_SUITE_P(All, AngleTest,
                         testing::Values(AngleRow{"45", "45"}, AngleRow{"+45", "45"}, AngleRow{"-90", "-90"},
                                         AngleRow{"22.50", "22.5"}, AngleRow{".5", "0.5"}));

TEST_P(AngleTest, IsWrittenAsANumber) {
  apply("<setAxis role=\"x\" labelAngle=\"" + GetParam().written + "\"/>");
  EXPECT_EQ(valueOf("xTicks", "labelAngle"), GetParam().expected);
  EXPECT_EQ(writes->writes.back().value, GetParam().expected);
}

// Every attribute of a style, with a value of each kind.
std::string sampleOf(AttributeRule const& attribute) {
  std::map<kestrel::host::ValueRule const*, std::string> const samples = {
      {&kestrel::host::anyText, "any text, ü"},
      {&kestrel::host::aSymbol, "square"},
      {&kestrel::host::anExtent, "0pt"},
      {&kestrel::host::aSize, "2.5pt"},
      {&kestrel::host::aLineCap, "round"},
      {&kestrel::host::aBoolean, "false"},
      {&kestrel::host::aColor, "#A0B0C0"},
      {&kestrel::host::aLength, "1.5pt"},
      {&kestrel::host::aNumber, "-45.5"},
      {&kestrel::host::aShare, "0.25"},
      {&kestrel::host::aCount, "6"},
      {&kestrel::host::dashLengths, "6pt,3pt"},
      {&kestrel::host::aFontWeight, "bold"},
      {&kestrel::host::aFontStyle, "italic"}};
  return samples.at(attribute.value);
}

TEST_F(TemplateTest, EveryAttributeOfAStyleIsWritten) {
  for (AttributeRule const& attribute : kestrel::host::lookAttributes()) {
    std::string const name(attribute.name);
    std::string const value = sampleOf(attribute);
    std::string const instruction =
        "<setLook part=\"legend\"><style " + name + "=\"" + value + "\"/></setLook>";
    EXPECT_TRUE(apply(instruction)) << name;
    EXPECT_EQ(valueOf("legendBox", name), value);
    EXPECT_THAT(templateSchemaErrors(templateOf(instruction)), IsEmpty()) << name;
  }
}

TEST(TemplateLookTest, HasTheAttributesOfAStyleOfTheChartMarkup) {
  std::ifstream file(KESTREL_SOURCE_DIR "/schema/lumoml.xsd");
  std::string const schema{std::istreambuf_iterator<char>(file), {}};
  std::size_t const begin = schema.find("<xs:complexType name=\"style\">");
  std::string const style = schema.substr(begin, schema.find("</xs:complexType>", begin) - begin);
  std::regex const attribute("<xs:attribute name=\"([A-Za-z0-9_]+)\"");
  Ids expected;
  for (std::sregex_iterator each(style.begin(), style.end(), attribute), end; each != end; ++each) {
    expected.push_back((*each)[1]);
  }
  Ids names;
  for (AttributeRule const& each : kestrel::host::lookAttributes()) names.emplace_back(each.name);
  EXPECT_THAT(expected, Not(IsEmpty()));
  EXPECT_EQ(names, expected);
}

// Styles that parts share.
TEST_F(TemplateTest, AStyleThatOthersUseTooIsLeftToThem) {
  load(R"(<graph id="g"><point id="p" style="shared"/><line id="l" style="shared"/></graph>)"
       R"(<style id="container"><style id="shared" size="3pt" color="black"/></style>)");
  apply(R"(<setStyle type="line"><style color="red"/></setStyle>)");
  EXPECT_EQ(valueOf("shared", "color"), "black");
  EXPECT_EQ(valueOf("l", "style"), "shared_1");
  EXPECT_EQ(valueOf("shared_1", "color"), "red");
  EXPECT_EQ(valueOf("shared_1", "size"), "3pt");
  EXPECT_EQ(valueOf("p", "style"), "shared");
  EXPECT_THAT(writes->copies, ElementsAre("shared -> shared_1"));
}

TEST_F(TemplateTest, AStyleThatOnlyAddressedPartsShareStaysShared) {
  load(R"(<graph id="g"><line id="a" style="shared"/><line id="b" style="shared"/></graph>)"
       R"(<style id="container"><style id="shared"/></style>)");
  apply(R"(<setStyle type="line"><style color="red"/></setStyle>)");
  EXPECT_EQ(valueOf("a", "style"), "shared");
  EXPECT_EQ(valueOf("b", "style"), "shared");
  EXPECT_EQ(valueOf("shared", "color"), "red");
}

TEST_F(TemplateTest, ASplitStyleIsNotSplitAgain) {
  load(R"(<graph id="g"><point id="p" style="shared"/><line id="l" style="shared"/></graph>)"
       R"(<style id="container"><style id="shared"/></style>)");
  std::string const instruction = R"(<setStyle type="line"><style color="red"/></setStyle>)";
  apply(instruction + instruction);
  std::string const once = chart->text();
  apply(instruction);
  EXPECT_EQ(chart->text(), once);
}

TEST_F(TemplateTest, AfterASplitTheOtherPartOwnsTheStyle) {
  load(R"(<graph id="g"><point id="p" style="shared"/><line id="l" style="shared"/></graph>)"
       R"(<style id="container"><style id="shared"/></style>)");
  apply(R"(<setStyle type="line"><style color="red"/></setStyle>)"
        R"(<setStyle type="scatter"><style color="blue"/></setStyle>)");
  EXPECT_EQ(valueOf("p", "style"), "shared");
  EXPECT_EQ(valueOf("shared", "color"), "blue");
}

TEST_F(TemplateTest, PartsWithoutAStyleGetOneEachInTheContainer) {
  load(R"(<graph id="g"><line id="a"/><line id="b" style="nowhere"/></graph>)");
  apply(R"(<setStyle type="line"><style color="red"/></setStyle>)");
  EXPECT_EQ(valueOf("a", "style"), "template_line_style");
  EXPECT_EQ(valueOf("b", "style"), "template_line_style_1");
  EXPECT_NE(chart->text().find(R"(<style id="container"><style color="red" id="template_line_style"/>)"
                               R"(<style color="red" id="template_line_style_1"/></style>)"),
            std::string::npos);
}

TEST_F(TemplateTest, TruthValuesAreWrittenAsWords) {
  apply(R"(<setLook part="legend"><style visible="1" labelInside="0" ignoreNewLines="true"/></setLook>)");
  EXPECT_EQ(valueOf("legendBox", "visible"), "true");
  EXPECT_EQ(valueOf("legendBox", "labelInside"), "false");
  EXPECT_EQ(valueOf("legendBox", "ignoreNewLines"), "true");
  EXPECT_THAT(writes->lines(),
              ElementsAre("legendBox visible=true @2:24", "legendBox labelInside=false @2:24",
                          "legendBox ignoreNewLines=true @2:24"));
}

// Gridlines that come and go.
TEST_F(TemplateTest, OnlyTheLastWishForAGridlineCounts) {
  std::string const before = chart->text();
  apply(R"(<setAxis role="y" gridlines="false"/><setAxis role="y" gridlines="true"/>)");
  EXPECT_EQ(chart->text(), before);
  EXPECT_THAT(writes->lines(), ElementsAre("yTicks gridline=false @2:1", "yTicks gridline=true @2:38"));
}

TEST_F(TemplateTest, AGridlineThatOneTemplateTookAwayComesBackAsItWas) {
  std::string const before = chart->text();
  apply(R"(<setAxis role="y" gridlines="false"/>)");
  EXPECT_EQ(valueOf("yGridline", "style"), "(no element yGridline)");
  apply(R"(<setAxis role="y" gridlines="true"/>)");
  EXPECT_EQ(chart->text(), before);
}

TEST_F(TemplateTest, AGridlineComesBackUnderAnotherIdWhereItsOwnIsTaken) {
  apply(R"(<setAxis role="y" gridlines="false"/>)");
  chart->visualization().addGraph(u"yGridline");
  apply(R"(<setAxis role="y" gridlines="true"/>)");
  EXPECT_EQ(valueOf("yGridline_1", "style"), "yGrid");
}

TEST_F(TemplateTest, TwoTemplatesThatDisagreeAboutGridlinesGiveTheSameChartTheSecondTime) {
  load(
      R"(<graph id="g"><coordinates><dimension><axis><majorTicks/></axis></dimension></coordinates></graph>)");
  std::string const with =
      R"(<setAxis gridlines="true"/><setLook part="gridline"><style color="red"/></setLook>)";
  apply(R"(<setAxis gridlines="false"/>)");
  apply(with);
  std::string const once = chart->text();
  apply(R"(<setAxis gridlines="false"/>)");
  apply(with);
  EXPECT_EQ(chart->text(), once);
}

}  // namespace
