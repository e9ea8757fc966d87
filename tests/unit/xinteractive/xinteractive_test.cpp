// Interactive pages: what is sent of them, and what is left of it where something fails.

#include "xinteractive.h"

#include "attachment_tests.h"
#include "host_calls.h"
#include "sending_test.h"
#include "sent_alone_tests.h"
#include "told_sends.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::SizeIs;

class InteractivePage : public SendingTest {
 protected:
  InteractivePage() {
    page.SetDescription(u"Größe");
    recorder.clear();
  }

  void addFile(std::string const& name, std::string const& content) {
    recorder.services().files->content[name] = content;
  }

  /// Everything that can be sent.
  void fill() {
    addFile("lakes.json", "{\"lakes\": 1}");
    page.setInteractiveJSON("{\"page\": 1}");
    page.setProcedureName("MEANS");
    page.setJSONPath("pages/1");
    page.setOptions("size=2");
    page.addGeoJSON("rivers", "{\"rivers\": 1}");
    page.addGeoJSON("lakes.json");
  }

  std::string text(std::size_t index) { return contents().at(index).bytes; }

  xInteractive page;
};

TEST_F(InteractivePage, GoesOutInItsOrder) {
  fill();
  EXPECT_TRUE(page.sendInteractive());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 16u, 17u, 18u, 19u, 14u, 15u, 14u, 15u, 3u));
}

TEST_F(InteractivePage, GoesOutInInteractiveContentMessagesButForItsEndRecord) {
  fill();
  page.sendInteractive();
  auto const sent = contents();
  ASSERT_THAT(sent, SizeIs(11));
  for (std::size_t at = 0; at < 10; ++at) {
    EXPECT_EQ(sent[at].identifier, 318);
    EXPECT_EQ(sent[at].subtype, std::nullopt);
  }
  EXPECT_EQ(sent[10].identifier, 307);
  EXPECT_EQ(sent[10].subtype, 0u);
}

TEST_F(InteractivePage, HasItsDescriptionInBothForms) {
  page.sendInteractive();
  EXPECT_EQ(bytesOf(0), "Größe");
  EXPECT_EQ(bytesOf(9), "Grosse");
}

TEST_F(InteractivePage, CompressesItsTextAndItsAttachmentsAndNothingElse) {
  fill();
  page.sendInteractive();
  EXPECT_EQ(inflated(text(2)), "{\"page\": 1}");
  EXPECT_EQ(text(3), "MEANS");
  EXPECT_EQ(text(4), "pages/1");
  EXPECT_EQ(text(5), "size=2");
  EXPECT_EQ(text(6), "rivers");
  EXPECT_EQ(inflated(text(7)), "{\"rivers\": 1}");
  EXPECT_EQ(text(8), "lakes.json");
  EXPECT_EQ(inflated(text(9)), "{\"lakes\": 1}");
}

TEST_F(InteractivePage, CompressesItsTextJustBeforeItIsSentButAnAttachmentBeforeItsName) {
  fill();
  page.sendInteractive();
  std::string story;
  for (auto const& entry : recorder.entries()) {
    if (entry.operation == Operation::CompressString) story += "c";
    if (entry.operation == Operation::IpcPutC) story += "p";
  }
  // Both descriptions, the text, three that are not compressed, two attachments, the end record.
  EXPECT_EQ(story, "ppcppppcppcppp");
}

TEST_F(InteractivePage, WithNothingSetIsFalseThoughItsEndRecordIsSent) {
  EXPECT_FALSE(page.sendInteractive());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 3u));
}

// --- The message

TEST_F(InteractivePage, HasALeadingOneTheTypeInFourBytesTheChunkSizeThePayloadAndFourBytesMore) {
  page.setProcedureName("abc");
  page.sendInteractive();
  EXPECT_EQ(got().at(2).bytes, std::string("\x01\0\0\0\x11\0\0\0\x03\0\0\0"
                                           "abc"
                                           "\0\0\0\0",
                                           19));
}

TEST_F(InteractivePage, EndsWithTheChartContentMessageOfAnEndRecord) {
  page.sendInteractive();
  EXPECT_EQ(got().back().bytes, std::string("\x03\0\0\0\x08\0\0\0"
                                            "\0\0\0\0\x03\0\0\0"
                                            "\0\0\0\0",
                                            20));
}

TEST_F(InteractivePage, SendsOptionsOfExactlyAChunkInOneMessageOfTheLongestLength) {
  page.setOptions(pattern(33980));
  EXPECT_TRUE(page.sendInteractive());
  EXPECT_THAT(onlyContent(contents(), 19).chunkSizes, ElementsAre(33980u));
  EXPECT_EQ(got().at(2).bytes.size(), 33996u);
  EXPECT_EQ(bytesOf(19), pattern(33980));
}

TEST_F(InteractivePage, SendsOptionsOfOneByteMoreInTwoMessages) {
  page.setOptions(pattern(33981));
  EXPECT_TRUE(page.sendInteractive());
  EXPECT_THAT(onlyContent(contents(), 19).chunkSizes, ElementsAre(33980u, 1u));
  EXPECT_EQ(got().at(3).bytes.size(), 17u);
  EXPECT_EQ(bytesOf(19), pattern(33981));
}

TEST_F(InteractivePage, HasInAShorterLastMessageTheTrailerThatTheOneBeforeLeft) {
  page.setOptions(pattern(33981));
  page.sendInteractive();
  EXPECT_EQ(decodeMessage(got().at(2)).trailer, std::string(4, '\0'));
  EXPECT_EQ(decodeMessage(got().at(3)).trailer, "\x02\x03\x04\x05");
}

// --- Each alone: everything else is left out, and its result is that of the send

TEST_F(InteractivePage, OfNothingButItsTextIsSent) {
  page.setInteractiveJSON("{}");
  EXPECT_TRUE(page.sendInteractive());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 16u, 3u));
}

TEST_F(InteractivePage, OfNothingButAProcedureIsSent) {
  page.setProcedureName("MEANS");
  EXPECT_TRUE(page.sendInteractive());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 17u, 3u));
}

TEST_F(InteractivePage, OfNothingButAPathIsSent) {
  page.setJSONPath("a/b");
  EXPECT_TRUE(page.sendInteractive());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 18u, 3u));
}

TEST_F(InteractivePage, OfNothingButOptionsIsSent) {
  page.setOptions("x");
  EXPECT_TRUE(page.sendInteractive());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 19u, 3u));
}

TEST_F(InteractivePage, OfNothingButAnAttachmentIsSent) {
  page.addGeoJSON("a", "b");
  EXPECT_TRUE(page.sendInteractive());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 14u, 15u, 3u));
}

// --- What is set

TEST_F(InteractivePage, KeepsWhatWasSetLast) {
  page.setInteractiveJSON("a");
  page.setInteractiveJSON("b");
  page.setProcedureName("a");
  page.setProcedureName("b");
  page.setJSONPath("a");
  page.setJSONPath("b");
  page.setOptions("a");
  page.setOptions("b");
  page.sendInteractive();
  EXPECT_EQ(inflated(bytesOf(16)), "b");
  EXPECT_EQ(bytesOf(17), "b");
  EXPECT_EQ(bytesOf(18), "b");
  EXPECT_EQ(bytesOf(19), "b");
}

TEST_F(InteractivePage, TakesAllTextsAsTheyAre) {
  addFile("name", "from a file");
  page.setInteractiveJSON("name");
  page.setProcedureName("name");
  page.setJSONPath("name");
  page.setOptions("name");
  page.sendInteractive();
  EXPECT_EQ(inflated(bytesOf(16)), "name");
  EXPECT_EQ(recorder.count(Operation::Fetch), 0u);
}

TEST_F(InteractivePage, LeavesOutWhatWasSetToNothing) {
  fill();
  page.setInteractiveJSON("");
  page.setProcedureName("");
  page.setJSONPath("");
  page.setOptions("");
  page.sendInteractive();
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 14u, 15u, 14u, 15u, 3u));
}

// --- Description and end record

TEST_F(InteractivePage, WithADescriptionDoesNotLookTheDefaultUp) {
  page.sendInteractive();
  EXPECT_EQ(recorder.count(Operation::LookUp), 0u);
}

TEST_F(InteractivePage, HasTheDescriptionThatTheDocumentHasAtEachSend) {
  page.sendInteractive();
  page.SetDescription(u"Later");
  page.sendInteractive();
  page.SetDescription(u"");
  page.sendInteractive();
  std::vector<std::string> descriptions;
  for (auto const& content : contents())
    if (content.type == 0) descriptions.push_back(content.bytes);
  EXPECT_THAT(descriptions, ElementsAre("Größe", "Later", "Description not set"));
}

TEST_F(InteractivePage, TracesItsDescriptionOnceAndBehindBothForms) {
  unsigned int before = 0;
  recorder.actAt(Operation::PrintDebugInfo, 1, [&] { before = static_cast<unsigned int>(puts()); });
  page.sendInteractive();
  EXPECT_THAT(recorder.trace(), ElementsAre("Größe"));
  EXPECT_EQ(before, 2u);
}

TEST_F(InteractivePage, TracesItsDescriptionThoughItFails) {
  recorder.failAt(Operation::IpcPutC, 1);
  page.sendInteractive();
  EXPECT_THAT(recorder.trace(), ElementsAre("Größe"));
}

// --- Failures

class InteractivePageWithAFailedPut : public InteractivePage,
                                      public ::testing::WithParamInterface<FailedPut> {};

TEST_P(InteractivePageWithAFailedPut, SendsWhatDoesNotHangOnIt) {
  fill();
  recorder.failAt(Operation::IpcPutC, GetParam().put);
  EXPECT_EQ(page.sendInteractive(), GetParam().result);
  EXPECT_EQ(types(), GetParam().types);
}

// Only the last content counts, which is that of the last attachment: put 10.
INSTANTIATE_TEST_SUITE_P(EachPut, InteractivePageWithAFailedPut,
                         ::testing::Values(FailedPut{1, {}, false}, FailedPut{2, {0}, false},
                                           FailedPut{3, {0, 9, 17, 18, 19, 14, 15, 14, 15, 3}, true},
                                           FailedPut{4, {0, 9, 16, 18, 19, 14, 15, 14, 15, 3}, true},
                                           FailedPut{5, {0, 9, 16, 17, 19, 14, 15, 14, 15, 3}, true},
                                           FailedPut{6, {0, 9, 16, 17, 18, 14, 15, 14, 15, 3}, true},
                                           FailedPut{7, {0, 9, 16, 17, 18, 19, 15, 14, 15, 3}, true},
                                           FailedPut{8, {0, 9, 16, 17, 18, 19, 14, 14, 15, 3}, true},
                                           FailedPut{9, {0, 9, 16, 17, 18, 19, 14, 15, 15, 3}, true},
                                           FailedPut{10, {0, 9, 16, 17, 18, 19, 14, 15, 14, 3}, false},
                                           FailedPut{11, {0, 9, 16, 17, 18, 19, 14, 15, 14, 15}, true}));

TEST_F(InteractivePage, IsASuccessWhereItsLastContentIsThoughAllOthersFailed) {
  fill();
  for (unsigned int put = 3; put < 10; ++put) recorder.failAt(Operation::IpcPutC, put);
  EXPECT_TRUE(page.sendInteractive());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 15u, 3u));
}

/// The last of these that was set decides on the result.
TEST_F(InteractivePage, WithoutAttachmentsHasTheResultOfItsOptions) {
  page.setJSONPath("a/b");
  page.setOptions("x");
  recorder.failAt(Operation::IpcPutC, 4);
  EXPECT_FALSE(page.sendInteractive());
}

TEST_F(InteractivePage, WithoutOptionsHasTheResultOfItsPath) {
  page.setProcedureName("MEANS");
  page.setJSONPath("a/b");
  recorder.failAt(Operation::IpcPutC, 4);
  EXPECT_FALSE(page.sendInteractive());
}

TEST_F(InteractivePage, WithoutAPathHasTheResultOfItsProcedure) {
  page.setInteractiveJSON("{}");
  page.setProcedureName("MEANS");
  recorder.failAt(Operation::IpcPutC, 4);
  EXPECT_FALSE(page.sendInteractive());
}

TEST_F(InteractivePage, WithoutAProcedureHasTheResultOfItsText) {
  page.setInteractiveJSON("{}");
  recorder.failAt(Operation::IpcPutC, 3);
  EXPECT_FALSE(page.sendInteractive());
}

TEST_F(InteractivePage, AbandonsAContentAtAChunkThatFailsAndGoesOnWithTheNext) {
  page.setJSONPath(pattern(3 * 33980));
  page.setOptions("x");
  recorder.failAt(Operation::IpcPutC, 4);
  EXPECT_TRUE(page.sendInteractive());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 18u, 19u, 3u));
  EXPECT_THAT(onlyContent(contents(), 18).chunkSizes, ElementsAre(33980u));
}

TEST_F(InteractivePage, SendsNothingAtAllBehindADescriptionThatFailed) {
  fill();
  recorder.failAt(Operation::IpcPutC, 1);
  page.sendInteractive();
  EXPECT_EQ(puts(), 1u);
  EXPECT_EQ(recorder.count(Operation::CompressString), 0u);
}

TEST_F(InteractivePage, WhoseCompressionGivesNoBytesCountsAsSent) {
  fill();
  recorder.failEvery(Operation::CompressString);
  EXPECT_TRUE(page.sendInteractive());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 17u, 18u, 19u, 14u, 14u, 3u));
}

TEST_F(InteractivePage, TellsNobodyOfFailures) {
  fill();
  page.addGeoJSON("missing.json");
  recorder.failEvery(Operation::IpcPutC);
  page.sendInteractive();
  expectNoReport(recorder);
}

TEST_F(InteractivePage, LetsThroughWhatTheHostThrows) {
  expectToLetThrough(recorder, {Operation::Fetch}, [this] { page.addGeoJSON("missing.json"); });
  fill();
  expectToLetThrough(recorder,
                     {put(0), put(9), Operation::PrintDebugInfo,                      //
                      Operation::CompressString, put(16), put(17), put(18), put(19),  //
                      Operation::CompressString, put(14), put(15),                    //
                      Operation::CompressString, put(14), put(15), put(3)},
                     [this] { page.sendInteractive(); });
}

TEST_F(InteractivePage, LetsThroughWhatTheHostThrowsWhereItLooksUpADescription) {
  page.SetDescription(u"");
  expectToLetThrough(
      recorder,
      {Operation::DictionaryPath, Operation::OpenDictionary, Operation::SetProcedure, Operation::LookUp,
       Operation::LanguageCode, put(0), put(9), Operation::PrintDebugInfo, put(3)},
      [this] { page.sendInteractive(); });
}

/// What it has in common with other documents sent on their own side.
struct InteractivePages {
  using Document = xInteractive;
  static bool send(Document& document) { return document.sendInteractive(); }
  static constexpr int editor = 3;
  static constexpr bool keepsDefault = false;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Interactive, SentAlone, InteractivePages);
INSTANTIATE_TYPED_TEST_SUITE_P(Interactive, Attachments, InteractivePages);

// --- What it inherits

TEST_F(InteractivePage, SendsWhatADocumentSendsInChartContentMessages) {
  EXPECT_TRUE(page.SendDescription());
  EXPECT_THAT(types(), ElementsAre(0u, 9u));
  for (auto const& message : got()) EXPECT_EQ(message.identifier, 307);
}

/// Its description and its contents go out in messages that a document has no operation for.
TEST_F(InteractivePage, EndsThroughTheOperationOfADocument) {
  ToldSends<xInteractive> own;
  own.setOptions("x");
  own.failing = {"done"};
  EXPECT_TRUE(own.sendInteractive());
  EXPECT_THAT(own.story, ElementsAre("done"));
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 19u));
}

}  // namespace
}  // namespace kestrel::test
