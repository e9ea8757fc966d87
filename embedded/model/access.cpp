#include "access.h"

#include "number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

namespace kestrel::model {
namespace {

/// The longest text that is still taken for a number; a double needs at most 767 digits, but nobody writes
/// them.
constexpr std::size_t longestNumber = 64;

/// A number in ASCII, without white space around it and a plus sign before it; empty for what cannot be one.
class AsciiNumber {
 public:
  explicit AsciiNumber(char16_t const* text) {
    if (text == nullptr) return;
    std::u16string_view rest(text);
    constexpr std::u16string_view spaces = u" \t\r\n";
    rest.remove_prefix(std::min(rest.find_first_not_of(spaces), rest.size()));
    rest = rest.substr(0, rest.find_last_not_of(spaces) + 1);
    if (rest.starts_with(u'+')) rest.remove_prefix(1);
    if (rest.size() > characters_.size()) return;
    for (char16_t const unit : rest) characters_[length_++] = unit < 0x80 ? static_cast<char>(unit) : '?';
  }

  char const* begin() const { return characters_.data(); }
  char const* end() const { return characters_.data() + length_; }

 private:
  std::array<char, longestNumber> characters_;
  std::size_t length_ = 0;
};

template <typename Number>
Number numberOf(char16_t const* text, Number absent) {
  AsciiNumber const ascii(text);
  Number number{};
  auto const result = std::from_chars(ascii.begin(), ascii.end(), number);
  return result.ec == std::errc() && result.ptr == ascii.end() ? number : absent;
}

void writeAscii(LumoBaseElement& object, char16_t const* name, std::string_view ascii) {
  std::array<char16_t, 64> text;
  *std::copy(ascii.begin(), ascii.end(), text.begin()) = u'\0';
  write(object, name, text.data());
}

template <typename Integer>
void writeDigits(LumoBaseElement& object, char16_t const* name, Integer value) {
  std::array<char, 24> digits;
  auto const result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  writeAscii(object, name, {digits.data(), static_cast<std::size_t>(result.ptr - digits.data())});
}

}  // namespace

bool readBool(LumoBaseElement const& object, char16_t const* name) {
  char16_t const* const text = read(object, name);
  return sameText(text, LumoUni::_true) || sameText(text, u"1");
}

double readDouble(LumoBaseElement const& object, char16_t const* name) {
  return numberOf(read(object, name), 0.0);
}

int readInteger(LumoBaseElement const& object, char16_t const* name, int absent) {
  return numberOf(read(object, name), absent);
}

unsigned int readUnsigned(LumoBaseElement const& object, char16_t const* name) {
  return numberOf(read(object, name), 0U);
}

void write(LumoBaseElement& object, char16_t const* name, char16_t const* value) {
  if (value == nullptr) {
    erase(object, name);
  } else {
    LumoBinding::treeOf(object).write(object, name, value);
  }
}

void writeFilled(LumoBaseElement& object, char16_t const* name, char16_t const* value) {
  write(object, name, value == nullptr || *value == u'\0' ? nullptr : value);
}

void write(LumoBaseElement& object, char16_t const* name, bool value) {
  write(object, name, value ? LumoUni::_true : LumoUni::_false);
}

void write(LumoBaseElement& object, char16_t const* name, double value) {
  writeAscii(object, name, NumberText::shortest(value).view());
}

void write(LumoBaseElement& object, char16_t const* name, unsigned int value) {
  writeDigits(object, name, value);
}
void write(LumoBaseElement& object, char16_t const* name, int value) { writeDigits(object, name, value); }

void erase(LumoBaseElement& object, char16_t const* name) { LumoBinding::treeOf(object).erase(object, name); }

void refer(LumoBaseElement& object, char16_t const* name, LumoBaseElement const& target) {
  LumoBinding::treeOf(object).refer(object, name, target);
}

LumoLocation* locate(LumoBaseElement& parent, LumoLocation::ENUM_part part) {
  LumoLocation* const location = add<LumoLocation>(parent);
  write(*location, u"part", part);
  return location;
}

LumoConditionalStyle* addCondition(LumoBaseElement& parent, char16_t const* when, LumoStyle const& style) {
  LumoConditionalStyle* const condition = add<LumoConditionalStyle>(parent);
  condition->setWhen(when);
  condition->setStyle(style);
  return condition;
}

}  // namespace kestrel::model
