#include "source_data.h"

#include "chart/column_types.h"
#include "chart/csv_table.h"
#include "chart/nearest_name.h"
#include "files.h"
#include "problem.h"

#include "host/data_store.h"
#include "model/chartstring.h"
#include "model/document.h"
#include "model/variables.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>

namespace kestrel::tool {

namespace {

std::string utf8(char16_t const* text) { return ChartString(text).toUTF8(); }

/// The variables of each source, which stand in the order of their first variable.
class Sources {
 public:
  explicit Sources(LumoVisualization const& chart) {
    for (LumoSourceVariable* const variable : chart.getSourceVariables()) {
      std::string const source = utf8(variable->getSource());
      auto const known = std::find(mNames.begin(), mNames.end(), source);
      mVariables.resize(std::max(mVariables.size(), mNames.size() + 1));
      mVariables[static_cast<std::size_t>(known - mNames.begin())].push_back(variable);
      if (known == mNames.end()) mNames.push_back(source);
    }
  }

  std::vector<std::string> const& names() const { return mNames; }
  std::vector<LumoSourceVariable*> const& variables(std::string const& source) const {
    return mVariables[static_cast<std::size_t>(std::find(mNames.begin(), mNames.end(), source) -
                                               mNames.begin())];
  }
  bool has(std::string const& source) const {
    return std::find(mNames.begin(), mNames.end(), source) != mNames.end();
  }

 private:
  std::vector<std::string> mNames;
  std::vector<std::vector<LumoSourceVariable*>> mVariables;
};

std::string listed(std::vector<std::string> const& names) {
  std::string text;
  for (std::string const& name : names) text += (text.empty() ? "" : ", ") + printable(name);
  return text;
}

struct SourceFile {
  std::string source;
  std::string file;
};

/// A file name may have an equals sign itself, so that only a source of the chart counts before one.
SourceFile sourceFile(Sources const& sources, std::string const& option) {
  std::size_t const equals = option.find('=');
  if (equals != std::string::npos && sources.has(option.substr(0, equals)))
    return {option.substr(0, equals), option.substr(equals + 1)};
  if (sources.names().empty())
    throw badInput(option, "is not needed: the chart has no variable that reads data");
  if (sources.names().size() > 1) {
    throw badInput(option, "is for no source of the chart; give --data SOURCE=FILE for each of: " +
                               listed(sources.names()));
  }
  return {sources.names().front(), option};
}

std::size_t columnOf(LumoSourceVariable const& variable, CsvTable const& table, std::string const& file) {
  std::string const name = utf8(variable.getSourceName());
  auto const& names = table.names();
  auto const found = std::find(names.begin(), names.end(), name);
  if (found != names.end()) return static_cast<std::size_t>(found - names.begin());
  std::string const nearest = nearestName(name, names);
  throw badInput(file, 1,
                 "there is no column " + inQuotes(name) + " for the variable " +
                     inQuotes(utf8(variable.getId())) + "; " +
                     (nearest.empty() ? "the" : "did you mean " + inQuotes(nearest) + "? The") +
                     " columns are: " + listed(names));
}

/// The number that stands for each text, by the relabels of a variable.
std::map<std::string, double> knownCategories(LumoSourceVariable const& variable) {
  std::map<std::string, double> numbers;
  for (LumoFormat const* const format : variable.getFormats()) {
    for (LumoRelabel const* const relabel : format->getRelabels())
      numbers.emplace(utf8(relabel->getTo()), std::strtod(utf8(relabel->getFrom()).c_str(), nullptr));
  }
  return numbers;
}

LumoFormat& formatOf(LumoSourceVariable& variable) {
  std::vector<LumoFormat*> const formats = variable.getFormats();
  return formats.empty() ? *variable.addFormat() : *formats.front();
}

/// The numbers of a column's categories in their order; new ones become relabels.
std::vector<double> numberCategories(LumoSourceVariable& variable,
                                     std::vector<std::string> const& categories) {
  std::map<std::string, double> const known = knownCategories(variable);
  double last = 0;
  for (auto const& [text, number] : known) last = std::max(last, number);
  std::vector<double> numbers;
  for (std::string const& category : categories) {
    auto const found = known.find(category);
    if (found != known.end()) {
      numbers.push_back(found->second);
      continue;
    }
    numbers.push_back(++last);
    ChartString from;
    from.appendDouble(last);
    ChartString to;
    to.assignUTF8(category);
    formatOf(variable).addRelabel(from.xc_str(), to.xc_str());
  }
  return numbers;
}

/// The cells of a column as the chart takes them.
std::vector<double> cellsOf(LumoSourceVariable& variable, Column column, std::string const& file) {
  if (column.type != ColumnType::Text) return std::move(column.values);
  if (!variable.getCategorical()) {
    throw badInput(file, "column " + inQuotes(column.name) + " holds text such as " +
                             inQuotes(column.categories.front()) + ", but the variable " +
                             inQuotes(utf8(variable.getId())) + " is one of numbers; make it categorical");
  }
  std::vector<double> const numbers = numberCategories(variable, column.categories);
  for (double& value : column.values) {
    auto const category = static_cast<std::size_t>(value);
    if (value >= 1 && category <= numbers.size()) value = numbers[category - 1];
  }
  return std::move(column.values);
}

void readFileInto(SourceFile const& data, Sources const& sources, VarDataProcessor& store) {
  CsvTable const table = readCsv(data.file, readFile(data.file));
  store.AddDataSource(data.source, 0);
  for (LumoSourceVariable* const variable : sources.variables(data.source)) {
    std::size_t const index = columnOf(*variable, table, data.file);
    std::vector<double> const cells =
        cellsOf(*variable, readColumn(table, index, variable->getCategorical()), data.file);
    std::string const& name = table.names()[index];
    store.AddVariable(data.source, name, nullptr);
    unsigned int row = 0;
    for (double const cell : cells) store.SetVariableValue(data.source, name, row++, cell);
  }
}

}  // namespace

void readSourceData(LumoVisualization const& chart, std::vector<std::string> const& files,
                    VarDataProcessor& store) {
  Sources const sources(chart);
  for (std::string const& file : files) readFileInto(sourceFile(sources, file), sources, store);
}

}  // namespace kestrel::tool
