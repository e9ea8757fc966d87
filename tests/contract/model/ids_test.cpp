#include "chart.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class Ids : public testing::Test {
 protected:
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
  xercesc::DOMDocument& dom = *document.getImplementation();
};

TEST_F(Ids, AreFoundAnywhereInTheChart) {
  LumoAxis& axis = axisIn(chart);
  axis.setId(u"deep");
  EXPECT_TRUE(chart.doesIdExist(u"deep"));
  EXPECT_TRUE(axis.doesIdExist(u"deep"));
  EXPECT_TRUE(graphIn(chart).doesIdExist(u"deep"));
}

TEST_F(Ids, ThatNobodyHasAreNotFound) {
  EXPECT_FALSE(chart.doesIdExist(u"nobody"));
  EXPECT_FALSE(chart.doesIdExist(u""));
  EXPECT_FALSE(chart.doesIdExist(nullptr));
  EXPECT_EQ(chart.getStyleById(nullptr), nullptr);
}

TEST_F(Ids, AnEmptyOneIsNoId) {
  styleIn(chart, u"");
  EXPECT_FALSE(chart.doesIdExist(u""));
  EXPECT_EQ(chart.getStyleById(u""), nullptr);
}

TEST_F(Ids, OldOnesAreForgotten) {
  LumoStyle& style = styleIn(chart, u"old");
  style.setId(u"new");
  EXPECT_FALSE(chart.doesIdExist(u"old"));
  EXPECT_TRUE(chart.doesIdExist(u"new"));
  style.setId(nullptr);
  EXPECT_FALSE(chart.doesIdExist(u"new"));
}

TEST_F(Ids, AreKnownToTheDomOfABuiltChart) {
  LumoStyle& style = styleIn(chart, u"s");
  EXPECT_EQ(dom.getElementById(u"s"), style.getImplementation());
  style.setId(u"t");
  EXPECT_EQ(dom.getElementById(u"s"), nullptr);
  EXPECT_EQ(dom.getElementById(u"t"), style.getImplementation());
}

TEST_F(Ids, AreKnownToTheDomOfAParsedChart) {
  ParsedChart parsed(chartText("<graph><point id='p'/></graph>"));
  EXPECT_EQ(parsed.dom().getElementById(u"p"),
            parsed.chart().getGraphs().at(0)->getPoints().at(0)->getImplementation());
}

TEST_F(Ids, AdderGivesThem) {
  EXPECT_EQ(utf8(chart.addGraph(u"frame_data_1")->getId()), "frame_data_1");
  EXPECT_EQ(chart.addGraph(nullptr)->getId(), nullptr);
}

TEST_F(Ids, StylesAreFoundAnywhereByThem) {
  LumoStyle& container = styleIn(chart, u"container");
  LumoStyle& inner = *container.addStyle();
  inner.setId(u"inner");
  EXPECT_EQ(chart.getStyleById(u"inner"), &inner);
  EXPECT_EQ(graphIn(chart).getStyleById(u"container"), &container);
}

TEST_F(Ids, OfOtherElementsAreNoStyles) {
  graphIn(chart).setId(u"shared");
  EXPECT_EQ(chart.getStyleById(u"shared"), nullptr);
  LumoStyle& style = styleIn(chart, u"shared");
  EXPECT_EQ(chart.getStyleById(u"shared"), &style);
}

TEST_F(Ids, MayBeGivenTwice) {
  LumoStyle& first = styleIn(chart, u"twice");
  styleIn(chart, u"twice");
  EXPECT_EQ(chart.getStyles().size(), 2U);
  EXPECT_EQ(chart.getStyleById(u"twice"), &first);
}

TEST_F(Ids, OfSeveralTheFirstInDocumentOrderCounts) {
  LumoStyle& container = styleIn(chart, u"container");
  LumoStyle& later = styleIn(chart, u"twice");
  LumoStyle& earlier = *container.addStyle();
  ASSERT_EQ(chart.getStyleById(u"twice"), &later);
  earlier.setId(u"twice");
  EXPECT_EQ(chart.getStyleById(u"twice"), &earlier);
}

TEST_F(Ids, OfSeveralTheHolderComesBeforeWhatItHolds) {
  LumoStyle& outer = *chart.addStyle();
  LumoStyle& inner = *outer.addStyle();
  inner.setId(u"twice");
  outer.setId(u"twice");
  EXPECT_EQ(chart.getStyleById(u"twice"), &outer);
}

TEST_F(Ids, OfSeveralTheNextCountsWhenTheFirstIsRenamed) {
  std::vector<LumoStyle*> styles;
  for (int i = 0; i < 5; ++i) styles.push_back(&styleIn(chart, u"same"));
  for (std::size_t i = 0; i + 1 < styles.size(); ++i) {
    styles[i]->setId(u"other");
    EXPECT_EQ(chart.getStyleById(u"same"), styles[i + 1]);
    EXPECT_EQ(dom.getElementById(u"same"), styles[i + 1]->getImplementation());
  }
}

TEST_F(Ids, OfSeveralOneStaysWhenAnotherIsRemoved) {
  LumoLabel& label = labelIn(chart);
  label.addText()->setId(u"same");
  LumoStyle& style = styleIn(chart, u"same");
  label.removeTexts();
  EXPECT_TRUE(chart.doesIdExist(u"same"));
  EXPECT_EQ(dom.getElementById(u"same"), style.getImplementation());
}

TEST_F(Ids, OfEverythingInARemovedElementAreWithdrawn) {
  LumoMajorTicks& ticks = ticksIn(chart);
  LumoFormat& format = *ticks.addFormat();
  format.setId(u"format");
  format.addRelabel(u"1", u"one")->setId(u"relabel");
  ticks.removeFormats();
  EXPECT_FALSE(chart.doesIdExist(u"format"));
  EXPECT_FALSE(chart.doesIdExist(u"relabel"));
  EXPECT_EQ(dom.getElementById(u"relabel"), nullptr);
}

TEST_F(Ids, GivenToARemovedElementAreNotFound) {
  LumoLabel& label = labelIn(chart);
  LumoText& text = *label.addText();
  label.removeTexts();
  text.setId(u"late");
  EXPECT_EQ(utf8(text.getId()), "late");
  EXPECT_FALSE(chart.doesIdExist(u"late"));
  EXPECT_EQ(dom.getElementById(u"late"), nullptr);
}

TEST_F(Ids, ChangedPastTheModelAreFound) {
  LumoStyle& style = styleIn(chart, u"old");
  style.getImplementation()->setAttribute(u"id", u"new");
  EXPECT_TRUE(chart.doesIdExist(u"new"));
  EXPECT_EQ(chart.getStyleById(u"new"), &style);
  EXPECT_FALSE(chart.doesIdExist(u"old"));
}

TEST_F(Ids, OfElementsDetachedPastTheModelAreNotFound) {
  LumoStyle& style = styleIn(chart, u"s");
  chart.getImplementation()->removeChild(style.getImplementation());
  EXPECT_FALSE(chart.doesIdExist(u"s"));
}

TEST_F(Ids, MayBeReusedAfterRemoval) {
  LumoLabel& label = labelIn(chart);
  label.addText()->setId(u"id");
  label.removeTexts();
  LumoText& next = *label.addText();
  next.setId(u"id");
  EXPECT_EQ(dom.getElementById(u"id"), next.getImplementation());
}

TEST_F(Ids, TakeWhatAGetterGave) {
  LumoStyle& style = styleIn(chart, u"a_long_enough_identifier");
  style.setId(style.getId() + 2);
  EXPECT_EQ(utf8(style.getId()), "long_enough_identifier");
  EXPECT_TRUE(chart.doesIdExist(u"long_enough_identifier"));
}

TEST_F(Ids, AreFoundAmongThousands) {
  ChartString id;
  for (unsigned int i = 0; i < 5000; ++i) {
    id.assign(u"style_");
    id.append(i);
    styleIn(chart, id.xc_str());
  }
  EXPECT_EQ(chart.getStyleById(u"style_0"), chart.getStyles().front());
  EXPECT_EQ(chart.getStyleById(u"style_4999"), chart.getStyles().back());
  EXPECT_EQ(chart.getStyleById(u"style_5000"), nullptr);
}

TEST_F(Ids, OfParsedDuplicatesTheFirstCounts) {
  ParsedChart parsed(chartText("<graph id='s'/><style id='s' color='first'/><style id='s' color='second'/>"));
  EXPECT_EQ(utf8(parsed.chart().getStyleById(u"s")->getColor()), "first");
}

}  // namespace
