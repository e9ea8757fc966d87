// Reference and function lines: guides that are tied to a value or an expression, not to a variable.

#include "xgraph.h"

#include "support/chart_text.h"
#include "support/guard.h"
#include "support/styles.h"

#include "host/chartbase.h"
#include "model/graph.h"
#include "model/guides.h"
#include "model/style.h"
#include "model/tokens.h"

using kestrel::findOrMakeStyle;
using kestrel::guarded;
using kestrel::isEmpty;
using kestrel::joined;
using kestrel::numbered;
using kestrel::numberText;
using kestrel::present;

namespace {

/// Names a guide that has just been added. Blanks stay in the id, and `count` includes the guide itself, so
/// that the first is 1.
ChartString nameGuide(CTGuideType& guide, char16_t const* token, char16_t const* name, std::size_t count) {
  ChartString id(token);
  if (!isEmpty(name)) {
    id.append(name);
    guide.setName(name);
  }
  id = numbered(id, count);
  guide.setId(id.xc_str());
  return id;
}

struct NamedLine {
  LumoLineGuide& guide;
  ChartString id;
};

NamedLine addLine(LumoGraph& graph, char16_t const* name) {
  LumoLineGuide& guide = *graph.addLineGuide();
  return {guide, nameGuide(guide, LumoUni::_lineGuide, name, graph.getLineGuides().size())};
}

LumoStyle& findOrMakeStyleOf(XGraph& chart, ChartString const& guideId) {
  return findOrMakeStyle(chart, joined({guideId.xc_str(), ChartBase::_default_style}));
}

/// Where a panel variable has one of the values, or (`equal` false) none of them.
ChartString panelCondition(int facet, std::vector<double> const& values, bool equal) {
  ChartString panel(u"facet");
  panel.appendInteger(facet);
  panel.append(equal ? u" == \"" : u" != \"");
  ChartString condition;
  for (double const value : values) {
    if (!condition.empty()) condition.append(equal ? u" || " : u" && ");
    condition.append(panel);
    condition.appendDouble(value);
    condition.append(u'"');
  }
  return condition;
}

}  // namespace

void XGraph::AddReferenceLine(std::string const& x, std::string const& y, char16_t const* name, int facet,
                              std::vector<double> const* values, bool equal) {
  guarded("Error in XGraph::AddReferenceLine()", [&] {
    auto const [guide, id] = addLine(present(mGraph, "graph"), name);
    LumoStyle& shown = findOrMakeStyleOf(*this, id);
    shown.setVisible(true);
    guide.setStyle(shown);
    // One for all reference lines of the chart, also where nothing hides this one.
    LumoStyle& hidden = findOrMakeStyle(*this, u"hidden");
    hidden.setVisible(false);
    if (values != nullptr && !values->empty()) {
      guide.addConditionalStyle(panelCondition(facet, *values, equal).xc_str(), hidden);
    }
    if (!x.empty()) guide.setX(ChartString(x.c_str()).xc_str());
    if (!y.empty()) guide.setY(ChartString(y.c_str()).xc_str());
  });
}

void XGraph::AddXReferenceLine(double value, char16_t const* name) {
  guarded("Error in XGraph::AddXReferenceLine()", [&] {
    auto const [guide, id] = addLine(present(mGraph, "graph"), name);
    guide.setX(numberText(value).xc_str());
    guide.setStyle(findOrMakeStyleOf(*this, id));
  });
}

void XGraph::AddYReferenceLine(double value, char16_t const* name) {
  guarded("Error in XGraph::AddYReferenceLine()", [&] {
    auto const [guide, id] = addLine(present(mGraph, "graph"), name);
    guide.setY(numberText(value).xc_str());
    guide.setStyle(findOrMakeStyleOf(*this, id));
  });
}

void XGraph::AddFunctionLine(std::string const& function, char16_t const* name) {
  guarded("Error in XGraph::AddFunctionLine()", [&] {
    LumoGraph& graph = present(mGraph, "graph");
    LumoFunctionGuide& guide = *graph.addFunctionGuide();
    ChartString const id = nameGuide(guide, LumoUni::_functionGuide, name, graph.getFunctionGuides().size());
    if (!function.empty()) guide.setValue(ChartString(function.c_str()).xc_str());
    guide.setStyle(findOrMakeStyleOf(*this, id));
  });
}
