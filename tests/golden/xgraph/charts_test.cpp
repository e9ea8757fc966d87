// Whole charts, each as the text that a client would get. The expected texts stand beside this file.

#include "chart_test.h"
#include "golden.h"
#include "schema_validator.h"
#include "xdocument.h"
#include "xgraph.h"
#include "xrow.h"

#include "kestrelhost/data_source.h"

#include <memory>
#include <utility>

using namespace kestrel::test;
using kestrel::host::MemoryDataSource;
using kestrel::host::MemoryVariable;

namespace {

class WholeChart : public ChartTest {
 protected:
  /// The chart is valid, nothing was reported on the way, and its text is the expected one.
  void expectChart(std::string const& name) {
    expectNoReport(recorder);
    auto const errors = schemaErrors(document.AsUTF8());
    EXPECT_TRUE(errors.empty()) << "not valid: " << (errors.empty() ? "" : errors.front());
    expectGolden(goldenText(*document.getVisualization()), "xgraph/" + name);
  }

  XVariable add(MemoryVariable& variable, bool categorical) {
    return graph.AddVariable(variable, *source, data, categorical);
  }

  XDocument document;
  XGraph& graph = *document.getGraph();
  MemoryDataSource data;
  std::unique_ptr<XSource> source{graph.AddSource()};
};

}  // namespace

// A scatter plot with everything around it: titles, footnotes, four axes, two legends, colours, and variables
// of all kinds.
TEST_F(WholeChart, Scatter) {
  MemoryVariable& flipper =
      data.addNumbers("flipper_length_mm", {181.0, 186.0}, {Vexa_Format::FormatNumber, 8, 1});
  MemoryVariable& mass = data.addNumbers("body_mass_g", {3750.0, 3800.0}, {Vexa_Format::FormatNumber, 8, 0});
  mass.setLabel("  Body mass (g)");
  MemoryVariable& species = data.addCategories("species", {"Adelie", "Gentoo"});
  species.setLabel("Species");
  MemoryVariable& island = data.addTexts("island", {"Torgersen", "Biscoe"});

  XVariable const x = add(flipper, false);
  XVariable const y = add(mass, false);
  XVariable const color = add(species, true);
  XVariable texts = add(island, true);
  texts.makeDefaultLabelingVar();
  XVariable count = graph.AddAggregatedVariable(*source, false, u"Count");
  XVariable share = graph.AddAggregatedVariable(*source, false, u"");
  share.SetNumberFormat(1, false, nullptr, u"%");
  graph.AddExpressionVariable({&count, &share}, false);
  graph.AddSystemVariable(true, *source, false);
  graph.AddCaseNumVariable("source0");
  graph.AddWeightVariable("SOURCE0");
  graph.AddExistingVariable(u"source0", true, u"theirs");

  XElement points = graph.AddPointElement();
  points.AddX(x);
  points.AddY(y);
  points.SetPrimaryColor(0, 114, 178);
  points.SetWidth(XElement::WidthPixels, 8.0, 0.0, 0.0);
  points.colorByVariable(color, {u"#0072B2", u"#D55E00"}, true, u"Species");
  XElement fit = graph.AddLineElement(u"Fit line");
  fit.AddX(x);
  fit.AddY(y);
  fit.SetLineType(XElement::LineDash2);

  XAxis bottom = graph.AddPrimaryXAxis(u"Flipper length (mm)");
  bottom.setInterval(170.0, 235.0, true);
  bottom.setDelta(10.0);
  XAxis left = graph.AddPrimaryYAxis(u"Body mass\\n(g)");
  left.addIntervalVariableReference(y);
  left.setTickLabelFontSize(8.0, 12.0);
  graph.AddSecondaryXAxis(u"Flipper length (in)");
  graph.AddDerivedYAxis(u"Share", true);

  XLegend lines = graph.addLegend(u"Lines");
  lines.addLegendElement(fit);

  graph.AddTitle1(u"Palmer penguins");
  graph.AddTitle2(u"Three islands & two species");
  graph.AddSubTitle(u"(to be replaced)");
  graph.AddSubTitle(u"Größe und Gewicht");
  graph.AddFootnote1(u"One point is one bird.");
  graph.AddFootnote2(u"Mass < 2,000 g excluded.");
  graph.AddFootnote3(u"Source: field study.");
  graph.makeIsotropic(false);
  graph.setCellAspect(1.25);
  expectChart("scatter.xml");
}

// Two points of view on three dimensions: nothing but the axes differs from a flat scatter plot.
TEST_F(WholeChart, ScatterOfThreeDimensions) {
  XVariable const x = add(data.addNumbers("length", {1.0}), false);
  XVariable const y = add(data.addNumbers("depth", {2.0}), false);
  XVariable const z = add(data.addNumbers("height", {3.0}), false);
  XElement points = graph.AddPointElement();
  points.AddX(x);
  points.AddY(y);
  points.AddZ(z);
  graph.AddPrimaryXAxis(u"Length");
  graph.AddPrimaryYAxis(u"Depth");
  graph.AddZAxis(u"Height");
  graph.makeIsotropic(true);
  expectChart("scatter_3d.xml");
}

// Horizontal bars, clustered on the axis and split by colour, over sorted categories and with a weight.
TEST_F(WholeChart, ClusteredBars) {
  MemoryVariable& island = data.addCategories("island", {"Torgersen", "Biscoe"});
  island.setLabel("Island");
  MemoryVariable& sex = data.addCategories("sex", {"female", "male"});

  XVariable category = add(island, true);
  category.sortCategories(true);
  XVariable const cluster = add(sex, true);
  XVariable const count = graph.AddAggregatedVariable(*source, false, u"Count");
  graph.AddWeightVariable("source0");

  XElement bars = graph.AddBarElement(true);
  bars.AddX(category);
  bars.AddY(count);
  bars.Cluster(cluster, true, false, true, true);
  XAxis bottom = graph.AddPrimaryXAxis(u"Island");
  bottom.addCategoricalVariableReference(category);
  bottom.Cluster(cluster);
  XAxis left = graph.AddPrimaryYAxis(u"Count");
  left.setMinInterval(0.0, false);
  graph.transpose();
  graph.AddTitle1(u"Birds by island and sex");
  expectChart("bars_clustered.xml");
}

// Lines over dates, which share one row of numbers whatever their names.
TEST_F(WholeChart, LinesOverDates) {
  MemoryVariable& day = data.addNumbers("day", {1704067200.0, 1704153600.0}, MemoryDataSource::usualDate);
  day.setLabel("Day");
  XVariable const x = add(day, false);
  XVariable const mean = graph.AddAggregatedVariable(*source, false, u"Mean");
  XVariable const median = graph.AddAggregatedVariable(*source, false, u"Median");

  for (auto const& [name, y] : {std::pair(u"Mean line", &mean), std::pair(u"Median line", &median)}) {
    XElement line = graph.AddLineElement(name);
    line.AddX(x);
    line.AddY(*y);
  }
  XElement plain = graph.AddLineElement(nullptr);
  plain.SetLineType(XElement::LineDash4);
  plain.SetPrimaryColor(300, 16, 0);
  XAxis bottom = graph.AddPrimaryXAxis(u"");
  bottom.addDateInterval(u"2024-01-01", nullptr);
  bottom.setMajorTickLabelAngle(-45.0);
  graph.AddPrimaryYAxis(u"Temperature");
  expectChart("lines_over_dates.xml");
}

// Bars and their error bars on one graph, without a visible Y axis.
TEST_F(WholeChart, ErrorBars) {
  MemoryVariable& species = data.addCategories("species", {"Adelie", "Gentoo"});
  XVariable const category = add(species, true);
  XVariable const mean = graph.AddAggregatedVariable(*source, false, u"Mean mass");

  for (XElement element :
       {graph.AddBarElement(false), graph.AddErrorBarElement(), graph.AddErrorBarElement()}) {
    element.AddX(category);
    element.AddY(mean);
  }
  graph.AddPrimaryXAxis(u"Species").hideLabel();
  graph.AddEmptyYDimension();
  graph.AddFootnote1(u"Error bars: 95% CI");
  expectChart("error_bars.xml");
}
