#pragma once

#include <vector>

class XDocument;

/// Charts of real data, one kind each, described as a procedure would describe them. Each stands in a file of
/// its own, and is a program of its own: build/dev/examples/example_NAME.
namespace kestrel::gallery {

struct Example {
  /// Of its file and of its program, with hyphens.
  char const* name;
  char const* title;
  void (*describe)(XDocument& document);
};

/// All of them, in the order in which a reader meets new operations.
std::vector<Example> const& examples();

void scatterWithReferenceLine(XDocument& document);
void scatterWithFunctionLine(XDocument& document);
void dotPlot(XDocument& document);
void clusteredBars(XDocument& document);
void stackedBars(XDocument& document);
void sortedBars(XDocument& document);
void histogramWithSummary(XDocument& document);
void boxPlotWithOutliers(XDocument& document);
void errorBars(XDocument& document);
void lineOverDates(XDocument& document);
void secondaryYAxis(XDocument& document);
void crossPanels(XDocument& document);
void nestedPanels(XDocument& document);
void panelHighlight(XDocument& document);
void blendedPanels(XDocument& document);
void populationPyramid(XDocument& document);
void scatterIn3D(XDocument& document);

}  // namespace kestrel::gallery
