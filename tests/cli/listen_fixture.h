#pragma once

#include "cli_fixture.h"
#include "listener_process.h"

#include <filesystem>
#include <string>
#include <vector>

namespace kestrel::test {

/// Message 307 of type 0 with the payload "abc".
inline std::string const description(
    "\x33\x01\0\0\0\0\0\0\x0F\0\0\0\0\0\0\0"
    "\0\0\0\0\x03\0\0\0"
    "abc"
    "\0\0\0\0",
    31);

class Listen : public CliTest {
 protected:
  /// A chart that is sent, with nothing but that.
  Outcome send(std::vector<std::string> const& more = {}) const {
    write("t.csv", "a,b\n1,2\n");
    std::vector<std::string> arguments = {"chart", "t.csv", "--element", "point",  "--x",
                                          "a",     "--y",   "b",         "--send", "unix:s"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return kestrel(arguments);
  }

  /// A chart as a capture has it.
  std::string capture() const {
    chartOf("a,b\n1,2\n", {"--description", "abc"});
    return read("out/capture.kcap");
  }

  std::filesystem::path socket() const { return folder / "s"; }
};

}  // namespace kestrel::test
