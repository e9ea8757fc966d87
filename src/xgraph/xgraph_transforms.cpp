// The geometry of a whole chart.

#include "xgraph.h"

#include "support/guard.h"

#include "model/graph.h"
#include "model/paneling.h"

using kestrel::guarded;
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
