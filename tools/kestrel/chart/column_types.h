#pragma once

#include "csv_table.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kestrel::tool {

enum class ColumnType { Number, Date, DateTime, Text };

/// A column of a table as a chart takes it: one double for each row.
struct Column {
  std::string name;
  ColumnType type;
  /// Whether the values are categories. Those of a text column always are.
  bool categorical;
  /// Of numbers, the most decimals that any has; of dates with times, whether there are fractions of a
  /// second.
  unsigned int decimals;
  /// System-missing where the cell is empty. Dates are seconds since 1970, texts the number of their category
  /// from 1.
  std::vector<double> values;
  /// The texts of a text column, in order of their first appearance.
  std::vector<std::string> categories;
  std::size_t missing;
};

/// Finds the type that all cells of a column have, and their values. Empty cells are missing in every column;
/// in one of numbers or dates the usual marks of a missing value are so too. A column of empty cells alone is
/// one of numbers.
Column readColumn(CsvTable const& table, std::size_t index, bool categorical);

}  // namespace kestrel::tool
