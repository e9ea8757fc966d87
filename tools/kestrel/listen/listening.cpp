#include "listening.h"

#include "files.h"
#include "problem.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <system_error>
#include <utility>

namespace kestrel::tool {

namespace {

/// Further senders wait until one of these has ended.
constexpr std::size_t mostConnections = 64;

bool isSilentForLonger(Connection const& left, Connection const& right) {
  return left.silentSince() < right.silentSince();
}

}  // namespace

Listening::Listening(std::vector<std::string> const& paths, ChartReceiver& receiver, ListeningLimits limits)
    : mLimits(limits), mReceiver(&receiver) {
  for (std::string const& path : paths) {
    mSockets.emplace_back(path);
    print("listening on " + printable(path) + "\n");
  }
}

void Listening::run() {
  while (!(mLimits.once && mAccepted > 0 && mConnections.empty())) {
    std::vector<pollfd> const ready = wait();
    if (ready[0].revents != 0) break;
    readFrom(ready);
    closeSilent();
    acceptFrom(ready);
  }
  for (Connection& connection : mConnections) end(connection);
}

/// The signals, the sockets, and each connection; with what is to be read there.
std::vector<pollfd> Listening::wait() {
  mWaitedFrom = Connection::Clock::now();
  bool const accepts = mConnections.size() < mostConnections && !(mLimits.once && mAccepted > 0);
  std::vector<pollfd> wanted = {{mSignals.descriptor(), POLLIN, 0}};
  for (ListeningSocket const& socket : mSockets) {
    // A negative number is passed over.
    wanted.push_back({accepts ? socket.descriptor() : -1, POLLIN, 0});
  }
  for (Connection const& connection : mConnections) wanted.push_back({connection.descriptor(), POLLIN, 0});
  while (::poll(wanted.data(), static_cast<nfds_t>(wanted.size()), milliseconds()) < 0) {
    if (errno != EINTR)
      throw Problem("cannot wait: " + std::generic_category().message(errno), Exit::NotWritten);
  }
  return wanted;
}

/// Until the first connection will have been silent for too long, as poll() wants it.
int Listening::milliseconds() const {
  if (mLimits.longestSilence.count() == 0 || mConnections.empty()) return -1;
  auto const longest = std::min_element(mConnections.begin(), mConnections.end(), isSilentForLonger);
  auto const left = longest->silentSince() + mLimits.longestSilence - mWaitedFrom;
  return static_cast<int>(
      std::max<std::int64_t>(0, std::chrono::ceil<std::chrono::milliseconds>(left).count()));
}

/// A sender that holds its connection and sends nothing must not keep others out. Only time before the last
/// wait counts, which has shown that nothing was there to be read.
void Listening::closeSilent() {
  if (mLimits.longestSilence.count() == 0) return;
  auto const latest = mWaitedFrom - mLimits.longestSilence;
  for (auto connection = mConnections.begin(); connection != mConnections.end();) {
    auto const each = connection++;
    if (each->silentSince() > latest) continue;
    each->giveUp(mLimits.longestSilence);
    end(*each);
    mConnections.erase(each);
  }
}

void Listening::readFrom(std::vector<pollfd> const& ready) {
  auto connection = mConnections.begin();
  for (std::size_t at = 1 + mSockets.size(); at < ready.size(); ++at) {
    auto const each = connection++;
    if (ready[at].revents == 0 || each->read()) continue;
    end(*each);
    mConnections.erase(each);
  }
}

void Listening::acceptFrom(std::vector<pollfd> const& ready) {
  std::size_t at = 1;
  for (ListeningSocket const& listening : mSockets) {
    if (ready[at++].revents == 0 || mConnections.size() >= mostConnections) continue;
    OpenFile socket = listening.accept();
    if (socket.number() < 0) continue;
    mConnections.emplace_back(std::move(socket), ++mAccepted, *mReceiver, mLimits.longestChart);
  }
}

void Listening::end(Connection& connection) {
  connection.end();
  mGood = mGood && connection.good();
}

}  // namespace kestrel::tool
