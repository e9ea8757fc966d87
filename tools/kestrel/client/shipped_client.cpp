#include "shipped_client.h"

#include "problem.h"

#include "kestrelhost/host.h"

#include <system_error>

namespace kestrel::tool {

namespace fs = std::filesystem;

fs::path clientFile(std::string const& name) {
  constexpr int productPaths = 3;
  fs::path const share = host::Host::current().paths->basePath(productPaths);
  // What is installed, or what was built beside this program.
  for (fs::path const& folder : {share / "client", fs::path(KESTREL_CLIENT_DIR)}) {
    std::error_code ignored;
    if (fs::is_regular_file(folder / name, ignored)) return folder / name;
  }
  throw Problem("the client that draws charts is not there (" + name +
                    " is missing); build kestrel with -DKESTREL_CLIENT=ON, which needs Node.js and npm",
                Exit::NotWritten);
}

}  // namespace kestrel::tool
