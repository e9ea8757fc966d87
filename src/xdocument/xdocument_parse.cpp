// The parse that all chart text goes through.

#include "xdocument.h"

#include "chart_parser.h"

#include "host/chartbase.h"
#include "host/log.h"
#include "model/chartstring.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <memory>
#include <string>
#include <utility>

namespace {

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

std::string const failureWords = "parseDocument fatal error while parsing";

}  // namespace

xercesc::DOMDocument* XDocument::parseDocument(std::string const& text, std::string& errorText,
                                               xercesc::XercesDOMParser* parser) {
  if (parser == nullptr) return nullptr;
  auto const handler = std::make_unique<ChartErrorHandler>();
  HandlerScope const scope(*parser);
  try {
    configure(*parser, *handler);
    kestrel::refuseUnsafeText(text, *parser);
    xercesc::MemBufInputSource const source(reinterpret_cast<XMLByte const*>(text.data()), text.size(),
                                            "ChartBase", false, xercesc::XMLPlatformUtils::fgMemoryManager);
    parser->parse(source);
    return parser->getDocument();
  } catch (xercesc::SAXParseException const& failure) {
    std::string message = ChartString(failure.getMessage()).toUTF8();
    errorText = std::move(message);
    ChartBase::printString(text, "parseError_", ".xml", 0, ChartBase::PrintChart);
    handler->error(ChartException(failureWords + ": " + errorText, __FILE__, __LINE__));
  } catch (...) {
    // The host's unwinding signal ends here too: relied upon.
    handler->error(ChartException(failureWords, __FILE__, __LINE__));
  }
  return nullptr;
}
