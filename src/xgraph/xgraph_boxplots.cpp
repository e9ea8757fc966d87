// Box plots, with the styles of their parts and the labels of their outliers.

#include "xgraph.h"

#include "support/chart_text.h"
#include "support/guard.h"
#include "support/outside_chart.h"

#include "host/chartbase.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/style.h"

#include <optional>

using kestrel::guarded;
using kestrel::joined;
using kestrel::numbered;
using kestrel::present;

namespace {

/// The style of one part of a box plot. The ids have no number: each box plot makes its own styles of the
/// same ids.
struct PartStyle {
  char16_t const* id;
  void (LumoSchema::*attach)(LumoStyle const&);
};

constexpr PartStyle partStyles[] = {{u"element_tukeyExtremes_1s", &LumoSchema::setExtremeStyle},
                                    {u"element_tukeyInnerFence_1s", &LumoSchema::setFenceStyle},
                                    {u"element_tukeyHinges_1s", &LumoSchema::setHingeStyle},
                                    {u"element_median_1s", &LumoSchema::setMedianStyle},
                                    {u"element_tukeyOutliers_1s", &LumoSchema::setOutlierStyle}};

void labelOutliers(XGraph& chart, LumoSchema& schema, ChartString const& id, XVariable const& variable) {
  LumoLabeling& labeling = *schema.addLabeling();
  labeling.setConnectingLines(false);
  labeling.setDimension(0);
  labeling.setStyle(*chart.addStyle(joined({id.xc_str(), u"_labelStyle"})));
  LumoStyle& frame = *chart.addStyle(joined({id.xc_str(), u"_textFrameStyle"}));
  labeling.setTextFrameStyle(frame);
  frame.setColor(LumoStyle::_transparent);
  frame.setColor2(LumoStyle::_transparent);
  labeling.setVariable(variable.getImplementation());
}

}  // namespace

XElement XGraph::AddBoxplotElement(XVariable* labelVariable) {
  std::optional<XElement> wrapper;
  guarded("Error in XGraph::AddBoxplotElement()", [&] {
    LumoGraph& graph = present(mGraph, "graph");
    // The number follows a 1: the first box plot is 11, the second 12.
    ChartString const id = numbered(u"elementGroup_boxplot_1", graph.getSchemas().size() + 1);
    LumoSchema& schema = *graph.addSchema(id.xc_str());
    wrapper.emplace(schema);
    schema.setName(id.xc_str());
    schema.setShowCollidingLabels(true);
    schema.setStyle(*addStyle(joined({id.xc_str(), ChartBase::_default_style})));
    for (PartStyle const& part : partStyles) (schema.*part.attach)(*addStyle(part.id));
    schema.addTukeyStatistic();
    if (labelVariable != nullptr) labelOutliers(*this, schema, id, *labelVariable);
  });
  return wrapper ? *wrapper : XElement(kestrel::elementOutsideTheChart());
}
