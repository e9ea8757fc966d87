#pragma once

#include "chart_templates.h"

#include <string>
#include <vector>

class XDocument;

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

/// What runSend() is made of, for charts that come otherwise. The first throws a Problem where the request
/// says no way for the chart to go. The second takes the data, the templates and the ways of the request.
void requireWay(SendRequest const& request);
void sendChart(XDocument& document, SendRequest const& request, ChartTemplates const& templates);

/// In the chart, files go by their names alone: whose machine they lay on is nobody's business.
std::string nameInChart(std::string const& file);

}  // namespace kestrel::tool
