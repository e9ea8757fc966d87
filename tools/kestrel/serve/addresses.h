#pragma once

#include <string>

namespace kestrel::tool {

/// Who can reach an address to serve at.
enum class Reach { ThisMachine, OneAddress, AllAddresses };

/// Of an address, or a name of this machine. A name that is not known counts as one address.
Reach reachOf(std::string const& host);

/// Why nothing can be served there, as the user is told.
std::string whyNotServed(std::string const& host, int port);

}  // namespace kestrel::tool
