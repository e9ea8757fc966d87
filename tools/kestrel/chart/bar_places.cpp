#include "bar_places.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <vector>

namespace kestrel::tool {

namespace {

/// The columns whose values say together where a bar stands.
std::vector<std::size_t> placingColumns(ChartData const& data) {
  std::vector<std::size_t> columns = data.panelColumns;
  columns.insert(columns.end(), data.panelRows.begin(), data.panelRows.end());
  columns.push_back(data.x);
  for (auto const& column : {data.z, data.color, data.cluster, data.stack}) {
    if (column) columns.push_back(*column);
  }
  return columns;
}

}  // namespace

bool barsCover(ChartRequest const& request, ChartData const& data) {
  if (request.element != ElementKind::Bar) return false;
  std::vector<std::size_t> const columns = placingColumns(data);
  auto const isLeftOut = [&](std::size_t row) {
    double const category = data.columns[data.x].values[row];
    return std::find(data.excluded.begin(), data.excluded.end(), category) != data.excluded.end();
  };
  std::set<std::vector<double>> places;
  for (std::size_t row = 0; row < data.rows(); ++row) {
    if (isLeftOut(row)) continue;
    std::vector<double> place;
    place.reserve(columns.size());
    for (std::size_t const column : columns) place.push_back(data.columns[column].values[row]);
    if (!places.insert(std::move(place)).second) return true;
  }
  return false;
}

}  // namespace kestrel::tool
