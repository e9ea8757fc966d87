// Icicle plots.

#include "built_chart.h"
#include "customizecharts.h"
#include "every_failure.h"

#include "model/elements.h"
#include "model/graph.h"
#include "model/style.h"

#include <gmock/gmock.h>

#include <ostream>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Icicles : public BuiltChartTest {
 protected:
  bool customize(bool transposed, unsigned int count) {
    return customizeCharts(visualization).customizeIciclePlots(transposed, count);
  }

  std::vector<std::string> writes(bool transposed, unsigned int count) {
    return writesOf([&] { customize(transposed, count); });
  }
};

/// With two dimensions.
class ScaledIcicles : public Icicles {
 protected:
  LumoCoordinates& coordinates = *graph.addCoordinates(u"coordinates0");
  LumoDimension& first = *coordinates.addDimension();
  LumoDimension& second = *coordinates.addDimension();
};

TEST_F(ScaledIcicles, HangDownFromTheTop) {
  graph.addInterval(u"bars");
  EXPECT_THAT(writes(false, 60),
              ElementsAre("visualization adds style", "style id=intervalstyle",
                          "interval style=intervalstyle", "style size=100%", "style stroke_width=0.1pt",    //
                          "dimension adds scale", "scale method=1", "scale origin=0", "scale invert=true",  //
                          "dimension upperMargin=0%", "dimension lowerMargin=5%",                           //
                          "dimension upperMargin=5px", "dimension lowerMargin=5px",                         //
                          "visualization adds location", "location part=0", "location value=0px",           //
                          "visualization adds location", "location part=2", "location value=0px",           //
                          "visualization adds location", "location part=3", "location value=500px",         //
                          "visualization adds location", "location part=1", "location value=625px"));
}

TEST_F(ScaledIcicles, LieToTheSideWhereTransposed) {
  graph.addInterval(u"bars");
  EXPECT_THAT(writes(true, 60),
              ElementsAre("visualization adds style", "style id=intervalstyle",
                          "interval style=intervalstyle", "style size=100%", "style stroke_width=0.1pt",  //
                          "dimension adds scale", "scale method=1", "scale origin=0",                     //
                          "coordinates adds transposeTransform",                                          //
                          "dimension upperMargin=0%", "dimension lowerMargin=5%",                         //
                          "dimension upperMargin=5px", "dimension lowerMargin=5px",                       //
                          "visualization adds location", "location part=0", "location value=0px",         //
                          "visualization adds location", "location part=2", "location value=0px",         //
                          "visualization adds location", "location part=1", "location value=625px",       //
                          "visualization adds location", "location part=3", "location value=500px"));
}

TEST_F(ScaledIcicles, HaveMarginsByDimension) {
  customize(false, 60);
  EXPECT_EQ(attribute(&first, u"upperMargin"), "5px");
  EXPECT_EQ(attribute(&first, u"lowerMargin"), "5px");
  EXPECT_EQ(attribute(&second, u"upperMargin"), "0%");
  EXPECT_EQ(attribute(&second, u"lowerMargin"), "5%");
  EXPECT_EQ(first.getScale(), nullptr);
}

TEST_F(ScaledIcicles, LeaveTheThirdDimensionAndOtherCoordinatesAlone) {
  LumoDimension const& third = *coordinates.addDimension();
  LumoCoordinates& other = *graph.addCoordinates(u"coordinates1");
  LumoDimension const& others = *other.addDimension();
  other.addDimension();
  customize(true, 60);
  EXPECT_THAT(attributeNames(third), IsEmpty());
  EXPECT_THAT(attributeNames(others), IsEmpty());
  EXPECT_THAT(other.getTransposeTransforms(), IsEmpty());
}

TEST_F(ScaledIcicles, AreScaledAndPlacedWithoutIntervals) {
  EXPECT_FALSE(customize(false, 60));
  EXPECT_NE(second.getScale(), nullptr);
  EXPECT_EQ(visualization.getLocations().size(), 4u);
  EXPECT_EQ(visualization.getStyles().size(), 1u);
}

TEST_F(Icicles, AreToldOfByTheirIntervals) {
  EXPECT_FALSE(customize(false, 60));
  graph.addPoint(u"point");
  EXPECT_FALSE(customize(false, 60));
  graph.addInterval(u"bars");
  EXPECT_TRUE(customize(false, 60));
}

TEST_F(Icicles, HaveTheStyleOfTheFirstIntervals) {
  LumoInterval const& bars = *graph.addInterval(u"bars");
  LumoInterval const& others = *graph.addInterval(u"others");
  customize(false, 60);
  ASSERT_EQ(visualization.getStyles().size(), 2u);
  EXPECT_EQ(bars.getStyle(), visualization.getStyles()[1]);
  EXPECT_EQ(others.getStyle(), nullptr);
}

TEST_F(Icicles, GetAnotherStyleAtEachCall) {
  graph.addInterval(u"bars");
  customize(false, 60);
  customize(false, 60);
  EXPECT_EQ(visualization.getStyles().size(), 3u);
  EXPECT_EQ(visualization.getLocations().size(), 8u);
}

TEST_F(Icicles, ArePlacedWithoutCoordinates) {
  EXPECT_FALSE(customize(true, 60));
  EXPECT_EQ(visualization.getLocations().size(), 4u);
}

TEST_F(Icicles, AreNotScaledInOneDimension) {
  LumoCoordinates& coordinates = *graph.addCoordinates(u"coordinates0");
  LumoDimension const& only = *coordinates.addDimension();
  customize(true, 60);
  EXPECT_THAT(attributeNames(only), IsEmpty());
  EXPECT_THAT(coordinates.getTransposeTransforms(), IsEmpty());
  EXPECT_EQ(visualization.getLocations().size(), 4u);
}

TEST_F(Icicles, NeedExactlyOneGraph) {
  graph.addInterval(u"bars");
  visualization.addGraph(u"second");
  EXPECT_THAT(writes(false, 60), IsEmpty());
  EXPECT_FALSE(customize(false, 60));
  LumoDocument empty;
  EXPECT_FALSE(customizeCharts(*empty.getVisualization()).customizeIciclePlots(true, 60));
  EXPECT_THAT(empty.getVisualization()->getLocations(), IsEmpty());
}

// --- The size

struct Count {
  unsigned int count;
  char const* width;
  char const* height;
};
void PrintTo(Count const& row, std::ostream* out) { *out << row.count; }

class SizeOfIcicles : public Icicles, public ::testing::WithParamInterface<Count> {
 protected:
  std::string valueOf(LumoLocation::ENUM_part part) const {
    for (LumoLocation const* location : visualization.getLocations()) {
      if (location->getPart() == part) return attribute(location, u"value");
    }
    return "(no location)";
  }
};

TEST_P(SizeOfIcicles, GrowsToTheRight) {
  customize(false, GetParam().count);
  EXPECT_EQ(valueOf(LumoLocation::PartRight), GetParam().width);
  EXPECT_EQ(valueOf(LumoLocation::PartBottom), "500px");
}

TEST_P(SizeOfIcicles, GrowsDownWhereTransposed) {
  customize(true, GetParam().count);
  EXPECT_EQ(valueOf(LumoLocation::PartRight), "625px");
  EXPECT_EQ(valueOf(LumoLocation::PartBottom), GetParam().height);
}

INSTANTIATE_TEST_SUITE_P(Counts, SizeOfIcicles,
                         ::testing::Values(Count{0, "625px", "500px"}, Count{30, "625px", "500px"},
                                           Count{59, "625px", "500px"}, Count{60, "625px", "500px"},
                                           Count{61, "635px", "508px"}, Count{100, "1041px", "833px"},
                                           Count{120, "1250px", "1000px"}, Count{999, "10406px", "8325px"},
                                           Count{1000, "10416px", "8333px"}, Count{1001, "10416px", "8333px"},
                                           Count{2000, "10416px", "8333px"},
                                           Count{4294967295u, "10416px", "8333px"}),
                         [](auto const& tested) { return "Of" + std::to_string(tested.param.count); });

TEST_F(Icicles, LetEveryFailurePassAndKeepWhatWasWritten) {
  for (bool const transposed : {false, true}) {
    FailingOperation const operation = {
        [](ChartOfOneRun& chart) {
          LumoGraph& made = *chart.graph.getGraph();
          made.addInterval(u"bars");
          LumoCoordinates& coordinates = *made.addCoordinates(u"coordinates0");
          coordinates.addDimension();
          coordinates.addDimension();
        },
        [transposed](ChartOfOneRun& chart) {
          customizeCharts(*chart.document.getVisualization()).customizeIciclePlots(transposed, 70);
        }};
    expectFailuresToPass(recorder, operation);
  }
}

}  // namespace
}  // namespace kestrel::test
