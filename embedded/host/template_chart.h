#pragma once

#include "model/aesthetics.h"
#include "model/document.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/guides.h"
#include "model/labels.h"
#include "model/style.h"

#include <functional>
#include <string_view>
#include <vector>

namespace kestrel::host {

/// Every element in and below `top` that the model knows, in document order.
void forEachElement(LumoBaseElement& top, std::function<void(LumoBaseElement&)> const& visit);

/// "x", "y" or "z" by the place among the dimensions and dimension references of its coordinates; empty
/// beyond these.
std::string_view roleOf(LumoDimension const& dimension);

/// What label frames are for.
enum class FrameUse { Title, Subtitle, Footnote, Summary, Other };

/// The parts of a chart that templates address, each list in document order.
struct TemplatedChart {
  struct Axis {
    LumoAxis* axis;
    std::string_view role;
  };
  struct Frame {
    LumoLabelFrame* frame;
    FrameUse use;
  };
  struct Graph {
    LumoGraph* graph;
    std::vector<CTElementType*> elements;
    bool isInSpace;
  };

  explicit TemplatedChart(LumoVisualization& chart);

  LumoVisualization& visualization;
  std::vector<Graph> graphs;
  /// Of dimensions.
  std::vector<Axis> axes;
  /// Of the levels of panels.
  std::vector<LumoAxis*> panelAxes;
  std::vector<LumoLegend*> legends;
  /// Those that hold a label.
  std::vector<Frame> frames;
  std::vector<LumoLabeling*> labelings;
  std::vector<CTGuideType*> guides;
};

}  // namespace kestrel::host
