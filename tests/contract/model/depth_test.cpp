#include "chart.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// As deep as a parser lets a text through.
constexpr int parsedDepth = 900;
/// Far deeper than a stack would bear.
constexpr int builtDepth = 20'000;
constexpr unsigned int width = 100'000;

TEST(Depth, OfATextIsReadAndWrittenBack) {
  std::string body;
  for (int i = 0; i < parsedDepth; ++i) body += "<style id=\"s" + std::to_string(i) + "\">";
  body.insert(body.size() - 1, "/");
  for (int i = 1; i < parsedDepth; ++i) body += "</style>";
  ParsedChart parsed(chartText(body));
  EXPECT_NE(parsed.chart().getStyleById(u"s899"), nullptr);
  EXPECT_NE(parsed.document().AsUTF8().find(body), std::string::npos);
}

TEST(Depth, OfABuiltChartIsOnlyAMatterOfMemory) {
  LumoDocument document;
  LumoStyle* style = document.getVisualization()->addStyle();
  for (int i = 1; i < builtDepth; ++i) style = style->addStyle();
  style->setId(u"deepest");
  EXPECT_EQ(document.getVisualization()->getStyleById(u"deepest"), style);
  EXPECT_TRUE(document.AsUTF8().ends_with("</style></visualization>"));
}

TEST(Depth, OfACopyIsOnlyAMatterOfMemory) {
  LumoDocument source;
  LumoStyle* style = source.getVisualization()->addStyle();
  for (int i = 1; i < builtDepth; ++i) style = style->addStyle();
  LumoDocument document;
  LumoBaseElement& copy = *document.importElement(
      *source.getVisualization()->getImplementation()->getFirstElementChild(), *document.getVisualization());
  EXPECT_EQ(copy.AsUTF8(), source.getVisualization()->getStyles().front()->AsUTF8());
}

TEST(Depth, OfARemovedElementIsOnlyAMatterOfMemory) {
  LumoDocument document;
  LumoLabelFrame& frame = *document.getVisualization()->addLabelFrame(u"frame");
  frame.addLocation(LumoLocation::PartLeft);
  xercesc::DOMElement* element = frame.getLocations().front()->getImplementation();
  for (int i = 0; i < builtDepth; ++i) {
    xercesc::DOMElement* const child = document.getImplementation()->createElementNS(nullptr, u"deep");
    element->appendChild(child);
    element = child;
  }
  element->setAttribute(u"id", u"deepest");
  ASSERT_NE(document.find(element), nullptr);
  ASSERT_TRUE(document.getVisualization()->doesIdExist(u"deepest"));
  frame.removeLocations();
  EXPECT_FALSE(document.getVisualization()->doesIdExist(u"deepest"));
}

TEST(Width, OfAChartIsListedInOrder) {
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
  LumoStyle* const first = chart.addStyle();
  for (unsigned int i = 2; i < width; ++i) chart.addStyle();
  LumoStyle* const last = chart.addStyle();
  std::vector<LumoStyle*> const styles = chart.getStyles();
  ASSERT_EQ(styles.size(), width);
  EXPECT_EQ(styles.front(), first);
  EXPECT_EQ(styles.back(), last);
}

TEST(Width, OfATextIsReadAndWrittenBack) {
  std::string body;
  for (unsigned int i = 0; i < width; ++i) body += "<style id=\"s" + std::to_string(i) + "\"/>";
  ParsedChart parsed(chartText(body));
  EXPECT_EQ(parsed.chart().getStyleById(u"s99999"), parsed.chart().getStyles().back());
  EXPECT_NE(parsed.document().AsUTF8().find(body), std::string::npos);
}

TEST(Width, OfManyElementsOfOneIdIsBearable) {
  std::string body;
  for (unsigned int i = 0; i < width; ++i) body += "<style id=\"same\"/>";
  ParsedChart parsed(chartText(body + "<graph cellStyle=\"same\"/>"));
  LumoStyle* const first = parsed.chart().getStyles().front();
  LumoGraph const& graph = *parsed.chart().getGraphs().front();
  for (unsigned int i = 0; i < width; ++i) ASSERT_EQ(graph.getCellStyle(), first);
}

TEST(Width, OfManyReferencesToOneStyleIsBearable) {
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
  LumoStyle& style = styleIn(chart, u"s");
  LumoGraph& graph = graphIn(chart);
  for (unsigned int i = 0; i < width; ++i) graph.addPoint(nullptr)->setStyle(style);
  style.setId(u"t");
  EXPECT_EQ(utf8(graph.getPoints().back()->getAttribute(u"style")), "t");
}

}  // namespace
