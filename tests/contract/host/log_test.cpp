#include "host/log.h"

#include "temporary_folder.h"

#include "kestrelhost/recorder.h"
#include "model/chartstring.h"

#include <gtest/gtest.h>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/IllegalArgumentException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <memory>

using namespace kestrel::host;

namespace {

class ErrorHandlerTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { xercesc::XMLPlatformUtils::Initialize(); }
};

TEST(ChartExceptionTest, KeepsMessageFileAndLine) {
  ChartException const failure("Failed to send chart.", "xdocument", 42);
  EXPECT_EQ(failure.message(), "Failed to send chart.");
  EXPECT_EQ(failure.file(), "xdocument");
  EXPECT_EQ(failure.line(), 42u);
  EXPECT_STREQ(failure.what(), "Failed to send chart.");
}

TEST(ChartExceptionTest, IsEmptyByDefault) {
  EXPECT_EQ(ChartException().message(), "");
  EXPECT_EQ(ChartException().line(), 0u);
}

TEST(ChartExceptionTest, IsCopiedAndAssigned) {
  ChartException const failure("a", "b", 1);
  ChartException assigned;
  assigned = failure;
  EXPECT_EQ(ChartException(failure).message(), "a");
  EXPECT_EQ(assigned.message(), "a");
  EXPECT_EQ(assigned.file(), "b");
}

TEST(ChartExceptionTest, IsAStandardException) {
  EXPECT_THROW(throw ChartException("a", "b", 1), std::exception);
}

TEST_F(ErrorHandlerTest, WritesAChartExceptionToTheLogAndReturns) {
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  ChartErrorHandler().error(ChartException("Failed to set chart name", "xdocument.cpp", 7));
  std::vector<std::string> const expected = {
      "ChartErrorHandler::error(message=\"Failed to set chart name\", file=\"xdocument.cpp\", line=7)"};
  EXPECT_EQ(recorder.lines(), expected);
}

TEST_F(ErrorHandlerTest, WritesAnXmlExceptionToTheLogAndReturns) {
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

TEST_F(ErrorHandlerTest, StillTakesTheErrorsOfAParser) {
  xercesc::SAXParseException const problem(u"recoverable", nullptr, nullptr, 1, 1);
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  EXPECT_NO_THROW(ChartErrorHandler().error(problem));
}

TEST_F(ErrorHandlerTest, ThrowsAFatalErrorOfAParser) {
  try {
    ChartErrorHandler().fatalError(xercesc::SAXParseException(u"broken", nullptr, nullptr, 3, 4));
    FAIL() << "returned";
  } catch (xercesc::SAXParseException const& failure) {
    EXPECT_TRUE(ChartString(u"broken").equals(failure.getMessage()));
    EXPECT_EQ(failure.getLineNumber(), 3u);
  }
}

TEST_F(ErrorHandlerTest, GivesAnEmptyInputForEveryEntity) {
  ChartErrorHandler handler;
  std::unique_ptr<xercesc::InputSource> const input(
      handler.resolveEntity(u"public", u"file:///etc/hostname"));
  ASSERT_NE(input, nullptr);
  std::unique_ptr<xercesc::BinInputStream> const stream(input->makeStream());
  XMLByte byte = 0;
  EXPECT_EQ(stream->readBytes(&byte, 1), 0u);
}

TEST_F(ErrorHandlerTest, KeepsAParserFromReadingFiles) {
  TemporaryFolder const folder;
  std::string const secret = folder.write("secret.txt", "secret");
  std::string const text = "<!DOCTYPE a [<!ENTITY e SYSTEM \"" + secret + "\">]><a>x&e;y</a>";
  ChartErrorHandler handler;
  xercesc::XercesDOMParser parser;
  parser.setErrorHandler(&handler);
  parser.setEntityResolver(&handler);
  parser.parse(
      xercesc::MemBufInputSource(reinterpret_cast<XMLByte const*>(text.data()), text.size(), "text"));
  EXPECT_TRUE(ChartString(u"xy").equals(parser.getDocument()->getDocumentElement()->getTextContent()));
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
