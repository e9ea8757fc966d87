#pragma once

#include "export.h"

#include <string>

/// The language of what the user sees.
class VEXA_API OLang {
 public:
  OLang();
  ~OLang();

  /// The language of the output, in lower case: "en", "ru", "zh-tw".
  std::string GetLanguageCode() const;
};

/// Writes the default locale's name, such as "en_US.UTF-8", and a terminator, and returns the name's length.
/// Writes nothing but the terminator and returns 0 where there is no such name or it does not fit. Without
/// room even for that it returns 0.
VEXA_API int VexaMBDefaultLocaleName_A(char* buffer, int size);

/// Breaks a date up: a number of seconds since 1970-01-01T00:00:00 UTC, in the Gregorian calendar, also for
/// times before it was in use. Gives 1, with day 1 to 31, month 1 to 12, hours 0 to 23, minutes 0 to 59 and
/// seconds from 0 to below 60. A value that is no date (system-missing, infinite, not a number, or so far off
/// that a double does not tell its seconds apart) gives 0, and every part becomes zero.
VEXA_API int iVexa2DMY(double value, long* day, long* month, long* year, long* hours, long* minutes,
                       double* seconds);
