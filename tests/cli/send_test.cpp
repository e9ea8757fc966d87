// `kestrel send`: a chart that is there as text, completed and sent with what goes with it.

#include "cli_fixture.h"
#include "wire_decoder.h"

#include <gmock/gmock.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

using namespace kestrel::test;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr char birdsChart[] =
    R"(<?xml version="1.0" encoding="UTF-8"?><visualization lang="en-US" version="2.8" xmlns="http://xml.vexa.example/visualization">
  <graph id="graph">
    <point id="points">
      <x variable="v1"/>
      <y variable="v2"/>
    </point>
  </graph>
  <userSource id="birds"/>
  <sourceVariable categorical="false" id="v1" source="birds" sourceName="length"/>
  <sourceVariable categorical="true" id="v2" source="birds" sourceName="species">
    <format>
      <relabel from="7" to="Gentoo"/>
    </format>
  </sourceVariable>
</visualization>)";

class Send : public CliTest {
 protected:
  Send() { write("chart.xml", birdsChart); }

  Outcome send(std::vector<std::string> const& more = {}, std::string const& file = "chart.xml") const {
    std::vector<std::string> arguments = {"send", file, "-o", "out"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return kestrel(arguments);
  }

  std::vector<DecodedContent> contents() const {
    return decodeContents(decodeCapture(read("out/capture.kcap")));
  }
};

TEST_F(Send, CompletesTheChartAndSaysWhatItWrote) {
  Outcome const outcome = send();
  EXPECT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_THAT(outcome.out, testing::MatchesRegex("out/capture\\.kcap: [0-9]+ messages, [0-9,]+ bytes\n"));
  EXPECT_THAT(chartText(), HasSubstr("styleCycleRepository"));
  EXPECT_THAT(typesOf(contents()), Not(Contains(8u)));
}

TEST_F(Send, KeepsTheDescriptionOfTheChart) {
  std::string described = birdsChart;
  described.insert(described.find(" lang="), " description=\"Points of birds\"");
  write("chart.xml", described);
  for (std::vector<std::string> const& more :
       {std::vector<std::string>{}, std::vector<std::string>{"--protect"}}) {
    ASSERT_EQ(send(more).exit, 0);
    EXPECT_THAT(chartText(), HasSubstr("description=\"Points of birds\""));
    EXPECT_EQ(onlyContent(contents(), 0).bytes, "Points of birds");
  }
}

TEST_F(Send, LeavesAProtectedChartAsItIs) {
  EXPECT_EQ(send({"--protect"}).exit, 0);
  EXPECT_EQ(chartText(), birdsChart);
}

TEST_F(Send, AppliesItsTemplatesToAProtectedChartToo) {
  EXPECT_EQ(send({"--protect", "--template", "dark"}).exit, 0);
  EXPECT_NE(chartText(), birdsChart);
}

TEST_F(Send, GivesEachVariableItsColumn) {
  write("birds.csv", "species,length,spare\nAdelie,181,1\nGentoo,,2\nAdelie,200,3\nChinstrap,190,4\n");
  Outcome const outcome = send({"--data", "birds.csv"});
  ASSERT_EQ(outcome.exit, 0) << outcome.err;
  std::vector<double> const lengths = column(0, 2, 4);
  EXPECT_EQ(lengths[0], 181);
  EXPECT_TRUE(std::isnan(lengths[1]));
  EXPECT_EQ(lengths[3], 190);
}

TEST_F(Send, NumbersNewCategoriesBehindThoseOfTheChart) {
  write("birds.csv", "species,length\nAdelie,181\nGentoo,190\nAdelie,200\n,210\n");
  ASSERT_EQ(send({"--data", "birds.csv"}).exit, 0);
  std::vector<double> const species = column(1, 2, 4);
  EXPECT_EQ(species[0], 8);
  EXPECT_EQ(species[1], 7);
  EXPECT_EQ(species[2], 8);
  EXPECT_TRUE(std::isnan(species[3]));
  EXPECT_THAT(chartText(),
              testing::ContainsRegex("to=\"Gentoo\"/>[ \n]*<relabel from=\"8\" to=\"Adelie\"/>"));
}

TEST_F(Send, TakesNumbersForCategoriesByTheirTextsOrByTheirRelabels) {
  std::string numbers = birdsChart;
  numbers.replace(numbers.find("Gentoo"), 6, "12");
  write("chart.xml", numbers);
  write("birds.csv", "species,length\n12,1\n7,2\n30,3\n,4\n");
  ASSERT_EQ(send({"--data", "birds.csv"}).exit, 0);
  std::vector<double> const species = column(1, 2, 4);
  EXPECT_EQ(species[0], 7);
  EXPECT_EQ(species[1], 7);
  EXPECT_EQ(species[2], 8);
  EXPECT_TRUE(std::isnan(species[3]));
  EXPECT_THAT(chartText(), HasSubstr("<relabel from=\"8\" to=\"30\"/>"));
}

TEST_F(Send, LeavesNumbersOfCategoriesWithoutRelabelsAsTheyAre) {
  std::string numbers = birdsChart;
  std::size_t const format = numbers.find("    <format>");
  numbers.erase(format, numbers.find("  </sourceVariable>", format) - format);
  write("chart.xml", numbers);
  write("birds.csv", "species,length\n30,1\n12,2\n");
  ASSERT_EQ(send({"--data", "birds.csv"}).exit, 0);
  EXPECT_EQ(column(1, 2, 2), (std::vector<double>{30, 12}));
}

TEST_F(Send, ShowsDatesThatAreCategoriesAsTheTableHasThem) {
  std::string dates = birdsChart;
  std::size_t const format = dates.find("    <format>");
  dates.erase(format, dates.find("  </sourceVariable>", format) - format);
  write("chart.xml", dates);
  write("birds.csv", "species,length\n2020-01-02,1\n2020-01-03,2\n2020-01-02,3\n,4\n");
  ASSERT_EQ(send({"--data", "birds.csv"}).exit, 0);
  EXPECT_EQ(column(1, 2, 4)[0], 1577923200);
  std::string const text = chartText();
  EXPECT_THAT(text, testing::ContainsRegex(
                        "from=\"1577923200\" to=\"2020-01-02\"/>[ \n]*<relabel from=\"1578009600\" "
                        "to=\"2020-01-03\"/>[ \n]*</format>"));
}

TEST_F(Send, TellsThatAVariableHoldsDates) {
  write("birds.csv", "species,length\nAdelie,2020-01-02\nGentoo,2020-01-03\n");
  ASSERT_EQ(send({"--data", "birds.csv"}).exit, 0);
  EXPECT_EQ(column(0, 2, 2).front(), 1577923200);
  EXPECT_THAT(chartText(), HasSubstr(" inputDateFormatPattern=\"yyyy-MM-dd\""));
  write("birds.csv", "species,length\nAdelie,2020-01-02T10:00:00\nGentoo,2020-01-03\n");
  ASSERT_EQ(send({"--data", "birds.csv"}).exit, 0);
  EXPECT_THAT(chartText(), HasSubstr(" inputDateFormatPattern=\"yyyy-MM-dd'T'HH:mm:ss.SSS\""));
  write("birds.csv", "species,length\nAdelie,181\nGentoo,190\n");
  ASSERT_EQ(send({"--data", "birds.csv"}).exit, 0);
  EXPECT_THAT(chartText(), testing::Not(HasSubstr("inputDateFormatPattern")));
}

TEST_F(Send, LeavesThePatternOfDatesThatAChartHas) {
  std::string dated = birdsChart;
  dated.replace(dated.find("sourceName=\"length\""), 19,
                "sourceName=\"length\" inputDateFormatPattern=\"dd/MM/yy\"");
  write("chart.xml", dated);
  write("birds.csv", "species,length\nAdelie,2020-01-02\n");
  ASSERT_EQ(send({"--data", "birds.csv"}).exit, 0);
  EXPECT_THAT(chartText(), HasSubstr(" inputDateFormatPattern=\"dd/MM/yy\""));
}

TEST_F(Send, CountsTheRowsForACaseNumber) {
  std::string counted = birdsChart;
  counted.replace(counted.find("\"length\""), 8, "\"$CASENUM\"");
  write("chart.xml", counted);
  write("birds.csv", "species\nAdelie\nGentoo\n");
  ASSERT_EQ(send({"--data", "birds.csv"}).exit, 0);
  EXPECT_EQ(column(0, 2, 2), (std::vector<double>{1, 2}));
}

TEST_F(Send, TakesASourceByItsNameAlsoWhereThereIsOne) {
  write("birds.csv", "species,length\nAdelie,181\n");
  EXPECT_EQ(send({"--data", "birds=birds.csv"}).exit, 0);
  EXPECT_EQ(column(0, 2, 1).front(), 181);
}

TEST_F(Send, TakesAFileWithAnEqualsSignInItsName) {
  write("a=b.csv", "species,length\nAdelie,181\n");
  EXPECT_EQ(send({"--data", "a=b.csv"}).exit, 0);
}

TEST_F(Send, SendsMapsAndAttachmentsByTheirNamesAlone) {
  for (char const* const name : {"maps", "more"}) std::filesystem::create_directory(folder / name);
  write("maps/states.map", "outline");
  write("maps/world.map", "reference");
  write("more/notes.csv", "a,b\n");
  ASSERT_EQ(send({"--map", "maps/states.map", "--ref-map", "maps/world.map", "--csv", "more/notes.csv"}).exit,
            0);
  std::string const map = onlyContent(contents(), 10).bytes;
  EXPECT_THAT(map, HasSubstr("outline"));
  EXPECT_THAT(map, HasSubstr("states.map"));
  EXPECT_THAT(map, HasSubstr("reference"));
  EXPECT_THAT(map, Not(HasSubstr("maps/")));
}

struct Refused {
  char const* what;
  std::vector<std::string> more;
  char const* message;
};

class SendRefuses : public Send, public testing::WithParamInterface<Refused> {};

TEST_P(SendRefuses, WithOneLineThatSaysWhatToDo) {
  write("birds.csv", "species,lenght\nAdelie,181\n");
  write("texts.csv", "species,length\nAdelie,long\n");
  write("empty.xsl", "");
  Outcome const outcome = send(GetParam().more);
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(outcome.err, std::string("kestrel: ") + GetParam().message + "\n");
  EXPECT_FALSE(exists("out/capture.kcap"));
}

INSTANTIATE_TEST_SUITE_P(
    All, SendRefuses,
    testing::Values(
        Refused{"AMissingFile",
                {"--data", "none.csv"},
                "none.csv: cannot be read: No such file or directory; check the name and the permissions"},
        Refused{"AMissingColumn",
                {"--data", "birds.csv"},
                "birds.csv:1: there is no column 'length' for the variable 'v1'; did you mean 'lenght'? The "
                "columns "
                "are: species, lenght"},
        Refused{"TextsForNumbers",
                {"--data", "texts.csv"},
                "texts.csv: column 'length' holds text such as 'long', but the variable 'v1' is one of "
                "numbers; make "
                "it categorical"},
        Refused{"AnEmptyStyleSheet",
                {"--stylesheet", "empty.xsl"},
                "empty.xsl: is empty; a style sheet has content"},
        Refused{"AnEmptyMap", {"--map", "empty.xsl"}, "empty.xsl: is empty; a map has content"},
        Refused{"AnEmptyReferenceMap", {"--ref-map", "empty.xsl"}, "empty.xsl: is empty; a map has content"},
        Refused{
            "AnEmptyAttachment", {"--csv", "empty.xsl"}, "empty.xsl: is empty; an attachment has content"}),
    [](auto const& row) { return std::string(row.param.what); });

TEST_F(Send, NeedsToKnowWhereTo) {
  Outcome const outcome = kestrel({"send", "chart.xml"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(outcome.err, "kestrel: give -o FOLDER, --send unix:PATH, or both\n");
}

TEST_F(Send, NeedsASourceForEachFileOfSeveralSources) {
  std::string two = birdsChart;
  two.insert(two.find("  <userSource"),
             "  <userSource id=\"nests\"/>\n"
             "  <sourceVariable id=\"v3\" source=\"nests\" sourceName=\"eggs\"/>\n");
  write("two.xml", two);
  write("birds.csv", "species,length\nAdelie,181\n");
  write("nests.csv", "eggs\n2\n");
  Outcome const outcome = send({"--data", "birds.csv"}, "two.xml");
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(outcome.err,
            "kestrel: birds.csv: is for no source of the chart; give --data SOURCE=FILE for each of: nests, "
            "birds\n");
  EXPECT_EQ(send({"--data", "birds=birds.csv", "--data", "nests=nests.csv"}, "two.xml").exit, 0);
}

TEST_F(Send, NeedsNoDataForAChartWithoutVariables) {
  write("bare.xml", "<visualization xmlns='http://xml.vexa.example/visualization'/>");
  write("birds.csv", "species,length\nAdelie,181\n");
  Outcome const outcome = send({"--data", "birds.csv"}, "bare.xml");
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(outcome.err, "kestrel: birds.csv: is not needed: the chart has no variable that reads data\n");
}

TEST_F(Send, RefusesWhatIsNoChart) {
  write("other.xml", "<other/>");
  EXPECT_EQ(send({}, "other.xml").err,
            "kestrel: other.xml: is no chart: its root element is 'other', not 'visualization'\n");
  write("broken.xml", "<visualization");
  Outcome const broken = send({}, "broken.xml");
  EXPECT_EQ(broken.exit, 1);
  EXPECT_THAT(broken.err, HasSubstr("kestrel: broken.xml: cannot be read as a chart: "));
}

}  // namespace
