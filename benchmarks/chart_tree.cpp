#include "chart_tree.h"

#include "model/chartstring.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>

#include <memory>
#include <stdexcept>

namespace kestrel::bench {

namespace {

std::string utf8(char16_t const* text) { return ChartString(text).toUTF8(); }

struct Release {
  template <typename T>
  void operator()(T* object) const {
    object->release();
  }
};

xercesc::DOMImplementation& implementation() {
  static constexpr char16_t feature[] = u"LS";
  return *xercesc::DOMImplementationRegistry::getDOMImplementation(feature);
}

}  // namespace

std::string serialise(xercesc::DOMDocument const& document) {
  static constexpr char16_t encoding[] = u"UTF-8";
  std::unique_ptr<xercesc::DOMLSSerializer, Release> const serializer(implementation().createLSSerializer());
  std::unique_ptr<xercesc::DOMLSOutput, Release> const output(implementation().createLSOutput());
  xercesc::MemBufFormatTarget target;
  output->setByteStream(&target);
  output->setEncoding(encoding);
  serializer->write(&document, output.get());
  return {reinterpret_cast<char const*>(target.getRawBuffer()), target.getLen()};
}

std::unique_ptr<xercesc::XercesDOMParser> plainParser() {
  auto parser = std::make_unique<xercesc::XercesDOMParser>();
  parser->setValidationScheme(xercesc::XercesDOMParser::Val_Never);
  parser->setDoNamespaces(true);
  parser->setDoSchema(false);
  parser->setLoadExternalDTD(false);
  parser->setLoadSchema(false);
  return parser;
}

xercesc::DOMDocument& parsePlainly(xercesc::XercesDOMParser& parser, std::string const& text) {
  xercesc::MemBufInputSource const source(reinterpret_cast<XMLByte const*>(text.data()), text.size(),
                                          "chart");
  parser.parse(source);
  if (parser.getErrorCount() != 0) throw std::runtime_error("the chart text does not parse");
  return *parser.getDocument();
}

ChartTree::ChartTree(std::string const& chartText) {
  auto const parser = plainParser();
  xercesc::DOMElement const& root = *parsePlainly(*parser, chartText).getDocumentElement();
  mNamespace = root.getNamespaceURI() != nullptr ? root.getNamespaceURI() : u"";
  collect(root);
}

void ChartTree::collect(xercesc::DOMElement const& element) {
  Step open{Step::Kind::Open, element.getNodeName(), utf8(element.getNodeName()), {}};
  auto const* const attributes = element.getAttributes();
  for (XMLSize_t index = 0; index < attributes->getLength(); ++index) {
    auto const* const node = attributes->item(index);
    if (utf8(node->getNodeName()) == "xmlns") continue;
    open.attributes.push_back(
        {node->getNodeName(), node->getNodeValue(), utf8(node->getNodeName()), utf8(node->getNodeValue())});
  }
  mSteps.push_back(std::move(open));
  for (auto const* node = element.getFirstChild(); node != nullptr; node = node->getNextSibling()) {
    if (node->getNodeType() == xercesc::DOMNode::ELEMENT_NODE) {
      collect(static_cast<xercesc::DOMElement const&>(*node));
    } else if (node->getNodeType() == xercesc::DOMNode::TEXT_NODE) {
      mSteps.push_back({Step::Kind::Text, node->getNodeValue(), utf8(node->getNodeValue()), {}});
    }
  }
  mSteps.push_back({Step::Kind::Close, {}, {}, {}});
}

std::size_t ChartTree::elements() const {
  std::size_t count = 0;
  for (Step const& step : mSteps) count += step.kind == Step::Kind::Open;
  return count;
}

std::string ChartTree::writeWithXerces() const {
  std::unique_ptr<xercesc::DOMDocument, Release> const document(implementation().createDocument());
  xercesc::DOMNode* parent = document.get();
  for (Step const& step : mSteps) {
    switch (step.kind) {
      case Step::Kind::Open: {
        xercesc::DOMElement* const element = document->createElementNS(mNamespace.c_str(), step.text.c_str());
        for (Attribute const& attribute : step.attributes) {
          element->setAttribute(attribute.name.c_str(), attribute.value.c_str());
        }
        parent->appendChild(element);
        parent = element;
        break;
      }
      case Step::Kind::Text:
        parent->appendChild(document->createTextNode(step.text.c_str()));
        break;
      case Step::Kind::Close:
        parent = parent->getParentNode();
        break;
    }
  }
  return serialise(*document);
}

nlohmann::json ChartTree::asJson() const {
  std::size_t step = 0;
  return jsonOf(step);
}

nlohmann::json ChartTree::jsonOf(std::size_t& step) const {
  Step const& open = mSteps[step++];
  nlohmann::json element = {{"tag", open.textUtf8}};
  if (!open.attributes.empty()) {
    nlohmann::json& attributes = element["attributes"] = nlohmann::json::object();
    for (Attribute const& attribute : open.attributes) attributes[attribute.nameUtf8] = attribute.valueUtf8;
  }
  while (mSteps[step].kind != Step::Kind::Close) {
    if (mSteps[step].kind == Step::Kind::Text) {
      element["text"] = mSteps[step++].textUtf8;
    } else {
      element["children"].push_back(jsonOf(step));
    }
  }
  ++step;
  return element;
}

}  // namespace kestrel::bench
