#pragma once

#include "kestrelhost/templates.h"

#include <ostream>

namespace kestrel::test {

/// What is told of one kind of template.
struct KindRow {
  char const* name;
  host::TemplateKind kind;
  char letter;
  char const* text;
  char const* before;
  char const* after;
  /// Empty for a kind that says nothing of a missing file.
  char const* missing;
  char const* failure;
};

inline void PrintTo(KindRow const& row, std::ostream* out) { *out << row.name; }

inline constexpr KindRow kinds[] = {
    {"Styles", host::TemplateKind::Styles, 's', "stemplate_", "bStemplate_", "aStemplate_",
     "Could not find the chart styles template: ", "Failure occurred while applying chart styles template: "},
    {"Options", host::TemplateKind::Options, 'o', "otemplate_", "bOtemplate_", "aOtemplate_", "",
     "Failure occurred while applying options template: "},
    {"Chosen", host::TemplateKind::Chosen, 'c', "ctemplate_", "bCtemplate_", "aCtemplate_",
     "Could not find the CTemplate: ", "Failure occurred while applying CTemplate: "},
    {"Default", host::TemplateKind::Default, 'd', "dtemplate_", "bDtemplate_", "aDtemplate_", "",
     "Failure occurred while applying default template: "}};

}  // namespace kestrel::test
