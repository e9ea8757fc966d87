#pragma once

#include <httplib.h>

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace kestrel::tool {

/// The threads that answer connections: as many as are needed, up to a bound. Beyond it, connections wait in
/// the system's own queue, which refuses what is too much.
class Workers : public httplib::TaskQueue {
 public:
  explicit Workers(std::size_t most) : mMost(most) {}

  /// Waits while all threads are busy and there are as many connections behind them as may wait.
  void enqueue(std::function<void()> job) override;
  /// Ends the threads when all connections have been answered.
  void shutdown() override;

 private:
  void work();
  void addThread();

  std::size_t mMost;
  std::mutex mMutex;
  std::condition_variable mCame;
  std::condition_variable mTaken;
  std::deque<std::function<void()>> mJobs;
  std::vector<std::thread> mThreads;
  std::size_t mIdle = 0;
  bool mIsOver = false;
};

}  // namespace kestrel::tool
