#pragma once

#include "listen/incoming_chart.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::tool {

/// The charts that are shown: the newest ones, in memory. Every operation may be called on any thread.
class ChartShelf : public ChartReceiver {
 public:
  struct Kept {
    /// From 1, in the order in which they came.
    std::size_t id;
    /// Where it came from, as the reader is told.
    std::string from;
    /// In milliseconds since 1970.
    std::int64_t received;
    /// Its capture.
    std::shared_ptr<std::string const> bytes;
  };

  /// What has happened since somebody looked.
  struct News {
    std::vector<Kept> charts;
    /// Charts below this number are no longer kept.
    std::size_t first;
    /// Nothing will happen any more.
    bool isClosed;
  };

  /// Of more charts, or more bytes, the oldest are dropped. Charts on their way may take as much again.
  ChartShelf(std::size_t mostCharts, std::size_t mostBytes);

  std::unique_ptr<IncomingChart> begin(std::string const& sender) override;

  /// Keeps a capture.
  void put(std::string const& from, std::string bytes);

  /// The capture of a chart, or null where it is not kept.
  std::shared_ptr<std::string const> find(std::size_t id) const;

  /// Waits until there is a chart above `last`, one below `first` is kept no longer, or the time is over.
  News news(std::size_t last, std::size_t first, std::chrono::milliseconds patience) const;

  /// Ends all waiting.
  void close();

 private:
  class Chart;

  void dropOldest();

  std::size_t mMostCharts;
  std::size_t mMostBytes;
  mutable std::mutex mMutex;
  mutable std::condition_variable mChanged;
  std::deque<Kept> mKept;
  std::size_t mBytes = 0;
  std::size_t mUnderWay = 0;
  std::size_t mLast = 0;
  bool mIsClosed = false;
};

}  // namespace kestrel::tool
