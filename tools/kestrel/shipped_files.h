#pragma once

#include <string>
#include <vector>

namespace kestrel::tool {

/// Whether a name is one of a shipped file, and not a path: it has neither a slash nor a point.
bool isPlainName(std::string const& name);

/// The files of one kind that come with kestrel, which the command line takes by their plain names.
struct ShippedFiles {
  /// What messages call one of them, such as "shipped template".
  char const* what;
  /// In the share folder.
  char const* folder;
  char const* suffix;

  /// The plain names in alphabetical order.
  std::vector<std::string> names() const;
  /// The path of a shipped file by its plain name; any other name is a path itself. Throws a Problem where
  /// there is no such file.
  std::string pathOf(std::string const& name) const;
};

}  // namespace kestrel::tool
