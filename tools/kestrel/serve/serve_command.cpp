#include "serve_command.h"

#include "chart_server.h"
#include "chart_shelf.h"
#include "client/view_command.h"
#include "files.h"
#include "listen/listening.h"
#include "problem.h"

#include <chrono>
#include <filesystem>
#include <string_view>

namespace kestrel::tool {

namespace {

constexpr std::string_view socketMark = "unix:";
constexpr char const* usualSocket = "kestrel.sock";

/// The sockets among the sources.
std::vector<std::string> socketsOf(ServeRequest const& request) {
  if (request.sources.empty()) return {usualSocket};
  std::vector<std::string> paths;
  for (std::string const& source : request.sources) {
    if (source.starts_with(socketMark)) paths.push_back(source.substr(socketMark.size()));
  }
  return paths;
}

void keepCaptures(ServeRequest const& request, ChartShelf& shelf) {
  for (std::string const& source : request.sources) {
    if (!source.starts_with(socketMark)) shelf.put(source, readCaptureFile(source));
  }
}

}  // namespace

void runServe(ServeRequest const& request) {
  ChartShelf shelf(request.keep, request.mostBytes);
  keepCaptures(request, shelf);
  std::vector<std::string> const paths = socketsOf(request);
  Listening listening(paths, shelf,
                      {.once = false,
                       .longestChart = request.limit << 20,
                       .longestSilence = std::chrono::seconds(request.idle)});
  ChartServer const server(shelf, request.host, request.port);
  for (std::string const& path : paths) {
    print("a program sends here with KESTREL_CAPTURE=unix:" +
          printable(std::filesystem::absolute(path).string()) + "\n");
  }
  print("charts are at " + server.url() + "\n");
  listening.run();
}

}  // namespace kestrel::tool
