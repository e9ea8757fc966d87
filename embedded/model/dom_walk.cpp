#include "dom_walk.h"

#include <xercesc/util/XMLString.hpp>

#include <cstddef>

namespace kestrel::model {
namespace {

using xercesc::DOMAttr;
using xercesc::DOMElement;
using xercesc::DOMNode;

std::size_t depthOf(DOMNode const& node) {
  std::size_t depth = 0;
  for (DOMNode const* up = node.getParentNode(); up != nullptr; up = up->getParentNode()) ++depth;
  return depth;
}

DOMNode const* ancestorOf(DOMNode const& node, std::size_t levels) {
  DOMNode const* up = &node;
  for (; levels > 0; --levels) up = up->getParentNode();
  return up;
}

/// Walks from both at once, so that it costs no more than the shorter way.
bool isEarlierSibling(DOMNode const& left, DOMNode const& right) {
  DOMNode const* fromLeft = &left;
  DOMNode const* fromRight = &right;
  while (true) {
    fromLeft = fromLeft->getNextSibling();
    if (fromLeft == nullptr) return false;
    if (fromLeft == &right) return true;
    fromRight = fromRight->getNextSibling();
    if (fromRight == nullptr) return true;
    if (fromRight == &left) return false;
  }
}

}  // namespace

char16_t const* nameOf(DOMNode const& node) {
  char16_t const* const name = node.getLocalName();
  // Nodes made without regard to namespaces have no local name.
  return name == nullptr ? node.getNodeName() : name;
}

char16_t const* valueOf(DOMNode const& attribute) {
  DOMNode const* const only = attribute.getFirstChild();
  bool const isPlain =
      only != nullptr && only->getNodeType() == DOMNode::TEXT_NODE && only->getNextSibling() == nullptr;
  return isPlain ? only->getNodeValue() : attribute.getNodeValue();
}

char16_t const* valueOf(DOMElement const& element, char16_t const* attribute) {
  DOMAttr const* const found = element.getAttributeNode(attribute);
  return found == nullptr ? nullptr : valueOf(*found);
}

bool sameText(char16_t const* left, char16_t const* right) {
  if (left == nullptr || right == nullptr) return left == right;
  return std::u16string_view(left) == right;
}

bool isBefore(DOMNode const& left, DOMNode const& right) {
  std::size_t const leftDepth = depthOf(left);
  std::size_t const rightDepth = depthOf(right);
  DOMNode const* leftSide = ancestorOf(left, leftDepth > rightDepth ? leftDepth - rightDepth : 0);
  DOMNode const* rightSide = ancestorOf(right, rightDepth > leftDepth ? rightDepth - leftDepth : 0);
  // One holds the other: the holder begins first.
  if (leftSide == rightSide) return leftDepth < rightDepth;
  while (leftSide->getParentNode() != rightSide->getParentNode()) {
    leftSide = leftSide->getParentNode();
    rightSide = rightSide->getParentNode();
  }
  return leftSide->getParentNode() != nullptr && isEarlierSibling(*leftSide, *rightSide);
}

bool isWithin(DOMNode const& node, DOMNode const& top) {
  DOMNode const* up = &node;
  while (up != nullptr && up != &top) up = up->getParentNode();
  return up != nullptr;
}

bool isInDocument(DOMNode const& node) {
  DOMNode const* up = &node;
  while (up != nullptr && up->getNodeType() != DOMNode::DOCUMENT_NODE) up = up->getParentNode();
  return up != nullptr;
}

bool isReadOnly(DOMNode const& node) {
  // Without a document type there are no entities.
  if (node.getOwnerDocument()->getDoctype() == nullptr) return false;
  DOMNode const* up = &node;
  while (up != nullptr && up->getNodeType() != DOMNode::ENTITY_REFERENCE_NODE) up = up->getParentNode();
  return up != nullptr;
}

bool isText(DOMNode const& node) {
  return node.getNodeType() == DOMNode::TEXT_NODE || node.getNodeType() == DOMNode::CDATA_SECTION_NODE;
}

bool NodeWalk::enter() {
  DOMNode* const first = node_->getFirstChild();
  if (first == nullptr) return false;
  holders_.push_back(node_);
  node_ = first;
  return true;
}

bool NodeWalk::pass() {
  DOMNode* const next = holders_.empty() ? nullptr : node_->getNextSibling();
  if (next == nullptr) return false;
  node_ = next;
  return true;
}

bool NodeWalk::leave() {
  if (holders_.empty()) return false;
  node_ = holders_.back();
  holders_.pop_back();
  return true;
}

void ElementWalk::operator++() {
  do {
    if (walk_.enter()) continue;
    while (!walk_.pass()) {
      if (!walk_.leave()) return walk_.finish();
    }
  } while (walk_.node()->getNodeType() != DOMNode::ELEMENT_NODE);
}

}  // namespace kestrel::model
