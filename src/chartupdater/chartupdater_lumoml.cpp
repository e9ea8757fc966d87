// Charts that were upgraded from LumoML 1.4.

#include "chartupdater.h"

#include "chartupdater_data.h"
#include "xdocument.h"

#include "support/chart_text.h"

#include "host/chartbase.h"
#include "model/aesthetics.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/tokens.h"
#include "model/variables.h"

#include <xercesc/util/XMLString.hpp>

#include <vector>

using kestrel::joined;
using xercesc::XMLString;

namespace {

/// What goes over from one aesthetic to the one that takes its place.
struct AestheticRole {
  explicit AestheticRole(CTAesthetic const& aesthetic)
      : id(aesthetic.getId()), variable(aesthetic.getVariable()) {}

  void giveTo(CTAesthetic& aesthetic) const {
    aesthetic.setId(id.xc_str());
    if (variable != nullptr) aesthetic.setVariable(*variable);
  }

  ChartString id;
  CTVariableType const* variable;
};

/// The first style-by over the cycle of patterns becomes a shape.
void showPatternsAsShapes(LumoPoint& point) {
  point.removeLabelCollisionHandling();
  auto const styleBys = point.getStyleBys();
  for (std::size_t at = 0; at < styleBys.size(); ++at) {
    LumoStyleCycle const* const cycle = styleBys[at]->getStyleCycle();
    if (cycle == nullptr || !XMLString::equals(cycle->getId(), ChartBase::_styleCyclePattern)) continue;
    AestheticRole const role(*styleBys[at]);
    point.removeStyleBy(at);
    role.giveTo(*point.addShape());
    return;
  }
}

bool isErrorBar(LumoInterval const& interval) {
  auto const statistics = interval.getSummaryStatistics();
  return !statistics.empty() && statistics.front()->getMethod() == LumoSummaryStatistic::MethodErrorBar &&
         ChartString(interval.getId()).ContainsString(u"errorbar");
}

/// Each style-by of an error bar that stands alone becomes a colour or a dash.
void showStylesAsColorsOrDashes(LumoInterval& interval) {
  std::vector<AestheticRole> roles;
  for (LumoStyleBy const* styleBy : interval.getStyleBys()) roles.emplace_back(*styleBy);
  for (std::size_t at = 0; at < roles.size(); ++at) {
    // By the position before anything was removed, so that every second one stays: relied upon.
    interval.removeStyleBy(at);
    if (XDocument::useColorsOnly()) {
      LumoColor& color = *interval.addColor();
      roles[at].giveTo(color);
      color.setAffect(LumoColor::Affect1);
    } else {
      roles[at].giveTo(*interval.addDash());
    }
  }
}

void updateElements(LumoGraph const& graph) {
  for (LumoPoint* point : graph.getPoints()) showPatternsAsShapes(*point);
  auto const intervals = graph.getIntervals();
  for (LumoInterval* interval : intervals) {
    if (!isErrorBar(*interval)) continue;
    interval->setPositionModifier(CTElementType::PositionModifier1);
    if (intervals.size() < 2) showStylesAsColorsOrDashes(*interval);
  }
  for (LumoSchema* schema : graph.getSchemas()) {
    schema->removeLabelCollisionHandling();
    schema->removeFenceStyle();
  }
}

void containLegends(LumoVisualization& visualization) {
  if (!visualization.getContainers().empty() || visualization.getLegends().empty()) return;
  visualization.reparentLegendChildren(*visualization.addContainer(u"legendContainer"));
}

void referToLogarithm(LumoVisualization const& visualization, LumoSourceVariable const& variable,
                      LumoDerivedVariable const& logarithm) {
  for (LumoIntervalDomain const* domain : visualization.getIntervalDomains()) {
    for (LumoVariableReference* reference : domain->getVariableReferences()) {
      CTVariableType const* const referred = reference->getRef();
      if (referred != nullptr && XMLString::equals(referred->getId(), variable.getId()))
        reference->setRef(logarithm);
    }
  }
  auto const graphs = visualization.getGraphs();
  if (graphs.empty()) return;
  for (LumoLine const* line : graphs.front()->getLines()) {
    CTCoordinate* const y = line->getY();
    if (y != nullptr && y->getVariable() == &variable) y->setVariable(logarithm);
  }
}

/// A source variable that is described as a logarithm gets a variable that computes it, and that takes its
/// place.
void deriveLogarithms(LumoVisualization& visualization) {
  for (LumoSourceVariable const* variable : visualization.getSourceVariables()) {
    if (!XMLString::equals(variable->getDescription(), LumoUni::_log)) continue;
    char16_t const* const id = variable->getId();
    LumoDerivedVariable& logarithm = *visualization.addDerivedVariable(joined({id, LumoUni::_log}).xc_str());
    logarithm.setValue(joined({LumoUni::_log, u"(", id, u")"}).xc_str());
    logarithm.setCategorical(variable->getCategorical());
    logarithm.setCreator(variable->getCreator());
    logarithm.setKey(variable->getKey());
    logarithm.setWeight(variable->getWeight());
    referToLogarithm(visualization, *variable, logarithm);
  }
}

}  // namespace

void ChartUpdater::AddDefaultLUMOMLLooks() {
  constexpr double upgraded = 2.0;
  LumoVisualization& visualization = mData->visualization();
  if (visualization.getVersion() < upgraded) {
    removeAllStyleValues(*mData->mContainerStyle);
    for (LumoStyle* style : mData->mContainerStyle->getStyles()) removeAllStyleValues(*style);
    auto const graphs = visualization.getGraphs();
    if (graphs.size() == 1) updateElements(*graphs.front());
    containLegends(visualization);
    deriveLogarithms(visualization);
  }
  AddDefaultLooks();
}
