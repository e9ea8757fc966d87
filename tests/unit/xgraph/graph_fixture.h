#pragma once

#include "chart_test.h"
#include "xgraph.h"

#include "host/data_store.h"
#include "model/document.h"

#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {

/// A chart without anything in it. At the end of each test the chart is held against its schema.
class EmptyChartTest : public ChartTest {
 protected:
  void TearDown() override;

  LumoDocument document;
  LumoVisualization& visualization = *document.getVisualization();
};

/// A chart with a graph and a data store.
class GraphTest : public EmptyChartTest {
 protected:
  std::unique_ptr<XSource> addSource() { return std::unique_ptr<XSource>(graph.AddSource()); }

  std::unique_ptr<VarDataProcessor> store = std::make_unique<VarDataProcessor>();
  XGraph graph{visualization, store.get()};
};

/// The ids of the styles in the chart's style container, in order.
std::vector<std::string> styleIds(LumoVisualization const& visualization);

/// Names a case of a table after its row.
template <typename Row>
std::string caseName(testing::TestParamInfo<Row> const& tested) {
  return tested.param.name;
}

/// The ids of a list of model objects.
template <typename T>
std::vector<std::string> ids(std::vector<T*> const& elements) {
  std::vector<std::string> result;
  result.reserve(elements.size());
  for (T const* element : elements) result.push_back(utf8(element->getId()));
  return result;
}

}  // namespace kestrel::test
