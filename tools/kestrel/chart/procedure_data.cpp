#include "procedure_data.h"

namespace kestrel::tool {

namespace {

Vexa_Format formatOf(Column const& column) {
  auto const decimals = static_cast<int>(column.decimals);
  switch (column.type) {
    case ColumnType::Date:
      return {Vexa_Format::FormatDate, 10, 0};
    case ColumnType::DateTime:
      return {Vexa_Format::FormatDateTime, decimals > 0 ? 23 : 19, decimals};
    case ColumnType::Number:
    case ColumnType::Text:
      break;
  }
  return {Vexa_Format::FormatNumber, 8 + decimals, decimals};
}

}  // namespace

void present(std::vector<Column> const& columns, host::MemoryDataSource& source) {
  for (Column const& column : columns) {
    host::MemoryVariable& variable = source.addNumbers(column.name, column.values, formatOf(column));
    double code = 0;
    for (std::string const& category : column.categories) variable.addValueLabel(++code, category);
  }
}

}  // namespace kestrel::tool
