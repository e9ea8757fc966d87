// Body mass by flipper length, with lines at the mean of each.
#include "data.h"
#include "gallery.h"
#include "xdocument.h"
#include "xgraph.h"

#include <memory>

namespace {

/// The mean of what was measured.
class Mean {
 public:
  void add(double value) {
    if (value == kestrel::gallery::systemMissing) return;
    mSum += value;
    ++mCount;
  }
  double value() const { return mSum / mCount; }

 private:
  double mSum = 0;
  int mCount = 0;
};

}  // namespace

void kestrel::gallery::scatterWithReferenceLine(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable flipper = graph.AddAggregatedVariable(*source, false, u"Flipper length (mm)");
  XVariable mass = graph.AddAggregatedVariable(*source, false, u"Body mass (g)");
  XVariable species = graph.AddAggregatedVariable(*source, true, u"Species");
  Categories kinds;
  Mean meanFlipper;
  Mean meanMass;
  for (Penguin const& penguin : penguins()) {
    XRow& row = *source->AddRow();
    row.addDataValue(flipper, penguin.flipperLength);
    row.addDataValue(mass, penguin.bodyMass);
    row.addDataValue(species, kinds.code(penguin.species));
    meanFlipper.add(penguin.flipperLength);
    meanMass.add(penguin.bodyMass);
  }
  kinds.relabel(species);

  XElement points = graph.AddPointElement();
  points.AddX(flipper);
  points.AddY(mass);
  points.colorByVariable(species, {u"#0072B2", u"#E69F00", u"#009E73"}, true, u"Species");
  graph.AddPrimaryXAxis(u"Flipper length (mm)").addIntervalVariableReference(flipper);
  graph.AddPrimaryYAxis(u"Body mass (g)").addIntervalVariableReference(mass);
  graph.AddXReferenceLine(meanFlipper.value(), u"Mean length");
  graph.AddYReferenceLine(meanMass.value(), u"Mean mass");

  graph.AddTitle1(u"Heavier penguins have longer flippers");
  graph.AddFootnote1(u"The lines stand at the means of all penguins.");
  document.SetDescription(
      u"Points of body mass by flipper length for three species, with the means as lines.");
}
