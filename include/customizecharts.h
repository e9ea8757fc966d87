#pragma once

#include "kestrel_export.h"

#include <memory>

class LumoVisualization;
class XVariable;

/// Reworks a finished chart of certain kinds, in place. Nothing is guarded or reported: failures of the model
/// pass to the caller, and what was done before them stays.
class KESTREL_API customizeCharts {
 public:
  /// @param visualization not owned; must outlive this
  explicit customizeCharts(LumoVisualization& visualization);
  customizeCharts(customizeCharts const&) = delete;
  customizeCharts& operator=(customizeCharts const&) = delete;
  ~customizeCharts();

  /// Turns each style of points that combines colour and pattern into a shape and a colour, in a chart of one
  /// graph.
  /// @return whether there was one
  bool customizeSPCharts();

  /// Lays a network diagram out. The caller knows that the chart is one: its first graph has an edge and a
  /// point element.
  /// @param weight widths of the edges
  /// @throws ChartException where the chart has not what it needs
  void customizeNetworkDiagram(XVariable const& weight);

  /// Lays an icicle plot out, in a chart of one graph.
  /// @param count number of leaves; 60 to 1,000 makes the chart grow
  /// @return whether the graph has an interval element
  bool customizeIciclePlots(bool transposed, unsigned int count);

  /// Gives the cells of the second of two graphs the looks that the first one's elements have in turn.
  /// @return false
  /// @throws ChartException where there is a cell and no look
  bool customizePDFCDF();

 private:
  struct Data;

  std::unique_ptr<Data> mData;
};
