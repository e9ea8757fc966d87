#include "panel_builder.h"

#include "chart_words.h"
#include "xgraph.h"

namespace kestrel::tool {

void addPanels(XGraph& graph, ChartRequest const& request, ChartData const& data,
               std::vector<XVariable>& variables) {
  auto const cross = [&](std::vector<std::size_t> const& columns, XGraph::ROLE role) {
    for (std::size_t const column : columns) {
      // Panels are titled by the label, which a variable of a table has none of.
      variables[column].setLabel(chartText(data.columns[column].name));
      graph.PanelingAddCrossVariable(variables[column], role);
    }
  };
  graph.BeginPaneling();
  cross(data.panelColumns, XGraph::ROLE_COLUMN);
  cross(data.panelRows, XGraph::ROLE_ROW);
  if (request.element == ElementKind::Pyramid) {
    graph.EndPyramidPaneling(true);
    graph.MirrorCharts();
  } else {
    graph.EndPaneling(true, false);
  }
}

}  // namespace kestrel::tool
