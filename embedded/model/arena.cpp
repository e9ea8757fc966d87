#include "arena.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>

namespace kestrel::model {
namespace {

constexpr std::size_t greatestChunk = std::size_t{1} << 16;

}  // namespace

char16_t const* Arena::copy(std::u16string_view text) {
  auto* const memory =
      static_cast<char16_t*>(allocate((text.size() + 1) * sizeof(char16_t), alignof(char16_t)));
  *std::copy(text.begin(), text.end(), memory) = u'\0';
  return memory;
}

void* Arena::allocate(std::size_t size, std::size_t alignment) {
  void* place = next_;
  if (std::align(alignment, size, place, left_) == nullptr) {
    std::size_t const needed = std::max(chunkSize_, size + alignof(std::max_align_t));
    // Not make_unique, which would clear the memory.
    chunks_.emplace_back(new std::byte[needed]);
    place = chunks_.back().get();
    left_ = needed;
    chunkSize_ = std::min(chunkSize_ * 2, greatestChunk);
  }
  next_ = static_cast<std::byte*>(place) + size;
  left_ -= size;
  return place;
}

}  // namespace kestrel::model
