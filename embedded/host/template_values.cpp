// What values of a template look like. schema/template.xsd says the same in its own words.

#include "template_values.h"

#include "length_units.h"
#include "template_elements.h"
#include "template_parts.h"

#include <algorithm>
#include <numeric>

namespace kestrel::host {

namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }
bool isHexadecimal(char character) {
  return isDigit(character) || (character >= 'a' && character <= 'f') ||
         (character >= 'A' && character <= 'F');
}

bool all(std::string_view text, bool (*test)(char)) { return std::all_of(text.begin(), text.end(), test); }

bool isDigits(std::string_view text) { return !text.empty() && all(text, isDigit); }

bool isColorCode(std::string_view text) {
  return text.starts_with('#') && text.size() == 7 && all(text.substr(1), isHexadecimal);
}

bool isUnsignedNumber(std::string_view text) {
  std::size_t const point = std::min(text.find('.'), text.size());
  std::string_view const whole = text.substr(0, point);
  std::string_view const fraction = text.substr(std::min(point + 1, text.size()));
  return all(whole, isDigit) && all(fraction, isDigit) && !(whole.empty() && fraction.empty());
}

std::string_view withoutSign(std::string_view text) {
  return text.starts_with('-') || text.starts_with('+') ? text.substr(1) : text;
}

bool isNumber(std::string_view text) { return isUnsignedNumber(withoutSign(text)); }

bool isShare(std::string_view text) {
  if (!isUnsignedNumber(text)) return false;
  std::size_t const point = std::min(text.find('.'), text.size());
  if (text.substr(0, point) == "1")
    return text.find_first_not_of("10.") == std::string_view::npos &&
           text.find('1', 1) == std::string_view::npos;
  return text.substr(0, point) == "0" || point == 0;
}

bool isLength(std::string_view text) { return isNumber(withoutUnit(text)); }
bool isExtent(std::string_view text) { return isLength(text) && !text.starts_with('-'); }
bool isSize(std::string_view text) {
  return isExtent(text) && text.find_first_of("123456789") != std::string_view::npos;
}

bool isDashLengths(std::string_view text) {
  if (text.empty()) return true;
  std::size_t const comma = text.find(',');
  if (comma == std::string_view::npos) return isExtent(text);
  return comma + 1 < text.size() && isExtent(text.substr(0, comma)) && isDashLengths(text.substr(comma + 1));
}

bool isCount(std::string_view text) { return text.size() <= 4 && isDigits(text); }

bool isFrameNumber(std::string_view text) {
  return text == "10" || (text.size() == 1 && isDigit(text[0]) && text[0] != '0');
}

bool isAny(std::string_view) { return true; }

bool isBoolean(std::string_view text) {
  return text == "true" || text == "false" || text == "1" || text == "0";
}

Names fontWeights() {
  return {"normal", "bold", "100", "200", "300", "400", "500", "600", "700", "800", "900"};
}
Names fontStyles() { return {"normal", "italic", "oblique"}; }
Names aestheticNumbers() { return {"1", "2", "3", "4", "5"}; }
Names frameTypes() { return {"visualization", "graph"}; }
Names roles() { return {"x", "y", "z"}; }
Names aesthetics() { return {"color", "pattern", "shape", "dash"}; }
Names symbols() { return {"circle", "square", "triangle", "diamond", "cross", "plus", "star", "ibeam"}; }
Names lineCaps() { return {"butt", "round", "square"}; }

constexpr ValueRule oneOf(Names (*names)()) { return {names, nullptr, {}, {}}; }

}  // namespace

// clang-format off
ValueRule const anyText          {nullptr, isAny, {}, {}};
ValueRule const aColor           {colorNames, isColorCode, "no colour",             "write #RRGGBB or the name of a colour of CSS in small letters, such as steelblue"};
ValueRule const aLength          {nullptr, isLength,      "no length",              "write a number with px, pt, mm, cm, in or %, such as 10pt"};
ValueRule const anExtent         {nullptr, isExtent,      "no length of 0 or more", "write a number with px, pt, mm, cm, in or %, such as 2pt"};
ValueRule const aSize            {nullptr, isSize,        "no length above 0",      "write a number with px, pt, mm, cm, in or %, such as 10pt"};
ValueRule const aNumber          {nullptr, isNumber,      "no number",              "write a number such as 45 or -0.5"};
ValueRule const aShare           {nullptr, isShare,       "no number from 0 to 1",  "write a number such as 0.5"};
ValueRule const aCount           {nullptr, isCount,       "no whole number",        "write a number from 0 to 9999"};
ValueRule const dashLengths      {nullptr, isDashLengths, "no list of lengths",     "write lengths of 0 or more with commas between them, such as 6pt,3pt, or nothing for a solid line"};
ValueRule const aFrameNumber     {nullptr, isFrameNumber, "no number from 1 to 10", "write such a number"};
ValueRule const aBoolean         {nullptr, isBoolean,     "no truth value",         "write true or false"};
ValueRule const aSymbol          = oneOf(symbols);
ValueRule const aLineCap         = oneOf(lineCaps);
ValueRule const aFontWeight      = oneOf(fontWeights);
ValueRule const aFontStyle       = oneOf(fontStyles);
ValueRule const anAestheticNumber= oneOf(aestheticNumbers);
ValueRule const aFrameType       = oneOf(frameTypes);
ValueRule const aRole            = oneOf(roles);
ValueRule const anAesthetic      = oneOf(aesthetics);
ValueRule const aPart            = oneOf(partNames);
ValueRule const aFontPart        = oneOf(fontPartNames);
ValueRule const anElementType    = oneOf(elementTypes);
ValueRule const anElementSubtype = oneOf(elementSubtypes);
// clang-format on

bool accepts(ValueRule const& rule, std::string_view value) {
  if (rule.accepts != nullptr && rule.accepts(value)) return true;
  if (rule.names == nullptr) return false;
  Names const names = rule.names();
  return std::find(names.begin(), names.end(), value) != names.end();
}

std::string valueFault(ValueRule const& rule, std::string_view value) {
  Names const names = rule.names == nullptr ? Names() : rule.names();
  if (rule.otherwise.empty())
    return "none of its values; " + didYouMean(value, names, "write one of " + listed(names));
  return std::string(rule.otherwise) + "; " + didYouMean(value, names, std::string(rule.mend));
}

std::string writtenAs(ValueRule const& rule, std::string value) {
  if (&rule != &aBoolean) return value;
  return value == "true" || value == "1" ? "true" : "false";
}

namespace {

char small(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

/// How many characters must be changed, added or taken away to make one text of the other, whatever their
/// case.
std::size_t editDistance(std::string_view left, std::string_view right) {
  std::vector<std::size_t> row(right.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < left.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    for (std::size_t j = 0; j < right.size(); ++j) {
      std::size_t const changed = diagonal + (small(left[i]) == small(right[j]) ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string_view nearestName(std::string_view wrong, Names const& names) {
  constexpr std::size_t compared = 64;
  wrong = wrong.substr(0, compared);
  std::size_t least = std::max<std::size_t>(2, wrong.size() / 3) + 1;
  // Something of the text must be left.
  least = std::min(least, wrong.size());
  std::string_view nearest;
  for (std::string_view const name : names) {
    std::size_t const distance = editDistance(wrong, name);
    if (distance >= least) continue;
    least = distance;
    nearest = name;
  }
  return nearest;
}

std::string didYouMean(std::string_view wrong, Names const& names, std::string const& otherwise) {
  std::string_view const nearest = nearestName(wrong, names);
  return nearest.empty() ? otherwise : "did you mean " + std::string(nearest) + "?";
}

std::string listed(Names const& names) {
  std::string text;
  for (std::string_view const name : names) (text += text.empty() ? "" : ", ") += name;
  return text;
}

}  // namespace kestrel::host
