// Stacked and clustered elements, with their legends.

#include "element_fixture.h"
#include "xgraph.h"

#include "host/chartbase.h"
#include "host/log.h"
#include "host/messages.h"
#include "kestrelhost/data_source.h"
#include "model/aesthetics.h"
#include "model/labels.h"
#include "model/style.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ClusterTest : public ElementTest {
 protected:
  void cluster(bool color, bool pattern, bool legend, bool label) {
    element.Cluster(sex, color, pattern, legend, label);
  }

  LumoStyleBy* styleBy(std::size_t index = 0) const { return model.getStyleBys().at(index); }
  LumoStyleCycle* cycle(std::size_t index = 0) const { return visualization.getStyleCycles().at(index); }
  LumoLegend* legend(std::size_t index = 0) const { return visualization.getLegends().at(index); }

  std::string const s = utf8(ChartBase::_default_style);
};

TEST_F(ClusterTest, MakesAnAestheticOfTheVariable) {
  cluster(false, false, false, false);
  ASSERT_EQ(model.getStyleBys().size(), 1u);
  EXPECT_EQ(styleBy()->getVariable(), &sexModel);
}

TEST_F(ClusterTest, TheAestheticsIdTellsColorAndPattern) {
  cluster(false, false, false, false);
  cluster(true, false, false, false);
  cluster(false, true, false, false);
  cluster(true, true, false, false);
  EXPECT_THAT(idsOf(model, u"styleBy"), ElementsAre("points_styleBy1", "points_colorstyleBy2",
                                                    "points_patternstyleBy3", "points_patterncolorstyleBy4"));
}

TEST_F(ClusterTest, TheAestheticsNumberIsThatOfTheElement) {
  cluster(true, false, false, false);
  LumoLine& lineModel = *graph.addLine(u"line");
  XElement line(lineModel);
  line.Cluster(age, true, false, false, false);
  EXPECT_THAT(idsOf(lineModel, u"styleBy"), ElementsAre("line_colorstyleBy1"));
}

TEST_F(ClusterTest, MakesOneCycleWithOneEmptyStyle) {
  cluster(true, false, false, false);
  ASSERT_EQ(visualization.getStyleCycles().size(), 1u);
  ASSERT_EQ(cycle()->getCycles().size(), 1u);
  auto const styles = cycle()->getCycles().front()->getStyles();
  ASSERT_EQ(styles.size(), 1u);
  EXPECT_THAT(attributeNames(*styles.front()), IsEmpty());
  EXPECT_THAT(childTags(*styles.front()), IsEmpty());
}

TEST_F(ClusterTest, TheAestheticRefersToItsCycle) {
  cluster(true, false, false, false);
  cluster(true, false, false, false);
  EXPECT_EQ(styleBy(0)->getStyleCycle(), cycle(0));
  EXPECT_EQ(styleBy(1)->getStyleCycle(), cycle(1));
}

TEST_F(ClusterTest, CyclesAreNumberedFromZero) {
  cluster(true, false, false, false);
  cluster(true, false, false, false);
  EXPECT_THAT(idsOf(visualization, u"styleCycle"), ElementsAre("styleCycle_0", "styleCycle_1"));
}

TEST_F(ClusterTest, TheRepositoryOfABuiltChartCountsAmongTheCycles) {
  XGraph const built(visualization, nullptr);
  cluster(true, false, false, false);
  EXPECT_EQ(idsOf(visualization, u"styleCycle").back(), "styleCycle_1");
}

TEST_F(ClusterTest, ThePatternDecidesWhatTheCycleIsFor) {
  struct Row {
    bool color;
    bool pattern;
    char const* aesthetic;
  };
  for (Row const row : {Row{false, false, "color"}, Row{true, false, "color"}, Row{false, true, "pattern"},
                        Row{true, true, "pattern"}}) {
    cluster(row.color, row.pattern, false, false);
    LumoStyleCycle const& made = *visualization.getStyleCycles().back();
    EXPECT_EQ(attribute(made.getExtension(), u"aesthetic"), row.aesthetic) << row.color << row.pattern;
  }
}

TEST_F(ClusterTest, ColorAndPatternTogetherMakeOneCycle) {
  cluster(true, true, false, false);
  EXPECT_EQ(visualization.getStyleCycles().size(), 1u);
}

TEST_F(ClusterTest, MakesTheChartsExtensionOnce) {
  cluster(true, false, false, false);
  cluster(true, false, false, false);
  EXPECT_EQ(elementsOf(visualization, u"extension").size(), 3u) << "the chart's own, and one for each cycle";
  EXPECT_NE(visualization.getExtension(), nullptr);
}

TEST_F(ClusterTest, TakesTheExtensionThatTheChartHas) {
  LumoExtensionVis* const extension = visualization.addExtension();
  cluster(true, false, true, false);
  EXPECT_EQ(visualization.getExtension(), extension);
  EXPECT_EQ(extension->getLegend1(), legend());
}

TEST_F(ClusterTest, WritesNoPositionModifier) {
  cluster(true, true, true, true);
  EXPECT_EQ(attribute(&model, u"positionModifier"), "(absent)");
}

TEST_F(ClusterTest, WithoutLegendThereIsNone) {
  cluster(true, false, false, true);
  EXPECT_THAT(visualization.getLegends(), IsEmpty());
  EXPECT_EQ(visualization.getExtension()->getLegend1(), nullptr);
}

TEST_F(ClusterTest, TheFirstLegendTakesSlotOne) {
  cluster(true, false, true, false);
  ASSERT_EQ(visualization.getLegends().size(), 1u);
  EXPECT_EQ(utf8(legend()->getId()), "frame_legend_1");
  EXPECT_EQ(visualization.getExtension()->getLegend1(), legend());
  EXPECT_EQ(visualization.getExtension()->getLegend2(), nullptr);
}

TEST_F(ClusterTest, TheSecondLegendTakesSlotTwo) {
  cluster(true, false, true, false);
  cluster(false, true, true, false);
  ASSERT_EQ(visualization.getLegends().size(), 2u);
  EXPECT_EQ(utf8(legend(1)->getId()), "frame_legend_2");
  EXPECT_EQ(visualization.getExtension()->getLegend2(), legend(1));
}

TEST_F(ClusterTest, SlotOneIsTakenFirstWhereOnlySlotTwoIsTaken) {
  visualization.addExtension()->setLegend2(*visualization.addLegend(u"other"));
  cluster(true, false, true, false);
  EXPECT_EQ(utf8(visualization.getExtension()->getLegend1()->getId()), "frame_legend_1");
}

TEST_F(ClusterTest, ALegendThatWasMadeOtherwiseKeepsItsSlot) {
  LumoLegend& other = *visualization.addLegend(u"other");
  visualization.addExtension()->setLegend1(other);
  cluster(true, false, true, false);
  EXPECT_EQ(visualization.getExtension()->getLegend1(), &other);
  EXPECT_EQ(utf8(visualization.getExtension()->getLegend2()->getId()), "frame_legend_2");
}

TEST_F(ClusterTest, AThirdLegendIsNotMade) {
  cluster(true, false, true, true);
  cluster(true, false, true, true);
  std::string const first = legend(0)->AsUTF8();
  std::string const second = legend(1)->AsUTF8();
  cluster(true, false, true, true);
  EXPECT_EQ(visualization.getLegends().size(), 2u);
  EXPECT_EQ(legend(0)->AsUTF8(), first);
  EXPECT_EQ(legend(1)->AsUTF8(), second);
  expectNoReport(recorder);
}

TEST_F(ClusterTest, AThirdLegendsAestheticAndCycleExist) {
  for (int call = 0; call < 3; ++call) cluster(true, false, true, false);
  ASSERT_EQ(model.getStyleBys().size(), 3u);
  EXPECT_EQ(styleBy(2)->getStyleCycle(), cycle(2));
}

TEST_F(ClusterTest, TheLegendsStylesAreNamedAfterIt) {
  cluster(true, false, true, false);
  EXPECT_EQ(utf8(legend()->getStyle()->getId()), "frame_legend_1" + s);
  EXPECT_EQ(utf8(legend()->getTickTextStyle()->getId()), "frame_legend_1_legend_1" + s);
}

TEST_F(ClusterTest, TheLegendsStylesAreSharedWithWhatTheChartHas) {
  LumoStyle& there = *container.addStyle();
  ChartString id(u"frame_legend_1");
  id.append(ChartBase::_default_style);
  there.setId(id.xc_str());
  cluster(true, false, true, false);
  EXPECT_EQ(legend()->getStyle(), &there);
}

TEST_F(ClusterTest, TheSecondLegendsTickTextStyleEndsInOneToo) {
  cluster(true, false, true, false);
  cluster(true, false, true, false);
  EXPECT_EQ(utf8(legend(1)->getTickTextStyle()->getId()), "frame_legend_2_legend_1" + s);
}

TEST_F(ClusterTest, TheLegendShowsTheAesthetic) {
  cluster(true, false, true, false);
  auto const targets = legend()->getLegendTargets();
  ASSERT_EQ(targets.size(), 1u);
  EXPECT_EQ(utf8(targets.front()->getId()), "frame_legend_1_legendTarget0");
  EXPECT_EQ(targets.front()->getTarget(), styleBy());
}

TEST_F(ClusterTest, EachLegendNumbersItsOwnTargets) {
  cluster(true, false, true, false);
  cluster(true, false, true, false);
  EXPECT_EQ(utf8(legend(1)->getLegendTargets().front()->getId()), "frame_legend_2_legendTarget0");
  EXPECT_EQ(legend(1)->getLegendTargets().front()->getTarget(), styleBy(1));
}

class ClusterLabelTest : public ClusterTest {
 protected:
  LumoLabel* label() const { return legend()->getLabels().at(0); }
  std::string labelText() const { return utf8(label()->getTexts().at(0)->getText()); }
};

TEST_F(ClusterLabelTest, ALabelIsMadeOnlyWhereItIsAskedFor) {
  cluster(true, false, true, false);
  EXPECT_THAT(legend()->getLabels(), IsEmpty());
}

TEST_F(ClusterLabelTest, TheLabelAndItsStyleAreNamedAfterTheLegend) {
  cluster(true, false, true, true);
  ASSERT_EQ(legend()->getLabels().size(), 1u);
  EXPECT_EQ(utf8(label()->getId()), "frame_legend_1_legend_1_label_1");
  EXPECT_EQ(utf8(label()->getStyle()->getId()), "frame_legend_1_legend_1_label_1" + s);
}

TEST_F(ClusterLabelTest, TheSecondLegendsLabelIsNamedAfterIt) {
  cluster(true, false, true, true);
  cluster(true, false, true, true);
  EXPECT_EQ(utf8(legend(1)->getLabels().at(0)->getId()), "frame_legend_2_legend_1_label_1");
}

TEST_F(ClusterLabelTest, TheTextIsTheVariablesLabel) {
  sexModel.setLabel(u"Sex of the animal");
  sexModel.setShortLabel(u"sex");
  cluster(true, false, true, true);
  ASSERT_EQ(label()->getTexts().size(), 1u);
  EXPECT_EQ(labelText(), "Sex of the animal");
}

TEST_F(ClusterLabelTest, AVariableWithoutLabelGivesItsShortLabel) {
  sexModel.setShortLabel(u"sex");
  cluster(true, false, true, true);
  EXPECT_EQ(labelText(), "sex");
}

TEST_F(ClusterLabelTest, AVariableWithAnEmptyLabelGivesItsShortLabel) {
  sexModel.setLabel(u"");
  sexModel.setShortLabel(u"sex");
  cluster(true, false, true, true);
  EXPECT_EQ(labelText(), "sex");
}

TEST_F(ClusterLabelTest, AVariableWithoutAnyLabelGivesAnEmptyText) {
  cluster(true, false, true, true);
  EXPECT_EQ(labelText(), "");
}

TEST_F(ClusterLabelTest, EscapedLineBreaksOfTheLabelAreBroken) {
  sexModel.setLabel(u"one\\ntwo");
  cluster(true, false, true, true);
  EXPECT_EQ(labelText(), "one\ntwo");
}

TEST_F(ClusterLabelTest, EscapedLineBreaksOfTheShortLabelAreBroken) {
  sexModel.setShortLabel(u"one\\ntwo");
  cluster(true, false, true, true);
  EXPECT_EQ(labelText(), "one\ntwo");
}

TEST_F(ClusterLabelTest, TheTextIsTheLabelOfTheHostVariable) {
  host::MemoryDataSource data;
  host::MemoryVariable& column = data.addNumbers("sex", {1.0});
  column.setLabel("Sex of the host");
  sexModel.setLabel(u"Sex of the model");
  sex.setVexaVariable(column);
  cluster(true, false, true, true);
  EXPECT_EQ(labelText(), "Sex of the host");
}

TEST_F(ClusterLabelTest, AHostVariableWithoutLabelGivesItsName) {
  host::MemoryDataSource data;
  sexModel.setLabel(u"Sex of the model");
  sex.setVexaVariable(data.addNumbers("sex", {1.0}));
  cluster(true, false, true, true);
  EXPECT_EQ(labelText(), "sex");
}

TEST_F(ClusterTest, WritesInItsFixedOrder) {
  sexModel.setLabel(u"Sex");
  EXPECT_THAT(writesOf([&] { cluster(true, true, true, true); }),
              ElementsAre("point adds styleBy",                                //
                          "styleBy id=points_patterncolorstyleBy1",            //
                          "styleBy variable=sex",                              //
                          "visualization adds extension",                      //
                          "visualization adds styleCycle",                     //
                          "styleCycle id=styleCycle_0",                        //
                          "styleCycle adds cycle",                             //
                          "cycle adds style",                                  //
                          "styleCycle adds extension",                         //
                          "extension aesthetic=pattern",                       //
                          "styleBy styleCycle=styleCycle_0",                   //
                          "visualization adds legend",                         //
                          "legend id=frame_legend_1",                          //
                          "extension legend1=frame_legend_1",                  //
                          "style adds style",                                  //
                          "style id=frame_legend_1" + s,                       //
                          "legend style=frame_legend_1" + s,                   //
                          "style adds style",                                  //
                          "style id=frame_legend_1_legend_1" + s,              //
                          "legend tickTextStyle=frame_legend_1_legend_1" + s,  //
                          "legend adds legendTarget",                          //
                          "legendTarget id=frame_legend_1_legendTarget0",      //
                          "legendTarget target=points_patterncolorstyleBy1",   //
                          "legend adds label",                                 //
                          "label id=frame_legend_1_legend_1_label_1",          //
                          "style adds style",                                  //
                          "style id=frame_legend_1_legend_1_label_1" + s,      //
                          "label style=frame_legend_1_legend_1_label_1" + s,   //
                          "label adds text",                                   //
                          "text reads Sex"));
}

TEST_F(ClusterTest, AnyFailureIsReportedUnderItsOwnContext) {
  failAtChange(1, [&] { cluster(true, false, true, true); });
  expectGuardReport(recorder, "Error in XElement::cluster()");
  EXPECT_THAT(model.getStyleBys(), IsEmpty());
}

TEST_F(ClusterTest, WhatWasWrittenBeforeAFailureStays) {
  failAtChange(9, [&] { cluster(true, false, true, true); });
  expectGuardReport(recorder, "Error in XElement::cluster()");
  EXPECT_EQ(utf8(styleBy()->getId()), "points_colorstyleBy1");
  EXPECT_EQ(styleBy()->getStyleCycle(), nullptr);
  EXPECT_THAT(visualization.getLegends(), IsEmpty());
}

TEST_F(ClusterTest, TheUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { cluster(true, false, false, false); }), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(ClusterTest, AMissingStyleContainerIsReported) {
  container.setId(u"another");
  cluster(true, false, true, false);
  expectGuardReport(recorder, "Error in XElement::cluster()");
  EXPECT_EQ(legend()->getStyle(), nullptr);
}

TEST_F(ClusterTest, AnElementOfTheStylesIdThatIsNoStyleIsReported) {
  ChartString id(u"frame_legend_1");
  id.append(ChartBase::_default_style);
  visualization.addSourceVariable(id.xc_str());
  cluster(true, false, true, true);
  expectGuardReport(recorder, "Error in XElement::cluster()");
  EXPECT_EQ(legend()->getStyle(), nullptr);
}

TEST_F(ClusterTest, ALabelStyleThatIsNoStyleIsReported) {
  ChartString id(u"frame_legend_1_legend_1_label_1");
  id.append(ChartBase::_default_style);
  visualization.addSourceVariable(id.xc_str());
  cluster(true, false, true, true);
  expectGuardReport(recorder, "Error in XElement::cluster()");
  EXPECT_EQ(legend()->getLegendTargets().size(), 1u);
  EXPECT_EQ(legend()->getLabels().at(0)->getStyle(), nullptr);
}

class StackTest : public ClusterTest {};

TEST_F(StackTest, SetsThePositionModifierOfStacks) {
  element.Stack(sex, false, false, false, false);
  EXPECT_EQ(attribute(&model, u"positionModifier"), "3");
}

TEST_F(StackTest, SetsThePositionModifierBeforeItClusters) {
  auto const writes = writesOf([&] { element.Stack(sex, true, false, false, false); });
  ASSERT_GE(writes.size(), 2u);
  EXPECT_EQ(writes[0], "point positionModifier=3");
  EXPECT_EQ(writes[1], "point adds styleBy");
}

TEST_F(StackTest, ClustersByTheVariable) {
  element.Stack(sex, true, true, true, false);
  EXPECT_EQ(utf8(styleBy()->getId()), "points_patterncolorstyleBy1");
  EXPECT_EQ(styleBy()->getVariable(), &sexModel);
  EXPECT_EQ(utf8(legend()->getId()), "frame_legend_1");
}

class ClusterCalls : public XElement {
 public:
  using XElement::XElement;

  void Cluster(XVariable const& variable, bool color, bool pattern, bool legend, bool label) override {
    calls.push_back(utf8(variable.GetID()) + (color ? " color" : "") + (pattern ? " pattern" : "") +
                    (legend ? " legend" : "") + (label ? " label" : ""));
  }

  std::vector<std::string> calls;
};

TEST_F(StackTest, PassesItsArgumentsToTheVirtualCluster) {
  ClusterCalls wrapper(model);
  wrapper.Stack(sex, false, false, false, false);
  wrapper.Stack(sex, true, false, false, false);
  wrapper.Stack(sex, false, true, false, false);
  wrapper.Stack(age, false, false, true, false);
  wrapper.Stack(age, false, false, false, true);
  EXPECT_THAT(wrapper.calls, ElementsAre("sex", "sex color", "sex pattern", "age legend", "age label"));
}

TEST_F(StackTest, ALaterClusterKeepsTheElementStacked) {
  element.Stack(sex, true, false, false, false);
  element.Cluster(age, true, false, false, false);
  EXPECT_EQ(attribute(&model, u"positionModifier"), "3");
}

TEST_F(StackTest, AFailureOfThePositionModifierReachesTheCaller) {
  EXPECT_THROW(failAtChange(1, [&] { element.Stack(sex, true, false, false, false); }), OrdinaryFailure);
  expectNoReport(recorder);
  EXPECT_THAT(model.getStyleBys(), IsEmpty());
}

TEST_F(StackTest, AFailureOfTheClusterIsReportedByTheCluster) {
  failAtChange(2, [&] { element.Stack(sex, true, false, false, false); });
  expectGuardReport(recorder, "Error in XElement::cluster()");
  EXPECT_EQ(attribute(&model, u"positionModifier"), "3");
}

}  // namespace
}  // namespace kestrel::test
