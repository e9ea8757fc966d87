// What the command line does by way of Java: descriptions, older charts, style sheets.

#include "cli_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

using namespace kestrel::test;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

std::string described(std::string const& name) { return KESTREL_SOURCE_DIR "/examples/pdl/" + name + ".pdl"; }
std::string oldChart(std::string const& name) { return KESTREL_SOURCE_DIR "/tests/golden/lumoml14/" + name; }

std::string contentOf(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// As the converter writes a chart, which nobody has laid out for reading.
std::string withoutIndents(std::string const& markup) {
  std::size_t const root = markup.find('\n') + 1;
  return markup.substr(0, root) + std::regex_replace(markup.substr(root), std::regex("\n *<"), "<");
}

class Description : public CliTest {};

TEST_F(Description, OfABoxPlotCountsTheRows) {
  Outcome const outcome =
      kestrel({"chart", described("box_plot"), "--data", exampleData("penguins.csv"), "-o", "out"});
  ASSERT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_THAT(chartText(), HasSubstr("$CASENUM"));
  std::vector<double> const rows = column(2, 3, 344);
  EXPECT_EQ(rows.front(), 1);
  EXPECT_EQ(rows.back(), 344);
}

TEST_F(Description, BecomesAChartWithItsData) {
  Outcome const outcome =
      kestrel({"chart", described("scatter"), "--data", exampleData("penguins.csv"), "-o", "out"});
  ASSERT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_THAT(chartText(),
              AllOf(HasSubstr("Heavier penguins have longer flippers"), HasSubstr("to=\"Gentoo\"")));
  std::vector<double> const flippers = column(0, 3, 344);
  EXPECT_EQ(flippers.front(), 181);
}

TEST_F(Description, SaysItselfWhatItShows) {
  Outcome const outcome = kestrel({"chart", described("scatter"), "--x", "mass", "-o", "out"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(outcome.err,
            "kestrel: --x goes with a table; '" + described("scatter") + "' says itself what it shows\n");
}

TEST_F(Description, ThatIsRefusedIsNotShownAgain) {
  write("wrong.pdl", "chart \"x\" {\n  point { x nobody }\n}\n");
  Outcome const outcome = kestrel({"send", "wrong.pdl", "-o", "out"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_THAT(outcome.err,
              AllOf(StartsWith("kestrel: wrong.pdl: cannot be read as a chart: PDL error line 2, column "),
                    HasSubstr("nobody"), Not(HasSubstr("PDL:"))));
  EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1);
}

TEST_F(Description, IsInUTF8) {
  write("latin.pdl", "chart \"x\" {\n  title \"M\xE4rz\"\n}\n");
  Outcome const outcome = kestrel({"send", "latin.pdl", "-o", "out"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(outcome.err,
            "kestrel: latin.pdl:2: the byte 0xE4 at offset 22 is not UTF-8; save the file as UTF-8 text\n");
}

TEST_F(Description, OptionDataGoesWithNoTable) {
  write("t.csv", "a,b\n1,2\n");
  Outcome const outcome = chart("t.csv", {"--data", "t.csv"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(outcome.err, "kestrel: --data goes with a description in PDL; 't.csv' is itself the data\n");
}

class OldChart : public CliTest {};

TEST_F(OldChart, IsSentAsAChartInTheCurrentMarkup) {
  Outcome const outcome = kestrel({"send", oldChart("scatter_by_species.old.xml"), "-o", "out"});
  ASSERT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_THAT(chartText(), HasSubstr("<visualization "));
}

TEST_F(OldChart, IsExplainedInTheCurrentMarkup) {
  Outcome const outcome = kestrel({"explain", oldChart("scatter_by_species.old.xml")});
  EXPECT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_THAT(outcome.out, HasSubstr("builder"));
}

TEST_F(OldChart, IsUpgradedIntoAFile) {
  Outcome const outcome = kestrel({"upgrade", oldChart("scatter_by_species.old.xml"), "-o", "new.xml"});
  ASSERT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_EQ(read("new.xml"), withoutIndents(contentOf(oldChart("scatter_by_species.xml"))));
}

TEST_F(OldChart, HasAReportOfWhatIsLost) {
  std::string const old = oldChart("what_gets_lost.old.xml");
  std::string const report = contentOf(oldChart("what_gets_lost.report.txt"));
  Outcome const told = kestrel({"upgrade", old, "-o", "new.xml", "--report"});
  ASSERT_EQ(told.exit, 0) << told.err;
  EXPECT_EQ(told.out, report);
  EXPECT_EQ(told.err, "");
  Outcome const noted = kestrel({"upgrade", old, "-o", "new.xml"});
  EXPECT_EQ(noted.out, "");
  auto const lines = std::count(report.begin(), report.end(), '\n');
  EXPECT_EQ(noted.err, "kestrel: note: " + std::to_string(lines) + " things of " + old +
                           " could not be carried over; --report names them\n");
}

TEST_F(OldChart, ThatIsNoneIsRefused) {
  write("old.xml", "<visualization/>");
  Outcome const outcome = kestrel({"upgrade", "old.xml", "-o", "new.xml"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_THAT(outcome.err, StartsWith("kestrel: old.xml: cannot be upgraded: line 1, column "));
  EXPECT_FALSE(exists("new.xml"));
}

constexpr char sheet[] =
    "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
    "<xsl:template match='@*|node()'><xsl:copy><xsl:apply-templates "
    "select='@*|node()'/></xsl:copy></xsl:template>"
    "<xsl:template match='/*/@description'><xsl:attribute name='description'>reworked</xsl:attribute>"
    "</xsl:template></xsl:stylesheet>";

class StyleSheet : public CliTest {
 protected:
  StyleSheet() {
    write("chart.xml",
          "<visualization xmlns='http://xml.vexa.example/visualization' description='as it came'>"
          "<graph id='g'/></visualization>");
  }
};

TEST_F(StyleSheet, ReworksTheFinishedChart) {
  write("looks.xsl", sheet);
  Outcome const outcome = kestrel({"send", "chart.xml", "--stylesheet", "looks.xsl", "-o", "out"});
  ASSERT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_THAT(chartText(), HasSubstr("description=\"reworked\""));
}

TEST_F(StyleSheet, ThatIsWrongIsToldAndLeavesTheChartAsItIs) {
  write("looks.xsl", "<xsl:stylesheet");
  Outcome const outcome =
      kestrel({"send", "chart.xml", "--protect", "--stylesheet", "looks.xsl", "-o", "out"});
  EXPECT_EQ(outcome.exit, 3);
  EXPECT_THAT(outcome.err,
              AllOf(HasSubstr("Error occurred while applying a stylesheet looks.xsl."), HasSubstr("line 1"),
                    EndsWith("kestrel: the chart was sent without the style sheet\n")));
  EXPECT_THAT(chartText(), HasSubstr("as it came"));
}

}  // namespace
