#include "host/data_store.h"

#include "data_store_watch.h"
#include "data_stream.h"
#include "data_table.h"
#include "same_name.h"

#include <algorithm>
#include <atomic>

namespace kestrel::host {

namespace {

StoreObserver* watcher = nullptr;

std::atomic<std::size_t> live = 0;

}  // namespace

std::size_t liveStores() { return live; }

void watchStores(StoreObserver* observer) { watcher = observer; }

StoreObserver::~StoreObserver() = default;
bool StoreObserver::addDataSource(std::string const&, unsigned int) { return true; }
bool StoreObserver::addVariable(std::string const&, std::string const&) { return true; }
bool StoreObserver::setVariableValue(std::string const&, std::string const&, unsigned int, double) {
  return true;
}
bool StoreObserver::getDataPointer(std::string const&, std::string const&) { return true; }
bool StoreObserver::getRowCount(std::string const&) { return true; }
bool StoreObserver::getSourceNames() { return true; }
bool StoreObserver::getVariableNames(std::string const&) { return true; }
bool StoreObserver::getDataStream() { return true; }

namespace {

/// Asks whoever watches whether an operation may go on.
template <typename... Arguments, typename... Given>
bool allowed(bool (StoreObserver::*operation)(Arguments...), Given const&... given) {
  return watcher == nullptr || (watcher->*operation)(given...);
}

}  // namespace

}  // namespace kestrel::host

using kestrel::host::allowed;
using kestrel::host::DataTable;
using kestrel::host::StoreObserver;

class VarDataProcessor::Store {
 public:
  Store() { ++kestrel::host::live; }
  Store(Store const&) = delete;
  Store& operator=(Store const&) = delete;
  ~Store() { --kestrel::host::live; }

  std::vector<DataTable*> const& tables() const { return mTables; }

  DataTable& open(std::string const& source, unsigned int rows) {
    if (DataTable* const known = find(source)) return *known;
    auto const opened = mBySource.try_emplace(source, source, rows).first;
    mTables.push_back(&opened->second);
    return opened->second;
  }

  /// Cells come source by source: a cell of another source than the last is not an expected one.
  bool writeExpected(std::string const& source, std::string const& column, unsigned int row, double value) {
    return mLast != nullptr && kestrel::host::sameName(mLast->name(), source) &&
           mLast->writeExpected(column, row, value);
  }

  /// Null for an unknown source.
  DataTable* find(std::string const& source) {
    auto const found = mBySource.find(source);
    if (found == mBySource.end()) return nullptr;
    mLast = &found->second;
    return mLast;
  }

 private:
  std::unordered_map<std::string, DataTable> mBySource;
  std::vector<DataTable*> mTables;
  DataTable* mLast = nullptr;
};

VarDataProcessor::VarDataProcessor() : mStore(std::make_unique<Store>()) {}
VarDataProcessor::~VarDataProcessor() = default;

void VarDataProcessor::AddDataSource(std::string const& source, unsigned int rows) {
  if (allowed(&StoreObserver::addDataSource, source, rows)) mStore->open(source, std::min(rows, gapLimit));
}

bool VarDataProcessor::AddVariable(std::string const& source, std::string const& column, _varinfo*) {
  if (!allowed(&StoreObserver::addVariable, source, column)) return false;
  mStore->open(source, 0).addColumn(column);
  return true;
}

bool VarDataProcessor::SetVariableValue(std::string const& source, std::string const& column,
                                        unsigned int row, double value) {
  if (kestrel::host::watcher == nullptr && mStore->writeExpected(source, column, row, value)) return true;
  if (!allowed(&StoreObserver::setVariableValue, source, column, row, value)) return false;
  DataTable* const table = mStore->find(source);
  return table != nullptr && table->write(column, row, value);
}

double* VarDataProcessor::GetDataPointer(std::string const& source, std::string const& column) {
  if (!allowed(&StoreObserver::getDataPointer, source, column)) return nullptr;
  DataTable* const table = mStore->find(source);
  return table != nullptr ? table->cells(column) : nullptr;
}

unsigned int VarDataProcessor::GetRowCount(std::string const& source) const {
  if (!allowed(&StoreObserver::getRowCount, source)) return 0;
  DataTable const* const table = mStore->find(source);
  return table != nullptr ? table->rows() : 0;
}

void VarDataProcessor::GetSourceNames(std::vector<std::string>& names) const {
  names.clear();
  if (!allowed(&StoreObserver::getSourceNames)) return;
  for (DataTable const* table : mStore->tables()) names.push_back(table->name());
}

void VarDataProcessor::GetVariableNames(std::string const& source, std::vector<std::string>& names) const {
  names.clear();
  if (!allowed(&StoreObserver::getVariableNames, source)) return;
  DataTable const* const table = mStore->find(source);
  if (table == nullptr) return;
  for (kestrel::host::Column const& column : table->columns()) names.push_back(column.name);
}

unsigned char* VarDataProcessor::GetDataStream(unsigned int& size) {
  size = 0;
  if (!allowed(&StoreObserver::getDataStream)) return nullptr;
  for (DataTable* table : mStore->tables()) table->complete();
  return kestrel::host::writeDataStream(mStore->tables(), size);
}
