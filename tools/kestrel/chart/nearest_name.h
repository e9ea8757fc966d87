#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::tool {

/// The name that somebody who wrote `asked` is likely to have meant, or an empty text where none is near.
std::string nearestName(std::string_view asked, std::vector<std::string> const& names);

}  // namespace kestrel::tool
