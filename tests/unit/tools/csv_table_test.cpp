#include "chart/csv_table.h"

#include "problem.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using kestrel::tool::CsvTable;
using kestrel::tool::Problem;
using kestrel::tool::readCsv;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

std::vector<std::vector<std::string>> rowsOf(std::string const& text) {
  CsvTable const table = readCsv("t.csv", text);
  std::vector<std::vector<std::string>> rows;
  rows.reserve(table.rows());
  for (std::size_t row = 0; row < table.rows(); ++row) {
    rows.emplace_back();
    for (std::size_t column = 0; column < table.columns(); ++column)
      rows.back().emplace_back(table.cell(row, column));
  }
  return rows;
}

std::string problemOf(std::string const& text) {
  try {
    readCsv("t.csv", text);
  } catch (Problem const& problem) {
    EXPECT_EQ(problem.exit(), kestrel::tool::Exit::BadInput);
    return problem.what();
  }
  return "no problem";
}

TEST(CsvTable, HasTheNamesOfItsFirstRow) {
  EXPECT_THAT(readCsv("t.csv", "a,b c,d\n1,2,3\n").names(), ElementsAre("a", "b c", "d"));
}

TEST(CsvTable, HasItsCellsRowByRow) {
  EXPECT_THAT(rowsOf("a,b\n1,2\n3,4\n"), ElementsAre(ElementsAre("1", "2"), ElementsAre("3", "4")));
}

TEST(CsvTable, HasEmptyCells) {
  EXPECT_THAT(rowsOf("a,b,c\n,,\n,x,\n"), ElementsAre(ElementsAre("", "", ""), ElementsAre("", "x", "")));
}

TEST(CsvTable, NeedsNoLineEndBehindItsLastRow) {
  EXPECT_THAT(rowsOf("a,b\n1,2"), ElementsAre(ElementsAre("1", "2")));
}

TEST(CsvTable, NeedsNoLineEndBehindAQuotedLastCell) {
  EXPECT_THAT(rowsOf("a,b\n1,\"2\""), ElementsAre(ElementsAre("1", "2")));
}

TEST(CsvTable, TakesLinesThatEndInCrLf) {
  EXPECT_THAT(rowsOf("a,b\r\n1,2\r\n3,4\r\n"), ElementsAre(ElementsAre("1", "2"), ElementsAre("3", "4")));
}

TEST(CsvTable, TakesLinesThatEndInCr) {
  EXPECT_THAT(rowsOf("a,b\r1,2\r3,4\r"), ElementsAre(ElementsAre("1", "2"), ElementsAre("3", "4")));
}

TEST(CsvTable, SkipsAByteOrderMark) {
  EXPECT_THAT(readCsv("t.csv",
                      "\xEF\xBB\xBF"
                      "a,b\n1,2\n")
                  .names(),
              ElementsAre("a", "b"));
}

TEST(CsvTable, KeepsCommasLineBreaksAndDoubledQuotesOfQuotedCells) {
  EXPECT_THAT(rowsOf("a,b\n\"x,y\",\"line 1\nline 2\"\n\"say \"\"hi\"\"\",\"\"\n"),
              ElementsAre(ElementsAre("x,y", "line 1\nline 2"), ElementsAre("say \"hi\"", "")));
}

TEST(CsvTable, CutsBlanksAroundCellsButNotWithinQuotes) {
  EXPECT_THAT(rowsOf("a , b\n 1 ,\t2\n\" 3 \", 4 5 \n"),
              ElementsAre(ElementsAre("1", "2"), ElementsAre(" 3 ", "4 5")));
}

TEST(CsvTable, SkipsEmptyLines) {
  EXPECT_THAT(rowsOf("\n\na,b\n\n1,2\n  \n3,4\n\n"),
              ElementsAre(ElementsAre("1", "2"), ElementsAre("3", "4")));
}

TEST(CsvTable, TakesARowThatIsLongerThanTheBlocksItIsReadIn) {
  std::string const longCell(200000, 'x');
  EXPECT_THAT(rowsOf("a,b\n" + longCell + ",2\n"), ElementsAre(ElementsAre(longCell, "2")));
}

TEST(CsvTable, MayHaveColumnsWithoutNames) {
  EXPECT_THAT(readCsv("t.csv", ",b,\n1,2,3\n").names(), ElementsAre("", "b", ""));
}

TEST(CsvProblem, IsAnEmptyFile) { EXPECT_THAT(problemOf(""), HasSubstr("t.csv: is empty")); }

TEST(CsvProblem, IsAFileOfEmptyLines) { EXPECT_THAT(problemOf("\n\n"), HasSubstr("t.csv: is empty")); }

TEST(CsvProblem, IsAFileOfNamesAlone) { EXPECT_THAT(problemOf("a,b\n"), HasSubstr("no rows")); }

TEST(CsvProblem, IsARowWithTooManyCells) {
  EXPECT_THAT(problemOf("a,b\n1,2\n1,2,3\n"),
              StartsWith("t.csv:3: the row has 3 cells, but there are 2 columns; "));
}

TEST(CsvProblem, IsARowWithTooFewCells) {
  EXPECT_THAT(problemOf("a,b\n1\n"), StartsWith("t.csv:2: the row has 1 cell, but there are 2 columns; "));
}

TEST(CsvProblem, TellsTheLineBehindCellsWithLineBreaks) {
  EXPECT_THAT(problemOf("a,b\n\"1\n\n\",2\n3\n"), StartsWith("t.csv:5: "));
}

TEST(CsvProblem, TellsTheLineBehindEmptyLines) {
  EXPECT_THAT(problemOf("a,b\n\n\n1\n"), StartsWith("t.csv:4: "));
}

TEST(CsvProblem, CountsCrAndLfTogetherAsOneLineEnd) {
  EXPECT_THAT(problemOf("a,b\r\n\r\n\"1\r\n2\",2\r\n3\r\n"), StartsWith("t.csv:5: "));
}

TEST(CsvProblem, TellsTheLineWhereARowBegins) {
  EXPECT_THAT(problemOf("a,b\n1,\"2\n3\",4\n"), StartsWith("t.csv:2: the row has 3 cells"));
}

TEST(CsvProblem, IsAByteThatIsNotUtf8) {
  EXPECT_THAT(problemOf("a,b\n1,caf\xE9\n"), StartsWith("t.csv:2: the byte 0xE9 at offset 9 is not UTF-8; "));
}

TEST(CsvProblem, CountsTheOffsetOfABadByteWithTheByteOrderMark) {
  EXPECT_THAT(problemOf("\xEF\xBB\xBF"
                        "a\n\xFF\n"),
              StartsWith("t.csv:2: the byte 0xFF at offset 5 "));
}

TEST(CsvProblem, IsAZeroByte) {
  EXPECT_THAT(problemOf(std::string("a,b\n1,\0\n", 8)),
              StartsWith("t.csv:2: the byte 0x00 at offset 6 is no text; "));
}

TEST(CsvProblem, IsAQuoteWithinACell) {
  EXPECT_THAT(problemOf("a,b\n1,2\n6\" pipe,3\n"),
              StartsWith("t.csv:3: a double quote stands within a cell; "));
}

TEST(CsvProblem, IsTextBehindAQuotedCell) {
  EXPECT_THAT(problemOf("a,b\n\"1\"x,3\n"), StartsWith("t.csv:2: a double quote stands within a cell; "));
}

TEST(CsvProblem, IsAQuoteThatNeverCloses) {
  EXPECT_THAT(problemOf("a,b\n1,2\n\"3,4\n5,6\n"), StartsWith("t.csv:3: a double quote opens"));
}

TEST(CsvProblem, IsANameThatIsThereTwice) {
  EXPECT_THAT(problemOf("\na,b,a\n1,2,3\n"), StartsWith("t.csv:2: columns 1 and 3 have the same name 'a'; "));
}

TEST(CsvProblem, TellsTheFirstOfSeveral) {
  EXPECT_THAT(problemOf("a,b\n1\n1,2,3\n"), StartsWith("t.csv:2: "));
}

}  // namespace
