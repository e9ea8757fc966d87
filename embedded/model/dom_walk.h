#pragma once

#include <xercesc/dom/DOM.hpp>

#include <cstddef>
#include <string_view>
#include <vector>

namespace kestrel::model {

/// The name without a prefix.
char16_t const* nameOf(xercesc::DOMNode const& node);
/// The value of an attribute, without the detour that the DOM takes for it.
char16_t const* valueOf(xercesc::DOMNode const& attribute);
/// Null when the attribute is absent.
char16_t const* valueOf(xercesc::DOMElement const& element, char16_t const* attribute);
/// Null equals null only.
bool sameText(char16_t const* left, char16_t const* right);

/// Does `left` begin before `right` in their document? False for nodes of two trees.
bool isBefore(xercesc::DOMNode const& left, xercesc::DOMNode const& right);
bool isWithin(xercesc::DOMNode const& node, xercesc::DOMNode const& top);
bool isInDocument(xercesc::DOMNode const& node);
/// Does the node come from an entity? Nothing can be changed there.
bool isReadOnly(xercesc::DOMNode const& node);
bool isText(xercesc::DOMNode const& node);

/// Visits a node and everything in it in document order. It remembers its way, because asking the DOM for a
/// parent is slow, and recursion would not survive deep trees.
class NodeWalk {
 public:
  explicit NodeWalk(xercesc::DOMNode& top) : node_(&top) {}

  /// Null at the end.
  xercesc::DOMNode* node() const { return node_; }
  /// What holds the node; null for the top.
  xercesc::DOMNode* holder() const { return holders_.empty() ? nullptr : holders_.back(); }
  xercesc::DOMNode const* top() const { return holders_.empty() ? node_ : holders_.front(); }

  /// Into the node's content, if it has any.
  bool enter();
  /// To the next node beside it.
  bool pass();
  /// Out of the content to what holds it; false at the top.
  bool leave();
  void finish() { node_ = nullptr; }

 private:
  xercesc::DOMNode* node_;
  std::vector<xercesc::DOMNode*> holders_;
};

/// Visits the elements alone.
class ElementWalk {
 public:
  explicit ElementWalk(xercesc::DOMElement& top) : walk_(top) {}

  explicit operator bool() const { return walk_.node() != nullptr; }
  xercesc::DOMElement& operator*() const { return static_cast<xercesc::DOMElement&>(*walk_.node()); }
  xercesc::DOMElement* operator->() const { return &**this; }
  xercesc::DOMNode* holder() const { return walk_.holder(); }
  void operator++();

 private:
  NodeWalk walk_;
};

}  // namespace kestrel::model
