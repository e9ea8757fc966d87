#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <string>

namespace kestrel::tool {

/// How long somebody may keep us waiting.
struct Patience {
  std::chrono::milliseconds firstByte;
  /// For the whole request, from the connection on.
  std::chrono::milliseconds request;
  /// For the whole answer: only the time counts in which the reader took nothing.
  std::chrono::milliseconds answer;
  /// Longer answers may take a second more for each so many bytes.
  std::size_t bytesPerSecond;
  /// How long a request may be.
  std::size_t longestRequest;
};

/// A connection whose other end has so long for its request and for taking the answer, however it divides
/// them. Does not own the socket.
class TimedSocket {
 public:
  using Clock = std::chrono::steady_clock;

  TimedSocket(int socket, Patience const& patience) : mSocket(socket), mPatience(patience) {}

  int number() const { return mSocket; }
  Clock::duration age() const { return Clock::now() - mBegin; }

  /// Like read(): 0 at the end, negative after an error, where the time is over, or the request too long.
  ssize_t read(char* bytes, std::size_t count);
  /// All of them; negative after an error, or where the time is over.
  ssize_t write(char const* bytes, std::size_t count);

  bool isReadable() const;
  /// Waits until the other end takes something. False where it does not in time, or is gone.
  bool waitWritable();

 private:
  bool waitFor(short event, std::chrono::milliseconds patience) const;
  std::chrono::milliseconds leftForAnswer() const;
  bool isPeerThere() const;

  int mSocket;
  Patience mPatience;
  Clock::time_point mBegin = Clock::now();
  std::size_t mRead = 0;
  std::size_t mWritten = 0;
  Clock::duration mWaited{};
};

/// The address and the port of an end of a connection.
struct Endpoint {
  std::string address;
  int port = 0;
};
Endpoint remoteEnd(int socket);
Endpoint localEnd(int socket);

}  // namespace kestrel::tool
