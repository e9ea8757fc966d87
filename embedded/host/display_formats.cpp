#include "host/data_types.h"
#include "kestrelhost/host.h"
#include "model/chartstring.h"
#include "model/variables.h"

namespace kestrel::host {

namespace {

struct DatePattern {
  char16_t const* pattern;
  Vexa_Format::FormatType type;
  bool hasSeconds;
};

constexpr char16_t dayPattern[] = u"yyyy-MM-dd";
constexpr char16_t timePattern[] = u"HH:mm:ss";
constexpr char16_t dayAndTimePattern[] = u"yyyy-MM-dd HH:mm:ss";

constexpr DatePattern datePatterns[] = {
    {dayPattern, Vexa_Format::FormatDate, false},
    {dayPattern, Vexa_Format::FormatDate23, false},
    {dayPattern, Vexa_Format::FormatDate24, false},
    {dayPattern, Vexa_Format::FormatDate28, false},
    {dayPattern, Vexa_Format::FormatDate29, false},
    {dayPattern, Vexa_Format::FormatDate30, false},
    {dayPattern, Vexa_Format::FormatDate38, false},
    {dayPattern, Vexa_Format::FormatDate39, false},
    {dayAndTimePattern, Vexa_Format::FormatDateTime, true},
    {dayAndTimePattern, Vexa_Format::FormatDateTime86, true},
    {timePattern, Vexa_Format::FormatTime, true},
    {timePattern, Vexa_Format::FormatTime85, true},
    {u"EEEE", Vexa_Format::FormatDayOfWeek, false},
    {u"MMMM", Vexa_Format::FormatMonthOfYear, false},
};

void showPattern(LumoFormat& element, char16_t const* pattern, bool hasSeconds, Vexa_Format const& format) {
  ChartString text(pattern);
  if (hasSeconds && format.Decimals() > 0) text.append(u".SSS");
  element.setPattern(text.xc_str());
}

void showDigits(LumoFormat& element, Vexa_Format const& format, bool grouping) {
  element.setMinimumFractionDigits(format.Decimals());
  element.setMaximumFractionDigits(format.Decimals());
  element.setUseGrouping(grouping);
}

}  // namespace

DisplayFormats::~DisplayFormats() = default;

bool UsualFormats::number(LumoFormat& element, Vexa_Format& format) {
  if (format.IsString()) return false;
  showDigits(element, format, false);
  return true;
}

bool UsualFormats::customCurrency(LumoFormat& element, Vexa_Format& format) {
  if (format.IsString()) return false;
  showDigits(element, format, true);
  return true;
}

bool UsualFormats::date(LumoFormat& element, Vexa_Format& format) {
  for (DatePattern const& row : datePatterns) {
    if (format.TypeEx() != static_cast<unsigned int>(row.type)) continue;
    showPattern(element, row.pattern, row.hasSeconds, format);
    return true;
  }
  return false;
}

bool UsualFormats::elapsedTime(LumoFormat& element, Vexa_Format& format) {
  if (format.IsString()) return false;
  showPattern(element, timePattern, true, format);
  return true;
}

}  // namespace kestrel::host
