// Variables of the chart, and the lookup of one by its name.

#include "xgraph.h"

#include "support/chart_text.h"
#include "support/guard.h"

#include "host/data_store.h"
#include "model/document.h"
#include "model/tokens.h"
#include "model/variables.h"

#include <string>
#include <utility>

using kestrel::numbered;
using kestrel::present;
using kestrel::reportAndThrow;
using kestrel::throwFailure;

namespace {

/// A new source variable; its number is the count before, so that the first is 0.
LumoSourceVariable& addSourceVariable(LumoVisualization& visualization, bool categorical) {
  ChartString const id = numbered(LumoUni::_sourceVariable, visualization.getSourceVariables().size());
  LumoSourceVariable* variable = visualization.addSourceVariable(id.xc_str());
  variable->setCategorical(categorical);
  return *variable;
}

std::string idOf(XSource const& source) {
  return ChartString(present(source.getImplemenation(), "user source").getId()).toUTF8();
}

enum class Match { First, Last };

/// The user source of that id, ignoring case. Which of several is taken differs by caller, and is relied
/// upon.
/// @param given the id as the caller has it, for the message
LumoUserSource& findSource(LumoVisualization const& visualization, ChartString const& id, Match match,
                           std::string const& given) {
  LumoUserSource* found = nullptr;
  for (LumoUserSource* source : visualization.getUserSources()) {
    if (!id.equalsi(source->getId())) continue;
    found = source;
    if (match == Match::First) break;
  }
  if (found == nullptr) reportAndThrow("could not find source " + given);
  return *found;
}

ChartString fromUTF8(std::string const& text) {
  ChartString result;
  result.assignUTF8(text);
  return result;
}

/// A variable over a column of a source that exists.
LumoSourceVariable& addColumnVariable(LumoVisualization& visualization, LumoUserSource const& source,
                                      bool categorical, char16_t const* column) {
  LumoSourceVariable& variable = addSourceVariable(visualization, categorical);
  variable.setSource(source);
  variable.setSourceName(column);
  return variable;
}

}  // namespace

void XGraph::registerColumn(std::string const& sourceKey, XVariable const& variable) {
  if (mProcessor != nullptr) mProcessor->AddVariable(sourceKey, variable.getSourceName(), nullptr);
}

void XGraph::registerColumn(XSource const& source, XVariable const& variable) {
  if (mProcessor != nullptr) registerColumn(idOf(source), variable);
}

XVariable XGraph::AddVariable(Vexa_Variable& variable, XSource& source, ProcedureDataSource const& data,
                              bool categorical) {
  XVariable wrapper(addSourceVariable(*mVisualization, categorical), variable, source, &data);
  wrapper.setCreator(XVariable::CreatorExternalDatasource);
  registerColumn(source, wrapper);
  return wrapper;
}

XVariable XGraph::AddAggregatedVariable(XSource& source, bool categorical, ChartString const& label) {
  LumoSourceVariable& variable = addSourceVariable(*mVisualization, categorical);
  if (!label.empty()) variable.setLabel(label.xc_str());
  XVariable wrapper(variable, source);
  wrapper.setCreator(XVariable::CreatorInternalAggregate);
  registerColumn(source, wrapper);
  return wrapper;
}

XVariable XGraph::AddSystemVariable(bool systemVariable, XSource& source, bool categorical) {
  XVariable wrapper(addSourceVariable(*mVisualization, categorical), systemVariable, source, categorical);
  registerColumn(source, wrapper);
  return wrapper;
}

XVariable XGraph::AddCaseNumVariable(std::string const& sourceName) {
  LumoUserSource const& source = findSource(*mVisualization, fromUTF8(sourceName), Match::Last, sourceName);
  XVariable wrapper(addColumnVariable(*mVisualization, source, false, u"$CASENUM"));
  // The wrapper has no column of its own: the empty name is registered, under the source's name as it was
  // passed.
  registerColumn(sourceName, wrapper);
  return wrapper;
}

XVariable XGraph::AddWeightVariable(std::string const& sourceName) {
  LumoUserSource const& source = findSource(*mVisualization, fromUTF8(sourceName), Match::Last, sourceName);
  XVariable wrapper(addColumnVariable(*mVisualization, source, false, u"$WEIGHT"));
  wrapper.SetWeight(true);
  registerColumn(sourceName, wrapper);
  return wrapper;
}

XVariable XGraph::AddExistingVariable(ChartString const& sourceId, bool categorical,
                                      ChartString const& sourceVariableName) {
  LumoUserSource const& source = findSource(*mVisualization, sourceId, Match::First, sourceId.toUTF8());
  XVariable wrapper(addColumnVariable(*mVisualization, source, categorical, sourceVariableName.xc_str()));
  registerColumn(sourceId.toUTF8(), wrapper);
  return wrapper;
}

XVariable XGraph::AddExpressionVariable(std::vector<XVariable*> variables, bool categorical) {
  ChartString const id =
      numbered(LumoUni::_expressionVariable, mVisualization->getExpressionVariables().size());
  LumoExpressionVariable* variable = mVisualization->addExpressionVariable(id.xc_str());
  variable->setCategorical(categorical);
  return XVariable(*variable, std::move(variables));
}

XVariable XGraph::getVariable(ChartString const& name, unsigned int occurrence) const {
  unsigned int matches = 0;
  for (LumoSourceVariable* variable : mVisualization->getSourceVariables()) {
    if (name.equalsi(variable->getSourceName()) && matches++ == occurrence) return XVariable(*variable);
  }
  // Derived variables have no column: here the id is the name.
  for (LumoDerivedVariable* variable : mVisualization->getDerivedVariables()) {
    if (name.equalsi(variable->getId()) && matches++ == occurrence) return XVariable(*variable);
  }
  throwFailure("could not find variable " + name.toUTF8());
}
