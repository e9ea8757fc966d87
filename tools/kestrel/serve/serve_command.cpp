#include "serve_command.h"

#include "addresses.h"
#include "chart_server.h"
#include "chart_shelf.h"
#include "client/view_command.h"
#include "files.h"
#include "inspect/inspect_command.h"
#include "inspect/inspection.h"
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
    if (source.starts_with(socketMark)) continue;
    std::string const bytes = readCaptureFile(source);
    tellFaults(source, Inspection(bytes).faults());
    shelf.put(source, bytes);
  }
}

void warnOfReaders(std::string const& host) {
  Reach const reach = reachOf(host);
  if (reach == Reach::ThisMachine) return;
  std::string const who = reach == Reach::AllAddresses ? "any address of this machine" : host;
  tell("--host " + host + ": whoever can reach " + who +
       " sees all charts, without a password and unencrypted; leave --host out to show them on this machine "
       "alone");
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
  warnOfReaders(request.host);
  for (std::string const& path : paths) {
    print("a program sends here with KESTREL_CAPTURE=unix:" +
          printable(std::filesystem::absolute(path).string()) + "\n");
  }
  print("charts are at " + server.url() + "\n");
  listening.run();
}

}  // namespace kestrel::tool
