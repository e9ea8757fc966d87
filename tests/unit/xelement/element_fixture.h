#pragma once

#include "built_chart.h"
#include "xelement.h"
#include "xvariable.h"

#include "model/elements.h"
#include "model/variables.h"

namespace kestrel::test {

/// An element "points" of a chart with the variables "age" and "sex".
class ElementTest : public BuiltChartTest {
 protected:
  LumoPoint& model = *graph.addPoint(u"points");
  XElement element{model};
  LumoSourceVariable& ageModel = addVariable(u"age");
  LumoSourceVariable& sexModel = addVariable(u"sex");
  XVariable age{ageModel};
  XVariable sex{sexModel};
};

}  // namespace kestrel::test
