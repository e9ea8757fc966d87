#pragma once

#include "inspect/inspection.h"

#include <cstddef>
#include <string>

namespace kestrel::tool {

/// What came, in a few words: "chart, 8 messages, 4,893 bytes". `bytes` is the size of its capture.
std::string summaryOf(Inspection const& inspection, std::size_t bytes);

}  // namespace kestrel::tool
