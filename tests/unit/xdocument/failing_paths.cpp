#include "failing_paths.h"

#include "host/files.h"

#include <dlfcn.h>

namespace kestrel::test {

namespace {

bool withheld = false;

}  // namespace

NoPaths::NoPaths() { withheld = true; }
NoPaths::~NoPaths() { withheld = false; }

}  // namespace kestrel::test

// Stands before the one of the host.
PathInstance* PathFactory::getPathInstance(int kind) {
  if (kestrel::test::withheld) return nullptr;
  using Function = PathInstance* (*)(int);
  static auto const own =
      reinterpret_cast<Function>(::dlsym(RTLD_NEXT, "_ZN11PathFactory15getPathInstanceEi"));
  return own(kind);
}
