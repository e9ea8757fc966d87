// Axes: found by their place in a dimension, or made there.

#include "xgraph.h"

#include "support/chart_text.h"
#include "support/guard.h"
#include "support/outside_chart.h"

#include "host/chartbase.h"
#include "model/graph.h"
#include "model/style.h"

using kestrel::guarded;
using kestrel::joined;
using kestrel::present;

namespace {

/// Every axis is repeated in the first way and shares its labels, also one that exists; written at each call.
constexpr auto repeat = LumoAxis::Repeat0;

LumoAxis* firstAxis(LumoDimension const& dimension) {
  auto const axes = dimension.getAxiss();
  return axes.empty() ? nullptr : axes.front();
}

/// The first axis that maps its dimension directly, or (`primary` false) the first one that does not.
LumoAxis* firstAxis(LumoDimension const& dimension, bool primary) {
  for (LumoAxis* axis : dimension.getAxiss()) {
    if ((axis->getTransform() == LumoAxis::TransformPrimary) == primary) return axis;
  }
  return nullptr;
}

}  // namespace

LumoAxis& XGraph::makeAxis(LumoDimension& dimension, char16_t const* id) {
  LumoAxis* axis = dimension.addAxis();
  axis->setStyle(*addStyle(joined({id, ChartBase::_default_style})));
  return *axis;
}

XAxis XGraph::finishAxis(LumoDimension& dimension, LumoAxis& axis, ChartString const& label) {
  XAxis wrapper(dimension, axis);
  if (label.length() > 0) wrapper.AddLabel(label.xc_str());
  axis.setRepeat(repeat);
  axis.setCombineAxisLabels(true);
  return wrapper;
}

XAxis XGraph::AddPrimaryXAxis(ChartString const& label) {
  LumoDimension& dimension = present(getXDimension(findOrMakeCoordinates(), true), "X dimension");
  LumoAxis* axis = firstAxis(dimension);
  return finishAxis(dimension, axis != nullptr ? *axis : makeAxis(dimension, _primaryXAxisId), label);
}

XAxis XGraph::AddPrimaryYAxis(ChartString const& label) {
  LumoDimension& dimension = present(getYDimension(findOrMakeCoordinates(), true), "Y dimension");
  LumoAxis* axis = firstAxis(dimension, true);
  return finishAxis(dimension, axis != nullptr ? *axis : makeAxis(dimension, _primaryYAxisId), label);
}

XAxis XGraph::AddSecondaryXAxis(ChartString const& label) {
  LumoDimension& dimension = present(getXDimension(findOrMakeCoordinates(), true), "X dimension");
  auto const axes = dimension.getAxiss();
  if (axes.size() == 1) {
    LumoAxis* axis = dimension.addAxis();
    axis->setOpposite(true);
    axis->setStyle(*addStyle(joined({_secondaryXAxisId, ChartBase::_default_style})));
    return finishAxis(dimension, *axis, label);
  }
  // The third one, not the second: relied upon. A graph asks for its secondary axis once.
  if (axes.size() > 2) return finishAxis(dimension, *axes[2], label);
  if (axes.empty()) AddPrimaryXAxis(label);
  ChartBase::printDebugInfo(
      "XGraph::AddSecondaryXAxis(): no secondary axis; the result stands outside the chart.");
  return XAxis(dimension, kestrel::axisOutsideTheChart());
}

XAxis XGraph::AddDerivedYAxis(ChartString const& label, bool) {
  LumoDimension& dimension = present(getYDimension(findOrMakeCoordinates(), true), "Y dimension");
  LumoAxis* axis = firstAxis(dimension, false);
  if (axis == nullptr) {
    axis = &makeAxis(dimension, _secondaryYAxisId);
    axis->setOpposite(true);
  }
  axis->setTransform(LumoAxis::TransformDerived);
  return finishAxis(dimension, *axis, label);
}

void XGraph::AddEmptyYDimension() {
  LumoCoordinates* coordinates = nullptr;
  guarded("Error in XGraph::AddEmptyYDimension()", [&] { coordinates = &findOrMakeCoordinates(); });
  if (coordinates != nullptr) getYDimension(*coordinates, true);
}

XAxis XGraph::AddZAxis(ChartString const& label) {
  LumoCoordinates& coordinates = findOrMakeCoordinates();
  auto const dimensions = coordinates.getDimensions();
  // The true third dimension, unlike the one that getZDimension gives.
  LumoDimension* third = dimensions.size() > 2 ? dimensions[2] : nullptr;
  for (std::size_t count = dimensions.size(); count < 3; ++count) third = coordinates.addDimension();
  LumoDimension& dimension = present(third, "Z dimension");
  LumoAxis* axis = firstAxis(dimension);
  return finishAxis(dimension, axis != nullptr ? *axis : makeAxis(dimension, _zAxisId), label);
}
