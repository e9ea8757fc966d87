#include "column_names.h"

#include "nearest_name.h"
#include "problem.h"

#include <algorithm>

namespace kestrel::tool {

std::string listed(std::vector<std::string> const& names) {
  std::string text;
  for (std::string const& name : names)
    text += (text.empty() ? "" : ", ") + (name.empty() ? "(no name)" : printable(name));
  return text;
}

std::size_t requireColumn(CsvTable const& table, std::string const& file, std::string const& name,
                          std::string const& use) {
  auto const& names = table.names();
  auto const found = std::find(names.begin(), names.end(), name);
  if (found != names.end()) return static_cast<std::size_t>(found - names.begin());
  std::string const nearest = nearestName(name, names);
  throw badInput(file, 1,
                 "there is no column " + inQuotes(name) + " for " + use + "; " +
                     (nearest.empty() ? "the" : "did you mean " + inQuotes(nearest) + "? The") +
                     " columns are: " + listed(names));
}

}  // namespace kestrel::tool
