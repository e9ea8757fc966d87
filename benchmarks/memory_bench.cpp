// The memory of a process that makes one chart after the other. A program of its own, so that nothing else
// has stretched the heap before.

#include "small_chart.h"
#include "xdocument.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <sstream>
#include <string>

namespace kestrel::bench {
namespace {

constexpr int earlyChart = 100;
constexpr int lastChart = 1000;

/// A figure of the process in bytes: VmHWM is the peak, VmRSS what is in use now. 0 where the system does not
/// tell.
double memory(std::string const& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind(name + ":", 0) != 0) continue;
    std::istringstream figure(line.substr(name.size() + 1));
    double kilobytes = 0;
    figure >> kilobytes;
    return kilobytes * 1024;
  }
  return 0;
}

void thousandCharts(benchmark::State& state) {
  host::ScopedHost const scope(nullHost());
  SmallChart const chart;
  double peakEarly = 0;
  double usedEarly = 0;
  for (auto _ : state) {
    for (int number = 1; number <= lastChart; ++number) {
      XDocument document;
      chart.build(document, true);
      if (!document.SendChart(false, false, false)) state.SkipWithError("the chart was not sent");
      if (number != earlyChart) continue;
      peakEarly = memory("VmHWM");
      usedEarly = memory("VmRSS");
    }
  }
  state.counters["peak_at_100"] = peakEarly;
  state.counters["peak_at_1000"] = memory("VmHWM");
  state.counters["peak_growth"] = memory("VmHWM") - peakEarly;
  state.counters["used_growth"] = memory("VmRSS") - usedEarly;
}
// Once: a second run would start on the first one's heap.
BENCHMARK(thousandCharts)->Name("Memory/1000_charts")->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestrel::bench

BENCHMARK_MAIN();
