#pragma once

#include "built_chart.h"
#include "xaxis.h"
#include "xvariable.h"

#include "model/graph.h"
#include "model/style.h"
#include "model/variables.h"

#include <string>
#include <vector>

namespace kestrel::test {

/// The axis of the first dimension of a chart with the variable "age".
class AxisTest : public BuiltChartTest {
 protected:
  /// Takes the ticks out of the tree, as no operation of the builders does.
  static void removeTicks(LumoAxis& axis) {
    xercesc::DOMElement* const ticks = axis.getMajorTicks()->getImplementation();
    ticks->getParentNode()->removeChild(ticks);
  }

  /// The names by which a style container's styles are told, in order.
  std::vector<std::string> styleIds() const { return idsOf(container, u"style"); }

  LumoCoordinates& coordinates = *graph.addCoordinates(u"coordinates");
  LumoDimension& dimension = *coordinates.addDimension();
  LumoAxis& model = *dimension.addAxis();
  XAxis axis{dimension, model};
  LumoMajorTicks* const ticks = model.getMajorTicks();
  LumoSourceVariable& ageModel = addVariable(u"age");
  XVariable age{ageModel};
};

}  // namespace kestrel::test
