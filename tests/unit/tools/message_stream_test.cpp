#include "listen/message_stream.h"

#include "capture_builder.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

using kestrel::tool::beginsChart;
using kestrel::tool::endsChart;
using kestrel::tool::MessageStream;
using kestrel::tool::SendStarts;

namespace {

std::string record(std::int64_t identifier, std::string const& bytes) {
  return CaptureBuilder().put(identifier, bytes).bytes().substr(8);
}

TEST(MessageStream, GivesTheSameMessagesHoweverTheBytesCome) {
  std::vector<std::string> const sent = {record(307, "abc"), record(318, ""),
                                         record(-1, std::string(33996, 'x'))};
  std::string const bytes = "KCAP0001" + sent[0] + sent[1] + sent[2];
  std::minstd_rand random(5);
  for (std::size_t most : {1UL, 3UL, 17UL, 1000UL, bytes.size()}) {
    MessageStream stream;
    std::vector<std::string> got;
    for (std::size_t at = 0; at < bytes.size();) {
      std::size_t const step = std::min<std::size_t>(1 + random() % most, bytes.size() - at);
      stream.take(std::string_view(bytes).substr(at, step));
      at += step;
      while (auto message = stream.next()) got.push_back(*message);
    }
    EXPECT_EQ(got, sent) << most;
    EXPECT_EQ(stream.rest(), "");
    EXPECT_FALSE(stream.fault());
  }
}

TEST(MessageStream, KeepsTheStartOfAMessage) {
  MessageStream stream;
  stream.take("KCAP0001" + record(307, "abc") + record(307, "abc").substr(0, 17));
  EXPECT_TRUE(stream.next());
  EXPECT_FALSE(stream.next());
  EXPECT_EQ(stream.rest(), record(307, "abc").substr(0, 17));
}

TEST(MessageStream, SeesAtItsFirstByteThatSomethingIsNoCapture) {
  MessageStream stream;
  stream.take("G");
  EXPECT_FALSE(stream.next());
  EXPECT_TRUE(stream.fault());
  EXPECT_FALSE(stream.hasSignature());
}

TEST(MessageStream, WaitsForTheSignature) {
  MessageStream stream;
  for (char const each : std::string("KCAP000")) {
    stream.take({&each, 1});
    EXPECT_FALSE(stream.next());
    EXPECT_FALSE(stream.fault());
    EXPECT_FALSE(stream.hasSignature());
  }
  stream.take("1");
  EXPECT_FALSE(stream.next());
  EXPECT_TRUE(stream.hasSignature());
}

TEST(MessageStream, ReadsNothingBehindAFault) {
  MessageStream stream;
  stream.take("KCAP0001" + littleEndian(307, 8) + littleEndian(33997, 8));
  EXPECT_FALSE(stream.next());
  ASSERT_TRUE(stream.fault());
  EXPECT_EQ(*stream.fault(), "message 1 should have 33997 bytes; a message has up to 33996");
  std::size_t const before = stream.rest().size();
  stream.take(std::string(100'000, 'x'));
  EXPECT_FALSE(stream.next());
  EXPECT_EQ(stream.rest().size(), before);
}

TEST(MessageStream, TellsTheEndOfAChart) {
  EXPECT_TRUE(endsChart(CaptureBuilder().endRecord().bytes().substr(8)));
  EXPECT_FALSE(endsChart(CaptureBuilder().content(1, "x").bytes().substr(8)));
  EXPECT_FALSE(endsChart(CaptureBuilder().interactive(3, "x").bytes().substr(8)));
  EXPECT_FALSE(endsChart(record(307, "")));
}

/// The numbers of the messages that begin a chart.
std::vector<std::size_t> beginnings(std::vector<CaptureBuilder> const& messages) {
  SendStarts starts;
  std::vector<std::size_t> found;
  for (std::size_t at = 0; at < messages.size(); ++at) {
    if (beginsChart(messages[at].bytes().substr(8), starts)) found.push_back(at);
  }
  return found;
}

TEST(MessageStream, TellsTheBeginningOfAChart) {
  CaptureBuilder const description = CaptureBuilder().chunk(0, "x");
  CaptureBuilder const full = CaptureBuilder().chunk(0, std::string(33984, 'x'));
  CaptureBuilder const text = CaptureBuilder().chunk(1, "x");
  CaptureBuilder const done = CaptureBuilder().endRecord();
  CaptureBuilder const broken = CaptureBuilder().put(307, "");
  using Numbers = std::vector<std::size_t>;
  EXPECT_EQ(beginnings({description, text, done, text, done, done}), (Numbers{0, 3, 5}));
  EXPECT_EQ(beginnings({description, text, description, text}), (Numbers{0, 2}));
  EXPECT_EQ(beginnings({text, description}), (Numbers{0, 1}));
  EXPECT_EQ(beginnings({description, description}), (Numbers{0, 1}));
  EXPECT_EQ(beginnings({full, full, description, description}), (Numbers{0, 3}));
  EXPECT_EQ(beginnings({full, text, description}), (Numbers{0, 2}));
  EXPECT_EQ(beginnings({full, CaptureBuilder().interactive(0, "x")}), (Numbers{0, 1}));
  EXPECT_EQ(beginnings({description, broken, description}), (Numbers{0, 2}));
}

}  // namespace
