#pragma once

#include "chart_shelf.h"

#include <memory>
#include <string>

namespace kestrel::tool {

/// Serves the charts of a shelf over HTTP, on threads of its own, for as long as it lives.
class ChartServer {
 public:
  /// `host` is an address or a name of this machine; port 0 is any that is free. The shelf must live longer.
  /// Throws a Problem where the client is missing or the port cannot be had.
  ChartServer(ChartShelf& shelf, std::string const& host, int port);
  /// Closes the shelf, for nobody may wait for it any longer.
  ~ChartServer();
  ChartServer(ChartServer const&) = delete;
  ChartServer& operator=(ChartServer const&) = delete;

  std::string url() const;

 private:
  class Service;
  std::unique_ptr<Service> mService;
};

}  // namespace kestrel::tool
