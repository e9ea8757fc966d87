#pragma once

#include "chart/chart_data.h"
#include "chart/chart_request.h"

#include <string>

namespace kestrel::test {

/// A table in a file for the time of a test.
class ChartTable {
 public:
  explicit ChartTable(std::string const& text);
  ~ChartTable();
  ChartTable(ChartTable const&) = delete;
  ChartTable& operator=(ChartTable const&) = delete;

  std::string const& path() const { return mPath; }

 private:
  std::string mPath;
};

/// What a request reads of a table.
tool::ChartData dataOf(std::string const& table, tool::ChartRequest request);

/// The problem that a request has with a table, with the name of the file as "t.csv"; "no problem" without
/// one.
std::string problemWith(std::string const& table, tool::ChartRequest request);

}  // namespace kestrel::test
