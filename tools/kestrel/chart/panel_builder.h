#pragma once

#include "chart_data.h"
#include "chart_request.h"
#include "xvariable.h"

#include <vector>

class XGraph;

namespace kestrel::tool {

/// Splits the chart into panels by the variables that were asked for; those of a pyramid are its two sides.
/// @param variables those of the columns, in their order
void addPanels(XGraph& graph, ChartRequest const& request, ChartData const& data,
               std::vector<XVariable>& variables);

}  // namespace kestrel::tool
