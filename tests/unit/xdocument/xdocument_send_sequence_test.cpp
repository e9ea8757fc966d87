// The sequence of a chart that has content of every kind: what comes where, and which result decides.

#include "xdocument.h"

#include "chart_test.h"
#include "document_record.h"
#include "schema_validator.h"
#include "story.h"
#include "xgraph.h"

#include "host/messages.h"
#include "kestrelhost/compression.h"
#include "model/document.h"
#include "model/variables.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// The puts of the whole chart, by the types of their contents.
enum Put : unsigned int {
  Description = 1,
  EnglishDescription,
  TextSize,
  CompressedSize,
  Text,
  DataSize,
  Data,
  Maps,
  FirstName,
  FirstContent,
  SecondName,
  SecondContent,
  EndRecord
};

constexpr int allTypes[] = {0, 9, 2, 4, 1, 5, 8, 10, 11, 6, 11, 6, 3};

/// A chart with a source, maps, two files, a style sheet and a date that takes relabels.
class WholeChart : public ChartTest {
 protected:
  WholeChart() {
    document.SetDescription(u"Heights");
    document.setLUMOMap("regions", "{map}");
    document.AddCSVFile("first.csv");
    document.AddCSVFile("second.csv");
    recorder.services().files->content = {{"first.csv", "a\n"}, {"second.csv", "b\n"}};
    document.setStyleSheet("house style", "<sheet/>");
    LumoSourceVariable& date = *visualization.addSourceVariable(u"day");
    date.setSource(*source->getImplemenation());
    date.setSourceName(u"day");
    date.setCategorical(true);
    date.addExtension()->setAttribute(u"inputDateFormatPattern", u"MMM");
    recorder.clear();
  }

  void TearDown() override { EXPECT_THAT(schemaErrors(document.AsUTF8()), IsEmpty()) << document.AsUTF8(); }

  bool send() { return document.SendChart(false, true, false); }

  std::string sentText() {
    std::string text;
    EXPECT_TRUE(host::decompress(payloadOf(recorder, CXT_XML), text));
    return text;
  }

  LumoDocument model;
  LumoVisualization& visualization{*model.getVisualization()};
  XDocument document{model};
  std::unique_ptr<XSource> source{document.getGraph()->AddSource()};
};

TEST_F(WholeChart, GoesOutInThisOrder) {
  EXPECT_TRUE(send());
  EXPECT_THAT(
      storyOf(recorder),
      ElementsAre("trace: Before calling applyStyleSheet()", "plotDeskConverter::applyStyleSheet",
                  "trace: After calling applyStyleSheet()", "put 0", "put 9", "trace: Heights",
                  "zlib1213vexa::compressString", "put 2", "put 4", "put 1", "trace: Done Sending XML",
                  "VarDataProcessor::GetDataStream", "put 5", "put 8", "trace: Done Sending Data", "put 10",
                  "trace: Done Sending Map Info", "fetch first.csv", "put 11", "put 6", "fetch second.csv",
                  "put 11", "put 6", "put 3"));
  EXPECT_THAT(typesOf(recorder), ElementsAreArray(allTypes));
}

TEST_F(WholeChart, HasNoSubTypes) {
  send();
  for (SentMessage const& message : messagesOf(recorder)) EXPECT_EQ(message.subType, 0) << message.type;
}

TEST_F(WholeChart, CarriesTheRecordOfTheMapsAsItIs) {
  send();
  EXPECT_EQ(payloadOf(recorder, CXT_MAP_INFO), std::string("\1\0\5\0\0\0{map}\7\0regions\0\0\0\0\0\0", 26));
  EXPECT_EQ(payloadOf(recorder, CXT_MAP_INFO), recordOf(document).getMapInfo());
}

TEST_F(WholeChart, WithoutMapsHasNoContentForThem) {
  document.setLUMOMap("", "");
  EXPECT_TRUE(send());
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 5, 8, 11, 6, 11, 6, 3));
  EXPECT_THAT(recorder.trace(), Not(Contains("Done Sending Map Info")));
}

TEST_F(WholeChart, HasItsMapsAlsoWithoutASource) {
  XDocument plain;
  plain.setLUMORefMap("reference", "");
  EXPECT_TRUE(plain.SendChart(false, true, false));
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 10, 3));
}

TEST_F(WholeChart, ThatIsCompleteIsNeitherFleshedOutNorCompleted) {
  send();
  EXPECT_EQ(recorder.count(Operation::GetSourceNames), 0u);
  EXPECT_EQ(recorder.count(Operation::StartTemplate), 0u);
  EXPECT_EQ(attribute(&visualization, u"lang"), "(absent)");
  EXPECT_THAT(sentText(), Not(HasSubstr("<relabel")));
}

class UnfinishedChart : public WholeChart {
 protected:
  bool send() { return document.SendChart(false, false, false); }

  std::ptrdiff_t placeOf(std::string const& step) {
    auto const story = storyOf(recorder);
    auto const at = std::find(story.begin(), story.end(), step);
    EXPECT_NE(at, story.end()) << step;
    return at - story.begin();
  }
};

TEST_F(UnfinishedChart, IsFleshedOutThenCompletedThenStyledAndThenSent) {
  EXPECT_TRUE(send());
  EXPECT_EQ(storyOf(recorder).front(), "VarDataProcessor::GetSourceNames");
  EXPECT_LT(placeOf("VarDataProcessor::GetRowCount"), placeOf("trace: Start Applying Templates"));
  EXPECT_LT(placeOf("trace: Start Applying Templates"), placeOf("trace: Done Applying Templates"));
  EXPECT_LT(placeOf("trace: Done Applying Templates"), placeOf("trace: Before calling applyStyleSheet()"));
  EXPECT_LT(placeOf("trace: Before calling applyStyleSheet()"), placeOf("put 0"));
}

TEST_F(UnfinishedChart, GoesOutAsAFinishedOneDoes) {
  EXPECT_TRUE(send());
  auto const story = storyOf(recorder);
  std::vector<std::string> const behind(story.begin() + placeOf("trace: Before calling applyStyleSheet()"),
                                        story.end());
  recorder.clear();
  XDocument twin(model);
  twin.SetDescription(u"Heights");
  twin.setLUMOMap("regions", "{map}");
  twin.AddCSVFile("first.csv");
  twin.AddCSVFile("second.csv");
  twin.setStyleSheet("house style", "<sheet/>");
  VarDataProcessor store;
  store.AddDataSource("source0", 0);
  twin.SetChartData(&store);
  recorder.clear();
  EXPECT_TRUE(twin.SendChart(false, true, false));
  EXPECT_EQ(storyOf(recorder), behind);
}

TEST_F(UnfinishedChart, IsStampedBeforeItIsFleshedOut) {
  std::string description;
  recorder.actAt(Operation::GetSourceNames, 1,
                 [&] { description = attribute(&visualization, u"description"); });
  send();
  EXPECT_EQ(description, "Heights");
}

TEST_F(UnfinishedChart, CarriesRelabelsAndLanguage) {
  source->AddRow()->addDataValue(
      XVariable(document.getGraph()->AddAggregatedVariable(*source, false, ChartString(u"height"))), 1.5);
  EXPECT_TRUE(send());
  EXPECT_THAT(sentText(), HasSubstr("to=\"December\""));
  EXPECT_NE(attribute(&visualization, u"lang"), "(absent)");
}

TEST_F(UnfinishedChart, ThatIsProtectedIsFleshedOutButNotStamped) {
  document.doNotModify(true);
  EXPECT_TRUE(send());
  EXPECT_EQ(recorder.count(Operation::GetSourceNames), 1u);
  EXPECT_EQ(attribute(&visualization, u"type"), "(absent)");
  EXPECT_EQ(attribute(&visualization, u"description"), "(absent)");
  EXPECT_EQ(attribute(&visualization, u"lang"), "(absent)");
  EXPECT_THAT(typesOf(recorder), ElementsAreArray(allTypes));
}

TEST_F(UnfinishedChart, WhoseFleshingOutFailsSendsNothingAndKeepsTheStore) {
  recorder.throwAt(Operation::AddVariable, 1, OrdinaryFailure());
  EXPECT_FALSE(send());
  EXPECT_THAT(storyOf(recorder),
              ElementsAre("VarDataProcessor::GetSourceNames", "VarDataProcessor::GetVariableNames",
                          "VarDataProcessor::AddVariable", "log: Failed to send chart.",
                          "user: Chart XML Send Error"));
  EXPECT_NE(recordOf(document).mChartData, nullptr);
}

TEST_F(UnfinishedChart, IsFleshedOutAndCompletedAgainAtASecondCall) {
  send();
  document.SetChartData(new VarDataProcessor);
  std::unique_ptr<VarDataProcessor> const own(recordOf(document).mChartData);
  recorder.clear();
  EXPECT_TRUE(send());
  EXPECT_EQ(recorder.count(Operation::GetSourceNames), 1u);
  EXPECT_THAT(recorder.trace(), Contains("Start Applying Templates"));
}

TEST_F(UnfinishedChart, IsNotFleshedOutAtASecondCallForWhichItHasNoStore) {
  send();
  recorder.clear();
  EXPECT_TRUE(send());
  EXPECT_EQ(recorder.count(Operation::GetSourceNames), 0u);
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 10, 11, 6, 11, 6, 3));
}

/// Which puts fail, and what comes of it.
struct ResultRow {
  char const* name;
  std::vector<Put> failing;
  bool result;
  std::vector<int> types;
  std::vector<std::string> reports;
};

void PrintTo(ResultRow const& row, std::ostream* out) { *out << row.name; }

std::vector<int> all() { return {std::begin(allTypes), std::end(allTypes)}; }

constexpr char const* dataFailed = "Failed to send chart data";
constexpr char const* doneFailed = "Failed to send chart done message";

class FailingPuts : public WholeChart, public ::testing::WithParamInterface<ResultRow> {
 protected:
  FailingPuts() {
    for (Put put : GetParam().failing) recorder.failAt(Operation::IpcPutC, put);
  }
};

TEST_P(FailingPuts, DecideOnTheResult) { EXPECT_EQ(send(), GetParam().result); }

TEST_P(FailingPuts, LeaveTheseMessagesToBeTried) {
  send();
  EXPECT_EQ(typesOf(recorder), GetParam().types);
}

TEST_P(FailingPuts, AreReportedToTheLogAlone) {
  send();
  EXPECT_EQ(recorder.failures(), GetParam().reports);
  EXPECT_THAT(recorder.userMessages(), IsEmpty());
}

TEST_P(FailingPuts, LetGoOfTheStore) {
  send();
  EXPECT_EQ(recordOf(document).mChartData, nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Puts, FailingPuts,
    ::testing::Values(
        ResultRow{"None", {}, true, all(), {}},
        ResultRow{"TheDescription", {Description}, false, {0}, {"Failed to send chart description"}},
        ResultRow{"TheEnglishDescription",
                  {EnglishDescription},
                  false,
                  {0, 9},
                  {"Failed to send chart description"}},
        ResultRow{"TheAnnouncements", {TextSize, CompressedSize, DataSize}, true, all(), {}},
        ResultRow{"TheText", {Text}, false, {0, 9, 2, 4, 1, 3}, {"Failed to send chart XML"}},
        ResultRow{"TheTextAndTheEndRecord",
                  {Text, static_cast<Put>(6)},
                  false,
                  {0, 9, 2, 4, 1, 3},
                  {"Failed to send chart XML", doneFailed}},
        ResultRow{"TheData", {Data}, true, all(), {dataFailed}},
        ResultRow{"TheMaps", {Maps}, true, all(), {}},
        ResultRow{"TheDataAndTheMaps", {Data, Maps}, true, all(), {dataFailed}},
        ResultRow{"TheFirstName", {FirstName}, true, all(), {}},
        ResultRow{"TheFirstContent", {FirstContent}, true, all(), {}},
        ResultRow{"TheFirstFile", {FirstName, FirstContent}, true, all(), {}},
        ResultRow{"TheLastName", {SecondName}, true, all(), {}},
        ResultRow{"TheLastContent", {SecondContent}, false, all(), {}},
        ResultRow{"AllButTheLastContent",
                  {Data, Maps, FirstName, FirstContent, SecondName},
                  true,
                  all(),
                  {dataFailed}},
        ResultRow{"TheEndRecord", {EndRecord}, false, all(), {doneFailed}},
        ResultRow{"TheDataAndTheEndRecord", {Data, EndRecord}, false, all(), {dataFailed, doneFailed}}),
    [](auto const& test) { return std::string(test.param.name); });

/// A chart with maps and no files.
class ChartWithMaps : public WholeChart {
 protected:
  ChartWithMaps() { recordOf(document).mCSVFiles.clear(); }
};

TEST_F(ChartWithMaps, HidesFailedDataBehindMapsThatGoOut) {
  recorder.failAt(Operation::IpcPutC, Data);
  EXPECT_TRUE(send());
  EXPECT_THAT(recorder.failures(), ElementsAre(dataFailed));
}

TEST_F(ChartWithMaps, FailsWithItsMapsWithoutAReport) {
  recorder.failAt(Operation::IpcPutC, Maps);
  EXPECT_FALSE(send());
  expectNoReport(recorder);
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 5, 8, 10, 3));
}

TEST_F(ChartWithMaps, TracesMapsThatFailedToo) {
  recorder.failAt(Operation::IpcPutC, Maps);
  send();
  EXPECT_EQ(recorder.trace().back(), "Done Sending Map Info");
}

TEST_F(ChartWithMaps, KeepsTheResultOfItsMapsBehindAFileThatIsNotThere) {
  document.AddCSVFile("none.csv");
  recorder.failAt(Operation::IpcPutC, Maps);
  EXPECT_FALSE(send());
  EXPECT_THAT(recorder.failures(), IsEmpty());
}

TEST_F(ChartWithMaps, KeepsThemGoodBehindAFileThatIsNotThere) {
  document.AddCSVFile("none.csv");
  recorder.failAt(Operation::IpcPutC, Data);
  EXPECT_TRUE(send());
}

TEST_F(WholeChart, OffersTheFileEditorAlsoWhereNoFileIsThere) {
  recorder.services().files->content.clear();
  document.setEditor(XDocument::EditorInteractive);
  EXPECT_TRUE(send());
  EXPECT_EQ(payloadOf(recorder, CXT_DONE), std::string("\0\0\0\0\2\0\0\0", 8));
}

TEST_F(WholeChart, SkipsAFileThatIsNotThereBetweenTwoOthers) {
  recorder.services().files->content.erase("first.csv");
  document.AddCSVFile("third.csv");
  recorder.services().files->content["third.csv"] = "c\n";
  EXPECT_TRUE(send());
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 5, 8, 10, 11, 6, 11, 6, 3));
  EXPECT_EQ(payloadOf(recorder, CXT_CSV_NAME), "second.csvthird.csv");
  EXPECT_EQ(recorder.userMessages().size(), 1u);
}

TEST_F(WholeChart, ClearsBehindTheEndRecordAlsoWhereThatFailed) {
  recorder.failAt(Operation::IpcPutC, EndRecord);
  EXPECT_FALSE(document.SendChart(false, true, true));
  auto const story = storyOf(recorder);
  ASSERT_GE(story.size(), 2u);
  EXPECT_THAT(
      std::vector(story.end() - 3, story.end()),
      ElementsAre("put 3", "log: Failed to send chart done message", "VarDataProcessor::AddDataSource"));
}

TEST_F(WholeChart, ThatWasClearedHasNoDataASecondTime) {
  document.SendChart(false, true, true);
  recorder.clear();
  EXPECT_TRUE(document.SendChart(false, true, true));
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 10, 11, 6, 11, 6, 3));
  EXPECT_EQ(recorder.count(Operation::AddDataSource), 0u);
}

TEST_F(WholeChart, ThatWasSentMayBeFilledThroughItsSourceAndClearedByItsGraph) {
  send();
  source->AddRow();
  document.getGraph()->clearData();
  source->AddRow();
  recorder.clear();
  EXPECT_TRUE(send());
  EXPECT_EQ(recorder.count(Operation::GetDataStream), 0u);
}

TEST_F(WholeChart, KeepsTheStoreOfTheCallerWhoHasItSentAgain) {
  VarDataProcessor store;
  store.AddDataSource("source0", 1);
  document.SetChartData(&store);
  EXPECT_TRUE(send());
  document.SetChartData(&store);
  recorder.clear();
  EXPECT_TRUE(send());
  EXPECT_THAT(typesOf(recorder), ElementsAreArray(allTypes));
}

TEST_F(WholeChart, ReportsToTheOuterGuardWhatTheInnerOnesReportThrows) {
  recorder.throwAt(Operation::GetDataStream, 1, OrdinaryFailure());
  recorder.throwAt(Operation::Error, 1, OrdinaryFailure());
  EXPECT_FALSE(send());
  auto const story = storyOf(recorder);
  ASSERT_GE(story.size(), 3u);
  EXPECT_THAT(std::vector(story.end() - 3, story.end()),
              ElementsAre("log: Failed to send chart XML or data", "log: Failed to send chart.",
                          "user: Chart XML Send Error"));
  EXPECT_EQ(payloadOf(recorder, CXT_DONE), "");
  EXPECT_NE(recordOf(document).mChartData, nullptr);
}

TEST_F(WholeChart, LetsTheHostsSignalOutOfTheInnerGuardsReport) {
  recorder.throwAt(Operation::GetDataStream, 1, OrdinaryFailure());
  recorder.throwAt(Operation::Error, 1, VexaGoToCaller());
  EXPECT_THROW(send(), VexaGoToCaller);
  EXPECT_THAT(recorder.userMessages(), IsEmpty());
}

TEST_F(WholeChart, StampsAVisualizationWhoseTypeWasAnother) {
  visualization.setType(u"7");
  send();
  EXPECT_EQ(attribute(&visualization, u"type"), "31000000");
}

}  // namespace
}  // namespace kestrel::test
