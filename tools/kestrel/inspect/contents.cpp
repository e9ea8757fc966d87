#include "contents.h"

#include "content_types.h"

#include <algorithm>

namespace kestrel::tool {

namespace {

/// A full chunk may be the last one: then the next content must have another type to be told apart.
bool continues(WireMessage const& before, WireMessage const& message) {
  return before.isFull() && before.layout == message.layout && before.type == message.type &&
         before.subtype == message.subtype;
}

}  // namespace

std::size_t Content::size() const {
  std::size_t total = 0;
  for (WireMessage const* message : messages) total += message->chunkSize;
  return total;
}

std::string Content::bytes() const {
  std::string result;
  result.reserve(size());
  for (WireMessage const* message : messages) result += message->payload;
  return result;
}

Content const* Send::find(std::uint32_t type) const {
  auto const found = std::find_if(contents.begin(), contents.end(),
                                  [type](Content const& content) { return content.type() == type; });
  return found == contents.end() ? nullptr : &*found;
}

bool SendStarts::begins(WireMessage const& message) {
  bool const isDescription = message.type == Description;
  bool const goesOn = isDescription && mOpenLayout == message.layout && mOpenSubtype == message.subtype;
  bool const isFirst = mEnded || (isDescription && !goesOn);
  bool const staysOpen = isDescription && message.isFull() && (isFirst || goesOn);
  mOpenLayout = staysOpen ? message.layout : nullptr;
  mOpenSubtype = message.subtype;
  mEnded = message.type == Done;
  return isFirst;
}

std::vector<Send> readSends(std::vector<WireMessage> const& messages) {
  std::vector<Send> sends;
  SendStarts starts;
  for (WireMessage const& message : messages) {
    if (starts.begins(message)) sends.emplace_back();
    auto& contents = sends.back().contents;
    bool const isNew = contents.empty() || !continues(*contents.back().messages.back(), message);
    if (isNew) contents.emplace_back();
    contents.back().messages.push_back(&message);
  }
  return sends;
}

}  // namespace kestrel::tool
