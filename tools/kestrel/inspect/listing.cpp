#include "listing.h"

#include "content_types.h"

namespace kestrel::tool {

namespace {

std::string hexadecimal(std::string_view bytes) {
  constexpr char digits[] = "0123456789abcdef";
  std::string text;
  for (char const byte : bytes) {
    auto const code = static_cast<unsigned char>(byte);
    text += {digits[code / 16], digits[code % 16]};
  }
  return text;
}

std::string nameOf(std::uint32_t type) {
  ContentType const* const found = findContentType(type);
  return found == nullptr ? "unknown" : found->name;
}

}  // namespace

std::vector<ListedMessage> listMessages(Inspection const& inspection) {
  std::vector<ListedMessage> listed;
  for (Send const& send : inspection.sends()) {
    for (Content const& content : send.contents) {
      std::size_t total = 0;
      for (WireMessage const* const message : content.messages) {
        total += message->chunkSize;
        listed.push_back({message, nameOf(message->type), hexadecimal(message->trailer), total});
      }
    }
  }
  return listed;
}

}  // namespace kestrel::tool
