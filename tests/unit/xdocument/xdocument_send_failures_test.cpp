// What survives a failure at each step of the send sequence.

#include "xdocument.h"

#include "chart_test.h"
#include "document_record.h"
#include "failing_paths.h"
#include "story.h"
#include "xgraph.h"

#include "host/messages.h"
#include "model/document.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedCell;
using host::RecordedMessage;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

/// A chart with a source and an attached file. Its puts are, in this order: description (1), its English form
/// (2), size (3), compressed size (4) and text (5) of the chart, size (6) and stream (7) of the data, name
/// (8) and content (9) of the file, end record (10).
class FailedSend : public ChartTest {
 protected:
  FailedSend() {
    document.SetDescription(u"Heights");
    document.AddCSVFile("first.csv");
    recorder.services().files->content["first.csv"] = "a\n";
    recorder.clear();
  }

  bool send() { return document.SendChart(false, true, false); }

  LumoDocument model;
  LumoVisualization& visualization{*model.getVisualization()};
  XDocument document{model};
  std::unique_ptr<XSource> source{document.getGraph()->AddSource()};
};

TEST_F(FailedSend, IsNoneOfAWholeChart) {
  EXPECT_TRUE(send());
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 5, 8, 11, 6, 3));
  expectNoReport(recorder);
}

TEST_F(FailedSend, OfNoChartTellsTheUserAndThenTheLogAndSendsNothing) {
  XDocument empty{std::string()};
  recorder.clear();
  EXPECT_FALSE(empty.SendChart(false, false, false));
  EXPECT_THAT(storyOf(recorder), ElementsAre("user: Chart XML Send Error",
                                             "log: Error in XDocument::SendChart() - no LumoDocument"));
  EXPECT_EQ(recorder.userMessages(),
            (std::vector<RecordedMessage>{{"Chart XML Send Error", true, "", {}, 2, 2}}));
}

TEST_F(FailedSend, OfTheDescriptionLeavesTheClientWithoutAnEndRecord) {
  recorder.failAt(Operation::IpcPutC, 1);
  EXPECT_FALSE(send());
  EXPECT_THAT(storyOf(recorder),
              ElementsAre("put 0", "trace: Heights", "log: Failed to send chart description"));
  EXPECT_EQ(recorder.count(Operation::BpError), 0u);
}

TEST_F(FailedSend, OfADescriptionThatCannotBeLookedUpSendsNothingAtAll) {
  document.SetDescription(u"");
  NoPaths const none;
  EXPECT_FALSE(send());
  EXPECT_THAT(storyOf(recorder), ElementsAre("log: Failed to send chart.", "user: Chart XML Send Error"));
}

TEST_F(FailedSend, OfTheDescriptionsEnglishFormIsOneOfTheDescription) {
  recorder.failAt(Operation::IpcPutC, 2);
  EXPECT_FALSE(send());
  EXPECT_THAT(recorder.failures(), ElementsAre("Failed to send chart description"));
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9));
}

TEST_F(FailedSend, OfTheDescriptionLetsGoOfTheDataStoreAllTheSame) {
  recorder.failAt(Operation::IpcPutC, 1);
  document.SendChart(false, true, true);
  EXPECT_EQ(storyOf(recorder).back(), "VarDataProcessor::AddDataSource");
  EXPECT_EQ(recordOf(document).mChartData, nullptr);
}

TEST_F(FailedSend, OfTheTextSkipsEverythingButTheEndRecord) {
  recorder.failAt(Operation::IpcPutC, 5);
  EXPECT_FALSE(send());
  EXPECT_THAT(storyOf(recorder),
              ElementsAre("put 0", "put 9", "trace: Heights", "zlib1213vexa::compressString", "put 2",
                          "put 4", "put 1", "log: Failed to send chart XML", "put 3"));
  EXPECT_EQ(recordOf(document).mChartData, nullptr);
}

TEST_F(FailedSend, OfTheAnnouncementsIsNone) {
  for (unsigned int put : {3U, 4U, 6U}) recorder.failAt(Operation::IpcPutC, put);
  EXPECT_TRUE(send());
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 5, 8, 11, 6, 3));
  expectNoReport(recorder);
}

TEST_F(FailedSend, OfTheDataIsReportedAndTheRestGoesOut) {
  recorder.failAt(Operation::IpcPutC, 7);
  send();
  EXPECT_THAT(recorder.failures(), ElementsAre("Failed to send chart data"));
  EXPECT_THAT(recorder.trace(), ElementsAre("Heights", "Done Sending XML", "Done Sending Data"));
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 5, 8, 11, 6, 3));
}

TEST_F(FailedSend, OfTheDataIsLoggedBeforeTheTrace) {
  recorder.failAt(Operation::IpcPutC, 7);
  send();
  auto const story = storyOf(recorder);
  auto const at = std::find(story.begin(), story.end(), "log: Failed to send chart data");
  ASSERT_LT(at, story.end() - 1);
  EXPECT_EQ(at[1], "trace: Done Sending Data");
}

TEST_F(FailedSend, OfTheDataDecidesWhereNothingFollows) {
  XDocument plain;
  plain.SetDescription(u"Heights");
  std::unique_ptr<XSource> const plainSource(plain.getGraph()->AddSource());
  recorder.failAt(Operation::IpcPutC, 7);
  EXPECT_FALSE(plain.SendChart(false, true, false));
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 5, 8, 3));
}

TEST_F(FailedSend, OfTheDataIsForgottenBehindAFileThatGoesOut) {
  recorder.failAt(Operation::IpcPutC, 7);
  EXPECT_TRUE(send());
}

TEST_F(FailedSend, OfAFilesNameIsForgottenBehindItsContent) {
  recorder.failAt(Operation::IpcPutC, 8);
  EXPECT_TRUE(send());
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 5, 8, 11, 6, 3));
  expectNoReport(recorder);
}

TEST_F(FailedSend, OfAFilesContentDecidesWithoutAReport) {
  recorder.failAt(Operation::IpcPutC, 9);
  EXPECT_FALSE(send());
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 5, 8, 11, 6, 3));
  expectNoReport(recorder);
}

TEST_F(FailedSend, OfAFilesContentIsForgottenBehindTheNextFile) {
  document.AddCSVFile("first.csv");
  recorder.failAt(Operation::IpcPutC, 9);
  EXPECT_TRUE(send());
}

TEST_F(FailedSend, OfAFetchTellsTheUserTheNameAndGoesOn) {
  document.AddCSVFile("^1.csv");
  EXPECT_TRUE(send());
  EXPECT_EQ(recorder.userMessages(), (std::vector<RecordedMessage>{{"^1.csv not a valid file name...",
                                                                    true,
                                                                    "^1 not a valid file name...",
                                                                    {RecordedCell{"^1.csv", false}},
                                                                    2,
                                                                    2}}));
  EXPECT_EQ(recorder.count(Operation::Error), 0u);
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 5, 8, 11, 6, 3));
}

TEST_F(FailedSend, OfAFetchLeavesTheResultAsItWas) {
  recorder.services().files->content.clear();
  recorder.failAt(Operation::IpcPutC, 7);
  EXPECT_FALSE(send());
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 5, 8, 3));
}

TEST_F(FailedSend, OfAFetchOffersTheFileEditorAllTheSame) {
  recorder.services().files->content.clear();
  document.setEditable(static_cast<XDocument::EDITABLE>(5));
  EXPECT_TRUE(send());
  EXPECT_EQ(payloadOf(recorder, CXT_DONE), std::string("\0\0\0\0\2\0\0\0", 8));
  EXPECT_EQ(document.getEditable(), 0);
}

TEST_F(FailedSend, OfTheEndRecordIsReportedAndTheStoreLetGo) {
  recorder.failAt(Operation::IpcPutC, 10);
  EXPECT_FALSE(send());
  EXPECT_THAT(recorder.failures(), ElementsAre("Failed to send chart done message"));
  EXPECT_EQ(recorder.count(Operation::BpError), 0u);
  EXPECT_EQ(recordOf(document).mChartData, nullptr);
}

TEST_F(FailedSend, OfTheTextAndTheEndRecordAreBothReported) {
  recorder.failAt(Operation::IpcPutC, 5);
  recorder.failAt(Operation::IpcPutC, 6);
  EXPECT_FALSE(send());
  EXPECT_THAT(recorder.failures(),
              ElementsAre("Failed to send chart XML", "Failed to send chart done message"));
}

/// The steps between the description and the end record that can throw.
struct ThrowingStep {
  char const* name;
  Operation operation;
  unsigned int call;
};

void PrintTo(ThrowingStep const& step, std::ostream* out) { *out << step.name; }

class InnerGuard : public FailedSend, public ::testing::WithParamInterface<ThrowingStep> {};

TEST_P(InnerGuard, ReportsAndStillSendsTheEndRecord) {
  recorder.throwAt(GetParam().operation, GetParam().call, OrdinaryFailure());
  EXPECT_FALSE(send());
  EXPECT_THAT(recorder.failures(), ElementsAre("Failed to send chart XML or data"));
  EXPECT_EQ(recorder.count(Operation::BpError), 0u);
  auto const story = storyOf(recorder);
  ASSERT_GE(story.size(), 3u);
  EXPECT_THAT(std::vector(story.end() - 3, story.end()),
              ElementsAre("log: Failed to send chart XML or data", "trace: Failed to send chart XML or data",
                          "put 3"));
  EXPECT_EQ(recordOf(document).mChartData, nullptr);
}

TEST_P(InnerGuard, LetsTheHostsSignalThroughWithoutAReport) {
  recorder.throwAt(GetParam().operation, GetParam().call, VexaGoToCaller());
  EXPECT_THROW(send(), VexaGoToCaller);
  expectNoReport(recorder);
  EXPECT_EQ(payloadOf(recorder, CXT_DONE), "");
}

INSTANTIATE_TEST_SUITE_P(Steps, InnerGuard,
                         ::testing::Values(ThrowingStep{"Compression", Operation::CompressString, 1},
                                           ThrowingStep{"Size", Operation::IpcPutC, 3},
                                           ThrowingStep{"Text", Operation::IpcPutC, 5},
                                           ThrowingStep{"TraceOfTheText", Operation::PrintDebugInfo, 2},
                                           ThrowingStep{"DataStream", Operation::GetDataStream, 1},
                                           ThrowingStep{"Data", Operation::IpcPutC, 7},
                                           ThrowingStep{"Fetch", Operation::Fetch, 1},
                                           ThrowingStep{"FileContent", Operation::IpcPutC, 9}),
                         [](auto const& test) { return std::string(test.param.name); });

TEST_F(FailedSend, OfAFileBehindTheInnerGuardForgetsThatEarlierStepsWentWell) {
  recorder.throwAt(Operation::IpcPutC, 9, OrdinaryFailure());
  EXPECT_FALSE(send());
}

TEST_F(FailedSend, OfTheUserMessageAboutAFileIsHeldByTheInnerGuard) {
  recorder.services().files->content.clear();
  recorder.throwAt(Operation::BpError, 1, OrdinaryFailure());
  EXPECT_FALSE(send());
  EXPECT_THAT(recorder.failures(), ElementsAre("Failed to send chart XML or data"));
}

class OuterGuard : public FailedSend, public ::testing::WithParamInterface<ThrowingStep> {};

TEST_P(OuterGuard, ReportsTellsTheUserAndKeepsTheStore) {
  recorder.throwAt(GetParam().operation, GetParam().call, OrdinaryFailure());
  EXPECT_FALSE(send());
  auto const story = storyOf(recorder);
  ASSERT_GE(story.size(), 2u);
  EXPECT_THAT(std::vector(story.end() - 2, story.end()),
              ElementsAre("log: Failed to send chart.", "user: Chart XML Send Error"));
  EXPECT_EQ(recorder.userMessages(),
            (std::vector<RecordedMessage>{{"Chart XML Send Error", true, "", {}, 2, 2}}));
  EXPECT_EQ(recorder.count(Operation::Error), 1u);
  EXPECT_NE(recordOf(document).mChartData, nullptr);
}

TEST_P(OuterGuard, LetsTheHostsSignalThroughWithoutAReport) {
  recorder.throwAt(GetParam().operation, GetParam().call, VexaGoToCaller());
  EXPECT_THROW(send(), VexaGoToCaller);
  expectNoReport(recorder);
}

INSTANTIATE_TEST_SUITE_P(Steps, OuterGuard,
                         ::testing::Values(ThrowingStep{"Description", Operation::IpcPutC, 1},
                                           ThrowingStep{"TraceOfTheDescription", Operation::PrintDebugInfo,
                                                        1},
                                           ThrowingStep{"EndRecord", Operation::IpcPutC, 10}),
                         [](auto const& test) { return std::string(test.param.name); });

TEST_F(FailedSend, OfTheStampIsHeldByTheOuterGuardBeforeAnythingGoesOut) {
  ChangeTrap const trap(model, 1, throwOrdinaryFailure());
  EXPECT_FALSE(send());
  EXPECT_THAT(storyOf(recorder), ElementsAre("log: Failed to send chart.", "user: Chart XML Send Error"));
}

TEST_F(FailedSend, OfTheStampLetsTheHostsSignalThrough) {
  ChangeTrap const trap(model, 1, throwGoToCaller());
  EXPECT_THROW(send(), VexaGoToCaller);
  EXPECT_THAT(recorder.entries(), IsEmpty());
}

TEST_F(FailedSend, OfTheClearingIsHeldByTheOuterGuard) {
  recorder.throwAt(Operation::AddDataSource, 1, OrdinaryFailure());
  EXPECT_FALSE(document.SendChart(false, true, true));
  EXPECT_THAT(recorder.failures(), ElementsAre("Failed to send chart."));
}

/// The names of the sources that reports came from, without folders; a report without a line fails.
std::vector<std::string> sourcesOfReports(host::Recorder const& recorder) {
  std::vector<std::string> names;
  for (host::Entry const& entry : recorder.entries(Operation::Error)) {
    names.push_back(std::filesystem::path(entry.text("file")).filename());
    EXPECT_GT(entry.number("line"), 0);
  }
  return names;
}

TEST_F(FailedSend, ReportsWhereItIsInTheSource) {
  for (unsigned int put : {5U, 6U}) recorder.failAt(Operation::IpcPutC, put);
  send();
  EXPECT_THAT(sourcesOfReports(recorder), Each(StartsWith("xdocument")));
  recorder.behave();
  for (Operation const operation : {Operation::CompressString, Operation::IpcPutC}) {
    recorder.clear();
    recorder.throwAt(operation, 1, OrdinaryFailure());
    send();
    EXPECT_THAT(sourcesOfReports(recorder), ElementsAre(StartsWith("xdocument")));
  }
}

TEST_F(FailedSend, DoesNotHoldAFailureOfItsOwnReport) {
  recorder.failAt(Operation::IpcPutC, 10);
  recorder.throwEvery(Operation::Error, std::runtime_error("no log"));
  EXPECT_THROW(send(), std::runtime_error);
}

}  // namespace
}  // namespace kestrel::test
