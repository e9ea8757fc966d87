#pragma once

#include "kestrelhost/channel.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// Reads what the content channel sends, as docs/guide/protocol.md tells it. Shares no code with the sender.

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

/// Undoes a zlib stream. Throws std::runtime_error where the bytes are not one whole stream and nothing else.
std::string inflated(std::string const& bytes);

/// The size that an announcement of that type tells; 0 where there is none. Throws std::runtime_error where
/// it is not zeros.
std::size_t announced(std::vector<DecodedContent> const& contents, std::uint32_t type);

struct EndRecord {
  std::uint32_t editable;
  std::uint32_t editor;

  bool operator==(EndRecord const&) const = default;
};

/// Throws std::runtime_error where there is not one end record of the right size.
EndRecord endRecord(std::vector<DecodedContent> const& contents);

struct MapRecord {
  std::string dataMap;
  std::string dataMapName;
  std::string referenceMap;
  std::string referenceMapName;

  bool operator==(MapRecord const&) const = default;
};

/// Throws std::runtime_error or std::out_of_range where there is not one map record, whole and with nothing
/// behind it.
MapRecord mapRecord(std::vector<DecodedContent> const& contents);

/// `width` bytes of a little-endian number from `offset` on. Throws std::out_of_range past the end.
std::uint64_t littleEndianAt(std::string const& bytes, std::size_t offset, std::size_t width);

}  // namespace kestrel::test
