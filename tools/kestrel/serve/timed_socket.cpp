#include "timed_socket.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>

namespace kestrel::tool {

namespace {

using std::chrono::milliseconds;

bool isOnlyBusy(int error) { return error == EAGAIN || error == EINTR; }

using NameOf = int (*)(int, sockaddr*, socklen_t*);

Endpoint endpoint(int socket, NameOf nameOf) {
  sockaddr_storage address{};
  socklen_t size = sizeof address;
  auto* const generic = reinterpret_cast<sockaddr*>(&address);
  std::array<char, NI_MAXHOST> host{};
  std::array<char, NI_MAXSERV> port{};
  Endpoint found;
  if (nameOf(socket, generic, &size) != 0) return found;
  if (::getnameinfo(generic, size, host.data(), host.size(), port.data(), port.size(),
                    NI_NUMERICHOST | NI_NUMERICSERV) != 0)
    return found;
  found.address = host.data();
  std::from_chars(port.data(), port.data() + std::strlen(port.data()), found.port);
  return found;
}

}  // namespace

ssize_t TimedSocket::read(char* bytes, std::size_t count) {
  // A request that is too long would otherwise grow until its time is over.
  if (mRead >= mPatience.longestRequest) return -1;
  std::size_t const wanted = std::min(count, mPatience.longestRequest - mRead);
  for (;;) {
    ssize_t const got = ::recv(mSocket, bytes, wanted, MSG_DONTWAIT);
    if (got >= 0) {
      mRead += static_cast<std::size_t>(got);
      return got;
    }
    if (!isOnlyBusy(errno)) return -1;
    milliseconds const allowed =
        mRead == 0 ? std::min(mPatience.firstByte, mPatience.request) : mPatience.request;
    if (!waitFor(POLLIN, std::chrono::ceil<milliseconds>(mBegin + allowed - Clock::now()))) return -1;
  }
}

ssize_t TimedSocket::write(char const* bytes, std::size_t count) {
  for (std::size_t at = 0; at < count;) {
    ssize_t const sent = ::send(mSocket, bytes + at, count - at, MSG_DONTWAIT);
    if (sent < 0 && !isOnlyBusy(errno)) return -1;
    if (sent < 0 && !waitWritable()) return -1;
    if (sent < 0) continue;
    at += static_cast<std::size_t>(sent);
    mWritten += static_cast<std::size_t>(sent);
  }
  return static_cast<ssize_t>(count);
}

bool TimedSocket::isReadable() const { return waitFor(POLLIN, milliseconds(0)); }

bool TimedSocket::waitWritable() {
  auto const begin = Clock::now();
  bool const isReady = waitFor(POLLOUT, leftForAnswer());
  mWaited += Clock::now() - begin;
  return isReady && isPeerThere();
}

milliseconds TimedSocket::leftForAnswer() const {
  auto const allowed = mPatience.answer + milliseconds(mWritten * 1000 / mPatience.bytesPerSecond);
  return std::chrono::ceil<milliseconds>(allowed - mWaited);
}

bool TimedSocket::isPeerThere() const {
  char byte = 0;
  ssize_t const got = ::recv(mSocket, &byte, 1, MSG_PEEK | MSG_DONTWAIT);
  return got > 0 || (got < 0 && isOnlyBusy(errno));
}

bool TimedSocket::waitFor(short event, milliseconds patience) const {
  auto const end = Clock::now() + patience;
  for (auto left = patience; left.count() >= 0; left = std::chrono::ceil<milliseconds>(end - Clock::now())) {
    pollfd wanted{mSocket, event, 0};
    int const ready = ::poll(&wanted, 1, static_cast<int>(left.count()));
    if (ready > 0) return true;
    if (ready == 0 || errno != EINTR) return false;
  }
  return false;
}

Endpoint remoteEnd(int socket) { return endpoint(socket, &::getpeername); }
Endpoint localEnd(int socket) { return endpoint(socket, &::getsockname); }

}  // namespace kestrel::tool
