#pragma once

#include <cstddef>

#include "model/base.h"

namespace kestrel::model {

struct Bucket;

/// One element names another in an attribute.
struct Reference {
  LumoBaseElement* source;
  LumoBaseElement* target;
  char16_t const* attribute;
  /// The model was told the target; otherwise it was only found by its id in the text.
  bool told;
  Reference* nextOfSource;
  Reference* nextOfTarget;
  Reference* previousOfTarget;
};

}  // namespace kestrel::model

/// What only elements with an id or a reference need. Lies in the arena of the element's tree.
struct LumoLinks {
  LumoBaseElement* element;
  kestrel::model::Bucket* bucket;
  LumoLinks* nextInBucket;
  LumoLinks* previousInBucket;
  kestrel::model::Reference* outgoing;
  kestrel::model::Reference* incoming;
};

/// The model's way into an element's private parts.
struct LumoBinding {
  xercesc::DOMElement& element;
  LumoTree& tree;

  static LumoTree& treeOf(LumoBaseElement const& object) { return *object.tree_; }
  static xercesc::DOMElement& elementOf(LumoBaseElement const& object) { return *object.element_; }
  static LumoLinks*& linksOf(LumoBaseElement& object) { return object.links_; }
  static LumoLinks const* linksOf(LumoBaseElement const& object) { return object.links_; }
};
