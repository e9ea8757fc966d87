// The kinds of graphic elements that setStyle tells apart.

#include "template_elements.h"

#include "template_fixture.h"

#include <gmock/gmock.h>

#include <set>

using namespace kestrel::test;
using testing::ElementsAre;

namespace {

using Ids = std::vector<std::string>;

/// An element of each kind, none with a style.
char const everyElement[] =
    R"(<graph id="flat"><coordinates><dimension/><dimension/></coordinates>)"
    R"(<point id="point"/>)"
    R"(<point id="pointByColor"><color/></point>)"
    R"(<point id="pointByShape"><shape/></point>)"
    R"(<point id="dots" positionModifier="8"/>)"
    R"(<point id="stackedDots" positionModifier="7"/>)"
    R"(<point id="element_matrixscatter_1"/>)"
    R"(<interval id="bar"/>)"
    R"(<interval id="clusteredBar"><styleBy/></interval>)"
    R"(<interval id="stackedBar" positionModifier="3"><pattern/></interval>)"
    R"(<interval id="histogram"><binStatistic/></interval>)"
    R"(<interval id="groupedHistogram"><binStatistic/><color/></interval>)"
    R"(<interval id="errorBar"><summaryStatistic method="7"/></interval>)"
    R"(<interval id="errorBarByDash"><summaryStatistic method="7"/><dash/></interval>)"
    R"(<interval id="twoEnds"><y/><y/></interval>)"
    R"(<interval id="element_range_1"><color/></interval>)"
    R"(<line id="line"/>)"
    R"(<line id="lineByDash"><dash/></line>)"
    R"(<schema id="box"/>)"
    R"(<schema id="clusteredBox"><styleBy/></schema>)"
    R"(<area id="area"/>)"
    R"(<area id="stackedArea" positionModifier="3"><color/></area>)"
    R"(<edge id="edge"/>)"
    R"(<edge id="edgeByColor"><color/></edge>)"
    R"(<path id="path"/>)"
    R"(<path id="pathByColor"><color/></path>)"
    R"(<polygon id="polygon"/>)"
    R"(<polygon id="polygonByColor"><color/></polygon>)"
    R"(</graph>)"
    R"(<graph id="space"><coordinates><rectangularTransform phi="30"/></coordinates>)"
    R"(<point id="point3"/><interval id="bar3"/></graph>)"
    R"(<graph id="cube"><coordinates><dimension/><dimension/><dimensionReference/></coordinates>)"
    R"(<interval id="histogram3"><binStatistic/></interval><interval id="range3"><y/><y/></interval><line id="line3"/><area id="area3"/>)"
    R"(</graph>)"
    R"(<style id="container"/>)";

struct Row {
  std::string type;
  std::string subtype;
  Ids elements;
};

std::ostream& operator<<(std::ostream& stream, Row const& row) {
  return stream << row.type << " " << row.subtype;
}

// clang-format off
Row const rows[] = {
    {"all",       "",          {"point", "pointByColor", "pointByShape", "dots", "stackedDots", "element_matrixscatter_1",
                                "bar", "clusteredBar", "stackedBar", "histogram", "groupedHistogram", "errorBar",
                                "errorBarByDash", "twoEnds", "element_range_1", "line", "lineByDash", "box",
                                "clusteredBox", "area", "stackedArea", "edge", "edgeByColor", "path", "pathByColor",
                                "polygon", "polygonByColor", "point3", "bar3", "histogram3", "range3", "line3", "area3"}},
    {"all",       "simple",    {"point", "dots", "stackedDots", "element_matrixscatter_1", "bar", "histogram", "errorBar",
                                "twoEnds", "line", "box", "area", "edge", "path", "polygon", "point3", "bar3",
                                "histogram3", "range3", "line3", "area3"}},
    {"all",       "grouped",   {"pointByColor", "pointByShape", "clusteredBar", "stackedBar", "groupedHistogram",
                                "errorBarByDash", "element_range_1", "lineByDash", "clusteredBox", "stackedArea",
                                "edgeByColor", "pathByColor", "polygonByColor"}},
    {"all",       "3D",        {"point3", "bar3", "histogram3", "range3", "line3", "area3"}},
    {"scatter",   "",          {"point", "pointByColor", "pointByShape", "dots", "stackedDots", "element_matrixscatter_1",
                                "point3"}},
    {"scatter",   "simple",    {"point", "dots", "stackedDots", "element_matrixscatter_1", "point3"}},
    {"scatter",   "grouped",   {"pointByColor", "pointByShape"}},
    {"scatter",   "dot",       {"dots", "stackedDots"}},
    {"scatter",   "matrix",    {"element_matrixscatter_1"}},
    {"scatter",   "3D",        {"point3"}},
    {"histogram", "",          {"histogram", "groupedHistogram", "histogram3"}},
    {"histogram", "simple",    {"histogram", "histogram3"}},
    {"histogram", "grouped",   {"groupedHistogram"}},
    {"histogram", "3D",        {"histogram3"}},
    {"bar",       "",          {"bar", "clusteredBar", "stackedBar", "bar3"}},
    {"bar",       "simple",    {"bar", "bar3"}},
    {"bar",       "clustered", {"clusteredBar"}},
    {"bar",       "stacked",   {"stackedBar"}},
    {"bar",       "3D",        {"bar3"}},
    {"range",     "",          {"twoEnds", "element_range_1", "range3"}},
    {"range",     "simple",    {"twoEnds", "range3"}},
    {"range",     "clustered", {"element_range_1"}},
    {"range",     "3D",        {"range3"}},
    {"errorBar",  "",          {"errorBar", "errorBarByDash"}},
    {"errorBar",  "simple",    {"errorBar"}},
    {"errorBar",  "clustered", {"errorBarByDash"}},
    {"line",      "",          {"line", "lineByDash", "line3"}},
    {"line",      "simple",    {"line", "line3"}},
    {"line",      "grouped",   {"lineByDash"}},
    {"line",      "3D",        {"line", "line3"}},
    {"schema",    "",          {"box", "clusteredBox"}},
    {"schema",    "simple",    {"box"}},
    {"schema",    "clustered", {"clusteredBox"}},
    {"area",      "",          {"area", "stackedArea", "area3"}},
    {"area",      "simple",    {"area", "area3"}},
    {"area",      "grouped",   {"stackedArea"}},
    {"area",      "stacked",   {"stackedArea"}},
    {"area",      "3D",        {"area3"}},
    {"edge",      "",          {"edge", "edgeByColor"}},
    {"edge",      "simple",    {"edge"}},
    {"edge",      "grouped",   {"edgeByColor"}},
    {"path",      "",          {"path", "pathByColor"}},
    {"path",      "simple",    {"path"}},
    {"path",      "grouped",   {"pathByColor"}},
    {"polygon",   "",          {"polygon", "polygonByColor"}},
    {"polygon",   "simple",    {"polygon"}},
    {"polygon",   "grouped",   {"polygonByColor"}},
};
// clang-format on

std::string subtypeText(std::string const& subtype) {
  return subtype.empty() ? std::string() : " subtype=\"" + subtype + "\"";
}

class ElementTest : public TemplateTest, public testing::WithParamInterface<Row> {
 protected:
  ElementTest() { load(everyElement); }

  /// The ids of the elements that have a style now.
  Ids styledElements() {
    Ids ids;
    for (std::string const& id : rows[0].elements) {
      if (valueOf(id, "style") != "(absent)") ids.push_back(id);
    }
    return ids;
  }
};
INSTANTIATE_TEST_SUITE_P(All, ElementTest, testing::ValuesIn(rows));

TEST_P(ElementTest, GetsItsStyleAndNoOtherDoes) {
  std::string const instruction = "<setStyle type=\"" + GetParam().type + "\"" +
                                  subtypeText(GetParam().subtype) + "><style color=\"red\"/></setStyle>";
  EXPECT_TRUE(apply(instruction));
  EXPECT_EQ(styledElements(), GetParam().elements);
  EXPECT_TRUE(templateSchemaErrors(templateOf(instruction)).empty());
}

class BoxPartTest : public TemplateTest, public testing::WithParamInterface<std::string> {};
INSTANTIATE_TEST_SUITE_P(All, BoxPartTest,
                         testing::Values("extremeStyle", "fenceStyle", "hingeStyle", "medianStyle",
                                         "outlierStyle"));

TEST_P(BoxPartTest, IsStyledAlone) {
  load(R"(<graph id="g"><schema id="box" style="s0" extremeStyle="s1" fenceStyle="s2" hingeStyle="s3" )"
       R"(medianStyle="s4" outlierStyle="s5"/></graph><style id="container"><style id="s0"/><style id="s1"/>)"
       R"(<style id="s2"/><style id="s3"/><style id="s4"/><style id="s5"/></style>)");
  EXPECT_TRUE(
      apply("<setStyle type=\"schema\" subtype=\"" + GetParam() + "\"><style color=\"red\"/></setStyle>"));
  EXPECT_THAT(styledWith("color", "red"), ElementsAre(valueOf("box", GetParam())));
}

TEST_P(BoxPartTest, GetsAStyleWhereItHasNone) {
  load(R"(<graph id="g"><schema id="box"/></graph>)");
  EXPECT_TRUE(
      apply("<setStyle type=\"schema\" subtype=\"" + GetParam() + "\"><style color=\"red\"/></setStyle>"));
  EXPECT_EQ(valueOf("box", GetParam()), "template_schema_" + GetParam());
  EXPECT_EQ(valueOf("template_schema_" + GetParam(), "color"), "red");
}

TEST_F(TemplateTest, TheTableOfElementKindsIsWhole) {
  std::set<std::string> types;
  std::set<std::string> subtypes = {"extremeStyle", "fenceStyle", "hingeStyle", "medianStyle",
                                    "outlierStyle"};
  for (Row const& row : rows) {
    types.insert(row.type);
    if (!row.subtype.empty()) subtypes.insert(row.subtype);
  }
  auto const known = kestrel::host::elementTypes();
  auto const knownSubtypes = kestrel::host::elementSubtypes();
  EXPECT_EQ(std::set<std::string>(known.begin(), known.end()), types);
  EXPECT_EQ(std::set<std::string>(knownSubtypes.begin(), knownSubtypes.end()), subtypes);
}

// The eight looks of one colour that the library itself writes.
TEST_F(TemplateTest, TheLibrarysOwnStylesReachTheElementsOfOneColor) {
  load(
      R"(<graph id="g"><point id="p"/><interval id="h"><binStatistic/></interval><interval id="b"/>)"
      R"(<interval id="range"/><line id="l"/><schema id="s"/><area id="a"/><point id="grouped"><color/></point></graph>)");
  EXPECT_TRUE(
      apply("<setStyle type='scatter' subtype='simple'><style color='#0A0B0C'/></setStyle>"
            "<setStyle type='histogram'><style color='#0A0B0C'/></setStyle>"
            "<setStyle type='bar' subtype='simple'><style color='#0A0B0C'/></setStyle>"
            "<setStyle type='range' subtype='simple'><style color='#0A0B0C'/></setStyle>"
            "<setStyle type='line' subtype='3D'><style color='#0A0B0C'/></setStyle>"
            "<setStyle type='schema' subtype='simple'><style color='#0A0B0C'/></setStyle>"
            "<setStyle type='schema' subtype='fenceStyle'><style color='#0A0B0C'/></setStyle>"
            "<setStyle type='area' subtype='simple'><style color='#0A0B0C'/></setStyle>"));
  for (char const* const id : {"p", "h", "b", "range", "l", "s", "a"}) {
    EXPECT_EQ(valueOf(valueOf(id, "style"), "color"), "#0A0B0C") << id;
  }
  EXPECT_EQ(valueOf(valueOf("s", "fenceStyle"), "color"), "#0A0B0C");
  EXPECT_EQ(valueOf("grouped", "style"), "(absent)");
}

}  // namespace
