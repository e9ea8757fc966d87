#pragma once

#include "xbaseelement.h"

#include "support/failure.h"

namespace kestrel {

/// The chart's style of that id, made where there is none. Where the id belongs to something that is no
/// style, that is a failure.
inline LumoStyle& findOrMakeStyle(XBaseElement& builder, ChartString const& id) {
  return present(builder.AddStyle(id, false), "style");
}

}  // namespace kestrel
