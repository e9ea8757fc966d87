// Colours and cycles: setColor and setCycle.

#include "template_fixture.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::ElementsAre;

namespace {

char const twoColors[] = R"(<cycle><style color="#010101"/><style color="#020202"/></cycle>)";

std::string setColor(int number, std::string const& cycle = twoColors) {
  return "<setColor aestheticNumber=\"" + std::to_string(number) + "\">" + cycle + "</setColor>";
}
std::string setCycle(std::string const& aesthetic, std::string const& styles) {
  return "<setCycle aesthetic=\"" + aesthetic + "\"><cycle>" + styles + "</cycle></setCycle>";
}

/// Five aesthetics that colour, in document order, and others between them.
char const manyAesthetics[] =
    R"(<graph id="g"><interval id="i"><styleBy id="a1" styleCycle="c1"/><shape id="s" cycle="shapes"/>)"
    R"(<styleBy id="p" styleCycle="patterns"/><color id="a2" cycle="c2"/></interval>)"
    R"(<point id="q"><color id="a3" cycle="c3"/><dash id="d" cycle="dashes"/></point>)"
    R"(<line id="l"><styleBy id="a4" styleCycle="c4"/><styleBy id="a5" styleCycle="c5"/></line></graph>)"
    R"(<styleCycle id="c1"><extension aesthetic="color"/><cycle><style/></cycle></styleCycle>)"
    R"(<styleCycle id="c2"><cycle><style color="red"/><style color="blue"/><style color="green"/></cycle></styleCycle>)"
    R"(<styleCycle id="c3"/>)"
    R"(<styleCycle id="c4"><cycle><style/></cycle></styleCycle>)"
    R"(<styleCycle id="c5"><cycle><style color="red" pattern="2"/></cycle></styleCycle>)"
    R"(<styleCycle id="shapes"><cycle><style symbol="circle"/></cycle></styleCycle>)"
    R"(<styleCycle id="patterns"><extension aesthetic="pattern"/><cycle><style/></cycle></styleCycle>)"
    R"(<styleCycle id="dashes"><cycle><style stroke_dasharray="2pt"/></cycle></styleCycle>)";

class SetColorTest : public TemplateTest, public testing::WithParamInterface<int> {
 protected:
  SetColorTest() { load(manyAesthetics); }
};
INSTANTIATE_TEST_SUITE_P(All, SetColorTest, testing::Range(1, 6));

TEST_P(SetColorTest, FillsTheCycleOfTheAestheticOfThatNumber) {
  EXPECT_TRUE(apply(setColor(GetParam())));
  for (int number = 1; number <= 5; ++number) {
    std::vector<std::string> const colors = cycleOf("c" + std::to_string(number), "color");
    bool const filled = colors == std::vector<std::string>{"#010101", "#020202"};
    EXPECT_EQ(filled, number == GetParam()) << number;
  }
  EXPECT_THAT(cycleOf("shapes", "color"), ElementsAre("(absent)"));
  EXPECT_THAT(cycleOf("patterns", "color"), ElementsAre("(absent)"));
  EXPECT_THAT(cycleOf("dashes", "color"), ElementsAre("(absent)"));
}

TEST_F(TemplateTest, ColorsBeyondTheAestheticsOfAGraphChangeNothing) {
  load(R"(<graph id="g"><point id="p"><color id="c"/></point></graph>)");
  std::string const before = chart->text();
  EXPECT_TRUE(apply(setColor(2)));
  EXPECT_EQ(chart->text(), before);
}

TEST_F(TemplateTest, EachGraphCountsItsOwnAesthetics) {
  load(R"(<graph id="g"><point id="p"><color cycle="a"/></point></graph>)"
       R"(<graph id="h"><point id="q"><color cycle="b"/></point></graph>)"
       R"(<styleCycle id="a"/><styleCycle id="b"/>)");
  apply(setColor(1));
  EXPECT_THAT(cycleOf("a", "color"), ElementsAre("#010101", "#020202"));
  EXPECT_THAT(cycleOf("b", "color"), ElementsAre("#010101", "#020202"));
}

TEST_F(TemplateTest, AnAestheticWithoutACycleGetsOneOfItsOwn) {
  load(R"(<graph id="g"><point id="p"><color id="c"/><styleBy id="s"/></point></graph>)");
  apply(setColor(1) + setColor(2));
  EXPECT_EQ(valueOf("c", "cycle"), "template_colorCycle");
  EXPECT_EQ(valueOf("s", "styleCycle"), "template_colorCycle_1");
  EXPECT_THAT(cycleOf("template_colorCycle", "color"), ElementsAre("#010101", "#020202"));
  EXPECT_NE(chart->text().find(R"(<styleCycle id="template_colorCycle"><extension aesthetic="color"/>)"),
            std::string::npos);
}

TEST_F(TemplateTest, AnAestheticThatLivesOnTheRepositoryGetsACycleOfItsOwn) {
  load(R"(<graph id="g"><point id="p"><color id="c" cycle="styleCycleRepository"/></point></graph>)"
       R"(<styleCycle id="styleCycleRepository"><cycle><style color="black"/></cycle></styleCycle>)");
  apply(setColor(1));
  EXPECT_EQ(valueOf("c", "cycle"), "template_colorCycle");
  EXPECT_THAT(cycleOf("styleCycleRepository", "color"), ElementsAre("black"));
}

TEST_F(TemplateTest, ColorsLeaveTheOtherPropertiesOfACyclesStyles) {
  load(manyAesthetics);
  apply(setColor(5));
  EXPECT_THAT(cycleOf("c5", "pattern"), ElementsAre("2", "(absent)"));
}

TEST_F(TemplateTest, ALongerCycleIsCutToTheColors) {
  load(manyAesthetics);
  apply(setColor(2, R"(<cycle><style color="#010101"/></cycle>)"));
  EXPECT_THAT(cycleOf("c2", "color"), ElementsAre("#010101"));
}

TEST_F(TemplateTest, AStyleThatLeavesACycleIsNotFoundAnyMore) {
  load(R"(<graph id="g"><point id="p"><color cycle="c"/></point></graph>)"
       R"(<styleCycle id="c"><cycle><style id="first"/><style id="second"/></cycle></styleCycle>)");
  apply(setColor(1, R"(<cycle><style color="#010101"/></cycle>)"));
  EXPECT_NE(chart->visualization().getStyleById(u"first"), nullptr);
  EXPECT_EQ(chart->visualization().getStyleById(u"second"), nullptr);
}

// What the library itself writes, with its double quotes.
TEST_F(TemplateTest, TheLibrarysOwnColorsReachFiveAesthetics) {
  load(manyAesthetics);
  for (int number = 1; number <= 5; ++number) {
    EXPECT_TRUE(apply("<setColor aestheticNumber=\"" + std::to_string(number) +
                      "\"><cycle><style color=\"#ff0000\"/></cycle></setColor>"));
  }
  for (char const* const cycle : {"c1", "c2", "c3", "c4", "c5"}) {
    EXPECT_THAT(cycleOf(cycle, "color"), ElementsAre("#ff0000")) << cycle;
  }
}

struct CycleRow {
  std::string aesthetic;
  std::string attribute;
  std::string value;
  /// The cycles of `manyAesthetics` that serve it.
  std::vector<std::string> cycles;
};

std::ostream& operator<<(std::ostream& stream, CycleRow const& row) { return stream << row.aesthetic; }

class SetCycleTest : public TemplateTest, public testing::WithParamInterface<CycleRow> {};
INSTANTIATE_TEST_SUITE_P(
    All, SetCycleTest,
    testing::Values(CycleRow{"color", "color", "#0A0A0A", {"c1", "c2", "c3", "c4", "c5"}},
                    CycleRow{"pattern", "pattern", "7", {"patterns"}},
                    CycleRow{"shape", "symbol", "star", {"shapes"}},
                    CycleRow{"dash", "stroke_dasharray", "9pt,1pt", {"dashes"}}));

TEST_P(SetCycleTest, FillsTheRepositoryAndTheCyclesOfThatKind) {
  CycleRow const& row = GetParam();
  load(manyAesthetics);
  EXPECT_TRUE(apply(setCycle(row.aesthetic, "<style " + row.attribute + "=\"" + row.value + "\"/>")));
  EXPECT_THAT(cycleOf("cycle_" + row.aesthetic, row.attribute), ElementsAre(row.value));
  for (char const* const cycle : {"c1", "c2", "c3", "c4", "c5", "patterns", "shapes", "dashes"}) {
    bool const filled = cycleOf(cycle, row.attribute) == std::vector<std::string>{row.value};
    bool const meant = std::find(row.cycles.begin(), row.cycles.end(), cycle) != row.cycles.end();
    EXPECT_EQ(filled, meant) << cycle;
  }
}

TEST_F(TemplateTest, AChartWithoutARepositoryGetsOne) {
  load("");
  apply(setCycle("shape", R"(<style symbol="circle"/>)"));
  EXPECT_EQ(chart->text(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" +
                               chartOf(R"(<styleCycle id="styleCycleRepository"><cycle id="cycle_shape">)"
                                       R"(<style symbol="circle"/></cycle></styleCycle>)"
                                       R"(<extension styleCycleRepository="styleCycleRepository"/>)"));
}

TEST_F(TemplateTest, TheRepositoryThatIsThereKeepsItsOtherCycles) {
  apply(setCycle("dash", R"(<style stroke_dasharray="1pt"/>)"));
  EXPECT_NE(chart->text().find(
                R"(<styleCycle id="styleCycleRepository"><cycle><style/></cycle><cycle id="cycle_dash">)"),
            std::string::npos);
}

TEST_F(TemplateTest, ALaterCycleTakesThePlaceOfAnEarlierOne) {
  apply(setCycle("color", R"(<style color="red"/><style color="blue"/><style color="green"/>)"));
  apply(setCycle("color", R"(<style color="black"/><style color="white"/>)"));
  EXPECT_THAT(cycleOf("cycle_color", "color"), ElementsAre("black", "white"));
}

TEST_F(TemplateTest, AValueOfACycleCanHaveFurtherProperties) {
  apply(setCycle("color", R"(<style color="red" pattern="3"/>)"));
  EXPECT_THAT(cycleOf("cycle_color", "pattern"), ElementsAre("3"));
}

TEST_F(TemplateTest, TheRepositoryItselfIsNoCycleOfAnAesthetic) {
  load(R"(<graph id="g"><point id="p"><color cycle="styleCycleRepository"/></point></graph>)"
       R"(<styleCycle id="styleCycleRepository"><cycle id="other"><style/></cycle></styleCycle>)");
  apply(setCycle("color", R"(<style color="red"/>)"));
  EXPECT_THAT(cycleOf("other", "color"), ElementsAre("(absent)"));
}

// A style-by whose cycle says nothing is known by its styles.
TEST_F(TemplateTest, TheStylesOfACycleShowWhatItVaries) {
  load(
      R"(<graph id="g"><point id="p"><styleBy styleCycle="a"/><styleBy styleCycle="b"/><styleBy styleCycle="c"/></point></graph>)"
      R"(<styleCycle id="a"><cycle><style pattern="1"/></cycle></styleCycle>)"
      R"(<styleCycle id="b"><cycle><style symbol="circle"/></cycle></styleCycle>)"
      R"(<styleCycle id="c"><cycle><style stroke_dasharray=""/></cycle></styleCycle>)");
  apply(setCycle("pattern", R"(<style pattern="9"/>)") + setCycle("shape", R"(<style symbol="star"/>)") +
        setCycle("dash", R"(<style stroke_dasharray="5pt"/>)") + setColor(1));
  EXPECT_THAT(cycleOf("a", "pattern"), ElementsAre("9"));
  EXPECT_THAT(cycleOf("b", "symbol"), ElementsAre("star"));
  EXPECT_THAT(cycleOf("c", "stroke_dasharray"), ElementsAre("5pt"));
  EXPECT_TRUE(styledWith("color", "#010101").empty());
}

// Aesthetics that do not take the values of a cycle one after the other.
struct AloneRow {
  std::string name;
  std::string aesthetic;
  bool takesTurns;
};
std::ostream& operator<<(std::ostream& stream, AloneRow const& row) { return stream << row.name; }

class AloneTest : public TemplateTest, public testing::WithParamInterface<AloneRow> {
 protected:
  AloneTest() {
    load(
        R"(<sourceVariable id="categories" categorical="true"/><sourceVariable id="numbers" categorical="false"/>)"
        R"(<sourceVariable id="unsaid"/><sourceVariable id="dated" domain="span"/>)"
        R"(<sourceVariable id="listed" domain="list"/>)"
        R"(<categoricalDomain id="list"/><intervalDomain id="span"/>)"
        R"(<graph id="g"><point id="p">)" +
        GetParam().aesthetic +
        R"(</point></graph><styleCycle id="c"><cycle><style color="blue"/><style color="red"/></cycle></styleCycle>)");
  }
};
INSTANTIATE_TEST_SUITE_P(
    All, AloneTest,
    testing::Values(
        AloneRow{"Categorical", R"(<color variable="categories" cycle="c"/>)", true},
        AloneRow{"WithoutAVariable", R"(<color cycle="c"/>)", true},
        AloneRow{"Numbers", R"(<color variable="numbers" cycle="c"/>)", false},
        AloneRow{"NotSaidToBeCategorical", R"(<color variable="unsaid" cycle="c"/>)", false},
        AloneRow{"OverASpan", R"(<color variable="dated" cycle="c"/>)", false},
        AloneRow{"OverAListOfTheVariable", R"(<color variable="listed" cycle="c"/>)", true},
        AloneRow{"OverAListOfItsOwn", R"(<color variable="numbers" domain="list" cycle="c"/>)", true},
        AloneRow{"OwnMappings",
                 R"(<color variable="categories" cycle="c"><colorMapping from="0" to="green"/></color>)",
                 false},
        AloneRow{"WholeStyles", R"(<styleBy variable="numbers" styleCycle="c"/>)", true}),
    [](auto const& row) { return row.param.name; });

TEST_P(AloneTest, KeepsItsCycleFromSetColorWhereItDoesNotTakeTurns) {
  std::string const before = chart->text();
  EXPECT_TRUE(apply(setColor(1)));
  if (GetParam().takesTurns) {
    EXPECT_THAT(cycleOf("c", "color"), ElementsAre("#010101", "#020202"));
  } else {
    EXPECT_EQ(chart->text(), before);
  }
}

TEST_P(AloneTest, KeepsItsCycleFromSetCycleWhereItDoesNotTakeTurns) {
  EXPECT_TRUE(apply(setCycle("color", R"(<style color="black"/>)")));
  if (GetParam().takesTurns) {
    EXPECT_THAT(cycleOf("c", "color"), ElementsAre("black"));
  } else {
    EXPECT_THAT(cycleOf("c", "color"), ElementsAre("blue", "red"));
  }
  EXPECT_THAT(cycleOf("cycle_color", "color"), ElementsAre("black"));
}

TEST_F(TemplateTest, AColorRangeWithoutACycleGetsNone) {
  load(
      R"(<sourceVariable id="v" categorical="false"/><graph id="g"><point id="p"><color id="c" variable="v"/></point></graph>)");
  apply(setColor(1));
  EXPECT_EQ(valueOf("c", "cycle"), "(absent)");
}

TEST_F(TemplateTest, AColorRangeCountsAmongTheColoringAesthetics) {
  load(
      R"(<sourceVariable id="v" categorical="false"/><graph id="g"><point id="p"><color variable="v" cycle="a"/><color cycle="b"/></point></graph>)"
      R"(<styleCycle id="a"/><styleCycle id="b"/>)");
  apply(setColor(2));
  EXPECT_THAT(cycleOf("a", "color"), ElementsAre());
  EXPECT_THAT(cycleOf("b", "color"), ElementsAre("#010101", "#020202"));
}

TEST_F(TemplateTest, ShapesWithMappingsOfTheirOwnStayAsTheyAre) {
  load(
      R"(<graph id="g"><point id="p"><shape cycle="a"><symbolMapping from="0" to="square"/></shape><shape cycle="b"/></point></graph>)"
      R"(<styleCycle id="a"><cycle><style symbol="plus"/></cycle></styleCycle><styleCycle id="b"/>)");
  apply(setCycle("shape", R"(<style symbol="star"/>)"));
  EXPECT_THAT(cycleOf("a", "symbol"), ElementsAre("plus"));
  EXPECT_THAT(cycleOf("b", "symbol"), ElementsAre("star"));
}

// Cycles that several aesthetics have.
char const sharedCycle[] =
    R"(<graph id="g"><point id="p"><color id="first" cycle="c"/><color id="second" cycle="c"/></point></graph>)"
    R"(<styleCycle id="c"><extension aesthetic="color" more="x"/><cycle><style color="red" size="3pt"/><style color="blue"/></cycle></styleCycle>)";

TEST_F(TemplateTest, ColorsForOneAestheticLeaveTheCycleToTheOther) {
  load(sharedCycle);
  apply(setColor(1));
  EXPECT_EQ(valueOf("first", "cycle"), "c_1");
  EXPECT_EQ(valueOf("second", "cycle"), "c");
  EXPECT_THAT(cycleOf("c", "color"), ElementsAre("red", "blue"));
  EXPECT_THAT(cycleOf("c_1", "color"), ElementsAre("#010101", "#020202"));
  EXPECT_THAT(cycleOf("c_1", "size"), ElementsAre("3pt", "(absent)"));
  EXPECT_NE(chart->text().find(R"(<styleCycle id="c_1"><extension aesthetic="color" more="x"/>)"),
            std::string::npos);
}

TEST_F(TemplateTest, AnObserverHearsOfTheCopiesInACycle) {
  load(sharedCycle);
  apply(setColor(1));
  EXPECT_THAT(writes->copies, ElementsAre("style -> style", "style -> style"));
}

TEST_F(TemplateTest, ACycleThatWasSharedIsTheSameTheSecondTime) {
  load(sharedCycle);
  apply(setColor(1));
  std::string const once = chart->text();
  apply(setColor(1));
  EXPECT_EQ(chart->text(), once);
}

TEST_F(TemplateTest, OneCycleOfTheSameNumberInTwoGraphsStaysOne) {
  load(R"(<graph id="g"><point id="p"><color id="a" cycle="c"/></point></graph>)"
       R"(<graph id="h"><point id="q"><color id="b" cycle="c"/></point></graph><styleCycle id="c"/>)");
  apply(setColor(1));
  EXPECT_EQ(valueOf("a", "cycle"), "c");
  EXPECT_EQ(valueOf("b", "cycle"), "c");
  EXPECT_THAT(cycleOf("c", "color"), ElementsAre("#010101", "#020202"));
}

TEST_F(TemplateTest, ACycleForOneKindLeavesTheSameCycleOfAnotherKind) {
  load(
      R"(<graph id="g"><point id="p"><color id="a" cycle="c"/><pattern id="b" cycle="c"/></point></graph>)"
      R"(<styleCycle id="c"><cycle><style color="red" pattern="2"/><style color="blue" pattern="3"/></cycle></styleCycle>)");
  apply(setCycle("color", R"(<style color="black"/>)"));
  EXPECT_EQ(valueOf("a", "cycle"), "c_1");
  EXPECT_EQ(valueOf("b", "cycle"), "c");
  EXPECT_THAT(cycleOf("c", "color"), ElementsAre("red", "blue"));
  EXPECT_THAT(cycleOf("c_1", "color"), ElementsAre("black"));
}

TEST_F(TemplateTest, ACycleForAKindLeavesTheRangeThatHasTheSame) {
  load(
      R"(<sourceVariable id="v" categorical="false"/><graph id="g"><point id="p"><color id="a" cycle="c"/><color id="b" variable="v" cycle="c"/></point></graph>)"
      R"(<styleCycle id="c"><cycle><style color="red"/></cycle></styleCycle>)");
  apply(setCycle("color", R"(<style color="black"/>)"));
  EXPECT_THAT(cycleOf(valueOf("a", "cycle"), "color"), ElementsAre("black"));
  EXPECT_THAT(cycleOf(valueOf("b", "cycle"), "color"), ElementsAre("red"));
}

// Styles in cycles that something else names.
char const namedMember[] =
    R"(<graph id="g"><point id="p" style="named"><color cycle="c"/></point></graph>)"
    R"(<styleCycle id="c"><cycle><style color="red"/><style id="named" color="blue" size="3pt"/></cycle></styleCycle>)"
    R"(<style id="container"/>)";

TEST_F(TemplateTest, AStyleThatLeavesACycleStaysWhereItIsNamed) {
  load(namedMember);
  apply(setColor(1, R"(<cycle><style color="#010101"/></cycle>)"));
  EXPECT_THAT(cycleOf("c", "color"), ElementsAre("#010101"));
  EXPECT_EQ(valueOf("p", "style"), "named");
  EXPECT_EQ(valueOf("named", "color"), "blue");
  EXPECT_NE(
      chart->text().find(R"(<style id="container"><style color="blue" id="named" size="3pt"/></style>)"),
      std::string::npos);
}

TEST_F(TemplateTest, AStyleOfACycleThatSomethingNamesIsLeftToThat) {
  load(namedMember);
  apply(setColor(1));
  EXPECT_THAT(cycleOf("c", "color"), ElementsAre("#010101", "#020202"));
  EXPECT_THAT(cycleOf("c", "size"), ElementsAre("(absent)", "3pt"));
  EXPECT_EQ(valueOf("p", "style"), "named");
  EXPECT_EQ(valueOf("named", "color"), "blue");
  EXPECT_THAT(writes->copies, ElementsAre("named -> style"));
}

TEST_F(TemplateTest, AnElementThatNamesAStyleOfACycleGetsItsOwn) {
  load(namedMember);
  apply(R"(<setStyle type="scatter"><style color="black"/></setStyle>)");
  EXPECT_THAT(cycleOf("c", "color"), ElementsAre("red", "blue"));
  EXPECT_EQ(valueOf("p", "style"), "named_1");
  EXPECT_EQ(valueOf("named_1", "color"), "black");
}

TEST_F(TemplateTest, CyclesWithNamedStylesAreTheSameTheSecondTime) {
  load(namedMember);
  apply(setCycle("color", R"(<style color="black"/><style color="white"/>)"));
  std::string const once = chart->text();
  apply(setCycle("color", R"(<style color="black"/><style color="white"/>)"));
  EXPECT_EQ(chart->text(), once);
  chart = std::make_unique<ParsedChart>(once);
  apply(setCycle("color", R"(<style color="black"/><style color="white"/>)"));
  EXPECT_EQ(chart->text(), once);
}

// Ids that something else has.
TEST_F(TemplateTest, ARepositoryTakesTheNextIdThatIsFree) {
  load(R"(<graph id="styleCycleRepository"/><graph id="cycle_shape"/><graph id="cycle_shape_1"/>)");
  apply(setCycle("shape", R"(<style symbol="circle"/>)"));
  std::string const once = chart->text();
  EXPECT_NE(once.find(R"(<styleCycle id="styleCycleRepository_1"><cycle id="cycle_shape_2">)"),
            std::string::npos)
      << once;
  EXPECT_NE(once.find(R"(<extension styleCycleRepository="styleCycleRepository_1"/>)"), std::string::npos);
  apply(setCycle("shape", R"(<style symbol="circle"/>)"));
  EXPECT_EQ(chart->text(), once);
  chart = std::make_unique<ParsedChart>(once);
  apply(setCycle("shape", R"(<style symbol="circle"/>)"));
  EXPECT_EQ(chart->text(), once);
}

}  // namespace
