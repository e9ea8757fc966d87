#pragma once

#include "capture_reader.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kestrel::tool {

/// One of the two layouts of a message.
struct MessageLayout {
  std::int64_t identifier;
  bool hasSubtype;
  std::size_t typeOffset;
  std::size_t chunkSizeOffset;
  std::size_t payloadOffset;
  std::size_t longestChunk;
};

inline constexpr std::size_t trailerSize = 4;

extern MessageLayout const chartContent;
extern MessageLayout const interactiveContent;

/// A message in its parts.
struct WireMessage {
  CapturedMessage captured;
  MessageLayout const* layout;
  std::uint32_t type;
  std::optional<unsigned int> subtype;
  std::uint32_t chunkSize;
  std::string_view payload;
  std::string_view trailer;

  bool isFull() const { return chunkSize == layout->longestChunk; }
};

/// Takes a message apart. Nothing where its identifier is unknown or its length does not fit, which `faults`
/// then tell, as they tell of fields that have values which they cannot have.
std::optional<WireMessage> readMessage(CapturedMessage const& captured, std::vector<Fault>& faults);

}  // namespace kestrel::tool
