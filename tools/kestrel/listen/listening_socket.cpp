#include "listening_socket.h"

#include "problem.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

namespace kestrel::tool {

namespace {

Problem failed(std::string const& path, std::string const& what, int error) {
  return {path + ": " + what + ": " + std::generic_category().message(error) + "; choose another path",
          Exit::NotWritten};
}

sockaddr_un addressOf(std::string const& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.empty() || path.size() >= sizeof address.sun_path) {
    throw Problem((path.empty() ? "unix:" : path) + ": the path of a socket has 1 to " +
                      std::to_string(sizeof address.sun_path - 1) + " bytes; choose another",
                  Exit::BadInput);
  }
  std::memcpy(address.sun_path, path.data(), path.size());
  return address;
}

OpenFile makeSocket(std::string const& path, int type) {
  OpenFile made(::socket(AF_UNIX, type, 0));
  if (made.number() < 0) throw failed(path, "cannot make a socket", errno);
  ::fcntl(made.number(), F_SETFD, FD_CLOEXEC);
  return made;
}

sockaddr const* generic(sockaddr_un const& address) { return reinterpret_cast<sockaddr const*>(&address); }

/// Whether nobody listens on a socket any more. It is asked by a socket of another type, which whoever
/// listens refuses without noticing.
bool isStale(std::string const& path, sockaddr_un const& address) {
  OpenFile const probe = makeSocket(path, SOCK_DGRAM);
  return ::connect(probe.number(), generic(address), sizeof address) != 0 && errno == ECONNREFUSED;
}

void makeWay(std::string const& path, sockaddr_un const& address) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0) return;
  if (!S_ISSOCK(status.st_mode))
    throw Problem(path + ": is there already and no socket; choose another path", Exit::BadInput);
  if (!isStale(path, address))
    throw Problem(path + ": somebody listens there already; choose another path", Exit::BadInput);
  ::unlink(path.c_str());
}

}  // namespace

ListeningSocket::ListeningSocket(std::string const& path) : mPath(path) {
  sockaddr_un const address = addressOf(path);
  makeWay(path, address);
  mSocket = makeSocket(path, SOCK_STREAM);
  if (::bind(mSocket.number(), generic(address), sizeof address) != 0)
    throw failed(path, "cannot be made", errno);
  struct stat status {};
  bool const known = ::lstat(path.c_str(), &status) == 0;
  mDevice = status.st_dev;
  mFile = status.st_ino;
  // Nobody can connect before listen().
  if (known && ::chmod(path.c_str(), S_IRUSR | S_IWUSR) == 0 &&
      ::fcntl(mSocket.number(), F_SETFL, O_NONBLOCK) == 0 && ::listen(mSocket.number(), SOMAXCONN) == 0) {
    return;
  }
  int const error = errno;
  ::unlink(path.c_str());
  throw failed(path, "cannot be listened on", error);
}

ListeningSocket::~ListeningSocket() {
  struct stat status {};
  bool const isOurs =
      ::lstat(mPath.c_str(), &status) == 0 && status.st_dev == mDevice && status.st_ino == mFile;
  if (isOurs) ::unlink(mPath.c_str());
}

OpenFile ListeningSocket::accept() const {
  OpenFile accepted(::accept(mSocket.number(), nullptr, nullptr));
  bool const isFull = accepted.number() < 0 && (errno == EMFILE || errno == ENFILE || errno == ENOMEM);
  if (isFull) throw failed(mPath, "cannot accept a connection", errno);
  if (accepted.number() >= 0) ::fcntl(accepted.number(), F_SETFD, FD_CLOEXEC);
  return accepted;
}

}  // namespace kestrel::tool
