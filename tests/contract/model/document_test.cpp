#include "chart.h"
#include "operations.h"

#include <gtest/gtest.h>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr char declaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";

TEST(Document, IsNewWithAnEmptyVisualization) {
  LumoDocument const document;
  EXPECT_EQ(document.AsUTF8(),
            std::string(declaration) + "<visualization xmlns=\"http://xml.vexa.example/visualization\"/>");
}

TEST(Document, ElementsKnowTheirVisualization) {
  LumoDocument document;
  LumoVisualization* const chart = document.getVisualization();
  EXPECT_EQ(chart->getVisualization(), chart);
  EXPECT_EQ(ticksIn(*chart).getVisualization(), chart);
}

TEST(Document, ElementsKnowTheirNode) {
  LumoDocument document;
  xercesc::DOMElement* const root = document.getVisualization()->getImplementation();
  EXPECT_EQ(root, document.getImplementation()->getDocumentElement());
  EXPECT_EQ(utf8(root->getTagName()), "visualization");
}

TEST(Document, NewElementsAreInTheChartNamespaceWithoutAPrefix) {
  LumoDocument document;
  xercesc::DOMElement const& element = *graphIn(*document.getVisualization()).getImplementation();
  EXPECT_EQ(utf8(element.getNamespaceURI()), "http://xml.vexa.example/visualization");
  EXPECT_EQ(utf8(element.getTagName()), "graph");
}

TEST(Document, RefusesNoDom) { EXPECT_THROW(LumoDocument(nullptr), std::invalid_argument); }

TEST(Document, OverParsedTextHasAnObjectOnEveryElement) {
  LumoDocument built;
  describeEverything(*built.getVisualization());
  ParsedChart parsed(built.AsUTF8());
  xercesc::DOMNodeList const& all = *parsed.dom().getElementsByTagName(u"*");
  XMLSize_t const count = all.getLength();
  ASSERT_GT(count, 500U);
  std::vector<xercesc::DOMElement*> elements;
  for (XMLSize_t i = 0; i < count; ++i) elements.push_back(static_cast<xercesc::DOMElement*>(all.item(i)));
  for (xercesc::DOMElement* const element : elements) {
    LumoBaseElement* const object = objectOn(element);
    ASSERT_NE(object, nullptr) << utf8(element->getTagName());
    EXPECT_EQ(object->getImplementation(), element);
  }
}

TEST(Document, OverParsedTextFindsObjectsByTheirToken) {
  ParsedChart parsed(chartText("<graph><coordinates><dimension/></coordinates></graph>"));
  xercesc::DOMElement const& element = *firstOf(parsed.chart(), LumoDimension::getElementName());
  auto* const dimension = static_cast<LumoDimension*>(element.getUserData(LumoUni::_dimension));
  EXPECT_EQ(dimension, parsed.chart().getGraphs().at(0)->getCoordinates(0)->getDimensions().at(0));
}

TEST(Document, TheRootIsTheVisualizationWhateverItsName) {
  ParsedChart parsed("<other version='2.5'><graph/><extension/></other>");
  EXPECT_EQ(parsed.chart().getVersion(), 2.5);
  EXPECT_EQ(parsed.chart().getGraphs().size(), 1U);
  EXPECT_NE(parsed.chart().getExtension(), nullptr);
}

TEST(Document, ChartsWithoutANamespaceStayAsTheyAre) {
  ParsedChart parsed("<visualization><graph id=\"g\"/></visualization>");
  LumoGraph& graph = *parsed.chart().getGraphs().at(0);
  graph.addPoint(u"p");
  EXPECT_EQ(
      parsed.document().AsUTF8(),
      std::string(declaration) + "<visualization><graph id=\"g\"><point id=\"p\"/></graph></visualization>");
}

TEST(Document, ChartsWithAPrefixStayAsTheyAre) {
  std::string const text =
      "<v:visualization xmlns:v=\"http://xml.vexa.example/visualization\"><v:graph/></v:visualization>";
  ParsedChart parsed(text);
  ASSERT_EQ(parsed.chart().getGraphs().size(), 1U);
  parsed.chart().getGraphs().at(0)->addPoint(nullptr);
  EXPECT_NE(parsed.document().AsUTF8().find("<v:graph><v:point/></v:graph>"), std::string::npos);
}

TEST(Document, ElementsOfAnEntityAreReadAndWritten) {
  ParsedChart parsed("<!DOCTYPE v [<!ENTITY e \"<graph id='g'/>text\">]><v>&e;<graph/></v>");
  ASSERT_EQ(parsed.chart().getGraphs().size(), 2U);
  EXPECT_TRUE(parsed.chart().doesIdExist(u"g"));
  EXPECT_EQ(parsed.document().AsUTF8(), std::string(declaration) + "<v><graph id=\"g\"/>text<graph/></v>");
}

TEST(Document, MayEndBeforeItsDom) {
  LumoDocument const holdsTheLibrary;
  auto parser = std::make_unique<xercesc::XercesDOMParser>();
  std::string const text = chartText("<graph id='g'/>");
  parser->parse(
      xercesc::MemBufInputSource(reinterpret_cast<XMLByte const*>(text.data()), text.size(), "chart"));
  { LumoDocument const first(parser->getDocument()); }
  LumoDocument second(parser->getDocument());
  EXPECT_EQ(second.getVisualization()->getGraphs().size(), 1U);
  EXPECT_TRUE(second.getVisualization()->doesIdExist(u"g"));
}

TEST(Document, MayOutliveItsDomForItsOwnEnd) {
  LumoDocument const holdsTheLibrary;
  auto parser = std::make_unique<xercesc::XercesDOMParser>();
  std::string const text = chartText("<graph/>");
  parser->parse(
      xercesc::MemBufInputSource(reinterpret_cast<XMLByte const*>(text.data()), text.size(), "chart"));
  auto document = std::make_unique<LumoDocument>(parser->getDocument());
  parser.reset();
  EXPECT_EQ(document->getImplementation(), nullptr);
  EXPECT_THROW(document->AsUTF8(), std::logic_error);
  document.reset();
}

TEST(Document, SurvivesUnevenTerminationsOfTheXmlLibrary) {
  LumoDocument document;
  for (int i = 0; i < 1000; ++i) xercesc::XMLPlatformUtils::Terminate();
  graphIn(*document.getVisualization());
  LumoDocument const another;
  EXPECT_NE(document.AsUTF8().find("<graph"), std::string::npos);
  EXPECT_NE(another.AsUTF8(), "");
}

TEST(Document, OutlivesElementsOfAnyNameThatTheDomReleases) {
  for (std::string const name : {"graph", "unknown", "lumochart.tree"}) {
    ParsedChart parsed(chartText("<" + name + "/>"));
    xercesc::DOMElement* const root = parsed.dom().getDocumentElement();
    root->removeChild(root->getFirstElementChild())->release();
    graphIn(parsed.chart());
    EXPECT_EQ(childNames(parsed.chart()), std::vector<std::string>{"graph"}) << name;
    EXPECT_NE(parsed.document().AsUTF8().find("<graph"), std::string::npos) << name;
  }
}

TEST(Document, ManyComeAndGo) {
  for (int i = 0; i < 1000; ++i) {
    LumoDocument document;
    graphIn(*document.getVisualization());
    ASSERT_EQ(document.getVisualization()->getGraphs().size(), 1U);
  }
}

TEST(Document, BuiltTextParsesToTheSameDom) {
  LumoDocument built;
  describeEverything(*built.getVisualization());
  ParsedChart parsed(built.AsUTF8());
  EXPECT_EQ(outline(*parsed.dom().getDocumentElement()),
            outline(*built.getImplementation()->getDocumentElement()));
}

TEST(Document, ParsedTextIsWrittenAsItWas) {
  LumoDocument built;
  describeEverything(*built.getVisualization());
  std::string const text = built.AsUTF8();
  ParsedChart parsed(text);
  EXPECT_EQ(parsed.document().AsUTF8(), text);
}

class Imported : public testing::Test {
 protected:
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
};

TEST_F(Imported, ElementsOfAnyDomGetObjectsAndJoinTheNamespace) {
  ParsedChart source("<style id='s'><style id='inner'><!--kept-->text<![CDATA[<]]></style></style>");
  LumoBaseElement* const copy = document.importElement(*source.dom().getDocumentElement(), chart);
  ASSERT_EQ(chart.getStyles().size(), 1U);
  EXPECT_EQ(copy, chart.getStyles().front());
  EXPECT_EQ(chart.getStyles().front()->getStyles().at(0), chart.getStyleById(u"inner"));
  EXPECT_EQ(copy->AsUTF8(),
            "<style xmlns=\"http://xml.vexa.example/visualization\" id=\"s\">"
            "<style id=\"inner\"><!--kept-->text<![CDATA[<]]></style></style>");
}

TEST_F(Imported, NestedElementsKeepTheirOrder) {
  ParsedChart source("<graph><a><b/><c><d/></c></a><e/>t<f><g/></f></graph>");
  LumoBaseElement* const copy = document.importElement(*source.dom().getDocumentElement(), chart);
  EXPECT_NE(copy->AsUTF8().find("<a><b/><c><d/></c></a><e/>t<f><g/></f>"), std::string::npos)
      << copy->AsUTF8();
}

TEST_F(Imported, ElementsOfOtherNamespacesKeepTheirs) {
  ParsedChart source("<graph xmlns='u:a' xmlns:b='u:b'><b:other b:c='1'/></graph>");
  LumoBaseElement* const copy = document.importElement(*source.dom().getDocumentElement(), chart);
  EXPECT_NE(copy->AsUTF8().find("xmlns:b=\"u:b\""), std::string::npos) << copy->AsUTF8();
  EXPECT_NE(copy->AsUTF8().find("<b:other b:c=\"1\"/>"), std::string::npos) << copy->AsUTF8();
  ParsedChart again(document.AsUTF8());
  EXPECT_EQ(utf8(firstOf(again.chart(), u"b:other")->getNamespaceURI()), "u:b");
}

TEST_F(Imported, TheParentMustBeOfTheDocument) {
  LumoDocument other;
  EXPECT_THROW(document.importElement(*chart.getImplementation(), *other.getVisualization()),
               std::invalid_argument);
}

TEST_F(Imported, CopiesMadeByTheDomHaveObjectsOfTheirOwn) {
  LumoPoint& point = pointIn(chart);
  point.addX()->setVariable(variableIn(chart));
  xercesc::DOMNode* const copy = point.getImplementation()->cloneNode(true);
  auto* const object = objectOn(static_cast<xercesc::DOMElement*>(copy));
  ASSERT_NE(object, nullptr);
  EXPECT_NE(object, &point);
  EXPECT_EQ(chart.getGraphs().front()->getPoints().size(), 1U);
  chart.getGraphs().front()->getImplementation()->appendChild(copy);
  ASSERT_EQ(chart.getGraphs().front()->getPoints().size(), 2U);
  EXPECT_EQ(chart.getGraphs().front()->getPoints().back(), object);
  EXPECT_NE(chart.getGraphs().front()->getPoints().back()->getX()->getVariable(), nullptr);
}

TEST_F(Imported, ADetachedCopyIsNotFoundByItsId) {
  LumoStyle& style = styleIn(chart, u"s");
  style.getImplementation()->cloneNode(true);
  EXPECT_EQ(document.getImplementation()->getElementById(u"s"), style.getImplementation());
  style.setId(u"t");
  EXPECT_FALSE(chart.doesIdExist(u"s"));
  EXPECT_EQ(document.getImplementation()->getElementById(u"s"), nullptr);
}

TEST_F(Imported, NodesOfAnotherChartHaveObjectsOfThisOne) {
  LumoDocument other;
  LumoStyle& foreign = styleIn(*other.getVisualization(), u"foreign");
  foreign.addStyle()->setId(u"inner");
  xercesc::DOMNode* const copy = document.getImplementation()->importNode(foreign.getImplementation(), true);
  chart.getImplementation()->appendChild(copy);
  ASSERT_EQ(chart.getStyles().size(), 1U);
  EXPECT_EQ(chart.getStyles().front()->getVisualization(), &chart);
  EXPECT_TRUE(chart.doesIdExist(u"inner"));
}

TEST_F(Imported, ElementsMadePastTheModelGetObjectsWhenTheyAreMet) {
  xercesc::DOMDocument& dom = *document.getImplementation();
  xercesc::DOMElement* const style = dom.createElementNS(u"http://xml.vexa.example/visualization", u"style");
  style->setAttribute(u"id", u"s");
  chart.getImplementation()->appendChild(style);
  ASSERT_EQ(chart.getStyles().size(), 1U);
  EXPECT_EQ(objectOn(style), chart.getStyles().front());
  EXPECT_EQ(chart.getStyleById(u"s"), chart.getStyles().front());
}

TEST_F(Imported, FindGivesTheObjectOfAnElement) {
  LumoStyle& style = styleIn(chart);
  EXPECT_EQ(document.find(style.getImplementation()), &style);
  EXPECT_EQ(document.find(nullptr), nullptr);
  LumoDocument other;
  EXPECT_EQ(document.find(other.getVisualization()->getImplementation()), nullptr);
  xercesc::DOMElement* const unmet = document.getImplementation()->createElementNS(nullptr, u"graph");
  chart.getImplementation()->appendChild(unmet);
  EXPECT_NE(dynamic_cast<LumoGraph*>(document.find(unmet)), nullptr);
}

class Standalone : public testing::Test {
 protected:
  LumoDocument const holdsTheLibrary;
  std::unique_ptr<xercesc::XercesDOMParser> parser = std::make_unique<xercesc::XercesDOMParser>();

  xercesc::DOMElement& parse(std::string const& text) {
    parser->setDoNamespaces(true);
    parser->parse(
        xercesc::MemBufInputSource(reinterpret_cast<XMLByte const*>(text.data()), text.size(), "text"));
    return *parser->getDocument()->getDocumentElement();
  }
};

TEST_F(Standalone, FormatWorksOnAnElementThatNoChartOwns) {
  xercesc::DOMElement& element = parse("<lumoml:format xmlns:lumoml=\"u:lumoml\"/>");
  {
    LumoFormat format(&element);
    format.setErrorCharacter(u"*");
    format.setMinimumFractionDigits(2);
    EXPECT_TRUE(format.isMinimumFractionDigitsPresent());
    EXPECT_EQ(format.getVisualization(), nullptr);
    EXPECT_FALSE(format.doesIdExist(u"x"));
    format.setId(u"f");
    EXPECT_EQ(utf8(format.getId()), "f");
    EXPECT_EQ(format.AsUTF8(),
              "<lumoml:format errorCharacter=\"*\" id=\"f\" minimumFractionDigits=\"2\" "
              "xmlns:lumoml=\"u:lumoml\"/>");
  }
  EXPECT_EQ(utf8(element.getAttribute(u"errorCharacter")), "*");
}

TEST_F(Standalone, FormatOwnsTheObjectsOfItsRelabels) {
  xercesc::DOMElement& element =
      parse("<f:format xmlns:f=\"u:f\"><f:relabel from=\"0\" to=\"zero\"/></f:format>");
  {
    LumoFormat format(&element);
    LumoRelabel* const added = format.addRelabel(u"1", u"one");
    ASSERT_EQ(format.getRelabels().size(), 2U);
    EXPECT_EQ(utf8(format.getRelabels().front()->getTo()), "zero");
    EXPECT_EQ(format.getRelabels().back(), added);
    EXPECT_EQ(format.getRelabels(), format.getRelabels());
    format.removeRelabels();
    EXPECT_TRUE(format.getRelabels().empty());
    format.addRelabel(u"2", u"two");
  }
  EXPECT_EQ(utf8(element.getFirstElementChild()->getTagName()), "f:relabel");
  EXPECT_EQ(element.getFirstElementChild()->getUserData(u"relabel"), nullptr);
}

TEST_F(Standalone, FormatRefusesNoElement) { EXPECT_THROW(LumoFormat(nullptr), std::invalid_argument); }

TEST_F(Standalone, FormatOverAnElementOfAChartIsASecondHandle) {
  LumoDocument document;
  LumoFormat& own = formatIn(*document.getVisualization());
  {
    LumoFormat handle(own.getImplementation());
    handle.setSuffix(u"%");
    handle.addRelabel(u"1", u"one");
    handle.setId(u"format");
  }
  EXPECT_EQ(utf8(own.getSuffix()), "%");
  EXPECT_EQ(own.getRelabels().size(), 1U);
  EXPECT_TRUE(document.getVisualization()->doesIdExist(u"format"));
  EXPECT_EQ(objectOn(own.getImplementation()), &own);
}

TEST_F(Standalone, AHandleMayOutliveItsChart) {
  auto document = std::make_unique<LumoDocument>();
  LumoFormat const handle(formatIn(*document->getVisualization()).getImplementation());
  document.reset();
  EXPECT_NE(handle.getImplementation(), nullptr);
}

TEST_F(Standalone, AStandaloneFormatIsCopiedIntoAChart) {
  xercesc::DOMElement& element = parse("<f:format xmlns:f=\"u:f\" suffix=\"%\"/>");
  LumoFormat format(&element);
  format.addRelabel(u"1", u"one");
  LumoDocument document;
  LumoFormat* const copy = variableIn(*document.getVisualization()).addFormat(format);
  EXPECT_EQ(copy->getRelabels().size(), 1U);
  EXPECT_EQ(utf8(copy->getImplementation()->getTagName()), "format");
}

}  // namespace
