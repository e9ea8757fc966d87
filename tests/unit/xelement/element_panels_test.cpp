// Elements that are shown in some panels only.

#include "element_fixture.h"

#include "host/chartbase.h"
#include "host/messages.h"
#include "model/aesthetics.h"
#include "model/style.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char const* context = "Error in XElement::hideInAllPanelsExcept()";

class PanelTest : public ElementTest {
 protected:
  LumoConditionalStyle* conditional(std::size_t index = 0) const {
    return model.getConditionalStyles().at(index);
  }
  std::string condition() const { return utf8(conditional()->getWhen()); }
  LumoStyle* hidden() const { return visualization.getStyleById(u"hidden"); }
};

TEST_F(PanelTest, WritesInItsFixedOrder) {
  EXPECT_THAT(
      writesOf([&] { EXPECT_TRUE(element.hideInAllPanelsExcept(2, 1)); }),
      ElementsAre("style adds style", "style id=hidden", "style visible=false", "point adds conditionalStyle",
                  "conditionalStyle when=facet2 != \"1\"", "conditionalStyle style=hidden"));
}

TEST_F(PanelTest, AnotherCallWritesInItsFixedOrder) {
  element.hideInAllPanelsExcept(2, 1);
  EXPECT_THAT(
      writesOf([&] { EXPECT_TRUE(element.hideInAllPanelsExcept(1, 3)); }),
      ElementsAre("style writes the same", "conditionalStyle when=facet2 != \"1\" && facet1 != \"3\""));
}

TEST_F(PanelTest, OfALevelBelowOneDoesNothing) {
  for (int const level : {0, -1, std::numeric_limits<int>::min()}) {
    EXPECT_THAT(writesOf([&] { EXPECT_FALSE(element.hideInAllPanelsExcept(level, 5)); }), IsEmpty()) << level;
  }
  EXPECT_EQ(hidden(), nullptr);
  expectNoReport(recorder);
}

TEST_F(PanelTest, OfALevelBelowOneLeavesTheConditionThatIsThere) {
  element.hideInAllPanelsExcept(1, 1);
  EXPECT_FALSE(element.hideInAllPanelsExcept(0, 5));
  EXPECT_EQ(condition(), "facet1 != \"1\"");
}

TEST_F(PanelTest, HidesTheElementThroughTheSharedStyle) {
  element.hideInAllPanelsExcept(1, 1);
  EXPECT_EQ(conditional()->getStyle(), hidden());
  EXPECT_THAT(container.getStyles(), ElementsAre(hidden()));
  EXPECT_EQ(attribute(hidden(), u"visible"), "false");
}

TEST_F(PanelTest, OneStyleHidesAllElements) {
  LumoLine& lineModel = *graph.addLine(u"line");
  XElement line(lineModel);
  element.hideInAllPanelsExcept(1, 1);
  element.hideInAllPanelsExcept(2, 1);
  line.hideInAllPanelsExcept(1, 1);
  EXPECT_EQ(container.getStyles().size(), 1u);
  ASSERT_EQ(lineModel.getConditionalStyles().size(), 1u);
  EXPECT_EQ(lineModel.getConditionalStyles().front()->getStyle(), hidden());
}

TEST_F(PanelTest, HidesAStyleOfTheNameThatTheChartHas) {
  LumoStyle& there = *container.addStyle();
  there.setId(u"hidden");
  there.setVisible(true);
  element.hideInAllPanelsExcept(1, 1);
  EXPECT_EQ(container.getStyles().size(), 1u);
  EXPECT_EQ(attribute(&there, u"visible"), "false");
}

TEST_F(PanelTest, CallsNarrowOneCondition) {
  element.hideInAllPanelsExcept(1, 1);
  element.hideInAllPanelsExcept(2, 3);
  element.hideInAllPanelsExcept(10, 2);
  EXPECT_EQ(model.getConditionalStyles().size(), 1u);
  EXPECT_EQ(condition(), "facet1 != \"1\" && facet2 != \"3\" && facet10 != \"2\"");
}

TEST_F(PanelTest, TheSamePanelTwiceStandsTwice) {
  element.hideInAllPanelsExcept(1, 1);
  element.hideInAllPanelsExcept(1, 1);
  EXPECT_EQ(condition(), "facet1 != \"1\" && facet1 != \"1\"");
}

TEST_F(PanelTest, ValuesAreWrittenInTheirShortestForm) {
  for (double const value : {0.5, -3.0, 0.1 + 0.2}) element.hideInAllPanelsExcept(1, value);
  EXPECT_EQ(condition(), "facet1 != \"0.5\" && facet1 != \"-3\" && facet1 != \"0.30000000000000004\"");
}

TEST_F(PanelTest, ExtendsTheFirstConditionalStyleWhoseverItIs) {
  LumoStyle& theirs = *container.addStyle();
  theirs.setId(u"theirs");
  model.addConditionalStyle(u"a == 1", theirs);
  model.addConditionalStyle(u"b == 2", theirs);
  element.hideInAllPanelsExcept(1, 1);
  ASSERT_EQ(model.getConditionalStyles().size(), 2u);
  EXPECT_EQ(utf8(conditional(0)->getWhen()), "a == 1 && facet1 != \"1\"");
  EXPECT_EQ(conditional(0)->getStyle(), &theirs) << "the style stays";
  EXPECT_EQ(utf8(conditional(1)->getWhen()), "b == 2");
}

TEST_F(PanelTest, AFailureGivesNo) {
  bool done = true;
  failAtChange(1, [&] { done = element.hideInAllPanelsExcept(1, 1); });
  EXPECT_FALSE(done);
  expectGuardReport(recorder, context);
}

TEST_F(PanelTest, AFailureLeavesWhatWasWritten) {
  bool done = true;
  failAtChange(4, [&] { done = element.hideInAllPanelsExcept(1, 1); });
  EXPECT_FALSE(done);
  expectGuardReport(recorder, context);
  EXPECT_EQ(attribute(hidden(), u"visible"), "false");
  EXPECT_THAT(model.getConditionalStyles(), IsEmpty());
}

TEST_F(PanelTest, AFailureOfTheConditionLeavesTheOneThatIsThere) {
  element.hideInAllPanelsExcept(1, 1);
  failAtChange(2, [&] { EXPECT_FALSE(element.hideInAllPanelsExcept(2, 1)); });
  expectGuardReport(recorder, context);
  EXPECT_EQ(condition(), "facet1 != \"1\"");
}

TEST_F(PanelTest, AMissingStyleContainerIsReported) {
  container.setId(u"another");
  EXPECT_FALSE(element.hideInAllPanelsExcept(1, 1));
  expectGuardReport(recorder, context);
}

TEST_F(PanelTest, AnElementOfTheStylesIdThatIsNoStyleIsReported) {
  visualization.addSourceVariable(u"hidden");
  EXPECT_FALSE(element.hideInAllPanelsExcept(1, 1));
  expectGuardReport(recorder, context);
  EXPECT_THAT(model.getConditionalStyles(), IsEmpty());
}

TEST_F(PanelTest, TheHostsUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { element.hideInAllPanelsExcept(1, 1); }), VexaGoToCaller);
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
