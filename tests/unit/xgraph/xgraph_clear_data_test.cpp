// Throwing a chart's data away.

#include "graph_fixture.h"
#include "memory_hooks.h"
#include "xdocument.h"
#include "xrow.h"

#include "kestrelhost/data_store.h"

#include <gmock/gmock.h>

#include <new>

using namespace kestrel::test;
using kestrel::host::Operation;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ClearData : public GraphTest {
 protected:
  /// The graph destroys the store that it has, so that the fixture lets go of it first, and owns the new one.
  VarDataProcessor* clear() {
    static_cast<void>(store.release());
    store.reset(graph.clearData());
    return store.get();
  }

  std::vector<std::string> sourcesInStore() const {
    std::vector<std::string> names;
    store->GetSourceNames(names);
    return names;
  }

  std::vector<std::string> columnsInStore(std::string const& source) const {
    std::vector<std::string> names;
    store->GetVariableNames(source, names);
    return names;
  }
};

}  // namespace

TEST_F(ClearData, GivesAnEmptyStore) {
  clear();
  ASSERT_NE(store, nullptr);
  EXPECT_THAT(sourcesInStore(), IsEmpty());
}

TEST_F(ClearData, DestroysTheStoreThatTheGraphWasGiven) {
  DeletionWatch const watch(store.get());
  clear();
  EXPECT_TRUE(watch.wasDeleted());
}

TEST_F(ClearData, DestroysTheStoreThatItMadeItself) {
  DeletionWatch const watch(clear());
  clear();
  EXPECT_TRUE(watch.wasDeleted());
}

TEST_F(ClearData, ThrowsTheDataAway) {
  auto const source = addSource();
  XVariable const variable = graph.AddAggregatedVariable(*source, false, u"");
  source->AddRow()->addDataValue(variable, 1.0);
  clear();
  EXPECT_EQ(store->GetRowCount("source0"), 0u);
  EXPECT_EQ(store->GetDataPointer("source0", variable.getSourceName()), nullptr);
}

TEST_F(ClearData, OpensTheSourcesInOrderInTheNewStore) {
  auto const first = addSource();
  auto const second = addSource();
  auto const third = addSource();
  clear();
  EXPECT_THAT(sourcesInStore(), ElementsAre("source0", "source1", "source2"));
}

TEST_F(ClearData, OpensEachSourceWithoutRows) {
  auto const source = addSource();
  recorder.clear();
  clear();
  EXPECT_THAT(recorder.lines(), ElementsAre("VarDataProcessor::AddDataSource(source=\"source0\", rows=0)"));
}

TEST_F(ClearData, OpensNoSourceThatTheGraphHasNotMade) {
  visualization.addUserSource(u"theirs");
  clear();
  EXPECT_THAT(sourcesInStore(), IsEmpty());
}

TEST_F(ClearData, RegistersNoColumns) {
  auto const source = addSource();
  graph.AddAggregatedVariable(*source, false, u"");
  clear();
  EXPECT_THAT(columnsInStore("source0"), IsEmpty());
}

TEST_F(ClearData, EmptiesTheSources) {
  auto const source = addSource();
  source->AddRow();
  source->AddRow();
  clear();
  EXPECT_EQ(source->getNumRows(), 0u);
}

TEST_F(ClearData, LeavesTheChartAsItWas) {
  auto const source = addSource();
  graph.AddAggregatedVariable(*source, false, u"Mass");
  graph.AddPointElement();
  graph.AddPrimaryXAxis(u"x");
  std::string const before = document.AsUTF8();
  clear();
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(ClearData, SendsLaterRowsToTheNewStore) {
  auto const source = addSource();
  source->AddRow();
  clear();
  XVariable const variable = graph.AddAggregatedVariable(*source, false, u"");
  source->AddRow()->addDataValue(variable, 4.0);
  EXPECT_EQ(store->GetRowCount("source0"), 1u);
  EXPECT_EQ(*store->GetDataPointer("source0", variable.getSourceName()), 4.0);
}

TEST_F(ClearData, RegistersLaterColumnsInTheNewStore) {
  auto const source = addSource();
  clear();
  XVariable const variable = graph.AddAggregatedVariable(*source, false, u"");
  EXPECT_THAT(columnsInStore("source0"), ElementsAre(variable.getSourceName()));
}

TEST_F(ClearData, OpensLaterSourcesInTheNewStore) {
  clear();
  auto const source = addSource();
  EXPECT_THAT(sourcesInStore(), ElementsAre("source0"));
}

TEST_F(ClearData, MayRunAgain) {
  auto const source = addSource();
  clear();
  clear();
  EXPECT_THAT(sourcesInStore(), ElementsAre("source0"));
}

TEST_F(ClearData, MakesAStoreForAGraphThatHasNone) {
  XGraph attached(visualization);
  std::unique_ptr<VarDataProcessor> const made(attached.clearData());
  ASSERT_NE(made, nullptr);
  std::unique_ptr<XSource> const source(attached.AddSource());
  std::vector<std::string> names;
  made->GetSourceNames(names);
  EXPECT_THAT(names, ElementsAre("source0"));
}

TEST_F(ClearData, LetsAFailureOfTheStorePass) {
  auto const source = addSource();
  recorder.throwAt(Operation::AddDataSource, 1, OrdinaryFailure());
  static_cast<void>(store.release());
  EXPECT_THROW(graph.clearData(), OrdinaryFailure);
  expectNoReport(recorder);
  // The graph stands on the new store already; only a further call hands one out.
  store.reset(graph.clearData());
}

TEST_F(ChartTest, ADocumentOutlivesThatItsGraphClearedTheData) {
  XDocument document;
  std::unique_ptr<XSource> const source(document.getGraph()->AddSource());
  XVariable const variable = document.getGraph()->AddAggregatedVariable(*source, false, u"");
  source->AddRow()->addDataValue(variable, 1.0);
  document.getGraph()->clearData();
  document.getGraph()->clearData();
  expectNoReport(recorder);
}

TEST_F(ChartTest, ADocumentOutlivesThatItsAttachedGraphMadeAStore) {
  XDocument document;
  document.getExternalGraph()->clearData();
  expectNoReport(recorder);
}

TEST_F(ChartTest, ADocumentGoesOnWithTheStoreOfItsGraph) {
  XDocument document;
  XGraph* const graph = document.getGraph();
  std::unique_ptr<XSource> const source(graph->AddSource());
  graph->clearData();
  XVariable const variable = graph->AddAggregatedVariable(*source, false, u"");
  source->AddRow()->addDataValue(variable, 1.0);
  recorder.clear();
  EXPECT_TRUE(document.SendData());
  EXPECT_EQ(recorder.count(Operation::GetDataStream), 1u);
}

namespace {

/// A document whose graph found no memory for a new store.
class DocumentWithoutMemoryForItsStore : public ChartTest {
 protected:
  DocumentWithoutMemoryForItsStore() {
    source.reset(document->getGraph()->AddSource());
    AllocationTrap const trap([] { throw std::bad_alloc(); });
    EXPECT_THROW(document->getGraph()->clearData(), std::bad_alloc);
  }

  std::size_t const storesBefore = kestrel::host::liveStores();
  std::unique_ptr<XSource> source;
  std::unique_ptr<XDocument> document = std::make_unique<XDocument>();
};

}  // namespace

TEST_F(DocumentWithoutMemoryForItsStore, HasNoData) {
  recorder.clear();
  EXPECT_TRUE(document->SendData());
  EXPECT_EQ(recorder.count(Operation::GetDataStream), 0u);
  EXPECT_EQ(kestrel::host::liveStores(), storesBefore);
}

TEST_F(DocumentWithoutMemoryForItsStore, CanStillBeDescribedAndSent) {
  document->getGraph()->AddTitle1(u"without data");
  EXPECT_TRUE(document->SendChart(false, true, false));
  expectNoReport(recorder);
}

TEST_F(DocumentWithoutMemoryForItsStore, FreesEachStoreOnce) {
  document.reset();
  EXPECT_EQ(kestrel::host::liveStores(), storesBefore);
}

TEST_F(DocumentWithoutMemoryForItsStore, GoesOnWithTheStoreOfALaterClearing) {
  document->getGraph()->clearData();
  recorder.clear();
  EXPECT_TRUE(document->SendData());
  EXPECT_EQ(recorder.count(Operation::GetDataStream), 1u);
  document.reset();
  EXPECT_EQ(kestrel::host::liveStores(), storesBefore);
}
