// The template language: which elements there are, what they hold, and what their attributes may be.

#include "template_language.h"

#include "template_cycles.h"
#include "template_elements.h"
#include "template_parts.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace kestrel::host {

namespace {

constexpr auto required = AttributeRule::Need::Required;
constexpr unsigned int any = ~0U;

using Faults = std::vector<TemplateFault>;

Faults styleFaults(TemplateNode const& node) {
  std::string text = subtypeFault(node.get("type"), node.get("subtype"));
  return text.empty() ? Faults() : Faults{{node.at, std::move(text)}};
}
Faults roleFaults(TemplateNode const& node) {
  std::string_view const part = node.find("part") == nullptr ? everyText : node.get("part");
  if (node.find("role") == nullptr || isAxial(part)) return {};
  return {{node.at, "only parts of axes have a role, and " + std::string(part) +
                        " is none; remove the attribute role"}};
}
Faults cycleFaults(TemplateNode const& node) {
  std::string_view const property = cycleProperty(node.get("aesthetic"));
  Faults faults;
  for (TemplateNode const& cycle : node.children) {
    for (TemplateNode const& style : cycle.children) {
      if (style.find(property) != nullptr) continue;
      faults.push_back(
          {style.at, "a style in the cycle lacks the attribute " + std::string(property) + "; add it"});
    }
  }
  return faults;
}

std::size_t numberIn(std::string_view text) {
  std::size_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}
Faults frameFaults(TemplateNode const& node) {
  bool const isCounted = node.find("count") != nullptr;
  // How many frames there are, only the chart knows.
  if (!isCounted && node.isTrue("styleOnly")) return {};
  std::size_t const count = isCounted ? numberIn(node.get("count")) : 1;
  Faults faults;
  for (TemplateNode const& style : node.children) {
    if (numberIn(style.get("number")) <= count) continue;
    faults.push_back({style.at, "the addFrame is for " + std::to_string(count) +
                                    (count == 1 ? " frame" : " frames") + ", so that none has the number " +
                                    std::string(style.get("number")) + "; write a number up to " +
                                    std::to_string(count) + " or another count"});
  }
  return faults;
}

// clang-format off
ElementRule const colorStyle {"style", {{"color", &aColor, required}}, {}};
ElementRule const look       {"style", {}, {}, true};
ElementRule const frameLook  {"style", {{"number", &aFrameNumber}}, {}, true};
ElementRule const colorCycle {"cycle", {}, {{&colorStyle, 1, any}}};
ElementRule const lookCycle  {"cycle", {}, {{&look, 1, any}}};

ElementRule const setColor {"setColor", {{"aestheticNumber", &anAestheticNumber, required}},
                            {{&colorCycle, 1, 1}}};
ElementRule const setCycle {"setCycle", {{"aesthetic", &anAesthetic, required}},
                            {{&lookCycle, 1, 1}}, false, cycleFaults};
ElementRule const setStyle {"setStyle", {{"type", &anElementType, required},
                                         {"subtype", &anElementSubtype}},
                            {{&look, 1, 1}}, false, styleFaults};
ElementRule const setLook  {"setLook",  {{"part", &aPart, required},
                                         {"role", &aRole}},
                            {{&look, 1, 1}}, false, roleFaults};
ElementRule const setFont  {"setFont",  {{"part", &aFontPart},
                                         {"role", &aRole},
                                         {"family", &anyText},
                                         {"size", &aSize},
                                         {"weight", &aFontWeight},
                                         {"style", &aFontStyle},
                                         {"color", &aColor}},
                            {}, false, roleFaults};
ElementRule const setAxis  {"setAxis",  {{"role", &aRole},
                                         {"gridlines", &aBoolean},
                                         {"tickLength", &anExtent},
                                         {"labelAngle", &aNumber},
                                         {"stagger", &aBoolean}},
                            {}};
ElementRule const addFrame {"addFrame", {{"type", &aFrameType, required},
                                         {"count", &aFrameNumber},
                                         {"styleOnly", &aBoolean}},
                            {{&frameLook, 0, any}}, false, frameFaults};

ElementRule const root {"template", {}, {{&addFrame, 0, any}, {&setAxis, 0, any}, {&setColor, 0, any},
                                         {&setCycle, 0, any}, {&setFont, 0, any}, {&setLook, 0, any},
                                         {&setStyle, 0, any}}};
// clang-format on

template <typename List>
Names namesOf(List const& list) {
  Names names;
  for (auto const& entry : list) names.push_back(entry.name);
  return names;
}

void collectParents(ElementRule const& rule, std::string_view element, Names& parents) {
  for (ElementRule::Child const& child : rule.children) {
    bool const known = std::find(parents.begin(), parents.end(), rule.name) != parents.end();
    if (child.rule->name == element && !known) parents.push_back(rule.name);
    collectParents(*child.rule, element, parents);
  }
}

template <typename List>
AttributeRule const* findAttribute(List const& list, std::string_view name) {
  auto const found = std::find_if(list.begin(), list.end(),
                                  [name](AttributeRule const& attribute) { return attribute.name == name; });
  return found == list.end() ? nullptr : &*found;
}

}  // namespace

AttributeRule const* ElementRule::attribute(std::string_view wanted) const {
  AttributeRule const* const own = findAttribute(attributes, wanted);
  return own != nullptr || !takesLook ? own : findAttribute(lookAttributes(), wanted);
}

Names ElementRule::attributeNames() const {
  Names names = namesOf(attributes);
  if (!takesLook) return names;
  Names const more = namesOf(lookAttributes());
  names.insert(names.end(), more.begin(), more.end());
  return names;
}

ElementRule::Child const* ElementRule::child(std::string_view wanted) const {
  auto const found = std::find_if(children.begin(), children.end(),
                                  [wanted](Child const& child) { return child.rule->name == wanted; });
  return found == children.end() ? nullptr : &*found;
}

Names ElementRule::childNames() const {
  Names names;
  for (Child const& child : children) names.push_back(child.rule->name);
  return names;
}

std::string const* TemplateNode::find(std::string_view attribute) const {
  for (Value const& value : values) {
    if (value.attribute->name == attribute) return &value.text;
  }
  return nullptr;
}

std::string_view TemplateNode::get(std::string_view attribute) const {
  std::string const* const text = find(attribute);
  return text == nullptr ? std::string_view() : std::string_view(*text);
}

bool TemplateNode::isTrue(std::string_view attribute) const {
  std::string_view const text = get(attribute);
  return text == "true" || text == "1";
}

ElementRule const& templateRoot() { return root; }

Names parentsOf(std::string_view element) {
  Names parents;
  collectParents(root, element, parents);
  return parents;
}

}  // namespace kestrel::host
