// Mean body mass by species, with bars for its uncertainty.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <memory>

void kestrel::gallery::errorBars(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable species = graph.AddAggregatedVariable(*source, true, u"Species");
  XVariable mass = graph.AddAggregatedVariable(*source, false, u"Body mass (g)");
  Categories kinds;
  for (Penguin const& penguin : penguins()) {
    XRow& row = *source->AddRow();
    row.addDataValue(species, kinds.code(penguin.species));
    row.addDataValue(mass, penguin.bodyMass);
  }
  kinds.relabel(species);

  XElement bars = graph.AddErrorBarElement();
  bars.AddX(species);
  bars.AddY(mass);
  bars.SetPrimaryColor(0, 114, 178);
  graph.AddPrimaryXAxis(u"Species").addCategoricalVariableReference(species);
  graph.AddPrimaryYAxis(u"Mean body mass (g)").addIntervalVariableReference(mass);

  graph.AddTitle1(u"Gentoo penguins are the heaviest");
  document.SetDescription(u"Mean body mass by species, with error bars.");
}
