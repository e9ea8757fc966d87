#include "inspect/xml_lines.h"

#include <gmock/gmock.h>

using kestrel::tool::xmlLines;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST(XmlLines, HaveEachTagOnALineOfItsOwn) {
  EXPECT_THAT(
      xmlLines("<?xml version=\"1.0\"?><a x=\"1\"><b/><c><d/></c></a>"),
      ElementsAre("<?xml version=\"1.0\"?>", "<a x=\"1\">", "  <b/>", "  <c>", "    <d/>", "  </c>", "</a>"));
}

TEST(XmlLines, KeepATextWithItsElement) {
  EXPECT_THAT(xmlLines("<a><text>Flipper &amp; length</text><text/></a>"),
              ElementsAre("<a>", "  <text>Flipper &amp; length</text>", "  <text/>", "</a>"));
}

TEST(XmlLines, GiveATextBetweenTagsALine) {
  EXPECT_THAT(xmlLines("<a>one<b/>two</a>"), ElementsAre("<a>one", "  <b/>", "  two", "</a>"));
}

TEST(XmlLines, AreTheSameWithAndWithoutWhiteSpaceBetweenTags) {
  EXPECT_EQ(xmlLines("<a>\n  <b> x </b>\n\t<c/>\r\n</a>\n"), xmlLines("<a><b> x </b><c/></a>"));
}

TEST(XmlLines, KeepTheLineEndsOfATextVisible) {
  EXPECT_THAT(xmlLines("<a>one\ntwo</a>"), ElementsAre("<a>one\\ntwo</a>"));
}

TEST(XmlLines, DoNotEndATagWithinAValue) {
  EXPECT_THAT(xmlLines("<a when=\"x > 1\" then='\"/>'><b/></a>"),
              ElementsAre("<a when=\"x > 1\" then='\"/>'>", "  <b/>", "</a>"));
}

TEST(XmlLines, KeepCommentsAndSectionsWhole) {
  EXPECT_THAT(xmlLines("<a><!-- <b> --><![CDATA[</a>]]></a>"),
              ElementsAre("<a>", "  <!-- <b> -->", "  <![CDATA[</a>]]>", "</a>"));
}

TEST(XmlLines, TakeWhatIsNotWellFormed) {
  EXPECT_THAT(xmlLines("</a></b><c d=\"x"), ElementsAre("</a>", "</b>", "<c d=\"x"));
  EXPECT_THAT(xmlLines("<!-- x"), ElementsAre("<!-- x"));
  EXPECT_THAT(xmlLines("no markup"), ElementsAre("no markup"));
  EXPECT_THAT(xmlLines(""), IsEmpty());
}

}  // namespace
