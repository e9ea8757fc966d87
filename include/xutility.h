#pragma once

#include "kestrel_export.h"

#include "model/chartstring.h"

/// Text functions that all builders share.
class KESTREL_API XUtility {
 public:
  /// The text as UTF-16; `text` is in the local code page, null counts as empty.
  static ChartString ChartStringFromLocalCodePage(char const* text);

  /// A text of the host's dictionaries as UTF-16. Decodes exactly as `ChartStringFromLocalCodePage` does,
  /// whatever the output language is.
  static ChartString ChartStringFromOLANG(char const* text);

  /// "#rrggbb" with lower-case digits; a component above 255 counts as 255. (The element colours of
  /// `XElement` are written in upper case.)
  static ChartString chartStringFromRGB(unsigned int red, unsigned int green, unsigned int blue);
};
