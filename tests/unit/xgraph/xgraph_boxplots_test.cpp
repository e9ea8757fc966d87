// Box plots, with the styles of their parts and the labels of their outliers.

#include "change_log.h"
#include "every_failure.h"
#include "graph_fixture.h"

#include "host/chartbase.h"
#include "host/messages.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/style.h"
#include "model/variables.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

class BoxPlot : public GraphTest {
 protected:
  LumoSchema& schema(std::size_t index = 0) const { return *graph.getGraph()->getSchemas().at(index); }
};

/// A graph whose box plots label their outliers.
class LabelledBoxPlot : public BoxPlot {
 protected:
  LumoLabeling& labeling() const { return *schema().getLabelings().at(0); }

  LumoSourceVariable& model = *visualization.addSourceVariable(u"species");
  XVariable variable{model};
};

class UnmadeBoxPlot : public EmptyChartTest {};

std::vector<std::string> const plainChanges = {"graph adds schema",
                                               "schema id=elementGroup_boxplot_11",
                                               "schema labelCollisionHandling=1",
                                               "schema name=elementGroup_boxplot_11",
                                               "schema showCollidingLabels=true",
                                               "style adds style",
                                               "style id=elementGroup_boxplot_11s",
                                               "schema style=elementGroup_boxplot_11s",
                                               "style adds style",
                                               "style id=element_tukeyExtremes_1s",
                                               "schema extremeStyle=element_tukeyExtremes_1s",
                                               "style adds style",
                                               "style id=element_tukeyInnerFence_1s",
                                               "schema fenceStyle=element_tukeyInnerFence_1s",
                                               "style adds style",
                                               "style id=element_tukeyHinges_1s",
                                               "schema hingeStyle=element_tukeyHinges_1s",
                                               "style adds style",
                                               "style id=element_median_1s",
                                               "schema medianStyle=element_median_1s",
                                               "style adds style",
                                               "style id=element_tukeyOutliers_1s",
                                               "schema outlierStyle=element_tukeyOutliers_1s",
                                               "schema adds tukeyStatistic"};

std::vector<std::string> const labelChanges = {
    "schema adds labeling",
    "labeling connectingLines=false",
    "labeling dimension=0",
    "style adds style",
    "style id=elementGroup_boxplot_11_labelStyle",
    "labeling style=elementGroup_boxplot_11_labelStyle",
    "style adds style",
    "style id=elementGroup_boxplot_11_textFrameStyle",
    "labeling textFrameStyle=elementGroup_boxplot_11_textFrameStyle",
    "style color=transparent",
    "style color2=transparent",
    "labeling variable=species"};

/// A box plot whose outliers are labelled with the chart's only variable.
FailingOperation const addLabelledBoxPlot = {
    [](ChartOfOneRun& chart) { chart.document.getVisualization()->addSourceVariable(u"species"); },
    [](ChartOfOneRun& chart) {
      XVariable variable(*chart.document.getVisualization()->getSourceVariables().at(0));
      chart.graph.AddBoxplotElement(&variable);
    }};

}  // namespace

TEST_F(BoxPlot, IsOneSchemaOfTheGraph) {
  graph.AddBoxplotElement(nullptr);
  EXPECT_THAT(childTags(*graph.getGraph()), ElementsAre("schema"));
}

TEST_F(BoxPlot, GivesAWrapperOnTheSchema) {
  XElement const element = graph.AddBoxplotElement(nullptr);
  EXPECT_EQ(element.getImplementation(), &schema());
}

TEST_F(BoxPlot, IsNumberedBehindAOne) {
  graph.AddBoxplotElement(nullptr);
  graph.AddBoxplotElement(nullptr);
  EXPECT_THAT(ids(graph.getGraph()->getSchemas()),
              ElementsAre("elementGroup_boxplot_11", "elementGroup_boxplot_12"));
}

TEST_F(BoxPlot, CountsSchemasThatTheChartBroughtAlong) {
  graph.getGraph()->addSchema(u"theirs");
  graph.AddBoxplotElement(nullptr);
  EXPECT_EQ(utf8(schema(1).getId()), "elementGroup_boxplot_12");
}

TEST_F(BoxPlot, CountsNoOtherElements) {
  graph.AddBarElement(false);
  graph.AddLineElement(nullptr);
  graph.AddPointElement();
  graph.AddBoxplotElement(nullptr);
  EXPECT_EQ(utf8(schema().getId()), "elementGroup_boxplot_11");
}

TEST_F(BoxPlot, IsNamedByItsId) {
  graph.AddBoxplotElement(nullptr);
  EXPECT_EQ(attribute(&schema(), u"name"), "elementGroup_boxplot_11");
}

TEST_F(BoxPlot, ShowsCollidingLabelsAndKeepsTheHandlingOfTheWrapper) {
  graph.AddBoxplotElement(nullptr);
  EXPECT_EQ(attribute(&schema(), u"showCollidingLabels"), "true");
  EXPECT_EQ(attribute(&schema(), u"labelCollisionHandling"), "1");
}

TEST_F(BoxPlot, IsWrittenInAFixedOrder) {
  ChangeLog log(document);
  graph.AddBoxplotElement(nullptr);
  EXPECT_THAT(log.lines(), ElementsAreArray(plainChanges));
}

TEST_F(BoxPlot, HasItsStylesInTheContainer) {
  graph.AddBoxplotElement(nullptr);
  EXPECT_THAT(styleIds(visualization), ElementsAre("elementGroup_boxplot_11s", "element_tukeyExtremes_1s",
                                                   "element_tukeyInnerFence_1s", "element_tukeyHinges_1s",
                                                   "element_median_1s", "element_tukeyOutliers_1s"));
}

TEST_F(BoxPlot, MakesAStyleOfItsOwnWhereTheIdExists) {
  graph.addStyle(u"elementGroup_boxplot_11s");
  graph.AddBoxplotElement(nullptr);
  EXPECT_EQ(schema().getStyle(), visualization.getStyleById(ChartBase::_container)->getStyles().at(1));
}

TEST_F(BoxPlot, MakesPartStylesOfTheSameIdsAgain) {
  graph.AddBoxplotElement(nullptr);
  graph.AddBoxplotElement(nullptr);
  EXPECT_THAT(
      styleIds(visualization),
      ElementsAre("elementGroup_boxplot_11s", "element_tukeyExtremes_1s", "element_tukeyInnerFence_1s",
                  "element_tukeyHinges_1s", "element_median_1s", "element_tukeyOutliers_1s",
                  "elementGroup_boxplot_12s", "element_tukeyExtremes_1s", "element_tukeyInnerFence_1s",
                  "element_tukeyHinges_1s", "element_median_1s", "element_tukeyOutliers_1s"));
}

TEST_F(BoxPlot, RefersToItsOwnPartStyles) {
  graph.AddBoxplotElement(nullptr);
  graph.AddBoxplotElement(nullptr);
  LumoStyle* const median = visualization.getStyleById(ChartBase::_container)->getStyles().at(10);
  median->setId(u"middle");
  EXPECT_EQ(attribute(&schema(0), u"medianStyle"), "element_median_1s");
  EXPECT_EQ(attribute(&schema(1), u"medianStyle"), "middle");
}

TEST_F(BoxPlot, HasOneTukeyStatistic) {
  graph.AddBoxplotElement(nullptr);
  EXPECT_EQ(schema().getTukeyStatistics().size(), 1u);
}

TEST_F(BoxPlot, WithoutAVariableHasNoLabeling) {
  graph.AddBoxplotElement(nullptr);
  EXPECT_THAT(schema().getLabelings(), IsEmpty());
  EXPECT_FALSE(visualization.doesIdExist(u"elementGroup_boxplot_11_labelStyle"));
  EXPECT_FALSE(visualization.doesIdExist(u"elementGroup_boxplot_11_textFrameStyle"));
}

TEST_F(BoxPlot, TouchesNoDataStore) {
  recorder.clear();
  graph.AddBoxplotElement(nullptr);
  EXPECT_THAT(recorder.lines(), IsEmpty());
}

TEST_F(LabelledBoxPlot, IsWrittenInAFixedOrder) {
  std::vector<std::string> changes = plainChanges;
  changes.insert(changes.end(), labelChanges.begin(), labelChanges.end());
  ChangeLog log(document);
  graph.AddBoxplotElement(&variable);
  EXPECT_THAT(log.lines(), ElementsAreArray(changes));
}

TEST_F(LabelledBoxPlot, HasOneLabelingWithTheVariable) {
  graph.AddBoxplotElement(&variable);
  ASSERT_EQ(schema().getLabelings().size(), 1u);
  EXPECT_EQ(attribute(&labeling(), u"variable"), "species");
}

TEST_F(LabelledBoxPlot, HasATransparentFrameAroundItsLabels) {
  graph.AddBoxplotElement(&variable);
  LumoStyle const* const frame = visualization.getStyleById(u"elementGroup_boxplot_11_textFrameStyle");
  EXPECT_EQ(attribute(frame, u"color"), utf8(LumoStyle::_transparent));
  EXPECT_EQ(attribute(frame, u"color2"), utf8(LumoStyle::_transparent));
}

TEST_F(LabelledBoxPlot, HasLabelStylesOfItsNumber) {
  graph.AddBoxplotElement(nullptr);
  graph.AddBoxplotElement(&variable);
  LumoLabeling const& second = *schema(1).getLabelings().at(0);
  EXPECT_EQ(attribute(&second, u"style"), "elementGroup_boxplot_12_labelStyle");
  EXPECT_EQ(attribute(&second, u"textFrameStyle"), "elementGroup_boxplot_12_textFrameStyle");
}

TEST_F(LabelledBoxPlot, TakesADerivedVariableToo) {
  XVariable derived(*visualization.addDerivedVariable(u"derived"));
  graph.AddBoxplotElement(&derived);
  EXPECT_EQ(attribute(&labeling(), u"variable"), "derived");
}

TEST_F(LabelledBoxPlot, ReportsAFailureAndKeepsWhatWasWritten) {
  expectFailuresToKeepWhatWasWritten(recorder, addLabelledBoxPlot, [](kestrel::host::Recorder const& done) {
    expectGuardReport(done, "Error in XGraph::AddBoxplotElement()");
  });
}

TEST_F(LabelledBoxPlot, LetsTheHostsUnwindingSignalPass) {
  expectUnwindingToKeepWhatWasWritten(recorder, addLabelledBoxPlot);
}

TEST_F(BoxPlot, ThatFailsOnceItHasAWrapperGivesThatOne) {
  ChangeTrap const trap(document, 4, throwOrdinaryFailure());
  XElement const element = graph.AddBoxplotElement(nullptr);
  EXPECT_EQ(element.getImplementation(), &schema());
}

TEST_F(BoxPlot, ThatFailsBeforeItHasAWrapperGivesOneOutsideTheChart) {
  for (unsigned int failing = 1; failing <= 3; ++failing) {
    LumoDocument other;
    XGraph chart(*other.getVisualization(), nullptr);
    ChangeTrap const trap(other, failing, throwOrdinaryFailure());
    XElement const element = chart.AddBoxplotElement(nullptr);
    EXPECT_NE(element.getImplementation()->getVisualization(), other.getVisualization());
  }
}

TEST_F(UnmadeBoxPlot, OnAChartWithoutGraphIsAReportedFailure) {
  XGraph attached(visualization);
  EXPECT_NO_THROW(attached.AddBoxplotElement(nullptr));
  expectGuardReport(recorder, "Error in XGraph::AddBoxplotElement()");
}

TEST_F(UnmadeBoxPlot, TakesWhatIsAskedOfItAndLeavesTheChartAsItWas) {
  XVariable const variable(*visualization.addSourceVariable(u"species"));
  std::string const before = document.AsUTF8();
  XElement element = XGraph(visualization).AddBoxplotElement(nullptr);
  recorder.clear();
  element.AddX(variable);
  element.SetName(u"nowhere");
  element.SetPrimaryColor(1, 2, 3);
  element.addHistogramStatistic(u"1", 2, 3, true);
  element.Cluster(variable, true, false, true, true);
  expectNoReport(recorder);
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(UnmadeBoxPlot, OutlivesTheChart) {
  auto chart = std::make_unique<LumoDocument>();
  XVariable const variable(*chart->getVisualization()->addSourceVariable(u"species"));
  XElement element = XGraph(*chart->getVisualization()).AddBoxplotElement(nullptr);
  element.AddX(variable);
  chart.reset();
  element.SetName(u"still there");
  EXPECT_NE(element.AsUTF8().find("still there"), std::string::npos);
  auto const& model = dynamic_cast<LumoSchema const&>(*element.getImplementation());
  EXPECT_EQ(model.getX()->getVariable(), nullptr);
}
