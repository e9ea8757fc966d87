#pragma once

#include "chart_request.h"
#include "column_types.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace kestrel::tool {

/// The columns that a chart shows, each of them once, by what they stand for, and the values of them that the
/// request names.
struct ChartData {
  std::vector<Column> columns;
  std::size_t x = 0;
  std::optional<std::size_t> y;
  std::optional<std::size_t> z;
  std::optional<std::size_t> color;
  std::optional<std::size_t> cluster;
  std::optional<std::size_t> stack;
  std::optional<std::size_t> label;
  std::vector<std::size_t> panelColumns;
  std::vector<std::size_t> panelRows;
  std::vector<double> referenceX;
  std::vector<double> referenceY;
  /// Categories of X that are left out, by their values in the column.
  std::vector<double> excluded;
  /// Rows of the table that the columns are without.
  std::size_t droppedRows = 0;

  std::size_t rows() const { return columns.front().values.size(); }
};

/// Reads the columns that are asked for. Throws a Problem where the file cannot be read, has no such column,
/// or has one that cannot stand for what it is to stand for.
ChartData readChartData(ChartRequest const& request);

}  // namespace kestrel::tool
