#include "date_relabels.h"

#include "host/locale.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace kestrel {

namespace {

constexpr char const* monthKeys[] = {"January", "February", "March",     "April",   "May",      "June",
                                     "July",    "August",   "September", "October", "November", "December"};
constexpr char const* weekdayKeys[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                       "Thursday", "Friday", "Saturday"};

template <typename Names>
std::size_t indexIn(Names const& names, long number) {
  auto const count = static_cast<long>(names.size());
  return static_cast<std::size_t>(((number % count) + count) % count);
}

template <typename Names, typename Keys>
void look(Names& names, Keys const& keys, ChartDictionary& dictionary) {
  long number = 0;
  for (char const* const key : keys) names[indexIn(names, ++number)] = dictionary.indexedText(key);
}

/// A date in its parts. A value that is no date has zeros.
struct Date {
  explicit Date(double number) : value(number) {
    iVexa2DMY(value, &day, &month, &year, &hours, &minutes, &seconds);
  }

  double value;
  long day = 0;
  long month = 0;
  long year = 0;
  long hours = 0;
  long minutes = 0;
  double seconds = 0;
};

ChartString plain(long number) {
  ChartString text;
  text.appendInteger(number);
  return text;
}

ChartString twoDigits(long number) {
  ChartString text(number < 10 ? u"0" : u"");
  text.appendInteger(number);
  return text;
}

/// A host may say of a value that is no date that its seconds are no number either.
long truncated(double seconds) {
  constexpr double countable = 9007199254740992.0;
  return std::fabs(seconds) <= countable ? static_cast<long>(seconds) : 0;
}

ChartString wholeSeconds(double seconds) {
  ChartString text(seconds < 10.0 ? u"0" : u"");
  text.appendInteger(truncated(seconds));
  return text;
}

/// A value of 1 to 12 is the bare number of a month.
ChartString monthName(Date const& date, DateNames const& names) {
  bool const isNumber = date.value >= 1.0 && date.value <= 12.0;
  return names.month(isNumber ? static_cast<long>(date.value) : date.month);
}

long quarter(long month) { return month < 4 ? 1 : month < 7 ? 2 : month < 10 ? 3 : 4; }

/// The letters that stand for pieces of a date in a layout; any other character stands for itself.
ChartString piece(char16_t letter, Date const& date, DateNames const& names) {
  switch (letter) {
    case u'd':
      return twoDigits(date.day);
    case u'M':
      return twoDigits(date.month);
    case u'Y':
      return plain(date.year);
    case u'y':
      return twoDigits(date.year % 100);
    case u'h':
      return plain(date.hours);
    case u'm':
      return twoDigits(date.minutes);
    case u's':
      return wholeSeconds(date.seconds);
    case u'S':
      // Thousandths are always nought: relied upon.
      return u"000";
    case u'N':
      return monthName(date, names);
    case u'q':
      return plain(quarter(date.month));
    case u'Q':
      return names.quarterWord();
    default: {
      ChartString text;
      text.append(letter);
      return text;
    }
  }
}

ChartString laidOut(std::u16string_view layout, Date const& date, DateNames const& names) {
  ChartString text;
  for (char16_t const letter : layout) text.append(piece(letter, date, names));
  return text;
}

struct PatternLayout {
  std::u16string_view pattern;
  std::u16string_view layout;
};

constexpr std::u16string_view fullDate = u"M/d/Y";
constexpr PatternLayout layouts[] = {{u"dd-MMM-yyyy", u"d-N-Y"},
                                     {u"dd-MMM-yy", u"d-N-y"},
                                     {u"HH:mm:ss.SSS", u"h:m:s:S"},
                                     {u"HH:mm:ss", u"h:m:s"},
                                     {u"HH:mm", u"h:m"},
                                     {u"dd-MMM-yyyy HH:mm.ss.SSS", u"d-N-Y h:m:s:S"},
                                     {u"dd-MMM-yyyy HH:mm.ss", u"d-N-Y h:m:s"},
                                     {u"dd-MMM-yyyy HH:mm", u"d-N-Y h:m"},
                                     {u"MM/dd/yyyy", fullDate},
                                     {u"MM/dd/yy", u"M/d/y"},
                                     {u"dd.MM.yyyy", u"d.M.Y"},
                                     {u"dd.MM.yy", u"d.M.y"},
                                     {u"yyyy/MM/dd", u"Y/M/d"},
                                     {u"yy/MM/dd", u"y/M/d"},
                                     {u"yyyyD", u"Y/M/d"},
                                     {u"yyD", u"y/M/d"},
                                     {u"ddd HH:mm.ss.SSS", u"d h:m:s:S"},
                                     {u"ddd HH:mm.ss", u"d h:m:s"},
                                     {u"ddd HH:mm", u"d h:m"},
                                     {u"MMMMM", u"N"},
                                     {u"MMM", u"N"},
                                     {u"MMM yyyy", u"N Y"},
                                     {u"MMM yy", u"N y"},
                                     {u"Q yyyy", u"q Q Y"},
                                     {u"Q yy", u"q Q y"},
                                     {u"w yyyy", fullDate},
                                     {u"w yy", u"M/d/y"}};

bool isWeekday(std::u16string_view pattern) { return pattern == u"EEE" || pattern == u"EE"; }

/// A value of 1 to 7 is the bare number of a day; a date is written in full.
ChartString weekdayText(Date const& date, DateNames const& names) {
  bool const isNumber = date.value > 0.0 && date.value < 8.0;
  return isNumber ? names.weekday(static_cast<long>(date.value)) : laidOut(fullDate, date, names);
}

}  // namespace

DateNames::DateNames(ChartDictionary& dictionary) {
  look(mMonths, monthKeys, dictionary);
  look(mWeekdays, weekdayKeys, dictionary);
  mQuarterWord = dictionary.indexedText("Q");
}

ChartString const& DateNames::month(long number) const { return mMonths[indexIn(mMonths, number)]; }
ChartString const& DateNames::weekday(long number) const { return mWeekdays[indexIn(mWeekdays, number)]; }

ChartString dateText(double value, std::u16string_view pattern, DateNames const& names) {
  Date const date(value);
  if (isWeekday(pattern)) return weekdayText(date, names);
  auto const row = std::find_if(std::begin(layouts), std::end(layouts),
                                [pattern](PatternLayout const& layout) { return layout.pattern == pattern; });
  return row == std::end(layouts) ? ChartString() : laidOut(row->layout, date, names);
}

}  // namespace kestrel
