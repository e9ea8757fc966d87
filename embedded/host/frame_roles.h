#pragma once

#include <map>

class LumoLabelFrame;
class LumoVisualization;

namespace kestrel::host {

/// What a label frame is to a reader, in the order of reading.
enum class FrameRole {
  Title1,
  Title2,
  Subtitle,
  StatisticsSummary,
  Footnote1,
  Footnote2,
  Footnote3,
  /// None of these.
  Other
};

struct FramePlace {
  FrameRole role;
  /// Among the frames of that role.
  long index = 0;
};

inline bool operator<(FramePlace const& left, FramePlace const& right) {
  return left.role != right.role ? left.role < right.role : left.index < right.index;
}

/// The roles of a chart's label frames. The chart's record of its special parts counts first, then the
/// purpose of a frame's label, then the frame's id.
class FrameRoles {
 public:
  explicit FrameRoles(LumoVisualization const& visualization);

  FramePlace of(LumoLabelFrame const& frame) const;

  /// The id that frames of that role usually have.
  static char16_t const* idOf(FrameRole role);

 private:
  /// Of a frame in several slots the first counts.
  std::map<LumoLabelFrame const*, FramePlace> mRecorded;
};

}  // namespace kestrel::host
