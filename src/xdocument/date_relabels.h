#pragma once

#include "support/dictionary.h"

#include "model/chartstring.h"

#include <array>
#include <string_view>

namespace kestrel {

/// Names in the output language, as dates are written with them.
class DateNames {
 public:
  explicit DateNames(ChartDictionary& dictionary);

  /// By the number of the month, 1 to 12; any other number counts modulo 12.
  ChartString const& month(long number) const;
  /// By the number of the day, 1 (Sunday) to 7; any other number counts modulo 7.
  ChartString const& weekday(long number) const;
  ChartString const& quarterWord() const { return mQuarterWord; }

 private:
  /// The last one stands first, at the number modulo the count.
  std::array<ChartString, 12> mMonths;
  std::array<ChartString, 7> mWeekdays;
  ChartString mQuarterWord;
};

/// The text of a date under an input pattern; empty for a pattern that is not known. A pattern is a key,
/// compared whole: what its letters say is not what is written in every case, and clients rely on that.
ChartString dateText(double value, std::u16string_view pattern, DateNames const& names);

}  // namespace kestrel
