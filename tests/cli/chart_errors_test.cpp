// What `kestrel chart` says of input and output that it cannot work with: one line, and an exit code.

#include "cli_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

using kestrel::test::CliTest;
using kestrel::test::Outcome;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class ChartError : public CliTest {
 protected:
  /// Exit code, and the start of the one line on standard error.
  void expectError(Outcome const& run, int exit, std::string const& start) const {
    EXPECT_EQ(run.exit, exit);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, StartsWith("kestrel: " + start));
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    EXPECT_FALSE(exists("out/capture.kcap"));
  }
};

TEST_F(ChartError, IsAMissingFile) { expectError(chart("none.csv"), 1, "none.csv: cannot be read: "); }

TEST_F(ChartError, IsAFolderInPlaceOfAFile) { expectError(chart("."), 1, ".: is a folder; "); }

TEST_F(ChartError, IsAnUnknownColumn) {
  expectError(chartOf("flipper_length_mm,b\n1,2\n", {}), 1, "t.csv:1: there is no column 'a' for --x; ");
}

TEST_F(ChartError, NamesTheColumnThatWasMeantAndAllOfThem) {
  Outcome const run = chartOf("a,b,species\n1,2,x\n", {"--color", "specis"});
  expectError(run, 1,
              "t.csv:1: there is no column 'specis' for --color; did you mean 'species'? The columns are: a, "
              "b, species\n");
}

TEST_F(ChartError, NamesOnlyTheColumnsWhereNoneIsNear) {
  expectError(chartOf("a,b\n1,2\n", {"--z", "elevation"}), 1,
              "t.csv:1: there is no column 'elevation' for --z; the columns are: a, b\n");
}

TEST_F(ChartError, IsAnUnknownColumnOfCategories) {
  expectError(chartOf("a,b\n1,2\n", {"--categorical", "cyl"}), 1,
              "t.csv:1: there is no column 'cyl' for --categorical; ");
}

TEST_F(ChartError, IsARowWithTooManyCells) {
  expectError(chartOf("a,b\n1,2\n3,4,5\n"), 1, "t.csv:3: the row has 3 cells, but there are 2 columns; ");
}

TEST_F(ChartError, IsARowWithTooFewCells) {
  expectError(chartOf("a,b\n1,2\n3\n"), 1, "t.csv:3: the row has 1 cell, but there are 2 columns; ");
}

TEST_F(ChartError, IsAByteThatIsNotUtf8) {
  expectError(chartOf("a,b\n1,2\n3,\xE9\n"), 1, "t.csv:3: the byte 0xE9 at offset 10 is not UTF-8; ");
}

TEST_F(ChartError, IsAnEmptyTable) { expectError(chartOf(""), 1, "t.csv: is empty; "); }

TEST_F(ChartError, IsATableOfNamesAlone) {
  expectError(chartOf("a,b\n"), 1, "t.csv: has names of columns and no rows");
}

TEST_F(ChartError, IsAColumnThatIsThereTwice) {
  expectError(chartOf("a,b,b\n1,2,3\n"), 1, "t.csv:1: columns 2 and 3 have the same name 'b'; ");
}

TEST_F(ChartError, IsAnOpenQuote) {
  expectError(chartOf("a,b\n1,\"2\n"), 1, "t.csv:2: a double quote opens");
}

TEST_F(ChartError, IsAnAttachmentThatIsNotThere) {
  expectError(chartOf("a,b\n1,2\n", {"--csv", "none.csv"}), 1, "none.csv: cannot be read: ");
}

TEST_F(ChartError, IsAnAttachmentWithoutContent) {
  write("empty.csv", "");
  expectError(chartOf("a,b\n1,2\n", {"--csv", "empty.csv"}), 1, "empty.csv: is empty; ");
}

TEST_F(ChartError, IsAFourthFootnote) {
  expectError(
      chartOf("a,b\n1,2\n", {"--footnote", "1", "--footnote", "2", "--footnote", "3", "--footnote", "4"}), 1,
      "--footnote was given 4 times; ");
}

TEST_F(ChartError, IsATextThatIsNotUtf8) {
  expectError(chartOf("a,b\n1,2\n", {"--title", "caf\xE9"}), 1, "--title: 'caf\xE9' is not UTF-8");
}

TEST_F(ChartError, IsAnotherKindOfElement) {
  write("t.csv", "a,b\n1,2\n");
  expectError(kestrel({"chart", "t.csv", "--element", "pie", "--x", "a", "--y", "b", "-o", "out"}), 1,
              "--element: pie not in {point,bar,line,histogram,box,errorbar,pyramid}");
}

TEST_F(ChartError, IsAMissingOption) {
  expectError(kestrel({"chart", "t.csv", "--element", "point", "--x", "a", "-o", "out"}), 1,
              "--y is required with --element point; name the column of the Y axis\n");
}

TEST_F(ChartError, IsAnOptionThatIsNoneOfOurs) {
  expectError(chartOf("a,b\n1,2\n", {"--bogus"}), 1, "The following argument was not expected: --bogus");
}

TEST_F(ChartError, IsAProgramCalledWithoutACommand) {
  expectError(kestrel({}), 1, "A subcommand is required");
}

TEST_F(ChartError, CannotSteerATerminal) {
  Outcome const run = chartOf("a\x1B[2J,b\n1,2\n");
  expectError(run, 1, "t.csv:1: there is no column 'a' for --x; the columns are: a?[2J, b\n");
  EXPECT_EQ(run.err.find('\x1B'), std::string::npos);
}

TEST_F(ChartError, IsAnOutputFolderThatIsAFile) {
  write("out", "a file");
  expectError(chartOf("a,b\n1,2\n"), 3, "out: cannot make this folder: ");
}

TEST_F(ChartError, IsAnOutputFolderWithinAFile) {
  write("t.csv", "a,b\n1,2\n");
  expectError(kestrel({"chart", "t.csv", "--element", "point", "--x", "a", "--y", "b", "-o", "t.csv/out"}), 3,
              "t.csv/out: cannot make this folder: ");
}

TEST_F(ChartError, IsACaptureThatIsAFolder) {
  std::filesystem::create_directories(folder / "out" / "capture.kcap");
  Outcome const run = chartOf("a,b\n1,2\n");
  EXPECT_EQ(run.exit, 3);
  EXPECT_THAT(run.err, StartsWith("kestrel: out/capture.kcap: cannot be made: "));
  EXPECT_EQ(filesIn("out").size(), 1u);
}

TEST_F(ChartError, IsAPlaceWhereTheCaptureCannotBeOpened) {
  std::filesystem::create_directories(folder / "out" / "capture.kcap.unfinished" / "taken");
  expectError(chartOf("a,b\n1,2\n"), 3, "out/capture.kcap: cannot be made: ");
}

/// The size of a file is limited to one block, which the capture does not fit into.
class FullDisk : public CliTest {
 protected:
  Outcome limited(std::string const& command) const { return shell("trap '' XFSZ; ulimit -f 1; " + command); }
};

TEST_F(FullDisk, LeavesNoCaptureBehind) {
  write("t.csv", "a,b\n1,2\n");
  Outcome const run = limited("$KESTREL chart t.csv --element point --x a --y b -o out");
  EXPECT_EQ(run.exit, 3);
  EXPECT_THAT(run.err, HasSubstr("kestrel: out/capture.kcap: cannot be written; "));
  EXPECT_TRUE(filesIn("out").empty());
}

TEST_F(FullDisk, LeavesAnOlderCaptureAsItWas) {
  chartOf("a,b\n1,2\n", {"--title", "old"});
  std::string const before = read("out/capture.kcap");
  EXPECT_EQ(limited("$KESTREL chart t.csv --element point --x a --y b -o out").exit, 3);
  EXPECT_EQ(read("out/capture.kcap"), before);
}

TEST_F(FullDisk, IsToldOfByInspectToo) {
  write("big.csv", std::string(5000, 'x'));
  chartOf("a,b\n1,2\n", {"--csv", "big.csv"});
  Outcome const run = limited("$KESTREL inspect out/capture.kcap --extract contents");
  EXPECT_EQ(run.exit, 3);
  EXPECT_THAT(run.err, HasSubstr("kestrel: contents/"));
  EXPECT_THAT(run.err, HasSubstr("cannot be written: "));
}

class ClosedOutput : public CliTest {};

TEST_F(ClosedOutput, IsToldOf) {
  write("t.csv", "a,b\n1,2\n");
  Outcome const run = shell("$KESTREL chart t.csv --element point --x a --y b -o out >&-");
  EXPECT_EQ(run.exit, 3);
  EXPECT_THAT(run.err, StartsWith("kestrel: standard output cannot be written: "));
}

TEST_F(ClosedOutput, OfAPipeIsNoDeathBySignal) {
  chartOf("a,b\n1,2\n");
  // The reader is gone before the program starts.
  Outcome const run =
      shell("{ sleep 0.2; $KESTREL inspect out/capture.kcap; echo $? >code; } | true; cat code");
  EXPECT_EQ(run.out, "3\n");
  EXPECT_THAT(run.err, StartsWith("kestrel: standard output cannot be written: "));
}

}  // namespace
