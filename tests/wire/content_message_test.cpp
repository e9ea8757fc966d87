// The layout of a chart content message, byte for byte, and how content is cut into messages.

#include "wire_test.h"

#include <gmock/gmock.h>

#include <cstdint>

using kestrel::test::DecodedMessage;
using kestrel::test::decodeMessage;
using kestrel::test::longestChunk;
using kestrel::test::noSubType;
using kestrel::test::pattern;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class ContentMessage : public kestrel::test::WireTest {
 protected:
  bool send(std::string const& bytes, ChartXMLContentType type = CXT_CSV_CONTENT,
            ChartXMLContentSubType subType = noSubType) {
    return document.SendContent(bytes.data(), bytes.size(), type, subType);
  }
  bool announce(unsigned long size) { return document.SendContent(nullptr, size, CXT_DATA_SIZE, noSubType); }

  std::vector<std::uint32_t> chunkSizes() {
    std::vector<std::uint32_t> sizes;
    for (auto const& message : got()) sizes.push_back(decodeMessage(message).chunkSize);
    return sizes;
  }
  DecodedMessage decoded(std::size_t index) { return decodeMessage(got().at(index)); }
};

TEST_F(ContentMessage, HasTypeSubtypeTwoZerosChunkSizePayloadAndFourBytesMore) {
  EXPECT_TRUE(send("abc", CXT_IMAGE, ChartXMLContentSubType{9}));
  ASSERT_THAT(got(), SizeIs(1));
  EXPECT_EQ(got()[0].identifier, 307);
  EXPECT_EQ(got()[0].bytes, std::string("\x07\x09\0\0\x03\0\0\0"
                                        "abc"
                                        "\0\0\0\0",
                                        15));
}

TEST_F(ContentMessage, SaysItsChunkSizeInLittleEndian) {
  EXPECT_TRUE(send(std::string(0x1234, 'x')));
  EXPECT_EQ(got().at(0).bytes.substr(4, 4), std::string("\x34\x12\0\0", 4));
}

TEST_F(ContentMessage, IsTwelveBytesLongerThanItsChunk) {
  send(pattern(1));
  send(pattern(4711));
  send(pattern(longestChunk));
  ASSERT_THAT(got(), SizeIs(3));
  EXPECT_EQ(got()[0].bytes.size(), 13u);
  EXPECT_EQ(got()[1].bytes.size(), 4723u);
  EXPECT_EQ(got()[2].bytes.size(), 33996u);
}

TEST_F(ContentMessage, KeepsTheLowEightBitsOfTypeAndSubtype) {
  send("x", ChartXMLContentType{0x107}, ChartXMLContentSubType{0xABCD});
  EXPECT_EQ(got().at(0).bytes.substr(0, 4), std::string("\x07\xCD\0\0", 4));
}

TEST_F(ContentMessage, CarriesEachContentTypeByItsNumber) {
  for (unsigned int number = 0; number <= 21; ++number) {
    recorder.services().channel->clear();
    ASSERT_TRUE(send("payload", ChartXMLContentType{number}));
    EXPECT_EQ(decoded(0).type, number);
    EXPECT_EQ(decoded(0).subtype, 0u);
    EXPECT_EQ(decoded(0).payload, "payload");
  }
}

TEST_F(ContentMessage, CarriesPayloadBytesAsTheyAre) {
  std::string const bytes("\0\xFF\r\n\x80", 5);
  send(bytes);
  EXPECT_EQ(decoded(0).payload, bytes);
}

TEST_F(ContentMessage, IsNotSentForEmptyContent) {
  EXPECT_TRUE(document.SendContent("", 0, CXT_CSV_CONTENT, noSubType));
  EXPECT_THAT(got(), IsEmpty());
}

TEST_F(ContentMessage, IsNotSentForAnAnnouncementOfNothing) {
  EXPECT_TRUE(announce(0));
  EXPECT_THAT(got(), IsEmpty());
}

TEST_F(ContentMessage, IsOneForContentThatJustFits) {
  EXPECT_TRUE(send(pattern(33984)));
  EXPECT_THAT(chunkSizes(), ElementsAre(33984u));
  EXPECT_EQ(decoded(0).payload, pattern(33984));
}

TEST_F(ContentMessage, IsTwoForContentOfOneByteMore) {
  EXPECT_TRUE(send(pattern(33985)));
  EXPECT_THAT(chunkSizes(), ElementsAre(33984u, 1u));
  EXPECT_EQ(decoded(0).payload + decoded(1).payload, pattern(33985));
}

TEST_F(ContentMessage, CutsLongContentIntoFullChunksAndARest) {
  EXPECT_TRUE(send(pattern(100000)));
  EXPECT_THAT(chunkSizes(), ElementsAre(33984u, 33984u, 32032u));
  EXPECT_EQ(contents().at(0).bytes, pattern(100000));
}

TEST_F(ContentMessage, RepeatsTypeAndSubtypeInEachChunk) {
  send(pattern(70000), CXT_IMAGE, ChartXMLContentSubType{3});
  ASSERT_THAT(got(), SizeIs(3));
  for (auto const& message : got()) EXPECT_EQ(message.bytes.substr(0, 4), std::string("\x07\x03\0\0", 4));
}

TEST_F(ContentMessage, HasATrailerOfZerosBehindAFullChunk) {
  send(pattern(2 * longestChunk));
  EXPECT_EQ(decoded(0).trailer, std::string(4, '\0'));
  EXPECT_EQ(decoded(1).trailer, std::string(4, '\0'));
}

TEST_F(ContentMessage, HasATrailerOfZerosInASingleShortChunk) {
  send(pattern(100));
  EXPECT_EQ(decoded(0).trailer, std::string(4, '\0'));
}

TEST_F(ContentMessage, RepeatsBytesTwoToFiveOfTheFirstChunkBehindASecondOfOneByte) {
  send(pattern(33985));
  EXPECT_EQ(decoded(1).trailer, pattern(33985).substr(1, 4));
}

TEST_F(ContentMessage, RepeatsInALaterTrailerWhatTheChunkBeforeLeftThere) {
  std::string const bytes = pattern(100000);
  send(bytes);
  EXPECT_EQ(decoded(2).trailer, bytes.substr(33984 + 32032, 4));
}

TEST_F(ContentMessage, HasATrailerThatReachesBehindTheChunkBefore) {
  // The last chunk is two bytes shorter than a full one: the trailer's second half was never written to.
  std::string const bytes = pattern(33984 + 33982);
  send(bytes);
  EXPECT_EQ(decoded(1).trailer, bytes.substr(33982, 2) + std::string(2, '\0'));
}

TEST_F(ContentMessage, LeavesNothingBehindForTheNextContent) {
  send(pattern(33985));
  send("a");
  EXPECT_EQ(got().at(2).bytes, std::string("\x06\0\0\0\x01\0\0\0"
                                           "a"
                                           "\0\0\0\0",
                                           13));
}

TEST_F(ContentMessage, AnnouncesASizeByMessagesOfThatSizeInAll) {
  EXPECT_TRUE(announce(70000));
  EXPECT_THAT(chunkSizes(), ElementsAre(33984u, 33984u, 2032u));
  EXPECT_EQ(got()[0].bytes.size(), 33996u);
  EXPECT_EQ(got()[1].bytes.size(), 33996u);
  EXPECT_EQ(got()[2].bytes.size(), 2044u);
}

TEST_F(ContentMessage, AnnouncesWithZerosOnly) {
  announce(70000);
  for (std::size_t at = 0; at < 3; ++at) {
    EXPECT_THAT(decoded(at).payload, Each('\0'));
    EXPECT_EQ(decoded(at).trailer, std::string(4, '\0'));
  }
}

TEST_F(ContentMessage, AnnouncesOneByteWithOneByte) {
  EXPECT_TRUE(announce(1));
  EXPECT_EQ(got().at(0).bytes, std::string("\x05\0\0\0\x01\0\0\0\0\0\0\0\0", 13));
}

TEST_F(ContentMessage, IsNotTriedAgainAfterAFailedPut) {
  recorder.failAt(kestrel::host::Operation::IpcPutC, 1);
  EXPECT_FALSE(send(pattern(100000)));
  EXPECT_EQ(puts(), 1u);
  EXPECT_THAT(got(), IsEmpty());
}

TEST_F(ContentMessage, EndsTheContentWhereALaterPutFails) {
  recorder.failAt(kestrel::host::Operation::IpcPutC, 2);
  EXPECT_FALSE(send(pattern(100000)));
  EXPECT_EQ(puts(), 2u);
  EXPECT_THAT(chunkSizes(), ElementsAre(33984u));
}

TEST_F(ContentMessage, FailsOnTheLastPutToo) {
  recorder.failAt(kestrel::host::Operation::IpcPutC, 3);
  EXPECT_FALSE(send(pattern(100000)));
}

TEST_F(ContentMessage, IsNeverSentForACount) {
  EXPECT_FALSE(document.SendCount(5, CXT_XML));
  EXPECT_FALSE(document.SendCount(0, CXT_DATA));
  EXPECT_THAT(got(), IsEmpty());
}

TEST_F(ContentMessage, LeavesFailuresToTheCallerToTell) {
  recorder.failEvery(kestrel::host::Operation::IpcPutC);
  EXPECT_FALSE(send("abc"));
  EXPECT_THAT(recorder.userMessages(), IsEmpty());
  EXPECT_THAT(recorder.failures(), IsEmpty());
}

}  // namespace
