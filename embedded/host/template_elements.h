#pragma once

#include "template_parts.h"

#include <string>

namespace kestrel::host {

/// The kinds of graphic elements that a template tells apart, and `all`.
Names elementTypes();
/// Of all types together.
Names elementSubtypes();

/// Why a type cannot have that subtype; empty where it can, and where there is none.
std::string subtypeFault(std::string_view type, std::string_view subtype);

StyleSlots slotsOfElements(TemplatedChart const& chart, std::string_view type, std::string_view subtype);

}  // namespace kestrel::host
