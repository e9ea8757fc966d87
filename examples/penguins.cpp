// Describes a chart, sends it into a capture file in the current folder, and tells what it wrote.
#include "xdocument.h"
#include "xgraph.h"

#include "kestrelhost/host.h"

#include <cstdio>
#include <memory>

int main() {
  // Without this the process writes ./capture.kcap.
  kestrel::host::Host host;
  auto capture = std::make_shared<kestrel::host::CaptureChannel>("penguins.kcap");
  host.channel = capture;
  kestrel::host::ScopedHost const scope(host);

  XDocument document;
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable flipper = graph.AddAggregatedVariable(*source, false, u"Flipper length (mm)");
  XVariable mass = graph.AddAggregatedVariable(*source, false, u"Body mass (g)");
  double const rows[][2] = {{181, 3750}, {186, 3800}, {195, 3250}, {210, 4400}, {215, 5200}, {222, 5550}};
  for (auto const& [length, weight] : rows) {
    XRow& row = *source->AddRow();
    row.addDataValue(flipper, length);
    row.addDataValue(mass, weight);
  }
  graph.AddPrimaryXAxis(u"Flipper length (mm)").addIntervalVariableReference(flipper);
  graph.AddPrimaryYAxis(u"Body mass (g)").addIntervalVariableReference(mass);
  XElement points = graph.AddPointElement();
  points.AddX(flipper);
  points.AddY(mass);
  graph.AddTitle1(u"Heavier penguins have longer flippers");
  document.SetDescription(u"Six penguins: body mass by flipper length.");

  bool const sent = document.SendChart(false, false, false) && capture->flush();
  std::printf("%s\n%s\n", document.AsUTF8().c_str(),
              sent ? "penguins.kcap is what a client gets" : "not sent");
  return sent ? 0 : 1;
}
