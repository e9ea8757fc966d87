#pragma once

#include "graph_fixture.h"

#include "kestrelhost/data_source.h"
#include "model/variables.h"

#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {

/// A graph with one source, and the data of a procedure.
class VariableGraph : public GraphTest {
 protected:
  XVariable addVariable(bool categorical = false) {
    return graph.AddVariable(mass, *source, data, categorical);
  }

  LumoSourceVariable& onlyVariable() const { return *visualization.getSourceVariables().at(0); }

  /// The columns that were registered, as `source/column`.
  std::vector<std::string> registered() const {
    std::vector<std::string> columns;
    for (auto const& entry : recorder.entries(host::Operation::AddVariable)) {
      columns.push_back(entry.text("source") + "/" + entry.text("column"));
    }
    return columns;
  }

  host::MemoryDataSource data;
  host::MemoryVariable& mass = data.addNumbers("mass", {3750.0, 3800.0});
  std::unique_ptr<XSource> source = addSource();
};

}  // namespace kestrel::test
