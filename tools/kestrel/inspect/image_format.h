#pragma once

#include <string_view>

namespace kestrel::tool {

/// The usual ending of a file's name, such as ".png", for an image that starts as such files do; ".bin" where
/// nothing tells. The subtype does not: what it means is between sender and client.
std::string_view imageEnding(std::string_view bytes);

}  // namespace kestrel::tool
