// The options of `kestrel chart` that give an element its statistic, split it, arrange it or mark it, on real
// data.

#include "cli_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

using kestrel::test::CliTest;
using kestrel::test::exampleData;
using kestrel::test::Outcome;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

class ChartOption : public CliTest {
 protected:
  /// The text of the chart that the arguments make of a table, valid, with nothing said on the way.
  std::string made(std::string const& file, std::vector<std::string> const& more) const {
    Outcome const run = chartWith(file, more);
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.err, "");
    return chartText();
  }
  std::string ofPenguins(std::vector<std::string> const& more) const {
    return made(exampleData("penguins.csv"), more);
  }
  std::string ofWeather(std::vector<std::string> const& more) const {
    return made(exampleData("seattle-weather.csv"), more);
  }
  Outcome chartWith(std::string const& file, std::vector<std::string> const& more) const {
    std::vector<std::string> arguments = {"chart", file, "-o", "out"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return kestrel(arguments);
  }
};

/// Of a table with one row for each bar.
class BarOption : public ChartOption {
 protected:
  BarOption() { write("t.csv", "where,when,sum\nnorth,may,2\nnorth,june,3\neast,may,4\n"); }

  std::string bars(std::vector<std::string> more) const {
    more.insert(more.begin(), {"--element", "bar", "--x", "where", "--y", "sum"});
    return made("t.csv", more);
  }
};

TEST_F(ChartOption, HistogramCountsTheRowsOfAColumn) {
  std::string const text = ofPenguins({"--element", "histogram", "--x", "body_mass_g"});
  EXPECT_THAT(text, HasSubstr("<interval id=\"element_histogram_1\""));
  EXPECT_THAT(text,
              HasSubstr("<x variable=\"sourceVariable0\"/><binStatistic/><summaryStatistic method=\"10\"/>"));
  EXPECT_THAT(text, HasSubstr("<text>Count</text>"));
  EXPECT_THAT(text, Not(HasSubstr("<y variable")));
  EXPECT_THAT(extract().out, HasSubstr("data source0: 344 rows, 1 column\n"));
}

TEST_F(ChartOption, HistogramHasASummaryWithALineForEachFigure) {
  std::string const text = ofPenguins({"--element", "histogram", "--x", "body_mass_g"});
  EXPECT_THAT(text, HasSubstr("<descriptionGroup target=\"element_histogram_1\"><text>Mean = </text>"));
  EXPECT_THAT(text, HasSubstr("<text>\nStd. Dev. = </text>"));
  EXPECT_THAT(text, HasSubstr("<text>\nN = </text>"));
}

TEST_F(ChartOption, HistogramOfDatesHasNoSummary) {
  std::string const text = ofWeather({"--element", "histogram", "--x", "date", "--bins", "48"});
  EXPECT_THAT(text, HasSubstr("<binStatistic binCount=\"48;48;48\"/>"));
  EXPECT_THAT(text, Not(HasSubstr("descriptionGroup")));
}

TEST_F(ChartOption, BinsSetTheirNumberOnce) {
  std::string const text = ofPenguins({"--element", "histogram", "--x", "body_mass_g", "--bins", "20"});
  EXPECT_THAT(text, HasSubstr("<binStatistic binCount=\"20;20;20\"/><summaryStatistic method=\"10\"/>"));
  EXPECT_EQ(text.find("binStatistic"), text.rfind("binStatistic"));
}

TEST_F(ChartOption, StackStandsTheCategoriesOfAHistogramOnEachOther) {
  std::string const text = ofPenguins({"--element", "histogram", "--x", "body_mass_g", "--stack", "species"});
  EXPECT_THAT(text, HasSubstr("positionModifier=\"3\""));
  EXPECT_THAT(text, HasSubstr("<styleBy id=\"element_histogram_1_colorstyleBy1\" styleCycle=\"styleCycle_1\" "
                              "variable=\"sourceVariable1\"/>"));
  EXPECT_THAT(text, HasSubstr("<style color=\"#0072B2\"/><style color=\"#E69F00\"/><style "
                              "color=\"#009E73\"/></cycle><extension aesthetic=\"color\"/>"));
  EXPECT_THAT(text, HasSubstr("target=\"element_histogram_1_colorstyleBy1\""));
  EXPECT_THAT(text, HasSubstr("<text>species</text>"));
}

TEST_F(ChartOption, BoxLabelsItsOutliersByTheNumberOfTheRow) {
  std::string const text = ofPenguins({"--element", "box", "--x", "species", "--y", "body_mass_g"});
  EXPECT_THAT(text, HasSubstr("<schema "));
  EXPECT_THAT(text, HasSubstr("<tukeyStatistic/><labeling connectingLines=\"false\" dimension=\"0\""));
  EXPECT_THAT(text, HasSubstr("variable=\"sourceVariable2\"/><x variable=\"sourceVariable0\"/>"));
  EXPECT_THAT(text, HasSubstr("id=\"sourceVariable2\" source=\"source0\" sourceName=\"$CASENUM\"/>"));
  auto const rows = column(2, 3, 344);
  EXPECT_EQ(rows.front(), 1);
  EXPECT_EQ(rows.back(), 344);
}

TEST_F(ChartOption, LabelLabelsTheOutliersByAColumn) {
  std::string const text =
      ofPenguins({"--element", "box", "--x", "species", "--y", "body_mass_g", "--label", "island"});
  EXPECT_THAT(text, HasSubstr("variable=\"sourceVariable2\"/><x variable=\"sourceVariable0\"/>"));
  EXPECT_THAT(text, HasSubstr("<relabel from=\"1\" to=\"Torgersen\"/>"));
  EXPECT_THAT(text, Not(HasSubstr("$CASENUM")));
}

TEST_F(ChartOption, ClusterStandsBoxesSideBySide) {
  std::string const text =
      ofPenguins({"--element", "box", "--x", "species", "--y", "body_mass_g", "--cluster", "sex"});
  EXPECT_THAT(text, HasSubstr("<dimension clusterGap=\"10%\" clusterVariable=\"sourceVariable2\" "
                              "domain=\"categoricalDomain0\""));
  EXPECT_THAT(text, HasSubstr("variable=\"sourceVariable2\"/></schema>"));
  EXPECT_THAT(text, HasSubstr("<text>sex</text>"));
}

TEST_F(ChartOption, ColorStandsErrorBarsSideBySide) {
  std::string const text =
      ofPenguins({"--element", "errorbar", "--x", "species", "--y", "body_mass_g", "--color", "sex"});
  EXPECT_THAT(text, HasSubstr("<interval id=\"element_errorbar_1\""));
  EXPECT_THAT(text, HasSubstr("<summaryStatistic method=\"7\"/>"));
  EXPECT_THAT(text, HasSubstr("clusterVariable=\"sourceVariable2\""));
}

TEST_F(BarOption, ClusterStandsBarsSideBySide) {
  std::string const text = bars({"--cluster", "when"});
  EXPECT_THAT(text, HasSubstr("<interval id=\"element_clusteredbar_1\""));
  EXPECT_THAT(text, HasSubstr("clusterVariable=\"sourceVariable2\""));
  EXPECT_THAT(text, Not(HasSubstr("positionModifier")));
}

TEST_F(BarOption, StackStandsBarsOnEachOther) {
  std::string const text = bars({"--stack", "when"});
  EXPECT_THAT(text, HasSubstr("<interval id=\"element_bar_1\""));
  EXPECT_THAT(text, HasSubstr("positionModifier=\"3\""));
  EXPECT_THAT(text, Not(HasSubstr("clusterVariable")));
}

TEST_F(BarOption, PanelsTellBarsOfOnePlaceApart) {
  EXPECT_THAT(bars({"--panel-column", "when"}), HasSubstr("<faceting id=\"faceting0\" method=\"cross\">"));
}

TEST_F(BarOption, SortGoesByTheTextsOfTheCategories) {
  std::string const text = bars({"--cluster", "when", "--sort", "ascending"});
  EXPECT_THAT(text, HasSubstr("<relabel from=\"1\" to=\"east\"/><relabel from=\"2\" to=\"north\"/>"));
  EXPECT_THAT(text, HasSubstr("<simpleSort descending=\"false\" method=\"2\"/>"));
  EXPECT_THAT(column(0, 3, 3), testing::ElementsAre(2, 2, 1));
}

TEST_F(BarOption, SortMayGoDown) {
  std::string const text = bars({"--cluster", "when", "--sort", "descending"});
  EXPECT_THAT(text, HasSubstr("<relabel from=\"1\" to=\"east\"/>"));
  EXPECT_THAT(text, HasSubstr("<simpleSort descending=\"true\" method=\"2\"/>"));
}

TEST_F(BarOption, SortedCategoriesAreTheOnesOfTheAxis) {
  std::string const text = bars({"--cluster", "when", "--sort", "descending", "--exclude", "east"});
  EXPECT_THAT(text, HasSubstr("domain=\"categoricalDomain0\" id=\"sourceVariable0\""));
  EXPECT_THAT(text, HasSubstr("clusterVariable=\"sourceVariable2\" domain=\"categoricalDomain0\""));
  EXPECT_THAT(text, Not(HasSubstr("categoricalDomain1")));
}

TEST_F(ChartOption, ExcludeNamesCategoriesByTheirNumbers) {
  std::string const text = ofPenguins({"--element", "errorbar", "--x", "species", "--y", "body_mass_g",
                                       "--exclude", "Gentoo", "--exclude", "Adelie"});
  EXPECT_THAT(text, HasSubstr("<categories remove=\"true\">3;1</categories>"));
  EXPECT_THAT(text, HasSubstr("<relabel from=\"3\" to=\"Gentoo\"/>"));
  EXPECT_THAT(column(0, 2, 344)[343], 3) << "the rows stay in the data";
}

TEST_F(ChartOption, ExcludeTakesDatesThatAreCategories) {
  std::string const text = ofWeather(
      {"--element", "bar", "--x", "date", "--y", "wind", "--categorical", "date", "--exclude", "2012-01-02"});
  EXPECT_THAT(text, HasSubstr("<categories remove=\"true\">1325462400</categories>"));
}

TEST_F(ChartOption, PanelsCrossSeveralColumns) {
  std::string const text =
      ofPenguins({"--element", "point", "--x", "flipper_length_mm", "--y", "body_mass_g", "--panel-column",
                  "species", "--panel-column", "sex", "--panel-row", "island"});
  EXPECT_THAT(
      text,
      HasSubstr("<cross><variableReference ref=\"sourceVariable2\"/><variableReference "
                "ref=\"sourceVariable4\"/><variableReference ref=\"sourceVariable3\"/><unity/></cross>"));
  EXPECT_THAT(text, HasSubstr("id=\"facetLabel_panel_3\" level=\"3\""));
}

TEST_F(ChartOption, PanelsAreTitledByTheirColumns) {
  std::string const text = ofPenguins(
      {"--element", "point", "--x", "flipper_length_mm", "--y", "body_mass_g", "--panel-row", "island"});
  EXPECT_THAT(text, HasSubstr("<cross><unity/><variableReference ref=\"sourceVariable2\"/></cross>"));
  EXPECT_THAT(text, HasSubstr("<text>island</text>"));
  EXPECT_THAT(text, HasSubstr("labelAngle=\"90\""));
}

TEST_F(ChartOption, PanelsTakeNumbersThatAreCategories) {
  write("t.csv", "a,b,cyl\n1,2,4\n2,3,6\n");
  EXPECT_THAT(made("t.csv", {"--element", "point", "--x", "a", "--y", "b", "--panel-column", "cyl",
                             "--categorical", "cyl"}),
              HasSubstr("<cross><variableReference ref=\"sourceVariable2\"/><unity/></cross>"));
}

TEST_F(ChartOption, ReferencesAreLinesAtValues) {
  std::string const text =
      ofPenguins({"--element", "point", "--x", "flipper_length_mm", "--y", "body_mass_g", "--reference-x",
                  "200", "--reference-y", "-4.5e3", "--reference-y", "0.25"});
  EXPECT_THAT(text, HasSubstr("<lineGuide id=\"lineGuide1\" style=\"lineGuide1s\" x=\"200\"/>"));
  EXPECT_THAT(text, HasSubstr("<lineGuide id=\"lineGuide2\" style=\"lineGuide2s\" y=\"-4500\"/>"));
  EXPECT_THAT(text, HasSubstr("<lineGuide id=\"lineGuide3\" style=\"lineGuide3s\" y=\"0.25\"/>"));
}

TEST_F(ChartOption, ReferencesAreDatesInTheUnitOfTheData) {
  std::string const text = ofWeather({"--element", "line", "--x", "date", "--y", "temp_max", "--reference-x",
                                      "2015-12-31", "--reference-y", "-3"});
  EXPECT_THAT(text, HasSubstr("x=\"1451520000\""));
  EXPECT_THAT(text, HasSubstr("y=\"-3\""));
  EXPECT_EQ(column(0, 2, 1461).back(), 1451520000);
}

TEST_F(ChartOption, TransposeTurnsTheChart) {
  std::vector<std::string> arguments = {"--element", "box", "--x", "species", "--y", "body_mass_g"};
  EXPECT_THAT(ofPenguins(arguments), Not(HasSubstr("transposeTransform")));
  arguments.emplace_back("--transpose");
  EXPECT_THAT(ofPenguins(arguments), HasSubstr("<transposeTransform/></coordinates>"));
}

class PyramidOption : public ChartOption {
 protected:
  PyramidOption() {
    run = chartWith(exampleData("penguins.csv"),
                    {"--element", "pyramid", "--x", "body_mass_g", "--panel-column", "sex", "--panel-row",
                     "island", "--bins", "15"});
  }
  Outcome run;
};

TEST_F(PyramidOption, MirrorsTwoSides) {
  EXPECT_EQ(run.exit, 0);
  std::string const text = chartText();
  EXPECT_THAT(text,
              HasSubstr("<transposeTransform/><reflectionTransform alternating=\"true\" dimension=\"0\"/>"));
  EXPECT_THAT(text, HasSubstr("<faceting method=\"cross\"><cross><cross><variableReference "
                              "ref=\"sourceVariable1\"/><variableReference "
                              "ref=\"sourceVariable2\"/></cross></cross></faceting>"));
  EXPECT_THAT(text, HasSubstr("<facetLevel gap=\"0%\""));
  EXPECT_THAT(text, HasSubstr("<text>sex</text>"));
}

TEST_F(PyramidOption, CountsRowsInBins) {
  std::string const text = chartText();
  EXPECT_THAT(text, HasSubstr("id=\"element_populationPyramid_1\""));
  EXPECT_THAT(text, HasSubstr("<binStatistic binCount=\"15;15;15\"/><summaryStatistic method=\"10\"/>"));
}

TEST_F(PyramidOption, LeavesOutRowsWithoutASideAndSaysSo) {
  EXPECT_THAT(run.err, StartsWith("kestrel: note: 11 rows of "));
  EXPECT_THAT(run.err, HasSubstr(" without a value of column 'sex' will be left out; "));
  EXPECT_THAT(run.out, HasSubstr("333 rows, 3 variables"));
  auto const sides = column(1, 3, 333);
  EXPECT_TRUE(std::none_of(sides.begin(), sides.end(), [](double side) { return std::isnan(side); }));
}

}  // namespace
