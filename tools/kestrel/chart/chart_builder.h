#pragma once

#include "chart_data.h"
#include "chart_request.h"

class XDocument;

namespace kestrel::tool {

/// Describes the chart that was asked for, and hands its data over.
void describeChart(XDocument& document, ChartRequest const& request, ChartData const& data);

}  // namespace kestrel::tool
