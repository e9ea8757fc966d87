#include "length_units.h"

#include "model/chartstring.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <string>

namespace kestrel::host {

namespace {

LengthUnit const* unitOf(std::string_view length) {
  auto const* const found =
      std::find_if(std::begin(lengthUnits), std::end(lengthUnits),
                   [&](LengthUnit const& known) { return length.ends_with(known.name); });
  return found != std::end(lengthUnits) ? found : nullptr;
}

}  // namespace

std::string_view withoutUnit(std::string_view length) {
  LengthUnit const* const unit = unitOf(length);
  return unit != nullptr ? length.substr(0, length.size() - unit->name.size()) : length;
}

std::optional<Length> lengthOf(char16_t const* text) {
  ChartString trimmed(text);
  trimmed.trimSpaces(true);
  std::string const length = trimmed.toUTF8();
  LengthUnit const* const unit = unitOf(length);
  std::string_view number = withoutUnit(length);
  if (number.starts_with('+') && !number.starts_with("+-")) number.remove_prefix(1);
  Length result{0.0, unit != nullptr ? unit->pixels : 1.0};
  char const* const end = number.data() + number.size();
  auto const [stop, error] = std::from_chars(number.data(), end, result.number);
  bool const isNumber = error == std::errc() && stop == end && std::isfinite(result.number);
  return isNumber ? std::optional(result) : std::nullopt;
}

std::optional<double> pixelsOf(char16_t const* text) {
  std::optional<Length> const length = lengthOf(text);
  bool const isShare = length && length->pixelsPerUnit == 0.0 && length->number != 0.0;
  return length && !isShare ? std::optional(length->number * length->pixelsPerUnit) : std::nullopt;
}

}  // namespace kestrel::host
