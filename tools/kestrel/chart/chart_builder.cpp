#include "chart_builder.h"

#include "chart_words.h"
#include "element_builder.h"
#include "panel_builder.h"
#include "procedure_data.h"
#include "xdocument.h"
#include "xgraph.h"

#include "model/graph.h"
#include "model/variables.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kestrel::tool {

namespace {

/// Shows each category's number as its text.
void relabelCategories(XVariable& variable, Vexa_Variable const& host) {
  Vexa_ValueLabelMap labels(host.GetValueLabels());
  OBS const* value = nullptr;
  char const* label = nullptr;
  while (labels.GetNextPair(value, label) != 0) {
    ChartString from;
    from.appendDouble(value->number());
    variable.getImplementation().getFormats().front()->addRelabel(from.xc_str(), chartText(label).xc_str());
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

/// What labels the outliers of a box plot: the column that was asked for, or else the number of the row.
std::optional<XVariable> addOutlierLabels(XGraph& graph, XSource& source, ChartRequest const& request,
                                          ChartData const& data, std::vector<XVariable> const& variables) {
  if (request.element != ElementKind::Box) return std::nullopt;
  if (data.label) return variables[*data.label];
  return graph.AddSystemVariable(true, source, false);
}

void addRows(XSource& source, std::vector<XVariable> variables, host::MemoryDataSource const& data) {
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

/// Orders the categories of X and leaves some out, which gives the variable a domain of its own.
void arrangeCategories(XVariable& variable, ChartRequest const& request, ChartData const& data) {
  // In this order: sorting makes a new domain, without what an earlier one leaves out.
  if (!request.sort.empty()) variable.sortCategories(request.sort == "descending");
  for (double const value : data.excluded) {
    // A category is named by its value in the data, in the form in which relabels name it: the number of a
    // text, never the text. A number holds no semicolon, which would part it.
    ChartString category;
    category.appendDouble(value);
    variable.excludeCategory(category);
  }
}

void addXAxis(XGraph& graph, ChartRequest const& request, ChartData const& data,
              std::vector<XVariable>& variables) {
  XAxis axis = graph.AddPrimaryXAxis(chartText(request.xLabel.empty() ? request.x : request.xLabel));
  XVariable& variable = variables[data.x];
  arrangeCategories(variable, request, data);
  CTDomainType const* const arranged = variable.getImplementation().getDomain();
  if (arranged != nullptr) {
    // One domain for both, so that the axis has the order and the gaps of the variable.
    graph.getXDimension(*graph.getGraph()->getCoordinates(0), true)->setDomain(*arranged);
  } else {
    measure(axis, variable, data.columns[data.x]);
  }
  auto const clustering = clusteringColumn(request, data);
  if (clustering) axis.Cluster(variables[*clustering]);
}

void addYAxis(XGraph& graph, ChartRequest const& request, ChartData const& data,
              std::vector<XVariable> const& variables) {
  std::string const usual = data.y ? request.y : "Count";
  XAxis axis = graph.AddPrimaryYAxis(chartText(request.yLabel.empty() ? usual : request.yLabel));
  if (data.y) measure(axis, variables[*data.y], data.columns[*data.y]);
}

void addZAxis(XGraph& graph, ChartRequest const& request, ChartData const& data,
              std::vector<XVariable> const& variables) {
  if (!data.z) return;
  XAxis axis = graph.AddZAxis(chartText(request.zLabel.empty() ? request.z : request.zLabel));
  measure(axis, variables[*data.z], data.columns[*data.z]);
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
  for (TitleOperation const& title : titles) (graph.*title.add)(chartText(title.text).xc_str());
}

void addReferenceLines(XGraph& graph, ChartData const& data) {
  for (double const value : data.referenceX) graph.AddXReferenceLine(value, nullptr);
  for (double const value : data.referenceY) graph.AddYReferenceLine(value, nullptr);
}

void addWords(XDocument& document, ChartRequest const& request) {
  addTitles(*document.getGraph(), request);
  if (!request.name.empty()) document.SetName(chartText(request.name).xc_str());
  document.SetDescription(
      chartText(request.description.empty() ? defaultDescription(request) : request.description));
}

}  // namespace

void describeChart(XDocument& document, ChartRequest const& request, ChartData const& data) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  host::MemoryDataSource procedureData;
  present(data.columns, procedureData);
  std::vector<XVariable> variables = addVariables(graph, *source, data.columns, procedureData);
  std::optional<XVariable> outlierLabels = addOutlierLabels(graph, *source, request, data, variables);
  std::vector<XVariable> stored = variables;
  if (outlierLabels && !data.label) stored.push_back(*outlierLabels);
  addRows(*source, stored, procedureData);

  addXAxis(graph, request, data, variables);
  addYAxis(graph, request, data, variables);
  addZAxis(graph, request, data, variables);
  addElement(graph, request, data, variables, outlierLabels ? &*outlierLabels : nullptr);
  addPanels(graph, request, data, variables);
  addReferenceLines(graph, data);
  if (request.transposed) graph.transpose();

  addWords(document, request);
  for (std::string const& attachment : request.attachments) document.AddCSVFile(attachment);
}

}  // namespace kestrel::tool
