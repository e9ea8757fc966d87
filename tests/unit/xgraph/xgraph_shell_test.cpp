// Styles, sources, legends and the cell aspect.

#include "change_log.h"
#include "graph_fixture.h"

#include "host/chartbase.h"
#include "host/messages.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/paneling.h"
#include "model/style.h"
#include "model/variables.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using kestrel::host::Operation;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class AddStyle : public GraphTest {};
class AddSource : public GraphTest {};
class SourceQueries : public GraphTest {};
class AddLegend : public GraphTest {};
class SetCellAspect : public GraphTest {};

std::vector<std::string> linesOf(kestrel::host::Recorder const& recorder, Operation operation) {
  std::vector<std::string> lines;
  for (auto const& entry : recorder.entries(operation)) lines.push_back(entry.line());
  return lines;
}

}  // namespace

TEST_F(AddStyle, MakesAChildOfTheContainerWithTheId) {
  LumoStyle* const style = graph.addStyle(u"mine");
  EXPECT_THAT(visualization.getStyles().front()->getStyles(), ElementsAre(style));
  EXPECT_EQ(utf8(style->getId()), "mine");
}

TEST_F(AddStyle, MakesAnEmptyStyle) {
  LumoStyle* const style = graph.addStyle(u"mine");
  EXPECT_THAT(attributeNames(*style), ElementsAre("id"));
  EXPECT_THAT(childTags(*style), IsEmpty());
}

TEST_F(AddStyle, MakesASecondStyleOfAnIdThatExists) {
  LumoStyle const* const first = graph.addStyle(u"mine");
  LumoStyle const* const second = graph.addStyle(u"mine");
  EXPECT_NE(first, second);
  EXPECT_THAT(styleIds(visualization), ElementsAre("mine", "mine"));
}

TEST_F(AddStyle, KeepsTheOrderOfTheCalls) {
  graph.addStyle(u"b");
  graph.addStyle(u"a");
  EXPECT_THAT(styleIds(visualization), ElementsAre("b", "a"));
}

TEST_F(AddStyle, LetsAFailurePass) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_THROW(graph.addStyle(u"mine"), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(AddSource, NumbersTheSourcesFromZero) {
  auto const first = addSource();
  auto const second = addSource();
  EXPECT_THAT(ids(visualization.getUserSources()), ElementsAre("source0", "source1"));
}

TEST_F(AddSource, GivesAWrapperOnTheNewSource) {
  auto const source = addSource();
  EXPECT_EQ(source->getImplemenation(), visualization.getUserSources().front());
}

TEST_F(AddSource, OpensTheTableInTheStoreOfTheGraph) {
  auto const source = addSource();
  EXPECT_THAT(linesOf(recorder, Operation::AddDataSource),
              ElementsAre("VarDataProcessor::AddDataSource(source=\"source0\", rows=0)"));
  std::vector<std::string> sources;
  store->GetSourceNames(sources);
  EXPECT_THAT(sources, ElementsAre("source0"));
}

TEST_F(AddSource, GivesASourceWhoseRowsGoToTheStoreOfTheGraph) {
  auto const source = addSource();
  XVariable const variable = graph.AddAggregatedVariable(*source, false, u"");
  source->AddRow()->addDataValue(variable, 2.5);
  EXPECT_EQ(*store->GetDataPointer("source0", variable.getSourceName()), 2.5);
}

TEST_F(AddSource, GivesASourceAlsoWhereItsConstructionWasReported) {
  recorder.throwAt(Operation::AddDataSource, 1, OrdinaryFailure());
  auto const source = addSource();
  ASSERT_NE(source, nullptr);
  EXPECT_EQ(source->getImplemenation(), visualization.getUserSources().front());
  expectGuardReport(recorder, "Error in XSource::XSource()");
}

TEST_F(SourceQueries, FindASourceByItsId) {
  auto const source = addSource();
  EXPECT_TRUE(graph.doesSourceExist(u"source0"));
}

TEST_F(SourceQueries, IgnoreTheCaseOfTheId) {
  auto const source = addSource();
  EXPECT_TRUE(graph.doesSourceExist(u"Source0"));
}

TEST_F(SourceQueries, FindASourceBehindOthers) {
  auto const first = addSource();
  auto const second = addSource();
  EXPECT_TRUE(graph.doesSourceExist(u"source1"));
}

TEST_F(SourceQueries, FindNoSourceThatIsNotThere) {
  auto const source = addSource();
  EXPECT_FALSE(graph.doesSourceExist(u"source1"));
}

TEST_F(SourceQueries, FindNoSourceByAPartOfItsId) {
  auto const source = addSource();
  EXPECT_FALSE(graph.doesSourceExist(u"source"));
}

TEST_F(SourceQueries, FindNothingInAChartWithoutSources) {
  EXPECT_FALSE(graph.doesSourceExist(u"source0"));
  EXPECT_THAT(graph.getUserSourceNames(), IsEmpty());
}

TEST_F(SourceQueries, FindSourcesThatTheChartBroughtAlong) {
  visualization.addUserSource(u"theirs");
  EXPECT_TRUE(graph.doesSourceExist(u"theirs"));
}

TEST_F(SourceQueries, LookAtUserSourcesOnly) {
  visualization.addEmbeddedSource(u"embedded");
  EXPECT_FALSE(graph.doesSourceExist(u"embedded"));
  EXPECT_THAT(graph.getUserSourceNames(), IsEmpty());
}

TEST_F(SourceQueries, ListTheIdsInOrder) {
  auto const source = addSource();
  visualization.addUserSource(u"a");
  EXPECT_THAT(graph.getUserSourceNames(), ElementsAre("source0", "a"));
}

TEST_F(SourceQueries, ListTheIdsInUTF8) {
  visualization.addUserSource(u"größe\u2603");
  EXPECT_THAT(graph.getUserSourceNames(), ElementsAre("gr\xc3\xb6\xc3\x9f"
                                                      "e\xe2\x98\x83"));
}

TEST_F(AddLegend, MakesTheFirstLegend) {
  XLegend const legend = graph.addLegend(nullptr);
  EXPECT_THAT(ids(visualization.getLegends()), ElementsAre("legend1"));
  EXPECT_EQ(legend.getImplementation(), visualization.getLegends().front());
}

TEST_F(AddLegend, PointsTheExtensionAtTheFirstLegend) {
  graph.addLegend(nullptr);
  EXPECT_EQ(visualization.getExtension()->getLegend1(), visualization.getLegends().front());
  EXPECT_EQ(visualization.getExtension()->getLegend2(), nullptr);
}

TEST_F(AddLegend, MakesTheSecondLegendAtTheSecondCall) {
  graph.addLegend(nullptr);
  XLegend const legend = graph.addLegend(nullptr);
  EXPECT_THAT(ids(visualization.getLegends()), ElementsAre("legend1", "legend2"));
  EXPECT_EQ(visualization.getExtension()->getLegend2(), visualization.getLegends().back());
  EXPECT_EQ(legend.getImplementation(), visualization.getLegends().back());
}

TEST_F(AddLegend, GivesTheSecondLegendAgainAtTheThirdCall) {
  graph.addLegend(nullptr);
  graph.addLegend(nullptr);
  XLegend const legend = graph.addLegend(nullptr);
  EXPECT_THAT(ids(visualization.getLegends()), ElementsAre("legend1", "legend2"));
  EXPECT_EQ(legend.getImplementation(), visualization.getLegends().back());
}

TEST_F(AddLegend, AddsAFurtherLabelToTheSecondLegendAtTheThirdCall) {
  graph.addLegend(nullptr);
  graph.addLegend(u"Sex");
  graph.addLegend(u"Species");
  auto const labels = visualization.getLegends().back()->getLabels();
  ASSERT_EQ(labels.size(), 2u);
  EXPECT_EQ(utf8(labels[0]->getTexts().front()->getText()), "Sex");
  EXPECT_EQ(utf8(labels[1]->getTexts().front()->getText()), "Species");
  EXPECT_THAT(visualization.getLegends().front()->getLabels(), IsEmpty());
}

TEST_F(AddLegend, MakesNoLabelForANullText) {
  graph.addLegend(nullptr);
  EXPECT_THAT(visualization.getLegends().front()->getLabels(), IsEmpty());
}

TEST_F(AddLegend, TitlesTheLegendWithTheText) {
  graph.addLegend(u"Species");
  auto const labels = visualization.getLegends().front()->getLabels();
  EXPECT_THAT(ids(labels), ElementsAre("legend1_label_1"));
  EXPECT_EQ(utf8(labels.front()->getTexts().front()->getText()), "Species");
}

TEST_F(AddLegend, MakesALabelForAnEmptyTextToo) {
  graph.addLegend(u"");
  EXPECT_EQ(visualization.getLegends().front()->getLabels().size(), 1u);
}

TEST_F(AddLegend, MakesNoStyle) {
  graph.addLegend(u"Species");
  EXPECT_THAT(styleIds(visualization), IsEmpty());
}

TEST_F(AddLegend, AddsTheLegendBeforeTheExtensionNamesIt) {
  ChangeLog log(document);
  graph.addLegend(nullptr);
  EXPECT_THAT(log.lines(),
              ElementsAre("visualization adds legend", "legend id=legend1", "extension legend1=legend1"));
}

TEST_F(AddLegend, UsesTheExtensionThatExists) {
  graph.addLegend(nullptr);
  EXPECT_EQ(elementsOf(visualization, u"extension").size(), 1u);
}

TEST_F(EmptyChartTest, ALegendMakesTheExtensionWhereThereIsNone) {
  XGraph(visualization).addLegend(nullptr);
  ASSERT_NE(visualization.getExtension(), nullptr);
  EXPECT_EQ(visualization.getExtension()->getLegend1(), visualization.getLegends().front());
}

TEST_F(AddLegend, FillsTheFirstSlotFirstAlsoWhereOnlyTheSecondIsTaken) {
  LumoLegend* const theirs = visualization.addLegend(u"theirs");
  visualization.getExtension()->setLegend2(*theirs);
  XLegend const legend = graph.addLegend(nullptr);
  EXPECT_EQ(visualization.getExtension()->getLegend1(), legend.getImplementation());
  EXPECT_EQ(visualization.getExtension()->getLegend2(), theirs);
}

TEST_F(AddLegend, AsksTheExtensionAndNotTheListOfLegends) {
  visualization.addLegend(u"unreferenced");
  graph.addLegend(nullptr);
  EXPECT_THAT(ids(visualization.getLegends()), ElementsAre("unreferenced", "legend1"));
}

TEST_F(AddLegend, LetsAFailurePass) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_THROW(graph.addLegend(nullptr), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(SetCellAspect, MakesTheFacetLayoutWithNothingElseInIt) {
  graph.setCellAspect(1.5);
  LumoFacetLayout const* const layout = graph.getGraph()->getFacetLayout();
  EXPECT_THAT(attributeNames(*layout), ElementsAre("cellAspect"));
  EXPECT_EQ(attribute(layout, u"cellAspect"), "1.5");
}

TEST_F(SetCellAspect, UsesTheLayoutThatExists) {
  LumoFacetLayout* const layout = graph.getGraph()->addFacetLayout();
  layout->setTopDown(true);
  graph.setCellAspect(2.0);
  EXPECT_EQ(elementsOf(visualization, u"facetLayout").size(), 1u);
  EXPECT_EQ(attribute(layout, u"cellAspect"), "2");
  EXPECT_EQ(attribute(layout, u"topDown"), "true");
}

TEST_F(SetCellAspect, WritesANewValueOverTheOldOne) {
  graph.setCellAspect(1.5);
  graph.setCellAspect(0.75);
  EXPECT_EQ(attribute(graph.getGraph()->getFacetLayout(), u"cellAspect"), "0.75");
}

TEST_F(EmptyChartTest, TheCellAspectOfAChartWithoutGraphChangesNothing) {
  XGraph attached(visualization);
  std::string const before = document.AsUTF8();
  attached.setCellAspect(1.5);
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(SetCellAspect, LetsAFailurePass) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_THROW(graph.setCellAspect(1.5), OrdinaryFailure);
  expectNoReport(recorder);
}
