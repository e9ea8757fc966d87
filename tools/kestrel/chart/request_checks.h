#pragma once

#include "chart_request.h"

namespace kestrel::tool {

/// Throws a Problem where the options of a request do not go together, whatever the data is.
void requireSense(ChartRequest const& request);

/// The number of bins that is asked for, or -1 for as many as the client finds fit.
int binCount(ChartRequest const& request);

}  // namespace kestrel::tool
