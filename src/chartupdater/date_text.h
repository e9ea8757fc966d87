#pragma once

#include "model/chartstring.h"

#include <ctime>

namespace kestrel {

/// A day as yyyy-MM-dd.
ChartString dateText(std::tm const& day);

}  // namespace kestrel
