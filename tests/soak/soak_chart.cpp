#include "soak_chart.h"

#include "xaxis.h"
#include "xdocument.h"
#include "xelement.h"
#include "xgraph.h"
#include "xrow.h"
#include "xsource.h"
#include "xvariable.h"

#include "model/chartstring.h"

#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

namespace kestrel::test {

namespace {

constexpr std::size_t categoricalColumns = 2;

std::vector<XVariable> addVariables(XGraph& graph, XSource& source) {
  std::vector<XVariable> variables;
  for (std::size_t column = 0; column < soakColumns; ++column) {
    variables.push_back(graph.AddAggregatedVariable(source, column < categoricalColumns, u"Variable"));
  }
  return variables;
}

void addRows(std::size_t chart, XSource& source, std::vector<XVariable> const& variables) {
  for (std::size_t row = 0; row < soakRows; ++row) {
    XRow& made = *source.AddRow();
    for (std::size_t column = 0; column < soakColumns; ++column) {
      made.addDataValue(variables[column], soakCell(chart, row, column));
    }
  }
}

void describe(XDocument& document, std::size_t chart) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  std::vector<XVariable> const variables = addVariables(graph, *source);
  addRows(chart, *source, variables);
  XElement bars = graph.AddBarElement(true);
  bars.AddX(variables[0]);
  bars.AddY(variables[2]);
  bars.Cluster(variables[1], true, false, true, true);
  XAxis x = graph.AddPrimaryXAxis(u"Group");
  x.addCategoricalVariableReference(variables[0]);
  x.Cluster(variables[1]);
  graph.AddPrimaryYAxis(u"Value").addIntervalVariableReference(variables[2]);
  graph.AddTitle1(u"Values by group");
  std::string const description = soakDescription(chart);
  document.SetDescription(std::u16string(description.begin(), description.end()).c_str());
}

}  // namespace

std::string soakDescription(std::size_t chart) { return "Bars of chart " + std::to_string(chart); }

double soakCell(std::size_t chart, std::size_t row, std::size_t column) {
  if (column < categoricalColumns) return 1.0 + static_cast<double>((row >> column) % 6);
  return static_cast<double>((chart * 104'729 + row * 7'919) % 1'000'003) / 1000.0;
}

std::string soakTemplate() {
  std::ifstream file(KESTREL_SHARE_DIR "/templates/default_look.xml", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool sendSoakChart(std::size_t chart) {
  XDocument document;
  describe(document, chart);
  document.SetChartTemplate(soakTemplateName);
  return document.SendChart(false, false, false);
}

}  // namespace kestrel::test
