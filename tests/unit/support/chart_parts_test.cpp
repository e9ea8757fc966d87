#include "support/chart_parts.h"

#include "chart_test.h"

#include "model/document.h"

namespace kestrel::test {
namespace {

TEST(Extension, IsMadeWhereTheChartHasNone) {
  LumoDocument document;
  LumoVisualization& visualization = *document.getVisualization();
  LumoExtensionVis& extension = findOrMakeExtension(visualization);
  EXPECT_EQ(visualization.getExtension(), &extension);
}

TEST(Extension, OfTheChartIsUsedWhereItIsThere) {
  LumoDocument document;
  LumoVisualization& visualization = *document.getVisualization();
  LumoExtensionVis* extension = visualization.addExtension();
  EXPECT_EQ(&findOrMakeExtension(visualization), extension);
  EXPECT_EQ(elementsOf(visualization, u"extension").size(), 1u);
}

}  // namespace
}  // namespace kestrel::test
