#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::host {

/// The cells of a column, where they stand in the stream.
struct StreamedColumn {
  /// A bit for each row, set where there is a value; empty where all have one.
  std::string_view validity;
  std::string_view values;

  std::optional<double> cell(std::size_t row) const;
};

struct StreamedBatch {
  std::size_t rows = 0;
  std::vector<StreamedColumn> columns;
};

/// A source of a data stream. Its batches refer to the stream.
struct StreamedSource {
  std::string name;
  std::vector<std::string> columns;
  std::vector<StreamedBatch> batches;
};

/// Reads what writeDataStream writes: sources of columns of doubles. Nothing where the bytes are anything
/// else.
std::optional<std::vector<StreamedSource>> readDataStream(std::string_view bytes);

}  // namespace kestrel::host
