// Who frees what, in which order. Each of these also shows that no data store is left behind or ended twice;
// under the address sanitizer, the same of everything else.

#include "xdocument.h"

#include "chart_test.h"
#include "document_record.h"
#include "story.h"
#include "xgraph.h"

#include "host/data_store.h"
#include "host/messages.h"
#include "kestrelhost/conversion.h"
#include "kestrelhost/data_store.h"
#include "model/document.h"

#include <gmock/gmock.h>
#include <xercesc/dom/DOM.hpp>

#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> sourcesOf(VarDataProcessor const& store) {
  std::vector<std::string> names;
  store.GetSourceNames(names);
  return names;
}

/// Counts the data stores that a test makes.
class CountedStores : public ChartTest {
 protected:
  std::size_t storesMade() const { return host::liveStores() - mBefore; }

 private:
  std::size_t const mBefore = host::liveStores();
};

/// A document with a source of the caller's, on demand. When it has ended, no store is there but the
/// caller's.
class StoreOf : public CountedStores {
 protected:
  void TearDown() override {
    end();
    EXPECT_EQ(storesMade(), callersStores());
  }

  virtual std::size_t callersStores() const { return 0; }

  void addSource() { source.reset(document->getGraph()->AddSource()); }

  /// The store that the document reads its data from.
  VarDataProcessor* read() { return recordOf(*document).chartData(); }

  void end() { document.reset(); }

  /// The host unwinds out of the making of the graph, when its store is there already.
  void unwindTheGraph() {
    document = std::make_unique<XDocument>(model);
    // Behind the id and the version comes the graph.
    ChangeTrap const trap(model, 3, throwGoToCaller());
    EXPECT_THROW(document->getGraph(), VexaGoToCaller);
  }

  LumoDocument model;

  /// Outlives the document here, as the caller's wrappers may.
  std::unique_ptr<XSource> source;
  std::unique_ptr<XDocument> document = std::make_unique<XDocument>();
};

class StoreOfTheDocument : public StoreOf {};

TEST_F(StoreOfTheDocument, EndsWithIt) {
  addSource();
  EXPECT_THAT(sourcesOf(*read()), ElementsAre("source0"));
  end();
}

TEST_F(StoreOfTheDocument, EndsWithItAlsoAfterASend) {
  addSource();
  EXPECT_TRUE(document->SendChart(false, true, false));
  EXPECT_EQ(read(), nullptr);
  end();
}

TEST_F(StoreOfTheDocument, IsStillTheGraphsAfterASend) {
  addSource();
  VarDataProcessor* const store = read();
  document->SendChart(false, true, false);
  std::unique_ptr<XSource> const second(document->getGraph()->AddSource());
  EXPECT_THAT(sourcesOf(*store), ElementsAre("source0", "source1"));
}

TEST_F(StoreOfTheDocument, IsReplacedByTheOneThatTheGraphMakesWhenItIsCleared) {
  addSource();
  VarDataProcessor* const made = document->getGraph()->clearData();
  EXPECT_EQ(read(), made);
  EXPECT_THAT(sourcesOf(*read()), ElementsAre("source0"));
  end();
}

TEST_F(StoreOfTheDocument, IsReplacedAtEachClearing) {
  addSource();
  document->getGraph()->clearData();
  document->getGraph()->clearData();
  VarDataProcessor* const last = document->getGraph()->clearData();
  EXPECT_EQ(read(), last);
  EXPECT_EQ(storesMade(), 1u);
}

TEST_F(StoreOfTheDocument, IsReplacedAlsoWhereNobodyAsksBeforeTheEnd) {
  addSource();
  document->getGraph()->clearData();
  end();
}

TEST_F(StoreOfTheDocument, ThatWasClearedIsTheOneThatIsSent) {
  addSource();
  document->getGraph()->clearData();
  recorder.clear();
  EXPECT_TRUE(document->SendChart(false, true, false));
  EXPECT_EQ(recorder.count(Operation::GetDataStream), 1u);
  end();
}

TEST_F(StoreOfTheDocument, MayBeClearedByTheSendItself) {
  addSource();
  EXPECT_TRUE(document->SendChart(false, true, true));
  EXPECT_EQ(read(), nullptr);
  end();
}

TEST_F(StoreOfTheDocument, MayBeClearedBehindASend) {
  addSource();
  document->SendChart(false, true, false);
  VarDataProcessor* const made = document->getGraph()->clearData();
  EXPECT_EQ(read(), nullptr);
  EXPECT_THAT(sourcesOf(*made), ElementsAre("source0"));
  end();
}

TEST_F(StoreOfTheDocument, MayBeClearedBeforeAndByASend) {
  addSource();
  document->getGraph()->clearData();
  EXPECT_TRUE(document->SendChart(false, true, true));
  document->getGraph()->clearData();
  EXPECT_EQ(storesMade(), 1u);
}

TEST_F(StoreOfTheDocument, IsNotReadAgainBehindASecondSend) {
  addSource();
  document->SendChart(false, true, true);
  recorder.clear();
  document->SendChart(false, true, true);
  EXPECT_EQ(recorder.count(Operation::GetDataStream), 0u);
  EXPECT_EQ(recorder.count(Operation::AddDataSource), 0u);
  end();
}

TEST_F(StoreOfTheDocument, IsTheDocumentsAlsoWhereAnExternalGraphMadeItByClearing) {
  document->getVisualization()->addGraph(u"theirs");
  VarDataProcessor* const made = document->getExternalGraph()->clearData();
  EXPECT_NE(made, nullptr);
  // The document reads no data that it did not have before.
  EXPECT_EQ(read(), nullptr);
  end();
}

TEST_F(StoreOfTheDocument, WhoseGraphWasUnwoundIsNotTouchedWhereAnExternalGraphIsCleared) {
  unwindTheGraph();
  VarDataProcessor* const first = read();
  VarDataProcessor* const made = document->getExternalGraph()->clearData();
  EXPECT_NE(first, nullptr);
  EXPECT_NE(made, first);
  EXPECT_EQ(read(), first);
  recorder.clear();
  EXPECT_TRUE(document->SendData());
  EXPECT_EQ(recorder.count(Operation::GetDataStream), 1u);
  EXPECT_EQ(storesMade(), 2u);
}

TEST_F(StoreOfTheDocument, WhoseGraphWasUnwoundIsTheOneOfTheNextGraph) {
  unwindTheGraph();
  VarDataProcessor* const first = read();
  addSource();
  EXPECT_EQ(read(), first);
  EXPECT_THAT(sourcesOf(*first), ElementsAre("source0"));
  VarDataProcessor* const made = document->getGraph()->clearData();
  EXPECT_EQ(read(), made);
  EXPECT_EQ(storesMade(), 1u);
}

class StoreOfTheCaller : public StoreOf {
 protected:
  std::size_t callersStores() const override { return store != nullptr ? 1 : 0; }

  std::unique_ptr<VarDataProcessor> store = std::make_unique<VarDataProcessor>();
};

TEST_F(StoreOfTheCaller, OutlivesTheDocument) {
  document->SetChartData(store.get());
  addSource();
  end();
  EXPECT_THAT(sourcesOf(*store), ElementsAre("source0"));
}

TEST_F(StoreOfTheCaller, OutlivesTheDocumentAlsoAfterASend) {
  document->SetChartData(store.get());
  addSource();
  document->SendChart(false, true, false);
  end();
  EXPECT_THAT(sourcesOf(*store), ElementsAre("source0"));
}

TEST_F(StoreOfTheCaller, ThatIsSetBehindTheGraphIsTheOneThatIsRead) {
  addSource();
  document->SetChartData(store.get());
  EXPECT_EQ(read(), store.get());
  end();
  EXPECT_THAT(sourcesOf(*store), IsEmpty());
}

TEST_F(StoreOfTheCaller, ThatIsSetBehindTheGraphStaysWhenTheGraphIsCleared) {
  addSource();
  document->SetChartData(store.get());
  document->getGraph()->clearData();
  EXPECT_EQ(read(), store.get());
  end();
  EXPECT_THAT(sourcesOf(*store), IsEmpty());
}

TEST_F(StoreOfTheCaller, ThatTheGraphHoldsIsDestroyedByItWhenItIsCleared) {
  document->SetChartData(store.get());
  addSource();
  static_cast<void>(store.release());
  VarDataProcessor* const made = document->getGraph()->clearData();
  EXPECT_EQ(read(), made);
  EXPECT_FALSE(recordOf(*document).mChartDataExternal);
  end();
}

TEST_F(StoreOfTheCaller, ThatTheGraphHoldsIsDestroyedByASendThatClears) {
  document->SetChartData(store.get());
  addSource();
  static_cast<void>(store.release());
  EXPECT_TRUE(document->SendChart(false, true, true));
  end();
}

TEST_F(StoreOfTheCaller, IsWhatTheClearedGraphGaveOnceItIsSet) {
  addSource();
  store.reset(document->getGraph()->clearData());
  document->SetChartData(store.get());
  EXPECT_EQ(read(), store.get());
  EXPECT_TRUE(recordOf(*document).mChartDataExternal);
  end();
  EXPECT_THAT(sourcesOf(*store), ElementsAre("source0"));
}

TEST_F(StoreOfTheCaller, IsNoMoreWhatTheClearedGraphGaveOnceItIsClearedAgain) {
  addSource();
  VarDataProcessor* const first = document->getGraph()->clearData();
  document->SetChartData(first);
  VarDataProcessor* const second = document->getGraph()->clearData();
  EXPECT_EQ(read(), second);
  end();
}

TEST_F(StoreOfTheCaller, ThatIsTakenAwayLeavesNoData) {
  document->SetChartData(store.get());
  document->SetChartData(nullptr);
  EXPECT_EQ(read(), nullptr);
  end();
  EXPECT_THAT(sourcesOf(*store), IsEmpty());
}

TEST_F(StoreOfTheCaller, ThatIsTakenAwayBehindTheGraphLeavesTheGraphItsOwn) {
  addSource();
  document->SetChartData(nullptr);
  std::unique_ptr<XSource> const second(document->getGraph()->AddSource());
  EXPECT_EQ(read(), nullptr);
  end();
}

TEST_F(StoreOfTheCaller, TakesThePlaceOfOneWhoseGraphWasNeverFinished) {
  unwindTheGraph();
  document->SetChartData(store.release());
  VarDataProcessor* const made = document->getGraph()->clearData();
  EXPECT_EQ(read(), made);
}

TEST_F(StoreOfTheCaller, IsWhatAGraphIsFinishedWithThatAnUnwoundOneLeftBehind) {
  unwindTheGraph();
  VarDataProcessor* const first = read();
  document->SetChartData(store.get());
  addSource();
  EXPECT_NE(first, nullptr);
  EXPECT_THAT(sourcesOf(*first), IsEmpty());
  EXPECT_THAT(sourcesOf(*store), ElementsAre("source0"));
}

TEST_F(StoreOfTheCaller, MayBeOneOfSeveralDocuments) {
  XDocument other;
  document->SetChartData(store.get());
  other.SetChartData(store.get());
  addSource();
  end();
  std::unique_ptr<XSource> const theirs(other.getGraph()->AddSource());
  EXPECT_THAT(sourcesOf(*store), ElementsAre("source0"));
}

class ChartOf : public CountedStores {
 protected:
  void TearDown() override { EXPECT_EQ(storesMade(), 0u); }

  std::string const text = "<visualization xmlns='http://xml.vexa.example/visualization' id='parsed'/>";
};

TEST_F(ChartOf, ADocumentIsReadableAsLongAsTheDocumentLives) {
  XDocument const document(text);
  EXPECT_EQ(attribute(document.getVisualization(), u"id"), "parsed");
  EXPECT_NE(document.AsUTF8().find("id=\"parsed\""), std::string::npos);
}

TEST_F(ChartOf, ADocumentFromTextMayHaveAGraphAndAStore) {
  auto document = std::make_unique<XDocument>(text);
  std::unique_ptr<XSource> const source(document->getGraph()->AddSource());
  document->SendChart(false, true, false);
  document.reset();
}

TEST_F(ChartOf, ACallerOutlivesTheDocumentWithItsParser) {
  xercesc::XercesDOMParser parser;
  std::string errorText;
  LumoDocument chart(XDocument::parseDocument(text, errorText, &parser));
  {
    XDocument document(chart);
    document.getGraph();
  }
  EXPECT_EQ(attribute(chart.getVisualization(), u"id"), "frame_graph_1");
}

TEST_F(ChartOf, AConversionReplacesTheFirstParse) {
  recorder.services().java->upgrading = [this](std::string const&, std::string& out) {
    out = text;
    return true;
  };
  XDocument const document("<graph id='old'/>");
  EXPECT_EQ(attribute(document.getVisualization(), u"id"), "parsed");
}

TEST_F(ChartOf, AConstructionThatTheHostUnwindsLeavesNothingBehind) {
  recorder.throwAt(Operation::PDLtoXML, 1, VexaGoToCaller());
  EXPECT_THROW(XDocument("GRAPH", XDocument::UseUTF8), VexaGoToCaller);
  recorder.throwAt(Operation::PrintDebugInfo, 1, VexaGoToCaller());
  EXPECT_THROW(XDocument(), VexaGoToCaller);
}

}  // namespace
}  // namespace kestrel::test
