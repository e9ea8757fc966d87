#pragma once

#include "worker_threads.h"

#include <cstddef>
#include <functional>
#include <utility>

namespace kestrel::tool {

/// Whether the job that runs on this thread is one that no thread was free for: it has to end at once.
inline thread_local bool isRefusedJob = false;

/// The threads that answer connections, as the HTTP library wants them: `Queue` is its interface. There,
/// enqueue() tells in some versions whether the job was taken, in others nothing. A job that is not taken has
/// to be run all the same, for it owns its connection: it runs as a refused one on the thread that waits for
/// connections.
template <typename Queue>
class Workers : public Queue {
 public:
  using Taken = decltype(std::declval<Queue&>().enqueue(std::function<void()>()));

  explicit Workers(std::size_t most) : mThreads(most) {}

  Taken enqueue(std::function<void()> job) override { return static_cast<Taken>(takeOrRefuse(job)); }
  void shutdown() override { mThreads.shutdown(); }

 private:
  bool takeOrRefuse(std::function<void()> const& job) {
    if (mThreads.take(job)) return true;
    isRefusedJob = true;
    job();
    isRefusedJob = false;
    return true;
  }

  WorkerThreads mThreads;
};

}  // namespace kestrel::tool
