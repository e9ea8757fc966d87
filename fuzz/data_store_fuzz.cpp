// A data store under any sequence of operations, beside the plainest store that can be: maps of cells.

#include "host/data_store.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr double missing = std::numeric_limits<double>::lowest();
constexpr unsigned int mostRows = 5000;

struct Table {
  std::vector<std::string> columns;
  std::map<std::string, std::map<unsigned int, double>> cells;
  unsigned int rows = 0;
};

void require(bool holds) {
  if (!holds) std::abort();
}

/// Takes the operations from the bytes and does each on both stores.
class Comparison {
 public:
  Comparison(std::uint8_t const* data, std::size_t size) : mData(data), mSize(size) {}

  void run() {
    while (mAt < mSize) step();
    compare();
  }

 private:
  std::uint8_t byte() { return mAt < mSize ? mData[mAt++] : 0; }
  std::string name() { return std::string(byte() % 4, static_cast<char>('a' + byte() % 3)); }

  void step() {
    switch (byte() % 8) {
      case 0:
        addSource();
        break;
      case 1:
        addColumn();
        break;
      case 2:
        compare();
        break;
      default:
        write();
        break;
    }
  }

  Table& open(std::string const& source) {
    auto const [found, isNew] = mTables.try_emplace(source);
    if (isNew) mSources.push_back(source);
    return found->second;
  }

  void addSource() {
    std::string const source = name();
    mStore.AddDataSource(source, 0);
    open(source);
  }

  void addColumn() {
    std::string const source = name();
    std::string const column = name();
    require(mStore.AddVariable(source, column, nullptr));
    Table& table = open(source);
    if (table.cells.try_emplace(column).second) table.columns.push_back(column);
  }

  void write() {
    std::string const source = name();
    std::string const column = name();
    bool const absurd = byte() == 255;
    unsigned int const row =
        absurd ? VarDataProcessor::rowLimit + byte() : (byte() * 256u + byte()) % mostRows;
    double const value = byte() == 7 ? missing : byte() - 100.0;
    bool const written = mStore.SetVariableValue(source, column, row, value);
    auto const table = mTables.find(source);
    bool const known = table != mTables.end() && table->second.cells.count(column) != 0;
    require(written == (known && !absurd));
    if (!written) return;
    table->second.cells[column][row] = value;
    table->second.rows = std::max(table->second.rows, row + 1);
  }

  void compare() {
    std::vector<std::string> names;
    mStore.GetSourceNames(names);
    require(names == mSources);
    for (std::string const& source : mSources) compare(source, mTables[source]);
    compareStream();
  }

  void compare(std::string const& source, Table const& table) {
    std::vector<std::string> names;
    mStore.GetVariableNames(source, names);
    require(names == table.columns);
    require(mStore.GetRowCount(source) == table.rows);
    for (auto const& [column, cells] : table.cells) {
      double const* const found = mStore.GetDataPointer(source, column);
      for (unsigned int row = 0; row < table.rows; ++row) {
        auto const cell = cells.find(row);
        require(found[row] == (cell != cells.end() ? cell->second : missing));
      }
    }
  }

  /// The stream of each source has its schema, its batch with all cells, and its end.
  void compareStream() {
    unsigned int size = 0;
    std::unique_ptr<unsigned char[]> const bytes(mStore.GetDataStream(size));
    std::size_t at = 0;
    for (std::string const& source : mSources) {
      Table const& table = mTables[source];
      std::size_t const column = (std::size_t{table.rows} + 63) / 64 * 8 + table.rows * std::size_t{8};
      at += 8 + metadataSize(bytes.get(), size, at);
      at += 8 + metadataSize(bytes.get(), size, at) + column * table.columns.size();
      require(metadataSize(bytes.get(), size, at) == 0);
      at += 8;
    }
    require(at == size);
  }

  static std::uint32_t metadataSize(unsigned char const* bytes, std::size_t size, std::size_t at) {
    require(at + 8 <= size);
    std::uint32_t words[2];
    std::memcpy(words, bytes + at, sizeof words);
    require(words[0] == 0xFFFFFFFF);
    return words[1];
  }

  std::uint8_t const* mData;
  std::size_t mSize;
  std::size_t mAt = 0;
  VarDataProcessor mStore;
  std::map<std::string, Table> mTables;
  std::vector<std::string> mSources;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  Comparison(data, size).run();
  return 0;
}
