#include "nearest_name.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace kestrel::tool {

namespace {

std::string lowerCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
  });
  return result;
}

/// How many characters must be put in, taken out or changed to get from one text to the other.
std::size_t distance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < from.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    for (std::size_t j = 0; j < to.size(); ++j) {
      std::size_t const change = diagonal + (from[i] == to[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({change, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string nearestName(std::string_view asked, std::vector<std::string> const& names) {
  constexpr std::size_t shortestPart = 3;
  std::string const wanted = lowerCase(asked);
  std::size_t const third = std::max<std::size_t>(1, wanted.size() / 3);
  std::string nearest;
  // A third of the text may differ. A name that the text is a part of, or that is part of it, is no worse
  // than that.
  std::size_t best = third + 1;
  for (std::string const& name : names) {
    std::string const candidate = lowerCase(name);
    if (candidate.empty() || wanted.empty()) continue;
    auto const [part, whole] = std::minmax(
        candidate, wanted, [](auto const& left, auto const& right) { return left.size() < right.size(); });
    bool const contained = part.size() >= shortestPart && whole.find(part) != std::string::npos;
    std::size_t const apart = std::min(distance(wanted, candidate), contained ? third : std::string::npos);
    if (apart >= best || apart >= wanted.size()) continue;
    best = apart;
    nearest = name;
  }
  return nearest;
}

}  // namespace kestrel::tool
