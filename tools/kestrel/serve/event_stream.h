#pragma once

#include "chart_shelf.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

namespace kestrel::tool {

/// What one page is told of a shelf, as server-sent events.
class EventStream {
 public:
  using Clock = std::chrono::steady_clock;

  /// `server` tells one run of the server from another: each counts its charts from 1. The shelf must live
  /// longer.
  EventStream(ChartShelf const& shelf, std::string server, Clock::duration longest);

  /// Waits for news, but no longer than the patience. Nothing where there will be none, or the stream has
  /// been there for long enough.
  std::optional<std::string> next(std::chrono::milliseconds patience);

 private:
  std::string beginning(std::size_t first) const;

  ChartShelf const* mShelf;
  std::string mServer;
  Clock::time_point mEnd;
  std::size_t mLast = 0;
  std::size_t mFirst = 1;
  bool mIsNew = true;
};

}  // namespace kestrel::tool
