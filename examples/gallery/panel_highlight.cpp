// Flipper length by body mass in panels by species, with a limit that holds for one of them.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <memory>

void kestrel::gallery::panelHighlight(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable mass = graph.AddAggregatedVariable(*source, false, u"Body mass (g)");
  XVariable flipper = graph.AddAggregatedVariable(*source, false, u"Flipper length (mm)");
  XVariable species = graph.AddAggregatedVariable(*source, true, u"Species");
  Categories kinds;
  for (Penguin const& penguin : penguins()) {
    XRow& row = *source->AddRow();
    row.addDataValue(mass, penguin.bodyMass);
    row.addDataValue(flipper, penguin.flipperLength);
    row.addDataValue(species, kinds.code(penguin.species));
  }
  kinds.relabel(species);
  double const gentoo = kinds.code("Gentoo");

  XElement points = graph.AddPointElement();
  points.AddX(mass);
  points.AddY(flipper);
  XElement line = graph.AddLineElement(u"Gentoo only");
  line.AddX(mass);
  line.AddY(flipper);
  line.hideInAllPanelsExcept(1, gentoo);
  std::vector<double> const panels{gentoo};
  graph.AddReferenceLine("", "217", u"Mean Gentoo", 1, &panels, false);
  graph.AddPrimaryXAxis(u"Body mass (g)").addIntervalVariableReference(mass);
  graph.AddPrimaryYAxis(u"Flipper length (mm)").addIntervalVariableReference(flipper);
  graph.PanelingAddCrossVariable(species, XGraph::ROLE_COLUMN);
  graph.EndPaneling(true, false);

  graph.AddTitle1(u"Flippers of penguins");
  document.SetDescription(u"Points of flipper length by body mass, in panels by species.");
}
