// Of several that give a chart the same value, the one whose value stays. Templates of the settings are kept
// for the process, so that each case runs in one of its own.

#include "schema_validator.h"
#include "xdocument.h"

#include "kestrelhost/recorder.h"
#include "kestrelhost/template_engine.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

using kestrel::host::TemplateKind;
using testing::HasSubstr;
using testing::Not;

namespace {

std::string instruction(std::string const& color) {
  return "<setLook part=\"chart\"><style color2=\"" + color + "\"/></setLook>";
}

std::string templateOf(std::string const& instructions) {
  return "<template xmlns=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization\">" +
         instructions + "</template>";
}

/// A chart whose frame has this colour, and one axis for X and Y each.
std::string chartOf(std::string const& color) {
  return "<visualization xmlns=\"http://xml.vexa.example/visualization\" style=\"page\" version=\"2.8\">"
         "<graph id=\"g\"><point id=\"p\" style=\"dot\"/><coordinates id=\"c\">"
         "<dimension><axis><majorTicks/></axis></dimension><dimension><axis><majorTicks/></axis></dimension>"
         "</coordinates></graph><style id=\"container\"><style id=\"page\" color2=\"" +
         color + "\"/><style id=\"dot\"/></style></visualization>";
}

/// A chart, and all that may have a say in how it looks.
class Templates : public testing::Test {
 protected:
  void set(TemplateKind kind, std::vector<std::string> const& instructions) {
    std::vector<std::string> names;
    for (std::string const& each : instructions) names.push_back(addFile(each));
    mServices.templateSettings->set(kind, names);
  }
  void setUser(std::string const& instructions) { user.push_back(addFile(instructions)); }

  std::string addFile(std::string const& instructions) {
    std::string name = "/templates/" + std::to_string(mServices.files->content.size());
    mServices.files->content[name] = templateOf(instructions);
    return name;
  }

  /// The chart after it was completed.
  std::string completed() {
    kestrel::host::Host host = mServices.host();
    host.templateEngine = std::make_shared<kestrel::host::XmlTemplateEngine>();
    kestrel::host::ScopedHost const scope(host);
    XDocument document(chartOf(builderColor));
    document.applyCTemplate(appliesChosen);
    for (std::string const& fragment : immediate) document.AddImmediateTemplate(fragment);
    for (std::string const& name : user) document.SetChartTemplate(name);
    for (XDocument::ColorSpec const& color : colors) document.AddColorSpec(color);
    document.SetOuterFrame(outerFrame);
    document.SetXAxisGridlines(gridlines);
    document.SetYAxisGridlines(gridlines);
    std::string text = document.getChartXML();
    for (std::string const& error : schemaErrors(text)) ADD_FAILURE() << error;
    return text;
  }

  std::string builderColor = "#000000";
  bool appliesChosen = true;
  std::vector<std::string> immediate;
  std::vector<std::string> user;
  std::vector<XDocument::ColorSpec> colors;
  XDocument::TEMPL_PARAM_ACT outerFrame = XDocument::TemplParamLeave;
  XDocument::TEMPL_PARAM_ACT gridlines = XDocument::TemplParamLeave;

 private:
  kestrel::host::MemoryServices mServices;
};

class ColorOfTheFrame : public Templates {
 public:
  void byBuilder(std::string const& color) { builderColor = color; }
  void byStyles(std::string const& color) { set(TemplateKind::Styles, {instruction(color)}); }
  void byOptions(std::string const& color) { set(TemplateKind::Options, {instruction(color)}); }
  void byDefault(std::string const& color) { set(TemplateKind::Default, {instruction(color)}); }
  void byChosen(std::string const& color) { set(TemplateKind::Chosen, {instruction(color)}); }
  void byImmediate(std::string const& color) { immediate.push_back(instruction(color)); }
  void byUser(std::string const& color) { setUser(instruction(color)); }
  /// Its colour is fixed.
  void byOuterFrame(std::string const&) { outerFrame = XDocument::TemplParamHide; }

  std::string colorOf(std::size_t source) const;
};

/// From the one that all others win over to the one that wins over all others.
struct Source {
  char const* name;
  void (ColorOfTheFrame::*give)(std::string const& color);
};

constexpr Source sources[] = {
    {"Builder", &ColorOfTheFrame::byBuilder}, {"Styles", &ColorOfTheFrame::byStyles},
    {"Options", &ColorOfTheFrame::byOptions}, {"Default", &ColorOfTheFrame::byDefault},
    {"Chosen", &ColorOfTheFrame::byChosen},   {"Immediate", &ColorOfTheFrame::byImmediate},
    {"User", &ColorOfTheFrame::byUser},       {"OuterFrame", &ColorOfTheFrame::byOuterFrame}};

std::string ColorOfTheFrame::colorOf(std::size_t source) const {
  bool const isFixed = source + 1 == std::size(sources);
  return isFixed ? "transparent" : "#00000" + std::to_string(source + 1);
}

/// The loser before the winner.
using Contest = std::pair<std::size_t, std::size_t>;

std::vector<Contest> everyContest() {
  std::vector<Contest> all;
  for (std::size_t winner = 1; winner < std::size(sources); ++winner) {
    for (std::size_t loser = 0; loser < winner; ++loser) all.emplace_back(loser, winner);
  }
  return all;
}

class Precedence : public ColorOfTheFrame, public testing::WithParamInterface<Contest> {};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, Precedence, testing::ValuesIn(everyContest()), [](auto const& tested) {
  return std::string(sources[tested.param.second].name) + "_over_" + sources[tested.param.first].name;
});

TEST_P(Precedence, DecidesWhoseValueTheChartHas) {
  auto const [loser, winner] = GetParam();
  for (std::size_t const source : {winner, loser}) (this->*sources[source].give)(colorOf(source));
  std::string const text = completed();
  EXPECT_THAT(text, HasSubstr("color2=\"" + colorOf(winner) + "\""));
  EXPECT_THAT(text, Not(HasSubstr("\"" + colorOf(loser) + "\"")));
}

TEST_F(ColorOfTheFrame, IsTheBuildersWhereNobodyElseGivesOne) {
  byBuilder("#ABCDEF");
  EXPECT_THAT(completed(), HasSubstr("color2=\"#ABCDEF\""));
}

TEST_F(ColorOfTheFrame, IsThatOfTheLastTemplateOfAKind) {
  for (TemplateKind const kind :
       {TemplateKind::Styles, TemplateKind::Options, TemplateKind::Default, TemplateKind::Chosen}) {
    set(kind, {instruction("#000001"), instruction("#000002")});
    EXPECT_THAT(completed(), HasSubstr("color2=\"#000002\"")) << static_cast<int>(kind);
    set(kind, {});
  }
}

TEST_F(ColorOfTheFrame, IsThatOfTheLastImmediateTemplate) {
  byImmediate("#000001");
  byImmediate("#000002");
  EXPECT_THAT(completed(), HasSubstr("color2=\"#000002\""));
}

TEST_F(ColorOfTheFrame, IsThatOfTheLastTemplateOfTheUser) {
  byUser("#000001");
  byUser("#000002");
  EXPECT_THAT(completed(), HasSubstr("color2=\"#000002\""));
}

TEST_F(ColorOfTheFrame, IsThatOfTheLastInstructionOfATemplate) {
  setUser(instruction("#000001") + instruction("#000002"));
  EXPECT_THAT(completed(), HasSubstr("color2=\"#000002\""));
}

TEST_F(Templates, OfDifferentValuesAllHaveTheirSay) {
  set(TemplateKind::Styles, {"<setLook part=\"chart\"><style size=\"1pt\"/></setLook>"});
  setUser("<setLook part=\"chart\"><style width=\"2pt\"/></setLook>");
  EXPECT_THAT(completed(), testing::AllOf(HasSubstr("color2=\"#000000\""), HasSubstr(" size=\"1pt\""),
                                          HasSubstr(" width=\"2pt\"")));
}

TEST_F(Templates, OfTheDefaultKindHaveNoSayBesideChosenOnes) {
  set(TemplateKind::Default, {"<setLook part=\"chart\"><style size=\"1pt\"/></setLook>"});
  set(TemplateKind::Chosen, {"<setLook part=\"chart\"><style width=\"2pt\"/></setLook>"});
  EXPECT_THAT(completed(), testing::AllOf(HasSubstr(" width=\"2pt\""), Not(HasSubstr("size=\"1pt\""))));
}

TEST_F(Templates, OfTheDefaultKindTakeThePlaceOfChosenOnesThatTheChartDoesNotWant) {
  set(TemplateKind::Default, {"<setLook part=\"chart\"><style size=\"1pt\"/></setLook>"});
  set(TemplateKind::Chosen, {"<setLook part=\"chart\"><style width=\"2pt\"/></setLook>"});
  appliesChosen = false;
  EXPECT_THAT(completed(), testing::AllOf(HasSubstr(" size=\"1pt\""), Not(HasSubstr("width=\"2pt\""))));
}

TEST_F(Templates, GiveWayToTheColorsThatTheChartAsksFor) {
  setUser("<setStyle type=\"scatter\"><style color=\"#000001\"/></setStyle>");
  colors.emplace_back(0, 18, 52, 86);
  EXPECT_THAT(completed(), testing::AllOf(HasSubstr("color=\"#123456\""), Not(HasSubstr("\"#000001\""))));
}

TEST_F(Templates, GiveWayToTheGridlinesThatTheChartAsksFor) {
  setUser("<setAxis gridlines=\"false\"/>");
  gridlines = XDocument::TemplParamShow;
  EXPECT_THAT(completed(), HasSubstr("<gridline/>"));
}

TEST_F(Templates, GiveWayToTheChartsWishForNoGridlines) {
  setUser("<setAxis gridlines=\"true\"/>");
  gridlines = XDocument::TemplParamHide;
  EXPECT_THAT(completed(), Not(HasSubstr("<gridline")));
}
