// What an axis covers: ranges, dates and the values of variables.

#include "xaxis.h"

#include "xvariable.h"

#include "support/chart_parts.h"
#include "support/chart_text.h"
#include "support/guard.h"

#include "model/document.h"
#include "model/graph.h"
#include "model/tokens.h"
#include "model/variables.h"

using kestrel::addCategoricalDomain;
using kestrel::addIntervalDomain;
using kestrel::guarded;
using kestrel::numberText;
using kestrel::visualizationOf;

namespace {

/// The dimension's domain, of whatever kind it is, or a new one of intervals, which is not set on the
/// dimension yet.
CTDomainType& findOrMakeIntervalDomain(LumoDimension const& dimension) {
  CTDomainType* domain = dimension.getDomain();
  return domain != nullptr ? *domain : addIntervalDomain(visualizationOf(dimension));
}

void addRange(LumoDimension& dimension, double min, double const* max) {
  CTDomainType& domain = findOrMakeIntervalDomain(dimension);
  LumoRange* range = domain.addRange();
  range->setMin(numberText(min).xc_str());
  if (max != nullptr) range->setMax(numberText(*max).xc_str());
  // Never exact, whatever the caller asked for: relied upon.
  range->setExact(false);
  dimension.setDomain(domain);
}

}  // namespace

void XAxis::setInterval(double min, double max, bool) {
  guarded("Error in XAxis::setInterval()", [&] { addRange(*mDimension, min, &max); });
}

void XAxis::setMinInterval(double min, bool) {
  guarded("Error in XAxis::setMinInterval()", [&] { addRange(*mDimension, min, nullptr); });
}

void XAxis::addIntervalVariableReference(XVariable const& variable) {
  guarded("Error in XAxis::addIntervalVariableReference()", [&] {
    CTDomainType* domain = mDimension->getDomain();
    if (domain == nullptr) {
      LumoIntervalDomain& made = addIntervalDomain(visualizationOf(*mDimension));
      mDimension->setDomain(made);
      domain = &made;
    }
    domain->addVariableReference(variable.getImplementation());
  });
}

void XAxis::addCategoricalVariableReference(XVariable const& variable) {
  guarded("Error in XAxis::addCategoricalVariableReference()", [&] {
    CTDomainType* domain = mDimension->getDomain();
    if (domain == nullptr) {
      LumoCategoricalDomain& made = addCategoricalDomain(visualizationOf(*mDimension));
      mDimension->setDomain(made);
      domain = &made;
    }
    domain->addVariableReference(variable.getImplementation());
  });
}

void XAxis::addDateInterval(char16_t const* min, char16_t const* max) {
  guarded("Error in XAxis::addDateInterval()", [&] {
    CTDomainType& domain = findOrMakeIntervalDomain(*mDimension);
    domain.setDate(true);
    if (min != nullptr || max != nullptr) {
      domain.removeRanges();
      LumoRange* range = domain.addRange();
      if (min != nullptr) range->setMin(min);
      // The minimum again: a given maximum takes its place, and no maximum is ever written. Relied upon.
      if (max != nullptr) range->setMin(max);
    }
    mDimension->setDomain(domain);
  });
}
