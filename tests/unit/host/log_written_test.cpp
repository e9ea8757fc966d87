#include "host/log.h"

#include "temporary_folder.h"

#include "kestrelhost/recorder.h"
#include "model/chartstring.h"

#include <gtest/gtest.h>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/IllegalArgumentException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <string>
#include <vector>

using namespace kestrel::host;

namespace {

class LoggingErrorHandlerTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { xercesc::XMLPlatformUtils::Initialize(); }
};

TEST_F(LoggingErrorHandlerTest, WritesAChartExceptionToTheLogAndReturns) {
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  ChartErrorHandler().error(ChartException("Failed to set chart name", "xdocument.cpp", 7));
  std::vector<std::string> const expected = {
      "ChartErrorHandler::error(message=\"Failed to set chart name\", file=\"xdocument.cpp\", line=7)"};
  EXPECT_EQ(recorder.lines(), expected);
}

TEST_F(LoggingErrorHandlerTest, WritesAnXmlExceptionToTheLogAndReturns) {
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  xercesc::IllegalArgumentException const failure("parser.cpp", 12, xercesc::XMLExcepts::Array_BadIndex);
  ChartErrorHandler().error(failure);
  ASSERT_EQ(recorder.entries().size(), 1u);
  Entry const& entry = recorder.entries()[0];
  EXPECT_EQ(entry.text("message"), ChartString(failure.getMessage()).toUTF8());
  EXPECT_EQ(entry.text("file"), "parser.cpp");
  EXPECT_EQ(entry.number("line"), 12);
}

TEST_F(LoggingErrorHandlerTest, StillTakesTheErrorsOfAParser) {
  xercesc::SAXParseException const problem(u"recoverable", nullptr, nullptr, 1, 1);
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  EXPECT_NO_THROW(ChartErrorHandler().error(problem));
}

TEST(StandardLogTest, WritesFailuresToStandardErrorWithTheirPlace) {
  testing::internal::CaptureStderr();
  StandardLog().error("Failed to send chart.", "xdocument.cpp", 9);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "kestrel: error: Failed to send chart. (xdocument.cpp:9)\n");
}

TEST(StandardLogTest, LeavesAnUnknownPlaceOut) {
  testing::internal::CaptureStderr();
  StandardLog().error("Failed.", "", 0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "kestrel: error: Failed.\n");
}

TEST(StandardLogTest, LetsNoTextSteerTheTerminal) {
  testing::internal::CaptureStderr();
  StandardMessages().show(BpString("a\x1b[31mb\tc\nd", false), BpShowUser, BpLevelError);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "kestrel: warning: a?[31mb\tc\nd\n");
}

TEST(StandardLogTest, TakesATextWithBracesAsItIs) {
  testing::internal::CaptureStderr();
  StandardLog().note("{} {0} %v");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "kestrel: info: {} {0} %v\n");
}

TEST(StandardMessagesTest, MarkAGraveMessage) {
  testing::internal::CaptureStderr();
  StandardMessages().show(BpString("no template", false), BpShowUser, BpLevelSevere);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "kestrel: critical: no template\n");
}

TEST(StandardTraceTest, IsOffByDefault) {
  ScopedVariable const variable("KESTREL_TRACE", nullptr);
  testing::internal::CaptureStderr();
  StandardTrace().line("Starting Chart Creation");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(StandardTraceTest, IsOnWhereTheEnvironmentSaysSo) {
  ScopedVariable const variable("KESTREL_TRACE", "1");
  testing::internal::CaptureStderr();
  StandardTrace().line("Starting Chart Creation");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "kestrel: trace: Starting Chart Creation\n");
}

}  // namespace
