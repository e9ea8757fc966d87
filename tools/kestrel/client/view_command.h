#pragma once

#include <string>

namespace kestrel::tool {

struct ViewRequest {
  std::string capture;
  /// The page to write.
  std::string output;
};

/// Writes a page that shows a capture and needs nothing but itself. Throws a Problem where the capture cannot
/// be read, is none, or the page cannot be written.
/// @return false where something is wrong with the capture, which standard error has then been told
bool runView(ViewRequest const& request);

/// Reads a file that must begin as a capture does. Throws a Problem where it does not.
std::string readCaptureFile(std::string const& path);

}  // namespace kestrel::tool
