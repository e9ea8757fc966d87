#pragma once

#include "connection.h"
#include "incoming_chart.h"
#include "listening_socket.h"
#include "stop_signals.h"

#include <poll.h>

#include <chrono>
#include <cstddef>
#include <list>
#include <string>
#include <vector>

namespace kestrel::tool {

/// What senders are allowed.
struct ListeningLimits {
  /// Ends after one connection.
  bool once = false;
  /// How long a chart may be, in bytes.
  std::size_t longestChart;
  /// How long a connection may send nothing; 0 for as long as it likes.
  std::chrono::seconds longestSilence;
};

/// Receives charts on unix sockets until SIGINT or SIGTERM.
class Listening {
 public:
  /// Listens from now on, and tells the user so. The receiver must live longer. Throws a Problem where a
  /// socket cannot be made.
  Listening(std::vector<std::string> const& paths, ChartReceiver& receiver, ListeningLimits limits);

  /// Until there is nothing to wait for any more. Throws a Problem where a chart cannot be put away.
  void run();

  /// Whether all that came was sound.
  bool good() const { return mGood; }

 private:
  std::vector<pollfd> wait();
  int milliseconds() const;
  void closeSilent();
  void readFrom(std::vector<pollfd> const& ready);
  void acceptFrom(std::vector<pollfd> const& ready);
  void end(Connection& connection);

  ListeningLimits mLimits;
  ChartReceiver* mReceiver;
  StopSignals mSignals;
  std::list<ListeningSocket> mSockets;
  std::list<Connection> mConnections;
  std::size_t mAccepted = 0;
  Connection::Clock::time_point mWaitedFrom;
  bool mGood = true;
};

}  // namespace kestrel::tool
