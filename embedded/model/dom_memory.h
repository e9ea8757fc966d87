#pragma once

#include "arena.h"

#include <xercesc/framework/MemoryManager.hpp>

#include <array>
#include <cstddef>

namespace kestrel::model {

/// Memory for one DOM document. The DOM asks for several small blocks for each element, and gives them back
/// one by one when it ends; here that is a step in a list, and the memory goes as a whole. Must outlive the
/// document.
class DomMemory final : public xercesc::MemoryManager {
 public:
  xercesc::MemoryManager* getExceptionMemoryManager() override;
  /// Throws std::bad_alloc.
  void* allocate(XMLSize_t size) override;
  void deallocate(void* block) override;

 private:
  /// Stands before each block; while the block is free, it leads to the next one of its class.
  union alignas(std::max_align_t) Header {
    std::size_t sizeClass;
    Header* next;
  };
  /// Blocks are as long as a multiple of this. Class n holds n of them; class 0 is for large blocks, which
  /// the heap gives.
  static constexpr std::size_t step = alignof(Header);
  static constexpr std::size_t classes = 33;

  Arena arena_;
  std::array<Header*, classes> free_{};
};

}  // namespace kestrel::model
