// Panels made of the variables that were collected for columns and rows.

#include "change_log.h"
#include "panel_fixture.h"

#include "host/messages.h"
#include "model/graph.h"
#include "model/paneling.h"
#include "model/variables.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class EndPaneling : public PanelTest {};

/// The first axis of the X dimension, in coordinates that have no dimension yet.
class RepeatedAxis : public PanelTest {
 protected:
  LumoCoordinates& coordinates = *graph.getGraph()->addCoordinates(u"coordinates0");
};

}  // namespace

TEST_F(EndPaneling, DoesNothingWhereNothingWasCollected) {
  std::string const before = document.AsUTF8();
  graph.EndPaneling(true, true);
  EXPECT_EQ(document.AsUTF8(), before);
  expectNoReport(recorder);
}

TEST_F(EndPaneling, DoesNothingWithoutVariablesAlsoWhereThereIsAFaceting) {
  graph.getGraph()->addFaceting();
  graph.AddPrimaryXAxis(u"");
  std::string const before = document.AsUTF8();
  graph.EndPaneling(false, false);
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(EndPaneling, NeedsNoBegin) {
  columns({u"island"});
  EXPECT_NO_THROW(graph.EndPaneling(true, false));
  EXPECT_EQ(panelTree(graph), "cross(island unity)");
}

TEST_F(EndPaneling, KeepsWhatWasCollectedBeforeABegin) {
  columns({u"island"});
  graph.BeginPaneling();
  rows({u"sex"});
  graph.EndPaneling(true, false);
  EXPECT_EQ(panelTree(graph), "cross(island sex)");
}

TEST_F(EndPaneling, NamesTheFacetingThatItMakes) {
  columns({u"island"});
  graph.EndPaneling(true, false);
  EXPECT_EQ(attribute(graph.getGraph()->getFaceting(), u"id"), "faceting0");
}

TEST_F(EndPaneling, SetsTheMethodToCross) {
  columns({u"island"});
  graph.EndPaneling(true, false);
  EXPECT_EQ(attribute(graph.getGraph()->getFaceting(), u"method"), "cross");
}

TEST_F(EndPaneling, SetsTheMethodToNestOverANodeThatStaysACross) {
  columns({u"island"});
  graph.EndPaneling(false, false);
  EXPECT_EQ(attribute(graph.getGraph()->getFaceting(), u"method"), "nest");
  EXPECT_EQ(panelTree(graph), "cross(island unity)");
}

TEST_F(EndPaneling, KeepsTheMethodOfACrossForNestedVariables) {
  nestedColumns({u"island", u"sex"});
  graph.EndPaneling(true, false);
  EXPECT_EQ(attribute(graph.getGraph()->getFaceting(), u"method"), "cross");
}

TEST_F(EndPaneling, ReadsNoSecondArgument) {
  LumoDocument other;
  XGraph twin(*other.getVisualization(), nullptr);
  columns({u"island"});
  crossPanels(twin, XGraph::ROLE_COLUMN, {u"island"});
  graph.EndPaneling(true, false);
  twin.EndPaneling(true, true);
  EXPECT_EQ(document.AsUTF8(), other.AsUTF8());
}

TEST_F(EndPaneling, MakesOneFacetLayoutForAllLevels) {
  columns({u"island", u"year"});
  rows({u"sex"});
  graph.EndPaneling(true, false);
  auto* const layout = onlyElementOf(visualization, u"facetLayout");
  EXPECT_EQ(attribute(layout, u"method"), "1");
  EXPECT_EQ(attribute(layout, u"topDown"), "true");
}

TEST_F(EndPaneling, AddsItsLevelsToALayoutThatExists) {
  graph.setCellAspect(2.0);
  columns({u"island"});
  graph.EndPaneling(true, false);
  auto* const layout = onlyElementOf(visualization, u"facetLayout");
  EXPECT_EQ(attribute(layout, u"method"), "(absent)");
  EXPECT_EQ(facetLevels(graph).size(), 1u);
}

TEST_F(EndPaneling, ReadsTheLabelsAtTheEnd) {
  XVariable island = category(u"island", u"Island");
  graph.PanelingAddCrossVariable(island, XGraph::ROLE_COLUMN);
  island.setLabel(u"Home");
  graph.EndPaneling(true, false);
  EXPECT_THAT(facetLevels(graph), ElementsAre("facetLabel_panel_1: level 1, gap 5%, Home, angle (absent)"));
}

TEST_F(EndPaneling, TakesTheLabelAndNotTheShortOne) {
  XVariable island = category(u"island", u"Home island");
  island.setShortLabel(u"island");
  graph.PanelingAddCrossVariable(island, XGraph::ROLE_ROW);
  graph.EndPaneling(true, false);
  EXPECT_THAT(facetLevels(graph), ElementsAre("facetLabel_panel_1: level 1, gap 5%, Home island, angle 90"));
}

TEST_F(EndPaneling, WritesAnEmptyTextForAVariableWithoutLabel) {
  columns({u"island"});
  rows({u"sex"});
  graph.EndPaneling(true, false);
  EXPECT_THAT(facetLevels(graph), ElementsAre("facetLabel_panel_1: level 1, gap 5%, , angle (absent)",
                                              "facetLabel_panel_2: level 2, gap 5%, , angle 90"));
  expectNoReport(recorder);
}

TEST_F(EndPaneling, RefersToTheVeryVariablesThatWereCollected) {
  XVariable first = category(u"same");
  XVariable second = category(u"same");
  graph.PanelingAddCrossVariable(second, XGraph::ROLE_COLUMN);
  graph.PanelingAddCrossVariable(first, XGraph::ROLE_ROW);
  graph.EndPaneling(true, false);
  auto const references = graph.getGraph()->getFaceting()->getCrosss().at(0)->getVariableReferences();
  ASSERT_THAT(references, SizeIs(2));
  EXPECT_EQ(references[0]->getRef(), &second.getImplementation());
  EXPECT_EQ(references[1]->getRef(), &first.getImplementation());
}

TEST_F(EndPaneling, TakesAVariableThatIsCategoricalNoMore) {
  XVariable island = category(u"island");
  graph.PanelingAddCrossVariable(island, XGraph::ROLE_COLUMN);
  island.setCategorical(false);
  graph.EndPaneling(true, false);
  EXPECT_EQ(panelTree(graph), "cross(island unity)");
  EXPECT_EQ(attribute(&island.getImplementation(), u"categorical"), "false");
}

TEST_F(EndPaneling, WritesEverythingInItsOrder) {
  columns({u"island"});
  rows({u"sex"});
  graph.getGraph()->addCoordinates(u"coordinates0")->addDimension()->addAxis();
  ChangeLog log(document);
  graph.EndPaneling(true, false);
  EXPECT_THAT(
      log.linesOf({"graph", "faceting", "axis", "cross", "variableReference", "facetLayout", "facetLevel"}),
      ElementsAre("graph adds faceting", "faceting id=faceting0", "axis repeat=0", "faceting method=cross",
                  "faceting adds cross", "cross adds variableReference", "variableReference ref=island",
                  "graph adds facetLayout", "facetLayout method=1", "facetLayout topDown=true",
                  "facetLayout adds facetLevel", "facetLevel id=facetLabel_panel_1", "facetLevel level=1",
                  "facetLevel gap=5%", "facetLevel adds axis", "axis opposite=true",
                  "axis style=axis_panel_1s", "axis adds label", "axis adds majorTicks",
                  "cross adds variableReference", "variableReference ref=sex", "facetLayout adds facetLevel",
                  "facetLevel id=facetLabel_panel_2", "facetLevel level=2", "facetLevel gap=5%",
                  "facetLevel adds axis", "axis opposite=true", "axis style=axis_panel_2s", "axis adds label",
                  "axis adds majorTicks"));
}

TEST_F(EndPaneling, FillsANestOneVariableAfterTheOther) {
  nestedColumns({u"island", u"year"});
  ChangeLog log(document);
  graph.EndPaneling(true, false);
  EXPECT_THAT(
      log.linesOf({"faceting", "cross", "nest", "variableReference", "facetLayout"}),
      ElementsAre("faceting id=faceting0", "faceting method=cross", "faceting adds cross", "cross adds nest",
                  "nest adds variableReference", "variableReference ref=island", "facetLayout method=1",
                  "facetLayout topDown=true", "facetLayout adds facetLevel", "nest adds variableReference",
                  "variableReference ref=year", "facetLayout adds facetLevel", "cross adds unity"));
}

TEST_F(EndPaneling, NumbersTheStylesOfEachLevel) {
  columns({u"island"});
  rows({u"sex"});
  graph.EndPaneling(true, false);
  EXPECT_THAT(
      styleIds(visualization),
      ElementsAre("axis_panel_1s", "label_panel_1s", "textFrame_panel_1s", "majorTicks_axis_panel_1markStyle",
                  "majorTicks_axis_panel_1tickLabelStyle", "majorTicks_axis_panel_1tickFrameStyle",
                  "axis_panel_2s", "label_panel_2s", "textFrame_panel_2s", "majorTicks_axis_panel_2markStyle",
                  "majorTicks_axis_panel_2tickLabelStyle", "majorTicks_axis_panel_2tickFrameStyle"));
}

TEST_F(EndPaneling, UsesAFacetingThatExistsAndKeepsItsId) {
  LumoFaceting* const theirs = graph.getGraph()->addFaceting();
  theirs->setId(u"theirs");
  theirs->addCross()->addUnity();
  columns({u"island"});
  graph.EndPaneling(true, false);
  EXPECT_EQ(attribute(onlyElementOf(visualization, u"faceting"), u"id"), "theirs");
  EXPECT_EQ(panelTree(graph), "cross(unity) cross(island unity)");
}

TEST_F(EndPaneling, GivesAFacetingThatExistsNoId) {
  graph.getGraph()->addFaceting();
  columns({u"island"});
  graph.EndPaneling(true, false);
  EXPECT_EQ(attribute(graph.getGraph()->getFaceting(), u"id"), "(absent)");
}

TEST_F(EndPaneling, SetsTheMethodOfAFacetingThatExists) {
  graph.getGraph()->addFaceting()->setMethod(u"cross");
  columns({u"island"});
  graph.EndPaneling(false, false);
  EXPECT_EQ(attribute(graph.getGraph()->getFaceting(), u"method"), "nest");
}

TEST_F(EndPaneling, MakesEverythingAgainAtASecondCall) {
  columns({u"island"});
  rows({u"sex"});
  graph.EndPaneling(true, false);
  graph.EndPaneling(true, false);
  EXPECT_EQ(panelTree(graph), "cross(island sex) cross(island sex)");
}

TEST_F(EndPaneling, NumbersTheLevelsFromOneAgainAtASecondCall) {
  columns({u"island"});
  graph.EndPaneling(true, false);
  graph.EndPaneling(true, false);
  EXPECT_THAT(facetLevels(graph), ElementsAre("facetLabel_panel_1: level 1, gap 5%, , angle (absent)",
                                              "facetLabel_panel_1: level 1, gap 5%, , angle (absent)"));
}

TEST_F(EndPaneling, MakesStylesOfTheSameIdsAtASecondCall) {
  columns({u"island"});
  graph.EndPaneling(true, false);
  auto const once = styleIds(visualization);
  graph.EndPaneling(true, false);
  auto twice = once;
  twice.insert(twice.end(), once.begin(), once.end());
  EXPECT_EQ(styleIds(visualization), twice);
}

TEST_F(EndPaneling, TakesTheLaterVariablesBehindTheEarlierOnesAtASecondCall) {
  columns({u"island"});
  graph.EndPaneling(true, false);
  nestedColumns({u"year"});
  graph.EndPaneling(false, false);
  EXPECT_EQ(panelTree(graph), "cross(island unity) cross(nest(island year) unity)");
  EXPECT_EQ(attribute(onlyElementOf(visualization, u"faceting"), u"method"), "nest");
}

TEST_F(EndPaneling, TouchesNoElementOfTheGraph) {
  graph.AddPointElement();
  columns({u"island"});
  ChangeLog log(document);
  graph.EndPaneling(true, false);
  EXPECT_THAT(log.linesOf({"point", "y"}), IsEmpty());
}

TEST_F(EndPaneling, MakesNoVariable) {
  columns({u"island"});
  ChangeLog log(document);
  graph.EndPaneling(true, false);
  EXPECT_THAT(log.linesOf({"visualization", "sourceVariable"}), IsEmpty());
}

TEST_F(EndPaneling, TellsTheHostNothing) {
  columns({u"island"});
  recorder.clear();
  graph.EndPaneling(true, false);
  EXPECT_THAT(recorder.lines(), IsEmpty());
}

TEST_F(EndPaneling, MakesNoCoordinates) {
  columns({u"island"});
  graph.EndPaneling(true, false);
  EXPECT_THAT(graph.getGraph()->getCoordinatess(), IsEmpty());
}

TEST_F(RepeatedAxis, IsTheFirstOfTheXDimension) {
  LumoDimension* const x = coordinates.addDimension();
  LumoAxis* const first = x->addAxis();
  LumoAxis* const second = x->addAxis();
  columns({u"island"});
  graph.EndPaneling(true, false);
  EXPECT_EQ(attribute(first, u"repeat"), "0");
  EXPECT_EQ(attribute(second, u"repeat"), "(absent)");
}

TEST_F(RepeatedAxis, LosesTheRepeatThatItHad) {
  LumoAxis* const axis = coordinates.addDimension()->addAxis();
  axis->setRepeat(LumoAxis::Repeat1);
  rows({u"island"});
  graph.EndPaneling(true, false);
  EXPECT_EQ(attribute(axis, u"repeat"), "0");
}

TEST_F(RepeatedAxis, IsNotThatOfTheYDimension) {
  coordinates.addDimension();
  LumoAxis* const y = coordinates.addDimension()->addAxis();
  columns({u"island"});
  graph.EndPaneling(true, false);
  EXPECT_EQ(attribute(y, u"repeat"), "(absent)");
}

TEST_F(RepeatedAxis, IsNotThatOfOtherCoordinates) {
  LumoAxis* const other = graph.getGraph()->addCoordinates(u"other")->addDimension()->addAxis();
  columns({u"island"});
  graph.EndPaneling(true, false);
  EXPECT_EQ(attribute(other, u"repeat"), "(absent)");
}

TEST_F(RepeatedAxis, IsNotMadeInADimensionWithoutAxes) {
  coordinates.addDimension();
  columns({u"island"});
  graph.EndPaneling(true, false);
  EXPECT_THAT(childTags(coordinates), ElementsAre("dimension"));
  EXPECT_THAT(coordinates.getDimensions().at(0)->getAxiss(), IsEmpty());
  expectNoReport(recorder);
}

TEST_F(RepeatedAxis, IsNotMadeWhereTheDimensionMustBeMade) {
  columns({u"island"});
  graph.EndPaneling(true, false);
  ASSERT_THAT(childTags(coordinates), ElementsAre("dimension"));
  EXPECT_THAT(childTags(*coordinates.getDimensions().at(0)), IsEmpty());
}

TEST_F(RepeatedAxis, HasItsDimensionMadeBetweenTheFacetingAndItsMethod) {
  columns({u"island"});
  ChangeLog log(document);
  graph.EndPaneling(true, false);
  EXPECT_THAT(log.linesOf({"faceting", "coordinates"}),
              ElementsAre("faceting id=faceting0", "coordinates adds dimension", "faceting method=cross",
                          "faceting adds cross"));
}

TEST_F(RepeatedAxis, IsGivenUpWhereItsDimensionCannotBeMade) {
  columns({u"island"});
  // Behind the faceting and its id.
  ChangeTrap const trap(document, 3, throwOrdinaryFailure());
  graph.EndPaneling(true, false);
  expectGuardReport(recorder, "Error in XBaseElement::getXDimension()");
  EXPECT_EQ(panelTree(graph), "cross(island unity)");
}

TEST_F(RepeatedAxis, LetsTheHostsUnwindingSignalPassFromItsDimension) {
  columns({u"island"});
  ChangeTrap const trap(document, 3, throwGoToCaller());
  EXPECT_THROW(graph.EndPaneling(true, false), VexaGoToCaller);
  expectNoReport(recorder);
  EXPECT_EQ(panelTree(graph), "");
}

TEST_F(EndPaneling, StopsAtAWriteThatFailsAndKeepsWhatWasBuilt) {
  expectGuardedAtEveryWrite(
      recorder,
      [](XGraph& chart) {
        chart.AddPrimaryXAxis(u"");
        crossPanels(chart, XGraph::ROLE_COLUMN, {u"island"});
        nestPanels(chart, XGraph::ROLE_ROW, {u"sex", u"year"});
      },
      [](XGraph& chart) { chart.EndPaneling(true, false); }, "Error in XGraph::EndPaneling()");
}

TEST_F(EndPaneling, CanBeCalledAgainBehindAFailure) {
  columns({u"island"});
  {
    // The cross is there, its first variable is not.
    ChangeTrap const trap(document, 5, throwOrdinaryFailure());
    graph.EndPaneling(true, false);
  }
  graph.EndPaneling(true, false);
  EXPECT_EQ(panelTree(graph), "cross() cross(island unity)");
}

TEST_F(EmptyChartTest, PanelsOfAChartWithoutGraphAreAReportedFailure) {
  XGraph attached(visualization);
  crossPanels(attached, XGraph::ROLE_COLUMN, {u"island"});
  EXPECT_NO_THROW(attached.EndPaneling(true, false));
  expectGuardReport(recorder, "Error in XGraph::EndPaneling()");
}

TEST_F(EmptyChartTest, NoPanelsOfAChartWithoutGraphAreNoFailure) {
  XGraph attached(visualization);
  attached.EndPaneling(true, false);
  expectNoReport(recorder);
}
