// The templates that are shipped, on the charts of the gallery.

#include "template_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

std::string contentOf(std::filesystem::path const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string shipped(std::string const& name) {
  return contentOf(std::filesystem::path(KESTREL_SHARE_DIR) / "templates" / (name + ".xml"));
}

std::vector<std::string> gallery() {
  std::vector<std::string> names;
  for (auto const& entry : std::filesystem::directory_iterator(KESTREL_SOURCE_DIR "/tests/golden/gallery")) {
    if (entry.path().extension() == ".xml") names.push_back(entry.path().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// Every value of an attribute in a text, in its order.
std::vector<std::string> valuesIn(std::string const& text, std::string const& attribute) {
  std::regex const pattern("[ \n]" + attribute + "=\"([^\"]*)\"");
  std::vector<std::string> values;
  for (std::sregex_iterator each(text.begin(), text.end(), pattern), end; each != end; ++each) {
    values.push_back((*each)[1]);
  }
  return values;
}

class ShippedTest : public TemplateTest, public testing::WithParamInterface<std::string> {};
INSTANTIATE_TEST_SUITE_P(All, ShippedTest,
                         testing::Values("default_look", "dark", "print_grey", "large_type", "colors_only"),
                         [](auto const& row) { return row.param; });

TEST_P(ShippedTest, IsValidAndAccepted) {
  EXPECT_THAT(templateSchemaErrors(shipped(GetParam())), IsEmpty());
  EXPECT_TRUE(applyText(shipped(GetParam())));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_P(ShippedTest, LeavesEveryChartOfTheGalleryValidAndIsTheSameTheSecondTime) {
  ASSERT_GE(gallery().size(), 12u);
  for (std::string const& name : gallery()) {
    chart = std::make_unique<ParsedChart>(contentOf(name));
    applyText(shipped(GetParam()));
    EXPECT_THAT(schemaErrors(chart->text()), IsEmpty()) << name;
    std::string const once = chart->text();
    applyText(shipped(GetParam()));
    EXPECT_EQ(chart->text(), once) << name;
  }
}

TEST_F(TemplateTest, AllTemplatesInTheShareFolderAreTested) {
  std::set<std::string> names;
  for (auto const& entry : std::filesystem::directory_iterator(KESTREL_SHARE_DIR "/templates")) {
    names.insert(entry.path().filename().string());
  }
  EXPECT_EQ(names, (std::set<std::string>{"colors_only.xml", "dark.xml", "default_look.xml", "large_type.xml",
                                          "print_grey.xml"}));
}

class LookTest : public TemplateTest {
 protected:
  LookTest() {
    chart = std::make_unique<ParsedChart>(
        contentOf(KESTREL_SOURCE_DIR "/tests/golden/gallery/clustered_bars.xml"));
  }
};

TEST_F(LookTest, TheDefaultLookHasAPaletteForTheGroupsAndGridlinesAlongY) {
  applyText(shipped("default_look"));
  EXPECT_EQ(cycleOf("styleCycle_1", "color").size(), 8u);
  EXPECT_EQ(cycleOf("styleCycle_1", "color").front(), "#0072B2");
  EXPECT_EQ(valueOf("label_title_1s", "font_weight"), "bold");
  EXPECT_EQ(valueOf("label_title_1s", "font_size"), "14pt");
  EXPECT_EQ(valueOf("tickStyle", "font_size"), "9pt");
  EXPECT_THAT(valuesIn(chart->text(), "length"), ElementsAre("4pt", "4pt"));
  std::string const text = chart->text();
  std::size_t const gridline = text.find("<gridline");
  EXPECT_GT(gridline, text.find("axis_axisy_1s"));
  EXPECT_EQ(text.find("<gridline", gridline + 1), text.npos);
}

TEST_F(LookTest, TheDarkLookIsLightOnDark) {
  applyText(shipped("default_look"));
  applyText(shipped("dark"));
  EXPECT_THAT(styledWith("color", "#1E1E1E"), ElementsAre("template_visualization_style"));
  EXPECT_EQ(valueOf("label_title_1s", "color"), "#FFFFFF");
  EXPECT_EQ(valueOf("label", "color"), "#D9D9D9");
  EXPECT_EQ(cycleOf("styleCycle_1", "color").front(), "#4FC3F7");
  EXPECT_THAT(styledWith("color", "#FFFFFF"), ElementsAre("label_title_1s"));
}

TEST_F(LookTest, ThePrintLookHasNoColorAndAPatternAndASymbolForEachGroup) {
  applyText(shipped("default_look"));
  applyText(shipped("print_grey"));
  std::set<std::string> patterns;
  for (std::string const& pattern : cycleOf("styleCycle_1", "pattern")) patterns.insert(pattern);
  EXPECT_EQ(patterns.size(), 6u);
  std::set<std::string> symbols;
  for (std::string const& symbol : cycleOf("styleCycle_1", "symbol")) symbols.insert(symbol);
  EXPECT_EQ(symbols.size(), 6u);
  EXPECT_EQ(symbols.count("(absent)"), 0u);
  std::regex const grey("#(..)\\1\\1|transparent");
  for (char const* const attribute : {"color", "color2"}) {
    EXPECT_THAT(valuesIn(chart->text(), attribute), Not(IsEmpty()));
    for (std::string const& color : valuesIn(chart->text(), attribute)) {
      EXPECT_TRUE(color == "(absent)" || std::regex_match(color, grey)) << color;
    }
  }
}

TEST_F(LookTest, LargeTypeChangesNoColor) {
  applyText(shipped("default_look"));
  std::vector<std::string> const colors = valuesIn(chart->text(), "color");
  std::vector<std::string> const outlines = valuesIn(chart->text(), "color2");
  applyText(shipped("large_type"));
  EXPECT_EQ(valuesIn(chart->text(), "color"), colors);
  EXPECT_EQ(valuesIn(chart->text(), "color2"), outlines);
  EXPECT_EQ(valueOf("label_title_1s", "font_size"), "28pt");
  for (std::string const& size : valuesIn(chart->text(), "font_size")) EXPECT_GE(std::stoi(size), 16) << size;
}

TEST_F(LookTest, ColorsOnlyChangesTheCyclesOfColorsAlone) {
  std::string const before = chart->text();
  applyText(shipped("colors_only"));
  EXPECT_EQ(cycleOf("styleCycle_1", "color").size(), 8u);
  EXPECT_EQ(styledWith("color", "#1B9E77").size(), 1u);
  std::string after = chart->text();
  std::size_t const cycle = after.find("<cycle>", after.find("id=\"styleCycle_1\""));
  std::size_t const end = after.find("</cycle>", cycle);
  std::size_t const cycleBefore = before.find("<cycle>", before.find("id=\"styleCycle_1\""));
  std::size_t const endBefore = before.find("</cycle>", cycleBefore);
  EXPECT_EQ(after.replace(cycle, end - cycle, before.substr(cycleBefore, endBefore - cycleBefore)), before);
}

// What the library itself reads from such a file: the word, and the colours of the first setColor.
TEST_F(TemplateTest, ColorsOnlySaysSoAndNamesItsColors) {
  std::string const text = shipped("colors_only");
  EXPECT_NE(text.find("ColorsOnly"), text.npos);
  std::string const first = text.substr(0, text.find("</setColor>"));
  EXPECT_THAT(valuesIn(first, "color"), ElementsAre("#1B9E77", "#D95F02", "#7570B3", "#E7298A", "#66A61E",
                                                    "#E6AB02", "#A6761D", "#666666"));
  EXPECT_THAT(valuesIn(text, "aestheticNumber"), ElementsAre("1", "2", "3", "4", "5"));
  for (char const* const other : {"default_look", "dark", "print_grey", "large_type"}) {
    EXPECT_EQ(shipped(other).find("ColorsOnly"), text.npos) << other;
  }
}

}  // namespace
