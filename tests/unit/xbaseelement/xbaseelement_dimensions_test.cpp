#include "xbaseelement.h"

#include "chart_test.h"
#include "schema_validator.h"

#include "model/document.h"
#include "model/graph.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using Getter = LumoDimension* (XBaseElement::*)(LumoCoordinates&, bool);

constexpr int none = -1;

struct DimensionCase {
  char const* name;
  Getter get;
  bool create;
  std::size_t before;
  std::size_t after;
  /// Position of the result among the dimensions, or `none` for null.
  int result;
};

class Dimension : public ChartTest, public ::testing::WithParamInterface<DimensionCase> {
 protected:
  Dimension() {
    for (std::size_t count = 0; count < GetParam().before; ++count) coordinates.addDimension();
  }

  LumoDocument document;
  LumoCoordinates& coordinates =
      *document.getVisualization()->addGraph(u"graph")->addCoordinates(u"coordinates");
  XBaseElement wrapper{coordinates};
};

TEST_P(Dimension, IsFoundOrMade) {
  DimensionCase const& expected = GetParam();
  LumoDimension* const result = (wrapper.*expected.get)(coordinates, expected.create);
  auto const dimensions = coordinates.getDimensions();
  EXPECT_EQ(dimensions.size(), expected.after);
  LumoDimension* const position =
      expected.result == none ? nullptr : dimensions.at(static_cast<std::size_t>(expected.result));
  EXPECT_EQ(result, position);
  expectNoReport(recorder);
  EXPECT_THAT(schemaErrors(document.AsUTF8()), ::testing::IsEmpty());
}

constexpr auto x = &XBaseElement::getXDimension;
constexpr auto y = &XBaseElement::getYDimension;
constexpr auto z = &XBaseElement::getZDimension;

constexpr DimensionCase cases[] = {
    {"XOfNone", x, false, 0, 0, none},
    {"XOfNoneCreated", x, true, 0, 1, 0},
    {"XOfOne", x, false, 1, 1, 0},
    {"XOfOneCreated", x, true, 1, 1, 0},
    {"XOfThree", x, true, 3, 3, 0},
    {"YOfNone", y, false, 0, 0, none},
    {"YOfNoneCreated", y, true, 0, 2, 1},
    {"YOfOne", y, false, 1, 1, none},
    {"YOfOneCreated", y, true, 1, 2, 1},
    {"YOfTwo", y, false, 2, 2, 1},
    {"YOfTwoCreated", y, true, 2, 2, 1},
    {"YOfThree", y, true, 3, 3, 1},
    {"ZOfNone", z, false, 0, 0, none},
    {"ZOfNoneCreated", z, true, 0, 3, 2},
    {"ZOfOneCreated", z, true, 1, 3, 2},
    {"ZOfTwo", z, false, 2, 2, none},
    {"ZOfTwoCreated", z, true, 2, 3, 2},
    // The second one where all three exist.
    {"ZOfThree", z, false, 3, 3, 1},
    {"ZOfThreeCreated", z, true, 3, 3, 1},
    {"ZOfFour", z, true, 4, 4, 1},
};

INSTANTIATE_TEST_SUITE_P(Of, Dimension, ::testing::ValuesIn(cases),
                         [](auto const& test) { return std::string(test.param.name); });

class DimensionThatFails : public ChartTest {
 protected:
  LumoDocument document;
  LumoCoordinates& coordinates =
      *document.getVisualization()->addGraph(u"graph")->addCoordinates(u"coordinates");
  XBaseElement wrapper{coordinates};
};

TEST_F(DimensionThatFails, IsNullAndReported) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_EQ(wrapper.getYDimension(coordinates, true), nullptr);
  expectGuardReport(recorder, "Error in XBaseElement::getYDimension()");
}

TEST_F(DimensionThatFails, LeavesTheOnesThatWereMadeBefore) {
  ChangeTrap const trap(document, 2, throwOrdinaryFailure());
  EXPECT_EQ(wrapper.getZDimension(coordinates, true), nullptr);
  EXPECT_EQ(coordinates.getDimensions().size(), 1u);
}

}  // namespace
}  // namespace kestrel::test
