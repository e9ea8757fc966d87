#pragma once

#include <string>

namespace kestrel::host {

/// UTF-8 in the bytes of the local code page. Characters that it does not have become its substitution
/// character.
std::string toLocalCodePage(std::string const& text);

}  // namespace kestrel::host
