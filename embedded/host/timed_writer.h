#pragma once

#include "descriptor.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

namespace kestrel::host {

/// Writes a capture to an open file, socket or pipe. Each write ends within the writer's patience, and none
/// raises SIGPIPE. After a failure every write fails at once, with the same error.
class TimedWriter {
 public:
  /// The descriptor stays the caller's.
  TimedWriter(int descriptor, std::chrono::milliseconds patience);
  /// Owns the socket or pipe.
  TimedWriter(Descriptor opened, std::chrono::milliseconds patience);

  bool writeSignature();
  bool writeMessage(std::int64_t identifier, void const* bytes, std::size_t length);

  std::error_code error() const { return mError; }

 private:
  using Clock = std::chrono::steady_clock;
  enum class Kind { File, Socket, Pipe };

  static Kind kindOf(int descriptor);
  bool write(std::string_view bytes);
  /// How many bytes went out; 0 where none did, for `mError` or for want of room.
  std::size_t writeSome(std::string_view bytes);
  bool waitForRoom(Clock::time_point deadline);

  Descriptor mOwned;
  int mDescriptor;
  Kind mKind;
  std::chrono::milliseconds mPatience;
  std::error_code mError;
  std::string mMessage;
};

}  // namespace kestrel::host
