#include "cell_values.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <string>

namespace kestrel::tool {

namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// Takes pieces from the front of a text.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : mRest(text) {}

  bool atEnd() const { return mRest.empty(); }

  bool take(char expected) {
    if (mRest.empty() || mRest.front() != expected) return false;
    mRest.remove_prefix(1);
    return true;
  }

  bool takeOneOf(std::string_view characters) {
    if (mRest.empty() || characters.find(mRest.front()) == std::string_view::npos) return false;
    mRest.remove_prefix(1);
    return true;
  }

  std::string_view takeDigits() {
    auto const end = std::find_if_not(mRest.begin(), mRest.end(), isDigit);
    std::string_view const digits = mRest.substr(0, static_cast<std::size_t>(end - mRest.begin()));
    mRest.remove_prefix(digits.size());
    return digits;
  }

  /// Exactly that many digits, as a number.
  std::optional<int> takeNumber(std::size_t count) {
    std::string_view const digits = mRest.substr(0, count);
    if (digits.size() != count || !std::all_of(digits.begin(), digits.end(), isDigit)) return std::nullopt;
    mRest.remove_prefix(count);
    int value = 0;
    for (char const digit : digits) value = value * 10 + (digit - '0');
    return value;
  }

 private:
  std::string_view mRest;
};

/// The program never sets a locale, so that the decimal point is a point.
double valueOf(std::string_view number) { return std::strtod(std::string(number).c_str(), nullptr); }

constexpr unsigned int mostDecimals = 16;

/// Digits behind the point of a number with an exponent: 1.5e-3 has four.
unsigned int decimalsOf(std::string_view fraction, std::string_view exponent, bool negative) {
  double const shift = exponent.empty() ? 0 : valueOf(exponent) * (negative ? -1 : 1);
  double const decimals = static_cast<double>(fraction.size()) - shift;
  return static_cast<unsigned int>(std::clamp(decimals, 0.0, static_cast<double>(mostDecimals)));
}

std::optional<double> takeDay(Scanner& text) {
  auto const year = text.takeNumber(4);
  if (!year || !text.take('-')) return std::nullopt;
  auto const month = text.takeNumber(2);
  if (!month || !text.take('-')) return std::nullopt;
  auto const day = text.takeNumber(2);
  if (!day) return std::nullopt;
  std::chrono::year_month_day const date(std::chrono::year(*year),
                                         std::chrono::month(static_cast<unsigned int>(*month)),
                                         std::chrono::day(static_cast<unsigned int>(*day)));
  if (!date.ok()) return std::nullopt;
  constexpr double secondsOfDay = 86400;
  return static_cast<double>(std::chrono::sys_days(date).time_since_epoch().count()) * secondsOfDay;
}

/// Hours and minutes, in seconds.
std::optional<double> takeHoursAndMinutes(Scanner& text, int hoursBelow) {
  auto const hours = text.takeNumber(2);
  if (!hours || *hours >= hoursBelow || !text.take(':')) return std::nullopt;
  auto const minutes = text.takeNumber(2);
  if (!minutes || *minutes >= 60) return std::nullopt;
  return *hours * 3600.0 + *minutes * 60.0;
}

struct Seconds {
  double value = 0;
  bool hasFraction = false;
};

/// The seconds with the colon before them, or none.
std::optional<Seconds> takeSeconds(Scanner& text) {
  if (!text.take(':')) return Seconds{};
  auto const whole = text.takeNumber(2);
  if (!whole || *whole >= 60) return std::nullopt;
  if (!text.take('.')) return Seconds{static_cast<double>(*whole), false};
  std::string_view const fraction = text.takeDigits();
  if (fraction.empty()) return std::nullopt;
  return Seconds{*whole + valueOf("0." + std::string(fraction)), true};
}

/// What the time is ahead of UTC, in seconds.
std::optional<double> takeOffset(Scanner& text) {
  if (text.atEnd() || text.take('Z')) return 0.0;
  bool const behind = text.take('-');
  if (!behind && !text.take('+')) return std::nullopt;
  auto const offset = takeHoursAndMinutes(text, 24);
  if (!offset) return std::nullopt;
  return behind ? -*offset : *offset;
}

}  // namespace

std::optional<NumberCell> readNumber(std::string_view cell) {
  Scanner text(cell);
  text.takeOneOf("+-");
  std::string_view const whole = text.takeDigits();
  std::string_view const fraction = text.take('.') ? text.takeDigits() : std::string_view();
  if (whole.empty() && fraction.empty()) return std::nullopt;
  if (whole.size() > 1 && whole.front() == '0') return std::nullopt;
  std::string_view exponent;
  bool negative = false;
  if (text.takeOneOf("eE")) {
    negative = text.take('-');
    if (!negative) text.take('+');
    exponent = text.takeDigits();
    if (exponent.empty()) return std::nullopt;
  }
  double const value = valueOf(cell);
  if (!text.atEnd() || !std::isfinite(value)) return std::nullopt;
  return NumberCell{value, decimalsOf(fraction, exponent, negative)};
}

std::optional<MomentCell> readMoment(std::string_view cell) {
  Scanner text(cell);
  auto const day = takeDay(text);
  if (!day) return std::nullopt;
  if (text.atEnd()) return MomentCell{*day, false, false};
  if (!text.takeOneOf("T ")) return std::nullopt;
  auto const minutes = takeHoursAndMinutes(text, 24);
  if (!minutes) return std::nullopt;
  auto const seconds = takeSeconds(text);
  if (!seconds) return std::nullopt;
  auto const offset = takeOffset(text);
  if (!offset || !text.atEnd()) return std::nullopt;
  return MomentCell{*day + *minutes + seconds->value - *offset, true, seconds->hasFraction};
}

bool isMissing(std::string_view cell) { return cell.empty() || cell == "NA" || cell == "NaN" || cell == "."; }

}  // namespace kestrel::tool
