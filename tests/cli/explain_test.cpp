// `kestrel explain`: where each value of the look of a chart came from.

#include "cli_fixture.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <ostream>
#include <string_view>
#include <utility>

using kestrel::test::CliTest;
using kestrel::test::Outcome;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr char const* describedChart =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<visualization xmlns="http://xml.vexa.example/visualization" id="page" style="pageStyle" version="2.8">
  <graph id="graph_1">
    <coordinates id="coordinates_1">
      <dimension>
        <axis style="lineStyle"><majorTicks style="tickStyle" labelAngle="30"/></axis>
      </dimension>
      <dimension>
        <axis style="lineStyle"><majorTicks style="tickStyle"><gridline/></majorTicks></axis>
      </dimension>
    </coordinates>
    <frameGuide id="frame_1"/>
  </graph>
  <style id="container">
    <style id="pageStyle" color="#111111" opacity="1"/>
    <style id="lineStyle" color="#222222"/>
    <style id="tickStyle"/>
    <style id="spareStyle" size="2pt"/>
  </style>
</visualization>
)";

std::string templateOf(std::string const& instructions) {
  return "<template xmlns=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization\">\n" +
         instructions + "</template>\n";
}

/// One that gives the page this colour, in line 2.
std::string pageColor(std::string const& color) {
  return templateOf("<setLook part=\"chart\"><style color=\"" + color + "\"/></setLook>\n");
}

class Explain : public CliTest {
 protected:
  Explain() { write("chart.xml", describedChart); }

  Outcome explain(std::vector<std::string> const& more = {}) const {
    std::vector<std::string> arguments = {"explain", "chart.xml"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return kestrel(arguments);
  }

  /// With one template, of these instructions from line 2 on.
  Outcome explainWith(std::string const& instructions, std::vector<std::string> more = {}) const {
    write("t.xml", templateOf(instructions));
    more.insert(more.end(), {"--template", "t.xml"});
    return explain(more);
  }
};

TEST_F(Explain, TellsOfEveryValueOfTheChart) {
  Outcome const run = explain();
  EXPECT_EQ(run.exit, 0);
  EXPECT_THAT(run.err, IsEmpty());
  EXPECT_EQ(run.out,
            "chart.xml: 7 values: 7 from the builder, 0 from the default looks, 0 from templates\n"
            "coordinates#coordinates_1/dimension[1]/axis/majorTicks\n"
            "  labelAngle  30       builder\n"
            "coordinates#coordinates_1/dimension[2]/axis/majorTicks\n"
            "  gridline    true     builder\n"
            "frameGuide#frame_1\n"
            "  frame       true     builder\n"
            "style#pageStyle of visualization#page\n"
            "  color       #111111  builder\n"
            "  opacity     1        builder\n"
            "style#lineStyle of coordinates#coordinates_1/dimension[1]/axis, "
            "coordinates#coordinates_1/dimension[2]/axis\n"
            "  color       #222222  builder\n"
            "style#spareStyle, which nothing uses\n"
            "  size        2pt      builder\n");
}

TEST_F(Explain, NamesThePlaceInTheTemplateThatWroteAValue) {
  EXPECT_THAT(explainWith("  <setLook part=\"chart\">\n    <style color=\"#333333\"/></setLook>\n").out,
              HasSubstr("\n  color       #333333  t.xml:3:5\n  opacity     1        builder\n"));
}

TEST_F(Explain, NamesTheAttributeBesideStyleThatUsesAStyle) {
  EXPECT_THAT(explainWith("<setLook part=\"tickMark\" role=\"x\"><style color=\"#333333\"/></setLook>\n").out,
              HasSubstr(" of coordinates#coordinates_1/dimension[1]/axis/majorTicks (markStyle)\n"
                        "  color       #333333  t.xml:2:35\n"));
}

TEST_F(Explain, KeepsTheOriginOfValuesThatAreCopiedWithAStyle) {
  std::string const out =
      explainWith("<setLook part=\"axisLine\" role=\"y\"><style stroke_width=\"2pt\"/></setLook>\n").out;
  EXPECT_THAT(out, HasSubstr("style#lineStyle of coordinates#coordinates_1/dimension[1]/axis\n"
                             "  color         #222222  builder\n"));
  EXPECT_THAT(out, HasSubstr("style#lineStyle_1 of coordinates#coordinates_1/dimension[2]/axis\n"
                             "  color         #222222  builder\n"
                             "  stroke_width  2pt      t.xml:2:35\n"));
}

TEST_F(Explain, TellsOfGridlinesThatATemplateAddsAndTakesAway) {
  std::string const out =
      explainWith("<setAxis role=\"x\" gridlines=\"true\"/>\n<setAxis role=\"y\" gridlines=\"false\"/>\n")
          .out;
  EXPECT_THAT(out, HasSubstr("dimension[1]/axis/majorTicks\n  labelAngle  30       builder\n"
                             "  gridline    true     t.xml:2:1\n"));
  EXPECT_THAT(out, HasSubstr("dimension[2]/axis/majorTicks\n  gridline    false    t.xml:3:1\n"));
}

TEST_F(Explain, TellsOfOtherSettingsOfTicks) {
  std::string const out =
      explainWith("<setAxis role=\"x\" labelAngle=\"45\" stagger=\"true\" tickLength=\"3pt\"/>\n").out;
  EXPECT_THAT(out, HasSubstr("  labelAngle  45       t.xml:2:1\n"
                             "  length      3pt      t.xml:2:1\n"
                             "  stagger     true     t.xml:2:1\n"));
}

TEST_F(Explain, TellsOfFramesThatATemplateMakes) {
  std::string const out =
      explainWith("<addFrame type=\"visualization\"><style color2=\"#333333\"/></addFrame>\n").out;
  EXPECT_THAT(out, HasSubstr("\n  frame       true     t.xml:2:1\n"));
  EXPECT_THAT(out, HasSubstr("\n  color2      #333333  t.xml:2:32\n"));
}

TEST_F(Explain, TellsOfTheCycleThatAStyleStandsIn) {
  EXPECT_THAT(
      explainWith("<setCycle aesthetic=\"shape\"><cycle><style symbol=\"plus\"/></cycle></setCycle>\n").out,
      HasSubstr("\ncycle#cycle_shape/style of visualization#page/extension (styleCycleRepository)\n"
                "  symbol      plus     t.xml:2:36\n"));
}

TEST_F(Explain, ShowsAnEmptyValue) {
  EXPECT_THAT(
      explainWith("<setCycle aesthetic=\"dash\"><cycle><style stroke_dasharray=\"\"/></cycle></setCycle>\n")
          .out,
      HasSubstr("  stroke_dasharray  \"\"       t.xml:2:35\n"));
}

TEST_F(Explain, TellsOfValuesThatWereOverwrittenOnlyWhenAsked) {
  write("a.xml", pageColor("#333333"));
  write("b.xml", pageColor("#444444"));
  std::vector<std::string> arguments = {"--template", "b.xml", "--style", "a.xml"};
  EXPECT_THAT(explain(arguments).out, HasSubstr("\n  color       #444444  b.xml:2:23\n"));
  arguments.emplace_back("--all");
  EXPECT_THAT(explain(arguments).out,
              HasSubstr("\n  color       #444444  builder (#111111), a.xml:2:23 (#333333), b.xml:2:23\n"
                        "  opacity     1        builder\n"));
}

TEST_F(Explain, TellsTwoTemplatesOfOneTextApart) {
  for (char const* const name : {"a.xml", "b.xml", "c.xml"}) write(name, pageColor("#333333"));
  EXPECT_THAT(explain({"--template", "c.xml", "--options", "b.xml", "--style", "a.xml", "--all"}).out,
              HasSubstr("builder (#111111), a.xml:2:23 (#333333), b.xml:2:23 (#333333), c.xml:2:23\n"));
}

TEST_F(Explain, CountsValuesByTheirOrigin) {
  EXPECT_THAT(explainWith("<setLook part=\"chart\"><style color=\"#333333\" size=\"1pt\"/></setLook>\n").out,
              testing::StartsWith(
                  "chart.xml: 8 values: 6 from the builder, 0 from the default looks, 2 from templates\n"));
}

TEST_F(Explain, GivesTheSameAsJson) {
  auto const json = nlohmann::json::parse(
      explainWith("<setLook part=\"chart\"><style color=\"#333333\"/></setLook>\n", {"--json"}).out);
  EXPECT_EQ(json["chart"], "chart.xml");
  EXPECT_EQ(json["templates"], nlohmann::json({"t.xml"}));
  EXPECT_EQ(json["elements"].size(), 6u);
  EXPECT_EQ(json["elements"][0],
            (nlohmann::json{{"element", "coordinates#coordinates_1/dimension[1]/axis/majorTicks"},
                            {"values", {{{"name", "labelAngle"}, {"value", "30"}, {"origin", "builder"}}}}}));
  EXPECT_EQ(json["elements"][3],
            (nlohmann::json{{"element", "style#pageStyle"},
                            {"uses", {{{"element", "visualization#page"}, {"attribute", "style"}}}},
                            {"values",
                             {{{"name", "color"},
                               {"value", "#333333"},
                               {"origin", "template"},
                               {"file", "t.xml"},
                               {"line", 2},
                               {"column", 23}},
                              {{"name", "opacity"}, {"value", "1"}, {"origin", "builder"}}}}}));
}

TEST_F(Explain, TellsAllInTheJsonToo) {
  auto const json = nlohmann::json::parse(
      explainWith("<setLook part=\"chart\"><style color=\"#333333\"/></setLook>\n", {"--json", "--all"}).out);
  EXPECT_EQ(
      json["elements"][3]["values"][0]["all"],
      (nlohmann::json{
          {{"value", "#111111"}, {"origin", "builder"}},
          {{"value", "#333333"}, {"origin", "template"}, {"file", "t.xml"}, {"line", 2}, {"column", 23}}}));
}

/// The chart of these tests with a prefix on each element.
std::string prefixed(std::string chart) {
  for (std::size_t at = chart.find('<'); at != std::string::npos; at = chart.find('<', at + 1)) {
    if (chart[at + 1] != '?') chart.insert(at + (chart[at + 1] == '/' ? 2 : 1), "c:");
  }
  return chart.replace(chart.find("xmlns="), 6, "xmlns:c=");
}

TEST_F(Explain, TellsTheSameOfAChartWhoseElementsHaveAPrefix) {
  std::string const plain = explain().out;
  write("chart.xml", prefixed(describedChart));
  EXPECT_EQ(explain().out, plain);
  EXPECT_THAT(explainWith("<setLook part=\"chart\"><style color=\"#333333\"/></setLook>\n").out,
              HasSubstr("\nstyle#pageStyle of visualization#page\n  color       #333333  t.xml:2:23\n"));
}

TEST_F(Explain, ReadsWhatTheGalleryWrites) {
  kestrel({"gallery", "error-bars", "-o", "out"});
  Outcome const run = kestrel({"explain", "out/error-bars.xml", "--style", "default_look"});
  EXPECT_EQ(run.exit, 0);
  EXPECT_THAT(run.err, IsEmpty());
  EXPECT_THAT(run.out, HasSubstr("/templates/default_look.xml:"));
}

TEST_F(Explain, WritesNoFile) {
  explain({"--template", "dark"});
  EXPECT_THAT(filesIn("."), testing::ElementsAre("chart.xml"));
}

TEST_F(Explain, KeepsControlCharactersOfAChartFromTheTerminal) {
  write("chart.xml", "<visualization><style id=\"a\" color=\"x&#9;y\xC2\x9B\"/></visualization>");
  EXPECT_THAT(explain().out, HasSubstr("  x?y"));
}

/// A file that is no chart, and what is said of it.
struct BadChart {
  char const* name;
  char const* content;
  char const* fault;
};

void PrintTo(BadChart const& bad, std::ostream* out) { *out << bad.name; }

class ExplainOfNoChart : public CliTest, public testing::WithParamInterface<BadChart> {};

INSTANTIATE_TEST_SUITE_P(
    , ExplainOfNoChart,
    testing::Values(BadChart{"Empty", "", "is empty; a chart has a root element"},
                    BadChart{
                        "NotWellFormed", "<visualization>",
                        "cannot be read as a chart: Failed to parse LumoML2.0.  Error message returned was "},
                    BadChart{"OfAnotherRoot", "<template/>",
                             "is no chart: its root element is 'template', not 'visualization'"}),
    [](auto const& tested) { return std::string(tested.param.name); });

TEST_P(ExplainOfNoChart, SaysWhatIsWrongWithTheFile) {
  write("chart.xml", GetParam().content);
  Outcome const run = kestrel({"explain", "chart.xml"});
  EXPECT_EQ(run.exit, 1);
  EXPECT_THAT(run.out, IsEmpty());
  EXPECT_THAT(run.err, testing::StartsWith("kestrel: chart.xml: " + std::string(GetParam().fault)));
  EXPECT_EQ(run.err.find('\n'), run.err.size() - 1);
}

TEST_F(Explain, SaysThatThereIsNoFile) {
  Outcome const run = kestrel({"explain", "none.xml"});
  EXPECT_EQ(run.exit, 1);
  EXPECT_THAT(run.err, testing::StartsWith("kestrel: none.xml: cannot be read: "));
}

/// Who may say what colour the page has, in the order of their precedence.
struct Source {
  char const* name;
  /// Of the command line; null for the chart itself.
  char const* option;
};

constexpr Source precedence[] = {{"builder", nullptr},
                                 {"firstStyle", "--style"},
                                 {"secondStyle", "--style"},
                                 {"firstOptions", "--options"},
                                 {"secondOptions", "--options"},
                                 {"firstTemplate", "--template"},
                                 {"secondTemplate", "--template"}};

/// Two places in the table, the lower one first.
using Contest = std::pair<std::size_t, std::size_t>;

std::vector<Contest> everyContest() {
  std::vector<Contest> all;
  for (std::size_t higher = 1; higher < std::size(precedence); ++higher) {
    for (std::size_t lower = 0; lower < higher; ++lower) all.emplace_back(lower, higher);
  }
  return all;
}

class Precedence : public Explain, public testing::WithParamInterface<Contest> {};

INSTANTIATE_TEST_SUITE_P(, Precedence, testing::ValuesIn(everyContest()), [](auto const& tested) {
  return std::string(precedence[tested.param.second].name) + "_over_" + precedence[tested.param.first].name;
});

TEST_P(Precedence, DecidesWhoseValueTheChartHas) {
  Source const& loser = precedence[GetParam().first];
  Source const& winner = precedence[GetParam().second];
  write("winner.xml", pageColor("#444444"));
  std::vector<std::string> arguments = {winner.option, "winner.xml"};
  if (loser.option != nullptr) {
    write("loser.xml", pageColor("#333333"));
    // The order on the command line counts within one option alone.
    bool const isOfSameOption = std::string_view(loser.option) == winner.option;
    arguments.insert(isOfSameOption ? arguments.begin() : arguments.end(), {loser.option, "loser.xml"});
  }
  EXPECT_THAT(explain(arguments).out, HasSubstr("\n  color       #444444  winner.xml:2:23\n"));
}

}  // namespace
