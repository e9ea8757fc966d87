// The columns that the data store lacks, and the relabels of dates that come with an input pattern.

#include "xdocument.h"

#include "chart_test.h"
#include "failing_paths.h"
#include "schema_validator.h"

#include "host/data_store.h"
#include "host/log.h"
#include "host/messages.h"
#include "kestrelhost/text.h"
#include "model/document.h"
#include "model/variables.h"

#include <gmock/gmock.h>

#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::test {
namespace {

using host::Entry;
using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using Pairs = std::vector<std::pair<std::string, std::string>>;

/// 2020-04-02 and 2021-12-31, both at midnight.
constexpr double april = 1585785600;
constexpr double december = 1640908800;

/// A chart with the source "source0", whose variables the tests add, and a store that holds its rows.
class FleshOut : public ChartTest {
 protected:
  FleshOut() {
    document.SetChartData(&store);
    store.AddDataSource("source0", 0);
  }

  void TearDown() override { EXPECT_THAT(schemaErrors(document.AsUTF8()), IsEmpty()) << document.AsUTF8(); }

  /// A categorical variable of the source with an input pattern.
  LumoSourceVariable& addDate(char16_t const* column, char16_t const* pattern) {
    LumoSourceVariable& variable = addColumn(column);
    variable.setCategorical(true);
    variable.addExtension()->setAttribute(u"inputDateFormatPattern", pattern);
    return variable;
  }

  LumoSourceVariable& addColumn(char16_t const* column) {
    LumoSourceVariable& variable = *visualization.addSourceVariable(column);
    variable.setSource(source);
    variable.setSourceName(column);
    return variable;
  }

  /// The host's store knows these values of a column as soon as the column is there.
  void holdValues(std::string const& column, std::vector<double> const& values) {
    recorder.actAt(Operation::GetDataPointer, 1, [this, column, values] {
      for (unsigned int row = 0; row < values.size(); ++row) {
        store.SetVariableValue("source0", column, row, values[row]);
      }
    });
  }

  int fleshOut() {
    recorder.ignore(Operation::SetVariableValue);
    recorder.clear();
    return document.fleshOutData();
  }

  static Pairs relabelsOf(LumoSourceVariable const& variable) {
    Pairs pairs;
    for (LumoFormat const* format : variable.getFormats()) {
      for (LumoRelabel const* relabel : format->getRelabels()) {
        pairs.emplace_back(utf8(relabel->getFrom()), utf8(relabel->getTo()));
      }
    }
    return pairs;
  }

  LumoDocument model;
  LumoVisualization& visualization{*model.getVisualization()};
  LumoUserSource& source{*visualization.addUserSource(u"source0")};
  VarDataProcessor store;
  XDocument document{model};
};

TEST_F(FleshOut, WithoutAStoreDoesNothing) {
  LumoSourceVariable const& variable = addDate(u"day", u"MMM");
  document.SetChartData(nullptr);
  std::string const before = document.AsUTF8();
  EXPECT_EQ(fleshOut(), 0);
  EXPECT_EQ(document.AsUTF8(), before);
  EXPECT_THAT(variable.getFormats(), IsEmpty());
  EXPECT_THAT(recorder.entries(), IsEmpty());
}

TEST_F(FleshOut, WithoutVariablesAsksForTheSourcesAlone) {
  EXPECT_EQ(fleshOut(), 0);
  EXPECT_THAT(recorder.lines(), ElementsAre("VarDataProcessor::GetSourceNames()"));
}

TEST_F(FleshOut, SkipsAVariableWithoutASource) {
  LumoSourceVariable& variable = *visualization.addSourceVariable(u"day");
  variable.setSourceName(u"day");
  EXPECT_EQ(fleshOut(), 0);
  EXPECT_THAT(recorder.lines(), ElementsAre("VarDataProcessor::GetSourceNames()"));
}

TEST_F(FleshOut, SkipsAVariableWithoutASourceName) {
  addColumn(u"day").setSourceName(u"");
  LumoSourceVariable& nameless = *visualization.addSourceVariable(u"other");
  nameless.setSource(source);
  EXPECT_EQ(fleshOut(), 0);
  EXPECT_THAT(recorder.lines(), ElementsAre("VarDataProcessor::GetSourceNames()"));
}

TEST_F(FleshOut, GoesOnBehindAVariableThatItSkips) {
  addColumn(u"day").setSourceName(u"");
  addColumn(u"height");
  store.AddVariable("source0", "height", nullptr);
  EXPECT_EQ(fleshOut(), 1);
}

TEST_F(FleshOut, AddsAColumnThatTheStoreLacks) {
  addColumn(u"Größe");
  EXPECT_EQ(fleshOut(), 0);
  EXPECT_THAT(recorder.lines(),
              ElementsAre("VarDataProcessor::GetSourceNames()",
                          "VarDataProcessor::GetVariableNames(source=\"source0\")",
                          "VarDataProcessor::AddVariable(source=\"source0\", column=\"Größe\")"));
  EXPECT_NE(store.GetDataPointer("source0", "Größe"), store.GetDataPointer("source0", "none"));
}

TEST_F(FleshOut, CountsTheColumnsThatTheStoreHolds) {
  for (char16_t const* column : {u"a", u"b", u"c", u"d"}) addColumn(column);
  for (char const* column : {"d", "unused", "b"}) store.AddVariable("source0", column, nullptr);
  EXPECT_EQ(fleshOut(), 2);
  EXPECT_EQ(recorder.count(Operation::AddVariable), 2u);
}

TEST_F(FleshOut, CountsAllAtASecondCall) {
  addColumn(u"a");
  addColumn(u"b");
  EXPECT_EQ(fleshOut(), 0);
  EXPECT_EQ(fleshOut(), 2);
}

TEST_F(FleshOut, HoldsAColumnByExactlyItsName) {
  addColumn(u"day");
  for (char const* column : {"Day", "da", "days", " day"}) store.AddVariable("source0", column, nullptr);
  EXPECT_EQ(fleshOut(), 0);
  EXPECT_EQ(recorder.count(Operation::AddVariable), 1u);
}

TEST_F(FleshOut, HoldsAColumnOfAnotherSourceForAnotherOne) {
  addColumn(u"day");
  store.AddVariable("source1", "day", nullptr);
  EXPECT_EQ(fleshOut(), 0);
  EXPECT_EQ(recorder.entries(Operation::AddVariable).at(0).line(),
            "VarDataProcessor::AddVariable(source=\"source0\", column=\"day\")");
}

TEST_F(FleshOut, GivesAColumnThatTheStoreHoldsNoFormat) {
  LumoSourceVariable const& variable = addDate(u"day", u"MMM");
  store.AddVariable("source0", "day", nullptr);
  store.SetVariableValue("source0", "day", 0, 5);
  EXPECT_EQ(fleshOut(), 1);
  EXPECT_THAT(variable.getFormats(), IsEmpty());
}

/// A variable that the store lacks, and whether it takes relabels.
struct Qualification {
  char const* name;
  bool categorical;
  bool extended;
  /// Null for an extension without the attribute.
  char16_t const* pattern;
  bool formatted;
  bool relabeled;
};

void PrintTo(Qualification const& row, std::ostream* out) { *out << row.name; }

class Qualified : public FleshOut, public ::testing::WithParamInterface<Qualification> {
 protected:
  LumoSourceVariable& addVariable() {
    LumoSourceVariable& variable = addColumn(u"day");
    if (GetParam().categorical) variable.setCategorical(true);
    if (GetParam().extended) variable.addExtension();
    if (GetParam().pattern != nullptr) {
      variable.getExtension()->setAttribute(u"inputDateFormatPattern", GetParam().pattern);
    }
    if (GetParam().formatted) variable.addFormat()->setPattern(u"yyyy");
    return variable;
  }
};

TEST_P(Qualified, TakesRelabelsOrNot) {
  LumoSourceVariable const& variable = addVariable();
  std::size_t const formats = variable.getFormats().size();
  holdValues("day", {5});
  EXPECT_EQ(fleshOut(), 0);
  EXPECT_THAT(relabelsOf(variable), SizeIs(GetParam().relabeled ? 1 : 0));
  EXPECT_EQ(variable.getFormats().size(), formats + (GetParam().relabeled ? 1 : 0));
}

TEST_P(Qualified, IsAddedToTheStoreInAnyCase) {
  addVariable();
  fleshOut();
  EXPECT_EQ(recorder.count(Operation::AddVariable), 1u);
}

TEST_P(Qualified, OpensTheDictionaryOnlyWhereItsNamesAreNeeded) {
  addVariable();
  fleshOut();
  EXPECT_EQ(recorder.count(Operation::OpenDictionary), GetParam().relabeled ? 1u : 0u);
  EXPECT_EQ(recorder.count(Operation::GetDataPointer), GetParam().relabeled ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(Rules, Qualified,
                         ::testing::Values(Qualification{"All", true, true, u"MMM", false, true},
                                           Qualification{"NotCategorical", false, true, u"MMM", false, false},
                                           Qualification{"NoExtension", true, false, nullptr, false, false},
                                           Qualification{"NoPattern", true, true, nullptr, false, false},
                                           Qualification{"EmptyPattern", true, true, u"", false, false},
                                           Qualification{"AFormatOfItsOwn", true, true, u"MMM", true, false},
                                           Qualification{"Nothing", false, false, nullptr, false, false}),
                         [](auto const& test) { return std::string(test.param.name); });

TEST_F(FleshOut, ReadsThePatternFromTheExtensionAndNotFromTheVariable) {
  LumoSourceVariable& variable = addColumn(u"day");
  variable.setCategorical(true);
  variable.addExtension();
  variable.setInputDateFormatPattern(u"MMM");
  fleshOut();
  EXPECT_THAT(variable.getFormats(), IsEmpty());
}

TEST_F(FleshOut, GoesOnBehindAVariableWithRelabels) {
  LumoSourceVariable const& first = addDate(u"day", u"MMM");
  LumoSourceVariable const& second = addDate(u"month", u"MMM");
  addColumn(u"held");
  store.AddVariable("source0", "held", nullptr);
  EXPECT_EQ(fleshOut(), 1);
  EXPECT_THAT(first.getFormats(), SizeIs(1));
  EXPECT_THAT(second.getFormats(), SizeIs(1));
}

TEST_F(FleshOut, ReadsTheStoreBehindTheNamesAndTheNamesBehindTheColumn) {
  addDate(u"day", u"MMM");
  holdValues("day", {april, december});
  fleshOut();
  std::vector<std::string> expected{"VarDataProcessor::GetSourceNames", "VarDataProcessor::GetVariableNames",
                                    "VarDataProcessor::AddVariable",    "PathInstance::getDictionaryPath",
                                    "FacSTDictionary::FacSTDictionary", "FacSTDictionary::SetProcedure"};
  constexpr int names = 12 + 7 + 1;
  for (int name = 0; name < names; ++name) {
    expected.insert(expected.end(), {"FacSTDictionary::LookUp", "OLang::GetLanguageCode"});
  }
  expected.insert(expected.end(), {"VarDataProcessor::GetDataPointer", "VarDataProcessor::GetRowCount",
                                   "iVexa2DMY", "iVexa2DMY"});
  std::vector<std::string> called;
  for (Entry const& entry : recorder.entries()) called.emplace_back(nameOf(entry.operation));
  EXPECT_EQ(called, expected);
}

TEST_F(FleshOut, AsksForTheCellsOfTheColumnAndTheRowsOfTheSource) {
  addDate(u"day", u"MMM");
  fleshOut();
  EXPECT_EQ(recorder.entries(Operation::GetDataPointer).at(0).line(),
            "VarDataProcessor::GetDataPointer(source=\"source0\", column=\"day\")");
  EXPECT_EQ(recorder.entries(Operation::GetRowCount).at(0).line(),
            "VarDataProcessor::GetRowCount(source=\"source0\")");
}

TEST_F(FleshOut, BuildsTheNamesOnceForEachVariableHoweverManyRowsThereAre) {
  addDate(u"day", u"MMM");
  addDate(u"month", u"EEE");
  holdValues("day", {1, 2, 3, 4, 5});
  fleshOut();
  EXPECT_EQ(recorder.count(Operation::OpenDictionary), 2u);
  EXPECT_EQ(recorder.count(Operation::LookUp), 2u * 20);
  EXPECT_EQ(recorder.count(Operation::BreakUpDate), 2u * 5);
}

/// Counts the tables that are open.
class CountedTexts : public host::Texts {
 public:
  class Table : public host::TextTable {
   public:
    explicit Table(int& open) : mOpen(open) { ++mOpen; }
    Table(Table const&) = delete;
    Table& operator=(Table const&) = delete;
    ~Table() override { --mOpen; }
    void setProcedure(std::string const&) override {}
    bool find(std::string const&, std::string&, unsigned long&) override { return false; }

   private:
    int& mOpen;
  };

  std::unique_ptr<host::TextTable> open(std::string const&) override {
    ++opened;
    return std::make_unique<Table>(openNow);
  }

  int opened = 0;
  int openNow = 0;
};

TEST_F(FleshOut, ClosesTheDictionaryAsSoonAsTheNamesAreThere) {
  auto const texts = std::make_shared<CountedTexts>();
  host::Host host = recorder.host();
  host.texts = texts;
  host::ScopedHost const scope(host);
  addDate(u"day", u"MMM");
  int openAtTheData = -1;
  recorder.actAt(Operation::GetDataPointer, 1, [&] { openAtTheData = texts->openNow; });
  fleshOut();
  EXPECT_EQ(texts->opened, 1);
  EXPECT_EQ(openAtTheData, 0);
}

TEST_F(FleshOut, ClosesTheDictionaryAlsoWhereALookUpThrows) {
  auto const texts = std::make_shared<CountedTexts>();
  host::Host host = recorder.host();
  host.texts = texts;
  host::ScopedHost const scope(host);
  addDate(u"day", u"MMM");
  recorder.throwAt(Operation::LanguageCode, 3, OrdinaryFailure());
  EXPECT_THROW(fleshOut(), OrdinaryFailure);
  EXPECT_EQ(texts->openNow, 0);
}

class Relabels : public FleshOut {
 protected:
  /// Of a variable of these values under a pattern.
  Pairs relabels(std::vector<double> const& values, char16_t const* pattern) {
    LumoSourceVariable const& variable = addDate(u"day", pattern);
    holdValues("day", values);
    fleshOut();
    EXPECT_THAT(variable.getFormats(), SizeIs(1));
    return relabelsOf(variable);
  }
};

TEST_F(Relabels, ShowTheValueOfEachRowAsADate) {
  EXPECT_EQ(relabels({april, december}, u"dd.MM.yyyy"),
            (Pairs{{"1585785600", "02.04.2020"}, {"1640908800", "31.12.2021"}}));
}

TEST_F(Relabels, StandInTheOrderOfTheRowsOneForEachAlsoWhereValuesAreEqual) {
  EXPECT_EQ(relabels({3, 1, 3, 3, 2}, u"MMM"),
            (Pairs{{"3", "March"}, {"1", "January"}, {"3", "March"}, {"3", "March"}, {"2", "February"}}));
}

TEST_F(Relabels, AreOfTheOneNewFormat) {
  LumoSourceVariable const& variable = addDate(u"day", u"MMM");
  holdValues("day", {1, 2});
  fleshOut();
  ASSERT_THAT(variable.getFormats(), SizeIs(1));
  EXPECT_THAT(variable.getFormats().front()->getRelabels(), SizeIs(2));
  EXPECT_THAT(childTags(*variable.getFormats().front()), ElementsAre("relabel", "relabel"));
  EXPECT_THAT(attributeNames(*variable.getFormats().front()), IsEmpty());
}

TEST_F(Relabels, WriteTheValueInSixteenDigits) {
  EXPECT_EQ(relabels({1.0 / 3, 0.1, -2.5, 1585785600.125}, u"yyD"), (Pairs{{"0.3333333333333333", "70/01/01"},
                                                                           {"0.1", "70/01/01"},
                                                                           {"-2.5", "69/12/31"},
                                                                           {"1585785600.125", "20/04/02"}}));
}

TEST_F(Relabels, OfValuesThatAreNoDateAreOfTheDateOfNoughts) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(relabels({std::numeric_limits<double>::quiet_NaN(), infinity, -infinity}, u"MM/dd/yyyy"),
            (Pairs{{"NaN", "00/00/0"}, {"INF", "00/00/0"}, {"-INF", "00/00/0"}}));
}

TEST_F(Relabels, OfCellsThatNobodyWroteAreOfTheDateOfNoughtsToo) {
  // The third row makes a gap before it.
  LumoSourceVariable const& variable = addDate(u"day", u"MMM yyyy");
  store.AddVariable("source0", "height", nullptr);
  store.SetVariableValue("source0", "height", 1, 5);
  fleshOut();
  EXPECT_EQ(relabelsOf(variable), Pairs(2, {"-1.797693134862316e308", "December 0"}));
}

TEST_F(Relabels, AreNotMadeUnderAPatternThatIsNotKnown) {
  EXPECT_EQ(relabels({april, december}, u"yyyy-MM-dd"), Pairs());
  EXPECT_EQ(recorder.count(Operation::BreakUpDate), 2u);
  expectNoReport(recorder);
}

TEST_F(Relabels, AreNotMadeForTheRowsWhoseTextIsEmpty) {
  recorder.services().texts->texts["March"] = "";
  EXPECT_EQ(relabels({2, 3, 4}, u"MMM"), (Pairs{{"2", "February"}, {"4", "April"}}));
}

TEST_F(Relabels, AreNotMadeWhereThereAreNoRows) {
  EXPECT_EQ(relabels({}, u"MMM"), Pairs());
  EXPECT_EQ(recorder.count(Operation::BreakUpDate), 0u);
}

TEST_F(Relabels, AreNotMadeWhereTheStoreGivesNoCells) {
  store.AddVariable("source0", "height", nullptr);
  store.SetVariableValue("source0", "height", 9, 5);
  recorder.failAt(Operation::GetDataPointer, 1);
  EXPECT_EQ(relabels({}, u"MMM"), Pairs());
  EXPECT_EQ(recorder.count(Operation::GetRowCount), 1u);
}

TEST_F(Relabels, AreNotMadeWhereTheColumnCannotBeAdded) {
  store.AddVariable("source0", "height", nullptr);
  store.SetVariableValue("source0", "height", 9, 5);
  recorder.failEvery(Operation::AddVariable);
  EXPECT_EQ(relabels({}, u"MMM"), Pairs());
}

TEST_F(Relabels, AreInTheWordsOfTheHost) {
  recorder.services().texts->texts = {{"March", "März"}, {"Saturday", "Samstag"}, {"Q", "Quartal"}};
  EXPECT_EQ(relabels({3}, u"MMM yyyy"), (Pairs{{"3", "März 1970"}}));
}

struct FailingCall {
  char const* name;
  Operation operation;
  unsigned int call;
  /// Whether the new format is there by then.
  bool formatThere;
};

void PrintTo(FailingCall const& call, std::ostream* out) { *out << call.name; }

class FailingFleshOut : public FleshOut, public ::testing::WithParamInterface<FailingCall> {
 protected:
  FailingFleshOut() {
    holdValues("day", {april, december});
    recorder.clear();
  }

  template <typename Exception>
  void expectToPass(Exception const& exception) {
    recorder.throwAt(GetParam().operation, GetParam().call, exception);
    EXPECT_THROW(document.fleshOutData(), Exception);
    expectNoReport(recorder);
    EXPECT_THAT(variable.getFormats(), SizeIs(GetParam().formatThere ? 1 : 0));
  }

  LumoSourceVariable& variable{addDate(u"day", u"MMM")};
};

TEST_P(FailingFleshOut, PassesAnOrdinaryFailureOn) { expectToPass(OrdinaryFailure()); }
TEST_P(FailingFleshOut, PassesTheHostsSignalOn) { expectToPass(VexaGoToCaller()); }

INSTANTIATE_TEST_SUITE_P(Calls, FailingFleshOut,
                         ::testing::Values(FailingCall{"Sources", Operation::GetSourceNames, 1, false},
                                           FailingCall{"Columns", Operation::GetVariableNames, 1, false},
                                           FailingCall{"Column", Operation::AddVariable, 1, false},
                                           FailingCall{"Path", Operation::DictionaryPath, 1, true},
                                           FailingCall{"Dictionary", Operation::OpenDictionary, 1, true},
                                           FailingCall{"Procedure", Operation::SetProcedure, 1, true},
                                           FailingCall{"FirstName", Operation::LookUp, 1, true},
                                           FailingCall{"LastName", Operation::LookUp, 20, true},
                                           FailingCall{"Language", Operation::LanguageCode, 1, true},
                                           FailingCall{"Rows", Operation::GetRowCount, 1, true},
                                           FailingCall{"FirstDate", Operation::BreakUpDate, 1, true},
                                           FailingCall{"LastDate", Operation::BreakUpDate, 2, true}),
                         [](auto const& test) { return std::string(test.param.name); });

TEST_F(FleshOut, PassesAFailureOfTheCellsOn) {
  addDate(u"day", u"MMM");
  recorder.throwAt(Operation::GetDataPointer, 1, OrdinaryFailure());
  EXPECT_THROW(fleshOut(), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(FleshOut, PassesAFailureOfEachChangeOfTheChartOn) {
  // The format, and the relabel of the one row.
  for (unsigned int change : {1U, 2U}) {
    LumoDocument chart;
    LumoSourceVariable& variable = *chart.getVisualization()->addSourceVariable(u"day");
    variable.setSource(*chart.getVisualization()->addUserSource(u"source0"));
    variable.setSourceName(u"day");
    variable.setCategorical(true);
    variable.addExtension()->setAttribute(u"inputDateFormatPattern", u"MMM");
    VarDataProcessor values;
    values.AddDataSource("source0", 1);
    XDocument own(chart);
    own.SetChartData(&values);
    recorder.clear();
    ChangeTrap const trap(chart, change, throwOrdinaryFailure());
    EXPECT_THROW(own.fleshOutData(), OrdinaryFailure) << change;
    EXPECT_EQ(variable.getFormats().size(), change - 1);
    expectNoReport(recorder);
  }
}

TEST_F(FleshOut, PassesOnThatTheHostHasNoPaths) {
  addDate(u"day", u"MMM");
  NoPaths const none;
  EXPECT_THROW(fleshOut(), ChartException);
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
