#pragma once

#include "chart_templates.h"
#include "element_kind.h"

#include <string>
#include <vector>

namespace kestrel::tool {

/// What the command line asks of a chart. An empty text was not given.
struct ChartRequest {
  std::string data;
  ElementKind element = ElementKind::Point;
  std::string x;
  std::string y;
  std::string z;
  std::string color;
  std::string cluster;
  std::string stack;
  std::vector<std::string> panelRows;
  std::vector<std::string> panelColumns;
  std::string label;
  std::vector<std::string> categorical;
  std::string bins;
  /// "ascending" or "descending".
  std::string sort;
  std::vector<std::string> excluded;
  std::vector<std::string> referenceX;
  std::vector<std::string> referenceY;
  bool transposed = false;
  std::string title;
  std::string title2;
  std::string subtitle;
  std::vector<std::string> footnotes;
  std::string xLabel;
  std::string yLabel;
  std::string zLabel;
  std::string description;
  std::string name;
  std::vector<std::string> attachments;
  TemplateRequest templates;
  /// Tables of a description, which then stands in `data`.
  std::vector<std::string> sourceFiles;
  /// The folder for the capture, and the address of a listener; one of them may be empty.
  std::string output;
  std::string send;
};

}  // namespace kestrel::tool
