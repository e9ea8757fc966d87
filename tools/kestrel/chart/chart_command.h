#pragma once

#include "chart_request.h"

namespace kestrel::tool {

/// Makes a chart of a CSV file and sends it into <output>/capture.kcap. Tells on standard output what it
/// wrote. Throws a Problem where it could not.
void runChart(ChartRequest const& request);

}  // namespace kestrel::tool
