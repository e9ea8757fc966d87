#include "chart.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Names = std::vector<std::string>;

template <typename T>
Names idsOf(std::vector<T*> const& elements) {
  Names ids;
  for (T const* element : elements) ids.push_back(utf8(element->getId()));
  return ids;
}

class ContainerChildren : public testing::Test {
 protected:
  ParsedChart parsed{
      chartText("<graph id='g0'/><container id='c'><graph id='g1'/><labelFrame id='f1'/><location part='0'/>"
                "<container id='inner'><graph id='g2'/><legend id='l1'/></container><legend "
                "id='l2'/></container><style id='s'/>")};
  LumoVisualization& chart = parsed.chart();
};

TEST_F(ContainerChildren, MoveToTheVisualizationInDocumentOrder) {
  chart.reparentContainerChildren();
  EXPECT_EQ(idsOf(chart.getGraphs()), (Names{"g0", "g1", "g2"}));
  EXPECT_EQ(idsOf(chart.getLabelFrames()), Names{"f1"});
  EXPECT_EQ(idsOf(chart.getLegends()), (Names{"l1", "l2"}));
}

TEST_F(ContainerChildren, LeaveTheirContainersWithTheirLocations) {
  chart.reparentContainerChildren();
  ASSERT_EQ(chart.getContainers().size(), 1U);
  EXPECT_EQ(childNames(*chart.getContainers().at(0)), (Names{"location", "container"}));
}

TEST_F(ContainerChildren, KeepTheirObjects) {
  LumoGraph* const graph = chart.getContainers().at(0)->getGraphs().at(0);
  chart.reparentContainerChildren();
  EXPECT_EQ(chart.getGraphs().at(1), graph);
}

TEST_F(ContainerChildren, AreLeftAloneWhereThereIsNoContainer) {
  LumoDocument document;
  graphIn(*document.getVisualization());
  std::string const before = document.AsUTF8();
  document.getVisualization()->reparentContainerChildren();
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST(LegendChildren, MoveIntoTheContainerInOrder) {
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
  chart.addLegend(u"l1");
  chart.addLegend(u"l2");
  LumoContainer& container = *chart.addContainer(u"legendContainer");
  container.addLegend(u"l0");
  chart.reparentLegendChildren(container);
  EXPECT_TRUE(chart.getLegends().empty());
  EXPECT_EQ(idsOf(container.getLegends()), (Names{"l0", "l1", "l2"}));
  EXPECT_TRUE(chart.doesIdExist(u"l1"));
}

class Styles : public testing::Test {
 protected:
  ParsedChart parsed{
      chartText("<style id='outer'><style id='nested'/></style><style/><graph><style id='odd'/></graph>"
                "<style id='container'><style id='already'/></style>"
                "<styleCycle id='cycle'><cycle><style id='value'/></cycle></styleCycle><style id='last'/>")};
  LumoVisualization& chart = parsed.chart();
  LumoStyle& container = *chart.getStyleById(u"container");
};

TEST_F(Styles, WithAnIdMoveIntoTheContainer) {
  chart.reparentStyles(container);
  EXPECT_EQ(idsOf(container.getStyles()), (Names{"already", "outer", "odd", "last"}));
}

TEST_F(Styles, ComeAlongWithTheStyleThatHoldsThem) {
  chart.reparentStyles(container);
  EXPECT_EQ(idsOf(chart.getStyleById(u"outer")->getStyles()), Names{"nested"});
}

TEST_F(Styles, WithoutAnIdStay) {
  chart.reparentStyles(container);
  EXPECT_EQ(idsOf(chart.getStyles()), (Names{"(null)", "container"}));
}

TEST_F(Styles, OfACycleStay) {
  chart.reparentStyles(container);
  EXPECT_EQ(chart.getStyleCycles().at(0)->getCycles().at(0)->getStyles().size(), 1U);
}

TEST_F(Styles, ThatHoldTheContainerStay) {
  LumoStyle& nested = *chart.getStyleById(u"nested");
  chart.reparentStyles(nested);
  EXPECT_EQ(idsOf(chart.getStyles()).front(), "outer");
  EXPECT_EQ(idsOf(nested.getStyles()), (Names{"odd", "container", "last"}));
}

TEST_F(Styles, AreMovedOnce) {
  chart.reparentStyles(container);
  std::string const once = parsed.document().AsUTF8();
  chart.reparentStyles(container);
  EXPECT_EQ(parsed.document().AsUTF8(), once);
}

TEST_F(Styles, OfSeveralOfAnIdTheFirstCountsAfterTheMove) {
  LumoStyle& early = *chart.getStyleById(u"outer");
  LumoStyle& inContainer = *container.addStyle();
  inContainer.setId(u"outer");
  ASSERT_EQ(chart.getStyleById(u"outer"), &early);
  chart.reparentStyles(container);
  EXPECT_EQ(chart.getStyleById(u"outer"), &inContainer);
}

}  // namespace
