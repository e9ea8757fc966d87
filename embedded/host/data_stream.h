#pragma once

#include "data_table.h"

#include <vector>

namespace kestrel::host {

/// The tables as Arrow IPC streams, one behind the other: the name of each in its schema's metadata under
/// "source", its columns as float64, and missing cells as nulls. Every column must be as long as its table.
/// The result comes from new[]. Throws std::length_error where the streams do not fit into `size`.
unsigned char* writeDataStream(std::vector<DataTable*> const& tables, unsigned int& size);

}  // namespace kestrel::host
