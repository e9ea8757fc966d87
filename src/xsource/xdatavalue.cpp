#include "xdatavalue.h"

#include "xvariable.h"

#include "host/data_store.h"

#include <limits>

XDataValue::XDataValue(VarDataProcessor& processor, std::string const& sourceId, XVariable const& variable,
                       unsigned int rowIndex, long const& value) {
  addDataValue(processor, sourceId, variable.mSourceName, rowIndex, static_cast<double>(value));
}

XDataValue::XDataValue(VarDataProcessor& processor, std::string const& sourceId, XVariable const& variable,
                       unsigned int rowIndex, double const& value) {
  // A missing value leaves the store's cell as it is; NaN compares unequal and is written.
  if (value == std::numeric_limits<double>::lowest()) return;
  addDataValue(processor, sourceId, variable.mSourceName, rowIndex, value);
}

XDataValue::XDataValue(VarDataProcessor& processor, std::string const& sourceId, XVariable const& variable,
                       unsigned int rowIndex, OBS const& value)
    : XDataValue(processor, sourceId, variable, rowIndex, value.number()) {}

bool XDataValue::addDataValue(VarDataProcessor& processor, std::string const& sourceId,
                              std::string const& columnName, unsigned int rowIndex, double value) {
  return processor.SetVariableValue(sourceId, columnName, rowIndex, value);
}
