#pragma once

#include "wire_message.h"

#include <cstddef>
#include <cstdint>
#include <optional>
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

/// What one send has put on the channel: up to its end record, the start of the next send, or the end of the
/// capture.
struct Send {
  std::vector<Content> contents;

  /// The first content of the type, or null.
  Content const* find(std::uint32_t type) const;
};

/// Tells where a send begins in a row of messages: behind an end record, and at a description, because a send
/// without an end record says nothing at its end. A description that goes on is no new one; nor can one be
/// told from it that follows a full chunk of a description.
class SendStarts {
 public:
  /// Whether the next message begins a send.
  bool begins(WireMessage const& message);

 private:
  bool mEnded = true;
  /// Of the description that is all of the send so far, while it may go on.
  MessageLayout const* mOpenLayout = nullptr;
  std::optional<unsigned int> mOpenSubtype;
};

/// Puts the messages together. The contents refer to `messages`.
std::vector<Send> readSends(std::vector<WireMessage> const& messages);

}  // namespace kestrel::tool
