// Two captures made by hand, compared message by message.

#include "inspect/capture_difference.h"

#include "capture_builder.h"

#include <gmock/gmock.h>

using kestrel::tool::CaptureDifference;
using kestrel::tool::compareCaptures;
using testing::HasSubstr;
using testing::Not;

namespace {

CaptureDifference compare(std::string const& left, std::string const& right) {
  return compareCaptures({"A", left}, {"B", right});
}

CaptureDifference compare(CaptureBuilder const& left, CaptureBuilder const& right) {
  return compare(left.bytes(), right.bytes());
}

CaptureBuilder described() { return CaptureBuilder().content(0, "What is seen").content(9, "What is seen"); }

TEST(CaptureDifferenceTest, OfACaptureAndItselfIsNone) {
  CaptureBuilder const chart = described().chartText("<a/>").endRecord();
  CaptureDifference const difference = compare(chart, chart);
  EXPECT_TRUE(difference.same);
  EXPECT_EQ(difference.text,
            "A / B\n"
            "     1       1  description          same\n"
            "     2       2  English description  same\n"
            "     3       3  chart text size      same\n"
            "     4       4  compressed size      same\n"
            "     5       5  chart text           same\n"
            "     6       6  done                 same\n"
            "6 messages the same\n");
}

TEST(CaptureDifferenceTest, TellsTheFirstByteThatDiffers) {
  CaptureDifference const difference =
      compare(CaptureBuilder().content(0, "abcd"), CaptureBuilder().content(0, "abXd"));
  EXPECT_FALSE(difference.same);
  EXPECT_EQ(difference.text,
            "A / B\n"
            "     1       1  description          differs, first at byte 10: 63 / 58\n"
            "0 messages the same, 1 different\n");
}

TEST(CaptureDifferenceTest, TellsOtherSizes) {
  EXPECT_THAT(compare(CaptureBuilder().content(0, "abc"), CaptureBuilder().content(0, "abcd")).text,
              HasSubstr("description          differs, 15 / 16 bytes, first at byte 4: 03 / 04\n"));
}

TEST(CaptureDifferenceTest, TellsAnotherSubtype) {
  EXPECT_THAT(compare(CaptureBuilder().content(7, "x", 1), CaptureBuilder().content(7, "x", 2)).text,
              HasSubstr("image                differs, first at byte 1: 01 / 02\n"));
}

TEST(CaptureDifferenceTest, SaysThatATrailerMeansNothing) {
  std::string other = CaptureBuilder().content(0, "abc").bytes();
  other.back() = 'x';
  CaptureDifference const difference = compare(CaptureBuilder().content(0, "abc").bytes(), other);
  EXPECT_FALSE(difference.same);
  EXPECT_THAT(difference.text,
              HasSubstr("differs, first at byte 14: 00 / 78, in the trailer, which means nothing\n"));
}

TEST(CaptureDifferenceTest, KeepsStepWhereOneHasMore) {
  CaptureDifference const difference =
      compare(described().content(11, "a.csv").content(6, "x").endRecord(), described().endRecord());
  EXPECT_FALSE(difference.same);
  EXPECT_THAT(difference.text, HasSubstr("     3       -  CSV name             only in A\n"
                                         "     4       -  CSV content          only in A\n"
                                         "     5       3  done                 same\n"
                                         "3 messages the same, 2 only in A\n"));
}

TEST(CaptureDifferenceTest, TellsOfMoreChunks) {
  CaptureDifference const difference =
      compare(CaptureBuilder().content(6, std::string(33984, 'x')).endRecord(),
              CaptureBuilder().content(6, std::string(33986, 'x')).endRecord());
  EXPECT_THAT(difference.text, HasSubstr("     1       1  CSV content          same\n"
                                         "     -       2  CSV content          only in B\n"
                                         "     2       3  done                 same\n"));
}

TEST(CaptureDifferenceTest, ComparesChartsOneByOne) {
  std::string const one = described().endRecord().bytes();
  CaptureDifference const difference = compare(one, one + one.substr(8));
  EXPECT_FALSE(difference.same);
  EXPECT_THAT(difference.text, HasSubstr("     -       6  done                 only in B\n"
                                         "3 messages the same, 3 only in B\n"));
}

TEST(CaptureDifferenceTest, ShowsTheLinesOfChartTextsThatDiffer) {
  CaptureDifference const difference =
      compare(described().chartText("<a><title>first</title><b/></a>").endRecord(),
              described().chartText("<a><title>second</title><b/><c/></a>").endRecord());
  EXPECT_THAT(difference.text, HasSubstr("chart text of chart 1:\n"
                                         "-     2    <title>first</title>\n"
                                         "+     2    <title>second</title>\n"
                                         "+     4    <c/>\n"));
}

TEST(CaptureDifferenceTest, SaysThatOnlyWhiteSpaceDiffers) {
  EXPECT_THAT(compare(described().chartText("<a><b/></a>"), described().chartText("<a>\n<b/></a>")).text,
              HasSubstr("chart text of chart 1:\n  only white space between elements differs\n"));
}

TEST(CaptureDifferenceTest, SaysThatOnlyTheCompressionDiffers) {
  std::string const stored("\x78\x01\x01\x04\x00\xFB\xFF<a/>\x02\xB3\x01\x0B", 15);
  auto const chart = [](std::string const& compressed) {
    return CaptureBuilder().content(2, std::string(4, '\0')).content(1, compressed);
  };
  EXPECT_THAT(compare(chart(stored), chart(compressedText("<a/>"))).text,
              HasSubstr("  the texts are the same, only their compression differs\n"));
}

TEST(CaptureDifferenceTest, SaysThatAChartTextCannotBeCompared) {
  EXPECT_THAT(compare(described().chartText("<a/>"), described().content(1, "no stream")).text,
              HasSubstr("  cannot be compared by lines: B has no whole zlib stream\n"));
}

TEST(CaptureDifferenceTest, ShowsTwoHundredLinesAtMost) {
  auto const chart = [](std::string const& name) {
    std::string text = "<a>";
    for (int i = 0; i < 150; ++i) text.append("<").append(name).append("/>");
    return described().chartText(text + "</a>");
  };
  EXPECT_THAT(compare(chart("b"), chart("c")).text, HasSubstr("  and 100 more lines\n"));
}

TEST(CaptureDifferenceTest, ComparesMessagesThatAreNoneOfOurs) {
  CaptureDifference const difference = compare(CaptureBuilder().put(5, "abc").put(6, "x"),
                                               CaptureBuilder().put(5, "abd").put(7, "x").put(8, ""));
  EXPECT_THAT(difference.text,
              HasSubstr("     1       1  no message of ours   differs, first at byte 2: 63 / 64\n"
                        "     2       2  no message of ours   differs, identifier 6 / 7\n"
                        "     -       3  no message of ours   only in B\n"));
}

}  // namespace
