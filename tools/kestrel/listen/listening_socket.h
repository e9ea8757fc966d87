#pragma once

#include "open_file.h"

#include <sys/types.h>

#include <string>

namespace kestrel::tool {

/// A unix socket of this user alone, which is removed in the end.
class ListeningSocket {
 public:
  /// Replaces a socket on which nobody listens any more. Throws a Problem where anything else has that path,
  /// or the socket cannot be made.
  explicit ListeningSocket(std::string const& path);
  ~ListeningSocket();
  ListeningSocket(ListeningSocket const&) = delete;
  ListeningSocket& operator=(ListeningSocket const&) = delete;

  int descriptor() const { return mSocket.number(); }

  /// The next sender that waits; nothing where it has gone meanwhile. Throws a Problem where the system has
  /// no room for another.
  OpenFile accept() const;

 private:
  std::string mPath;
  OpenFile mSocket;
  // What was made: another file of that path is left alone.
  dev_t mDevice = 0;
  ino_t mFile = 0;
};

}  // namespace kestrel::tool
