#include "shipped_files.h"

#include "chart/column_names.h"
#include "chart/nearest_name.h"
#include "problem.h"

#include "kestrelhost/host.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace kestrel::tool {

namespace {

namespace fs = std::filesystem;

fs::path pathTo(char const* folder) {
  constexpr int productPaths = 3;
  return (fs::path(host::Host::current().paths->basePath(productPaths)) / folder).lexically_normal();
}

}  // namespace

bool isPlainName(std::string const& name) { return name.find_first_of("/.") == std::string::npos; }

std::vector<std::string> ShippedFiles::names() const {
  std::vector<std::string> found;
  std::error_code error;
  // An error ends the walk: without the folder nothing is shipped.
  for (fs::directory_iterator entry(pathTo(folder), error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->path().extension() == suffix) found.push_back(entry->path().stem().string());
  }
  std::sort(found.begin(), found.end());
  return found;
}

std::string ShippedFiles::pathOf(std::string const& name) const {
  if (!isPlainName(name)) return name;
  std::vector<std::string> const shipped = names();
  if (std::find(shipped.begin(), shipped.end(), name) != shipped.end())
    return (pathTo(folder) / (name + suffix)).string();
  std::string const nearest = nearestName(name, shipped);
  throw Problem(std::string("there is no ") + what + " " + inQuotes(name) +
                    (nearest.empty() ? "" : "; did you mean " + inQuotes(nearest) + "?") +
                    "; the shipped ones are " + listed(shipped) + "; a file of that name is written ./" +
                    printable(name),
                Exit::BadInput);
}

}  // namespace kestrel::tool
