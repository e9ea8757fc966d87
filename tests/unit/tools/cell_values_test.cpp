#include "chart/cell_values.h"

#include <gtest/gtest.h>

using kestrel::tool::isMissing;
using kestrel::tool::readMoment;
using kestrel::tool::readNumber;

namespace {

double numberOf(char const* cell) {
  auto const number = readNumber(cell);
  EXPECT_TRUE(number) << cell;
  return number ? number->value : 0;
}

unsigned int decimalsOf(char const* cell) {
  auto const number = readNumber(cell);
  EXPECT_TRUE(number) << cell;
  return number ? number->decimals : 0;
}

double secondsOf(char const* cell) {
  auto const moment = readMoment(cell);
  EXPECT_TRUE(moment) << cell;
  return moment ? moment->seconds : 0;
}

TEST(NumberCell, HasSignPointAndExponent) {
  EXPECT_EQ(numberOf("0"), 0.0);
  EXPECT_EQ(numberOf("181"), 181.0);
  EXPECT_EQ(numberOf("-39.1"), -39.1);
  EXPECT_EQ(numberOf("+2"), 2.0);
  EXPECT_EQ(numberOf(".5"), 0.5);
  EXPECT_EQ(numberOf("5."), 5.0);
  EXPECT_EQ(numberOf("0.25"), 0.25);
  EXPECT_EQ(numberOf("1e3"), 1000.0);
  EXPECT_EQ(numberOf("1.5E-3"), 0.0015);
  EXPECT_EQ(numberOf("2e+2"), 200.0);
}

TEST(NumberCell, IsNoOtherText) {
  for (char const* cell : {"", "-", ".", "+.", "1,5", "1 000", "0x10", "1e", "1e+", "e5", "1.2.3", "12a",
                           "inf", "nan", "--1", "1-", "\xD9\xA1"}) {
    EXPECT_FALSE(readNumber(cell)) << cell;
  }
}

TEST(NumberCell, IsNoIdentifierWithLeadingZeros) {
  EXPECT_FALSE(readNumber("01234"));
  EXPECT_FALSE(readNumber("007"));
  EXPECT_FALSE(readNumber("00.5"));
}

TEST(NumberCell, IsNothingBeyondTheLargestDouble) {
  EXPECT_FALSE(readNumber("1e999"));
  EXPECT_EQ(numberOf("1e308"), 1e308);
  EXPECT_EQ(numberOf("1e-999"), 0.0);
}

TEST(NumberCell, KnowsItsDecimals) {
  EXPECT_EQ(decimalsOf("5"), 0u);
  EXPECT_EQ(decimalsOf("5.10"), 2u);
  EXPECT_EQ(decimalsOf("1.5e-3"), 4u);
  EXPECT_EQ(decimalsOf("1.5e3"), 0u);
  EXPECT_EQ(decimalsOf("1e-400"), 16u);
}

TEST(MomentCell, IsADayInSecondsSince1970) {
  EXPECT_EQ(secondsOf("1970-01-01"), 0.0);
  EXPECT_EQ(secondsOf("1970-01-02"), 86400.0);
  EXPECT_EQ(secondsOf("2012-01-01"), 1325376000.0);
  EXPECT_EQ(secondsOf("1969-12-31"), -86400.0);
  EXPECT_EQ(secondsOf("2016-02-29"), 1456704000.0);
}

TEST(MomentCell, TakesATime) {
  EXPECT_EQ(secondsOf("1970-01-01T01:02"), 3720.0);
  EXPECT_EQ(secondsOf("1970-01-01T01:02:03"), 3723.0);
  EXPECT_EQ(secondsOf("1970-01-01 01:02:03"), 3723.0);
  EXPECT_EQ(secondsOf("1970-01-01T00:00:01.5"), 1.5);
}

TEST(MomentCell, TakesAnOffsetFromUtc) {
  EXPECT_EQ(secondsOf("1970-01-01T01:00Z"), 3600.0);
  EXPECT_EQ(secondsOf("1970-01-01T01:00:00+01:00"), 0.0);
  EXPECT_EQ(secondsOf("1970-01-01T01:00:00-00:30"), 5400.0);
}

TEST(MomentCell, KnowsWhetherItHasATimeAndAFraction) {
  EXPECT_FALSE(readMoment("2012-01-01")->hasTime);
  EXPECT_TRUE(readMoment("2012-01-01T00:00")->hasTime);
  EXPECT_FALSE(readMoment("2012-01-01T00:00:00")->hasFraction);
  EXPECT_TRUE(readMoment("2012-01-01T00:00:00.000")->hasFraction);
}

TEST(MomentCell, IsNoDayThatTheCalendarLacks) {
  for (char const* cell : {"2013-02-29", "2012-13-01", "2012-00-01", "2012-04-31", "2012-01-00"}) {
    EXPECT_FALSE(readMoment(cell)) << cell;
  }
}

TEST(MomentCell, IsNoOtherText) {
  for (char const* cell :
       {"", "2012", "2012-01", "12-01-01", "01/02/2012", "2012-1-1", "2012-01-01x", "2012-01-01T",
        "2012-01-01T24:00", "2012-01-01T10:60", "2012-01-01T10:00:60", "2012-01-01T10:00:00.",
        "2012-01-01T10:00+1:00", "2012-01-01T10:00ZZ", "2012-01-01-05"}) {
    EXPECT_FALSE(readMoment(cell)) << cell;
  }
}

TEST(MissingCell, IsEmptyOrAMark) {
  for (char const* cell : {"", "NA", "NaN", "."}) EXPECT_TRUE(isMissing(cell)) << cell;
  for (char const* cell : {"na", "N/A", "0", "-", "null"}) EXPECT_FALSE(isMissing(cell)) << cell;
}

}  // namespace
