// The number of penguins by island, species side by side.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <map>
#include <memory>
#include <utility>

void kestrel::gallery::clusteredBars(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable island = graph.AddAggregatedVariable(*source, true, u"Island");
  XVariable species = graph.AddAggregatedVariable(*source, true, u"Species");
  XVariable number = graph.AddAggregatedVariable(*source, false, u"Number of penguins");
  Categories islands;
  Categories kinds;
  std::map<std::pair<double, double>, double> counts;
  for (Penguin const& penguin : penguins())
    ++counts[{islands.code(penguin.island), kinds.code(penguin.species)}];
  for (auto const& [place, count] : counts) {
    XRow& row = *source->AddRow();
    row.addDataValue(island, place.first);
    row.addDataValue(species, place.second);
    row.addDataValue(number, count);
  }
  islands.relabel(island);
  kinds.relabel(species);

  XElement bars = graph.AddBarElement(true);
  bars.AddX(island);
  bars.AddY(number);
  bars.Cluster(species, true, false, true, true);
  XAxis x = graph.AddPrimaryXAxis(u"Island");
  x.addCategoricalVariableReference(island);
  x.Cluster(species);
  graph.AddPrimaryYAxis(u"Number of penguins").addIntervalVariableReference(number);

  graph.AddTitle1(u"Only Adelie penguins live on all three islands");
  document.SetDescription(u"Bars of the number of penguins by island, a bar for each species.");
}
