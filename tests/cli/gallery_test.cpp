// kestrel gallery: charts of every kind.

#include "cli_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace kestrel::test;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class GalleryCommand : public CliTest {
 protected:
  /// The first word of each line.
  static std::vector<std::string> names(std::string const& listing) {
    std::vector<std::string> result;
    for (std::size_t at = 0; at < listing.size(); at = listing.find('\n', at) + 1) {
      result.push_back(listing.substr(at, listing.find(' ', at) - at));
    }
    return result;
  }
};

}  // namespace

TEST_F(GalleryCommand, ListsItsChartsWithoutMakingThem) {
  Outcome const outcome = kestrel({"gallery", "--list"});
  EXPECT_EQ(outcome.exit, 0);
  EXPECT_THAT(outcome.out,
              AllOf(HasSubstr("histogram-with-summary "), HasSubstr("Histogram with its summary\n")));
  EXPECT_GE(names(outcome.out).size(), 12U);
  EXPECT_THAT(filesIn("."), IsEmpty());
}

TEST_F(GalleryCommand, MakesACaptureAndATextOfEachChart) {
  std::vector<std::string> const all = names(kestrel({"gallery", "--list"}).out);
  Outcome const outcome = kestrel({"gallery", "-o", "out"});
  EXPECT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_THAT(outcome.err, IsEmpty());
  std::vector<std::string> expected;
  for (std::string const& name : all) {
    expected.push_back(name + ".kcap");
    expected.push_back(name + ".xml");
  }
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(filesIn("out"), expected);
}

TEST_F(GalleryCommand, MakesCapturesThatKeepAllRules) {
  kestrel({"gallery", "-o", "out"});
  for (std::string const& name : names(kestrel({"gallery", "--list"}).out)) {
    EXPECT_EQ(kestrel({"inspect", "out/" + name + ".kcap"}).exit, 0) << name;
  }
}

TEST_F(GalleryCommand, MakesOnlyTheChartsThatAreNamed) {
  Outcome const outcome = kestrel({"gallery", "dot-plot", "error-bars", "-o", "out"});
  EXPECT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "out/dot-plot.kcap: Stacked dots\nout/error-bars.kcap: Error bars\n");
  EXPECT_THAT(filesIn("out"),
              ElementsAre("dot-plot.kcap", "dot-plot.xml", "error-bars.kcap", "error-bars.xml"));
}

TEST_F(GalleryCommand, WritesTheChartTextThatTheCaptureHolds) {
  kestrel({"gallery", "dot-plot", "-o", "out"});
  kestrel({"inspect", "out/dot-plot.kcap", "--extract", "contents"});
  EXPECT_EQ(read("out/dot-plot.xml"), read("contents/chart.xml"));
}

TEST_F(GalleryCommand, KnowsNoOtherChartAndNamesTheNearest) {
  Outcome const outcome = kestrel({"gallery", "dotplot", "-o", "out"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(
      outcome.err,
      "kestrel: the gallery has no chart 'dotplot'; did you mean 'dot-plot'?; kestrel gallery --list names "
      "them all\n");
  EXPECT_FALSE(exists("out"));
}

TEST_F(GalleryCommand, NeedsAFolder) {
  Outcome const outcome = kestrel({"gallery"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(outcome.err,
            "kestrel: -o FOLDER is needed: where to write the charts; kestrel gallery --list names them\n");
}

TEST_F(GalleryCommand, SaysWhereItCannotWrite) {
  write("out", "a file");
  Outcome const outcome = kestrel({"gallery", "-o", "out"});
  EXPECT_EQ(outcome.exit, 3);
  EXPECT_THAT(outcome.err, HasSubstr("out"));
}
