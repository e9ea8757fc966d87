#pragma once

#include "kestrelhost/channel.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kestrel::test {

/// A message of the channel in its parts, as a client reads it.
struct DecodedMessage {
  std::int64_t identifier;
  std::uint32_t type;
  /// Only chart content (307) has one.
  std::optional<unsigned int> subtype;
  std::uint32_t chunkSize;
  std::string payload;
  std::string trailer;
};

/// Takes a message apart. Throws std::runtime_error, which says what is wrong, where the identifier is
/// neither 307 nor 318, the reserved bytes or the leading word have another value than they must, or the
/// chunk size does not fit the length or the limit.
DecodedMessage decodeMessage(host::Message const& message);

/// A piece of content, put together from its messages.
struct DecodedContent {
  std::int64_t identifier;
  std::uint32_t type;
  std::optional<unsigned int> subtype;
  std::vector<std::uint32_t> chunkSizes;
  std::string bytes;
};

/// A content ends with its first chunk that is not full.
std::vector<DecodedContent> decodeContents(std::vector<host::Message> const& messages);

/// The types of the contents, in their order.
std::vector<std::uint32_t> typesOf(std::vector<DecodedContent> const& contents);

/// The only content of that type. Throws std::runtime_error where there is none, or more than one.
DecodedContent onlyContent(std::vector<DecodedContent> const& contents, std::uint32_t type);

/// The messages of a capture file. Throws std::runtime_error where it is cut or no capture.
std::vector<host::Message> decodeCapture(std::string const& bytes);

/// Undoes a zlib stream. Throws std::runtime_error where the bytes are none.
std::string inflated(std::string const& bytes);

/// `width` bytes of a little-endian number from `offset` on. Throws std::out_of_range past the end.
std::uint64_t littleEndianAt(std::string const& bytes, std::size_t offset, std::size_t width);

}  // namespace kestrel::test
