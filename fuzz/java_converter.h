// What the targets share that go through the Java converter.
#pragma once

#include "xdocument.h"

#include "host/java.h"
#include "kestrelhost/host.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace kestrel::fuzzing {

[[noreturn]] inline void fail(char const* what, std::string const& text) {
  std::fprintf(stderr, "%s\n%s\n", what, text.c_str());
  std::abort();
}

/// The converter, running.
inline LumoConverter& converter() {
  // Ends with the process, and closes what it has opened.
  static host::ScopedHost const scope{host::Host()};
  static LumoConverter& running = []() -> LumoConverter& {
    JNIEnv_* environment = nullptr;
    if (VexaJVM::GetInstance() == nullptr || !VexaJVM::GetInstance()->StartJVM() ||
        VexaJVM::GetInstance()->AttachCurrentThread(&environment) != 0 ||
        LumoConverter::GetInstance() == nullptr || !LumoConverter::GetInstance()->StartConverter(environment))
      fail("there is no Java", {});
    return *LumoConverter::GetInstance();
  }();
  return running;
}

/// A text is refused with a message, or becomes a chart that the library takes, completes and writes;
/// everything else that Java throws is a fault.
inline void convert(bool (LumoConverter::*conversion)(std::string const&, std::string&),
                    std::string const& text) {
  std::string markup;
  try {
    if (!(converter().*conversion)(text, markup)) {
      if (converter().GetErrorMessage().empty()) fail("refused without a message", text);
      return;
    }
  } catch (JException const* failure) {
    fail(failure->getMessage().c_str(), text);
  }
  XDocument document(markup);
  if (!document.implementationExists()) fail("the result is no chart", markup);
  if (document.getChartXML().empty()) fail("the result cannot be completed", markup);
}

}  // namespace kestrel::fuzzing
