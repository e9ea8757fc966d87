#include "graph_fixture.h"

#include "schema_validator.h"

#include "host/chartbase.h"
#include "model/style.h"

namespace kestrel::test {

void EmptyChartTest::TearDown() {
  auto const errors = schemaErrors(document.AsUTF8());
  EXPECT_TRUE(errors.empty()) << "the chart is not valid: " << (errors.empty() ? "" : errors.front()) << "\n"
                              << document.AsUTF8();
}

std::vector<std::string> styleIds(LumoVisualization const& visualization) {
  LumoStyle const* const container = visualization.getStyleById(ChartBase::_container);
  return container == nullptr ? std::vector<std::string>() : ids(container->getStyles());
}

}  // namespace kestrel::test
