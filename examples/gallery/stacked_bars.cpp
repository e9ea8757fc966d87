// The number of penguins by species, one sex on the other, in patterns.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <map>
#include <memory>
#include <utility>

void kestrel::gallery::stackedBars(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable species = graph.AddAggregatedVariable(*source, true, u"Species");
  XVariable sex = graph.AddAggregatedVariable(*source, true, u"Sex");
  XVariable number = graph.AddAggregatedVariable(*source, false, u"Number of penguins");
  Categories kinds;
  Categories sexes;
  std::map<std::pair<double, double>, double> counts;
  for (Penguin const& penguin : penguins()) {
    if (!penguin.sex.empty()) ++counts[{kinds.code(penguin.species), sexes.code(penguin.sex)}];
  }
  for (auto const& [place, count] : counts) {
    XRow& row = *source->AddRow();
    row.addDataValue(species, place.first);
    row.addDataValue(sex, place.second);
    row.addDataValue(number, count);
  }
  kinds.relabel(species);
  sexes.relabel(sex);

  XElement bars = graph.AddBarElement(false);
  bars.AddX(species);
  bars.AddY(number);
  bars.Stack(sex, false, true, true, true);
  graph.AddPrimaryXAxis(u"Species").addCategoricalVariableReference(species);
  graph.AddPrimaryYAxis(u"Number of penguins").addIntervalVariableReference(number);

  graph.AddTitle1(u"As many females as males");
  graph.AddFootnote1(u"Penguins whose sex is not known are left out.");
  document.SetDescription(u"Bars of the number of penguins by species, in two parts by sex.");
}
