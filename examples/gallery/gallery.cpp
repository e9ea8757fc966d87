#include "gallery.h"

std::vector<kestrel::gallery::Example> const& kestrel::gallery::examples() {
  static std::vector<Example> const all = {
      {"scatter-with-reference-line", "Scatter plot with reference lines", scatterWithReferenceLine},
      {"scatter-with-function-line", "Scatter plot with a fitted line", scatterWithFunctionLine},
      {"dot-plot", "Stacked dots", dotPlot},
      {"clustered-bars", "Clustered bars", clusteredBars},
      {"stacked-bars", "Stacked bars", stackedBars},
      {"sorted-bars", "Sorted bars on their side, without one category", sortedBars},
      {"histogram-with-summary", "Histogram with its summary", histogramWithSummary},
      {"box-plot-with-outliers", "Box plots with labelled outliers", boxPlotWithOutliers},
      {"error-bars", "Error bars", errorBars},
      {"line-over-dates", "Lines over dates", lineOverDates},
      {"secondary-y-axis", "Bars with a second Y axis", secondaryYAxis},
      {"cross-panels", "Crossed panels", crossPanels},
      {"nested-panels", "Nested panels", nestedPanels},
      {"panel-highlight", "An element in one panel only", panelHighlight},
      {"blended-panels", "Two measures blended", blendedPanels},
      {"population-pyramid", "Population pyramid", populationPyramid},
      {"scatter-in-3d", "Scatter plot in space", scatterIn3D},
  };
  return all;
}
