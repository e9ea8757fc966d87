#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrel::model {

/// Memory that is given back as a whole. No destructor runs for what was made in it.
class Arena {
 public:
  Arena() = default;
  Arena(Arena const&) = delete;
  Arena& operator=(Arena const&) = delete;

  template <typename T, typename... Arguments>
  T& make(Arguments&&... arguments) {
    static_assert(alignof(T) <= alignof(std::max_align_t));
    return *::new (allocate(sizeof(T), alignof(T))) T{std::forward<Arguments>(arguments)...};
  }

  /// A zero-terminated copy.
  char16_t const* copy(std::u16string_view text);

  /// Throws std::bad_alloc.
  void* allocate(std::size_t size, std::size_t alignment);

 private:
  std::vector<std::unique_ptr<std::byte[]>> chunks_;
  std::byte* next_ = nullptr;
  std::size_t left_ = 0;
  std::size_t chunkSize_ = 4096;
};

}  // namespace kestrel::model
