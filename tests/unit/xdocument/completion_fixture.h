#pragma once

#include "chart_test.h"
#include "template_fixture.h"

#include "model/aesthetics.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/style.h"
#include "model/variables.h"

#include <string>
#include <vector>

namespace kestrel::test {

inline constexpr auto show = XDocument::TemplParamShow;
inline constexpr auto hide = XDocument::TemplParamHide;

inline XDocument::ColorSpec const red{7, 255, 0, 0};
inline XDocument::ColorSpec const blue{8, 16, 32, 255};

inline constexpr char outerShown[] =
    R"(<addFrame count="1" styleOnly="true" type="visualization"><style color2="#000000"/></addFrame>)";
inline constexpr char outerHidden[] =
    R"(<addFrame count="1" styleOnly="true" type="visualization"><style color2="transparent"/></addFrame>)";
inline constexpr char innerShown[] = R"(<addFrame styleOnly="true" type="graph">)"
                                     R"(<style number="1" color2="#000000" visible="true"/></addFrame>)";
inline constexpr char innerHidden[] = R"(<addFrame styleOnly="true" type="graph">)"
                                      R"(<style number="1" color2="transparent" visible="true"/></addFrame>)";

/// A chart of one graph with an X and a Y axis, to be completed.
class CompletionTest : public TemplateTest {
 protected:
  CompletionTest();

  void complete() { document.CompleteChart(false); }

  /// The immediate templates that were applied, without their root element.
  std::vector<std::string> fragments() const;

  /// A cycle of as many styles as there are sizes, each of its size, and its element.
  LumoStyleCycle& addCycle(char16_t const* id, std::vector<char16_t const*> const& sizes);

  /// The sizes of the styles in the cycles, in document order.
  std::vector<std::string> sizesIn(LumoStyleCycle const& cycle) const;

  /// Ties the cycle to a shape of the point element.
  LumoShape& addShape(LumoStyleCycle const& cycle);

  /// Clusters the X dimension by a variable of that id.
  LumoSourceVariable& addCluster(char16_t const* id);

  /// A variable of that column, with formats of these suffixes.
  LumoSourceVariable& addOriginal(char16_t const* column, std::vector<char16_t const*> const& suffixes);

  static std::vector<std::string> suffixes(CTVariableType const& variable);

  LumoGraph& graph{*visualization.addGraph(u"graph")};
  LumoCoordinates& coordinates{*graph.addCoordinates(u"coordinates")};
  LumoDimension& x{*coordinates.addDimension()};
  LumoDimension& y{*coordinates.addDimension()};
  LumoMajorTicks& xTicks{*x.addAxis()->addMajorTicks()};
  LumoMajorTicks& yTicks{*y.addAxis()->addMajorTicks()};
  LumoPoint& point{*graph.addPoint(u"point")};
};

}  // namespace kestrel::test
