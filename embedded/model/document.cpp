#include "model/document.h"

#include "text_writer.h"
#include "tree.h"

#include <memory>
#include <stdexcept>
#include <string>

using xercesc::DOMDocument;
using xercesc::DOMElement;

LumoChangeObserver::~LumoChangeObserver() = default;

void LumoDocument::holdXmlLibrary() { kestrel::model::holdXmlLibrary(); }

LumoDocument::LumoDocument() : tree_(std::make_unique<LumoTree>()) {}

LumoDocument::LumoDocument(DOMDocument* document) {
  if (document == nullptr) throw std::invalid_argument("LumoDocument: no document");
  tree_ = std::make_unique<LumoTree>(*document);
}

LumoDocument::~LumoDocument() = default;

LumoVisualization* LumoDocument::getVisualization() const { return tree_->root(); }

std::string LumoDocument::AsUTF8() const {
  if (tree_->document() == nullptr) throw std::logic_error("LumoDocument: its DOM has ended");
  return kestrel::model::textOf(*tree_->document(), {true, false});
}

DOMDocument* LumoDocument::getImplementation() const noexcept { return tree_->document(); }
void LumoDocument::setChangeObserver(LumoChangeObserver* observer) noexcept { tree_->setObserver(observer); }

LumoBaseElement* LumoDocument::importElement(DOMElement const& source, LumoBaseElement& parent) {
  if (&LumoBinding::treeOf(parent) != tree_.get())
    throw std::invalid_argument("importElement: parent of another chart");
  return &tree_->addCopy(parent, source);
}

LumoBaseElement* LumoDocument::find(DOMElement* element) {
  if (element == nullptr || element->getOwnerDocument() != tree_->document()) return nullptr;
  return &tree_->objectOf(*element);
}
