// Construction of the wrapper, and variables on the element's coordinates.

#include "element_fixture.h"

#include "host/messages.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;

TEST_F(ElementTest, ConstructionSetsLabelCollisionHandlingOne) {
  EXPECT_EQ(attribute(&model, u"labelCollisionHandling"), "1");
}

TEST_F(ElementTest, ConstructionReplacesAnotherLabelCollisionHandling) {
  model.setLabelCollisionHandling(CTElementType::LabelCollisionHandling2);
  XElement const again(model);
  EXPECT_EQ(attribute(&model, u"labelCollisionHandling"), "1");
}

TEST_F(ElementTest, ConstructionSetsLabelCollisionHandlingOfEveryKindOfElement) {
  std::vector<CTElementType*> const elements = {graph.addArea(u"area"),         graph.addEdge(u"edge"),
                                                graph.addInterval(u"interval"), graph.addLine(u"line"),
                                                graph.addPath(u"path"),         graph.addPoint(u"point"),
                                                graph.addPolygon(u"polygon"),   graph.addSchema(u"schema")};
  for (CTElementType* each : elements) {
    XElement const wrapper(*each);
    EXPECT_EQ(attribute(each, u"labelCollisionHandling"), "1") << utf8(each->getId());
  }
}

TEST_F(ElementTest, ConstructionWritesNothingElse) {
  LumoPoint& other = *graph.addPoint(u"other");
  EXPECT_THAT(writesOf([&] { XElement const wrapper(other); }),
              ElementsAre("point labelCollisionHandling=1"));
}

TEST_F(ElementTest, AFailureOfConstructionReachesTheCaller) {
  EXPECT_THROW(failAtChange(1, [&] { XElement const wrapper(model); }), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(ElementTest, WrapsTheModelElementThatItWasGiven) { EXPECT_EQ(element.getImplementation(), &model); }

TEST_F(ElementTest, WritesItsTextByTheModel) { EXPECT_EQ(element.AsUTF8(), model.AsUTF8()); }

/// AddX, AddY and AddZ differ only in the coordinate that they add.
struct Axis {
  std::string name;
  char16_t const* tag;
  void (XElement::*add)(XVariable const&);
  CTCoordinate* (CTElementType::*get)() const;
};

void PrintTo(Axis const& axis, std::ostream* stream) { *stream << axis.name; }

class ElementCoordinateTest : public ElementTest, public ::testing::WithParamInterface<Axis> {
 protected:
  void add(XVariable const& variable) { (element.*GetParam().add)(variable); }
  CTCoordinate* first() const { return (model.*GetParam().get)(); }
  std::vector<xercesc::DOMElement*> all() const { return elementsOf(model, GetParam().tag); }
  std::string context() const { return "Error in XElement::Add" + GetParam().name + "()"; }
};

INSTANTIATE_TEST_SUITE_P(Axes, ElementCoordinateTest,
                         ::testing::Values(Axis{"X", u"x", &XElement::AddX, &CTElementType::getX},
                                           Axis{"Y", u"y", &XElement::AddY, &CTElementType::getY},
                                           Axis{"Z", u"z", &XElement::AddZ, &CTElementType::getZ}),
                         [](auto const& row) { return row.param.name; });

TEST_P(ElementCoordinateTest, BindsANewCoordinateToTheVariable) {
  add(age);
  ASSERT_NE(first(), nullptr);
  EXPECT_EQ(first()->getVariable(), &ageModel);
  EXPECT_EQ(attribute(first(), u"variable"), "age");
}

TEST_P(ElementCoordinateTest, AddsNoOtherCoordinate) {
  add(age);
  EXPECT_THAT(childTags(model), ElementsAre(utf8(GetParam().tag)));
}

TEST_P(ElementCoordinateTest, TwoCallsLeaveTwoCoordinatesInTheOrderOfTheCalls) {
  add(sex);
  add(age);
  ASSERT_EQ(all().size(), 2u);
  EXPECT_EQ(attribute(all()[0], u"variable"), "sex");
  EXPECT_EQ(attribute(all()[1], u"variable"), "age");
}

TEST_P(ElementCoordinateTest, TheSameVariableMayBeAddedTwice) {
  add(age);
  add(age);
  EXPECT_EQ(all().size(), 2u);
}

TEST_P(ElementCoordinateTest, ACoordinateThatTheModelHadStaysFirst) {
  add(sex);
  CTCoordinate* const before = first();
  add(age);
  EXPECT_EQ(first(), before);
  EXPECT_EQ(before->getVariable(), &sexModel);
}

TEST_P(ElementCoordinateTest, AddsTheCoordinateBeforeItIsBound) {
  std::string const tag = utf8(GetParam().tag);
  EXPECT_THAT(writesOf([&] { add(age); }), ElementsAre("point adds " + tag, tag + " variable=age"));
}

TEST_P(ElementCoordinateTest, AFailureIsReportedOnce) {
  failAtChange(1, [&] { add(age); });
  expectGuardReport(recorder, context());
}

TEST_P(ElementCoordinateTest, AFailureInTheBindingLeavesTheCoordinate) {
  failAtChange(2, [&] { add(age); });
  expectGuardReport(recorder, context());
  ASSERT_EQ(all().size(), 1u);
  EXPECT_EQ(attribute(all()[0], u"variable"), "(absent)");
}

TEST_P(ElementCoordinateTest, TheUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { add(age); }), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_P(ElementCoordinateTest, TakesVariablesOfEveryKind) {
  LumoDerivedVariable& derivedModel = *visualization.addDerivedVariable(u"derived");
  add(XVariable(derivedModel));
  EXPECT_EQ(first()->getVariable(), &derivedModel);
}

TEST_F(ElementTest, TheThreeAxesAreIndependent) {
  element.AddZ(age);
  element.AddX(sex);
  element.AddY(age);
  EXPECT_THAT(childTags(model), ElementsAre("z", "x", "y"));
}

TEST_F(ElementTest, TwoWrappersWorkOnOneElement) {
  XElement other(model);
  element.AddX(age);
  other.AddX(sex);
  EXPECT_EQ(elementsOf(model, u"x").size(), 2u);
}

}  // namespace
}  // namespace kestrel::test
