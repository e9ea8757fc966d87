#include "chart.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using xercesc::DOMElement;
using xercesc::DOMNode;

void holdXmlLibrary() { static LumoDocument const document; }

std::string attributeText(DOMNode const& attribute) {
  return utf8(attribute.getNodeName()) + "=" + utf8(attribute.getNodeValue());
}

void outlineAttributes(DOMElement const& element, std::string& text) {
  for (XMLSize_t i = 0; i < element.getAttributes()->getLength(); ++i) {
    text += " " + attributeText(*element.getAttributes()->item(i));
  }
}

/// What a node is by itself. Texts begin with a quotation mark.
std::string line(DOMNode const& node) {
  switch (node.getNodeType()) {
    case DOMNode::ELEMENT_NODE: {
      std::string text = "{" + utf8(node.getNamespaceURI()) + "}" + utf8(node.getNodeName());
      outlineAttributes(static_cast<DOMElement const&>(node), text);
      return text;
    }
    case DOMNode::TEXT_NODE:
      return "'" + utf8(node.getNodeValue());
    case DOMNode::CDATA_SECTION_NODE:
      return "[" + utf8(node.getNodeValue());
    case DOMNode::COMMENT_NODE:
      return "!" + utf8(node.getNodeValue());
    case DOMNode::PROCESSING_INSTRUCTION_NODE:
      return "?" + utf8(node.getNodeName()) + " " + utf8(node.getNodeValue());
    default:
      return "#";
  }
}

}  // namespace

std::string utf8(char16_t const* text) { return text == nullptr ? "(null)" : ChartString(text).toUTF8(); }

ParsedChart::ParsedChart(std::string const& text) {
  holdXmlLibrary();
  parser_ = std::make_unique<xercesc::XercesDOMParser>();
  xercesc::HandlerBase handler;
  parser_->setErrorHandler(&handler);
  parser_->setDoNamespaces(true);
  xercesc::MemBufInputSource const source(reinterpret_cast<XMLByte const*>(text.data()), text.size(),
                                          "chart");
  try {
    parser_->parse(source);
  } catch (xercesc::SAXParseException const& fault) {
    throw std::runtime_error("not well-formed: " + utf8(fault.getMessage()) + "\n" + text.substr(0, 2000));
  }
  parser_->setErrorHandler(nullptr);
  document_ = std::make_unique<LumoDocument>(parser_->getDocument());
}

std::string chartText(std::string const& content) {
  return "<visualization xmlns=\"http://xml.vexa.example/visualization\">" + content + "</visualization>";
}

std::vector<std::string> childNames(LumoBaseElement const& element) {
  std::vector<std::string> names;
  for (DOMElement const* child = element.getImplementation()->getFirstElementChild(); child != nullptr;
       child = child->getNextElementSibling()) {
    names.push_back(utf8(child->getNodeName()));
  }
  return names;
}

LumoBaseElement* objectOn(DOMElement const* element) {
  return element == nullptr ? nullptr
                            : static_cast<LumoBaseElement*>(element->getUserData(element->getLocalName()));
}

DOMElement* firstOf(LumoBaseElement const& any, char16_t const* name) {
  auto* const found = any.getImplementation()->getOwnerDocument()->getElementsByTagName(name)->item(0);
  return static_cast<DOMElement*>(found);
}

std::vector<std::string> attributesOf(LumoBaseElement const& element) {
  std::vector<std::string> found;
  xercesc::DOMNamedNodeMap const& attributes = *element.getImplementation()->getAttributes();
  for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
    std::string const text = attributeText(*attributes.item(i));
    if (!text.starts_with("xmlns")) found.push_back(text);
  }
  return found;
}

std::string outline(DOMNode const& top) {
  std::string text;
  std::string indent;
  DOMNode const* node = &top;
  while (node != nullptr) {
    std::string const own = line(*node);
    bool const continues = own.front() == '\'' && node->getPreviousSibling() != nullptr &&
                           node->getPreviousSibling()->getNodeType() == DOMNode::TEXT_NODE;
    text.append(continues ? "" : "\n").append(continues ? "" : indent).append(own, continues ? 1 : 0);
    if (node->getFirstChild() != nullptr) {
      node = node->getFirstChild();
      indent += ' ';
      continue;
    }
    while (node != &top && node->getNextSibling() == nullptr) {
      node = node->getParentNode();
      indent.pop_back();
    }
    node = node == &top ? nullptr : node->getNextSibling();
  }
  return text;
}

LumoGraph& graphIn(LumoVisualization& chart) { return *chart.addGraph(u"graph"); }
LumoCoordinates& coordinatesIn(LumoVisualization& chart) {
  return *graphIn(chart).addCoordinates(u"coordinates");
}
LumoDimension& dimensionIn(LumoVisualization& chart) { return *coordinatesIn(chart).addDimension(); }
LumoAxis& axisIn(LumoVisualization& chart) { return *dimensionIn(chart).addAxis(); }
LumoMajorTicks& ticksIn(LumoVisualization& chart) { return *axisIn(chart).addMajorTicks(); }
LumoPoint& pointIn(LumoVisualization& chart) { return *graphIn(chart).addPoint(u"point"); }

LumoStyle& styleIn(LumoVisualization& chart, char16_t const* id) {
  LumoStyle& style = *chart.addStyle();
  style.setId(id);
  return style;
}

LumoSourceVariable& variableIn(LumoVisualization& chart, char16_t const* id) {
  return *chart.addSourceVariable(id);
}
LumoFormat& formatIn(LumoVisualization& chart) { return *variableIn(chart).addFormat(); }
LumoLabel& labelIn(LumoVisualization& chart) { return *chart.addLabelFrame(u"labelFrame")->addLabel(); }
LumoFacetLayout& facetLayoutIn(LumoVisualization& chart) { return *graphIn(chart).addFacetLayout(); }
LumoCross& crossIn(LumoVisualization& chart) { return *graphIn(chart).addFaceting()->addCross(); }
