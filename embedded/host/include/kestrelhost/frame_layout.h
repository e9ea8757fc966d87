#pragma once

#include "host/export.h"
#include "kestrelhost/templates.h"

namespace kestrel::host {

/// Stacks the label frames that have a role in the chart: at the top the first title, the second title and
/// the subtitle; at the bottom the statistics summaries and the footnotes 1 to 3; graphs, legends and
/// containers between them. Each container is a page of its own.
///
/// A role comes from the chart's record of its special parts, else from the purpose of the frame's label,
/// else from the frame's id. Blank frames get no room. Parts that have locations of anybody else keep them,
/// wherever those came from, so the baseline does not matter. Locations from here have ids that begin with
/// "packed_": they are replaced each time, and the same chart always gets the same.
class VEXA_API StackedFrames : public FrameLayout {
 public:
  /// True if anything got a location. False, and nothing is touched, where the chart's record says that its
  /// locations are to be preserved.
  bool pack(LumoVisualization& visualization, LumoDocument* baseline) override;
};

}  // namespace kestrel::host
