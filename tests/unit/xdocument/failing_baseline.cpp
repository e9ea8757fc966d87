#include "failing_baseline.h"

#include <dlfcn.h>
#include <xercesc/util/XercesDefs.hpp>

namespace kestrel::test {

namespace {

std::function<void()> atParsedCharts;

}  // namespace

BaselineTrap::BaselineTrap(std::function<void()> const& action) { atParsedCharts = action; }
BaselineTrap::~BaselineTrap() { atParsedCharts = nullptr; }

}  // namespace kestrel::test

// Stands before the model's own constructor, LumoDocument(xercesc::DOMDocument*), by its mangled name.
#define KESTREL_TEXT(name) KESTREL_TEXT_OF(name)
#define KESTREL_TEXT_OF(name) #name
#define KESTREL_CONSTRUCTOR "_ZN12LumoDocumentC1EPN11" KESTREL_TEXT(XERCES_CPP_NAMESPACE) "11DOMDocumentE"
static_assert(sizeof KESTREL_TEXT(XERCES_CPP_NAMESPACE) - 1 == 11, "the mangled name says how long it is");

extern "C" __attribute__((visibility("default"))) void constructOverParsedText(
    void* document, void* parsed) __asm__(KESTREL_CONSTRUCTOR);

extern "C" void constructOverParsedText(void* document, void* parsed) {
  if (kestrel::test::atParsedCharts) kestrel::test::atParsedCharts();
  using Function = void (*)(void*, void*);
  static auto const own = reinterpret_cast<Function>(::dlsym(RTLD_NEXT, KESTREL_CONSTRUCTOR));
  own(document, parsed);
}
#undef KESTREL_CONSTRUCTOR
#undef KESTREL_TEXT_OF
#undef KESTREL_TEXT
