// The XML library in a process whose host uses it too.

#include "chart_test.h"
#include "xdocument.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <string>

namespace kestrel::test {
namespace {

/// The tag of the root element.
std::string parsedRoot(std::string const& text) {
  xercesc::MemBufInputSource const source(reinterpret_cast<XMLByte const*>(text.data()), text.size(), "text");
  xercesc::XercesDOMParser parser;
  parser.parse(source);
  return utf8(parser.getDocument()->getDocumentElement()->getTagName());
}

using SharedXMLLibrary = ChartTest;

TEST_F(SharedXMLLibrary, IsStillThereForAHostThatStartedItBehindADocumentThatOnlyEndedIt) {
  xercesc::XMLPlatformUtils::Initialize();
  // Without a text the document ends the library without having started it.
  { XDocument const empty{std::string()}; }
  EXPECT_EQ(parsedRoot("<theirs/>"), "theirs");
}

}  // namespace
}  // namespace kestrel::test
