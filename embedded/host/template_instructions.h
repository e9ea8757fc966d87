#pragma once

#include "template_axes.h"
#include "template_cycles.h"
#include "template_writer.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace kestrel::host {

/// How many frames one template may add to a chart, and how many values it may write there: far more than any
/// look needs, and few enough that no template makes a chart that nobody can handle.
constexpr std::size_t mostFramesAdded = 10'000;
constexpr std::size_t mostValuesWritten = 2'000'000;

/// A chart and the means to write into it, for one template.
struct TemplateWork {
  TemplateWork(LumoVisualization& visualization, std::string const& text, TemplateObserver* observer)
      : chart(visualization), writer(visualization, text, observer), aesthetics(chart) {}

  TemplatedChart chart;
  TemplateWriter writer;
  CycledAesthetics aesthetics;
  GridlineWishes gridlines;
};

/// Where the template goes over what one may do to a chart; it must not be carried out then.
std::optional<TemplateFault> boundFault(TemplateWork const& work,
                                        std::vector<TemplateNode> const& instructions);

/// In two rounds: first all of a template make what is to be styled, then all style it. So the second time
/// that a template is applied, it finds nothing that it did not find the first time.
void carryOut(TemplateWork& work, std::vector<TemplateNode> const& instructions);

}  // namespace kestrel::host
