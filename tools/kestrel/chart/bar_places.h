#pragma once

#include "chart_data.h"
#include "chart_request.h"

namespace kestrel::tool {

/// Whether some rows would be drawn as bars on the very same place of the very same panel.
bool barsCover(ChartRequest const& request, ChartData const& data);

}  // namespace kestrel::tool
