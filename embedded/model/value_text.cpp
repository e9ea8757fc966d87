#include "number_text.h"

#include "host/data_types.h"
#include "model/printing.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace {

constexpr double systemMissing = std::numeric_limits<double>::lowest();
constexpr char missingText[] = ".";
/// How exact a number is that no format rounds.
constexpr unsigned int fullPrecision = 16;
constexpr double secondsPerDay = 86400;
/// Beyond the year 9999 in either direction a date is no date.
constexpr double mostDays = 3652059;

/// What a print format makes of a number.
enum class Shape { Number, Date, DateTime, Time, ElapsedTime, Ordinal };

Shape shapeOf(unsigned int type) {
  switch (type) {
    case Vexa_Format::FormatDate:
    case Vexa_Format::FormatDate23:
    case Vexa_Format::FormatDate24:
    case Vexa_Format::FormatDate28:
    case Vexa_Format::FormatDate29:
    case Vexa_Format::FormatDate30:
    case Vexa_Format::FormatDate38:
    case Vexa_Format::FormatDate39:
      return Shape::Date;
    case Vexa_Format::FormatDateTime:
    case Vexa_Format::FormatDateTime86:
      return Shape::DateTime;
    case Vexa_Format::FormatTime:
    case Vexa_Format::FormatTime85:
      return Shape::Time;
    case Vexa_Format::FormatElapsedTime:
      return Shape::ElapsedTime;
    case Vexa_Format::FormatDayOfWeek:
    case Vexa_Format::FormatMonthOfYear:
      return Shape::Ordinal;
    default:
      return Shape::Number;
  }
}

bool isBlank(char character) { return character == ' ' || character == '\t'; }

std::string full(double value) {
  return std::string(kestrel::model::NumberText::rounded(value, fullPrecision).view());
}

std::string fixed(double value, int decimals) {
  // The greatest double has 309 digits before its point.
  std::array<char, 640> buffer;
  auto const result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
  std::string text(buffer.data(), result.ptr);
  bool const isZero = text.find_first_not_of("-0.") == std::string::npos;
  return isZero && text.front() == '-' ? text.substr(1) : text;
}

/// As many of the decimals as the width allows.
std::string number(double value, Vexa_Format const& format) {
  if (format.TypeEx() == Vexa_Format::FormatNone || std::isinf(value)) return full(value);
  std::size_t const width = format.Width();
  for (int decimals = format.Decimals(); decimals >= 0; --decimals) {
    std::string text = fixed(value, decimals);
    if (width == 0 || text.size() <= width) return text;
  }
  return full(value);
}

std::string padded(std::int64_t value, std::size_t width) {
  std::string digits = std::to_string(value < 0 ? -value : value);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return value < 0 ? "-" + digits : digits;
}

/// A day counted from 1970-01-01 in the Gregorian calendar.
std::string date(std::int64_t day) {
  std::chrono::year_month_day const parts{std::chrono::sys_days(std::chrono::days(day))};
  return padded(static_cast<int>(parts.year()), 4) + "-" +
         padded(static_cast<unsigned int>(parts.month()), 2) + "-" +
         padded(static_cast<unsigned int>(parts.day()), 2);
}

std::string timeOfDay(double seconds, int decimals) {
  auto const whole = static_cast<std::int64_t>(seconds);
  std::string text = padded(whole / 3600, 2) + ":" + padded(whole / 60 % 60, 2) + ":";
  // Cut, not rounded: 59.99 must not become 60.0.
  double const scale = std::pow(10.0, decimals);
  double const second = std::floor((seconds - static_cast<double>(whole - whole % 60)) * scale) / scale;
  std::string const digits = fixed(second, decimals);
  return text + (second < 10 ? "0" : "") + digits;
}

/// Seconds from the start of 1970.
std::string moment(double seconds, Shape shape, int decimals) {
  double const day = std::floor(seconds / secondsPerDay);
  if (!(std::abs(day) <= mostDays)) return full(seconds);
  std::string time = timeOfDay(seconds - day * secondsPerDay, decimals);
  if (shape == Shape::Time) return time;
  std::string const dayText = date(static_cast<std::int64_t>(day));
  return shape == Shape::Date ? dayText : dayText + " " + time;
}

std::string elapsed(double seconds, int decimals) {
  double const size = std::abs(seconds);
  double const days = std::floor(size / secondsPerDay);
  if (!(days <= mostDays)) return full(seconds);
  return (seconds < 0 ? "-" : "") + std::to_string(static_cast<std::int64_t>(days)) + " " +
         timeOfDay(size - days * secondsPerDay, decimals);
}

std::string cellText(OBS const& cell, std::size_t width) {
  std::string_view const bytes(reinterpret_cast<char const*>(cell.bytes), width);
  std::string_view const text = bytes.substr(0, bytes.find('\0'));
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

}  // namespace

std::string formatter::AsString(OBS const& value, Vexa_Format const& format) {
  if (format.IsString()) return cellText(value, format.Width());
  double const content = value.number();
  if (content == systemMissing || std::isnan(content)) return missingText;
  int const decimals = std::min<int>(format.Decimals(), fullPrecision);
  Shape const shape = shapeOf(format.TypeEx());
  switch (shape) {
    case Shape::Ordinal:
      return full(content);
    case Shape::ElapsedTime:
      return elapsed(content, decimals);
    case Shape::Date:
    case Shape::DateTime:
    case Shape::Time:
      return moment(content, shape, decimals);
    case Shape::Number:
      break;
  }
  return number(content, format);
}

std::string formatter::AsString(double const& value, unsigned int precision) {
  return std::string(kestrel::model::NumberText::rounded(value, precision).view());
}

int formatter::trim(char const*& first, char const*& last) {
  if (first == nullptr || last == nullptr) return 0;
  while (first <= last && isBlank(*first)) ++first;
  while (last > first && isBlank(*last)) --last;
  return static_cast<int>(last - first + 1);
}
