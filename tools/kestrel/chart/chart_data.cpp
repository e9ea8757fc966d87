#include "chart_data.h"

#include "categories.h"
#include "column_names.h"
#include "data_checks.h"
#include "files.h"
#include "problem.h"
#include "reference_values.h"

#include "kestrelhost/missing.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::tool {

namespace {

/// Chooses columns of the table, each once.
class Choice {
 public:
  Choice(ChartRequest const& request, CsvTable const& table) : mRequest(&request), mTable(&table) {
    for (std::string const& name : request.categorical) {
      mCategorical.push_back(requireColumn(table, request.data, name, "--categorical"));
    }
  }

  std::size_t choose(char const* option, std::string const& name) {
    std::size_t const column = requireColumn(*mTable, mRequest->data, name, option);
    auto const before = std::find(mChosen.begin(), mChosen.end(), column);
    if (before != mChosen.end()) return static_cast<std::size_t>(before - mChosen.begin());
    mChosen.push_back(column);
    return mChosen.size() - 1;
  }

  std::vector<std::size_t> chooseAll(char const* option, std::vector<std::string> const& names) {
    std::vector<std::size_t> columns;
    columns.reserve(names.size());
    for (std::string const& name : names) columns.push_back(choose(option, name));
    return columns;
  }

  std::vector<Column> read() const {
    std::vector<Column> columns;
    for (std::size_t const column : mChosen) {
      bool const categorical =
          std::find(mCategorical.begin(), mCategorical.end(), column) != mCategorical.end();
      columns.push_back(readColumn(*mTable, column, categorical));
    }
    return columns;
  }

 private:
  ChartRequest const* mRequest;
  CsvTable const* mTable;
  std::vector<std::size_t> mCategorical;
  std::vector<std::size_t> mChosen;
};

struct Role {
  char const* option;
  std::string ChartRequest::*name;
  std::optional<std::size_t> ChartData::*column;
};

/// What a column is for, where it is not always there.
constexpr Role roles[] = {
    {"--y", &ChartRequest::y, &ChartData::y},
    {"--z", &ChartRequest::z, &ChartData::z},
    {"--color", &ChartRequest::color, &ChartData::color},
    {"--cluster", &ChartRequest::cluster, &ChartData::cluster},
    {"--stack", &ChartRequest::stack, &ChartData::stack},
    {"--label", &ChartRequest::label, &ChartData::label},
};

ChartData chooseColumns(ChartRequest const& request, CsvTable const& table) {
  ChartData data;
  Choice choice(request, table);
  data.x = choice.choose("--x", request.x);
  for (Role const& role : roles) {
    if (!(request.*role.name).empty()) data.*role.column = choice.choose(role.option, request.*role.name);
  }
  data.panelColumns = choice.chooseAll("--panel-column", request.panelColumns);
  data.panelRows = choice.chooseAll("--panel-row", request.panelRows);
  data.columns = choice.read();
  return data;
}

void removeRows(Column& column, std::vector<bool> const& removed) {
  std::vector<double> kept;
  column.missing = 0;
  for (std::size_t row = 0; row < removed.size(); ++row) {
    if (removed[row]) continue;
    kept.push_back(column.values[row]);
    if (kept.back() == host::systemMissing) ++column.missing;
  }
  column.values = std::move(kept);
}

/// A panel of rows without a side would stand between the sides, of which every second one is mirrored.
void dropRowsWithoutSide(ChartData& data) {
  std::vector<double> const& sides = data.columns[data.panelColumns.front()].values;
  std::vector<bool> removed;
  removed.reserve(sides.size());
  for (double const side : sides) removed.push_back(side == host::systemMissing);
  data.droppedRows = static_cast<std::size_t>(std::count(removed.begin(), removed.end(), true));
  for (Column& column : data.columns) removeRows(column, removed);
}

}  // namespace

ChartData readChartData(ChartRequest const& request) {
  ChartData data = chooseColumns(request, readCsv(request.data, readFile(request.data)));
  requireFittingColumns(request, data);
  if (request.element == ElementKind::Pyramid) dropRowsWithoutSide(data);
  Column& x = data.columns[data.x];
  // A client sorts by the values or by their texts: numbered in the order of the texts, both are the same.
  if (!request.sort.empty()) sortByText(x);
  data.excluded = findExcluded(request.data, x, request.excluded);
  data.referenceX = readReferences("--reference-x", request.referenceX, &x);
  data.referenceY =
      readReferences("--reference-y", request.referenceY, data.y ? &data.columns[*data.y] : nullptr);
  return data;
}

}  // namespace kestrel::tool
