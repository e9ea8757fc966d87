#pragma once

#include <cstddef>
#include <string_view>

namespace kestrel::tool {

/// The offset of the first byte that is not part of well-formed UTF-8, or npos.
std::size_t findBadUtf8(std::string_view text);

/// The offset of the byte order mark's end: 3 where the text starts with one, else 0.
std::size_t endOfByteOrderMark(std::string_view text);

}  // namespace kestrel::tool
