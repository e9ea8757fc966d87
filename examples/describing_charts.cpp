// What docs/guide/describing-charts.md shows, one chart after the other, and the service of
// docs/guide/host.md. The program makes and sends all of them, and fails if one of them has anything to
// report.
#include "xdocument.h"
#include "xgraph.h"
#include "xgraphservice.h"

#include "host/data_store.h"
#include "kestrelhost/data_source.h"
#include "kestrelhost/host.h"
#include "model/base.h"
#include "model/chartstring.h"
#include "model/document.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/style.h"

#include <cstdio>
#include <exception>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr double missing = std::numeric_limits<double>::lowest();

struct Penguin {
  double species;  ///< 1 Adelie, 2 Chinstrap, 3 Gentoo
  double sex;      ///< 1 female, 2 male
  double flipper;  ///< mm
  double mass;     ///< g
};
constexpr Penguin penguins[] = {{1, 2, 181, 3750}, {1, 1, 186, 3800}, {1, 1, 195, missing},
                                {2, 1, 192, 3500}, {2, 2, 196, 3900}, {2, 2, 193, 3650},
                                {3, 1, 211, 4500}, {3, 2, 230, 5700}, {3, 2, 222, 5550}};

/// The table that most of the charts here show: a row for each penguin.
struct Table {
  explicit Table(XGraph& graph)
      : source(graph.AddSource()),
        species(graph.AddAggregatedVariable(*source, true, u"Species")),
        sex(graph.AddAggregatedVariable(*source, true, u"Sex")),
        flipper(graph.AddAggregatedVariable(*source, false, u"Flipper length (mm)")),
        mass(graph.AddAggregatedVariable(*source, false, u"Body mass (g)")) {
    for (Penguin const& penguin : penguins) {
      XRow& row = *source->AddRow();
      row.addDataValue(species, penguin.species);
      row.addDataValue(sex, penguin.sex);
      row.addDataValue(flipper, penguin.flipper);
      row.addDataValue(mass, penguin.mass);
    }
    species.addRelabel(1U, u"Adelie");
    species.addRelabel(2U, u"Chinstrap");
    species.addRelabel(3U, u"Gentoo");
    sex.addRelabel(1U, u"female");
    sex.addRelabel(2U, u"male");
  }

  std::unique_ptr<XSource> source;
  XVariable species;
  XVariable sex;
  XVariable flipper;
  XVariable mass;
};

void points(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement element = graph.AddPointElement();
  element.AddX(table.flipper);
  element.AddY(table.mass);
  graph.AddPrimaryXAxis(u"Flipper length (mm)").addIntervalVariableReference(table.flipper);
  graph.AddPrimaryYAxis(u"Body mass (g)").addIntervalVariableReference(table.mass);
  document.SetDescription(u"Points of body mass by flipper length.");
}

void dates(XDocument& document) {
  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable date = graph.AddAggregatedVariable(*source, false, u"Date");
  date.setFormat({Vexa_Format::FormatDate, 11, 0});
  XVariable level = graph.AddAggregatedVariable(*source, false, u"Water level (m)");
  constexpr double newYear2026 = 1767225600;
  constexpr double day = 24 * 60 * 60;
  for (int number = 0; number < 31; ++number) {
    XRow& row = *source->AddRow();
    row.addDataValue(date, newYear2026 + number * day);
    row.addDataValue(level, 2 + 0.1 * number);
  }

  XElement line = graph.AddLineElement(u"Level");
  line.AddX(date);
  line.AddY(level);
  XAxis x = graph.AddPrimaryXAxis(u"January 2026");
  x.addIntervalVariableReference(date);
  x.addDateInterval(nullptr, nullptr);
  graph.AddPrimaryYAxis(u"Water level (m)").addIntervalVariableReference(level);
}

void dataOfAProcedure(XDocument& document) {
  kestrel::host::MemoryDataSource data;
  kestrel::host::MemoryVariable& island = data.addCategories("island", {"Biscoe", "Dream", "Biscoe"});
  kestrel::host::MemoryVariable& depth = data.addNumbers("bill_depth", {18.7, 17.4, 18.0});
  depth.setLabel("Bill depth (mm)");

  XGraph& graph = *document.getGraph();
  std::unique_ptr<XSource> const source(graph.AddSource());
  XVariable x = graph.AddVariable(island, *source, data, true);
  x.addRelabels();
  XVariable y = graph.AddVariable(depth, *source, data, false);
  kestrel::host::MemoryCaseIterator cases(data);
  while (cases.next()) {
    XRow& row = *source->AddRow();
    row.addDataValue(x, x.getData(&cases));
    row.addDataValue(y, y.getData(&cases));
  }
  XElement element = graph.AddPointElement();
  element.AddX(x);
  element.AddY(y);
  graph.AddPrimaryXAxis(x.getVexaVariableShortLabel()).addCategoricalVariableReference(x);
  graph.AddPrimaryYAxis(y.getVexaVariableLabel()).addIntervalVariableReference(y);
}

void looksOfElements(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement bars = graph.AddBarElement(false);
  bars.AddX(table.species);
  bars.AddY(table.mass);
  bars.SetName(u"Mass");
  bars.SetPrimaryColor(0, 114, 178);
  bars.SetSecondaryColor(0, 0, 0);
  bars.SetWidth(XElement::WidthPercent, 80, 0, 0);
  XElement line = graph.AddLineElement(u"Flipper");
  line.AddX(table.species);
  line.AddY(table.flipper);
  line.SetLineType(XElement::LineDash2);
}

void coloursByGroup(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement element = graph.AddPointElement();
  element.AddX(table.flipper);
  element.AddY(table.mass);
  element.colorByVariable(table.species, {u"#0072B2", u"#E69F00", u"#009E73"}, true, u"Species");
}

void clusters(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement bars = graph.AddBarElement(true);
  bars.AddX(table.species);
  bars.AddY(table.mass);
  bars.Cluster(table.sex, true, false, true, true);
  XAxis x = graph.AddPrimaryXAxis(u"Species");
  x.addCategoricalVariableReference(table.species);
  x.Cluster(table.sex);
}

void stacks(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement bars = graph.AddBarElement(false);
  bars.AddX(table.species);
  bars.AddY(table.mass);
  bars.Stack(table.sex, false, true, true, true);
}

void axes(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement element = graph.AddPointElement();
  element.AddX(table.flipper);
  element.AddY(table.mass);
  XAxis x = graph.AddPrimaryXAxis(u"Flipper length\\n(mm)");
  x.addIntervalVariableReference(table.flipper);
  x.setInterval(170, 240, false);
  x.setDelta(10);
  x.setMajorTickLabelAngle(45);
  x.setLowerMargin(u"5%");
  x.setUpperMargin(u"5%");
  XAxis y = graph.AddPrimaryYAxis(u"Body mass");
  y.addIntervalVariableReference(table.mass);
  y.setScale(XAxis::ScaleMethod1, false, 10);
  y.setMajorTickLabelSuffix(u" g");
  y.setTickLabelFontSize(8, 11);
  XAxis pounds = graph.AddDerivedYAxis(u"Pounds", true);
  pounds.setMajorTickLabelSuffix(u" lb");
}

void categories(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table table(graph);
  table.species.sortCategories(true);
  table.species.excludeCategory(u"2");
  XElement bars = graph.AddBarElement(false);
  bars.AddX(table.species);
  bars.AddY(table.mass);
  graph.AddPrimaryXAxis(u"Species").addCategoricalVariableReference(table.species);
}

void formats(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table table(graph);
  table.mass.SetNumberFormat(0, true, nullptr, u" g");
  table.flipper.setFormat({Vexa_Format::FormatNumber, 8, 1});
  table.sex.removeAllRelabels();
  table.sex.addRelabel(u"1", u"F");
  table.sex.addRelabel(u"2", u"M");
  XElement element = graph.AddPointElement();
  element.AddX(table.flipper);
  element.AddY(table.mass);
}

void titlesAndLegends(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement line = graph.AddLineElement(u"All penguins");
  line.AddX(table.flipper);
  line.AddY(table.mass);
  graph.AddTitle1(u"Heavier penguins have longer flippers");
  graph.AddSubTitle(u"Three species of the Palmer Archipelago");
  graph.AddFootnote1(u"Missing measurements are left out.");
  XLegend legend = graph.addLegend(u"Lines");
  legend.addLegendElement(line);
  document.SetName(u"penguins");
  document.SetComment(u"made on Friday");
  document.SetDescription(u"A line of body mass by flipper length.");
}

void linesAtValues(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement element = graph.AddPointElement();
  element.AddX(table.flipper);
  element.AddY(table.mass);
  graph.AddXReferenceLine(201, u"Mean length");
  graph.AddYReferenceLine(4300, u"Mean mass");
  graph.AddFunctionLine("-5780 + 49.7*x", u"Best fit");
}

void histogram(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement bars = graph.AddHistogramElement();
  bars.AddX(table.mass);
  bars.addHistogramStatistic(u"3000", -1, 500, false);
  graph.AddPrimaryXAxis(u"Body mass (g)").addIntervalVariableReference(table.mass);
  graph.AddPrimaryYAxis(u"Number of penguins");
  graph.AddHistogramStatisticsSummary(bars, u"Mean = ", u"\nStd. Dev. = ", u"\nN = ");
}

void boxes(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XVariable number = graph.AddSystemVariable(true, *table.source, false);
  XElement boxes = graph.AddBoxplotElement(&number);
  boxes.AddX(table.species);
  boxes.AddY(table.mass);
}

void errorBars(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement bars = graph.AddErrorBarElement();
  bars.AddX(table.species);
  bars.AddY(table.mass);
}

void dots(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement element = graph.AddPointElement();
  element.AddX(table.flipper);
  element.makeDotPlot(true);
  graph.AddPrimaryXAxis(u"Flipper length (mm)").addIntervalVariableReference(table.flipper);
  graph.AddEmptyYDimension();
}

void panels(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table table(graph);
  XElement element = graph.AddPointElement();
  element.AddX(table.flipper);
  element.AddY(table.mass);
  graph.BeginPaneling();
  graph.PanelingAddCrossVariable(table.species, XGraph::ROLE_COLUMN);
  graph.PanelingAddCrossVariable(table.sex, XGraph::ROLE_ROW);
  graph.EndPaneling(true, false);
  graph.setCellAspect(1.5);

  XElement line = graph.AddLineElement(u"Gentoo only");
  line.AddX(table.flipper);
  line.AddY(table.mass);
  line.hideInAllPanelsExcept(1, 3);
  std::vector<double> const gentoo{3};
  graph.AddReferenceLine("", "5000", u"Heavy", 1, &gentoo, false);
}

void nestedPanels(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table table(graph);
  XElement bars = graph.AddHistogramElement();
  bars.AddX(table.mass);
  graph.BeginPaneling();
  graph.PanelingAddNestVariable(table.species, XGraph::ROLE_COLUMN);
  graph.PanelingAddNestVariable(table.sex, XGraph::ROLE_COLUMN);
  graph.EndPaneling(false, false);
}

void blend(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table table(graph);
  XElement element = graph.AddPointElement();
  element.AddX(table.species);
  graph.AddPrimaryYAxis(u"Measurement");
  graph.BeginPaneling();
  graph.PanelingAddBlendVariable(table.flipper);
  graph.PanelingAddBlendVariable(table.mass);
  graph.EndPaneling(true, false);
}

void wholeChart(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement bars = graph.AddBarElement(false);
  bars.AddX(table.species);
  bars.AddY(table.mass);
  graph.transpose();
  graph.setOuterFrameWidth(6);
  graph.setOuterFrameHeight(4);
}

void inSpace(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement element = graph.AddPointElement();
  element.AddX(table.species);
  element.AddY(table.flipper);
  element.AddZ(table.mass);
  graph.AddPrimaryXAxis(u"Species").addCategoricalVariableReference(table.species);
  graph.AddPrimaryYAxis(u"Flipper length (mm)").addIntervalVariableReference(table.flipper);
  graph.AddZAxis(u"Body mass (g)").addIntervalVariableReference(table.mass);
  graph.make3D(20, 45, 30, 0);
}

void looks(XDocument& document) {
  points(document);
  document.AddColorSpec({1, 0, 114, 178});
  document.AddColorSpec({2, 230, 159, 0});
  document.SetOuterFrame(XDocument::TemplParamShow);
  document.SetYAxisGridlines(XDocument::TemplParamShow);
  document.AddImmediateTemplate(
      "<setStyle type='scatter' subtype='simple'><style symbol='triangle' size='6pt'/></setStyle>");
}

void styles(XDocument& document) {
  XGraph& graph = *document.getGraph();
  Table const table(graph);
  XElement element = graph.AddPointElement();
  element.AddX(table.flipper);
  element.AddY(table.mass);
  LumoStyle& style = *element.AddStyle(XBaseElement::getStyleId(element.getImplementation()->getId()), false);
  style.setSymbol(u"triangle");
  style.setSize(u"6pt");

  graph.AddTitle1(u"Penguins");
  LumoLabelFrame const& title = *document.getVisualization()->getExtension()->getTitle1();
  title.getLabel()->getStyle()->setFontSize(u"18pt", u"", u"");
  XAxis const x = graph.AddPrimaryXAxis(u"Flipper length (mm)");
  dynamic_cast<LumoAxis&>(*x.getImplementation()).setOpposite(true);
}

/// No chart: the client makes one of the data that it gets.
bool sendService() {
  VarDataProcessor store;
  store.AddVariable("source0", "mass", nullptr);
  unsigned int row = 0;
  for (Penguin const& penguin : penguins) store.SetVariableValue("source0", "mass", row++, penguin.mass);

  XGraphService service;
  service.SetDescription(u"Body mass of penguins");
  service.setChartOptions("type=histogram");
  service.createDocument(ChartString(u"source0"));
  service.addVariable("mass", 0);
  service.SetChartData(&store);  // stays yours
  bool const sent = service.sendChartOptions();
  std::printf("service: %s\n", sent ? "sent" : "not sent");
  return sent;
}

struct Chart {
  char const* name;
  void (*describe)(XDocument& document);
};
constexpr Chart charts[] = {
    {"points", points},
    {"dates", dates},
    {"data of a procedure", dataOfAProcedure},
    {"looks of elements", looksOfElements},
    {"colours by group", coloursByGroup},
    {"clusters", clusters},
    {"stacks", stacks},
    {"axes", axes},
    {"categories", categories},
    {"formats", formats},
    {"titles and legends", titlesAndLegends},
    {"lines at values", linesAtValues},
    {"histogram", histogram},
    {"boxes", boxes},
    {"error bars", errorBars},
    {"dots", dots},
    {"panels", panels},
    {"nested panels", nestedPanels},
    {"blend", blend},
    {"whole chart", wholeChart},
    {"in space", inSpace},
    {"looks", looks},
    {"styles", styles},
};

/// Counts what there is to report.
class Reports : public kestrel::host::Log, public kestrel::host::UserMessages {
 public:
  void error(std::string const& message, std::string const&, unsigned int) override { tell(message); }
  void note(std::string const& message) override { tell(message); }
  void show(BpCellText const& text, BpErrorShow, BpErrorLevel) override { tell(text.text()); }

  int count = 0;

 private:
  void tell(std::string const& what) {
    ++count;
    std::printf("%s\n", what.c_str());
  }
};

}  // namespace

int main() {
  try {
    auto const reports = std::make_shared<Reports>();
    kestrel::host::Host host;
    host.channel = std::make_shared<kestrel::host::CaptureChannel>("describing_charts.kcap");
    host.log = reports;
    host.messages = reports;
    kestrel::host::ScopedHost const scope(host);
    for (Chart const& chart : charts) {
      XDocument document;
      chart.describe(document);
      // The sources have gone with the functions: the data is not to be cleared.
      bool const sent = document.SendChart(false, false, false);
      std::printf("%s: %s\n", chart.name, sent ? "sent" : "not sent");
      if (!sent) return 1;
    }
    if (!sendService()) return 1;
    return reports->count == 0 ? 0 : 1;
  } catch (std::exception const& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  }
  return 1;
}
