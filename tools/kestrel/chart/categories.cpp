#include "categories.h"

#include "cell_values.h"
#include "nearest_name.h"
#include "problem.h"

#include "kestrelhost/missing.h"
#include "model/chartstring.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <numeric>
#include <optional>
#include <set>

namespace kestrel::tool {

namespace {

/// Of a long list, so many are told.
constexpr std::size_t mostListed = 12;

std::string numberText(double value) {
  ChartString text;
  text.appendDouble(value);
  return text.toUTF8();
}

/// As a table would have it.
std::string momentText(double value, ColumnType type) {
  double const milliseconds = std::round(value * 1000);
  double const whole = std::floor(milliseconds / 1000);
  auto const seconds = static_cast<std::time_t>(whole);
  std::tm parts{};
  gmtime_r(&seconds, &parts);
  char text[32];
  std::strftime(text, sizeof text, type == ColumnType::Date ? "%Y-%m-%d" : "%Y-%m-%dT%H:%M:%S", &parts);
  auto const fraction = static_cast<int>(milliseconds - whole * 1000);
  if (fraction == 0) return text;
  char digits[8];
  std::snprintf(digits, sizeof digits, ".%03d", fraction);
  return std::string(text) + digits;
}

std::string categoryText(Column const& column, double value) {
  return column.type == ColumnType::Number ? numberText(value) : momentText(value, column.type);
}

/// What the data has in place of a cell's text, or nothing where the column has no such cells.
std::optional<double> valueOf(Column const& column, std::string const& text) {
  if (column.type == ColumnType::Number) {
    auto const number = readNumber(text);
    return number ? std::optional(number->value) : std::nullopt;
  }
  auto const moment = readMoment(text);
  return moment ? std::optional(moment->seconds) : std::nullopt;
}

std::vector<std::string> textsOf(std::vector<Category> const& categories) {
  std::vector<std::string> texts;
  texts.reserve(categories.size());
  for (Category const& category : categories) texts.push_back(category.text);
  return texts;
}

std::string listed(std::vector<std::string> const& texts) {
  std::string list;
  for (std::size_t at = 0; at < std::min(texts.size(), mostListed); ++at) {
    list += (at == 0 ? "" : ", ") + printable(texts[at]);
  }
  return texts.size() <= mostListed ? list : list + " and " + grouped(texts.size() - mostListed) + " more";
}

Problem noSuchCategory(std::string const& file, Column const& column, std::string const& wanted,
                       std::vector<Category> const& categories) {
  std::vector<std::string> const texts = textsOf(categories);
  std::string const nearest = nearestName(wanted, texts);
  return badInput(file, "there is no category " + inQuotes(wanted) + " in column " + inQuotes(column.name) +
                            " for --exclude; " +
                            (nearest.empty() ? "the" : "did you mean " + inQuotes(nearest) + "? The") +
                            " categories are: " + listed(texts));
}

}  // namespace

std::vector<Category> categoriesOf(Column const& column) {
  std::vector<Category> categories;
  if (column.type == ColumnType::Text) {
    double code = 0;
    for (std::string const& text : column.categories) categories.push_back({text, ++code});
    return categories;
  }
  for (double const value : std::set<double>(column.values.begin(), column.values.end())) {
    if (value != host::systemMissing) categories.push_back({categoryText(column, value), value});
  }
  return categories;
}

std::vector<double> findExcluded(std::string const& file, Column const& column,
                                 std::vector<std::string> const& excluded) {
  if (excluded.empty()) return {};
  std::vector<Category> const categories = categoriesOf(column);
  std::vector<double> values;
  for (std::string const& wanted : excluded) {
    auto const value = column.type == ColumnType::Text ? std::nullopt : valueOf(column, wanted);
    auto const found = std::find_if(categories.begin(), categories.end(), [&](Category const& category) {
      return value ? category.value == *value : category.text == wanted;
    });
    if (found == categories.end()) throw noSuchCategory(file, column, wanted, categories);
    if (std::find(values.begin(), values.end(), found->value) == values.end()) values.push_back(found->value);
  }
  if (values.size() < categories.size()) return values;
  throw badInput(
      file, "--exclude leaves out every category of column " + inQuotes(column.name) + "; keep one of them");
}

void sortByText(Column& column) {
  if (column.type != ColumnType::Text) return;
  auto const& texts = column.categories;
  std::vector<std::size_t> order(texts.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(),
            [&](std::size_t left, std::size_t right) { return texts[left] < texts[right]; });
  std::vector<std::string> sorted;
  std::vector<double> codes(texts.size());
  for (std::size_t const before : order) {
    sorted.push_back(texts[before]);
    codes[before] = static_cast<double>(sorted.size());
  }
  for (double& value : column.values) {
    if (value != host::systemMissing) value = codes[static_cast<std::size_t>(value) - 1];
  }
  column.categories = std::move(sorted);
}

}  // namespace kestrel::tool
