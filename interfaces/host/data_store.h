#pragma once

#include "export.h"

#include <memory>
#include <string>
#include <vector>

/// The data of one chart in memory: named tables (sources) of named columns of doubles, both names in UTF-8.
/// The empty name is a name like any other. Rows count from 0; a source has as many rows as the highest row
/// written says.
class VEXA_API VarDataProcessor {
 public:
  /// Reserved for hosts that keep more about a column.
  struct _varinfo;

  /// @{
  /// Rows from here on are refused, and so is a row that would leave a longer gap behind the last row of its
  /// source: one absurd row number must not exhaust the memory.
  static constexpr unsigned int rowLimit = 1u << 28;
  static constexpr unsigned int gapLimit = 1u << 24;
  /// @}

  /// An empty store.
  VarDataProcessor();
  ~VarDataProcessor();
  VarDataProcessor(VarDataProcessor const&) = delete;
  VarDataProcessor& operator=(VarDataProcessor const&) = delete;

  /// Opens a table with that many rows to begin with (at most the gap limit), none of which is written. A
  /// table of that name which is there already stays as it is, with its columns and rows.
  void AddDataSource(std::string const& source, unsigned int rows);

  /// Adds a column to a table and opens the table where there is none yet. True if there is such a column
  /// now, also if it was there before, in which case its cells stay. The last argument is null.
  bool AddVariable(std::string const& source, std::string const& column, _varinfo* info);

  /// Stores a cell. False, with nothing stored, where there is no such column or the row is beyond the
  /// limits.
  bool SetVariableValue(std::string const& source, std::string const& column, unsigned int row, double value);

  /// The cells of a column, GetRowCount() of them, in which cells that nobody wrote are system-missing (the
  /// most negative finite double). Null where there is no such column. The store keeps the cells; the pointer
  /// is good until the next operation that changes the store.
  double* GetDataPointer(std::string const& source, std::string const& column);

  /// 0 where there is no such source.
  unsigned int GetRowCount(std::string const& source) const;

  /// @{
  /// Both replace the list by names in the order of their creation; an unknown source gives an empty list.
  void GetSourceNames(std::vector<std::string>& names) const;
  void GetVariableNames(std::string const& source, std::vector<std::string>& names) const;
  /// @}

  /// The whole store in its wire form, and the number of bytes. The caller frees it with `delete[]`. A store
  /// without sources gives no bytes, in a buffer that is freed all the same. Throws std::length_error where
  /// the stream does not fit into the size.
  unsigned char* GetDataStream(unsigned int& size);

 private:
  class Store;
  std::unique_ptr<Store> mStore;
};
