// The data store and the chart's variables are brought to agree.

#include "xdocument.h"

#include "date_relabels.h"
#include "xdocument_data.h"

#include "support/chart_text.h"

#include "model/document.h"
#include "model/variables.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

bool holds(VarDataProcessor const& store, std::string const& source, std::string const& column) {
  std::vector<std::string> names;
  store.GetVariableNames(source, names);
  return std::find(names.begin(), names.end(), column) != names.end();
}

/// The pattern of a categorical date that nothing else says how to show; empty for any other variable.
ChartString inputPattern(LumoSourceVariable const& variable) {
  LumoExtension const* const extension = variable.getExtension();
  if (!variable.getCategorical() || extension == nullptr) return {};
  ChartString pattern(extension->getAttribute(u"inputDateFormatPattern"));
  return variable.getFormats().empty() ? pattern : ChartString();
}

kestrel::DateNames dateNames() {
  kestrel::ChartDictionary dictionary;
  return kestrel::DateNames(dictionary);
}

/// One for each row, also where values are equal.
void relabelDates(LumoFormat& format, ChartString const& pattern, double const* values, unsigned int rows,
                  kestrel::DateNames const& names) {
  for (unsigned int row = 0; values != nullptr && row < rows; ++row) {
    ChartString const from = kestrel::numberText(values[row]);
    ChartString const to = kestrel::dateText(values[row], pattern.xc_str(), names);
    if (!from.empty() && !to.empty()) format.addRelabel(from.xc_str(), to.xc_str());
  }
}

}  // namespace

int XDocument::fleshOutData() {
  VarDataProcessor* const store = mData->chartData();
  if (store == nullptr) return 0;
  std::vector<std::string> sources;
  store->GetSourceNames(sources);
  int held = 0;
  for (LumoSourceVariable* variable : chart().getSourceVariables()) {
    std::string const source = ChartString(variable->getSource()).toUTF8();
    std::string const column = ChartString(variable->getSourceName()).toUTF8();
    if (source.empty() || column.empty()) continue;
    if (holds(*store, source, column)) {
      ++held;
      continue;
    }
    store->AddVariable(source, column, nullptr);
    ChartString const pattern = inputPattern(*variable);
    if (pattern.empty()) continue;
    LumoFormat& format = *variable->addFormat();
    kestrel::DateNames const names = dateNames();
    double const* const values = store->GetDataPointer(source, column);
    relabelDates(format, pattern, values, store->GetRowCount(source), names);
  }
  return held;
}
