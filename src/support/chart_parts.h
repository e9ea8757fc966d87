#pragma once

#include "support/chart_text.h"
#include "support/failure.h"

#include "host/chartbase.h"
#include "model/document.h"
#include "model/style.h"
#include "model/tokens.h"
#include "model/variables.h"

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNode.hpp>
#include <xercesc/dom/DOMNodeList.hpp>
#include <xercesc/util/XMLString.hpp>

#include <vector>

namespace kestrel {

/// The object that the model has tied to a DOM node under the element's own token; null where there is none.
template <typename T>
T* objectOf(xercesc::DOMNode const& node, char16_t const* token) {
  return dynamic_cast<T*>(static_cast<LumoBaseElement*>(node.getUserData(token)));
}

/// The objects of all elements of one name, in document order. Taken at once: the DOM looks through the whole
/// chart again for each step along such a list once the chart has changed.
template <typename T>
std::vector<T*> objectsOf(LumoBaseElement const& top, char16_t const* token) {
  xercesc::DOMNodeList const& list = *top.getImplementation()->getElementsByTagName(token);
  std::vector<T*> objects;
  // Asking for the length sends the list back to its beginning.
  xercesc::DOMNode const* node = list.item(0);
  for (XMLSize_t at = 0; node != nullptr; node = list.item(++at)) {
    if (T* const object = objectOf<T>(*node, token)) objects.push_back(object);
  }
  return objects;
}

/// The chart that an object of the model belongs to.
inline LumoVisualization& visualizationOf(LumoBaseElement const& element) {
  return present(element.getVisualization(), "visualization");
}

/// The record that names the chart's special parts.
inline LumoExtensionVis& findOrMakeExtension(LumoVisualization& visualization) {
  LumoExtensionVis* extension = visualization.getExtension();
  return extension != nullptr ? *extension : *visualization.addExtension();
}

/// The style that holds all named styles: the first one of its id, or a new one.
inline LumoStyle& findOrMakeContainer(LumoVisualization& visualization) {
  for (LumoStyle* style : visualization.getStyles()) {
    if (xercesc::XMLString::equals(style->getId(), ChartBase::_container)) return *style;
  }
  LumoStyle& made = *visualization.addStyle();
  made.setId(ChartBase::_container);
  return made;
}

/// New domains; their number is the count of their kind before.
inline LumoIntervalDomain& addIntervalDomain(LumoVisualization& visualization) {
  ChartString const id = numbered(LumoUni::_intervalDomain, visualization.getIntervalDomains().size());
  return *visualization.addIntervalDomain(id.xc_str());
}

inline LumoCategoricalDomain& addCategoricalDomain(LumoVisualization& visualization) {
  ChartString const id = numbered(LumoUni::_categoricalDomain, visualization.getCategoricalDomains().size());
  return *visualization.addCategoricalDomain(id.xc_str());
}

}  // namespace kestrel
