#include "chart.h"

#include <gtest/gtest.h>

#include <string>

// The numbers that callers pass and compare, and the texts of the tokens.

namespace {

class Values : public testing::Test {
 protected:
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
};

TEST_F(Values, OfLocationParts) {
  EXPECT_EQ(LumoLocation::PartLeft, 0);
  EXPECT_EQ(LumoLocation::PartRight, 1);
  EXPECT_EQ(LumoLocation::PartTop, 2);
  EXPECT_EQ(LumoLocation::PartBottom, 3);
  EXPECT_EQ(LumoLocation::PartWidth, 4);
  EXPECT_EQ(LumoLocation::PartHeight, 5);
}

TEST_F(Values, OfLocationMethods) {
  LumoLocation& location = *chart.addLocation(LumoLocation::PartLeft);
  EXPECT_EQ(location.getMethod(), 0);
  for (int const method : {1, 3, 0}) {
    location.setMethod(static_cast<LumoLocation::ENUM_method>(method));
    EXPECT_EQ(location.getMethod(), method);
  }
}

TEST_F(Values, OfLabelPurposes) {
  EXPECT_EQ(LumoLabel::PurposeTitle1, 1);
  EXPECT_EQ(LumoLabel::PurposeTitle2, 2);
  EXPECT_EQ(LumoLabel::PurposeSubtitle, 3);
  EXPECT_EQ(LumoLabel::PurposeFootnote1, 4);
  EXPECT_EQ(LumoLabel::PurposeFootnote2, 5);
  EXPECT_EQ(LumoLabel::PurposeFootnote3, 6);
  LumoLabel& label = labelIn(chart);
  label.setPurpose(LumoLabel::PurposeFootnote2);
  EXPECT_EQ(label.getPurpose(), 5);
}

TEST_F(Values, OfPlaneNormals) {
  EXPECT_EQ(LumoPlaneGuide::NormalYZ, 0);
  EXPECT_EQ(LumoPlaneGuide::NormalXZ, 1);
  EXPECT_EQ(LumoPlaneGuide::NormalXY, 2);
}

TEST_F(Values, OfAxisTransforms) {
  LumoAxis& axis = axisIn(chart);
  EXPECT_EQ(axis.getTransform(), 2);
  axis.setTransform(LumoAxis::TransformDerived);
  EXPECT_EQ(axis.getTransform(), 1);
}

TEST_F(Values, OfSummaryMethodsAreOpen) {
  LumoSummaryStatistic& statistic = *pointIn(chart).addSummaryStatistic();
  for (int const method : {3, 12, 22, 23, 7, 10, 26, 37, 1000, -1}) {
    statistic.setMethod(static_cast<LumoSummaryStatistic::ENUM_method>(method));
    EXPECT_EQ(statistic.getMethod(), method);
  }
}

TEST_F(Values, OfPositionModifiersAndCollisionHandling) {
  EXPECT_EQ(CTElementType::PositionModifierStack, 3);
  EXPECT_EQ(CTElementType::PositionModifierStackedDot, 7);
  EXPECT_EQ(CTElementType::PositionModifierDot, 8);
  EXPECT_EQ(CTElementType::LabelCollisionHandling2, 2);
}

TEST_F(Values, OfBaseFormats) {
  LumoFormat& format = formatIn(chart);
  format.setBaseFormat(LumoFormat::BaseFormat3);
  EXPECT_EQ(format.getBaseFormat(), 3);
}

TEST_F(Values, OfTheVersion) {
  chart.setVersion(2.8);
  EXPECT_EQ(chart.getVersion(), 2.8);
  EXPECT_EQ(utf8(chart.getAttribute(u"version")), "2.8");
}

TEST_F(Values, OfTokensAreTheirNames) {
  EXPECT_EQ(utf8(LumoUni::_aesthetic), "aesthetic");
  EXPECT_EQ(utf8(LumoUni::_axis), "axis");
  EXPECT_EQ(utf8(LumoUni::_categoricalDomain), "categoricalDomain");
  EXPECT_EQ(utf8(LumoUni::_circle), "circle");
  EXPECT_EQ(utf8(LumoUni::_color), "color");
  EXPECT_EQ(utf8(LumoUni::_coordinates), "coordinates");
  EXPECT_EQ(utf8(LumoUni::_cross), "cross");
  EXPECT_EQ(utf8(LumoUni::_dimension), "dimension");
  EXPECT_EQ(utf8(LumoUni::_domain), "domain");
  EXPECT_EQ(utf8(LumoUni::_expressionVariable), "expressionVariable");
  EXPECT_EQ(utf8(LumoUni::_faceting), "faceting");
  EXPECT_EQ(utf8(LumoUni::_false), "false");
  EXPECT_EQ(utf8(LumoUni::_functionGuide), "functionGuide");
  EXPECT_EQ(utf8(LumoUni::_graph), "graph");
  EXPECT_EQ(utf8(LumoUni::_ibeam), "ibeam");
  EXPECT_EQ(utf8(LumoUni::_id), "id");
  EXPECT_EQ(utf8(LumoUni::_inputDateFormatPattern), "inputDateFormatPattern");
  EXPECT_EQ(utf8(LumoUni::_interval), "interval");
  EXPECT_EQ(utf8(LumoUni::_intervalDomain), "intervalDomain");
  EXPECT_EQ(utf8(LumoUni::_label), "label");
  EXPECT_EQ(utf8(LumoUni::_labelFrame), "labelFrame");
  EXPECT_EQ(utf8(LumoUni::_labeling), "labeling");
  EXPECT_EQ(utf8(LumoUni::_legend), "legend");
  EXPECT_EQ(utf8(LumoUni::_legendTarget), "legendTarget");
  EXPECT_EQ(utf8(LumoUni::_lineGuide), "lineGuide");
  EXPECT_EQ(utf8(LumoUni::_log), "log");
  EXPECT_EQ(utf8(LumoUni::_majorTicks), "majorTicks");
  EXPECT_EQ(utf8(LumoUni::_markStyle), "markStyle");
  EXPECT_EQ(utf8(LumoUni::_nest), "nest");
  EXPECT_EQ(utf8(LumoUni::_pattern), "pattern");
  EXPECT_EQ(utf8(LumoUni::_position), "position");
  EXPECT_EQ(utf8(LumoUni::_shape), "shape");
  EXPECT_EQ(utf8(LumoUni::_source), "source");
  EXPECT_EQ(utf8(LumoUni::_sourceVariable), "sourceVariable");
  EXPECT_EQ(utf8(LumoUni::_square), "square");
  EXPECT_EQ(utf8(LumoUni::_style), "style");
  EXPECT_EQ(utf8(LumoUni::_styleBy), "styleBy");
  EXPECT_EQ(utf8(LumoUni::_styleCycle), "styleCycle");
  EXPECT_EQ(utf8(LumoUni::_summaryStatistic), "summaryStatistic");
  EXPECT_EQ(utf8(LumoUni::_true), "true");
  EXPECT_EQ(utf8(LumoUni::_variable), "variable");
  EXPECT_EQ(utf8(LumoUni::_x), "x");
  EXPECT_EQ(utf8(LumoUni::_y), "y");
}

TEST_F(Values, OfElementNames) {
  EXPECT_EQ(utf8(LumoLegend::getElementName()), "legend");
  EXPECT_EQ(LumoLegend::getElementName(), LumoLegend::_UTF_legend);
  EXPECT_EQ(utf8(LumoDimension::getElementName()), "dimension");
  EXPECT_EQ(LumoDimension::getElementName(), LumoDimension::_UTF_dimension);
  EXPECT_EQ(utf8(LumoDimensionReference::getElementName()), "dimensionReference");
  EXPECT_EQ(LumoDimensionReference::getElementName(), LumoDimensionReference::_dimensionReference);
}

}  // namespace
