#include "failing_platform.h"

#include "model/chartstring.h"

#include <dlfcn.h>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/RuntimeException.hpp>
#include <xercesc/util/XMLExceptMsgs.hpp>

#include <ostream>
#include <stdexcept>

namespace kestrel::test {

namespace {

PlatformCalls* inForce = nullptr;

[[noreturn]] void throwPlatformFailure() {
  ThrowXML(xercesc::RuntimeException, xercesc::XMLExcepts::CPtr_PointerIsZero);
}

/// The library's own function behind the one of this file, by its mangled name without the prefix.
template <typename Function>
Function ownFunction(std::string const& name) {
#define KESTREL_TEXT(name) KESTREL_TEXT_OF(name)
#define KESTREL_TEXT_OF(name) #name
  std::string const library = KESTREL_TEXT(XERCES_CPP_NAMESPACE);
#undef KESTREL_TEXT_OF
#undef KESTREL_TEXT
  std::string const symbol = "_ZN" + std::to_string(library.size()) + library + name;
  void* const found = ::dlsym(RTLD_NEXT, symbol.c_str());
  if (found == nullptr) throw std::runtime_error("no " + symbol);
  return reinterpret_cast<Function>(found);
}

}  // namespace

PlatformCalls::PlatformCalls() { inForce = this; }

PlatformCalls::~PlatformCalls() {
  if (inForce == this) inForce = nullptr;
}

void PlatformCalls::failStart() { mAtStart = throwPlatformFailure; }
void PlatformCalls::failEnd() { mAtEnd = throwPlatformFailure; }

std::string PlatformCalls::failureMessage() {
  try {
    throwPlatformFailure();
  } catch (xercesc::XMLException const& failure) {
    return ChartString(failure.getMessage()).toUTF8();
  }
}

std::ostream& operator<<(std::ostream& out, PlatformCalls const& calls) {
  return out << calls.mStarts << " starts, " << calls.mEnds << " ends";
}

void PlatformCalls::start(char const* locale) {
  ++mStarts;
  mLocale = locale;
  if (mAtStart) mAtStart();
}

void PlatformCalls::end() {
  ++mEnds;
  if (mAtEnd) mAtEnd();
}

}  // namespace kestrel::test

using kestrel::test::inForce;
using kestrel::test::ownFunction;

// These two stand before the ones of the XML library.

void xercesc::XMLPlatformUtils::Initialize(char const* const locale, char const* const nlsHome,
                                           PanicHandler* const panicHandler,
                                           MemoryManager* const memoryManager) {
  if (inForce != nullptr) inForce->start(locale);
  using Function = void (*)(char const*, char const*, PanicHandler*, MemoryManager*);
  static auto const own =
      ownFunction<Function>("16XMLPlatformUtils10InitializeEPKcS2_PNS_12PanicHandlerEPNS_13MemoryManagerE");
  own(locale, nlsHome, panicHandler, memoryManager);
}

void xercesc::XMLPlatformUtils::Terminate() {
  if (inForce != nullptr) inForce->end();
  using Function = void (*)();
  static auto const own = ownFunction<Function>("16XMLPlatformUtils9TerminateEv");
  own();
}
