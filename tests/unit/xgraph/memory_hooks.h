#pragma once

#include <functional>

namespace kestrel::test {

/// Runs an action, which throws, in place of the next allocation by `new` while it lives: the way into the
/// failure of an operation that only reads.
class AllocationTrap {
 public:
  explicit AllocationTrap(std::function<void()> action);
  AllocationTrap(AllocationTrap const&) = delete;
  AllocationTrap& operator=(AllocationTrap const&) = delete;
  ~AllocationTrap();

  /// Called by the allocation itself.
  static void spring();

 private:
  std::function<void()> mAction;
};

/// Whether a piece of memory is given back by `delete` while the watch lives.
class DeletionWatch {
 public:
  explicit DeletionWatch(void const* memory);
  DeletionWatch(DeletionWatch const&) = delete;
  DeletionWatch& operator=(DeletionWatch const&) = delete;
  ~DeletionWatch();

  bool wasDeleted() const { return mWasDeleted; }

  /// Called by the deletion itself.
  static void note(void const* memory) noexcept;

 private:
  void const* mMemory;
  bool mWasDeleted = false;
};

}  // namespace kestrel::test
