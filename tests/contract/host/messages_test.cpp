#include "host/messages.h"

#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <type_traits>
#include <vector>

namespace {

std::string filled(std::string const& pattern, std::vector<std::string> const& cells) {
  BpComposite composite(pattern, true);
  for (std::string const& cell : cells) composite.Add(BpString(cell, false));
  composite.Finish();
  return composite.text();
}

TEST(BpStringTest, KeepsItsTextAndItsFlag) {
  EXPECT_EQ(BpString("from outside", false).text(), "from outside");
  EXPECT_FALSE(BpString("from outside", false).fixed());
  EXPECT_TRUE(BpString("ours", true).fixed());
}

TEST(BpStringTest, IsACellText) {
  BpString const text("one", true);
  BpCellText const& cell = text;
  EXPECT_EQ(cell.text(), "one");
  EXPECT_TRUE((std::is_base_of_v<BpCellText, BpComposite>));
}

TEST(BpCompositeTest, EachCellFillsThePlaceholderOfItsNumber) {
  EXPECT_EQ(filled("^1 not a valid file name...", {"a.csv"}), "a.csv not a valid file name...");
  EXPECT_EQ(filled("^2 before ^1", {"one", "two"}), "two before one");
}

TEST(BpCompositeTest, APlaceholderThatIsThereTwiceIsFilledTwice) {
  EXPECT_EQ(filled("^1^1", {"ab"}), "abab");
}

TEST(BpCompositeTest, ACellThatHoldsAPlaceholderIsNotFilledAgain) {
  EXPECT_EQ(filled("^1 and ^2", {"^2", "^1"}), "^2 and ^1");
}

TEST(BpCompositeTest, APlaceholderWithoutACellStays) { EXPECT_EQ(filled("^1 and ^2", {"a"}), "a and ^2"); }

TEST(BpCompositeTest, ACellWithoutAPlaceholderIsNotShown) { EXPECT_EQ(filled("nothing", {"a"}), "nothing"); }

TEST(BpCompositeTest, ACaretThatStandsForNoPlaceholderStays) {
  EXPECT_EQ(filled("^ ^0 ^x ^", {"a"}), "^ ^0 ^x ^");
  EXPECT_EQ(filled("^^1", {"a"}), "^a");
}

TEST(BpCompositeTest, APlaceholderHasOneDigit) { EXPECT_EQ(filled("^12", {"a"}), "a2"); }

TEST(BpCompositeTest, AnEmptyCellLeavesNothing) { EXPECT_EQ(filled("<^1>", {""}), "<>"); }

TEST(BpCompositeTest, IsThePatternUntilItIsFinished) {
  BpComposite composite("see ^1", true);
  composite.Add(BpString("x", false));
  EXPECT_EQ(composite.text(), "see ^1");
  composite.Finish();
  EXPECT_EQ(composite.text(), "see x");
  EXPECT_EQ(composite.pattern(), "see ^1");
}

TEST(BpCompositeTest, KeepsTheFlagsOfItsCells) {
  BpComposite composite("^1^2", true);
  composite.Add(BpString("a", false));
  composite.Add(BpString("b", true));
  EXPECT_TRUE(composite.fixed());
  ASSERT_EQ(composite.cells().size(), 2u);
  EXPECT_FALSE(composite.cells()[0].fixed());
  EXPECT_TRUE(composite.cells()[1].fixed());
}

TEST(VexaGoToCallerTest, IsNoStandardException) {
  EXPECT_FALSE((std::is_base_of_v<std::exception, VexaGoToCaller>));
}

}  // namespace
