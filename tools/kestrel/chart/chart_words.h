#pragma once

#include "chart_request.h"

#include "model/chartstring.h"

#include <string>

namespace kestrel::tool {

/// A text of the request as charts take it.
ChartString chartText(std::string const& utf8);

/// What somebody who cannot see the chart is told about it, where the request does not say.
std::string defaultDescription(ChartRequest const& request);

}  // namespace kestrel::tool
