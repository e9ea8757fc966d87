// The parse that all chart text goes through.

#include "xdocument.h"

#include "support/chart_parser.h"

#include <string>

xercesc::DOMDocument* XDocument::parseDocument(std::string const& text, std::string& errorText,
                                               xercesc::XercesDOMParser* parser) {
  if (parser == nullptr) return nullptr;
  return kestrel::parsedText(text, "ChartBase", errorText, *parser);
}
