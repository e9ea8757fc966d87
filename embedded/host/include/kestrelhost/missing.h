#pragma once

#include <limits>

namespace kestrel::host {

/// What stands in a cell for a value that is not there.
inline constexpr double systemMissing = std::numeric_limits<double>::lowest();

}  // namespace kestrel::host
