#pragma once

#include "xgraph.h"

#include <string>
#include <vector>

namespace kestrel::test {

/// Notes which styles are asked for by the virtual call.
class AskingGraph : public XGraph {
 public:
  using XGraph::XGraph;

  LumoStyle* AddStyle(ChartString const& id, bool unique) override {
    asked.push_back(id.toUTF8() + (unique ? " unique" : ""));
    return XGraph::AddStyle(id, unique);
  }

  std::vector<std::string> asked;
};

}  // namespace kestrel::test
