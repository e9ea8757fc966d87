#pragma once

#include "side_request.h"

namespace kestrel::tool {

/// Sends what a client needs to make a chart itself: options, a service template with variables, and rows of
/// data. Throws a Problem where it could not.
void runService(ServiceRequest const& request);

}  // namespace kestrel::tool
