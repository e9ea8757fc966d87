// The data of a chart: cells on their way into the store, the stream that they leave it in, and large content
// on the channel.

#include "small_chart.h"
#include "xdatavalue.h"
#include "xdocument.h"
#include "xgraph.h"
#include "xrow.h"
#include "xsource.h"
#include "xvariable.h"

#include "host/data_store.h"
#include "kestrelhost/host.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace kestrel::bench {
namespace {

constexpr unsigned int rows = 1'000'000;
constexpr unsigned int columns = 4;
constexpr std::size_t contentSize = std::size_t{256} << 20;
constexpr ChartXMLContentSubType noSubType{0};

void useNullHost() { static host::ScopedHost const scope(nullHost()); }

/// A chart with one source of as many variables as there are columns.
struct Table {
  Table() : source(document.getGraph()->AddSource()) {
    for (unsigned int column = 0; column < columns; ++column) {
      variables.push_back(document.getGraph()->AddAggregatedVariable(*source, false, ChartString()));
    }
  }

  XDocument document;
  std::unique_ptr<XSource> source;
  std::vector<XVariable> variables;
};

void countCells(benchmark::State& state) {
  state.counters["cells"] =
      benchmark::Counter(double{rows} * columns, benchmark::Counter::kIsIterationInvariantRate);
}

/// What a procedure does: a row, then its cells.
void rowsAndCells(benchmark::State& state) {
  useNullHost();
  for (auto _ : state) {
    state.PauseTiming();
    auto table = std::make_unique<Table>();
    state.ResumeTiming();
    for (unsigned int row = 0; row < rows; ++row) {
      XRow& made = *table->source->AddRow();
      for (unsigned int column = 0; column < columns; ++column) {
        made.addDataValue(table->variables[column], static_cast<double>(row + column));
      }
    }
    state.PauseTiming();
    table.reset();
    state.ResumeTiming();
  }
  countCells(state);
}
BENCHMARK(rowsAndCells)->Name("Cells/rows_and_cells")->Unit(benchmark::kMillisecond);

/// The cells alone, into rows that are there.
void cellsOnly(benchmark::State& state) {
  useNullHost();
  for (auto _ : state) {
    state.PauseTiming();
    auto table = std::make_unique<Table>();
    std::vector<XRow*> made;
    for (unsigned int row = 0; row < rows; ++row) made.push_back(table->source->AddRow());
    state.ResumeTiming();
    for (unsigned int row = 0; row < rows; ++row) {
      for (unsigned int column = 0; column < columns; ++column) {
        made[row]->addDataValue(table->variables[column], static_cast<double>(row + column));
      }
    }
    state.PauseTiming();
    table.reset();
    state.ResumeTiming();
  }
  countCells(state);
}
BENCHMARK(cellsOnly)->Name("Cells/cells_only")->Unit(benchmark::kMillisecond);

void dataStream(benchmark::State& state) {
  useNullHost();
  VarDataProcessor store;
  store.AddDataSource("source0", 0);
  for (unsigned int column = 0; column < columns; ++column) {
    std::string const name = "sourceVariable" + std::to_string(column) + "_SN";
    store.AddVariable("source0", name, nullptr);
    for (unsigned int row = 0; row < rows; ++row) {
      store.SetVariableValue("source0", name, row, static_cast<double>(row + column));
    }
  }
  unsigned int size = 0;
  for (auto _ : state) {
    std::unique_ptr<unsigned char[]> const stream(store.GetDataStream(size));
    benchmark::DoNotOptimize(stream.get());
  }
  state.SetBytesProcessed(std::int64_t{size} * state.iterations());
}
BENCHMARK(dataStream)->Name("DataStream/1000000x4")->Unit(benchmark::kMillisecond);

std::string const& content() {
  static std::string const bytes(contentSize, 'k');
  return bytes;
}

void contentSent(benchmark::State& state) {
  useNullHost();
  std::string const& bytes = content();
  XDocument const document;
  for (auto _ : state) {
    if (!document.SendContent(bytes.data(), bytes.size(), CXT_DATA, noSubType))
      state.SkipWithError("not sent");
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes.size()) * state.iterations());
}
BENCHMARK(contentSent)->Name("Content256MiB/SendContent")->Unit(benchmark::kMillisecond);

void contentCopied(benchmark::State& state) {
  std::string const& bytes = content();
  std::string copy(bytes.size(), '\0');
  for (auto _ : state) {
    std::memcpy(copy.data(), bytes.data(), bytes.size());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes.size()) * state.iterations());
}
BENCHMARK(contentCopied)->Name("Content256MiB/memcpy")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestrel::bench

BENCHMARK_MAIN();
