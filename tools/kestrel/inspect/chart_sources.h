#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kestrel::tool {

/// A variable that has its values from a column of a source.
struct ChartColumn {
  std::string source;
  std::string name;
};

/// What a chart text says of its data.
struct ChartSources {
  /// The ids of the sources whose data is sent beside the chart.
  std::vector<std::string> sent;
  /// The ids of all other sources.
  std::set<std::string> others;
  /// Of all variables that name both a source and a column.
  std::vector<ChartColumn> columns;
};

/// Nothing where the text cannot be read. Nothing outside of it is loaded.
std::optional<ChartSources> readChartSources(std::string const& xml);

}  // namespace kestrel::tool
