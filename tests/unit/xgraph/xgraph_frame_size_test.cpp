// The size of the whole chart.

#include "change_log.h"
#include "every_failure.h"
#include "graph_fixture.h"

#include "host/messages.h"
#include "model/graph.h"
#include "model/labels.h"

#include <gmock/gmock.h>

#include <limits>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// The two sizes of a chart, by the locations that each writes.
struct Size {
  char const* name;
  void (XGraph::*set)(double inches);
  LumoLocation::ENUM_part start;
  LumoLocation::ENUM_part end;
  LumoLocation::ENUM_part extent;
  std::string failure;
};

void PrintTo(Size const& row, std::ostream* out) { *out << row.name; }

Size const width{"Width",
                 &XGraph::setOuterFrameWidth,
                 LumoLocation::PartLeft,
                 LumoLocation::PartRight,
                 LumoLocation::PartWidth,
                 "setOuterFrameWidth fatal error"};
Size const height{"Height",
                  &XGraph::setOuterFrameHeight,
                  LumoLocation::PartTop,
                  LumoLocation::PartBottom,
                  LumoLocation::PartHeight,
                  "setOuterFrameHeight fatal error"};

class EachSize : public GraphTest, public testing::WithParamInterface<Size> {
 protected:
  void set(double inches) { (graph.*GetParam().set)(inches); }

  /// The text that a chart without locations gets.
  std::string sizeOf(double inches) {
    LumoDocument other;
    XGraph chart(*other.getVisualization(), nullptr);
    (chart.*GetParam().set)(inches);
    return attribute(onlyElementOf(*other.getVisualization(), u"location"), u"value");
  }

  /// The part and the value of each location of the chart.
  std::vector<std::string> locations() const {
    std::vector<std::string> texts;
    for (LumoLocation const* location : visualization.getLocations())
      texts.push_back(attribute(location, u"part") + ": " + attribute(location, u"value"));
    return texts;
  }

  static std::string text(LumoLocation::ENUM_part part, std::string const& value) {
    return std::to_string(static_cast<int>(part)) + ": " + value;
  }

  FailingOperation onLocations(std::vector<LumoLocation::ENUM_part> const& parts) const {
    return {[parts](ChartOfOneRun& chart) {
              for (auto const part : parts) chart.document.getVisualization()->addLocation(part);
            },
            [](ChartOfOneRun& chart) { (chart.graph.*GetParam().set)(1.2); }};
  }

  /// Where the size is added, and where it exists.
  std::vector<FailingOperation> everyRoad() const {
    Size const& size = GetParam();
    return {onLocations({size.start, size.end}), onLocations({size.start, size.end, size.extent})};
  }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, EachSize, testing::Values(width, height), caseName<Size>);

TEST(FrameParts, HaveFixedValues) {
  EXPECT_EQ(static_cast<int>(LumoLocation::PartLeft), 0);
  EXPECT_EQ(static_cast<int>(LumoLocation::PartRight), 1);
  EXPECT_EQ(static_cast<int>(LumoLocation::PartTop), 2);
  EXPECT_EQ(static_cast<int>(LumoLocation::PartBottom), 3);
  EXPECT_EQ(static_cast<int>(LumoLocation::PartWidth), 4);
  EXPECT_EQ(static_cast<int>(LumoLocation::PartHeight), 5);
}

TEST_P(EachSize, IsFiveHundredAndSixPixelsForAnInch) {
  EXPECT_EQ(sizeOf(1.0), "506px");
  EXPECT_EQ(sizeOf(2.0), "1012px");
}

TEST_P(EachSize, IsTruncatedOnceAHalfIsAdded) {
  EXPECT_EQ(sizeOf(1.1), "557px");   // 557.1
  EXPECT_EQ(sizeOf(1.2), "607px");   // 607.7
  EXPECT_EQ(sizeOf(1.25), "633px");  // 633.0
}

TEST_P(EachSize, IsAtLeastHalfAnInch) {
  EXPECT_EQ(sizeOf(0.5), "253px");
  EXPECT_EQ(sizeOf(0.1), "253px");
  EXPECT_EQ(sizeOf(0.0), "253px");
  EXPECT_EQ(sizeOf(-3.0), "253px");
}

TEST_P(EachSize, IsAtMostTenInches) {
  EXPECT_EQ(sizeOf(10.0), "5060px");
  EXPECT_EQ(sizeOf(10.001), "5060px");
  EXPECT_EQ(sizeOf(50.0), "5060px");
  EXPECT_EQ(sizeOf(std::numeric_limits<double>::max()), "5060px");
}

TEST_P(EachSize, IsAsGivenJustWithinItsLimits) {
  EXPECT_EQ(sizeOf(0.502), "254px");   // 254.512
  EXPECT_EQ(sizeOf(9.998), "5059px");  // 5059.488
}

TEST_P(EachSize, IsLimitedWhereItIsInfinite) {
  EXPECT_EQ(sizeOf(infinity), "5060px");
  EXPECT_EQ(sizeOf(-infinity), "253px");
}

TEST_P(EachSize, IsTheSmallestWhereItIsNoNumber) {
  EXPECT_EQ(sizeOf(std::numeric_limits<double>::quiet_NaN()), "253px");
  EXPECT_EQ(sizeOf(-std::numeric_limits<double>::quiet_NaN()), "253px");
}

TEST_P(EachSize, AddsExactlyOneLocationWhereThereAreNone) {
  set(1.2);
  EXPECT_THAT(locations(), ElementsAre(text(GetParam().extent, "607px")));
}

TEST_P(EachSize, FillsANewLocationInAFixedOrder) {
  ChangeLog log(document);
  set(1.2);
  EXPECT_THAT(log.lines(), ElementsAre("visualization adds location",
                                       "location part=" + std::to_string(static_cast<int>(GetParam().extent)),
                                       "location value=607px", "location method=0"));
}

TEST_P(EachSize, AddsNoLocationWhereItsOwnExists) {
  visualization.addLocation(GetParam().extent);
  set(1.2);
  EXPECT_THAT(locations(), ElementsAre(text(GetParam().extent, "607px")));
}

TEST_P(EachSize, LeavesTheMethodOfALocationThatExists) {
  visualization.addLocation(GetParam().extent)->setMethod(LumoLocation::Method3);
  visualization.addLocation(GetParam().start);
  set(1.2);
  EXPECT_EQ(visualization.getLocations().at(0)->getMethod(), LumoLocation::Method3);
  EXPECT_EQ(attribute(visualization.getLocations().at(1), u"method"), "(absent)");
}

TEST_P(EachSize, ReplacesAnEarlierOne) {
  set(1.0);
  set(2.0);
  EXPECT_THAT(locations(), ElementsAre(text(GetParam().extent, "1012px")));
}

TEST_P(EachSize, PutsTheStartAtZeroAndTheEndAtTheSize) {
  visualization.addLocation(GetParam().start);
  visualization.addLocation(GetParam().end);
  set(1.2);
  EXPECT_THAT(locations(), ElementsAre(text(GetParam().start, "0px"), text(GetParam().end, "607px"),
                                       text(GetParam().extent, "607px")));
}

TEST_P(EachSize, IsAddedBehindAStartAlone) {
  visualization.addLocation(GetParam().start);
  set(1.2);
  EXPECT_THAT(locations(), ElementsAre(text(GetParam().start, "0px"), text(GetParam().extent, "607px")));
}

TEST_P(EachSize, WritesEveryLocationOfItsPartsInTheirOrder) {
  std::vector<std::string> expected;
  for (auto const part : {GetParam().extent, GetParam().end, GetParam().start, GetParam().extent,
                          GetParam().start, GetParam().end}) {
    visualization.addLocation(part);
    expected.push_back(text(part, part == GetParam().start ? "0px" : "607px"));
  }
  ChangeLog log(document);
  set(1.2);
  EXPECT_THAT(locations(), ElementsAreArray(expected));
  EXPECT_THAT(log.lines(), ElementsAre("location value=607px", "location value=607px", "location value=0px",
                                       "location value=607px", "location value=0px", "location value=607px"));
}

TEST_P(EachSize, LeavesTheLocationsOfTheOther) {
  Size const& other = GetParam().extent == width.extent ? height : width;
  for (auto const part : {other.start, other.end, other.extent})
    visualization.addLocation(part)->setValue(u"1px");
  set(1.2);
  EXPECT_THAT(locations(), ElementsAre(text(other.start, "1px"), text(other.end, "1px"),
                                       text(other.extent, "1px"), text(GetParam().extent, "607px")));
}

TEST_P(EachSize, StandsBesideTheOther) {
  Size const& other = GetParam().extent == width.extent ? height : width;
  (graph.*other.set)(2.0);
  set(1.0);
  EXPECT_THAT(locations(), ElementsAre(text(other.extent, "1012px"), text(GetParam().extent, "506px")));
}

TEST_P(EachSize, LeavesTheLocationsOfTheGraph) {
  graph.getGraph()->addLocation(GetParam().extent)->setValue(u"1px");
  set(1.2);
  EXPECT_EQ(attribute(graph.getGraph()->getLocations().at(0), u"value"), "1px");
  EXPECT_THAT(locations(), ElementsAre(text(GetParam().extent, "607px")));
}

TEST_P(EachSize, NeedsNoGraph) {
  LumoDocument other;
  XGraph attached(*other.getVisualization());
  (attached.*GetParam().set)(1.0);
  EXPECT_EQ(other.getVisualization()->getLocations().size(), 1u);
  expectNoReport(recorder);
}

TEST_P(EachSize, TouchesNoDataStore) {
  recorder.clear();
  set(1.0);
  EXPECT_THAT(recorder.lines(), IsEmpty());
}

TEST_P(EachSize, LogsAFailureWithoutTellingTheUserAndKeepsWhatWasWritten) {
  for (FailingOperation const& operation : everyRoad()) {
    expectFailuresToKeepWhatWasWritten(recorder, operation, [](kestrel::host::Recorder const& done) {
      EXPECT_THAT(done.failures(), ElementsAre(GetParam().failure));
      EXPECT_THAT(done.userMessages(), IsEmpty());
    });
  }
}

TEST_P(EachSize, LetsTheHostsUnwindingSignalPass) {
  for (FailingOperation const& operation : everyRoad())
    expectUnwindingToKeepWhatWasWritten(recorder, operation);
}
