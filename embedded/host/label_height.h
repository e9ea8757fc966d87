#pragma once

#include <optional>

class LumoLabelFrame;

namespace kestrel::host {

/// A length in pixels, 96 to an inch. None for a text that is no length, and for percentages but 0.
std::optional<double> pixelsOf(char16_t const* length);

/// The height in whole pixels that the lines of a frame's label need in the font size of its style; 0 for a
/// frame that shows nothing.
int heightOf(LumoLabelFrame const& frame);

}  // namespace kestrel::host
