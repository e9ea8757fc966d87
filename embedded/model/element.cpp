#include "access.h"
#include "text_writer.h"

#include "model/base.h"

#include <string>

using namespace kestrel::model;

LumoBaseElement::LumoBaseElement(LumoBinding const& binding) noexcept
    : element_(&binding.element), tree_(&binding.tree) {}

LumoBaseElement::~LumoBaseElement() = default;

std::string LumoBaseElement::AsUTF8() const { return textOf(*element_, {}); }

xercesc::DOMElement* LumoBaseElement::getImplementation() const noexcept { return element_; }
LumoVisualization* LumoBaseElement::getVisualization() const noexcept { return tree_->root(); }

char16_t const* LumoBaseElement::getAttribute(char16_t const* name) const { return read(*this, name); }
char16_t const* LumoBaseElement::getId() const { return read(*this, LumoUni::_id); }
void LumoBaseElement::setId(char16_t const* id) { tree_->writeId(*this, id); }

bool LumoBaseElement::doesIdExist(char16_t const* id) const {
  return tree_->find(id, &isA<LumoBaseElement>) != nullptr;
}

LumoStyle* LumoBaseElement::getStyleById(char16_t const* id) const {
  return static_cast<LumoStyle*>(tree_->find(id, &isA<LumoStyle>));
}

void LumoBaseElement::setComment(char16_t const* text) { tree_->writeComment(*this, text); }
