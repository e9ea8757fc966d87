#include "local_code_page.h"

#include "model/chartstring.h"

#include <unicode/ucnv.h>
#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>

namespace kestrel::host {

namespace {

/// The code page by the name that ICU has for what callers mean by it.
std::string converterName(std::string const& codePage) {
  if (codePage == "CP949") return "windows-949";
  if (codePage == "CP950") return "windows-950";
  return codePage;
}

}  // namespace

std::string toLocalCodePage(std::string const& text) {
  std::string const page = converterName(ChartString::localCodePage());
  if (ucnv_compareNames(page.c_str(), "UTF-8") == 0) return text;
  icu::UnicodeString const characters = icu::UnicodeString::fromUTF8(text);
  int const length = characters.extract(0, characters.length(), nullptr, 0U, page.c_str());
  std::string bytes(static_cast<std::size_t>(length) + 1, '\0');
  characters.extract(0, characters.length(), bytes.data(), static_cast<std::uint32_t>(bytes.size()),
                     page.c_str());
  bytes.resize(static_cast<std::size_t>(length));
  return bytes;
}

}  // namespace kestrel::host
