#include "chart_data.h"

#include "files.h"
#include "nearest_name.h"
#include "problem.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::tool {

namespace {

std::string listed(std::vector<std::string> const& names) {
  std::string text;
  for (std::string const& name : names)
    text += (text.empty() ? "" : ", ") + (name.empty() ? "(no name)" : name);
  return text;
}

/// The place of a name in the header.
std::size_t findColumn(ChartRequest const& request, CsvTable const& table, char const* option,
                       std::string const& name) {
  auto const found = std::find(table.names().begin(), table.names().end(), name);
  if (found != table.names().end()) return static_cast<std::size_t>(found - table.names().begin());
  std::string const nearest = nearestName(name, table.names());
  throw badInput(request.data, 1,
                 "there is no column " + inQuotes(name) + " for " + option + "; " +
                     (nearest.empty() ? "the" : "did you mean " + inQuotes(nearest) + "? The") +
                     " columns are: " + listed(table.names()));
}

/// Chooses columns of the table, each once.
class Choice {
 public:
  Choice(ChartRequest const& request, CsvTable const& table) : mRequest(&request), mTable(&table) {
    for (std::string const& name : request.categorical) {
      mCategorical.push_back(findColumn(request, table, "--categorical", name));
    }
  }

  std::size_t choose(char const* option, std::string const& name) {
    std::size_t const column = findColumn(*mRequest, *mTable, option, name);
    auto const before = std::find(mChosen.begin(), mChosen.end(), column);
    if (before != mChosen.end()) return static_cast<std::size_t>(before - mChosen.begin());
    mChosen.push_back(column);
    return mChosen.size() - 1;
  }

  std::optional<std::size_t> chooseIfGiven(char const* option, std::string const& name) {
    if (name.empty()) return std::nullopt;
    return choose(option, name);
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

}  // namespace

ChartData readChartData(ChartRequest const& request) {
  CsvTable const table = readCsv(request.data, readFile(request.data));
  Choice choice(request, table);
  std::size_t const x = choice.choose("--x", request.x);
  std::size_t const y = choice.choose("--y", request.y);
  auto const z = choice.chooseIfGiven("--z", request.z);
  auto const color = choice.chooseIfGiven("--color", request.color);
  return {choice.read(), x, y, z, color};
}

}  // namespace kestrel::tool
