// What each constructor binds, names and takes over.

#include "variable_fixture.h"

#include "host/messages.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr char const* context = "Error in XVariable::XVariable()";

class DataVariableTest : public VariableTest {
 protected:
  XVariable make() { return XVariable(model, host, source, &data); }
};

TEST_F(DataVariableTest, IsBoundToTheSource) {
  make();
  EXPECT_EQ(utf8(model.getSource()), "source0");
}

TEST_F(DataVariableTest, TheColumnIsNamedAfterTheVariableInTheChart) {
  XVariable const variable = make();
  EXPECT_EQ(variable.getSourceName(), "sourceVariable0_SN");
  EXPECT_EQ(utf8(model.getSourceName()), "sourceVariable0_SN");
}

TEST_F(DataVariableTest, TheColumnsNameIsInUTF8) {
  LumoSourceVariable& other = addVariable(u"größe");
  XVariable const variable(other, host, source, &data);
  EXPECT_EQ(variable.getSourceName(), "größe_SN");
}

TEST_F(DataVariableTest, TheIndexIsAskedForByTheHostsName) {
  make();
  EXPECT_THAT(data.asked, ElementsAre(Pair("age", 0)));
}

TEST_F(DataVariableTest, TakesTheHostsLabel) {
  make();
  EXPECT_EQ(utf8(model.getLabel()), "Age of the animal");
}

TEST_F(DataVariableTest, TheShortLabelIsTheHostsName) {
  make();
  EXPECT_EQ(utf8(model.getShortLabel()), "age");
}

TEST_F(DataVariableTest, AnEmptyLabelIsNotWrittenButTheShortLabelIs) {
  host.label = "";
  make();
  EXPECT_EQ(model.getLabel(), nullptr);
  EXPECT_EQ(utf8(model.getShortLabel()), "age");
}

TEST_F(DataVariableTest, ANullLabelIsNotWritten) {
  host.label = nullptr;
  make();
  EXPECT_EQ(model.getLabel(), nullptr);
}

TEST_F(DataVariableTest, AnEmptyNameGivesNoShortLabel) {
  host.name = "";
  make();
  EXPECT_EQ(model.getShortLabel(), nullptr);
}

TEST_F(DataVariableTest, TakesTheHostsFormat) {
  host.format = Vexa_Format(Vexa_Format::FormatDate, 11, 0);
  XVariable const variable = make();
  EXPECT_TRUE(variable.doesFormatExist());
  EXPECT_EQ(attribute(&model, u"inputDateFormatPattern"), "yyyy-MM-dd");
}

TEST_F(DataVariableTest, SetsNoCreatorAndNoCategoricalFlag) {
  make();
  EXPECT_EQ(model.getCreator(), nullptr);
  EXPECT_EQ(attribute(&model, u"categorical"), "(absent)");
}

TEST_F(DataVariableTest, WritesInItsFixedOrder) {
  host.format = Vexa_Format(Vexa_Format::FormatString, 8, 0);
  EXPECT_THAT(writesOf([&] { make(); }),
              ElementsAre("sourceVariable source=source0", "sourceVariable sourceName=sourceVariable0_SN",
                          "sourceVariable label=Age of the animal", "sourceVariable shortLabel=age",
                          "sourceVariable adds format"));
}

TEST_F(DataVariableTest, TheIndexIsAskedForBetweenNameAndLabels) {
  std::string sourceName;
  bool labelled = true;
  data.fail = [&] {
    sourceName = utf8(model.getSourceName());
    labelled = model.getLabel() != nullptr;
  };
  make();
  EXPECT_EQ(sourceName, "sourceVariable0_SN");
  EXPECT_FALSE(labelled);
}

TEST_F(DataVariableTest, AFailureIsReportedAndLeavesAHalfBuiltVariable) {
  data.fail = [] { throw OrdinaryFailure(); };
  XVariable const variable = make();
  expectGuardReport(recorder, context);
  EXPECT_EQ(variable.getSourceName(), "sourceVariable0_SN");
  EXPECT_EQ(model.getLabel(), nullptr);
  EXPECT_FALSE(variable.doesFormatExist());
}

TEST_F(DataVariableTest, AFailureOfTheFirstStepLeavesNoColumn) {
  failAtChange(1, [&] { EXPECT_EQ(make().getSourceName(), ""); });
  expectGuardReport(recorder, context);
}

TEST_F(DataVariableTest, AMissingDataSourceIsReported) {
  XVariable const variable(model, host, source, nullptr);
  expectGuardReport(recorder, context);
  EXPECT_EQ(variable.getSourceName(), "sourceVariable0_SN");
  EXPECT_EQ(model.getLabel(), nullptr);
}

TEST_F(DataVariableTest, AFailureOfTheFormatIsReportedByTheFormatOnly) {
  recorder.throwAt(Operation::FormatNumber, 1, OrdinaryFailure());
  make();
  expectGuardReport(recorder, "Error in XVariable::setFormat()");
}

TEST_F(DataVariableTest, TheUnwindingSignalPasses) {
  data.fail = [] { throw VexaGoToCaller(); };
  EXPECT_THROW(make(), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(DataVariableTest, ASourceThatCouldNotBeMadeIsReported) {
  ChangeTrap trap(document, 1, throwOrdinaryFailure());
  XSource broken(visualization, store);
  recorder.clear();
  XVariable const variable(model, host, broken, &data);
  expectGuardReport(recorder, context);
  EXPECT_EQ(model.getSource(), nullptr);
}

using AggregatedVariableTest = VariableTest;

TEST_F(AggregatedVariableTest, IsBoundToTheSourceAndNamed) {
  XVariable const variable(model, source);
  EXPECT_EQ(utf8(model.getSource()), "source0");
  EXPECT_EQ(utf8(model.getSourceName()), "sourceVariable0_SN");
  EXPECT_EQ(variable.getSourceName(), "sourceVariable0_SN");
}

TEST_F(AggregatedVariableTest, WritesNothingElse) {
  EXPECT_THAT(writesOf([&] { XVariable const variable(model, source); }),
              ElementsAre("sourceVariable source=source0", "sourceVariable sourceName=sourceVariable0_SN"));
}

TEST_F(AggregatedVariableTest, AFailureIsReported) {
  failAtChange(2, [&] { XVariable const variable(model, source); });
  expectGuardReport(recorder, context);
  EXPECT_EQ(model.getSourceName(), nullptr);
}

TEST_F(AggregatedVariableTest, TheUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { XVariable const variable(model, source); }), VexaGoToCaller);
  expectNoReport(recorder);
}

using WrappedVariableTest = VariableTest;

TEST_F(WrappedVariableTest, WritesNothing) {
  EXPECT_THAT(writesOf([&] { XVariable const variable(model); }), IsEmpty());
}

TEST_F(WrappedVariableTest, HasNoColumnWhateverTheModelSays) {
  model.setSourceName(u"$CASENUM");
  XVariable const variable(model);
  EXPECT_EQ(variable.getSourceName(), "");
}

TEST_F(WrappedVariableTest, ADerivedVariableWritesNothingAndHasNoColumn) {
  LumoDerivedVariable& derived = *visualization.addDerivedVariable(u"derivedVariable0");
  EXPECT_THAT(writesOf([&] { EXPECT_EQ(XVariable(derived).getSourceName(), ""); }), IsEmpty());
}

class ExpressionVariableTest : public VariableTest {
 protected:
  std::vector<XVariable*> operands(std::size_t count) {
    while (mVariables.size() < count) {
      ChartString id(u"v");
      id.append(static_cast<unsigned long>(mVariables.size()));
      mVariables.push_back(std::make_unique<XVariable>(addVariable(id.xc_str())));
    }
    std::vector<XVariable*> result;
    for (std::size_t index = 0; index < count; ++index) result.push_back(mVariables[index].get());
    return result;
  }

  std::string expression() const { return attribute(&sum, u"expression"); }

  LumoExpressionVariable& sum = *visualization.addExpressionVariable(u"expressionVariable0");

 private:
  std::vector<std::unique_ptr<XVariable>> mVariables;
};

TEST_F(ExpressionVariableTest, TwoOperandsAreJoinedByAPlus) {
  XVariable const variable(sum, operands(2));
  EXPECT_EQ(expression(), "v0+v1");
}

TEST_F(ExpressionVariableTest, OperandsStandInTheirOrder) {
  auto const three = operands(3);
  XVariable const variable(sum, {three[2], three[0], three[1]});
  EXPECT_EQ(expression(), "v2+v0+v1");
}

TEST_F(ExpressionVariableTest, AnOperandMayStandTwice) {
  auto const one = operands(1);
  XVariable const variable(sum, {one[0], one[0]});
  EXPECT_EQ(expression(), "v0+v0");
}

TEST_F(ExpressionVariableTest, HasNoColumn) { EXPECT_EQ(XVariable(sum, operands(2)).getSourceName(), ""); }

TEST_F(ExpressionVariableTest, WritesNothingElse) {
  auto const two = operands(2);
  EXPECT_THAT(writesOf([&] { XVariable const variable(sum, two); }),
              ElementsAre("expressionVariable expression=v0+v1"));
}

TEST_F(ExpressionVariableTest, TooFewOperandsAreLoggedThenReportedByTheConstructor) {
  for (std::size_t const count : {0u, 1u}) {
    recorder.clear();
    XVariable const variable(sum, operands(count));
    EXPECT_THAT(recorder.failures(), ElementsAre("Too few variables in expression", context));
    ASSERT_EQ(recorder.userMessages().size(), 1u);
    EXPECT_EQ(recorder.userMessages().front().text, "Unknown Error occurred while converting to LumoML2.0.");
    EXPECT_EQ(expression(), "(absent)");
    EXPECT_EQ(variable.getSourceName(), "");
  }
}

TEST_F(ExpressionVariableTest, TheFirstLogEntryPrecedesTheUserMessage) {
  XVariable const variable(sum, operands(1));
  std::vector<Operation> order;
  for (auto const& entry : recorder.entries()) {
    if (entry.operation == Operation::Error || entry.operation == Operation::BpError)
      order.push_back(entry.operation);
  }
  EXPECT_THAT(order, ElementsAre(Operation::Error, Operation::BpError, Operation::Error));
}

TEST_F(ExpressionVariableTest, AMissingOperandIsReported) {
  XVariable const variable(sum, {operands(1)[0], nullptr});
  expectGuardReport(recorder, context);
  EXPECT_EQ(expression(), "(absent)");
}

TEST_F(ExpressionVariableTest, AFailureIsReported) {
  auto const two = operands(2);
  failAtChange(1, [&] { XVariable const variable(sum, two); });
  expectGuardReport(recorder, context);
}

TEST_F(ExpressionVariableTest, TheUnwindingSignalPasses) {
  auto const two = operands(2);
  EXPECT_THROW(unwindAtChange(1, [&] { XVariable const variable(sum, two); }), VexaGoToCaller);
  expectNoReport(recorder);
}

class SystemVariableTest : public VariableTest {};

TEST_F(SystemVariableTest, IsTheCaseNumber) {
  XVariable const variable(model, true, source, false);
  EXPECT_EQ(utf8(model.getSource()), "source0");
  EXPECT_EQ(utf8(model.getSourceName()), "$CASENUM");
  EXPECT_EQ(variable.getSourceName(), "$CASENUM");
  EXPECT_EQ(utf8(model.getCreator()), "external_system");
}

TEST_F(SystemVariableTest, TakesTheCategoricalFlag) {
  XVariable const first(model, true, source, true);
  EXPECT_TRUE(model.getCategorical());
  XVariable const second(model, true, source, false);
  EXPECT_FALSE(model.getCategorical());
}

TEST_F(SystemVariableTest, WritesInItsFixedOrder) {
  EXPECT_THAT(writesOf([&] { XVariable const variable(model, true, source, true); }),
              ElementsAre("sourceVariable source=source0", "sourceVariable sourceName=$CASENUM",
                          "sourceVariable creator=external_system", "sourceVariable categorical=true"));
}

TEST_F(SystemVariableTest, AnotherOneIsLoggedThenReportedByTheConstructor) {
  XVariable const variable(model, false, source, true);
  EXPECT_THAT(recorder.failures(), ElementsAre("Only $CASENUM System Variables supported.", context));
  EXPECT_EQ(recorder.userMessages().size(), 1u);
}

TEST_F(SystemVariableTest, AnotherOneStaysBoundWithoutColumnCreatorAndFlag) {
  EXPECT_THAT(writesOf([&] { EXPECT_EQ(XVariable(model, false, source, true).getSourceName(), ""); }),
              ElementsAre("sourceVariable source=source0"));
}

TEST_F(SystemVariableTest, AFailureIsReportedAndWhatWasWrittenStays) {
  failAtChange(3, [&] { EXPECT_EQ(XVariable(model, true, source, true).getSourceName(), "$CASENUM"); });
  expectGuardReport(recorder, context);
  EXPECT_EQ(model.getCreator(), nullptr);
}

TEST_F(SystemVariableTest, TheUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { XVariable const variable(model, true, source, true); }),
               VexaGoToCaller);
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
