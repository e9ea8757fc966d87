#include "small_chart.h"

#include "xaxis.h"
#include "xelement.h"
#include "xgraph.h"
#include "xrow.h"
#include "xsource.h"
#include "xvariable.h"

#include "model/chartstring.h"

#include <cmath>

namespace kestrel::bench {

host::Host nullHost() {
  host::Host host;
  host.channel = std::make_shared<host::NullChannel>();
  return host;
}

SmallChart::SmallChart() : mColumns(3), mSource(std::make_unique<host::MemoryDataSource>()) {
  for (unsigned int row = 0; row < rows; ++row) {
    mColumns[0].push_back(180.0 + 10 * std::sin(row));
    mColumns[1].push_back(4000.0 + 500 * std::cos(0.7 * row));
    mColumns[2].push_back(1 + row % 3);
  }
  mSource->addNumbers("flipper_length", mColumns[0]).setLabel("Flipper length (mm)");
  mSource->addNumbers("body_mass", mColumns[1]).setLabel("Body mass (g)");
  mSource->addNumbers("species", mColumns[2]).setLabel("Species");
}

void SmallChart::build(XDocument& document, bool withData) const {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  std::vector<XVariable> variables;
  for (unsigned int index = 0; index < mColumns.size(); ++index) {
    variables.push_back(graph.AddVariable(mSource->variable(index), *source, *mSource, index == 2));
  }
  if (withData) {
    for (unsigned int row = 0; row < rows; ++row) {
      XRow& made = *source->AddRow();
      for (std::size_t index = 0; index < variables.size(); ++index) {
        made.addDataValue(variables[index], mColumns[index][row]);
      }
    }
  }
  XAxis x = graph.AddPrimaryXAxis(ChartString(u"Flipper length (mm)"));
  x.setInterval(170, 230, false);
  x.setDelta(10);
  XAxis y = graph.AddPrimaryYAxis(ChartString(u"Body mass (g)"));
  y.setScale(XAxis::ScaleMethod0, false, 10);
  XElement points = graph.AddPointElement();
  points.AddX(variables[0]);
  points.AddY(variables[1]);
  points.Cluster(variables[2], true, false, true, true);
  points.SetWidth(XElement::WidthPoints, 6, 0, 0);
  graph.AddTitle1(u"Flipper length and body mass of penguins");
  graph.AddSubTitle(u"By species");
  graph.AddFootnote1(u"Measured at three islands");
  document.SetDescription(u"Points of flipper length and body mass by species");
}

std::string SmallChart::text() const {
  XDocument document;
  build(document, false);
  return document.AsUTF8();
}

}  // namespace kestrel::bench
