#include "base64.h"

#include <cstdint>

namespace kestrel::tool {

namespace {

constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// One to three bytes become four characters.
void append(std::string& text, std::string_view group) {
  std::uint32_t bits = 0;
  for (std::size_t at = 0; at < 3; ++at)
    bits = bits << 8 | (at < group.size() ? static_cast<unsigned char>(group[at]) : 0U);
  for (std::size_t at = 0; at < 4; ++at)
    text += at <= group.size() ? digits[bits >> (18 - 6 * at) & 63] : '=';
}

}  // namespace

std::string base64(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t at = 0; at < bytes.size(); at += 3) append(text, bytes.substr(at, 3));
  return text;
}

}  // namespace kestrel::tool
