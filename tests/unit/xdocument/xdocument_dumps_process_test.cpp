// The dumps of a chart that is sent, whose numbers count through the life of a process.

#include "xdocument.h"

#include "chart_test.h"
#include "story.h"

#include "host/data_store.h"
#include "kestrelhost/templates.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedDump;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Joins by putting the size of the data stream behind a word, and keeps the stream, which nobody else frees.
class JoinedText : public host::DataDump {
 public:
  std::string join(std::string const&, unsigned char const* stream, unsigned long size,
                   char16_t const*) override {
    mStreams.emplace_back(stream);
    mSizes.push_back(size);
    return "joined with " + std::to_string(size) + " bytes";
  }

  std::string stream(std::size_t index) const {
    return {reinterpret_cast<char const*>(mStreams.at(index).get()), mSizes.at(index)};
  }

 private:
  std::vector<std::unique_ptr<unsigned char const[]>> mStreams;
  std::vector<std::size_t> mSizes;
};

class SendDumps : public ::testing::Test {
 protected:
  SendDumps() {
    ::setenv("DumpChartXMLPath", "", 1);
    recorder.clear();
  }

  host::Host joining() const {
    host::Host host = services.host();
    host.dataDump = joiner;
    return host;
  }

  void addStore() {
    store.AddVariable("source0", "column", nullptr);
    document.SetChartData(&store);
    recorder.clear();
  }

  void wantTheChart() { services.dumps->categories = {ChartBase::PrintChart}; }

  host::MemoryServices services;
  std::shared_ptr<JoinedText> joiner = std::make_shared<JoinedText>();
  host::Recorder recorder{joining()};
  host::ScopedHost scope{recorder.host()};
  VarDataProcessor store;
  XDocument document;
};

TEST_F(SendDumps, WithoutAStoreHoldTheTextAndItsCompressedFormUnderOneNumber) {
  document.SendXML("<chart/>");
  std::string const compressed = payloadOf(recorder, CXT_XML);
  EXPECT_EQ(recorder.dumps(), (std::vector<RecordedDump>{{"<chart/>", "xml_data_final_", ".xml", 1, 0},
                                                         {compressed, "final_xml_", ".cmp", 1, 9}}));
}

TEST_F(SendDumps, WithoutAStoreAreNotAskedForFirst) {
  document.SendXML("<chart/>");
  EXPECT_EQ(recorder.count(Operation::WillPrintString), 0u);
}

TEST_F(SendDumps, StandBetweenTheAnnouncementsAndTheText) {
  document.SendXML("<chart/>");
  EXPECT_THAT(storyOf(recorder),
              ElementsAre("zlib1213vexa::compressString", "put 2", "put 4",
                          "dump xml_data_final_1.xml type 0", "dump final_xml_1.cmp type 9", "put 1"));
}

TEST_F(SendDumps, WithAStoreHoldTextAndDataInOne) {
  addStore();
  wantTheChart();
  document.SendXML("<chart/>");
  EXPECT_THAT(storyOf(recorder),
              ElementsAre("zlib1213vexa::compressString", "put 2", "put 4", "dump wanted? type 0",
                          "VarDataProcessor::GetDataStream", "ChartTransformer::getEntireXML",
                          "dump xml_data_final_1.xml type 0", "put 1"));
}

TEST_F(SendDumps, WithAStoreAreJoinedFromTheCompressedTextAndTheStream) {
  addStore();
  wantTheChart();
  document.SendXML("<chart/>");
  auto const joined = recorder.entries(Operation::GetEntireXML).front();
  unsigned int size = 0;
  std::unique_ptr<unsigned char[]> const stream(store.GetDataStream(size));
  EXPECT_EQ(joined.text("compressed"), payloadOf(recorder, CXT_XML));
  EXPECT_EQ(joined.text("stream"), std::string(reinterpret_cast<char const*>(stream.get()), size));
  EXPECT_EQ(joined.text("encoding"), "UTF-8");
  EXPECT_EQ(recorder.dumps().front(), (RecordedDump{"joined with " + std::to_string(size) + " bytes",
                                                    "xml_data_final_", ".xml", 1, 0}));
}

TEST_F(SendDumps, WithAStoreLeaveTheStreamToWhoeverJoinsIt) {
  addStore();
  wantTheChart();
  document.SendXML("<chart/>");
  unsigned int size = 0;
  std::unique_ptr<unsigned char[]> const stream(store.GetDataStream(size));
  EXPECT_EQ(joiner->stream(0), std::string(reinterpret_cast<char const*>(stream.get()), size));
}

TEST_F(SendDumps, WithAStoreThatNobodyWantsAreNone) {
  addStore();
  document.SendXML("<chart/>");
  EXPECT_THAT(recorder.dumps(), IsEmpty());
  EXPECT_EQ(recorder.count(Operation::GetDataStream), 0u);
}

TEST_F(SendDumps, CountAlsoWhereNothingWasWritten) {
  addStore();
  document.SendXML("<chart/>");
  document.SetChartData(nullptr);
  document.SendXML("<chart/>");
  EXPECT_EQ(recorder.dumps().front().number, 2);
}

TEST_F(SendDumps, CountThroughAllDocuments) {
  document.SendXML("<chart/>");
  XDocument const other;
  recorder.clear();
  other.SendXML("<chart/>");
  EXPECT_EQ(recorder.dumps().front().number, 2);
}

TEST_F(SendDumps, AreMadeWhereTheVariableIsThereWhateverItSays) {
  ::setenv("DumpChartXMLPath", "0", 1);
  document.SendXML("<chart/>");
  EXPECT_EQ(recorder.dumps().size(), 2u);
}

TEST_F(SendDumps, AreNeitherMadeNorCountedWithoutTheVariable) {
  ::unsetenv("DumpChartXMLPath");
  wantTheChart();
  document.SendXML("<chart/>");
  EXPECT_THAT(recorder.dumps(), IsEmpty());
  EXPECT_EQ(recorder.count(Operation::WillPrintString), 0u);
  ::setenv("DumpChartXMLPath", "", 1);
  document.SendXML("<chart/>");
  EXPECT_EQ(recorder.dumps().front().number, 1);
}

TEST_F(SendDumps, HoldNoDataAtASecondSendOfAChart) {
  addStore();
  wantTheChart();
  document.SendChart(false, true, false);
  recorder.clear();
  document.SendChart(false, true, false);
  EXPECT_EQ(recorder.count(Operation::GetDataStream), 0u);
  EXPECT_EQ(recorder.dumps().size(), 2u);
}

}  // namespace
}  // namespace kestrel::test
