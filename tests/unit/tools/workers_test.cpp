// The threads of kestrel serve, under the interfaces that versions of the HTTP library ask for.

#include "serve/workers.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <thread>
#include <type_traits>

namespace kestrel::tool {

namespace {

struct QueueThatIsToldNothing {
  virtual ~QueueThatIsToldNothing() = default;
  virtual void enqueue(std::function<void()> job) = 0;
  virtual void shutdown() = 0;
};

struct QueueThatIsToldWhatWasTaken {
  virtual ~QueueThatIsToldWhatWasTaken() = default;
  virtual bool enqueue(std::function<void()> job) = 0;
  virtual void shutdown() = 0;
  virtual void on_idle() {}
};

using OlderWorkers = Workers<QueueThatIsToldNothing>;
using NewerWorkers = Workers<QueueThatIsToldWhatWasTaken>;

static_assert(std::is_void_v<OlderWorkers::Taken> && !std::is_abstract_v<OlderWorkers>);
static_assert(std::is_same_v<NewerWorkers::Taken, bool> && !std::is_abstract_v<NewerWorkers>);

/// Whether the next job is refused, and on which thread it runs.
template <typename AnyWorkers>
bool refusesAtOnce(AnyWorkers& workers) {
  bool isRefused = false;
  std::thread::id thread;
  workers.enqueue([&] {
    isRefused = isRefusedJob;
    thread = std::this_thread::get_id();
  });
  return isRefused && thread == std::this_thread::get_id();
}

}  // namespace

TEST(Workers, TakeAJobForEachThread) {
  NewerWorkers workers(2);
  std::promise<void> end;
  std::shared_future<void> const ended = end.get_future().share();
  std::atomic<int> done = 0;
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(workers.enqueue([&, ended] {
      ended.wait();
      if (!isRefusedJob) ++done;
    }));
  }
  end.set_value();
  workers.shutdown();
  EXPECT_EQ(done, 2);
}

TEST(Workers, RefuseAtOnceWhatThereIsNoThreadFor) {
  OlderWorkers older(1);
  NewerWorkers newer(1);
  std::promise<void> end;
  std::shared_future<void> const ended = end.get_future().share();
  older.enqueue([ended] { ended.wait(); });
  newer.enqueue([ended] { ended.wait(); });
  EXPECT_TRUE(refusesAtOnce(older));
  EXPECT_TRUE(refusesAtOnce(newer));
  EXPECT_FALSE(isRefusedJob);
  end.set_value();
  older.shutdown();
  newer.shutdown();
}

TEST(Workers, UseAThreadAgain) {
  NewerWorkers workers(1);
  std::promise<void> first;
  workers.enqueue([&] { first.set_value(); });
  first.get_future().wait();
  // The thread is free a moment after its job has ended.
  std::atomic<bool> isDone = false;
  for (int i = 0; i < 1000 && !isDone; ++i) {
    workers.enqueue([&] { isDone = isDone || !isRefusedJob; });
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  EXPECT_TRUE(isDone);
  workers.shutdown();
}

TEST(Workers, DoWhatWasTakenBeforeTheyEnd) {
  std::atomic<int> done = 0;
  OlderWorkers workers(8);
  for (int i = 0; i < 8; ++i) workers.enqueue([&] { ++done; });
  workers.shutdown();
  EXPECT_EQ(done, 8);
}

}  // namespace kestrel::tool
