#include "workers.h"

#include <system_error>
#include <utility>

namespace kestrel::tool {

namespace {

constexpr std::size_t mostWaiting = 64;

}  // namespace

void Workers::enqueue(std::function<void()> job) {
  std::unique_lock lock(mMutex);
  mTaken.wait(lock, [this] { return mJobs.size() < mostWaiting; });
  mJobs.push_back(std::move(job));
  if (mIdle < mJobs.size() && mThreads.size() < mMost) addThread();
  mCame.notify_one();
}

void Workers::addThread() {
  try {
    mThreads.emplace_back([this] { work(); });
  } catch (std::system_error const&) {
    // The threads that are there do the work where the system has no more.
    if (mThreads.empty()) throw;
    mMost = mThreads.size();
  }
}

void Workers::work() {
  std::unique_lock lock(mMutex);
  for (;;) {
    ++mIdle;
    mCame.wait(lock, [this] { return mIsOver || !mJobs.empty(); });
    --mIdle;
    if (mJobs.empty()) return;
    std::function<void()> const job = std::move(mJobs.front());
    mJobs.pop_front();
    mTaken.notify_one();
    lock.unlock();
    job();
    lock.lock();
  }
}

void Workers::shutdown() {
  {
    std::lock_guard const lock(mMutex);
    mIsOver = true;
  }
  mCame.notify_all();
  for (std::thread& thread : mThreads) thread.join();
}

}  // namespace kestrel::tool
