#pragma once

#include "chart_templates.h"

#include <string>
#include <vector>

namespace kestrel::tool {

struct GalleryRequest {
  /// The charts to make; empty for all.
  std::vector<std::string> names;
  /// The folder for the charts; empty only to list them.
  std::string output;
  TemplateRequest templates;
  bool list = false;
};

/// Makes the charts of the gallery: of each, what a client gets in <output>/<name>.kcap and the chart text in
/// <output>/<name>.xml. Tells on standard output what it wrote. Throws a Problem where it could not.
void runGallery(GalleryRequest const& request);

}  // namespace kestrel::tool
