#include "worker_threads.h"

#include <system_error>
#include <utility>

namespace kestrel::tool {

bool WorkerThreads::take(std::function<void()> const& job) {
  std::lock_guard const lock(mMutex);
  if (mJobs.size() >= mIdle && !addThread()) return false;
  mJobs.push_back(job);
  mCame.notify_one();
  return true;
}

bool WorkerThreads::addThread() {
  if (mThreads.size() >= mMost) return false;
  try {
    mThreads.emplace_back([this] { work(); });
  } catch (std::system_error const&) {
    // The threads that are there do the work where the system has no more.
    return false;
  }
  // It is counted before it starts, or the next job would find it missing.
  ++mIdle;
  return true;
}

void WorkerThreads::work() {
  std::unique_lock lock(mMutex);
  for (;;) {
    mCame.wait(lock, [this] { return mIsOver || !mJobs.empty(); });
    if (mJobs.empty()) return;
    --mIdle;
    std::function<void()> const job = std::move(mJobs.front());
    mJobs.pop_front();
    lock.unlock();
    job();
    lock.lock();
    ++mIdle;
  }
}

void WorkerThreads::shutdown() {
  {
    std::lock_guard const lock(mMutex);
    mIsOver = true;
  }
  mCame.notify_all();
  for (std::thread& thread : mThreads) thread.join();
  mThreads.clear();
}

}  // namespace kestrel::tool
