#pragma once

#include "change_log.h"
#include "graph_fixture.h"

#include "model/variables.h"

#include <string>
#include <vector>

namespace kestrel::test {

/// What copying formats does to the chart, in order.
inline std::vector<std::string> writesOfCopying(LumoDocument& document, XGraph& graph) {
  ChangeLog log(document);
  EXPECT_EQ(graph.copyVariableFormats(), 0);
  return log.lines();
}

/// A graph of a chart with the variable "bare" over the column "mass", which has no format.
class FormatlessVariable : public GraphTest {
 protected:
  static constexpr char const* context = "Error in XGraph::copyVariableFormats()";

  LumoSourceVariable& addVariable(char16_t const* id, char16_t const* column) {
    LumoSourceVariable& variable = *visualization.addSourceVariable(id);
    variable.setSourceName(column);
    return variable;
  }

  LumoSourceVariable& addDonor(char16_t const* id, char16_t const* column = u"mass") {
    LumoSourceVariable& donor = addVariable(id, column);
    donor.addFormat();
    return donor;
  }

  std::vector<std::string> writes() { return writesOfCopying(document, graph); }

  LumoSourceVariable& bare = addVariable(u"bare", u"mass");
};

}  // namespace kestrel::test
