#include "support/chart_parser.h"

#include "host/chartbase.h"
#include "host/log.h"
#include "model/chartstring.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/parsers/SAXParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <utility>

using xercesc::SAXParseException;

namespace kestrel {

namespace {

constexpr char16_t doctypeRefused[] = u"A document type declaration is not allowed in chart text.";
constexpr char16_t depthRefused[] = u"Elements are nested too deeply: chart text may have 1000 levels.";
constexpr char16_t lengthRefused[] = u"The text is too long: chart text may have 128 MiB.";
constexpr char16_t attributesRefused[] =
    u"An element has too many attributes: in chart text it may have 10000.";
constexpr char16_t nodesRefused[] =
    u"The text has too many elements: chart text may have 4000000 elements and attributes.";

xercesc::Locator const& locatorOf(xercesc::XMLScanner const& scanner) { return *scanner.getLocator(); }
xercesc::Locator const& locatorOf(xercesc::XMLScanner const* scanner) { return *scanner->getLocator(); }

/// A parser that refuses a document type declaration and elements that are nested too deeply.
template <typename Parser>
class Limited : public Parser {
 public:
  Limited() : Parser(nullptr, xercesc::XMLPlatformUtils::fgMemoryManager, nullptr) {}

  void startDocument() override {
    mDepth = 0;
    mNodes = 0;
    Parser::startDocument();
  }

  void doctypeDecl(xercesc::DTDElementDecl const&, XMLCh const*, XMLCh const*, bool, bool) override {
    refuse(doctypeRefused);
  }

  void startElement(xercesc::XMLElementDecl const& declaration, unsigned int uri, XMLCh const* prefix,
                    xercesc::RefVectorOf<xercesc::XMLAttr> const& attributes, XMLSize_t attributeCount,
                    bool isEmpty, bool isRoot) override {
    unsigned int const depth = mDepth + 1;
    if (depth > deepestElement) refuse(depthRefused);
    if (attributeCount > mostAttributes) refuse(attributesRefused);
    mNodes += 1 + attributeCount;
    if (mNodes > mostNodes) refuse(nodesRefused);
    mDepth = depth;
    Parser::startElement(declaration, uri, prefix, attributes, attributeCount, isEmpty, isRoot);
    // Not every parser calls endElement for an empty element.
    mDepth = isEmpty ? depth - 1 : depth;
  }

  void endElement(xercesc::XMLElementDecl const& declaration, unsigned int uri, bool isRoot,
                  XMLCh const* prefix) override {
    --mDepth;
    Parser::endElement(declaration, uri, isRoot, prefix);
  }

 private:
  [[noreturn]] void refuse(char16_t const* why) const {
    throw SAXParseException(why, locatorOf(this->getScanner()));
  }

  unsigned int mDepth = 0;
  std::size_t mNodes = 0;
};

class ChartParser final : public Limited<xercesc::XercesDOMParser> {
 public:
  /// Nodes that carry user data are each visited before their document goes, to tell handlers of it. The
  /// model needs none, and its objects are gone by now: without its root there is nothing to visit. A fifth
  /// of the time that a large chart takes was spent so.
  ~ChartParser() override {
    xercesc::DOMDocument* const document = getDocument();
    xercesc::DOMElement* const root = document != nullptr ? document->getDocumentElement() : nullptr;
    if (root != nullptr) document->removeChild(root);
  }
};

using Inspector = Limited<xercesc::SAXParser>;

void inspect(xercesc::InputSource const& source) {
  Inspector inspector;
  inspector.setLoadSchema(false);
  inspector.setLoadExternalDTD(false);
  inspector.setDisableDefaultEntityResolution(true);
  // The parser itself is told only of what there is a handler for. Without one for errors it ends quietly
  // where the text is not well formed: the caller's parser ends there too and says why, to the handler that
  // it was given.
  xercesc::HandlerBase handler;
  inspector.setDocumentHandler(&handler);
  inspector.setDTDHandler(&handler);
  inspector.parse(source);
}

void configure(xercesc::XercesDOMParser& parser, ChartErrorHandler& handler) {
  parser.setValidationScheme(xercesc::XercesDOMParser::Val_Never);
  parser.setDoNamespaces(true);
  parser.setDoSchema(true);
  parser.setIncludeIgnorableWhitespace(false);
  // Nothing outside the text is loaded: the handler resolves every entity to nothing, and nothing goes around
  // it.
  parser.setLoadSchema(false);
  parser.setLoadExternalDTD(false);
  parser.setDisableDefaultEntityResolution(true);
  parser.setErrorHandler(&handler);
  parser.setEntityResolver(&handler);
}

/// Ends a parser's use of a handler that is about to go.
class HandlerScope {
 public:
  explicit HandlerScope(xercesc::XercesDOMParser& parser) : mParser(parser) {}
  HandlerScope(HandlerScope const&) = delete;
  HandlerScope& operator=(HandlerScope const&) = delete;
  ~HandlerScope() {
    mParser.setErrorHandler(nullptr);
    mParser.setEntityResolver(nullptr);
  }

 private:
  xercesc::XercesDOMParser& mParser;
};

constexpr char const* parseFailed = "parseDocument fatal error while parsing";

}  // namespace

std::unique_ptr<xercesc::XercesDOMParser> makeChartParser() { return std::make_unique<ChartParser>(); }

void refuseUnsafeText(std::string_view text, xercesc::XercesDOMParser const& parser) {
  if (text.size() > longestText) throw SAXParseException(lengthRefused, u"", u"", 0, 0);
  if (dynamic_cast<ChartParser const*>(&parser) != nullptr) return;
  auto const* const bytes = reinterpret_cast<XMLByte const*>(text.data());
  inspect(xercesc::MemBufInputSource(bytes, text.size(), "ChartBase"));
}

xercesc::DOMDocument* parsedText(std::string const& text, char const* source, std::string& errorText,
                                 xercesc::XercesDOMParser& parser) {
  auto const handler = std::make_unique<ChartErrorHandler>();
  HandlerScope const scope(parser);
  try {
    configure(parser, *handler);
    refuseUnsafeText(text, parser);
    xercesc::MemBufInputSource const input(reinterpret_cast<XMLByte const*>(text.data()), text.size(), source,
                                           false, xercesc::XMLPlatformUtils::fgMemoryManager);
    parser.parse(input);
    return parser.getDocument();
  } catch (SAXParseException const& failure) {
    std::string message = ChartString(failure.getMessage()).toUTF8();
    errorText = std::move(message);
    ChartBase::printString(text, "parseError_", ".xml", 0, ChartBase::PrintChart);
    handler->error(ChartException(std::string(parseFailed) + ": " + errorText, __FILE__, __LINE__));
  } catch (...) {
    handler->error(ChartException(parseFailed, __FILE__, __LINE__));
  }
  return nullptr;
}

}  // namespace kestrel
