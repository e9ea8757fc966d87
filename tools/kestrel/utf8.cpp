#include "utf8.h"

#include <algorithm>
#include <array>

namespace kestrel::tool {

namespace {

/// The lead bytes that have the same length and the same bounds on the byte behind them. The bounds keep out
/// overlong forms, surrogates and what lies beyond U+10FFFF.
struct Lead {
  unsigned char first;
  unsigned char last;
  std::size_t length;
  unsigned char secondFrom;
  unsigned char secondTo;
};

constexpr std::array<Lead, 9> leads{{
    {0x00, 0x7F, 1, 0x80, 0xBF},
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
}};

unsigned char byteAt(std::string_view text, std::size_t at) { return static_cast<unsigned char>(text[at]); }

bool isContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

/// The length of the character that starts the text, or 0 where there is none.
std::size_t characterLength(std::string_view text) {
  unsigned char const first = byteAt(text, 0);
  auto const* const lead = std::find_if(leads.begin(), leads.end(), [first](Lead const& candidate) {
    return candidate.first <= first && first <= candidate.last;
  });
  if (lead == leads.end() || text.size() < lead->length) return 0;
  if (lead->length == 1) return 1;
  unsigned char const second = byteAt(text, 1);
  if (second < lead->secondFrom || second > lead->secondTo) return 0;
  for (std::size_t at = 2; at < lead->length; ++at) {
    if (!isContinuation(byteAt(text, at))) return 0;
  }
  return lead->length;
}

}  // namespace

std::size_t findBadUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    std::size_t const length = byteAt(text, at) < 0x80 ? 1 : characterLength(text.substr(at));
    if (length == 0) return at;
    at += length;
  }
  return std::string_view::npos;
}

std::size_t endOfByteOrderMark(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  return text.starts_with(mark) ? mark.size() : 0;
}

}  // namespace kestrel::tool
