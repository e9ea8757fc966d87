// The variables of a chart and their data columns.

#include "change_log.h"
#include "variable_graph.h"

#include "host/messages.h"
#include "kestrelhost/data_source.h"
#include "model/variables.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using kestrel::host::MemoryDataSource;
using kestrel::host::Operation;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct VariableFactory {
  char const* name;
  XVariable (*add)(XGraph&, XSource&, MemoryDataSource&);
  std::string column;
};

void PrintTo(VariableFactory const& row, std::ostream* out) { *out << row.name; }

/// Those that stand for a data column, the first one on the first source.
VariableFactory const factories[] = {
    {"Variable",
     [](XGraph& graph, XSource& source, MemoryDataSource& data) {
       return graph.AddVariable(data.variable(0), source, data, false);
     },
     "sourceVariable0_SN"},
    {"Aggregated",
     [](XGraph& graph, XSource& source, MemoryDataSource&) {
       return graph.AddAggregatedVariable(source, false, u"");
     },
     "sourceVariable0_SN"},
    {"System",
     [](XGraph& graph, XSource& source, MemoryDataSource&) {
       return graph.AddSystemVariable(true, source, false);
     },
     "$CASENUM"},
    {"CaseNum",
     [](XGraph& graph, XSource&, MemoryDataSource&) { return graph.AddCaseNumVariable("source0"); }, ""},
    {"Weight", [](XGraph& graph, XSource&, MemoryDataSource&) { return graph.AddWeightVariable("source0"); },
     ""},
    {"Existing",
     [](XGraph& graph, XSource&, MemoryDataSource&) {
       return graph.AddExistingVariable(u"source0", false, u"theirs");
     },
     ""},
};

class EachVariableFactory : public VariableGraph, public testing::WithParamInterface<VariableFactory> {
 protected:
  XVariable add() { return GetParam().add(graph, *source, data); }
};

class DataVariable : public VariableGraph {};
class AggregatedVariable : public VariableGraph {};
class VariableIds : public VariableGraph {};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, EachVariableFactory, testing::ValuesIn(factories), caseName<VariableFactory>);

TEST_P(EachVariableFactory, NumbersTheFirstVariableZero) {
  add();
  EXPECT_THAT(ids(visualization.getSourceVariables()), ElementsAre("sourceVariable0"));
}

TEST_P(EachVariableFactory, GivesAWrapperOnTheVariable) {
  XVariable const variable = add();
  EXPECT_EQ(&variable.getImplementation(), &onlyVariable());
}

TEST_P(EachVariableFactory, PutsTheVariableOnTheSource) {
  add();
  EXPECT_EQ(utf8(onlyVariable().getSource()), "source0");
}

TEST_P(EachVariableFactory, GivesAWrapperWithItsColumn) {
  EXPECT_EQ(add().getSourceName(), GetParam().column);
}

TEST_P(EachVariableFactory, RegistersTheColumnOfTheWrapper) {
  add();
  EXPECT_THAT(registered(), ElementsAre("source0/" + GetParam().column));
}

TEST_P(EachVariableFactory, RegistersTheColumnInTheStoreOfTheGraph) {
  add();
  std::vector<std::string> columns;
  store->GetVariableNames("source0", columns);
  EXPECT_THAT(columns, ElementsAre(GetParam().column));
}

TEST_P(EachVariableFactory, RegistersTheColumnLast) {
  ChangeLog log(document);
  std::size_t changes = 0;
  recorder.actAt(Operation::AddVariable, 1, [&] { changes = log.lines().size(); });
  add();
  EXPECT_GT(changes, 0u);
  EXPECT_EQ(log.lines().size(), changes);
}

TEST_P(EachVariableFactory, DoesNotReadTheResultOfTheRegistration) {
  recorder.failAt(Operation::AddVariable, 1);
  XVariable const variable = add();
  EXPECT_EQ(&variable.getImplementation(), &onlyVariable());
  expectNoReport(recorder);
}

TEST_P(EachVariableFactory, LetsAFailureOfTheRegistrationPass) {
  recorder.throwAt(Operation::AddVariable, 1, OrdinaryFailure());
  EXPECT_THROW(add(), OrdinaryFailure);
  expectNoReport(recorder);
  EXPECT_EQ(visualization.getSourceVariables().size(), 1u);
}

TEST_P(EachVariableFactory, SkipsTheColumnOnAGraphWithoutStore) {
  recorder.clear();
  XGraph attached(visualization);
  XVariable const variable = GetParam().add(attached, *source, data);
  EXPECT_THAT(ids(visualization.getSourceVariables()), ElementsAre("sourceVariable0"));
  EXPECT_EQ(variable.getSourceName(), GetParam().column);
  EXPECT_EQ(recorder.count(Operation::AddVariable), 0u);
}

TEST_P(EachVariableFactory, SaysFirstWhetherTheVariableIsCategorical) {
  ChangeLog log(document);
  add();
  auto const lines = log.lines();
  ASSERT_GE(lines.size(), 3u);
  EXPECT_EQ(lines[0], "visualization adds sourceVariable");
  EXPECT_EQ(lines[1], "sourceVariable id=sourceVariable0");
  EXPECT_EQ(lines[2], "sourceVariable categorical=false");
}

TEST_P(EachVariableFactory, LetsAFailureOfTheVariablePass) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_THROW(add(), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_P(EachVariableFactory, LetsTheHostsUnwindingSignalPass) {
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(add(), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_P(EachVariableFactory, LetsTheSignalPassWhereItsSourceIsWritten) {
  // Of most this is the first change within the guarded wrapper.
  ChangeTrap const trap(document, 4, throwGoToCaller());
  EXPECT_THROW(add(), VexaGoToCaller);
  expectNoReport(recorder);
  EXPECT_THAT(registered(), IsEmpty());
}

TEST_F(VariableIds, CountTheSourceVariablesOfAllKinds) {
  addVariable();
  graph.AddCaseNumVariable("source0");
  addVariable();
  graph.AddAggregatedVariable(*source, false, u"");
  EXPECT_THAT(ids(visualization.getSourceVariables()),
              ElementsAre("sourceVariable0", "sourceVariable1", "sourceVariable2", "sourceVariable3"));
}

TEST_F(VariableIds, CountVariablesThatTheChartBroughtAlong) {
  visualization.addSourceVariable(u"theirs");
  addVariable();
  EXPECT_THAT(ids(visualization.getSourceVariables()), ElementsAre("theirs", "sourceVariable1"));
}

TEST_F(VariableIds, CountExpressionsOnTheirOwn) {
  XVariable first = addVariable();
  XVariable second = addVariable();
  graph.AddExpressionVariable({&first, &second}, false);
  EXPECT_THAT(ids(visualization.getExpressionVariables()), ElementsAre("expressionVariable0"));
}

TEST_F(DataVariable, BearsTheCategoricalFlag) {
  addVariable(true);
  EXPECT_TRUE(onlyVariable().getCategorical());
}

TEST_F(DataVariable, ComesFromTheExternalDataSource) {
  addVariable();
  EXPECT_EQ(utf8(onlyVariable().getCreator()), "external_datasource");
}

TEST_F(DataVariable, HasTheColumnOfItsIdInTheChart) {
  addVariable();
  EXPECT_EQ(utf8(onlyVariable().getSourceName()), "sourceVariable0_SN");
}

TEST_F(DataVariable, HasTheLabelAndTheNameOfTheHostsVariable) {
  mass.setLabel("Body mass (g)");
  addVariable();
  EXPECT_EQ(utf8(onlyVariable().getLabel()), "Body mass (g)");
  EXPECT_EQ(utf8(onlyVariable().getShortLabel()), "mass");
}

TEST_F(DataVariable, HasAFormat) { EXPECT_TRUE(addVariable().doesFormatExist()); }

TEST_F(DataVariable, IsFoundInTheDataOfTheProcedure) {
  kestrel::host::MemoryCaseIterator iterator(data);
  XVariable variable = addVariable();
  iterator.next();
  EXPECT_EQ(variable.getData(&iterator), 3750.0);
}

TEST_F(DataVariable, IsMadeInAFixedOrder) {
  mass.setLabel("Body mass");
  ChangeLog log(document);
  addVariable();
  EXPECT_THAT(log.linesOf({"visualization", "sourceVariable"}),
              ElementsAre("visualization adds sourceVariable", "sourceVariable id=sourceVariable0",
                          "sourceVariable categorical=false", "sourceVariable source=source0",
                          "sourceVariable sourceName=sourceVariable0_SN", "sourceVariable label=Body mass",
                          "sourceVariable shortLabel=mass", "sourceVariable adds format",
                          "sourceVariable creator=external_datasource"));
}

TEST_F(DataVariable, KnowsItsCreatorBeforeTheColumnIsRegistered) {
  std::string creator;
  recorder.actAt(Operation::AddVariable, 1, [&] { creator = utf8(onlyVariable().getCreator()); });
  addVariable();
  EXPECT_EQ(creator, "external_datasource");
}

TEST_F(DataVariable, IsRegisteredUnderTheIdThatTheSourceHasInTheChart) {
  source->getImplemenation()->setId(u"Gr\u00f6\u00dfe");
  addVariable();
  EXPECT_THAT(registered(), ElementsAre("Gr\xc3\xb6\xc3\x9f"
                                        "e/sourceVariable0_SN"));
}

TEST_F(DataVariable, IsRegisteredUnderItsOwnSource) {
  auto const second = addSource();
  graph.AddVariable(mass, *second, data, false);
  EXPECT_THAT(registered(), ElementsAre("source1/sourceVariable0_SN"));
}

TEST_F(DataVariable, IsFinishedAlsoWhereTheWrapperReportsAFailure) {
  ChangeTrap const trap(document, 4, throwOrdinaryFailure());
  addVariable();
  expectGuardReport(recorder, "Error in XVariable::XVariable()");
  EXPECT_EQ(utf8(onlyVariable().getCreator()), "external_datasource");
  EXPECT_EQ(registered().size(), 1u);
}

TEST_F(AggregatedVariable, BearsTheCategoricalFlag) {
  graph.AddAggregatedVariable(*source, true, u"");
  EXPECT_TRUE(onlyVariable().getCategorical());
}

TEST_F(AggregatedVariable, ComesFromAnInternalAggregate) {
  graph.AddAggregatedVariable(*source, false, u"");
  EXPECT_EQ(utf8(onlyVariable().getCreator()), "internal_aggregate");
}

TEST_F(AggregatedVariable, BearsTheLabel) {
  graph.AddAggregatedVariable(*source, false, u"Count");
  EXPECT_EQ(utf8(onlyVariable().getLabel()), "Count");
}

TEST_F(AggregatedVariable, BearsTheLabelUnchanged) {
  graph.AddAggregatedVariable(*source, false, u" a\\nb ");
  EXPECT_EQ(utf8(onlyVariable().getLabel()), " a\\nb ");
}

TEST_F(AggregatedVariable, HasNoLabelForAnEmptyText) {
  graph.AddAggregatedVariable(*source, false, u"");
  EXPECT_EQ(attribute(&onlyVariable(), u"label"), "(absent)");
}

TEST_F(AggregatedVariable, HasNeitherShortLabelNorFormat) {
  graph.AddAggregatedVariable(*source, false, u"Count");
  EXPECT_EQ(attribute(&onlyVariable(), u"shortLabel"), "(absent)");
  EXPECT_THAT(onlyVariable().getFormats(), IsEmpty());
}

TEST_F(AggregatedVariable, IsMadeInAFixedOrder) {
  ChangeLog log(document);
  graph.AddAggregatedVariable(*source, true, u"Count");
  EXPECT_THAT(log.lines(),
              ElementsAre("visualization adds sourceVariable", "sourceVariable id=sourceVariable0",
                          "sourceVariable categorical=true", "sourceVariable label=Count",
                          "sourceVariable source=source0", "sourceVariable sourceName=sourceVariable0_SN",
                          "sourceVariable creator=internal_aggregate"));
}

TEST_F(AggregatedVariable, OfASourceThatCouldNotBeMadeIsReportedByItsWrapperOnlyOnAGraphWithoutStore) {
  std::unique_ptr<XSource> broken;
  {
    ChangeTrap const trap(document, 1, throwOrdinaryFailure());
    broken = addSource();
  }
  recorder.clear();
  XGraph attached(visualization);
  EXPECT_NO_THROW(attached.AddAggregatedVariable(*broken, false, u""));
  expectGuardReport(recorder, "Error in XVariable::XVariable()");
  EXPECT_THAT(registered(), IsEmpty());
}

TEST_F(AggregatedVariable, KnowsItsCreatorBeforeTheColumnIsRegistered) {
  std::string creator;
  recorder.actAt(Operation::AddVariable, 1, [&] { creator = utf8(onlyVariable().getCreator()); });
  graph.AddAggregatedVariable(*source, false, u"");
  EXPECT_EQ(creator, "internal_aggregate");
}
