#pragma once

#include "xdocument.h"

#include "host/data_store.h"
#include "kestrelhost/data_source.h"
#include "kestrelhost/host.h"

#include <memory>
#include <string>
#include <vector>

namespace kestrel::bench {

/// A host whose channel takes every message and keeps none, with the other services that a plain process has.
host::Host nullHost();

/// The chart that the benchmarks make: points of two variables, coloured by a third one, with titles and axis
/// labels.
class SmallChart {
 public:
  static constexpr unsigned int rows = 1000;

  /// The data of a procedure, ready before the chart is made.
  SmallChart();

  /// Describes the chart; `withData` tells whether the rows are handed over too.
  void build(XDocument& document, bool withData) const;

  /// The text of the chart, without data.
  std::string text() const;

  /// The values of the columns, column by column.
  std::vector<std::vector<double>> const& columns() const { return mColumns; }

 private:
  std::vector<std::vector<double>> mColumns;
  std::unique_ptr<host::MemoryDataSource> mSource;
};

}  // namespace kestrel::bench
