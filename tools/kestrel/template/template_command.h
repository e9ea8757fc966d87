#pragma once

#include "chart_templates.h"

#include <string>
#include <vector>

namespace kestrel::tool {

/// A chart of a table by a visualization template. An empty text was not given.
struct VisualizationRequest {
  /// A shipped template, or a file.
  std::string name;
  /// Only says which templates there are, or which slots the named one has.
  bool list = false;
  /// Each is SLOT=VALUE: a column, or a text where the slot takes one.
  std::vector<std::string> slots;
  /// Each is SLOT=TEXT: how axes and legends name the column.
  std::vector<std::string> slotLabels;
  /// Each is SLOT=COLUMN: what names the cases.
  std::vector<std::string> labelings;
  std::string data;
  /// A file, or a name of the local store where it has neither a slash nor a point.
  std::string styleSheet;
  std::string map;
  std::string referenceMap;
  std::string mapKey;
  TemplateRequest templates;
  /// The folder for the capture, and the address of a listener; one of them may be empty.
  std::string output;
  std::string send;
};

/// Makes a chart and sends it, or lists templates. Tells on standard output what it wrote. Throws a Problem
/// where it could not.
void runTemplate(VisualizationRequest const& request);

}  // namespace kestrel::tool
