#pragma once

#include <xercesc/dom/DOMElement.hpp>

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

class LumoVisualization;

namespace kestrel::tool {

/// One value of how a chart looks.
struct LookValue {
  xercesc::DOMElement const* element;
  /// An attribute of the element; `gridline` of ticks, "true" or "false"; `frame` of a frame that is there.
  std::string name;
  std::string value;
};

bool isStyle(xercesc::DOMElement const& element);

/// All of them in document order: the attributes of styles and of ticks, gridlines, and frames without a
/// text.
std::vector<LookValue> looksOf(LumoVisualization const& chart);

/// Where an element uses a style.
struct StyleUse {
  xercesc::DOMElement const* user;
  std::string attribute;
};

/// Who uses the styles of a chart: by a style's own id or, where it stands in a cycle, by the id of the
/// cycles around it. Of several styles with one id the first is meant. The chart must stay as it is.
class StyleUses {
 public:
  explicit StyleUses(LumoVisualization const& chart);

  std::vector<StyleUse> of(xercesc::DOMElement const& style) const;

 private:
  void append(std::u16string const& id, std::vector<StyleUse>& uses) const;

  std::map<std::u16string, xercesc::DOMElement const*> mStyles;
  std::map<std::u16string, std::vector<StyleUse>> mUses;
};

/// What the elements of a chart are called. The chart must stay as it is.
class ElementPaths {
 public:
  explicit ElementPaths(LumoVisualization const& chart);

  /// "label#axis_title", or from the nearest element around it that has an id:
  /// "coordinates#coordinates0/dimension[2]/axis/majorTicks". Without prefixes of namespaces.
  std::string of(xercesc::DOMElement const& element) const;

 private:
  void count(xercesc::DOMElement const& holder);
  std::string stepOf(xercesc::DOMElement const& element) const;

  /// Of an element without an id, from 1, where the same holder has several of its tag.
  std::unordered_map<xercesc::DOMElement const*, std::size_t> mPlaces;
};

}  // namespace kestrel::tool
