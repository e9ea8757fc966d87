#pragma once

#include "kestrelhost/channel.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <system_error>

namespace kestrel::host {

/// Writes the messages to an open file of the system, such as standard output, in the form of a capture file.
///
/// A put has succeeded when all bytes of its message are with the system; that the reader has taken them is
/// not known. It fails where the reader is gone, or does not take the message in time. What the reader has
/// then may end in the middle of a message, which shows: fewer bytes follow than the message's length says.
/// Nothing follows a cut message: from then on every put fails at once. No failure raises SIGPIPE, and what
/// the process has decided about that signal stays as it is.
class VEXA_API DescriptorChannel : public Channel {
 public:
  /// Writes the signature at once; good() tells whether that worked. The descriptor stays the caller's, and
  /// open for as long as the channel lives. A pipe must have no other writer, or a put may take longer than
  /// it should; a terminal takes its own time.
  explicit DescriptorChannel(int descriptor, std::chrono::milliseconds patience = usualPatience);
  ~DescriptorChannel() override;
  DescriptorChannel(DescriptorChannel const&) = delete;
  DescriptorChannel& operator=(DescriptorChannel const&) = delete;

  int put(std::int64_t identifier, void const* bytes, std::size_t length) override;

  /// False once something could not be written.
  bool good() const;
  /// Why: std::errc::timed_out for a reader that is too slow, std::errc::broken_pipe for one that is gone,
  /// or another error of the system.
  std::error_code error() const;

 private:
  std::unique_ptr<TimedWriter> mWriter;
};

/// Sends the messages to whoever listens on a unix domain socket, in the form of a capture file. Fails as
/// DescriptorChannel does; the connection is closed at the first failure, and at the end.
class VEXA_API SocketChannel : public Channel {
 public:
  /// Connects and writes the signature at once; good() tells whether that worked.
  explicit SocketChannel(std::string const& path, std::chrono::milliseconds patience = usualPatience);
  ~SocketChannel() override;
  SocketChannel(SocketChannel const&) = delete;
  SocketChannel& operator=(SocketChannel const&) = delete;

  int put(std::int64_t identifier, void const* bytes, std::size_t length) override;

  /// False where nobody listens, or once something could not be written.
  bool good() const;
  /// Of connecting or of writing.
  std::error_code error() const { return mError; }

 private:
  std::unique_ptr<TimedWriter> mWriter;
  std::error_code mError;
};

}  // namespace kestrel::host
