// The hold of the model on the XML library, in processes that have no document of it yet.

#include "chart.h"

#include <gtest/gtest.h>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <string>

namespace {

/// The tag of the root element, by a parser that nobody has prepared anything for.
std::string parsedRoot(std::string const& text) {
  xercesc::MemBufInputSource const source(reinterpret_cast<XMLByte const*>(text.data()), text.size(), "text");
  xercesc::XercesDOMParser parser;
  parser.parse(source);
  return utf8(parser.getDocument()->getDocumentElement()->getTagName());
}

TEST(XmlLibrary, IsReadyOnceItIsHeld) {
  LumoDocument::holdXmlLibrary();
  EXPECT_EQ(parsedRoot("<a/>"), "a");
}

TEST(XmlLibrary, StaysReadyHoweverOftenOthersEndIt) {
  LumoDocument::holdXmlLibrary();
  for (int i = 0; i < 1000; ++i) xercesc::XMLPlatformUtils::Terminate();
  EXPECT_EQ(parsedRoot("<a/>"), "a");
}

TEST(XmlLibrary, IsHeldByADocumentToo) {
  LumoDocument const document;
  xercesc::XMLPlatformUtils::Terminate();
  EXPECT_EQ(parsedRoot("<a/>"), "a");
}

TEST(XmlLibrary, MayBeHeldAgain) {
  LumoDocument::holdXmlLibrary();
  LumoDocument::holdXmlLibrary();
  xercesc::XMLPlatformUtils::Terminate();
  EXPECT_EQ(parsedRoot("<a/>"), "a");
}

}  // namespace
