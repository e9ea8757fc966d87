// Ranges, dates and variables of an axis's domain.

#include "axis_fixture.h"

#include "host/messages.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AxisDomainTest : public AxisTest {
 protected:
  std::vector<LumoRange*> ranges() const { return dimension.getDomain()->getRanges(); }
};

TEST_F(AxisDomainTest, AnIntervalMakesTheFirstDomain) {
  axis.setInterval(0, 10, true);
  ASSERT_EQ(visualization.getIntervalDomains().size(), 1u);
  EXPECT_EQ(dimension.getDomain(), visualization.getIntervalDomains().front());
  EXPECT_EQ(utf8(dimension.getDomain()->getId()), "intervalDomain0");
}

TEST_F(AxisDomainTest, DomainsAreNumberedByTheirKind) {
  visualization.addCategoricalDomain(u"categoricalDomain0");
  visualization.addCategoricalDomain(u"categoricalDomain1");
  visualization.addIntervalDomain(u"other");
  axis.setInterval(0, 10, true);
  EXPECT_EQ(utf8(dimension.getDomain()->getId()), "intervalDomain1");
}

TEST_F(AxisDomainTest, TheDomainOfAnotherAxisIsAnother) {
  LumoDimension& otherDimension = *coordinates.addDimension();
  XAxis other(otherDimension, *otherDimension.addAxis());
  axis.setInterval(0, 10, true);
  other.setMinInterval(0, true);
  EXPECT_EQ(utf8(otherDimension.getDomain()->getId()), "intervalDomain1");
}

TEST_F(AxisDomainTest, AnIntervalIsWrittenInItsFixedOrderAndNeverExact) {
  EXPECT_THAT(writesOf([&] { axis.setInterval(0, 10, true); }),
              ElementsAre("visualization adds intervalDomain", "intervalDomain id=intervalDomain0",
                          "intervalDomain adds range", "range min=0", "range max=10", "range exact=false",
                          "dimension domain=intervalDomain0"));
}

TEST_F(AxisDomainTest, TheFlagOfAnIntervalIsNotRead) {
  axis.setInterval(0, 10, true);
  axis.setInterval(0, 10, false);
  EXPECT_EQ(attribute(ranges()[0], u"exact"), "false");
  EXPECT_EQ(attribute(ranges()[1], u"exact"), "false");
}

TEST_F(AxisDomainTest, AMinimumAloneIsWrittenInItsFixedOrderAndNeverExact) {
  EXPECT_THAT(writesOf([&] { axis.setMinInterval(-2.5, true); }),
              ElementsAre("visualization adds intervalDomain", "intervalDomain id=intervalDomain0",
                          "intervalDomain adds range", "range min=-2.5", "range exact=false",
                          "dimension domain=intervalDomain0"));
}

TEST_F(AxisDomainTest, TheFlagOfAMinimumIsNotRead) {
  axis.setMinInterval(1, false);
  EXPECT_EQ(attribute(ranges()[0], u"exact"), "false");
}

TEST_F(AxisDomainTest, EndsHaveAtMostSixteenDigits) {
  axis.setInterval(1.0 / 3.0, 0.1 + 0.2, false);
  EXPECT_EQ(attribute(ranges()[0], u"min"), "0.3333333333333333");
  EXPECT_EQ(attribute(ranges()[0], u"max"), "0.3");
}

TEST_F(AxisDomainTest, TwoIntervalsAreTwoRangesOfOneDomain) {
  axis.setInterval(0, 10, true);
  axis.setInterval(20, 30, true);
  EXPECT_EQ(visualization.getIntervalDomains().size(), 1u);
  ASSERT_EQ(ranges().size(), 2u);
  EXPECT_EQ(attribute(ranges()[0], u"min"), "0");
  EXPECT_EQ(attribute(ranges()[1], u"min"), "20");
}

TEST_F(AxisDomainTest, AnIntervalAfterAMinimumIsASecondRange) {
  axis.setMinInterval(5, false);
  axis.setInterval(0, 10, true);
  EXPECT_EQ(ranges().size(), 2u);
}

TEST_F(AxisDomainTest, EveryIntervalSetsTheDomainAgain) {
  axis.setInterval(0, 10, true);
  EXPECT_THAT(writesOf([&] { axis.setInterval(20, 30, true); }),
              ElementsAre("intervalDomain adds range", "range min=20", "range max=30", "range exact=false",
                          "dimension writes the same"));
}

TEST_F(AxisDomainTest, EveryMinimumSetsTheDomainAgain) {
  axis.setInterval(0, 10, true);
  EXPECT_THAT(writesOf([&] { axis.setMinInterval(20, true); }),
              ElementsAre("intervalDomain adds range", "range min=20", "range exact=false",
                          "dimension writes the same"));
}

TEST_F(AxisDomainTest, AnIntervalVariableIsReferredToByANewDomain) {
  EXPECT_THAT(writesOf([&] { axis.addIntervalVariableReference(age); }),
              ElementsAre("visualization adds intervalDomain", "intervalDomain id=intervalDomain0",
                          "dimension domain=intervalDomain0", "intervalDomain adds variableReference",
                          "variableReference ref=age"));
}

TEST_F(AxisDomainTest, AnIntervalVariableJoinsTheDomainThatIsThereWithoutSettingIt) {
  axis.setInterval(0, 10, true);
  EXPECT_THAT(writesOf([&] { axis.addIntervalVariableReference(age); }),
              ElementsAre("intervalDomain adds variableReference", "variableReference ref=age"));
}

TEST_F(AxisDomainTest, ACategoricalVariableIsReferredToByANewDomain) {
  EXPECT_THAT(writesOf([&] { axis.addCategoricalVariableReference(age); }),
              ElementsAre("visualization adds categoricalDomain", "categoricalDomain id=categoricalDomain0",
                          "dimension domain=categoricalDomain0", "categoricalDomain adds variableReference",
                          "variableReference ref=age"));
}

TEST_F(AxisDomainTest, CategoricalDomainsAreNumberedByTheirKind) {
  visualization.addCategoricalDomain(u"other");
  visualization.addIntervalDomain(u"intervalDomain0");
  visualization.addIntervalDomain(u"intervalDomain1");
  axis.addCategoricalVariableReference(age);
  EXPECT_EQ(utf8(dimension.getDomain()->getId()), "categoricalDomain1");
}

TEST_F(AxisDomainTest, TwoCategoricalVariablesShareADomain) {
  LumoSourceVariable& sexModel = addVariable(u"sex");
  axis.addCategoricalVariableReference(age);
  axis.addCategoricalVariableReference(XVariable(sexModel));
  EXPECT_EQ(visualization.getCategoricalDomains().size(), 1u);
  auto const references = dimension.getDomain()->getVariableReferences();
  ASSERT_EQ(references.size(), 2u);
  EXPECT_EQ(references[0]->getRef(), &ageModel);
  EXPECT_EQ(references[1]->getRef(), &sexModel);
}

TEST_F(AxisDomainTest, ADomainOfTheOtherKindIsTakenAsItIs) {
  axis.addCategoricalVariableReference(age);
  axis.addIntervalVariableReference(age);
  EXPECT_THAT(visualization.getIntervalDomains(), IsEmpty());
  EXPECT_EQ(dimension.getDomain()->getVariableReferences().size(), 2u);
}

TEST_F(AxisDomainTest, AnIntervalGoesIntoACategoricalDomainThatIsThere) {
  axis.addCategoricalVariableReference(age);
  EXPECT_THAT(writesOf([&] { axis.setInterval(0, 10, true); }),
              ElementsAre("categoricalDomain adds range", "range min=0", "range max=10", "range exact=false",
                          "dimension writes the same"));
  expectNoReport(recorder);
}

TEST_F(AxisDomainTest, ADateIntervalGoesIntoACategoricalDomainThatIsThere) {
  axis.addCategoricalVariableReference(age);
  EXPECT_THAT(writesOf([&] { axis.addDateInterval(u"2020-01-31", nullptr); }),
              ElementsAre("categoricalDomain date=true", "categoricalDomain adds range",
                          "range min=2020-01-31", "dimension writes the same"));
  expectNoReport(recorder);
}

TEST_F(AxisDomainTest, AnIntervalDomainTakesACategoricalVariable) {
  axis.setInterval(0, 1, true);
  axis.addCategoricalVariableReference(age);
  EXPECT_THAT(visualization.getCategoricalDomains(), IsEmpty());
  EXPECT_EQ(dimension.getDomain()->getVariableReferences().size(), 1u);
}

TEST_F(AxisDomainTest, ADateIntervalWritesItsMaximumOverItsMinimum) {
  EXPECT_THAT(writesOf([&] { axis.addDateInterval(u"a", u"b"); }),
              ElementsAre("visualization adds intervalDomain", "intervalDomain id=intervalDomain0",
                          "intervalDomain date=true", "intervalDomain adds range", "range min=a",
                          "range min=b", "dimension domain=intervalDomain0"));
  EXPECT_EQ(attribute(ranges()[0], u"max"), "(absent)");
}

TEST_F(AxisDomainTest, ADateIntervalMayHaveAMinimumOnly) {
  axis.addDateInterval(u"2020-01-31", nullptr);
  ASSERT_EQ(ranges().size(), 1u);
  EXPECT_EQ(attribute(ranges()[0], u"min"), "2020-01-31");
}

TEST_F(AxisDomainTest, ADateIntervalWithAMaximumOnlyHasItAsItsMinimum) {
  axis.addDateInterval(nullptr, u"2020-12-31");
  ASSERT_EQ(ranges().size(), 1u);
  EXPECT_EQ(attribute(ranges()[0], u"min"), "2020-12-31");
  EXPECT_EQ(attribute(ranges()[0], u"max"), "(absent)");
}

TEST_F(AxisDomainTest, ADateIntervalSaysNothingOfExactness) {
  axis.addDateInterval(u"a", u"b");
  EXPECT_EQ(attribute(ranges()[0], u"exact"), "(absent)");
}

TEST_F(AxisDomainTest, ADateIntervalReplacesAllRanges) {
  axis.setInterval(0, 10, true);
  axis.setInterval(20, 30, true);
  axis.addDateInterval(u"2020-01-01", nullptr);
  ASSERT_EQ(ranges().size(), 1u);
  EXPECT_EQ(attribute(ranges()[0], u"min"), "2020-01-01");
}

TEST_F(AxisDomainTest, AnEmptyTextOfADateIsWritten) {
  axis.addDateInterval(u"", nullptr);
  ASSERT_EQ(ranges().size(), 1u);
  EXPECT_EQ(attribute(ranges()[0], u"min"), "");
}

TEST_F(AxisDomainTest, ADateIntervalWithoutEndsKeepsTheRanges) {
  axis.setInterval(0, 10, true);
  EXPECT_THAT(writesOf([&] { axis.addDateInterval(nullptr, nullptr); }),
              ElementsAre("intervalDomain date=true", "dimension writes the same"));
  EXPECT_EQ(ranges().size(), 1u);
}

TEST_F(AxisDomainTest, ADateIntervalWithoutEndsMakesTheDomain) {
  axis.addDateInterval(nullptr, nullptr);
  EXPECT_EQ(attribute(dimension.getDomain(), u"date"), "true");
  EXPECT_THAT(ranges(), IsEmpty());
}

struct DomainOperation {
  char const* name;
  void (*run)(XAxis&, XVariable const&);
  std::string context;
};

void PrintTo(DomainOperation const& operation, std::ostream* stream) { *stream << operation.name; }

class AxisDomainOperationTest : public AxisDomainTest, public ::testing::WithParamInterface<DomainOperation> {
 protected:
  void run() { GetParam().run(axis, age); }
};

INSTANTIATE_TEST_SUITE_P(
    Operations, AxisDomainOperationTest,
    ::testing::Values(
        DomainOperation{"setInterval", [](XAxis& axis, XVariable const&) { axis.setInterval(0, 1, true); },
                        "Error in XAxis::setInterval()"},
        DomainOperation{"setMinInterval", [](XAxis& axis, XVariable const&) { axis.setMinInterval(0, true); },
                        "Error in XAxis::setMinInterval()"},
        DomainOperation{
            "addIntervalVariableReference",
            [](XAxis& axis, XVariable const& variable) { axis.addIntervalVariableReference(variable); },
            "Error in XAxis::addIntervalVariableReference()"},
        DomainOperation{
            "addCategoricalVariableReference",
            [](XAxis& axis, XVariable const& variable) { axis.addCategoricalVariableReference(variable); },
            "Error in XAxis::addCategoricalVariableReference()"},
        DomainOperation{"addDateInterval",
                        [](XAxis& axis, XVariable const&) { axis.addDateInterval(u"a", u"b"); },
                        "Error in XAxis::addDateInterval()"}),
    [](auto const& row) { return std::string(row.param.name); });

TEST_P(AxisDomainOperationTest, AFailureIsReportedAndNothingIsWritten) {
  failAtChange(1, [&] { run(); });
  expectGuardReport(recorder, GetParam().context);
  EXPECT_EQ(dimension.getDomain(), nullptr);
}

TEST_P(AxisDomainOperationTest, AFailureOfAnyStepIsReportedAndWhatWasWrittenStays) {
  failAtChange(4, [&] { run(); });
  expectGuardReport(recorder, GetParam().context);
  EXPECT_EQ(visualization.getIntervalDomains().size() + visualization.getCategoricalDomains().size(), 1u);
}

TEST_P(AxisDomainOperationTest, TheUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { run(); }), VexaGoToCaller);
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
