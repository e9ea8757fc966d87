#pragma once

#include <filesystem>
#include <limits>
#include <string>
#include <vector>

// A data stream, and what a reader must find in it.

namespace kestrel::test {

constexpr double missingCell = std::numeric_limits<double>::lowest();

struct Column {
  std::string name;
  std::vector<double> cells;
};

struct Source {
  std::string name;
  std::vector<Column> columns;
};

struct Sample {
  std::string name;
  std::vector<Source> sources;
};

/// Writes the stream as NAME.arrow and beside it what must be in it as NAME.json. False, and said on standard
/// error, where that fails.
bool writeSample(std::filesystem::path const& folder, Sample const& sample, std::string const& stream);

}  // namespace kestrel::test
