#pragma once

#include "capture_reader.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kestrel::tool {

struct InspectRequest {
  std::string capture;
  /// The folder for the contents; empty for none.
  std::string extract;
  bool json = false;
  /// Of how many rows of each data source the cells are shown.
  std::size_t cells = 0;
  /// Another capture to compare with, instead of all that; empty for none.
  std::string other;
};

/// Lists a capture on standard output and says on standard error what is wrong with it. False where something
/// is, and where two captures that are compared differ. Throws a Problem where it cannot be read or written.
bool runInspect(InspectRequest const& request);

/// Says on standard error what is wrong with a capture, up to a hundred faults.
void tellFaults(std::string const& name, std::vector<Fault> const& faults);

}  // namespace kestrel::tool
