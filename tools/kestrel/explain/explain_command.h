#pragma once

#include "chart_templates.h"

#include <string>

namespace kestrel::tool {

struct ExplainRequest {
  /// The file with the text of the chart.
  std::string chart;
  TemplateRequest templates;
  bool json = false;
  /// Also says who gave a value before the one who won.
  bool all = false;
};

/// Completes a chart and prints where each value of its look came from. Throws a Problem where it could not.
void runExplain(ExplainRequest const& request);

}  // namespace kestrel::tool
