// Templates that work one at a time, and what is read from them.

#include "xdocument.h"

#include "template_run.h"
#include "xdocument_data.h"

#include "support/chart_parser.h"
#include "support/failure.h"
#include "support/product_paths.h"

#include "host/files.h"
#include "host/messages.h"
#include "host/templates.h"
#include "model/chartstring.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNodeList.hpp>

#include <string>
#include <utility>
#include <vector>

using kestrel::logFailure;
using kestrel::TemplateDumps;

namespace {

/// What stands before a template that was given without its root element.
constexpr char const* prolog =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>"
    "<template Vexa-Version=\"2.10\" "
    "xmlns=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization\" "
    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
    "xsi:schemaLocation=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization "
    "http://xml.vexa.example/software/analytics/vexa/xml/visualization/lumoml-template-3.5.xsd\">";

constexpr TemplateDumps immediate{"itemplate_", "bItemplate_", "aItemplate_"};
constexpr TemplateDumps user{"utemplate_", "bUtemplate_", "aUtemplate_"};

std::string fetch(std::string const& name) { return FetchFile().fetch(name, true, true); }

}  // namespace

bool XDocument::applyImmediateTemplate(std::string const& fragment) {
  // Never counted on: relied upon.
  constexpr unsigned long filenumber = 0;
  if (!implementationExists()) return false;
  kestrel::dumpChartBefore(immediate, *this, filenumber);
  ChartTemplate engine(chart(), nullptr);
  std::string const text = prolog + fragment + "</template>";
  kestrel::dumpTemplate(immediate, text, filenumber);
  bool const taken = engine.setTemplate(text);
  // Also where the engine has refused the text: relied upon.
  engine.applyTemplate();
  kestrel::dumpChartAfter(immediate, *this, filenumber);
  return taken;
}

int XDocument::applyUserTemplates(LumoVisualization* baseline) {
  static unsigned long filenumber = 1;
  ChartTemplate engine(chart(), baseline);
  for (std::string const& fragment : mData->mInlineTemplates) applyImmediateTemplate(fragment);
  if (mData->mDoNotModify && !mData->mKeepFileTemplates) return 0;
  int count = 0;
  for (std::string const& name : mData->mTemplates) {
    std::string const content = fetch(name);
    if (content.empty()) {
      kestrel::tellUser("The specified template ^1 was not found.", name);
    } else {
      kestrel::dumpTemplate(user, content, filenumber);
      engine.setTemplate(content);
      if (kestrel::applyWithDumps(engine, user, *this, filenumber,
                                  "Failure occurred while applying user template: ", name)) {
        ++count;
      } else {
        kestrel::tellUser("An error occurred while applying a chart template");
      }
    }
    ++filenumber;
  }
  return count;
}

void XDocument::applyStyleTemplate() {
  if (!implementationExists()) return;
  kestrel::BaselineChart const baseline(*this);
  ChartTemplate engine(chart(), baseline.visualization());
  std::vector<std::string> names = OTemplate().Get();
  if (names.empty()) names = STemplate().Get();
  for (std::string const& name : names) {
    std::string const content = fetch(name);
    if (content.empty()) {
      if (!name.empty()) logFailure("Could not find the chart style template: " + name, __FILE__, __LINE__);
      continue;
    }
    engine.setTemplate(content);
    try {
      engine.applyTemplate();
    } catch (VexaGoToCaller const&) {
      throw;
    } catch (...) {
      logFailure("Failure occurred while applying style template: " + name, __FILE__, __LINE__);
    }
  }
}

std::string XDocument::fetchTemplateFile(std::string name) {
  return fetch(kestrel::productTemplate(std::move(name)));
}

bool XDocument::useColorsOnly() {
  for (std::string const& name : OTemplate().Get()) {
    std::string const content = fetch(name);
    if (!content.empty() && content.find("ColorsOnly") == std::string::npos) return false;
  }
  return true;
}

namespace {

/// Of the first "setColor" alone.
void appendColors(xercesc::DOMDocument const& document, std::vector<ChartString>& colors) {
  xercesc::DOMNodeList const& settings = *document.getElementsByTagName(u"setColor");
  if (settings.getLength() == 0) return;
  auto const& first = static_cast<xercesc::DOMElement const&>(*settings.item(0));
  xercesc::DOMNodeList const& styles = *first.getElementsByTagName(u"style");
  for (XMLSize_t at = 0; at < styles.getLength(); ++at) {
    colors.emplace_back(static_cast<xercesc::DOMElement const&>(*styles.item(at)).getAttribute(u"color"));
  }
}

}  // namespace

std::vector<ChartString> XDocument::getColors() {
  std::vector<ChartString> colors;
  for (std::string const& name : OTemplate().Get()) {
    std::string const content = fetch(name);
    if (content.empty()) continue;
    std::unique_ptr<xercesc::XercesDOMParser> const parser = kestrel::makeChartParser();
    std::string errorText;
    if (xercesc::DOMDocument const* const document = parseDocument(content, errorText, parser.get())) {
      ChartBase::printDebugInfo("Parsed template");
      appendColors(*document, colors);
    }
  }
  return colors;
}
