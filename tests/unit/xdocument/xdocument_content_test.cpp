// The content operations: what each sends, in which order, and what it makes of a failed put.

#include "xdocument.h"

#include "chart_test.h"
#include "failing_paths.h"
#include "story.h"

#include "host/data_store.h"
#include "host/log.h"
#include "host/messages.h"
#include "kestrelhost/compression.h"
#include "model/document.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr ChartXMLContentSubType noSubType{0};

class Content : public ChartTest {
 protected:
  Content() { recorder.clear(); }

  bool sendContent(std::string const& content) {
    return document.SendContent(content.data(), content.size(), CXT_OPTIONS, noSubType);
  }

  XDocument document;
};

TEST_F(Content, OfNoBytesSendsNothingAndSucceeds) {
  EXPECT_TRUE(document.SendContent("text", 0, CXT_OPTIONS, noSubType));
  EXPECT_TRUE(document.SendContent(nullptr, 0, CXT_OPTIONS, noSubType));
  EXPECT_THAT(recorder.entries(), IsEmpty());
}

TEST_F(Content, GoesOutUnderItsTypeAndSubType) {
  EXPECT_TRUE(document.SendContent("text", 4, CXT_IMAGE, static_cast<ChartXMLContentSubType>(3)));
  EXPECT_EQ(messagesOf(recorder), (std::vector<SentMessage>{{7, 3, "text"}}));
}

TEST_F(Content, GoesOutUnderTheNumberOfChartContent) {
  sendContent("text");
  EXPECT_EQ(recorder.sent().front().identifier, 307);
}

TEST_F(Content, IsCutIntoChunks) {
  std::string const content(70000, 'x');
  EXPECT_TRUE(sendContent(content));
  auto const messages = messagesOf(recorder);
  ASSERT_EQ(messages.size(), 3u);
  EXPECT_EQ(messages[0].payload.size(), 33984u);
  EXPECT_EQ(messages[1].payload.size(), 33984u);
  EXPECT_EQ(messages[2].payload.size(), 2032u);
}

TEST_F(Content, IsAbandonedAtTheFirstPutThatFails) {
  recorder.failAt(Operation::IpcPutC, 1);
  EXPECT_FALSE(sendContent(std::string(70000, 'x')));
  EXPECT_EQ(recorder.count(Operation::IpcPutC), 1u);
}

TEST_F(Content, IsAbandonedInTheMiddleWhereAPutFailsThere) {
  recorder.failAt(Operation::IpcPutC, 2);
  EXPECT_FALSE(sendContent(std::string(70000, 'x')));
  EXPECT_EQ(recorder.count(Operation::IpcPutC), 2u);
}

TEST_F(Content, ThatCannotBeSentIsNoBodysBusinessButTheCallers) {
  recorder.failEvery(Operation::IpcPutC);
  sendContent("text");
  expectNoReport(recorder);
}

TEST_F(Content, LetsTheHostsSignalThrough) {
  recorder.throwAt(Operation::IpcPutC, 1, VexaGoToCaller());
  EXPECT_THROW(sendContent("text"), VexaGoToCaller);
}

TEST_F(Content, ThatIsOnlyAnnouncedHasAPayloadOfZeros) {
  EXPECT_TRUE(document.SendContent(nullptr, 5, CXT_XML_SIZE, noSubType));
  EXPECT_EQ(messagesOf(recorder), (std::vector<SentMessage>{{2, 0, std::string(5, '\0')}}));
}

class Count : public Content {};

TEST_F(Count, IsNeverSentAndAlwaysFails) {
  EXPECT_FALSE(document.SendCount(0, CXT_DESCRIPTION));
  EXPECT_FALSE(document.SendCount(3, CXT_DATA));
  EXPECT_THAT(recorder.entries(), IsEmpty());
}

class Description : public Content {};

TEST_F(Description, GoesOutInTheDocumentLanguageAndInTheEnglishForm) {
  document.SetDescription(u"Größe");
  EXPECT_TRUE(document.SendDescription());
  EXPECT_EQ(messagesOf(recorder), (std::vector<SentMessage>{{0, 0, "Größe"}, {9, 0, "Grosse"}}));
}

TEST_F(Description, IsTracedBehindBothForms) {
  document.SetDescription(u"Größe");
  document.SendDescription();
  EXPECT_THAT(storyOf(recorder), ElementsAre("put 0", "put 9", "trace: Größe"));
}

TEST_F(Description, ThatIsMissingIsTheTranslatedTextForThat) {
  recorder.services().texts->texts["Description not set"] = "Keine Beschreibung";
  document.SendDescription();
  EXPECT_EQ(messagesOf(recorder),
            (std::vector<SentMessage>{{0, 0, "Keine Beschreibung"}, {9, 0, "Keine Beschreibung"}}));
}

TEST_F(Description, ThatIsMissingIsLookedUpInTheTableOfCharts) {
  document.SendDescription();
  EXPECT_THAT(storyOf(recorder),
              ElementsAre("PathInstance::getDictionaryPath", "FacSTDictionary::FacSTDictionary",
                          "FacSTDictionary::SetProcedure", "FacSTDictionary::LookUp",
                          "OLang::GetLanguageCode", "put 0", "put 9", "trace: Description not set"));
  EXPECT_EQ(recorder.entries(Operation::SetProcedure).front().text("procedure"), "GRAPH");
  EXPECT_EQ(recorder.entries(Operation::LookUp).front().text("key"), "Description not set");
}

TEST_F(Description, ThatIsMissingIsKeptFromThenOn) {
  recorder.services().texts->texts["Description not set"] = "Keine Beschreibung";
  document.SendDescription();
  EXPECT_EQ(document.GetDescription().toUTF8(), "Keine Beschreibung");
  recorder.clear();
  recorder.services().texts->texts["Description not set"] = "changed meanwhile";
  document.SendDescription();
  EXPECT_EQ(payloadOf(recorder, CXT_DESCRIPTION), "Keine Beschreibung");
  EXPECT_EQ(recorder.count(Operation::LookUp), 0u);
}

TEST_F(Description, ThatIsGivenIsNotLookedUp) {
  document.SetDescription(u"Heights");
  document.SendDescription();
  EXPECT_EQ(recorder.count(Operation::OpenDictionary), 0u);
}

TEST_F(Description, WithoutAnEnglishFormSucceedsAllTheSame) {
  // Nothing of it can be written in Latin letters, so that nothing goes out for the second form.
  document.SetDescription(u"\x2603");
  EXPECT_TRUE(document.SendDescription());
  EXPECT_THAT(typesOf(recorder), ElementsAre(0));
}

TEST_F(Description, WhoseFirstFormFailsHasNoSecondButATrace) {
  document.SetDescription(u"Heights");
  recorder.failAt(Operation::IpcPutC, 1);
  EXPECT_FALSE(document.SendDescription());
  EXPECT_THAT(storyOf(recorder), ElementsAre("put 0", "trace: Heights"));
}

TEST_F(Description, WhoseSecondFormFailsHasFailed) {
  document.SetDescription(u"Heights");
  recorder.failAt(Operation::IpcPutC, 2);
  EXPECT_FALSE(document.SendDescription());
  EXPECT_THAT(storyOf(recorder), ElementsAre("put 0", "put 9", "trace: Heights"));
}

TEST_F(Description, ThatIsMissingFailsForTheCallerWhereTheHostHasNoPaths) {
  NoPaths const none;
  EXPECT_THROW(document.SendDescription(), ChartException);
  EXPECT_THAT(recorder.entries(), IsEmpty());
}

TEST_F(Description, ThatIsGivenNeedsNoPaths) {
  NoPaths const none;
  document.SetDescription(u"Heights");
  EXPECT_TRUE(document.SendDescription());
}

TEST_F(Description, ThatFailsIsNotReported) {
  recorder.failEvery(Operation::IpcPutC);
  document.SendDescription();
  expectNoReport(recorder);
}

class ChartText : public Content {};

TEST_F(ChartText, IsCompressedThenAnnouncedInBothSizesAndThenSent) {
  EXPECT_TRUE(document.SendXML("<chart/>"));
  EXPECT_THAT(storyOf(recorder), ElementsAre("zlib1213vexa::compressString", "put 2", "put 4", "put 1"));
  auto const messages = messagesOf(recorder);
  EXPECT_EQ(messages[0].payload, std::string(8, '\0'));
  EXPECT_EQ(messages[1].payload, std::string(messages[2].payload.size(), '\0'));
  std::string text;
  EXPECT_TRUE(host::decompress(messages[2].payload, text));
  EXPECT_EQ(text, "<chart/>");
}

TEST_F(ChartText, ThatIsEmptyAnnouncesNoSizeAndSendsItsCompressedForm) {
  EXPECT_TRUE(document.SendXML(""));
  EXPECT_THAT(typesOf(recorder), ElementsAre(4, 1));
  std::string text = "not empty";
  EXPECT_TRUE(host::decompress(payloadOf(recorder, CXT_XML), text));
  EXPECT_EQ(text, "");
}

TEST_F(ChartText, WhoseAnnouncementsFailIsSentAndHasSucceeded) {
  recorder.failAt(Operation::IpcPutC, 1);
  recorder.failAt(Operation::IpcPutC, 2);
  EXPECT_TRUE(document.SendXML("<chart/>"));
  EXPECT_THAT(typesOf(recorder), ElementsAre(2, 4, 1));
}

TEST_F(ChartText, WhosePayloadFailsHasFailed) {
  recorder.failAt(Operation::IpcPutC, 3);
  EXPECT_FALSE(document.SendXML("<chart/>"));
  expectNoReport(recorder);
}

TEST_F(ChartText, ThatCouldNotBeCompressedSendsWhatTheHostGave) {
  recorder.failAt(Operation::CompressString, 1);
  EXPECT_TRUE(document.SendXML("<chart/>"));
  EXPECT_THAT(typesOf(recorder), ElementsAre(2));
}

class Data : public Content {
 protected:
  Data() {
    store.AddVariable("source0", "sourceVariable0_SN", nullptr);
    store.SetVariableValue("source0", "sourceVariable0_SN", 0, 1.5);
    recorder.clear();
  }

  std::string stream() {
    unsigned int size = 0;
    std::unique_ptr<unsigned char[]> const bytes(store.GetDataStream(size));
    return {reinterpret_cast<char const*>(bytes.get()), size};
  }

  VarDataProcessor store;
};

TEST_F(Data, WithoutAStoreSendsNothingAndSucceeds) {
  EXPECT_TRUE(document.SendData());
  EXPECT_THAT(recorder.entries(), IsEmpty());
}

TEST_F(Data, IsFetchedThenAnnouncedAndThenSentAsItIs) {
  document.SetChartData(&store);
  EXPECT_TRUE(document.SendData());
  EXPECT_THAT(storyOf(recorder), ElementsAre("VarDataProcessor::GetDataStream", "put 5", "put 8"));
  std::string const bytes = stream();
  EXPECT_EQ(payloadOf(recorder, CXT_DATA_SIZE), std::string(bytes.size(), '\0'));
  EXPECT_EQ(payloadOf(recorder, CXT_DATA), bytes);
}

TEST_F(Data, OfAnEmptyStoreSendsNothingAndSucceeds) {
  VarDataProcessor empty;
  document.SetChartData(&empty);
  EXPECT_TRUE(document.SendData());
  EXPECT_THAT(typesOf(recorder), IsEmpty());
}

TEST_F(Data, WhoseAnnouncementFailsIsSentAndHasSucceeded) {
  document.SetChartData(&store);
  recorder.failAt(Operation::IpcPutC, 1);
  EXPECT_TRUE(document.SendData());
  EXPECT_THAT(typesOf(recorder), ElementsAre(5, 8));
}

TEST_F(Data, WhosePayloadFailsHasFailed) {
  document.SetChartData(&store);
  recorder.failAt(Operation::IpcPutC, 2);
  EXPECT_FALSE(document.SendData());
  expectNoReport(recorder);
}

TEST_F(Data, IsFreedAlsoWhereTheHostUnwinds) {
  document.SetChartData(&store);
  recorder.throwAt(Operation::IpcPutC, 1, VexaGoToCaller());
  EXPECT_THROW(document.SendData(), VexaGoToCaller);
}

class EndRecord : public Content {
 protected:
  static std::string words(std::int32_t editable, std::int32_t editor) {
    std::string bytes(8, '\0');
    std::memcpy(bytes.data(), &editable, 4);
    std::memcpy(bytes.data() + 4, &editor, 4);
    return bytes;
  }
};

TEST_F(EndRecord, SaysWhatADocumentStartsWith) {
  EXPECT_TRUE(document.SendDone());
  EXPECT_EQ(messagesOf(recorder), (std::vector<SentMessage>{{3, 0, words(0, 1)}}));
}

TEST_F(EndRecord, SaysWhetherTheChartCanBeEditedAndWithWhat) {
  document.setEditable(static_cast<XDocument::EDITABLE>(258));
  document.setEditor(XDocument::EditorInteractive);
  EXPECT_TRUE(document.SendDone());
  EXPECT_EQ(payloadOf(recorder, CXT_DONE), words(258, 3));
}

TEST_F(EndRecord, ThatCannotBeSentHasFailed) {
  recorder.failAt(Operation::IpcPutC, 1);
  EXPECT_FALSE(document.SendDone());
  expectNoReport(recorder);
}

/// What hosts may do: put their own behaviour behind the operation that all others send by.
class OwnChannel : public XDocument {
 public:
  bool SendContent(char const*, unsigned long size, ChartXMLContentType type,
                   ChartXMLContentSubType) const override {
    sent.push_back({static_cast<int>(type), 0, std::to_string(size)});
    return true;
  }

  mutable std::vector<SentMessage> sent;
};

TEST_F(Content, GoesThroughAnOverriddenOperation) {
  OwnChannel own;
  own.SetDescription(u"ab");
  own.SendDescription();
  own.SendXML("<chart/>");
  own.SendDone();
  std::vector<int> types;
  for (auto const& message : own.sent) types.push_back(message.type);
  EXPECT_THAT(types, ElementsAre(0, 9, 2, 4, 1, 3));
  EXPECT_EQ(recorder.count(Operation::IpcPutC), 0u);
}

}  // namespace
}  // namespace kestrel::test
