#include "message_stream.h"

#include "inspect/capture_reader.h"
#include "inspect/content_types.h"
#include "inspect/wire_message.h"

#include <algorithm>
#include <vector>

namespace kestrel::tool {

namespace {

constexpr std::size_t headSize = 16;  // identifier and length

std::size_t longestMessage() {
  auto const longest = [](MessageLayout const& layout) {
    return layout.payloadOffset + layout.longestChunk + trailerSize;
  };
  return std::max(longest(chartContent), longest(interactiveContent));
}

}  // namespace

void MessageStream::take(std::string_view bytes) {
  if (mFault) return;
  mBytes.erase(0, mAt);
  mAt = 0;
  mBytes += bytes;
}

bool MessageStream::readSignature() {
  std::string_view const start = rest().substr(0, captureSignature.size());
  if (!captureSignature.starts_with(start)) {
    mFault = "this is no capture, which starts with " + std::string(captureSignature);
  }
  mHasSignature = start == captureSignature;
  if (mHasSignature) mAt += captureSignature.size();
  return mHasSignature;
}

std::optional<std::string> MessageStream::next() {
  if (mFault || (!mHasSignature && !readSignature()) || rest().size() < headSize) return std::nullopt;
  std::int64_t const length = longWord(rest().substr(8));
  if (length < 0 || static_cast<std::uint64_t>(length) > longestMessage()) {
    mFault = "message " + std::to_string(mMessages + 1) + " should have " + std::to_string(length) +
             " bytes; a message has up to " + std::to_string(longestMessage());
    return std::nullopt;
  }
  std::size_t const size = headSize + static_cast<std::size_t>(length);
  if (rest().size() < size) return std::nullopt;
  std::string message(rest().substr(0, size));
  mAt += size;
  ++mMessages;
  return message;
}

bool endsChart(std::string_view message) {
  bool const isChartContent = longWord(message) == chartContent.identifier;
  return isChartContent && message.size() > headSize &&
         static_cast<unsigned char>(message[headSize + chartContent.typeOffset]) == Done;
}

bool beginsChart(std::string_view message, SendStarts& starts) {
  // What is wrong with it is told when the chart is whole.
  std::vector<Fault> untold;
  auto const parts = readMessage({0, 0, longWord(message), message.substr(headSize)}, untold);
  return parts && starts.begins(*parts);
}

}  // namespace kestrel::tool
