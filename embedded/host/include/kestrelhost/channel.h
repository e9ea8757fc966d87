#pragma once

#include "host/export.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace kestrel::host {

class TimedWriter;

/// How long one put to a reader may take before it fails. It counts for a message as a whole: a reader that
/// takes a few bytes now and then does not make it longer.
inline constexpr std::chrono::milliseconds usualPatience{30'000};

/// The way to the client.
class VEXA_API Channel {
 public:
  virtual ~Channel();

  /// Takes one message and reads its bytes before it returns. 0 is success.
  virtual int put(std::int64_t identifier, void const* bytes, std::size_t length) = 0;
};

/// One message as it was put.
struct Message {
  /// Its number: 307 for chart content, 318 for interactive content.
  std::int64_t identifier;
  /// All its bytes.
  std::string bytes;

  /// Equal in both.
  bool operator==(Message const&) const = default;
};

/// Keeps the messages in memory.
class VEXA_API MemoryChannel : public Channel {
 public:
  int put(std::int64_t identifier, void const* bytes, std::size_t length) override;

  /// All messages since the beginning or the last clear(), in order.
  std::vector<Message> const& messages() const { return mMessages; }
  /// Forgets them.
  void clear() { mMessages.clear(); }

 private:
  std::vector<Message> mMessages;
};

/// Takes every message and keeps none.
class VEXA_API NullChannel : public Channel {
 public:
  int put(std::int64_t identifier, void const* bytes, std::size_t length) override;
};

/// Writes the messages to a file, in order and byte for byte: the eight bytes "KCAP0001", then for each
/// message its identifier and its length, both as little-endian 64-bit integers, and its bytes. A
/// message stands in the file, or has failed, when put() returns.
class VEXA_API CaptureChannel : public Channel {
 public:
  /// The first bytes of every capture file.
  static constexpr char signature[] = "KCAP0001";

  /// Opens the file at once, over one that is there. good() tells whether that worked. `patience` counts
  /// where the path is that of a named pipe: for how long its reader may be waited for, and how long each put
  /// may take.
  explicit CaptureChannel(std::string const& path, std::chrono::milliseconds patience = usualPatience);
  ~CaptureChannel() override;
  CaptureChannel(CaptureChannel const&) = delete;
  CaptureChannel& operator=(CaptureChannel const&) = delete;

  /// Once a write has failed the file is cut in the middle of a message: every later put fails too.
  int put(std::int64_t identifier, void const* bytes, std::size_t length) override;

  /// False where something could not be written, now or before.
  bool flush();
  /// False where the file could not be opened, or once something could not be written.
  bool good() const { return mGood; }

 private:
  bool write(void const* bytes, std::size_t length);

  std::FILE* mFile = nullptr;
  /// In place of the file, where that is a named pipe.
  std::unique_ptr<TimedWriter> mPipe;
  bool mGood = false;
};

/// The channel of a process that chose none. The environment variable KESTREL_CAPTURE names a capture file,
/// or as `unix:PATH` the unix domain socket of a listener, or as `-` standard output; without it the messages
/// go to the file `capture.kcap` in the current folder. It is opened at the first put.
class VEXA_API DefaultChannel : public Channel {
 public:
  int put(std::int64_t identifier, void const* bytes, std::size_t length) override;

 private:
  std::shared_ptr<Channel> mChosen;
};

}  // namespace kestrel::host
