#include "source_rules.h"

#include "arrow_stream.h"
#include "chart_sources.h"
#include "content_rules.h"
#include "content_types.h"
#include "problem.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace kestrel::tool {

namespace {

std::optional<ChartSources> sourcesOf(Send const& send) {
  Content const* const content = send.find(ChartText);
  if (content == nullptr || content->isCut) return std::nullopt;
  auto const text = decompressed(*content, decompressionLimit(send, *content));
  return text ? readChartSources(*text) : std::nullopt;
}

/// The columns that were sent, and the streams.
class SentColumns {
 public:
  explicit SentColumns(std::vector<ArrowTable> const& tables) {
    for (ArrowTable const& table : tables) {
      mSources.insert(table.source);
      for (ArrowColumn const& column : table.columns) mColumns.emplace(table.source, column.name);
    }
  }

  bool hasSource(std::string const& source) const { return mSources.count(source) != 0; }
  bool hasColumn(ChartColumn const& column) const {
    return mColumns.count({column.source, column.name}) != 0;
  }

 private:
  std::set<std::string> mSources;
  std::set<std::pair<std::string, std::string>> mColumns;
};

}  // namespace

void checkSources(Send const& send, std::vector<Fault>& faults) {
  Content const* const data = send.find(Data);
  if (data == nullptr || data->isCut) return;
  ArrowStreams const streams = readArrowStreams(data->bytes());
  auto const sources = sourcesOf(send);
  if (streams.fault || !sources) return;
  SentColumns const sent(streams.tables);
  auto const report = [&](std::string text) {
    faults.push_back({data->first().captured.offset, data->first().captured.number, std::move(text)});
  };
  for (std::string const& source : sources->sent) {
    if (!sent.hasSource(source))
      report("data has no stream for " + inQuotes(source) + ", a user source of the chart");
  }
  for (ChartColumn const& column : sources->columns) {
    if (sources->others.count(column.source) != 0 || sent.hasColumn(column)) continue;
    report("data has no column " + inQuotes(column.name) + " of " + inQuotes(column.source) +
           ", which a variable of the chart names");
  }
}

}  // namespace kestrel::tool
