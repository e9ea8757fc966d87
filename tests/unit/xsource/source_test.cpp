// Sources, rows and cells, as they reach the chart and the data store.

#include "built_chart.h"
#include "xsource.h"
#include "xvariable.h"

#include "host/data_store.h"
#include "host/messages.h"
#include "model/variables.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double systemMissing = -1.7976931348623157e+308;

class SourceTest : public BuiltChartTest {
 protected:
  /// What the store was asked to do, in order.
  std::vector<std::string> storeCalls() const {
    std::vector<std::string> lines;
    for (host::Entry const& entry : recorder.entries()) {
      if (entry.has("source")) lines.push_back(entry.line());
    }
    return lines;
  }

  VarDataProcessor store;
};

TEST_F(SourceTest, TheFirstSourceIsSource0) {
  XSource const source(visualization, store);
  ASSERT_NE(source.getImplemenation(), nullptr);
  EXPECT_EQ(utf8(source.getImplemenation()->getId()), "source0");
}

TEST_F(SourceTest, GivesTheModelsSourceAndWrapsTheVisualization) {
  XSource const source(visualization, store);
  EXPECT_EQ(source.getImplemenation(), visualization.getUserSources().front());
  EXPECT_EQ(source.getImplementation(), &visualization);
}

TEST_F(SourceTest, ASecondSourceHasATableOfItsOwn) {
  XSource const first(visualization, store);
  XSource const second(visualization, store);
  EXPECT_EQ(utf8(second.getImplemenation()->getId()), "source1");
  EXPECT_THAT(storeCalls(), ElementsAre("VarDataProcessor::AddDataSource(source=\"source0\", rows=0)",
                                        "VarDataProcessor::AddDataSource(source=\"source1\", rows=0)"));
}

TEST_F(SourceTest, SourcesThatWereThereCount) {
  visualization.addUserSource(u"other");
  XSource const source(visualization, store);
  EXPECT_EQ(utf8(source.getImplemenation()->getId()), "source1");
}

TEST_F(SourceTest, SourcesOfOtherKindsDoNotCount) {
  visualization.addEmbeddedSource(u"embedded");
  visualization.addStreamingSource(u"streaming");
  XSource const source(visualization, store);
  EXPECT_EQ(utf8(source.getImplemenation()->getId()), "source0");
}

TEST_F(SourceTest, TheModelHasTheSourceBeforeTheTableIsOpened) {
  std::size_t sources = 0;
  recorder.actAt(Operation::AddDataSource, 1, [&] { sources = visualization.getUserSources().size(); });
  XSource const source(visualization, store);
  EXPECT_EQ(sources, 1u);
}

TEST_F(SourceTest, ConstructionWritesTheSourceOnly) {
  EXPECT_THAT(writesOf([&] { XSource const source(visualization, store); }),
              ElementsAre("visualization adds userSource", "userSource id=source0"));
}

TEST_F(SourceTest, ANewSourceHasNoRows) { EXPECT_EQ(XSource(visualization, store).getNumRows(), 0u); }

TEST_F(SourceTest, AFailureOfTheModelIsReportedAndLeavesAHalfBuiltSource) {
  failAtChange(1, [&] { EXPECT_EQ(XSource(visualization, store).getImplemenation(), nullptr); });
  expectGuardReport(recorder, "Error in XSource::XSource()");
  EXPECT_EQ(recorder.count(Operation::AddDataSource), 0u);
}

TEST_F(SourceTest, AFailureOfTheStoreIsReportedAndLeavesTheModelsSource) {
  recorder.throwAt(Operation::AddDataSource, 1, OrdinaryFailure());
  XSource const source(visualization, store);
  expectGuardReport(recorder, "Error in XSource::XSource()");
  EXPECT_EQ(source.getImplemenation(), visualization.getUserSources().front());
}

TEST_F(SourceTest, TheUnwindingSignalLeavesTheConstructor) {
  recorder.throwAt(Operation::AddDataSource, 1, VexaGoToCaller());
  EXPECT_THROW(XSource(visualization, store), VexaGoToCaller);
  expectNoReport(recorder);
}

/// A source with the columns of two variables registered.
class RowTest : public SourceTest {
 protected:
  RowTest() {
    store.AddVariable("source0", age.getSourceName(), nullptr);
    store.AddVariable("source0", mass.getSourceName(), nullptr);
    recorder.clear();
  }

  std::vector<double> column(XVariable const& variable) {
    double const* const cells = store.GetDataPointer("source0", variable.getSourceName());
    return {cells, cells + store.GetRowCount("source0")};
  }

  XSource source{visualization, store};
  XVariable age{addVariable(u"age"), source};
  XVariable mass{addVariable(u"mass"), source};
};

TEST_F(RowTest, RowsAreCounted) {
  source.AddRow();
  source.AddRow();
  EXPECT_EQ(source.getNumRows(), 2u);
}

TEST_F(RowTest, EachRowIsAnotherOne) {
  XRow* const first = source.AddRow();
  XRow* const second = source.AddRow();
  ASSERT_NE(first, nullptr);
  EXPECT_NE(first, second);
}

TEST_F(RowTest, ARowAloneIsNotToldToTheStore) {
  source.AddRow();
  EXPECT_THAT(storeCalls(), IsEmpty());
}

TEST_F(RowTest, RowsAreNumberedDenselyFromZero) {
  for (int row = 0; row < 3; ++row) source.AddRow()->addDataValue(age, 1.5);
  EXPECT_THAT(
      storeCalls(),
      ElementsAre(
          "VarDataProcessor::SetVariableValue(source=\"source0\", column=\"age_SN\", row=0, value=1.5)",
          "VarDataProcessor::SetVariableValue(source=\"source0\", column=\"age_SN\", row=1, value=1.5)",
          "VarDataProcessor::SetVariableValue(source=\"source0\", column=\"age_SN\", row=2, value=1.5)"));
}

TEST_F(RowTest, RowsKeepTheirNumberInAnyOrderOfWriting) {
  XRow* const first = source.AddRow();
  XRow* const second = source.AddRow();
  second->addDataValue(age, 2.0);
  first->addDataValue(age, 1.0);
  EXPECT_THAT(column(age), ElementsAre(1.0, 2.0));
}

TEST_F(RowTest, CellsGoToTheColumnOfTheirVariable) {
  XRow* const row = source.AddRow();
  row->addDataValue(mass, 70.0);
  row->addDataValue(age, 30.0);
  EXPECT_THAT(column(age), ElementsAre(30.0));
  EXPECT_THAT(column(mass), ElementsAre(70.0));
}

TEST_F(RowTest, ACellThatIsWrittenTwiceHasTheLastValue) {
  XRow* const row = source.AddRow();
  row->addDataValue(age, 1.0);
  row->addDataValue(age, 2.0);
  EXPECT_EQ(recorder.count(Operation::SetVariableValue), 2u);
  EXPECT_THAT(column(age), ElementsAre(2.0));
}

TEST_F(RowTest, ALongIsWrittenAsADouble) {
  XRow* const row = source.AddRow();
  row->addDataValue(age, -1l);
  row->addDataValue(mass, 1l << 40);
  EXPECT_THAT(column(age), ElementsAre(-1.0));
  EXPECT_THAT(column(mass), ElementsAre(1099511627776.0));
}

TEST_F(RowTest, EveryLongIsWritten) {
  XRow* const row = source.AddRow();
  for (long const value : {0l, std::numeric_limits<long>::min(), std::numeric_limits<long>::max()}) {
    recorder.clear();
    row->addDataValue(age, value);
    ASSERT_EQ(recorder.count(Operation::SetVariableValue), 1u) << value;
    EXPECT_EQ(recorder.entries().front().real("value"), static_cast<double>(value));
  }
}

TEST_F(RowTest, TheSystemMissingDoubleIsNotWritten) {
  source.AddRow()->addDataValue(age, systemMissing);
  EXPECT_THAT(storeCalls(), IsEmpty());
}

TEST_F(RowTest, TheSystemMissingCellIsNotWritten) {
  source.AddRow()->addDataValue(age, OBS(systemMissing));
  EXPECT_THAT(storeCalls(), IsEmpty());
}

TEST_F(RowTest, AMissingCellReadsAsTheStoresDefault) {
  XRow* const first = source.AddRow();
  first->addDataValue(age, systemMissing);
  first->addDataValue(mass, 70.0);
  EXPECT_THAT(column(age), ElementsAre(systemMissing));
}

TEST_F(RowTest, AMissingValueLeavesTheFormerOne) {
  XRow* const row = source.AddRow();
  row->addDataValue(age, 30.0);
  row->addDataValue(age, systemMissing);
  EXPECT_THAT(column(age), ElementsAre(30.0));
}

TEST_F(RowTest, ValuesBesideTheSystemMissingOneAreWritten) {
  double const infinity = std::numeric_limits<double>::infinity();
  XRow* const row = source.AddRow();
  for (double const value : {0.0, std::nextafter(systemMissing, 0.0), -infinity, infinity, -systemMissing,
                             std::numeric_limits<double>::denorm_min()}) {
    recorder.clear();
    row->addDataValue(age, value);
    ASSERT_EQ(recorder.count(Operation::SetVariableValue), 1u) << value;
    EXPECT_EQ(recorder.entries().front().real("value"), value);
  }
}

TEST_F(RowTest, NegativeZeroKeepsItsSign) {
  source.AddRow()->addDataValue(age, -0.0);
  EXPECT_TRUE(std::signbit(column(age).front()));
}

TEST_F(RowTest, NotANumberIsWritten) {
  source.AddRow()->addDataValue(age, std::nan(""));
  ASSERT_EQ(column(age).size(), 1u);
  EXPECT_TRUE(std::isnan(column(age).front()));
}

TEST_F(RowTest, ACellIsWrittenAsItsEightBytesSay) {
  source.AddRow()->addDataValue(age, OBS(2.5));
  EXPECT_THAT(column(age), ElementsAre(2.5));
}

TEST_F(RowTest, AVariableWithoutColumnWritesToTheEmptyName) {
  XVariable const wrapped(addVariable(u"wrapped"));
  source.AddRow()->addDataValue(wrapped, 1.0);
  EXPECT_THAT(
      storeCalls(),
      ElementsAre("VarDataProcessor::SetVariableValue(source=\"source0\", column=\"\", row=0, value=1)"));
}

TEST_F(RowTest, ACellThatTheStoreRefusesIsNoFailure) {
  recorder.failEvery(Operation::SetVariableValue);
  XRow* const row = source.AddRow();
  row->addDataValue(age, 1.0);
  row->addDataValue(age, 1l);
  row->addDataValue(age, OBS(1.0));
  expectNoReport(recorder);
}

TEST_F(RowTest, AFailureOfTheStoreReachesTheCaller) {
  recorder.throwEvery(Operation::SetVariableValue, std::bad_alloc());
  XRow* const row = source.AddRow();
  EXPECT_THROW(row->addDataValue(age, 1.0), std::bad_alloc);
  EXPECT_THROW(row->addDataValue(age, 1l), std::bad_alloc);
  EXPECT_THROW(row->addDataValue(age, OBS(1.0)), std::bad_alloc);
  expectNoReport(recorder);
}

TEST_F(RowTest, TheUnwindingSignalOfTheStoreReachesTheCaller) {
  recorder.throwEvery(Operation::SetVariableValue, VexaGoToCaller());
  EXPECT_THROW(source.AddRow()->addDataValue(age, 1.0), VexaGoToCaller);
}

TEST_F(RowTest, ARowTakesFurtherCellsAfterAFailure) {
  recorder.throwAt(Operation::SetVariableValue, 1, OrdinaryFailure());
  XRow* const row = source.AddRow();
  EXPECT_THROW(row->addDataValue(age, 1.0), OrdinaryFailure);
  row->addDataValue(age, 2.0);
  EXPECT_THAT(column(age), ElementsAre(2.0));
}

TEST_F(RowTest, CellsNeverEnterTheChart) {
  EXPECT_THAT(writesOf([&] { source.AddRow()->addDataValue(age, 1.0); }), IsEmpty());
}

TEST_F(RowTest, ARowStandsAlone) {
  XRow row(store, "source0", 5);
  row.addDataValue(age, 7.0);
  EXPECT_THAT(
      storeCalls(),
      ElementsAre(
          "VarDataProcessor::SetVariableValue(source=\"source0\", column=\"age_SN\", row=5, value=7)"));
}

TEST_F(RowTest, ARowKeepsACopyOfTheSourcesId) {
  std::string id = "source0";
  XRow row(store, id, 0);
  id = "changed";
  row.addDataValue(age, 7.0);
  EXPECT_THAT(column(age), ElementsAre(7.0));
}

TEST_F(RowTest, ManyRowsWithManyCellsAreDestroyedWithTheirSource) {
  {
    XSource large(visualization, store);
    for (int row = 0; row < 1000; ++row) {
      XRow* const made = large.AddRow();
      for (int cell = 0; cell < 10; ++cell) made->addDataValue(age, 1.0 * cell);
    }
    EXPECT_EQ(large.getNumRows(), 1000u);
  }
  EXPECT_EQ(visualization.getUserSources().size(), 2u) << "the model keeps its source";
}

TEST_F(RowTest, TheStoreKeepsItsCellsAfterTheSource) {
  auto second = std::make_unique<XSource>(visualization, store);
  XVariable const variable(addVariable(u"other"), *second);
  store.AddVariable("source1", variable.getSourceName(), nullptr);
  second->AddRow()->addDataValue(variable, 3.0);
  second.reset();
  EXPECT_EQ(store.GetDataPointer("source1", "other_SN")[0], 3.0);
}

using DataValueTest = RowTest;

TEST_F(DataValueTest, ItsConstructionIsTheWrite) {
  XDataValue const fromLong(store, "source0", age, 0, 4l);
  XDataValue const fromDouble(store, "source0", age, 1, 5.0);
  XDataValue const fromCell(store, "source0", age, 2, OBS(6.0));
  EXPECT_THAT(column(age), ElementsAre(4.0, 5.0, 6.0));
}

TEST_F(DataValueTest, AMissingValueIsNotWritten) {
  XDataValue const fromDouble(store, "source0", age, 0, systemMissing);
  XDataValue const fromCell(store, "source0", age, 0, OBS(systemMissing));
  EXPECT_THAT(storeCalls(), IsEmpty());
}

TEST_F(DataValueTest, HasNoState) { EXPECT_EQ(sizeof(XDataValue), 1u); }

TEST_F(DataValueTest, TheStaticWriteGivesWhatTheStoreSays) {
  EXPECT_TRUE(XDataValue::addDataValue(store, "source0", "age_SN", 0, 1.0));
  EXPECT_FALSE(XDataValue::addDataValue(store, "source0", "unknown", 0, 1.0));
  EXPECT_FALSE(XDataValue::addDataValue(store, "unknown", "age_SN", 0, 1.0));
}

TEST_F(DataValueTest, TheStaticWriteDecidesNothing) {
  EXPECT_TRUE(XDataValue::addDataValue(store, "source0", "age_SN", 0, systemMissing));
  EXPECT_EQ(recorder.count(Operation::SetVariableValue), 1u);
}

class ClearedSourceTest : public RowTest {
 protected:
  VarDataProcessor other;
};

TEST_F(ClearedSourceTest, GivesTheNumberOfRowsAndHasNoneThen) {
  source.AddRow();
  source.AddRow();
  EXPECT_EQ(source.clear(other), 2u);
  EXPECT_EQ(source.getNumRows(), 0u);
}

TEST_F(ClearedSourceTest, RowsAreNumberedFromZeroAgain) {
  source.AddRow();
  source.AddRow();
  source.clear(store);
  recorder.clear();
  source.AddRow()->addDataValue(age, 9.0);
  EXPECT_EQ(source.getNumRows(), 1u);
  EXPECT_THAT(
      storeCalls(),
      ElementsAre(
          "VarDataProcessor::SetVariableValue(source=\"source0\", column=\"age_SN\", row=0, value=9)"));
}

TEST_F(ClearedSourceTest, OpensTheTableUnderTheSameIdInTheGivenStore) {
  source.AddRow();
  source.clear(other);
  EXPECT_THAT(storeCalls(), ElementsAre("VarDataProcessor::AddDataSource(source=\"source0\", rows=0)"));
  std::vector<std::string> names;
  other.GetSourceNames(names);
  EXPECT_THAT(names, ElementsAre("source0"));
}

TEST_F(ClearedSourceTest, AnEmptySourceIsReopenedToo) {
  EXPECT_EQ(source.clear(other), 0u);
  EXPECT_EQ(recorder.count(Operation::AddDataSource), 1u);
}

TEST_F(ClearedSourceTest, LaterCellsGoToTheGivenStore) {
  source.AddRow()->addDataValue(age, 1.0);
  source.clear(other);
  other.AddVariable("source0", age.getSourceName(), nullptr);
  source.AddRow()->addDataValue(age, 2.0);
  EXPECT_EQ(other.GetDataPointer("source0", "age_SN")[0], 2.0);
  EXPECT_THAT(column(age), ElementsAre(1.0)) << "the former store keeps what it had";
}

TEST_F(ClearedSourceTest, VariablesAreNotRegisteredAgain) {
  source.clear(other);
  EXPECT_EQ(recorder.count(Operation::AddVariable), 0u);
}

TEST_F(ClearedSourceTest, TheChartIsUntouched) {
  LumoUserSource* const before = source.getImplemenation();
  EXPECT_THAT(writesOf([&] { source.clear(other); }), IsEmpty());
  EXPECT_EQ(source.getImplemenation(), before);
}

TEST_F(ClearedSourceTest, AFailureOfTheStoreReachesTheCallerAndTheRowsAreGone) {
  source.AddRow();
  recorder.throwAt(Operation::AddDataSource, 1, OrdinaryFailure());
  EXPECT_THROW(source.clear(other), OrdinaryFailure);
  expectNoReport(recorder);
  EXPECT_EQ(source.getNumRows(), 0u);
}

TEST_F(ClearedSourceTest, MayBeClearedManyTimes) {
  for (unsigned int round = 0; round < 5; ++round) {
    for (unsigned int row = 0; row < round; ++row) source.AddRow()->addDataValue(age, 1.0);
    EXPECT_EQ(source.clear(round % 2 == 0 ? other : store), round);
  }
}

}  // namespace
}  // namespace kestrel::test
