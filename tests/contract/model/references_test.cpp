#include "operations.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class EveryReference : public testing::TestWithParam<ReferenceProperty> {
 protected:
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
  LumoBaseElement& element = *GetParam().make(chart);

  LumoBaseElement& makeTarget(char16_t const* id) { return *GetParam().makeTarget(chart, id); }
  void refer(LumoBaseElement& target) { GetParam().set(element, target); }
  std::string written() { return utf8(element.getAttribute(GetParam().attribute)); }
  void expectNamed(LumoBaseElement* expected) {
    if (!GetParam().get) return;
    EXPECT_EQ(GetParam().get(element), expected);
  }
};

TEST_P(EveryReference, IsNullBeforeItIsSet) {
  // A conditional style is made with one.
  element.getImplementation()->removeAttribute(GetParam().attribute);
  expectNamed(nullptr);
}

TEST_P(EveryReference, NamesTheTargetAndGivesItBack) {
  LumoBaseElement& target = makeTarget(u"target");
  refer(target);
  EXPECT_EQ(written(), "target");
  expectNamed(&target);
}

TEST_P(EveryReference, LeavesTheTargetWhereItIs) {
  LumoBaseElement& target = makeTarget(u"target");
  xercesc::DOMNode const* const parent = target.getImplementation()->getParentNode();
  refer(target);
  EXPECT_EQ(target.getImplementation()->getParentNode(), parent);
}

TEST_P(EveryReference, FollowsTheIdOfItsTarget) {
  LumoBaseElement& target = makeTarget(u"target");
  refer(target);
  target.setId(u"renamed");
  EXPECT_EQ(written(), "renamed");
  expectNamed(&target);
}

TEST_P(EveryReference, NamesATargetAsSoonAsThatGetsAnId) {
  LumoBaseElement& target = makeTarget(nullptr);
  refer(target);
  expectNamed(&target);
  target.setId(u"late");
  EXPECT_EQ(written(), "late");
  expectNamed(&target);
}

TEST_P(EveryReference, GivesTheVeryObjectAlthoughTheIdIsTaken) {
  LumoBaseElement& first = makeTarget(u"target");
  LumoBaseElement& second = makeTarget(u"target");
  refer(second);
  expectNamed(&second);
  refer(first);
  expectNamed(&first);
}

TEST_P(EveryReference, TheLastOneSetCounts) {
  LumoBaseElement& first = makeTarget(u"first");
  LumoBaseElement& second = makeTarget(u"second");
  refer(first);
  refer(second);
  EXPECT_EQ(written(), "second");
  expectNamed(&second);
  first.setId(u"renamed");
  EXPECT_EQ(written(), "second") << "the earlier target is followed no more";
}

TEST_P(EveryReference, ResolvesToTheFirstOfTheIdWhenParsedAgain) {
  makeTarget(u"target").getImplementation()->setAttribute(u"mark", u"first");
  LumoBaseElement& second = makeTarget(u"target");
  refer(second);
  ParsedChart parsed(document.AsUTF8());
  LumoBaseElement* const again =
      objectOn(firstOf(parsed.chart(), element.getImplementation()->getLocalName()));
  ASSERT_NE(again, nullptr);
  ASSERT_EQ(utf8(again->getAttribute(GetParam().attribute)), "target");
  if (!GetParam().get) return;
  LumoBaseElement* const named = GetParam().get(*again);
  ASSERT_NE(named, nullptr);
  EXPECT_EQ(utf8(named->getAttribute(u"mark")), "first");
}

TEST_P(EveryReference, IsNullWhenItsTextNamesNothing) {
  element.getImplementation()->setAttribute(GetParam().attribute, u"nobody");
  expectNamed(nullptr);
}

TEST_P(EveryReference, GoesByTextThatWasWrittenPastTheModel) {
  LumoBaseElement& told = makeTarget(u"told");
  LumoBaseElement& written = makeTarget(u"written");
  refer(told);
  element.getImplementation()->setAttribute(GetParam().attribute, u"written");
  expectNamed(&written);
  element.getImplementation()->removeAttribute(GetParam().attribute);
  expectNamed(nullptr);
}

INSTANTIATE_TEST_SUITE_P(Model, EveryReference, testing::ValuesIn(referenceProperties()),
                         rowName<ReferenceProperty>);

class References : public testing::Test {
 protected:
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
};

TEST_F(References, OfParsedTextFollowTheIdToo) {
  ParsedChart parsed(
      chartText("<graph id='g' cellStyle='s'><point style='s'/></graph><style id='s'/><style id='t'/>"));
  LumoGraph& graph = *parsed.chart().getGraphs().at(0);
  parsed.chart().getStyles().at(0)->setId(u"renamed");
  EXPECT_EQ(utf8(graph.getAttribute(u"cellStyle")), "renamed");
  EXPECT_EQ(utf8(graph.getPoints().at(0)->getAttribute(u"style")), "renamed");
}

TEST_F(References, OfParsedTextFollowTheFirstOfTheIdOnly) {
  ParsedChart parsed(chartText("<graph cellStyle='s'/><style id='s'/><style id='s'/>"));
  parsed.chart().getStyles().at(1)->setId(u"renamed");
  EXPECT_EQ(utf8(parsed.chart().getGraphs().at(0)->getAttribute(u"cellStyle")), "s");
}

TEST_F(References, OfParsedTextKeepTheirTargetThroughItsNewId) {
  ParsedChart parsed(chartText("<graph cellStyle='s'/><style id='taken'/><style id='s'/>"));
  LumoStyle* const target = parsed.chart().getStyles().at(1);
  target->setId(u"taken");
  EXPECT_EQ(parsed.chart().getGraphs().at(0)->getCellStyle(), target);
}

TEST_F(References, OfParsedExtensionsFollowTheId) {
  ParsedChart parsed(
      chartText("<extension legend12='l' title1='f' position='l'/><legend id='l'/><labelFrame id='f'/>"));
  parsed.chart().getLegends().at(0)->setId(u"legend");
  parsed.chart().getLabelFrames().at(0)->setId(u"frame");
  EXPECT_EQ(attributesOf(*parsed.chart().getExtension()),
            (std::vector<std::string>{"legend12=legend", "position=l", "title1=frame"}));
}

TEST_F(References, TextThatOnlyLooksLikeAnIdIsLeftAlone) {
  ParsedChart parsed(chartText("<sourceVariable id='s' label='s' description='s'/><style id='t'/>"));
  LumoSourceVariable& variable = *parsed.chart().getSourceVariables().at(0);
  variable.setId(u"renamed");
  EXPECT_EQ(utf8(variable.getLabel()), "s");
  EXPECT_EQ(utf8(variable.getDescription()), "s");
}

TEST_F(References, OfAnotherKindThanTheGetterGivesAreNull) {
  ParsedChart parsed(chartText("<graph cellStyle='legend'/><legend id='legend'/>"));
  EXPECT_EQ(parsed.chart().getGraphs().at(0)->getCellStyle(), nullptr);
}

TEST_F(References, ToARemovedTargetKeepReadingAsThatObject) {
  LumoPoint& point = pointIn(chart);
  LumoStyleBy& styleBy = *point.addStyleBy(nullptr);
  styleBy.setId(u"styleBy");
  LumoLegendTarget const& target = *chart.addLegend(u"legend")->addLegendTarget(u"t", styleBy);
  point.removeStyleBys();
  EXPECT_EQ(target.getTarget(), &styleBy);
  EXPECT_EQ(utf8(target.getTarget()->getAttribute(u"id")), "styleBy");
}

TEST_F(References, OfParsedTextToARemovedTargetAreNull) {
  ParsedChart parsed(
      chartText("<graph><point><styleBy id='s'/></point></graph>"
                "<legend><legendTarget target='s'/></legend>"));
  parsed.chart().getGraphs().at(0)->getPoints().at(0)->removeStyleBys();
  EXPECT_EQ(parsed.chart().getLegends().at(0)->getLegendTargets().at(0)->getTarget(), nullptr);
}

TEST_F(References, LoseTheirTextWhenTheTargetLosesItsId) {
  LumoStyle& style = styleIn(chart, u"s");
  LumoGraph& graph = graphIn(chart);
  graph.setCellStyle(style);
  style.setId(nullptr);
  EXPECT_EQ(graph.getAttribute(u"cellStyle"), nullptr);
  EXPECT_EQ(graph.getCellStyle(), &style);
  style.setId(u"again");
  EXPECT_EQ(utf8(graph.getAttribute(u"cellStyle")), "again");
}

TEST_F(References, DroppedOnesLeaveTheTargetInTheChart) {
  LumoExtensionVis& extension = *chart.addExtension();
  LumoLabelFrame& frame = *chart.addLabelFrame(u"frame");
  extension.setTitle1(frame);
  extension.setTitle2(frame);
  extension.setFootnote1(frame);
  extension.removeTitle1();
  extension.removeTitle2();
  extension.removeFootnote1();
  EXPECT_EQ(extension.getTitle1(), nullptr);
  EXPECT_EQ(extension.getTitle2(), nullptr);
  EXPECT_EQ(extension.getFootnote1(), nullptr);
  EXPECT_EQ(chart.getLabelFrames(), std::vector<LumoLabelFrame*>{&frame});
}

TEST_F(References, DroppedFenceStyleAndDomainLeaveTheTargetInTheChart) {
  LumoSchema& schema = *graphIn(chart).addSchema(u"schema");
  LumoStyle& style = styleIn(chart, u"fence");
  schema.setFenceStyle(style);
  schema.removeFenceStyle();
  LumoColor& color = *schema.addColor();
  LumoCategoricalDomain& domain = *chart.addCategoricalDomain(u"domain");
  color.setDomain(domain);
  color.removeDomain();
  EXPECT_EQ(schema.getAttribute(u"fenceStyle"), nullptr);
  EXPECT_EQ(color.getDomain(), nullptr);
  EXPECT_TRUE(chart.doesIdExist(u"fence"));
  EXPECT_TRUE(chart.doesIdExist(u"domain"));
}

TEST_F(References, DroppedToATargetWithoutAnIdStayDropped) {
  LumoSchema& schema = *graphIn(chart).addSchema(u"schema");
  LumoStyle& style = *chart.addStyle();
  schema.setFenceStyle(style);
  schema.removeFenceStyle();
  style.setId(u"late");
  EXPECT_EQ(schema.getAttribute(u"fenceStyle"), nullptr);
}

TEST_F(References, GiveTheSourceAsTheTextOfItsId) {
  LumoSourceVariable& variable = variableIn(chart);
  EXPECT_EQ(variable.getSource(), nullptr);
  LumoUserSource& source = *chart.addUserSource(u"source0");
  variable.setSource(source);
  EXPECT_EQ(utf8(variable.getSource()), "source0");
  source.setId(u"renamed");
  EXPECT_EQ(utf8(variable.getSource()), "renamed");
}

TEST_F(References, ToOneTargetFromManyFollowTogether) {
  LumoStyle& style = styleIn(chart, u"s");
  std::vector<LumoPoint*> points;
  for (int i = 0; i < 100; ++i) {
    points.push_back(&pointIn(chart));
    points.back()->setStyle(style);
  }
  points[50]->setStyle(styleIn(chart, u"other"));
  style.setId(u"renamed");
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_EQ(utf8(points[i]->getAttribute(u"style")), i == 50 ? "other" : "renamed");
  }
}

TEST_F(References, SeveralOfOneElementAreIndependent) {
  LumoMajorTicks& ticks = ticksIn(chart);
  LumoStyle& one = styleIn(chart, u"one");
  LumoStyle& two = styleIn(chart, u"two");
  ticks.setStyle(one);
  ticks.setMarkStyle(two);
  ticks.setTickFrameStyle(one);
  one.setId(u"uno");
  EXPECT_EQ(attributesOf(ticks),
            (std::vector<std::string>{"markStyle=two", "style=uno", "tickFrameStyle=uno"}));
}

TEST_F(References, LegendSlotsAreTheSameByNumberAndByName) {
  LumoExtensionVis& extension = *chart.addExtension();
  LumoLegend& first = *chart.addLegend(u"l1");
  LumoLegend& second = *chart.addLegend(u"l2");
  extension.setLegend1(first);
  extension.setLegend(2, second);
  EXPECT_EQ(extension.getLegend(1), &first);
  EXPECT_EQ(extension.getLegend2(), &second);
  EXPECT_EQ(extension.getLegend(3), nullptr);
  extension.setLegend(40, first);
  EXPECT_EQ(extension.getLegend(40), &first);
}

TEST_F(References, ToAnotherChartAreKeptByTheirIdAlone) {
  LumoGraph& graph = graphIn(chart);
  {
    LumoDocument other;
    graph.setCellStyle(styleIn(*other.getVisualization(), u"s"));
  }
  EXPECT_EQ(utf8(graph.getAttribute(u"cellStyle")), "s");
  EXPECT_EQ(graph.getCellStyle(), nullptr);
  LumoStyle& own = styleIn(chart, u"s");
  EXPECT_EQ(graph.getCellStyle(), &own);
}

}  // namespace
