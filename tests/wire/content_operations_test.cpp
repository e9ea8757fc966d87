// What each sending operation puts on the channel.

#include "wire_test.h"

#include "host/data_store.h"

#include <gmock/gmock.h>

using kestrel::host::Operation;
using kestrel::test::inflated;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ContentOperations : public kestrel::test::WireTest {};

TEST_F(ContentOperations, DescriptionGoesOutInBothForms) {
  document.SetDescription(u"Größe der Pinguine");
  EXPECT_TRUE(document.SendDescription());
  EXPECT_THAT(types(), ElementsAre(0u, 9u));
  EXPECT_EQ(bytesOf(0),
            "Gr\xC3\xB6\xC3\x9F"
            "e der Pinguine");
  EXPECT_EQ(bytesOf(9), "Grosse der Pinguine");
}

TEST_F(ContentOperations, DescriptionIsNotTerminated) {
  document.SetDescription(u"abc");
  document.SendDescription();
  EXPECT_EQ(got().at(0).bytes, std::string("\0\0\0\0\x03\0\0\0"
                                           "abc"
                                           "\0\0\0\0",
                                           15));
}

TEST_F(ContentOperations, MissingDescriptionIsSentAsItsTranslatedDefault) {
  recorder.services().texts->texts["Description not set"] = "Beschreibung fehlt";
  EXPECT_TRUE(document.SendDescription());
  EXPECT_EQ(bytesOf(0), "Beschreibung fehlt");
  EXPECT_EQ(bytesOf(9), "Beschreibung fehlt");
}

TEST_F(ContentOperations, DefaultDescriptionStaysInTheDocument) {
  document.SendDescription();
  EXPECT_EQ(document.GetDescription().toUTF8(), "Description not set");
}

TEST_F(ContentOperations, EnglishDescriptionIsNotSentAfterTheOtherFailed) {
  recorder.failAt(Operation::IpcPutC, 1);
  EXPECT_FALSE(document.SendDescription());
  EXPECT_EQ(puts(), 1u);
}

TEST_F(ContentOperations, EnglishDescriptionDecidesOnTheResult) {
  recorder.failAt(Operation::IpcPutC, 2);
  EXPECT_FALSE(document.SendDescription());
  EXPECT_THAT(types(), ElementsAre(0u));
}

TEST_F(ContentOperations, ChartTextIsAnnouncedTwiceAndSentCompressed) {
  std::string const xml = "<visualization>" + kestrel::test::pattern(200) + "</visualization>";
  EXPECT_TRUE(document.SendXML(xml));
  EXPECT_THAT(types(), ElementsAre(2u, 4u, 1u));
  EXPECT_EQ(inflated(bytesOf(1)), xml);
  EXPECT_EQ(bytesOf(2).size(), xml.size());
  EXPECT_EQ(bytesOf(4).size(), bytesOf(1).size());
  EXPECT_THAT(bytesOf(2), Each('\0'));
  EXPECT_THAT(bytesOf(4), Each('\0'));
}

TEST_F(ContentOperations, EmptyChartTextIsSentWithoutTheAnnouncementOfItsSize) {
  EXPECT_TRUE(document.SendXML(""));
  EXPECT_THAT(types(), ElementsAre(4u, 1u));
  EXPECT_EQ(inflated(bytesOf(1)), "");
  EXPECT_EQ(bytesOf(4).size(), bytesOf(1).size());
}

TEST_F(ContentOperations, ChartTextGoesOutThoughItsAnnouncementsFail) {
  recorder.failAt(Operation::IpcPutC, 1);
  recorder.failAt(Operation::IpcPutC, 2);
  EXPECT_TRUE(document.SendXML("<visualization/>"));
  EXPECT_THAT(types(), ElementsAre(1u));
}

TEST_F(ContentOperations, ChartTextThatFailsIsAFailure) {
  recorder.failAt(Operation::IpcPutC, 3);
  EXPECT_FALSE(document.SendXML("<visualization/>"));
}

TEST_F(ContentOperations, ChartTextOfSeveralChunksComesBackWhole) {
  // Hardly to be compressed, so that the compressed text has several chunks too.
  std::string const xml = kestrel::test::noise(100000);
  EXPECT_TRUE(document.SendXML(xml));
  EXPECT_GT(onlyContent(contents(), 1).chunkSizes.size(), 1u);
  EXPECT_EQ(inflated(bytesOf(1)), xml);
}

TEST_F(ContentOperations, DataIsNotSentWithoutAStore) {
  EXPECT_TRUE(document.SendData());
  EXPECT_THAT(got(), IsEmpty());
}

TEST_F(ContentOperations, DataIsAnnouncedAndSentAsTheStoreGivesIt) {
  VarDataProcessor store;
  store.AddDataSource("source0", 0);
  store.AddVariable("source0", "a", nullptr);
  store.SetVariableValue("source0", "a", 9999, 1.5);
  document.SetChartData(&store);
  unsigned int size = 0;
  std::unique_ptr<unsigned char[]> const stream(store.GetDataStream(size));
  EXPECT_TRUE(document.SendData());
  EXPECT_THAT(types(), ElementsAre(5u, 8u));
  EXPECT_EQ(bytesOf(8), std::string(reinterpret_cast<char const*>(stream.get()), size));
  EXPECT_EQ(bytesOf(5), std::string(size, '\0'));
}

TEST_F(ContentOperations, DataGoesOutThoughItsAnnouncementFails) {
  VarDataProcessor store;
  store.AddDataSource("source0", 1);
  document.SetChartData(&store);
  recorder.failAt(Operation::IpcPutC, 1);
  EXPECT_TRUE(document.SendData());
  EXPECT_THAT(types(), ElementsAre(8u));
}

TEST_F(ContentOperations, DataThatFailsIsAFailure) {
  VarDataProcessor store;
  store.AddDataSource("source0", 1);
  document.SetChartData(&store);
  recorder.failAt(Operation::IpcPutC, 2);
  EXPECT_FALSE(document.SendData());
}

TEST_F(ContentOperations, EmptyStoreIsSentAsNoMessage) {
  VarDataProcessor store;
  document.SetChartData(&store);
  EXPECT_TRUE(document.SendData());
  EXPECT_THAT(got(), IsEmpty());
}

TEST_F(ContentOperations, EndRecordHasTheDefaultsEditableZeroAndEditorOne) {
  EXPECT_TRUE(document.SendDone());
  EXPECT_EQ(got().at(0).bytes, std::string("\x03\0\0\0\x08\0\0\0"
                                           "\0\0\0\0\x01\0\0\0"
                                           "\0\0\0\0",
                                           20));
}

TEST_F(ContentOperations, EndRecordHasWhatWasSet) {
  document.setEditable(XDocument::EDITABLE{0x01020304});
  document.setEditor(XDocument::EDITOR{-2});
  document.SendDone();
  EXPECT_EQ(bytesOf(3), std::string("\x04\x03\x02\x01\xFE\xFF\xFF\xFF", 8));
}

TEST_F(ContentOperations, EndRecordThatFailsIsAFailure) {
  recorder.failAt(Operation::IpcPutC, 1);
  EXPECT_FALSE(document.SendDone());
}

TEST_F(ContentOperations, NoneOfThemTellsTheUserOfAFailure) {
  recorder.failEvery(Operation::IpcPutC);
  document.SendDescription();
  document.SendXML("<visualization/>");
  document.SendDone();
  EXPECT_THAT(recorder.userMessages(), IsEmpty());
  EXPECT_THAT(recorder.failures(), IsEmpty());
}

}  // namespace
