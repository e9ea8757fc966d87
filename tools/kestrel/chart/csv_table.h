#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::tool {

/// A table of texts with named columns. All cells stand in one text, side by side.
class CsvTable {
 public:
  explicit CsvTable(std::vector<std::string> names) : mNames(std::move(names)) {}

  std::vector<std::string> const& names() const { return mNames; }
  std::size_t columns() const { return mNames.size(); }
  std::size_t rows() const { return mEnds.size() / mNames.size(); }
  std::string_view cell(std::size_t row, std::size_t column) const;

  /// The next cell of the last row, or the first of a new one where that is full.
  void append(std::string_view cell);

 private:
  std::vector<std::string> mNames;
  std::string mText;
  std::vector<std::size_t> mEnds;
};

/// Reads a CSV file: UTF-8 with or without a byte order mark, lines that end in LF, CR or both, cells in
/// double quotes where they hold commas, quotes (doubled) or line breaks. Blanks around a cell that is not in
/// quotes are no part of it, and lines that hold nothing else are skipped. The first row has the names of the
/// columns, which must differ. Throws a Problem that names `file` and the line of what is wrong.
CsvTable readCsv(std::string const& file, std::string_view bytes);

}  // namespace kestrel::tool
