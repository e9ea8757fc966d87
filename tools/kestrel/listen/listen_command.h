#pragma once

#include <cstddef>
#include <string>

namespace kestrel::tool {

struct ListenRequest {
  /// The path of the socket.
  std::string path;
  /// The folder for the charts.
  std::string output;
  bool once = false;
  /// How long a chart may be, in MiB.
  std::size_t limit = 256;
  /// How many bytes all files together may take.
  std::size_t mostBytes = std::size_t{4} << 30;
  /// For how many seconds a connection may send nothing; 0 for as long as it likes.
  unsigned int idle = 60;
};

/// Receives charts on a unix socket until SIGINT or SIGTERM, or with `once` the charts of one connection.
/// Writes each of them and its contents, says on standard output what came and on standard error what is
/// wrong with it. False where `once` is given and something is wrong. Throws a Problem where the socket
/// cannot be made or something not be written.
bool runListen(ListenRequest const& request);

}  // namespace kestrel::tool
