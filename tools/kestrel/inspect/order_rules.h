#pragma once

#include "contents.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kestrel::tool {

/// "chart", "image", "engine chart", "interactive content" or "service": what a send has sent, by its
/// contents.
std::string kindOf(Send const& send);

/// Checks that the contents of a send stand in the order of their kind, that none is missing, and that the
/// chunks of each are full but for the last. `end` is where the send ends in the capture; nothing where the
/// capture is cut there, so that what is missing is no fault of the send.
void checkOrder(Send const& send, std::optional<std::size_t> end, std::vector<Fault>& faults);

}  // namespace kestrel::tool
