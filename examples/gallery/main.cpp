// The program of one example: sends its chart into a capture in the current folder, and shows the chart text.
#include "gallery.h"
#include "xdocument.h"

#include "kestrelhost/host.h"

#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

int main() {
  try {
    std::string_view const name = KESTREL_EXAMPLE;
    for (kestrel::gallery::Example const& example : kestrel::gallery::examples()) {
      if (example.name != name) continue;
      std::string const file = std::string(name) + ".kcap";
      kestrel::host::Host host;
      auto capture = std::make_shared<kestrel::host::CaptureChannel>(file);
      host.channel = capture;
      kestrel::host::ScopedHost const scope(host);
      XDocument document;
      example.describe(document);
      std::printf("%s\n", document.AsUTF8().c_str());
      bool const sent = document.SendChart(false, false, false) && capture->flush();
      std::printf("%s: %s\n", file.c_str(), sent ? "what a client gets" : "not sent");
      return sent ? 0 : 1;
    }
    std::fprintf(stderr, "there is no example %s\n", KESTREL_EXAMPLE);
  } catch (std::exception const& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  }
  return 1;
}
