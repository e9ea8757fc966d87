// The data of a chart: sources of columns of doubles, and the form in which the client gets them.
#include "host/data_store.h"

#include <algorithm>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <utility>

class VarDataProcessor::Store {
 public:
  using Column = std::pair<std::string, std::vector<double>>;
  struct Source {
    std::string name;
    unsigned int rows;
    std::vector<Column> columns;
  };

  static constexpr double missing = std::numeric_limits<double>::lowest();

  Source* source(std::string const& name) {
    auto const found =
        std::find_if(sources.begin(), sources.end(), [&](auto const& each) { return each.name == name; });
    return found != sources.end() ? &*found : nullptr;
  }
  /// As long as its source has rows; null where there is none.
  std::vector<double>* column(std::string const& name, std::string const& columnName) {
    Source* const owner = source(name);
    if (owner == nullptr) return nullptr;
    auto const found = std::find_if(owner->columns.begin(), owner->columns.end(),
                                    [&](Column const& each) { return each.first == columnName; });
    if (found == owner->columns.end()) return nullptr;
    found->second.reserve(1);  // a column without rows has a pointer too
    if (found->second.size() < owner->rows) found->second.resize(owner->rows, missing);
    return &found->second;
  }

  std::vector<Source> sources;
};

VarDataProcessor::VarDataProcessor() : mStore(std::make_unique<Store>()) {}
VarDataProcessor::~VarDataProcessor() = default;

void VarDataProcessor::AddDataSource(std::string const& source, unsigned int rows) {
  if (mStore->source(source) == nullptr) mStore->sources.push_back({source, std::min(rows, gapLimit), {}});
}

bool VarDataProcessor::AddVariable(std::string const& source, std::string const& column, _varinfo*) {
  AddDataSource(source, 0);
  if (mStore->column(source, column) == nullptr) mStore->source(source)->columns.push_back({column, {}});
  return true;
}

bool VarDataProcessor::SetVariableValue(std::string const& source, std::string const& column,
                                        unsigned int row, double value) {
  Store::Source* const owner = mStore->source(source);
  if (mStore->column(source, column) == nullptr || row >= rowLimit) return false;
  if (row > owner->rows && row - owner->rows > gapLimit) return false;
  owner->rows = std::max(owner->rows, row + 1);
  (*mStore->column(source, column))[row] = value;
  return true;
}

double* VarDataProcessor::GetDataPointer(std::string const& source, std::string const& column) {
  std::vector<double>* const cells = mStore->column(source, column);
  return cells != nullptr ? cells->data() : nullptr;
}

unsigned int VarDataProcessor::GetRowCount(std::string const& source) const {
  Store::Source const* const found = mStore->source(source);
  return found != nullptr ? found->rows : 0;
}

void VarDataProcessor::GetSourceNames(std::vector<std::string>& names) const {
  names.clear();
  for (Store::Source const& source : mStore->sources) names.push_back(source.name);
}

void VarDataProcessor::GetVariableNames(std::string const& source, std::vector<std::string>& names) const {
  names.clear();
  Store::Source const* const found = mStore->source(source);
  if (found == nullptr) return;
  for (Store::Column const& column : found->columns) names.push_back(column.first);
}

// Text: the source, its columns, then its rows, with a tab between cells and nothing for a missing one. A
// host whose client is one of the project's own sends Arrow here instead.
unsigned char* VarDataProcessor::GetDataStream(unsigned int& size) {
  std::ostringstream text;
  text.precision(std::numeric_limits<double>::max_digits10);
  for (Store::Source& source : mStore->sources) {
    text << source.name;
    for (Store::Column const& column : source.columns) text << '\t' << column.first;
    for (unsigned int row = 0; row < source.rows; ++row) {
      text << '\n' << row;
      for (Store::Column const& column : source.columns) {
        text << '\t';
        double const cell = (*mStore->column(source.name, column.first))[row];
        if (cell != Store::missing) text << cell;
      }
    }
    text << "\n\n";
  }
  std::string const bytes = text.str();
  if (bytes.size() > std::numeric_limits<unsigned int>::max()) throw std::length_error("too much data");
  auto* const stream = new unsigned char[bytes.size()];
  std::copy(bytes.begin(), bytes.end(), stream);
  size = static_cast<unsigned int>(bytes.size());
  return stream;
}
