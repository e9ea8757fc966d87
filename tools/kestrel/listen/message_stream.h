#pragma once

#include "inspect/contents.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kestrel::tool {

/// Divides what a sender sends into messages. Holds no more than one of them, and what was taken last.
class MessageStream {
 public:
  void take(std::string_view bytes);

  /// The next whole message, as it stands in a capture: identifier, length and bytes. Nothing where more
  /// bytes are needed, or something is wrong.
  std::optional<std::string> next();

  /// What is wrong with the stream, where nothing can be read any more.
  std::optional<std::string> const& fault() const { return mFault; }

  /// The start of a message that has not come to its end.
  std::string_view rest() const { return std::string_view(mBytes).substr(mAt); }
  bool hasSignature() const { return mHasSignature; }

 private:
  bool readSignature();

  std::string mBytes;
  std::size_t mAt = 0;
  std::size_t mMessages = 0;
  bool mHasSignature = false;
  std::optional<std::string> mFault;
};

/// Whether a message, as it stands in a capture, is an end record.
bool endsChart(std::string_view message);

/// Whether a message, as it stands in a capture, begins another send than the one before it. One that breaks
/// the rules belongs to the send before it.
bool beginsChart(std::string_view message, SendStarts& starts);

}  // namespace kestrel::tool
