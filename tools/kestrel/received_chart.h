#pragma once

#include <memory>
#include <string>
#include <string_view>

class XDocument;

namespace kestrel::tool {

/// Whether the name is that of a description in PDL: it ends with ".pdl".
bool isDescription(std::string_view file);

/// Reads a chart: a description in PDL by its name, else the chart markup, the current one or LumoML 1.4.
/// What the library says while it reads is the fault of the file, and is told as that alone. Throws a Problem
/// where there is no chart.
std::unique_ptr<XDocument> readChart(std::string const& file);

}  // namespace kestrel::tool
