#include "chart_looks.h"

#include "model/chartstring.h"
#include "model/document.h"
#include "model/tokens.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>

using xercesc::DOMElement;

namespace kestrel::tool {

namespace {

constexpr char16_t idName[] = u"id";
constexpr char16_t styleName[] = u"style";
constexpr std::array<std::u16string_view, 3> tickAttributes = {u"labelAngle", u"length", u"stagger"};
/// By these an element takes the styles of a cycle.
constexpr std::array<std::u16string_view, 3> cycleReferences = {u"cycle", u"styleCycle",
                                                                u"styleCycleRepository"};

std::string utf8(char16_t const* text) { return ChartString(text).toUTF8(); }

/// Without a prefix.
char16_t const* tagOf(DOMElement const& element) {
  char16_t const* const local = element.getLocalName();
  return local == nullptr ? element.getTagName() : local;
}

bool is(DOMElement const& element, std::u16string_view tag) { return tag == tagOf(element); }

DOMElement const* childOf(DOMElement const& element, std::u16string_view tag) {
  DOMElement const* child = element.getFirstElementChild();
  while (child != nullptr && !is(*child, tag)) child = child->getNextElementSibling();
  return child;
}

template <typename List>
bool contains(List const& list, std::u16string_view name) {
  return std::find(list.begin(), list.end(), name) != list.end();
}

using Visit = std::function<void(std::u16string_view name, char16_t const* value)>;

void forEachAttribute(DOMElement const& element, Visit const& visit) {
  xercesc::DOMNamedNodeMap const& attributes = *element.getAttributes();
  for (XMLSize_t at = 0; at < attributes.getLength(); ++at) {
    xercesc::DOMNode const& attribute = *attributes.item(at);
    visit(attribute.getNodeName(), attribute.getNodeValue());
  }
}

/// The element after this one in document order, within the document.
DOMElement const* next(DOMElement const& element) {
  if (DOMElement const* const child = element.getFirstElementChild()) return child;
  DOMElement const* at = &element;
  while (at != nullptr && at->getNextElementSibling() == nullptr) {
    at = dynamic_cast<DOMElement const*>(at->getParentNode());
  }
  return at == nullptr ? nullptr : at->getNextElementSibling();
}

void addLooks(DOMElement const& element, std::vector<LookValue>& looks) {
  bool const ofStyle = isStyle(element);
  bool const isTicks = is(element, u"majorTicks");
  if (ofStyle || isTicks) {
    forEachAttribute(element, [&](std::u16string_view name, char16_t const* value) {
      bool const isLook =
          ofStyle ? name != idName && !name.starts_with(u"xmlns") : contains(tickAttributes, name);
      if (isLook) looks.push_back({&element, utf8(std::u16string(name).c_str()), utf8(value)});
    });
  }
  if (isTicks) {
    bool const hasGridline = childOf(element, u"gridline") != nullptr;
    looks.push_back({&element, "gridline", hasGridline ? "true" : "false"});
  }
  bool const isFrame =
      is(element, u"frameGuide") || (is(element, u"labelFrame") && childOf(element, u"label") == nullptr);
  if (isFrame) looks.push_back({&element, "frame", "true"});
}

}  // namespace

bool isStyle(DOMElement const& element) { return is(element, styleName); }

std::vector<LookValue> looksOf(LumoVisualization const& chart) {
  std::vector<LookValue> looks;
  for (DOMElement const* at = chart.getImplementation(); at != nullptr; at = next(*at)) addLooks(*at, looks);
  return looks;
}

StyleUses::StyleUses(LumoVisualization const& chart) {
  for (DOMElement const* at = chart.getImplementation(); at != nullptr; at = next(*at)) {
    if (isStyle(*at) && at->hasAttribute(idName)) mStyles.emplace(at->getAttribute(idName), at);
    forEachAttribute(*at, [&](std::u16string_view name, char16_t const* value) {
      bool const namesStyle =
          name == styleName || name.ends_with(u"Style") || contains(cycleReferences, name);
      if (namesStyle) mUses[value].push_back({at, utf8(std::u16string(name).c_str())});
    });
  }
}

void StyleUses::append(std::u16string const& id, std::vector<StyleUse>& uses) const {
  auto const found = mUses.find(id);
  if (found != mUses.end()) uses.insert(uses.end(), found->second.begin(), found->second.end());
}

std::vector<StyleUse> StyleUses::of(DOMElement const& style) const {
  std::vector<StyleUse> uses;
  std::u16string const own = style.getAttribute(idName);
  auto const first = mStyles.find(own);
  if (first != mStyles.end() && first->second == &style) append(own, uses);
  auto const* around = dynamic_cast<DOMElement const*>(style.getParentNode());
  while (around != nullptr && (is(*around, u"cycle") || is(*around, u"styleCycle"))) {
    if (around->hasAttribute(idName)) append(around->getAttribute(idName), uses);
    around = dynamic_cast<DOMElement const*>(around->getParentNode());
  }
  return uses;
}

ElementPaths::ElementPaths(LumoVisualization const& chart) {
  for (DOMElement const* at = chart.getImplementation(); at != nullptr; at = next(*at)) count(*at);
}

void ElementPaths::count(DOMElement const& holder) {
  struct Siblings {
    DOMElement const* first;
    std::size_t number;
  };
  std::map<std::u16string_view, Siblings> tags;
  DOMElement const* child = holder.getFirstElementChild();
  for (; child != nullptr; child = child->getNextElementSibling()) {
    Siblings& siblings = tags.try_emplace(tagOf(*child), Siblings{child, 0}).first->second;
    if (++siblings.number == 2 && !siblings.first->hasAttribute(idName)) mPlaces[siblings.first] = 1;
    if (siblings.number > 1 && !child->hasAttribute(idName)) mPlaces[child] = siblings.number;
  }
}

/// A piece of a path: the tag with the id, or with the place where there are several of it.
std::string ElementPaths::stepOf(DOMElement const& element) const {
  std::string const step = utf8(tagOf(element));
  if (element.hasAttribute(idName)) return step + "#" + utf8(element.getAttribute(idName));
  auto const place = mPlaces.find(&element);
  return place == mPlaces.end() ? step : step + "[" + std::to_string(place->second) + "]";
}

std::string ElementPaths::of(DOMElement const& element) const {
  std::string path = stepOf(element);
  DOMElement const* at = &element;
  while (!at->hasAttribute(idName)) {
    at = dynamic_cast<DOMElement const*>(at->getParentNode());
    if (at == nullptr) break;
    path.insert(0, stepOf(*at) + "/");
  }
  return path;
}

}  // namespace kestrel::tool
