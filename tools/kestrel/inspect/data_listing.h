#pragma once

#include "arrow_stream.h"

#include <optional>
#include <string>

namespace kestrel::tool {

/// The shortest number that reads back as the same; "NaN", "Infinity" and "-Infinity"; "." for a missing
/// value.
std::string cellText(std::optional<double> cell);

/// A source with its columns, and the cells that were taken of them, for a reader.
std::string tableText(ArrowTable const& table);

}  // namespace kestrel::tool
