#include "number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>

namespace kestrel::model {
namespace {

constexpr int smallestPlainExponent = -5;
constexpr int greatestPlainExponent = 15;
constexpr unsigned int mostDigits = 17;

/// The significant digits of a number without trailing zeros, and the power of ten of the first.
struct Digits {
  std::array<char, mostDigits> characters{};
  std::size_t count = 0;
  int exponent = 0;

  std::string_view from(std::size_t position) const {
    return std::string_view(characters.data(), count).substr(std::min(position, count));
  }
  std::string_view upTo(std::size_t position) const {
    return std::string_view(characters.data(), std::min(position, count));
  }
};

/// Takes "d.ddde+xx" apart.
Digits split(std::string_view scientific) {
  Digits digits;
  std::size_t const mark = scientific.find('e');
  for (char const character : scientific.substr(0, mark)) {
    if (character != '.' && character != '-') digits.characters[digits.count++] = character;
  }
  while (digits.count > 1 && digits.characters[digits.count - 1] == '0') --digits.count;
  std::string_view exponent = scientific.substr(mark + 1);
  if (exponent.front() == '+') exponent.remove_prefix(1);
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), digits.exponent);
  return digits;
}

bool isPlain(Digits const& digits) {
  bool const isUpperBound =
      digits.exponent == greatestPlainExponent + 1 && digits.count == 1 && digits.characters[0] == '1';
  return isUpperBound ||
         (digits.exponent >= smallestPlainExponent && digits.exponent <= greatestPlainExponent);
}

}  // namespace

NumberText NumberText::shortest(double value) {
  NumberText text;
  std::array<char, 32> buffer;
  auto const result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific);
  text.lay(value, {buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data())});
  return text;
}

NumberText NumberText::rounded(double value, unsigned int digits) {
  NumberText text;
  std::array<char, 32> buffer;
  int const precision = static_cast<int>(std::clamp(digits, 1U, mostDigits)) - 1;
  auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::scientific, precision);
  text.lay(value, {buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data())});
  return text;
}

void NumberText::lay(double value, std::string_view scientific) {
  if (std::isnan(value)) return put("NaN");
  if (std::signbit(value)) put("-");
  if (std::isinf(value)) return put("INF");
  if (value == 0) return put("0");

  Digits const digits = split(scientific);
  if (!isPlain(digits)) {
    put(digits.upTo(1));
    if (digits.count > 1) put(".");
    put(digits.from(1));
    put("e");
    std::array<char, 8> exponent;
    auto const result = std::to_chars(exponent.data(), exponent.data() + exponent.size(), digits.exponent);
    return put({exponent.data(), static_cast<std::size_t>(result.ptr - exponent.data())});
  }
  if (digits.exponent < 0) {
    put("0.");
    put(static_cast<std::size_t>(-digits.exponent - 1));
    return put(digits.from(0));
  }
  std::size_t const whole = static_cast<std::size_t>(digits.exponent) + 1;
  put(digits.upTo(whole));
  if (whole >= digits.count) return put(whole - digits.count);
  put(".");
  put(digits.from(whole));
}

void NumberText::put(std::string_view text) {
  std::copy(text.begin(), text.end(), characters_.begin() + static_cast<std::ptrdiff_t>(length_));
  length_ += text.size();
}

void NumberText::put(std::size_t zeros) {
  std::fill_n(characters_.begin() + static_cast<std::ptrdiff_t>(length_), zeros, '0');
  length_ += zeros;
}

}  // namespace kestrel::model
