#pragma once

#include <functional>

namespace kestrel::test {

/// While it lives, taking a parsed text for a chart runs an action, which may throw. One at a time.
class BaselineTrap {
 public:
  explicit BaselineTrap(std::function<void()> const& action);
  BaselineTrap(BaselineTrap const&) = delete;
  BaselineTrap& operator=(BaselineTrap const&) = delete;
  ~BaselineTrap();
};

}  // namespace kestrel::test
