#pragma once

#include "chart_templates.h"

#include <string>
#include <vector>

namespace kestrel::tool {

/// A chart that comes as text, and what goes with it. An empty text was not given.
struct SendRequest {
  /// The file with the chart.
  std::string chart;
  /// The data of its sources: FILE or SOURCE=FILE.
  std::vector<std::string> data;
  /// The chart is left as it is.
  bool isProtected = false;
  std::string styleSheet;
  std::string map;
  std::string referenceMap;
  std::vector<std::string> attachments;
  TemplateRequest templates;
  /// The folder for the capture, and the address of a listener; one of them may be empty.
  std::string output;
  std::string send;
};

/// Completes a chart and sends it. Tells on standard output what it wrote. Throws a Problem where it could
/// not.
void runSend(SendRequest const& request);

}  // namespace kestrel::tool
