// Charts by visualization templates.

#include "cli_fixture.h"
#include "wire_decoder.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using namespace kestrel::test;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr char table[] = "kind,size,weight,day\na,1.5,10,2024-01-01\nb,2,20,2024-01-02\na,,30,2024-01-03\n";

constexpr char ownTemplate[] =
    "<visualization xmlns='http://xml.vexa.example/visualization' "
    "xmlns:t='http://xml.vexa.example/visualization-template'>\n"
    "  <t:template version='1.0' title='Own'>\n"
    "    <t:slot name='x' kind='variable' required='true'>what\n      it shows</t:slot>\n"
    "    <t:slot name='note' kind='label'/>\n"
    "  </t:template>\n"
    "  <sourceVariable id='v' t:slot='x'/><extension note='{note}'/><graph id='g'/>\n</visualization>\n";

class Templates : public CliTest {
 protected:
  Templates() { write("table.csv", table); }

  /// `kestrel template NAME --data table.csv -o out`, and more arguments.
  Outcome make(std::string const& name, std::vector<std::string> const& more) const {
    std::vector<std::string> arguments = {"template", name, "--data", "table.csv", "-o", "out"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return kestrel(arguments);
  }

  /// The text of the chart that is made.
  std::string made(std::string const& name, std::vector<std::string> const& more) const {
    Outcome const outcome = make(name, more);
    EXPECT_EQ(outcome.exit, 0) << outcome.err;
    return outcome.exit == 0 ? chartText() : std::string();
  }
};

TEST_F(Templates, AreListedWithTheirSlots) {
  Outcome const outcome = kestrel({"template", "--list"});
  ASSERT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_THAT(
      outcome.out,
      AllOf(StartsWith("bar_of_counts: Bar of counts\n"
                       "  x            categorical, required, sets: the categories, each with a bar\n"),
            HasSubstr("\nbox_plot: Box plot\n"), HasSubstr("\nclustered_bar: Clustered bar\n"),
            HasSubstr("\ngrouped_scatter: "), HasSubstr("\nhistogram: "), HasSubstr("\nline_over_time: "),
            HasSubstr("\npanelled_scatter: "), HasSubstr("\npie_of_shares: ")));
}

TEST_F(Templates, AreListedOneByOneAlsoFromFiles) {
  write("own.lumotemplate", ownTemplate);
  EXPECT_EQ(kestrel({"template", "own.lumotemplate", "--list"}).out,
            "own.lumotemplate: Own\n  x     variable, required: what it shows\n  note  label\n");
}

TEST_F(Templates, MakeChartsWithTheirData) {
  std::string const chart = made("bar_of_counts", {"--slot", "x=kind", "--slot", "Title=Kinds = parts"});
  EXPECT_THAT(chart, AllOf(HasSubstr("<text>Kinds = parts</text>"), HasSubstr("sourceName=\"kind\""),
                           HasSubstr("description=\"Bars of Count by kind\""),
                           HasSubstr("<relabel from=\"1\" to=\"a\"/><relabel from=\"2\" to=\"b\"/>")));
  EXPECT_THAT(column(0, 1, 3), ElementsAre(1, 2, 1));
}

TEST_F(Templates, TakeStatisticsNumbersAndLabels) {
  EXPECT_THAT(made("histogram", {"--slot", "x=size", "--slot", "bins=7", "--slot", "YLabel=How many",
                                 "--slot-label", "x=Size (m)", "--slot", "weight=weight"}),
              AllOf(HasSubstr("binCount=\"7;7;7\""), HasSubstr("<text>How many</text>"),
                    HasSubstr("<text>Size (m)</text>"), HasSubstr("weight=\"true\"")));
}

TEST_F(Templates, TakeSeveralColumnsWhereASlotDoes) {
  std::string const chart =
      made("line_over_time", {"--slot", "time=day", "--slot", "y=size", "--slot", "y=weight"});
  EXPECT_THAT(chart, AllOf(HasSubstr("name=\"size\""), HasSubstr("name=\"weight\"")));
  EXPECT_THAT(column(2, 3, 3), ElementsAre(10, 20, 30));
}

TEST_F(Templates, NameEachOfSeveralColumns) {
  std::string const chart =
      made("line_over_time", {"--slot", "time=day", "--slot", "y=size", "--slot", "y=weight", "--slot-label",
                              "y=Size (m)", "--slot-label", "y=Weight (kg)"});
  EXPECT_THAT(chart, AllOf(HasSubstr("label=\"Size (m)\""), HasSubstr("label=\"Weight (kg)\"")));
}

TEST_F(Templates, NameCasesByAColumn) {
  EXPECT_THAT(made("box_plot", {"--slot", "x=kind", "--slot", "y=size"}),
              HasSubstr("sourceName=\"$CASENUM\""));
  EXPECT_THAT(made("box_plot", {"--slot", "x=kind", "--slot", "y=size", "--labeling", "y=day"}),
              AllOf(HasSubstr("sourceName=\"day\""), Not(HasSubstr("$CASENUM"))));
}

TEST_F(Templates, ComeFromFilesToo) {
  write("own.lumotemplate", ownTemplate);
  EXPECT_THAT(made("own.lumotemplate", {"--slot", "x=kind", "--slot", "note=a {b}"}),
              AllOf(HasSubstr("note=\"a {b}\""), HasSubstr("categorical=\"true\"")));
  EXPECT_THAT(made("./own.lumotemplate", {"--slot", "x=size"}), HasSubstr("categorical=\"false\""));
}

TEST_F(Templates, GetStyleSheetsAndMaps) {
  write("looks.xsl",
        "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
        "<xsl:template match='@*|node()'><xsl:copy><xsl:apply-templates select='@*|node()'/></xsl:copy>"
        "</xsl:template><xsl:template match='/*/@description'><xsl:attribute name='description'>reworked"
        "</xsl:attribute></xsl:template></xsl:stylesheet>");
  write("a b.map", "the map");
  EXPECT_THAT(made("bar_of_counts", {"--slot", "x=kind", "--stylesheet", "looks.xsl", "--map", "./a b.map",
                                     "--map-key", "state"}),
              AllOf(HasSubstr("description=\"reworked\""), HasSubstr("mapKey=\"state\"")));
  EXPECT_THAT(onlyContent(decodeContents(decodeCapture(read("out/capture.kcap"))), 10).bytes,
              AllOf(HasSubstr("the map"), HasSubstr("a b.map")));
}

TEST_F(Templates, AreToldWhatIsWrongByTheConverter) {
  Outcome const empty = make("histogram", {});
  EXPECT_EQ(empty.exit, 1);
  EXPECT_EQ(
      empty.err,
      "kestrel: histogram: gives no chart: Failed to convert visualization template... SlotEmpty: the slot "
      "\"x\" is empty; it needs a scale variable.\n");
  EXPECT_THAT(make("histogram", {"--slot", "x=kind"}).err,
              HasSubstr("VariableKind: the slot \"x\" takes a scale variable; \"kind\" is categorical"));
  EXPECT_THAT(make("bar_of_counts", {"--slot", "x=kind", "--slot", "statistic=mode"}).err,
              HasSubstr("ValueUnknown: the slot \"statistic\" takes one of count, percent, "));
  EXPECT_THAT(make("bar_of_counts", {"--slot", "x=kind", "--map", "world"}).err,
              HasSubstr("Map world not found"));
  EXPECT_FALSE(exists("out/capture.kcap"));
}

TEST_F(Templates, WantTheFilesThatTheyAreGiven) {
  for (std::string const option : {"--stylesheet", "--map", "--ref-map"}) {
    Outcome const outcome = make("bar_of_counts", {"--slot", "x=kind", option, "./none"});
    EXPECT_EQ(outcome.exit, 1) << option;
    EXPECT_THAT(outcome.err, StartsWith("kestrel: ./none: cannot be read: ")) << option;
  }
  Outcome const named = make("bar_of_counts", {"--slot", "x=kind", "--stylesheet", "none"});
  EXPECT_EQ(named.exit, 1);
  EXPECT_THAT(
      named.err,
      AllOf(StartsWith("kestrel: none: gives no style sheet: Failed to convert visualization style sheet"),
            HasSubstr("StyleSheetNotFound: there is no style sheet \"none\" in the local store")));
  EXPECT_FALSE(exists("out/capture.kcap"));
}

struct Fault {
  std::vector<std::string> arguments;
  char const* message;
};

TEST_F(Templates, AreNotUsedWhereTheCommandLineIsWrong) {
  write("chart.xml", "<visualization xmlns='http://xml.vexa.example/visualization'/>");
  Fault const faults[] = {
      {{"template", "-o", "out"}, "name a template, or list those that there are: kestrel template --list"},
      {{"template", "histogram", "-o", "out"}, "give --data FILE, the table of the chart"},
      {{"template", "histogram", "--data", "table.csv"}, "give -o FOLDER, --send unix:PATH, or both"},
      {{"template", "histgram", "--list"},
       "there is no visualization template 'histgram'; did you mean 'histogram'?; the shipped ones are "},
      {{"template", "chart.xml", "--list"}, "chart.xml: is a chart, but no template: it declares no slots"},
      {{"template", "histogram", "--data", "table.csv", "-o", "out", "--slot", "bin=3"},
       "the template 'histogram' has no slot 'bin'; did you mean 'bins'?; its slots are x, bins, "},
      {{"template", "histogram", "--data", "table.csv", "-o", "out", "--slot", "=size"},
       "--slot '=size' is not written SLOT=VALUE, such as x=species"},
      {{"template", "histogram", "--data", "table.csv", "-o", "out", "--slot", "x=sise"},
       "table.csv:1: there is no column 'sise' for the slot 'x'; did you mean 'size'?"},
      {{"template", "box_plot", "--data", "table.csv", "-o", "out", "--slot", "y=size", "--labeling",
        "y=who"},
       "table.csv:1: there is no column 'who' for --labeling y"},
      {{"template", "histogram", "--data", "table.csv", "-o", "out", "--slot", "x=size", "--slot-label",
        "Title=a"},
       "--slot-label goes with slots for columns; 'Title' takes a text"},
      {{"template", "histogram", "--data", "table.csv", "-o", "out", "--slot", "x=size", "--labeling",
        "weight=kind"},
       "--labeling is given for 'weight', which no --slot fills"},
      {{"template", "histogram", "--data", "table.csv", "-o", "out", "--slot", "x=size", "--slot-label",
        "x=a", "--slot-label", "x=b"},
       "--slot-label is given for 'x' 2 times, and it has 1 column; give one for all, or one for each"},
  };
  for (Fault const& fault : faults) {
    Outcome const outcome = kestrel(fault.arguments);
    EXPECT_EQ(outcome.exit, 1) << fault.message;
    EXPECT_THAT(outcome.err, StartsWith(std::string("kestrel: ") + fault.message));
  }
  EXPECT_FALSE(exists("out/capture.kcap"));
}

TEST_F(Templates, NeedJavaAndSayWhyItIsNotThere) {
  Outcome const outcome =
      shell("mkdir -p share/java && cp -r " KESTREL_SOURCE_DIR
            "/share/template share/ && echo broken > share/java/kestrel-java.jar && "
            "KESTREL_SHARE=$PWD/share $KESTREL template histogram --slot x=size --data table.csv -o out");
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_THAT(outcome.err, AllOf(StartsWith("kestrel: histogram: gives no chart: "),
                                 HasSubstr("Java is not used: "), HasSubstr("share/java/kestrel-java.jar")));
  EXPECT_FALSE(exists("out/capture.kcap"));
}

TEST_F(Templates, DescribeTheirChartsToTheClient) {
  made("pie_of_shares", {"--slot", "slices=kind"});
  extract();
  EXPECT_EQ(read("contents/description.txt"), "A pie of the shares of kind");
}

}  // namespace
