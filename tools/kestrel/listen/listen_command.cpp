#include "listen_command.h"

#include "chart_folder.h"
#include "connection.h"
#include "files.h"
#include "listening_socket.h"
#include "problem.h"
#include "stop_signals.h"

#include <poll.h>

#include <cerrno>
#include <list>
#include <system_error>
#include <utility>
#include <vector>

namespace kestrel::tool {

namespace {

/// Further senders wait until one of these has ended.
constexpr std::size_t mostConnections = 64;

class Listening {
 public:
  explicit Listening(ListenRequest const& request)
      : mOnce(request.once),
        mLongestChart(request.limit << 20),
        mFolder(request.output, request.mostBytes),
        mSocket(request.path) {
    print("listening on " + printable(request.path) + "\n");
  }

  /// Until there is nothing to wait for any more.
  void run() {
    while (!(mOnce && mAccepted > 0 && mConnections.empty())) {
      std::vector<pollfd> const ready = wait();
      if (ready[0].revents != 0) break;
      readFrom(ready);
      if (ready[1].revents != 0) accept();
    }
    for (Connection& connection : mConnections) end(connection);
  }

  bool good() const { return mGood; }

 private:
  /// The signals, the socket, and each connection; with what is to be read there.
  std::vector<pollfd> wait() const {
    bool const accepts = mConnections.size() < mostConnections && !(mOnce && mAccepted > 0);
    std::vector<pollfd> wanted = {{mSignals.descriptor(), POLLIN, 0},
                                  // A negative number is passed over.
                                  {accepts ? mSocket.descriptor() : -1, POLLIN, 0}};
    for (Connection const& connection : mConnections) wanted.push_back({connection.descriptor(), POLLIN, 0});
    while (::poll(wanted.data(), static_cast<nfds_t>(wanted.size()), -1) < 0) {
      if (errno != EINTR)
        throw Problem("cannot wait: " + std::generic_category().message(errno), Exit::NotWritten);
    }
    return wanted;
  }

  void readFrom(std::vector<pollfd> const& ready) {
    auto connection = mConnections.begin();
    for (std::size_t at = 2; at < ready.size(); ++at) {
      auto const each = connection++;
      if (ready[at].revents == 0 || each->read()) continue;
      end(*each);
      mConnections.erase(each);
    }
  }

  void accept() {
    OpenFile socket = mSocket.accept();
    if (socket.number() < 0) return;
    mConnections.emplace_back(std::move(socket), ++mAccepted, mFolder, mLongestChart);
  }

  void end(Connection& connection) {
    connection.end();
    mGood = mGood && connection.good();
  }

  bool mOnce;
  std::size_t mLongestChart;
  ChartFolder mFolder;
  StopSignals mSignals;
  ListeningSocket mSocket;
  std::list<Connection> mConnections;
  std::size_t mAccepted = 0;
  bool mGood = true;
};

}  // namespace

bool runListen(ListenRequest const& request) {
  Listening listening(request);
  listening.run();
  return listening.good() || !request.once;
}

}  // namespace kestrel::tool
