#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::host {

using Names = std::vector<std::string_view>;

/// What the value of an attribute may be: one of a list of names, or what a test accepts. Either may be null.
struct ValueRule {
  Names (*names)();
  bool (*accepts)(std::string_view value);
  /// Such as "no length"; empty where the names say everything.
  std::string_view otherwise;
  std::string_view mend;
};

bool accepts(ValueRule const& rule, std::string_view value);

/// Why a value that the rule does not accept is wrong, and what to write instead.
std::string valueFault(ValueRule const& rule, std::string_view value);

/// A value that the rule accepts, as it goes into a chart: truth values are "true" and "false" there.
std::string writtenAs(ValueRule const& rule, std::string value);

/// Those of CSS in small letters, and `transparent`.
Names colorNames();

/// The longest value, in UTF-16 units.
constexpr std::size_t longestValue = 200;

extern ValueRule const anyText;
extern ValueRule const aBoolean;
extern ValueRule const aColor;
extern ValueRule const aLength;
/// 0 or more.
extern ValueRule const anExtent;
/// More than 0.
extern ValueRule const aSize;
extern ValueRule const aSymbol;
extern ValueRule const aLineCap;
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

/// The name that somebody who wrote a wrong one most likely meant; empty where none is near.
std::string_view nearestName(std::string_view wrong, Names const& names);

/// "did you mean color?", or where no name is near `otherwise`.
std::string didYouMean(std::string_view wrong, Names const& names, std::string const& otherwise);

/// With commas between them.
std::string listed(Names const& names);

}  // namespace kestrel::host
