// `kestrel inspect`: the listing, the JSON, and the contents that it takes out.

#include "cli_fixture.h"
#include "wire_decoder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using kestrel::test::CliTest;
using kestrel::test::decodeContents;
using kestrel::test::exampleData;
using kestrel::test::inflated;
using kestrel::test::onlyContent;
using kestrel::test::Outcome;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class Inspect : public CliTest {
 protected:
  Outcome inspect(std::vector<std::string> const& more = {}) const {
    std::vector<std::string> arguments = {"inspect", "out/capture.kcap"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return kestrel(arguments);
  }

  nlohmann::json json() const { return nlohmann::json::parse(inspect({"--json"}).out); }

  void chartOfWeather() const {
    kestrel({"chart", exampleData("seattle-weather.csv"), "--element", "line", "--x", "date", "--y",
             "temp_max", "-o", "out"});
  }

  /// Replaces bytes of the capture.
  void change(std::size_t offset, std::string const& bytes) const {
    std::string capture = read("out/capture.kcap");
    write("out/capture.kcap", capture.replace(offset, bytes.size(), bytes));
  }
};

TEST_F(Inspect, ListsEachMessage) {
  chartOf("a,b\n1,2\n", {"--description", "abc"});
  Outcome const run = inspect();
  EXPECT_EQ(run.exit, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out,
              StartsWith("out/capture.kcap: 8 messages\n"
                         "   no   id  type  name                 sub   chunk  trailer        total\n"
                         "    1  307     0  description            0       3  00000000           3\n"
                         "    2  307     9  English description    0       3  00000000           3\n"));
  EXPECT_THAT(run.out,
              HasSubstr("\n    8  307     3  done                   0       8  00000000           8\n"));
  EXPECT_THAT(run.out, HasSubstr("chart: 8 contents, editable 0, editor 1\n"
                                 "data source0: 1 row, 2 columns\n"
                                 "  sourceVariable0_SN  float64  0 missing\n"
                                 "  sourceVariable1_SN  float64  0 missing\n"
                                 "The capture keeps all rules.\n"));
}

TEST_F(Inspect, ShowsTheFirstCellsOfTheDataWhereItIsAsked) {
  chartOf("a,b\n1,2\n-0.5,\n3,4\n");
  EXPECT_THAT(inspect({"--cells", "2"}).out, HasSubstr("data source0: 3 rows, 2 columns\n"
                                                       "  sourceVariable0_SN  float64  0 missing\n"
                                                       "  sourceVariable1_SN  float64  1 missing\n"
                                                       "  row  sourceVariable0_SN  sourceVariable1_SN\n"
                                                       "    1                   1                   2\n"
                                                       "    2                -0.5                   .\n"
                                                       "The capture keeps all rules.\n"));
}

TEST_F(Inspect, GivesTheFirstCellsAsJsonToo) {
  chartOf("a,b\n1,2\n-0.5,\n3,4\n");
  auto const data = nlohmann::json::parse(inspect({"--json", "--cells", "2"}).out)["sends"][0]["data"];
  EXPECT_EQ(data[0]["rows"], 3);
  EXPECT_EQ(
      data[0]["columns"][1],
      (nlohmann::json{
          {"name", "sourceVariable1_SN"}, {"type", "float64"}, {"missing", 1}, {"cells", {2.0, nullptr}}}));
  EXPECT_FALSE(json()["sends"][0]["data"][0]["columns"][0].contains("cells"));
}

TEST_F(Inspect, TakesNoNumberOfCellsThatIsNone) {
  chartOf("a,b\n1,2\n");
  for (char const* const number : {"0", "-1", "x", "1000001"}) {
    EXPECT_EQ(inspect({"--cells", number}).exit, 1) << number;
  }
  EXPECT_EQ(inspect({"--cells", "1", "--diff", "out/capture.kcap"}).exit, 1);
}

TEST_F(Inspect, SaysThatAColumnDoesNotAgreeWithItsBatch) {
  chartOf("a,b\n1,2\n,4\n5,6\n");
  // Three rows, one missing value: in the metadata of the record batch.
  std::string const node("\3\0\0\0\0\0\0\0\1\0\0\0\0\0\0\0", 16);
  std::size_t const at = read("out/capture.kcap").find(node);
  ASSERT_NE(at, std::string::npos);
  change(at, "\2");
  Outcome const run = inspect({"--cells", "2"});
  EXPECT_EQ(run.exit, 2);
  EXPECT_THAT(run.err, HasSubstr("(message 7): data is no sequence of Arrow streams: at its byte "));
  EXPECT_THAT(run.err, HasSubstr(", column 'sourceVariable0_SN' has 2 rows, its record batch 3\n"));
}

TEST_F(Inspect, ShowsTrailersAndRunningTotals) {
  write("long.csv", std::string(33984, 'x') + "y");
  chartOf("a,b\n1,2\n", {"--csv", "long.csv"});
  std::string const listing = inspect().out;
  EXPECT_THAT(listing, HasSubstr("6  CSV content            0   33984  00000000       33984\n"));
  EXPECT_THAT(listing, HasSubstr("6  CSV content            0       1  78787878       33985\n"));
}

TEST_F(Inspect, GivesTheSameAsJson) {
  chartOf("a,b\n1,2\n", {"--description", "abc"});
  auto const listing = json();
  EXPECT_EQ(listing["capture"], "out/capture.kcap");
  EXPECT_EQ(listing["good"], true);
  EXPECT_EQ(listing["messages"].size(), 8u);
  EXPECT_EQ(listing["messages"][0], (nlohmann::json{{"number", 1},
                                                    {"offset", 24},
                                                    {"identifier", 307},
                                                    {"type", 0},
                                                    {"name", "description"},
                                                    {"subtype", 0},
                                                    {"chunk", 3},
                                                    {"trailer", "00000000"},
                                                    {"total", 3}}));
  EXPECT_EQ(listing["sends"][0]["kind"], "chart");
  EXPECT_EQ(listing["sends"][0]["data"][0]["rows"], 1);
  EXPECT_EQ(listing["sends"][0]["data"][0]["source"], "source0");
  EXPECT_TRUE(listing["faults"].empty());
}

TEST_F(Inspect, CountsTheRowsOfTheWeather) {
  chartOfWeather();
  auto const data = json()["sends"][0]["data"];
  ASSERT_EQ(data.size(), 1u);
  EXPECT_EQ(data[0]["rows"], 1461);
  EXPECT_EQ(data[0]["columns"].size(), 2u);
}

TEST_F(Inspect, TakesTheContentsOut) {
  write("extra.csv", "x\n1\n");
  chartOf("a,b\n1,2\n", {"--description", "D\xC3\xA9tails", "--csv", "extra.csv"});
  EXPECT_EQ(extract().exit, 0);
  EXPECT_THAT(filesIn("contents"), ElementsAre("chart.xml", "data.arrows", "description.eng.txt",
                                               "description.txt", "done.json", "extra.csv", "sizes.json"));
  auto const sent = decodeContents(kestrel::test::decodeCapture(read("out/capture.kcap")));
  EXPECT_EQ(read("contents/chart.xml"), inflated(onlyContent(sent, 1).bytes));
  EXPECT_EQ(read("contents/data.arrows"), onlyContent(sent, 8).bytes);
  EXPECT_EQ(read("contents/description.txt"), "D\xC3\xA9tails");
  EXPECT_EQ(read("contents/description.eng.txt"), "Details");
  EXPECT_EQ(read("contents/extra.csv"), "x\n1\n");
  EXPECT_EQ(nlohmann::json::parse(read("contents/done.json")),
            (nlohmann::json{{"editable", 0}, {"editor", 2}}));
}

TEST_F(Inspect, NamesWhatItTookOutInTheJson) {
  chartOf("a,b\n1,2\n");
  auto const listing = nlohmann::json::parse(inspect({"--json", "--extract", "contents"}).out);
  EXPECT_EQ(listing["extracted"], (nlohmann::json{"description.txt", "description.eng.txt", "chart.xml",
                                                  "data.arrows", "done.json", "sizes.json"}));
}

TEST_F(Inspect, KeepsNamesFromTheCaptureWithinTheFolder) {
  std::filesystem::create_directories(folder / "sub");
  write("sub/.hidden", "1");
  write("chart.xml", "2");
  chartOf("a,b\n1,2\n", {"--csv", "sub/../sub/.hidden", "--csv", "chart.xml"});
  EXPECT_EQ(extract().exit, 0);
  EXPECT_EQ(read("contents/hidden"), "1");
  EXPECT_EQ(read("contents/chart-2.xml"), "2");
  EXPECT_THAT(read("contents/chart.xml"), StartsWith("<?xml"));
}

TEST_F(Inspect, ReplacesALinkInsteadOfFollowingIt) {
  chartOf("a,b\n1,2\n");
  write("precious", "keep me");
  std::filesystem::create_directories(folder / "contents");
  std::filesystem::create_symlink("../precious", folder / "contents" / "chart.xml");
  EXPECT_EQ(extract().exit, 0);
  EXPECT_EQ(read("precious"), "keep me");
  EXPECT_FALSE(std::filesystem::is_symlink(folder / "contents" / "chart.xml"));
}

TEST_F(Inspect, TakesTheContentsOfSeveralChartsIntoFoldersOfTheirOwn) {
  chartOf("a,b\n1,2\n", {"--title", "first"});
  std::string const first = read("out/capture.kcap");
  chartOf("a,b\n1,2\n", {"--title", "second"});
  write("out/capture.kcap", first + read("out/capture.kcap").substr(8));
  EXPECT_EQ(extract().exit, 0);
  EXPECT_THAT(filesIn("contents"), ElementsAre("1", "2"));
  EXPECT_THAT(read("contents/1/chart.xml"), HasSubstr("<text>first</text>"));
  EXPECT_THAT(read("contents/2/chart.xml"), HasSubstr("<text>second</text>"));
}

TEST_F(Inspect, SaysWhereACaptureIsCut) {
  chartOf("a,b\n1,2\n", {"--description", "abc"});
  write("out/capture.kcap", read("out/capture.kcap").substr(0, 75));
  Outcome const run = extract();
  EXPECT_EQ(run.exit, 2);
  EXPECT_THAT(run.err,
              StartsWith("kestrel: out/capture.kcap: at byte 70: the capture is cut: 16 bytes that begin "
                         "message 3 were expected, there are 5"));
}

TEST_F(Inspect, TakesOutWhatACutCaptureHas) {
  chartOf("a,b\n1,2\n", {"--description", "abc"});
  write("out/capture.kcap", read("out/capture.kcap").substr(0, 90));
  Outcome const run = extract();
  EXPECT_EQ(run.exit, 2);
  EXPECT_THAT(filesIn("contents"), ElementsAre("description.eng.txt", "description.txt"));
}

TEST_F(Inspect, SaysWhichMessageIsCorrupt) {
  chartOf("a,b\n1,2\n", {"--description", "abc"});
  // The chunk size of the first message.
  change(8 + 16 + 4, "\x04");
  Outcome const run = inspect();
  EXPECT_EQ(run.exit, 2);
  EXPECT_THAT(run.err,
              StartsWith("kestrel: out/capture.kcap: at byte 28 (message 1): the chunk size is 4, but the "
                         "message has 15 bytes, not 16\n"));
}

TEST_F(Inspect, TellsFaultsInTheJsonToo) {
  chartOf("a,b\n1,2\n", {"--description", "abc"});
  change(8 + 16 + 2, "\x01");
  Outcome const run = inspect({"--json"});
  EXPECT_EQ(run.exit, 2);
  auto const listing = nlohmann::json::parse(run.out);
  EXPECT_EQ(listing["good"], false);
  EXPECT_EQ(listing["faults"],
            (nlohmann::json{{{"offset", 26}, {"message", 1}, {"text", "the reserved bytes are not 0"}}}));
}

TEST_F(Inspect, SaysThatChartTextDoesNotDecompress) {
  chartOf("a,b\n1,2\n");
  auto const messages = json()["messages"];
  change(messages[4]["offset"].get<std::size_t>() + 8 + 20, std::string(4, '\0'));
  Outcome const run = inspect();
  EXPECT_EQ(run.exit, 2);
  EXPECT_THAT(run.err, HasSubstr("(message 5): chart text of "));
  EXPECT_THAT(run.err, HasSubstr("is no whole zlib stream"));
}

TEST_F(Inspect, SaysThatAFileIsNoCapture) {
  write("t.csv", "a,b\n1,2\n");
  Outcome const run = kestrel({"inspect", "t.csv"});
  EXPECT_EQ(run.exit, 2);
  EXPECT_THAT(run.err,
              StartsWith("kestrel: t.csv: at byte 0: this is no capture, which starts with KCAP0001"));
}

TEST_F(Inspect, SaysThatThereIsNoFile) {
  Outcome const run = kestrel({"inspect", "none.kcap"});
  EXPECT_EQ(run.exit, 1);
  EXPECT_THAT(run.err, StartsWith("kestrel: none.kcap: cannot be read: "));
}

TEST_F(Inspect, SaysThatTheFolderCannotBeMade) {
  chartOf("a,b\n1,2\n");
  Outcome const run = inspect({"--extract", "t.csv/contents"});
  EXPECT_EQ(run.exit, 3);
  EXPECT_THAT(run.err, StartsWith("kestrel: t.csv/contents: cannot make this folder: "));
}

TEST_F(Inspect, TellsOfAHundredFaultsAtMost) {
  std::string capture = "KCAP0001";
  for (int i = 0; i < 150; ++i) capture += std::string("\x01\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 16);
  write("many.kcap", capture);
  Outcome const run = kestrel({"inspect", "many.kcap"});
  EXPECT_EQ(run.exit, 2);
  EXPECT_THAT(run.err, HasSubstr("kestrel: many.kcap: and 50 more faults\n"));
}

TEST_F(Inspect, FindsNoDifferenceBetweenACaptureAndItself) {
  chartOf("a,b\n1,2\n");
  Outcome const run = inspect({"--diff", "out/capture.kcap"});
  EXPECT_EQ(run.exit, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, testing::EndsWith("8 messages the same\n"));
}

TEST_F(Inspect, ShowsWhatDiffersBetweenTwoCaptures) {
  chartOf("a,b\n1,2\n", {"--title", "first"});
  write("first.kcap", read("out/capture.kcap"));
  chartOf("a,b\n1,2\n", {"--title", "second", "--csv", "t.csv"});
  Outcome const run = inspect({"--diff", "first.kcap"});
  EXPECT_EQ(run.exit, 2);
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, StartsWith("out/capture.kcap / first.kcap\n"));
  EXPECT_THAT(run.out, HasSubstr("data                 same\n"));
  EXPECT_THAT(run.out, HasSubstr("chart text           differs, "));
  EXPECT_THAT(run.out, HasSubstr("CSV name             only in out/capture.kcap\n"));
  EXPECT_THAT(run.out, testing::ContainsRegex("-  [ 0-9]* +<text>second</text>\n"
                                              "[+]  [ 0-9]* +<text>first</text>\n"));
}

TEST_F(Inspect, DoesNotTakeACutCaptureForTheSame) {
  chartOf("a,b\n1,2\n");
  write("cut.kcap", read("out/capture.kcap") + "x");
  Outcome const run = inspect({"--diff", "cut.kcap"});
  EXPECT_EQ(run.exit, 2);
  EXPECT_THAT(run.err, HasSubstr("cut.kcap: at byte "));
}

TEST_F(Inspect, ComparesWithoutListing) {
  chartOf("a,b\n1,2\n");
  EXPECT_EQ(inspect({"--diff", "out/capture.kcap", "--json"}).exit, 1);
  EXPECT_EQ(inspect({"--diff", "none.kcap"}).exit, 1);
}

class Help : public CliTest {};

TEST_F(Help, IsGivenOnStandardOutput) {
  Outcome const run = kestrel({"--help"});
  EXPECT_EQ(run.exit, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, HasSubstr("chart"));
  EXPECT_THAT(run.out, HasSubstr("inspect"));
  EXPECT_THAT(run.out, HasSubstr("Exit codes:"));
}

TEST_F(Help, OfChartTellsHowColumnsAreRead) {
  Outcome const run = kestrel({"chart", "--help"});
  EXPECT_EQ(run.exit, 0);
  EXPECT_THAT(run.out, HasSubstr("--element KIND:{point,bar,line,histogram,box,errorbar,pyramid}\n"));
  EXPECT_THAT(run.out, HasSubstr("NA, NaN"));
  for (char const* const option :
       {"--cluster COLUMN", "--stack COLUMN", "--panel-row COLUMN", "--panel-column COLUMN", "--label COLUMN",
        "--bins N", "--sort ORDER:{ascending,descending}", "--exclude CATEGORY", "--reference-x VALUE",
        "--reference-y VALUE", "--transpose"}) {
    EXPECT_THAT(run.out, HasSubstr(option));
  }
}

TEST_F(Help, HasAVersion) {
  Outcome const run = kestrel({"--version"});
  EXPECT_EQ(run.exit, 0);
  EXPECT_THAT(run.out, testing::MatchesRegex("[0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

}  // namespace
