#pragma once

#include "wire_message.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kestrel::tool {

/// A piece of content: the messages that carry it, one after the other, up to the first that is not full.
struct Content {
  std::vector<WireMessage const*> messages;
  /// The capture ends within it.
  bool isCut = false;

  WireMessage const& first() const { return *messages.front(); }
  std::uint32_t type() const { return first().type; }
  std::size_t size() const;
  std::string bytes() const;
};

/// What one send has put on the channel, up to its end record or the end of the capture.
struct Send {
  std::vector<Content> contents;

  /// The first content of the type, or null.
  Content const* find(std::uint32_t type) const;
};

/// Puts the messages together. The contents refer to `messages`.
std::vector<Send> readSends(std::vector<WireMessage> const& messages);

}  // namespace kestrel::tool
