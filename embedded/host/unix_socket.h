#pragma once

#include "descriptor.h"

#include <chrono>
#include <string>
#include <system_error>

namespace kestrel::host {

/// A connection to the unix domain socket at `path`, or nothing, and the reason in `error`. Waits no longer
/// than `patience` for a listener that has too many callers.
Descriptor connectTo(std::string const& path, std::chrono::milliseconds patience, std::error_code& error);

}  // namespace kestrel::host
