#pragma once

#include <unistd.h>

#include <utility>

namespace kestrel::tool {

/// Owns an open file of the system.
class OpenFile {
 public:
  explicit OpenFile(int number = -1) : mNumber(number) {}
  ~OpenFile() {
    if (mNumber >= 0) ::close(mNumber);
  }
  OpenFile(OpenFile&& other) noexcept : mNumber(std::exchange(other.mNumber, -1)) {}
  OpenFile& operator=(OpenFile&& other) noexcept {
    std::swap(mNumber, other.mNumber);
    return *this;
  }
  OpenFile(OpenFile const&) = delete;
  OpenFile& operator=(OpenFile const&) = delete;

  int number() const { return mNumber; }

 private:
  int mNumber;
};

}  // namespace kestrel::tool
