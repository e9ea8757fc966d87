#include "kestrelhost/compression.h"

#include "host/channel.h"
#include "kestrelhost/recorder.h"

#include <gtest/gtest.h>

using namespace kestrel::host;

namespace {

std::string chartLikeText(std::size_t size) {
  std::string text;
  for (unsigned int element = 0; text.size() < size; ++element) {
    text += "<point id=\"element_point_" + std::to_string(element * 7919 % 1000) + "\"><x/></point>";
  }
  text.resize(size);
  return text;
}

std::string compressed(std::string const& text) {
  std::string out = "left from before";
  EXPECT_EQ(zlib1213vexa::compressString(text, out), 0);
  return out;
}

std::string restored(std::string const& bytes) {
  std::string out = "left from before";
  EXPECT_TRUE(decompress(bytes, out));
  return out;
}

TEST(CompressionTest, RestoresWhatWasCompressed) {
  for (std::size_t size : {0u, 1u, 100u, 70000u, 5000000u}) {
    std::string const text = chartLikeText(size);
    EXPECT_EQ(restored(compressed(text)), text) << size;
  }
}

TEST(CompressionTest, RestoresBytesThatAreNoText) {
  std::string bytes;
  for (unsigned int at = 0; at < 100000; ++at) bytes += static_cast<char>(at * 2654435761u >> 24);
  EXPECT_EQ(restored(compressed(bytes)), bytes);
}

TEST(CompressionTest, WritesAZlibStream) {
  std::string const bytes = compressed("text");
  EXPECT_EQ(bytes[0], 0x78);
  EXPECT_EQ((static_cast<unsigned char>(bytes[0]) * 256 + static_cast<unsigned char>(bytes[1])) % 31, 0);
}

TEST(CompressionTest, GivesBytesForAnEmptyText) { EXPECT_FALSE(compressed("").empty()); }

TEST(CompressionTest, MakesAChartShorter) { EXPECT_LT(compressed(chartLikeText(100000)).size(), 25000u); }

TEST(CompressionTest, DoesNotDependOnWhatCameBefore) {
  std::string const first = compressed("a text");
  compressed(chartLikeText(100000));
  EXPECT_EQ(compressed("a text"), first);
}

TEST(CompressionTest, TakesOneTextForInputAndOutput) {
  std::string text = chartLikeText(1000);
  EXPECT_EQ(zlib1213vexa::compressString(text, text), 0);
  EXPECT_EQ(restored(text), chartLikeText(1000));
}

TEST(CompressionTest, HasLevels) {
  std::string const text = chartLikeText(100000);
  std::string stored, small;
  EXPECT_EQ(ZlibCompression(0).compress(text, stored), 0);
  EXPECT_EQ(ZlibCompression(9).compress(text, small), 0);
  EXPECT_GT(stored.size(), text.size());
  EXPECT_LT(small.size(), text.size() / 4);
  EXPECT_EQ(restored(stored), restored(small));
}

TEST(CompressionTest, FailsForALevelThatIsNone) {
  std::string out = "left from before";
  EXPECT_NE(ZlibCompression(10).compress("text", out), 0);
  EXPECT_EQ(out, "");
}

TEST(CompressionTest, IsAServiceOfTheHost) {
  Recorder recorder;
  recorder.failAt(Operation::CompressString, 1);
  ScopedHost const scope(recorder.host());
  std::string out = "left from before";
  EXPECT_NE(zlib1213vexa::compressString("text", out), 0);
  EXPECT_EQ(out, "");
  EXPECT_EQ(recorder.entries().at(0).text("in"), "text");
}

TEST(DecompressionTest, RefusesBytesThatAreNoStream) {
  std::string out = "left from before";
  EXPECT_FALSE(decompress("no stream", out));
  EXPECT_EQ(out, "");
  EXPECT_FALSE(decompress("", out));
}

TEST(DecompressionTest, RefusesAStreamThatIsCut) {
  std::string const bytes = compressed(chartLikeText(1000));
  std::string out;
  for (std::size_t length = 0; length < bytes.size(); ++length)
    EXPECT_FALSE(decompress(bytes.substr(0, length), out));
}

TEST(DecompressionTest, RefusesAStreamWithSomethingBehindIt) {
  std::string out;
  EXPECT_FALSE(decompress(compressed("text") + "x", out));
}

TEST(DecompressionTest, RefusesAStreamThatWasChanged) {
  std::string bytes = compressed(chartLikeText(1000));
  bytes[bytes.size() - 1] = static_cast<char>(bytes[bytes.size() - 1] ^ 1);
  std::string out;
  EXPECT_FALSE(decompress(bytes, out));
}

TEST(DecompressionTest, StopsAtTheLimit) {
  std::string const bytes = compressed(std::string(100000, 'x'));
  std::string out;
  EXPECT_TRUE(decompress(bytes, out, 100000));
  EXPECT_EQ(out.size(), 100000u);
  EXPECT_FALSE(decompress(bytes, out, 99999));
  EXPECT_EQ(out, "");
  EXPECT_TRUE(decompress(compressed(""), out, 0));
}

}  // namespace
