#include "data_checks.h"

#include "categories.h"
#include "problem.h"

#include <string>

namespace kestrel::tool {

namespace {

std::string columnOf(char const* option, Column const& column) {
  return "column " + inQuotes(column.name) + " for " + option;
}

void requireCategories(ChartRequest const& request, char const* option, Column const& column) {
  if (column.categorical) return;
  char const* const values = column.type == ColumnType::Number ? "numbers" : "dates";
  throw badInput(request.data, columnOf(option, column) + " has " + values +
                                   ", but categories are needed; choose a column of text, or give "
                                   "--categorical too with this one");
}

void requireMeasures(ChartRequest const& request, char const* option, Column const& column) {
  if (!column.categorical) return;
  throw badInput(request.data, columnOf(option, column) + " has categories, but --element " +
                                   elementNames[static_cast<std::size_t>(request.element)] +
                                   " needs numbers or dates; choose another column");
}

void requireSplittingCategories(ChartRequest const& request, ChartData const& data) {
  auto const require = [&](char const* option, std::size_t column) {
    requireCategories(request, option, data.columns[column]);
  };
  if (data.cluster) require("--cluster", *data.cluster);
  if (data.stack) require("--stack", *data.stack);
  for (std::size_t const column : data.panelColumns) require("--panel-column", column);
  for (std::size_t const column : data.panelRows) require("--panel-row", column);
  if (!request.sort.empty() || !request.excluded.empty()) {
    require(request.sort.empty() ? "--x with --exclude" : "--x with --sort", data.x);
  }
}

void requireTwoSides(ChartRequest const& request, ChartData const& data) {
  constexpr std::size_t sides = 2;
  Column const& column = data.columns[data.panelColumns.front()];
  std::size_t const count = categoriesOf(column).size();
  if (count == sides) return;
  throw badInput(request.data, columnOf("--panel-column", column) + " has " +
                                   (count == 1 ? "1 category" : grouped(count) + " categories") +
                                   ", but a pyramid has two sides; choose a column of two categories");
}

}  // namespace

void requireFittingColumns(ChartRequest const& request, ChartData const& data) {
  requireSplittingCategories(request, data);
  if (isAmong(request.element, countingKinds)) requireMeasures(request, "--x", data.columns[data.x]);
  if (isAmong(request.element, summarisingKinds)) requireMeasures(request, "--y", data.columns[*data.y]);
  if (request.element == ElementKind::Pyramid) requireTwoSides(request, data);
}

}  // namespace kestrel::tool
