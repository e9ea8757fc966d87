// Graphic elements: what makes each kind come out as it does.

#include "xgraph.h"

#include "support/chart_text.h"
#include "support/guard.h"

#include "host/chartbase.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/style.h"
#include "model/tokens.h"

using kestrel::numbered;
using kestrel::present;

namespace {

/// One of the graph's lists of elements. Kinds that share a list share one row of numbers.
struct ElementList {
  std::size_t (*count)(LumoGraph const&);
  CTElementType* (*add)(LumoGraph&, char16_t const* id);
};

constexpr ElementList lines = {
    [](LumoGraph const& graph) { return graph.getLines().size(); },
    [](LumoGraph& graph, char16_t const* id) -> CTElementType* { return graph.addLine(id); }};
constexpr ElementList intervals = {
    [](LumoGraph const& graph) { return graph.getIntervals().size(); },
    [](LumoGraph& graph, char16_t const* id) -> CTElementType* { return graph.addInterval(id); }};
constexpr ElementList points = {
    [](LumoGraph const& graph) { return graph.getPoints().size(); },
    [](LumoGraph& graph, char16_t const* id) -> CTElementType* { return graph.addPoint(id); }};

/// What an error bar looks like, written before its style is attached.
void lookLikeAnIBeam(LumoStyle& style) {
  style.setSymbol(LumoUni::_ibeam);
  style.setWidth(u"25%", nullptr, nullptr);
}

void addErrorBarStatistic(XElement&, CTElementType& element) {
  element.addSummaryStatistic()->setMethod(LumoSummaryStatistic::MethodErrorBar);
}

void binAsAHistogram(XElement& wrapper, CTElementType&) {
  wrapper.addHistogramStatistic(nullptr, -1, -1, true);
}

void showAllLabels(XElement&, CTElementType& element) {
  element.setDot(false);
  element.setShowCollidingLabels(true);
}

void nothing(LumoStyle&) {}
void nothing(XElement&, CTElementType&) {}

/// Untouched leaves the handling that the wrapper's construction has written.
enum class Collisions { Untouched, Resolved };

}  // namespace

/// What makes an element kind come out as it does.
struct kestrel::ElementRecipe {
  char16_t const* idPrefix;
  ElementList const& list;
  Collisions collisions;
  void (*look)(LumoStyle&);
  void (*finish)(XElement& wrapper, CTElementType& element);
};

namespace {

using kestrel::ElementRecipe;

// clang-format off
//                                   id prefix                       list       label collisions       look             finish
constexpr ElementRecipe line        {u"element_simpleline_",         lines,     Collisions::Resolved,  nothing,         nothing};
constexpr ElementRecipe bar         {u"element_bar_",                intervals, Collisions::Resolved,  nothing,         nothing};
constexpr ElementRecipe clusteredBar{u"element_clusteredbar_",       intervals, Collisions::Resolved,  nothing,         nothing};
constexpr ElementRecipe errorBar    {u"element_errorbar_",           intervals, Collisions::Resolved,  lookLikeAnIBeam, addErrorBarStatistic};
constexpr ElementRecipe point       {u"element_point_",              points,    Collisions::Untouched, nothing,         nothing};
constexpr ElementRecipe histogram   {u"element_histogram_",          intervals, Collisions::Resolved,  nothing,         binAsAHistogram};
constexpr ElementRecipe pyramid     {u"element_populationPyramid_",  intervals, Collisions::Untouched, nothing,         showAllLabels};
// clang-format on

}  // namespace

XElement XGraph::addElement(ElementRecipe const& recipe, char16_t const* name) {
  LumoGraph& graph = present(mGraph, "graph");
  ChartString id(recipe.idPrefix);
  bool const named = !kestrel::isEmpty(name);
  if (named) {
    ChartString idPart(name);
    idPart.replaceSubstring(u" ", u"_");
    id.append(idPart);
  }
  // Counted before the add, so that the first is 1.
  id = numbered(id, recipe.list.count(graph) + 1);
  CTElementType& element = *recipe.list.add(graph, id.xc_str());
  XElement wrapper(element);
  if (named) element.setName(name);
  if (recipe.collisions == Collisions::Resolved) {
    element.setLabelCollisionHandling(CTElementType::LabelCollisionHandling2);
  }
  id.append(ChartBase::_default_style);
  LumoStyle* style = addStyle(id);
  recipe.look(*style);
  element.setStyle(*style);
  recipe.finish(wrapper, element);
  return wrapper;
}

XElement XGraph::AddLineElement(char16_t const* name) { return addElement(line, name); }

XElement XGraph::AddBarElement(bool clustered) { return addElement(clustered ? clusteredBar : bar, nullptr); }

XElement XGraph::AddPointElement() { return addElement(point, nullptr); }

XElement XGraph::AddErrorBarElement() { return addElement(errorBar, nullptr); }

XElement XGraph::AddHistogramElement() { return addElement(histogram, nullptr); }

XElement XGraph::AddPyramidElement() { return addElement(pyramid, nullptr); }
