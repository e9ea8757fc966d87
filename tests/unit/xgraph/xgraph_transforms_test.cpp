// The geometry of a whole chart.

#include "asking_graph.h"
#include "change_log.h"
#include "every_failure.h"
#include "graph_fixture.h"

#include "host/messages.h"
#include "model/graph.h"
#include "model/guides.h"
#include "model/paneling.h"
#include "model/style.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

class Transpose : public GraphTest {};
class SameRatio : public GraphTest {};
class Isotropic : public GraphTest {};

/// A view from a point in space.
class View : public GraphTest {
 protected:
  /// The ids of the planes and of the frame.
  std::vector<std::string> planesAndFrames() const {
    auto found = idsOf(visualization, u"planeGuide");
    for (std::string& id : idsOf(visualization, u"frameGuide")) found.push_back(std::move(id));
    return found;
  }
};

/// What the planes and the frame of a first view write, in order.
std::vector<std::string> const guideChanges = {
    "graph adds planeGuide", "planeGuide normal=2",       "planeGuide id=guide_xyplane_1",
    "style adds style",      "style id=guide_xyplane_1s", "planeGuide style=guide_xyplane_1s",
    "graph adds planeGuide", "planeGuide normal=1",       "planeGuide id=guide_xzplane_1",
    "style adds style",      "style id=guide_xzplane_1s", "planeGuide style=guide_xzplane_1s",
    "graph adds planeGuide", "planeGuide normal=0",       "planeGuide id=guide_yzplane_1",
    "style adds style",      "style id=guide_yzplane_1s", "planeGuide style=guide_yzplane_1s",
    "graph adds frameGuide", "frameGuide complete=false", "frameGuide id=guide_frame_1",
    "style adds style",      "style id=guide_frame_1s",   "frameGuide style=guide_frame_1s"};

FailingOperation const addView = {
    [](ChartOfOneRun& chart) { chart.graph.getGraph()->addCoordinates(u"coordinates0"); },
    [](ChartOfOneRun& chart) { chart.graph.make3D(8.5, 20.0, -45.0, 1.0); }};

/// Counts the calls of what an isotropic graph goes through.
class CountingGraph : public XGraph {
 public:
  using XGraph::XGraph;

  bool addSameRatioTransform(bool center) override {
    centers.push_back(center);
    return XGraph::addSameRatioTransform(center);
  }

  std::vector<bool> centers;
};

}  // namespace

TEST_F(Transpose, MakesTheCoordinates) {
  graph.transpose();
  EXPECT_THAT(ids(graph.getGraph()->getCoordinatess()), ElementsAre("coordinates0"));
  EXPECT_EQ(graph.getGraph()->getCoordinates(0)->getTransposeTransforms().size(), 1u);
}

TEST_F(Transpose, WorksOnTheFirstCoordinatesOnly) {
  LumoCoordinates* const first = graph.getGraph()->addCoordinates(u"first");
  LumoCoordinates* const second = graph.getGraph()->addCoordinates(u"second");
  graph.transpose();
  EXPECT_EQ(first->getTransposeTransforms().size(), 1u);
  EXPECT_THAT(second->getTransposeTransforms(), IsEmpty());
}

TEST_F(Transpose, AddsAnotherOneAtTheSecondCall) {
  graph.transpose();
  graph.transpose();
  EXPECT_EQ(graph.getGraph()->getCoordinates(0)->getTransposeTransforms().size(), 2u);
}

TEST_F(Transpose, MakesNoDimension) {
  graph.transpose();
  EXPECT_THAT(childTags(*graph.getGraph()->getCoordinates(0)), ElementsAre("transposeTransform"));
}

TEST_F(Transpose, WritesTheCoordinatesAndTheTransformOnly) {
  ChangeLog log(document);
  graph.transpose();
  EXPECT_THAT(log.lines(), ElementsAre("graph adds coordinates", "coordinates id=coordinates0",
                                       "coordinates adds transposeTransform"));
}

TEST_F(Transpose, ReportsAFailure) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_NO_THROW(graph.transpose());
  expectGuardReport(recorder, "Error in XGraph::transpose()");
}

TEST_F(Transpose, KeepsWhatWasWrittenBeforeEveryFailure) {
  FailingOperation const transposed = {[](ChartOfOneRun&) {},
                                       [](ChartOfOneRun& chart) { chart.graph.transpose(); }};
  expectFailuresToKeepWhatWasWritten(recorder, transposed, [](kestrel::host::Recorder const& done) {
    expectGuardReport(done, "Error in XGraph::transpose()");
  });
}

TEST_F(Transpose, LetsTheHostsUnwindingSignalPass) {
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(graph.transpose(), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(EmptyChartTest, ATranspositionWithoutGraphIsAReportedFailure) {
  XGraph attached(visualization);
  attached.transpose();
  expectGuardReport(recorder, "Error in XGraph::transpose()");
}

TEST_F(SameRatio, MakesTheCoordinates) {
  EXPECT_TRUE(graph.addSameRatioTransform(true));
  EXPECT_THAT(ids(graph.getGraph()->getCoordinatess()), ElementsAre("coordinates0"));
  EXPECT_EQ(graph.getGraph()->getCoordinates(0)->getSameRatioTransforms().size(), 1u);
}

TEST_F(SameRatio, IsAddedToAllCoordinates) {
  LumoCoordinates* const first = graph.getGraph()->addCoordinates(u"first");
  LumoCoordinates* const second = graph.getGraph()->addCoordinates(u"second");
  EXPECT_TRUE(graph.addSameRatioTransform(false));
  EXPECT_EQ(first->getSameRatioTransforms().size(), 1u);
  EXPECT_EQ(second->getSameRatioTransforms().size(), 1u);
  EXPECT_EQ(graph.getGraph()->getCoordinatess().size(), 2u);
}

TEST_F(SameRatio, SaysWhetherItIsCentred) {
  graph.addSameRatioTransform(true);
  graph.addSameRatioTransform(false);
  auto const transforms = graph.getGraph()->getCoordinates(0)->getSameRatioTransforms();
  ASSERT_EQ(transforms.size(), 2u);
  EXPECT_EQ(attribute(transforms[0], u"center"), "true");
  EXPECT_EQ(attribute(transforms[1], u"center"), "false");
}

TEST_F(SameRatio, MakesNoFacetLayout) {
  graph.addSameRatioTransform(true);
  EXPECT_EQ(graph.getGraph()->getFacetLayout(), nullptr);
}

TEST_F(SameRatio, IsAddedAndFilledOneByOne) {
  graph.getGraph()->addCoordinates(u"first");
  graph.getGraph()->addCoordinates(u"second");
  ChangeLog log(document);
  graph.addSameRatioTransform(true);
  EXPECT_THAT(log.lines(),
              ElementsAre("coordinates adds sameRatioTransform", "sameRatioTransform center=true",
                          "coordinates adds sameRatioTransform", "sameRatioTransform center=true"));
}

TEST_F(SameRatio, ReportsAFailureBeforeTheFirstOneAndSaysNo) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_FALSE(graph.addSameRatioTransform(true));
  expectGuardReport(recorder, "Error in XGraph::addSameRatioTransform()");
}

TEST_F(SameRatio, ReportsAFailureOfTheFirstOneOnceMadeAndSaysYes) {
  graph.getGraph()->addCoordinates(u"first");
  ChangeTrap const trap(document, 2, throwOrdinaryFailure());
  EXPECT_TRUE(graph.addSameRatioTransform(true));
  expectGuardReport(recorder, "Error in XGraph::addSameRatioTransform()");
}

TEST_F(SameRatio, ReportsAFailureBehindTheFirstOneAndSaysYes) {
  graph.getGraph()->addCoordinates(u"first");
  graph.getGraph()->addCoordinates(u"second");
  ChangeTrap const trap(document, 3, throwOrdinaryFailure());
  EXPECT_TRUE(graph.addSameRatioTransform(true));
  expectGuardReport(recorder, "Error in XGraph::addSameRatioTransform()");
}

TEST_F(SameRatio, KeepsWhatWasWrittenBeforeEveryFailure) {
  FailingOperation const sameRatio = {[](ChartOfOneRun&) {},
                                      [](ChartOfOneRun& chart) { chart.graph.addSameRatioTransform(true); }};
  expectFailuresToKeepWhatWasWritten(recorder, sameRatio, [](kestrel::host::Recorder const& done) {
    expectGuardReport(done, "Error in XGraph::addSameRatioTransform()");
  });
}

TEST_F(SameRatio, LetsTheHostsUnwindingSignalPass) {
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(graph.addSameRatioTransform(true), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(EmptyChartTest, ASameRatioWithoutGraphIsAReportedFailure) {
  XGraph attached(visualization);
  EXPECT_FALSE(attached.addSameRatioTransform(true));
  expectGuardReport(recorder, "Error in XGraph::addSameRatioTransform()");
}

TEST_F(Isotropic, MakesAFacetLayoutOfSquareCells) {
  graph.makeIsotropic(true);
  LumoFacetLayout const* const layout = graph.getGraph()->getFacetLayout();
  EXPECT_EQ(attribute(layout, u"method"), "1");
  EXPECT_EQ(attribute(layout, u"topDown"), "true");
  EXPECT_EQ(attribute(layout, u"cellAspect"), "1");
}

TEST_F(Isotropic, FillsTheLayoutBeforeTheTransforms) {
  ChangeLog log(document);
  graph.makeIsotropic(true);
  EXPECT_THAT(log.lines(),
              ElementsAre("graph adds facetLayout", "facetLayout method=1", "facetLayout topDown=true",
                          "facetLayout cellAspect=1", "graph adds coordinates", "coordinates id=coordinates0",
                          "coordinates adds sameRatioTransform", "sameRatioTransform center=true"));
}

TEST_F(Isotropic, LeavesALayoutThatExistsAndAddsTheTransformsOnly) {
  graph.setCellAspect(2.5);
  ChangeLog log(document);
  graph.makeIsotropic(false);
  EXPECT_THAT(log.lines(),
              ElementsAre("graph adds coordinates", "coordinates id=coordinates0",
                          "coordinates adds sameRatioTransform", "sameRatioTransform center=false"));
}

TEST_F(Isotropic, WorksOnAllCoordinates) {
  graph.getGraph()->addCoordinates(u"first");
  graph.getGraph()->addCoordinates(u"second");
  graph.makeIsotropic(true);
  EXPECT_EQ(elementsOf(visualization, u"sameRatioTransform").size(), 2u);
}

TEST_F(Isotropic, GoesThroughTheVirtualCallForTheTransforms) {
  LumoDocument other;
  CountingGraph counting(*other.getVisualization(), nullptr);
  counting.makeIsotropic(true);
  counting.makeIsotropic(false);
  EXPECT_THAT(counting.centers, ElementsAre(true, false));
}

TEST_F(Isotropic, ReportsAFailureOfTheLayout) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_NO_THROW(graph.makeIsotropic(true));
  expectGuardReport(recorder, "Error in XGraph::makeIsotropic()");
}

TEST_F(Isotropic, LeavesTheReportOfAFailingTransformToItsOwnGuard) {
  graph.setCellAspect(1.0);
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_NO_THROW(graph.makeIsotropic(true));
  expectGuardReport(recorder, "Error in XGraph::addSameRatioTransform()");
}

TEST_F(Isotropic, KeepsWhatWasWrittenBeforeEveryFailure) {
  FailingOperation const isotropic = {[](ChartOfOneRun&) {},
                                      [](ChartOfOneRun& chart) { chart.graph.makeIsotropic(true); }};
  expectFailuresToKeepWhatWasWritten(recorder, isotropic, [](kestrel::host::Recorder const& done) {
    EXPECT_EQ(done.failures().size(), 1u);
    EXPECT_EQ(done.userMessages().size(), 1u);
  });
}

TEST_F(Isotropic, LetsTheHostsUnwindingSignalPassAlsoFromTheTransforms) {
  graph.setCellAspect(1.0);
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(graph.makeIsotropic(true), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(EmptyChartTest, AnIsotropicChartWithoutGraphIsAReportedFailure) {
  XGraph attached(visualization);
  attached.makeIsotropic(true);
  expectGuardReport(recorder, "Error in XGraph::makeIsotropic()");
}

TEST_F(View, IsWrittenInAFixedOrder) {
  graph.getGraph()->addCoordinates(u"coordinates0");
  std::vector<std::string> changes = {"coordinates adds rectangularTransform",
                                      "rectangularTransform theta=-45", "rectangularTransform distance=8.5",
                                      "rectangularTransform phi=20", "rectangularTransform zeta=1"};
  changes.insert(changes.end(), guideChanges.begin(), guideChanges.end());
  ChangeLog log(document);
  graph.make3D(8.5, 20.0, -45.0, 1.0);
  EXPECT_THAT(log.lines(), ElementsAreArray(changes));
}

TEST_F(View, WithoutCoordinatesIsPlanesAndAFrameOnly) {
  ChangeLog log(document);
  graph.make3D(8.5, 20.0, -45.0, 1.0);
  EXPECT_THAT(log.lines(), ElementsAreArray(guideChanges));
  expectNoReport(recorder);
}

TEST_F(View, WorksOnTheFirstCoordinatesOnly) {
  LumoCoordinates const* const first = graph.getGraph()->addCoordinates(u"first");
  LumoCoordinates const* const second = graph.getGraph()->addCoordinates(u"second");
  graph.make3D(1.0, 2.0, 3.0, 4.0);
  EXPECT_THAT(childTags(*first), ElementsAre("rectangularTransform"));
  EXPECT_THAT(childTags(*second), IsEmpty());
}

TEST_F(View, HasThreePlanesAndOneFrame) {
  graph.make3D(1.0, 2.0, 3.0, 4.0);
  EXPECT_THAT(childTags(*graph.getGraph()),
              ElementsAre("planeGuide", "planeGuide", "planeGuide", "frameGuide"));
}

TEST_F(View, MakesItsStylesInTheContainer) {
  graph.make3D(1.0, 2.0, 3.0, 4.0);
  EXPECT_THAT(styleIds(visualization),
              ElementsAre("guide_xyplane_1s", "guide_xzplane_1s", "guide_yzplane_1s", "guide_frame_1s"));
}

TEST_F(View, OfASecondCallHasGuidesOfTheSameIds) {
  graph.make3D(1.0, 2.0, 3.0, 4.0);
  graph.make3D(1.0, 2.0, 3.0, 4.0);
  EXPECT_THAT(planesAndFrames(),
              ElementsAre("guide_xyplane_1", "guide_xzplane_1", "guide_yzplane_1", "guide_xyplane_1",
                          "guide_xzplane_1", "guide_yzplane_1", "guide_frame_1", "guide_frame_1"));
}

TEST_F(View, OfASecondCallSharesTheStylesOfTheFirst) {
  graph.make3D(1.0, 2.0, 3.0, 4.0);
  std::vector<std::string> const before = styleIds(visualization);
  graph.make3D(1.0, 2.0, 3.0, 4.0);
  EXPECT_EQ(styleIds(visualization), before);
  for (char16_t const* tag : {u"planeGuide", u"frameGuide"}) {
    auto const guides = elementsOf(visualization, tag);
    EXPECT_EQ(attribute(guides.front(), u"style"), attribute(guides.at(guides.size() / 2), u"style"));
  }
}

TEST_F(View, OfASecondCallAddsAnotherTransform) {
  LumoCoordinates const* const coordinates = graph.getGraph()->addCoordinates(u"coordinates0");
  graph.make3D(1.0, 2.0, 3.0, 4.0);
  graph.make3D(5.0, 6.0, 7.0, 8.0);
  EXPECT_THAT(childTags(*coordinates), ElementsAre("rectangularTransform", "rectangularTransform"));
  auto const transforms = elementsOf(visualization, u"rectangularTransform");
  EXPECT_EQ(attribute(transforms.at(0), u"distance"), "1");
  EXPECT_EQ(attribute(transforms.at(1), u"distance"), "5");
}

TEST_F(View, AsksForItsStylesByTheVirtualCall) {
  LumoDocument other;
  AskingGraph asking(*other.getVisualization(), nullptr);
  asking.make3D(1.0, 2.0, 3.0, 4.0);
  EXPECT_THAT(asking.asked,
              ElementsAre("guide_xyplane_1s", "guide_xzplane_1s", "guide_yzplane_1s", "guide_frame_1s"));
}

TEST_F(View, ReportsAStyleIdThatIsSomethingElses) {
  visualization.addUserSource(u"guide_xzplane_1s");
  graph.make3D(1.0, 2.0, 3.0, 4.0);
  expectGuardReport(recorder, "Error in XGraph::make3D()");
  EXPECT_THAT(planesAndFrames(), ElementsAre("guide_xyplane_1", "guide_xzplane_1"));
}

TEST_F(View, ReportsAFailureAndKeepsWhatWasWritten) {
  expectFailuresToKeepWhatWasWritten(recorder, addView, [](kestrel::host::Recorder const& done) {
    expectGuardReport(done, "Error in XGraph::make3D()");
  });
}

TEST_F(View, LetsTheHostsUnwindingSignalPass) { expectUnwindingToKeepWhatWasWritten(recorder, addView); }

TEST_F(EmptyChartTest, AViewWithoutGraphIsAReportedFailure) {
  XGraph attached(visualization);
  attached.make3D(1.0, 2.0, 3.0, 4.0);
  expectGuardReport(recorder, "Error in XGraph::make3D()");
  EXPECT_TRUE(childTags(visualization).empty());
}
