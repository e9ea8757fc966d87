#pragma once

#include <string>
#include <string_view>

namespace kestrel::tool {

/// Bytes as a text of letters, digits, '+', '/' and '='.
std::string base64(std::string_view bytes);

}  // namespace kestrel::tool
