#include "support/chart_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace kestrel::test {
namespace {

TEST(ChartText, WritesANumberWithUpToSixteenDigits) {
  EXPECT_EQ(numberText(0.5).toUTF8(), "0.5");
  EXPECT_EQ(numberText(-3).toUTF8(), "-3");
  EXPECT_EQ(numberText(1.0 / 3).toUTF8(), "0.3333333333333333");
}

TEST(ChartText, JoinsTheParts) { EXPECT_EQ(joined({u"frame", u"_", u"legend"}).toUTF8(), "frame_legend"); }

TEST(ChartText, JoinsANullPartAsAnEmptyOne) { EXPECT_EQ(joined({nullptr, u"s"}).toUTF8(), "s"); }

TEST(ChartText, NumbersAnId) {
  EXPECT_EQ(numbered(u"source", 0).toUTF8(), "source0");
  EXPECT_EQ(numbered(u"element_bar_", 12).toUTF8(), "element_bar_12");
}

}  // namespace
}  // namespace kestrel::test
