#include "host/locale.h"
#include "kestrelhost/host.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace kestrel::host {

namespace {

constexpr std::int64_t secondsInDay = 86400;
constexpr double mostSeconds = 9007199254740992.0;  // up to here a double tells every second from the next

/// Gregorian date of a number of days since 1970-01-01. Years are counted from March, so that the leap day is
/// the last day of its year, and in eras of 400 years, which all have the same number of days.
void breakUpDays(std::int64_t days, DateParts& parts) {
  constexpr std::int64_t daysInEra = 146097;
  constexpr std::int64_t daysBefore1970 = 719468;  // since 0000-03-01
  std::int64_t const shifted = days + daysBefore1970;
  std::int64_t const era = (shifted >= 0 ? shifted : shifted - (daysInEra - 1)) / daysInEra;
  std::int64_t const dayOfEra = shifted - era * daysInEra;
  std::int64_t const yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  std::int64_t const dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  std::int64_t const monthFromMarch = (5 * dayOfYear + 2) / 153;
  parts.day = static_cast<long>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1);
  parts.month = static_cast<long>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
  parts.year = static_cast<long>(yearOfEra + era * 400 + (parts.month <= 2 ? 1 : 0));
}

}  // namespace

Calendar::~Calendar() = default;

bool UnixCalendar::breakUp(double value, DateParts& parts) {
  parts = DateParts();
  if (!(std::fabs(value) <= mostSeconds)) return false;  // neither is NaN
  double const whole = std::floor(value);
  auto const seconds = static_cast<std::int64_t>(whole);
  std::int64_t days = seconds / secondsInDay;
  std::int64_t inDay = seconds % secondsInDay;
  if (inDay < 0) {
    inDay += secondsInDay;
    --days;
  }
  breakUpDays(days, parts);
  parts.hours = static_cast<long>(inDay / 3600);
  parts.minutes = static_cast<long>(inDay / 60 % 60);
  // The sum may round up to the next second, which would then be the sixtieth.
  auto const second = static_cast<double>(inDay % 60);
  parts.seconds = std::fmin(second + (value - whole), std::nextafter(second + 1, 0.0));
  return true;
}

}  // namespace kestrel::host

int iVexa2DMY(double value, long* day, long* month, long* year, long* hours, long* minutes, double* seconds) {
  kestrel::host::DateParts parts;
  bool const isDate = kestrel::host::Host::current().calendar->breakUp(value, parts);
  *day = parts.day;
  *month = parts.month;
  *year = parts.year;
  *hours = parts.hours;
  *minutes = parts.minutes;
  *seconds = parts.seconds;
  return isDate ? 1 : 0;
}
