#pragma once

#include <cstddef>
#include <string>

namespace kestrel::tool {

struct RenderRequest {
  std::string capture;
  /// The picture to write; its name ends with .svg or .png.
  std::string output;
  /// Which chart of the capture, from 1.
  std::size_t chart = 1;
  /// How many pixels of a PNG are one of the chart's.
  double zoom = 1;
};

/// Draws a chart of a capture. Says on standard error what the picture leaves out. Throws a Problem where the
/// capture cannot be read, has no such chart, or the picture cannot be made.
/// @return false where something is wrong with the capture, which standard error has then been told
bool runRender(RenderRequest const& request);

}  // namespace kestrel::tool
