#pragma once

#include "column_types.h"

#include <string>
#include <vector>

namespace kestrel::tool {

/// One of the categories of a column: as a table shows it, and by its value in the data.
struct Category {
  std::string text;
  double value;
};

/// The categories that a column has: texts in the order of their numbers, numbers and dates in ascending
/// order.
std::vector<Category> categoriesOf(Column const& column);

/// Finds the categories that are to be left out of a column, each once, by their values. Throws a Problem
/// that names `file` where there is no such category, or where none would be left.
std::vector<double> findExcluded(std::string const& file, Column const& column,
                                 std::vector<std::string> const& excluded);

/// Numbers the categories of a column of text anew, in the order of their characters. Numbers and dates are
/// their own order.
void sortByText(Column& column);

}  // namespace kestrel::tool
