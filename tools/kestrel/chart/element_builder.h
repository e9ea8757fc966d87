#pragma once

#include "chart_data.h"
#include "chart_request.h"
#include "xelement.h"
#include "xsource.h"
#include "xvariable.h"

#include <optional>
#include <vector>

class XGraph;

namespace kestrel::tool {

/// The column that splits the element into parts that stand side by side at each place of X, if one does.
std::optional<std::size_t> clusteringColumn(ChartRequest const& request, ChartData const& data);

/// Adds the element that was asked for with the variables of its axes, its statistic, and what splits it or
/// gives it colours.
/// @param variables those of the columns, in their order
/// @param outlierLabels labels the outliers of a box plot; may be null
void addElement(XGraph& graph, ChartRequest const& request, ChartData const& data,
                std::vector<XVariable> const& variables, XVariable* outlierLabels);

}  // namespace kestrel::tool
