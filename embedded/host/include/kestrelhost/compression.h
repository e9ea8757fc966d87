#pragma once

#include "host/export.h"

#include <cstddef>
#include <string>

namespace kestrel::host {

/// What the contents of messages are compressed by.
class VEXA_API Compression {
 public:
  virtual ~Compression();

  /// Replaces `out`, which may be `in`. 0 is success; otherwise `out` is empty.
  virtual int compress(std::string const& in, std::string& out) = 0;
};

/// zlib streams. The state of the stream is kept from call to call, because setting one up costs more than
/// compressing a small text. Every text gives the same bytes whatever came before it.
class VEXA_API ZlibCompression : public Compression {
 public:
  /// Level 3 takes less than half the time of zlib's own choice, 6, and gives texts about a seventh longer.
  /// Chart texts take no less time with the levels below it.
  static constexpr int usualLevel = 3;

  /// From 0 for none to 9 for the smallest.
  explicit ZlibCompression(int level = usualLevel);

  int compress(std::string const& in, std::string& out) override;

 private:
  int mLevel;
};

/// Undoes a zlib stream. False, with an empty `out`, where the bytes are not one whole stream, are followed
/// by others, or would give more than `limit` bytes.
VEXA_API bool decompress(std::string const& in, std::string& out, std::size_t limit = std::size_t{1} << 32);

}  // namespace kestrel::host
