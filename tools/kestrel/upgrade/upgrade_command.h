#pragma once

#include <string>

namespace kestrel::tool {

struct UpgradeRequest {
  /// The chart in LumoML 1.4, and the file for the current markup.
  std::string chart;
  std::string output;
  /// Says on standard output what could not be carried over.
  bool report = false;
};

/// Throws a Problem where the chart cannot be upgraded or written.
void runUpgrade(UpgradeRequest const& request);

}  // namespace kestrel::tool
