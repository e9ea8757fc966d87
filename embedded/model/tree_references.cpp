#include "tree.h"

#include "dom_walk.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_set>
#include <vector>

using kestrel::model::ElementWalk;
using kestrel::model::IdIndex;
using kestrel::model::isBefore;
using kestrel::model::isInDocument;
using kestrel::model::isReadOnly;
using kestrel::model::nameOf;
using kestrel::model::sameText;
using kestrel::model::valueOf;
using xercesc::DOMAttr;
using xercesc::DOMElement;
using xercesc::DOMNamedNodeMap;
using xercesc::DOMNode;

namespace {

bool anyFits(LumoBaseElement const&) { return true; }

/// The slots of the visualization's extension that carry a number.
constexpr std::u16string_view numberedSlots[] = {u"title", u"footnote", u"legend", u"statisticsSummary"};

bool isNumbered(std::u16string_view name) {
  return std::any_of(std::begin(numberedSlots), std::end(numberedSlots), [name](std::u16string_view slot) {
    return name.starts_with(slot) && name.size() > slot.size() &&
           name.find_first_not_of(u"0123456789", slot.size()) == std::u16string_view::npos;
  });
}

bool isReference(std::u16string_view name, DOMElement const& element) {
  static std::unordered_set<std::u16string_view> const names{
      u"cellStyle",      u"clusterVariable", u"coordinates",   u"cycle",
      u"domain",         u"extremeStyle",    u"fenceStyle",    u"hingeStyle",
      u"markStyle",      u"medianStyle",     u"outlierStyle",  u"ref",
      u"source",         u"style",           u"styleCycle",    u"target",
      u"textFrameStyle", u"tickFrameStyle",  u"tickTextStyle", u"variable"};
  std::u16string_view const elementName = nameOf(element);
  if (elementName == LumoUni::_extension) {
    return name == u"subtitle" || name == u"styleCycleRepository" || isNumbered(name);
  }
  // The target of a swing controller is text to the model.
  return elementName != LumoUni::_swingController && names.contains(name);
}

}  // namespace

LumoLinks LumoBinding::handleMark{};

LumoBaseElement& LumoTree::lasting(LumoBaseElement const& object) const {
  // What is no handle lies in the arena, where nothing is constant.
  return LumoBinding::isHandle(object) ? *existing(LumoBinding::elementOf(object))
                                       : const_cast<LumoBaseElement&>(object);
}

LumoLinks* LumoTree::linksOf(LumoBaseElement const& object) const {
  return LumoBinding::linksOf(lasting(object));
}

LumoLinks& LumoTree::makeLinks(LumoBaseElement& object) {
  LumoBaseElement& owner = lasting(object);
  LumoLinks*& links = LumoBinding::linksOf(owner);
  if (links == nullptr) links = &arena_.make<LumoLinks>(&owner, nullptr, nullptr, nullptr, nullptr, nullptr);
  return *links;
}

void LumoTree::registerId(LumoBaseElement& object, char16_t const* id, bool inOrder) {
  if (*id == u'\0' || isStandalone_) return;
  DOMElement& element = LumoBinding::elementOf(object);
  LumoLinks& links = makeLinks(object);
  if (links.bucket != nullptr) IdIndex::remove(links);
  Bucket& bucket = ids_.findOrMake(id);
  if (bucket.last != nullptr && bucket.isOrdered && !inOrder) {
    bucket.isOrdered = isBefore(LumoBinding::elementOf(*bucket.last->element), element);
  }
  bool const isFirst = bucket.first == nullptr;
  IdIndex::append(bucket, links);
  // The DOM finds detached elements too, so they must not be known to it; and it takes ever longer with each
  // further element of the same id, so it knows only one.
  if (isFirst && (!hasDetached_ || isInDocument(element)) && !isReadOnly(element)) {
    element.setIdAttribute(LumoUni::_id, true);
  }
}

void LumoTree::unregisterId(LumoBaseElement& object) {
  LumoLinks* const links = linksOf(object);
  if (links == nullptr || links->bucket == nullptr) return;
  Bucket& bucket = *links->bucket;
  IdIndex::remove(*links);
  DOMElement& element = LumoBinding::elementOf(object);
  DOMAttr const* const id = element.getAttributeNode(LumoUni::_id);
  if (id == nullptr || !id->isId()) return;
  element.setIdAttribute(LumoUni::_id, false);
  LumoBaseElement* const next = find(bucket, &anyFits);
  if (next != nullptr && !isReadOnly(LumoBinding::elementOf(*next))) {
    LumoBinding::elementOf(*next).setIdAttribute(LumoUni::_id, true);
  }
}

bool LumoTree::isAttached(DOMElement const& element) const {
  if (hasDetached_) return isInDocument(element);
  // A step upwards costs a cast within the DOM, one to the side nothing.
  return element.getNextSibling() != nullptr || element.getParentNode() != nullptr;
}

LumoBaseElement* LumoTree::find(char16_t const* id, Test fits) const {
  if (id == nullptr || *id == u'\0' || isStandalone_) return nullptr;
  Bucket* const bucket = ids_.find(id);
  if (bucket != nullptr) {
    if (LumoBaseElement* const found = find(*bucket, fits)) return found;
  }
  // The DOM knows of ids that were changed past the model.
  DOMElement const* const element = document_->getElementById(id);
  LumoBaseElement* const object = element == nullptr ? nullptr : existing(*element);
  return object != nullptr && isAttached(*element) && fits(*object) ? object : nullptr;
}

LumoBaseElement* LumoTree::find(Bucket& bucket, Test fits) const {
  if (!bucket.isOrdered) putInOrder(bucket);
  for (LumoLinks const* links = bucket.first; links != nullptr; links = links->nextInBucket) {
    DOMElement const& element = LumoBinding::elementOf(*links->element);
    // Elements may have been detached or renamed past the model.
    if (fits(*links->element) && sameText(valueOf(element, LumoUni::_id), bucket.id.data()) &&
        isAttached(element)) {
      return links->element;
    }
  }
  return nullptr;
}

void LumoTree::putInOrder(Bucket& bucket) const {
  std::vector<LumoLinks*> inTree;
  for (ElementWalk element(*document_->getDocumentElement()); element; ++element) {
    if (!sameText(valueOf(*element, LumoUni::_id), bucket.id.data())) continue;
    LumoBaseElement* const object = existing(*element);
    LumoLinks* const links = object == nullptr ? nullptr : linksOf(*object);
    if (links != nullptr && links->bucket == &bucket) inTree.push_back(links);
  }
  // Those in the tree go to the front one by one, the last first.
  for (auto links = inTree.rbegin(); links != inTree.rend(); ++links) IdIndex::moveToFront(**links);
  bucket.isOrdered = true;
}

LumoTree::Reference* LumoTree::outgoing(LumoBaseElement const& object, char16_t const* name) const {
  LumoLinks const* const links = linksOf(object);
  Reference* reference = links == nullptr ? nullptr : links->outgoing;
  while (reference != nullptr && !sameText(reference->attribute, name)) reference = reference->nextOfSource;
  return reference;
}

void LumoTree::connect(LumoBaseElement& object, char16_t const* name, LumoBaseElement& target, bool told) {
  Reference* reference = outgoing(object, name);
  if (reference == nullptr) {
    LumoLinks& links = makeLinks(object);
    reference = &arena_.make<Reference>(links.element, nullptr, arena_.copy(name), told, links.outgoing,
                                        nullptr, nullptr);
    links.outgoing = reference;
  } else {
    disconnect(*reference);
  }
  LumoLinks& targetLinks = makeLinks(target);
  reference->target = targetLinks.element;
  reference->told = told;
  reference->previousOfTarget = nullptr;
  reference->nextOfTarget = targetLinks.incoming;
  if (targetLinks.incoming != nullptr) targetLinks.incoming->previousOfTarget = reference;
  targetLinks.incoming = reference;
}

void LumoTree::disconnect(Reference& reference) {
  if (reference.target == nullptr) return;
  LumoLinks& links = *LumoBinding::linksOf(*reference.target);
  (reference.previousOfTarget == nullptr ? links.incoming : reference.previousOfTarget->nextOfTarget) =
      reference.nextOfTarget;
  if (reference.nextOfTarget != nullptr)
    reference.nextOfTarget->previousOfTarget = reference.previousOfTarget;
  reference.target = nullptr;
}

LumoBaseElement* LumoTree::target(LumoBaseElement const& object, char16_t const* name, Test fits) const {
  char16_t const* const written = valueOf(LumoBinding::elementOf(object), name);
  Reference const* const reference = outgoing(object, name);
  if (reference != nullptr && reference->told && reference->target != nullptr) {
    // Text that was written past the model names something else.
    bool const holds = sameText(written, valueOf(LumoBinding::elementOf(*reference->target), LumoUni::_id));
    if (holds) return fits(*reference->target) ? reference->target : nullptr;
  }
  return find(written, fits);
}

void LumoTree::findWrittenReferences() {
  for (ElementWalk element(*document_->getDocumentElement()); element; ++element) {
    LumoBaseElement& object = objectOf(*element);
    DOMNamedNodeMap const& attributes = *element->getAttributes();
    XMLSize_t const count = attributes.getLength();
    for (XMLSize_t i = 0; i < count; ++i) {
      DOMNode const& attribute = *attributes.item(i);
      char16_t const* const name = attribute.getNodeName();
      if (!isReference(name, *element)) continue;
      Reference const* const known = outgoing(object, name);
      if (known != nullptr && known->target != nullptr) continue;
      LumoBaseElement* const target = find(attribute.getNodeValue(), &anyFits);
      if (target != nullptr) connect(object, name, *target, false);
    }
  }
  hasWrittenReferences_ = false;
}

void LumoTree::followId(LumoBaseElement& object, char16_t const* id) {
  char16_t const* const current = valueOf(LumoBinding::elementOf(object), LumoUni::_id);
  bool const hasId = current != nullptr && *current != u'\0';
  if (hasId && hasWrittenReferences_ && !isStandalone_) findWrittenReferences();
  LumoLinks const* const links = linksOf(object);
  if (links == nullptr) return;

  std::vector<Reference*> following;
  for (Reference* reference = links->incoming; reference != nullptr; reference = reference->nextOfTarget) {
    char16_t const* const written = valueOf(LumoBinding::elementOf(*reference->source), reference->attribute);
    if (!sameText(written, current)) continue;
    if (reference->told || find(current, &anyFits) == links->element) following.push_back(reference);
  }
  for (Reference const* reference : following) before(Change::SetAttribute, *reference->source);
  for (Reference* reference : following) {
    DOMElement& source = LumoBinding::elementOf(*reference->source);
    if (id != nullptr) {
      source.setAttribute(reference->attribute, id);
    } else {
      source.removeAttribute(reference->attribute);
    }
    reference->told = true;
  }
}
