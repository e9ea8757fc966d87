#pragma once

#include "template_chart.h"
#include "template_values.h"

namespace kestrel::host {

/// A place in the chart where a style belongs.
struct StyleSlot {
  LumoBaseElement* owner;
  /// The attribute of the owner that names the style.
  char16_t const* attribute;
  void (*attach)(LumoBaseElement& owner, LumoStyle const& style);
};

using StyleSlots = std::vector<StyleSlot>;

/// For owners whose model has no operation for their style: names the style in the attribute `style`.
void attachByName(LumoBaseElement& owner, LumoStyle const& style);

template <typename Owner, void (Owner::*set)(LumoStyle const&)>
void attachTo(LumoBaseElement& owner, LumoStyle const& style) {
  (dynamic_cast<Owner&>(owner).*set)(style);
}

/// Stands for all parts that are text.
constexpr std::string_view everyText = "all";

/// The parts that a template addresses by name, without the elements.
Names partNames();
/// Those that are text, and `everyText`.
Names fontPartNames();
/// Is it a part of an axis, so that it can be addressed by role?
bool isAxial(std::string_view part);

/// An empty role stands for every one.
StyleSlots slotsOfPart(TemplatedChart const& chart, std::string_view part, std::string_view role);

}  // namespace kestrel::host
