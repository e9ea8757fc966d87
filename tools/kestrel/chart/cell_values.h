#pragma once

#include <optional>
#include <string_view>

namespace kestrel::tool {

struct NumberCell {
  double value;
  /// Digits behind the decimal point of the number as it stands.
  unsigned int decimals;
};

/// Reads a decimal number with an optional sign, decimal point and exponent. A number with surplus leading
/// zeros, such as 01234, is none: what is written so is an identifier.
std::optional<NumberCell> readNumber(std::string_view cell);

struct MomentCell {
  /// Since 1970-01-01T00:00:00 UTC.
  double seconds;
  bool hasTime;
  bool hasFraction;
};

/// Reads a date, yyyy-MM-dd, or a date with a time behind a T or a blank: HH:mm, HH:mm:ss or HH:mm:ss with a
/// fraction, then nothing, Z, or an offset from UTC such as +02:00. Without an offset the time is UTC.
std::optional<MomentCell> readMoment(std::string_view cell);

/// Whether a cell stands for no value in a column of numbers or dates: it is empty, or one of the usual
/// marks.
bool isMissing(std::string_view cell);

}  // namespace kestrel::tool
