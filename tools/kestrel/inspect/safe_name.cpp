#include "safe_name.h"

#include "utf8.h"

#include <algorithm>

namespace kestrel::tool {

namespace {

constexpr std::size_t longest = 120;

bool isSafe(char character) {
  auto const code = static_cast<unsigned char>(character);
  bool const letter = (code | 0x20) >= 'a' && (code | 0x20) <= 'z';
  bool const digit = code >= '0' && code <= '9';
  return letter || digit || code >= 0x80 || character == '.' || character == '-' || character == '_';
}

/// File systems that do not tell upper from lower case see one name.
std::string folded(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
  });
  return text;
}

}  // namespace

std::string safeName(std::string_view name, std::string_view usual) {
  std::size_t const slash = name.find_last_of("/\\");
  std::string result(slash == std::string_view::npos ? name : name.substr(slash + 1));
  // Cut at the end of a character, also where the cut or the name itself leaves half of one.
  result.resize(std::min(result.size(), longest));
  result.resize(std::min(result.size(), findBadUtf8(result)));
  std::replace_if(
      result.begin(), result.end(), [](char character) { return !isSafe(character); }, '_');
  result.erase(0, std::min(result.find_first_not_of('.'), result.size()));
  return result.empty() ? std::string(usual) : result;
}

std::string NameList::take(std::string const& name) {
  std::size_t const dot = name.rfind('.');
  std::size_t const stem = dot == std::string::npos || dot == 0 ? name.size() : dot;
  std::string candidate = name;
  // Numbers go on where they stopped: somebody may have sent the same name very often.
  for (std::size_t& number = mNumbers[folded(name)]; !mTaken.insert(folded(candidate)).second;) {
    number = std::max<std::size_t>(number + 1, 2);
    candidate = name.substr(0, stem) + "-" + std::to_string(number) + name.substr(stem);
  }
  return candidate;
}

}  // namespace kestrel::tool
