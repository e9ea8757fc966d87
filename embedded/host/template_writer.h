#pragma once

#include "template_language.h"
#include "template_parts.h"

#include "model/chartstring.h"

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kestrel::host {

class TemplateObserver;

/// What a template wants a style to be: attributes of the style with their values.
struct Look {
  std::vector<std::pair<std::string_view, std::string_view>> values;
  TemplatePosition at;
};

/// The look that an element of a template spells out with the attributes of a style.
Look lookOf(TemplateNode const& node);

/// Is it an id that a template gives instead of `base` where that is taken? `uniqueId` makes them.
bool isVariantOf(char16_t const* id, std::u16string_view base);

/// Writes into one chart for one template.
class TemplateWriter {
 public:
  /// `observer` may be null. The text is the template's and must outlive this.
  TemplateWriter(LumoVisualization& chart, std::string const& text, TemplateObserver* observer);

  /// Gives the styles in these slots the look. Where there is none, one is made; one that serves other parts
  /// of the chart too is left to these, and the slots get a copy of it.
  void write(StyleSlots const& slots, Look const& look);
  void write(LumoStyle& style, Look const& look);

  /// Tells the observer of a value that was written past the styles.
  void tell(LumoBaseElement const& element, std::string_view attribute, std::string_view value,
            TemplatePosition at) const;

  /// An id that starts like this and that the chart does not have yet.
  ChartString uniqueId(std::u16string const& base);

  /// The style in the place of a style of a cycle that serves the cycle alone: where something else names the
  /// style, that keeps it, and a copy takes its place in the cycle.
  LumoStyle& ownStyle(LumoCycle& cycle, LumoStyle& style);
  /// Takes a style out of its cycle. One that something else names goes to where named styles stand.
  void removeFromCycle(LumoStyle& style);
  /// A new style at the end of the cycle, with the values of this one.
  void addCopy(LumoCycle& cycle, LumoStyle const& style);

 private:
  LumoStyle& styleFor(LumoStyle* current, StyleSlots const& slots);
  LumoStyle& makeStyle(std::u16string const& id);
  LumoStyle& container();
  void toContainer(LumoStyle& style);
  void copy(LumoStyle const& from, LumoStyle& to) const;

  LumoVisualization& mChart;
  std::string const& mText;
  TemplateObserver* mObserver;
  /// Found or made when it is needed first: charts may have many styles beside it.
  LumoStyle* mContainer = nullptr;
  /// In how many places of the chart each style is at work: those that name it, and the cycle that it is in.
  std::unordered_map<LumoStyle const*, std::size_t> mUses;
  std::map<std::u16string, unsigned long> mLastNumbers;
};

}  // namespace kestrel::host
