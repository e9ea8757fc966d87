// Network diagrams.

#include "customizecharts.h"

#include "customizecharts_data.h"
#include "xvariable.h"

#include "support/chart_parts.h"
#include "support/chart_text.h"
#include "support/failure.h"

#include "model/aesthetics.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/style.h"
#include "model/variables.h"

#include <vector>

using kestrel::numbered;
using kestrel::present;

namespace {

template <typename T>
T& firstOf(std::vector<T*> const& list, char const* what) {
  return present(list.empty() ? nullptr : list.front(), what);
}

// --- Locations

constexpr char16_t width[] = u"625px";

/// Given as it stands, with its text.
template <typename Part>
void place(Part& part, LumoLocation::ENUM_part side, char16_t const* value) {
  LumoLocation& location = *part.addLocation(side);
  location.setMethod(LumoLocation::MethodValue);
  location.setValue(value);
}

template <typename Part>
void fit(Part& part, LumoLocation::ENUM_part extent) {
  part.addLocation(extent)->setMethod(LumoLocation::Method1);
}

template <typename Part, typename Target>
void tie(Part& part, LumoLocation::ENUM_part side, Target const& target) {
  LumoLocation& location = *part.addLocation(side);
  location.setMethod(LumoLocation::Method3);
  location.setTarget(target);
}

void placeGraph(LumoGraph& graph) {
  fit(graph, LumoLocation::PartHeight);
  place(graph, LumoLocation::PartLeft, u"0px");
  place(graph, LumoLocation::PartRight, width);
}

/// Of two frames the first stands on the second; the last one stands at the bottom.
void placeFrames(LumoVisualization const& visualization) {
  auto const frames = visualization.getLabelFrames();
  for (std::size_t at = 0; at < frames.size(); ++at) {
    LumoLabelFrame& frame = *frames[at];
    frame.removeLocations();
    fit(frame, LumoLocation::PartHeight);
    place(frame, LumoLocation::PartRight, width);
    place(frame, LumoLocation::PartLeft, u"0px");
    if (frames.size() == 2 && at == 0) {
      tie(frame, LumoLocation::PartBottom, *frames[1]);
    } else if (at + 1 == frames.size()) {
      place(frame, LumoLocation::PartBottom, u"100%");
    }
  }
}

// --- Edges and their legend

/// What varies the look of the edges: their colour, or else their shape, which becomes a dash.
CTAesthetic* edgeAesthetic(LumoEdge& edge) {
  auto const colors = edge.getColors();
  if (!colors.empty()) return colors.front();
  auto const shapes = edge.getShapes();
  if (shapes.empty()) return nullptr;
  CTVariableType const* const variable = shapes.front()->getVariable();
  edge.removeShapes();
  LumoDash& dash = *edge.addDash();
  dash.setId(u"dash1");
  if (variable != nullptr) dash.setVariable(*variable);
  return &dash;
}

void addEdgeLegend(LumoVisualization& visualization, LumoStyle& container, LumoGraph const& graph,
                   CTAesthetic& aesthetic) {
  aesthetic.removeDomain();
  LumoLegend& legend = *visualization.addLegend(numbered(LumoUni::_legend, 1).xc_str());
  LumoStyle& style = *container.addStyle();
  style.setId(u"legendStyle");
  legend.setTickTextStyle(style);
  legend.addLegendTarget(u"legendT", aesthetic);
  legend.removeLocations();
  tie(legend, LumoLocation::PartBottom, graph);
  fit(legend, LumoLocation::PartHeight);
  fit(legend, LumoLocation::PartWidth);
  place(legend, LumoLocation::PartRight, width);
}

void weighEdges(LumoEdge& edge, XVariable const& weight) {
  auto const shapes = edge.getShapes();
  if (!shapes.empty()) shapes.front()->removeSymbolMappings();
  LumoSize& size = *edge.addSize();
  size.setId(u"edgeWeight");
  size.setLow(u"0.5pt");
  size.setHigh(u"2.5pt");
  size.setVariable(weight.getImplementation());
}

// --- Points and the graph's look

void sizePoints(LumoPoint const& point) {
  present(point.getStyle(), "style of the point element").setSize(u"3%", u"40pt", u"60pt");
  auto const transparencies = point.getTransparencys();
  if (transparencies.empty()) return;
  transparencies.front()->setLow(0.6);
  transparencies.front()->setHigh(0.01);
}

void padCells(LumoGraph& graph, LumoStyle& container) {
  LumoStyle* style = graph.getCellStyle();
  if (style == nullptr) {
    style = container.addStyle();
    style->setId(u"graphStyle");
    graph.setCellStyle(*style);
  }
  style->setPadding(u"40pt");
}

}  // namespace

void customizeCharts::customizeNetworkDiagram(XVariable const& weight) {
  LumoVisualization& visualization = *mData->mVisualization;
  LumoStyle& container = kestrel::findOrMakeContainer(visualization);
  visualization.removeLocations();
  LumoGraph& graph = firstOf(visualization.getGraphs(), "graph");
  placeGraph(graph);
  LumoCoordinates& coordinates = present(graph.getCoordinates(0), "coordinates");
  coordinates.removeSameRatioTransforms();
  LumoEdge& edge = firstOf(graph.getEdges(), "edge element");
  weighEdges(edge, weight);
  if (CTAesthetic* const aesthetic = edgeAesthetic(edge))
    addEdgeLegend(visualization, container, graph, *aesthetic);
  placeFrames(visualization);
  sizePoints(firstOf(graph.getPoints(), "point element"));
  kestrel::findOrMakeExtension(visualization).setPreserveLocations(true);
  for (LumoDimension* dimension : coordinates.getDimensions()) {
    dimension->setUpperMargin(u"0%");
    dimension->setLowerMargin(u"0%");
  }
  padCells(graph, container);
}
