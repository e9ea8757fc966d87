#pragma once

#include "host/chartbase.h"
#include "host/export.h"

#include <string>

namespace kestrel::host {

/// A moment in parts, in UTC and the Gregorian calendar.
struct DateParts {
  /// @{
  /// Day 1 to 31, month 1 to 12, hours 0 to 23, minutes 0 to 59, seconds from 0 to below 60.
  long day = 0;
  long month = 0;
  long year = 0;
  long hours = 0;
  long minutes = 0;
  double seconds = 0;
  /// @}
};

/// Breaks dates up.
class VEXA_API Calendar {
 public:
  virtual ~Calendar();

  /// False, with zeros, for a value that is no date.
  virtual bool breakUp(double value, DateParts& parts) = 0;
};

/// Seconds since 1970-01-01T00:00:00.
class VEXA_API UnixCalendar : public Calendar {
 public:
  bool breakUp(double value, DateParts& parts) override;
};

/// Display formats: each fills the format element and is false for a type that it has no display for.
class VEXA_API DisplayFormats {
 public:
  virtual ~DisplayFormats();

  /// @{
  /// False, and the element stays as it is, for a type that there is no display for.
  virtual bool number(LumoFormat& element, Vexa_Format& format) = 0;
  virtual bool customCurrency(LumoFormat& element, Vexa_Format& format) = 0;
  virtual bool date(LumoFormat& element, Vexa_Format& format) = 0;
  virtual bool elapsedTime(LumoFormat& element, Vexa_Format& format) = 0;
  /// @}
};

/// Numbers with their decimals, currencies with thousands set apart too, dates and times as yyyy-MM-dd and
/// HH:mm:ss.
class VEXA_API UsualFormats : public DisplayFormats {
 public:
  bool number(LumoFormat& element, Vexa_Format& format) override;
  bool customCurrency(LumoFormat& element, Vexa_Format& format) override;
  bool date(LumoFormat& element, Vexa_Format& format) override;
  bool elapsedTime(LumoFormat& element, Vexa_Format& format) override;
};

/// Small services on the chart itself.
class VEXA_API ChartTexts {
 public:
  virtual ~ChartTexts();

  /// The id, or one like it that the chart does not have.
  virtual ChartString createUniqueId(ChartString const& id, LumoVisualization& visualization) = 0;
  /// Puts the translation in the place of a text that the dictionary knows; the dictionary may be null.
  virtual void updateText(ChartString& text, FacSTDictionary* dictionary, std::string const& encoding) = 0;
};

/// A free id is the id, an underscore and the lowest number from 1 that makes it free. A text that the
/// dictionary knows as a key becomes its translation.
class VEXA_API UsualChartTexts : public ChartTexts {
 public:
  ChartString createUniqueId(ChartString const& id, LumoVisualization& visualization) override;
  void updateText(ChartString& text, FacSTDictionary* dictionary, std::string const& encoding) override;
};

}  // namespace kestrel::host
