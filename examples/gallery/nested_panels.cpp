// Body masses in classes, a panel for each species within its island.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <memory>

void kestrel::gallery::nestedPanels(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable mass = graph.AddAggregatedVariable(*source, false, u"Body mass (g)");
  XVariable island = graph.AddAggregatedVariable(*source, true, u"Island");
  XVariable species = graph.AddAggregatedVariable(*source, true, u"Species");
  Categories islands;
  Categories kinds;
  for (Penguin const& penguin : penguins()) {
    XRow& row = *source->AddRow();
    row.addDataValue(mass, penguin.bodyMass);
    row.addDataValue(island, islands.code(penguin.island));
    row.addDataValue(species, kinds.code(penguin.species));
  }
  islands.relabel(island);
  kinds.relabel(species);

  XElement histogram = graph.AddHistogramElement();
  histogram.AddX(mass);
  graph.AddPrimaryXAxis(u"Body mass (g)").addIntervalVariableReference(mass);
  graph.AddPrimaryYAxis(u"Number of penguins");
  graph.BeginPaneling();
  graph.PanelingAddNestVariable(island, XGraph::ROLE_COLUMN);
  graph.PanelingAddNestVariable(species, XGraph::ROLE_COLUMN);
  graph.EndPaneling(false, false);

  graph.AddTitle1(u"Body mass of penguins by island");
  document.SetDescription(u"Histograms of body mass for each species within its island.");
}
