#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kestrel::model {

/// The text of one number in ASCII, without any locale.
class NumberText {
 public:
  /// The shortest digits that read back as the same number.
  static NumberText shortest(double value);
  /// At most `digits` significant digits, from 1 to 17.
  static NumberText rounded(double value, unsigned int digits);

  std::string_view view() const { return {characters_.data(), length_}; }

 private:
  void lay(double value, std::string_view scientific);
  void put(std::string_view text);
  void put(std::size_t zeros);

  // The longest is a sign, five zeros with a point before 17 digits, or 17 digits with point and exponent.
  std::array<char, 40> characters_{};
  std::size_t length_ = 0;
};

}  // namespace kestrel::model
