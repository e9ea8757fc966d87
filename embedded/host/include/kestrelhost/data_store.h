#pragma once

#include "host/export.h"

#include <cstddef>
#include <string>

namespace kestrel::host {

/// How many data stores there are in the process now, by which a test can see that each of its own has ended,
/// and only once.
VEXA_API std::size_t liveStores();

/// Is told of each operation on a data store before it happens. Without an observer a store costs nothing
/// more. An operation returns false to make the store's operation fail: it then does nothing and gives its
/// empty result.
class VEXA_API StoreObserver {
 public:
  virtual ~StoreObserver();

  /// @{
  /// Each is called before the operation of that name, with its arguments, and lets it go on: true.
  virtual bool addDataSource(std::string const& source, unsigned int rows);
  virtual bool addVariable(std::string const& source, std::string const& column);
  virtual bool setVariableValue(std::string const& source, std::string const& column, unsigned int row,
                                double value);
  virtual bool getDataPointer(std::string const& source, std::string const& column);
  virtual bool getRowCount(std::string const& source);
  virtual bool getSourceNames();
  virtual bool getVariableNames(std::string const& source);
  virtual bool getDataStream();
  /// @}
};

}  // namespace kestrel::host
