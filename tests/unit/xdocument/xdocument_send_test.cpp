// The sequence in which a chart goes to the client.

#include "xdocument.h"

#include "chart_test.h"
#include "document_record.h"
#include "schema_validator.h"
#include "story.h"
#include "xgraph.h"

#include "host/messages.h"
#include "kestrelhost/compression.h"
#include "model/document.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char endOfFile[] = {0, 0, 0, 0, 2, 0, 0, 0};
constexpr char endUsual[] = {0, 0, 0, 0, 1, 0, 0, 0};

template <std::size_t size>
std::string bytesOf(char const (&bytes)[size]) {
  return std::string(bytes, size);
}

class Send : public ChartTest {
 protected:
  Send() {
    document.SetDescription(u"Heights");
    recorder.clear();
  }

  void TearDown() override { EXPECT_THAT(schemaErrors(document.AsUTF8()), IsEmpty()); }

  bool send() { return document.SendChart(false, true, false); }

  /// The chart text that went to the client.
  std::string sentText() {
    std::string text;
    EXPECT_TRUE(host::decompress(payloadOf(recorder, CXT_XML), text));
    return text;
  }

  void addSource() {
    source.reset(document.getGraph()->AddSource());
    recorder.clear();
  }

  LumoDocument model;
  LumoVisualization& visualization{*model.getVisualization()};
  XDocument document{model};
  std::unique_ptr<XSource> source;
};

TEST_F(Send, OfAPlainChartIsDescriptionTextAndEndRecord) {
  EXPECT_TRUE(send());
  EXPECT_THAT(storyOf(recorder),
              ElementsAre("put 0", "put 9", "trace: Heights", "zlib1213vexa::compressString", "put 2",
                          "put 4", "put 1", "trace: Done Sending XML", "put 3"));
}

TEST_F(Send, OfAFullChartHasDataAndFilesInTheirPlaces) {
  addSource();
  document.AddCSVFile("first.csv");
  document.AddCSVFile("second.csv");
  recorder.services().files->content = {{"first.csv", "a,b\n"}, {"second.csv", "c\n"}};
  EXPECT_TRUE(send());
  EXPECT_THAT(storyOf(recorder),
              ElementsAre("put 0", "put 9", "trace: Heights", "zlib1213vexa::compressString", "put 2",
                          "put 4", "put 1", "trace: Done Sending XML", "VarDataProcessor::GetDataStream",
                          "put 5", "put 8", "trace: Done Sending Data", "fetch first.csv", "put 11", "put 6",
                          "fetch second.csv", "put 11", "put 6", "put 3"));
}

TEST_F(Send, TakesTheSameWayWhateverTheFirstFlagSays) {
  send();
  auto const story = storyOf(recorder);
  recorder.clear();
  EXPECT_TRUE(document.SendChart(true, true, false));
  EXPECT_EQ(storyOf(recorder), story);
}

TEST_F(Send, CarriesTheTextOfTheChartAsItStands) {
  send();
  EXPECT_EQ(sentText(), document.AsUTF8());
}

TEST_F(Send, StampsDescriptionAndType) {
  send();
  EXPECT_EQ(attribute(&visualization, u"description"), "Heights");
  EXPECT_EQ(attribute(&visualization, u"type"), "31000000");
}

TEST_F(Send, StampsADescriptionThatIsEmptyByThen) {
  document.SetDescription(u"");
  send();
  EXPECT_EQ(attribute(&visualization, u"description"), "");
  // The text for a missing one is only found later.
  send();
  EXPECT_EQ(attribute(&visualization, u"description"), "Description not set");
}

TEST_F(Send, WritesTheComment) {
  document.SetComment(u"made by hand");
  send();
  EXPECT_NE(sentText().find("<!--made by hand-->"), std::string::npos);
}

TEST_F(Send, WritesNoCommentWhereThereIsNone) {
  visualization.setComment(u"of their own");
  send();
  EXPECT_NE(sentText().find("<!--of their own-->"), std::string::npos);
}

TEST_F(Send, StampsAgainAtEachCall) {
  send();
  document.SetDescription(u"Weights");
  visualization.setType(u"changed");
  send();
  EXPECT_EQ(attribute(&visualization, u"description"), "Weights");
  EXPECT_EQ(attribute(&visualization, u"type"), "31000000");
}

class ProtectedSend : public Send, public ::testing::WithParamInterface<bool> {};

TEST_P(ProtectedSend, StampsNothing) {
  document.SetComment(u"made by hand");
  document.doNotModify(GetParam());
  std::string const before = document.AsUTF8();
  EXPECT_TRUE(send());
  EXPECT_EQ(document.AsUTF8(), before);
  EXPECT_EQ(sentText(), before);
}

INSTANTIATE_TEST_SUITE_P(KeepFileTemplates, ProtectedSend, ::testing::Bool(),
                         [](auto const& test) { return test.param ? "Yes" : "No"; });

TEST_F(Send, OfAChartWithoutAUserSourceHasNoDataEvenWithAStore) {
  VarDataProcessor store;
  store.AddVariable("source0", "column", nullptr);
  document.SetChartData(&store);
  EXPECT_TRUE(send());
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 3));
}

TEST_F(Send, OfAChartWithAUserSourceAndNoStoreTracesTheDataAllTheSame) {
  visualization.addUserSource(u"source0");
  EXPECT_TRUE(send());
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 3));
  EXPECT_THAT(recorder.trace(), ElementsAre("Heights", "Done Sending XML", "Done Sending Data"));
}

TEST_F(Send, FetchesFilesWithBothFlags) {
  document.AddCSVFile("first.csv");
  send();
  EXPECT_EQ(recorder.entries(Operation::Fetch).front().line(),
            "FetchFile::fetch(name=\"first.csv\", first=true, second=true)");
}

TEST_F(Send, CarriesNameAndContentOfAFileAsTheyAre) {
  document.AddCSVFile("first.csv");
  recorder.services().files->content["first.csv"] = std::string("a\0b\n", 4);
  send();
  EXPECT_EQ(payloadOf(recorder, CXT_CSV_NAME), "first.csv");
  EXPECT_EQ(payloadOf(recorder, CXT_CSV_CONTENT), std::string("a\0b\n", 4));
}

TEST_F(Send, OffersTheFileEditorWhereAFileIsAttached) {
  document.setEditable(static_cast<XDocument::EDITABLE>(5));
  document.AddCSVFile("first.csv");
  recorder.services().files->content["first.csv"] = "a\n";
  send();
  EXPECT_EQ(payloadOf(recorder, CXT_DONE), bytesOf(endOfFile));
  EXPECT_EQ(document.getEditable(), 0);
  EXPECT_EQ(recordOf(document).mEditor, 2);
}

TEST_F(Send, OffersTheUsualEditorWhereNoFileIsAttached) {
  send();
  EXPECT_EQ(payloadOf(recorder, CXT_DONE), bytesOf(endUsual));
}

TEST_F(Send, CarriesTheFilesAgainAtASecondCall) {
  document.AddCSVFile("first.csv");
  recorder.services().files->content["first.csv"] = "a\n";
  send();
  recorder.clear();
  send();
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 11, 6, 3));
}

TEST_F(Send, LetsGoOfTheDataStore) {
  addSource();
  send();
  EXPECT_EQ(recordOf(document).mChartData, nullptr);
}

TEST_F(Send, HasNoDataAtASecondCall) {
  addSource();
  send();
  recorder.clear();
  EXPECT_TRUE(send());
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 3));
  EXPECT_EQ(recorder.count(Operation::GetDataStream), 0u);
}

TEST_F(Send, ThatClearsEmptiesTheGraphsStoreBehindTheEndRecord) {
  addSource();
  document.SendChart(false, true, true);
  auto const story = storyOf(recorder);
  ASSERT_GE(story.size(), 2u);
  // The source is opened again in a new store.
  EXPECT_EQ(story[story.size() - 2], "put 3");
  EXPECT_EQ(story.back(), "VarDataProcessor::AddDataSource");
  EXPECT_EQ(recordOf(document).mChartData, nullptr);
}

TEST_F(Send, ThatDoesNotClearLeavesTheGraphsStoreAsItIs) {
  addSource();
  document.SendChart(false, true, false);
  EXPECT_EQ(storyOf(recorder).back(), "put 3");
}

TEST_F(Send, ThatClearsDoesNothingMoreWithoutAGraph) {
  VarDataProcessor store;
  document.SetChartData(&store);
  EXPECT_TRUE(document.SendChart(false, true, true));
  EXPECT_EQ(storyOf(recorder).back(), "put 3");
  EXPECT_EQ(recordOf(document).mChartData, nullptr);
}

TEST_F(Send, ThatClearsDoesNothingMoreWithoutAStore) {
  document.getExternalGraph();
  recorder.clear();
  EXPECT_TRUE(document.SendChart(false, true, true));
  EXPECT_EQ(storyOf(recorder).back(), "put 3");
}

/// Notes which of its operations the sequence calls.
class WatchedDocument : public XDocument {
 public:
  std::string AsUTF8() const override {
    called.emplace_back("AsUTF8");
    return "<text/>";
  }
  bool SendDescription() const override { return note("SendDescription"); }
  bool SendXML(std::string const& xml) const override { return note("SendXML " + xml); }
  bool SendData() const override { return note("SendData"); }
  bool SendDone() const override { return note("SendDone"); }
  bool SendContent(char const*, unsigned long, ChartXMLContentType type,
                   ChartXMLContentSubType) const override {
    return note("SendContent " + std::to_string(type));
  }

  mutable std::vector<std::string> called;

 private:
  bool note(std::string const& operation) const {
    called.push_back(operation);
    return true;
  }
};

TEST_F(Send, GoesThroughOverriddenOperations) {
  WatchedDocument watched;
  watched.getVisualization()->addUserSource(u"source0");
  watched.AddCSVFile("first.csv");
  recorder.services().files->content["first.csv"] = "a\n";
  EXPECT_TRUE(watched.SendChart(false, true, false));
  EXPECT_THAT(watched.called, ElementsAre("AsUTF8", "SendDescription", "SendXML <text/>", "SendData",
                                          "SendContent 11", "SendContent 6", "SendDone"));
}

}  // namespace
}  // namespace kestrel::test
