#pragma once

#include <xercesc/dom/DOM.hpp>

#include <string>

namespace kestrel::model {

struct WriterOptions {
  bool declaration = false;
  /// Every element that holds no text on a line of its own, indented by its depth.
  bool indented = false;
};

/// The text of a node and everything in it, as UTF-8. It parses again to the same nodes: what XML cannot hold
/// is dropped, and namespaces that the DOM uses without declaring them are declared.
std::string textOf(xercesc::DOMNode const& node, WriterOptions options);

}  // namespace kestrel::model
