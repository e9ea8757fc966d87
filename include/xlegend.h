#pragma once

#include "kestrel_export.h"
#include "xbaseelement.h"

class LumoLegend;
class XElement;

/// The builder of one legend.
class KESTREL_API XLegend : public XBaseElement {
 public:
  /// A handle on that legend; nothing is written.
  explicit XLegend(LumoLegend& legend);

  /// Adds a title label. A second call adds a second label with the same id. A backslash followed by n is a
  /// line break. Guarded.
  virtual void AddLabel(char16_t const* text);

  /// Ties an element to the legend. Guarded.
  virtual void addLegendElement(XElement const& element);

 private:
  LumoLegend* mImplementation;
};
