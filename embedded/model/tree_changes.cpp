#include "tree.h"

#include "dom_walk.h"

#include <functional>
#include <string>
#include <string_view>

using kestrel::model::ElementWalk;
using kestrel::model::isText;
using kestrel::model::Kind;
using kestrel::model::nameOf;
using kestrel::model::NodeWalk;
using kestrel::model::sameText;
using kestrel::model::valueOf;
using xercesc::DOMAttr;
using xercesc::DOMElement;
using xercesc::DOMNamedNodeMap;
using xercesc::DOMNode;

namespace {

bool pointsInto(char16_t const* pointer, std::u16string_view text) {
  std::less_equal<> const upTo;
  return upTo(text.data(), pointer) && upTo(pointer, text.data() + text.size());
}

void setValue(DOMElement& element, char16_t const* name, char16_t const* value) {
  DOMAttr* const attribute = element.getAttributeNode(name);
  if (attribute == nullptr) {
    element.setAttribute(name, value);
  } else if (pointsInto(value, attribute->getValue())) {
    // A caller may hand back what a getter gave, and the DOM reuses that memory.
    attribute->setValue(std::u16string(value).c_str());
  } else {
    attribute->setValue(value);
  }
}

/// Takes the text out of an element and gives the node that stood behind it, or null.
DOMNode* removeText(DOMElement& element) {
  DOMNode* place = nullptr;
  bool found = false;
  for (DOMNode* node = element.getFirstChild(); node != nullptr;) {
    DOMNode* const next = node->getNextSibling();
    if (isText(*node)) {
      element.removeChild(node)->release();
      found = true;
      place = nullptr;
    } else if (found && place == nullptr) {
      place = node;
    }
    node = next;
  }
  return place;
}

/// Copies what is no element.
void copyContent(DOMNode const& source, DOMElement& parent) {
  xercesc::DOMDocument& document = *parent.getOwnerDocument();
  char16_t const* const text = source.getNodeValue();
  switch (source.getNodeType()) {
    case DOMNode::TEXT_NODE:
      parent.appendChild(document.createTextNode(text));
      break;
    case DOMNode::CDATA_SECTION_NODE:
      parent.appendChild(document.createCDATASection(text));
      break;
    case DOMNode::COMMENT_NODE:
      parent.appendChild(document.createComment(text));
      break;
    case DOMNode::PROCESSING_INSTRUCTION_NODE:
      parent.appendChild(document.createProcessingInstruction(source.getNodeName(), text));
      break;
    default:
      break;
  }
}

void copyAttributes(DOMElement const& source, DOMElement& copy) {
  DOMNamedNodeMap const& attributes = *source.getAttributes();
  XMLSize_t const count = attributes.getLength();
  for (XMLSize_t i = 0; i < count; ++i) {
    DOMNode const& attribute = *attributes.item(i);
    char16_t const* const name = attribute.getNodeName();
    // The copy's own namespace says what holds here.
    if (sameText(name, u"xmlns")) continue;
    if (attribute.getNamespaceURI() == nullptr) {
      copy.setAttribute(name, attribute.getNodeValue());
    } else {
      copy.setAttributeNS(attribute.getNamespaceURI(), name, attribute.getNodeValue());
    }
  }
}

}  // namespace

DOMElement& LumoTree::create(DOMElement const& parent, char16_t const* name) {
  // A new element joins the namespace that it finds itself in.
  if (parent.getLocalName() == nullptr) return *document_->createElement(name);
  char16_t const* const prefix = parent.getPrefix();
  if (prefix == nullptr || *prefix == u'\0')
    return *document_->createElementNS(parent.getNamespaceURI(), name);
  std::u16string const qualified = std::u16string(prefix) + u':' + name;
  return *document_->createElementNS(parent.getNamespaceURI(), qualified.c_str());
}

LumoBaseElement& LumoTree::add(LumoBaseElement& parent, Kind const& kind) {
  before(Change::AddElement, parent);
  DOMElement& parentElement = LumoBinding::elementOf(parent);
  DOMElement& element = create(parentElement, kind.name);
  LumoBaseElement& object = make(element, kind.make);
  parentElement.appendChild(&element);
  return object;
}

DOMElement& LumoTree::copyOne(DOMElement const& source, DOMElement const& parent, DOMElement const& top) {
  bool const joins = sameText(source.getNamespaceURI(), top.getNamespaceURI());
  DOMElement& copy = joins ? create(parent, nameOf(source))
                           : *document_->createElementNS(source.getNamespaceURI(), source.getNodeName());
  copyAttributes(source, copy);
  return copy;
}

/// Copies a node without its content, and gives what that goes into.
DOMElement& LumoTree::copyInto(DOMElement& into, DOMNode const& node, DOMElement const& parent,
                               DOMElement const& top) {
  if (node.getNodeType() != DOMNode::ELEMENT_NODE) {
    copyContent(node, into);
    return into;
  }
  DOMElement& copy = copyOne(static_cast<DOMElement const&>(node), parent, top);
  into.appendChild(&copy);
  return copy;
}

LumoBaseElement& LumoTree::addCopy(LumoBaseElement& parent, DOMElement const& source) {
  before(Change::AddElement, parent);
  DOMElement& parentElement = LumoBinding::elementOf(parent);
  DOMElement& top = copyOne(source, parentElement, source);
  DOMElement* into = &top;
  // The walk only reads.
  NodeWalk walk(const_cast<DOMElement&>(source));
  bool goesOn = walk.enter();
  while (goesOn) {
    into = &copyInto(*into, *walk.node(), parentElement, source);
    if (walk.enter()) continue;
    while ((goesOn = walk.node() != &source)) {
      if (walk.node()->getNodeType() == DOMNode::ELEMENT_NODE)
        into = static_cast<DOMElement*>(into->getParentNode());
      if (walk.pass()) break;
      walk.leave();
    }
  }
  parentElement.appendChild(&top);
  hasWrittenReferences_ = true;
  return bind(top, false);
}

void LumoTree::remove(LumoBaseElement& object) {
  DOMElement& top = LumoBinding::elementOf(object);
  before(Change::RemoveElement, object);
  top.getParentNode()->removeChild(&top);
  hasDetached_ = true;
  for (ElementWalk element(top); element; ++element) {
    LumoBaseElement* const inner = existing(*element);
    if (inner != nullptr) unregisterId(*inner);
  }
}

void LumoTree::move(LumoBaseElement& object, LumoBaseElement& parent) {
  before(Change::MoveElement, object);
  DOMElement& top = LumoBinding::elementOf(object);
  LumoBinding::elementOf(parent).appendChild(&top);
  for (ElementWalk element(top); element; ++element) {
    LumoBaseElement* const inner = existing(*element);
    LumoLinks const* const links = inner == nullptr ? nullptr : linksOf(*inner);
    if (links != nullptr && links->bucket != nullptr && links->bucket->first != links->bucket->last) {
      links->bucket->isOrdered = false;
    }
  }
}

void LumoTree::write(LumoBaseElement& object, char16_t const* name, char16_t const* value) {
  before(Change::SetAttribute, object);
  setValue(LumoBinding::elementOf(object), name, value);
}

void LumoTree::erase(LumoBaseElement& object, char16_t const* name) {
  DOMElement& element = LumoBinding::elementOf(object);
  bool const isWritten = element.getAttributeNode(name) != nullptr;
  Reference* const reference = outgoing(object, name);
  bool const refers = reference != nullptr && reference->target != nullptr;
  if (!isWritten && !refers) return;
  before(Change::RemoveAttribute, object);
  if (isWritten) element.removeAttribute(name);
  if (refers) disconnect(*reference);
}

void LumoTree::writeId(LumoBaseElement& object, char16_t const* id) {
  DOMElement& element = LumoBinding::elementOf(object);
  char16_t const* const current = valueOf(element, LumoUni::_id);
  if (sameText(current, id)) return;
  // The index keeps its texts, so that `id` may come from an attribute that changes now.
  char16_t const* const kept = id == nullptr ? nullptr : ids_.findOrMake(id).id.data();
  before(kept == nullptr ? Change::RemoveAttribute : Change::SetAttribute, object);
  followId(object, kept);
  unregisterId(object);
  if (kept == nullptr) {
    element.removeAttribute(LumoUni::_id);
    return;
  }
  setValue(element, LumoUni::_id, kept);
  registerId(object, kept, false);
}

void LumoTree::refer(LumoBaseElement& object, char16_t const* name, LumoBaseElement const& target) {
  before(Change::SetAttribute, object);
  DOMElement& targetElement = LumoBinding::elementOf(target);
  if (&LumoBinding::treeOf(target) == this) {
    connect(object, name, lasting(target), true);
  } else if (Reference* const reference = outgoing(object, name)) {
    // An object of another chart may end before this one: its id is all that is kept.
    disconnect(*reference);
  }
  char16_t const* const id = valueOf(targetElement, LumoUni::_id);
  DOMElement& element = LumoBinding::elementOf(object);
  if (id != nullptr) {
    setValue(element, name, id);
  } else if (element.getAttributeNode(name) != nullptr) {
    element.removeAttribute(name);
  }
}

char16_t const* LumoTree::text(LumoBaseElement const& object) const {
  DOMElement const& element = LumoBinding::elementOf(object);
  DOMNode const* only = nullptr;
  std::u16string joined;
  bool isJoined = false;
  for (DOMNode const* node = element.getFirstChild(); node != nullptr; node = node->getNextSibling()) {
    if (!isText(*node)) continue;
    if (only != nullptr && !isJoined) {
      joined = only->getNodeValue();
      isJoined = true;
    }
    if (only == nullptr) {
      only = node;
    } else {
      joined += node->getNodeValue();
    }
  }
  if (!isJoined) return only == nullptr ? nullptr : only->getNodeValue();
  std::u16string& kept = joinedTexts_[&element];
  // The text that an earlier reader holds stays where it is as long as it is right.
  if (kept != joined) kept = std::move(joined);
  return kept.c_str();
}

void LumoTree::writeText(LumoBaseElement& object, char16_t const* text) {
  before(Change::SetText, object);
  DOMElement& element = LumoBinding::elementOf(object);
  // `text` may be the one that goes now.
  std::u16string const copy(text == nullptr ? u"" : text);
  DOMNode* const place = removeText(element);
  joinedTexts_.erase(&element);
  if (text != nullptr) element.insertBefore(document_->createTextNode(copy.c_str()), place);
}

void LumoTree::writeComment(LumoBaseElement& object, char16_t const* text) {
  DOMElement& element = LumoBinding::elementOf(object);
  DOMNode* const first = element.getFirstChild();
  bool const hasComment = first != nullptr && first->getNodeType() == DOMNode::COMMENT_NODE;
  bool const isEmpty = text == nullptr || *text == u'\0';
  if (isEmpty && !hasComment) return;
  before(Change::SetComment, object);
  if (isEmpty) {
    element.removeChild(first)->release();
  } else if (hasComment) {
    first->setNodeValue(std::u16string(text).c_str());
  } else {
    element.insertBefore(document_->createComment(text), first);
  }
}
