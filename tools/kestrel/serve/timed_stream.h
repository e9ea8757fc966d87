#pragma once

#include "timed_socket.h"

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <ctime>
#include <string>

namespace kestrel::tool {

/// What some versions of the HTTP library ask of a stream, and others do not.
class StreamOfAnyVersion {
 public:
  virtual bool is_writable() const = 0;
  virtual bool wait_readable() const = 0;
  virtual bool wait_writable() const = 0;
  virtual bool is_peer_alive() const = 0;
  virtual std::time_t duration() const = 0;

 protected:
  ~StreamOfAnyVersion() = default;
};

/// A connection with its time, as the HTTP library wants it: `Stream` is its interface.
template <typename Stream>
class TimedStream final : public Stream, private StreamOfAnyVersion {
 public:
  using Stream::write;

  TimedStream(int socket, Patience const& patience) : mSocket(socket, patience) {}

  bool is_readable() const override { return mSocket.isReadable(); }
  bool is_writable() const override { return mSocket.waitWritable(); }
  bool wait_readable() const override { return mSocket.isReadable(); }
  bool wait_writable() const override { return mSocket.waitWritable(); }
  bool is_peer_alive() const override { return mSocket.waitWritable(); }

  ssize_t read(char* bytes, std::size_t count) override { return mSocket.read(bytes, count); }
  ssize_t write(char const* bytes, std::size_t count) override { return mSocket.write(bytes, count); }

  void get_remote_ip_and_port(std::string& address, int& port) const override {
    tellEnd(remoteEnd(mSocket.number()), address, port);
  }
  void get_local_ip_and_port(std::string& address, int& port) const override {
    tellEnd(localEnd(mSocket.number()), address, port);
  }
  int socket() const override { return mSocket.number(); }
  std::time_t duration() const override {
    return std::chrono::duration_cast<std::chrono::seconds>(mSocket.age()).count();
  }

 private:
  static void tellEnd(Endpoint const& end, std::string& address, int& port) {
    address = end.address;
    port = end.port;
  }

  // Time passes in the operations that only ask, too.
  mutable TimedSocket mSocket;
};

}  // namespace kestrel::tool
