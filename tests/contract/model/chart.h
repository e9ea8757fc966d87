#pragma once

#include "model/aesthetics.h"
#include "model/chartstring.h"
#include "model/document.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/guides.h"
#include "model/labels.h"
#include "model/paneling.h"
#include "model/printing.h"
#include "model/style.h"
#include "model/tokens.h"
#include "model/variables.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

/// UTF-8, and "(null)" for null: texts that a test can compare and print.
std::string utf8(char16_t const* text);

/// A chart that came as text: the parser, which owns the DOM, and the document on it.
class ParsedChart {
 public:
  /// Throws std::runtime_error when the text is not well-formed.
  explicit ParsedChart(std::string const& text);

  LumoDocument& document() { return *document_; }
  LumoVisualization& chart() { return *document_->getVisualization(); }
  xercesc::DOMDocument& dom() { return *parser_->getDocument(); }

 private:
  std::unique_ptr<xercesc::XercesDOMParser> parser_;
  std::unique_ptr<LumoDocument> document_;
};

/// `content` within a root element of the chart namespace.
std::string chartText(std::string const& content);

/// The names of the child elements in order.
std::vector<std::string> childNames(LumoBaseElement const& element);
/// The object that hangs on an element of the DOM; null when there is none.
LumoBaseElement* objectOn(xercesc::DOMElement const* element);
/// The first element of a name in the document.
xercesc::DOMElement* firstOf(LumoBaseElement const& any, char16_t const* name);
/// `name=value` of every attribute in the DOM's order, without namespace declarations.
std::vector<std::string> attributesOf(LumoBaseElement const& element);
/// Nodes, names, attributes and texts of a DOM as one comparable text; neighbouring texts count as one.
std::string outline(xercesc::DOMNode const& node);

// Elements of a chart for tests of one operation. Each call makes a new one with all that it stands in.
LumoGraph& graphIn(LumoVisualization& chart);
LumoCoordinates& coordinatesIn(LumoVisualization& chart);
LumoDimension& dimensionIn(LumoVisualization& chart);
LumoAxis& axisIn(LumoVisualization& chart);
LumoMajorTicks& ticksIn(LumoVisualization& chart);
LumoPoint& pointIn(LumoVisualization& chart);
LumoStyle& styleIn(LumoVisualization& chart, char16_t const* id = u"style");
LumoSourceVariable& variableIn(LumoVisualization& chart, char16_t const* id = u"variable");
LumoFormat& formatIn(LumoVisualization& chart);
LumoLabel& labelIn(LumoVisualization& chart);
LumoFacetLayout& facetLayoutIn(LumoVisualization& chart);
LumoCross& crossIn(LumoVisualization& chart);

/// At least one of every element and every attribute that the model writes.
void describeEverything(LumoVisualization& chart);
