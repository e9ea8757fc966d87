#include "operations.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class EverySetter : public testing::TestWithParam<Setter> {
 protected:
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
};

TEST_P(EverySetter, WritesItsAttribute) {
  LumoBaseElement& element = *GetParam().apply(chart);
  EXPECT_EQ(utf8(element.getAttribute(GetParam().attribute)), GetParam().value);
}

TEST_P(EverySetter, ReachesTheText) {
  LumoBaseElement& element = *GetParam().apply(chart);
  std::string const written = utf8(GetParam().attribute) + "=\"" + GetParam().value + "\"";
  EXPECT_NE(element.AsUTF8().find(written), std::string::npos) << element.AsUTF8();
}

INSTANTIATE_TEST_SUITE_P(Model, EverySetter, testing::ValuesIn(setters()), rowName<Setter>);

class EveryText : public testing::TestWithParam<TextProperty> {
 protected:
  LumoDocument document;
  LumoBaseElement& element = *GetParam().make(*document.getVisualization());

  void set(char16_t const* text) { GetParam().set(element, text); }
  char16_t const* get() { return element.getAttribute(GetParam().attribute); }
};

TEST_P(EveryText, IsWrittenToItsAttribute) {
  set(u"some text");
  EXPECT_EQ(utf8(get()), "some text");
}

TEST_P(EveryText, IsReplacedByTheNext) {
  set(u"a long first text");
  set(u"second");
  EXPECT_EQ(utf8(get()), "second");
}

TEST_P(EveryText, ReadsAsNullAfterNull) {
  set(u"some text");
  set(nullptr);
  EXPECT_EQ(get(), nullptr);
}

TEST_P(EveryText, StaysAbsentWhenNullIsSetFirst) {
  set(nullptr);
  set(nullptr);
  EXPECT_EQ(get(), nullptr);
}

TEST_P(EveryText, KeepsAnEmptyAttribute) {
  set(u"some text");
  set(u"");
  EXPECT_EQ(utf8(get()), "");
  std::string const written = " " + utf8(GetParam().attribute) + "=\"\"";
  EXPECT_NE(element.AsUTF8().find(written), std::string::npos) << element.AsUTF8();
}

TEST_P(EveryText, TakesWhatItsOwnGetterGave) {
  set(u"first;second");
  set(get());
  EXPECT_EQ(utf8(get()), "first;second");
}

TEST_P(EveryText, TakesTheEndOfWhatItsOwnGetterGave) {
  set(u"first;second");
  set(get() + 6);
  EXPECT_EQ(utf8(get()), "second");
}

INSTANTIATE_TEST_SUITE_P(Model, EveryText, testing::ValuesIn(textProperties()), rowName<TextProperty>);

class Attributes : public testing::Test {
 protected:
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
};

TEST_F(Attributes, OneThatNobodySetIsNull) {
  EXPECT_EQ(chart.getLang(), nullptr);
  EXPECT_EQ(chart.getAttribute(u"nobody"), nullptr);
}

TEST_F(Attributes, TextGettersReadThem) {
  LumoSourceVariable& variable = variableIn(chart);
  variable.setLabel(u"a label");
  variable.setShortLabel(u"short");
  variable.setCreator(u"creator");
  variable.setDescription(u"description");
  variable.setSourceName(u"name_SN");
  EXPECT_EQ(utf8(variable.getLabel()), "a label");
  EXPECT_EQ(utf8(variable.getShortLabel()), "short");
  EXPECT_EQ(utf8(variable.getCreator()), "creator");
  EXPECT_EQ(utf8(variable.getDescription()), "description");
  EXPECT_EQ(utf8(variable.getSourceName()), "name_SN");
}

TEST_F(Attributes, LabelAndShortLabelAreTwo) {
  LumoSourceVariable& variable = variableIn(chart);
  variable.setShortLabel(u"short");
  EXPECT_EQ(variable.getLabel(), nullptr);
}

TEST_F(Attributes, FormatTextsAreRead) {
  LumoFormat& format = formatIn(chart);
  format.setPrefix(u"$");
  format.setSuffix(u"%");
  format.setPattern(u"yyyy");
  EXPECT_EQ(utf8(format.getPrefix()), "$");
  EXPECT_EQ(utf8(format.getSuffix()), "%");
  EXPECT_EQ(utf8(format.getPattern()), "yyyy");
}

TEST_F(Attributes, RelabelsHoldBothTexts) {
  LumoRelabel& relabel = *formatIn(chart).addRelabel(u"1", u"");
  EXPECT_EQ(utf8(relabel.getFrom()), "1");
  EXPECT_EQ(utf8(relabel.getTo()), "");
}

TEST_F(Attributes, MappingsHoldBothTexts) {
  LumoSymbolMapping& mapping = *pointIn(chart).addShape()->addSymbolMapping();
  mapping.setFrom(u"0");
  mapping.setTo(u"square");
  EXPECT_EQ(utf8(mapping.getFrom()), "0");
  EXPECT_EQ(utf8(mapping.getTo()), "square");
}

TEST_F(Attributes, TruthValuesAreRead) {
  LumoSourceVariable& variable = variableIn(chart);
  variable.setCategorical(true);
  variable.setKey(true);
  variable.setWeight(true);
  LumoAxis& axis = axisIn(chart);
  axis.setOpposite(true);
  LumoCategories& categories = *chart.addCategoricalDomain(u"d")->addCategories();
  categories.setRemove(true);
  EXPECT_TRUE(variable.getCategorical());
  EXPECT_TRUE(variable.getKey());
  EXPECT_TRUE(variable.getWeight());
  EXPECT_TRUE(axis.getOpposite());
  EXPECT_TRUE(categories.getRemove());
  axis.setOpposite(false);
  EXPECT_FALSE(axis.getOpposite());
}

TEST_F(Attributes, TruthValuesReadBothForms) {
  ParsedChart parsed(chartText("<sourceVariable categorical='1' key='0' weight='false'/>"));
  LumoSourceVariable const& variable = *parsed.chart().getSourceVariables().at(0);
  EXPECT_TRUE(variable.getCategorical());
  EXPECT_FALSE(variable.getKey());
  EXPECT_FALSE(variable.getWeight());
}

TEST_F(Attributes, DefaultsHoldWhereNothingWasSet) {
  EXPECT_EQ(axisIn(chart).getTransform(), LumoAxis::TransformPrimary);
  EXPECT_FALSE(axisIn(chart).getOpposite());
  EXPECT_EQ(ticksIn(chart).getLabelAngle(), 0);
  EXPECT_EQ(chart.getVersion(), 0);
  EXPECT_FALSE(variableIn(chart).getCategorical());
  EXPECT_FALSE(variableIn(chart).getKey());
  EXPECT_FALSE(variableIn(chart).getWeight());
  EXPECT_EQ(labelIn(chart).getPurpose(), LumoLabel::PurposeNone);
  EXPECT_EQ(formatIn(chart).getBaseFormat(), LumoFormat::BaseFormatNone);
  EXPECT_EQ(styleIn(chart).getPattern(), 0U);
  EXPECT_EQ(pointIn(chart).addSummaryStatistic()->getMethod(), 0);
  EXPECT_FALSE(chart.addCategoricalDomain(u"d")->addCategories()->getRemove());
}

TEST_F(Attributes, TextThatIsNoNumberReadsAsTheDefault) {
  ParsedChart parsed(
      chartText("<graph><coordinates><dimension><axis transform='none'>"
                "<majorTicks labelAngle='12x'/></axis></dimension></coordinates></graph>"));
  LumoAxis const& axis =
      *parsed.chart().getGraphs().at(0)->getCoordinates(0)->getDimensions().at(0)->getAxiss().at(0);
  EXPECT_EQ(axis.getTransform(), LumoAxis::TransformPrimary);
  EXPECT_EQ(axis.getMajorTicks()->getLabelAngle(), 0);
}

TEST_F(Attributes, NumbersAreReadWithWhiteSpaceAndSign) {
  ParsedChart parsed("<visualization version=' +2.75 '/>");
  EXPECT_EQ(parsed.chart().getVersion(), 2.75);
}

TEST_F(Attributes, MinimumFractionDigitsArePresentOnceSet) {
  LumoFormat& format = formatIn(chart);
  EXPECT_FALSE(format.isMinimumFractionDigitsPresent());
  format.setMaximumFractionDigits(3);
  EXPECT_FALSE(format.isMinimumFractionDigitsPresent());
  format.setMinimumFractionDigits(0);
  EXPECT_TRUE(format.isMinimumFractionDigitsPresent());
}

TEST_F(Attributes, NumbersAreReadBackAsTheyWereSet) {
  LumoMajorTicks& ticks = ticksIn(chart);
  for (double const angle : {-90.0, 0.1 + 0.2, 1e-300, 1.7976931348623157e308}) {
    ticks.setLabelAngle(angle);
    EXPECT_EQ(ticks.getLabelAngle(), angle);
  }
}

TEST_F(Attributes, NegativeZeroKeepsItsSign) {
  LumoMajorTicks& ticks = ticksIn(chart);
  ticks.setLabelAngle(-0.0);
  EXPECT_EQ(utf8(ticks.getAttribute(u"labelAngle")), "-0");
}

TEST_F(Attributes, RemovedOnesAreAbsent) {
  LumoPoint& point = pointIn(chart);
  point.setLabelCollisionHandling(CTElementType::LabelCollisionHandling1);
  point.removeLabelCollisionHandling();
  EXPECT_EQ(point.getAttribute(u"labelCollisionHandling"), nullptr);
}

TEST_F(Attributes, RemovingAnAbsentOneDoesNothing) {
  LumoPoint& point = pointIn(chart);
  point.removeLabelCollisionHandling();
  EXPECT_EQ(attributesOf(point), std::vector<std::string>{"id=point"});
}

TEST_F(Attributes, UnknownOnesAreKeptAndWrittenBack) {
  ParsedChart parsed(chartText("<graph unheard='of'/>"));
  LumoGraph& graph = *parsed.chart().getGraphs().at(0);
  EXPECT_EQ(utf8(graph.getAttribute(u"unheard")), "of");
  EXPECT_NE(parsed.document().AsUTF8().find("unheard=\"of\""), std::string::npos);
}

TEST_F(Attributes, FacetLevelKeepsItsNumber) {
  LumoFacetLevel const& level = *facetLayoutIn(chart).addFacetLevel(u"facetLabel_panel_3", 3);
  EXPECT_EQ(level.getLevel(), 3U);
  EXPECT_EQ(utf8(level.getId()), "facetLabel_panel_3");
}

TEST_F(Attributes, LocationKeepsItsPart) {
  for (int part = LumoLocation::PartLeft; part <= LumoLocation::PartHeight; ++part) {
    auto const value = static_cast<LumoLocation::ENUM_part>(part);
    EXPECT_EQ(chart.addLocation(value)->getPart(), value);
  }
}

TEST_F(Attributes, ScaleGetsTheMethodItIsAddedWith) {
  EXPECT_EQ(utf8(dimensionIn(chart).addScale(LumoScale::Method4)->getAttribute(u"method")), "4");
}

TEST_F(Attributes, DescriptionGetsTheNameItIsAddedWith) {
  LumoDescription const& description =
      *labelIn(chart).addDescriptionGroup(chart)->addDescription(LumoDescription::Name6);
  EXPECT_EQ(utf8(description.getAttribute(u"name")), "6");
}

TEST_F(Attributes, ConditionalStyleHoldsConditionAndStyle) {
  LumoStyle& style = styleIn(chart, u"hidden");
  LumoConditionalStyle& condition =
      *graphIn(chart).addLineGuide()->addConditionalStyle(u"facet1 == \"2\"", style);
  EXPECT_EQ(utf8(condition.getWhen()), "facet1 == \"2\"");
  EXPECT_EQ(condition.getStyle(), &style);
}

class Extensions : public Attributes {};

TEST_F(Extensions, HoldAnyNamedText) {
  LumoExtension& extension = *chart.addStyleCycle(u"c")->addExtension();
  extension.setAttribute(LumoUni::_aesthetic, LumoUni::_pattern);
  EXPECT_EQ(utf8(extension.getAttribute(u"aesthetic")), "pattern");
}

TEST_F(Extensions, NullTakesATextAway) {
  LumoExtension& extension = *chart.addExtension();
  extension.setAttribute(u"dataSetName_0", u"x");
  extension.setAttribute(u"dataSetName_0", nullptr);
  EXPECT_EQ(extension.getAttribute(u"dataSetName_0"), nullptr);
}

TEST_F(Extensions, OfTheVisualizationTakeBothKindsOfText) {
  LumoExtensionVis& extension = *chart.addExtension();
  extension.setAttribute(ChartString(u"dataSetName_0"), ChartString(u"first"));
  extension.setAttribute(u"dataSetHandle_0", u"second");
  EXPECT_EQ(utf8(extension.getAttribute(u"dataSetName_0")), "first");
  EXPECT_EQ(utf8(extension.getAttribute(u"dataSetHandle_0")), "second");
}

TEST_F(Extensions, RefuseWhatIsNoName) {
  LumoExtension& extension = *chart.addExtension();
  for (char16_t const* const name : {u"", u"two words", u"1st", u"a:b", u"xmlns"}) {
    EXPECT_THROW(extension.setAttribute(name, u"x"), xercesc::DOMException) << utf8(name);
  }
  EXPECT_THROW(extension.setAttribute(nullptr, u"x"), xercesc::DOMException);
  EXPECT_TRUE(attributesOf(extension).empty());
}

TEST_F(Extensions, AnIdSetAsTextIsAnId) {
  LumoExtension& extension = *chart.addExtension();
  extension.setAttribute(u"id", u"record");
  EXPECT_TRUE(chart.doesIdExist(u"record"));
}

}  // namespace
