#include "problem.h"

#include <algorithm>
#include <cstdio>

namespace kestrel::tool {

Problem badInput(std::string const& file, std::size_t line, std::string const& what) {
  return {file + ":" + std::to_string(line) + ": " + what, Exit::BadInput};
}

Problem badInput(std::string const& file, std::string const& what) {
  return {file + ": " + what, Exit::BadInput};
}

std::string printable(std::string_view text) {
  std::string result(text);
  auto const isControl = [](char character) {
    auto const code = static_cast<unsigned char>(character);
    return code < 0x20 || code == 0x7F;
  };
  std::replace_if(result.begin(), result.end(), isControl, '?');
  return result;
}

std::string inQuotes(std::string_view text) { return "'" + printable(text) + "'"; }

void tell(std::string const& text) {
  std::string const line = "kestrel: " + printable(text) + "\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
}

std::string grouped(std::size_t count) {
  std::string digits = std::to_string(count);
  for (std::size_t at = digits.size(); at > 3;) {
    at -= 3;
    digits.insert(at, ",");
  }
  return digits;
}

std::string counted(std::size_t count, std::string const& noun) {
  return grouped(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace kestrel::tool
