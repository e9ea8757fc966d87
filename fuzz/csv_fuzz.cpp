// The table reader: any bytes are a table of columns, or a problem that is told.
#include "chart/column_types.h"
#include "problem.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using kestrel::tool::CsvTable;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  try {
    CsvTable const table = kestrel::tool::readCsv("table.csv", {reinterpret_cast<char const*>(data), size});
    for (std::size_t column = 0; column < table.columns(); ++column) {
      for (bool const categorical : {false, true}) {
        // Whatever is made of the cells, each has a value.
        if (kestrel::tool::readColumn(table, column, categorical).values.size() != table.rows()) std::abort();
      }
    }
  } catch (kestrel::tool::Problem const&) {
    return 0;
  }
  return 0;
}
