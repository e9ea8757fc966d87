// Writes data streams and beside each, as JSON, what a reader must find in it: `arrow_streams FOLDER`.

#include "stream_sample.h"

#include "host/data_store.h"

#include <filesystem>
#include <iostream>
#include <limits>
#include <memory>
#include <string>
#include <vector>

using namespace kestrel::test;

namespace {

constexpr double missing = kestrel::test::missingCell;

std::vector<double> cells(unsigned int count, unsigned int missingEach) {
  std::vector<double> result;
  for (unsigned int row = 0; row < count; ++row) {
    bool const isMissing = missingEach != 0 && row % missingEach == 0;
    result.push_back(isMissing ? missing : 1.0 / (row + 1.0));
  }
  return result;
}

std::vector<Sample> samples() {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  std::vector<Sample> result = {
      {"empty_store", {}},
      {"no_columns", {{"source0", {}}}},
      {"no_rows", {{"source0", {{"x", {}}, {"y", {}}}}}},
      {"one_cell", {{"source0", {{"sourceVariable0_SN", {2.5}}}}}},
      {"numbers",
       {{"source0",
         {{"x", {0.0, -0.0, 5e-324, -1.5, 1.7976931348623157e308, infinite, -infinite, none, 0.1}}}}}},
      {"missing",
       {{"source0",
         {{"x", {missing, 1, missing}}, {"y", {1, missing, 2}}, {"z", {missing, missing, missing}}}}}},
      {"empty_name", {{"source0", {{"", {1, 2}}, {"x", {3, missing}}}}}},
      {"names",
       {{"Qu\xC3\xA9lle \xE4\xB8\x80 \xF0\x9F\x93\x88", {{"a \"b\" <c>\t", {1}}, {"\xD0\x9F", {2}}}}}},
      {"many_sources",
       {{"source1", {{"x", {1, 2, 3}}}}, {"source0", {}}, {"source2", {{"x", {missing}}, {"y", {4}}}}}},
      {"large", {{"source0", {{"x", cells(20000, 3)}, {"y", cells(20000, 0)}, {"z", cells(20000, 1)}}}}},
  };
  for (unsigned int rows : {7u, 8u, 9u, 63u, 64u, 65u, 1023u}) {
    result.push_back(
        {"rows_" + std::to_string(rows), {{"source0", {{"x", cells(rows, 5)}, {"y", cells(rows, 7)}}}}});
  }
  return result;
}

std::string stream(Sample const& sample) {
  VarDataProcessor store;
  for (Source const& source : sample.sources) {
    store.AddDataSource(source.name, 0);
    for (Column const& column : source.columns) {
      store.AddVariable(source.name, column.name, nullptr);
      for (unsigned int row = 0; row < column.cells.size(); ++row) {
        store.SetVariableValue(source.name, column.name, row, column.cells[row]);
      }
    }
  }
  unsigned int size = 0;
  std::unique_ptr<unsigned char[]> const bytes(store.GetDataStream(size));
  return {reinterpret_cast<char const*>(bytes.get()), size};
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: arrow_streams FOLDER\n";
    return 2;
  }
  std::filesystem::path const folder = arguments[1];
  std::filesystem::create_directories(folder);
  for (Sample const& sample : samples()) {
    if (!writeSample(folder, sample, stream(sample))) return 1;
  }
  return 0;
}
