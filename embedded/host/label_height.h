#pragma once

#include <vector>

class LumoLabelFrame;
class LumoVisualization;

namespace kestrel::host {

/// The height in whole pixels that the lines of a frame's label need in the font size of its style; 0 for a
/// frame that shows nothing.
int heightOf(LumoLabelFrame const& frame);

/// Of all label frames of a chart that hold a label, in document order.
std::vector<int> heightsOfLabels(LumoVisualization& chart);

}  // namespace kestrel::host
