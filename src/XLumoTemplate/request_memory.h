#pragma once

#include <xercesc/framework/MemoryManager.hpp>

namespace kestrel {

/// The memory of the documents of requests. Nobody releases these: it is apart so that a leak check can tell
/// it from what should have been freed.
xercesc::MemoryManager& requestMemory();

}  // namespace kestrel
