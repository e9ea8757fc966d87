// How a variable's values are printed: its first format element.

#include "xvariable.h"

#include "support/chart_text.h"
#include "support/dictionary.h"
#include "support/guard.h"

#include "host/chartbase.h"
#include "model/tokens.h"
#include "model/variables.h"

#include <algorithm>
#include <span>

using kestrel::guarded;
using kestrel::isEmpty;
using kestrel::present;

namespace {

constexpr char const* numberFormatFailed = "Error in XVariable::SetNumberFormat()";

constexpr char16_t datePattern[] = u"yyyy-MM-dd";
constexpr char16_t dateTimePattern[] = u"yyyy-MM-dd'T'HH:mm:ss.SSS";

/// What a host's format type does to the format element.
enum class Display {
  None,
  Number,
  CustomCurrency,
  Date,
  DateTime,
  Time,
  ElapsedTime,
  DayOfWeek,
  MonthOfYear
};

struct DisplayOfType {
  unsigned int type;
  Display display;
};

/// Types that are not here, the strings among them, leave the format element empty.
constexpr DisplayOfType displays[] = {
    {3, Display::Number},          {4, Display::Number},          {5, Display::Number},
    {8, Display::Number},          {9, Display::Number},          {12, Display::Number},
    {15, Display::Number},         {16, Display::Number},         {17, Display::Number},
    {31, Display::Number},         {32, Display::Number},         {40, Display::Number},
    {33, Display::CustomCurrency}, {34, Display::CustomCurrency}, {35, Display::CustomCurrency},
    {36, Display::CustomCurrency}, {37, Display::CustomCurrency}, {20, Display::Date},
    {23, Display::Date},           {24, Display::Date},           {28, Display::Date},
    {29, Display::Date},           {30, Display::Date},           {38, Display::Date},
    {39, Display::Date},           {22, Display::DateTime},       {86, Display::DateTime},
    {21, Display::Time},           {85, Display::Time},           {25, Display::ElapsedTime},
    {26, Display::DayOfWeek},      {27, Display::MonthOfYear},
};

Display displayOf(unsigned int type) {
  auto const* const row =
      std::find_if(std::begin(displays), std::end(displays),
                   [type](DisplayOfType const& candidate) { return candidate.type == type; });
  return row != std::end(displays) ? row->display : Display::None;
}

/// A value, and the dictionary's keys of its long and its short name.
struct NamedValue {
  char16_t const* value;
  char const* longKey;
  char const* shortKey;
};

/// The week starts on Sunday.
constexpr NamedValue daysOfWeek[] = {
    {u"1", "Sunday", "TFOSunday"},       {u"2", "Monday", "TFOMonday"},     {u"3", "Tuesday", "TFOTuesday"},
    {u"4", "Wednesday", "TFOWednesday"}, {u"5", "Thursday", "TFOThursday"}, {u"6", "Friday", "TFOFriday"},
    {u"7", "Saturday", "TFOSaturday"},
};

constexpr NamedValue monthsOfYear[] = {
    {u"1", "January", "TFOJanuary"},
    {u"2", "February", "TFOFebruary"},
    {u"3", "March", "TFOMarch"},
    {u"4", "April", "TFOApril"},
    {u"5", "May", "TFOMay"},
    {u"6", "June", "TFOJune"},
    {u"7", "July", "TFOJuly"},
    {u"8", "August", "TFOAugust"},
    {u"9", "September", "TFOSeptember"},
    {u"10", "October", "TFOOctober"},
    {u"11", "November", "TFONovember"},
    {u"12", "December", "TFODecember"},
};

void addNameRelabels(std::span<NamedValue const> rows, LumoFormat& format, Vexa_Format hostFormat) {
  kestrel::ChartDictionary dictionary;
  bool const longNames = hostFormat.Width() > 3;
  for (NamedValue const& row : rows) {
    format.addRelabel(row.value, dictionary.text(longNames ? row.longKey : row.shortKey).xc_str());
  }
}

}  // namespace

/// The first format is the only one that is ever used.
LumoFormat& XVariable::findOrMakeFormat() {
  auto const formats = mImplementation->getFormats();
  return formats.empty() ? *mImplementation->addFormat() : *formats.front();
}

bool XVariable::doesFormatExist() const { return !mImplementation->getFormats().empty(); }

bool XVariable::SetNumberFormat(unsigned long decimals, bool grouping, char16_t const* prefix,
                                char16_t const* suffix) {
  LumoFormat* found = nullptr;
  // Only this step is guarded: what follows it runs in any case.
  guarded(numberFormatFailed, [&] { found = &findOrMakeFormat(); });
  LumoFormat& format = present(found, "format");
  auto const digits = static_cast<unsigned int>(decimals);
  format.setMinimumFractionDigits(digits);
  format.setMaximumFractionDigits(digits);
  format.setUseGrouping(grouping);
  if (!isEmpty(prefix)) format.setPrefix(prefix);
  if (!isEmpty(suffix)) format.setSuffix(suffix);
  return true;
}

bool XVariable::SetFormatPrefix(char16_t const* prefix) {
  bool done = false;
  if (isEmpty(prefix)) return done;
  // The words are those of the operation that this one was split from.
  guarded(numberFormatFailed, [&] {
    findOrMakeFormat().setPrefix(prefix);
    done = true;
  });
  return done;
}

bool XVariable::SetFormatSuffix(char16_t const* suffix) {
  bool done = false;
  if (isEmpty(suffix)) return done;
  guarded(numberFormatFailed, [&] {
    findOrMakeFormat().setSuffix(suffix);
    done = true;
  });
  return done;
}

void XVariable::setFormatBasedOnVexaVariable(Vexa_Variable const& host) {
  guarded("Error in XVariable::setFormatBasedOnVexaVariable()", [&] { setFormat(host.GetFormat()); });
}

void XVariable::setFormat(Vexa_Format hostFormat) {
  guarded("Error in XVariable::setFormat()", [&] { fillFormat(findOrMakeFormat(), hostFormat); });
}

void XVariable::fillFormat(LumoFormat& format, Vexa_Format hostFormat) {
  Display display = displayOf(hostFormat.TypeEx());
  bool const named = display == Display::DayOfWeek || display == Display::MonthOfYear;
  // Names stand for the values of a categorical variable only.
  if (named && !getCategorical()) display = Display::Date;
  switch (display) {
    case Display::None:
      break;
    case Display::Number:
      ChartBase::FormatNumber(format, hostFormat);
      break;
    case Display::CustomCurrency:
      ChartBase::FormatCustomCurrency(format, hostFormat);
      break;
    case Display::Date:
      setInputDateFormatPattern(datePattern);
      ChartBase::FormatDate(format, hostFormat);
      break;
    case Display::DateTime:
      setInputDateFormatPattern(dateTimePattern);
      ChartBase::FormatDate(format, hostFormat);
      break;
    case Display::Time:
      // No input pattern for times: relied upon.
      ChartBase::FormatDate(format, hostFormat);
      break;
    case Display::ElapsedTime:
      ChartBase::FormatElapsedTime(format, hostFormat);
      break;
    case Display::DayOfWeek:
      addDayOfWeekRelabels(format, hostFormat);
      break;
    case Display::MonthOfYear:
      addMonthOfYearRelabels(format, hostFormat);
      break;
  }
}

void XVariable::setInputDateFormatPattern(char16_t const* pattern) {
  // A variable of another kind gets the attribute all the same.
  if (auto* const variable = dynamic_cast<LumoSourceVariable*>(mImplementation)) {
    variable->setInputDateFormatPattern(pattern);
  } else {
    mImplementation->getImplementation()->setAttribute(LumoUni::_inputDateFormatPattern, pattern);
  }
}

void XVariable::addDayOfWeekRelabels(LumoFormat& format, Vexa_Format hostFormat) {
  addNameRelabels(daysOfWeek, format, hostFormat);
}

void XVariable::addMonthOfYearRelabels(LumoFormat& format, Vexa_Format hostFormat) {
  addNameRelabels(monthsOfYear, format, hostFormat);
}
