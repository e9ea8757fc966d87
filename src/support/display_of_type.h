#pragma once

namespace kestrel {

/// What a host's format type does to the format element of a chart.
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

/// None for a type that leaves the format element as it is, the strings among them.
Display displayOf(unsigned int type);

}  // namespace kestrel
