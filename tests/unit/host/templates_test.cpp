#include "host/templates.h"

#include "kestrelhost/recorder.h"
#include "model/document.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/tokens.h"

#include <gtest/gtest.h>

using namespace kestrel::host;

namespace {

class ChartTest : public testing::Test {
 protected:
  LumoVisualization& chart() { return *document.getVisualization(); }
  LumoGraph& graph() {
    if (mGraph == nullptr) mGraph = chart().addGraph(u"graph");
    return *mGraph;
  }

  LumoDocument document;

 private:
  LumoGraph* mGraph = nullptr;
};

using BaseTemplateTest = ChartTest;

TEST_F(BaseTemplateTest, FindsTheElementsOfEveryKind) {
  CTElementType* const point = graph().addPoint(u"p");
  CTElementType* const area = graph().addArea(u"a");
  CTElementType* const secondArea = graph().addArea(u"b");
  CTElementType* const schema = graph().addSchema(u"s");
  CTElementType* const line = graph().addLine(u"l");
  CTElementType* const interval = graph().addInterval(u"i");
  CTElementType* const edge = graph().addEdge(u"e");
  CTElementType* const path = graph().addPath(u"t");
  CTElementType* const polygon = graph().addPolygon(u"o");
  std::vector<CTElementType*> elements;
  BaseTemplate::getAllElements(graph(), elements);
  EXPECT_EQ(elements, (std::vector<CTElementType*>{area, secondArea, edge, interval, line, path, point,
                                                   polygon, schema}));
}

TEST_F(BaseTemplateTest, AppendsTheElementsToTheList) {
  CTElementType* const point = graph().addPoint(u"p");
  std::vector<CTElementType*> elements = {nullptr};
  BaseTemplate::getAllElements(graph(), elements);
  EXPECT_EQ(elements, (std::vector<CTElementType*>{nullptr, point}));
}

TEST_F(BaseTemplateTest, FindsNoElementsInAnEmptyGraph) {
  std::vector<CTElementType*> elements;
  BaseTemplate::getAllElements(graph(), elements);
  EXPECT_TRUE(elements.empty());
}

TEST_F(BaseTemplateTest, FindsDimensionsByTheirPlace) {
  LumoCoordinates* const coordinates = graph().addCoordinates(u"c");
  LumoDimension* const x = coordinates->addDimension();
  LumoDimension* const y = coordinates->addDimension();
  BaseTemplate const finder(nullptr, chart());
  EXPECT_EQ(finder.getDimensionsByRole(graph(), ChartString(LumoUni::_x)), std::vector<LumoDimension*>{x});
  EXPECT_EQ(finder.getDimensionsByRole(graph(), ChartString(LumoUni::_y)), std::vector<LumoDimension*>{y});
  EXPECT_TRUE(finder.getDimensionsByRole(graph(), ChartString(LumoUni::_z)).empty());
}

TEST_F(BaseTemplateTest, FindsTheDimensionsOfAllCoordinates) {
  std::vector<LumoDimension*> expected;
  for (int count = 0; count < 3; ++count) {
    LumoCoordinates* const coordinates = graph().addCoordinates(u"c");
    coordinates->addDimension();
    coordinates->addDimension();
    expected.push_back(coordinates->addDimension());
  }
  EXPECT_EQ(BaseTemplate(nullptr, chart()).getDimensionsByRole(graph(), ChartString(u"z")), expected);
}

// A secondary y axis: the coordinates share x with the first ones.
TEST_F(BaseTemplateTest, AReferenceTakesThePlaceOfADimension) {
  LumoCoordinates* const first = graph().addCoordinates(u"first");
  LumoDimension* const x = first->addDimension();
  LumoDimension* const y = first->addDimension();
  LumoCoordinates* const second = graph().addCoordinates(u"second");
  second->addDimensionReference()->setRef(*x);
  LumoDimension* const secondY = second->addDimension();
  BaseTemplate const finder(nullptr, chart());
  using Found = std::vector<LumoDimension*>;
  EXPECT_EQ(finder.getDimensionsByRole(graph(), ChartString(u"x")), Found{x});
  EXPECT_EQ(finder.getDimensionsByRole(graph(), ChartString(u"y")), (Found{y, secondY}));
  EXPECT_EQ(finder.getDimensionsByRole(graph(), ChartString(u"z")), Found{});
}

TEST_F(BaseTemplateTest, AReferenceBehindADimensionLeavesItsPlace) {
  LumoCoordinates* const coordinates = graph().addCoordinates(u"c");
  LumoDimension* const x = coordinates->addDimension();
  coordinates->addDimensionReference();
  LumoDimension* const z = coordinates->addDimension();
  BaseTemplate const finder(nullptr, chart());
  using Found = std::vector<LumoDimension*>;
  EXPECT_EQ(finder.getDimensionsByRole(graph(), ChartString(u"x")), Found{x});
  EXPECT_EQ(finder.getDimensionsByRole(graph(), ChartString(u"y")), Found{});
  EXPECT_EQ(finder.getDimensionsByRole(graph(), ChartString(u"z")), Found{z});
}

TEST_F(BaseTemplateTest, WhatElseStandsInCoordinatesTakesNoPlace) {
  LumoCoordinates* const coordinates = graph().addCoordinates(u"c");
  coordinates->addTransposeTransform();
  LumoDimension* const x = coordinates->addDimension();
  coordinates->addSameRatioTransform();
  LumoDimension* const y = coordinates->addDimension();
  BaseTemplate const finder(nullptr, chart());
  EXPECT_EQ(finder.getDimensionsByRole(graph(), ChartString(u"x")), std::vector<LumoDimension*>{x});
  EXPECT_EQ(finder.getDimensionsByRole(graph(), ChartString(u"y")), std::vector<LumoDimension*>{y});
}

TEST_F(BaseTemplateTest, DimensionsBeyondTheThirdHaveNoRole) {
  LumoCoordinates* const coordinates = graph().addCoordinates(u"c");
  for (int count = 0; count < 4; ++count) coordinates->addDimension();
  BaseTemplate const finder(nullptr, chart());
  EXPECT_EQ(finder.getDimensionsByRole(graph(), ChartString(u"z")).size(), 1u);
  EXPECT_TRUE(finder.getDimensionsByRole(graph(), ChartString()).empty());
}

TEST_F(BaseTemplateTest, FindsNoDimensionOfAnUnknownRole) {
  graph().addCoordinates(u"c")->addDimension();
  EXPECT_TRUE(BaseTemplate(nullptr, chart()).getDimensionsByRole(graph(), ChartString(u"w")).empty());
  EXPECT_TRUE(BaseTemplate(nullptr, chart()).getDimensionsByRole(graph(), ChartString()).empty());
}

using ChartTemplateTest = ChartTest;

TEST_F(ChartTemplateTest, GoesThroughTheHostsEngine) {
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  ChartTemplate chartTemplate(chart(), nullptr);
  EXPECT_TRUE(chartTemplate.setTemplate("<template/>"));
  chartTemplate.applyTemplate();
  ChartTemplate const withBaseline(chart(), &chart());
  std::vector<std::string> const expected = {
      "ChartTemplate::ChartTemplate(baseline=false)", "ChartTemplate::setTemplate(xml=\"<template/>\")",
      "ChartTemplate::applyTemplate()", "ChartTemplate::ChartTemplate(baseline=true)"};
  EXPECT_EQ(recorder.lines(), expected);
}

TEST_F(ChartTemplateTest, IsRefusedWhereTheEngineRefusesIt) {
  Recorder recorder;
  recorder.services().templateEngine->accepts = false;
  ScopedHost const scope(recorder.host());
  EXPECT_FALSE(ChartTemplate(chart(), nullptr).setTemplate("<template/>"));
}

TEST_F(ChartTemplateTest, WithoutAnEngineIsRefusedAndNotedOnce) {
  Host host = MemoryServices().host();
  host.templateEngine = std::make_shared<NoTemplateEngine>();
  Recorder recorder(host);
  ScopedHost const scope(recorder.host());
  std::string const before = document.AsUTF8();
  for (int time = 0; time < 2; ++time) {
    ChartTemplate chartTemplate(chart(), nullptr);
    EXPECT_FALSE(chartTemplate.setTemplate("<template/>"));
    chartTemplate.applyTemplate();
  }
  EXPECT_EQ(document.AsUTF8(), before);
  EXPECT_EQ(recorder.count(Operation::Note), 1u);
}

using FramePackerTest = ChartTest;

TEST_F(FramePackerTest, WithoutALayoutLeavesTheChartAlone) {
  Host host = MemoryServices().host();
  host.frameLayout = std::make_shared<NoFrameLayout>();
  Recorder recorder(host);
  chart().addLabelFrame(u"frame_title_1")->addLabel()->addText()->setText(u"Title");
  ScopedHost const scope(recorder.host());
  std::string const before = document.AsUTF8();
  EXPECT_FALSE(FramePacker().packFrames(chart(), nullptr));
  EXPECT_EQ(document.AsUTF8(), before);
  EXPECT_EQ(recorder.lines(), std::vector<std::string>{"FramePacker::packFrames(baseline=false)"});
}

TEST_F(FramePackerTest, LaysFramesOutByItself) {
  chart().addLabelFrame(u"frame_title_1")->addLabel()->addText()->setText(u"Title");
  EXPECT_TRUE(FramePacker().packFrames(chart(), nullptr));
  EXPECT_FALSE(chart().getLabelFrames().front()->getLocations().empty());
}

TEST(ChartTransformerTest, WithoutAServiceGivesNothingAndNotesItOnce) {
  Host host = MemoryServices().host();
  host.dataDump = std::make_shared<NoDataDump>();
  Recorder recorder(host);
  ScopedHost const scope(recorder.host());
  unsigned char const stream[] = {1, 2, 3};
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(ChartTransformer("compressed", stream, sizeof stream).getEntireXML(u"UTF-8"), "");
  }
  Entry const call = recorder.entries(Operation::GetEntireXML).at(0);
  EXPECT_EQ(call.text("compressed"), "compressed");
  EXPECT_EQ(call.text("stream"), "\1\2\3");
  EXPECT_EQ(call.text("encoding"), "UTF-8");
  EXPECT_EQ(recorder.count(Operation::Note), 1u);
}

using Names = std::vector<std::string>;

TEST(TemplateSettingsTest, OfThePlainHostAreEmptyAndClean) {
  ScopedHost const scope{Host()};
  EXPECT_EQ(STemplate().Get(), Names());
  EXPECT_EQ(OTemplate().Get(), Names());
  EXPECT_EQ(CTemplate().Get(), Names());
  EXPECT_EQ(DTemplate().Get(), Names());
  EXPECT_FALSE(CTemplate().Exists());
  EXPECT_FALSE(STemplate().isDirty());
}

TEST(TemplateSettingsTest, KeepEveryKindApart) {
  MemoryServices services;
  services.templateSettings->set(TemplateKind::Styles, {"s1", "s2"});
  services.templateSettings->set(TemplateKind::Options, {"o"});
  services.templateSettings->set(TemplateKind::Chosen, {"c"});
  services.templateSettings->set(TemplateKind::Default, {"d"});
  ScopedHost const scope(services.host());
  EXPECT_EQ(STemplate().Get(), (Names{"s1", "s2"}));
  EXPECT_EQ(OTemplate().Get(), Names{"o"});
  EXPECT_EQ(CTemplate().Get(), Names{"c"});
  EXPECT_EQ(DTemplate().Get(), Names{"d"});
  EXPECT_TRUE(CTemplate().Exists());
}

/// Every instance speaks for the one state.
template <typename Settings>
void expectOneDirtyState(TemplateLists& lists, TemplateKind kind) {
  lists.set(kind, {"file"});
  EXPECT_TRUE(Settings().isDirty());
  Settings().setIsDirty(false);
  EXPECT_FALSE(Settings().isDirty());
  Settings().setIsDirty(true);
  EXPECT_TRUE(Settings().isDirty());
}

TEST(TemplateSettingsTest, AreDirtyUntilSomebodyHasReadThem) {
  MemoryServices services;
  ScopedHost const scope(services.host());
  expectOneDirtyState<STemplate>(*services.templateSettings, TemplateKind::Styles);
  expectOneDirtyState<OTemplate>(*services.templateSettings, TemplateKind::Options);
  expectOneDirtyState<CTemplate>(*services.templateSettings, TemplateKind::Chosen);
  expectOneDirtyState<DTemplate>(*services.templateSettings, TemplateKind::Default);
}

}  // namespace
