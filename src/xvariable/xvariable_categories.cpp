// The order of a variable's categories.

#include "xvariable.h"

#include "support/chart_parts.h"
#include "support/guard.h"

#include "model/variables.h"

using kestrel::guarded;

void XVariable::sortCategories(bool descending) {
  guarded("Error in XVariable::sortCategories()", [&] {
    // Always a new domain: one that the variable already has is not looked at.
    LumoCategoricalDomain& domain = kestrel::addCategoricalDomain(kestrel::visualizationOf(*mImplementation));
    domain.addVariableReference(*mImplementation);
    LumoSimpleSort* sort = domain.addSimpleSort();
    sort->setDescending(descending);
    sort->setMethod(LumoSimpleSort::Method2);
    mImplementation->setDomain(domain);
  });
}
