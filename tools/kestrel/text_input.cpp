#include "text_input.h"

#include "problem.h"
#include "utf8.h"

#include <algorithm>

namespace kestrel::tool {

namespace {

std::string hexadecimal(char byte) {
  constexpr char digits[] = "0123456789ABCDEF";
  auto const code = static_cast<unsigned char>(byte);
  return {'0', 'x', digits[code / 16], digits[code % 16]};
}

}  // namespace

std::size_t lineEnds(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    bool const partOfPair = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
    if (text[at] == '\n' || (text[at] == '\r' && !partOfPair)) ++count;
  }
  return count;
}

std::size_t lineOf(std::string_view bytes, std::size_t offset) {
  return lineEnds(bytes.substr(0, offset)) + 1;
}

void requireUtf8(std::string const& file, std::string_view bytes) {
  std::size_t const bad = std::min(findBadUtf8(bytes), bytes.find('\0'));
  if (bad == std::string_view::npos) return;
  bool const zero = bytes[bad] == '\0';
  throw badInput(file, lineOf(bytes, bad),
                 "the byte " + hexadecimal(bytes[bad]) + " at offset " + std::to_string(bad) +
                     (zero ? " is no text; " : " is not UTF-8; ") + "save the file as UTF-8 text");
}

}  // namespace kestrel::tool
