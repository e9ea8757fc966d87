// Passes over the finished chart that complete its variables.

#include "xgraph.h"

#include "support/chart_parts.h"
#include "support/chart_text.h"
#include "support/guard.h"

#include "host/chartbase.h"
#include "model/document.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/tokens.h"
#include "model/variables.h"

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNodeList.hpp>
#include <xercesc/util/XMLString.hpp>

#include <algorithm>
#include <vector>

using kestrel::guarded;
using kestrel::isEmpty;
using kestrel::objectOf;
using kestrel::objectsOf;
using kestrel::present;
using xercesc::DOMElement;
using xercesc::DOMNode;
using xercesc::DOMNodeList;
using xercesc::XMLString;

// --- Formats of a twin

namespace {

/// Writes a text that is missing and that the other one has.
template <typename Target, typename Source>
void copyMissing(Target& target, Source const& source, char16_t const* (Target::*get)() const,
                 void (Target::*set)(char16_t const*)) {
  if (isEmpty((target.*get)()) && !isEmpty((source.*get)())) (target.*set)((source.*get)());
}

/// Relabels, affixes and labels only; nothing else of a format is copied.
void copyFormat(LumoSourceVariable& variable, LumoSourceVariable const& donor, LumoFormat const& format) {
  LumoFormat& copy = *variable.addFormat();
  for (LumoRelabel const* relabel : format.getRelabels())
    copy.addRelabel(relabel->getFrom(), relabel->getTo());
  copyMissing<CTFormatType>(copy, format, &CTFormatType::getPrefix, &CTFormatType::setPrefix);
  copyMissing<CTFormatType>(copy, format, &CTFormatType::getSuffix, &CTFormatType::setSuffix);
  copyMissing<CTVariableType>(variable, donor, &CTVariableType::getLabel, &CTVariableType::setLabel);
  copyMissing<CTVariableType>(variable, donor, &CTVariableType::getShortLabel,
                              &CTVariableType::setShortLabel);
}

/// From the first variable of the same column name that has a format.
void copyFormatOfATwin(LumoSourceVariable& variable, std::vector<LumoSourceVariable*> const& all) {
  ChartString const name(variable.getSourceName());
  for (LumoSourceVariable const* twin : all) {
    if (!name.equalsi(twin->getSourceName())) continue;
    auto const formats = twin->getFormats();
    if (formats.empty()) continue;
    copyFormat(variable, *twin, *formats.front());
    return;
  }
}

}  // namespace

// --- Percentages

namespace {

bool isPercentage(LumoSummaryStatistic const& statistic) {
  switch (statistic.getMethod()) {
    case LumoSummaryStatistic::MethodPercentage3:
    case LumoSummaryStatistic::MethodPercentage12:
    case LumoSummaryStatistic::MethodPercentage22:
    case LumoSummaryStatistic::MethodPercentage23:
      return true;
    default:
      return false;
  }
}

/// The ticks of the axis that shows the values, in a graph with exactly one set of coordinates.
LumoMajorTicks* valueTicks(LumoGraph const& graph) {
  auto const coordinates = graph.getCoordinatess();
  if (coordinates.size() != 1) return nullptr;
  // With dimensions of other coordinates the first own one shows the values, otherwise the second: relied
  // upon.
  std::size_t const index = coordinates.front()->getDimensionReferences().empty() ? 1 : 0;
  auto const dimensions = coordinates.front()->getDimensions();
  if (dimensions.size() <= index) return nullptr;
  auto const axes = dimensions[index]->getAxiss();
  return axes.empty() ? nullptr : axes.front()->getMajorTicks();
}

void showPercentages(LumoMajorTicks& ticks) {
  auto const formats = ticks.getFormats();
  if (formats.empty()) return;
  LumoFormat const& first = *formats.front();
  if (first.getSuffix() != nullptr || first.isMinimumFractionDigitsPresent()) return;
  ticks.removeFormats();
  LumoFormat& format = *ticks.addFormat();
  format.setSuffix(ChartBase::_percent);
  format.setMinimumFractionDigits(1);
}

DOMElement const* firstOf(DOMElement const& element, char16_t const* tag) {
  return static_cast<DOMElement const*>(element.getElementsByTagName(tag)->item(0));
}

/// The second of the children that stand for dimensions, if it is a dimension itself.
LumoDimension* secondDimension(DOMElement const& coordinates) {
  unsigned int count = 0;
  for (DOMNode const* child = coordinates.getFirstChild(); child != nullptr;
       child = child->getNextSibling()) {
    char16_t const* const tag = child->getNodeName();
    bool const isDimension = XMLString::equals(tag, LumoDimension::getElementName());
    if (!isDimension && !XMLString::equals(tag, LumoDimensionReference::getElementName())) continue;
    if (++count == 2) return isDimension ? objectOf<LumoDimension>(*child, LumoUni::_dimension) : nullptr;
  }
  return nullptr;
}

/// Without a minimum of digits, unlike the format of ticks.
void showPercentages(LumoDimension const& dimension) {
  CTDomainType* const domain = dimension.getDomain();
  if (domain == nullptr) return;
  domain->removeFormats();
  domain->addFormat()->setSuffix(ChartBase::_percent);
}

/// For an element of a graph with several sets of coordinates, or without an axis for the values.
void showPercentagesOf(CTVariableType const& variable, DOMElement const& element, DOMElement const& chart) {
  DOMElement const* coordinate = firstOf(element, LumoUni::_y);
  if (coordinate == nullptr) coordinate = firstOf(element, LumoUni::_x);
  if (coordinate == nullptr) return;
  if (!XMLString::equals(variable.getId(), coordinate->getAttribute(LumoUni::_variable))) return;
  ChartString const coordinatesId(element.getAttribute(LumoUni::_coordinates));
  if (coordinatesId.empty()) return;
  DOMNodeList const& all = *chart.getElementsByTagName(LumoUni::_coordinates);
  // The length is asked for anew at each step.
  for (XMLSize_t at = 0; at < all.getLength(); ++at) {
    auto const& coordinates = static_cast<DOMElement const&>(*all.item(at));
    if (!coordinatesId.equals(coordinates.getAttribute(LumoUni::_id))) continue;
    if (LumoDimension const* const dimension = secondDimension(coordinates)) showPercentages(*dimension);
  }
}

/// @param graph may be null in a chart without percentages
void showPercentages(CTVariableType const& variable, LumoGraph const* graph, LumoVisualization const& chart) {
  for (auto const* statistic : objectsOf<LumoSummaryStatistic>(chart, LumoUni::_summaryStatistic)) {
    if (!isPercentage(*statistic)) continue;
    if (LumoMajorTicks* const ticks = valueTicks(present(graph, "graph"))) {
      showPercentages(*ticks);
    } else {
      auto const& element = static_cast<DOMElement const&>(*statistic->getImplementation()->getParentNode());
      showPercentagesOf(variable, element, *chart.getImplementation());
    }
  }
}

}  // namespace

int XGraph::copyVariableFormats() {
  guarded("Error in XGraph::copyVariableFormats()", [&] {
    auto const variables = mVisualization->getSourceVariables();
    for (LumoSourceVariable* variable : variables) {
      if (variable->getFormats().empty()) copyFormatOfATwin(*variable, variables);
      if (variable->getFormats().empty()) {
        showPercentages(*variable, mGraph, *mVisualization);
      }
    }
  });
  return 0;
}

// --- Category lists

namespace {

bool isRelabelled(CTVariableType const& variable) {
  auto const formats = variable.getFormats();
  return std::any_of(formats.begin(), formats.end(), [](LumoFormat const* format) {
    auto const base = format->getBaseFormat();
    return (base == LumoFormat::BaseFormat1 || base == LumoFormat::BaseFormat3) &&
           !format->getRelabels().empty();
  });
}

bool showsRelabels(LumoCategoricalDomain const& domain) {
  auto const references = domain.getVariableReferences();
  return std::any_of(references.begin(), references.end(), [](LumoVariableReference const* reference) {
    CTVariableType const* const variable = reference->getRef();
    return variable != nullptr && isRelabelled(*variable);
  });
}

}  // namespace

int XGraph::UpdateCategoricalDomains() {
  guarded("Error in XGraph::UpdateCategoricalDomains()", [&] {
    for (LumoCategoricalDomain* domain : mVisualization->getCategoricalDomains()) {
      if (!showsRelabels(*domain)) continue;
      domain->removeCategoriess();
      for (LumoSimpleSort* sort : domain->getSimpleSorts()) sort->removeCategoryOrders();
    }
  });
  return 0;
}

int XGraph::tweakExpressionVars() { return 0; }
