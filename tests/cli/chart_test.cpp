// `kestrel chart` from the command line to the bytes of the capture.

#include "cli_fixture.h"
#include "wire_decoder.h"

#include <gmock/gmock.h>

#include <cmath>

using kestrel::test::CliTest;
using kestrel::test::decodeCapture;
using kestrel::test::decodeContents;
using kestrel::test::exampleData;
using kestrel::test::onlyContent;
using kestrel::test::Outcome;
using kestrel::test::typesOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

class Chart : public CliTest {
 protected:
  auto contents() const { return decodeContents(decodeCapture(read("out/capture.kcap"))); }
  std::string content(std::uint32_t type) const { return onlyContent(contents(), type).bytes; }
};

class PenguinsChart : public Chart {
 protected:
  PenguinsChart() {
    run = kestrel({"chart",      exampleData("penguins.csv"),
                   "--element",  "point",
                   "--x",        "flipper_length_mm",
                   "--y",        "body_mass_g",
                   "--color",    "species",
                   "--title",    "Heavier penguins have longer flippers",
                   "--subtitle", "Three species of the Palmer Archipelago",
                   "--footnote", "Missing measurements are left out",
                   "--x-label",  "Flipper length (mm)",
                   "--y-label",  "Body mass (g)",
                   "-o",         "out"});
  }
  Outcome run;
};

TEST_F(PenguinsChart, IsMadeWithASummary) {
  EXPECT_EQ(run.exit, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, StartsWith("out/capture.kcap: 344 rows, 3 variables, 8 messages, "));
  EXPECT_THAT(run.out, HasSubstr("  flipper_length_mm: numbers, 2 missing\n"));
  EXPECT_THAT(run.out, HasSubstr("  species: 3 categories\n"));
}

TEST_F(PenguinsChart, IsTheWholeSequenceOfAChart) {
  EXPECT_THAT(typesOf(contents()), ElementsAre(0u, 9u, 2u, 4u, 1u, 5u, 8u, 3u));
}

TEST_F(PenguinsChart, LeavesTheCaptureAlone) { EXPECT_THAT(filesIn("out"), ElementsAre("capture.kcap")); }

TEST_F(PenguinsChart, HasTitlesAndLabels) {
  std::string const text = chartText();
  for (char const* label : {"<text>Heavier penguins have longer flippers</text>",
                            "<text>Three species of the Palmer Archipelago</text>",
                            "<text>Missing measurements are left out</text>",
                            "<text>Flipper length (mm)</text>", "<text>Body mass (g)</text>"}) {
    EXPECT_THAT(text, HasSubstr(label));
  }
}

TEST_F(PenguinsChart, HasTheVariablesOfItsColumns) {
  std::string const text = chartText();
  EXPECT_THAT(text, HasSubstr("shortLabel=\"flipper_length_mm\""));
  EXPECT_THAT(text, HasSubstr("shortLabel=\"body_mass_g\""));
  EXPECT_THAT(text, HasSubstr("shortLabel=\"species\""));
  EXPECT_THAT(text, Not(HasSubstr("island")));
}

TEST_F(PenguinsChart, ShowsTheCategoriesByTheirTexts) {
  EXPECT_THAT(chartText(),
              HasSubstr("<relabel from=\"1\" to=\"Adelie\"/><relabel from=\"2\" to=\"Chinstrap\"/>"
                        "<relabel from=\"3\" to=\"Gentoo\"/>"));
}

TEST_F(PenguinsChart, GivesEachCategoryAColourAndExplainsThemInALegend) {
  std::string const text = chartText();
  EXPECT_THAT(
      text,
      HasSubstr("<style color=\"#0072B2\"/><style color=\"#E69F00\"/><style color=\"#009E73\"/></cycle>"));
  EXPECT_THAT(text, HasSubstr("<legend id=\"legend1\">"));
  EXPECT_THAT(text, HasSubstr("<text>species</text>"));
}

TEST_F(PenguinsChart, HasEveryRowOfTheTable) {
  auto const flipper = column(0, 3, 344);
  auto const mass = column(1, 3, 344);
  auto const species = column(2, 3, 344);
  EXPECT_EQ(flipper[0], 181);
  EXPECT_EQ(mass[0], 3750);
  EXPECT_TRUE(std::isnan(flipper[3]));
  EXPECT_TRUE(std::isnan(mass[3]));
  EXPECT_EQ(species[3], 1);
  EXPECT_EQ(species[343], 3);
  EXPECT_EQ(flipper[343], 213);
}

TEST_F(PenguinsChart, DescribesItself) {
  std::string const sentence =
      "Heavier penguins have longer flippers: a point chart of body_mass_g by flipper_length_mm, coloured by "
      "species.";
  EXPECT_EQ(content(0), sentence);
  EXPECT_EQ(content(9), sentence);
  EXPECT_THAT(chartText(), HasSubstr("description=\"" + sentence + "\""));
}

TEST_F(Chart, OfTheWeatherHasALineOverDates) {
  Outcome const run = kestrel({"chart", exampleData("seattle-weather.csv"), "--element", "line", "--x",
                               "date", "--y", "temp_max", "-o", "out"});
  EXPECT_EQ(run.exit, 0);
  std::string const text = chartText();
  EXPECT_THAT(text, HasSubstr("<line id=\"element_simpleline_1\""));
  EXPECT_THAT(text, HasSubstr("inputDateFormatPattern=\"yyyy-MM-dd\""));
  EXPECT_THAT(text, HasSubstr("<format pattern=\"yyyy-MM-dd\"/>"));
  EXPECT_THAT(text, HasSubstr("<intervalDomain date=\"true\" id=\"intervalDomain0\">"));
  auto const dates = column(0, 2, 1461);
  EXPECT_EQ(dates[0], 1325376000);
  EXPECT_EQ(dates[1460], 1451520000);
}

TEST_F(Chart, LabelsItsAxesByTheirColumnsUnlessTold) {
  chartOf("a,b\n1,2\n");
  EXPECT_THAT(chartText(), HasSubstr("<text>a</text>"));
  EXPECT_THAT(chartText(), HasSubstr("<text>b</text>"));
}

TEST_F(Chart, TakesCategoriesOnAnAxis) {
  EXPECT_EQ(chartOf("a,b\nnorth,2\nsouth,3\n").exit, 0);
  EXPECT_THAT(chartText(), HasSubstr("<categoricalDomain id=\"categoricalDomain0\"><variableReference "
                                     "ref=\"sourceVariable0\"/></categoricalDomain>"));
}

TEST_F(Chart, TakesNumbersForCategoriesWhereItIsTold) {
  EXPECT_EQ(chartOf("a,b\n4,2\n6,3\n", {"--categorical", "a"}).exit, 0);
  std::string const text = chartText();
  EXPECT_THAT(text, HasSubstr("categorical=\"true\""));
  EXPECT_THAT(text, Not(HasSubstr("relabel")));
  EXPECT_THAT(column(0, 2, 2), ElementsAre(4, 6));
}

TEST_F(Chart, OfNumbersKeepsTheirDecimals) {
  chartOf("a,b\n1.25,2\n1,3\n");
  EXPECT_THAT(chartText(), HasSubstr("maximumFractionDigits=\"2\" minimumFractionDigits=\"2\""));
}

TEST_F(Chart, ColoursByNumbersOverARange) {
  EXPECT_EQ(chartOf("a,b,c\n1,2,3\n", {"--color", "c"}).exit, 0);
  EXPECT_THAT(chartText(), HasSubstr("<style color=\"#9ECAE1\"/><style color=\"#08306B\"/></cycle>"));
}

TEST_F(Chart, UsesAColumnOfTwoRolesOnce) {
  EXPECT_THAT(chartOf("a,b\nx,2\ny,3\n", {"--color", "a"}).out, HasSubstr("2 rows, 2 variables"));
  EXPECT_THAT(chartText(), Not(HasSubstr("sourceVariable2")));
}

TEST_F(Chart, HasAThirdAxis) {
  EXPECT_EQ(chartOf("a,b,c\n1,2,3\n", {"--z", "c", "--z-label", "Depth"}).exit, 0);
  std::string const text = chartText();
  EXPECT_THAT(text, HasSubstr("<z variable=\"sourceVariable2\"/>"));
  EXPECT_THAT(text, HasSubstr("<text>Depth</text>"));
  EXPECT_THAT(text, HasSubstr("axis_axisz_1s"));
}

TEST_F(Chart, OfBarsSplitByAColourStandsThemSideBySide) {
  write("t.csv", "where,sum,when\nnorth,2,may\nnorth,3,june\n");
  EXPECT_EQ(kestrel({"chart", "t.csv", "--element", "bar", "--x", "where", "--y", "sum", "--color", "when",
                     "-o", "out"})
                .exit,
            0);
  std::string const text = chartText();
  EXPECT_THAT(text, HasSubstr("<interval id=\"element_clusteredbar_1\""));
  EXPECT_THAT(text, HasSubstr("clusterVariable=\"sourceVariable2\""));
}

TEST_F(Chart, OfBarsColouredByTheirPlaceIsNotClustered) {
  write("t.csv", "a,b\nnorth,2\nsouth,3\n");
  EXPECT_EQ(
      kestrel({"chart", "t.csv", "--element", "bar", "--x", "a", "--y", "b", "--color", "a", "-o", "out"})
          .err,
      "");
  EXPECT_THAT(chartText(), HasSubstr("<interval id=\"element_bar_1\""));
  EXPECT_THAT(chartText(), Not(HasSubstr("clusterVariable")));
}

TEST_F(Chart, NotesThatBarsCoverEachOther) {
  write("t.csv", "a,b\nnorth,2\nnorth,3\n");
  Outcome const run = kestrel({"chart", "t.csv", "--element", "bar", "--x", "a", "--y", "b", "-o", "out"});
  EXPECT_EQ(run.exit, 0);
  EXPECT_THAT(run.err, StartsWith("kestrel: note: several rows of t.csv share a bar's place"));
}

TEST_F(Chart, TakesAllTexts) {
  EXPECT_EQ(chartOf("a,b\n1,2\n",
                    {"--title", "T1", "--title2", "T2", "--subtitle", "S", "--footnote", "F1", "--footnote",
                     "F2", "--footnote", "F3", "--description", "D\xC3\xA9tails", "--name", "N"})
                .exit,
            0);
  std::string const text = chartText();
  for (char const* part : {"<text>T1</text>", "<text>T2</text>", "<text>S</text>", "<text>F1</text>",
                           "<text>F2</text>", "<text>F3</text>", "name=\"N\""}) {
    EXPECT_THAT(text, HasSubstr(part));
  }
  EXPECT_EQ(content(0), "D\xC3\xA9tails");
  EXPECT_EQ(content(9), "Details");
}

TEST_F(Chart, AttachesFiles) {
  write("extra.csv", "x\n1\n");
  EXPECT_EQ(chartOf("a,b\n1,2\n", {"--csv", "extra.csv", "--csv", "t.csv"}).exit, 0);
  auto const all = contents();
  EXPECT_THAT(typesOf(all), ElementsAre(0u, 9u, 2u, 4u, 1u, 5u, 8u, 11u, 6u, 11u, 6u, 3u));
  EXPECT_EQ(all.at(7).bytes, "extra.csv");
  EXPECT_EQ(all.at(8).bytes, "x\n1\n");
  EXPECT_EQ(all.back().bytes, std::string("\0\0\0\0\x02\0\0\0", 8));
}

TEST_F(Chart, KeepsTextsThatXmlMustEscape) {
  chartOf("a,b\n\"<x> & \"\"y\"\"\",2\n", {"--title", "a < b & c"});
  EXPECT_THAT(chartText(), HasSubstr("to=\"&lt;x"));
  EXPECT_THAT(chartText(), HasSubstr("a &lt; b &amp; c"));
}

TEST_F(Chart, MakesItsFoldersAndReplacesAnOlderCapture) {
  chartOf("a,b\n1,2\n", {"--title", "old"});
  EXPECT_EQ(chartOf("a,b\n1,2\n", {"--title", "new"}).exit, 0);
  EXPECT_THAT(chartText(), HasSubstr("new"));
  write("t.csv", "a,b\n1,2\n");
  EXPECT_EQ(
      kestrel({"chart", "t.csv", "--element", "point", "--x", "a", "--y", "b", "-o", "deep/er/out"}).exit, 0);
  EXPECT_TRUE(exists("deep/er/out/capture.kcap"));
}

TEST_F(Chart, TakesATableWithCrLfAndByteOrderMark) {
  EXPECT_EQ(chartOf("\xEF\xBB\xBF"
                    "a,b\r\n1,2\r\n")
                .exit,
            0);
  EXPECT_THAT(column(0, 2, 1), ElementsAre(1));
}

TEST_F(Chart, OfThirtyThousandRowsPassesAllOfThem) {
  std::string table = "a,b\n";
  for (int i = 0; i < 30000; ++i)
    table.append(std::to_string(i)).append(",").append(std::to_string(i % 7)).append("\n");
  EXPECT_EQ(chartOf(table).exit, 0);
  auto const cells = column(0, 2, 30000);
  for (std::size_t i = 0; i < cells.size(); ++i) ASSERT_EQ(cells[i], static_cast<double>(i));
  EXPECT_EQ(extract().exit, 0);
}

}  // namespace
