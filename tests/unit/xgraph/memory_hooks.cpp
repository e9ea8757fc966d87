#include "memory_hooks.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace kestrel::test {

namespace {

AllocationTrap* armed = nullptr;
DeletionWatch* watching = nullptr;

}  // namespace

AllocationTrap::AllocationTrap(std::function<void()> action) : mAction(std::move(action)) { armed = this; }

AllocationTrap::~AllocationTrap() { armed = nullptr; }

void AllocationTrap::spring() {
  if (armed == nullptr) return;
  // Once only: what handles the failure needs memory too.
  AllocationTrap const& trap = *std::exchange(armed, nullptr);
  trap.mAction();
}

DeletionWatch::DeletionWatch(void const* memory) : mMemory(memory) { watching = this; }

DeletionWatch::~DeletionWatch() { watching = nullptr; }

void DeletionWatch::note(void const* memory) noexcept {
  if (watching != nullptr && watching->mMemory == memory) watching->mWasDeleted = true;
}

}  // namespace kestrel::test

// These take the place of the standard ones in the whole program.

void* operator new(std::size_t size) {
  kestrel::test::AllocationTrap::spring();
  void* const memory = std::malloc(size > 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept {
  kestrel::test::DeletionWatch::note(memory);
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
