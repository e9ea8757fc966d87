#include "utf8_buffer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace kestrel::model {
namespace {

constexpr std::size_t blockSize = 4096;
/// "&quot;" for one UTF-16 unit.
constexpr std::size_t longestForm = 6;

/// True for the characters that stand for themselves.
using PlainTable = std::array<bool, 128>;

constexpr PlainTable plainTable(std::string_view special) {
  PlainTable table{};
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = isCharacter(static_cast<char16_t>(i));
  for (char const character : special) table[static_cast<unsigned char>(character)] = false;
  return table;
}

constexpr std::array<PlainTable, 3> plain{plainTable(""), plainTable("<>&\r"), plainTable("<&\"\t\n\r")};

std::string_view entityOf(char16_t character, Escape escape) {
  if (escape == Escape::None) return {};
  switch (character) {
    case u'<':
      return "&lt;";
    case u'>':
      return "&gt;";
    case u'&':
      return "&amp;";
    case u'"':
      return "&quot;";
    case u'\t':
      return "&#x9;";
    case u'\n':
      return "&#xA;";
    // A parser would turn a bare one into a line feed.
    case u'\r':
      return "&#xD;";
    default:
      return {};
  }
}

char* encode(char* out, char32_t code) {
  auto const put = [&out](char32_t byte) { *out++ = static_cast<char>(static_cast<unsigned char>(byte)); };
  if (code < 0x800) {
    put(0xC0 | (code >> 6));
  } else if (code < 0x10000) {
    put(0xE0 | (code >> 12));
    put(0x80 | ((code >> 6) & 0x3F));
  } else {
    put(0xF0 | (code >> 18));
    put(0x80 | ((code >> 12) & 0x3F));
    put(0x80 | ((code >> 6) & 0x3F));
  }
  put(0x80 | (code & 0x3F));
  return out;
}

}  // namespace

void Utf8Buffer::put(char character) {
  makeRoom(1);
  bytes_[used_++] = character;
}

void Utf8Buffer::put(std::string_view ascii) {
  makeRoom(ascii.size());
  std::memcpy(bytes_.data() + used_, ascii.data(), ascii.size());
  used_ += ascii.size();
}

void Utf8Buffer::put(std::u16string_view text, Escape escape) {
  while (text.size() > blockSize) {
    // A surrogate pair must not fall apart.
    std::size_t const length = isHighSurrogate(text[blockSize - 1]) ? blockSize - 1 : blockSize;
    putBlock(text.substr(0, length), escape);
    text.remove_prefix(length);
  }
  putBlock(text, escape);
}

void Utf8Buffer::fill(std::size_t count, char character) {
  makeRoom(count);
  std::memset(bytes_.data() + used_, character, count);
  used_ += count;
}

std::string Utf8Buffer::take() {
  bytes_.resize(used_);
  used_ = 0;
  return std::move(bytes_);
}

void Utf8Buffer::makeRoom(std::size_t bytes) {
  if (bytes_.size() - used_ < bytes) bytes_.resize(std::max(bytes_.size() * 2, used_ + bytes + blockSize));
}

void Utf8Buffer::putBlock(std::u16string_view text, Escape escape) {
  makeRoom(text.size() * longestForm);
  PlainTable const& isPlain = plain[static_cast<std::size_t>(escape)];
  char* out = bytes_.data() + used_;
  char16_t const* next = text.data();
  char16_t const* const end = next + text.size();
  while (next != end) {
    char16_t const unit = *next;
    if (unit < 0x80 && isPlain[unit]) {
      *out++ = static_cast<char>(unit);
      ++next;
    } else {
      out = putSpecial(out, next, end, escape);
    }
  }
  used_ = static_cast<std::size_t>(out - bytes_.data());
}

char* Utf8Buffer::putSpecial(char* out, char16_t const*& next, char16_t const* end, Escape escape) {
  char16_t const unit = *next++;
  if (unit < 0x80) {
    std::string_view const entity = entityOf(unit, escape);
    return std::copy(entity.begin(), entity.end(), out);
  }
  if (isHighSurrogate(unit)) {
    if (next == end || !isLowSurrogate(*next)) return out;
    char32_t const low = *next++;
    return encode(out, 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (low - 0xDC00));
  }
  if (!isCharacter(unit)) return out;
  return encode(out, unit);
}

}  // namespace kestrel::model
