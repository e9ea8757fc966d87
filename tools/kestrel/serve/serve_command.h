#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kestrel::tool {

struct ServeRequest {
  /// Captures to show, and sockets to listen on, written unix:PATH. None: a socket in the current folder.
  std::vector<std::string> sources;
  std::string host = "127.0.0.1";
  int port = 8411;
  /// How many charts are kept, and how many bytes all of them may take.
  std::size_t keep = 100;
  std::size_t mostBytes = std::size_t{1} << 30;
  /// How long a chart may be, in MiB.
  std::size_t limit = 256;
  /// For how many seconds a connection may send nothing; 0 for as long as it likes.
  unsigned int idle = 60;
};

/// Shows charts in a browser as they come, until SIGINT or SIGTERM. Throws a Problem where a capture cannot
/// be read, or a socket or the port cannot be had.
void runServe(ServeRequest const& request);

}  // namespace kestrel::tool
