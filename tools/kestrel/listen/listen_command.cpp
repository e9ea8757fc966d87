#include "listen_command.h"

#include "chart_folder.h"
#include "connection.h"
#include "files.h"
#include "listening_socket.h"
#include "problem.h"
#include "stop_signals.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
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
        mLongestSilence(request.idle),
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
      closeSilent();
      if (ready[1].revents != 0) accept();
    }
    for (Connection& connection : mConnections) end(connection);
  }

  bool good() const { return mGood; }

 private:
  /// The signals, the socket, and each connection; with what is to be read there.
  std::vector<pollfd> wait() {
    mWaitedFrom = Connection::Clock::now();
    bool const accepts = mConnections.size() < mostConnections && !(mOnce && mAccepted > 0);
    std::vector<pollfd> wanted = {{mSignals.descriptor(), POLLIN, 0},
                                  // A negative number is passed over.
                                  {accepts ? mSocket.descriptor() : -1, POLLIN, 0}};
    for (Connection const& connection : mConnections) wanted.push_back({connection.descriptor(), POLLIN, 0});
    while (::poll(wanted.data(), static_cast<nfds_t>(wanted.size()), milliseconds()) < 0) {
      if (errno != EINTR)
        throw Problem("cannot wait: " + std::generic_category().message(errno), Exit::NotWritten);
    }
    return wanted;
  }

  /// Until the first connection will have been silent for too long, as poll() wants it.
  int milliseconds() const {
    if (mLongestSilence.count() == 0 || mConnections.empty()) return -1;
    auto const longest = std::min_element(mConnections.begin(), mConnections.end(), earlier);
    auto const left = longest->silentSince() + mLongestSilence - mWaitedFrom;
    return static_cast<int>(
        std::max<std::int64_t>(0, std::chrono::ceil<std::chrono::milliseconds>(left).count()));
  }

  static bool earlier(Connection const& left, Connection const& right) {
    return left.silentSince() < right.silentSince();
  }

  /// A sender that holds its connection and sends nothing must not keep others out. Only time before the last
  /// wait counts, which has shown that nothing was there to be read.
  void closeSilent() {
    if (mLongestSilence.count() == 0) return;
    auto const latest = mWaitedFrom - mLongestSilence;
    for (auto connection = mConnections.begin(); connection != mConnections.end();) {
      auto const each = connection++;
      if (each->silentSince() > latest) continue;
      each->giveUp(mLongestSilence);
      end(*each);
      mConnections.erase(each);
    }
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
  std::chrono::seconds mLongestSilence;
  ChartFolder mFolder;
  StopSignals mSignals;
  ListeningSocket mSocket;
  std::list<Connection> mConnections;
  std::size_t mAccepted = 0;
  Connection::Clock::time_point mWaitedFrom;
  bool mGood = true;
};

}  // namespace

bool runListen(ListenRequest const& request) {
  Listening listening(request);
  listening.run();
  return listening.good() || !request.once;
}

}  // namespace kestrel::tool
