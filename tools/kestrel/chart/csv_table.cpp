#include "csv_table.h"

namespace kestrel::tool {

std::string_view CsvTable::cell(std::size_t row, std::size_t column) const {
  std::size_t const index = row * columns() + column;
  std::size_t const start = index == 0 ? 0 : mEnds[index - 1];
  return std::string_view(mText).substr(start, mEnds[index] - start);
}

void CsvTable::append(std::string_view cell) {
  mText.append(cell);
  mEnds.push_back(mText.size());
}

}  // namespace kestrel::tool
