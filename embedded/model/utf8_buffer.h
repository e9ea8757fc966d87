#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestrel::model {

constexpr bool isHighSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
constexpr bool isLowSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }
/// May XML hold this unit by itself?
constexpr bool isCharacter(char16_t unit) {
  if (unit < 0x20) return unit == u'\t' || unit == u'\n' || unit == u'\r';
  return unit < 0xD800 || (unit > 0xDFFF && unit < 0xFFFE);
}

/// What a place in the text asks of its characters.
enum class Escape : std::uint8_t { None, Text, Attribute };

/// Collects UTF-8. Characters that XML does not know are left out.
class Utf8Buffer {
 public:
  void put(char character);
  void put(std::string_view ascii);
  void put(std::u16string_view text, Escape escape);
  void put(char16_t const* text, Escape escape) { put(std::u16string_view(text), escape); }
  void fill(std::size_t count, char character);

  bool isEmpty() const { return used_ == 0; }
  std::string take();

 private:
  void makeRoom(std::size_t bytes);
  void putBlock(std::u16string_view text, Escape escape);
  char* putSpecial(char* out, char16_t const*& next, char16_t const* end, Escape escape);

  std::string bytes_;
  std::size_t used_ = 0;
};

}  // namespace kestrel::model
