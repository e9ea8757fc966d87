#include "chart/column_types.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>

using kestrel::tool::Column;
using kestrel::tool::ColumnType;
using kestrel::tool::CsvTable;
using kestrel::tool::readColumn;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr double missing = std::numeric_limits<double>::lowest();

Column columnOf(std::vector<std::string> const& cells, bool categorical = false) {
  CsvTable table({"other", "c"});
  for (std::string const& cell : cells) {
    table.append("x");
    table.append(cell);
  }
  return readColumn(table, 1, categorical);
}

TEST(Column, HasItsName) { EXPECT_EQ(columnOf({"1"}).name, "c"); }

TEST(Column, IsOfNumbersWhereEveryCellIsOne) {
  Column const column = columnOf({"1", "-2.5", "3e2"});
  EXPECT_EQ(column.type, ColumnType::Number);
  EXPECT_FALSE(column.categorical);
  EXPECT_THAT(column.values, ElementsAre(1.0, -2.5, 300.0));
  EXPECT_THAT(column.categories, IsEmpty());
}

TEST(Column, HasTheMostDecimalsOfItsNumbers) { EXPECT_EQ(columnOf({"1", "2.25", "3.5"}).decimals, 2u); }

TEST(Column, OfNumbersHasMissingCells) {
  Column const column = columnOf({"1", "", "NA", "NaN", ".", "2"});
  EXPECT_EQ(column.type, ColumnType::Number);
  EXPECT_THAT(column.values, ElementsAre(1.0, missing, missing, missing, missing, 2.0));
  EXPECT_EQ(column.missing, 4u);
}

TEST(Column, OfEmptyCellsIsOfMissingNumbers) {
  Column const column = columnOf({"", ""});
  EXPECT_EQ(column.type, ColumnType::Number);
  EXPECT_THAT(column.values, ElementsAre(missing, missing));
}

TEST(Column, OfMarksAloneIsText) {
  Column const column = columnOf({"NA", "", "NA"});
  EXPECT_EQ(column.type, ColumnType::Text);
  EXPECT_THAT(column.categories, ElementsAre("NA"));
}

TEST(Column, OfNumbersMayBeCategories) {
  Column const column = columnOf({"8", "4", "6", "4"}, true);
  EXPECT_EQ(column.type, ColumnType::Number);
  EXPECT_TRUE(column.categorical);
  EXPECT_THAT(column.values, ElementsAre(8.0, 4.0, 6.0, 4.0));
  EXPECT_THAT(column.categories, IsEmpty());
}

TEST(Column, IsOfDatesWhereEveryCellIsOne) {
  Column const column = columnOf({"1970-01-02", "", "1970-01-01"});
  EXPECT_EQ(column.type, ColumnType::Date);
  EXPECT_FALSE(column.categorical);
  EXPECT_THAT(column.values, ElementsAre(86400.0, missing, 0.0));
}

TEST(Column, IsOfDatesWithTimesWhereACellHasOne) {
  Column const column = columnOf({"1970-01-02", "1970-01-01T00:01"});
  EXPECT_EQ(column.type, ColumnType::DateTime);
  EXPECT_THAT(column.values, ElementsAre(86400.0, 60.0));
  EXPECT_EQ(column.decimals, 0u);
}

TEST(Column, OfTimesWithFractionsHasThreeDecimals) {
  EXPECT_EQ(columnOf({"1970-01-01T00:00:00.5"}).decimals, 3u);
}

TEST(Column, IsTextWhereOneCellIsNeitherNumberNorDate) {
  Column const column = columnOf({"1", "2", "many"});
  EXPECT_EQ(column.type, ColumnType::Text);
  EXPECT_TRUE(column.categorical);
  EXPECT_THAT(column.categories, ElementsAre("1", "2", "many"));
}

TEST(Column, IsTextWhereNumbersAndDatesAreMixed) {
  EXPECT_EQ(columnOf({"1", "1970-01-01"}).type, ColumnType::Text);
}

TEST(Column, OfTextNumbersItsCategoriesAsTheyFirstAppear) {
  Column const column = columnOf({"b", "a", "b", "c", "a"});
  EXPECT_THAT(column.categories, ElementsAre("b", "a", "c"));
  EXPECT_THAT(column.values, ElementsAre(1.0, 2.0, 1.0, 3.0, 2.0));
}

TEST(Column, OfTextTellsCasesApart) { EXPECT_THAT(columnOf({"a", "A"}).categories, ElementsAre("a", "A")); }

TEST(Column, OfTextIsMissingOnlyWhereItIsEmpty) {
  Column const column = columnOf({"male", "", "NA"});
  EXPECT_THAT(column.categories, ElementsAre("male", "NA"));
  EXPECT_THAT(column.values, ElementsAre(1.0, missing, 2.0));
  EXPECT_EQ(column.missing, 1u);
}

TEST(Column, OfIdentifiersWithLeadingZerosIsText) {
  EXPECT_THAT(columnOf({"01234", "98765"}).categories, ElementsAre("01234", "98765"));
}

}  // namespace
