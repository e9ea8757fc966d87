#include "host/messages.h"

#include "kestrelhost/recorder.h"

#include <gtest/gtest.h>

using namespace kestrel::host;

namespace {

TEST(BpErrorTest, ShowsTheTextWithItsShowAndLevel) {
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  BpError(BpString("Chart XML Send Error", true), static_cast<BpErrorShow>(2), static_cast<BpErrorLevel>(3));
  std::vector<RecordedMessage> const expected = {{"Chart XML Send Error", true, "", {}, 2, 3}};
  EXPECT_EQ(recorder.userMessages(), expected);
}

TEST(BpErrorTest, OfACompositeShowsTheFilledText) {
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  BpComposite composite("File ^1 has no access...", true);
  composite.Add(BpString("a.map", false));
  composite.Finish();
  BpError(composite, BpShowUser, BpLevelError);
  std::vector<RecordedMessage> const expected = {
      {"File a.map has no access...", true, "File ^1 has no access...", {{"a.map", false}}, 2, 2}};
  EXPECT_EQ(recorder.userMessages(), expected);
}

TEST(BpErrorTest, TakesValuesThatHaveNoName) {
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  BpError(BpString("x", true), static_cast<BpErrorShow>(77), static_cast<BpErrorLevel>(-1));
  EXPECT_EQ(recorder.userMessages().at(0).show, 77);
  EXPECT_EQ(recorder.userMessages().at(0).level, -1);
}

}  // namespace
