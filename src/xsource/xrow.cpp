#include "xrow.h"

XRow::XRow(VarDataProcessor& processor, std::string const& sourceId, unsigned int rowIndex)
    : mProcessor(&processor), mRowIndex(rowIndex), mSourceId(sourceId) {}

XRow::~XRow() = default;

void XRow::addDataValue(XVariable const& variable, long const& value) {
  XDataValue const written(*mProcessor, mSourceId, variable, mRowIndex, value);
}

void XRow::addDataValue(XVariable const& variable, double const& value) {
  XDataValue const written(*mProcessor, mSourceId, variable, mRowIndex, value);
}

void XRow::addDataValue(XVariable const& variable, OBS const& value) {
  addDataValue(variable, value.number());
}
