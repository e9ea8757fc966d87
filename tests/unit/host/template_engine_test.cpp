// The engine as a service: what is applied when, in which order it counts, and who hears of it.

#include "template_fixture.h"

#include "host/messages.h"
#include "host/templates.h"
#include "model/graph.h"
#include "model/style.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using kestrel::host::Operation;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The start of every template that the library writes itself.
char const libraryProlog[] =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="no"?><template Vexa-Version="2.10" )"
    R"(xmlns="http://xml.vexa.example/software/analytics/vexa/xml/visualization" )"
    R"(xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" )"
    R"(xsi:schemaLocation="http://xml.vexa.example/software/analytics/vexa/xml/visualization )"
    R"(http://xml.vexa.example/software/analytics/vexa/xml/visualization/lumoml-template-3.5.xsd">)";

TEST_F(TemplateTest, TheLibrarysOwnPrologIsThatOfATemplate) {
  std::string const text = std::string(libraryProlog) + R"(<setFont size="9pt"/></template>)";
  EXPECT_TRUE(applyText(text));
  EXPECT_EQ(valueOf("t1Text", "font_size"), "9pt");
  EXPECT_THAT(log(), IsEmpty());
  EXPECT_THAT(templateSchemaErrors(text), IsEmpty());
}

TEST_F(TemplateTest, TheAttributesOfTheRootAreFree) {
  std::string const text =
      R"(<template xmlns="http://xml.vexa.example/software/analytics/vexa/xml/visualization" xml:lang="de" )"
      R"(anything="goes" xmlns:o="urn:o" o:other="too"/>)";
  EXPECT_TRUE(applyText(text));
  EXPECT_THAT(templateSchemaErrors(text), IsEmpty());
}

TEST_F(TemplateTest, APrefixIsAsGoodAsADefaultNamespace) {
  EXPECT_TRUE(
      applyText(R"(<t:template xmlns:t="http://xml.vexa.example/software/analytics/vexa/xml/visualization">)"
                R"(<t:setFont size="9pt"/></t:template>)"));
  EXPECT_EQ(valueOf("t1Text", "font_size"), "9pt");
}

TEST_F(TemplateTest, RemarksInstructionsOfOthersAndWhiteSpaceAreNothing) {
  EXPECT_TRUE(
      apply("<!-- remark --><?pi data?> \t\n <setLook part=\"legend\"> <!-- x --><style "
            "color=\"red\"/>\n</setLook>"));
  EXPECT_EQ(valueOf("legendBox", "color"), "red");
}

TEST_F(TemplateTest, WhiteSpaceIsNothingForEngineAndSchemaInElementsWithoutElementsToo) {
  std::string const text = templateOf(
      "<setFont size=\"9pt\">\n</setFont><setAxis> <!-- x -->\t</setAxis>"
      "<setLook part=\"legend\"><style color=\"red\">\n</style></setLook>"
      "<addFrame type=\"graph\"><style>\r\n</style></addFrame>"
      "<setColor aestheticNumber=\"1\"><cycle><style color=\"red\"> </style></cycle></setColor>");
  EXPECT_TRUE(applyText(text));
  EXPECT_THAT(log(), IsEmpty());
  EXPECT_THAT(templateSchemaErrors(text), IsEmpty());
}

TEST_F(TemplateTest, AnEmptyTemplateChangesNothing) {
  std::string const before = chart->text();
  EXPECT_TRUE(apply(""));
  EXPECT_EQ(chart->text(), before);
}

TEST_F(TemplateTest, IsTheUsualEngineOfAHost) {
  kestrel::host::Recorder usual{kestrel::host::Host()};
  kestrel::host::ScopedHost const inForce(usual.host());
  EXPECT_TRUE(apply(R"(<setFont size="9pt"/>)"));
  EXPECT_EQ(valueOf("t1Text", "font_size"), "9pt");
}

// setTemplate and applyTemplate.
TEST_F(TemplateTest, WithoutATextNothingIsApplied) {
  std::string const before = chart->text();
  ChartTemplate(chart->visualization(), nullptr).applyTemplate();
  EXPECT_EQ(chart->text(), before);
}

TEST_F(TemplateTest, SettingATextChangesNothingYet) {
  std::string const before = chart->text();
  ChartTemplate application(chart->visualization(), nullptr);
  EXPECT_TRUE(application.setTemplate(templateOf(R"(<setFont size="9pt"/>)")));
  EXPECT_EQ(chart->text(), before);
}

TEST_F(TemplateTest, ARefusedTextTakesThePlaceOfTheOneBefore) {
  std::string const before = chart->text();
  ChartTemplate application(chart->visualization(), nullptr);
  EXPECT_TRUE(application.setTemplate(templateOf(R"(<setFont size="9pt"/>)")));
  EXPECT_FALSE(application.setTemplate("<template/>"));
  application.applyTemplate();
  EXPECT_EQ(chart->text(), before);
}

TEST_F(TemplateTest, AfterARefusalAnotherTextIsTaken) {
  ChartTemplate application(chart->visualization(), nullptr);
  EXPECT_FALSE(application.setTemplate("<"));
  EXPECT_TRUE(application.setTemplate(templateOf(R"(<setFont size="9pt"/>)")));
  application.applyTemplate();
  EXPECT_EQ(valueOf("t1Text", "font_size"), "9pt");
}

TEST_F(TemplateTest, TheSameTextLooksTheSameOnFurtherCharts) {
  EXPECT_TRUE(apply(R"(<setFont size="9pt"/>)"));
  std::string const first = chart->text();
  load(everyPart);
  EXPECT_TRUE(apply(R"(<setFont size="9pt"/>)"));
  EXPECT_EQ(chart->text(), first);
}

TEST_F(TemplateTest, TheSameFaultIsToldAgain) {
  EXPECT_FALSE(apply(R"(<setFnt size="9pt"/>)"));
  auto const once = log();
  EXPECT_FALSE(apply(R"(<setFnt size="9pt"/>)"));
  EXPECT_EQ(log().size(), 2 * once.size());
}

TEST_F(TemplateTest, TheBaselineStaysAsItIs) {
  ParsedChart baseline(chartOf(everyPart));
  std::string const before = baseline.text();
  ChartTemplate application(chart->visualization(), &baseline.visualization());
  application.setTemplate(templateOf(R"(<setFont size="9pt"/>)"));
  application.applyTemplate();
  EXPECT_EQ(baseline.text(), before);
}

// What wins.
struct PrecedenceRow {
  std::string name;
  std::vector<std::string> templates;
  std::string expected;
};
std::ostream& operator<<(std::ostream& stream, PrecedenceRow const& row) { return stream << row.name; }

std::string titleColor(std::string const& color) {
  return R"(<setFont part="title" color=")" + color + "\"/>";
}
std::string textColor(std::string const& color) { return "<setFont color=\"" + color + "\"/>"; }

class PrecedenceTest : public TemplateTest, public testing::WithParamInterface<PrecedenceRow> {};
// The builder has said black.
INSTANTIATE_TEST_SUITE_P(
    All, PrecedenceTest,
    testing::Values(
        PrecedenceRow{"TheBuilderWhereNoTemplateSpeaks", {R"(<setFont size="9pt"/>)"}, "black"},
        PrecedenceRow{"ATemplateOverTheBuilder", {titleColor("red")}, "red"},
        PrecedenceRow{"ALaterInstruction", {titleColor("red") + titleColor("blue")}, "blue"},
        PrecedenceRow{"ALaterGeneralInstructionToo", {titleColor("red") + textColor("blue")}, "blue"},
        PrecedenceRow{"ALaterSpecialInstruction", {textColor("blue") + titleColor("red")}, "red"},
        PrecedenceRow{"ALaterTemplate", {titleColor("red"), textColor("green")}, "green"},
        PrecedenceRow{"TheLastOfMany", {titleColor("red"), titleColor("blue"), titleColor("red")}, "red"},
        PrecedenceRow{
            "ALaterTemplateThatIsSilentWinsNothing", {titleColor("red"), R"(<setFont size="9pt"/>)"}, "red"},
        PrecedenceRow{"NotARefusedOne", {titleColor("red"), titleColor("no colour")}, "red"}),
    [](auto const& row) { return row.param.name; });

TEST_P(PrecedenceTest, Wins) {
  chart->visualization().getStyleById(u"t1Text")->setColor(u"black");
  for (std::string const& each : GetParam().templates) apply(each);
  EXPECT_EQ(valueOf("t1Text", "color"), GetParam().expected);
}

// Observers.
TEST_F(TemplateTest, AnObserverHearsOfEachValueAndItsPlace) {
  std::string const text = templateOf(
      "<setFont part=\"title\" size=\"9pt\" color=\"red\"/>\n"
      "  <setLook part=\"legend\">\n    <style color2=\"blue\"/></setLook>\n"
      "<setAxis role=\"x\" gridlines=\"false\" tickLength=\"3pt\" labelAngle=\"45\" stagger=\"true\"/>");
  applyText(text);
  EXPECT_THAT(writes->lines(),
              ElementsAre("xTicks gridline=false @5:1", "t1Text font_size=9pt @2:1", "t1Text color=red @2:1",
                          "t2Text font_size=9pt @2:1", "t2Text color=red @2:1", "legendBox color2=blue @4:5",
                          "xTicks length=3pt @5:1", "xTicks labelAngle=45 @5:1", "xTicks stagger=true @5:1"));
  for (Written const& write : writes->writes) EXPECT_EQ(write.text, text);
}

TEST_F(TemplateTest, AnObserverHearsOfTheValuesOfCycles) {
  apply(
      "<setCycle aesthetic=\"color\"><cycle>\n<style color=\"red\"/>\n<style "
      "color=\"blue\"/></cycle></setCycle>");
  EXPECT_THAT(writes->lines(), ElementsAre("style color=red @3:1", "style color=blue @4:1"));
}

TEST_F(TemplateTest, AnObserverHearsAfterTheChange) {
  class Watch : public kestrel::host::TemplateObserver {
   public:
    void written(kestrel::host::TemplateWrite const& write) override {
      char16_t const* const value = write.element.getAttribute(ChartString(write.attribute.c_str()).xc_str());
      seen.push_back(value != nullptr ? ChartString(value).toUTF8() : "(absent)");
    }
    std::vector<std::string> seen;
  };
  auto const watch = std::make_shared<Watch>();
  auto const application = kestrel::host::XmlTemplateEngine(watch).start(chart->visualization(), nullptr);
  application->set(templateOf(R"(<setFont part="subtitle" size="9pt"/>)"));
  application->apply();
  EXPECT_THAT(watch->seen, ElementsAre("9pt"));
}

TEST_F(TemplateTest, AnObserverMayOutliveNobody) {
  auto const application = kestrel::host::XmlTemplateEngine().start(chart->visualization(), nullptr);
  EXPECT_TRUE(application->set(templateOf(R"(<setFont part="subtitle" size="9pt"/>)")));
  application->apply();
  EXPECT_EQ(valueOf("stText", "font_size"), "9pt");
}

// Twice is once.
char const everyInstruction[] =
    R"(<setFont family="serif" size="9pt"/><setLook part="chart"><style color="white"/></setLook>)"
    R"(<setLook part="gridline"><style color="grey"/></setLook><setStyle type="all"><style color="red"/></setStyle>)"
    R"(<setAxis gridlines="true" tickLength="2pt" labelAngle="30" stagger="true"/>)"
    R"(<setColor aestheticNumber="1"><cycle><style color="red"/><style color="blue"/></cycle></setColor>)"
    R"(<setCycle aesthetic="shape"><cycle><style symbol="star"/></cycle></setCycle>)"
    R"(<addFrame type="visualization" styleOnly="true"><style color2="red"/></addFrame>)"
    R"(<addFrame type="graph" styleOnly="true"><style color2="red"/></addFrame>)";

TEST_F(TemplateTest, ATemplateThatIsAppliedTwiceGivesTheSameChart) {
  apply(everyInstruction);
  std::string const once = chart->text();
  apply(everyInstruction);
  EXPECT_EQ(chart->text(), once);
}

/// Cycles that say nothing of their kind, and values that could be those of another.
TEST_F(TemplateTest, CyclesAreTheSameTheSecondTime) {
  load(
      R"(<graph id="g"><point id="p"><color/><styleBy/><styleBy styleCycle="a"/><styleBy styleCycle="b"/></point></graph>)"
      R"(<styleCycle id="a"><cycle><style pattern="1"/></cycle></styleCycle>)"
      R"(<styleCycle id="b"><cycle><style color="red"/></cycle></styleCycle>)");
  std::string const instructions =
      R"(<setCycle aesthetic="color"><cycle><style color="grey" pattern="3" symbol="star"/></cycle></setCycle>)"
      R"(<setCycle aesthetic="pattern"><cycle><style color="blue" pattern="5"/></cycle></setCycle>)"
      R"(<setColor aestheticNumber="1"><cycle><style color="black"/><style color="white"/></cycle></setColor>)";
  apply(instructions);
  std::string const once = chart->text();
  EXPECT_THAT(cycleOf("a", "pattern"), ElementsAre("5"));
  EXPECT_THAT(cycleOf("b", "pattern"), ElementsAre("3"));
  apply(instructions);
  EXPECT_EQ(chart->text(), once);
}

TEST_F(TemplateTest, TheSameOnAChartThatWasWrittenAndReadInBetween) {
  apply(everyInstruction);
  std::string const once = chart->text();
  chart = std::make_unique<ParsedChart>(once);
  apply(everyInstruction);
  EXPECT_EQ(chart->text(), once);
}

// Failures on the way.
class NthChange : public LumoChangeObserver {
 public:
  NthChange(LumoDocument& document, unsigned int number) : mDocument(document), mLeft(number) {
    document.setChangeObserver(this);
  }
  NthChange(NthChange const&) = delete;
  NthChange& operator=(NthChange const&) = delete;
  ~NthChange() override { mDocument.setChangeObserver(nullptr); }

  void beforeChange(Kind, LumoBaseElement const&) override {
    if (--mLeft == 0) throw VexaGoToCaller();
  }
  bool happened() const { return mLeft == 0; }

 private:
  LumoDocument& mDocument;
  unsigned int mLeft;
};

TEST_F(TemplateTest, WhatThrowsHalfWayLeavesAValidChart) {
  std::string const bare =
      R"(<graph id="g"><coordinates><dimension><axis><label/><majorTicks/></axis></dimension></coordinates>)"
      R"(<point id="p"><color/></point></graph><legend id="l"/>)";
  std::string const instructions = std::string(everyInstruction) +
                                   R"(<addFrame type="visualization"><style color="red"/></addFrame>)"
                                   R"(<addFrame type="graph"><style color="red"/></addFrame>)";
  bool threw = true;
  unsigned int number = 0;
  while (threw) {
    load(bare);
    NthChange const trap(chart->document(), ++number);
    try {
      apply(instructions);
    } catch (VexaGoToCaller const&) {
    }
    threw = trap.happened();
    ASSERT_THAT(schemaErrors(chart->text()), IsEmpty()) << number;
    EXPECT_EQ(ParsedChart(chart->text()).text(), chart->text());
  }
  EXPECT_GT(number, 40u);
}

TEST_F(TemplateTest, WhatAnObserverThrowsLeavesTheTemplate) {
  class Refusing : public kestrel::host::TemplateObserver {
   public:
    void written(kestrel::host::TemplateWrite const&) override { throw VexaGoToCaller(); }
  };
  auto const application =
      kestrel::host::XmlTemplateEngine(std::make_shared<Refusing>()).start(chart->visualization(), nullptr);
  application->set(templateOf(R"(<setFont size="9pt"/>)"));
  EXPECT_THROW(application->apply(), VexaGoToCaller);
  EXPECT_THAT(styledWith("font_size", "9pt"), ElementsAre("t1Text"));
}

// Charts that are odd.
struct OddRow {
  std::string name;
  std::string content;
};
std::ostream& operator<<(std::ostream& stream, OddRow const& row) { return stream << row.name; }

class OddChartTest : public TemplateTest, public testing::WithParamInterface<OddRow> {};
INSTANTIATE_TEST_SUITE_P(
    All, OddChartTest,
    testing::Values(
        OddRow{"Empty", ""},
        OddRow{"TwoContainers",
               R"(<style id="container"/><style id="container"/><graph id="g"><line id="l"/></graph>)"},
        OddRow{"TheContainerIsUsedAsAStyle",
               R"(<style id="container"/><graph id="g"><line id="l" style="container"/></graph>)"},
        OddRow{
            "OneIdForAll",
            R"(<graph id="a"><line id="a" style="a"/><point id="a" style="a"/></graph><style id="a"><style id="a"/></style>)"},
        OddRow{
            "NestedContainers",
            R"(<container><container><labelFrame id="t"><label purpose="1"/></labelFrame><legend id="l"/></container></container>)"},
        OddRow{"ACycleThatIsItsOwnRepository",
               R"(<styleCycle id="styleCycleRepository"/><styleCycle id="styleCycleRepository"/>)"},
        OddRow{
            "TakenNames",
            R"(<graph id="template_line_style"><line id="l"/><line id="template_line_style_1"/></graph>)"}),
    [](auto const& row) { return row.param.name; });

TEST_P(OddChartTest, StaysValidAndTheSameTheSecondTime) {
  load(GetParam().content);
  EXPECT_TRUE(apply(everyInstruction));
  EXPECT_THAT(schemaErrors(chart->text()), IsEmpty());
  std::string const once = chart->text();
  EXPECT_TRUE(apply(everyInstruction));
  EXPECT_EQ(chart->text(), once);
}

TEST_F(TemplateTest, AChartWithoutANamespaceKeepsItThatWay) {
  chart = std::make_unique<ParsedChart>(
      R"(<visualization><graph id="g"><line id="l"/></graph><style id="container"/></visualization>)");
  apply(R"(<setStyle type="line"><style color="red"/></setStyle>)");
  EXPECT_EQ(valueOf("template_line_style", "color"), "red");
  load("");
}

TEST_F(TemplateTest, AChartWithPrefixesIsAddressedToo) {
  chart = std::make_unique<ParsedChart>(
      R"(<v:visualization xmlns:v="http://xml.vexa.example/visualization"><v:graph id="g"><v:line id="l"/></v:graph></v:visualization>)");
  apply(R"(<setStyle type="line"><style color="red"/></setStyle>)");
  EXPECT_EQ(valueOf(valueOf("l", "style"), "color"), "red");
}

TEST_F(TemplateTest, WhatIsMadeInAChartWithPrefixesHasNoneInItsId) {
  chart = std::make_unique<ParsedChart>(
      R"(<v:visualization xmlns:v="http://xml.vexa.example/visualization"><v:graph id="g"><v:line id="l"/></v:graph></v:visualization>)");
  apply(R"(<setStyle type="line"><style color="red"/></setStyle>)");
  EXPECT_EQ(valueOf("l", "style"), "template_line_style");
}

// The container of styles where something else has its id.
TEST_F(TemplateTest, TheContainerTakesTheNextIdThatIsFree) {
  load(R"(<graph id="container"><line id="l"/><point id="p"/></graph>)");
  apply(R"(<setStyle type="line"><style color="red"/></setStyle>)");
  EXPECT_NE(
      chart->text().find(R"(<style id="container_1"><style color="red" id="template_line_style"/></style>)"),
      std::string::npos)
      << chart->text();
  apply(R"(<setStyle type="scatter"><style color="red"/></setStyle>)");
  EXPECT_EQ(valueOf("container_2", "id"), "(no element container_2)");
  std::string const once = chart->text();
  apply(R"(<setStyle type="all"><style color="red"/></setStyle>)");
  EXPECT_EQ(chart->text(), once);
}

// A chart of many styles must not take time by the square of their number.
TEST_F(TemplateTest, TheContainerIsLookedForOnce) {
  std::string content = R"(<graph id="g">)";
  for (int line = 0; line < 4000; ++line) content += "<line/>";
  content += "</graph>";
  for (int style = 0; style < 20000; ++style) content += "<style/>";
  load(content);
  EXPECT_TRUE(apply(R"(<setStyle type="line"><style color="red"/></setStyle>)"));
  EXPECT_EQ(valueOf("template_line_style_3999", "color"), "red");
}

// How much one template may do.
std::string repeated(std::string const& text, std::size_t count) {
  std::string all;
  for (std::size_t each = 0; each < count; ++each) all += text;
  return all;
}

TEST_F(TemplateTest, TenThousandFramesAreNotTooMany) {
  load(repeated("<graph/>", 100));
  EXPECT_TRUE(apply(repeated(R"(<addFrame type="graph" count="10"/>)", 10)));
  EXPECT_THAT(log(), IsEmpty());
  EXPECT_EQ(chart->visualization().getGraphs().front()->getFrameGuides().size(), 100u);
}

TEST_F(TemplateTest, ATemplateThatAddsTooManyFramesChangesNothing) {
  load(repeated("<graph/>", 100));
  std::string const before = chart->text();
  std::string const instructions = "<setLook part=\"graph\"><style color=\"red\"/></setLook>\n" +
                                   repeated(R"(<addFrame type="graph" count="10"/>)", 10) +
                                   "\n <addFrame type=\"visualization\"/>\n<addFrame type=\"graph\"/>";
  EXPECT_TRUE(apply(instructions));
  EXPECT_THAT(log(), ElementsAre("template, line 4, column 2: with this addFrame the template adds more than "
                                 "10000 frames to the chart; shorten it"));
  EXPECT_EQ(chart->text(), before);
}

TEST_F(TemplateTest, ATemplateThatWritesTooManyValuesChangesNothing) {
  load(R"(<graph id="g"><coordinates>)" + repeated("<dimension><axis><majorTicks/></axis></dimension>", 400) +
       "</coordinates></graph>");
  std::string const before = chart->text();
  std::string const look = "<setLook part=\"tickLabel\"><style color=\"red\" visible=\"true\"/></setLook>\n";
  // Without an observer, which would keep all that is written.
  auto const application = kestrel::host::XmlTemplateEngine().start(chart->visualization(), nullptr);
  EXPECT_TRUE(application->set(templateOf("<setAxis stagger=\"true\"/>\n" + repeated(look, 2600))));
  application->apply();
  EXPECT_THAT(log(),
              ElementsAre("template, line 2502, column 1: with this setLook the template writes more than "
                          "2000000 values into the chart; shorten it"));
  EXPECT_EQ(chart->text(), before);
}

}  // namespace
