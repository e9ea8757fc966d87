#include "host/log.h"

#include "model/chartstring.h"

#include <gtest/gtest.h>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <exception>
#include <memory>
#include <string>

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
  std::string const file = KESTREL_SOURCE_DIR "/CMakePresets.json";
  std::string const text = "<!DOCTYPE a [<!ENTITY e SYSTEM \"" + file + "\">]><a>x&e;y</a>";
  ChartErrorHandler handler;
  xercesc::XercesDOMParser parser;
  parser.setErrorHandler(&handler);
  parser.setEntityResolver(&handler);
  parser.parse(
      xercesc::MemBufInputSource(reinterpret_cast<XMLByte const*>(text.data()), text.size(), "text"));
  EXPECT_TRUE(ChartString(u"xy").equals(parser.getDocument()->getDocumentElement()->getTextContent()));
}

}  // namespace
