// Charts on their whole road, from the first builder call to the last message, completion included, beside
// the same charts made by the DOM library alone and as JSON.

#include "chart_tree.h"
#include "xaxis.h"
#include "xdocument.h"
#include "xelement.h"
#include "xgraph.h"
#include "xrow.h"
#include "xsource.h"
#include "xvariable.h"

#include "host/channel.h"
#include "kestrelhost/host.h"
#include "model/chartstring.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace kestrel::bench {
namespace {

// --- The host

constexpr char const* templateName = "looks.xml";

std::string const& templateText() {
  static std::string const text = [] {
    std::ifstream file(KESTREL_SOURCE_DIR "/share/templates/default_look.xml", std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }();
  return text;
}

/// Messages go nowhere, and the one template is in memory.
host::Host sendingHost() {
  host::Host host;
  host.channel = std::make_shared<host::NullChannel>();
  auto files = std::make_shared<host::MemoryFiles>();
  files->content[templateName] = templateText();
  host.files = files;
  return host;
}

void useSendingHost() { static host::ScopedHost const scope(sendingHost()); }

// --- The charts

using Describe = void (*)(XDocument& document, unsigned int rows);

double valueOf(unsigned int row, unsigned int column) {
  return static_cast<double>((row * 7919U + column * 104729U) % 1000003U) / 1000.0;
}

std::vector<XVariable> addVariables(XGraph& graph, XSource& source, unsigned int count,
                                    unsigned int categorical) {
  std::vector<XVariable> variables;
  variables.reserve(count);
  for (unsigned int index = 0; index < count; ++index) {
    variables.push_back(graph.AddAggregatedVariable(source, index < categorical, u"Variable"));
  }
  return variables;
}

/// The first `categorical` columns hold few different values.
void addRows(XSource& source, std::vector<XVariable> const& variables, unsigned int rows,
             unsigned int categorical) {
  for (unsigned int row = 0; row < rows; ++row) {
    XRow& made = *source.AddRow();
    for (unsigned int column = 0; column < variables.size(); ++column) {
      made.addDataValue(variables[column],
                        column < categorical ? 1.0 + (row >> column) % 6 : valueOf(row, column));
    }
  }
}

/// A clustered bar chart with a title, two axes and a legend.
void clusteredBars(XDocument& document, unsigned int rows) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  std::vector<XVariable> const variables = addVariables(graph, *source, 3, 2);
  addRows(*source, variables, rows, 2);
  XElement bars = graph.AddBarElement(true);
  bars.AddX(variables[0]);
  bars.AddY(variables[2]);
  bars.Cluster(variables[1], true, false, true, true);
  XAxis x = graph.AddPrimaryXAxis(u"Group");
  x.addCategoricalVariableReference(variables[0]);
  x.Cluster(variables[1]);
  graph.AddPrimaryYAxis(u"Value").addIntervalVariableReference(variables[2]);
  graph.AddTitle1(u"Values by group");
  document.SetDescription(u"Bars of values by group");
}

void scatter(XDocument& document, unsigned int rows) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  std::vector<XVariable> const variables = addVariables(graph, *source, 4, 0);
  addRows(*source, variables, rows, 0);
  XElement points = graph.AddPointElement();
  points.AddX(variables[0]);
  points.AddY(variables[1]);
  graph.AddPrimaryXAxis(u"X").addIntervalVariableReference(variables[0]);
  graph.AddPrimaryYAxis(u"Y").addIntervalVariableReference(variables[1]);
  document.SetDescription(u"Points");
}

/// Five columns of panels by six rows.
void panels(XDocument& document, unsigned int rows) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  std::vector<XVariable> variables = addVariables(graph, *source, 4, 2);
  for (unsigned int row = 0; row < rows; ++row) {
    XRow& made = *source->AddRow();
    made.addDataValue(variables[0], 1.0 + row % 5);
    made.addDataValue(variables[1], 1.0 + row % 6);
    made.addDataValue(variables[2], valueOf(row, 2));
    made.addDataValue(variables[3], valueOf(row, 3));
  }
  XElement points = graph.AddPointElement();
  points.AddX(variables[2]);
  points.AddY(variables[3]);
  graph.AddPrimaryXAxis(u"X").addIntervalVariableReference(variables[2]);
  graph.AddPrimaryYAxis(u"Y").addIntervalVariableReference(variables[3]);
  graph.PanelingAddCrossVariable(variables[0], XGraph::ROLE_COLUMN);
  graph.PanelingAddCrossVariable(variables[1], XGraph::ROLE_ROW);
  graph.EndPaneling(true, false);
  document.SetDescription(u"Points in 30 panels");
}

bool send(Describe describe, unsigned int rows, bool withTemplate) {
  XDocument document;
  describe(document, rows);
  if (withTemplate) document.SetChartTemplate(templateName);
  return document.SendChart(false, false, false);
}

/// The text that such a chart has when it is sent.
ChartTree completedTree(Describe describe, bool withTemplate) {
  useSendingHost();
  XDocument document;
  describe(document, 1);
  if (withTemplate) document.SetChartTemplate(templateName);
  return ChartTree(document.getChartXML());
}

// --- W1: one small chart

constexpr unsigned int smallRows = 1000;

void smallSent(benchmark::State& state) {
  useSendingHost();
  for (auto _ : state) {
    if (!send(clusteredBars, smallRows, true)) state.SkipWithError("not sent");
  }
}
BENCHMARK(smallSent)->Name("W1/kestrel/clustered_bars_completed_sent")->Unit(benchmark::kMicrosecond);

void smallWithXerces(benchmark::State& state) {
  ChartTree const tree = completedTree(clusteredBars, true);
  for (auto _ : state) benchmark::DoNotOptimize(tree.writeWithXerces().size());
  state.counters["elements"] = static_cast<double>(tree.elements());
}
BENCHMARK(smallWithXerces)->Name("W1/bare_xerces/built_written")->Unit(benchmark::kMicrosecond);

void smallAsJson(benchmark::State& state) {
  ChartTree const tree = completedTree(clusteredBars, true);
  for (auto _ : state) benchmark::DoNotOptimize(tree.asJson().dump().size());
}
BENCHMARK(smallAsJson)->Name("W1/json/built_written")->Unit(benchmark::kMicrosecond);

// --- W2: many charts

void manySent(benchmark::State& state) {
  constexpr unsigned int charts = 1000;
  constexpr unsigned int rows = 100;
  useSendingHost();
  for (auto _ : state) {
    for (unsigned int number = 0; number < charts; ++number) {
      if (!send(clusteredBars, rows, true)) state.SkipWithError("not sent");
    }
  }
  state.counters["charts"] = benchmark::Counter(charts, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(manySent)->Name("W2/kestrel/1000_charts_of_100_rows")->Unit(benchmark::kMillisecond);

// --- W3: many rows

void manyRowsSent(benchmark::State& state) {
  constexpr unsigned int rows = 1'000'000;
  constexpr unsigned int columns = 4;
  useSendingHost();
  for (auto _ : state) {
    if (!send(scatter, rows, false)) state.SkipWithError("not sent");
  }
  state.counters["cells"] =
      benchmark::Counter(double{rows} * columns, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(manyRowsSent)->Name("W3/kestrel/1000000_rows_by_4")->Unit(benchmark::kMillisecond);

// --- W4: many panels

void panelsSent(benchmark::State& state) {
  constexpr unsigned int rows = 10'000;
  useSendingHost();
  for (auto _ : state) {
    if (!send(panels, rows, true)) state.SkipWithError("not sent");
  }
}
BENCHMARK(panelsSent)->Name("W4/kestrel/30_panels_of_10000_rows")->Unit(benchmark::kMicrosecond);

void panelsWithXerces(benchmark::State& state) {
  ChartTree const tree = completedTree(panels, true);
  for (auto _ : state) benchmark::DoNotOptimize(tree.writeWithXerces().size());
}
BENCHMARK(panelsWithXerces)->Name("W4/bare_xerces/built_written")->Unit(benchmark::kMicrosecond);

// --- W5: a chart that came as text

constexpr std::size_t receivedSize = 10'000'000;

std::string const& receivedText() {
  static std::string const text = [] {
    std::ostringstream chart;
    chart
        << R"(<?xml version="1.0" encoding="UTF-8"?>)"
        << R"(<visualization xmlns="http://xml.vexa.example/visualization" id="frame_graph_1" version="2.8">)"
        << R"(<userSource id="source0"/><sourceVariable id="sourceVariable0" source="source0" )"
        << R"(sourceName="sourceVariable0_SN"/><graph id="frame_data_1">)";
    std::string styles = R"(</graph><style id="container">)";
    for (unsigned int number = 1; static_cast<std::size_t>(chart.tellp()) + styles.size() < receivedSize;
         ++number) {
      std::string const id = "element_simpleline_" + std::to_string(number);
      chart << "<line id=\"" << id << "\" labelCollisionHandling=\"2\" style=\"" << id
            << "s\"><x variable=\"sourceVariable0\"/><y variable=\"sourceVariable0\"/></line>";
      styles += "<style id=\"" + id + "s\" color=\"#1f77b4\" stroke_width=\"1.5pt\"/>";
    }
    return chart.str() + styles + "</style></visualization>";
  }();
  return text;
}

void receivedSent(benchmark::State& state) {
  useSendingHost();
  std::string const& text = receivedText();
  for (auto _ : state) {
    XDocument document(text);
    if (!document.SendChart(false, false, false)) state.SkipWithError("not sent");
  }
}
BENCHMARK(receivedSent)->Name("W5/kestrel/10_MB_completed_sent")->Unit(benchmark::kMillisecond);

void receivedWithXerces(benchmark::State& state) {
  useSendingHost();
  std::string const& text = receivedText();
  for (auto _ : state) {
    auto const parser = plainParser();
    benchmark::DoNotOptimize(serialise(parsePlainly(*parser, text)).size());
  }
}
BENCHMARK(receivedWithXerces)->Name("W5/bare_xerces/parsed_written")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestrel::bench

BENCHMARK_MAIN();
