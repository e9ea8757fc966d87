#pragma once

#include "timed_socket.h"

#include <httplib.h>

#include <cstddef>
#include <mutex>
#include <set>

namespace kestrel::tool {

/// An HTTP server that answers one request of each connection, in the time that it allows for it. Every
/// answer is sent whole and as it is: of requests for parts one could ask for the same part a thousand times,
/// and to compress an answer may take seconds.
class TimedServer : public httplib::Server {
 public:
  /// At most so many connections at a time; more are refused at once.
  TimedServer(std::size_t mostConnections, Patience const& patience);

  /// Stops without waiting for anybody: connections that are open are cut.
  void stopAtOnce();

 private:
  class Open;

  bool process_and_close_socket(socket_t socket) override;

  Patience mPatience;
  std::mutex mMutex;
  std::set<int> mOpen;
  bool mIsOver = false;
};

}  // namespace kestrel::tool
