// The geometry of a whole chart.

#include "xgraph.h"

#include "support/chart_text.h"
#include "support/guard.h"
#include "support/styles.h"

#include "host/chartbase.h"
#include "model/document.h"
#include "model/graph.h"
#include "model/guides.h"
#include "model/labels.h"
#include "model/paneling.h"

#include <algorithm>

using kestrel::guarded;
using kestrel::joined;
using kestrel::present;

void XGraph::transpose() {
  guarded("Error in XGraph::transpose()", [&] { findOrMakeCoordinates().addTransposeTransform(); });
}

void XGraph::makeIsotropic(bool center) {
  guarded("Error in XGraph::makeIsotropic()", [&] {
    LumoGraph& graph = present(mGraph, "graph");
    if (graph.getFacetLayout() == nullptr) {
      LumoFacetLayout* layout = graph.addFacetLayout();
      layout->setMethod(LumoFacetLayout::Method1);
      layout->setTopDown(true);
      layout->setCellAspect(1.0);
    }
    addSameRatioTransform(center);
  });
}

bool XGraph::addSameRatioTransform(bool center) {
  bool added = false;
  guarded("Error in XGraph::addSameRatioTransform()", [&] {
    if (present(mGraph, "graph").getCoordinatess().empty()) findOrMakeCoordinates();
    for (LumoCoordinates* coordinates : mGraph->getCoordinatess()) {
      LumoSameRatioTransform* transform = coordinates->addSameRatioTransform();
      added = true;
      transform->setCenter(center);
    }
  });
  return added;
}

namespace {

/// A guide of the three-dimensional view. The ids carry a fixed 1: further views share the styles of the
/// first.
struct ViewGuide {
  char16_t const* id;
  CTGuideType& (*add)(LumoGraph&);
};

template <LumoPlaneGuide::ENUM_normal normal>
CTGuideType& addPlane(LumoGraph& graph) {
  LumoPlaneGuide& guide = *graph.addPlaneGuide();
  guide.setNormal(normal);
  return guide;
}

CTGuideType& addFrame(LumoGraph& graph) {
  LumoFrameGuide& guide = *graph.addFrameGuide();
  guide.setComplete(false);
  return guide;
}

constexpr ViewGuide viewGuides[] = {{u"guide_xyplane_1", addPlane<LumoPlaneGuide::NormalXY>},
                                    {u"guide_xzplane_1", addPlane<LumoPlaneGuide::NormalXZ>},
                                    {u"guide_yzplane_1", addPlane<LumoPlaneGuide::NormalYZ>},
                                    {u"guide_frame_1", addFrame}};

}  // namespace

void XGraph::make3D(double distance, double phi, double theta, double zeta) {
  guarded("Error in XGraph::make3D()", [&] {
    LumoGraph& graph = present(mGraph, "graph");
    auto const coordinates = graph.getCoordinatess();
    if (!coordinates.empty()) {
      LumoRectangularTransform& view = *coordinates.front()->addRectangularTransform();
      view.setTheta(theta);
      view.setDistance(distance);
      view.setPhi(phi);
      view.setZeta(zeta);
    }
    for (ViewGuide const& each : viewGuides) {
      CTGuideType& guide = each.add(graph);
      guide.setId(each.id);
      guide.setStyle(kestrel::findOrMakeStyle(*this, joined({each.id, ChartBase::_default_style})));
    }
  });
}

namespace {

/// The locations of the chart's frame that one of its sizes is written to.
struct FrameExtent {
  LumoLocation::ENUM_part start;
  LumoLocation::ENUM_part end;
  LumoLocation::ENUM_part size;
};
constexpr FrameExtent width{LumoLocation::PartLeft, LumoLocation::PartRight, LumoLocation::PartWidth};
constexpr FrameExtent height{LumoLocation::PartTop, LumoLocation::PartBottom, LumoLocation::PartHeight};

constexpr double smallestFrame = 0.5;
constexpr double largestFrame = 10.0;
/// Fixed, whatever the screen: clients know it.
constexpr double pixelsPerInch = 506.0;

/// What is no number is the smallest size.
int framePixels(double inches) {
  double const limited = inches > smallestFrame ? std::min(inches, largestFrame) : smallestFrame;
  // Truncated behind the addition: relied upon.
  return static_cast<int>(limited * pixelsPerInch + 0.5);  // NOLINT(bugprone-incorrect-roundings)
}

ChartString pixels(int number) {
  constexpr char16_t const* unit = u"px";
  ChartString text;
  text.assignInteger(number);
  text.append(unit);
  return text;
}

void setFrameSize(LumoVisualization& visualization, FrameExtent const& extent, double inches) {
  ChartString const size = pixels(framePixels(inches));
  ChartString const start = pixels(0);
  bool hasSize = false;
  for (LumoLocation* location : visualization.getLocations()) {
    LumoLocation::ENUM_part const part = location->getPart();
    if (part == extent.start) location->setValue(start.xc_str());
    if (part == extent.end || part == extent.size) location->setValue(size.xc_str());
    if (part == extent.size) hasSize = true;
  }
  if (hasSize) return;
  // Start and end are not made: only where they exist they follow.
  LumoLocation& location = *visualization.addLocation(extent.size);
  location.setValue(size.xc_str());
  location.setMethod(LumoLocation::MethodValue);
}

}  // namespace

void XGraph::setOuterFrameHeight(double inches) {
  kestrel::guardedLogOnly("setOuterFrameHeight fatal error",
                          [&] { setFrameSize(*mVisualization, height, inches); });
}

void XGraph::setOuterFrameWidth(double inches) {
  kestrel::guardedLogOnly("setOuterFrameWidth fatal error",
                          [&] { setFrameSize(*mVisualization, width, inches); });
}
