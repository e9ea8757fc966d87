// Variables over system columns and over columns that exist, and sums of variables.

#include "change_log.h"
#include "variable_graph.h"

#include "host/messages.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using kestrel::host::Operation;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SystemVariable : public VariableGraph {};
class CaseNumVariable : public VariableGraph {};
class WeightVariable : public VariableGraph {};
class ExistingVariable : public VariableGraph {};
class ExpressionVariable : public VariableGraph {};

}  // namespace

TEST_F(SystemVariable, IsTheCaseNumberOfTheExternalSystem) {
  graph.AddSystemVariable(true, *source, false);
  EXPECT_EQ(utf8(onlyVariable().getSourceName()), "$CASENUM");
  EXPECT_EQ(utf8(onlyVariable().getCreator()), "external_system");
}

TEST_F(SystemVariable, IsMadeInAFixedOrder) {
  ChangeLog log(document);
  graph.AddSystemVariable(true, *source, true);
  EXPECT_THAT(log.lines(),
              ElementsAre("visualization adds sourceVariable", "sourceVariable id=sourceVariable0",
                          "sourceVariable categorical=true", "sourceVariable source=source0",
                          "sourceVariable sourceName=$CASENUM", "sourceVariable creator=external_system",
                          "sourceVariable writes the same"));
}

TEST_F(SystemVariable, BearsTheCategoricalFlag) {
  graph.AddSystemVariable(true, *source, true);
  EXPECT_TRUE(onlyVariable().getCategorical());
}

TEST_F(SystemVariable, GivesTheCaseNumber) {
  kestrel::host::MemoryCaseIterator iterator(data);
  XVariable variable = graph.AddSystemVariable(true, *source, false);
  iterator.next();
  iterator.next();
  EXPECT_EQ(variable.getData(&iterator), 2.0);
}

TEST_F(SystemVariable, OfAnotherKindIsReportedTwiceInTheLog) {
  EXPECT_NO_THROW(graph.AddSystemVariable(false, *source, false));
  EXPECT_THAT(recorder.failures(),
              ElementsAre("Only $CASENUM System Variables supported.", "Error in XVariable::XVariable()"));
  EXPECT_EQ(recorder.userMessages().size(), 1u);
}

TEST_F(SystemVariable, OfAnotherKindIsAVariableWithoutColumn) {
  graph.AddSystemVariable(false, *source, true);
  EXPECT_EQ(attribute(&onlyVariable(), u"sourceName"), "(absent)");
  EXPECT_EQ(attribute(&onlyVariable(), u"creator"), "(absent)");
  EXPECT_TRUE(onlyVariable().getCategorical());
}

TEST_F(SystemVariable, OfAnotherKindIsRegisteredUnderTheEmptyName) {
  graph.AddSystemVariable(false, *source, false);
  EXPECT_THAT(registered(), ElementsAre("source0/"));
}

TEST_F(CaseNumVariable, IsTheColumnOfTheCaseNumber) {
  graph.AddCaseNumVariable("source0");
  EXPECT_EQ(utf8(onlyVariable().getSourceName()), "$CASENUM");
}

TEST_F(CaseNumVariable, IsNotCategorical) {
  graph.AddCaseNumVariable("source0");
  EXPECT_EQ(attribute(&onlyVariable(), u"categorical"), "false");
}

TEST_F(CaseNumVariable, IsMadeInAFixedOrder) {
  ChangeLog log(document);
  graph.AddCaseNumVariable("source0");
  EXPECT_THAT(log.lines(),
              ElementsAre("visualization adds sourceVariable", "sourceVariable id=sourceVariable0",
                          "sourceVariable categorical=false", "sourceVariable source=source0",
                          "sourceVariable sourceName=$CASENUM"));
}

TEST_F(CaseNumVariable, IsNoWeight) { EXPECT_FALSE(graph.AddCaseNumVariable("source0").isWeightVariable()); }

TEST_F(CaseNumVariable, IgnoresTheCaseOfTheSource) {
  graph.AddCaseNumVariable("SOURCE0");
  EXPECT_EQ(utf8(onlyVariable().getSource()), "source0");
}

TEST_F(CaseNumVariable, IsRegisteredUnderTheNameAsItWasPassed) {
  graph.AddCaseNumVariable("SOURCE0");
  EXPECT_THAT(registered(), ElementsAre("SOURCE0/"));
}

TEST_F(CaseNumVariable, TakesTheLastOfSourcesThatDifferInCaseOnly) {
  visualization.addUserSource(u"SOURCE0");
  visualization.addUserSource(u"another");
  graph.AddCaseNumVariable("source0");
  EXPECT_EQ(utf8(onlyVariable().getSource()), "SOURCE0");
}

TEST_F(CaseNumVariable, ReadsTheNameOfTheSourceAsUTF8) {
  visualization.addUserSource(u"größe");
  graph.AddCaseNumVariable(
      "gr\xc3\xb6\xc3\x9f"
      "e");
  EXPECT_EQ(utf8(onlyVariable().getSource()),
            "gr\xc3\xb6\xc3\x9f"
            "e");
}

TEST_F(WeightVariable, IsTheColumnOfTheWeight) {
  graph.AddWeightVariable("source0");
  EXPECT_EQ(utf8(onlyVariable().getSourceName()), "$WEIGHT");
}

TEST_F(WeightVariable, IsNotCategorical) {
  graph.AddWeightVariable("source0");
  EXPECT_EQ(attribute(&onlyVariable(), u"categorical"), "false");
}

TEST_F(WeightVariable, IsAWeight) { EXPECT_TRUE(graph.AddWeightVariable("source0").isWeightVariable()); }

TEST_F(WeightVariable, IsMadeInAFixedOrder) {
  ChangeLog log(document);
  graph.AddWeightVariable("source0");
  EXPECT_THAT(log.lines(),
              ElementsAre("visualization adds sourceVariable", "sourceVariable id=sourceVariable0",
                          "sourceVariable categorical=false", "sourceVariable source=source0",
                          "sourceVariable sourceName=$WEIGHT", "sourceVariable weight=true"));
}

TEST_F(WeightVariable, IsAWeightBeforeTheColumnIsRegistered) {
  bool weight = false;
  recorder.actAt(Operation::AddVariable, 1, [&] { weight = onlyVariable().getWeight(); });
  graph.AddWeightVariable("source0");
  EXPECT_TRUE(weight);
}

TEST_F(WeightVariable, TakesTheLastOfSourcesThatDifferInCaseOnly) {
  visualization.addUserSource(u"SOURCE0");
  visualization.addUserSource(u"another");
  graph.AddWeightVariable("source0");
  EXPECT_EQ(utf8(onlyVariable().getSource()), "SOURCE0");
}

TEST_F(WeightVariable, IsRegisteredUnderTheNameAsItWasPassed) {
  graph.AddWeightVariable("Source0");
  EXPECT_THAT(registered(), ElementsAre("Source0/"));
}

TEST_F(ExistingVariable, IsTheNamedColumn) {
  graph.AddExistingVariable(u"source0", false, u"größe");
  EXPECT_EQ(utf8(onlyVariable().getSourceName()),
            "gr\xc3\xb6\xc3\x9f"
            "e");
}

TEST_F(ExistingVariable, BearsTheCategoricalFlag) {
  graph.AddExistingVariable(u"source0", true, u"theirs");
  EXPECT_TRUE(onlyVariable().getCategorical());
}

TEST_F(ExistingVariable, IsMadeInAFixedOrder) {
  ChangeLog log(document);
  graph.AddExistingVariable(u"source0", true, u"theirs");
  EXPECT_THAT(log.lines(), ElementsAre("visualization adds sourceVariable",
                                       "sourceVariable id=sourceVariable0", "sourceVariable categorical=true",
                                       "sourceVariable source=source0", "sourceVariable sourceName=theirs"));
}

TEST_F(ExistingVariable, TakesTheFirstOfSourcesThatDifferInCaseOnly) {
  visualization.addUserSource(u"SOURCE0");
  graph.AddExistingVariable(u"Source0", false, u"theirs");
  EXPECT_EQ(utf8(onlyVariable().getSource()), "source0");
}

TEST_F(ExistingVariable, IsRegisteredUnderTheIdAsItWasPassed) {
  graph.AddExistingVariable(u"Source0", false, u"theirs");
  EXPECT_THAT(registered(), ElementsAre("Source0/"));
}

TEST_F(ExistingVariable, IsRegisteredUnderTheIdInUTF8) {
  visualization.addUserSource(u"gr\u00f6\u00dfe");
  graph.AddExistingVariable(u"gr\u00f6\u00dfe", false, u"theirs");
  EXPECT_THAT(registered(), ElementsAre("gr\xc3\xb6\xc3\x9f"
                                        "e/"));
}

TEST_F(ExistingVariable, TakesTheNumberBehindTheVariablesThatAreThere) {
  addVariable();
  graph.AddExistingVariable(u"source0", false, u"theirs");
  graph.AddWeightVariable("source0");
  EXPECT_THAT(ids(visualization.getSourceVariables()),
              ElementsAre("sourceVariable0", "sourceVariable1", "sourceVariable2"));
}

TEST_F(ExpressionVariable, IsTheSumOfItsOperandsInOrder) {
  XVariable first = addVariable();
  XVariable second = addVariable();
  XVariable third = addVariable();
  XVariable const sum = graph.AddExpressionVariable({&third, &first, &second}, false);
  EXPECT_EQ(attribute(sum.getImplementation().getImplementation(), u"expression"),
            "sourceVariable2+sourceVariable0+sourceVariable1");
}

TEST_F(ExpressionVariable, GivesAWrapperOnTheVariable) {
  XVariable operand = addVariable();
  XVariable const sum = graph.AddExpressionVariable({&operand, &operand}, false);
  EXPECT_EQ(&sum.getImplementation(), visualization.getExpressionVariables().front());
}

TEST_F(ExpressionVariable, BearsTheCategoricalFlag) {
  XVariable operand = addVariable();
  EXPECT_TRUE(graph.AddExpressionVariable({&operand, &operand}, true).getCategorical());
}

TEST_F(ExpressionVariable, HasNoColumn) {
  XVariable operand = addVariable();
  recorder.clear();
  XVariable const sum = graph.AddExpressionVariable({&operand, &operand}, false);
  EXPECT_EQ(sum.getSourceName(), "");
  EXPECT_THAT(recorder.lines(), IsEmpty());
}

TEST_F(ExpressionVariable, NeedsNoStore) {
  XVariable operand = addVariable();
  XVariable const sum = XGraph(visualization).AddExpressionVariable({&operand, &operand}, false);
  EXPECT_EQ(utf8(sum.GetID()), "expressionVariable0");
  expectNoReport(recorder);
}

TEST_F(ExpressionVariable, LetsTheHostsUnwindingSignalPass) {
  XVariable operand = addVariable();
  for (unsigned int const change : {1u, 4u}) {
    ChangeTrap const trap(document, change, throwGoToCaller());
    EXPECT_THROW(graph.AddExpressionVariable({&operand, &operand}, false), VexaGoToCaller) << change;
  }
  expectNoReport(recorder);
}

TEST_F(ExpressionVariable, IsNumberedByTheCountBeforeIt) {
  XVariable operand = addVariable();
  visualization.addExpressionVariable(u"theirs");
  graph.AddExpressionVariable({&operand, &operand}, false);
  EXPECT_THAT(ids(visualization.getExpressionVariables()), ElementsAre("theirs", "expressionVariable1"));
}

TEST_F(ExpressionVariable, IsMadeInAFixedOrder) {
  XVariable operand = addVariable();
  ChangeLog log(document);
  graph.AddExpressionVariable({&operand, &operand}, false);
  EXPECT_THAT(log.lines(),
              ElementsAre("visualization adds expressionVariable",
                          "expressionVariable id=expressionVariable0", "expressionVariable categorical=false",
                          "expressionVariable expression=sourceVariable0+sourceVariable0"));
}

TEST_F(ExpressionVariable, OfTooFewOperandsIsReportedAndStaysWithoutExpression) {
  XVariable operand = addVariable();
  EXPECT_NO_THROW(graph.AddExpressionVariable({&operand}, false));
  EXPECT_THAT(recorder.failures(),
              ElementsAre("Too few variables in expression", "Error in XVariable::XVariable()"));
  EXPECT_EQ(attribute(visualization.getExpressionVariables().front(), u"expression"), "(absent)");
}

TEST_F(ExpressionVariable, LetsAFailureOfTheVariablePass) {
  XVariable operand = addVariable();
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_THROW(graph.AddExpressionVariable({&operand, &operand}, false), OrdinaryFailure);
  expectNoReport(recorder);
}
