#pragma once

#include "side_request.h"

namespace kestrel::tool {

/// Each sends what it names instead of a chart. Throws a Problem where it could not.
void runImage(ImageRequest const& request);
void runInteractive(InteractiveRequest const& request);
void runEngine(EngineRequest const& request);

}  // namespace kestrel::tool
