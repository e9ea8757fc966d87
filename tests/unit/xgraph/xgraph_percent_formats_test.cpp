// Percent formats, which copying the formats of variables gives to axes and domains.

#include "formatless_variable.h"

#include "host/messages.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/variables.h"

#include <gmock/gmock.h>
#include <xercesc/dom/DOMDocument.hpp>

#include <string>
#include <vector>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

/// A chart with a percentage: an element of the coordinates "own" that plots "bare" on its y.
class PercentFormats : public FormatlessVariable {
 protected:
  PercentFormats() {
    statistic.setMethod(LumoSummaryStatistic::MethodPercentage3);
    element.addY()->setVariable(bare);
    element.getImplementation()->setAttribute(u"coordinates", u"own");
  }

  static LumoMajorTicks& addTicks(LumoDimension& dimension) { return *dimension.addAxis()->addMajorTicks(); }

  LumoIntervalDomain& addDomain(LumoDimension& dimension, char16_t const* id = u"values") {
    LumoIntervalDomain& added = *visualization.addIntervalDomain(id);
    dimension.setDomain(added);
    return added;
  }

  LumoGraph& nodes = *graph.getGraph();
  LumoCoordinates& coordinates = *nodes.addCoordinates(u"own");
  LumoPoint& element = *nodes.addPoint(u"points");
  LumoSummaryStatistic& statistic = *element.addSummaryStatistic();
};

/// With the ticks of the axis of values.
class PercentTicks : public PercentFormats {
 protected:
  LumoDimension& x = *coordinates.addDimension();
  LumoDimension& y = *coordinates.addDimension();
  LumoMajorTicks& ticks = addTicks(y);
  LumoFormat& format = *ticks.addFormat();
};

/// With the domain of the values, in one of two sets of coordinates.
class PercentDomain : public PercentFormats {
 protected:
  PercentDomain() { nodes.addCoordinates(u"other"); }

  LumoDimension& x = *coordinates.addDimension();
  LumoDimension& y = *coordinates.addDimension();
  LumoIntervalDomain& domain = addDomain(y);

  static constexpr char const* formatted[] = {"intervalDomain adds format", "format suffix=%"};
};

}  // namespace

// --- Percentages on the axis

TEST_F(PercentTicks, HaveAPercentFormatInThePlaceOfTheirOwn) {
  EXPECT_THAT(writes(), ElementsAre("format is removed", "majorTicks adds format", "format suffix=%",
                                    "format minimumFractionDigits=1"));
}

TEST_F(PercentTicks, LoseAllTheirFormats) {
  format.setPattern(u"theirs");
  ticks.addFormat()->setSuffix(u" of the second format is not looked at");
  graph.copyVariableFormats();
  ASSERT_EQ(ticks.getFormats().size(), 1u);
  EXPECT_THAT(attributeNames(*ticks.getFormats().front()), ElementsAre("minimumFractionDigits", "suffix"));
}

TEST_F(PercentTicks, WithoutFormatGetNone) {
  ticks.removeFormats();
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentTicks, KeepAFormatWithSuffix) {
  format.setSuffix(u" g");
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentTicks, KeepAFormatWithAnEmptySuffixToo) {
  format.setSuffix(u"");
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentTicks, KeepAFormatWithAMinimumOfDigitsBeItZero) {
  format.setMinimumFractionDigits(0);
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentTicks, ThatKeepTheirFormatLeaveTheDomainAloneToo) {
  format.setSuffix(u" g");
  addDomain(y);
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentTicks, AreFormattedOnceForSeveralStatisticsAndVariables) {
  element.addSummaryStatistic()->setMethod(LumoSummaryStatistic::MethodPercentage12);
  addVariable(u"another", u"length");
  EXPECT_EQ(writes().size(), 4u);
}

TEST_F(PercentTicks, AreFormattedForAVariableThatIsNotPlotted) {
  element.getY()->setVariable(addDonor(u"plotted", u"length"));
  EXPECT_EQ(writes().size(), 4u);
}

TEST_F(PercentTicks, StayAsTheyAreWhereEachVariableHasAFormat) {
  bare.addFormat();
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentTicks, StayAsTheyAreWhereTheVariableReceivesTheEmptyFormatOfAnother) {
  addDonor(u"donor");
  EXPECT_THAT(writes(), ElementsAre("sourceVariable adds format"));
}

TEST_F(PercentTicks, AreFormattedWhereTwoVariablesOfAColumnHaveNoFormat) {
  addVariable(u"another", u"mass");
  EXPECT_EQ(writes().size(), 4u);
  EXPECT_THAT(bare.getFormats(), IsEmpty());
}

TEST_F(PercentTicks, StayAsTheyAreWithoutStatistic) {
  element.removeSummaryStatistics();
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentTicks, AreThoseOfTheFirstAxis) {
  LumoMajorTicks& second = addTicks(y);
  second.addFormat();
  graph.copyVariableFormats();
  EXPECT_EQ(attribute(ticks.getFormats().at(0), u"suffix"), "%");
  EXPECT_EQ(attribute(second.getFormats().at(0), u"suffix"), "(absent)");
}

TEST_F(PercentTicks, AreThoseOfTheSecondDimension) {
  LumoMajorTicks& first = addTicks(x);
  first.addFormat();
  LumoMajorTicks& third = addTicks(*coordinates.addDimension());
  third.addFormat();
  graph.copyVariableFormats();
  EXPECT_EQ(attribute(first.getFormats().at(0), u"suffix"), "(absent)");
  EXPECT_EQ(attribute(ticks.getFormats().at(0), u"suffix"), "%");
  EXPECT_EQ(attribute(third.getFormats().at(0), u"suffix"), "(absent)");
}

TEST_F(PercentTicks, AreThoseOfTheFirstDimensionBesideADimensionReference) {
  LumoMajorTicks& first = addTicks(x);
  first.addFormat();
  coordinates.addDimensionReference()->setRef(y);
  graph.copyVariableFormats();
  EXPECT_EQ(attribute(first.getFormats().at(0), u"suffix"), "%");
  EXPECT_EQ(attribute(ticks.getFormats().at(0), u"suffix"), "(absent)");
}

TEST_F(PercentTicks, AreFormattedAlsoForAnElementThatNamesNoCoordinates) {
  element.getImplementation()->removeAttribute(u"coordinates");
  EXPECT_EQ(writes().size(), 4u);
}

TEST_F(PercentTicks, OfAStatisticThatTheModelDoesNotKnowAreLeftAlone) {
  element.removeSummaryStatistics();
  auto* const dom = element.getImplementation()->getOwnerDocument();
  auto* const foreign = dom->createElement(u"summaryStatistic");
  foreign->setAttribute(u"method", u"3");
  element.getImplementation()->appendChild(foreign);
  EXPECT_THAT(writes(), IsEmpty());
  expectNoReport(recorder);
}

TEST_F(PercentTicks, ReportAFailureAndKeepWhatWasWritten) {
  ChangeTrap const trap(document, 4, throwOrdinaryFailure());
  EXPECT_EQ(graph.copyVariableFormats(), 0);
  expectGuardReport(recorder, context);
  EXPECT_THAT(attributeNames(*ticks.getFormats().at(0)), ElementsAre("suffix"));
}

TEST_F(PercentTicks, LetTheHostsUnwindingSignalPass) {
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(graph.copyVariableFormats(), VexaGoToCaller);
  expectNoReport(recorder);
}

namespace {

struct MethodRow {
  char const* name;
  int method;
  bool percentage;
};

void PrintTo(MethodRow const& row, std::ostream* out) { *out << row.name; }

class PercentMethod : public PercentTicks, public testing::WithParamInterface<MethodRow> {};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, PercentMethod,
                         testing::Values(MethodRow{"Method3", 3, true}, MethodRow{"Method12", 12, true},
                                         MethodRow{"Method22", 22, true}, MethodRow{"Method23", 23, true},
                                         MethodRow{"Method2", 2, false}, MethodRow{"Method4", 4, false},
                                         MethodRow{"ErrorBar", 7, false}, MethodRow{"Histogram", 10, false},
                                         MethodRow{"Method11", 11, false}, MethodRow{"Method13", 13, false},
                                         MethodRow{"Method20", 20, false}, MethodRow{"Method21", 21, false},
                                         MethodRow{"Method24", 24, false}, MethodRow{"Method37", 37, false}),
                         caseName<MethodRow>);

TEST_P(PercentMethod, IsAPercentageOrNot) {
  statistic.setMethod(static_cast<LumoSummaryStatistic::ENUM_method>(GetParam().method));
  EXPECT_EQ(writes().size(), GetParam().percentage ? 4u : 0u);
}

TEST_F(PercentTicks, StayAsTheyAreForAStatisticWithoutMethod) {
  element.removeSummaryStatistics();
  element.addSummaryStatistic();
  EXPECT_THAT(writes(), IsEmpty());
}

// --- Percentages on the domain

TEST_F(PercentDomain, IsShownWithASuffixAndNoMinimumOfDigits) {
  EXPECT_THAT(writes(), ElementsAreArray(formatted));
}

TEST_F(PercentDomain, LosesAllItsFormatsWhateverTheySay) {
  domain.addFormat()->setSuffix(u" g");
  domain.addFormat()->setMinimumFractionDigits(2);
  EXPECT_THAT(writes(), ElementsAre("format is removed", "format is removed", "intervalDomain adds format",
                                    "format suffix=%"));
}

TEST_F(PercentDomain, IsFormattedAgainForEachStatistic) {
  element.addSummaryStatistic()->setMethod(LumoSummaryStatistic::MethodPercentage12);
  EXPECT_THAT(writes(), ElementsAre("intervalDomain adds format", "format suffix=%", "format is removed",
                                    "intervalDomain adds format", "format suffix=%"));
}

TEST_F(PercentDomain, DoesNotMakeTheVariableHaveAFormat) {
  graph.copyVariableFormats();
  EXPECT_THAT(bare.getFormats(), IsEmpty());
}

TEST_F(PercentDomain, LeavesTheTicksAlone) {
  addTicks(y).addFormat();
  EXPECT_THAT(writes(), ElementsAreArray(formatted));
}

TEST_F(PercentDomain, StaysAsItIsForAStatisticThatIsNoPercentage) {
  statistic.setMethod(LumoSummaryStatistic::MethodHistogram);
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentDomain, StaysAsItIsForAnotherVariable) {
  element.getY()->setVariable(addDonor(u"plotted", u"length"));
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentDomain, IsFormattedForTheVariableOnXWhereThereIsNoY) {
  LumoPoint& other = *nodes.addPoint(u"other points");
  other.addX()->setVariable(bare);
  other.getImplementation()->setAttribute(u"coordinates", u"own");
  other.addSummaryStatistic()->setMethod(LumoSummaryStatistic::MethodPercentage3);
  element.removeSummaryStatistics();
  EXPECT_THAT(writes(), ElementsAreArray(formatted));
}

TEST_F(PercentDomain, StaysAsItIsForTheVariableOnXBesideAY) {
  element.addX()->setVariable(bare);
  element.getY()->setVariable(addDonor(u"plotted", u"length"));
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentDomain, GoesByTheFirstYOfTheElement) {
  element.addY()->setVariable(addDonor(u"plotted", u"length"));
  EXPECT_THAT(writes(), ElementsAreArray(formatted));
}

TEST_F(PercentDomain, StaysAsItIsForAnElementWithNeitherXNorY) {
  LumoPoint& other = *nodes.addPoint(u"other points");
  other.addZ()->setVariable(bare);
  other.getImplementation()->setAttribute(u"coordinates", u"own");
  other.addSummaryStatistic()->setMethod(LumoSummaryStatistic::MethodPercentage3);
  element.removeSummaryStatistics();
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentDomain, AnElementThatIsPassedOverEndsNothing) {
  LumoPoint& first = *nodes.addPoint(u"first of the tree");
  first.addSummaryStatistic()->setMethod(LumoSummaryStatistic::MethodPercentage3);
  nodes.getImplementation()->insertBefore(first.getImplementation(), element.getImplementation());
  EXPECT_THAT(writes(), ElementsAreArray(formatted));
}

TEST_F(PercentDomain, StaysAsItIsForAnElementThatNamesNoCoordinates) {
  element.getImplementation()->removeAttribute(u"coordinates");
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentDomain, StaysAsItIsForCoordinatesOfTheEmptyName) {
  element.getImplementation()->setAttribute(u"coordinates", u"");
  coordinates.setId(u"");
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentDomain, StaysAsItIsForOtherCoordinates) {
  element.getImplementation()->setAttribute(u"coordinates", u"other");
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentDomain, HeedsTheCaseOfTheCoordinates) {
  element.getImplementation()->setAttribute(u"coordinates", u"Own");
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentDomain, IsThatOfAllCoordinatesOfTheName) {
  LumoCoordinates& twin = *nodes.addCoordinates(u"own");
  twin.addDimension();
  LumoIntervalDomain& second = addDomain(*twin.addDimension(), u"twin");
  graph.copyVariableFormats();
  EXPECT_EQ(domain.getFormats().size(), 1u);
  EXPECT_EQ(second.getFormats().size(), 1u);
}

TEST_F(PercentDomain, IsThatOfTheSecondDimensionOnly) {
  LumoIntervalDomain& first = addDomain(x, u"first");
  LumoIntervalDomain& third = addDomain(*coordinates.addDimension(), u"third");
  graph.copyVariableFormats();
  EXPECT_THAT(first.getFormats(), IsEmpty());
  EXPECT_EQ(domain.getFormats().size(), 1u);
  EXPECT_THAT(third.getFormats(), IsEmpty());
}

TEST_F(PercentDomain, MayBeMissing) {
  LumoCoordinates& third = *nodes.addCoordinates(u"third");
  third.addDimension();
  third.addDimension();
  element.getImplementation()->setAttribute(u"coordinates", u"third");
  EXPECT_THAT(writes(), IsEmpty());
  expectNoReport(recorder);
}

TEST_F(PercentDomain, IsFoundBehindADimensionReferenceInFirstPlace) {
  LumoCoordinates& third = *nodes.addCoordinates(u"third");
  third.addDimensionReference()->setRef(x);
  addDomain(*third.addDimension(), u"of the third");
  element.getImplementation()->setAttribute(u"coordinates", u"third");
  EXPECT_THAT(writes(), ElementsAreArray(formatted));
}

TEST_F(PercentDomain, IsNotFoundThroughADimensionReferenceInSecondPlace) {
  LumoCoordinates& third = *nodes.addCoordinates(u"third");
  third.addDimension();
  third.addDimensionReference()->setRef(y);
  addDomain(*third.addDimension(), u"of the third");
  element.getImplementation()->setAttribute(u"coordinates", u"third");
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(PercentDomain, IsCountedWithoutTransforms) {
  LumoCoordinates& third = *nodes.addCoordinates(u"third");
  third.addTransposeTransform();
  third.addDimension();
  third.addTransposeTransform();
  addDomain(*third.addDimension(), u"of the third");
  element.getImplementation()->setAttribute(u"coordinates", u"third");
  EXPECT_THAT(writes(), ElementsAreArray(formatted));
}

TEST_F(PercentDomain, ReportsAFailureAndKeepsWhatWasWritten) {
  ChangeTrap const trap(document, 2, throwOrdinaryFailure());
  EXPECT_EQ(graph.copyVariableFormats(), 0);
  expectGuardReport(recorder, context);
  EXPECT_EQ(domain.getFormats().size(), 1u);
}

TEST_F(PercentFormats, GoToTheDomainWhereTheOnlyCoordinatesHaveNoAxis) {
  coordinates.addDimension();
  LumoIntervalDomain& domain = addDomain(*coordinates.addDimension());
  graph.copyVariableFormats();
  EXPECT_EQ(domain.getFormats().size(), 1u);
}

TEST_F(PercentFormats, GoToTheDomainWhereTheAxisHasNoTicks) {
  coordinates.addDimension();
  LumoDimension& y = *coordinates.addDimension();
  y.addAxis();
  addTicks(y).addFormat();
  LumoIntervalDomain& domain = addDomain(y);
  graph.copyVariableFormats();
  EXPECT_EQ(domain.getFormats().size(), 1u) << "the first axis counts alone";
}

TEST_F(PercentFormats, GoToTheDomainWhereTheDimensionsAreTooFewForAnAxis) {
  coordinates.addDimensionReference();
  LumoIntervalDomain& domain = addDomain(*coordinates.addDimension());
  graph.copyVariableFormats();
  EXPECT_EQ(domain.getFormats().size(), 1u);
}

TEST_F(PercentFormats, GoNowhereForOneDimensionAlone) {
  LumoDimension& only = *coordinates.addDimension();
  addDomain(only);
  addTicks(only).addFormat();
  EXPECT_THAT(writes(), IsEmpty());
  expectNoReport(recorder);
}

TEST_F(EmptyChartTest, PercentagesInAChartWithoutCoordinatesChangeNothing) {
  XGraph graph(visualization, nullptr);
  LumoSourceVariable& variable = *visualization.addSourceVariable(u"percent");
  LumoPoint& element = *graph.getGraph()->addPoint(u"points");
  element.addY()->setVariable(variable);
  element.getImplementation()->setAttribute(u"coordinates", u"gone");
  element.addSummaryStatistic()->setMethod(LumoSummaryStatistic::MethodPercentage3);
  EXPECT_THAT(writesOfCopying(document, graph), IsEmpty());
  expectNoReport(recorder);
}

TEST_F(EmptyChartTest, PercentagesOfAGraphThatTheBuilderDoesNotHaveAreAReportedFailure) {
  XGraph attached(visualization);
  visualization.addSourceVariable(u"percent");
  LumoPoint& element = *visualization.addGraph(u"added later")->addPoint(u"points");
  element.addSummaryStatistic()->setMethod(LumoSummaryStatistic::MethodPercentage3);
  EXPECT_EQ(attached.copyVariableFormats(), 0);
  expectGuardReport(recorder, "Error in XGraph::copyVariableFormats()");
}
