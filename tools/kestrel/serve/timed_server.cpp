#include "timed_server.h"

#include "listen/open_file.h"
#include "timed_stream.h"
#include "workers.h"

#include <sys/socket.h>

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace kestrel::tool {

namespace {

constexpr std::string_view refusalText =
    "Too many connections are open already; close some pages, or try again later.\n";

/// Without waiting for the request, nor for anybody to take this.
void refuse(int socket) {
  std::string const answer =
      "HTTP/1.1 503 Service Unavailable\r\nContent-Type: text/plain; charset=utf-8\r\n"
      "Cache-Control: no-store\r\nRetry-After: 10\r\nConnection: close\r\nContent-Length: " +
      std::to_string(refusalText.size()) + "\r\n\r\n" + std::string(refusalText);
  ::send(socket, answer.data(), answer.size(), MSG_DONTWAIT);
  ::shutdown(socket, SHUT_WR);
  // What is left unread when a connection is closed may take the answer with it.
  std::array<char, 4096> request;
  ::recv(socket, request.data(), request.size(), MSG_DONTWAIT);
}

/// Newer versions of the library take the addresses too.
template <typename Process>
void answer(TimedStream<httplib::Stream>& stream, Process const& process) {
  std::function<void(httplib::Request&)> const asItIs = [](httplib::Request& request) {
    request.ranges.clear();
    request.headers.erase("Accept-Encoding");
  };
  bool isClosed = false;
  if constexpr (requires { process(stream, true, isClosed, asItIs); }) {
    process(stream, true, isClosed, asItIs);
  } else {
    Endpoint const remote = remoteEnd(stream.socket());
    Endpoint const local = localEnd(stream.socket());
    process(stream, remote.address, remote.port, local.address, local.port, true, isClosed, asItIs);
  }
}

}  // namespace

TimedServer::TimedServer(std::size_t mostConnections, Patience const& patience) : mPatience(patience) {
  new_task_queue = [mostConnections] { return new Workers<httplib::TaskQueue>(mostConnections); };
}

/// A connection that can be cut, and is closed in the end.
class TimedServer::Open {
 public:
  Open(TimedServer& server, int socket) : mServer(&server), mSocket(socket) {
    std::lock_guard const lock(mServer->mMutex);
    mServer->mOpen.insert(socket);
    if (mServer->mIsOver) ::shutdown(socket, SHUT_RDWR);
  }
  ~Open() {
    ::shutdown(mSocket.number(), SHUT_RDWR);
    // Its number may be another's as soon as it is closed.
    std::lock_guard const lock(mServer->mMutex);
    mServer->mOpen.erase(mSocket.number());
    mSocket = OpenFile();
  }
  Open(Open const&) = delete;
  Open& operator=(Open const&) = delete;

 private:
  TimedServer* mServer;
  OpenFile mSocket;
};

void TimedServer::stopAtOnce() {
  {
    std::lock_guard const lock(mMutex);
    mIsOver = true;
    for (int const socket : mOpen) ::shutdown(socket, SHUT_RDWR);
  }
  stop();
}

bool TimedServer::process_and_close_socket(socket_t socket) {
  if (isRefusedJob) {
    OpenFile const owned(socket);
    refuse(socket);
    return true;
  }
  Open const open(*this, socket);
  TimedStream<httplib::Stream> stream(socket, mPatience);
  answer(stream, [this](auto&&... arguments) -> decltype(process_request(arguments...)) {
    return process_request(arguments...);
  });
  return true;
}

}  // namespace kestrel::tool
