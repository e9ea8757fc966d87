#pragma once

#include "chart_data.h"
#include "chart_request.h"

namespace kestrel::tool {

/// Throws a Problem where a column cannot stand for what the request wants it for.
void requireFittingColumns(ChartRequest const& request, ChartData const& data);

}  // namespace kestrel::tool
