#pragma once

#include <string>
#include <string_view>

namespace kestrel::tool {

struct NamedCapture {
  std::string name;
  std::string_view bytes;
};

struct CaptureDifference {
  bool same;
  /// What a reader is told: a line for each message, and the lines of chart texts that differ.
  std::string text;
};

/// Compares two captures, message by message. Messages are compared with those of the same place in the same
/// content; contents that only one of two charts has do not put the others out of step.
CaptureDifference compareCaptures(NamedCapture const& left, NamedCapture const& right);

}  // namespace kestrel::tool
