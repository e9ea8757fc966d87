#pragma once

#include "template_writer.h"

#include <vector>

namespace kestrel::host {

/// What the instructions of one template want of gridlines. The last one for an axis decides, and only that
/// is carried out: a gridline that is taken away and added again would lose its looks.
class GridlineWishes {
 public:
  /// What this `setAxis` says. It must outlive this.
  void add(TemplatedChart const& chart, TemplateNode const& instruction);
  /// Carries the wishes out, and tells of all of them in their order.
  void grant(TemplateWriter& writer);

 private:
  struct Wish {
    LumoMajorTicks* ticks;
    TemplateNode const* instruction;
  };
  std::vector<Wish> mWishes;
};

/// What a `setAxis` says beside gridlines.
void setAxes(TemplatedChart const& chart, TemplateWriter const& writer, TemplateNode const& instruction);

}  // namespace kestrel::host
