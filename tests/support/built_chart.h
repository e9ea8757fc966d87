#pragma once

#include "chart_test.h"

#include "model/document.h"
#include "model/graph.h"
#include "model/variables.h"

#include <functional>
#include <string>
#include <vector>

namespace kestrel::test {

/// A chart with a style container and a graph, under a host whose calls are noted. What a test has made of
/// the chart is validated at the end of the test.
class BuiltChartTest : public ChartTest {
 protected:
  BuiltChartTest();
  void TearDown() override;

  LumoSourceVariable& addVariable(char16_t const* id);

  /// Every change of the chart that `operation` makes, in the lines of `ChangeLog`. What it throws leaves
  /// this.
  std::vector<std::string> writesOf(std::function<void()> const& operation);

  /// Makes the n-th change of the chart by `operation` (1 is the first) throw an ordinary exception.
  void failAtChange(unsigned int n, std::function<void()> const& operation);
  /// The same with the host's unwinding signal.
  void unwindAtChange(unsigned int n, std::function<void()> const& operation);

  LumoDocument document;
  LumoVisualization& visualization;
  LumoStyle& container;
  LumoGraph& graph;
};

}  // namespace kestrel::test
