// A small chart on its whole road, and a large chart text, beside the DOM library alone and beside JSON.

#include "chart_tree.h"
#include "small_chart.h"
#include "xdocument.h"

#include "host/channel.h"
#include "kestrelhost/host.h"
#include "model/document.h"

#include <benchmark/benchmark.h>

#include <string>

namespace kestrel::bench {
namespace {

constexpr std::size_t largeTextSize = 10'000'000;

/// The messages go nowhere, for as long as the program runs.
void useNullHost() { static host::ScopedHost const scope(nullHost()); }

SmallChart const& smallChart() {
  useNullHost();
  static SmallChart const chart;
  return chart;
}

ChartTree const& smallTree() {
  static ChartTree const tree(smallChart().text());
  return tree;
}

void countChart(benchmark::State& state, std::size_t textSize) {
  state.counters["elements"] = static_cast<double>(smallTree().elements());
  state.counters["text_bytes"] = static_cast<double>(textSize);
  state.counters["charts"] = benchmark::Counter(1, benchmark::Counter::kIsIterationInvariantRate);
}

/// 1,000 rows of 3 variables: described, written, compressed, and sent with its data, without completion.
void smallChartSent(benchmark::State& state) {
  SmallChart const& chart = smallChart();
  for (auto _ : state) {
    XDocument document;
    chart.build(document, true);
    if (!document.SendChart(false, true, false)) state.SkipWithError("the chart was not sent");
  }
  countChart(state, chart.text().size());
}
BENCHMARK(smallChartSent)
    ->Name("SmallChart/kestrel/built_written_compressed_sent")
    ->Unit(benchmark::kMicrosecond);

/// The same without data, compression and channel: what the DOM library is compared with.
void smallChartWritten(benchmark::State& state) {
  SmallChart const& chart = smallChart();
  std::size_t size = 0;
  for (auto _ : state) {
    XDocument document;
    chart.build(document, false);
    size = document.AsUTF8().size();
  }
  countChart(state, size);
}
BENCHMARK(smallChartWritten)->Name("SmallChart/kestrel/built_written")->Unit(benchmark::kMicrosecond);

void smallChartRows(benchmark::State& state) {
  SmallChart const& chart = smallChart();
  for (auto _ : state) {
    XDocument document;
    chart.build(document, true);
  }
  countChart(state, chart.text().size());
}
BENCHMARK(smallChartRows)->Name("SmallChart/kestrel/built_with_rows")->Unit(benchmark::kMicrosecond);

void smallChartWithXerces(benchmark::State& state) {
  ChartTree const& tree = smallTree();
  std::size_t size = 0;
  for (auto _ : state) size = tree.writeWithXerces().size();
  countChart(state, size);
}
BENCHMARK(smallChartWithXerces)->Name("SmallChart/bare_xerces/built_written")->Unit(benchmark::kMicrosecond);

void smallChartWithXercesCompressed(benchmark::State& state) {
  ChartTree const& tree = smallTree();
  std::string compressed;
  for (auto _ : state) {
    zlib1213vexa::compressString(tree.writeWithXerces(), compressed);
    benchmark::DoNotOptimize(compressed.data());
  }
  countChart(state, compressed.size());
}
BENCHMARK(smallChartWithXercesCompressed)
    ->Name("SmallChart/bare_xerces/built_written_compressed")
    ->Unit(benchmark::kMicrosecond);

void smallChartAsJson(benchmark::State& state) {
  ChartTree const& tree = smallTree();
  std::size_t size = 0;
  for (auto _ : state) size = tree.asJson().dump().size();
  countChart(state, size);
}
BENCHMARK(smallChartAsJson)->Name("SmallChart/json/built_written")->Unit(benchmark::kMicrosecond);

/// With the rows in it, as JSON is usually sent.
void smallChartAsJsonWithData(benchmark::State& state) {
  ChartTree const& tree = smallTree();
  SmallChart const& chart = smallChart();
  std::string compressed;
  for (auto _ : state) {
    nlohmann::json json = tree.asJson();
    json["data"] = chart.columns();
    zlib1213vexa::compressString(json.dump(), compressed);
    benchmark::DoNotOptimize(compressed.data());
  }
  countChart(state, compressed.size());
}
BENCHMARK(smallChartAsJsonWithData)
    ->Name("SmallChart/json/built_with_rows_written_compressed")
    ->Unit(benchmark::kMicrosecond);

/// A chart text of at least that size: lines with their coordinates, labels and styles.
std::string largeText(std::size_t size) {
  std::string text =
      R"(<?xml version="1.0" encoding="UTF-8"?>)"
      R"(<visualization xmlns="http://xml.vexa.example/visualization" id="frame_graph_1" version="2.8">)"
      R"(<userSource id="source0"/><sourceVariable id="sourceVariable0" source="source0" )"
      R"(sourceName="sourceVariable0_SN" label="Größe &amp; Gewicht"/><graph id="frame_data_1">)";
  std::string styles = R"(</graph><style id="container">)";
  for (std::size_t number = 1; text.size() + styles.size() < size; ++number) {
    std::string const id = "element_simpleline_" + std::to_string(number);
    text += "<line id=\"" + id + "\" labelCollisionHandling=\"2\" name=\"line &lt;" + std::to_string(number) +
            "&gt;\" style=\"" + id +
            "s\"><x variable=\"sourceVariable0\"/><y variable=\"sourceVariable0\"/></line>";
    styles +=
        "<style id=\"" + id + "s\" color=\"#1f77b4\" stroke_width=\"1.5pt\" stroke_dasharray=\"8pt,8pt\"/>";
  }
  return text + styles + "</style></visualization>";
}

std::string const& largeText() {
  useNullHost();
  static std::string const text = largeText(largeTextSize);
  return text;
}

void countBytes(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
}

void largeTextParsed(benchmark::State& state) {
  std::string const& text = largeText();
  for (auto _ : state) {
    XDocument const document(text);
    if (!document.implementationExists()) state.SkipWithError("the chart text does not parse");
  }
  countBytes(state, text.size());
}
BENCHMARK(largeTextParsed)->Name("LargeText/kestrel/parsed")->Unit(benchmark::kMillisecond);

void largeTextParsedWithXerces(benchmark::State& state) {
  std::string const& text = largeText();
  for (auto _ : state) {
    auto const parser = plainParser();
    benchmark::DoNotOptimize(&parsePlainly(*parser, text));
  }
  countBytes(state, text.size());
}
BENCHMARK(largeTextParsedWithXerces)->Name("LargeText/bare_xerces/parsed")->Unit(benchmark::kMillisecond);

void largeTextWritten(benchmark::State& state) {
  XDocument const document(largeText());
  std::size_t size = 0;
  for (auto _ : state) size = document.AsUTF8().size();
  countBytes(state, size);
}
BENCHMARK(largeTextWritten)->Name("LargeText/kestrel/written")->Unit(benchmark::kMillisecond);

void largeTextWrittenWithXerces(benchmark::State& state) {
  auto const parser = plainParser();
  xercesc::DOMDocument const& document = parsePlainly(*parser, largeText());
  std::size_t size = 0;
  for (auto _ : state) size = serialise(document).size();
  countBytes(state, size);
}
BENCHMARK(largeTextWrittenWithXerces)->Name("LargeText/bare_xerces/written")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestrel::bench

BENCHMARK_MAIN();
