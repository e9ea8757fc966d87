// Which file each content becomes.

#include "inspect/extraction.h"

#include "capture_builder.h"
#include "inspect/image_format.h"
#include "inspect/inspection.h"
#include "inspect/listing.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using kestrel::tool::ByteBudget;
using kestrel::tool::imageEnding;
using kestrel::tool::Inspection;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

std::string const endRecord("\0\0\0\0\x01\0\0\0", 8);

class Extraction : public testing::Test {
 protected:
  Extraction() {
    std::string folder = (std::filesystem::temp_directory_path() / "kestrel-XXXXXX").string();
    if (::mkdtemp(folder.data()) == nullptr)
      throw std::runtime_error("there is no folder for temporary files");
    mFolder = folder;
  }
  ~Extraction() override { std::filesystem::remove_all(mFolder); }

  /// The files of a capture and what is in them.
  std::map<std::string, std::string> filesOf(CaptureBuilder const& capture) {
    Inspection const inspection(capture.bytes());
    ByteBudget budget(1 << 30);
    std::map<std::string, std::string> files;
    for (std::string const& name : kestrel::tool::extract(inspection.sends(), mFolder, budget)) {
      std::ifstream file(mFolder / name, std::ios::binary);
      files[name] = {std::istreambuf_iterator<char>(file), {}};
    }
    return files;
  }

 private:
  std::filesystem::path mFolder;
};

/// A content alone, and the file that it becomes.
struct Row {
  unsigned int type;
  char const* name;
  std::string payload;
  std::string file;
  std::string inFile;
};

void PrintTo(Row const& row, std::ostream* out) { *out << "type " << row.type; }

std::string const map("\x01\0\0\0\0\0\0\0\0\0\0\0\0\0", 14);

std::vector<Row> rows() {
  return {
      {0, "description", "What is seen", "description.txt", "What is seen"},
      {1, "chart text", compressedText("<a/>"), "chart.xml", "<a/>"},
      {2, "chart text size", std::string(7, '\0'), "sizes.json", "{\n  \"chart text size\": 7\n}\n"},
      {3, "done", endRecord, "done.json", "{\n  \"editable\": 0,\n  \"editor\": 1\n}\n"},
      {4, "compressed size", std::string(5, '\0'), "sizes.json", "{\n  \"compressed size\": 5\n}\n"},
      {5, "data size", std::string(70000, '\0'), "sizes.json", "{\n  \"data size\": 70000\n}\n"},
      {6, "CSV content", "a,b\n", "attachment.csv", "a,b\n"},
      {7, "image", compressedText("GIF89a..."), "image-0.gif", "GIF89a..."},
      {8, "data", dataStream(3), "data.arrows", dataStream(3)},
      {9, "English description", "Seen", "description.eng.txt", "Seen"},
      {10, "map information", map, "map-information.bin", map},
      {11, "CSV name", "a.csv", "", ""},
      {12, "engine JSON", compressedText("{\"a\":1}"), "engine.json", "{\"a\":1}"},
      {13, "engine template", compressedText("{}"), "engine-template.json", "{}"},
      {14, "GeoJSON name", "lakes", "", ""},
      {15, "GeoJSON", compressedText("[1]"), "attachment.json", "[1]"},
      {16, "interactive JSON", compressedText("[2]"), "interactive.json", "[2]"},
      {17, "procedure name", "MEANS", "procedure-name.txt", "MEANS"},
      {18, "JSON path", "a/b", "json-path.txt", "a/b"},
      {19, "options", "x=1", "options.txt", "x=1"},
      {20, "chart options", "y=2", "chart-options.txt", "y=2"},
      {21, "service template", "<serviceTemplate source=\"s\"/>", "service-template.xml",
       "<serviceTemplate source=\"s\"/>"},
  };
}

class EachType : public Extraction, public testing::WithParamInterface<Row> {
 protected:
  std::map<std::string, std::string> expected() const {
    if (GetParam().file.empty()) return {};
    return {{GetParam().file, GetParam().inFile}};
  }

  static std::vector<std::string> namesIn(CaptureBuilder const& capture) {
    Inspection const inspection(capture.bytes());
    std::vector<std::string> names;
    for (auto const& listed : kestrel::tool::listMessages(inspection))
      if (names.empty() || names.back() != listed.typeName) names.push_back(listed.typeName);
    return names;
  }
};

TEST_P(EachType, HasItsFileFromChartContentMessages) {
  EXPECT_EQ(filesOf(CaptureBuilder().content(GetParam().type, GetParam().payload)), expected());
}

TEST_P(EachType, HasItsFileFromInteractiveContentMessages) {
  EXPECT_EQ(filesOf(CaptureBuilder().interactive(GetParam().type, GetParam().payload)), expected());
}

TEST_P(EachType, HasItsNameInBothLayouts) {
  EXPECT_THAT(namesIn(CaptureBuilder().content(GetParam().type, GetParam().payload)),
              ElementsAre(GetParam().name));
  EXPECT_THAT(namesIn(CaptureBuilder().interactive(GetParam().type, GetParam().payload)),
              ElementsAre(GetParam().name));
}

INSTANTIATE_TEST_SUITE_P(Of22, EachType, testing::ValuesIn(rows()));

TEST_F(Extraction, PutsAllAnnouncedSizesIntoOneFile) {
  EXPECT_THAT(filesOf(CaptureBuilder()
                          .content(2, std::string(10, '\0'))
                          .content(4, std::string(20, '\0'))
                          .content(5, std::string(30, '\0'))),
              ElementsAre(Pair("sizes.json",
                               "{\n  \"chart text size\": 10,\n  \"compressed size\": 20,\n"
                               "  \"data size\": 30\n}\n")));
}

TEST_F(Extraction, NamesAttachmentsAsTheSenderDid) {
  EXPECT_THAT(filesOf(CaptureBuilder()
                          .content(14, "maps/lakes.geojson")
                          .content(15, compressedText("1"))
                          .content(14, "rivers")
                          .content(15, compressedText("2"))
                          .content(14, "rivers")
                          .content(15, compressedText("3"))),
              ElementsAre(Pair("lakes.geojson", "1"), Pair("rivers-2.json", "3"), Pair("rivers.json", "2")));
}

TEST_F(Extraction, NamesAnAttachmentWhoseNameWasLost) {
  EXPECT_THAT(filesOf(CaptureBuilder().content(14, "lost").content(19, "x").content(15, compressedText("1"))),
              ElementsAre(Pair("attachment.json", "1"), Pair("options.txt", "x")));
}

TEST_F(Extraction, LeavesOutWhatDoesNotDecompress) {
  for (unsigned int const type : {1u, 7u, 12u, 13u, 15u, 16u})
    EXPECT_THAT(filesOf(CaptureBuilder().content(type, "no zlib stream")), IsEmpty()) << type;
}

TEST_F(Extraction, TellsTheSubtypeOfAnImageAndWhatItLooksLike) {
  EXPECT_THAT(filesOf(CaptureBuilder().content(7, compressedText("\x89PNG\r\n\x1A\n"), 200)),
              ElementsAre(Pair("image-200.png", "\x89PNG\r\n\x1A\n")));
  EXPECT_THAT(filesOf(CaptureBuilder().content(7, compressedText(""), 9)),
              ElementsAre(Pair("image-9.bin", "")));
}

TEST_F(Extraction, LeavesAnEndRecordOfAnotherSizeAsItIs) {
  EXPECT_THAT(filesOf(CaptureBuilder().content(3, "abc")), ElementsAre(Pair("done.json", "abc")));
}

TEST(ImageEnding, FollowsTheFirstBytes) {
  EXPECT_EQ(imageEnding("\x89PNG\r\n\x1A\nrest"), ".png");
  EXPECT_EQ(imageEnding("\xFF\xD8\xFF\xE0"), ".jpg");
  EXPECT_EQ(imageEnding("GIF87a"), ".gif");
  EXPECT_EQ(imageEnding("BM1234"), ".bmp");
  EXPECT_EQ(imageEnding(std::string("II*\0", 4)), ".tif");
  EXPECT_EQ(imageEnding(std::string("MM\0*", 4)), ".tif");
  EXPECT_EQ(imageEnding("RIFF1234WEBP"), ".webp");
  EXPECT_EQ(imageEnding(std::string(40, '\1') + " EMF"), ".emf");
  EXPECT_EQ(imageEnding("\xD7\xCD\xC6\x9A"), ".wmf");
  EXPECT_EQ(imageEnding("%PDF-1.7"), ".pdf");
  EXPECT_EQ(imageEnding("%!PS-Adobe"), ".ps");
}

TEST(ImageEnding, KnowsVectorGraphicsBehindADeclaration) {
  EXPECT_EQ(imageEnding("<svg/>"), ".svg");
  EXPECT_EQ(imageEnding("\xEF\xBB\xBF\n<?xml version=\"1.0\"?><!-- a --><svg>"), ".svg");
  EXPECT_EQ(imageEnding("text <svg>"), ".bin");
  EXPECT_EQ(imageEnding("<html>"), ".bin");
}

TEST(ImageEnding, OfAnythingElseSaysNothing) {
  EXPECT_EQ(imageEnding(""), ".bin");
  EXPECT_EQ(imageEnding("\x89PN"), ".bin");
  EXPECT_EQ(imageEnding("RIFF1234WAVE"), ".bin");
}

}  // namespace
