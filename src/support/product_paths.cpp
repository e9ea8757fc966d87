#include "support/product_paths.h"

#include "support/failure.h"

#include "host/files.h"

#include <algorithm>

namespace kestrel {

namespace {

struct LanguageCodePage {
  char const* language;
  char const* codePage;
};
/// Taiwan is written with an underscore here, unlike elsewhere: relied upon.
constexpr LanguageCodePage codePages[] = {{"ru", "CP1251"},   {"pl", "CP1250"}, {"zh_tw", "CP950"},
                                          {"zh-cn", "CP936"}, {"ko", "CP949"},  {"ja", "CP932"}};

}  // namespace

PathInstance const& productPaths() {
  // 3 is the number under which the host keeps the product's own paths.
  return present(PathFactory::getPathInstance(3), "path to the product");
}

std::string productTemplate(std::string name) {
  // No separator: the base folder ends with one.
  name.insert(0, productPaths().getBasePath() + "template/");
  return name;
}

std::string codePageOfDictionary(std::string const& dictionaryPath) {
  std::string const base = productPaths().getBasePath();
  std::string const rest = dictionaryPath.substr(std::min(base.size(), dictionaryPath.size()));
  std::string const language = rest.substr(0, rest.find('/'));
  for (LanguageCodePage const& row : codePages) {
    if (language == row.language) return row.codePage;
  }
  return "CP1252";
}

}  // namespace kestrel
