// What the inspection of a capture finds wrong, with captures made by hand.

#include "inspect/inspection.h"

#include "capture_builder.h"
#include "inspect/order_rules.h"

#include <gmock/gmock.h>

#include <functional>

using kestrel::tool::Inspection;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

std::vector<std::string> faultsOf(std::string const& capture) {
  Inspection const inspection(capture);
  std::vector<std::string> texts;
  texts.reserve(inspection.faults().size());
  for (auto const& fault : inspection.faults()) texts.push_back(fault.text);
  return texts;
}

std::vector<std::string> faultsOf(CaptureBuilder const& capture) { return faultsOf(capture.bytes()); }

CaptureBuilder described() { return CaptureBuilder().content(0, "What is seen").content(9, "What is seen"); }

/// A data map "ab" of the name "c", and a reference map "d" of the name "ef".
std::string const mapRecord("\x01\0\x02\0\0\0ab\x01\0c\x01\0\0\0d\x02\0ef", 20);
std::string const endWithFiles("\0\0\0\0\x02\0\0\0", 8);

CaptureBuilder chart() { return described().chartText("<visualization/>"); }

std::string kindOfFirst(CaptureBuilder const& capture) {
  Inspection const inspection(capture.bytes());
  return kestrel::tool::kindOf(inspection.sends().at(0));
}

TEST(SoundCapture, IsAChart) { EXPECT_THAT(faultsOf(chart().endRecord()), IsEmpty()); }

TEST(SoundCapture, IsAChartWithDataAndFiles) {
  std::string const data = dataStream(5000);
  EXPECT_THAT(faultsOf(chart()
                           .content(5, std::string(data.size(), '\0'))
                           .content(8, data)
                           .content(10, mapRecord)
                           .content(11, "a.csv")
                           .content(6, std::string(50000, 'x'))
                           .content(11, "b.csv")
                           .content(6, "y")
                           .content(3, endWithFiles)),
              IsEmpty());
}

TEST(SoundCapture, IsAChartWhoseDescriptionHasNoEnglishForm) {
  EXPECT_THAT(faultsOf(CaptureBuilder().content(0, "x").chartText("<a/>").endRecord()), IsEmpty());
}

TEST(SoundCapture, IsAChartWithoutText) {
  std::string const compressed = compressedText("");
  EXPECT_THAT(
      faultsOf(
          described().content(4, std::string(compressed.size(), '\0')).content(1, compressed).endRecord()),
      IsEmpty());
}

TEST(SoundCapture, HasAnyTrailers) {
  EXPECT_THAT(faultsOf(CaptureBuilder()
                           .put(307, std::string("\0\0\0\0\x01\0\0\0"
                                                 "x"
                                                 "\x01\x02\x03\x04",
                                                 13))
                           .chartText("<a/>")
                           .endRecord()),
              IsEmpty());
}

TEST(SoundCapture, IsTwoChartsOneAfterTheOther) {
  std::string const one = chart().endRecord().bytes();
  Inspection const inspection(one + one.substr(8));
  EXPECT_THAT(inspection.faults(), IsEmpty());
  EXPECT_THAT(inspection.sends(), SizeIs(2));
}

TEST(SoundCapture, IsAnImageOfAnySubtype) {
  CaptureBuilder const capture = described().content(7, compressedText("PNG"), 12).endRecord();
  EXPECT_THAT(faultsOf(capture), IsEmpty());
  EXPECT_EQ(kindOfFirst(capture), "image");
}

TEST(SoundCapture, IsAnEngineChart) {
  CaptureBuilder const capture = described()
                                     .content(12, compressedText("{}"))
                                     .content(13, compressedText("{}"))
                                     .content(19, "options")
                                     .content(14, "map.json")
                                     .content(15, compressedText("{}"))
                                     .endRecord();
  EXPECT_THAT(faultsOf(capture), IsEmpty());
  EXPECT_EQ(kindOfFirst(capture), "engine chart");
}

TEST(SoundCapture, IsInteractiveContentWithTheEndRecordOfAChart) {
  CaptureBuilder const capture = CaptureBuilder()
                                     .interactive(0, "x")
                                     .interactive(9, "x")
                                     .interactive(16, compressedText(std::string(100, 'j')))
                                     .interactive(17, "FREQUENCIES")
                                     .interactive(18, "a/b")
                                     .interactive(19, std::string(70000, 'o'))
                                     .interactive(14, "map.json")
                                     .interactive(15, compressedText("{}"))
                                     .endRecord();
  EXPECT_THAT(faultsOf(capture), IsEmpty());
  EXPECT_EQ(kindOfFirst(capture), "interactive content");
}

TEST(SoundCapture, IsAService) {
  CaptureBuilder const capture =
      described().content(20, "options", 4).content(21, "<serviceTemplate/>").endRecord();
  EXPECT_THAT(faultsOf(capture), IsEmpty());
  EXPECT_EQ(kindOfFirst(capture), "service");
}

TEST(CaptureFault, IsAnotherFile) {
  EXPECT_THAT(faultsOf("a,b\n1,2\n"), ElementsAre(HasSubstr("is no capture, which starts with KCAP0001")));
}

TEST(CaptureFault, IsAnEmptyFile) { EXPECT_THAT(faultsOf(""), ElementsAre(HasSubstr("is no capture"))); }

TEST(CaptureFault, IsACaptureWithoutMessages) {
  EXPECT_THAT(faultsOf(CaptureBuilder()), ElementsAre(HasSubstr("holds no message")));
}

TEST(CaptureFault, IsTheOneFaultOfACaptureThatIsCutAnywhere) {
  std::string const data = dataStream(5000);
  std::string const whole =
      chart().content(5, std::string(data.size(), '\0')).content(8, data).endRecord().bytes();
  for (std::size_t size = 9; size < whole.size(); size += 97) {
    Inspection const inspection(whole.substr(0, size));
    ASSERT_THAT(inspection.faults(), SizeIs(1))
        << "cut at " << size << ": " << inspection.faults().front().text;
    EXPECT_THAT(inspection.faults()[0].text, HasSubstr("the capture is cut")) << size;
  }
}

TEST(CaptureFault, TellsWhereTheCaptureIsCut) {
  std::string const whole = CaptureBuilder().content(0, "abc").bytes();
  Inspection const inspection(whole.substr(0, whole.size() - 1));
  ASSERT_THAT(inspection.faults(), SizeIs(1));
  EXPECT_EQ(inspection.faults()[0].offset, 16u);
  EXPECT_THAT(inspection.faults()[0].text, HasSubstr("message 1 should have 15 bytes, there are 14"));
}

TEST(CaptureFault, IsANegativeLength) {
  EXPECT_THAT(faultsOf("KCAP0001" + littleEndian(307, 8) + std::string(8, '\xFF') + std::string(100, 'x')),
              ElementsAre(HasSubstr("should have -1 bytes, there are 100")));
}

TEST(CaptureFault, IsALengthBeyondAllBounds) {
  EXPECT_THAT(faultsOf("KCAP0001" + littleEndian(307, 8) + std::string(7, '\xFF') + "\x7F"),
              ElementsAre(HasSubstr("should have 9223372036854775807 bytes, there are 0")));
}

TEST(CaptureFault, IsAChartThatEndsWithoutEndRecord) {
  EXPECT_THAT(faultsOf(chart()), ElementsAre("the chart ends without done"));
}

TEST(CaptureFault, IsAChartThatStopsBehindItsDescription) {
  EXPECT_THAT(faultsOf(described()),
              ElementsAre("the chart ends without chart text", "the chart ends without done"));
}

TEST(CaptureFault, IsASendWithoutEndRecordAloneBeforeASoundOne) {
  std::string const next = chart().endRecord().bytes().substr(8);
  for (CaptureBuilder const& failed : {described(), CaptureBuilder().content(0, "x")}) {
    std::string const bytes = failed.bytes() + next;
    Inspection const inspection(bytes);
    EXPECT_THAT(inspection.sends(), SizeIs(2));
    EXPECT_THAT(faultsOf(bytes),
                ElementsAre("the chart ends without chart text", "the chart ends without done"));
    EXPECT_EQ(inspection.faults().back().offset, failed.bytes().size() + 16);
  }
}

TEST(SoundCapture, HasADescriptionOfSeveralChunks) {
  CaptureBuilder const capture =
      CaptureBuilder().content(0, std::string(70'000, 'x')).chartText("<a/>").endRecord();
  EXPECT_THAT(faultsOf(capture), IsEmpty());
  EXPECT_THAT(Inspection(capture.bytes()).sends(), SizeIs(1));
}

TEST(SoundCapture, HasTwoChartsOfWhichTheFirstHasADescriptionOfAFullChunk) {
  CaptureBuilder const one =
      CaptureBuilder().content(0, std::string(33984, 'x')).chartText("<a/>").endRecord();
  std::string const bytes = one.bytes() + one.bytes().substr(8);
  EXPECT_THAT(faultsOf(bytes), IsEmpty());
  EXPECT_THAT(Inspection(bytes).sends(), SizeIs(2));
}

/// A fault of a message, put before a sound chart.
std::vector<std::string> faultsWith(std::int64_t identifier, std::string const& bytes) {
  return faultsOf(CaptureBuilder().put(identifier, bytes).bytes() + chart().endRecord().bytes().substr(8));
}

TEST(MessageFault, IsAnUnknownIdentifier) {
  EXPECT_THAT(faultsWith(306, std::string(20, '\0')),
              ElementsAre("the identifier is 306; 307 or 318 was expected"));
}

TEST(MessageFault, IsAMessageShorterThanItsHeadAndTrailer) {
  EXPECT_THAT(faultsWith(307, std::string(11, '\0')),
              ElementsAre("the message has 11 bytes; it needs 12 around its chunk"));
  EXPECT_THAT(faultsWith(318, std::string(15, '\0')),
              ElementsAre("the message has 15 bytes; it needs 16 around its chunk"));
}

TEST(MessageFault, IsAChunkSizeThatDoesNotFitTheLength) {
  EXPECT_THAT(faultsWith(307, std::string("\0\0\0\0\x05\0\0\0"
                                          "abc"
                                          "\0\0\0\0",
                                          15)),
              ElementsAre("the chunk size is 5, but the message has 15 bytes, not 17"));
}

TEST(MessageFault, TellsWhereItIs) {
  Inspection const inspection(chart()
                                  .put(307, std::string("\0\0\0\0\x05\0\0\0"
                                                        "abc"
                                                        "\0\0\0\0",
                                                        15))
                                  .bytes());
  ASSERT_THAT(inspection.faults(), SizeIs(2));
  EXPECT_EQ(inspection.faults()[0].offset, chart().bytes().size() + 16 + 4);
  EXPECT_EQ(inspection.faults()[0].message, 6u);
}

TEST(MessageFault, IsAnEmptyChunk) {
  EXPECT_THAT(faultsOf(chart().chunk(11, "").content(6, "x").content(3, endWithFiles)),
              ElementsAre("the chunk is empty"));
}

TEST(MessageFault, IsAChunkThatIsTooLong) {
  EXPECT_THAT(faultsOf(chart().content(11, "a").chunk(6, std::string(33985, 'x')).content(3, endWithFiles)),
              ElementsAre("the chunk has 33985 bytes; it may have up to 33984"));
}

TEST(MessageFault, IsAnInteractiveChunkThatIsTooLong) {
  std::string const message =
      littleEndian(1, 4) + littleEndian(19, 4) + littleEndian(33981, 4) + std::string(33985, 'x');
  EXPECT_THAT(faultsOf(CaptureBuilder().interactive(0, "x").put(318, message).endRecord()),
              ElementsAre("the chunk has 33981 bytes; it may have up to 33980"));
}

TEST(MessageFault, IsAReservedByte) {
  std::string const message(
      "\x0B\0\0\x01\x01\0\0\0"
      "a"
      "\0\0\0\0",
      13);
  EXPECT_THAT(faultsOf(chart().put(307, message).content(6, "x").content(3, endWithFiles)),
              ElementsAre("the reserved bytes are not 0"));
}

TEST(MessageFault, IsAnotherLeadingWordThanOne) {
  std::string const message =
      littleEndian(2, 4) + littleEndian(0, 4) + littleEndian(1, 4) + "x" + littleEndian(0, 4);
  EXPECT_THAT(faultsOf(CaptureBuilder().put(318, message).endRecord()),
              ElementsAre("the leading word is 2, not 1"));
}

TEST(MessageFault, IsAnUnknownContentType) {
  EXPECT_THAT(faultsOf(chart().content(22, "x").endRecord()),
              ElementsAre("there is no content type 22", "content of type 22 is no part of this chart"));
}

TEST(MessageFault, IsASubtypeThatTheTypeHasNot) {
  EXPECT_THAT(faultsOf(CaptureBuilder().content(0, "x", 4).chartText("<a/>").endRecord()),
              ElementsAre("the content type has no subtype 4"));
  EXPECT_THAT(faultsOf(described().content(20, "x").endRecord()),
              ElementsAre("the content type has no subtype 0"));
}

TEST(ContentFault, IsAChunkWithinAContentThatIsNotFull) {
  std::string const compressed = compressedText("<visualization/>");
  EXPECT_THAT(
      faultsOf(described()
                   .content(2, std::string(16, '\0'))
                   .content(4, std::string(compressed.size(), '\0'))
                   .chunk(1, compressed.substr(0, 10))
                   .chunk(1, compressed.substr(10))
                   .endRecord()),
      testing::Contains("chart text goes on, though the chunk before, of 10 bytes, was not full (33984)"));
}

TEST(ContentFault, IsAnAnnouncementThatIsNotZeros) {
  std::string const compressed = compressedText("<a/>");
  EXPECT_THAT(faultsOf(described()
                           .content(2, "1234")
                           .content(4, std::string(compressed.size(), '\0'))
                           .content(1, compressed)
                           .endRecord()),
              ElementsAre("chart text size announces a size: its payload must be zeros"));
}

TEST(ContentFault, IsChartTextOfAnotherSizeThanAnnounced) {
  std::string const compressed = compressedText("<a/>");
  auto const announced = [&](std::size_t text, std::size_t packed) {
    return faultsOf(described()
                        .content(2, std::string(text, '\0'))
                        .content(4, std::string(packed, '\0'))
                        .content(1, compressed)
                        .endRecord());
  };
  EXPECT_THAT(announced(5, compressed.size()),
              ElementsAre("chart text has 4 bytes, but 5 bytes were announced"));
  EXPECT_THAT(announced(3, compressed.size()),
              ElementsAre(HasSubstr("is no whole zlib stream of at most 3 bytes")));
  EXPECT_THAT(announced(4, 7), ElementsAre("chart text has " + std::to_string(compressed.size()) +
                                           " bytes, but 7 bytes were announced"));
}

TEST(ContentFault, IsChartTextThatIsNotCompressed) {
  EXPECT_THAT(faultsOf(described()
                           .content(2, std::string(4, '\0'))
                           .content(4, std::string(4, '\0'))
                           .content(1, "<a/>")
                           .endRecord()),
              ElementsAre("chart text of 4 bytes is no whole zlib stream of at most 4 bytes"));
}

TEST(ContentFault, IsChartTextThatIsNotUtf8) {
  EXPECT_THAT(faultsOf(described().chartText("<a>\xFF</a>").endRecord()),
              ElementsAre("chart text is not UTF-8"));
}

TEST(ContentFault, IsADescriptionThatIsNotUtf8) {
  EXPECT_THAT(faultsOf(CaptureBuilder().content(0, "caf\xE9").chartText("<a/>").endRecord()),
              ElementsAre("description is not UTF-8 at its byte 3"));
}

TEST(ContentFault, IsDataOfAnotherSizeThanAnnounced) {
  std::string const data = dataStream(1);
  EXPECT_THAT(faultsOf(chart().content(5, std::string(8, '\0')).content(8, data).endRecord()),
              ElementsAre("data has " + std::to_string(data.size()) + " bytes, but 8 bytes were announced"));
}

TEST(ContentFault, IsDataThatIsNoArrowStream) {
  EXPECT_THAT(
      faultsOf(chart().content(5, std::string(8, '\0')).content(8, "12345678").endRecord()),
      ElementsAre("data is no sequence of Arrow streams: at its byte 0, the mark FF FF FF FF was expected"));
}

TEST(ContentFault, IsDataThatEndsWithinAStream) {
  std::string const data = dataStream(3);
  std::string const half = data.substr(0, data.size() - 8);
  EXPECT_THAT(faultsOf(chart().content(5, std::string(half.size(), '\0')).content(8, half).endRecord()),
              ElementsAre(HasSubstr("the stream is cut")));
}

TEST(ContentFault, IsAnEndRecordOfAnotherSize) {
  EXPECT_THAT(faultsOf(chart().content(3, "1234")), ElementsAre("the end record has 4 bytes, not 8 bytes"));
}

TEST(ContentFault, IsAnEndRecordThatForgetsAttachedFiles) {
  EXPECT_THAT(faultsOf(chart().content(11, "a.csv").content(6, "x").endRecord()),
              ElementsAre("the end record says editable 0, editor 1; with a CSV file it must be 0 and 2"));
  EXPECT_THAT(
      faultsOf(
          chart().content(11, "a.csv").content(6, "x").content(3, std::string("\x01\0\0\0\x02\0\0\0", 8))),
      ElementsAre("the end record says editable 1, editor 2; with a CSV file it must be 0 and 2"));
}

struct BadMapRecord {
  std::string record;
  char const* fault;
};

TEST(ContentFault, IsAMapRecordThatIsNotWhole) {
  BadMapRecord const rows[] = {
      {"\x01", "map information is cut"},
      {std::string("\x02\0", 2) + mapRecord.substr(2), "map information has version 2, not 1"},
      {mapRecord.substr(0, 5), "map information is cut before the length of the data map"},
      {mapRecord.substr(0, 7), "map information is cut in the data map, which should have 2 bytes"},
      {mapRecord.substr(0, 9), "map information is cut before the length of the data map's name"},
      {mapRecord.substr(0, 10), "map information is cut in the data map's name, which should have 1 byte"},
      {mapRecord.substr(0, 14), "map information is cut before the length of the reference map"},
      {mapRecord.substr(0, 15), "map information is cut in the reference map, which should have 1 byte"},
      {mapRecord.substr(0, 17), "map information is cut before the length of the reference map's name"},
      {mapRecord.substr(0, 19),
       "map information is cut in the reference map's name, which should have 2 bytes"},
      {mapRecord + "xyz", "map information has 3 bytes too many"},
      {std::string("\x01\0\xFF\xFF\xFF\xFF", 6),
       "map information is cut in the data map, which should have 4294967295 bytes"},
  };
  for (BadMapRecord const& row : rows)
    EXPECT_THAT(faultsOf(chart().content(10, row.record).endRecord()), ElementsAre(row.fault));
}

TEST(OrderFault, IsDataOfAServiceWithoutItsTemplate) {
  std::string const data = dataStream(1);
  std::string const size(data.size(), '\0');
  EXPECT_THAT(faultsOf(described().content(20, "x", 4).content(5, size).content(8, data).endRecord()),
              ElementsAre("data of a service comes without service template before it"));
  EXPECT_THAT(
      faultsOf(described().content(21, "<serviceTemplate/>").content(5, size).content(8, data).endRecord()),
      IsEmpty());
}

TEST(OrderFault, IsAMissingDescription) {
  EXPECT_THAT(faultsOf(CaptureBuilder().chartText("<a/>").endRecord()),
              ElementsAre("description is missing before chart text size"));
}

TEST(OrderFault, IsAContentInTheWrongPlace) {
  std::string const compressed = compressedText("<a/>");
  EXPECT_THAT(faultsOf(described()
                           .content(4, std::string(compressed.size(), '\0'))
                           .content(2, std::string(4, '\0'))
                           .content(1, compressed)
                           .endRecord()),
              ElementsAre("chart text size comes too late, or twice: it belongs before compressed size"));
}

TEST(OrderFault, IsDataWithoutAnnouncement) {
  EXPECT_THAT(faultsOf(chart().content(8, dataStream(1)).endRecord()),
              testing::Contains("data comes without data size before it"));
}

TEST(OrderFault, IsAnAnnouncementWithoutData) {
  EXPECT_THAT(faultsOf(chart().content(5, std::string(8, '\0')).endRecord()),
              ElementsAre("data is missing before done"));
}

TEST(OrderFault, IsAFileWithoutItsName) {
  EXPECT_THAT(faultsOf(chart().content(6, "x").content(3, endWithFiles)),
              ElementsAre("CSV content comes without CSV name before it"));
}

TEST(OrderFault, IsANameWithoutItsFile) {
  EXPECT_THAT(faultsOf(chart().content(11, "a.csv").content(3, endWithFiles)),
              ElementsAre("CSV content is missing before done"));
}

TEST(OrderFault, IsAnImageWithinAService) {
  EXPECT_THAT(faultsOf(described().content(20, "x", 4).content(12, compressedText("x")).endRecord()),
              testing::Contains(HasSubstr("is no part of this")));
}

TEST(OrderFault, IsContentWithTheIdentifierOfAnotherKind) {
  EXPECT_THAT(faultsOf(CaptureBuilder().content(0, "x").interactive(17, "x").endRecord()),
              ElementsAre("description came in a message with the wrong identifier; 318 was expected"));
  EXPECT_THAT(faultsOf(CaptureBuilder().interactive(0, "x").interactive(3, std::string(8, '\0'))),
              ElementsAre("done came in a message with the wrong identifier; 307 was expected"));
}

}  // namespace
