#include "column_types.h"

#include "cell_values.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

namespace kestrel::tool {

namespace {

constexpr double systemMissing = std::numeric_limits<double>::lowest();

/// Calls `take` with each cell until it gives false. False if it did.
template <typename Take>
bool eachCell(CsvTable const& table, std::size_t column, Take take) {
  for (std::size_t row = 0; row < table.rows(); ++row) {
    if (!take(table.cell(row, column))) return false;
  }
  return true;
}

/// Makes the column one of numbers, if its cells are.
bool readNumbers(CsvTable const& table, std::size_t index, Column& column) {
  column.type = ColumnType::Number;
  return eachCell(table, index, [&](std::string_view cell) {
    auto const number = isMissing(cell) ? NumberCell{systemMissing, 0} : readNumber(cell);
    if (!number) return false;
    column.values.push_back(number->value);
    column.decimals = std::max(column.decimals, number->decimals);
    return true;
  });
}

bool readMoments(CsvTable const& table, std::size_t index, Column& column) {
  column.type = ColumnType::Date;
  return eachCell(table, index, [&](std::string_view cell) {
    auto const moment = isMissing(cell) ? MomentCell{systemMissing, false, false} : readMoment(cell);
    if (!moment) return false;
    column.values.push_back(moment->seconds);
    if (moment->hasTime) column.type = ColumnType::DateTime;
    if (moment->hasFraction) column.decimals = 3;
    return true;
  });
}

bool readTexts(CsvTable const& table, std::size_t index, Column& column) {
  column.type = ColumnType::Text;
  column.categorical = true;
  std::unordered_map<std::string_view, double> codes;
  return eachCell(table, index, [&](std::string_view cell) {
    if (cell.empty()) {
      column.values.push_back(systemMissing);
      return true;
    }
    auto const [code, isNew] = codes.try_emplace(cell, static_cast<double>(codes.size() + 1));
    if (isNew) column.categories.emplace_back(cell);
    column.values.push_back(code->second);
    return true;
  });
}

/// A mark of a missing value means nothing without a value beside it: such a column is text.
bool hasMarksOnly(CsvTable const& table, std::size_t column) {
  bool marks = false;
  bool const noValues = eachCell(table, column, [&](std::string_view cell) {
    marks = marks || !cell.empty();
    return isMissing(cell);
  });
  return marks && noValues;
}

}  // namespace

Column readColumn(CsvTable const& table, std::size_t index, bool categorical) {
  // The first type that every cell has.
  std::vector<bool (*)(CsvTable const&, std::size_t, Column&)> readers{readNumbers, readMoments, readTexts};
  if (hasMarksOnly(table, index)) readers = {readTexts};
  Column column{};
  for (auto const& read : readers) {
    column = Column{table.names()[index], ColumnType::Text, categorical, 0, {}, {}, 0};
    if (read(table, index, column)) break;
  }
  column.missing =
      static_cast<std::size_t>(std::count(column.values.begin(), column.values.end(), systemMissing));
  return column;
}

}  // namespace kestrel::tool
