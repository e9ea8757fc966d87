#pragma once

#include <string>
#include <string_view>

namespace kestrel::tool {

/// Whether a request names this server as its user does: by an address, as localhost, or by the name that it
/// was told. Another name may have been pointed here by a page that wants to read what is served.
bool isOurName(std::string_view hostHeader, std::string_view ownName);

/// An address as it stands in a URL: in brackets where it has colons.
std::string inUrl(std::string const& address);

}  // namespace kestrel::tool
