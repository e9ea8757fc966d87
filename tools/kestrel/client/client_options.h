#pragma once

#include "problem.h"

#include <memory>
#include <optional>

namespace CLI {
class App;
}

namespace kestrel::tool {

/// The commands that draw charts.
class ClientCommands {
 public:
  ClientCommands();
  ~ClientCommands();
  ClientCommands(ClientCommands const&) = delete;
  ClientCommands& operator=(ClientCommands const&) = delete;

  /// Declares them. This must be there while the program reads its command line.
  void addTo(CLI::App& program);

  /// Runs the one that the command line names.
  /// @return how it has ended, or nothing where it names none of them
  std::optional<Exit> run() const;

 private:
  struct Requests;
  std::unique_ptr<Requests> mRequests;
};

}  // namespace kestrel::tool
