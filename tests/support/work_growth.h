#pragma once

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <functional>
#include <limits>

namespace kestrel::test {

/// Times the processor, not the clock on the wall.
inline double secondsOf(std::function<void(std::size_t size)> const& work, std::size_t size) {
  auto const secondsOfThread = [] {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
  };
  double const start = secondsOfThread();
  work(size);
  return secondsOfThread() - start;
}

/// Between 16 and 256, and far from both: what disturbs the processor is no reason to fail.
inline constexpr double mostGrowth = 64;

/// How many times the time of `work(size)` it takes to do `work(16 * size)`: about 16 where each part costs
/// the same, about 256 where each is held against every other one. Of several tries the least.
inline double growthOf(std::function<void(std::size_t size)> const& work, std::size_t size) {
  constexpr int tries = 3;
  double small = std::numeric_limits<double>::max();
  for (int at = 0; at < tries; ++at) small = std::min(small, secondsOf(work, size));
  double growth = secondsOf(work, 16 * size) / small;
  // What is only somewhat too much may have been disturbed.
  for (int at = 1; at < tries && growth > mostGrowth && growth < 2 * mostGrowth; ++at)
    growth = std::min(growth, secondsOf(work, 16 * size) / small);
  return growth;
}

}  // namespace kestrel::test
