#pragma once

#include <string>

namespace kestrel::tool {

struct InspectRequest {
  std::string capture;
  /// The folder for the contents; empty for none.
  std::string extract;
  bool json = false;
};

/// Lists a capture on standard output and says on standard error what is wrong with it. False where something
/// is. Throws a Problem where it cannot be read or written.
bool runInspect(InspectRequest const& request);

}  // namespace kestrel::tool
