#include "template_run.h"

#include "xdocument.h"

#include "support/chart_parser.h"
#include "support/failure.h"

#include "host/messages.h"
#include "host/templates.h"

namespace kestrel {

BaselineChart::BaselineChart(XDocument const& chart) : mParser(makeChartParser()) {
  std::string errorText;
  xercesc::DOMDocument* const parsed = XDocument::parseDocument(chart.AsUTF8(), errorText, mParser.get());
  if (parsed == nullptr) return;
  ChartBase::printDebugInfo("Parsed Original XML");
  try {
    mDocument = std::make_unique<LumoDocument>(parsed);
    mVisualization = mDocument->getVisualization();
  } catch (VexaGoToCaller const&) {
    throw;
  } catch (...) {
    // Templates work without a baseline too.
    mDocument.reset();
  }
}

void dumpTemplate(TemplateDumps const& dumps, std::string const& text, unsigned long number) {
  ChartBase::printString(text, dumps.text, ".qtp", number, ChartBase::PrintTemplate);
}

namespace {

void dumpChart(char const* prefix, XDocument const& chart, unsigned long number, ChartBase::PRINTTYPE type) {
  if (ChartBase::willPrintString(type)) ChartBase::printString(chart.AsUTF8(), prefix, ".xml", number, type);
}

}  // namespace

void dumpChartBefore(TemplateDumps const& dumps, XDocument const& chart, unsigned long number) {
  dumpChart(dumps.before, chart, number, ChartBase::PrintBeforeTemplate);
}

void dumpChartAfter(TemplateDumps const& dumps, XDocument const& chart, unsigned long number) {
  dumpChart(dumps.after, chart, number, ChartBase::PrintAfterTemplate);
}

bool applyWithDumps(ChartTemplate& engine, TemplateDumps const& dumps, XDocument const& chart,
                    unsigned long number, char const* failure, std::string const& name) {
  try {
    dumpChartBefore(dumps, chart, number);
    engine.applyTemplate();
    dumpChartAfter(dumps, chart, number);
    return true;
  } catch (VexaGoToCaller const&) {
    throw;
  } catch (...) {
    logFailure(failure + name, __FILE__, __LINE__);
    return false;
  }
}

}  // namespace kestrel
