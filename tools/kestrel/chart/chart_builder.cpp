#include "chart_builder.h"

#include "procedure_data.h"
#include "xdocument.h"
#include "xgraph.h"

#include "model/variables.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace kestrel::tool {

namespace {

/// Told apart also by those who do not see all colours alike. More categories than these begin anew.
constexpr std::array categoryColors = {u"#0072B2", u"#E69F00", u"#009E73", u"#CC79A7",
                                       u"#56B4E9", u"#D55E00", u"#F0E442", u"#595959"};
/// The ends of a range of numbers.
constexpr std::array rangeColors = {u"#9ECAE1", u"#08306B"};

ChartString text(std::string const& utf8) {
  ChartString result;
  result.assignUTF8(utf8);
  return result;
}

std::vector<ChartString> colorsFor(Column const& column) {
  std::vector<ChartString> colors;
  if (!column.categorical) return {rangeColors.begin(), rangeColors.end()};
  for (char16_t const* const color : categoryColors) {
    // What is no text has as many categories as it has different values: nobody counts them here.
    if (column.type == ColumnType::Text && colors.size() == column.categories.size()) break;
    colors.emplace_back(color);
  }
  return colors;
}

/// Shows each category's number as its text.
void relabelCategories(XVariable& variable, Vexa_Variable const& host) {
  Vexa_ValueLabelMap labels(host.GetValueLabels());
  OBS const* value = nullptr;
  char const* label = nullptr;
  while (labels.GetNextPair(value, label) != 0) {
    ChartString from;
    from.appendDouble(value->number());
    variable.getImplementation().getFormats().front()->addRelabel(from.xc_str(), text(label).xc_str());
  }
}

std::vector<XVariable> addVariables(XGraph& graph, XSource& source, std::vector<Column> const& columns,
                                    host::MemoryDataSource& data) {
  std::vector<XVariable> variables;
  for (unsigned int at = 0; at < data.variableCount(); ++at) {
    host::MemoryVariable& host = data.variable(at);
    variables.push_back(graph.AddVariable(host, source, data, columns[at].categorical));
    relabelCategories(variables.back(), host);
  }
  return variables;
}

void addRows(XSource& source, std::vector<XVariable>& variables, host::MemoryDataSource const& data) {
  host::MemoryCaseIterator cases(data);
  while (cases.next()) {
    XRow& row = *source.AddRow();
    for (XVariable& variable : variables) row.addDataValue(variable, variable.getData(&cases));
  }
}

/// Makes the axis show the values of a variable.
void measure(XAxis& axis, XVariable const& variable, Column const& column) {
  if (column.categorical) {
    axis.addCategoricalVariableReference(variable);
    return;
  }
  axis.addIntervalVariableReference(variable);
  bool const isDate = column.type == ColumnType::Date || column.type == ColumnType::DateTime;
  if (isDate) axis.addDateInterval(nullptr, nullptr);
}

XElement addElement(XGraph& graph, ElementKind kind, bool clustered) {
  switch (kind) {
    case ElementKind::Bar:
      return graph.AddBarElement(clustered);
    case ElementKind::Line:
      return graph.AddLineElement(nullptr);
    case ElementKind::Point:
      break;
  }
  return graph.AddPointElement();
}

struct TitleOperation {
  bool (XGraph::*add)(char16_t const*);
  std::string text;
};

void addTitles(XGraph& graph, ChartRequest const& request) {
  constexpr std::array footnotes = {&XGraph::AddFootnote1, &XGraph::AddFootnote2, &XGraph::AddFootnote3};
  std::vector<TitleOperation> titles = {{&XGraph::AddTitle1, request.title},
                                        {&XGraph::AddTitle2, request.title2},
                                        {&XGraph::AddSubTitle, request.subtitle}};
  for (std::size_t at = 0; at < request.footnotes.size() && at < footnotes.size(); ++at) {
    titles.push_back({footnotes[at], request.footnotes[at]});
  }
  for (TitleOperation const& title : titles) (graph.*title.add)(text(title.text).xc_str());
}

/// What somebody who cannot see the chart is told about it.
std::string defaultDescription(ChartRequest const& request) {
  std::string sentence = request.title.empty() ? "A " : request.title + ": a ";
  sentence += elementNames[static_cast<std::size_t>(request.element)];
  sentence += " chart of " + request.y + " by " + request.x;
  if (!request.z.empty()) sentence += " and " + request.z;
  if (!request.color.empty()) sentence += ", coloured by " + request.color;
  return sentence + ".";
}

std::string const& orElse(std::string const& given, std::string const& usual) {
  return given.empty() ? usual : given;
}

/// Bars of one place stand side by side where the colour splits them by something else than the place.
bool isClustered(ChartRequest const& request, ChartData const& data) {
  return request.element == ElementKind::Bar && data.color && *data.color != data.x &&
         data.columns[*data.color].categorical;
}

}  // namespace

void describeChart(XDocument& document, ChartRequest const& request, ChartData const& data) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  std::vector<Column> const& columns = data.columns;
  host::MemoryDataSource procedureData;
  present(columns, procedureData);
  std::vector<XVariable> variables = addVariables(graph, *source, columns, procedureData);
  addRows(*source, variables, procedureData);

  bool const clustered = isClustered(request, data);
  XElement element = addElement(graph, request.element, clustered);
  element.AddX(variables[data.x]);
  element.AddY(variables[data.y]);
  XAxis xAxis = graph.AddPrimaryXAxis(text(orElse(request.xLabel, request.x)));
  measure(xAxis, variables[data.x], columns[data.x]);
  if (clustered) xAxis.Cluster(variables[*data.color]);
  XAxis yAxis = graph.AddPrimaryYAxis(text(orElse(request.yLabel, request.y)));
  measure(yAxis, variables[data.y], columns[data.y]);
  if (data.z) {
    element.AddZ(variables[*data.z]);
    XAxis zAxis = graph.AddZAxis(text(orElse(request.zLabel, request.z)));
    measure(zAxis, variables[*data.z], columns[*data.z]);
  }
  if (data.color) {
    element.colorByVariable(variables[*data.color], colorsFor(columns[*data.color]), true,
                            text(request.color).xc_str());
  }

  addTitles(graph, request);
  if (!request.name.empty()) document.SetName(text(request.name).xc_str());
  document.SetDescription(text(orElse(request.description, defaultDescription(request))));
  for (std::string const& attachment : request.attachments) document.AddCSVFile(attachment);
}

}  // namespace kestrel::tool
