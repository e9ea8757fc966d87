#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kestrel::tool {

/// The number of line ends in a text: LF, CR, or CR and LF together.
std::size_t lineEnds(std::string_view text);

/// The line of a byte, from 1.
std::size_t lineOf(std::string_view bytes, std::size_t offset);

/// Throws a Problem that names the place where the bytes of `file` are no UTF-8 text. U+0000 is no text.
void requireUtf8(std::string const& file, std::string_view bytes);

}  // namespace kestrel::tool
