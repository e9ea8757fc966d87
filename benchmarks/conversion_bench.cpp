// The way of a chart through Java: what it costs to start, and what it costs once it runs.

#include "host/java.h"
#include "kestrelhost/host.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <string>

namespace kestrel::bench {
namespace {

/// A chart in LumoML 1.4 with its rows in it, of about that many bytes.
std::string oldChart(std::size_t bytes) {
  std::string text =
      "<graph version=\"1.4\">\n"
      "  <variables names=\"kind|a|b\" columns=\"KIND|A|B\" kinds=\"string|number|number\"/>\n"
      "  <source name=\"data\" kind=\"embedded\" columns=\"KIND|A|B\">\n";
  for (std::size_t row = 0; text.size() < bytes; ++row) {
    text += row % 3 == 0 ? "first | " : "second | ";
    text += std::to_string(row % 1000) + "." + std::to_string(row % 7) + " | " + std::to_string(row) + "\n";
  }
  return text +
         "  </source>\n"
         "  <layer kind=\"point\" x=\"a\" y=\"b\" colorby=\"kind\"/>\n"
         "</graph>\n";
}

bool upgraded(std::string const& chart) {
  std::string markup;
  try {
    return LumoConverter::GetInstance()->UpgradeXML(chart, markup);
  } catch (JException const*) {
    return false;
  }
}

bool started() {
  VexaJVM* const machine = VexaJVM::GetInstance();
  JNIEnv_* environment = nullptr;
  return machine != nullptr && (machine->IsStarted() || machine->StartJVM()) &&
         machine->AttachCurrentThread(&environment) == 0 && LumoConverter::GetInstance() != nullptr &&
         LumoConverter::GetInstance()->StartConverter(environment);
}

// A process starts its machine once, so these run once and in this order.

void machineStart(benchmark::State& state) {
  for (auto _ : state) {
    if (VexaJVM::GetInstance() == nullptr || !VexaJVM::GetInstance()->StartJVM())
      state.SkipWithError("no Java");
  }
}
BENCHMARK(machineStart)->Name("J1/start_of_the_machine")->Unit(benchmark::kMillisecond)->Iterations(1);

void firstConversion(benchmark::State& state) {
  std::string const chart = oldChart(100'000);
  for (auto _ : state) {
    if (!started() || !upgraded(chart)) state.SkipWithError("not converted");
  }
}
BENCHMARK(firstConversion)
    ->Name("J2/first_conversion_of_100_KB")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

void hundredthConversion(benchmark::State& state) {
  std::string const chart = oldChart(static_cast<std::size_t>(state.range(0)));
  if (!started()) state.SkipWithError("no Java");
  for (int before = 1; before < 100; ++before) upgraded(chart);
  for (auto _ : state) {
    if (!upgraded(chart)) state.SkipWithError("not converted");
  }
}
BENCHMARK(hundredthConversion)
    ->Name("J3/hundredth_conversion")
    ->Unit(benchmark::kMillisecond)
    ->Arg(100'000)
    ->Arg(10'000'000)
    ->Iterations(1);

}  // namespace
}  // namespace kestrel::bench

BENCHMARK_MAIN();
