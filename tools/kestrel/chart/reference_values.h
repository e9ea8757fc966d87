#pragma once

#include "column_types.h"

#include <string>
#include <vector>

namespace kestrel::tool {

/// Reads the values at which reference lines cross an axis, in the unit of the axis's data: dates are seconds
/// since 1970. Throws a Problem where one does not fit the axis.
/// @param option the option that they came with
/// @param column the column of the axis, or null for an axis of counts
std::vector<double> readReferences(std::string const& option, std::vector<std::string> const& texts,
                                   Column const* column);

}  // namespace kestrel::tool
