#pragma once

#include "template_writer.h"

namespace kestrel::host {

/// The instruction `addFrame`.
void addFrames(TemplatedChart const& chart, TemplateWriter& writer, TemplateNode const& instruction);

}  // namespace kestrel::host
