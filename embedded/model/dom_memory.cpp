#include "dom_memory.h"

#include <xercesc/util/PlatformUtils.hpp>

#include <new>

namespace kestrel::model {

xercesc::MemoryManager* DomMemory::getExceptionMemoryManager() {
  return xercesc::XMLPlatformUtils::fgMemoryManager;
}

void* DomMemory::allocate(XMLSize_t size) {
  std::size_t const steps = (size + step - 1) / step;
  std::size_t const sizeClass = steps < classes ? steps : 0;
  Header* header = free_[sizeClass];
  if (header != nullptr) {
    free_[sizeClass] = header->next;
  } else if (sizeClass != 0) {
    header = static_cast<Header*>(arena_.allocate(sizeof(Header) + steps * step, alignof(Header)));
  } else {
    header = static_cast<Header*>(::operator new(sizeof(Header) + size));
  }
  header->sizeClass = sizeClass;
  return header + 1;
}

void DomMemory::deallocate(void* block) {
  if (block == nullptr) return;
  Header* const header = static_cast<Header*>(block) - 1;
  std::size_t const sizeClass = header->sizeClass;
  if (sizeClass == 0) return ::operator delete(header);
  header->next = free_[sizeClass];
  free_[sizeClass] = header;
}

}  // namespace kestrel::model
