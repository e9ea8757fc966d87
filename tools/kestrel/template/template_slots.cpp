#include "template_slots.h"

#include "chart/column_names.h"
#include "chart/nearest_name.h"
#include "problem.h"
#include "received_chart.h"
#include "shipped_files.h"
#include "xdocument.h"

#include "model/chartstring.h"
#include "model/document.h"

#include <xercesc/dom/DOM.hpp>

#include <algorithm>

namespace kestrel::tool {

namespace {

using xercesc::DOMElement;

constexpr char16_t templateNamespace[] = u"http://xml.vexa.example/visualization-template";
constexpr ShippedFiles shipped{"visualization template", "template", ".lumotemplate"};

std::string utf8(char16_t const* text) { return ChartString(text).toUTF8(); }

/// Texts in XML files are broken in lines as it fits.
std::string onOneLine(std::string const& text) {
  std::string line;
  for (char const character : text) {
    bool const blank = character == ' ' || character == '\n' || character == '\t' || character == '\r';
    if (!blank) line += character;
    if (blank && !line.empty() && line.back() != ' ') line += ' ';
  }
  if (!line.empty() && line.back() == ' ') line.pop_back();
  return line;
}

bool isOfTemplates(DOMElement const& element, char16_t const* name) {
  return ChartString(element.getNamespaceURI()).equals(templateNamespace) &&
         ChartString(element.getLocalName()).equals(name);
}

/// The first child of that name; null where there is none.
DOMElement const* childOf(DOMElement const& parent, char16_t const* name) {
  DOMElement const* child = parent.getFirstElementChild();
  while (child != nullptr && !isOfTemplates(*child, name)) child = child->getNextElementSibling();
  return child;
}

TemplateSlot slotOf(DOMElement const& declared) {
  auto const attribute = [&declared](char16_t const* name) { return utf8(declared.getAttribute(name)); };
  TemplateSlot slot;
  slot.name = attribute(u"name");
  slot.kind = attribute(u"kind");
  slot.required = attribute(u"required") == "true";
  slot.several = attribute(u"several") == "true";
  slot.sets = attribute(u"sets") == "true";
  slot.values = attribute(u"values");
  slot.fallback = attribute(u"default");
  slot.meaning = onOneLine(utf8(declared.getTextContent()));
  return slot;
}

}  // namespace

bool TemplateSlot::takesVariables() const {
  return kind == "variable" || kind == "categorical" || kind == "scale" || kind == "weight";
}

TemplateSlot const& VisualizationTemplate::slot(std::string const& slotName) const {
  auto const isMeant = [&slotName](TemplateSlot const& slot) { return slot.name == slotName; };
  auto const found = std::find_if(slots.begin(), slots.end(), isMeant);
  if (found != slots.end()) return *found;
  std::vector<std::string> names;
  for (TemplateSlot const& slot : slots) names.push_back(slot.name);
  std::string const nearest = nearestName(slotName, names);
  throw Problem("the template " + inQuotes(name) + " has no slot " + inQuotes(slotName) +
                    (nearest.empty() ? "" : "; did you mean " + inQuotes(nearest) + "?") +
                    "; its slots are " + listed(names),
                Exit::BadInput);
}

std::vector<std::string> shippedVisualizationTemplates() { return shipped.names(); }

VisualizationTemplate readVisualizationTemplate(std::string const& name) {
  std::string const path = shipped.pathOf(name);
  auto const chart = readChart(path);
  DOMElement const* const declaration = childOf(*chart->getVisualization()->getImplementation(), u"template");
  if (declaration == nullptr) throw badInput(path, "is a chart, but no template: it declares no slots");
  VisualizationTemplate read{
      name, isPlainName(name) ? std::string() : path, utf8(declaration->getAttribute(u"title")), {}};
  for (DOMElement const* child = declaration->getFirstElementChild(); child != nullptr;
       child = child->getNextElementSibling()) {
    if (isOfTemplates(*child, u"slot")) read.slots.push_back(slotOf(*child));
  }
  return read;
}

}  // namespace kestrel::tool
