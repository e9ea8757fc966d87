#include "chart_parser.h"

#include "host/log.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

using xercesc::SAXParseException;

namespace kestrel {

namespace {

constexpr char16_t doctypeRefused[] = u"A document type declaration is not allowed in chart text.";
constexpr char16_t depthRefused[] = u"Elements are nested too deeply: chart text may have 1000 levels.";
constexpr char16_t lengthRefused[] = u"The text is too long: chart text may have 512 MiB.";

class ChartParser final : public xercesc::XercesDOMParser {
 public:
  ChartParser() : XercesDOMParser(nullptr, xercesc::XMLPlatformUtils::fgMemoryManager, nullptr) {}

  void startDocument() override {
    mDepth = 0;
    XercesDOMParser::startDocument();
  }

  void doctypeDecl(xercesc::DTDElementDecl const&, XMLCh const*, XMLCh const*, bool, bool) override {
    refuse(doctypeRefused);
  }

  void startElement(xercesc::XMLElementDecl const& declaration, unsigned int uri, XMLCh const* prefix,
                    xercesc::RefVectorOf<xercesc::XMLAttr> const& attributes, XMLSize_t attributeCount,
                    bool isEmpty, bool isRoot) override {
    // The base ends an empty element by itself: counted here all the same, since it calls endElement for it
    // too.
    if (++mDepth > deepestElement) refuse(depthRefused);
    XercesDOMParser::startElement(declaration, uri, prefix, attributes, attributeCount, isEmpty, isRoot);
  }

  void endElement(xercesc::XMLElementDecl const& declaration, unsigned int uri, bool isRoot,
                  XMLCh const* prefix) override {
    --mDepth;
    XercesDOMParser::endElement(declaration, uri, isRoot, prefix);
  }

 private:
  [[noreturn]] void refuse(char16_t const* why) const {
    throw SAXParseException(why, *getScanner()->getLocator());
  }

  unsigned int mDepth = 0;
};

/// Ends an inspection at the place where the text is not well formed.
struct NotWellFormed {};

/// Reads a text and refuses it by the same rules.
class Inspector final : public xercesc::DefaultHandler {
 public:
  using DefaultHandler::startDTD;
  using DefaultHandler::startElement;

  void setDocumentLocator(xercesc::Locator const* locator) override { mLocator = locator; }

  void startDTD(XMLCh const*, XMLCh const*, XMLCh const*) override { refuse(doctypeRefused); }

  void startElement(XMLCh const*, XMLCh const*, XMLCh const*, xercesc::Attributes const&) override {
    if (++mDepth > deepestElement) refuse(depthRefused);
  }

  void endElement(XMLCh const*, XMLCh const*, XMLCh const*) override { --mDepth; }

  void fatalError(SAXParseException const&) override { throw NotWellFormed(); }

 private:
  [[noreturn]] void refuse(char16_t const* why) const { throw SAXParseException(why, *mLocator); }

  xercesc::Locator const* mLocator = nullptr;
  unsigned int mDepth = 0;
};

}  // namespace

std::unique_ptr<xercesc::XercesDOMParser> makeChartParser() { return std::make_unique<ChartParser>(); }

void refuseUnsafeText(std::string_view text, xercesc::XercesDOMParser const& parser) {
  if (text.size() > longestText) throw SAXParseException(lengthRefused, u"", u"", 0, 0);
  if (dynamic_cast<ChartParser const*>(&parser) != nullptr) return;
  std::unique_ptr<xercesc::SAX2XMLReader> const reader(xercesc::XMLReaderFactory::createXMLReader());
  reader->setFeature(xercesc::XMLUni::fgSAX2CoreValidation, false);
  reader->setFeature(xercesc::XMLUni::fgXercesLoadExternalDTD, false);
  reader->setFeature(xercesc::XMLUni::fgXercesLoadSchema, false);
  reader->setFeature(xercesc::XMLUni::fgXercesDisableDefaultEntityResolution, true);
  Inspector inspector;
  reader->setContentHandler(&inspector);
  reader->setLexicalHandler(&inspector);
  reader->setErrorHandler(&inspector);
  xercesc::MemBufInputSource const source(reinterpret_cast<XMLByte const*>(text.data()), text.size(),
                                          "ChartBase");
  try {
    reader->parse(source);
  } catch (NotWellFormed const&) {
    // The parser stops at the same place and says why, to the handler that it was given.
    return;
  }
}

}  // namespace kestrel
