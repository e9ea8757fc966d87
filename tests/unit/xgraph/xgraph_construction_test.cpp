// Making a graph, and attaching to one that a chart holds already.

#include "change_log.h"
#include "graph_fixture.h"
#include "memory_hooks.h"
#include "xdocument.h"

#include "host/chartbase.h"
#include "host/log.h"
#include "host/messages.h"
#include "model/aesthetics.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/style.h"
#include "model/variables.h"

#include <gmock/gmock.h>

#include <new>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class NewGraph : public GraphTest {};
class AttachedGraph : public EmptyChartTest {};
class FailingConstruction : public EmptyChartTest {};

constexpr char const* newGraphFailed = "Error in XGraph::XGraph(lumo,vdp)";

}  // namespace

TEST_F(NewGraph, IsTheOnlyGraphAndBearsTheIdOfTheDataFrame) {
  EXPECT_THAT(ids(visualization.getGraphs()), ElementsAre(utf8(ChartBase::_frame_data_1)));
}

TEST_F(NewGraph, HandsOutTheGraphThatItMade) {
  EXPECT_EQ(graph.getGraph(), visualization.getGraphs().front());
}

TEST_F(NewGraph, HandsOutTheVisualizationAndNotABaseElement) {
  LumoVisualization* const implementation = graph.getImplementation();
  EXPECT_EQ(implementation, &visualization);
}

TEST_F(NewGraph, StandsForTheVisualizationAsABaseElement) {
  XBaseElement const& base = graph;
  EXPECT_EQ(base.getImplementation(), &visualization);
}

TEST_F(NewGraph, GivesTheTextOfTheVisualization) { EXPECT_EQ(graph.AsUTF8(), visualization.AsUTF8()); }

TEST_F(NewGraph, HangsItsContainerStyleOnTheVisualizationItself) {
  EXPECT_THAT(ids(visualization.getStyles()), ElementsAre(utf8(ChartBase::_container)));
}

TEST_F(NewGraph, HasAnEmptyStyleContainer) {
  EXPECT_TRUE(visualization.getStyles().front()->getStyles().empty());
}

TEST_F(NewGraph, HasAnEmptyGraphNode) { EXPECT_TRUE(childTags(*graph.getGraph()).empty()); }

TEST_F(NewGraph, MakesOneStyleCycleForTheRepository) {
  EXPECT_THAT(ids(visualization.getStyleCycles()), ElementsAre(utf8(ChartBase::_styleCycleRepository)));
}

TEST_F(NewGraph, PutsOneCycleWithOneStyleIntoTheRepository) {
  auto const cycles = visualization.getStyleCycles().front()->getCycles();
  ASSERT_EQ(cycles.size(), 1u);
  EXPECT_EQ(cycles.front()->getStyles().size(), 1u);
}

TEST_F(NewGraph, LeavesTheStyleOfTheRepositoryEmpty) {
  LumoStyle* const style = visualization.getStyleCycles().front()->getCycles().front()->getStyles().front();
  EXPECT_THAT(attributeNames(*style), IsEmpty());
  EXPECT_TRUE(childTags(*style).empty());
}

TEST_F(NewGraph, PointsTheExtensionAtTheRepository) {
  ASSERT_NE(visualization.getExtension(), nullptr);
  EXPECT_EQ(visualization.getExtension()->getStyleCycleRepository(), visualization.getStyleCycles().front());
}

TEST_F(EmptyChartTest, ANewGraphIsBuiltInAFixedOrder) {
  ChangeLog log(document);
  XGraph const graph(visualization, nullptr);
  EXPECT_THAT(
      log.lines(),
      ElementsAre("visualization adds graph", "graph id=frame_data_1", "visualization adds style",
                  "style id=container", "visualization adds extension", "visualization adds styleCycle",
                  "styleCycle id=styleCycleRepository", "styleCycle adds cycle", "cycle adds style",
                  "extension styleCycleRepository=styleCycleRepository"));
}

TEST_F(EmptyChartTest, ANewGraphNeedsNoDataStore) {
  XGraph const graph(visualization, nullptr);
  EXPECT_NE(graph.getGraph(), nullptr);
  expectNoReport(recorder);
}

TEST_F(EmptyChartTest, ANewGraphTouchesNoDataStore) {
  VarDataProcessor store;
  XGraph const graph(visualization, &store);
  std::vector<std::string> sources;
  store.GetSourceNames(sources);
  EXPECT_TRUE(sources.empty());
}

TEST_F(EmptyChartTest, TheEndOfAGraphTouchesNeitherStoreNorChart) {
  auto const store = std::make_unique<VarDataProcessor>();
  DeletionWatch const watch(store.get());
  std::string chart;
  {
    XGraph const graph(visualization, store.get());
    chart = document.AsUTF8();
  }
  EXPECT_FALSE(watch.wasDeleted());
  EXPECT_EQ(document.AsUTF8(), chart);
}

TEST_F(EmptyChartTest, TheEndOfAGraphLeavesItsSourcesToTheirOwner) {
  auto const store = std::make_unique<VarDataProcessor>();
  std::unique_ptr<XSource> const source(XGraph(visualization, store.get()).AddSource());
  source->AddRow();
  EXPECT_EQ(source->getNumRows(), 1u);
}

TEST_F(NewGraph, ASecondNewGraphMakesANodeOfItsOwn) {
  XGraph const second(visualization, store.get());
  EXPECT_EQ(visualization.getGraphs().size(), 2u);
  EXPECT_EQ(second.getGraph(), visualization.getGraphs().back());
}

TEST_F(NewGraph, ASecondNewGraphMakesAContainerOfItsOwn) {
  XGraph second(visualization, store.get());
  LumoStyle* const style = second.addStyle(u"mine");
  ASSERT_EQ(visualization.getStyles().size(), 2u);
  EXPECT_THAT(visualization.getStyles().back()->getStyles(), ElementsAre(style));
  EXPECT_TRUE(visualization.getStyles().front()->getStyles().empty());
}

TEST_F(FailingConstruction, IsReportedUnderTheNameWithBothArguments) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_NO_THROW(XGraph(visualization, nullptr));
  expectGuardReport(recorder, newGraphFailed);
}

TEST_F(FailingConstruction, AtTheFirstChangeLeavesNoGraph) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  XGraph const graph(visualization, nullptr);
  EXPECT_EQ(graph.getGraph(), nullptr);
}

TEST_F(FailingConstruction, AtTheContainerKeepsTheGraphAndHangsStylesOnTheVisualization) {
  XGraph graph = [&] {
    ChangeTrap const trap(document, 3, throwOrdinaryFailure());
    return XGraph(visualization, nullptr);
  }();
  EXPECT_EQ(graph.getGraph(), visualization.getGraphs().front());
  LumoStyle* const style = graph.addStyle(u"mine");
  EXPECT_THAT(visualization.getStyles(), ElementsAre(style));
}

TEST_F(FailingConstruction, BehindTheContainerKeepsWhatWasBuilt) {
  ChangeTrap const trap(document, 5, throwOrdinaryFailure());
  XGraph const graph(visualization, nullptr);
  EXPECT_THAT(childTags(visualization), ElementsAre("graph", "style"));
}

TEST_F(FailingConstruction, LetsTheHostsUnwindingSignalPass) {
  ChangeTrap const trap(document, 3, throwGoToCaller());
  EXPECT_THROW(XGraph(visualization, nullptr), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(AttachedGraph, ChangesNothingInTheChart) {
  XGraph const built(visualization, nullptr);
  std::string const before = document.AsUTF8();
  XGraph const attached(visualization);
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(AttachedGraph, FindsTheGraphOfTheChart) {
  XGraph const built(visualization, nullptr);
  XGraph const attached(visualization);
  EXPECT_EQ(attached.getGraph(), built.getGraph());
}

TEST_F(AttachedGraph, TakesTheFirstOfSeveralGraphs) {
  LumoGraph* const first = visualization.addGraph(u"first");
  visualization.addGraph(u"second");
  EXPECT_EQ(XGraph(visualization).getGraph(), first);
}

TEST_F(AttachedGraph, FindsAGraphInsideAContainer) {
  LumoGraph* const inner = visualization.addContainer(u"page")->addGraph(u"inner");
  EXPECT_EQ(XGraph(visualization).getGraph(), inner);
}

TEST_F(AttachedGraph, FindsTheGraphOfAParsedChart) {
  XGraph const built(visualization, nullptr);
  XDocument const parsed(document.AsUTF8());
  XGraph const attached(*parsed.getVisualization());
  ASSERT_NE(attached.getGraph(), nullptr);
  EXPECT_NE(attached.getGraph(), built.getGraph());
  EXPECT_THAT(parsed.getVisualization()->getGraphs(), ElementsAre(attached.getGraph()));
  EXPECT_EQ(utf8(attached.getGraph()->getId()), "frame_data_1");
}

TEST_F(AttachedGraph, FindsNothingInAChartWithoutGraph) {
  XGraph const attached(visualization);
  EXPECT_EQ(attached.getGraph(), nullptr);
  expectNoReport(recorder);
}

TEST_F(AttachedGraph, PutsItsStylesIntoTheContainerOfTheChart) {
  XGraph const built(visualization, nullptr);
  XGraph attached(visualization);
  LumoStyle* const style = attached.addStyle(u"mine");
  EXPECT_THAT(visualization.getStyles().front()->getStyles(), ElementsAre(style));
}

TEST_F(AttachedGraph, UsesTheLastOfSeveralContainers) {
  visualization.addStyle()->setId(ChartBase::_container);
  LumoStyle* const last = visualization.addStyle();
  last->setId(ChartBase::_container);
  XGraph attached(visualization);
  LumoStyle* const style = attached.addStyle(u"mine");
  EXPECT_THAT(last->getStyles(), ElementsAre(style));
}

TEST_F(AttachedGraph, UsesAContainerThatOtherStylesFollow) {
  LumoStyle* const container = visualization.addStyle();
  container->setId(ChartBase::_container);
  visualization.addStyle()->setId(u"another");
  XGraph attached(visualization);
  LumoStyle* const style = attached.addStyle(u"mine");
  EXPECT_THAT(container->getStyles(), ElementsAre(style));
}

TEST_F(AttachedGraph, TakesNoStyleWhoseIdDiffersInCaseForTheContainer) {
  visualization.addStyle()->setId(u"Container");
  XGraph attached(visualization);
  LumoStyle* const style = attached.addStyle(u"mine");
  EXPECT_EQ(visualization.getStyles().back(), style);
}

TEST_F(AttachedGraph, TakesNoStyleWithoutIdForTheContainer) {
  visualization.addStyle();
  XGraph attached(visualization);
  LumoStyle* const style = attached.addStyle(u"mine");
  EXPECT_EQ(visualization.getStyles().back(), style);
}

TEST_F(AttachedGraph, LooksForTheContainerAmongTheStylesOfTheVisualizationOnly) {
  visualization.addStyle()->addStyle()->setId(ChartBase::_container);
  XGraph attached(visualization);
  LumoStyle* const style = attached.addStyle(u"mine");
  EXPECT_EQ(visualization.getStyles().back(), style);
}

TEST_F(AttachedGraph, FindsStylesByIdInTheFirstContainerAndMakesNewOnesInTheLast) {
  visualization.addStyle()->setId(ChartBase::_container);
  visualization.addStyle()->setId(ChartBase::_container);
  XGraph attached(visualization);
  LumoStyle* const found = attached.AddStyle(u"found or made", false);
  LumoStyle* const made = attached.addStyle(u"made");
  EXPECT_THAT(visualization.getStyles().front()->getStyles(), ElementsAre(found));
  EXPECT_THAT(visualization.getStyles().back()->getStyles(), ElementsAre(made));
}

TEST_F(AttachedGraph, ReportsAFailureUnderTheNameWithOneArgument) {
  XGraph const built(visualization, nullptr);
  // The DOM keeps its list of graphs from the first call, so that the next memory needed is for the list of
  // styles.
  XGraph const before(visualization);
  XGraph attached = [&] {
    AllocationTrap const trap([] { throw std::bad_alloc(); });
    return XGraph(visualization);
  }();
  expectGuardReport(recorder, "Error in XGraph::XGraph(lumo)");
  EXPECT_EQ(attached.getGraph(), built.getGraph());
  LumoStyle* const style = attached.addStyle(u"without container");
  EXPECT_EQ(visualization.getStyles().back(), style);
}

TEST_F(AttachedGraph, LetsTheHostsUnwindingSignalPass) {
  XGraph const built(visualization, nullptr);
  XGraph const before(visualization);
  auto const attach = [&] {
    AllocationTrap const trap([] { throw VexaGoToCaller(); });
    return XGraph(visualization);
  };
  EXPECT_THROW(attach(), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(AttachedGraph, HasNoDataStoreForASource) {
  XGraph const built(visualization, nullptr);
  std::string const before = document.AsUTF8();
  XGraph attached(visualization);
  EXPECT_THROW(attached.AddSource(), ChartException);
  EXPECT_EQ(document.AsUTF8(), before);
  expectNoReport(recorder);
}

TEST_F(NewGraph, AndAnAttachedOneWorkOnTheSameTree) {
  XGraph attached(visualization);
  graph.AddPrimaryXAxis(u"");
  attached.AddPrimaryXAxis(u"");
  graph.AddBarElement(false);
  attached.AddBarElement(false);
  EXPECT_EQ(graph.getGraph()->getCoordinatess().size(), 1u);
  EXPECT_EQ(elementsOf(visualization, u"axis").size(), 1u);
  EXPECT_THAT(ids(graph.getGraph()->getIntervals()), ElementsAre("element_bar_1", "element_bar_2"));
}

TEST_F(NewGraph, AndAnAttachedOneShareTheLegendSlots) {
  XGraph attached(visualization);
  graph.addLegend(nullptr);
  attached.addLegend(nullptr);
  EXPECT_THAT(ids(visualization.getLegends()), ElementsAre("legend1", "legend2"));
}

TEST_F(NewGraph, AndAnAttachedOneShareTheSubTitle) {
  XGraph attached(visualization);
  graph.AddSubTitle(u"one");
  EXPECT_TRUE(attached.doesSubTitleExist());
  attached.AddSubTitle(u"two");
  EXPECT_EQ(visualization.getLabelFrames().size(), 1u);
}

TEST_F(NewGraph, AndAnAttachedOneShareTheNumbersOfVariables) {
  auto const source = addSource();
  XGraph attached(visualization);
  graph.AddCaseNumVariable("source0");
  attached.AddCaseNumVariable("source0");
  EXPECT_THAT(ids(visualization.getSourceVariables()), ElementsAre("sourceVariable0", "sourceVariable1"));
}

TEST_F(NewGraph, AndAnAttachedOnePutTheirStylesIntoOneContainer) {
  XGraph attached(visualization);
  graph.addStyle(u"one");
  attached.addStyle(u"two");
  EXPECT_THAT(styleIds(visualization), ElementsAre("one", "two"));
}

TEST_F(NewGraph, MayBeCopiedLikeAnyWrapper) {
  XGraph copy(graph);
  copy.AddPointElement();
  EXPECT_THAT(ids(graph.getGraph()->getPoints()), ElementsAre("element_point_1"));
}
