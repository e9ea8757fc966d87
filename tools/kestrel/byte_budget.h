#pragma once

#include <cstddef>
#include <filesystem>
#include <limits>

namespace kestrel::tool {

/// How many bytes may be written in all.
class ByteBudget {
 public:
  static constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();

  /// What a file takes on the disk besides its bytes: else empty files without end would cost nothing.
  static constexpr std::size_t fileCost = 4096;

  explicit ByteBudget(std::size_t bytes) : mAll(bytes), mLeft(bytes) {}

  /// To be called before that many bytes are written to the file. Throws a Problem where they are too many.
  void take(std::size_t bytes, std::filesystem::path const& file);

 private:
  std::size_t mAll;
  std::size_t mLeft;
};

}  // namespace kestrel::tool
