#include "tree.h"

#include "dom_walk.h"

#include <xercesc/util/PlatformUtils.hpp>

#include <mutex>

using kestrel::model::ElementWalk;
using kestrel::model::makeObject;
using kestrel::model::Maker;
using kestrel::model::makerOf;
using kestrel::model::nameOf;
using kestrel::model::valueOf;
using xercesc::DOMDocument;
using xercesc::DOMElement;
using xercesc::DOMNode;
using xercesc::DOMUserDataHandler;

namespace {

constexpr char16_t chartNamespace[] = u"http://xml.vexa.example/visualization";
constexpr char16_t declarationNamespace[] = u"http://www.w3.org/2000/xmlns/";
/// The document's user data: its tree. Elements carry their object under their own name, which can never be
/// this one: a name has no blank.
constexpr char16_t treeKey[] = u"lumochart tree";

}  // namespace

/// Hears from the DOM of copies that it makes by itself, and of its end.
class LumoDocumentWatch final : public DOMUserDataHandler {
 public:
  void handle(DOMOperationType operation, char16_t const* key, void* data, DOMNode const* source,
              DOMNode* target) override {
    if (operation == NODE_DELETED) {
      if (kestrel::model::sameText(key, treeKey)) static_cast<LumoTree*>(data)->document_ = nullptr;
      return;
    }
    if (source == nullptr || target == nullptr || target->getNodeType() != DOMNode::ELEMENT_NODE) return;
    if (LumoTree* const tree = LumoTree::of(target->getOwnerDocument())) {
      tree->adopt(static_cast<DOMElement&>(*target), static_cast<DOMElement const&>(*source));
    }
  }
};

namespace {

LumoDocumentWatch& watch() {
  static LumoDocumentWatch instance;
  return instance;
}

}  // namespace

void kestrel::model::holdXmlLibrary() {
  // The library counts, and others may give back more often than they took: one reference would not last.
  static std::once_flag once;
  std::call_once(once, [] {
    constexpr int references = 1 << 20;
    for (int i = 0; i < references; ++i) xercesc::XMLPlatformUtils::Initialize();
  });
}

LumoTree::LumoTree() {
  kestrel::model::holdXmlLibrary();
  DOMDocument* const made = xercesc::DOMImplementation::getImplementation()->createDocument(
      chartNamespace, LumoUni::_visualization, nullptr, &ownedMemory_);
  owned_.reset(made);
  document_ = made;
  DOMElement& root = *made->getDocumentElement();
  root.setAttributeNS(declarationNamespace, u"xmlns", chartNamespace);
  made->setUserData(treeKey, this, &watch());
  bind(root, true);
}

LumoTree::LumoTree(DOMDocument& document) : document_(&document), hasWrittenReferences_(true) {
  kestrel::model::holdXmlLibrary();
  document.setUserData(treeKey, this, &watch());
  if (DOMElement* const root = document.getDocumentElement()) bind(*root, true);
}

LumoTree::LumoTree(DOMElement& element) : document_(element.getOwnerDocument()), isStandalone_(true) {}

LumoTree::~LumoTree() {
  // The elements keep their user data: a DOM that has lost much of it takes quadratic time to end.
  if (document_ != nullptr && !owned_ && of(document_) == this)
    document_->setUserData(treeKey, nullptr, nullptr);
}

LumoTree* LumoTree::of(DOMDocument const* document) {
  return document == nullptr ? nullptr : static_cast<LumoTree*>(document->getUserData(treeKey));
}

LumoBaseElement& LumoTree::objectOf(DOMElement& element) {
  LumoBaseElement* const object = existing(element);
  if (object != nullptr) return *object;
  hasWrittenReferences_ = true;
  return bind(element, false);
}

void LumoTree::adopt(DOMElement& copy, DOMElement const& original) {
  DOMNode const* const parent = original.getParentNode();
  LumoBaseElement& object = make(copy, makerOf(nameOf(copy), parent == nullptr ? u"" : nameOf(*parent)));
  hasDetached_ = true;
  hasWrittenReferences_ = true;
  xercesc::DOMAttr const* const id = copy.getAttributeNode(LumoUni::_id);
  if (id == nullptr) return;
  // The DOM has made its copy known to itself, though it stands nowhere yet.
  if (id->isId()) copy.setIdAttribute(LumoUni::_id, false);
  registerId(object, id->getValue(), false);
}

LumoBaseElement* LumoTree::existing(DOMElement const& element) const {
  if (!isStandalone_) return static_cast<LumoBaseElement*>(element.getUserData(nameOf(element)));
  auto const found = objects_.find(&element);
  return found == objects_.end() ? nullptr : found->second;
}

LumoBaseElement& LumoTree::make(DOMElement& element, Maker maker) {
  LumoBaseElement& object = maker(arena_, LumoBinding{element, *this});
  if (isStandalone_) {
    objects_.emplace(&element, &object);
  } else {
    element.setUserData(nameOf(element), &object, &watch());
  }
  return object;
}

LumoBaseElement& LumoTree::bind(DOMElement& top, bool inOrder) {
  for (ElementWalk element(top); element; ++element) {
    // What a former chart over this DOM left behind does not count.
    if (!inOrder && existing(*element) != nullptr) continue;
    LumoBaseElement& object = bindOne(*element, element.holder());
    char16_t const* const id = valueOf(*element, LumoUni::_id);
    if (id != nullptr) registerId(object, id, inOrder);
  }
  return *existing(top);
}

LumoBaseElement& LumoTree::bindOne(DOMElement& element, DOMNode const* holder) {
  DOMNode const* const parent = holder == nullptr ? element.getParentNode() : holder;
  if (parent != nullptr && parent->getNodeType() == DOMNode::DOCUMENT_NODE && !isStandalone_) {
    // The root is the visualization, whatever its name.
    LumoBaseElement& object = make(element, &makeObject<LumoVisualization>);
    root_ = static_cast<LumoVisualization*>(&object);
    return object;
  }
  if (parent == nullptr) return make(element, makerOf(nameOf(element), u""));
  bool const isRoot = root_ != nullptr && parent == root_->getImplementation();
  return make(element, makerOf(nameOf(element), isRoot ? LumoUni::_visualization : nameOf(*parent)));
}
