#include "data_table.h"

#include "host/data_store.h"

#include <algorithm>
#include <new>

namespace kestrel::host {

namespace {

constexpr std::uint32_t firstCapacity = 64;

}  // namespace

void Cells::extend(std::uint32_t size) {
  if (size <= mSize) return;
  reserve(size);
  std::fill(mCells.get() + mSize, mCells.get() + size, systemMissing);
  mSize = size;
}

void Cells::reserve(std::uint32_t capacity) {
  if (mCells != nullptr && capacity <= mCapacity) return;
  std::uint32_t const grown = std::max({capacity, 2 * mCapacity, firstCapacity});
  void* const moved = std::realloc(mCells.get(), std::size_t{grown} * sizeof(double));
  if (moved == nullptr) throw std::bad_alloc();
  mCells.release();  // NOLINT: the block belongs to `moved` now
  mCells.reset(static_cast<double*>(moved));
  mCapacity = grown;
}

void DataTable::addColumn(std::string const& name) {
  if (mIndex.contains(name)) return;
  mColumns.emplace_back(name);
  mIndex.emplace(name, mColumns.size() - 1);
  mExpected = mColumns.data();
  mEnd = mExpected + mColumns.size();
}

Column* DataTable::find(std::string const& name) {
  auto const found = mIndex.find(name);
  return found != mIndex.end() ? &mColumns[found->second] : nullptr;
}

double* DataTable::cells(std::string const& name) {
  Column* const column = find(name);
  if (column == nullptr) return nullptr;
  column->cells.reserve(mRows);  // a column without rows has a place too
  column->cells.extend(mRows);
  return column->cells.data();
}

bool DataTable::write(std::string const& column, std::uint32_t row, double value) {
  Column* const target = find(column);
  if (target == nullptr) return false;
  bool const absurd =
      row >= VarDataProcessor::rowLimit || (row > mRows && row - mRows > VarDataProcessor::gapLimit);
  if (absurd) return false;
  target->cells.extend(row + 1);
  target->cells.write(row, value);
  mRows = std::max(mRows, row + 1);
  mExpected = target + 1 == mEnd ? mColumns.data() : target + 1;
  return true;
}

void DataTable::complete() {
  for (Column& column : mColumns) column.cells.extend(mRows);
}

}  // namespace kestrel::host
