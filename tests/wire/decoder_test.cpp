// The decoder itself, with bytes made by hand, and the capture file that the embedded host writes.

#include "wire_decoder.h"
#include "wire_test.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using kestrel::host::Message;
using kestrel::test::decodeCapture;
using kestrel::test::decodeContents;
using kestrel::test::decodeMessage;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string interactive(std::string const& head, std::size_t chunk, char fill) {
  return head + std::string(chunk, fill) + "\x0A\x0B\x0C\x0D";
}

TEST(Decoder, ReadsAnInteractiveMessage) {
  auto const message = decodeMessage({318, std::string("\x01\0\0\0\x10\0\0\0\x03\0\0\0"
                                                       "abc"
                                                       "\0\0\0\0",
                                                       19)});
  EXPECT_EQ(message.identifier, 318);
  EXPECT_EQ(message.type, 16u);
  EXPECT_EQ(message.subtype, std::nullopt);
  EXPECT_EQ(message.chunkSize, 3u);
  EXPECT_EQ(message.payload, "abc");
  EXPECT_EQ(message.trailer, std::string(4, '\0'));
}

TEST(Decoder, ReadsTheWholeWordOfAnInteractiveType) {
  auto const message = decodeMessage({318, std::string("\x01\0\0\0\x10\x02\0\0\0\0\0\0"
                                                       "\0\0\0\0",
                                                       16)});
  EXPECT_EQ(message.type, 0x210u);
}

TEST(Decoder, PutsInteractiveContentTogether) {
  std::string const full("\x01\0\0\0\x10\0\0\0\xBC\x84\0\0", 12);  // 33980
  std::string const rest("\x01\0\0\0\x10\0\0\0\x02\0\0\0", 12);
  auto const contents =
      decodeContents({Message{318, interactive(full, 33980, 'x')}, Message{318, interactive(rest, 2, 'y')}});
  ASSERT_EQ(contents.size(), 1u);
  EXPECT_EQ(contents[0].type, 16u);
  EXPECT_THAT(contents[0].chunkSizes, ElementsAre(33980u, 2u));
  EXPECT_EQ(contents[0].bytes, std::string(33980, 'x') + "yy");
}

TEST(Decoder, RefusesAnInteractiveChunkThatIsTooLong) {
  std::string const head("\x01\0\0\0\x10\0\0\0\xBD\x84\0\0", 12);  // 33981
  EXPECT_THROW(decodeMessage({318, interactive(head, 33981, 'x')}), std::runtime_error);
}

TEST(Decoder, RefusesAnotherLeadingWordThanOne) {
  EXPECT_THROW(decodeMessage({318, std::string("\x02\0\0\0\x10\0\0\0\0\0\0\0"
                                               "\0\0\0\0",
                                               16)}),
               std::runtime_error);
}

TEST(Decoder, RefusesAnUnknownIdentifier) {
  EXPECT_THROW(decodeMessage({306, std::string(12, '\0')}), std::runtime_error);
}

TEST(Decoder, RefusesReservedBytes) {
  EXPECT_THROW(decodeMessage({307, std::string("\0\0\x01\0\0\0\0\0"
                                               "\0\0\0\0",
                                               12)}),
               std::runtime_error);
}

TEST(Decoder, RefusesALengthThatDoesNotFitTheChunk) {
  EXPECT_THROW(decodeMessage({307, std::string("\0\0\0\0\x02\0\0\0"
                                               "a"
                                               "\0\0\0\0",
                                               13)}),
               std::runtime_error);
}

using kestrel::test::DecodedContent;

std::vector<DecodedContent> only(std::uint32_t type, std::string const& bytes) {
  return {{307, type, 0, {static_cast<std::uint32_t>(bytes.size())}, bytes}};
}

/// A text of ten letters as a zlib stream, made by another program.
std::string const tenLetters("\x78\x9C\x4B\x4C\x84\x01\x00\x14\xE1\x03\xCB", 11);

TEST(Decoder, UndoesAZlibStream) { EXPECT_EQ(kestrel::test::inflated(tenLetters), "aaaaaaaaaa"); }

TEST(Decoder, RefusesAZlibStreamThatIsCutAnywhere) {
  for (std::size_t size = 0; size < tenLetters.size(); ++size) {
    EXPECT_THROW(kestrel::test::inflated(tenLetters.substr(0, size)), std::runtime_error) << size;
  }
}

TEST(Decoder, RefusesWhatStandsBehindAZlibStream) {
  EXPECT_THROW(kestrel::test::inflated(tenLetters + "x"), std::runtime_error);
}

TEST(Decoder, TellsTheSizeThatIsAnnounced) {
  EXPECT_EQ(kestrel::test::announced(only(5, std::string(7, '\0')), 5), 7u);
  EXPECT_EQ(kestrel::test::announced({}, 5), 0u);
  EXPECT_THROW(kestrel::test::announced(only(5, "7"), 5), std::runtime_error);
}

TEST(Decoder, ReadsAnEndRecord) {
  EXPECT_EQ(kestrel::test::endRecord(only(3, std::string("\x01\0\0\0\x02\x01\0\0", 8))),
            (kestrel::test::EndRecord{1, 0x102}));
  EXPECT_THROW(kestrel::test::endRecord(only(3, std::string(9, '\0'))), std::runtime_error);
}

TEST(Decoder, ReadsAMapRecord) {
  std::string const record("\x01\0\x02\0\0\0ab\x01\0c\0\0\0\0\x03\0def", 20);
  EXPECT_EQ(kestrel::test::mapRecord(only(10, record)), (kestrel::test::MapRecord{"ab", "c", "", "def"}));
  EXPECT_THROW(kestrel::test::mapRecord(only(10, record + "x")), std::runtime_error);
  EXPECT_ANY_THROW(kestrel::test::mapRecord(only(10, record.substr(0, 19))));
}

class CaptureFile : public kestrel::test::WireTest {
 protected:
  CaptureFile() : path(testing::TempDir() + "kestrel_wire_" + std::to_string(::getpid()) + ".kcap") {}
  ~CaptureFile() override { std::filesystem::remove(path); }

  std::string written() const {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::string path;
};

TEST_F(CaptureFile, HasASignatureAndEachMessageBehindItsIdentifierAndLength) {
  kestrel::host::CaptureChannel channel(path);
  channel.put(307, "abc", 3);
  channel.put(318, "", 0);
  ASSERT_TRUE(channel.flush());
  EXPECT_EQ(written(), std::string("KCAP0001"
                                   "\x33\x01\0\0\0\0\0\0\x03\0\0\0\0\0\0\0"
                                   "abc"
                                   "\x3E\x01\0\0\0\0\0\0\0\0\0\0\0\0\0\0",
                                   8 + 19 + 16));
}

TEST_F(CaptureFile, IsNoMoreThanASignatureBeforeTheFirstMessage) {
  kestrel::host::CaptureChannel channel(path);
  ASSERT_TRUE(channel.flush());
  EXPECT_THAT(decodeCapture(written()), IsEmpty());
}

TEST_F(CaptureFile, HasWhatAChannelInMemoryHas) {
  document.SetDescription(u"The same");
  document.getGraph();
  ASSERT_TRUE(document.SendChart(false, false, false));
  auto const inMemory = got();

  kestrel::host::Host host = recorder.host();
  auto capture = std::make_shared<kestrel::host::CaptureChannel>(path);
  host.channel = capture;
  kestrel::host::ScopedHost const captured(host);
  ASSERT_TRUE(document.SendChart(false, false, false));
  ASSERT_TRUE(capture->flush());
  EXPECT_EQ(decodeCapture(written()), inMemory);
}

TEST_F(CaptureFile, IsRefusedWhereItIsCut) {
  kestrel::host::CaptureChannel channel(path);
  channel.put(307, "abc", 3);
  ASSERT_TRUE(channel.flush());
  std::string const whole = written();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    if (size == 8) continue;  // a capture without messages
    EXPECT_THROW(decodeCapture(whole.substr(0, size)), std::runtime_error) << size;
  }
}

}  // namespace
