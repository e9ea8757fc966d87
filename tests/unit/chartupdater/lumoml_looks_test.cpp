// Charts that were upgraded from LumoML 1.4.

#include "updater_fixture.h"

#include "host/chartbase.h"
#include "host/messages.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/tokens.h"
#include "model/variables.h"

#include <gmock/gmock.h>

#include <ostream>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LumoMLLooks : public UpdaterTest {
 protected:
  LumoMLLooks() { visualization.setVersion(1.9); }

  /// What they write beside the default looks, in order.
  std::vector<std::string> ownWrites() {
    return beforeDefaultLooks(writesOf([this] { updater.AddDefaultLUMOMLLooks(); }));
  }

  LumoStyleCycle& addCycle(char16_t const* id) { return *visualization.addStyleCycle(id); }

  static LumoStyleBy& addStyleBy(CTElementType& element, char16_t const* id, CTVariableType const* variable,
                                 LumoStyleCycle const* cycle) {
    LumoStyleBy& styleBy = *element.addStyleBy(nullptr);
    styleBy.setId(id);
    if (variable != nullptr) styleBy.setVariable(*variable);
    if (cycle != nullptr) styleBy.setStyleCycle(*cycle);
    return styleBy;
  }

  /// The user's options templates, by their content.
  void setOptions(std::vector<std::string> const& contents) {
    std::vector<std::string> names;
    for (std::string const& content : contents) {
      names.push_back(std::to_string(names.size()) + ".xml");
      recorder.services().files->content[names.back()] = content;
    }
    recorder.services().templateSettings->set(host::TemplateKind::Options, names);
  }
};

// --- The version

struct Version {
  char const* name;
  char16_t const* version;
  bool isUpdated;
};
void PrintTo(Version const& row, std::ostream* out) { *out << row.name; }

class VersionOfAChart : public LumoMLLooks, public ::testing::WithParamInterface<Version> {};

TEST_P(VersionOfAChart, SaysWhetherItIsUpdated) {
  visualization.getImplementation()->removeAttribute(u"version");
  if (GetParam().version != nullptr)
    visualization.getImplementation()->setAttribute(u"version", GetParam().version);
  container.setColor(u"red");
  visualization.addLegend(u"legend");
  visualization.addSourceVariable(u"v")->setDescription(LumoUni::_log);
  updater.AddDefaultLUMOMLLooks();
  EXPECT_EQ(container.getColor() == nullptr, GetParam().isUpdated);
  EXPECT_EQ(visualization.getContainers().size(), GetParam().isUpdated ? 1u : 0u);
  EXPECT_EQ(visualization.getDerivedVariables().size(), GetParam().isUpdated ? 1u : 0u);
  EXPECT_NE(attribute(&visualization, u"date"), "(absent)");
  EXPECT_EQ(record().getStyleCycleRepository(), visualization.getStyleCycles().front());
}

INSTANTIATE_TEST_SUITE_P(Versions, VersionOfAChart,
                         ::testing::Values(Version{"None", nullptr, true}, Version{"Older", u"1.4", true},
                                           Version{"JustBelow", u"1.999", true},
                                           Version{"Upgraded", u"2.0", false},
                                           Version{"Newer", u"3.1", false}),
                         [](auto const& tested) { return tested.param.name; });

TEST_F(LumoMLLooks, AreTheDefaultLooksWhereThereIsNothingToDo) { EXPECT_THAT(ownWrites(), IsEmpty()); }

TEST_F(LumoMLLooks, AreMadeAgainByASecondCall) {
  visualization.addSourceVariable(u"v")->setDescription(LumoUni::_log);
  updater.AddDefaultLUMOMLLooks();
  updater.AddDefaultLUMOMLLooks();
  EXPECT_EQ(visualization.getDerivedVariables().size(), 2u);
}

// --- Styles

TEST_F(LumoMLLooks, EmptyTheContainerAndItsOwnStyles) {
  container.setColor(u"red");
  LumoStyle& style = *container.addStyle();
  style.setId(u"style");
  style.setColor2(u"green");
  style.addStyle()->setColor(u"blue");
  visualization.addStyle()->setColor(u"white");
  EXPECT_THAT(ownWrites(), ElementsAre("style removes color", "style removes color2"));
  EXPECT_EQ(utf8(style.getId()), "style");
  EXPECT_EQ(utf8(container.getId()), "container");
}

// --- Points

TEST_F(LumoMLLooks, ShowThePatternsOfPointsAsAShape) {
  LumoPoint& point = *graph.addPoint(u"point");
  point.setLabelCollisionHandling(CTElementType::LabelCollisionHandling1);
  LumoStyleBy const& kept = addStyleBy(point, u"colors", &addVariable(u"a"), &addCycle(u"styleCycleColor"));
  addStyleBy(point, u"patterns", &addVariable(u"b"), &addCycle(ChartBase::_styleCyclePattern));
  EXPECT_THAT(ownWrites(), ElementsAre("point removes labelCollisionHandling", "styleBy is removed",
                                       "point adds shape", "shape id=patterns", "shape variable=b"));
  EXPECT_THAT(point.getStyleBys(), ElementsAre(&kept));
}

TEST_F(LumoMLLooks, ShowOnlyTheFirstPatternsOfEachPointsAsAShape) {
  LumoPoint& first = *graph.addPoint(u"first");
  LumoPoint& second = *graph.addPoint(u"second");
  LumoStyleCycle const& patterns = addCycle(ChartBase::_styleCyclePattern);
  addStyleBy(first, u"one", nullptr, &patterns);
  addStyleBy(first, u"two", nullptr, &patterns);
  addStyleBy(second, u"three", nullptr, &patterns);
  ownWrites();
  EXPECT_THAT(idsOf(first, u"shape"), ElementsAre("one"));
  EXPECT_THAT(idsOf(first, u"styleBy"), ElementsAre("two"));
  EXPECT_THAT(idsOf(second, u"shape"), ElementsAre("three"));
}

TEST_F(LumoMLLooks, ShowNoShapeForPointsWithoutPatterns) {
  LumoPoint& point = *graph.addPoint(u"point");
  addStyleBy(point, u"one", &addVariable(u"a"), nullptr);
  addStyleBy(point, u"two", &addVariable(u"b"), &addCycle(u"styleCyclePattern2"));
  EXPECT_THAT(ownWrites(), IsEmpty());
}

TEST_F(LumoMLLooks, GiveTheShapeNoVariableWhereThePatternsHadNone) {
  addStyleBy(*graph.addPoint(u"point"), u"patterns", nullptr, &addCycle(ChartBase::_styleCyclePattern));
  EXPECT_THAT(ownWrites(), ElementsAre("styleBy is removed", "point adds shape", "shape id=patterns"));
}

TEST_F(LumoMLLooks, LeaveTwoGraphsAlone) {
  LumoPoint& point = *graph.addPoint(u"point");
  point.setLabelCollisionHandling(CTElementType::LabelCollisionHandling1);
  addStyleBy(point, u"patterns", nullptr, &addCycle(ChartBase::_styleCyclePattern));
  visualization.addGraph(u"second");
  EXPECT_THAT(ownWrites(), IsEmpty());
}

// --- Error bars

class ErrorBars : public LumoMLLooks {
 protected:
  LumoInterval& addErrorBar(char16_t const* id) {
    LumoInterval& interval = *graph.addInterval(id);
    addSummary(interval, 7);
    return interval;
  }
};

struct Bar {
  char const* name;
  char16_t const* id;
  std::vector<int> methods;
  bool isErrorBar;
};
void PrintTo(Bar const& row, std::ostream* out) { *out << row.name; }

class KindOfABar : public ErrorBars, public ::testing::WithParamInterface<Bar> {};

TEST_P(KindOfABar, SaysWhetherItIsPlacedAsAnErrorBar) {
  LumoInterval& interval = *graph.addInterval(GetParam().id);
  for (int const method : GetParam().methods) addSummary(interval, method);
  EXPECT_EQ(ownWrites(), GetParam().isErrorBar ? std::vector<std::string>{"interval positionModifier=1"}
                                               : std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(Bars, KindOfABar,
                         ::testing::Values(Bar{"ByStatisticAndId", u"element_errorbar_1", {7}, true},
                                           Bar{"ByTheWordAlone", u"errorbar", {7, 26}, true},
                                           Bar{"OtherStatistic", u"errorbar", {26}, false},
                                           Bar{"OtherFirstStatistic", u"errorbar", {26, 7}, false},
                                           Bar{"NoStatistic", u"errorbar", {}, false},
                                           Bar{"OtherId", u"element_bar_1", {7}, false},
                                           Bar{"UpperCase", u"ERRORBAR", {7}, false},
                                           Bar{"MixedCase", u"errorBar", {7}, false},
                                           Bar{"NoId", nullptr, {7}, false}),
                         [](auto const& tested) { return tested.param.name; });

TEST_F(ErrorBars, ShowTheirStyleAsAColorWhereOnlyColorsAreWanted) {
  LumoInterval& interval = addErrorBar(u"errorbar");
  addStyleBy(interval, u"style", &addVariable(u"a"), nullptr);
  EXPECT_THAT(ownWrites(),
              ElementsAre("interval positionModifier=1", "styleBy is removed", "interval adds color",
                          "color id=style", "color variable=a", "color affect=1"));
}

TEST_F(ErrorBars, ShowTheirStyleAsADashWhereMoreThanColorsAreWanted) {
  setOptions({"<template/>"});
  LumoInterval& interval = addErrorBar(u"errorbar");
  addStyleBy(interval, u"style", &addVariable(u"a"), nullptr);
  EXPECT_THAT(ownWrites(), ElementsAre("interval positionModifier=1", "styleBy is removed",
                                       "interval adds dash", "dash id=style", "dash variable=a"));
}

TEST_F(ErrorBars, ShowTheirStyleAsAColorWhereTheTemplatesSayColorsOnly) {
  setOptions({"<template name='ColorsOnly'/>"});
  LumoInterval& interval = addErrorBar(u"errorbar");
  addStyleBy(interval, u"style", nullptr, nullptr);
  EXPECT_THAT(ownWrites(), ElementsAre("interval positionModifier=1", "styleBy is removed",
                                       "interval adds color", "color id=style", "color affect=1"));
}

TEST_F(ErrorBars, AskForTheTemplatesForEachStyle) {
  LumoInterval& interval = addErrorBar(u"errorbar");
  addStyleBy(interval, u"first", nullptr, nullptr);
  addStyleBy(interval, u"second", nullptr, nullptr);
  updater.AddDefaultLUMOMLLooks();
  EXPECT_EQ(recorder.count(Operation::TemplateNames), 2u);
}

TEST_F(ErrorBars, LoseEverySecondStyleOnlyAndGetAColorForAll) {
  LumoInterval& interval = addErrorBar(u"errorbar");
  for (char16_t const* id : {u"first", u"second", u"third", u"fourth"})
    addStyleBy(interval, id, nullptr, nullptr);
  EXPECT_THAT(
      ownWrites(),
      ElementsAre("interval positionModifier=1",                                                     //
                  "styleBy is removed", "interval adds color", "color id=first", "color affect=1",   //
                  "styleBy is removed", "interval adds color", "color id=second", "color affect=1",  //
                  "interval adds color", "color id=third", "color affect=1",                         //
                  "interval adds color", "color id=fourth", "color affect=1"));
  EXPECT_THAT(idsOf(interval, u"styleBy"), ElementsAre("second", "fourth"));
}

TEST_F(ErrorBars, KeepTheirStylesBesideOtherIntervals) {
  addStyleBy(addErrorBar(u"errorbar"), u"style", nullptr, nullptr);
  addErrorBar(u"errorbar2");
  EXPECT_THAT(ownWrites(), ElementsAre("interval positionModifier=1", "interval positionModifier=1"));
}

TEST_F(ErrorBars, AreTheOnlyIntervalsThatLoseTheirStyles) {
  LumoInterval& interval = *graph.addInterval(u"element_bar_1");
  addSummary(interval, 7);
  addStyleBy(interval, u"style", nullptr, nullptr);
  EXPECT_THAT(ownWrites(), IsEmpty());
}

// --- Box plots

TEST_F(LumoMLLooks, TakeFencesAndCollisionHandlingFromBoxPlots) {
  LumoSchema& schema = *graph.addSchema(u"box");
  schema.setFenceStyle(container);
  schema.setLabelCollisionHandling(CTElementType::LabelCollisionHandling2);
  EXPECT_THAT(ownWrites(), ElementsAre("schema removes labelCollisionHandling", "schema removes fenceStyle"));
}

// --- Legends

TEST_F(LumoMLLooks, PutLegendsIntoAContainer) {
  LumoLegend const* const first = visualization.addLegend(u"first");
  LumoLegend const* const second = visualization.addLegend(u"second");
  auto const writes = writesOf([this] { updater.AddDefaultLUMOMLLooks(); });
  EXPECT_THAT(std::vector<std::string>(writes.begin(), writes.begin() + 4),
              ElementsAre("visualization adds container", "container id=legendContainer", "legend is moved",
                          "legend is moved"));
  ASSERT_EQ(visualization.getContainers().size(), 1u);
  EXPECT_THAT(visualization.getContainers()[0]->getLegends(), ElementsAre(first, second));
}

TEST_F(LumoMLLooks, LeaveLegendsWhereThereIsAContainer) {
  visualization.addContainer(u"mine");
  visualization.addLegend(u"legend");
  updater.AddDefaultLUMOMLLooks();
  EXPECT_EQ(visualization.getLegends().size(), 1u);
  EXPECT_EQ(visualization.getContainers().size(), 1u);
}

TEST_F(LumoMLLooks, PutTheLegendsOfAnyNumberOfGraphsIntoAContainer) {
  visualization.addGraph(u"second");
  visualization.addLegend(u"legend");
  updater.AddDefaultLUMOMLLooks();
  EXPECT_EQ(visualization.getContainers().size(), 1u);
}

// --- Logarithms

/// A variable that is described as a logarithm.
class Logarithm : public LumoMLLooks {
 protected:
  Logarithm() { source.setDescription(LumoUni::_log); }

  LumoDerivedVariable& derived() { return *visualization.getDerivedVariables().front(); }

  LumoSourceVariable& source = addVariable(u"v1");
};

TEST_F(Logarithm, BecomesAVariableThatComputesIt) {
  source.setKey(true);
  source.setCreator(u"externalDatasource");
  EXPECT_THAT(ownWrites(), ElementsAre("visualization adds derivedVariable", "derivedVariable id=v1log",
                                       "derivedVariable value=log(v1)", "derivedVariable categorical=false",
                                       "derivedVariable creator=externalDatasource",
                                       "derivedVariable key=true", "derivedVariable weight=false"));
}

TEST_F(Logarithm, IsOfTheSameKindAsItsSource) {
  source.setCategorical(true);
  source.setWeight(true);
  updater.AddDefaultLUMOMLLooks();
  EXPECT_EQ(attribute(&derived(), u"categorical"), "true");
  EXPECT_EQ(attribute(&derived(), u"weight"), "true");
  EXPECT_EQ(attribute(&derived(), u"key"), "false");
  EXPECT_EQ(attribute(&derived(), u"creator"), "(absent)");
}

TEST_F(Logarithm, LeavesItsSourceInTheChart) {
  updater.AddDefaultLUMOMLLooks();
  EXPECT_THAT(visualization.getSourceVariables(), ElementsAre(&source));
}

TEST_F(Logarithm, IsTheVariableWithExactlyThatDescription) {
  source.setDescription(u"Log");
  addVariable(u"v2").setDescription(u"log of v1");
  addVariable(u"v3");
  EXPECT_THAT(ownWrites(), IsEmpty());
}

TEST_F(Logarithm, TakesThePlaceOfItsSourceInIntervalDomains) {
  LumoIntervalDomain& domain = *visualization.addIntervalDomain(u"domain");
  LumoVariableReference const& other = *domain.addVariableReference(addVariable(u"v2"));
  LumoVariableReference const& first = *domain.addVariableReference(source);
  LumoVariableReference const& second =
      *visualization.addIntervalDomain(u"domain2")->addVariableReference(source);
  LumoVariableReference const& categorical =
      *visualization.addCategoricalDomain(u"domain3")->addVariableReference(source);
  updater.AddDefaultLUMOMLLooks();
  EXPECT_EQ(first.getRef(), &derived());
  EXPECT_EQ(second.getRef(), &derived());
  EXPECT_EQ(utf8(other.getRef()->getId()), "v2");
  EXPECT_EQ(categorical.getRef(), &source);
}

TEST_F(Logarithm, LeavesReferencesToNothing) {
  LumoIntervalDomain& domain = *visualization.addIntervalDomain(u"domain");
  LumoVariableReference const& reference = *domain.addVariableReference(source);
  reference.getImplementation()->setAttribute(u"ref", u"gone");
  EXPECT_NO_THROW(updater.AddDefaultLUMOMLLooks());
  EXPECT_EQ(attribute(&reference, u"ref"), "gone");
}

TEST_F(Logarithm, TakesThePlaceOfItsSourceAsTheYOfLines) {
  graph.addLine(u"none");
  LumoLine& other = *graph.addLine(u"other");
  other.addY()->setVariable(addVariable(u"v2"));
  LumoLine& line = *graph.addLine(u"line");
  line.addX()->setVariable(source);
  line.addY()->setVariable(source);
  graph.addLine(u"empty")->addY();
  LumoPoint& point = *graph.addPoint(u"point");
  point.addY()->setVariable(source);
  updater.AddDefaultLUMOMLLooks();
  EXPECT_EQ(line.getY()->getVariable(), &derived());
  EXPECT_EQ(line.getX()->getVariable(), &source);
  EXPECT_EQ(utf8(other.getY()->getVariable()->getId()), "v2");
  EXPECT_EQ(point.getY()->getVariable(), &source);
}

TEST_F(Logarithm, TakesThePlaceOfItsSourceInTheFirstOfSeveralGraphsOnly) {
  LumoLine& line = *graph.addLine(u"line");
  line.addY()->setVariable(source);
  LumoLine& other = *visualization.addGraph(u"second")->addLine(u"line");
  other.addY()->setVariable(source);
  updater.AddDefaultLUMOMLLooks();
  EXPECT_EQ(line.getY()->getVariable(), &derived());
  EXPECT_EQ(other.getY()->getVariable(), &source);
}

TEST_F(Logarithm, OfTheSameIdLeavesAnotherVariableOnALine) {
  LumoSourceVariable& twin = addVariable(u"v1");
  LumoLine& line = *graph.addLine(u"line");
  line.addY()->setVariable(twin);
  updater.AddDefaultLUMOMLLooks();
  EXPECT_EQ(line.getY()->getVariable(), &twin);
}

TEST_F(Logarithm, NeedsNoGraph) {
  LumoDocument other;
  other.getVisualization()->addSourceVariable(u"v")->setDescription(LumoUni::_log);
  EXPECT_NO_THROW(ChartUpdater(other).AddDefaultLUMOMLLooks());
  EXPECT_EQ(other.getVisualization()->getDerivedVariables().size(), 1u);
}

TEST_F(Logarithm, IsMadeOfEachSuchVariable) {
  addVariable(u"v2").setDescription(LumoUni::_log);
  updater.AddDefaultLUMOMLLooks();
  EXPECT_THAT(idsOf(visualization, u"derivedVariable"), ElementsAre("v1log", "v2log"));
}

// --- All of them

TEST_F(LumoMLLooks, ComeInAFixedOrder) {
  addVariable(u"v1").setDescription(LumoUni::_log);
  visualization.addLegend(u"legend");
  container.setColor(u"red");
  graph.addSchema(u"box")->setFenceStyle(container);
  addSummary(*graph.addInterval(u"errorbar"), 7);
  graph.addPoint(u"point")->setLabelCollisionHandling(CTElementType::LabelCollisionHandling1);
  auto const writes = writesOf([this] { updater.AddDefaultLUMOMLLooks(); });
  ASSERT_GT(writes.size(), 15u);
  EXPECT_THAT(
      std::vector<std::string>(writes.begin(), writes.begin() + 8),
      ElementsAre("style removes color", "point removes labelCollisionHandling",
                  "interval positionModifier=1", "schema removes fenceStyle", "visualization adds container",
                  "container id=legendContainer", "legend is moved", "visualization adds derivedVariable"));
}

TEST_F(LumoMLLooks, LetEveryFailurePassAndKeepWhatWasWritten) {
  FailingOperation const operation = {
      [](ChartOfOneRun& chart) {
        LumoVisualization& made = *chart.document.getVisualization();
        LumoGraph& charted = *chart.graph.getGraph();
        LumoSourceVariable& variable = *made.addSourceVariable(u"v");
        variable.setDescription(LumoUni::_log);
        LumoStyleCycle const& cycle = *made.addStyleCycle(ChartBase::_styleCyclePattern);
        addStyleBy(*charted.addPoint(u"point"), u"patterns", &variable, &cycle);
        LumoInterval& bar = *charted.addInterval(u"errorbar");
        addSummary(bar, 7);
        addStyleBy(bar, u"style", &variable, nullptr);
        made.addIntervalDomain(u"domain")->addVariableReference(variable);
        charted.addLine(u"line")->addY()->setVariable(variable);
        made.addLegend(u"legend");
      },
      [](ChartOfOneRun& chart) { ChartUpdater(chart.document).AddDefaultLUMOMLLooks(); }};
  expectFailuresToPass(recorder, operation);
}

}  // namespace
}  // namespace kestrel::test
