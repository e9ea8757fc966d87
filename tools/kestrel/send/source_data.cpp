#include "source_data.h"

#include "chart/column_names.h"
#include "chart/column_types.h"
#include "chart/csv_table.h"
#include "files.h"
#include "problem.h"

#include "host/data_store.h"
#include "kestrelhost/missing.h"
#include "model/chartstring.h"
#include "model/document.h"
#include "model/variables.h"

#include <xercesc/dom/DOM.hpp>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <numeric>
#include <set>
#include <utility>

namespace kestrel::tool {

namespace {

/// Stands for the number of the row where no column is named so.
constexpr char const* rowNumberName = "$CASENUM";

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
  return requireColumn(table, file, utf8(variable.getSourceName()),
                       "the variable " + inQuotes(utf8(variable.getId())));
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

/// Numbers the categories of one variable: as its relabels do, and new ones behind those.
class Categories {
 public:
  explicit Categories(LumoSourceVariable& variable)
      : mVariable(variable), mNumbers(knownCategories(variable)) {
    for (auto const& [text, number] : mNumbers) {
      mLast = std::max(mLast, number);
      mKnown.insert(number);
    }
  }

  bool empty() const { return mNumbers.empty(); }
  bool knows(double number) const { return mKnown.count(number) != 0; }
  bool knows(std::string const& text) const { return mNumbers.count(text) != 0; }

  double numberOf(std::string const& text) {
    auto const [place, isNew] = mNumbers.try_emplace(text, mLast + 1);
    if (isNew) relabel(text);
    return place->second;
  }

 private:
  void relabel(std::string const& text) {
    ChartString from;
    from.appendDouble(++mLast);
    ChartString to;
    to.assignUTF8(text);
    formatOf(mVariable).addRelabel(from.xc_str(), to.xc_str());
  }

  LumoSourceVariable& mVariable;
  std::map<std::string, double> mNumbers;
  std::set<double> mKnown;
  double mLast = 0;
};

/// Each cell by its text. Where the chart has relabels, a number is a category by its text or, as it stands,
/// by what a relabel is from.
std::vector<double> categoryCells(Categories& categories, CsvTable const& table, std::size_t index,
                                  Column const& column) {
  bool const isText = column.type == ColumnType::Text;
  std::vector<double> cells;
  for (std::size_t row = 0; row < table.rows(); ++row) {
    double const value = column.values[row];
    std::string const text(table.cell(row, index));
    // The numbers of texts are the column's own, which are not those of the chart.
    bool const byNumber = !isText && !categories.knows(text) && categories.knows(value);
    cells.push_back(value == host::systemMissing || byNumber ? value : categories.numberOf(text));
  }
  return cells;
}

/// Dates that are categories are numbers of seconds, which nobody can read: each shows as the table has it.
void showDates(LumoSourceVariable& variable, CsvTable const& table, std::size_t index, Column const& column) {
  std::set<double> shown;
  for (std::size_t row = 0; row < table.rows(); ++row) {
    double const value = column.values[row];
    if (value == host::systemMissing || !shown.insert(value).second) continue;
    ChartString from;
    from.appendDouble(value);
    ChartString to;
    to.assignUTF8(std::string(table.cell(row, index)));
    formatOf(variable).addRelabel(from.xc_str(), to.xc_str());
  }
}

/// What tells a client that numbers of seconds are dates, where the chart does not say so itself.
void tellDates(LumoSourceVariable& variable, Column const& column) {
  if (variable.getImplementation()->hasAttribute(u"inputDateFormatPattern")) return;
  bool const timed = column.type == ColumnType::DateTime;
  variable.setInputDateFormatPattern(timed ? u"yyyy-MM-dd'T'HH:mm:ss.SSS" : u"yyyy-MM-dd");
}

/// The cells of a column as the chart takes them.
std::vector<double> cellsOf(LumoSourceVariable& variable, CsvTable const& table, std::size_t index,
                            std::string const& file) {
  Column column = readColumn(table, index, variable.getCategorical());
  bool const isText = column.type == ColumnType::Text;
  if (isText && !variable.getCategorical()) {
    throw badInput(file, "column " + inQuotes(column.name) + " holds text such as " +
                             inQuotes(column.categories.front()) + ", but the variable " +
                             inQuotes(utf8(variable.getId())) + " is one of numbers; make it categorical");
  }
  Categories categories(variable);
  if (!isText && (!variable.getCategorical() || categories.empty())) {
    bool const isDate = column.type == ColumnType::Date || column.type == ColumnType::DateTime;
    if (isDate && variable.getCategorical()) showDates(variable, table, index, column);
    if (isDate && !variable.getCategorical()) tellDates(variable, column);
    return std::move(column.values);
  }
  return categoryCells(categories, table, index, column);
}

/// The numbers of the rows, from 1.
std::vector<double> rowNumbers(CsvTable const& table) {
  std::vector<double> numbers(table.rows());
  std::iota(numbers.begin(), numbers.end(), 1.0);
  return numbers;
}

void store(VarDataProcessor& target, std::string const& source, std::string const& column,
           std::vector<double> const& cells) {
  target.AddVariable(source, column, nullptr);
  unsigned int row = 0;
  for (double const cell : cells) target.SetVariableValue(source, column, row++, cell);
}

void readFileInto(SourceFile const& data, Sources const& sources, VarDataProcessor& target) {
  CsvTable const table = readCsv(data.file, readFile(data.file));
  target.AddDataSource(data.source, 0);
  for (LumoSourceVariable* const variable : sources.variables(data.source)) {
    std::string const name = utf8(variable->getSourceName());
    bool const inTable = std::find(table.names().begin(), table.names().end(), name) != table.names().end();
    std::vector<double> const cells =
        name == rowNumberName && !inTable
            ? rowNumbers(table)
            : cellsOf(*variable, table, columnOf(*variable, table, data.file), data.file);
    store(target, data.source, name, cells);
  }
}

}  // namespace

void readSourceData(LumoVisualization const& chart, std::vector<std::string> const& files,
                    VarDataProcessor& store) {
  Sources const sources(chart);
  for (std::string const& file : files) readFileInto(sourceFile(sources, file), sources, store);
}

}  // namespace kestrel::tool
