// The graph builder that a document makes on demand.

#include "xdocument.h"

#include "chart_test.h"
#include "document_record.h"
#include "schema_validator.h"
#include "story.h"
#include "xgraph.h"

#include "host/data_store.h"
#include "host/log.h"
#include "model/document.h"
#include "model/graph.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class BuiltGraph : public ChartTest {
 protected:
  void TearDown() override { EXPECT_THAT(schemaErrors(document.AsUTF8()), IsEmpty()); }

  LumoDocument model;
  LumoVisualization& visualization{*model.getVisualization()};
  XDocument document{model};
};

TEST_F(BuiltGraph, StampsTheChartWithItsIdAndVersion) {
  document.getGraph();
  EXPECT_EQ(attribute(&visualization, u"id"), "frame_graph_1");
  EXPECT_EQ(attribute(&visualization, u"version"), "2.8");
}

TEST_F(BuiltGraph, IsANewGraphInTheChart) {
  XGraph* const graph = document.getGraph();
  EXPECT_EQ(visualization.getGraphs(), std::vector<LumoGraph*>{graph->getGraph()});
  EXPECT_EQ(attribute(graph->getGraph(), u"id"), "frame_data_1");
}

TEST_F(BuiltGraph, HasADataStoreThatTheDocumentMadeForIt) {
  XGraph* const graph = document.getGraph();
  EXPECT_NE(recordOf(document).mChartData, nullptr);
  EXPECT_FALSE(recordOf(document).mChartDataExternal);
  std::unique_ptr<XSource> const source(graph->AddSource());
  std::vector<std::string> names;
  recordOf(document).mChartData->GetSourceNames(names);
  EXPECT_THAT(names, ElementsAre("source0"));
}

TEST_F(BuiltGraph, UsesTheCallersDataStoreWhereThereIsOne) {
  VarDataProcessor store;
  document.SetChartData(&store);
  std::unique_ptr<XSource> const source(document.getGraph()->AddSource());
  std::vector<std::string> names;
  store.GetSourceNames(names);
  EXPECT_THAT(names, ElementsAre("source0"));
  EXPECT_EQ(recordOf(document).mChartData, &store);
}

TEST_F(BuiltGraph, IsTheSameOneAtEveryCall) {
  XGraph* const graph = document.getGraph();
  EXPECT_EQ(document.getGraph(), graph);
}

TEST_F(BuiltGraph, ChangesNothingAtASecondCall) {
  document.getGraph();
  visualization.setId(u"renamed");
  VarDataProcessor* const store = recordOf(document).mChartData;
  std::string const before = document.AsUTF8();
  document.getGraph();
  EXPECT_EQ(document.AsUTF8(), before);
  EXPECT_EQ(recordOf(document).mChartData, store);
}

TEST_F(BuiltGraph, IsAlsoWhatAnExternalGraphIsAskedForLater) {
  XGraph* const graph = document.getGraph();
  std::string const before = document.AsUTF8();
  EXPECT_EQ(document.getExternalGraph(), graph);
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(BuiltGraph, KeepsTheOlderDataStoreWhenTheCallerSetsAnother) {
  XGraph* const graph = document.getGraph();
  VarDataProcessor* const older = recordOf(document).mChartData;
  VarDataProcessor newer;
  document.SetChartData(&newer);
  EXPECT_EQ(recordOf(document).mChartData, &newer);
  std::unique_ptr<XSource> const source(graph->AddSource());
  std::vector<std::string> names;
  older->GetSourceNames(names);
  EXPECT_THAT(names, ElementsAre("source0"));
  newer.GetSourceNames(names);
  EXPECT_THAT(names, IsEmpty());
}

TEST_F(BuiltGraph, IsNotMadeWhereTheChartRefusesItsId) {
  ChangeTrap const trap(model, 1, throwOrdinaryFailure());
  EXPECT_THROW(document.getGraph(), OrdinaryFailure);
  EXPECT_EQ(recordOf(document).mGraph, nullptr);
  EXPECT_EQ(recordOf(document).mChartData, nullptr);
}

class ExternalGraph : public BuiltGraph {};

TEST_F(ExternalGraph, WrapsTheGraphOfTheChart) {
  LumoGraph* const node = visualization.addGraph(u"their_graph");
  EXPECT_EQ(document.getExternalGraph()->getGraph(), node);
}

TEST_F(ExternalGraph, LeavesTheChartAsItIs) {
  visualization.setId(u"their_id");
  std::string const before = document.AsUTF8();
  document.getExternalGraph();
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(ExternalGraph, MakesNoDataStore) {
  document.getExternalGraph();
  EXPECT_EQ(recordOf(document).mChartData, nullptr);
}

TEST_F(ExternalGraph, IsTheSameOneAtEveryCall) {
  XGraph* const graph = document.getExternalGraph();
  EXPECT_EQ(document.getExternalGraph(), graph);
}

TEST_F(ExternalGraph, IsAlsoWhatABuiltGraphIsAskedForLater) {
  XGraph* const graph = document.getExternalGraph();
  std::string const before = document.AsUTF8();
  EXPECT_EQ(document.getGraph(), graph);
  EXPECT_EQ(document.AsUTF8(), before);
  EXPECT_EQ(recordOf(document).mChartData, nullptr);
}

class GraphOfNoChart : public ChartTest, public ::testing::WithParamInterface<XGraph* (XDocument::*)()> {
 protected:
  GraphOfNoChart() { recorder.clear(); }

  XDocument document{std::string()};
};

TEST_P(GraphOfNoChart, IsAFailureThatIsLoggedAndThenThrown) {
  std::size_t loggedWhenCaught = 0;
  try {
    (document.*GetParam())();
    ADD_FAILURE() << "nothing was thrown";
  } catch (ChartException const& failure) {
    loggedWhenCaught = recorder.count(Operation::Error);
    EXPECT_EQ(failure.message(), "Failed to send chart done message");
  }
  EXPECT_EQ(loggedWhenCaught, 1u);
  // The words are those of another operation.
  EXPECT_THAT(storyOf(recorder), ElementsAre("log: Failed to send chart done message"));
}

INSTANTIATE_TEST_SUITE_P(Kinds, GraphOfNoChart,
                         ::testing::Values(&XDocument::getGraph, &XDocument::getExternalGraph),
                         [](auto const& test) { return test.index == 0 ? "Built" : "External"; });

/// A chart whose root cannot be had.
class RootlessDocument : public LumoDocument {
 public:
  LumoVisualization* getVisualization() const override { return nullptr; }
};

class RootlessChart : public ChartTest {
 protected:
  RootlessDocument model;
  XDocument document{model};
};

TEST_F(RootlessChart, IsAFailureOfTheGraphAndNotACrash) {
  EXPECT_THROW(document.getGraph(), ChartException);
  EXPECT_THROW(document.getExternalGraph(), ChartException);
}

TEST_F(RootlessChart, IsAFailureOfItsName) {
  recorder.clear();
  EXPECT_NO_THROW(document.SetName(u"name"));
  EXPECT_THAT(storyOf(recorder), ElementsAre("log: Failed to set chart name"));
}

TEST_F(RootlessChart, IsAFailureOfItsSend) {
  recorder.clear();
  EXPECT_FALSE(document.SendChart(false, false, false));
  EXPECT_THAT(storyOf(recorder), ElementsAre("log: Failed to send chart.", "user: Chart XML Send Error"));
}

}  // namespace
}  // namespace kestrel::test
