#pragma once

#include "model/base.h"

#include <cstddef>

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

  /// A handle is a second object for an element of a chart, made and ended by whoever needs it. Nothing may
  /// point at it.
  static void makeHandle(LumoBaseElement& object) { object.links_ = &handleMark; }
  static bool isHandle(LumoBaseElement const& object) { return object.links_ == &handleMark; }

 private:
  static LumoLinks handleMark;
};
