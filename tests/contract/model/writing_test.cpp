#include "chart.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr char declaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";

class Writing : public testing::Test {
 protected:
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
  xercesc::DOMDocument& dom = *document.getImplementation();
  LumoText& text = *labelIn(chart).addText();

  /// What stands between the tags of the text element.
  std::string written() {
    std::string const all = text.AsUTF8();
    std::size_t const begin = all.find('>') + 1;
    return all.ends_with("/>") ? "" : all.substr(begin, all.rfind("</") - begin);
  }

  /// The text of the first text element after writing and parsing.
  std::string readBack() {
    ParsedChart parsed(document.AsUTF8());
    return utf8(parsed.chart().getLabelFrames().at(0)->getLabel()->getTexts().at(0)->getText());
  }

  void append(xercesc::DOMNode* node) { text.getImplementation()->appendChild(node); }
};

TEST_F(Writing, MarkupInTextIsEscaped) {
  text.setText(u"a<b>&\"'");
  EXPECT_EQ(written(), "a&lt;b&gt;&amp;\"'");
}

TEST_F(Writing, MarkupInAttributesIsEscaped) {
  text.setId(u"a<b>&\"'");
  EXPECT_NE(text.AsUTF8().find(" id=\"a&lt;b>&amp;&quot;'\""), std::string::npos) << text.AsUTF8();
}

TEST_F(Writing, WhiteSpaceInAttributesSurvives) {
  text.setId(u" a\tb\nc\rd ");
  EXPECT_NE(text.AsUTF8().find("\" a&#x9;b&#xA;c&#xD;d \""), std::string::npos);
  ParsedChart parsed(document.AsUTF8());
  EXPECT_EQ(utf8(firstOf(parsed.chart(), u"text")->getAttribute(u"id")), " a\tb\nc\rd ");
}

TEST_F(Writing, LineEndsInTextSurvive) {
  text.setText(u"a\r\nb\rc\nd");
  EXPECT_EQ(written(), "a&#xD;\nb&#xD;c\nd");
  EXPECT_EQ(readBack(), "a\r\nb\rc\nd");
}

TEST_F(Writing, TheEndOfACdataSectionInTextIsHarmless) {
  text.setText(u"a]]>b");
  EXPECT_EQ(readBack(), "a]]>b");
}

TEST_F(Writing, CharactersOfEveryLengthAreUtf8) {
  text.setText(u"A\u00E4\u20AC\U0001F600\uE000\uFFFD");
  EXPECT_EQ(written(), "A\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xEE\x80\x80\xEF\xBF\xBD");
  EXPECT_EQ(readBack(), written());
}

TEST_F(Writing, CharactersThatXmlCannotHoldAreDropped) {
  char16_t const illegal[] = {u'a', 1, 0x1F, 0xB, 0xC, 0xFFFE, 0xFFFF, u'b', 0};
  text.setText(illegal);
  text.setId(illegal);
  EXPECT_EQ(readBack(), "ab");
  ParsedChart parsed(document.AsUTF8());
  EXPECT_EQ(utf8(firstOf(parsed.chart(), u"text")->getAttribute(u"id")), "ab");
}

TEST_F(Writing, HalvesOfSurrogatePairsAreDropped) {
  char16_t const halves[] = {0xDC00, u'a', 0xD83D, u'b', 0xD83D, 0xD83D, 0xDE00, 0xD800, 0};
  text.setText(halves);
  EXPECT_EQ(readBack(), "ab\xF0\x9F\x98\x80");
}

TEST_F(Writing, SurrogatePairsSurviveAnywhereInALongText) {
  for (std::size_t const before : {4094U, 4095U, 4096U, 8191U}) {
    std::u16string const longText = std::u16string(before, u'x') + u"\U0001F600" + std::u16string(10, u'y');
    text.setText(longText.c_str());
    EXPECT_EQ(readBack(), std::string(before, 'x') + "\xF0\x9F\x98\x80" + std::string(10, 'y')) << before;
  }
}

TEST_F(Writing, AMegabyteOfMarkupCharactersSurvives) {
  std::u16string const all(1'000'000, u'<');
  text.setText(all.c_str());
  EXPECT_EQ(readBack(), std::string(1'000'000, '<'));
}

TEST_F(Writing, CommentsAreKept) {
  append(dom.createComment(u" a comment "));
  EXPECT_EQ(written(), "<!-- a comment -->");
}

TEST_F(Writing, NoCommentEndsEarly) {
  char16_t const hidden[] = {u'-', 1, u'-', u'>', 0};
  for (char16_t const* const comment :
       {u"a--b", u"--", u"-", u"a-", u"-->", u"---", static_cast<char16_t const*>(hidden)}) {
    text.setComment(comment);
    ParsedChart parsed(document.AsUTF8());
    xercesc::DOMNodeList const& content = *firstOf(parsed.chart(), u"text")->getChildNodes();
    ASSERT_EQ(content.getLength(), 1U) << written();
    EXPECT_EQ(content.item(0)->getNodeType(), xercesc::DOMNode::COMMENT_NODE) << written();
  }
}

TEST_F(Writing, ProcessingInstructionsAreKept) {
  append(dom.createProcessingInstruction(u"target", u"some data"));
  append(dom.createProcessingInstruction(u"bare", u""));
  EXPECT_EQ(written(), "<?target some data?><?bare?>");
}

TEST_F(Writing, NoProcessingInstructionEndsEarly) {
  append(dom.createProcessingInstruction(u"target", u"a?>b"));
  ParsedChart parsed(document.AsUTF8());
  EXPECT_EQ(firstOf(parsed.chart(), u"text")->getChildNodes()->getLength(), 1U) << written();
}

TEST_F(Writing, CdataSectionsAreKept) {
  append(dom.createCDATASection(u"a < b & c"));
  EXPECT_EQ(written(), "<![CDATA[a < b & c]]>");
}

TEST_F(Writing, NoCdataSectionEndsEarly) {
  char16_t const hidden[] = {u']', 1, u']', u'>', 0};
  for (char16_t const* const content : {u"a]]>b", u"]]>", u"]]>]]>", static_cast<char16_t const*>(hidden)}) {
    text.setText(nullptr);
    append(dom.createCDATASection(content));
    std::string expected = utf8(content);
    std::erase(expected, '\1');
    EXPECT_EQ(readBack(), expected) << written();
  }
}

TEST_F(Writing, CarriageReturnsInCdataSectionsSurvive) {
  append(dom.createCDATASection(u"a\rb\r\n"));
  EXPECT_EQ(readBack(), "a\rb\r\n");
}

TEST_F(Writing, EmptyElementsHaveOneTag) {
  text.setText(u"");
  EXPECT_TRUE(text.AsUTF8().ends_with("/>")) << text.AsUTF8();
}

TEST_F(Writing, AttributesComeInOneOrder) {
  LumoStyle& style = styleIn(chart, u"s");
  style.setVisible(true);
  style.setColor(u"red");
  LumoStyle& other = *chart.addStyle();
  other.setColor(u"red");
  other.setVisible(true);
  other.setId(u"s");
  EXPECT_EQ(style.AsUTF8(), other.AsUTF8());
}

TEST_F(Writing, AnElementDeclaresTheNamespaceItNeeds) {
  LumoStyle const& style = styleIn(chart, u"s");
  EXPECT_EQ(style.AsUTF8(), "<style xmlns=\"http://xml.vexa.example/visualization\" id=\"s\"/>");
}

TEST_F(Writing, AnElementIsWrittenByTheMostDerivedOperation) {
  LumoStyle const& style = styleIn(chart, u"s");
  LumoBaseElement const& base = style;
  EXPECT_EQ(base.AsUTF8(), style.AsUTF8());
}

TEST_F(Writing, NodesOutsideTheRootAreKept) {
  ParsedChart parsed("<!--before--><?pi x?><visualization/><!--after-->");
  EXPECT_EQ(parsed.document().AsUTF8(),
            std::string(declaration) + "<!--before--><?pi x?><visualization/><!--after-->");
}

TEST_F(Writing, WhiteSpaceBetweenElementsIsKept) {
  std::string const body = "<visualization>\n  <graph/>\n</visualization>";
  ParsedChart parsed(body);
  EXPECT_EQ(parsed.document().AsUTF8(), declaration + body);
}

TEST_F(Writing, ForeignNamespacesAreKept) {
  std::string const body =
      "<visualization xmlns:x=\"u:x\"><x:part x:a=\"1\" b=\"2\"><inner/></x:part><p xmlns=\"u:y\"><q "
      "xmlns=\"\"/></p></visualization>";
  ParsedChart parsed(body);
  ParsedChart again(parsed.document().AsUTF8());
  EXPECT_EQ(outline(again.dom()), outline(parsed.dom()));
}

TEST_F(Writing, APrefixStaysDeclaredWhenAnElementLeavesItsDeclaration) {
  ParsedChart parsed(
      "<visualization><container xmlns:x=\"u:x\"><graph x:a=\"1\" "
      "x:b=\"2\"><x:part/></graph></container></visualization>");
  parsed.chart().reparentContainerChildren();
  ParsedChart again(parsed.document().AsUTF8());
  xercesc::DOMElement const& graph = *again.chart().getGraphs().at(0)->getImplementation();
  EXPECT_EQ(utf8(graph.getAttributeNS(u"u:x", u"a")), "1");
  EXPECT_EQ(utf8(graph.getAttributeNS(u"u:x", u"b")), "2");
  EXPECT_EQ(utf8(graph.getFirstElementChild()->getNamespaceURI()), "u:x");
}

TEST_F(Writing, AnElementKeepsItsNamespaceAgainstAFalseDeclaration) {
  chart.getImplementation()->setAttribute(u"xmlns", u"u:other");
  ParsedChart parsed(document.AsUTF8());
  EXPECT_EQ(utf8(parsed.chart().getImplementation()->getNamespaceURI()),
            "http://xml.vexa.example/visualization");
}

TEST_F(Writing, AnElementWithoutANamespaceStaysWithoutOne) {
  xercesc::DOMElement* const bare = dom.createElementNS(nullptr, u"bare");
  chart.getImplementation()->appendChild(bare);
  ParsedChart parsed(document.AsUTF8());
  EXPECT_EQ(firstOf(parsed.chart(), u"bare")->getNamespaceURI(), nullptr);
}

class Comments : public Writing {
 protected:
  std::string head() { return utf8(chart.getImplementation()->getFirstChild()->getNodeValue()); }
};

TEST_F(Comments, StandAtTheHead) {
  chart.setComment(u"made today");
  EXPECT_EQ(head(), "made today");
  EXPECT_NE(document.AsUTF8().find("visualization\"><!--made today--><"), std::string::npos);
}

TEST_F(Comments, AreReplaced) {
  chart.setComment(u"first");
  chart.setComment(u"second");
  EXPECT_EQ(head(), "second");
  EXPECT_EQ(chart.getImplementation()->getFirstChild()->getNextSibling()->getNodeType(),
            xercesc::DOMNode::ELEMENT_NODE);
}

TEST_F(Comments, AreTakenAwayByNullOrAnEmptyText) {
  for (char16_t const* const none : {static_cast<char16_t const*>(nullptr), u""}) {
    chart.setComment(u"first");
    chart.setComment(none);
    EXPECT_EQ(document.AsUTF8().find("<!--"), std::string::npos);
    chart.setComment(none);
    EXPECT_EQ(childNames(chart).size(), 1U);
  }
}

TEST_F(Comments, ElsewhereAreLeftAlone) {
  ParsedChart parsed("<visualization><graph/><!--elsewhere--></visualization>");
  parsed.chart().setComment(u"head");
  EXPECT_NE(parsed.document().AsUTF8().find("<!--head--><graph/><!--elsewhere-->"), std::string::npos);
}

TEST_F(Comments, GoOnAnyElement) {
  text.setComment(u"about the text");
  EXPECT_EQ(written(), "<!--about the text-->");
}

}  // namespace
