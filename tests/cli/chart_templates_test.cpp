// Templates on the command line: which files they are, what is wrong with them, and that charts get them.

#include "cli_fixture.h"

#include <gmock/gmock.h>

#include <ostream>

using kestrel::test::CliTest;
using kestrel::test::Outcome;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

std::string templateOf(std::string const& instructions) {
  return "<template xmlns=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization\">\n" +
         instructions + "</template>\n";
}

std::string const good = templateOf("<setLook part=\"chart\"><style color=\"#123456\"/></setLook>\n");

class ChartTemplates : public CliTest {};

/// The options that give a template.
class TemplateOption : public CliTest, public testing::WithParamInterface<char const*> {};

INSTANTIATE_TEST_SUITE_P(, TemplateOption, testing::Values("--template", "--style", "--options"),
                         [](auto const& tested) { return std::string(tested.param + 2); });

TEST_P(TemplateOption, GivesTheChartTheTemplate) {
  write("t.xml", good);
  Outcome const run = chartOf("a,b\n1,2\n", {GetParam(), "t.xml"});
  EXPECT_EQ(run.exit, 0);
  EXPECT_THAT(run.err, IsEmpty());
  EXPECT_THAT(chartText(), HasSubstr("#123456"));
}

TEST_P(TemplateOption, MayBeRepeated) {
  write("t.xml", good);
  write("u.xml", templateOf("<setLook part=\"graph\"><style color=\"#654321\"/></setLook>\n"));
  chartOf("a,b\n1,2\n", {GetParam(), "t.xml", GetParam(), "u.xml"});
  EXPECT_THAT(chartText(), testing::AllOf(HasSubstr("#123456"), HasSubstr("#654321")));
}

TEST_P(TemplateOption, GivesEachChartOfTheGalleryTheTemplate) {
  write("t.xml", good);
  Outcome const run = kestrel({"gallery", "dot-plot", "error-bars", "-o", "out", GetParam(), "t.xml"});
  EXPECT_EQ(run.exit, 0) << run.err;
  EXPECT_THAT(read("out/dot-plot.xml"), HasSubstr("#123456"));
  EXPECT_THAT(read("out/error-bars.xml"), HasSubstr("#123456"));
}

TEST_P(TemplateOption, TakesAShippedTemplateByItsPlainName) {
  Outcome const run = chartOf("a,b\n1,2\n", {GetParam(), "dark"});
  EXPECT_EQ(run.exit, 0) << run.err;
  EXPECT_THAT(chartText(), HasSubstr("#1E1E1E"));
}

/// A template that is refused, and what is said of it.
struct BadTemplate {
  char const* name;
  std::string content;
  std::string fault;
};

void PrintTo(BadTemplate const& bad, std::ostream* out) { *out << bad.name; }

class RefusedTemplate : public CliTest, public testing::WithParamInterface<BadTemplate> {};

INSTANTIATE_TEST_SUITE_P(
    , RefusedTemplate,
    testing::Values(
        BadTemplate{"Empty", "", "t.xml: is empty; a template has a root element"},
        BadTemplate{"NotWellFormed", templateOf("<setAxis>\n"), "t.xml:3:3: the text is not well formed"},
        BadTemplate{"NoTemplate", "\n  <visualization/>", "t.xml:2:3: the root element visualization "},
        BadTemplate{"UnknownElement", templateOf(" <setLock/>\n"),
                    "t.xml:2:2: unknown element setLock in template; did you mean setLook?"},
        BadTemplate{"BadValue", templateOf("<setAxis\n gridlines=\"perhaps\"/>\n"),
                    "t.xml:2:1: the attribute gridlines of setAxis is \"perhaps\", which is "}),
    [](auto const& tested) { return std::string(tested.param.name); });

TEST_P(RefusedTemplate, IsAFaultWithItsPlaceBeforeAnythingIsWritten) {
  write("t.xml", GetParam().content);
  for (char const* const option : {"--template", "--style", "--options"}) {
    Outcome const run = chartOf("a,b\n1,2\n", {option, "t.xml"});
    EXPECT_EQ(run.exit, 1);
    EXPECT_THAT(run.err, testing::StartsWith("kestrel: " + GetParam().fault));
    EXPECT_EQ(run.err.find('\n'), run.err.size() - 1);
    EXPECT_FALSE(exists("out"));
  }
}

TEST_P(RefusedTemplate, IsAFaultOfTheOtherCommandsToo) {
  write("t.xml", GetParam().content);
  write("chart.xml", "<visualization/>");
  Outcome const gallery = kestrel({"gallery", "-o", "out", "--template", "t.xml"});
  EXPECT_EQ(gallery.exit, 1);
  EXPECT_THAT(gallery.err, testing::StartsWith("kestrel: " + GetParam().fault));
  EXPECT_FALSE(exists("out"));
  Outcome const explain = kestrel({"explain", "chart.xml", "--template", "t.xml"});
  EXPECT_EQ(explain.exit, 1);
  EXPECT_THAT(explain.err, testing::StartsWith("kestrel: " + GetParam().fault));
}

TEST_F(ChartTemplates, TellAllTheirFaultsInTheOrderInWhichTheyAreApplied) {
  write("t.xml", templateOf("<setLock/>\n<setLock/>\n"));
  write("s.xml", "<x/>");
  Outcome const run = chartOf("a,b\n1,2\n", {"--template", "t.xml", "--style", "s.xml"});
  EXPECT_EQ(run.exit, 1);
  EXPECT_THAT(run.err, testing::MatchesRegex("kestrel: s.xml:1:1: [^\n]*\nkestrel: t.xml:2:1: [^\n]*\n"
                                             "kestrel: t.xml:3:1: [^\n]*\n"));
}

TEST_F(ChartTemplates, TellAFaultOnceOfATemplateThatIsGivenTwice) {
  write("t.xml", "<x/>");
  Outcome const run = chartOf("a,b\n1,2\n", {"--template", "t.xml", "--style", "t.xml"});
  EXPECT_EQ(run.err.find('\n'), run.err.size() - 1);
}

/// Adds more frames than a chart may get; the last of its instructions is the one too many.
std::string tooManyFrames() {
  std::string instructions;
  for (int each = 0; each < 1001; ++each) instructions += "<addFrame type=\"visualization\" count=\"10\"/>\n";
  return templateOf(instructions);
}

std::string notApplied(std::string const& chart) {
  return "kestrel: t.xml:1002:1: with this addFrame the template adds more than 10000 frames to the chart; "
         "shorten it; " +
         chart + " is made without this template\n";
}

TEST_P(TemplateOption, EndsWithAnErrorWhereItIsTooMuchForTheChart) {
  write("t.xml", tooManyFrames());
  Outcome const run = chartOf("a,b\n1,2\n", {GetParam(), "t.xml"});
  EXPECT_EQ(run.exit, 3);
  EXPECT_EQ(run.err, notApplied("out/capture.kcap"));
  EXPECT_THAT(chartText(), Not(HasSubstr("template_frame")));
}

TEST_F(ChartTemplates, ThatAreTooMuchForAChartAreAnErrorOfTheOtherCommandsToo) {
  write("t.xml", tooManyFrames());
  write("u.xml", good);
  Outcome const gallery = kestrel(
      {"gallery", "dot-plot", "error-bars", "-o", "out", "--template", "t.xml", "--template", "u.xml"});
  EXPECT_EQ(gallery.exit, 3);
  EXPECT_EQ(gallery.err, notApplied("out/dot-plot.kcap") + notApplied("out/error-bars.kcap"));
  EXPECT_THAT(read("out/error-bars.xml"), HasSubstr("#123456"));
  Outcome const send = kestrel({"send", "out/dot-plot.xml", "-o", "sent", "--template", "t.xml"});
  EXPECT_EQ(send.exit, 3);
  EXPECT_EQ(send.err, notApplied("sent/capture.kcap"));
  EXPECT_TRUE(exists("sent/capture.kcap"));
  Outcome const explain =
      kestrel({"explain", "out/dot-plot.xml", "--template", "u.xml", "--template", "t.xml"});
  EXPECT_EQ(explain.exit, 3);
  EXPECT_EQ(explain.err, notApplied("out/dot-plot.xml"));
  EXPECT_THAT(explain.out, HasSubstr("u.xml:2:"));
}

TEST_F(ChartTemplates, OfTheSameTextAreToldByTheirOwnNames) {
  write("s.xml", tooManyFrames());
  write("t.xml", tooManyFrames());
  Outcome const run = chartOf("a,b\n1,2\n", {"--template", "s.xml", "--template", "t.xml"});
  EXPECT_EQ(run.exit, 3);
  EXPECT_THAT(run.err,
              testing::MatchesRegex("kestrel: s.xml:1002:1: [^\n]*\nkestrel: t.xml:1002:1: [^\n]*\n"));
}

TEST_F(ChartTemplates, MustBeThere) {
  Outcome const run = chartOf("a,b\n1,2\n", {"--style", "none.xml"});
  EXPECT_EQ(run.exit, 1);
  EXPECT_THAT(run.err, testing::StartsWith("kestrel: none.xml: cannot be read: "));
  EXPECT_FALSE(exists("out"));
}

TEST_F(ChartTemplates, HaveAShippedNameIfTheyHaveAPlainOne) {
  write("drk", good);
  Outcome const run = chartOf("a,b\n1,2\n", {"--template", "drk"});
  EXPECT_EQ(run.exit, 1);
  EXPECT_EQ(
      run.err,
      "kestrel: there is no shipped template 'drk'; did you mean 'dark'?; the shipped ones are colors_only, "
      "dark, default_look, large_type, print_grey; a file of that name is written ./drk\n");
  EXPECT_EQ(chartOf("a,b\n1,2\n", {"--template", "./drk"}).exit, 0);
}

TEST_F(ChartTemplates, AreShippedWhereTheShareFolderIs) {
  std::filesystem::create_directories(folder / "share/templates");
  std::filesystem::copy(KESTREL_SHARE_DIR "/en", folder / "share/en",
                        std::filesystem::copy_options::recursive);
  write("share/templates/own.xml", good);
  write("t.csv", "a,b\n1,2\n");
  Outcome const run = shell(
      "KESTREL_SHARE=$PWD/share $KESTREL chart t.csv --element point --x a --y b -o out --template own");
  EXPECT_EQ(run.exit, 0) << run.err;
  EXPECT_THAT(chartText(), HasSubstr("#123456"));
  EXPECT_THAT(shell("KESTREL_SHARE=$PWD/share $KESTREL chart --help").out,
              HasSubstr("shipped template:\n  own\n"));
}

TEST_F(ChartTemplates, AreNamedInTheHelpWhereTheyAreShipped) {
  for (char const* const command : {"chart", "gallery", "explain"}) {
    std::string const help = kestrel({command, "--help"}).out;
    EXPECT_THAT(help, HasSubstr("  colors_only\n  dark\n  default_look\n  large_type\n  print_grey\n"))
        << command;
    for (char const* const option : {"--template FILE ...", "--style FILE ...", "--options FILE ..."}) {
      EXPECT_THAT(help, HasSubstr(option)) << command;
    }
  }
}

TEST_F(ChartTemplates, LeaveAChartAloneThatGetsNone) {
  chartOf("a,b\n1,2\n");
  EXPECT_THAT(chartText(), Not(HasSubstr("template_")));
}

}  // namespace
