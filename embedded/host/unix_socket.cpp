#include "unix_socket.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace kestrel::host {

namespace {

using Clock = std::chrono::steady_clock;

Descriptor makeSocket() {
  Descriptor made(::socket(AF_UNIX, SOCK_STREAM, 0));
  if (!made.valid()) return made;
  ::fcntl(made.get(), F_SETFD, FD_CLOEXEC);
#ifdef SO_NOSIGPIPE
  int const on = 1;
  ::setsockopt(made.get(), SOL_SOCKET, SO_NOSIGPIPE, &on, sizeof on);
#endif
  return made;
}

/// A socket's limit of time holds for connecting too.
void limitTime(int socket, std::chrono::microseconds left) {
  std::int64_t const rest = std::max<std::int64_t>(left.count(), 1);
  timeval limit{};
  limit.tv_sec = static_cast<decltype(limit.tv_sec)>(rest / 1'000'000);
  limit.tv_usec = static_cast<decltype(limit.tv_usec)>(rest % 1'000'000);
  ::setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
}

}  // namespace

Descriptor connectTo(std::string const& path, std::chrono::milliseconds patience, std::error_code& error) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.empty() || path.size() >= sizeof address.sun_path) {
    error = std::make_error_code(path.empty() ? std::errc::no_such_file_or_directory
                                              : std::errc::filename_too_long);
    return {};
  }
  std::memcpy(address.sun_path, path.data(), path.size());
  Descriptor socket = makeSocket();
  auto const deadline = Clock::now() + patience;
  int number = socket.valid() ? EINTR : errno;
  while (number == EINTR) {
    limitTime(socket.get(), std::chrono::duration_cast<std::chrono::microseconds>(deadline - Clock::now()));
    auto const* const generic = reinterpret_cast<sockaddr const*>(&address);
    number = ::connect(socket.get(), generic, sizeof address) == 0 ? 0 : errno;
  }
  if (number == 0) return socket;
  bool const late = number == EAGAIN;
  error =
      late ? std::make_error_code(std::errc::timed_out) : std::error_code(number, std::generic_category());
  return {};
}

}  // namespace kestrel::host
