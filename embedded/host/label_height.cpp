#include "label_height.h"

#include "length_units.h"
#include "template_chart.h"

#include "model/chartstring.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace kestrel::host {

namespace {

constexpr double usualFontSize = pixelsPerInch / 6.0;
constexpr double smallestFontSize = 1.0;
constexpr double largestFontSize = 2000.0;
/// From one line to the next, and what is left free above and below all of them, in font sizes.
constexpr double lineDistance = 1.25;
constexpr double margins = 0.5;
/// Of a text that nobody means to be read.
constexpr unsigned long mostLines = 1'000;

std::optional<double> fontSizeOf(LumoStyle const* style) {
  if (style == nullptr) return std::nullopt;
  std::optional<Length> const length = lengthOf(style->getAttribute(u"font_size"));
  if (!length || length->number <= 0.0) return std::nullopt;
  double const unit = length->pixelsPerUnit != 0.0 ? length->pixelsPerUnit : usualFontSize / 100.0;
  return length->number * unit;
}

/// The label's own style counts before that of its frame.
double fontSizeOf(LumoLabelFrame const& frame, LumoLabel const& label) {
  std::optional<double> size = fontSizeOf(label.getStyle());
  if (!size) size = fontSizeOf(frame.getStyle());
  return std::clamp(size.value_or(usualFontSize), smallestFontSize, largestFontSize);
}

ChartString joined(std::vector<LumoText*> const& texts) {
  ChartString whole;
  for (LumoText const* text : texts) whole.append(text->getText());
  return whole;
}

bool isBlank(ChartString text) {
  text.trimSpaces(true);
  return text.empty();
}

unsigned long lineFeeds(ChartString const& text) {
  return static_cast<unsigned long>(std::count(text.xc_str(), text.xc_str() + text.length(), u'\n'));
}

bool ignoresLineFeeds(LumoLabel const& label) {
  LumoStyle const* const style = label.getStyle();
  char16_t const* const said = style != nullptr ? style->getAttribute(u"ignoreNewLines") : nullptr;
  ChartString const value(said);
  return value.equals(u"true") || value.equals(u"1");
}

unsigned long linesOf(LumoLabel const& label) {
  bool const feeds = !ignoresLineFeeds(label);
  unsigned long lines = 0;
  ChartString const text = joined(label.getTexts());
  if (!isBlank(text)) lines += 1 + (feeds ? lineFeeds(text) : 0);
  for (LumoDescriptionGroup const* group : label.getDescriptionGroups()) {
    ChartString const words = joined(group->getTexts());
    if (isBlank(words) && group->getDescriptions().empty()) continue;
    lines += 1 + (feeds ? lineFeeds(words) : 0);
  }
  return std::min(lines, mostLines);
}

}  // namespace

int heightOf(LumoLabelFrame const& frame) {
  LumoLabel const* const label = frame.getLabel();
  unsigned long const lines = label != nullptr ? linesOf(*label) : 0;
  if (lines == 0) return 0;
  double const height = fontSizeOf(frame, *label) * (static_cast<double>(lines) * lineDistance + margins);
  return static_cast<int>(std::ceil(height - 1e-6));  // What rounding put on top is no pixel.
}

std::vector<int> heightsOfLabels(LumoVisualization& chart) {
  std::vector<int> heights;
  forEachElement(chart, [&heights](LumoBaseElement const& object) {
    auto const* const frame = dynamic_cast<LumoLabelFrame const*>(&object);
    if (frame != nullptr && frame->getLabel() != nullptr) heights.push_back(heightOf(*frame));
  });
  return heights;
}

}  // namespace kestrel::host
