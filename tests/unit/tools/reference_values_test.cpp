#include "chart/reference_values.h"

#include "problem.h"

#include <gmock/gmock.h>

#include <string>

using kestrel::tool::Column;
using kestrel::tool::ColumnType;
using kestrel::tool::Problem;
using kestrel::tool::readReferences;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

Column columnOf(ColumnType type, bool categorical = false) { return {"c", type, categorical, 0, {}, {}, 0}; }

std::string problemOf(std::string const& text, Column const& column) {
  try {
    readReferences("--reference-x", {text}, &column);
  } catch (Problem const& problem) {
    EXPECT_EQ(problem.exit(), kestrel::tool::Exit::BadInput);
    return problem.what();
  }
  return "no problem";
}

TEST(References, AreNumbersOnAnAxisOfNumbers) {
  Column const column = columnOf(ColumnType::Number);
  EXPECT_THAT(readReferences("--reference-x", {"1e3", "-2.5"}, &column), ElementsAre(1000, -2.5));
}

TEST(References, AreNumbersOnAnAxisOfCounts) {
  EXPECT_THAT(readReferences("--reference-y", {"7"}, nullptr), ElementsAre(7));
}

TEST(References, AreSecondsOnAnAxisOfDates) {
  Column const column = columnOf(ColumnType::Date);
  EXPECT_THAT(readReferences("--reference-x", {"1970-01-02", "1970-01-01T01:00"}, &column),
              ElementsAre(86400, 3600));
}

TEST(References, AreSecondsOnAnAxisOfDatesWithTimes) {
  Column const column = columnOf(ColumnType::DateTime);
  EXPECT_THAT(readReferences("--reference-x", {"1970-01-02"}, &column), ElementsAre(86400));
}

TEST(References, MayBeNoneOnAnyAxis) {
  Column const column = columnOf(ColumnType::Text, true);
  EXPECT_THAT(readReferences("--reference-x", {}, &column), IsEmpty());
}

TEST(References, OnDatesAreNoNumbers) {
  EXPECT_EQ(problemOf("2013", columnOf(ColumnType::Date)),
            "--reference-x '2013' is no date; its axis shows dates: write it as yyyy-MM-dd, with or without "
            "a time");
}

TEST(References, OnNumbersAreNoDates) {
  EXPECT_EQ(problemOf("2013-01-01", columnOf(ColumnType::Number)),
            "--reference-x '2013-01-01' is no number; its axis shows numbers, such as 12.5");
}

TEST(References, MustExistAsDates) {
  EXPECT_EQ(problemOf("2013-02-30", columnOf(ColumnType::Date)),
            "--reference-x '2013-02-30' is no date; its axis shows dates: write it as yyyy-MM-dd, with or "
            "without a time");
}

TEST(References, HaveNoPlaceAmongCategories) {
  EXPECT_EQ(problemOf("1", columnOf(ColumnType::Number, true)),
            "--reference-x needs an axis of numbers or dates, but column 'c' has categories; leave it out, "
            "or choose another column for the axis");
}

}  // namespace
