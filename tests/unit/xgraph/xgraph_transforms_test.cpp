// The geometry of a whole chart.

#include "change_log.h"
#include "graph_fixture.h"

#include "host/messages.h"
#include "model/graph.h"
#include "model/paneling.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Transpose : public GraphTest {};
class SameRatio : public GraphTest {};
class Isotropic : public GraphTest {};

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

TEST_F(Transpose, ReportsAFailure) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_NO_THROW(graph.transpose());
  expectGuardReport(recorder, "Error in XGraph::transpose()");
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
