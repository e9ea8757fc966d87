#include "built_chart.h"
#include "xelement.h"
#include "xlegend.h"

#include "host/messages.h"
#include "model/elements.h"
#include "model/labels.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LegendTest : public BuiltChartTest {
 protected:
  LumoLegend& model = *visualization.addLegend(u"legend1");
  XLegend legend{model};
};

TEST_F(LegendTest, WrapsTheLegendThatItWasGiven) {
  EXPECT_EQ(legend.getImplementation(), &model);
  EXPECT_EQ(legend.AsUTF8(), model.AsUTF8());
}

TEST_F(LegendTest, ConstructionWritesNothing) {
  EXPECT_THAT(writesOf([&] { XLegend const again(model); }), IsEmpty());
}

class LegendLabelTest : public LegendTest {
 protected:
  LumoLabel* label(std::size_t index = 0) const { return model.getLabels().at(index); }
  std::string text(std::size_t index = 0) const { return utf8(label(index)->getTexts().at(0)->getText()); }
};

TEST_F(LegendLabelTest, TheLabelIsNamedAfterTheLegend) {
  legend.AddLabel(u"Species");
  ASSERT_EQ(model.getLabels().size(), 1u);
  EXPECT_EQ(utf8(label()->getId()), "legend1_label_1");
}

TEST_F(LegendLabelTest, TheLabelHoldsTheText) {
  legend.AddLabel(u"Species");
  ASSERT_EQ(label()->getTexts().size(), 1u);
  EXPECT_EQ(text(), "Species");
}

TEST_F(LegendLabelTest, AnEscapedLineBreakIsBroken) {
  legend.AddLabel(u"one\\ntwo");
  EXPECT_EQ(text(), "one\ntwo");
}

TEST_F(LegendLabelTest, ANullTextCountsAsEmpty) {
  legend.AddLabel(nullptr);
  EXPECT_EQ(text(), "");
}

TEST_F(LegendLabelTest, TheLabelHasNoStyle) {
  legend.AddLabel(u"Species");
  EXPECT_EQ(label()->getStyle(), nullptr);
}

TEST_F(LegendLabelTest, ASecondLabelHasTheSameId) {
  legend.AddLabel(u"first");
  legend.AddLabel(u"second");
  EXPECT_THAT(idsOf(model, u"label"), ElementsAre("legend1_label_1", "legend1_label_1"));
  EXPECT_EQ(text(0), "first");
  EXPECT_EQ(text(1), "second");
}

TEST_F(LegendLabelTest, WritesInItsFixedOrder) {
  EXPECT_THAT(
      writesOf([&] { legend.AddLabel(u"Species"); }),
      ElementsAre("legend adds label", "label id=legend1_label_1", "label adds text", "text reads Species"));
}

TEST_F(LegendLabelTest, AFailureIsReportedAndWhatWasWrittenStays) {
  failAtChange(3, [&] { legend.AddLabel(u"Species"); });
  expectGuardReport(recorder, "Error in XLegend::AddLabel()");
  EXPECT_EQ(utf8(label()->getId()), "legend1_label_1");
  EXPECT_THAT(label()->getTexts(), IsEmpty());
}

TEST_F(LegendLabelTest, TheUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { legend.AddLabel(u"Species"); }), VexaGoToCaller);
  expectNoReport(recorder);
}

class LegendElementTest : public LegendTest {
 protected:
  LumoPoint& pointModel = *graph.addPoint(u"points");
  LumoLine& lineModel = *graph.addLine(u"line");
  XElement point{pointModel};
  XElement line{lineModel};
};

TEST_F(LegendElementTest, TargetsAreNumberedFromZero) {
  legend.addLegendElement(point);
  legend.addLegendElement(line);
  EXPECT_THAT(idsOf(model, u"legendTarget"), ElementsAre("legend1_legendTarget_0", "legend1_legendTarget_1"));
}

TEST_F(LegendElementTest, TargetsReferToTheElements) {
  legend.addLegendElement(point);
  legend.addLegendElement(line);
  EXPECT_EQ(model.getLegendTargets()[0]->getTarget(), &pointModel);
  EXPECT_EQ(model.getLegendTargets()[1]->getTarget(), &lineModel);
}

TEST_F(LegendElementTest, TargetsThatWereThereCount) {
  model.addLegendTarget(u"other", pointModel);
  legend.addLegendElement(line);
  EXPECT_THAT(idsOf(model, u"legendTarget"), ElementsAre("other", "legend1_legendTarget_1"));
}

TEST_F(LegendElementTest, AnElementMayBeTiedTwice) {
  legend.addLegendElement(point);
  legend.addLegendElement(point);
  EXPECT_EQ(model.getLegendTargets().size(), 2u);
}

TEST_F(LegendElementTest, WritesOnTheLegendOnly) {
  EXPECT_THAT(writesOf([&] { legend.addLegendElement(point); }),
              ElementsAre("legend adds legendTarget", "legendTarget id=legend1_legendTarget_0",
                          "legendTarget target=points"));
}

TEST_F(LegendElementTest, AFailureIsReportedAndWhatWasWrittenStays) {
  failAtChange(3, [&] { legend.addLegendElement(point); });
  expectGuardReport(recorder, "Error in XLegend::addLegendElement()");
  EXPECT_EQ(model.getLegendTargets().size(), 1u);
}

TEST_F(LegendElementTest, TheUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { legend.addLegendElement(point); }), VexaGoToCaller);
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
