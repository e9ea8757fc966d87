#pragma once

#include "kestrel_export.h"
#include "xdatavalue.h"

#include "host/data_types.h"

#include <string>

class VarDataProcessor;
class XVariable;

/// One row of a source. A value is its write and leaves nothing to keep: a row holds no list of them.
class KESTREL_API XRow {
 public:
  /// @param rowIndex number of the row in its source, from 0
  XRow(VarDataProcessor& processor, std::string const& sourceId, unsigned int rowIndex);
  XRow(XRow const&) = delete;
  XRow& operator=(XRow const&) = delete;
  ~XRow();

  /// @{
  /// Writes one cell, as `XDataValue` tells. Failures of the store pass to the caller.
  void addDataValue(XVariable const& variable, long const& value);
  void addDataValue(XVariable const& variable, double const& value);
  void addDataValue(XVariable const& variable, OBS const& value);
  /// @}

 private:
  VarDataProcessor* mProcessor;
  unsigned int mRowIndex;
  std::string mSourceId;
};
