#include "chart/categories.h"

#include "problem.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>

using kestrel::tool::categoriesOf;
using kestrel::tool::Category;
using kestrel::tool::Column;
using kestrel::tool::CsvTable;
using kestrel::tool::findExcluded;
using kestrel::tool::Problem;
using kestrel::tool::readColumn;
using kestrel::tool::sortByText;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr double missing = std::numeric_limits<double>::lowest();

Column columnOf(std::vector<std::string> const& cells) {
  CsvTable table({"c", "other"});
  for (std::string const& cell : cells) {
    table.append(cell);
    table.append("x");
  }
  return readColumn(table, 0, true);
}

std::vector<std::string> textsOf(Column const& column) {
  std::vector<std::string> texts;
  for (Category const& category : categoriesOf(column)) texts.push_back(category.text);
  return texts;
}

std::string problemOf(Column const& column, std::vector<std::string> const& excluded) {
  try {
    findExcluded("t.csv", column, excluded);
  } catch (Problem const& problem) {
    EXPECT_EQ(problem.exit(), kestrel::tool::Exit::BadInput);
    return problem.what();
  }
  return "no problem";
}

TEST(Categories, OfTextAreNumberedInOrderOfAppearance) {
  auto const categories = categoriesOf(columnOf({"b", "a", "", "b"}));
  ASSERT_EQ(categories.size(), 2u);
  EXPECT_EQ(categories[0].text, "b");
  EXPECT_EQ(categories[0].value, 1);
  EXPECT_EQ(categories[1].text, "a");
  EXPECT_EQ(categories[1].value, 2);
}

TEST(Categories, OfNumbersAreTheValuesWithoutTheMissing) {
  auto const categories = categoriesOf(columnOf({"8", "4.50", "NA", "8", "-1"}));
  ASSERT_EQ(categories.size(), 3u);
  EXPECT_EQ(categories[1].value, 4.5);
  EXPECT_THAT(textsOf(columnOf({"8", "4.50", "NA", "8", "-1"})), ElementsAre("-1", "4.5", "8"));
}

TEST(Categories, OfDatesReadAsTheTableHasThem) {
  EXPECT_THAT(textsOf(columnOf({"2024-02-29", "1969-12-31"})), ElementsAre("1969-12-31", "2024-02-29"));
}

TEST(Categories, OfDatesWithTimesHaveTheTime) {
  EXPECT_THAT(textsOf(columnOf({"2024-02-29 06:30", "2024-02-29T06:30:01.25"})),
              ElementsAre("2024-02-29T06:30:00", "2024-02-29T06:30:01.250"));
}

TEST(Excluded, AreTheNumbersOfTexts) {
  EXPECT_THAT(findExcluded("t.csv", columnOf({"b", "a", "c"}), {"c", "b"}), ElementsAre(3, 1));
}

TEST(Excluded, AreNamedOnceEach) {
  EXPECT_THAT(findExcluded("t.csv", columnOf({"b", "a"}), {"b", "b"}), ElementsAre(1));
}

TEST(Excluded, AreNumbersHoweverTheyAreWritten) {
  EXPECT_THAT(findExcluded("t.csv", columnOf({"4", "6"}), {"4.0"}), ElementsAre(4));
}

TEST(Excluded, AreDatesHoweverTheyAreWritten) {
  EXPECT_THAT(findExcluded("t.csv", columnOf({"1970-01-02", "1970-01-03"}), {"1970-01-02T00:00"}),
              ElementsAre(86400));
}

TEST(Excluded, MustBeThere) {
  EXPECT_EQ(problemOf(columnOf({"Adelie", "Gentoo"}), {"Adelie", "gento"}),
            "t.csv: there is no category 'gento' in column 'c' for --exclude; did you mean 'Gentoo'? The "
            "categories are: Adelie, Gentoo");
}

TEST(Excluded, OfNumbersMustBeThere) {
  EXPECT_EQ(problemOf(columnOf({"4", "6"}), {"five"}),
            "t.csv: there is no category 'five' in column 'c' for --exclude; the categories are: 4, 6");
}

TEST(Excluded, OfAnEmptyTextAreNone) {
  EXPECT_EQ(problemOf(columnOf({"a", "b"}), {""}),
            "t.csv: there is no category '' in column 'c' for --exclude; the categories are: a, b");
}

TEST(Excluded, AreNotListedBeyondTwelve) {
  std::vector<std::string> cells;
  for (int i = 10; i < 25; ++i) cells.push_back("n" + std::to_string(i));
  EXPECT_THAT(problemOf(columnOf(cells), {"other"}), HasSubstr("n20, n21 and 3 more"));
}

TEST(Excluded, LeaveSomething) {
  EXPECT_EQ(problemOf(columnOf({"a", "b"}), {"b", "a"}),
            "t.csv: --exclude leaves out every category of column 'c'; keep one of them");
}

TEST(SortByText, NumbersTheTextsInTheirOrder) {
  Column column = columnOf({"pear", "", "apple", "fig", "pear"});
  sortByText(column);
  EXPECT_THAT(column.categories, ElementsAre("apple", "fig", "pear"));
  EXPECT_THAT(column.values, ElementsAre(3, missing, 1, 2, 3));
}

TEST(SortByText, LeavesNumbersAsTheyAre) {
  Column column = columnOf({"8", "4"});
  sortByText(column);
  EXPECT_THAT(column.values, ElementsAre(8, 4));
}

}  // namespace
