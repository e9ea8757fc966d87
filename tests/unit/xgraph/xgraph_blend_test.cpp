// Several measures side by side in one graph.

#include "change_log.h"
#include "panel_fixture.h"

#include "model/elements.h"
#include "model/graph.h"
#include "model/paneling.h"
#include "model/variables.h"

#include <gmock/gmock.h>

#include <functional>
#include <utility>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class Blend : public PanelTest {
 protected:
  XVariable measure(char16_t const* id, char16_t const* label = nullptr) {
    XVariable variable = category(id, label);
    variable.setCategorical(false);
    return variable;
  }

  void collect(std::initializer_list<char16_t const*> ids) {
    for (char16_t const* id : ids) {
      XVariable variable = measure(id);
      graph.PanelingAddBlendVariable(variable);
    }
  }

  void blend(std::initializer_list<char16_t const*> ids) {
    collect(ids);
    graph.EndPaneling(true, false);
  }

  std::string expression() const {
    return attribute(onlyElementOf(visualization, u"expressionVariable"), u"expression");
  }
};

/// What a blend makes for each of its variables.
class BlendLabel : public Blend {
 protected:
  LumoDerivedVariable& only() const { return *visualization.getDerivedVariables().at(0); }
};

/// The variable that all elements plot.
class BlendExpression : public Blend {
 protected:
  LumoExpressionVariable& only() const { return *visualization.getExpressionVariables().at(0); }
};

class BlendedElement : public Blend {};

/// Runs an action once, right before an element gets its first child.
class LatecomersAt : public LumoChangeObserver {
 public:
  LatecomersAt(LumoDocument& document, LumoBaseElement const& element, std::function<void()> action)
      : mDocument(document), mElement(element), mAction(std::move(action)) {
    mDocument.setChangeObserver(this);
  }
  LatecomersAt(LatecomersAt const&) = delete;
  LatecomersAt& operator=(LatecomersAt const&) = delete;
  ~LatecomersAt() override { mDocument.setChangeObserver(nullptr); }

  void beforeChange(Kind kind, LumoBaseElement const& element) override {
    if (kind != Kind::AddElement || &element != &mElement) return;
    if (auto const action = std::exchange(mAction, nullptr)) action();
  }

 private:
  LumoDocument& mDocument;
  LumoBaseElement const& mElement;
  std::function<void()> mAction;
};

struct ElementAdder {
  std::string name;
  CTElementType* (*add)(LumoGraph&);
};

void PrintTo(ElementAdder const& row, std::ostream* out) { *out << row.name; }

/// In the order in which they are taken.
ElementAdder const elementAdders[] = {
    {"area", [](LumoGraph& graph) -> CTElementType* { return graph.addArea(u"e"); }},
    {"interval", [](LumoGraph& graph) -> CTElementType* { return graph.addInterval(u"e"); }},
    {"line", [](LumoGraph& graph) -> CTElementType* { return graph.addLine(u"e"); }},
    {"edge", [](LumoGraph& graph) -> CTElementType* { return graph.addEdge(u"e"); }},
    {"path", [](LumoGraph& graph) -> CTElementType* { return graph.addPath(u"e"); }},
    {"point", [](LumoGraph& graph) -> CTElementType* { return graph.addPoint(u"e"); }},
    {"polygon", [](LumoGraph& graph) -> CTElementType* { return graph.addPolygon(u"e"); }},
    {"schema", [](LumoGraph& graph) -> CTElementType* { return graph.addSchema(u"e"); }}};

class EachBlendedElement : public Blend, public testing::WithParamInterface<ElementAdder> {
 protected:
  CTElementType& element = *GetParam().add(*graph.getGraph());
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, EachBlendedElement, testing::ValuesIn(elementAdders), caseName<ElementAdder>);

TEST_F(Blend, WritesEverythingInItsOrder) {
  XVariable mass = measure(u"sourceVariable0", u"Body mass");
  XVariable depth = measure(u"sourceVariable1", u"Bill depth");
  mass.setCategorical(true);
  graph.PanelingAddBlendVariable(mass);
  graph.PanelingAddBlendVariable(depth);
  graph.getGraph()->addPoint(u"points");
  ChangeLog log(document);
  graph.EndPaneling(true, false);
  EXPECT_THAT(
      log.linesOf({"sourceVariable", "visualization", "derivedVariable", "format", "relabel",
                   "expressionVariable", "graph", "facetLayout", "facetLevel", "point", "y"}),
      ElementsAre("sourceVariable categorical=false", "visualization adds derivedVariable",
                  "derivedVariable id=sourceVariable0label", "derivedVariable categorical=true",
                  "derivedVariable label=sourceVariable0label",
                  "derivedVariable value=constant(labelsourceVariable0)", "derivedVariable adds format",
                  "format adds relabel", "relabel from=labelsourceVariable0", "relabel to=Body mass",
                  "sourceVariable writes the same", "visualization adds derivedVariable",
                  "derivedVariable id=sourceVariable1label", "derivedVariable categorical=true",
                  "derivedVariable label=sourceVariable1label",
                  "derivedVariable value=constant(labelsourceVariable1)", "derivedVariable adds format",
                  "format adds relabel", "relabel from=labelsourceVariable1", "relabel to=Bill depth",
                  "visualization adds expressionVariable", "expressionVariable id=expressionVariable1",
                  "expressionVariable "
                  "expression=sourceVariable0/sourceVariable0label + sourceVariable1/sourceVariable1label",
                  "expressionVariable categorical=false", "expressionVariable shortLabel=Y Axis",
                  "expressionVariable adds format", "graph adds facetLayout", "facetLayout topDown=true",
                  "facetLayout adds facetLevel", "facetLevel id=facetLabel_matrixscatterx_1",
                  "facetLevel level=1", "facetLevel adds axis", "point adds y",
                  "y variable=expressionVariable1"));
}

TEST_F(Blend, OfOneVariableHasNoSum) {
  blend({u"mass"});
  EXPECT_EQ(expression(), "mass/masslabel");
}

TEST_F(Blend, OfTwoVariablesIsTheirSum) {
  blend({u"sourceVariable0", u"sourceVariable1"});
  EXPECT_EQ(expression(), "sourceVariable0/sourceVariable0label + sourceVariable1/sourceVariable1label");
}

TEST_F(Blend, OfThreeVariablesKeepsTheirOrder) {
  blend({u"c", u"a", u"b"});
  EXPECT_EQ(expression(), "c/clabel + a/alabel + b/blabel");
}

TEST_F(Blend, OfOneVariableTwiceHasItTwice) {
  XVariable mass = measure(u"mass");
  graph.PanelingAddBlendVariable(mass);
  graph.PanelingAddBlendVariable(mass);
  graph.EndPaneling(true, false);
  EXPECT_EQ(expression(), "mass/masslabel + mass/masslabel");
  EXPECT_THAT(ids(visualization.getDerivedVariables()), ElementsAre("masslabel", "masslabel"));
}

TEST_F(Blend, TakesVariablesThatAreNotCategorical) {
  XVariable mass = measure(u"mass");
  EXPECT_NO_THROW(graph.PanelingAddBlendVariable(mass));
  expectNoReport(recorder);
}

TEST_F(Blend, AsksTheWrapperForItsVariableByTheVirtualCall) {
  XVariable mass = measure(u"mass");
  StandIn standIn(*visualization.addSourceVariable(u"own"), mass.getImplementation());
  graph.PanelingAddBlendVariable(standIn);
  graph.EndPaneling(true, false);
  EXPECT_EQ(expression(), "mass/masslabel");
}

TEST_F(Blend, WritesNothingWhileItIsCollected) {
  XVariable mass = category(u"mass");
  std::string const before = document.AsUTF8();
  graph.PanelingAddBlendVariable(mass);
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(Blend, MakesACategoricalVariableOneOfNumbers) {
  XVariable mass = category(u"mass");
  graph.PanelingAddBlendVariable(mass);
  graph.EndPaneling(true, false);
  EXPECT_EQ(attribute(&mass.getImplementation(), u"categorical"), "false");
}

TEST_F(Blend, TakesADerivedVariableToo) {
  LumoDerivedVariable& derived = *visualization.addDerivedVariable(u"ratio");
  derived.setLabel(u"Ratio");
  XVariable ratio(derived);
  graph.PanelingAddBlendVariable(ratio);
  graph.EndPaneling(true, false);
  EXPECT_EQ(expression(), "ratio/ratiolabel");
  EXPECT_EQ(attribute(&derived, u"categorical"), "false");
}

TEST_F(Blend, TakesPlaceOfTheCrossVariablesCollectedBesideIt) {
  columns({u"island"});
  nestedRows({u"sex"});
  blend({u"mass"});
  EXPECT_EQ(panelTree(graph), "(no faceting)");
  EXPECT_THAT(ids(graph.getGraph()->getFacetLayout()->getFacetLevels()),
              ElementsAre("facetLabel_matrixscatterx_1"));
}

TEST_F(Blend, LeavesTheVariablesOfColumnsAndRowsCategorical) {
  XVariable island = category(u"island");
  graph.PanelingAddCrossVariable(island, XGraph::ROLE_COLUMN);
  blend({u"mass"});
  EXPECT_TRUE(island.getCategorical());
}

TEST_F(Blend, ReadsNeitherArgument) {
  LumoDocument other;
  XGraph twin(*other.getVisualization(), nullptr);
  for (XGraph* each : {&graph, &twin}) {
    XVariable mass = addCategory(*each, u"mass");
    each->PanelingAddBlendVariable(mass);
  }
  graph.EndPaneling(true, false);
  twin.EndPaneling(false, true);
  EXPECT_EQ(document.AsUTF8(), other.AsUTF8());
}

TEST_F(Blend, LeavesTheCoordinatesAlone) {
  graph.AddPrimaryXAxis(u"");
  collect({u"mass"});
  ChangeLog log(document);
  graph.EndPaneling(true, false);
  EXPECT_THAT(log.linesOf({"coordinates", "dimension"}), IsEmpty());
  EXPECT_THAT(log.linesOf({"axis"}),
              ElementsAre("axis style=axis_matrixscatterx_1s", "axis adds majorTicks"));
}

TEST_F(Blend, MakesNoCoordinates) {
  blend({u"mass"});
  EXPECT_THAT(childTags(*graph.getGraph()), ElementsAre("facetLayout"));
}

TEST_F(Blend, AddsItsLevelToALayoutThatExists) {
  unsigned int level = 1;
  graph.addFacetLevel(level, u"Island", u"5%", 0.0);
  blend({u"mass"});
  EXPECT_THAT(ids(graph.getGraph()->getFacetLayout()->getFacetLevels()),
              ElementsAre("facetLabel_panel_1", "facetLabel_matrixscatterx_1"));
}

TEST_F(Blend, TellsTheHostNothing) {
  collect({u"mass"});
  recorder.clear();
  graph.EndPaneling(true, false);
  EXPECT_THAT(recorder.lines(), IsEmpty());
}

TEST_F(Blend, IsMadeAgainAtASecondCall) {
  blend({u"mass", u"depth"});
  graph.EndPaneling(true, false);
  EXPECT_THAT(ids(visualization.getDerivedVariables()),
              ElementsAre("masslabel", "depthlabel", "masslabel", "depthlabel"));
  EXPECT_THAT(ids(visualization.getExpressionVariables()),
              ElementsAre("expressionVariable1", "expressionVariable2"));
  EXPECT_THAT(ids(graph.getGraph()->getFacetLayout()->getFacetLevels()),
              ElementsAre("facetLabel_matrixscatterx_1", "facetLabel_matrixscatterx_1"));
}

TEST_F(Blend, TakesTheLaterVariablesBehindTheEarlierOnesAtASecondCall) {
  blend({u"mass"});
  blend({u"depth"});
  EXPECT_EQ(attribute(visualization.getExpressionVariables().at(1), u"expression"),
            "mass/masslabel + depth/depthlabel");
}

TEST_F(BlendLabel, IsACategoricalConstantNamedAfterItsVariable) {
  blend({u"mass"});
  EXPECT_EQ(utf8(only().getId()), "masslabel");
  EXPECT_EQ(attribute(&only(), u"categorical"), "true");
  EXPECT_EQ(attribute(&only(), u"label"), "masslabel");
  EXPECT_EQ(attribute(&only(), u"value"), "constant(labelmass)");
}

TEST_F(BlendLabel, ShowsTheLabelOfItsVariable) {
  XVariable mass = measure(u"mass", u"Body mass");
  mass.setShortLabel(u"short");
  graph.PanelingAddBlendVariable(mass);
  graph.EndPaneling(true, false);
  ASSERT_THAT(only().getFormats(), SizeIs(1));
  auto const relabels = only().getFormats().at(0)->getRelabels();
  ASSERT_THAT(relabels, SizeIs(1));
  EXPECT_EQ(attribute(relabels.at(0), u"from"), "labelmass");
  EXPECT_EQ(attribute(relabels.at(0), u"to"), "Body mass");
}

TEST_F(BlendLabel, ShowsAnEmptyTextForAVariableWithoutLabel) {
  blend({u"mass"});
  EXPECT_EQ(attribute(only().getFormats().at(0)->getRelabels().at(0), u"to"), "");
  expectNoReport(recorder);
}

TEST_F(BlendLabel, ReadsTheLabelAtTheEnd) {
  XVariable mass = measure(u"mass", u"Mass");
  graph.PanelingAddBlendVariable(mass);
  mass.setLabel(u"Weight");
  graph.EndPaneling(true, false);
  EXPECT_EQ(attribute(only().getFormats().at(0)->getRelabels().at(0), u"to"), "Weight");
}

TEST_F(BlendLabel, LeavesTheVariableItsLabelAndFormat) {
  XVariable mass = measure(u"mass", u"Mass");
  graph.PanelingAddBlendVariable(mass);
  graph.EndPaneling(true, false);
  EXPECT_THAT(attributeNames(mass.getImplementation()), ElementsAre("categorical", "id", "label"));
  EXPECT_THAT(childTags(mass.getImplementation()), IsEmpty());
}

TEST_F(BlendExpression, HasAnIdOfOneMoreThanThereWere) {
  blend({u"mass"});
  EXPECT_EQ(utf8(only().getId()), "expressionVariable1");
}

TEST_F(BlendExpression, CountsTheExpressionsOfTheChart) {
  XVariable mass = measure(u"mass");
  XVariable depth = measure(u"depth");
  graph.AddExpressionVariable({&mass, &depth}, false);
  blend({u"length"});
  EXPECT_THAT(ids(visualization.getExpressionVariables()),
              ElementsAre("expressionVariable0", "expressionVariable2"));
}

TEST_F(BlendExpression, IsNotCategoricalAndHasAShortLabelAndAnEmptyFormat) {
  blend({u"mass"});
  EXPECT_EQ(attribute(&only(), u"categorical"), "false");
  EXPECT_EQ(attribute(&only(), u"shortLabel"), "Y Axis");
  EXPECT_EQ(attribute(&only(), u"label"), "(absent)");
  ASSERT_THAT(childTags(only()), ElementsAre("format"));
  EXPECT_THAT(attributeNames(*only().getFormats().at(0)), IsEmpty());
}

TEST_P(EachBlendedElement, PlotsTheExpressionOnYWhereItPlottedNothing) {
  blend({u"mass"});
  ASSERT_NE(element.getY(), nullptr);
  EXPECT_EQ(element.getY()->getVariable(), visualization.getExpressionVariables().at(0));
  EXPECT_THAT(childTags(element), ElementsAre("y"));
}

TEST_P(EachBlendedElement, PlotsTheExpressionInsteadOfWhatItPlotted) {
  XVariable other = measure(u"other");
  element.addY()->setVariable(other.getImplementation());
  blend({u"mass"});
  EXPECT_EQ(element.getY()->getVariable(), visualization.getExpressionVariables().at(0));
  EXPECT_THAT(childTags(element), ElementsAre("y"));
}

TEST_P(EachBlendedElement, KeepsWhatItPlotsOnX) {
  XVariable other = measure(u"other");
  element.addX()->setVariable(other.getImplementation());
  blend({u"mass"});
  EXPECT_EQ(element.getX()->getVariable(), &other.getImplementation());
}

TEST_F(BlendedElement, IsTakenByItsKindAndThenByItsPlace) {
  // Twice, and against the order of the kinds.
  for (int round = 0; round < 2; ++round) {
    for (std::size_t at = std::size(elementAdders); at > 0; --at)
      elementAdders[at - 1].add(*graph.getGraph());
  }
  collect({u"mass"});
  ChangeLog log(document);
  graph.EndPaneling(true, false);
  EXPECT_THAT(
      log.linesOf({"area", "interval", "line", "edge", "path", "point", "polygon", "schema"}),
      ElementsAre("area adds y", "area adds y", "interval adds y", "interval adds y", "line adds y",
                  "line adds y", "edge adds y", "edge adds y", "path adds y", "path adds y", "point adds y",
                  "point adds y", "polygon adds y", "polygon adds y", "schema adds y", "schema adds y"));
}

TEST_F(BlendedElement, GetsItsVariableBeforeTheNextOneIsTaken) {
  graph.getGraph()->addPoint(u"first");
  graph.getGraph()->addPoint(u"second");
  collect({u"mass"});
  ChangeLog log(document);
  graph.EndPaneling(true, false);
  EXPECT_THAT(log.linesOf({"point", "y"}), ElementsAre("point adds y", "y variable=expressionVariable1",
                                                       "point adds y", "y variable=expressionVariable1"));
}

TEST_F(BlendedElement, IsNotOneThatWasAddedBehindTheBlend) {
  blend({u"mass"});
  graph.AddPointElement();
  EXPECT_EQ(graph.getGraph()->getPoints().at(0)->getY(), nullptr);
}

TEST_F(BlendedElement, IsNotOneThatComesWhileTheElementsAreChanged) {
  LumoArea const& area = *graph.getGraph()->addArea(u"area");
  collect({u"mass"});
  LatecomersAt const latecomers(document, area, [&] { graph.getGraph()->addSchema(u"late"); });
  graph.EndPaneling(true, false);
  ASSERT_THAT(graph.getGraph()->getSchemas(), SizeIs(1));
  EXPECT_NE(area.getY(), nullptr);
  EXPECT_EQ(graph.getGraph()->getSchemas().at(0)->getY(), nullptr);
}

TEST_F(BlendedElement, IsAlsoOneThatComesBeforeThat) {
  collect({u"mass"});
  ChangeTrap const trap(document, 1, [&] { graph.getGraph()->addSchema(u"early"); });
  graph.EndPaneling(true, false);
  EXPECT_NE(graph.getGraph()->getSchemas().at(0)->getY(), nullptr);
}

TEST_F(Blend, StopsAtAWriteThatFailsAndKeepsWhatWasBuilt) {
  expectGuardedAtEveryWrite(
      recorder,
      [](XGraph& chart) {
        for (char16_t const* id : {u"mass", u"depth"}) {
          XVariable variable = addCategory(chart, id, u"Label");
          chart.PanelingAddBlendVariable(variable);
        }
        chart.getGraph()->addPoint(u"points");
        chart.getGraph()->addInterval(u"bars");
      },
      [](XGraph& chart) { chart.EndPaneling(true, false); }, "Error in XGraph::EndPaneling()");
}

TEST_F(EmptyChartTest, ABlendOfAChartWithoutGraphIsAReportedFailureBehindItsVariables) {
  XGraph attached(visualization);
  XVariable mass = addCategory(attached, u"mass");
  attached.PanelingAddBlendVariable(mass);
  EXPECT_NO_THROW(attached.EndPaneling(true, false));
  expectGuardReport(recorder, "Error in XGraph::EndPaneling()");
  EXPECT_THAT(childTags(visualization),
              ElementsAre("sourceVariable", "derivedVariable", "expressionVariable"));
}
