// The order of a variable's categories, and the ones that are left out.

#include "xvariable.h"

#include "support/chart_parts.h"
#include "support/chart_text.h"
#include "support/guard.h"

#include "model/tokens.h"
#include "model/variables.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMText.hpp>

using kestrel::guarded;
using kestrel::isEmpty;
using kestrel::joined;
using xercesc::DOMElement;

LumoCategoricalDomain& XVariable::addOwnDomain() {
  LumoCategoricalDomain& domain = kestrel::addCategoricalDomain(kestrel::visualizationOf(*mImplementation));
  domain.addVariableReference(*mImplementation);
  return domain;
}

void XVariable::sortCategories(bool descending) {
  guarded("Error in XVariable::sortCategories()", [&] {
    // Always a new domain: one that the variable already has is not looked at.
    LumoCategoricalDomain& domain = addOwnDomain();
    LumoSimpleSort* sort = domain.addSimpleSort();
    sort->setDescending(descending);
    sort->setMethod(LumoSimpleSort::Method2);
    mImplementation->setDomain(domain);
  });
}

LumoCategoricalDomain* XVariable::findCategoricalDomain() const {
  DOMElement const& variable = *mImplementation->getImplementation();
  DOMElement const* const domain =
      variable.getOwnerDocument()->getElementById(variable.getAttribute(LumoUni::_domain));
  return domain == nullptr ? nullptr
                           : kestrel::objectOf<LumoCategoricalDomain>(*domain, LumoUni::_categoricalDomain);
}

namespace {

/// Adds a category to every list of excluded ones that the domain has. False where it has none.
bool addToExcluded(LumoCategoricalDomain const& domain, ChartString const& category) {
  bool added = false;
  for (LumoCategories* list : domain.getCategoriess()) {
    if (!list->getRemove()) continue;
    char16_t const* const before = list->getText();
    list->setText(joined({before, isEmpty(before) ? u"" : u";", category.xc_str()}).xc_str());
    added = true;
  }
  return added;
}

}  // namespace

void XVariable::excludeCategory(ChartString const& category) {
  guarded("Error in XVariable::excludeCategory()", [&] {
    if (category.empty()) return;
    LumoCategoricalDomain* domain = findCategoricalDomain();
    if (domain == nullptr) {
      domain = &addOwnDomain();
      mImplementation->setDomain(*domain);
    }
    if (addToExcluded(*domain, category)) return;
    LumoCategories& list = *domain->addCategories();
    list.setRemove(true);
    // The first category is a text node of its own, past the model.
    DOMElement& element = *list.getImplementation();
    element.appendChild(element.getOwnerDocument()->createTextNode(category.xc_str()));
  });
}
