#pragma once

#include "chart_request.h"
#include "column_types.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace kestrel::tool {

/// The columns that a chart shows, each of them once, by what they stand for.
struct ChartData {
  std::vector<Column> columns;
  std::size_t x;
  std::size_t y;
  std::optional<std::size_t> z;
  std::optional<std::size_t> color;

  std::size_t rows() const { return columns.front().values.size(); }
};

/// Reads the columns that are asked for. Throws a Problem where the file cannot be read or has no such
/// column.
ChartData readChartData(ChartRequest const& request);

}  // namespace kestrel::tool
