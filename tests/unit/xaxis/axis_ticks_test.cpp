// The major ticks of an axis, their labels, and what happens where they are missing.

#include "axis_fixture.h"

#include "host/log.h"
#include "host/messages.h"
#include "model/style.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TicksTest : public AxisTest {
 protected:
  LumoAxis& another() { return *dimension.addAxis(); }
};

TEST_F(TicksTest, ANewAxisHasMajorTicks) { EXPECT_NE(ticks, nullptr); }

TEST_F(TicksTest, TheFinalStyleIsThatOfTheTicks) { EXPECT_EQ(utf8(ticks->getStyle()->getId()), "tickStyle"); }

TEST_F(TicksTest, TheFrameOfTickLabelsIsInvisible) {
  EXPECT_EQ(utf8(ticks->getTickFrameStyle()->getId()), "tickLabelStyle");
  EXPECT_EQ(attribute(ticks->getTickFrameStyle(), u"visible"), "false");
}

TEST_F(TicksTest, TheMarksHaveAStyle) { EXPECT_EQ(utf8(ticks->getMarkStyle()->getId()), "markStyle"); }

TEST_F(TicksTest, TheFirstStyleStaysBehindUnreferenced) {
  EXPECT_THAT(styleIds(), ElementsAre("majorTicks", "tickLabelStyle", "markStyle", "tickStyle"));
  for (char16_t const* const name : {u"style", u"tickFrameStyle", u"markStyle"}) {
    EXPECT_NE(attribute(ticks, name), "majorTicks");
  }
}

TEST_F(TicksTest, TheTicksOfEachAxisHaveStylesOfTheirOwn) {
  LumoAxis& otherModel = another();
  XAxis const other(dimension, otherModel);
  LumoMajorTicks const& otherTicks = *otherModel.getMajorTicks();
  EXPECT_EQ(utf8(otherTicks.getStyle()->getId()), "tickStyle_1");
  EXPECT_EQ(utf8(otherTicks.getMarkStyle()->getId()), "markStyle_1");
  EXPECT_EQ(utf8(otherTicks.getTickFrameStyle()->getId()), "tickLabelStyle_1");
}

TEST_F(TicksTest, TicksAreWrittenInTheirFixedOrder) {
  LumoAxis& otherModel = another();
  EXPECT_THAT(writesOf([&] { XAxis const other(dimension, otherModel); }),
              ElementsAre("axis adds majorTicks",                           //
                          "style adds style", "style id=majorTicks_1",      //
                          "majorTicks style=majorTicks_1",                  //
                          "style adds style", "style id=tickLabelStyle_1",  //
                          "majorTicks tickFrameStyle=tickLabelStyle_1",     //
                          "style visible=false",                            //
                          "style adds style", "style id=markStyle_1",       //
                          "majorTicks markStyle=markStyle_1",               //
                          "style adds style", "style id=tickStyle_1",       //
                          "majorTicks style=tickStyle_1"));
}

class AxisWithStyleCalls : public XAxis {
 public:
  using XAxis::XAxis;

  LumoStyle* AddStyle(ChartString const& id, bool unique) override {
    calls.push_back(id.toUTF8() + (unique ? ", unique" : ", shared"));
    return XAxis::AddStyle(id, unique);
  }

  std::vector<std::string> calls;
};

TEST_F(TicksTest, EachStyleIsAskedForByTheVirtualAddStyleAndMadeUnique) {
  AxisWithStyleCalls wrapper(dimension, model);
  removeTicks(model);
  wrapper.AddMajorTicks();
  EXPECT_THAT(wrapper.calls, ElementsAre("majorTicks, unique", "tickLabelStyle, unique", "markStyle, unique",
                                         "tickStyle, unique"));
}

TEST_F(TicksTest, TheLabelsAndHiddenLabelsStylesAreAskedForByTheVirtualAddStyle) {
  AxisWithStyleCalls wrapper(dimension, model);
  wrapper.AddLabel(u"Age");
  wrapper.hideLabel();
  EXPECT_THAT(wrapper.calls, ElementsAre("label, unique", "axis_label_hidden_s, shared"));
}

TEST_F(TicksTest, TicksThatAreThereStayAsTheyAre) {
  EXPECT_THAT(writesOf([&] { axis.AddMajorTicks(); }), IsEmpty());
  EXPECT_THAT(writesOf([&] { XAxis const again(dimension, model); }), IsEmpty());
}

TEST_F(TicksTest, ForeignTicksStayAsTheyAre) {
  LumoAxis& otherModel = another();
  LumoMajorTicks* const foreign = otherModel.addMajorTicks();
  XAxis const other(dimension, otherModel);
  EXPECT_EQ(otherModel.getMajorTicks(), foreign);
  EXPECT_EQ(foreign->getStyle(), nullptr);
}

TEST_F(TicksTest, AFailureInConstructionIsReportedAndLeavesTheAxis) {
  LumoAxis& otherModel = another();
  failAtChange(1, [&] { XAxis const other(dimension, otherModel); });
  expectGuardReport(recorder, "Error in XAxis::AddMajorTicks()");
  EXPECT_EQ(otherModel.getMajorTicks(), nullptr);
}

TEST_F(TicksTest, WhatWasMadeBeforeAFailureStays) {
  LumoAxis& otherModel = another();
  recorder.throwAt(Operation::CreateUniqueId, 3, OrdinaryFailure());
  XAxis const other(dimension, otherModel);
  expectGuardReport(recorder, "Error in XAxis::AddMajorTicks()");
  ASSERT_NE(otherModel.getMajorTicks(), nullptr);
  EXPECT_EQ(utf8(otherModel.getMajorTicks()->getStyle()->getId()), "majorTicks_1");
  EXPECT_EQ(otherModel.getMajorTicks()->getMarkStyle(), nullptr);
}

TEST_F(TicksTest, TheUnwindingSignalLeavesTheConstructor) {
  LumoAxis& otherModel = another();
  recorder.throwAt(Operation::CreateUniqueId, 1, VexaGoToCaller());
  EXPECT_THROW(XAxis(dimension, otherModel), VexaGoToCaller);
  expectNoReport(recorder);
}

/// The operations that ensure the ticks first and then write on them.
struct TickOperation {
  char const* name;
  void (*run)(XAxis&);
  std::vector<std::string> written;
};

void PrintTo(TickOperation const& operation, std::ostream* stream) { *stream << operation.name; }

class TickOperationTest : public TicksTest, public ::testing::WithParamInterface<TickOperation> {
 protected:
  void run(XAxis& wrapper) { GetParam().run(wrapper); }
  std::string context() const { return "Error in XAxis::" + std::string(GetParam().name) + "()"; }
};

INSTANTIATE_TEST_SUITE_P(
    Operations, TickOperationTest,
    ::testing::Values(
        TickOperation{"setDelta", [](XAxis& axis) { axis.setDelta(2.5); }, {"majorTicks delta=2.5"}},
        TickOperation{"setMajorTickLabelAngle",
                      [](XAxis& axis) { axis.setMajorTickLabelAngle(-45); },
                      {"majorTicks labelAngle=-45"}},
        TickOperation{"setMajorTickStagger",
                      [](XAxis& axis) { axis.setMajorTickStagger(true); },
                      {"majorTicks stagger=true"}},
        TickOperation{"setMajorTicklabelFrequency",
                      [](XAxis& axis) { axis.setMajorTicklabelFrequency(4000000000u); },
                      {"majorTicks labelFrequency=4000000000"}},
        TickOperation{"setMajorTickLabelPrefix",
                      [](XAxis& axis) { axis.setMajorTickLabelPrefix(u"EUR "); },
                      {"majorTicks adds format", "format prefix=EUR "}},
        TickOperation{"setMajorTickLabelSuffix",
                      [](XAxis& axis) { axis.setMajorTickLabelSuffix(u" mm"); },
                      {"majorTicks adds format", "format suffix= mm"}},
        TickOperation{"setTickLabelFontSize",
                      [](XAxis& axis) { axis.setTickLabelFontSize(8, 12); },
                      {"style font_size=12", "style font_size_min=8"}}),
    [](auto const& row) { return std::string(row.param.name); });

TEST_P(TickOperationTest, WritesOnTheTicks) {
  EXPECT_EQ(writesOf([&] { run(axis); }), GetParam().written);
}

TEST_P(TickOperationTest, MakesMissingTicksAgainFirst) {
  removeTicks(model);
  auto const writes = writesOf([&] { run(axis); });
  ASSERT_GT(writes.size(), GetParam().written.size());
  EXPECT_EQ(writes.front(), "axis adds majorTicks");
  EXPECT_EQ(std::vector<std::string>(writes.end() - static_cast<std::ptrdiff_t>(GetParam().written.size()),
                                     writes.end()),
            GetParam().written);
  EXPECT_NE(model.getMajorTicks(), nullptr);
  expectNoReport(recorder);
}

TEST_P(TickOperationTest, AFailureOfTheSettingReachesTheCaller) {
  EXPECT_THROW(failAtChange(1, [&] { run(axis); }), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_P(TickOperationTest, AFailureThatAddMajorTicksReportsStillLeavesASetting) {
  removeTicks(model);
  recorder.throwAt(Operation::CreateUniqueId, 3, OrdinaryFailure());
  auto const writes = writesOf([&] { run(axis); });
  expectGuardReport(recorder, "Error in XAxis::AddMajorTicks()");
  EXPECT_EQ(std::vector<std::string>(writes.end() - static_cast<std::ptrdiff_t>(GetParam().written.size()),
                                     writes.end()),
            GetParam().written);
}

TEST_P(TickOperationTest, TicksThatCouldNotBeMadeAreAFailureForTheCaller) {
  removeTicks(model);
  EXPECT_THROW(failAtChange(1, [&] { run(axis); }), ChartException);
  expectGuardReport(recorder, "Error in XAxis::AddMajorTicks()");
}

TEST_P(TickOperationTest, TheUnwindingSignalOfTheTicksPasses) {
  removeTicks(model);
  EXPECT_THROW(unwindAtChange(1, [&] { run(axis); }), VexaGoToCaller);
  expectNoReport(recorder);
}

/// An axis whose own way to make ticks fails, before or after it has made them.
class AxisWithFailingTicks : public XAxis {
 public:
  AxisWithFailingTicks(LumoDimension& dimension, LumoAxis& axis, bool makesThem)
      : XAxis(dimension, axis), mAxis(&axis), mMakesThem(makesThem) {}

  void AddMajorTicks() override {
    if (mMakesThem) mAxis->addMajorTicks();
    throw OrdinaryFailure();
  }

 private:
  LumoAxis* mAxis;
  bool mMakesThem;
};

TEST_P(TickOperationTest, AFailureBeforeTheTicksExistIsReportedAndTheSettingsFailureReachesTheCaller) {
  AxisWithFailingTicks wrapper(dimension, model, false);
  removeTicks(model);
  EXPECT_THROW(run(wrapper), ChartException);
  expectGuardReport(recorder, context());
}

TEST_P(TickOperationTest, AFailureAfterTheTicksExistIsReportedAndTheSettingRunsOnThem) {
  AxisWithFailingTicks wrapper(dimension, model, true);
  removeTicks(model);
  auto const writes = writesOf([&] { run(wrapper); });
  expectGuardReport(recorder, context());
  ASSERT_GE(writes.size(), GetParam().written.size());
  EXPECT_EQ(std::vector<std::string>(writes.end() - static_cast<std::ptrdiff_t>(GetParam().written.size()),
                                     writes.end()),
            GetParam().written);
}

TEST_F(TicksTest, DeltaIsTheShortestTextOfTheNumber) {
  axis.setDelta(0.1);
  EXPECT_EQ(attribute(ticks, u"delta"), "0.1");
}

TEST_F(TicksTest, LabelAnglesUpToAFullTurnAreWritten) {
  for (auto const& [angle, text] : std::vector<std::pair<double, std::string>>{
           {360, "360"}, {-360, "-360"}, {0, "0"}, {359.5, "359.5"}, {-90, "-90"}}) {
    axis.setMajorTickLabelAngle(angle);
    EXPECT_EQ(attribute(ticks, u"labelAngle"), text);
  }
}

TEST_F(TicksTest, LabelAnglesBeyondAFullTurnDoNothing) {
  for (double const angle : {360.5, -360.5, 1e9, std::numeric_limits<double>::infinity()}) {
    EXPECT_THAT(writesOf([&] { axis.setMajorTickLabelAngle(angle); }), IsEmpty()) << angle;
  }
}

TEST_F(TicksTest, AnAngleThatIsDroppedMakesNoTicks) {
  removeTicks(model);
  axis.setMajorTickLabelAngle(360.5);
  EXPECT_EQ(model.getMajorTicks(), nullptr);
}

TEST_F(TicksTest, StaggerMaySwitchedOff) {
  axis.setMajorTickStagger(true);
  axis.setMajorTickStagger(false);
  EXPECT_EQ(attribute(ticks, u"stagger"), "false");
}

TEST_F(TicksTest, PrefixAndSuffixShareTheFirstFormat) {
  axis.setMajorTickLabelPrefix(u"<");
  axis.setMajorTickLabelSuffix(u">");
  ASSERT_EQ(ticks->getFormats().size(), 1u);
  EXPECT_EQ(utf8(ticks->getFormats().front()->getPrefix()), "<");
  EXPECT_EQ(utf8(ticks->getFormats().front()->getSuffix()), ">");
}

TEST_F(TicksTest, OfSeveralFormatsTheFirstIsWritten) {
  ticks->addFormat();
  ticks->addFormat();
  axis.setMajorTickLabelPrefix(u"<");
  axis.setMajorTickLabelSuffix(u">");
  ASSERT_EQ(ticks->getFormats().size(), 2u);
  EXPECT_EQ(attribute(ticks->getFormats()[0], u"prefix"), "<");
  EXPECT_EQ(attribute(ticks->getFormats()[0], u"suffix"), ">");
  EXPECT_EQ(attribute(ticks->getFormats()[1], u"prefix"), "(absent)");
}

TEST_F(TicksTest, AFormatMadeForAPrefixHoldsNothingElse) {
  axis.setMajorTickLabelPrefix(u"<");
  EXPECT_THAT(attributeNames(*ticks->getFormats().front()), ElementsAre("prefix"));
}

class TickFontTest : public TicksTest {
 protected:
  std::vector<std::string> sizes() const {
    std::vector<std::string> texts;
    for (char16_t const* const name : {u"font_size", u"font_size_min", u"font_size_max"}) {
      texts.push_back(attribute(model.getMajorTicks()->getStyle(), name));
    }
    return texts;
  }
};

TEST_F(TickFontTest, TheLargerSizeComesFirstWithoutAUnit) {
  axis.setTickLabelFontSize(8, 12);
  EXPECT_THAT(sizes(), ElementsAre("12", "8", "(absent)"));
}

TEST_F(TickFontTest, EqualSizesAreWrittenBoth) {
  axis.setTickLabelFontSize(8, 8);
  EXPECT_THAT(sizes(), ElementsAre("8", "8", "(absent)"));
}

TEST_F(TickFontTest, SizesHaveAtMostSixteenDigits) {
  axis.setTickLabelFontSize(1.0 / 3.0, 0.1 + 0.4);
  EXPECT_THAT(sizes(), ElementsAre("0.5", "0.3333333333333333", "(absent)"));
}

TEST_F(TickFontTest, SizesThatDoNotFitDoNothing) {
  double const nan = std::numeric_limits<double>::quiet_NaN();
  for (auto const& sizes : std::vector<std::pair<double, double>>{
           {12, 8}, {0, 8}, {-1, 8}, {-2, -1}, {0, 0}, {nan, 8}, {8, nan}}) {
    EXPECT_THAT(writesOf([&] { axis.setTickLabelFontSize(sizes.first, sizes.second); }), IsEmpty())
        << sizes.first << ", " << sizes.second;
  }
}

TEST_F(TickFontTest, SizesThatDoNotFitMakeNoTicks) {
  removeTicks(model);
  axis.setTickLabelFontSize(12, 8);
  EXPECT_EQ(model.getMajorTicks(), nullptr);
}

TEST_F(TickFontTest, TicksWithoutStyleGetANewOne) {
  LumoAxis& otherModel = another();
  LumoMajorTicks* const foreign = otherModel.addMajorTicks();
  XAxis other(dimension, otherModel);
  EXPECT_THAT(writesOf([&] { other.setTickLabelFontSize(8, 12); }),
              ElementsAre("style adds style", "style id=majorTicks_1", "majorTicks style=majorTicks_1",
                          "style font_size=12", "style font_size_min=8"));
  EXPECT_EQ(utf8(foreign->getStyle()->getId()), "majorTicks_1");
}

}  // namespace
}  // namespace kestrel::test
