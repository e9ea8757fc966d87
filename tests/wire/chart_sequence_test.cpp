// A whole chart on the channel: what comes in which order, and what is left of it when something fails.

#include "schema_validator.h"
#include "wire_test.h"
#include "xgraph.h"

#include "model/document.h"

#include <gmock/gmock.h>

using kestrel::host::Operation;
using kestrel::test::inflated;
using kestrel::test::littleEndianAt;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ChartSequence : public kestrel::test::WireTest {
 protected:
  void addPoints() {
    XGraph& graph = *document.getGraph();
    source.reset(graph.AddSource());
    XVariable x = graph.AddAggregatedVariable(*source, false, ChartString(u"x"));
    XVariable y = graph.AddAggregatedVariable(*source, false, ChartString(u"y"));
    for (int i = 0; i < 3; ++i) {
      XRow& row = *source->AddRow();
      row.addDataValue(x, static_cast<double>(i));
      row.addDataValue(y, 10.0 * i);
    }
    XElement points = graph.AddPointElement();
    points.AddX(x);
    points.AddY(y);
  }

  void addFile(std::string const& name, std::string const& content) {
    recorder.services().files->content[name] = content;
    document.AddCSVFile(name);
  }

  bool send() { return document.SendChart(false, false, false); }

  /// Sends with the n-th put failing.
  bool sendWithFailure(unsigned int n) {
    recorder.failAt(Operation::IpcPutC, n);
    return send();
  }

  std::vector<std::uint64_t> endRecord() {
    std::string const record = bytesOf(3);
    return {littleEndianAt(record, 0, 4), littleEndianAt(record, 4, 4)};
  }

  std::unique_ptr<XSource> source;
};

TEST_F(ChartSequence, WithAUserSourceHasDataBeforeTheEndRecord) {
  addPoints();
  EXPECT_TRUE(send());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 1u, 5u, 8u, 3u));
}

TEST_F(ChartSequence, WithoutAUserSourceHasNoData) {
  document.getGraph();
  EXPECT_TRUE(send());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 1u, 3u));
}

TEST_F(ChartSequence, HasEachAttachedFileAsItsNameAndItsContentBehindTheData) {
  addPoints();
  addFile("one.csv", "a,b\n1,2\n");
  addFile("two.csv", "c\n");
  EXPECT_TRUE(send());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 1u, 5u, 8u, 11u, 6u, 11u, 6u, 3u));
  auto const all = contents();
  EXPECT_EQ(all.at(7).bytes, "one.csv");
  EXPECT_EQ(all.at(8).bytes, "a,b\n1,2\n");
  EXPECT_EQ(all.at(9).bytes, "two.csv");
  EXPECT_EQ(all.at(10).bytes, "c\n");
}

TEST_F(ChartSequence, SendsAFileThatWasAttachedTwiceTwice) {
  addFile("a.csv", "x");
  document.AddCSVFile("a.csv");
  EXPECT_TRUE(send());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 1u, 11u, 6u, 11u, 6u, 3u));
}

TEST_F(ChartSequence, CarriesTheDescriptionInChartAndContent) {
  document.SetDescription(u"What is seen");
  document.getGraph();
  EXPECT_TRUE(send());
  EXPECT_EQ(bytesOf(0), "What is seen");
  EXPECT_NE(inflated(bytesOf(1)).find("description=\"What is seen\""), std::string::npos);
}

TEST_F(ChartSequence, CarriesTheTextThatTheModelWrites) {
  addPoints();
  EXPECT_TRUE(send());
  std::string const text = inflated(bytesOf(1));
  EXPECT_EQ(text, document.AsUTF8());
  EXPECT_NE(text.find("type=\"31000000\""), std::string::npos);
  EXPECT_THAT(schemaErrors(text), IsEmpty());
}

TEST_F(ChartSequence, EndsWithTheDefaultEndRecord) {
  document.getGraph();
  send();
  EXPECT_THAT(endRecord(), ElementsAre(0u, 1u));
}

TEST_F(ChartSequence, EndsWithEditorTwoWhereAFileWasAttached) {
  document.setEditable(XDocument::EDITABLE{7});
  document.setEditor(XDocument::EditorInteractive);
  addFile("a.csv", "x");
  send();
  EXPECT_THAT(endRecord(), ElementsAre(0u, 2u));
}

TEST_F(ChartSequence, EndsWithEditorTwoAlsoWhereTheFileIsNotThere) {
  document.AddCSVFile("none.csv");
  EXPECT_TRUE(send());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 1u, 3u));
  EXPECT_THAT(endRecord(), ElementsAre(0u, 2u));
}

TEST_F(ChartSequence, StopsAtAFailedDescriptionWithoutAnEndRecord) {
  addPoints();
  EXPECT_FALSE(sendWithFailure(1));
  EXPECT_EQ(puts(), 1u);
  EXPECT_THAT(recorder.failures(), ElementsAre("Failed to send chart description"));
}

TEST_F(ChartSequence, StopsAtAFailedEnglishDescriptionToo) {
  addPoints();
  EXPECT_FALSE(sendWithFailure(2));
  EXPECT_THAT(types(), ElementsAre(0u));
}

TEST_F(ChartSequence, GoesOnAfterAFailedAnnouncement) {
  addPoints();
  EXPECT_TRUE(sendWithFailure(3));
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 4u, 1u, 5u, 8u, 3u));
  EXPECT_THAT(recorder.failures(), IsEmpty());
}

TEST_F(ChartSequence, GoesFromAFailedChartTextToTheEndRecord) {
  addPoints();
  EXPECT_FALSE(sendWithFailure(5));
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 3u));
  EXPECT_THAT(recorder.failures(), ElementsAre("Failed to send chart XML"));
}

TEST_F(ChartSequence, GoesFromFailedDataToTheFilesAndTheEndRecord) {
  addPoints();
  addFile("a.csv", "x");
  // The file decides on the result: what comes later replaces what came before.
  EXPECT_TRUE(sendWithFailure(7));
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 1u, 5u, 11u, 6u, 3u));
  EXPECT_THAT(recorder.failures(), ElementsAre("Failed to send chart data"));
}

TEST_F(ChartSequence, FailsWithFailedDataWhereNoFileFollows) {
  addPoints();
  EXPECT_FALSE(sendWithFailure(7));
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 1u, 5u, 3u));
}

TEST_F(ChartSequence, SucceedsWithAFailedNameWhereTheContentFollows) {
  addFile("a.csv", "x");
  EXPECT_TRUE(sendWithFailure(6));
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 1u, 6u, 3u));
}

TEST_F(ChartSequence, FailsWithTheContentOfTheLastFile) {
  addFile("a.csv", "x");
  EXPECT_FALSE(sendWithFailure(7));
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 1u, 11u, 3u));
}

TEST_F(ChartSequence, SaysThatTheEndRecordFailed) {
  document.getGraph();
  EXPECT_FALSE(sendWithFailure(6));
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 1u));
  EXPECT_THAT(recorder.failures(), ElementsAre("Failed to send chart done message"));
}

TEST_F(ChartSequence, ClosesTheChartAfterAnExceptionBehindTheDescription) {
  addPoints();
  recorder.throwAt(Operation::GetDataStream, 1, std::runtime_error("out of memory"));
  EXPECT_FALSE(send());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 1u, 3u));
  EXPECT_THAT(recorder.failures(), ElementsAre("Failed to send chart XML or data"));
}

TEST_F(ChartSequence, LeavesTheClientWithNothingMoreWhenTheHostUnwinds) {
  addPoints();
  recorder.throwAt(Operation::IpcPutC, 5, VexaGoToCaller());
  EXPECT_THROW(send(), VexaGoToCaller);
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u));
  EXPECT_THAT(recorder.userMessages(), IsEmpty());
}

TEST_F(ChartSequence, HasNoDataASecondTime) {
  addPoints();
  EXPECT_TRUE(send());
  recorder.services().channel->clear();
  EXPECT_TRUE(send());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 1u, 3u));
}

TEST_F(ChartSequence, HasItsFilesASecondTime) {
  addFile("a.csv", "x");
  send();
  recorder.services().channel->clear();
  EXPECT_TRUE(send());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 2u, 4u, 1u, 11u, 6u, 3u));
}

TEST_F(ChartSequence, PassesLargeDataWholeThroughManyMessages) {
  XGraph& graph = *document.getGraph();
  source.reset(graph.AddSource());
  XVariable x = graph.AddAggregatedVariable(*source, false, ChartString(u"x"));
  for (int i = 0; i < 50000; ++i) source->AddRow()->addDataValue(x, i + 0.5);
  EXPECT_TRUE(send());
  auto const data = onlyContent(contents(), 8);
  EXPECT_GT(data.chunkSizes.size(), 10u);
  EXPECT_EQ(data.bytes.size(), bytesOf(5).size());
}

}  // namespace
