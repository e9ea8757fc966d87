#include "element_builder.h"

#include "chart_words.h"
#include "request_checks.h"
#include "xgraph.h"

#include "model/aesthetics.h"
#include "model/document.h"
#include "model/style.h"

#include <array>

namespace kestrel::tool {

namespace {

/// Told apart also by those who do not see all colours alike. More categories than these begin anew.
constexpr std::array categoryColors = {u"#0072B2", u"#E69F00", u"#009E73", u"#CC79A7",
                                       u"#56B4E9", u"#D55E00", u"#F0E442", u"#595959"};
/// The ends of a range of numbers.
constexpr std::array rangeColors = {u"#9ECAE1", u"#08306B"};

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

XElement makeElement(XGraph& graph, ElementKind kind, bool clustered, XVariable* outlierLabels) {
  switch (kind) {
    case ElementKind::Bar:
      return graph.AddBarElement(clustered);
    case ElementKind::Line:
      return graph.AddLineElement(nullptr);
    case ElementKind::Histogram:
      return graph.AddHistogramElement();
    case ElementKind::Box:
      return graph.AddBoxplotElement(outlierLabels);
    case ElementKind::ErrorBar:
      return graph.AddErrorBarElement();
    case ElementKind::Pyramid:
      return graph.AddPyramidElement();
    case ElementKind::Point:
      break;
  }
  return graph.AddPointElement();
}

void countRows(XGraph& graph, XElement& element, ChartRequest const& request, Column const& x) {
  // Of any start and width.
  element.addHistogramStatistic(nullptr, binCount(request), -1, true);
  // The figures are numbers, which says nothing about dates. Each has a line of its own.
  if (request.element == ElementKind::Histogram && x.type == ColumnType::Number) {
    graph.AddHistogramStatisticsSummary(element, u"Mean = ", u"\nStd. Dev. = ", u"\nN = ");
  }
}

using SplitOperation = void (XElement::*)(XVariable const&, bool color, bool pattern, bool legend,
                                          bool label);

/// Splits the element, with colours for the parts and a legend that has the variable's name.
void split(XGraph& graph, XElement& element, SplitOperation operation, XVariable const& variable,
           Column const& column) {
  (element.*operation)(variable, true, false, true, true);
  // The new cycle has one style without a look, in which all parts would be the same.
  LumoCycle& cycle = *graph.getImplementation()->getStyleCycles().back()->getCycles().front();
  LumoStyle* style = cycle.getStyles().front();
  for (ChartString const& color : colorsFor(column)) {
    if (style == nullptr) style = cycle.addStyle();
    style->setColor(color.xc_str());
    style = nullptr;
  }
}

}  // namespace

std::optional<std::size_t> clusteringColumn(ChartRequest const& request, ChartData const& data) {
  if (data.cluster) return data.cluster;
  // Where the colour splits by something else than the place, its parts stand side by side too.
  bool const splits = isAmong(request.element, clusteringKinds) && data.color && *data.color != data.x &&
                      data.columns[*data.color].categorical;
  return splits ? data.color : std::nullopt;
}

void addElement(XGraph& graph, ChartRequest const& request, ChartData const& data,
                std::vector<XVariable> const& variables, XVariable* outlierLabels) {
  bool const clustered = clusteringColumn(request, data).has_value();
  XElement element = makeElement(graph, request.element, clustered, outlierLabels);
  element.AddX(variables[data.x]);
  if (data.y) element.AddY(variables[*data.y]);
  if (data.z) element.AddZ(variables[*data.z]);
  if (isAmong(request.element, countingKinds)) countRows(graph, element, request, data.columns[data.x]);
  auto const splitBy = [&](std::optional<std::size_t> column, SplitOperation operation) {
    if (column) split(graph, element, operation, variables[*column], data.columns[*column]);
  };
  splitBy(data.cluster, &XElement::Cluster);
  splitBy(data.stack, &XElement::Stack);
  if (data.color) {
    element.colorByVariable(variables[*data.color], colorsFor(data.columns[*data.color]), true,
                            chartText(request.color).xc_str());
  }
}

}  // namespace kestrel::tool
