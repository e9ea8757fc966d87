// The program of one example, the one that it is named after: sends its chart into a capture in the current
// folder, and shows the chart text.
#include "gallery.h"
#include "xdocument.h"

#include "kestrelhost/host.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>

namespace {

/// example_dot_plot is the program of dot-plot.
std::string exampleOf(std::string const& program) {
  std::string name = std::filesystem::path(program).stem().string();
  name.erase(0, name.find('_') + 1);
  std::replace(name.begin(), name.end(), '_', '-');
  return name;
}

}  // namespace

int main(int, char** arguments) {
  try {
    std::string const name = exampleOf(arguments[0]);
    for (kestrel::gallery::Example const& example : kestrel::gallery::examples()) {
      if (example.name != name) continue;
      std::string const file = name + ".kcap";
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
    std::fprintf(stderr, "there is no example %s\n", name.c_str());
  } catch (std::exception const& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  }
  return 1;
}
