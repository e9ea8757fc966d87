// Facet levels: the axes around panels, and the hiding of their labels.

#include "change_log.h"
#include "panel_fixture.h"

#include "host/chartbase.h"
#include "host/log.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/paneling.h"
#include "model/style.h"

#include <gmock/gmock.h>
#include <xercesc/dom/DOMElement.hpp>

#include <limits>

using namespace kestrel::test;
using testing::ElementsAre;

namespace {

class FacetLevel : public PanelTest {
 protected:
  /// Number 1; gives the number behind it.
  unsigned int add(char16_t const* label = u"Island", double angle = 0.0) {
    unsigned int level = 1;
    graph.addFacetLevel(level, label, u"5%", angle);
    return level;
  }

  LumoAxis& axis(std::size_t level = 0) const {
    return *graph.getGraph()->getFacetLayout()->getFacetLevels().at(level)->getAxiss().at(0);
  }
};

class BlendFacetLevel : public FacetLevel {};

struct BlendAngle {
  std::string name;
  unsigned int level;
  char const* angle;
};

void PrintTo(BlendAngle const& row, std::ostream* out) { *out << row.name; }

class EachBlendAngle : public PanelTest, public testing::WithParamInterface<BlendAngle> {};

struct PanelAngle {
  std::string name;
  double angle;
  char const* written;
};

void PrintTo(PanelAngle const& row, std::ostream* out) { *out << row.name; }

class EachPanelAngle : public FacetLevel, public testing::WithParamInterface<PanelAngle> {};

/// A layout with two levels of its own.
class HiddenPanelLabels : public PanelTest {
 protected:
  LumoLabel& addLabel(LumoFacetLevel& level) { return *level.addAxis()->addLabel(); }

  LumoFacetLayout& layout = *graph.getGraph()->addFacetLayout();
  LumoFacetLevel& third = *layout.addFacetLevel(u"third", 3);
  LumoFacetLevel& first = *layout.addFacetLevel(u"first", 1);
};

class PanelLabels : public FacetLevel {};

}  // namespace

INSTANTIATE_TEST_SUITE_P(
    , EachBlendAngle,
    testing::Values(BlendAngle{"LevelZero", 0, "90"}, BlendAngle{"LevelOne", 1, "0"},
                    BlendAngle{"LevelTwo", 2, "4294967206"}, BlendAngle{"LevelThree", 3, "4294967116"},
                    BlendAngle{"TheHighestLevel", std::numeric_limits<unsigned int>::max(), "180"}),
    caseName<BlendAngle>);

INSTANTIATE_TEST_SUITE_P(
    , EachPanelAngle,
    testing::Values(PanelAngle{"Upright", 90.0, "90"}, PanelAngle{"Slanted", 22.5, "22.5"},
                    PanelAngle{"TheOtherWay", -90.0, "-90"}, PanelAngle{"Tiny", 0.0001, "0.0001"},
                    PanelAngle{"Zero", 0.0, "(absent)"}, PanelAngle{"MinusZero", -0.0, "(absent)"}),
    caseName<PanelAngle>);

TEST_F(FacetLevel, IsWrittenInOneOrder) {
  ChangeLog log(document);
  add(u"Island", 90.0);
  EXPECT_THAT(
      log.lines(),
      ElementsAre("graph adds facetLayout", "facetLayout method=1", "facetLayout topDown=true",
                  "facetLayout adds facetLevel", "facetLevel id=facetLabel_panel_1", "facetLevel level=1",
                  "facetLevel gap=5%", "facetLevel adds axis", "axis opposite=true", "style adds style",
                  "style id=axis_panel_1s", "axis style=axis_panel_1s", "axis adds label", "style adds style",
                  "style id=label_panel_1s", "label style=label_panel_1s", "style adds style",
                  "style id=textFrame_panel_1s", "label textFrameStyle=textFrame_panel_1s",
                  "style visible=false", "label adds text", "text reads Island", "axis adds majorTicks",
                  "majorTicks labelAngle=90", "style adds style", "style id=majorTicks_axis_panel_1markStyle",
                  "majorTicks markStyle=majorTicks_axis_panel_1markStyle", "style adds style",
                  "style id=majorTicks_axis_panel_1tickLabelStyle",
                  "majorTicks style=majorTicks_axis_panel_1tickLabelStyle", "style adds style",
                  "style id=majorTicks_axis_panel_1tickFrameStyle",
                  "majorTicks tickFrameStyle=majorTicks_axis_panel_1tickFrameStyle", "style visible=false"));
}

TEST_F(FacetLevel, HidesTheFramesOfItsTextAndItsTicksAndNothingElse) {
  add();
  std::vector<std::string> hidden;
  for (LumoStyle const* style : visualization.getStyleById(ChartBase::_container)->getStyles()) {
    if (attribute(style, u"visible") == "false") hidden.push_back(utf8(style->getId()));
  }
  EXPECT_THAT(hidden, ElementsAre("textFrame_panel_1s", "majorTicks_axis_panel_1tickFrameStyle"));
}

TEST_F(FacetLevel, RaisesTheNumberByOne) { EXPECT_EQ(add(), 2u); }

TEST_F(FacetLevel, HasTheNumberThatItWasGiven) {
  unsigned int level = 12;
  graph.addFacetLevel(level, u"Island", u"0%", 0.0);
  EXPECT_EQ(level, 13u);
  EXPECT_THAT(facetLevels(graph),
              ElementsAre("facetLabel_panel_12: level 12, gap 0%, Island, angle (absent)"));
  EXPECT_THAT(styleIds(visualization),
              ElementsAre("axis_panel_12s", "label_panel_12s", "textFrame_panel_12s",
                          "majorTicks_axis_panel_12markStyle", "majorTicks_axis_panel_12tickLabelStyle",
                          "majorTicks_axis_panel_12tickFrameStyle"));
}

TEST_F(FacetLevel, WritesNothingIntoALayoutThatExists) {
  graph.setCellAspect(1.5);
  ChangeLog log(document);
  add();
  EXPECT_THAT(log.linesOf({"graph", "facetLayout"}), ElementsAre("facetLayout adds facetLevel"));
}

TEST_F(FacetLevel, SharesTheLayoutOfAnEarlierOne) {
  unsigned int level = 1;
  graph.addFacetLevel(level, u"Island", u"5%", 0.0);
  graph.addFacetLevel(level, u"Sex", u"10%", 90.0);
  EXPECT_THAT(facetLevels(graph), ElementsAre("facetLabel_panel_1: level 1, gap 5%, Island, angle (absent)",
                                              "facetLabel_panel_2: level 2, gap 10%, Sex, angle 90"));
}

TEST_F(FacetLevel, MakesAnotherOneOfANumberThatExists) {
  add();
  add();
  EXPECT_THAT(ids(graph.getGraph()->getFacetLayout()->getFacetLevels()),
              ElementsAre("facetLabel_panel_1", "facetLabel_panel_1"));
  EXPECT_NE(axis(0).getStyle(), axis(1).getStyle());
}

TEST_F(FacetLevel, TakesANullLabelForAnEmptyOne) {
  ChangeLog log(document);
  add(nullptr);
  EXPECT_THAT(log.linesOf({"label", "text"}),
              ElementsAre("label style=label_panel_1s", "label textFrameStyle=textFrame_panel_1s",
                          "label adds text", "text reads "));
  char16_t const* const text = axis().getLabel()->getTexts().at(0)->getText();
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(utf8(text), "");
}

TEST_F(FacetLevel, PassesItsLabelOnAsItStands) {
  add(u" A\\nB ");
  EXPECT_EQ(utf8(axis().getLabel()->getTexts().at(0)->getText()), " A\\nB ");
}

TEST_F(FacetLevel, HasNoGapForANullOne) {
  unsigned int level = 1;
  graph.addFacetLevel(level, u"Island", nullptr, 0.0);
  EXPECT_EQ(attribute(graph.getGraph()->getFacetLayout()->getFacetLevels().at(0), u"gap"), "(absent)");
}

TEST_F(FacetLevel, MakesNoFaceting) {
  add();
  EXPECT_EQ(graph.getGraph()->getFaceting(), nullptr);
}

TEST_P(EachPanelAngle, IsWrittenUnlessItIsZero) {
  add(u"Island", GetParam().angle);
  EXPECT_EQ(attribute(axis().getMajorTicks(), u"labelAngle"), GetParam().written);
}

TEST_F(FacetLevel, LetsAFailureOfAnyWritePass) {
  expectUnguardedAtEveryWrite(
      recorder, [](XGraph&) {},
      [](XGraph& chart) {
        unsigned int level = 1;
        chart.addFacetLevel(level, u"Island", u"5%", 90.0);
      });
}

TEST_F(FacetLevel, KeepsItsNumberAtAFailure) {
  ChangeTrap const trap(document, 34, throwOrdinaryFailure());
  unsigned int level = 1;
  EXPECT_THROW(graph.addFacetLevel(level, u"Island", u"5%", 90.0), OrdinaryFailure);
  EXPECT_EQ(level, 1u);
}

TEST_F(EmptyChartTest, AFacetLevelOfAChartWithoutGraphIsAFailureOfTheCaller) {
  XGraph attached(visualization);
  unsigned int level = 1;
  EXPECT_THROW(attached.addFacetLevel(level, u"Island", u"5%", 0.0), ChartException);
  expectNoReport(recorder);
  EXPECT_EQ(level, 1u);
}

TEST_F(BlendFacetLevel, IsWrittenInOneOrder) {
  ChangeLog log(document);
  graph.addBlendFacetLevel(1);
  EXPECT_THAT(
      log.lines(),
      ElementsAre("graph adds facetLayout", "facetLayout topDown=true", "facetLayout adds facetLevel",
                  "facetLevel id=facetLabel_matrixscatterx_1", "facetLevel level=1", "facetLevel adds axis",
                  "style adds style", "style id=axis_matrixscatterx_1s", "axis style=axis_matrixscatterx_1s",
                  "axis adds majorTicks", "majorTicks labelAngle=0", "majorTicks length=0.0px",
                  "majorTicks base=0", "majorTicks stagger=false", "style adds style",
                  "style id=majorTicks_axis_matrixscatterx_1markStyle",
                  "majorTicks markStyle=majorTicks_axis_matrixscatterx_1markStyle", "style adds style",
                  "style id=majorTicks_axis_matrixscatterx_1tickLabelStyle",
                  "majorTicks style=majorTicks_axis_matrixscatterx_1tickLabelStyle", "style adds style",
                  "style id=majorTicks_axis_matrixscatterx_1tickFrameStyle",
                  "majorTicks tickFrameStyle=majorTicks_axis_matrixscatterx_1tickFrameStyle"));
}

TEST_F(BlendFacetLevel, SetsNoMethodOfTheLayout) {
  graph.addBlendFacetLevel(1);
  EXPECT_EQ(attribute(graph.getGraph()->getFacetLayout(), u"method"), "(absent)");
}

TEST_F(BlendFacetLevel, WritesNothingIntoALayoutThatExists) {
  graph.setCellAspect(1.5);
  ChangeLog log(document);
  graph.addBlendFacetLevel(1);
  EXPECT_THAT(log.linesOf({"graph", "facetLayout"}), ElementsAre("facetLayout adds facetLevel"));
}

TEST_F(BlendFacetLevel, HasNoLabelNoGapAndNoSide) {
  graph.addBlendFacetLevel(1);
  EXPECT_EQ(axis().getLabel(), nullptr);
  EXPECT_EQ(attribute(&axis(), u"opposite"), "(absent)");
  EXPECT_EQ(attribute(graph.getGraph()->getFacetLayout()->getFacetLevels().at(0), u"gap"), "(absent)");
}

TEST_F(BlendFacetLevel, HidesNoStyle) {
  graph.addBlendFacetLevel(1);
  for (LumoStyle const* style : visualization.getStyleById(ChartBase::_container)->getStyles()) {
    EXPECT_EQ(attribute(style, u"visible"), "(absent)") << utf8(style->getId());
  }
}

TEST_P(EachBlendAngle, IsReckonedInUnsignedIntegers) {
  graph.addBlendFacetLevel(GetParam().level);
  EXPECT_EQ(attribute(onlyElementOf(visualization, u"majorTicks"), u"labelAngle"), GetParam().angle);
}

TEST_P(EachBlendAngle, StandsInALevelOfThatNumber) {
  graph.addBlendFacetLevel(GetParam().level);
  std::string const number = std::to_string(GetParam().level);
  EXPECT_EQ(attribute(onlyElementOf(visualization, u"facetLevel"), u"level"), number);
  EXPECT_EQ(attribute(onlyElementOf(visualization, u"facetLevel"), u"id"),
            "facetLabel_matrixscatterx_" + number);
  EXPECT_THAT(styleIds(visualization),
              ElementsAre("axis_matrixscatterx_" + number + "s",
                          "majorTicks_axis_matrixscatterx_" + number + "markStyle",
                          "majorTicks_axis_matrixscatterx_" + number + "tickLabelStyle",
                          "majorTicks_axis_matrixscatterx_" + number + "tickFrameStyle"));
}

TEST_F(BlendFacetLevel, LetsAFailureOfAnyWritePass) {
  expectUnguardedAtEveryWrite(
      recorder, [](XGraph&) {}, [](XGraph& chart) { chart.addBlendFacetLevel(1); });
}

TEST_F(EmptyChartTest, ABlendFacetLevelOfAChartWithoutGraphIsAFailureOfTheCaller) {
  XGraph attached(visualization);
  EXPECT_THROW(attached.addBlendFacetLevel(1), ChartException);
  expectNoReport(recorder);
}

TEST_F(PanelLabels, AreNoneWithoutFacetLayout) {
  graph.AddPrimaryXAxis(u"Mass");
  std::string const before = document.AsUTF8();
  graph.HideAllPanelLabels();
  EXPECT_EQ(document.AsUTF8(), before);
  expectNoReport(recorder);
}

TEST_F(PanelLabels, AreHiddenWithTheFramesOfTheirTexts) {
  add();
  ChangeLog log(document);
  graph.HideAllPanelLabels();
  EXPECT_THAT(
      log.lines(),
      ElementsAre("style adds style", "style id=facetLevel1_axis_0_label_style",
                  "label style=facetLevel1_axis_0_label_style", "style visible=false", "style adds style",
                  "style id=facetLevel1_axis_0_label_style_textFrame",
                  "label textFrameStyle=facetLevel1_axis_0_label_style_textFrame", "style visible=false"));
}

TEST_F(PanelLabels, LeaveTheirFirstStylesInTheChart) {
  add();
  graph.HideAllPanelLabels();
  EXPECT_THAT(
      styleIds(visualization),
      ElementsAre("axis_panel_1s", "label_panel_1s", "textFrame_panel_1s", "majorTicks_axis_panel_1markStyle",
                  "majorTicks_axis_panel_1tickLabelStyle", "majorTicks_axis_panel_1tickFrameStyle",
                  "facetLevel1_axis_0_label_style", "facetLevel1_axis_0_label_style_textFrame"));
  EXPECT_EQ(attribute(visualization.getStyleById(u"label_panel_1s"), u"visible"), "(absent)");
}

TEST_F(PanelLabels, KeepTheirText) {
  add();
  graph.HideAllPanelLabels();
  EXPECT_EQ(utf8(axis().getLabel()->getTexts().at(0)->getText()), "Island");
}

TEST_F(PanelLabels, GetStylesOfTheSameIdsAtASecondCall) {
  add();
  graph.HideAllPanelLabels();
  LumoStyle const* const first = axis().getLabel()->getStyle();
  graph.HideAllPanelLabels();
  EXPECT_NE(axis().getLabel()->getStyle(), first);
  auto const styles = styleIds(visualization);
  EXPECT_THAT(std::vector<std::string>(styles.end() - 4, styles.end()),
              ElementsAre("facetLevel1_axis_0_label_style", "facetLevel1_axis_0_label_style_textFrame",
                          "facetLevel1_axis_0_label_style", "facetLevel1_axis_0_label_style_textFrame"));
}

TEST_F(PanelLabels, DoNotStandOnTheAxisOfABlend) {
  graph.addBlendFacetLevel(1);
  std::string const before = document.AsUTF8();
  graph.HideAllPanelLabels();
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(PanelLabels, AreNotThoseOfTheCoordinates) {
  graph.AddPrimaryXAxis(u"Mass");
  add();
  ChangeLog log(document);
  graph.HideAllPanelLabels();
  EXPECT_THAT(log.linesOf({"label"}),
              ElementsAre("label style=facetLevel1_axis_0_label_style",
                          "label textFrameStyle=facetLevel1_axis_0_label_style_textFrame"));
}

TEST_F(HiddenPanelLabels, AreNoneInLevelsWithoutAxes) {
  std::string const before = document.AsUTF8();
  graph.HideAllPanelLabels();
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(HiddenPanelLabels, AreNamedByTheNumbersOfTheirLevelsInTheOrderOfTheChart) {
  addLabel(first);
  addLabel(third);
  graph.HideAllPanelLabels();
  EXPECT_THAT(styleIds(visualization),
              ElementsAre("facetLevel3_axis_0_label_style", "facetLevel3_axis_0_label_style_textFrame",
                          "facetLevel1_axis_0_label_style", "facetLevel1_axis_0_label_style_textFrame"));
}

TEST_F(HiddenPanelLabels, AreNamedByThePlaceOfTheirAxisAmongAllOfItsLevel) {
  first.addAxis();
  addLabel(first);
  addLabel(first);
  graph.HideAllPanelLabels();
  EXPECT_THAT(styleIds(visualization),
              ElementsAre("facetLevel1_axis_1_label_style", "facetLevel1_axis_1_label_style_textFrame",
                          "facetLevel1_axis_2_label_style", "facetLevel1_axis_2_label_style_textFrame"));
}

TEST_F(HiddenPanelLabels, CountALevelWithoutNumberAsZero) {
  first.getImplementation()->removeAttribute(u"level");
  addLabel(first);
  graph.HideAllPanelLabels();
  EXPECT_THAT(styleIds(visualization),
              ElementsAre("facetLevel0_axis_0_label_style", "facetLevel0_axis_0_label_style_textFrame"));
}

TEST_F(HiddenPanelLabels, AreHiddenAlsoWhereTheyHadNoStyle) {
  LumoLabel const& label = addLabel(first);
  graph.HideAllPanelLabels();
  EXPECT_EQ(attribute(label.getStyle(), u"visible"), "false");
  EXPECT_EQ(attribute(label.getTextFrameStyle(), u"visible"), "false");
}

TEST_F(HiddenPanelLabels, GetStylesOfTheirOwnWhereTheIdExists) {
  LumoStyle const* const theirs = graph.addStyle(u"facetLevel1_axis_0_label_style");
  LumoLabel const& label = addLabel(first);
  graph.HideAllPanelLabels();
  EXPECT_NE(label.getStyle(), theirs);
  EXPECT_EQ(attribute(theirs, u"visible"), "(absent)");
}

TEST_F(HiddenPanelLabels, StopAtAWriteThatFailsAndStayHiddenSoFar) {
  expectGuardedAtEveryWrite(
      recorder,
      [](XGraph& chart) {
        unsigned int level = 1;
        chart.addFacetLevel(level, u"Island", u"5%", 0.0);
        chart.addFacetLevel(level, u"Sex", u"5%", 90.0);
      },
      [](XGraph& chart) { chart.HideAllPanelLabels(); }, "Error in XGraph::HideAllPanelLabels()");
}

TEST_F(EmptyChartTest, HidingPanelLabelsWithoutGraphIsAReportedFailure) {
  XGraph attached(visualization);
  EXPECT_NO_THROW(attached.HideAllPanelLabels());
  expectGuardReport(recorder, "Error in XGraph::HideAllPanelLabels()");
}
