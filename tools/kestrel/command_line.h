#pragma once

namespace kestrel::tool {

/// Runs the program and gives its exit code.
int runCommandLine(int count, char const* const* arguments);

}  // namespace kestrel::tool
