#include "kestrelhost/dumps.h"

#include "temporary_folder.h"

#include "kestrelhost/recorder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace kestrel::host;

namespace {

constexpr auto chart = ChartBase::PrintChart;

unsigned int modeOf(std::string const& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

TEST(FolderDumpsTest, NameAFileByPrefixNumberAndSuffix) {
  TemporaryFolder const folder;
  FolderDumps(folder.path()).print("<a/>", "xml_data_final_", ".xml", 12, chart);
  EXPECT_EQ(contentOf(folder / "xml_data_final_12.xml"), "<a/>");
}

TEST(FolderDumpsTest, KeepEveryByte) {
  TemporaryFolder const folder;
  std::string const content("a\0\xff\r\n", 5);
  FolderDumps(folder.path()).print(content, "final_xml_", ".cmp", 1, ChartBase::PrintCompressedChart);
  EXPECT_EQ(contentOf(folder / "final_xml_1.cmp"), content);
}

TEST(FolderDumpsTest, ReplaceAFileThatIsThere) {
  TemporaryFolder const folder;
  folder.write("a1.xml", "something longer than the dump");
  FolderDumps(folder.path()).print("short", "a", ".xml", 1, chart);
  EXPECT_EQ(contentOf(folder / "a1.xml"), "short");
}

TEST(FolderDumpsTest, AreReadableByTheirOwnerOnly) {
  TemporaryFolder const folder;
  folder.write("old2.xml", "x");
  FolderDumps dumps(folder.path());
  dumps.print("x", "new", ".xml", 1, chart);
  dumps.print("x", "old", ".xml", 2, chart);
  EXPECT_EQ(modeOf(folder / "new1.xml"), 0600u);
  EXPECT_EQ(modeOf(folder / "old2.xml"), 0600u);
}

TEST(FolderDumpsTest, NeverLeaveTheirFolder) {
  TemporaryFolder const folder;
  std::filesystem::create_directory(folder / "inside");
  FolderDumps(folder / "inside").print("x", "../../up/", "/..", 3, chart);
  EXPECT_EQ(contentOf(folder / "inside/.._.._up_3_.."), "x");
}

TEST(FolderDumpsTest, AreNotWrittenThroughALink) {
  TemporaryFolder const folder;
  std::string const target = folder.write("target", "untouched");
  std::filesystem::create_directory(folder / "dumps");
  std::filesystem::create_symlink(target, folder / "dumps/a1.xml");
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  FolderDumps(folder / "dumps").print("x", "a", ".xml", 1, chart);
  EXPECT_EQ(contentOf(target), "untouched");
  EXPECT_EQ(recorder.count(Operation::Note), 1u);
}

TEST(FolderDumpsTest, AreLimitedToTheCategoriesThatAreWanted) {
  TemporaryFolder const folder;
  FolderDumps dumps(folder.path(), FolderDumps::Categories{ChartBase::PrintTemplate});
  EXPECT_TRUE(dumps.wanted(ChartBase::PrintTemplate));
  EXPECT_FALSE(dumps.wanted(chart));
  dumps.print("x", "a", ".xml", 1, chart);
  EXPECT_FALSE(std::filesystem::exists(folder / "a1.xml"));
}

TEST(FolderDumpsTest, WithoutCategoriesAreAllWanted) {
  FolderDumps dumps("/nowhere");
  for (int type : {0, 1, 2, 3, 6, 9, 77}) EXPECT_TRUE(dumps.wanted(static_cast<ChartBase::PRINTTYPE>(type)));
}

TEST(FolderDumpsTest, ThatCannotBeWrittenAreNotedInTheLog) {
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  FolderDumps("/nowhere/at/all").print("x", "a", ".xml", 1, chart);
  EXPECT_EQ(recorder.entries().at(0).text("message"), "could not write the dump a1.xml");
}

TEST(EnvironmentDumpsTest, GoToTheFolderThatTheEnvironmentNames) {
  TemporaryFolder const folder;
  ScopedVariable const variable("DumpChartXMLPath", folder.path().c_str());
  EXPECT_TRUE(EnvironmentDumps().wanted(chart));
  EnvironmentDumps().print("x", "a", ".xml", 1, chart);
  EXPECT_EQ(contentOf(folder / "a1.xml"), "x");
}

TEST(EnvironmentDumpsTest, AreNotWantedWithoutAFolder) {
  for (char const* value : {static_cast<char const*>(nullptr), "", "1", "/nowhere/at/all"}) {
    ScopedVariable const variable("DumpChartXMLPath", value);
    EXPECT_FALSE(EnvironmentDumps().wanted(chart));
  }
}

TEST(ChartBaseTest, DumpsThroughTheHost) {
  Recorder recorder;
  recorder.services().dumps->categories = {ChartBase::PrintBeforeTemplate};
  ScopedHost const scope(recorder.host());
  EXPECT_TRUE(ChartBase::willPrintString(ChartBase::PrintBeforeTemplate));
  EXPECT_FALSE(ChartBase::willPrintString(chart));
  ChartBase::printString("<a/>", "bItemplate_", ".xml", 4, ChartBase::PrintBeforeTemplate);
  std::vector<RecordedDump> const expected = {{"<a/>", "bItemplate_", ".xml", 4, 2}};
  EXPECT_EQ(recorder.dumps(), expected);
  EXPECT_EQ(recorder.count(Operation::WillPrintString), 2u);
}

TEST(ChartBaseTest, TracesThroughTheHost) {
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  ChartBase::printDebugInfo("Done Sending XML");
  EXPECT_EQ(recorder.trace(), std::vector<std::string>{"Done Sending XML"});
}

}  // namespace
