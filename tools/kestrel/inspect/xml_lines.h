#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::tool {

/// A chart text as lines that can be compared: each tag on a line of its own, indented; a text stays with the
/// element that holds it alone. White space between tags is left out, line ends within a line are `\n`. It
/// need not be well-formed.
std::vector<std::string> xmlLines(std::string_view xml);

}  // namespace kestrel::tool
