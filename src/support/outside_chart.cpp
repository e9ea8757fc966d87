#include "support/outside_chart.h"

#include "host/chartbase.h"
#include "model/document.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/style.h"

namespace {

LumoGraph& makeGraph() {
  // Held here for ever.
  static LumoDocument& document = *new LumoDocument;
  LumoVisualization& visualization = *document.getVisualization();
  visualization.addStyle()->setId(ChartBase::_container);
  return *visualization.addGraph(u"graph");
}

LumoGraph& graph() {
  static LumoGraph& instance = makeGraph();
  return instance;
}

}  // namespace

LumoAxis& kestrel::axisOutsideTheChart() {
  static LumoAxis& instance = *graph().addCoordinates(u"coordinates")->addDimension()->addAxis();
  return instance;
}

LumoSchema& kestrel::elementOutsideTheChart() {
  static LumoSchema& instance = *graph().addSchema(u"schema");
  return instance;
}
