// What the ticks of axes have beside styles: setAxis.

#include "template_axes.h"

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>

#include <charconv>
#include <string>
#include <unordered_map>

using xercesc::DOMElement;
using xercesc::DOMNamedNodeMap;
using xercesc::DOMNode;

namespace kestrel::host {

namespace {

constexpr std::string_view gridlines = "gridlines";
/// Under it ticks keep the element of the gridline that a template has taken away from them, for as long as
/// there is the document, which owns it.
constexpr char16_t takenGridline[] = u"kestrelTakenGridline";

double numberIn(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

bool isNone(TemplatedChart::Axis const&) { return false; }
bool isDerived(TemplatedChart::Axis const& axis) {
  return axis.axis->getTransform() == LumoAxis::TransformDerived;
}

std::vector<LumoMajorTicks*> ticksMeant(TemplatedChart const& chart, TemplateNode const& instruction,
                                        bool (*isLeftOut)(TemplatedChart::Axis const&) = isNone) {
  std::vector<LumoMajorTicks*> meant;
  for (TemplatedChart::Axis const& each : chart.axes) {
    LumoMajorTicks* const ticks = each.axis->getMajorTicks();
    bool const isMeant = instruction.find("role") == nullptr || instruction.get("role") == each.role;
    if (ticks != nullptr && isMeant && !isLeftOut(each)) meant.push_back(ticks);
  }
  return meant;
}

void takeGridline(LumoMajorTicks& ticks) {
  ticks.getImplementation()->setUserData(takenGridline, ticks.getGridline()->getImplementation(), nullptr);
  ticks.removeGridlines();
}

/// One that another template has taken away comes back as it was.
void giveGridline(LumoMajorTicks& ticks, TemplateWriter& writer) {
  LumoGridline& gridline = *ticks.addGridline();
  auto const* const taken =
      static_cast<DOMElement const*>(ticks.getImplementation()->getUserData(takenGridline));
  if (taken == nullptr) return;
  DOMNamedNodeMap const& attributes = *taken->getAttributes();
  for (XMLSize_t at = 0; at < attributes.getLength(); ++at) {
    DOMNode const& attribute = *attributes.item(at);
    if (std::u16string_view(attribute.getNodeName()) == u"id") {
      gridline.setId(writer.uniqueId(attribute.getNodeValue()).xc_str());
    } else {
      gridline.getImplementation()->setAttribute(attribute.getNodeName(), attribute.getNodeValue());
    }
  }
}

/// An attribute of `setAxis`, and how the ticks of an axis take it.
struct TickSetting {
  std::string_view attribute;
  /// Of the ticks.
  char16_t const* written;
  void (*apply)(LumoMajorTicks& ticks, TemplateNode const& node);
};

constexpr TickSetting tickSettings[] = {
    {"tickLength", u"length",
     [](LumoMajorTicks& ticks, TemplateNode const& node) {
       ticks.setLength(ChartString(node.find("tickLength")->c_str()).xc_str());
     }},
    {"labelAngle", u"labelAngle",
     [](LumoMajorTicks& ticks, TemplateNode const& node) {
       ticks.setLabelAngle(numberIn(node.get("labelAngle")));
     }},
    {"stagger", u"stagger",
     [](LumoMajorTicks& ticks, TemplateNode const& node) { ticks.setStagger(node.isTrue("stagger")); }}};

}  // namespace

void GridlineWishes::add(TemplatedChart const& chart, TemplateNode const& instruction) {
  if (instruction.find(gridlines) == nullptr) return;
  // Two grids over each other would tell nobody which line is whose.
  bool const areAdded = instruction.isTrue(gridlines);
  for (LumoMajorTicks* const ticks : ticksMeant(chart, instruction, areAdded ? isDerived : isNone))
    mWishes.push_back({ticks, &instruction});
}

void GridlineWishes::grant(TemplateWriter& writer) {
  std::unordered_map<LumoMajorTicks const*, bool> wanted;
  for (Wish const& wish : mWishes) wanted[wish.ticks] = wish.instruction->isTrue(gridlines);
  for (Wish const& wish : mWishes) {
    bool const there = wish.ticks->getGridline() != nullptr;
    if (there && !wanted[wish.ticks]) takeGridline(*wish.ticks);
    if (!there && wanted[wish.ticks]) giveGridline(*wish.ticks, writer);
  }
  for (Wish const& wish : mWishes) {
    writer.tell(*wish.ticks, "gridline", wish.instruction->get(gridlines), wish.instruction->at);
  }
}

void setAxes(TemplatedChart const& chart, TemplateWriter const& writer, TemplateNode const& instruction) {
  for (TickSetting const& setting : tickSettings) {
    if (instruction.find(setting.attribute) == nullptr) continue;
    for (LumoMajorTicks* const ticks : ticksMeant(chart, instruction)) {
      setting.apply(*ticks, instruction);
      // As the ticks have it now: numbers are written in their shortest form.
      std::string const value = ChartString(ticks->getAttribute(setting.written)).toUTF8();
      writer.tell(*ticks, ChartString(setting.written).toUTF8(), value, instruction.at);
    }
  }
}

}  // namespace kestrel::host
