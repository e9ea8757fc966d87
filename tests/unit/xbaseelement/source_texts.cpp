#include "source_texts.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace kestrel::test {
namespace {

std::string contentOf(std::filesystem::path const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::set<std::string> matchesInTheSources(std::regex const& wanted) {
  std::set<std::string> texts;
  for (auto const& entry :
       std::filesystem::recursive_directory_iterator(std::string(KESTREL_SOURCE_DIR) + "/src")) {
    if (entry.path().extension() != ".cpp") continue;
    std::string const text = contentOf(entry.path());
    for (std::sregex_iterator found(text.begin(), text.end(), wanted), end; found != end; ++found) {
      texts.insert((*found)[1]);
    }
  }
  return texts;
}

}  // namespace kestrel::test
