#pragma once

#include <filesystem>
#include <string>

namespace kestrel::tool {

/// The path of a file of the client that comes with kestrel, such as "page.html". Throws a Problem where this
/// kestrel was built without its client.
std::filesystem::path clientFile(std::string const& name);

}  // namespace kestrel::tool
