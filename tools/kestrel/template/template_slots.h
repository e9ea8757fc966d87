#pragma once

#include <string>
#include <vector>

namespace kestrel::tool {

/// A slot of a visualization template.
struct TemplateSlot {
  std::string name;
  std::string kind;
  bool required = false;
  bool several = false;
  bool sets = false;
  /// The statistics that it takes, where those are not all.
  std::string values;
  std::string fallback;
  std::string meaning;

  /// Whether variables fill it, and not texts.
  bool takesVariables() const;
};

/// A visualization template as the command line knows it.
struct VisualizationTemplate {
  /// As it was asked for.
  std::string name;
  /// The file, for one that is asked for by it; empty for a shipped one.
  std::string file;
  std::string title;
  std::vector<TemplateSlot> slots;

  /// Throws a Problem where there is no slot of that name.
  TemplateSlot const& slot(std::string const& slotName) const;
};

/// The names of the shipped templates in alphabetical order.
std::vector<std::string> shippedVisualizationTemplates();

/// Reads a shipped template by its plain name, or a file. Throws a Problem where there is none, or where it
/// is no template.
VisualizationTemplate readVisualizationTemplate(std::string const& name);

}  // namespace kestrel::tool
