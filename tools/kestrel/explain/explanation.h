#pragma once

#include "provenance.h"

#include <string>
#include <vector>

namespace kestrel::tool {

/// What has the values: a style, the ticks of an axis, or a frame.
struct ExplainedElement {
  std::string path;
  /// Of a style alone.
  bool isStyle;
  struct Use {
    std::string path;
    std::string attribute;
  };
  std::vector<Use> uses;
  std::vector<Provenance::Explained> values;
};

struct Explanation {
  std::string chart;
  std::vector<TemplateFile> templates;
  std::vector<ExplainedElement> elements;
};

/// The elements of a completed chart that have values, in document order.
std::vector<ExplainedElement> explainElements(LumoVisualization const& chart, Provenance const& provenance);

/// Both end with a line feed. `all` tells of each value everybody who gave it.
std::string explanationText(Explanation const& explanation, bool all);
std::string explanationJson(Explanation const& explanation, bool all);

}  // namespace kestrel::tool
