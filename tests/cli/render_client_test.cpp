// kestrel render: a chart as a picture, without a browser.

#include "cli_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

using namespace kestrel::test;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

class Render : public CliTest {
 protected:
  void makeCapture() const { chartOf("a,b\n1,2\n3,4\n", {"--description", "Two <points>"}); }
};

/// A big-endian number of a PNG's head.
unsigned int numberAt(std::string const& bytes, std::size_t at) {
  unsigned int number = 0;
  for (std::size_t i = at; i < at + 4; ++i) number = number << 8 | static_cast<unsigned char>(bytes.at(i));
  return number;
}

}  // namespace

TEST_F(Render, WritesASvgThatSaysWhatItShows) {
  makeCapture();
  Outcome const outcome = kestrel({"render", "out/capture.kcap", "-o", "chart.svg"});
  EXPECT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_THAT(outcome.out, StartsWith("chart.svg: "));
  EXPECT_THAT(read("chart.svg"), AllOf(StartsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns="),
                                       HasSubstr("<desc>Two &lt;points&gt;</desc>"), EndsWith("</svg>\n")));
}

TEST_F(Render, WritesAPngOfTheSizeThatIsAskedFor) {
  makeCapture();
  kestrel({"render", "out/capture.kcap", "-o", "one.png"});
  Outcome const outcome = kestrel({"render", "out/capture.kcap", "-o", "two.png", "--zoom", "2"});
  EXPECT_EQ(outcome.exit, 0) << outcome.err;
  std::string const one = read("one.png");
  std::string const two = read("two.png");
  ASSERT_THAT(one, StartsWith("\x89PNG"));
  constexpr std::size_t width = 16;
  constexpr std::size_t height = 20;
  EXPECT_EQ(numberAt(two, width), 2 * numberAt(one, width));
  EXPECT_EQ(numberAt(two, height), 2 * numberAt(one, height));
}

TEST_F(Render, RefusesANameThatDoesNotSayWhatToWrite) {
  makeCapture();
  Outcome const outcome = kestrel({"render", "out/capture.kcap", "-o", "chart.gif"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(outcome.err, "kestrel: chart.gif: has to end with .svg or .png, which says what is written\n");
}

TEST_F(Render, RefusesAChartThatIsNotThere) {
  makeCapture();
  Outcome const outcome = kestrel({"render", "out/capture.kcap", "-o", "chart.svg", "--chart", "2"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(outcome.err, "kestrel: out/capture.kcap: cannot be drawn: there is no chart 2 in it: it has 1\n");
  EXPECT_FALSE(exists("chart.svg"));
}

TEST_F(Render, ChoosesAmongSeveralCharts) {
  makeCapture();
  std::string const first = read("out/capture.kcap");
  chartOf("a,b\n1,2\n", {"--description", "The other"});
  write("both.kcap", first + read("out/capture.kcap").substr(8));
  kestrel({"render", "both.kcap", "-o", "chart.svg", "--chart", "2"});
  EXPECT_THAT(read("chart.svg"), HasSubstr("<desc>The other</desc>"));
}

TEST_F(Render, TellsWhatIsWrongWithTheCaptureOnce) {
  makeCapture();
  std::string const whole = read("out/capture.kcap");
  write("cut.kcap", whole.substr(0, whole.size() - 5));
  Outcome const outcome = kestrel({"render", "cut.kcap", "-o", "chart.svg"});
  EXPECT_EQ(outcome.exit, 2);
  EXPECT_TRUE(exists("chart.svg"));
  EXPECT_THAT(outcome.err, StartsWith("kestrel: cut.kcap: at byte "));
  EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
}

TEST_F(Render, SaysWhyThereIsNoChartInADamagedCapture) {
  makeCapture();
  write("cut.kcap", read("out/capture.kcap").substr(0, 300));
  Outcome const outcome = kestrel({"render", "cut.kcap", "-o", "chart.svg"});
  EXPECT_EQ(outcome.exit, 2);
  EXPECT_FALSE(exists("chart.svg"));
  EXPECT_THAT(
      outcome.err,
      AllOf(StartsWith("kestrel: cut.kcap: at byte "), HasSubstr("the capture is cut or corrupt"),
            EndsWith("\nkestrel: cut.kcap: cannot be drawn: there is no chart in it that can be read\n")));
  EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 2) << outcome.err;
}

TEST_F(Render, SaysWhatIsMissingWithoutNode) {
  makeCapture();
  Outcome const outcome = shell("PATH=/nowhere $KESTREL render out/capture.kcap -o chart.svg");
  EXPECT_EQ(outcome.exit, 3);
  EXPECT_THAT(outcome.err,
              StartsWith("kestrel: Node.js is not there, which draws without a browser; install it"));
}

TEST_F(Render, SaysWhatIsMissingForPng) {
  makeCapture();
  Outcome const outcome = shell(
      "mkdir bin && ln -s \"$(command -v node || command -v nodejs)\" bin/node && "
      "PATH=$PWD/bin $KESTREL render out/capture.kcap -o chart.png");
  EXPECT_EQ(outcome.exit, 3);
  EXPECT_THAT(outcome.err,
              HasSubstr("kestrel: rsvg-convert is not there, which makes PNG of SVG; install it"));
  EXPECT_FALSE(exists("chart.png"));
}

TEST_F(Render, TellsOfANodeThatFails) {
  makeCapture();
  write(
      "node",
      "#!/bin/sh\necho 'file:1' >&2; echo 'SyntaxError: Unexpected token' >&2; echo '   at x' >&2; exit 1\n");
  Outcome const outcome =
      shell("chmod +x node && PATH=$PWD:$PATH $KESTREL render out/capture.kcap -o chart.svg");
  EXPECT_EQ(outcome.exit, 3);
  EXPECT_EQ(
      outcome.err,
      "kestrel: Node.js has ended with 1 (SyntaxError: Unexpected token); see that node --version is 18 or "
      "later, and that there is memory for the chart\n");
}

TEST_F(Render, TellsOfANodeThatWritesNothing) {
  makeCapture();
  write("node", "#!/bin/sh\nexit 0\n");
  Outcome const outcome =
      shell("chmod +x node && PATH=$PWD:$PATH $KESTREL render out/capture.kcap -o chart.svg");
  EXPECT_EQ(outcome.exit, 3);
  EXPECT_THAT(outcome.err,
              StartsWith("kestrel: Node.js has ended with 0; see that node --version is 18 or later"));
}

TEST_F(Render, SaysWhereItNeedsAFolder) {
  makeCapture();
  Outcome const outcome = shell("TMPDIR=/nowhere $KESTREL render out/capture.kcap -o chart.svg");
  EXPECT_EQ(outcome.exit, 3);
  EXPECT_EQ(outcome.err, "kestrel: there is no folder for what is on its way; name one in TMPDIR\n");
}

TEST_F(Render, LeavesNothingBehindWhereItIsStopped) {
  makeCapture();
  write("node", "#!/bin/sh\necho $$ >number; exec sleep 30\n");
  Outcome const outcome = shell(
      "chmod +x node && mkdir passing && export TMPDIR=$PWD/passing PATH=$PWD:$PATH; "
      "$KESTREL render out/capture.kcap -o chart.svg & command=$!; "
      "for i in $(seq 100); do [ -s number ] || sleep 0.1; done; kill -TERM $command; wait $command");
  EXPECT_EQ(outcome.exit, 3);
  EXPECT_EQ(outcome.err, "kestrel: stopped; nothing is written\n");
  EXPECT_THAT(filesIn("passing"), IsEmpty());
  EXPECT_NE(shell("kill -0 $(cat number) 2>/dev/null").exit, 0);
}

TEST_F(Render, LeavesNothingElseBehind) {
  makeCapture();
  Outcome const outcome =
      shell("mkdir passing && TMPDIR=$PWD/passing $KESTREL render out/capture.kcap -o chart.svg");
  EXPECT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_THAT(filesIn("passing"), IsEmpty());
}
