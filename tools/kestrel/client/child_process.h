#pragma once

#include <string>
#include <vector>

namespace kestrel::tool {

/// What a program left that has ended.
struct ChildOutcome {
  /// Its exit code, or 128 and the number of the signal that ended it; nothing is known of it where it could
  /// not be found.
  int exit = 0;
  bool found = true;
  /// What it wrote to standard error.
  std::string errors;
};

/// Runs a program by its name and arguments, without a shell, with nothing to read and its standard output
/// thrown away. Throws a Problem where the system has no room for it, and where SIGINT or SIGTERM comes,
/// which ends the program too.
ChildOutcome runProgram(std::vector<std::string> const& command);

}  // namespace kestrel::tool
