// The chart model beside the bare XML library under it: building a small chart, writing and reading a large
// one.
#include "model/chartstring.h"
#include "model/document.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/style.h"
#include "model/variables.h"

#include <benchmark/benchmark.h>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <cstddef>
#include <memory>
#include <string>

namespace {

constexpr char16_t chartNamespace[] = u"http://xml.vexa.example/visualization";
constexpr std::size_t largeSize = 10'000'000;

/// Keeps the XML library for the process.
void holdLibrary() { static LumoDocument const document; }

std::u16string numbered(char16_t const* prefix, unsigned int number) {
  ChartString text(prefix);
  text.append(number);
  return text.xc_str();
}

/// 61 elements: 12 variables with a format each, a graph with 12 elements that have an x and their style.
void describe(LumoVisualization& chart, unsigned int first = 0) {
  chart.setVersion(2.8);
  LumoGraph& graph = *chart.addGraph(u"graph");
  for (unsigned int i = first; i < first + 12; ++i) {
    LumoSourceVariable& variable = *chart.addSourceVariable(numbered(u"sourceVariable", i).c_str());
    variable.setLabel(u"Body mass in grams");
    variable.setCategorical(false);
    variable.addFormat()->setMaximumFractionDigits(2);
    LumoPoint& point = *graph.addPoint(numbered(u"element_point_", i).c_str());
    point.addX()->setVariable(variable);
    LumoStyle& style = *chart.addStyle();
    style.setId(numbered(u"element_point_s", i).c_str());
    style.setColor(u"#FF0080");
    point.setStyle(style);
  }
}

xercesc::DOMElement& append(xercesc::DOMElement& parent, char16_t const* name) {
  xercesc::DOMElement* const element = parent.getOwnerDocument()->createElementNS(chartNamespace, name);
  parent.appendChild(element);
  return *element;
}

/// The same tree without a model.
void describe(xercesc::DOMElement& chart) {
  chart.setAttributeNS(u"http://www.w3.org/2000/xmlns/", u"xmlns", chartNamespace);
  chart.setAttribute(u"version", u"2.8");
  xercesc::DOMElement& graph = append(chart, u"graph");
  graph.setAttribute(u"id", u"graph");
  for (unsigned int i = 0; i < 12; ++i) {
    std::u16string const variableId = numbered(u"sourceVariable", i);
    xercesc::DOMElement& variable = append(chart, u"sourceVariable");
    variable.setAttribute(u"id", variableId.c_str());
    variable.setAttribute(u"label", u"Body mass in grams");
    variable.setAttribute(u"categorical", u"false");
    append(variable, u"format").setAttribute(u"maximumFractionDigits", u"2");
    xercesc::DOMElement& point = append(graph, u"point");
    point.setAttribute(u"id", numbered(u"element_point_", i).c_str());
    append(point, u"x").setAttribute(u"variable", variableId.c_str());
    std::u16string const styleId = numbered(u"element_point_s", i);
    xercesc::DOMElement& style = append(chart, u"style");
    style.setAttribute(u"id", styleId.c_str());
    style.setAttribute(u"color", u"#FF0080");
    point.setAttribute(u"style", styleId.c_str());
  }
}

struct Release {
  void operator()(xercesc::DOMDocument* document) const { document->release(); }
  void operator()(xercesc::DOMLSSerializer* serializer) const { serializer->release(); }
  void operator()(xercesc::DOMLSOutput* output) const { output->release(); }
};

template <typename T>
using Released = std::unique_ptr<T, Release>;

Released<xercesc::DOMDocument> bareChart() {
  Released<xercesc::DOMDocument> document(xercesc::DOMImplementation::getImplementation()->createDocument(
      chartNamespace, u"visualization", nullptr));
  describe(*document->getDocumentElement());
  return document;
}

/// By the library's own serializer.
std::string bareText(xercesc::DOMDocument const& document) {
  auto& implementation = *static_cast<xercesc::DOMImplementationLS*>(
      xercesc::DOMImplementationRegistry::getDOMImplementation(u"LS"));
  Released<xercesc::DOMLSSerializer> const serializer(implementation.createLSSerializer());
  Released<xercesc::DOMLSOutput> const output(implementation.createLSOutput());
  xercesc::MemBufFormatTarget target;
  output->setByteStream(&target);
  output->setEncoding(u"UTF-8");
  serializer->write(&document, output.get());
  return {reinterpret_cast<char const*>(target.getRawBuffer()), target.getLen()};
}

std::string const& largeText() {
  static std::string const text = [] {
    LumoDocument document;
    for (unsigned int i = 0; document.AsUTF8().size() < largeSize;) {
      for (unsigned int const end = i + 6000; i < end; i += 12) describe(*document.getVisualization(), i);
    }
    return document.AsUTF8();
  }();
  return text;
}

std::unique_ptr<xercesc::XercesDOMParser> parsed(std::string const& text) {
  auto parser = std::make_unique<xercesc::XercesDOMParser>();
  parser->setDoNamespaces(true);
  xercesc::MemBufInputSource const source(reinterpret_cast<XMLByte const*>(text.data()), text.size(),
                                          "chart");
  parser->parse(source);
  return parser;
}

void rate(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
}

void smallChartBuiltAndWritten(benchmark::State& state) {
  holdLibrary();
  while (state.KeepRunning()) {
    LumoDocument document;
    describe(*document.getVisualization());
    benchmark::DoNotOptimize(document.AsUTF8());
  }
}
BENCHMARK(smallChartBuiltAndWritten);

void smallChartBuiltAndWrittenBare(benchmark::State& state) {
  holdLibrary();
  while (state.KeepRunning()) benchmark::DoNotOptimize(bareText(*bareChart()));
}
BENCHMARK(smallChartBuiltAndWrittenBare);

void smallChartBuilt(benchmark::State& state) {
  holdLibrary();
  while (state.KeepRunning()) {
    LumoDocument document;
    describe(*document.getVisualization());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(smallChartBuilt);

void smallChartBuiltBare(benchmark::State& state) {
  holdLibrary();
  while (state.KeepRunning()) {
    Released<xercesc::DOMDocument> const document = bareChart();
    benchmark::ClobberMemory();
  }
}
BENCHMARK(smallChartBuiltBare);

void largeChartWritten(benchmark::State& state) {
  holdLibrary();
  auto const parser = parsed(largeText());
  LumoDocument const document(parser->getDocument());
  while (state.KeepRunning()) benchmark::DoNotOptimize(document.AsUTF8());
  rate(state, largeText().size());
}
BENCHMARK(largeChartWritten)->Unit(benchmark::kMillisecond);

void largeChartWrittenBare(benchmark::State& state) {
  holdLibrary();
  auto const parser = parsed(largeText());
  while (state.KeepRunning()) benchmark::DoNotOptimize(bareText(*parser->getDocument()));
  rate(state, largeText().size());
}
BENCHMARK(largeChartWrittenBare)->Unit(benchmark::kMillisecond);

void largeChartParsed(benchmark::State& state) {
  holdLibrary();
  while (state.KeepRunning()) {
    auto const parser = parsed(largeText());
    LumoDocument const document(parser->getDocument());
    benchmark::DoNotOptimize(document.getVisualization());
  }
  rate(state, largeText().size());
}
BENCHMARK(largeChartParsed)->Unit(benchmark::kMillisecond);

void largeChartParsedBare(benchmark::State& state) {
  holdLibrary();
  while (state.KeepRunning()) {
    auto const parser = parsed(largeText());
    benchmark::DoNotOptimize(parser->getDocument());
  }
  rate(state, largeText().size());
}
BENCHMARK(largeChartParsedBare)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
