#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::tool {

/// What a capture starts with.
inline constexpr std::string_view captureSignature = "KCAP0001";

/// One message of a capture, as it was put on the channel.
struct CapturedMessage {
  std::size_t number;  ///< from 1
  std::size_t offset;  ///< of the message's own bytes in the capture
  std::int64_t identifier;
  std::string_view bytes;
};

/// Something that is wrong with a capture.
struct Fault {
  std::size_t offset;                  ///< of the bytes in the capture that show it
  std::optional<std::size_t> message;  ///< its number, where the fault is one of a message
  std::string text;

  bool operator==(Fault const&) const = default;
};

struct Capture {
  std::vector<CapturedMessage> messages;
  /// Where reading had to stop, if it did: the messages are those before it.
  std::optional<Fault> cut;
};

/// Divides a capture into its messages, which refer to `bytes`.
Capture readCapture(std::string_view bytes);

/// A little-endian number from the start of `bytes`, which must be long enough.
std::uint16_t shortWord(std::string_view bytes);
std::uint32_t word(std::string_view bytes);
std::int64_t longWord(std::string_view bytes);

}  // namespace kestrel::tool
