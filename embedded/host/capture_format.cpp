#include "capture_format.h"

namespace kestrel::host {

namespace {

void appendLittleEndian(std::string& text, std::uint64_t value) {
  for (std::size_t at = 0; at < sizeof value; ++at) text += static_cast<char>(value >> (8 * at) & 0xFF);
}

}  // namespace

std::string captureHead(std::int64_t identifier, std::size_t length) {
  std::string head;
  appendLittleEndian(head, static_cast<std::uint64_t>(identifier));
  appendLittleEndian(head, length);
  return head;
}

}  // namespace kestrel::host
