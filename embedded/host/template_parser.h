#pragma once

#include "template_language.h"

#include <string>
#include <vector>

namespace kestrel::host {

constexpr std::size_t longestTemplate = std::size_t{16} << 20;
constexpr unsigned int deepestTemplate = 1000;
constexpr unsigned int mostTemplateElements = 10000;
constexpr std::size_t mostTemplateFaults = 20;

/// A template that has been read. With faults it must not be applied.
struct ReadTemplate {
  std::vector<TemplateNode> instructions;
  std::vector<TemplateFault> faults;
};

/// Loads nothing from outside the text.
ReadTemplate readTemplate(std::string const& text);

}  // namespace kestrel::host
