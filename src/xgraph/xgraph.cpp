// The shell of the graph builder: what it is built on, and the small operations that the other topics lean
// on.

#include "xgraph.h"

#include "support/chart_parts.h"
#include "support/chart_text.h"
#include "support/guard.h"

#include "host/chartbase.h"
#include "host/data_store.h"
#include "model/aesthetics.h"
#include "model/document.h"
#include "model/graph.h"
#include "model/paneling.h"
#include "model/style.h"
#include "model/tokens.h"
#include "model/variables.h"

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNodeList.hpp>
#include <xercesc/util/XMLString.hpp>

#include <algorithm>

using kestrel::guarded;
using kestrel::numbered;
using kestrel::present;

char16_t const XGraph::_primaryXAxisId[] = u"axis_axisx_1";
char16_t const XGraph::_secondaryXAxisId[] = u"axis_axisx_2";
char16_t const XGraph::_primaryYAxisId[] = u"axis_axisy_1";
char16_t const XGraph::_secondaryYAxisId[] = u"axis_axisy_2";
char16_t const XGraph::_zAxisId[] = u"axis_axisz_1";

XGraph::XGraph(LumoVisualization& lumo, VarDataProcessor* vdp)
    : XBaseElement(lumo), mVisualization(&lumo), mProcessor(vdp) {
  guarded("Error in XGraph::XGraph(lumo,vdp)", [&] {
    mGraph = lumo.addGraph(ChartBase::_frame_data_1);
    // There is no container yet, so that this style lands on the visualization itself.
    mContainerStyle = addStyle(ChartBase::_container);
    LumoExtensionVis* extension = lumo.addExtension();
    LumoStyleCycle* repository = lumo.addStyleCycle(ChartBase::_styleCycleRepository);
    repository->addCycle()->addStyle();
    extension->setStyleCycleRepository(*repository);
  });
}

XGraph::XGraph(LumoVisualization& lumo) : XBaseElement(lumo), mVisualization(&lumo), mProcessor(nullptr) {
  guarded("Error in XGraph::XGraph(lumo)", [&] {
    auto* const graphs = lumo.getImplementation()->getElementsByTagName(LumoUni::_graph);
    if (graphs->getLength() > 0)
      mGraph = static_cast<LumoGraph*>(graphs->item(0)->getUserData(LumoUni::_graph));
    for (LumoStyle* style : lumo.getStyles()) {
      // No stop at a match: the last container wins.
      if (xercesc::XMLString::equals(style->getId(), ChartBase::_container)) mContainerStyle = style;
    }
  });
}

XGraph::~XGraph() = default;

LumoStyle* XGraph::addStyle(ChartString const& id) {
  LumoStyle* style = mContainerStyle != nullptr ? mContainerStyle->addStyle() : mVisualization->addStyle();
  style->setId(id.xc_str());
  return style;
}

XSource* XGraph::AddSource() {
  auto source = std::make_unique<XSource>(*mVisualization, present(mProcessor, "data store"));
  mSources.push_back(source.get());
  return source.release();
}

XLegend XGraph::addLegend(char16_t const* text) {
  LumoExtensionVis& extension = kestrel::findOrMakeExtension(*mVisualization);
  LumoLegend* legend = extension.getLegend2();
  if (extension.getLegend1() == nullptr) {
    legend = mVisualization->addLegend(numbered(LumoUni::_legend, 1).xc_str());
    extension.setLegend1(*legend);
  } else if (legend == nullptr) {
    legend = mVisualization->addLegend(numbered(LumoUni::_legend, 2).xc_str());
    extension.setLegend2(*legend);
  }
  XLegend wrapper(*legend);
  if (text != nullptr) wrapper.AddLabel(text);
  return wrapper;
}

VarDataProcessor* XGraph::clearData() {
  // Also a store that the graph was given: from here on the graph acts as its owner.
  delete mProcessor;
  // Told at once: the document must not free that store again, even where there is no memory for a new one.
  mProcessor = nullptr;
  ++mClearCount;
  mProcessor = new VarDataProcessor;
  for (XSource* source : mSources) source->clear(*mProcessor);
  return mProcessor;
}

void XGraph::setCellAspect(double aspect) {
  if (mGraph == nullptr) return;
  LumoFacetLayout* layout = mGraph->getFacetLayout();
  // A layout made here gets no method and no top-down flag, unlike the ones of paneling.
  if (layout == nullptr) layout = mGraph->addFacetLayout();
  layout->setCellAspect(aspect);
}

bool XGraph::doesSourceExist(ChartString const& id) {
  auto const sources = mVisualization->getUserSources();
  return std::any_of(sources.begin(), sources.end(),
                     [&id](LumoUserSource const* source) { return id.equalsi(source->getId()); });
}

std::vector<std::string> XGraph::getUserSourceNames() const {
  std::vector<std::string> names;
  for (LumoUserSource* source : mVisualization->getUserSources())
    names.push_back(ChartString(source->getId()).toUTF8());
  return names;
}

/// The one set of coordinates of the graph.
LumoCoordinates& XGraph::findOrMakeCoordinates() {
  LumoGraph& graph = present(mGraph, "graph");
  LumoCoordinates* coordinates = graph.getCoordinates(0);
  return coordinates != nullptr ? *coordinates
                                : *graph.addCoordinates(numbered(LumoUni::_coordinates, 0).xc_str());
}
