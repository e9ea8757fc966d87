#pragma once

#include "kestrel_export.h"

#include "host/data_types.h"

#include <string>

class VarDataProcessor;
class XVariable;

/// One cell of a row. Its construction is the write into the store, under the variable's column name; the
/// object that remains is empty.
class KESTREL_API XDataValue {
 public:
  /// Always written, as a double.
  XDataValue(VarDataProcessor& processor, std::string const& sourceId, XVariable const& variable,
             unsigned int rowIndex, long const& value);
  /// Written unless it is the system-missing value, the most negative finite double.
  XDataValue(VarDataProcessor& processor, std::string const& sourceId, XVariable const& variable,
             unsigned int rowIndex, double const& value);
  /// The cell's 8 bytes as a double.
  XDataValue(VarDataProcessor& processor, std::string const& sourceId, XVariable const& variable,
             unsigned int rowIndex, OBS const& value);

  /// Writes a cell.
  /// @return what the store says
  static bool addDataValue(VarDataProcessor& processor, std::string const& sourceId,
                           std::string const& columnName, unsigned int rowIndex, double value);
};
