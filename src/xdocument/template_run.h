#pragma once

#include "host/chartbase.h"
#include "model/document.h"

#include <xercesc/parsers/XercesDOMParser.hpp>

#include <memory>
#include <string>

class ChartTemplate;
class XDocument;

namespace kestrel {

/// The chart as it was before any template ran: a copy, made of its own text. Without one where the text does
/// not parse or cannot be wrapped.
class BaselineChart {
 public:
  explicit BaselineChart(XDocument const& chart);

  LumoDocument* document() const { return mDocument.get(); }
  LumoVisualization* visualization() const { return mVisualization; }

 private:
  std::unique_ptr<xercesc::XercesDOMParser> mParser;
  std::unique_ptr<LumoDocument> mDocument;
  LumoVisualization* mVisualization = nullptr;
};

/// The names of the dumps around one kind of template.
struct TemplateDumps {
  char const* text;
  char const* before;
  char const* after;
};

/// The text is dumped whether anybody wants it or not: the host decides.
void dumpTemplate(TemplateDumps const& dumps, std::string const& text, unsigned long number);
/// The chart's text is made only where somebody wants it.
void dumpChartBefore(TemplateDumps const& dumps, XDocument const& chart, unsigned long number);
void dumpChartAfter(TemplateDumps const& dumps, XDocument const& chart, unsigned long number);

/// Applies the template that the engine holds, with the dumps before and after it. A failure is logged, with
/// `failure` and the name.
/// @return whether it was applied
bool applyWithDumps(ChartTemplate& engine, TemplateDumps const& dumps, XDocument const& chart,
                    unsigned long number, char const* failure, std::string const& name);

}  // namespace kestrel
