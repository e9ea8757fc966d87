#pragma once

#include "host/export.h"
#include "kestrelhost/templates.h"

namespace kestrel::host {

/// Stacks the label frames of a chart: at the top the first title, the second title and the subtitle; at the
/// bottom the statistics summaries, the footnotes 1 to 3 and the frames without a role; graphs, legends and
/// containers between them. Each container is a page of its own.
///
/// A role comes from the chart's record of its special parts, else from the purpose of the frame's label,
/// else from the frame's id. Blank frames get no room. Parts that have locations of anybody else keep them,
/// wherever those came from, so the baseline does not matter. Locations from here have ids of "packed_" and a
/// number: they are replaced each time, and the same chart always gets the same.
class VEXA_API StackedFrames : public FrameLayout {
 public:
  /// True if anything got a location. False, and nothing is touched, where the chart's record says that its
  /// locations are to be preserved.
  bool pack(LumoVisualization& visualization, LumoDocument* baseline) override;
  /// Packs a chart that has been packed before.
  void refit(LumoVisualization& visualization) override;
};

}  // namespace kestrel::host
