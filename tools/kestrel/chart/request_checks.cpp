#include "request_checks.h"

#include "cell_values.h"
#include "problem.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace kestrel::tool {

namespace {

constexpr std::size_t mostFootnotes = 3;

Problem wrongOption(std::string const& what) { return {what, Exit::BadInput}; }

bool isGiven(ChartRequest const& request, std::string ChartRequest::*text) {
  return !(request.*text).empty();
}

/// An option that some kinds of elements do not take.
struct OptionOfKinds {
  char const* option;
  bool (*isGiven)(ChartRequest const&);
  ElementKinds kinds;
  /// What the other kinds do instead, or nothing.
  char const* instead;
};

constexpr ElementKinds drawnKinds = these(ElementKind::Point, ElementKind::Bar, ElementKind::Line);

constexpr OptionOfKinds optionsOfKinds[] = {
    {"--y", [](auto const& request) { return isGiven(request, &ChartRequest::y); },
     drawnKinds | summarisingKinds, ", which counts rows"},
    {"--z", [](auto const& request) { return isGiven(request, &ChartRequest::z); }, drawnKinds, ""},
    {"--cluster", [](auto const& request) { return isGiven(request, &ChartRequest::cluster); },
     clusteringKinds, ""},
    {"--stack", [](auto const& request) { return isGiven(request, &ChartRequest::stack); }, stackingKinds,
     ""},
    {"--label", [](auto const& request) { return isGiven(request, &ChartRequest::label); },
     these(ElementKind::Box), ""},
    {"--bins", [](auto const& request) { return isGiven(request, &ChartRequest::bins); }, countingKinds, ""},
    {"--transpose", [](auto const& request) { return request.transposed; },
     drawnKinds | summarisingKinds | these(ElementKind::Histogram), ", which lies on its side already"},
};

/// "bar, box and errorbar".
std::string listed(ElementKinds kinds) {
  std::vector<std::string> names;
  for (std::size_t at = 0; at < elementNames.size(); ++at) {
    if (isAmong(static_cast<ElementKind>(at), kinds)) names.emplace_back(elementNames[at]);
  }
  std::string text = names.front();
  for (std::size_t at = 1; at < names.size(); ++at) {
    text += (at + 1 < names.size() ? ", " : " and ") + names[at];
  }
  return text;
}

std::string elementOf(ChartRequest const& request) {
  return std::string("--element ") + elementNames[static_cast<std::size_t>(request.element)];
}

void requireOptionsOfTheKind(ChartRequest const& request) {
  for (OptionOfKinds const& row : optionsOfKinds) {
    if (!row.isGiven(request) || isAmong(request.element, row.kinds)) continue;
    throw wrongOption(std::string(row.option) + " does not go with " + elementOf(request) + row.instead +
                      "; it goes with " + listed(row.kinds));
  }
}

void requireY(ChartRequest const& request) {
  if (!request.y.empty() || isAmong(request.element, countingKinds)) return;
  throw wrongOption("--y is required with " + elementOf(request) + "; name the column of the Y axis");
}

/// Each splits the element, and an element is split once.
void requireOneSplit(ChartRequest const& request) {
  struct Split {
    char const* option;
    std::string ChartRequest::*column;
  };
  constexpr Split splits[] = {{"--cluster", &ChartRequest::cluster},
                              {"--stack", &ChartRequest::stack},
                              {"--color", &ChartRequest::color}};
  char const* given = nullptr;
  for (Split const& split : splits) {
    if (!isGiven(request, split.column)) continue;
    if (given != nullptr) {
      throw wrongOption(std::string(given) + " and " + split.option +
                        " exclude each other; leave one of them out");
    }
    given = split.option;
  }
}

void requireDifferentPanels(ChartRequest const& request) {
  std::vector<std::string> names = request.panelColumns;
  names.insert(names.end(), request.panelRows.begin(), request.panelRows.end());
  std::sort(names.begin(), names.end());
  auto const twice = std::adjacent_find(names.begin(), names.end());
  if (twice == names.end()) return;
  throw wrongOption("--panel-row and --panel-column name the column " + inQuotes(*twice) +
                    " twice; a column splits the chart once");
}

void requireSidesOfThePyramid(ChartRequest const& request) {
  if (request.element != ElementKind::Pyramid || request.panelColumns.size() == 1) return;
  std::size_t const times = request.panelColumns.size();
  throw wrongOption(elementOf(request) +
                    " needs --panel-column once, with a column of two categories, one for " +
                    "each side; it was " + (times == 0 ? "not given" : "given " + counted(times, "time")));
}

void requireFewFootnotes(ChartRequest const& request) {
  if (request.footnotes.size() <= mostFootnotes) return;
  throw wrongOption("--footnote was given " + counted(request.footnotes.size(), "time") +
                    "; a chart has up to " + std::to_string(mostFootnotes) + " footnotes");
}

}  // namespace

int binCount(ChartRequest const& request) {
  if (request.bins.empty()) return -1;
  auto const number = readNumber(request.bins);
  double const count = number ? number->value : 0;
  if (count < 1 || count != std::floor(count) || count > std::numeric_limits<int>::max()) {
    throw wrongOption("--bins " + inQuotes(request.bins) +
                      " is no whole number above 0; give the number of bins, such as 20");
  }
  return static_cast<int>(count);
}

void requireSense(ChartRequest const& request) {
  requireFewFootnotes(request);
  requireY(request);
  requireOptionsOfTheKind(request);
  requireOneSplit(request);
  requireDifferentPanels(request);
  requireSidesOfThePyramid(request);
  binCount(request);
}

}  // namespace kestrel::tool
