#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::tool {

struct ArrowColumn {
  std::string name;
  /// As Arrow calls it.
  std::string type;
  std::size_t missing = 0;
  /// Those of the first rows, as many as were asked for; nothing where one is missing.
  std::vector<std::optional<double>> cells;
};

/// What one Arrow stream says of its table.
struct ArrowTable {
  /// Text of the metadata's key "source".
  std::string source;
  std::vector<ArrowColumn> columns;
  std::size_t rows = 0;
};

struct ArrowFault {
  std::size_t offset;
  std::string text;
};

struct ArrowStreams {
  std::vector<ArrowTable> tables;
  /// Why reading had to stop, if it did: the tables are those before it.
  std::optional<ArrowFault> fault;
};

/// Reads Arrow IPC streams that follow each other, as the data of a chart does: a schema of float64 columns,
/// and one record batch that agrees with it. Takes no more than the cells of the first `mostCells` rows.
ArrowStreams readArrowStreams(std::string_view bytes, std::size_t mostCells = 0);

}  // namespace kestrel::tool
