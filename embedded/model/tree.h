#pragma once

#include "arena.h"
#include "dom_memory.h"
#include "id_index.h"
#include "kinds.h"
#include "links.h"

#include "model/document.h"

#include <xercesc/dom/DOM.hpp>

#include <memory>
#include <string>
#include <unordered_map>

namespace kestrel::model {

/// Takes a reference on the XML library that is never given back.
void holdXmlLibrary();

}  // namespace kestrel::model

/// Everything that the objects of one chart share: the DOM under them, their memory, the index of ids, the
/// references between them. All rules about changes live here.
class LumoTree {
 public:
  using Change = LumoChangeObserver::Kind;

  /// A new chart, whose DOM is the tree's own.
  LumoTree();
  /// Over a DOM that stays the caller's.
  explicit LumoTree(xercesc::DOMDocument& document);
  /// Over one element that no chart owns. Nothing is left on the DOM when the tree ends.
  explicit LumoTree(xercesc::DOMElement& element);
  LumoTree(LumoTree const&) = delete;
  LumoTree& operator=(LumoTree const&) = delete;
  ~LumoTree();

  /// The tree that stands on a DOM, or null.
  static LumoTree* of(xercesc::DOMDocument const* document);

  xercesc::DOMDocument* document() const { return document_; }
  LumoVisualization* root() const { return root_; }
  bool isStandalone() const { return isStandalone_; }
  /// The object that a standalone tree ends with.
  LumoFormat const* owner() const { return owner_; }
  void setOwner(LumoFormat const& owner) { owner_ = &owner; }
  void setObserver(LumoChangeObserver* observer) { observer_ = observer; }

  /// The object of an element, made now with those of its descendants if there is none.
  LumoBaseElement& objectOf(xercesc::DOMElement& element);
  /// Makes the object of a copy that the DOM made by itself.
  void adopt(xercesc::DOMElement& copy, xercesc::DOMElement const& original);

  LumoBaseElement& add(LumoBaseElement& parent, kestrel::model::Kind const& kind);
  /// Copies an element of any DOM with everything in it.
  LumoBaseElement& addCopy(LumoBaseElement& parent, xercesc::DOMElement const& source);
  void remove(LumoBaseElement& object);
  void move(LumoBaseElement& object, LumoBaseElement& parent);

  /// `value` must not be null.
  void write(LumoBaseElement& object, char16_t const* name, char16_t const* value);
  void erase(LumoBaseElement& object, char16_t const* name);
  void writeId(LumoBaseElement& object, char16_t const* id);
  void refer(LumoBaseElement& object, char16_t const* name, LumoBaseElement const& target);
  void writeText(LumoBaseElement& object, char16_t const* text);
  void writeComment(LumoBaseElement& object, char16_t const* text);

  /// What a reference attribute names, if it is of the kind that `fits` accepts.
  using Test = bool (*)(LumoBaseElement const&);
  LumoBaseElement* target(LumoBaseElement const& object, char16_t const* name, Test fits) const;
  /// The first element of an id in document order that fits.
  LumoBaseElement* find(char16_t const* id, Test fits) const;
  char16_t const* text(LumoBaseElement const& object) const;

 private:
  using Reference = kestrel::model::Reference;
  using Bucket = kestrel::model::Bucket;

  void before(Change change, LumoBaseElement const& object) const {
    if (observer_ != nullptr) observer_->beforeChange(change, object);
  }

  LumoBaseElement* existing(xercesc::DOMElement const& element) const;
  LumoBaseElement& make(xercesc::DOMElement& element, kestrel::model::Maker maker);
  /// `holder`: what holds the element, as far as that is known.
  LumoBaseElement& bindOne(xercesc::DOMElement& element, xercesc::DOMNode const* holder);
  /// With all descendants. `inOrder`: `top` is the root, and the tree has no objects yet.
  LumoBaseElement& bind(xercesc::DOMElement& top, bool inOrder);

  xercesc::DOMElement& create(xercesc::DOMElement const& parent, char16_t const* name);
  xercesc::DOMElement& copyOne(xercesc::DOMElement const& source, xercesc::DOMElement const& parent,
                               xercesc::DOMElement const& top);
  xercesc::DOMElement& copyInto(xercesc::DOMElement& into, xercesc::DOMNode const& node,
                                xercesc::DOMElement const& parent, xercesc::DOMElement const& top);

  /// The object itself; for a handle, the object of its element.
  LumoBaseElement& lasting(LumoBaseElement const& object) const;
  LumoLinks* linksOf(LumoBaseElement const& object) const;
  LumoLinks& makeLinks(LumoBaseElement& object);
  void registerId(LumoBaseElement& object, char16_t const* id, bool inOrder);
  void unregisterId(LumoBaseElement& object);
  /// Does the element stand in the document? Of one that was taken out past the model only the top is told.
  bool isAttached(xercesc::DOMElement const& element) const;
  LumoBaseElement* find(Bucket& bucket, Test fits) const;
  void putInOrder(Bucket& bucket) const;

  Reference* outgoing(LumoBaseElement const& object, char16_t const* name) const;
  void connect(LumoBaseElement& object, char16_t const* name, LumoBaseElement& target, bool told);
  static void disconnect(Reference& reference);
  void findWrittenReferences();
  void followId(LumoBaseElement& object, char16_t const* id);

  kestrel::model::DomMemory ownedMemory_;
  std::unique_ptr<xercesc::DOMDocument> owned_;
  /// Null once the DOM has ended before the tree.
  xercesc::DOMDocument* document_ = nullptr;
  LumoVisualization* root_ = nullptr;
  LumoChangeObserver* observer_ = nullptr;
  LumoFormat const* owner_ = nullptr;
  bool isStandalone_ = false;
  /// Some elements came as text, whose references nobody has looked for yet.
  bool hasWrittenReferences_ = false;
  /// Some objects may stand outside the tree.
  bool hasDetached_ = false;

  kestrel::model::Arena arena_;
  kestrel::model::IdIndex ids_{arena_};
  /// Of a standalone tree only.
  std::unordered_map<xercesc::DOMElement const*, LumoBaseElement*> objects_;
  /// Texts that the DOM holds in several pieces, put together for their readers.
  mutable std::unordered_map<xercesc::DOMElement const*, std::u16string> joinedTexts_;

  friend class LumoDocumentWatch;
};
