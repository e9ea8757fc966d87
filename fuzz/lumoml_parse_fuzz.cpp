// A chart's text from outside: whatever parses is bound to the model, changed, and written; what was written
// parses again, and gives the same text.
#include "model/aesthetics.h"
#include "model/chartstring.h"
#include "model/document.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/style.h"
#include "model/variables.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLException.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace {

using xercesc::XercesDOMParser;

/// Null when the text is no XML. Nothing is loaded from outside it.
std::unique_ptr<XercesDOMParser> parse(std::string const& text) {
  static xercesc::SecurityManager limits;
  limits.setEntityExpansionLimit(100);
  auto parser = std::make_unique<XercesDOMParser>();
  xercesc::HandlerBase handler;
  parser->setErrorHandler(&handler);
  parser->setSecurityManager(&limits);
  parser->setDoNamespaces(true);
  parser->setLoadSchema(false);
  parser->setLoadExternalDTD(false);
  parser->setDisableDefaultEntityResolution(true);
  xercesc::MemBufInputSource const source(reinterpret_cast<XMLByte const*>(text.data()), text.size(),
                                          "chart");
  try {
    parser->parse(source);
  } catch (xercesc::SAXException const&) {
    return nullptr;
  } catch (xercesc::XMLException const&) {
    return nullptr;
  } catch (xercesc::DOMException const&) {
    return nullptr;
  }
  parser->setErrorHandler(nullptr);
  return parser;
}

[[noreturn]] void fail(char const* what, std::string const& text) {
  std::fprintf(stderr, "%s\n%s\n", what, text.c_str());
  std::abort();
}

/// Names in XML 1.1 may hold characters that those in 1.0 may not, and charts are written as 1.0.
bool isVersion11(xercesc::DOMDocument const& document) {
  char16_t const* const version = document.getXmlVersion();
  return version != nullptr && ChartString(version).equals(u"1.1");
}

void expectStable(LumoDocument const& document) {
  std::string const once = document.AsUTF8();
  auto const parser = parse(once);
  if (!parser) fail("what was written does not parse", once);
  LumoDocument const again(parser->getDocument());
  if (again.AsUTF8() != once)
    fail("what was written changes when it is parsed", once + "\n" + again.AsUTF8());
}

void readAll(LumoVisualization& chart) {
  for (LumoGraph const* graph : chart.getGraphs()) {
    graph->getCellStyle();
    for (LumoPoint const* point : graph->getPoints()) {
      point->getStyle();
      if (point->getX() != nullptr) point->getX()->getVariable();
    }
    for (LumoCoordinates const* coordinates : graph->getCoordinatess()) {
      for (LumoDimension const* dimension : coordinates->getDimensions()) dimension->getDomain();
    }
  }
  for (LumoLabelFrame const* frame : chart.getLabelFrames()) {
    if (frame->getLabel() == nullptr) continue;
    for (LumoText const* text : frame->getLabel()->getTexts()) text->getText();
  }
  chart.getVersion();
}

void changeAll(LumoVisualization& chart) {
  unsigned int number = 0;
  for (LumoStyle* style : chart.getStyles()) {
    ChartString id(style->getId());
    id.append(++number);
    style->setId(id.xc_str());
    style->addStyle()->setColor(style->getColor());
  }
  chart.reparentContainerChildren();
  if (!chart.getStyles().empty()) chart.reparentStyles(*chart.getStyles().front());
  for (LumoGraph* graph : chart.getGraphs()) {
    graph->removeLocations();
    for (LumoPoint* point : graph->getPoints()) point->removeStyleBys();
  }
  for (LumoSourceVariable* variable : chart.getSourceVariables()) {
    for (LumoFormat const* format : variable->getFormats()) variable->addFormat(*format);
  }
  chart.setComment(chart.getLang());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  static LumoDocument const holdsTheXmlLibrary;
  auto const parser = parse(std::string(reinterpret_cast<char const*>(data), size));
  if (!parser || isVersion11(*parser->getDocument())) return 0;
  LumoDocument document(parser->getDocument());
  expectStable(document);
  readAll(*document.getVisualization());
  try {
    changeAll(*document.getVisualization());
  } catch (xercesc::DOMException const&) {
    // What comes from an entity is read-only.
    if (parser->getDocument()->getDoctype() == nullptr) throw;
  }
  expectStable(document);
  return 0;
}
