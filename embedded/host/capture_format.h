#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace kestrel::host {

/// What stands before the bytes of a message in a capture.
std::string captureHead(std::int64_t identifier, std::size_t length);

}  // namespace kestrel::host
