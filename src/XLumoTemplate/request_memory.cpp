// Nothing but the one allocation that leak checks are to pass over: they know it by the name of this file.

#include "request_memory.h"

#include <new>

namespace kestrel {

namespace {

class RequestMemory final : public xercesc::MemoryManager {
 public:
  xercesc::MemoryManager* getExceptionMemoryManager() override { return this; }
  void* allocate(XMLSize_t size) override { return ::operator new(size); }
  void deallocate(void* memory) override { ::operator delete(memory); }
};

}  // namespace

xercesc::MemoryManager& requestMemory() {
  static RequestMemory memory;
  return memory;
}

}  // namespace kestrel
