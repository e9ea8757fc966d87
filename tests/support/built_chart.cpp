#include "built_chart.h"

#include "change_log.h"
#include "schema_validator.h"

#include "host/chartbase.h"
#include "model/style.h"

#include <gmock/gmock.h>

namespace kestrel::test {

namespace {

LumoStyle& addContainer(LumoVisualization& visualization) {
  LumoStyle& container = *visualization.addStyle();
  container.setId(ChartBase::_container);
  return container;
}

}  // namespace

BuiltChartTest::BuiltChartTest()
    : visualization(*document.getVisualization()),
      container(addContainer(visualization)),
      graph(*visualization.addGraph(u"graph")) {}

void BuiltChartTest::TearDown() {
  EXPECT_THAT(schemaErrors(document.AsUTF8()), ::testing::IsEmpty()) << document.AsUTF8();
}

LumoSourceVariable& BuiltChartTest::addVariable(char16_t const* id) {
  return *visualization.addSourceVariable(id);
}

std::vector<std::string> BuiltChartTest::writesOf(std::function<void()> const& operation) {
  ChangeLog log(document);
  operation();
  return log.lines();
}

void BuiltChartTest::failAtChange(unsigned int n, std::function<void()> const& operation) {
  ChangeTrap const trap(document, n, throwOrdinaryFailure());
  operation();
}

void BuiltChartTest::unwindAtChange(unsigned int n, std::function<void()> const& operation) {
  ChangeTrap const trap(document, n, throwGoToCaller());
  operation();
}

}  // namespace kestrel::test
