// How a variable's values are printed: its first format element.

#include "xvariable.h"

#include "support/chart_text.h"
#include "support/dictionary.h"
#include "support/display_of_type.h"
#include "support/guard.h"

#include "host/chartbase.h"
#include "model/tokens.h"
#include "model/variables.h"

#include <span>

using kestrel::Display;
using kestrel::guarded;
using kestrel::isEmpty;
using kestrel::present;

namespace {

constexpr char const* numberFormatFailed = "Error in XVariable::SetNumberFormat()";

constexpr char16_t datePattern[] = u"yyyy-MM-dd";
constexpr char16_t dateTimePattern[] = u"yyyy-MM-dd'T'HH:mm:ss.SSS";

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
  Display display = kestrel::displayOf(hostFormat.TypeEx());
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
