#include "inspect/data_listing.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>

using kestrel::tool::ArrowTable;
using kestrel::tool::cellText;
using kestrel::tool::tableText;

namespace {

TEST(CellText, IsTheShortestThatReadsBackAsTheSame) {
  EXPECT_EQ(cellText(0.1), "0.1");
  EXPECT_EQ(cellText(3.0), "3");
  EXPECT_EQ(cellText(-0.0), "-0");
  EXPECT_EQ(cellText(1.0 / 3), "0.3333333333333333");
}

TEST(CellText, TellsMissingValuesFromThoseThatAreNoNumber) {
  EXPECT_EQ(cellText(std::nullopt), ".");
  EXPECT_EQ(cellText(std::numeric_limits<double>::quiet_NaN()), "NaN");
  EXPECT_EQ(cellText(std::numeric_limits<double>::infinity()), "Infinity");
  EXPECT_EQ(cellText(-std::numeric_limits<double>::infinity()), "-Infinity");
}

TEST(TableText, OfColumnsWithoutCellsEndsWithThem) {
  EXPECT_EQ(tableText(ArrowTable{"s", {{"x", "float64", 1'234, {}}}, 5'000}),
            "data s: 5,000 rows, 1 column\n"
            "  x  float64  1,234 missing\n");
}

TEST(TableText, OfNoColumnIsItsHead) {
  EXPECT_EQ(tableText(ArrowTable{"s", {}, 1}), "data s: 1 row, 0 columns\n");
}

TEST(TableText, StandsTheCellsBelowTheirColumns) {
  EXPECT_EQ(
      tableText(ArrowTable{
          "s", {{"x", "float64", 1, {1.5, std::nullopt}}, {"height", "float64", 0, {12345.0, 2.0}}}, 9}),
      "data s: 9 rows, 2 columns\n"
      "  x       float64  1 missing\n"
      "  height  float64  0 missing\n"
      "  row    x  height\n"
      "    1  1.5   12345\n"
      "    2    .       2\n");
}

TEST(TableText, ShowsLongNamesWholeInColumnsThatAreNotAsWide) {
  std::string const name(50, 'n');
  EXPECT_EQ(tableText(ArrowTable{"s", {{name, "float64", 0, {1.0}}}, 1}),
            "data s: 1 row, 1 column\n"
            "  " +
                name +
                "  float64  0 missing\n"
                "  row  " +
                name +
                "\n"
                "    1  " +
                std::string(23, ' ') + "1\n");
}

TEST(TableText, HasNoControlCharacters) {
  EXPECT_EQ(tableText(ArrowTable{"s\n", {{"\x1B[2J", "float64", 0, {}}}, 0}),
            "data s?: 0 rows, 1 column\n"
            "  ?[2J  float64  0 missing\n");
}

}  // namespace
