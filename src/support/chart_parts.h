#pragma once

#include "support/chart_text.h"
#include "support/failure.h"

#include "model/document.h"
#include "model/tokens.h"
#include "model/variables.h"

namespace kestrel {

/// The chart that an object of the model belongs to.
inline LumoVisualization& visualizationOf(LumoBaseElement const& element) {
  return present(element.getVisualization(), "visualization");
}

/// The record that names the chart's special parts.
inline LumoExtensionVis& findOrMakeExtension(LumoVisualization& visualization) {
  LumoExtensionVis* extension = visualization.getExtension();
  return extension != nullptr ? *extension : *visualization.addExtension();
}

/// New domains; their number is the count of their kind before.
inline LumoIntervalDomain& addIntervalDomain(LumoVisualization& visualization) {
  ChartString const id = numbered(LumoUni::_intervalDomain, visualization.getIntervalDomains().size());
  return *visualization.addIntervalDomain(id.xc_str());
}

inline LumoCategoricalDomain& addCategoricalDomain(LumoVisualization& visualization) {
  ChartString const id = numbered(LumoUni::_categoricalDomain, visualization.getCategoricalDomains().size());
  return *visualization.addCategoricalDomain(id.xc_str());
}

}  // namespace kestrel
