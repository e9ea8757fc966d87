#pragma once

#include "model/document.h"

namespace kestrel {

/// The record that names the chart's special parts.
inline LumoExtensionVis& findOrMakeExtension(LumoVisualization& visualization) {
  LumoExtensionVis* extension = visualization.getExtension();
  return extension != nullptr ? *extension : *visualization.addExtension();
}

}  // namespace kestrel
