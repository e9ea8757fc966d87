// What the services of the embedded host cost: a cell into the data store, the data stream, compression.

#include "host/channel.h"
#include "host/data_store.h"
#include "kestrelhost/compression.h"

#include <benchmark/benchmark.h>
#include <zlib.h>

#include <memory>
#include <string>
#include <vector>

namespace {

std::vector<std::string> columnNames(std::size_t count) {
  std::vector<std::string> names;
  for (std::size_t column = 0; column < count; ++column) {
    names.push_back("sourceVariable" + std::to_string(column) + "_SN");
  }
  return names;
}

void open(VarDataProcessor& store, std::string const& source, std::vector<std::string> const& columns) {
  store.AddDataSource(source, 0);
  for (std::string const& column : columns) store.AddVariable(source, column, nullptr);
}

void fill(VarDataProcessor& store, std::string const& source, std::vector<std::string> const& columns,
          unsigned int rows) {
  for (unsigned int row = 0; row < rows; ++row) {
    for (std::string const& column : columns) store.SetVariableValue(source, column, row, row);
  }
}

/// Row by row through all columns, as a procedure hands its data over. The argument is the number of columns.
void storeCells(benchmark::State& state) {
  constexpr unsigned int rows = 100000;
  std::string const source = "source0";
  std::vector<std::string> const columns = columnNames(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    VarDataProcessor store;
    open(store, source, columns);
    fill(store, source, columns, rows);
    benchmark::DoNotOptimize(store.GetRowCount(source));
  }
  state.SetItemsProcessed(state.iterations() * rows * state.range(0));
}
BENCHMARK(storeCells)->Arg(3)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

/// 1,000,000 rows by 4 columns; with the argument 1 each third cell of a column is missing.
void writeDataStream(benchmark::State& state) {
  constexpr unsigned int rows = 1000000;
  std::string const source = "source0";
  std::vector<std::string> const columns = columnNames(4);
  VarDataProcessor store;
  open(store, source, columns);
  for (unsigned int row = 0; row < rows; ++row) {
    if (state.range(0) == 1 && row % 3 == 1) continue;
    for (std::string const& column : columns) store.SetVariableValue(source, column, row, row);
  }
  unsigned int size = 0;
  for (auto _ : state) {
    std::unique_ptr<unsigned char[]> const bytes(store.GetDataStream(size));
    benchmark::DoNotOptimize(bytes.get());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * size);
}
BENCHMARK(writeDataStream)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

std::string chartLikeText(std::size_t size) {
  std::string text;
  for (unsigned int element = 0; text.size() < size; ++element) {
    text += "<point id=\"element_point_" + std::to_string(element * 7919 % 1000) +
            "\"><x variable=\"sourceVariable" + std::to_string(element % 7) + "\"/></point>";
  }
  text.resize(size);
  return text;
}

/// With the stream that is kept from call to call. The argument is the size of the text.
void compressKept(benchmark::State& state) {
  std::string const text = chartLikeText(static_cast<std::size_t>(state.range(0)));
  std::string out;
  for (auto _ : state) {
    zlib1213vexa::compressString(text, out);
    benchmark::DoNotOptimize(out.data());
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(compressKept)->Arg(1000)->Arg(1000000);

/// The same bytes by the function of zlib that sets a stream up for each text.
void compressAnew(benchmark::State& state) {
  std::string const text = chartLikeText(static_cast<std::size_t>(state.range(0)));
  std::string out;
  for (auto _ : state) {
    uLongf size = compressBound(text.size());
    out.resize(size);
    compress2(reinterpret_cast<Bytef*>(out.data()), &size, reinterpret_cast<Bytef const*>(text.data()),
              text.size(), kestrel::host::ZlibCompression::usualLevel);
    out.resize(size);
    benchmark::DoNotOptimize(out.data());
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(compressAnew)->Arg(1000)->Arg(1000000);

}  // namespace

BENCHMARK_MAIN();
