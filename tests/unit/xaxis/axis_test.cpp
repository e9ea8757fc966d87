// The label, the scale and the plain settings of an axis.

#include "axis_fixture.h"
#include "xaxis.h"

#include "host/log.h"
#include "host/messages.h"
#include "model/labels.h"
#include "model/style.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(AxisTest, WrapsTheAxisThatItWasGiven) {
  EXPECT_EQ(axis.getImplementation(), &model);
  EXPECT_EQ(axis.AsUTF8(), model.AsUTF8());
}

class AxisLabelTest : public AxisTest {
 protected:
  LumoLabel* label() const { return model.getLabel(); }
  std::vector<std::string> texts() const {
    std::vector<std::string> result;
    for (LumoText const* text : label()->getTexts()) result.push_back(utf8(text->getText()));
    return result;
  }
};

TEST_F(AxisLabelTest, ANewAxisHasNoLabel) { EXPECT_EQ(label(), nullptr); }

TEST_F(AxisLabelTest, TheLabelHoldsTheText) {
  axis.AddLabel(u"Body mass (g)");
  ASSERT_NE(label(), nullptr);
  EXPECT_THAT(texts(), ElementsAre("Body mass (g)"));
}

TEST_F(AxisLabelTest, AnEscapedLineBreakIsBroken) {
  axis.AddLabel(u"one\\ntwo\\tthree");
  EXPECT_THAT(texts(), ElementsAre("one\ntwo\\tthree"));
}

TEST_F(AxisLabelTest, ALineBreakStays) {
  axis.AddLabel(u"one\ntwo");
  EXPECT_THAT(texts(), ElementsAre("one\ntwo"));
}

TEST_F(AxisLabelTest, ANullTextCountsAsEmpty) {
  axis.AddLabel(nullptr);
  EXPECT_THAT(texts(), ElementsAre(""));
}

TEST_F(AxisLabelTest, TheStyleIsNamedAfterTheLabel) {
  axis.AddLabel(u"Age");
  ASSERT_NE(label()->getStyle(), nullptr);
  EXPECT_EQ(utf8(label()->getStyle()->getId()), "label");
}

TEST_F(AxisLabelTest, TheStyleIsAlwaysANewOne) {
  LumoStyle& there = *container.addStyle();
  there.setId(u"label");
  axis.AddLabel(u"Age");
  EXPECT_NE(label()->getStyle(), &there);
  EXPECT_EQ(utf8(label()->getStyle()->getId()), "label_1");
}

TEST_F(AxisLabelTest, WritesInItsFixedOrder) {
  EXPECT_THAT(writesOf([&] { axis.AddLabel(u"Age"); }),
              ElementsAre("axis adds label", "style adds style", "style id=label", "label style=label",
                          "label adds text", "text reads Age"));
}

TEST_F(AxisLabelTest, ASecondCallReplacesTheText) {
  axis.AddLabel(u"first");
  EXPECT_THAT(writesOf([&] { axis.AddLabel(u"second"); }), ElementsAre("text reads second"));
  EXPECT_THAT(texts(), ElementsAre("second"));
  EXPECT_EQ(elementsOf(model, u"label").size(), 1u);
}

TEST_F(AxisLabelTest, OfSeveralTextsTheFirstIsReplaced) {
  axis.AddLabel(u"first");
  label()->addText()->setText(u"more");
  axis.AddLabel(u"second");
  EXPECT_THAT(texts(), ElementsAre("second", "more"));
}

TEST_F(AxisLabelTest, ALabelWithoutTextGetsOneAndNoStyle) {
  LumoLabel& there = *model.addLabel();
  axis.AddLabel(u"Age");
  EXPECT_EQ(label(), &there);
  EXPECT_THAT(texts(), ElementsAre("Age"));
  EXPECT_EQ(there.getStyle(), nullptr);
}

TEST_F(AxisLabelTest, AFailureIsReportedAndWhatWasWrittenStays) {
  failAtChange(2, [&] { axis.AddLabel(u"Age"); });
  expectGuardReport(recorder, "Error in XAxis::AddLabel()");
  ASSERT_NE(label(), nullptr);
  EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(AxisLabelTest, TheUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { axis.AddLabel(u"Age"); }), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(AxisLabelTest, HidingWithoutLabelDoesNothing) {
  EXPECT_THAT(writesOf([&] { axis.hideLabel(); }), IsEmpty());
  EXPECT_EQ(label(), nullptr);
}

TEST_F(AxisLabelTest, HidingPointsTheLabelAtTheStyleForHiddenLabels) {
  axis.AddLabel(u"Age");
  axis.hideLabel();
  EXPECT_EQ(utf8(label()->getStyle()->getId()), "axis_label_hidden_s");
}

TEST_F(AxisLabelTest, HidingLeavesTheStyleEmpty) {
  axis.AddLabel(u"Age");
  EXPECT_THAT(
      writesOf([&] { axis.hideLabel(); }),
      ElementsAre("style adds style", "style id=axis_label_hidden_s", "label style=axis_label_hidden_s"));
}

TEST_F(AxisLabelTest, HiddenLabelsShareOneStyle) {
  LumoAxis& otherModel = *dimension.addAxis();
  XAxis other(dimension, otherModel);
  axis.AddLabel(u"Age");
  other.AddLabel(u"Age again");
  axis.hideLabel();
  other.hideLabel();
  EXPECT_EQ(label()->getStyle(), otherModel.getLabel()->getStyle());
}

TEST_F(AxisLabelTest, HidingKeepsTheText) {
  axis.AddLabel(u"Age");
  axis.hideLabel();
  EXPECT_THAT(texts(), ElementsAre("Age"));
}

TEST_F(AxisLabelTest, AFailureOfHidingReachesTheCaller) {
  axis.AddLabel(u"Age");
  EXPECT_THROW(failAtChange(1, [&] { axis.hideLabel(); }), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(AxisLabelTest, HidingFailsWhereTheIdOfTheStyleBelongsToSomethingElse) {
  axis.AddLabel(u"Age");
  visualization.addUserSource(u"axis_label_hidden_s");
  EXPECT_THROW(axis.hideLabel(), ChartException);
  expectNoReport(recorder);
}

/// The operations that write one attribute as it is given, without a guard.
struct Setting {
  char const* name;
  void (*write)(XAxis&);
  char const* written;
};

void PrintTo(Setting const& setting, std::ostream* stream) { *stream << setting.name; }

class AxisSettingTest : public AxisTest, public ::testing::WithParamInterface<Setting> {};

INSTANTIATE_TEST_SUITE_P(
    Settings, AxisSettingTest,
    ::testing::Values(
        Setting{"setLowerMargin", [](XAxis& axis) { axis.setLowerMargin(u"7%"); },
                "dimension lowerMargin=7%"},
        Setting{"setUpperMargin", [](XAxis& axis) { axis.setUpperMargin(u"8px"); },
                "dimension upperMargin=8px"},
        Setting{"setNiceLowerMapping", [](XAxis& axis) { axis.setNiceLowerMapping(true); },
                "dimension niceLowerMapping=true"},
        Setting{"setNiceLowerMappingOff", [](XAxis& axis) { axis.setNiceLowerMapping(false); },
                "dimension niceLowerMapping=false"},
        Setting{"setNiceUpperMapping", [](XAxis& axis) { axis.setNiceUpperMapping(true); },
                "dimension niceUpperMapping=true"},
        Setting{"setNiceUpperMappingOff", [](XAxis& axis) { axis.setNiceUpperMapping(false); },
                "dimension niceUpperMapping=false"},
        Setting{"setUnionDomain", [](XAxis& axis) { axis.setUnionDomain(true); },
                "dimension unionDomain=true"},
        Setting{"setUnionDomainOff", [](XAxis& axis) { axis.setUnionDomain(false); },
                "dimension unionDomain=false"},
        Setting{"setRepeat0", [](XAxis& axis) { axis.setRepeat(XAxis::Repeat0); }, "axis repeat=0"},
        Setting{"setRepeat1", [](XAxis& axis) { axis.setRepeat(XAxis::Repeat1); }, "axis repeat=1"}),
    [](auto const& row) { return std::string(row.param.name); });

TEST_P(AxisSettingTest, WritesOneAttribute) {
  EXPECT_THAT(writesOf([&] { GetParam().write(axis); }), ElementsAre(GetParam().written));
}

TEST_P(AxisSettingTest, AFailureReachesTheCaller) {
  EXPECT_THROW(failAtChange(1, [&] { GetParam().write(axis); }), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(AxisTest, AnUnknownRepeatDoesNothing) {
  for (int const repeat : {2, 3, -1, 1000}) {
    EXPECT_THAT(writesOf([&] { axis.setRepeat(static_cast<XAxis::ENUM_repeat>(repeat)); }), IsEmpty())
        << repeat;
  }
}

TEST_F(AxisTest, ClusteringWritesVariableGapAndMarginsInThisOrder) {
  EXPECT_THAT(writesOf([&] { axis.Cluster(age); }),
              ElementsAre("dimension clusterVariable=age", "dimension clusterGap=10%",
                          "dimension upperMargin=5%", "dimension lowerMargin=5%"));
  EXPECT_EQ(dimension.getClusterVariable(), &ageModel);
}

TEST_F(AxisTest, ClusteringReplacesTheMargins) {
  axis.setLowerMargin(u"20%");
  axis.setUpperMargin(u"30%");
  axis.Cluster(age);
  EXPECT_EQ(attribute(&dimension, u"lowerMargin"), "5%");
  EXPECT_EQ(attribute(&dimension, u"upperMargin"), "5%");
}

TEST_F(AxisTest, AFailureOfClusteringReachesTheCaller) {
  EXPECT_THROW(failAtChange(2, [&] { axis.Cluster(age); }), OrdinaryFailure);
  expectNoReport(recorder);
  EXPECT_EQ(dimension.getClusterVariable(), &ageModel);
}

class AxisScaleTest : public AxisTest {};

TEST_F(AxisScaleTest, EachMethodIsTheModelsNextOne) {
  struct Row {
    XAxis::ENUM_method method;
    int number;
    char const* modelMethod;
  };
  for (Row const row :
       {Row{XAxis::ScaleMethod0, 0, "1"}, Row{XAxis::ScaleMethod1, 1, "2"}, Row{XAxis::ScaleMethod2, 2, "3"},
        Row{XAxis::ScaleMethod3, 3, "4"}, Row{XAxis::ScaleMethod4, 4, "5"}}) {
    EXPECT_EQ(row.method, row.number);
    axis.setScale(row.method, false, 10);
    EXPECT_EQ(attribute(dimension.getScale(), u"method"), row.modelMethod) << row.number;
  }
}

TEST_F(AxisScaleTest, AnUnknownMethodIsTheModelsFirst) {
  for (int const method : {5, 6, 9, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    axis.setScale(XAxis::ScaleMethod3, false, 10);
    axis.setScale(static_cast<XAxis::ENUM_method>(method), false, 10);
    EXPECT_EQ(attribute(dimension.getScale(), u"method"), "1") << method;
  }
}

TEST_F(AxisScaleTest, ANewScaleIsMadeWithItsMethodWhichIsWrittenAgain) {
  EXPECT_THAT(writesOf([&] { axis.setScale(XAxis::ScaleMethod2, true, 2.5); }),
              ElementsAre("dimension adds scale", "scale method=3", "scale writes the same",
                          "scale invert=true", "scale base=2.5"));
}

TEST_F(AxisScaleTest, AScaleThatIsThereIsWrittenInItsFixedOrder) {
  dimension.addScale(LumoScale::Method5);
  EXPECT_THAT(writesOf([&] { axis.setScale(XAxis::ScaleMethod0, false, 10); }),
              ElementsAre("scale method=1", "scale invert=false", "scale base=10"));
}

TEST_F(AxisScaleTest, ASecondCallMakesNoSecondScale) {
  axis.setScale(XAxis::ScaleMethod1, true, 10);
  axis.setScale(XAxis::ScaleMethod2, false, 2);
  EXPECT_EQ(elementsOf(dimension, u"scale").size(), 1u);
}

TEST_F(AxisScaleTest, AFailureOfTheScaleIsReported) {
  failAtChange(1, [&] { axis.setScale(XAxis::ScaleMethod0, false, 10); });
  expectGuardReport(recorder, "Error in XAxis::setScale()");
  EXPECT_EQ(dimension.getScale(), nullptr);
}

TEST_F(AxisScaleTest, TheUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { axis.setScale(XAxis::ScaleMethod0, false, 10); }), VexaGoToCaller);
  EXPECT_THROW(unwindAtChange(1, [&] { axis.invertScale(0); }), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(AxisScaleTest, InvertingMakesAScaleOfTheFirstMethod) {
  EXPECT_THAT(writesOf([&] { axis.invertScale(2.8); }),
              ElementsAre("dimension adds scale", "scale method=1", "scale invert=true", "scale origin=2.8"));
}

TEST_F(AxisScaleTest, InvertingKeepsTheMethodOfAScaleThatIsThere) {
  dimension.addScale(LumoScale::Method4);
  EXPECT_THAT(writesOf([&] { axis.invertScale(-1e-7); }),
              ElementsAre("scale invert=true", "scale origin=-1e-7"));
  EXPECT_EQ(attribute(dimension.getScale(), u"method"), "4");
}

TEST_F(AxisScaleTest, TheOriginHasAtMostSixteenDigits) {
  axis.invertScale(1.0 / 3.0);
  EXPECT_EQ(attribute(dimension.getScale(), u"origin"), "0.3333333333333333");
}

TEST_F(AxisScaleTest, AFailureOfInvertingIsReported) {
  failAtChange(3, [&] { axis.invertScale(0); });
  expectGuardReport(recorder, "Error in XAxis::invertScale()");
  EXPECT_EQ(attribute(dimension.getScale(), u"invert"), "(absent)");
}

}  // namespace
}  // namespace kestrel::test
