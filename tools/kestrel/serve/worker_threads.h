#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace kestrel::tool {

/// Threads that do jobs: as many as are needed, up to a bound. No job waits for a thread.
class WorkerThreads {
 public:
  explicit WorkerThreads(std::size_t most) : mMost(most) {}
  WorkerThreads(WorkerThreads const&) = delete;
  WorkerThreads& operator=(WorkerThreads const&) = delete;

  /// False where all threads are busy: the job is left to the caller.
  bool take(std::function<void()> const& job);
  /// Ends the threads when all jobs are done.
  void shutdown();

 private:
  void work();
  bool addThread();

  std::size_t mMost;
  std::mutex mMutex;
  std::condition_variable mCame;
  std::deque<std::function<void()>> mJobs;
  std::vector<std::thread> mThreads;
  std::size_t mIdle = 0;
  bool mIsOver = false;
};

}  // namespace kestrel::tool
