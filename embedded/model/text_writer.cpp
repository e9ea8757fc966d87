#include "text_writer.h"

#include "dom_walk.h"
#include "utf8_buffer.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace kestrel::model {
namespace {

using xercesc::DOMElement;
using xercesc::DOMNamedNodeMap;
using xercesc::DOMNode;

constexpr std::string_view declarationText = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
constexpr std::size_t indentWidth = 2;

std::u16string_view viewOf(char16_t const* text) { return text == nullptr ? std::u16string_view() : text; }

/// The prefix that an attribute declares; false when it declares none.
bool declares(std::u16string_view name, std::u16string_view& prefix) {
  constexpr std::u16string_view declaration = u"xmlns";
  if (!name.starts_with(declaration)) return false;
  prefix = name.substr(declaration.size());
  if (prefix.empty()) return true;
  if (prefix.front() != u':') return false;
  prefix.remove_prefix(1);
  return true;
}

bool isSpace(std::u16string_view text) {
  return text.find_first_not_of(u" \t\r\n") == std::u16string_view::npos;
}

/// What XML can hold of a text. Where a sequence of characters would end something early, this must come
/// first: what is dropped may bring two of them together.
std::u16string legal(std::u16string_view text) {
  std::u16string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char16_t const unit = text[i];
    if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
      result.append(text.substr(i++, 2));
    } else if (isCharacter(unit)) {
      result.push_back(unit);
    }
  }
  return result;
}

/// Comments and instructions know no references: what would end one early is broken up by a blank.
std::u16string broken(std::u16string_view text, char16_t first, char16_t second) {
  std::u16string result;
  result.reserve(text.size() + 1);
  for (char16_t const character : text) {
    if (!result.empty() && result.back() == first && character == second) result.push_back(u' ');
    result.push_back(character);
  }
  return result;
}

/// Has no attribute before this one the same prefix?
bool isFirstOfPrefix(DOMNamedNodeMap const& attributes, XMLSize_t index) {
  std::u16string_view const prefix = viewOf(attributes.item(index)->getPrefix());
  for (XMLSize_t i = 0; i < index; ++i) {
    if (viewOf(attributes.item(i)->getPrefix()) == prefix) return false;
  }
  return true;
}

class Writer {
 public:
  // The walk only reads.
  Writer(DOMNode const& top, WriterOptions options) : options_(options), walk_(const_cast<DOMNode&>(top)) {}

  std::string write();

 private:
  bool open(DOMNode const& node);
  void close(DOMNode const& node);
  void openElement(DOMElement const& element);
  void closeElement(DOMElement const& element);
  void endStartTag();
  void breakLine();

  void putAttributes(DOMElement const& element);
  void declareNamespaces(DOMElement const& element);
  void declare(std::u16string_view prefix, std::u16string_view uri);
  bool isDeclaredByParent(DOMElement const& element) const;
  bool isDeclared(DOMElement const& element, std::u16string_view prefix, std::u16string_view uri) const;

  void putText(DOMNode const& node);
  void putCharacters(DOMNode const& node);
  void putBetween(std::string_view before, std::u16string_view text, std::string_view after);

  WriterOptions options_;
  Utf8Buffer out_;
  NodeWalk walk_;
  /// The start tag of the last element still lacks its end: it may turn out to be empty.
  bool isTagOpen_ = false;
  /// How deep, and from which depth on content holds text and must stay as it is.
  std::size_t depth_ = 0;
  std::size_t mixedDepth_ = 0;
  bool isMixed_ = false;
};

std::string Writer::write() {
  if (options_.declaration) out_.put(declarationText);
  while (true) {
    if (open(*walk_.node()) && walk_.enter()) continue;
    while (!walk_.pass()) {
      if (!walk_.leave()) return out_.take();
      close(*walk_.node());
    }
  }
}

/// Writes the beginning of a node; true when its children come next.
bool Writer::open(DOMNode const& node) {
  switch (node.getNodeType()) {
    case DOMNode::ELEMENT_NODE: {
      auto const& element = static_cast<DOMElement const&>(node);
      openElement(element);
      if (element.hasChildNodes()) return true;
      closeElement(element);
      return false;
    }
    case DOMNode::TEXT_NODE:
    case DOMNode::CDATA_SECTION_NODE:
      putText(node);
      return false;
    case DOMNode::COMMENT_NODE: {
      std::u16string text = broken(legal(viewOf(node.getNodeValue())), u'-', u'-');
      if (!text.empty() && text.back() == u'-') text.push_back(u' ');
      putBetween("<!--", text, "-->");
      return false;
    }
    case DOMNode::PROCESSING_INSTRUCTION_NODE: {
      std::u16string const data = broken(legal(viewOf(node.getNodeValue())), u'?', u'>');
      putBetween("<?", std::u16string(node.getNodeName()) + (data.empty() ? u"" : u" ") + data, "?>");
      return false;
    }
    case DOMNode::ATTRIBUTE_NODE:
      return false;
    // What is left either holds content (a document, a fragment, an entity reference) or has none (a document
    // type).
    default:
      return node.getNodeType() != DOMNode::DOCUMENT_TYPE_NODE && node.hasChildNodes();
  }
}

void Writer::close(DOMNode const& node) {
  if (node.getNodeType() == DOMNode::ELEMENT_NODE) closeElement(static_cast<DOMElement const&>(node));
}

void Writer::openElement(DOMElement const& element) {
  endStartTag();
  breakLine();
  out_.put('<');
  out_.put(element.getNodeName(), Escape::None);
  declareNamespaces(element);
  putAttributes(element);
  isTagOpen_ = true;
  ++depth_;
  if (!options_.indented || isMixed_) return;
  for (DOMNode const* node = element.getFirstChild(); node != nullptr; node = node->getNextSibling()) {
    if (!isText(*node) || isSpace(viewOf(node->getNodeValue()))) continue;
    isMixed_ = true;
    mixedDepth_ = depth_;
    return;
  }
}

void Writer::closeElement(DOMElement const& element) {
  bool const wasMixed = isMixed_;
  if (isMixed_ && mixedDepth_ == depth_) isMixed_ = false;
  --depth_;
  if (isTagOpen_) {
    out_.put(std::string_view("/>"));
    isTagOpen_ = false;
    return;
  }
  if (!wasMixed) breakLine();
  out_.put(std::string_view("</"));
  out_.put(element.getNodeName(), Escape::None);
  out_.put('>');
}

void Writer::endStartTag() {
  if (isTagOpen_) out_.put('>');
  isTagOpen_ = false;
}

void Writer::breakLine() {
  if (!options_.indented || isMixed_ || out_.isEmpty()) return;
  out_.put('\n');
  out_.fill(depth_ * indentWidth, ' ');
}

void Writer::putAttributes(DOMElement const& element) {
  DOMNamedNodeMap const& attributes = *element.getAttributes();
  XMLSize_t const count = attributes.getLength();
  std::u16string_view const ownPrefix = viewOf(element.getPrefix());
  for (XMLSize_t i = 0; i < count; ++i) {
    DOMNode const& attribute = *attributes.item(i);
    std::u16string_view const name = attribute.getNodeName();
    std::u16string_view value = viewOf(valueOf(attribute));
    std::u16string_view prefix;
    if (element.getLocalName() != nullptr && declares(name, prefix)) {
      // An element cannot stand in a namespace and declare another under its own prefix.
      if (prefix == ownPrefix) value = viewOf(element.getNamespaceURI());
      if (value.empty() && !prefix.empty()) continue;
    }
    out_.put(' ');
    out_.put(name, Escape::None);
    out_.put(std::string_view("=\""));
    out_.put(value, Escape::Attribute);
    out_.put('"');
  }
}

void Writer::declareNamespaces(DOMElement const& element) {
  if (element.getLocalName() != nullptr) {
    std::u16string_view const prefix = viewOf(element.getPrefix());
    std::u16string_view const uri = viewOf(element.getNamespaceURI());
    if (!isDeclaredByParent(element) && !isDeclared(element, prefix, uri)) declare(prefix, uri);
  }
  DOMNamedNodeMap const& attributes = *element.getAttributes();
  XMLSize_t const count = attributes.getLength();
  for (XMLSize_t i = 0; i < count; ++i) {
    DOMNode const& attribute = *attributes.item(i);
    std::u16string_view const prefix = viewOf(attribute.getPrefix());
    if (prefix.empty() || prefix == u"xml" || prefix == u"xmlns" || prefix == viewOf(element.getPrefix()))
      continue;
    std::u16string_view const uri = viewOf(attribute.getNamespaceURI());
    if (isFirstOfPrefix(attributes, i) && !isDeclared(element, prefix, uri)) declare(prefix, uri);
  }
}

void Writer::declare(std::u16string_view prefix, std::u16string_view uri) {
  out_.put(std::string_view(" xmlns"));
  if (!prefix.empty()) out_.put(':');
  out_.put(prefix, Escape::None);
  out_.put(std::string_view("=\""));
  out_.put(uri, Escape::Attribute);
  out_.put('"');
}

/// The usual case, told by addresses: the DOM keeps each name and namespace once.
bool Writer::isDeclaredByParent(DOMElement const& element) const {
  DOMNode const* const parent = walk_.holder();
  return parent != nullptr && parent->getNodeType() == DOMNode::ELEMENT_NODE &&
         parent->getLocalName() != nullptr && parent->getNamespaceURI() == element.getNamespaceURI() &&
         parent->getPrefix() == element.getPrefix();
}

/// Does the text written so far, with the attributes of `element`, bind the prefix to the namespace?
bool Writer::isDeclared(DOMElement const& element, std::u16string_view prefix,
                        std::u16string_view uri) const {
  std::u16string name(u"xmlns");
  if (!prefix.empty()) name.append(u":").append(prefix);
  for (DOMNode const* node = &element; node != nullptr && node->getNodeType() == DOMNode::ELEMENT_NODE;
       node = node->getParentNode()) {
    auto const& holder = static_cast<DOMElement const&>(*node);
    // An element's own prefix is bound at its place, by whatever declared it.
    bool const isHoldersOwn = holder.getLocalName() != nullptr && viewOf(holder.getPrefix()) == prefix;
    if (node != &element && isHoldersOwn) return viewOf(holder.getNamespaceURI()) == uri;
    char16_t const* const declared = valueOf(holder, name.c_str());
    // Nothing can be declared twice on one element.
    if (declared != nullptr) return node == &element || uri == declared;
    if (node == walk_.top()) break;
  }
  return uri.empty();
}

void Writer::putText(DOMNode const& node) {
  std::u16string_view const text = viewOf(node.getNodeValue());
  if (text.empty()) return;
  // Between indented elements white space carries nothing.
  if (options_.indented && !isMixed_ && isSpace(text)) return;
  endStartTag();
  if (node.getNodeType() == DOMNode::TEXT_NODE) {
    out_.put(text, Escape::Text);
  } else {
    putCharacters(node);
  }
}

/// A CDATA section cannot hold its own end, nor a carriage return that would survive.
void Writer::putCharacters(DOMNode const& node) {
  std::u16string const kept = legal(viewOf(node.getNodeValue()));
  std::u16string_view text = kept;
  out_.put(std::string_view("<![CDATA["));
  while (!text.empty()) {
    std::size_t const end = text.find(u"]]>");
    std::size_t const carriageReturn = text.find(u'\r');
    std::size_t const cut = end < carriageReturn ? end + 2 : carriageReturn;
    out_.put(text.substr(0, cut), Escape::None);
    if (cut >= text.size()) break;
    bool const isReturn = cut == carriageReturn;
    out_.put(std::string_view(isReturn ? "]]>&#xD;<![CDATA[" : "]]><![CDATA["));
    text.remove_prefix(isReturn ? cut + 1 : cut);
  }
  out_.put(std::string_view("]]>"));
}

void Writer::putBetween(std::string_view before, std::u16string_view text, std::string_view after) {
  endStartTag();
  breakLine();
  out_.put(before);
  out_.put(text, Escape::None);
  out_.put(after);
}

}  // namespace

std::string textOf(DOMNode const& node, WriterOptions options) { return Writer(node, options).write(); }

}  // namespace kestrel::model
