#pragma once

#include "csv_table.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kestrel::tool {

/// Names for a message, one after the other.
std::string listed(std::vector<std::string> const& names);

/// The place of a column in a table.
/// @param use what the column is for, as a message says it: "--x"
/// Throws a Problem that names `file`, and the nearest column, where there is none of that name.
std::size_t requireColumn(CsvTable const& table, std::string const& file, std::string const& name,
                          std::string const& use);

}  // namespace kestrel::tool
