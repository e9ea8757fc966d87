// The memory of a chart's DOM.

#include "dom_memory.h"

#include <gtest/gtest.h>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <cstdint>
#include <cstring>
#include <set>

namespace {

using kestrel::model::DomMemory;

constexpr XMLSize_t sizes[] = {0, 1, 16, 17, 500, 512, 513, 100000};

TEST(DomMemoryTest, BlocksAreAlignedAndDoNotOverlap) {
  DomMemory memory;
  std::set<std::pair<std::uintptr_t, std::uintptr_t>> blocks;
  for (int round = 0; round < 50; ++round) {
    for (XMLSize_t const size : sizes) {
      void* const block = memory.allocate(size);
      auto const begin = reinterpret_cast<std::uintptr_t>(block);
      EXPECT_EQ(begin % alignof(std::max_align_t), 0U) << size;
      std::memset(block, 0xEE, size);
      blocks.emplace(begin, begin + size);
    }
  }
  std::uintptr_t end = 0;
  for (auto const& block : blocks) {
    EXPECT_GE(block.first, end);
    end = block.second;
  }
  for (auto const& block : blocks) memory.deallocate(reinterpret_cast<void*>(block.first));  // NOLINT
}

TEST(DomMemoryTest, AFreeBlockServesTheNextOfItsSize) {
  DomMemory memory;
  void* const first = memory.allocate(20);
  void* const second = memory.allocate(32);
  memory.deallocate(first);
  memory.deallocate(second);
  EXPECT_EQ(memory.allocate(24), second);
  EXPECT_EQ(memory.allocate(17), first);
  void* const other = memory.allocate(33);
  EXPECT_NE(other, first);
  EXPECT_NE(other, second);
}

TEST(DomMemoryTest, NothingIsGivenBackForNull) {
  DomMemory memory;
  memory.deallocate(nullptr);
  EXPECT_NE(memory.allocate(16), memory.allocate(16));
}

TEST(DomMemoryTest, HoldsADocument) {
  xercesc::XMLPlatformUtils::Initialize();
  {
    DomMemory memory;
    xercesc::DOMDocument* const document =
        xercesc::DOMImplementation::getImplementation()->createDocument(nullptr, u"chart", nullptr, &memory);
    xercesc::DOMElement& root = *document->getDocumentElement();
    for (int count = 0; count < 1000; ++count) {
      xercesc::DOMElement* const element = document->createElement(u"point");
      element->setAttribute(u"id", u"element_point_1");
      element->setUserData(u"point", &memory, nullptr);
      root.appendChild(element);
      if (count % 3 == 0) root.removeChild(element)->release();
    }
    EXPECT_EQ(root.getChildElementCount(), 666U);
    document->release();
  }
  xercesc::XMLPlatformUtils::Terminate();
}

}  // namespace
