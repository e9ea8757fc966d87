#include "chart_table.h"

#include "problem.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <fstream>

namespace kestrel::test {

ChartTable::ChartTable(std::string const& text) {
  static std::atomic<int> number{0};
  mPath = testing::TempDir() + "kestrel_table_" + std::to_string(::getpid()) + "_" +
          std::to_string(++number) + ".csv";
  std::ofstream(mPath, std::ios::binary) << text;
}

ChartTable::~ChartTable() { std::remove(mPath.c_str()); }

tool::ChartData dataOf(std::string const& table, tool::ChartRequest request) {
  ChartTable const file(table);
  request.data = file.path();
  return tool::readChartData(request);
}

std::string problemWith(std::string const& table, tool::ChartRequest request) {
  ChartTable const file(table);
  request.data = file.path();
  try {
    tool::readChartData(request);
  } catch (tool::Problem const& problem) {
    EXPECT_EQ(problem.exit(), tool::Exit::BadInput);
    std::string text = problem.what();
    auto const name = text.find(file.path());
    return name == std::string::npos ? text : text.replace(name, file.path().size(), "t.csv");
  }
  return "no problem";
}

}  // namespace kestrel::test
