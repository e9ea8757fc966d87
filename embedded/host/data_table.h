#pragma once

#include "same_name.h"

#include "kestrelhost/missing.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace kestrel::host {

/// The cells of a column, one after the other. Memory grows by reallocation: large blocks then move without a
/// copy.
class Cells {
 public:
  double* data() { return mCells.get(); }
  double const* data() const { return mCells.get(); }
  std::uint32_t size() const { return mSize; }

  /// The row must lie within size().
  void write(std::uint32_t row, double value) { mCells[row] = value; }

  bool hasRoom() const { return mSize < mCapacity; }
  /// There must be room.
  void append(double value) { mCells[mSize++] = value; }

  /// Makes the column at least that long; the new cells are missing. Throws std::bad_alloc.
  void extend(std::uint32_t size);
  void reserve(std::uint32_t capacity);

 private:
  struct Free {
    void operator()(double* cells) const { std::free(cells); }
  };
  std::unique_ptr<double[], Free> mCells;
  std::uint32_t mSize = 0;
  std::uint32_t mCapacity = 0;
};

struct Column {
  explicit Column(std::string columnName) : name(std::move(columnName)) {}

  std::string name;
  Cells cells;
};

/// One source of data: columns that may be of different length, and the number of rows of all.
class DataTable {
 public:
  DataTable(std::string name, std::uint32_t rows) : mName(std::move(name)), mRows(rows) {}

  std::string const& name() const { return mName; }
  std::uint32_t rows() const { return mRows; }
  std::vector<Column> const& columns() const { return mColumns; }

  /// Does nothing for a column that is there.
  void addColumn(std::string const& name);
  /// Null for an unknown column. As long as there are rows.
  double* cells(std::string const& name);
  /// False for an unknown column and for a row beyond the limits of a store.
  bool write(std::string const& column, std::uint32_t row, double value);
  /// Writes a cell that comes where one is expected: in the column after the last one, below its cells.
  /// False, and nothing is done, for any other.
  bool writeExpected(std::string const& column, std::uint32_t row, double value);
  /// Makes every column as long as there are rows.
  void complete();

 private:
  Column* find(std::string const& name);

  std::string mName;
  std::uint32_t mRows;
  std::vector<Column> mColumns;
  std::unordered_map<std::string, std::size_t> mIndex;
  /// Cells come row by row, in the order of the columns: where the next one is to be expected.
  Column* mExpected = nullptr;
  Column* mEnd = nullptr;
};

inline bool DataTable::writeExpected(std::string const& column, std::uint32_t row, double value) {
  if (mExpected == mEnd || !sameName(mExpected->name, column)) return false;
  Cells& cells = mExpected->cells;
  if (row != cells.size() || row > mRows || !cells.hasRoom()) return false;
  cells.append(value);
  if (row == mRows) mRows = row + 1;
  if (++mExpected == mEnd) mExpected = mColumns.data();
  return true;
}

}  // namespace kestrel::host
