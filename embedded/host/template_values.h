#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::host {

using Names = std::vector<std::string_view>;

/// What the value of an attribute may be: one of a list of names, or what a test accepts.
struct ValueRule {
  Names (*names)();
  bool (*accepts)(std::string_view value);
  /// Such as "no length".
  std::string_view otherwise;
  std::string_view mend;
};

bool accepts(ValueRule const& rule, std::string_view value);

/// The longest value, in UTF-16 units.
constexpr std::size_t longestValue = 200;

extern ValueRule const anyText;
extern ValueRule const aWord;
extern ValueRule const aBoolean;
extern ValueRule const aColor;
extern ValueRule const aLength;
extern ValueRule const aNumber;
extern ValueRule const aShare;
extern ValueRule const aCount;
extern ValueRule const dashLengths;
extern ValueRule const aFontWeight;
extern ValueRule const aFontStyle;
extern ValueRule const anAestheticNumber;
extern ValueRule const aFrameNumber;
extern ValueRule const aFrameType;
extern ValueRule const aRole;
extern ValueRule const anAesthetic;
extern ValueRule const aPart;
extern ValueRule const aFontPart;
extern ValueRule const anElementType;
extern ValueRule const anElementSubtype;

/// The name that is closest to a wrong one, or nothing where there are no names.
std::string_view nearestName(std::string_view wrong, Names const& names);

}  // namespace kestrel::host
