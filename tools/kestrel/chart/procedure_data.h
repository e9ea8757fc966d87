#pragma once

#include "column_types.h"

#include "kestrelhost/data_source.h"

#include <vector>

namespace kestrel::tool {

/// Presents columns as the variables of a procedure's data source, in their order: with a print format that
/// shows them as the table does, and with the texts of categories as value labels.
void present(std::vector<Column> const& columns, host::MemoryDataSource& source);

}  // namespace kestrel::tool
