// Construction of variables, their labels and their data.

#include "xvariable.h"

#include "xsource.h"
#include "xutility.h"

#include "support/guard.h"

#include "model/chartstring.h"
#include "model/printing.h"
#include "model/tokens.h"
#include "model/variables.h"

#include <cstring>
#include <iterator>
#include <limits>
#include <string>

using kestrel::guarded;
using kestrel::present;
using kestrel::reportAndThrow;

namespace {

constexpr double systemMissing = std::numeric_limits<double>::lowest();

constexpr char const* constructionFailed = "Error in XVariable::XVariable()";

constexpr char16_t caseNumberColumn[] = u"$CASENUM";

constexpr char16_t const* creatorTexts[] = {
    u"external_datasource", u"external_system",   u"external_aggregate",
    u"internal_aggregate",  u"internal_variable",
};

}  // namespace

XVariable::XVariable(LumoSourceVariable& variable, Vexa_Variable const& host, XSource& source,
                     ProcedureDataSource const* data)
    : XBaseElement(variable), mImplementation(&variable) {
  guarded(constructionFailed, [&] {
    mVexaVariable = &host;
    bindTo(source);
    nameColumn(variable);
    Vexa_DataSource const& dataSource = present(data, "data source");
    mVarIndex = dataSource.FindVarIndex(host.GetName(), 0);
    ChartString const label = getVexaVariableLabel();
    if (!label.empty()) variable.setLabel(label.xc_str());
    ChartString const shortLabel = getVexaVariableShortLabel();
    if (!shortLabel.empty()) variable.setShortLabel(shortLabel.xc_str());
    // No further class can have taken over yet.
    setFormatBasedOnVexaVariable(host);  // NOLINT(clang-analyzer-optin.cplusplus.VirtualCall)
  });
}

XVariable::XVariable(LumoSourceVariable& variable, XSource& source)
    : XBaseElement(variable), mImplementation(&variable) {
  guarded(constructionFailed, [&] {
    bindTo(source);
    nameColumn(variable);
  });
}

XVariable::XVariable(LumoSourceVariable& variable) : XBaseElement(variable), mImplementation(&variable) {}

XVariable::XVariable(LumoExpressionVariable& variable, std::vector<XVariable*> operands)
    : XBaseElement(variable), mImplementation(&variable) {
  guarded(constructionFailed, [&] {
    if (operands.size() < 2) reportAndThrow("Too few variables in expression");
    ChartString expression;
    for (std::size_t index = 0; index < operands.size(); ++index) {
      if (index > 0) expression.append(u'+');
      expression.append(present(operands[index], "variable for the expression").GetID());
    }
    variable.setExpression(expression.xc_str());
  });
}

XVariable::XVariable(LumoSourceVariable& variable, bool systemVariable, XSource& source, bool categorical)
    : XBaseElement(variable), mImplementation(&variable), mIsSystemVariable(systemVariable) {
  guarded(constructionFailed, [&] {
    bindTo(source);
    if (!systemVariable) reportAndThrow("Only $CASENUM System Variables supported.");
    variable.setSourceName(caseNumberColumn);
    mSourceName = "$CASENUM";
    setCreator(CreatorExternalSystem);
    setCategorical(categorical);
  });
}

XVariable::XVariable(LumoDerivedVariable& variable) : XBaseElement(variable), mImplementation(&variable) {}

void XVariable::bindTo(XSource& source) {
  mImplementation->setSource(present(source.getImplemenation(), "user source"));
}

/// The column is named after the variable in the chart, never after the host's variable.
void XVariable::nameColumn(LumoSourceVariable& variable) {
  ChartString column(variable.getId());
  column.append(u"_SN");
  variable.setSourceName(column.xc_str());
  mSourceName = column.toUTF8();
}

CTVariableType& XVariable::getImplementation() const { return *mImplementation; }

char16_t const* XVariable::GetID() const { return mImplementation->getId(); }

bool XVariable::getCategorical() const { return mImplementation->getCategorical(); }

void XVariable::setCategorical(bool categorical) { mImplementation->setCategorical(categorical); }

void XVariable::setCreator(CREATOR creator) {
  auto const row = static_cast<std::size_t>(creator);
  if (row < std::size(creatorTexts)) mImplementation->setCreator(creatorTexts[row]);
}

void XVariable::makeDefaultLabelingVar() { mImplementation->setDescription(LumoUni::_labeling); }

void XVariable::setLabel(ChartString const& label) { mImplementation->setLabel(label.xc_str()); }

void XVariable::setShortLabel(ChartString const& label) { mImplementation->setShortLabel(label.xc_str()); }

ChartString XVariable::getLabel() const { return ChartString(mImplementation->getLabel()); }

ChartString XVariable::getVexaVariableLabel() const {
  ChartString result;
  if (mVexaVariable == nullptr) {
    result = ChartString(mImplementation->getLabel());
  } else if (char const* const label = mVexaVariable->GetLabel(); label != nullptr && *label != '\0') {
    char const* first = label;
    char const* last = label + std::strlen(label) - 1;
    formatter::trim(first, last);
    // From the first character that is no blank to the terminator: trailing blanks stay, which is relied
    // upon.
    std::string const trimmed(first);
    if (!trimmed.empty()) result = XUtility::ChartStringFromLocalCodePage(trimmed.c_str());
  }
  if (!result.empty()) replaceNewline(result);
  return result;
}

ChartString XVariable::getVexaVariableShortLabel() const {
  // The short label of a data variable is its name, not a shortened label.
  ChartString result = mVexaVariable == nullptr
                           ? ChartString(mImplementation->getShortLabel())
                           : XUtility::ChartStringFromLocalCodePage(mVexaVariable->GetName());
  if (!result.empty()) replaceNewline(result);
  return result;
}

void XVariable::SetWeight(bool weight) { mImplementation->setWeight(weight); }

bool XVariable::isWeightVariable() const { return mImplementation->getWeight(); }

void XVariable::setVexaVariable(Vexa_Variable const& host) { mVexaVariable = &host; }

double XVariable::getData(ProcDSIterator const* iterator) {
  if (iterator == nullptr) return systemMissing;
  if (mVarIndex >= 0) {
    OBS const* const cell = iterator->GetObsPointer(static_cast<unsigned int>(mVarIndex));
    return cell != nullptr ? cell->number() : systemMissing;
  }
  return mIsSystemVariable ? static_cast<double>(iterator->GetCaseNumber()) : systemMissing;
}
