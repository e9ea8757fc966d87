#include "data_listing.h"

#include "problem.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

namespace kestrel::tool {

namespace {

/// Names beyond it are shown whole, and their columns no wider.
constexpr std::size_t widestColumn = 24;

std::string padding(std::size_t width, std::size_t size) {
  return std::string(width - std::min(width, size), ' ');
}

std::string toTheRight(std::string const& text, std::size_t width) {
  return "  " + padding(width, text.size()) + text;
}

std::size_t widthOf(ArrowColumn const& column) {
  std::size_t width = column.name.size();
  for (auto const cell : column.cells) width = std::max(width, cellText(cell).size());
  return std::min(width, widestColumn);
}

std::string columnRow(ArrowColumn const& column, std::size_t width) {
  return "  " + printable(column.name) + padding(width, column.name.size()) + "  " + column.type + "  " +
         grouped(column.missing) + " missing\n";
}

/// The cells side by side, below the names of their columns.
std::string cellRows(ArrowTable const& table) {
  std::size_t const rows = table.columns.front().cells.size();
  std::size_t const numberWidth = std::max<std::size_t>(3, std::to_string(rows).size());
  std::string head = toTheRight("row", numberWidth);
  std::vector<std::size_t> widths;
  for (ArrowColumn const& column : table.columns) {
    widths.push_back(widthOf(column));
    head += toTheRight(printable(column.name), widths.back());
  }
  std::string text = head + "\n";
  for (std::size_t row = 0; row < rows; ++row) {
    text += toTheRight(std::to_string(row + 1), numberWidth);
    for (std::size_t at = 0; at < widths.size(); ++at) {
      text += toTheRight(cellText(table.columns[at].cells[row]), widths[at]);
    }
    text += "\n";
  }
  return text;
}

}  // namespace

std::string cellText(std::optional<double> cell) {
  if (!cell) return ".";
  if (std::isnan(*cell)) return "NaN";
  if (std::isinf(*cell)) return *cell > 0 ? "Infinity" : "-Infinity";
  std::array<char, 32> buffer{};
  auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), *cell);
  return {buffer.data(), result.ptr};
}

std::string tableText(ArrowTable const& table) {
  std::string text = "data " + printable(table.source) + ": " + counted(table.rows, "row") + ", " +
                     counted(table.columns.size(), "column") + "\n";
  std::size_t width = 0;
  for (ArrowColumn const& column : table.columns) width = std::max(width, column.name.size());
  width = std::min(width, widestColumn);
  for (ArrowColumn const& column : table.columns) text += columnRow(column, width);
  bool const hasCells = !table.columns.empty() && !table.columns.front().cells.empty();
  return hasCells ? text + cellRows(table) : text;
}

}  // namespace kestrel::tool
