#include "xutility.h"

#include "host/locale.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

struct LanguageCodePage {
  std::string_view language;
  char const* codePage;
};

constexpr LanguageCodePage languageCodePages[] = {
    {"ru", "CP1251"},   {"pl", "CP1250"}, {"zh-tw", "CP950"},
    {"zh-cn", "CP936"}, {"ko", "CP949"},  {"ja", "CP932"},
};

std::string codePageOf(std::string const& language) {
  for (auto const& row : languageCodePages) {
    if (language == row.language) return row.codePage;
  }
  return "CP1252";
}

}  // namespace

ChartString XUtility::ChartStringFromLocalCodePage(char const* text) {
  ChartString result;
  result.assign(text);
  return result;
}

ChartString XUtility::ChartStringFromOLANG(char const* text) {
  std::string const codePage = codePageOf(OLang().GetLanguageCode());
  // The code page is found and not used: hosts rely on texts that are decoded by the local one in every
  // language.
  static_cast<void>(codePage);
  ChartString result;
  result.assign(text);
  return result;
}

ChartString XUtility::chartStringFromRGB(unsigned int red, unsigned int green, unsigned int blue) {
  static constexpr char16_t digits[] = u"0123456789abcdef";
  char16_t text[8] = u"#";
  char16_t* next = text + 1;
  for (unsigned int const component : {red, green, blue}) {
    unsigned int const value = std::min(component, 255u);
    *next++ = digits[value / 16];
    *next++ = digits[value % 16];
  }
  *next = u'\0';
  return ChartString(text);
}
