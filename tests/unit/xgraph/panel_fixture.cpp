#include "panel_fixture.h"

#include "every_failure.h"

#include "model/graph.h"
#include "model/labels.h"
#include "model/paneling.h"
#include "model/variables.h"

#include <xercesc/dom/DOMElement.hpp>

namespace kestrel::test {

XVariable addCategory(XGraph& graph, char16_t const* id, char16_t const* label) {
  LumoSourceVariable& variable = *graph.getImplementation()->addSourceVariable(id);
  variable.setCategorical(true);
  if (label != nullptr) variable.setLabel(label);
  return XVariable(variable);
}

void crossPanels(XGraph& graph, XGraph::ROLE role, std::initializer_list<char16_t const*> ids) {
  for (char16_t const* id : ids) {
    XVariable variable = addCategory(graph, id);
    graph.PanelingAddCrossVariable(variable, role);
  }
}

void nestPanels(XGraph& graph, XGraph::ROLE role, std::initializer_list<char16_t const*> ids) {
  for (char16_t const* id : ids) {
    XVariable variable = addCategory(graph, id);
    graph.PanelingAddNestVariable(variable, role);
  }
}

namespace {

std::string childTrees(xercesc::DOMElement const& element);

std::string tree(xercesc::DOMElement const& element) {
  std::string const tag = utf8(element.getTagName());
  if (tag == "variableReference") return attribute(&element, u"ref");
  return tag == "unity" ? tag : tag + "(" + childTrees(element) + ")";
}

std::string childTrees(xercesc::DOMElement const& element) {
  std::string text;
  for (auto* child = element.getFirstElementChild(); child != nullptr;
       child = child->getNextElementSibling()) {
    if (!text.empty()) text += " ";
    text += tree(*child);
  }
  return text;
}

std::string labelText(LumoAxis const& axis) {
  return axis.getLabel() == nullptr ? "(no label)" : utf8(axis.getLabel()->getTexts().at(0)->getText());
}

}  // namespace

std::string panelTree(XGraph const& graph) {
  LumoFaceting const* const faceting = graph.getGraph()->getFaceting();
  return faceting == nullptr ? "(no faceting)" : childTrees(*faceting->getImplementation());
}

std::vector<std::string> facetLevels(XGraph const& graph) {
  LumoFacetLayout const* const layout = graph.getGraph()->getFacetLayout();
  if (layout == nullptr) return {};
  std::vector<std::string> found;
  for (LumoFacetLevel const* level : layout->getFacetLevels()) {
    LumoAxis const& axis = *level->getAxiss().at(0);
    found.push_back(attribute(level, u"id") + ": level " + attribute(level, u"level") + ", gap " +
                    attribute(level, u"gap") + ", " + labelText(axis) + ", angle " +
                    attribute(axis.getMajorTicks(), u"labelAngle"));
  }
  return found;
}

namespace {

FailingOperation onGraph(GraphStep const& prepare, GraphStep const& operation) {
  return {[&prepare](ChartOfOneRun& chart) { prepare(chart.graph); },
          [&operation](ChartOfOneRun& chart) { operation(chart.graph); }};
}

}  // namespace

void expectGuardedAtEveryWrite(host::Recorder& recorder, GraphStep const& prepare, GraphStep const& operation,
                               std::string const& context) {
  FailingOperation const failing = onGraph(prepare, operation);
  expectFailuresToKeepWhatWasWritten(
      recorder, failing, [&](host::Recorder const& journal) { expectGuardReport(journal, context); });
  expectUnwindingToKeepWhatWasWritten(recorder, failing);
}

void expectUnguardedAtEveryWrite(host::Recorder& recorder, GraphStep const& prepare,
                                 GraphStep const& operation) {
  bool passed = false;
  GraphStep const caught = [&](XGraph& graph) {
    passed = false;
    try {
      operation(graph);
    } catch (OrdinaryFailure const&) {
      passed = true;
    }
  };
  expectFailuresToKeepWhatWasWritten(recorder, onGraph(prepare, caught), [&](host::Recorder const& journal) {
    EXPECT_TRUE(passed) << "the failure does not reach the caller";
    expectNoReport(journal);
  });
  expectUnwindingToKeepWhatWasWritten(recorder, onGraph(prepare, operation));
}

}  // namespace kestrel::test
