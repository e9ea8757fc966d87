#include "chart_words.h"

#include <array>
#include <vector>

namespace kestrel::tool {

namespace {

/// What the kinds of elements make, in their order.
constexpr std::array<char const*, elementNames.size()> chartNames = {
    "a point chart", "a bar chart",        "a line chart",         "a histogram",
    "a box plot",    "an error bar chart", "a population pyramid",
};

std::string measures(ChartRequest const& request) {
  if (request.y.empty()) return request.x;
  return request.y + " by " + request.x + (request.z.empty() ? "" : " and " + request.z);
}

std::string panels(ChartRequest const& request) {
  std::vector<std::string> names = request.panelColumns;
  names.insert(names.end(), request.panelRows.begin(), request.panelRows.end());
  std::string text;
  for (std::string const& name : names) text += (text.empty() ? "" : " and ") + name;
  return text;
}

}  // namespace

ChartString chartText(std::string const& utf8) {
  ChartString result;
  result.assignUTF8(utf8);
  return result;
}

std::string defaultDescription(ChartRequest const& request) {
  struct Clause {
    char const* words;
    std::string columns;
  };
  bool const isPyramid = request.element == ElementKind::Pyramid;
  std::vector<Clause> const clauses = {{", coloured by ", request.color},
                                       {", clustered by ", request.cluster},
                                       {", stacked by ", request.stack},
                                       {isPyramid ? ", split by " : ", in panels of ", panels(request)}};
  std::string sentence = chartNames[static_cast<std::size_t>(request.element)];
  if (request.title.empty()) {
    sentence.front() = 'A';
  } else {
    sentence.insert(0, request.title + ": ");
  }
  sentence += " of " + measures(request);
  for (Clause const& clause : clauses) {
    if (!clause.columns.empty()) sentence += clause.words + clause.columns;
  }
  return sentence + ".";
}

}  // namespace kestrel::tool
