// What all axis factories share, and the axes that each of them finds or makes.

#include "change_log.h"
#include "graph_fixture.h"

#include "host/chartbase.h"
#include "host/log.h"
#include "host/messages.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/style.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

struct AxisFactory {
  char const* name;
  XAxis (*add)(XGraph&, ChartString const& label);
  std::size_t dimension;
  char16_t const* id;
};

void PrintTo(AxisFactory const& row, std::ostream* out) { *out << row.name; }

AxisFactory const primaryX{
    "PrimaryX", [](XGraph& graph, ChartString const& label) { return graph.AddPrimaryXAxis(label); }, 0,
    XGraph::_primaryXAxisId};
AxisFactory const primaryY{
    "PrimaryY", [](XGraph& graph, ChartString const& label) { return graph.AddPrimaryYAxis(label); }, 1,
    XGraph::_primaryYAxisId};
AxisFactory const derivedY{
    "DerivedY", [](XGraph& graph, ChartString const& label) { return graph.AddDerivedYAxis(label, false); },
    1, XGraph::_secondaryYAxisId};
AxisFactory const secondaryX{
    "SecondaryX", [](XGraph& graph, ChartString const& label) { return graph.AddSecondaryXAxis(label); }, 0,
    XGraph::_secondaryXAxisId};
AxisFactory const zAxis{"Z", [](XGraph& graph, ChartString const& label) { return graph.AddZAxis(label); }, 2,
                        XGraph::_zAxisId};

class AxisGraph : public GraphTest {
 protected:
  std::vector<LumoDimension*> dimensions() const {
    return graph.getGraph()->getCoordinates(0)->getDimensions();
  }
  std::vector<LumoAxis*> axes(std::size_t dimension) const { return dimensions().at(dimension)->getAxiss(); }

  /// Puts dimensions there without axes.
  LumoCoordinates& makeDimensions(int count) {
    LumoCoordinates* const coordinates = graph.getGraph()->addCoordinates(u"coordinates0");
    for (int made = 0; made < count; ++made) coordinates->addDimension();
    return *coordinates;
  }
};

/// The text of an axis's label, or "(none)".
std::string labelText(LumoAxis const& axis) {
  LumoLabel const* const label = axis.getLabel();
  return label == nullptr ? "(none)" : utf8(label->getTexts().at(0)->getText());
}

std::string styleIdOf(char16_t const* axisId) { return utf8(axisId) + utf8(ChartBase::_default_style); }

class EachAxisFactory : public AxisGraph, public testing::WithParamInterface<AxisFactory> {
 protected:
  XAxis add(ChartString const& label = ChartString()) { return GetParam().add(graph, label); }
  LumoAxis& onlyAxis() const { return *axes(GetParam().dimension).at(0); }
};

/// On a chart that has no graph.
class EachAxisFactoryWithoutGraph : public EmptyChartTest, public testing::WithParamInterface<AxisFactory> {
 protected:
  XGraph attached{visualization};
};

using AxesWithoutGraph = EmptyChartTest;

class PrimaryXAxis : public AxisGraph {};
class YAxes : public AxisGraph {};
class ZAxis : public AxisGraph {};
class EmptyYDimension : public AxisGraph {};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, EachAxisFactory, testing::Values(primaryX, primaryY, derivedY, zAxis),
                         caseName<AxisFactory>);
INSTANTIATE_TEST_SUITE_P(, EachAxisFactoryWithoutGraph,
                         testing::Values(primaryX, primaryY, derivedY, secondaryX, zAxis),
                         caseName<AxisFactory>);

TEST(AxisIds, AreExportedTexts) {
  EXPECT_EQ(utf8(XGraph::_primaryXAxisId), "axis_axisx_1");
  EXPECT_EQ(utf8(XGraph::_secondaryXAxisId), "axis_axisx_2");
  EXPECT_EQ(utf8(XGraph::_primaryYAxisId), "axis_axisy_1");
  EXPECT_EQ(utf8(XGraph::_secondaryYAxisId), "axis_axisy_2");
  EXPECT_EQ(utf8(XGraph::_zAxisId), "axis_axisz_1");
}

TEST_P(EachAxisFactory, MakesTheMissingCoordinates) {
  add();
  EXPECT_THAT(ids(graph.getGraph()->getCoordinatess()), ElementsAre("coordinates0"));
}

TEST_P(EachAxisFactory, UsesTheFirstCoordinatesThatExist) {
  graph.getGraph()->addCoordinates(u"theirs");
  graph.getGraph()->addCoordinates(u"others");
  add();
  EXPECT_THAT(ids(graph.getGraph()->getCoordinatess()), ElementsAre("theirs", "others"));
  EXPECT_EQ(axes(GetParam().dimension).size(), 1u);
}

TEST_P(EachAxisFactory, MakesTheDimensionsUpToItsOwn) {
  add();
  EXPECT_EQ(dimensions().size(), GetParam().dimension + 1);
}

TEST_P(EachAxisFactory, PutsItsAxisOnItsOwnDimensionOnly) {
  makeDimensions(3);
  add();
  EXPECT_EQ(dimensions().size(), 3u);
  EXPECT_EQ(elementsOf(visualization, u"axis").size(), 1u);
  EXPECT_EQ(axes(GetParam().dimension).size(), 1u);
}

TEST_P(EachAxisFactory, GivesAWrapperOnTheAxis) {
  XAxis const axis = add();
  EXPECT_EQ(axis.getImplementation(), &onlyAxis());
}

TEST_P(EachAxisFactory, GivesAWrapperOnTheDimensionOfTheAxis) {
  add().setLowerMargin(u"5%");
  EXPECT_EQ(attribute(dimensions().at(GetParam().dimension), u"lowerMargin"), "5%");
}

TEST_P(EachAxisFactory, NamesTheStyleAfterTheAxis) {
  add();
  ASSERT_NE(onlyAxis().getStyle(), nullptr);
  EXPECT_EQ(utf8(onlyAxis().getStyle()->getId()), styleIdOf(GetParam().id));
}

TEST_P(EachAxisFactory, PutsTheStyleIntoTheContainer) {
  add();
  EXPECT_EQ(styleIds(visualization).front(), styleIdOf(GetParam().id));
}

TEST_P(EachAxisFactory, MakesAStyleOfItsOwnWhereTheIdExists) {
  graph.addStyle(ChartString(styleIdOf(GetParam().id).c_str()));
  add();
  EXPECT_EQ(onlyAxis().getStyle(), visualization.getStyles().front()->getStyles().at(1));
}

TEST_P(EachAxisFactory, GivesTheAxisNoId) {
  add();
  EXPECT_EQ(attribute(&onlyAxis(), u"id"), "(absent)");
}

TEST_P(EachAxisFactory, GivesTheAxisItsTicks) {
  add();
  EXPECT_NE(onlyAxis().getMajorTicks(), nullptr);
}

TEST_P(EachAxisFactory, WritesTheLabel) {
  add(u"Body mass");
  EXPECT_EQ(labelText(onlyAxis()), "Body mass");
}

TEST_P(EachAxisFactory, MakesNoLabelForAnEmptyText) {
  add(u"");
  EXPECT_EQ(onlyAxis().getLabel(), nullptr);
}

TEST_P(EachAxisFactory, RepeatsInTheFirstWayAndCombinesLabels) {
  add();
  EXPECT_EQ(attribute(&onlyAxis(), u"repeat"), "0");
  EXPECT_EQ(attribute(&onlyAxis(), u"combineAxisLabels"), "true");
}

TEST_P(EachAxisFactory, FindsItsAxisAgain) {
  XAxis const first = add();
  XAxis const second = add();
  EXPECT_EQ(second.getImplementation(), first.getImplementation());
  EXPECT_EQ(elementsOf(visualization, u"axis").size(), 1u);
}

TEST_P(EachAxisFactory, MakesNoFurtherStyleForAnAxisThatExists) {
  add();
  auto const before = styleIds(visualization);
  add();
  EXPECT_EQ(styleIds(visualization), before);
}

TEST_P(EachAxisFactory, ReplacesTheTextOfALabelThatExists) {
  add(u"Mass");
  add(u"Body mass");
  EXPECT_EQ(elementsOf(visualization, u"label").size(), 1u);
  EXPECT_EQ(labelText(onlyAxis()), "Body mass");
}

TEST_P(EachAxisFactory, KeepsTheLabelWhereTheNewTextIsEmpty) {
  add(u"Mass");
  add(u"");
  EXPECT_EQ(labelText(onlyAxis()), "Mass");
}

TEST_P(EachAxisFactory, WritesRepeatAndCombinationAgainAtEachCall) {
  add();
  onlyAxis().setRepeat(LumoAxis::Repeat1);
  onlyAxis().setCombineAxisLabels(false);
  add();
  EXPECT_EQ(attribute(&onlyAxis(), u"repeat"), "0");
  EXPECT_EQ(attribute(&onlyAxis(), u"combineAxisLabels"), "true");
}

TEST_P(EachAxisFactory, LetsAFailureOfTheCoordinatesPass) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_THROW(add(), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_P(EachAxisFactory, LetsAFailureOfTheAxisPass) {
  makeDimensions(3);
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_THROW(add(), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_P(EachAxisFactory, LetsTheHostsUnwindingSignalPass) {
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(add(), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_P(EachAxisFactoryWithoutGraph, FailsForTheCallerWithoutAReport) {
  EXPECT_THROW(GetParam().add(attached, u"label"), ChartException);
  expectNoReport(recorder);
}

TEST_P(EachAxisFactoryWithoutGraph, ChangesNothing) {
  std::string const before = document.AsUTF8();
  EXPECT_THROW(GetParam().add(attached, u"label"), ChartException);
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(AxesWithoutGraph, AnEmptyYDimensionIsReportedUnderItsOwnName) {
  XGraph attached(visualization);
  EXPECT_NO_THROW(attached.AddEmptyYDimension());
  expectGuardReport(recorder, "Error in XGraph::AddEmptyYDimension()");
}

TEST_F(PrimaryXAxis, TakesTheFirstAxisWhateverItsTransform) {
  LumoAxis* const first = makeDimensions(1).getDimensions().front()->addAxis();
  first->setTransform(LumoAxis::TransformDerived);
  XAxis const axis = graph.AddPrimaryXAxis(u"");
  EXPECT_EQ(axis.getImplementation(), first);
}

TEST_F(PrimaryXAxis, TakesTheFirstOfSeveralAxes) {
  LumoDimension* const dimension = makeDimensions(1).getDimensions().front();
  LumoAxis* const first = dimension->addAxis();
  dimension->addAxis();
  XAxis const axis = graph.AddPrimaryXAxis(u"");
  EXPECT_EQ(axis.getImplementation(), first);
}

TEST_F(PrimaryXAxis, IsMadeInAFixedOrder) {
  ChangeLog log(document);
  graph.AddPrimaryXAxis(u"x");
  EXPECT_THAT(
      log.linesOf({"graph", "coordinates", "dimension", "axis"}),
      ElementsAre("graph adds coordinates", "coordinates id=coordinates0", "coordinates adds dimension",
                  "dimension adds axis", "axis style=axis_axisx_1s", "axis adds majorTicks",
                  "axis adds label", "axis repeat=0", "axis combineAxisLabels=true"));
}

TEST_F(PrimaryXAxis, IsOnTheUsualSideAndPrimary) {
  graph.AddPrimaryXAxis(u"");
  EXPECT_EQ(attribute(axes(0).front(), u"opposite"), "(absent)");
  EXPECT_EQ(attribute(axes(0).front(), u"transform"), "(absent)");
}

TEST_F(PrimaryXAxis, FailsForTheCallerWhereItsDimensionCouldNotBeMade) {
  graph.getGraph()->addCoordinates(u"coordinates0");
  recorder.clear();
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_THROW(graph.AddPrimaryXAxis(u""), ChartException);
  expectGuardReport(recorder, "Error in XBaseElement::getXDimension()");
}

TEST_F(YAxes, StandInTheSecondDimension) {
  graph.AddPrimaryYAxis(u"");
  graph.AddDerivedYAxis(u"", false);
  EXPECT_THAT(axes(0), IsEmpty());
  EXPECT_EQ(axes(1).size(), 2u);
}

TEST_F(YAxes, HaveNoTransformWrittenOnThePrimaryOne) {
  graph.AddPrimaryYAxis(u"");
  EXPECT_EQ(attribute(axes(1).front(), u"transform"), "(absent)");
  EXPECT_EQ(axes(1).front()->getTransform(), LumoAxis::TransformPrimary);
}

TEST_F(YAxes, HaveThePrimaryOneOnTheUsualSide) {
  graph.AddPrimaryYAxis(u"");
  EXPECT_EQ(attribute(axes(1).front(), u"opposite"), "(absent)");
}

TEST_F(YAxes, HaveTheDerivedOneOnTheOppositeSide) {
  graph.AddDerivedYAxis(u"", false);
  EXPECT_TRUE(axes(1).front()->getOpposite());
  EXPECT_EQ(attribute(axes(1).front(), u"transform"), "1");
}

TEST_F(YAxes, DoNotDependOnTheFlagOfTheDerivedOne) {
  graph.AddDerivedYAxis(u"Share", false);
  std::string const without = document.AsUTF8();
  LumoDocument other;
  XGraph with(*other.getVisualization(), nullptr);
  with.AddDerivedYAxis(u"Share", true);
  EXPECT_EQ(other.AsUTF8(), without);
}

TEST_F(YAxes, HaveThePrimaryOneBehindADerivedOneThatCameFirst) {
  graph.AddDerivedYAxis(u"", false);
  XAxis const primary = graph.AddPrimaryYAxis(u"");
  ASSERT_EQ(axes(1).size(), 2u);
  EXPECT_EQ(primary.getImplementation(), axes(1)[1]);
  EXPECT_EQ(axes(1)[0]->getTransform(), LumoAxis::TransformDerived);
  EXPECT_EQ(utf8(axes(1)[1]->getStyle()->getId()), "axis_axisy_1s");
}

TEST_F(YAxes, HaveTheDerivedOneBehindAPrimaryOneThatCameFirst) {
  graph.AddPrimaryYAxis(u"");
  XAxis const derived = graph.AddDerivedYAxis(u"", false);
  ASSERT_EQ(axes(1).size(), 2u);
  EXPECT_EQ(derived.getImplementation(), axes(1)[1]);
  EXPECT_EQ(axes(1)[0]->getTransform(), LumoAxis::TransformPrimary);
  EXPECT_TRUE(axes(1)[1]->getOpposite());
}

TEST_F(YAxes, AreFoundAgainInEitherOrder) {
  XAxis const derived = graph.AddDerivedYAxis(u"", false);
  XAxis const primary = graph.AddPrimaryYAxis(u"");
  EXPECT_EQ(graph.AddDerivedYAxis(u"", false).getImplementation(), derived.getImplementation());
  EXPECT_EQ(graph.AddPrimaryYAxis(u"").getImplementation(), primary.getImplementation());
  EXPECT_EQ(axes(1).size(), 2u);
}

TEST_F(YAxes, TakeTheFirstPrimaryOneOfTheList) {
  LumoDimension* const dimension = makeDimensions(2).getDimensions().back();
  dimension->addAxis()->setTransform(LumoAxis::TransformDerived);
  LumoAxis* const first = dimension->addAxis();
  dimension->addAxis();
  EXPECT_EQ(graph.AddPrimaryYAxis(u"").getImplementation(), first);
}

TEST_F(YAxes, TakeTheFirstOneOfTheListThatIsNotPrimaryForDerived) {
  LumoDimension* const dimension = makeDimensions(2).getDimensions().back();
  dimension->addAxis();
  LumoAxis* const first = dimension->addAxis();
  first->setTransform(static_cast<LumoAxis::ENUM_transform>(3));
  dimension->addAxis()->setTransform(LumoAxis::TransformDerived);
  EXPECT_EQ(graph.AddDerivedYAxis(u"", false).getImplementation(), first);
}

TEST_F(YAxes, TurnAnAxisOfAnotherTransformIntoADerivedOne) {
  LumoAxis* const axis = makeDimensions(2).getDimensions().back()->addAxis();
  axis->setTransform(static_cast<LumoAxis::ENUM_transform>(3));
  graph.AddDerivedYAxis(u"", false);
  EXPECT_EQ(axis->getTransform(), LumoAxis::TransformDerived);
}

TEST_F(YAxes, LeaveSideAndStyleOfADerivedOneThatExists) {
  LumoAxis* const axis = makeDimensions(2).getDimensions().back()->addAxis();
  axis->setTransform(LumoAxis::TransformDerived);
  graph.AddDerivedYAxis(u"", false);
  EXPECT_FALSE(axis->getOpposite());
  EXPECT_EQ(axis->getStyle(), nullptr);
  EXPECT_THAT(styleIds(visualization), Not(Contains("axis_axisy_2s")));
}

TEST_F(YAxes, TurnTheNewDerivedOneRoundBehindItsStyleAndThenGiveItItsTransform) {
  makeDimensions(2);
  ChangeLog log(document);
  graph.AddDerivedYAxis(u"Share", false);
  EXPECT_THAT(
      log.linesOf({"dimension", "axis"}),
      ElementsAre("dimension adds axis", "axis style=axis_axisy_2s", "axis opposite=true", "axis transform=1",
                  "axis adds majorTicks", "axis adds label", "axis repeat=0", "axis combineAxisLabels=true"));
}

TEST_F(YAxes, WriteTheTransformOfADerivedOneAgainAtEachCall) {
  graph.AddDerivedYAxis(u"", false);
  ChangeLog log(document);
  graph.AddDerivedYAxis(u"", false);
  EXPECT_EQ(log.linesOf({"axis"}).size(), 3u) << "transform, repeat and combination";
}

TEST_F(YAxes, FailForTheCallerWhereTheirDimensionCouldNotBeMade) {
  makeDimensions(1);
  for (auto const& factory : {primaryY, derivedY}) {
    recorder.clear();
    ChangeTrap const trap(document, 1, throwOrdinaryFailure());
    EXPECT_THROW(factory.add(graph, u""), ChartException) << factory.name;
    expectGuardReport(recorder, "Error in XBaseElement::getYDimension()");
  }
}

TEST_F(ZAxis, AddsTwoDimensionsToOne) {
  LumoDimension const* const first = makeDimensions(1).getDimensions().front();
  graph.AddZAxis(u"");
  ASSERT_EQ(dimensions().size(), 3u);
  EXPECT_EQ(dimensions().front(), first);
  EXPECT_EQ(axes(2).size(), 1u);
}

TEST_F(ZAxis, StandsOnTheTrueThirdDimension) {
  LumoDimension* const second = makeDimensions(3).getDimensions().at(1);
  second->addAxis();
  XAxis const axis = graph.AddZAxis(u"");
  EXPECT_EQ(axis.getImplementation(), axes(2).front());
}

TEST_F(ZAxis, StandsOnTheThirdOfFourDimensions) {
  makeDimensions(4);
  graph.AddZAxis(u"");
  EXPECT_EQ(axes(2).size(), 1u);
  EXPECT_THAT(axes(3), IsEmpty());
}

TEST_F(ZAxis, AddsNoAxisAtTheSecondCall) {
  graph.AddZAxis(u"");
  graph.AddZAxis(u"");
  EXPECT_EQ(dimensions().size(), 3u);
  EXPECT_EQ(axes(2).size(), 1u);
}

TEST_F(ZAxis, LetsAFailureOfItsDimensionPass) {
  makeDimensions(2);
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_THROW(graph.AddZAxis(u""), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(EmptyYDimension, LeavesTwoDimensionsWithoutAxesInANewGraph) {
  graph.AddEmptyYDimension();
  EXPECT_THAT(ids(graph.getGraph()->getCoordinatess()), ElementsAre("coordinates0"));
  EXPECT_EQ(dimensions().size(), 2u);
  EXPECT_EQ(elementsOf(visualization, u"axis").size(), 0u);
}

TEST_F(EmptyYDimension, MakesNoStyle) {
  graph.AddEmptyYDimension();
  EXPECT_THAT(styleIds(visualization), IsEmpty());
}

TEST_F(EmptyYDimension, AddsTheSecondDimensionToOneThatExists) {
  graph.AddPrimaryXAxis(u"");
  graph.AddEmptyYDimension();
  EXPECT_EQ(dimensions().size(), 2u);
  EXPECT_EQ(axes(0).size(), 1u);
}

TEST_F(EmptyYDimension, AddsNothingWhereItExists) {
  graph.AddPrimaryYAxis(u"");
  std::string const before = document.AsUTF8();
  graph.AddEmptyYDimension();
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(EmptyYDimension, ReportsCoordinatesThatCouldNotBeMadeAndMakesNoDimension) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_NO_THROW(graph.AddEmptyYDimension());
  expectGuardReport(recorder, "Error in XGraph::AddEmptyYDimension()");
  EXPECT_EQ(elementsOf(visualization, u"dimension").size(), 0u);
}

TEST_F(EmptyYDimension, ReportsADimensionThatCouldNotBeMadeInTheNameOfItsGetter) {
  makeDimensions(1);
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_NO_THROW(graph.AddEmptyYDimension());
  expectGuardReport(recorder, "Error in XBaseElement::getYDimension()");
}

TEST_F(EmptyYDimension, LetsTheHostsUnwindingSignalPass) {
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(graph.AddEmptyYDimension(), VexaGoToCaller);
  expectNoReport(recorder);
}
