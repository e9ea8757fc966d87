#pragma once

#include "template_writer.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace kestrel::host {

/// The attribute that makes a style a value of a cycle for that aesthetic.
std::string_view cycleProperty(std::string_view aesthetic);

/// The aesthetics of a chart that have a cycle, or could have one, graph by graph in document order.
class CycledAesthetics {
 public:
  explicit CycledAesthetics(TemplatedChart const& chart);

  LumoVisualization& chart() const { return mChart; }
  std::vector<std::vector<CTAesthetic*>> const& graphs() const { return mGraphs; }
  std::size_t count() const;

 private:
  LumoVisualization& mChart;
  std::vector<std::vector<CTAesthetic*>> mGraphs;
};

// An aesthetic over a variable that is not categorical, or with mappings of its own, stays as it is.

/// The n-th colouring aesthetic of each graph gets a cycle of its own where it has none, and where another
/// aesthetic has the same.
void makeColorCycles(CycledAesthetics const& aesthetics, TemplateWriter& writer, unsigned int number);

/// The cycle of the n-th colouring aesthetic of each graph gets the colours that `cycle` lists.
void setColors(CycledAesthetics const& aesthetics, TemplateWriter& writer, unsigned int number,
               TemplateNode const& cycle);

/// The aesthetics of that kind get cycles of their own where others have the same.
void separateCycles(CycledAesthetics const& aesthetics, TemplateWriter& writer, std::string_view aesthetic);

/// The chart's repository and all cycles that serve that aesthetic get the styles that `cycle` lists.
void setCycles(CycledAesthetics const& aesthetics, TemplateWriter& writer, std::string_view aesthetic,
               TemplateNode const& cycle);

}  // namespace kestrel::host
