// Writes the data stream that a client gets of each chart of the gallery, and beside it, as JSON, the cells
// that the chart's description wrote: `gallery_streams FOLDER`.

#include "gallery.h"

#include "stream_sample.h"
#include "wire_decoder.h"
#include "xdocument.h"

#include "kestrelhost/recorder.h"

#include <algorithm>
#include <iostream>

using namespace kestrel::test;
using kestrel::host::Entry;
using kestrel::host::Operation;

namespace {

template <typename Named>
Named& named(std::vector<Named>& all, std::string const& name) {
  auto const found = std::find_if(all.begin(), all.end(), [&](Named const& one) { return one.name == name; });
  if (found != all.end()) return *found;
  all.push_back({name, {}});
  return all.back();
}

/// What the store was asked to keep.
std::vector<Source> written(kestrel::host::Recorder const& recorder) {
  std::vector<Source> sources;
  for (Entry const& entry : recorder.entries()) {
    if (entry.operation == Operation::AddDataSource) named(sources, entry.text("source"));
    if (entry.operation == Operation::AddVariable) {
      named(named(sources, entry.text("source")).columns, entry.text("column"));
    }
    if (entry.operation != Operation::SetVariableValue) continue;
    auto& cells = named(named(sources, entry.text("source")).columns, entry.text("column")).cells;
    auto const row = static_cast<std::size_t>(entry.number("row"));
    if (cells.size() <= row) cells.resize(row + 1, missingCell);
    cells[row] = entry.real("value");
  }
  for (Source& source : sources) {
    std::size_t rows = 0;
    for (Column const& column : source.columns) rows = std::max(rows, column.cells.size());
    for (Column& column : source.columns) column.cells.resize(rows, missingCell);
  }
  return sources;
}

bool writeChart(std::filesystem::path const& folder, kestrel::gallery::Example const& example) {
  constexpr std::uint32_t data = 8;
  kestrel::host::Recorder recorder;
  kestrel::host::ScopedHost const scope(recorder.host());
  XDocument document;
  example.describe(document);
  Sample const sample{example.name, written(recorder)};
  if (!document.SendChart(false, false, false)) {
    std::cerr << example.name << ": not sent\n";
    return false;
  }
  return writeSample(folder, sample, onlyContent(decodeContents(recorder.sent()), data).bytes);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: gallery_streams FOLDER\n";
    return 2;
  }
  std::filesystem::path const folder = arguments[1];
  std::filesystem::create_directories(folder);
  auto const& examples = kestrel::gallery::examples();
  bool const all =
      std::all_of(examples.begin(), examples.end(),
                  [&](kestrel::gallery::Example const& example) { return writeChart(folder, example); });
  return all ? 0 : 1;
}
