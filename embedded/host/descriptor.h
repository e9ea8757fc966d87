#pragma once

#include <unistd.h>

#include <utility>

namespace kestrel::host {

/// Owns an open file of the system.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : mNumber(number) {}
  ~Descriptor() {
    if (valid()) ::close(mNumber);
  }
  Descriptor(Descriptor&& other) noexcept : mNumber(std::exchange(other.mNumber, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(mNumber, other.mNumber);
    return *this;
  }
  Descriptor(Descriptor const&) = delete;
  Descriptor& operator=(Descriptor const&) = delete;

  bool valid() const { return mNumber >= 0; }
  int get() const { return mNumber; }
  /// Leaves it open, and to the caller.
  int release() { return std::exchange(mNumber, -1); }

 private:
  int mNumber = -1;
};

}  // namespace kestrel::host
