#pragma once

#include "template_writer.h"

namespace kestrel::host {

/// The attribute that makes a style a value of a cycle for that aesthetic.
std::string_view cycleProperty(std::string_view aesthetic);

/// The n-th colouring aesthetic of each graph gets a cycle of its own where it has none.
void makeColorCycles(TemplatedChart const& chart, TemplateWriter& writer, unsigned int number);

/// The cycle of the n-th colouring aesthetic of each graph gets the colours that `cycle` lists.
void setColors(TemplatedChart const& chart, TemplateWriter& writer, unsigned int number,
               TemplateNode const& cycle);

/// The chart's repository and all cycles that serve that aesthetic get the styles that `cycle` lists.
void setCycles(TemplatedChart const& chart, TemplateWriter& writer, std::string_view aesthetic,
               TemplateNode const& cycle);

}  // namespace kestrel::host
