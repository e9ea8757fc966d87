// Images that are there already: what is sent of them, and what is left of it where something fails.

#include "ximage.h"

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
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr ChartXMLContentSubType png{2};
constexpr ChartXMLContentSubType other{5};

class Image : public SendingTest {
 protected:
  Image() { image.SetDescription(u"A map"); }

  void addFile(std::string const& name, std::string const& content) {
    recorder.services().files->content[name] = content;
  }

  std::string sentImage() { return inflated(bytesOf(7)); }
  unsigned int sentSubtype() { return onlyContent(contents(), 7).subtype.value(); }

  XImage image;
};

TEST_F(Image, GoesOutBetweenDescriptionAndEndRecord) {
  image.setImageInline(png, "bytes");
  EXPECT_TRUE(image.sendImage());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 7u, 3u));
  EXPECT_EQ(bytesOf(0), "A map");
  EXPECT_EQ(bytesOf(9), "A map");
}

TEST_F(Image, GoesOutInChartContentMessages) {
  image.setImageInline(png, "bytes");
  image.sendImage();
  for (auto const& message : got()) EXPECT_EQ(message.identifier, 307);
}

TEST_F(Image, HasItsSubtypeInTheSecondByteOfItsMessage) {
  image.setImageInline(ChartXMLContentSubType{0x83}, "bytes");
  image.sendImage();
  EXPECT_EQ(got().at(2).bytes.substr(0, 4), std::string("\x07\x83\0\0", 4));
}

TEST_F(Image, AloneHasASubtype) {
  image.setImageInline(png, "bytes");
  image.sendImage();
  for (auto const& content : contents()) EXPECT_EQ(content.subtype, content.type == 7 ? 2u : 0u);
}

TEST_F(Image, WithoutASubtypeHasZero) {
  image.sendImage();
  EXPECT_EQ(sentSubtype(), 0u);
}

TEST_F(Image, IsCompressed) {
  std::string const bytes(10000, '\0');
  image.setImageInline(png, bytes);
  image.sendImage();
  EXPECT_LT(bytesOf(7).size(), 100u);
  EXPECT_EQ(sentImage(), bytes);
}

TEST_F(Image, IsCompressedWhenTheDescriptionHasBeenSent) {
  image.setImageInline(png, "bytes");
  EXPECT_EQ(recorder.count(Operation::CompressString), 0u);
  unsigned int before = 0;
  recorder.actAt(Operation::CompressString, 1,
                 [&] { before = static_cast<unsigned int>(recorder.count(Operation::IpcPutC)); });
  image.sendImage();
  EXPECT_EQ(before, 2u);
}

TEST_F(Image, OfManyChunksComesBackWhole) {
  std::string const bytes = noise(100000);
  image.setImageInline(png, bytes);
  EXPECT_TRUE(image.sendImage());
  EXPECT_THAT(onlyContent(contents(), 7).chunkSizes, SizeIs(3));
  EXPECT_EQ(sentImage(), bytes);
}

TEST_F(Image, ThatIsEmptyIsSentAsItsCompressedFormIs) {
  EXPECT_TRUE(image.sendImage());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 7u, 3u));
  EXPECT_EQ(sentImage(), "");
}

TEST_F(Image, WhoseCompressionGivesNoBytesIsLeftOutAndSucceeds) {
  image.setImageInline(png, "bytes");
  recorder.failEvery(Operation::CompressString);
  EXPECT_TRUE(image.sendImage());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 3u));
}

// --- Where it comes from

TEST_F(Image, OfAFileIsFetchedWithBothFlags) {
  addFile("plot.png", "file");
  EXPECT_TRUE(image.setImage(png, "plot.png"));
  auto const fetches = recorder.entries(Operation::Fetch);
  ASSERT_THAT(fetches, SizeIs(1));
  EXPECT_EQ(fetches[0].text("name"), "plot.png");
  EXPECT_TRUE(fetches[0].flag("first"));
  EXPECT_TRUE(fetches[0].flag("second"));
}

TEST_F(Image, OfAFileIsItsBytes) {
  std::string const bytes("\x89PNG\r\n\x1A\n\0\xFF", 10);
  addFile("plot.png", bytes);
  image.setImage(png, "plot.png");
  EXPECT_TRUE(image.sendImage());
  EXPECT_EQ(sentImage(), bytes);
  EXPECT_EQ(sentSubtype(), 2u);
}

TEST_F(Image, OfAFileReplacesTheOneBefore) {
  addFile("plot.png", "second");
  image.setImageInline(png, "first");
  EXPECT_TRUE(image.setImage(other, "plot.png"));
  image.sendImage();
  EXPECT_EQ(sentImage(), "second");
  EXPECT_EQ(sentSubtype(), 5u);
}

TEST_F(Image, OfAFileThatIsNotThereIsEmptyAndKeepsTheSubtype) {
  image.setImageInline(png, "first");
  EXPECT_FALSE(image.setImage(other, "missing.png"));
  EXPECT_TRUE(image.sendImage());
  EXPECT_EQ(sentImage(), "");
  EXPECT_EQ(sentSubtype(), 2u);
}

TEST_F(Image, OfAnEmptyFileIsEmptyAndKeepsTheSubtype) {
  addFile("empty.png", "");
  image.setImageInline(png, "first");
  EXPECT_FALSE(image.setImage(other, "empty.png"));
  image.sendImage();
  EXPECT_EQ(sentImage(), "");
  EXPECT_EQ(sentSubtype(), 2u);
}

TEST_F(Image, GivenInlineIsFalseAndSentAllTheSame) {
  EXPECT_FALSE(image.setImageInline(png, "good bytes"));
  EXPECT_TRUE(image.sendImage());
  EXPECT_EQ(sentImage(), "good bytes");
}

TEST_F(Image, GivenInlineIsFalseWhereItIsEmptyToo) {
  image.setImageInline(other, "bytes");
  EXPECT_FALSE(image.setImageInline(png, ""));
  image.sendImage();
  EXPECT_EQ(sentImage(), "");
  EXPECT_EQ(sentSubtype(), 2u);
}

TEST_F(Image, IsSentAgainAtASecondSend) {
  image.setImageInline(png, "bytes");
  EXPECT_TRUE(image.sendImage());
  EXPECT_TRUE(image.sendImage());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 7u, 3u, 0u, 9u, 7u, 3u));
}

// --- Failures

class ImageWithAFailedPut : public Image, public ::testing::WithParamInterface<FailedPut> {};

TEST_P(ImageWithAFailedPut, SendsWhatDoesNotHangOnIt) {
  image.setImageInline(png, "bytes");
  recorder.failAt(Operation::IpcPutC, GetParam().put);
  EXPECT_EQ(image.sendImage(), GetParam().result);
  EXPECT_EQ(types(), GetParam().types);
}

INSTANTIATE_TEST_SUITE_P(EachPut, ImageWithAFailedPut,
                         ::testing::Values(FailedPut{1, {}, false}, FailedPut{2, {0}, false},
                                           FailedPut{3, {0, 9, 3}, false}, FailedPut{4, {0, 9, 7}, true}));

TEST_F(Image, IsNotEvenCompressedBehindADescriptionThatFailed) {
  recorder.failAt(Operation::IpcPutC, 1);
  image.sendImage();
  EXPECT_EQ(puts(), 1u);
  EXPECT_EQ(recorder.count(Operation::CompressString), 0u);
}

TEST_F(Image, IsAbandonedAtAChunkThatFailsAndTheEndRecordFollows) {
  image.setImageInline(png, noise(100000));
  recorder.failAt(Operation::IpcPutC, 4);
  EXPECT_FALSE(image.sendImage());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 7u, 3u));
  EXPECT_THAT(onlyContent(contents(), 7).chunkSizes, ElementsAre(33984u));
}

TEST_F(Image, TellsNobodyOfFailures) {
  recorder.failEvery(Operation::IpcPutC);
  image.setImage(png, "missing.png");
  image.sendImage();
  expectNoReport(recorder);
}

TEST_F(Image, LetsThroughWhatTheHostThrows) {
  image.setImageInline(png, "bytes");
  expectToLetThrough(recorder,
                     {put(0), put(9), Operation::PrintDebugInfo, Operation::CompressString, put(7), put(3)},
                     [this] { image.sendImage(); });
  expectToLetThrough(recorder, {Operation::Fetch}, [this] { image.setImage(png, "plot.png"); });
}

/// What it has in common with other documents sent on their own side.
struct Images {
  using Document = XImage;
  static bool send(Document& document) { return document.sendImage(); }
  static constexpr int editor = 1;
  static constexpr bool keepsDefault = true;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Image, SentAlone, Images);

// --- What it inherits

TEST_F(Image, IsSentThroughTheOperationsOfADocument) {
  ToldSends<XImage> own;
  own.failing = {"done"};
  EXPECT_TRUE(own.sendImage());
  EXPECT_THAT(own.story, ElementsAre("description", "7", "done"));
  EXPECT_THAT(got(), IsEmpty());
}

}  // namespace
}  // namespace kestrel::test
