// A program against an installed kestrel: one small chart, sent to a channel in memory.
#include "xdocument.h"
#include "xgraph.h"

#include "kestrelhost/host.h"

#include <cstddef>
#include <cstdio>
#include <memory>

int main() {
  auto channel = std::make_shared<kestrel::host::MemoryChannel>();
  kestrel::host::Host host;
  host.channel = channel;
  kestrel::host::ScopedHost const scope(host);

  XDocument document;
  XGraph& graph = *document.getGraph();
  XSource& source = *graph.AddSource();
  XVariable day = graph.AddAggregatedVariable(source, false, ChartString(u"Day"));
  XVariable rain = graph.AddAggregatedVariable(source, false, ChartString(u"Rain (mm)"));
  for (int i = 0; i < 7; ++i) {
    XRow& row = *source.AddRow();
    row.addDataValue(day, static_cast<double>(i + 1));
    row.addDataValue(rain, 0.5 * i);
  }
  XElement points = graph.AddPointElement();
  points.AddX(day);
  points.AddY(rain);
  if (!document.SendChart(false, false, true)) return 1;

  std::size_t bytes = 0;
  for (auto const& message : channel->messages()) bytes += message.bytes.size();
  std::printf("%zu bytes in %zu messages\n", bytes, channel->messages().size());
  return 0;
}
