// kestrel view: a capture as a page.

#include "cli_fixture.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

using namespace kestrel::test;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class View : public CliTest {
 protected:
  void makeCapture() const { chartOf("a,b\n1,2\n", {"--description", "abc"}); }

  /// What stands in the page between two texts, both of which it must have.
  std::string between(std::string const& page, std::string const& before, std::string const& behind) const {
    std::size_t const at = page.find(before);
    if (at == std::string::npos) return "no " + before;
    std::size_t const begin = at + before.size();
    return page.substr(begin, page.find(behind, begin) - begin);
  }
};

}  // namespace

TEST_F(View, WritesAPageThatHoldsTheCapture) {
  makeCapture();
  Outcome const outcome = kestrel({"view", "out/capture.kcap", "-o", "chart.html"});
  EXPECT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_THAT(outcome.out, AllOf(StartsWith("chart.html: chart, 8 messages, "), HasSubstr(", a page of ")));
  std::string const page = read("chart.html");
  EXPECT_THAT(page, StartsWith("<!doctype html>"));
  write("packed", between(page, "<script type=\"application/octet-stream\" id=\"capture\">", "</script>"));
  shell("base64 -d <packed >unpacked");
  EXPECT_EQ(read("unpacked"), read("out/capture.kcap"));
}

TEST_F(View, AllowsThePageNothingButItself) {
  makeCapture();
  kestrel({"view", "out/capture.kcap", "-o", "chart.html"});
  std::string const page = read("chart.html");
  std::string const policy = between(page, "<meta http-equiv=\"Content-Security-Policy\" content=\"", "\">");
  EXPECT_THAT(policy,
              AllOf(StartsWith("default-src 'none'; script-src 'sha256-"), HasSubstr("style-src 'sha256-"),
                    Not(HasSubstr("unsafe")), Not(HasSubstr("http")), Not(HasSubstr("*"))));
}

TEST_F(View, NamesThePageAfterTheFileWithoutTrustingTheName) {
  makeCapture();
  write("<b>&amp.kcap", read("out/capture.kcap"));
  kestrel({"view", "<b>&amp.kcap", "-o", "chart.html"});
  EXPECT_THAT(read("chart.html"), HasSubstr("<title>&lt;b>&amp;amp.kcap</title>"));
}

TEST_F(View, WritesThePageOfACutCaptureAndSaysWhatIsWrong) {
  makeCapture();
  write("cut.kcap", read("out/capture.kcap").substr(0, 100));
  Outcome const outcome = kestrel({"view", "cut.kcap", "-o", "chart.html"});
  EXPECT_EQ(outcome.exit, 2);
  EXPECT_THAT(outcome.err, HasSubstr("kestrel: cut.kcap: at byte "));
  EXPECT_TRUE(exists("chart.html"));
}

TEST_F(View, RefusesWhatIsNoCapture) {
  write("t.csv", "a,b\n1,2\n");
  Outcome const outcome = kestrel({"view", "t.csv", "-o", "chart.html"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(outcome.err,
            "kestrel: t.csv: is no capture, which starts with KCAP0001; give a capture, such as kestrel "
            "chart writes\n");
  EXPECT_FALSE(exists("chart.html"));
}

TEST_F(View, RefusesWhatNoBrowserCouldHold) {
  makeCapture();
  std::filesystem::resize_file(folder / "out/capture.kcap", 268435457);
  Outcome const outcome = kestrel({"view", "out/capture.kcap", "-o", "chart.html"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(
      outcome.err,
      "kestrel: out/capture.kcap: is too long for a page, which holds up to 268,435,456 bytes; kestrel serve "
      "shows it\n");
}

TEST_F(View, RefusesAnEmptyFile) {
  write("empty.kcap", "");
  Outcome const outcome = kestrel({"view", "empty.kcap", "-o", "chart.html"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(outcome.err, "kestrel: empty.kcap: is empty; give a capture, such as kestrel chart writes\n");
}

TEST_F(View, ReplacesNoFolder) {
  makeCapture();
  Outcome const outcome = kestrel({"view", "out/capture.kcap", "-o", "out"});
  EXPECT_EQ(outcome.exit, 3);
  EXPECT_EQ(outcome.err,
            "kestrel: out: is there already, and is no file that could be replaced; choose another place\n");
}
