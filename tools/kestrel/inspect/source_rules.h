#pragma once

#include "contents.h"

#include <vector>

namespace kestrel::tool {

/// Checks that the data of a send has what its chart text names: a stream for each user source, and in it a
/// column for each variable. A send without data is not checked, nor one of which either cannot be read.
void checkSources(Send const& send, std::vector<Fault>& faults);

}  // namespace kestrel::tool
