#include "service_command.h"

#include "chart/column_names.h"
#include "chart/column_types.h"
#include "chart/csv_table.h"
#include "files.h"
#include "problem.h"
#include "side_delivery.h"
#include "xgraphservice.h"

#include "host/data_store.h"
#include "model/chartstring.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <set>

namespace kestrel::tool {

namespace {

/// What charts call the first of their sources.
constexpr char const* usualSource = "source0";

struct ServiceVariable {
  std::string name;
  int index;
};

/// NAME=INDEX.
ServiceVariable numbered(std::string const& text, std::size_t equals) {
  ServiceVariable variable{text.substr(0, equals), 0};
  char const* const end = text.data() + text.size();
  auto const [at, error] = std::from_chars(text.data() + equals + 1, end, variable.index);
  if (error == std::errc() && at == end && variable.index >= 0) return variable;
  throw Problem("--variable " + inQuotes(text) + ": " + inQuotes(text.substr(equals + 1)) +
                    " is no number of a variable; give NAME or NAME=NUMBER, such as age=7",
                Exit::BadInput);
}

bool has(std::vector<std::string> const& names, std::string const& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// A name alone gets the number of its place. A column may have a name with an equals sign in it.
ServiceVariable variableOf(std::string const& text, std::vector<std::string> const& columns,
                           std::size_t place) {
  std::size_t const equals = text.rfind('=');
  bool const isName = equals == std::string::npos || has(columns, text);
  ServiceVariable variable = isName ? ServiceVariable{text, static_cast<int>(place)} : numbered(text, equals);
  if (variable.name.empty()) throw Problem("--variable " + inQuotes(text) + " has no name", Exit::BadInput);
  return variable;
}

std::vector<ServiceVariable> variablesOf(ServiceRequest const& request,
                                         std::vector<std::string> const& columns) {
  std::vector<ServiceVariable> variables;
  for (std::string const& text : request.variables.empty() ? columns : request.variables)
    variables.push_back(variableOf(text, columns, variables.size()));
  return variables;
}

/// Texts are categories, and a service template has no place for them.
void tellOfTexts(Column const& column) {
  if (column.type != ColumnType::Text) return;
  tell("note: column " + inQuotes(column.name) +
       " holds texts; the client gets the number of each, from 1 in the order in which they first appear");
}

/// A variable that is named twice has one column.
void readRows(ServiceRequest const& request, CsvTable const& table,
              std::vector<ServiceVariable> const& variables, std::string const& source,
              VarDataProcessor& store) {
  store.AddDataSource(source, 0);
  std::set<std::string> known;
  for (ServiceVariable const& variable : variables) {
    if (!known.insert(variable.name).second) continue;
    Column const column =
        readColumn(table, requireColumn(table, request.data, variable.name, "--variable"), false);
    tellOfTexts(column);
    store.AddVariable(source, variable.name, nullptr);
    unsigned int row = 0;
    for (double const value : column.values) store.SetVariableValue(source, variable.name, row++, value);
  }
}

void requireSomething(ServiceRequest const& request, std::string const& options) {
  if (!options.empty() || !request.source.empty() || !request.variables.empty() || !request.data.empty())
    return;
  throw Problem("there is nothing to send: give --options, --variable, --data, or several of them",
                Exit::BadInput);
}

}  // namespace

void runService(ServiceRequest const& request) {
  std::string const options = optionsOf(request);
  requireSomething(request, options);
  bool const hasTemplate = !request.source.empty() || !request.variables.empty() || !request.data.empty();
  std::string const source = request.source.empty() ? usualSource : request.source;
  VarDataProcessor store;
  std::vector<ServiceVariable> variables;
  if (request.data.empty()) {
    variables = variablesOf(request, {});
  } else {
    CsvTable const table = readCsv(request.data, readFile(request.data));
    variables = variablesOf(request, table.names());
    readRows(request, table, variables, source, store);
  }
  deliver(request, "service", [&] {
    XGraphService service;
    describe(service, request);
    service.setChartOptions(options);
    if (hasTemplate) {
      ChartString id;
      id.assignUTF8(source);
      service.createDocument(id);
    }
    for (ServiceVariable const& variable : variables) service.addVariable(variable.name, variable.index);
    if (!request.data.empty()) service.SetChartData(&store);
    return service.sendChartOptions();
  });
}

}  // namespace kestrel::tool
