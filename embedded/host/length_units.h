#pragma once

#include <optional>
#include <string_view>

namespace kestrel::host {

struct LengthUnit {
  std::string_view name;
  /// 0 for a share of something that the length itself does not tell.
  double pixels;
};

constexpr double pixelsPerInch = 96.0;

/// All units of lengths, in charts and in templates. A length without a unit counts as pixels.
constexpr LengthUnit lengthUnits[] = {{"px", 1.0},
                                      {"pt", pixelsPerInch / 72.0},
                                      {"mm", pixelsPerInch / 25.4},
                                      {"cm", pixelsPerInch / 2.54},
                                      {"in", pixelsPerInch},
                                      {"%", 0.0}};

/// The text before the unit; the whole text where it does not end in one.
std::string_view withoutUnit(std::string_view length);

struct Length {
  double number;
  /// 0 for a percentage.
  double pixelsPerUnit;
};

/// None for a text that is no length. White space around it does not count.
std::optional<Length> lengthOf(char16_t const* text);

/// A length in pixels. None for a text that is no length, and for percentages but 0.
std::optional<double> pixelsOf(char16_t const* length);

}  // namespace kestrel::host
