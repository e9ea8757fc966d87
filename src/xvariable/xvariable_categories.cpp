// The order of a variable's categories.

#include "xvariable.h"

#include "support/chart_text.h"
#include "support/guard.h"

#include "model/document.h"
#include "model/tokens.h"
#include "model/variables.h"

using kestrel::guarded;
using kestrel::numbered;
using kestrel::present;

void XVariable::sortCategories(bool descending) {
  guarded("Error in XVariable::sortCategories()", [&] {
    LumoVisualization& visualization = present(mImplementation->getVisualization(), "visualization");
    // Always a new domain: one that the variable already has is not looked at.
    ChartString const id =
        numbered(LumoUni::_categoricalDomain, visualization.getCategoricalDomains().size());
    LumoCategoricalDomain* domain = visualization.addCategoricalDomain(id.xc_str());
    domain->addVariableReference(*mImplementation);
    LumoSimpleSort* sort = domain->addSimpleSort();
    sort->setDescending(descending);
    sort->setMethod(static_cast<LumoSimpleSort::ENUM_method>(2));
    mImplementation->setDomain(*domain);
  });
}
