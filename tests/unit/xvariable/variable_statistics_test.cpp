// The statistic that a computed variable holds.

#include "variable_fixture.h"

#include "host/messages.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

using Writes = std::vector<std::string>;

Writes const none = {};
Writes const midpoints = {"extension valuesAreGroupedMidpoints=true"};
Writes const value = {"extension value=0.5"};
Writes const valueAndMidpoints = {"extension value=0.5", "extension valuesAreGroupedMidpoints=true"};
Writes const range = {"extension max=30.25", "extension min=-2"};

struct StatisticCase {
  XVariable::ENUM_statistic statistic;
  int number;
  int inChart;
  Writes further;
};

void PrintTo(StatisticCase const& row, std::ostream* out) { *out << row.number; }

StatisticCase const statistics[] = {
    {XVariable::Statistic0, 0, 1, none},     {XVariable::Statistic1, 1, 2, none},
    {XVariable::Statistic2, 2, 3, none},     {XVariable::Statistic3, 3, 4, midpoints},
    {XVariable::Statistic4, 4, 5, none},     {XVariable::Statistic5, 5, 6, none},
    {XVariable::Statistic6, 6, 7, none},     {XVariable::Statistic7, 7, 8, none},
    {XVariable::Statistic8, 8, 9, none},     {XVariable::Statistic9, 9, 10, none},
    {XVariable::Statistic10, 10, 11, none},  {XVariable::Statistic11, 11, 12, none},
    {XVariable::Statistic12, 12, 13, none},  {XVariable::Statistic13, 13, 15, value},
    {XVariable::Statistic14, 14, 16, value}, {XVariable::Statistic15, 15, 14, valueAndMidpoints},
    {XVariable::Statistic16, 16, 17, value}, {XVariable::Statistic17, 17, 18, value},
    {XVariable::Statistic18, 18, 19, range}, {XVariable::Statistic19, 19, 20, range},
    {XVariable::Statistic20, 20, 21, value}, {XVariable::Statistic21, 21, 22, value},
    {XVariable::Statistic22, 22, 23, value}, {XVariable::Statistic23, 23, 24, value},
    {XVariable::Statistic24, 24, 25, value}, {XVariable::Statistic25, 25, 26, value},
    {XVariable::Statistic26, 26, 27, value}, {XVariable::Statistic27, 27, 28, value},
    {XVariable::Statistic29, 29, 30, none},  {XVariable::Statistic30, 30, 31, none},
};

class StatisticTest : public VariableTest {
 protected:
  void set(XVariable::ENUM_statistic statistic) { variable.setStatistic(statistic, 0.5, -2.0, 30.25, true); }

  XVariable variable{model};
};

class EachStatistic : public StatisticTest, public ::testing::WithParamInterface<StatisticCase> {};

INSTANTIATE_TEST_SUITE_P(, EachStatistic, ::testing::ValuesIn(statistics),
                         [](auto const& row) { return "Statistic" + std::to_string(row.param.number); });

TEST_P(EachStatistic, HasItsNumber) { EXPECT_EQ(GetParam().statistic, GetParam().number); }

TEST_P(EachStatistic, WritesItsRowInItsFixedOrder) {
  Writes expected = {"sourceVariable adds extension",
                     "extension statistic=" + std::to_string(GetParam().inChart)};
  expected.insert(expected.end(), GetParam().further.begin(), GetParam().further.end());
  EXPECT_THAT(writesOf([&] { set(GetParam().statistic); }), ElementsAreArray(expected));
}

class StatisticThatIsNotWritten : public StatisticTest, public ::testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(, StatisticThatIsNotWritten,
                         ::testing::Values(28, 31, 32, 100, std::numeric_limits<int>::max(), -1,
                                           std::numeric_limits<int>::min()));

TEST_F(StatisticTest, TheOneThatIsNotWrittenHasItsNumber) { EXPECT_EQ(XVariable::Statistic28, 28); }

TEST_P(StatisticThatIsNotWritten, MakesTheExtensionAndLeavesItEmpty) {
  EXPECT_THAT(writesOf([&] { set(static_cast<XVariable::ENUM_statistic>(GetParam())); }),
              ElementsAre("sourceVariable adds extension"));
  EXPECT_THAT(attributeNames(*model.getExtension()), IsEmpty());
  expectNoReport(recorder);
}

TEST_F(StatisticTest, GoesToTheExtensionThatTheVariableHas) {
  LumoExtensionSV* const extension = model.addExtension();
  set(XVariable::Statistic0);
  EXPECT_EQ(model.getExtension(), extension);
  EXPECT_EQ(elementsOf(model, u"extension").size(), 1u);
  EXPECT_EQ(attribute(extension, u"statistic"), "1");
}

TEST_F(StatisticTest, OneThatIsNotWrittenLeavesTheOneBefore) {
  set(XVariable::Statistic13);
  EXPECT_THAT(writesOf([&] { set(XVariable::Statistic28); }), IsEmpty());
}

TEST_F(StatisticTest, ALaterOneLeavesTheArgumentsOfTheOneBefore) {
  set(XVariable::Statistic18);
  EXPECT_THAT(writesOf([&] { set(XVariable::Statistic4); }), ElementsAre("extension statistic=5"));
}

TEST_F(StatisticTest, MidpointsThatAreNotGroupedAreWrittenToo) {
  variable.setStatistic(XVariable::Statistic3, 0, 0, 0, false);
  EXPECT_EQ(attribute(model.getExtension(), u"valuesAreGroupedMidpoints"), "false");
}

TEST_F(StatisticTest, AFailureReachesTheCaller) {
  EXPECT_THROW(failAtChange(2, [&] { set(XVariable::Statistic13); }), OrdinaryFailure);
  expectNoReport(recorder);
  EXPECT_NE(model.getExtension(), nullptr);
}

TEST_F(StatisticTest, TheHostsUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { set(XVariable::Statistic13); }), VexaGoToCaller);
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
