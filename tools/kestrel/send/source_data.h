#pragma once

#include <string>
#include <vector>

class LumoVisualization;
class VarDataProcessor;

namespace kestrel::tool {

/// Reads CSV files into a store, for a chart that came as text: each source variable gets the column of its
/// source name, and the texts of a column of categories become relabels of the variable, behind those that it
/// has.
/// @param files each is FILE, where the chart has one source, or SOURCE=FILE
/// Throws a Problem where a file cannot be read, is for no source of the chart, or lacks a column that the
/// chart needs, and where a variable of numbers has a column of texts.
void readSourceData(LumoVisualization const& chart, std::vector<std::string> const& files,
                    VarDataProcessor& store);

}  // namespace kestrel::tool
