// What each instruction of a template does, and how much of it.

#include "template_instructions.h"

#include "template_elements.h"
#include "template_frames.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <utility>

namespace kestrel::host {

namespace {

using Work = TemplateWork;

unsigned int aestheticNumber(TemplateNode const& node) {
  return static_cast<unsigned int>(node.get("aestheticNumber").front() - '0');
}

void makeCycle(Work& work, TemplateNode const& node) {
  makeColorCycles(work.aesthetics, work.writer, aestheticNumber(node));
}
void setColor(Work& work, TemplateNode const& node) {
  setColors(work.aesthetics, work.writer, aestheticNumber(node), node.children.front());
}

void separateCycle(Work& work, TemplateNode const& node) {
  separateCycles(work.aesthetics, work.writer, node.get("aesthetic"));
}
void setCycle(Work& work, TemplateNode const& node) {
  setCycles(work.aesthetics, work.writer, node.get("aesthetic"), node.children.front());
}

/// Where an instruction writes a look, and which.
struct Styling {
  StyleSlots slots;
  Look look;
};

Styling stylingOfElements(Work const& work, TemplateNode const& node) {
  return {slotsOfElements(work.chart, node.get("type"), node.get("subtype")), lookOf(node.children.front())};
}

Styling stylingOfPart(Work const& work, TemplateNode const& node) {
  return {slotsOfPart(work.chart, node.get("part"), node.get("role")), lookOf(node.children.front())};
}

Styling stylingOfFont(Work const& work, TemplateNode const& node) {
  static constexpr std::pair<std::string_view, std::string_view> properties[] = {{"family", "font_family"},
                                                                                 {"size", "font_size"},
                                                                                 {"weight", "font_weight"},
                                                                                 {"style", "font_style"},
                                                                                 {"color", "color"}};
  Look look{{}, node.at};
  for (auto const& [attribute, property] : properties) {
    if (node.find(attribute) != nullptr) look.values.emplace_back(property, node.get(attribute));
  }
  std::string_view const part = node.find("part") == nullptr ? everyText : node.get("part");
  return {slotsOfPart(work.chart, part, node.get("role")), std::move(look)};
}

template <Styling (*stylingOf)(Work const&, TemplateNode const&)>
void style(Work& work, TemplateNode const& node) {
  Styling const styling = stylingOf(work, node);
  work.writer.write(styling.slots, styling.look);
}

void wishGridlines(Work& work, TemplateNode const& node) { work.gridlines.add(work.chart, node); }
void setAxis(Work& work, TemplateNode const& node) { setAxes(work.chart, work.writer, node); }

void addFrame(Work& work, TemplateNode const& node) { addFrames(work.chart, work.writer, node); }

void nothing(Work&, TemplateNode const&) {}

/// How much an instruction does to a chart. A style without values counts like one value: it may be made.
struct Demand {
  std::size_t frames;
  std::size_t values;
};

std::size_t valuesOf(TemplateNode const& style) { return std::max<std::size_t>(style.values.size(), 1); }

std::size_t valuesOfAll(std::vector<TemplateNode> const& styles) {
  std::size_t count = 0;
  for (TemplateNode const& style : styles) count += valuesOf(style);
  return count;
}

template <Styling (*stylingOf)(Work const&, TemplateNode const&)>
Demand demandOfStyle(Work const& work, TemplateNode const& node) {
  Styling const styling = stylingOf(work, node);
  return {0, styling.slots.size() * std::max<std::size_t>(styling.look.values.size(), 1)};
}

Demand demandOfColors(Work const& work, TemplateNode const& node) {
  return {0, work.chart.graphs.size() * valuesOfAll(node.children.front().children)};
}

Demand demandOfCycle(Work const& work, TemplateNode const& node) {
  return {0, (work.aesthetics.count() + 1) * valuesOfAll(node.children.front().children)};
}

Demand demandOfAxis(Work const& work, TemplateNode const& node) {
  return {0, work.chart.axes.size() * node.values.size()};
}

/// At most: the frames that are there are not told apart.
Demand demandOfFrames(Work const& work, TemplateNode const& node) {
  bool const isAroundChart = node.get("type") == "visualization";
  std::size_t const places = isAroundChart ? 1 : work.chart.graphs.size();
  std::size_t frames = places;
  if (node.isTrue("styleOnly")) {
    if (isAroundChart) frames += work.chart.visualization.getLabelFrames().size();
    for (TemplatedChart::Graph const& each : work.chart.graphs) {
      if (!isAroundChart) frames += each.graph->getFrameGuides().size();
    }
    return {0, frames * valuesOfAll(node.children)};
  }
  std::size_t count = 1;
  std::string_view const text = node.get("count");
  std::from_chars(text.data(), text.data() + text.size(), count);
  frames *= count;
  return {frames, frames * valuesOfAll(node.children)};
}

struct Instruction {
  std::string_view name;
  void (*prepare)(Work& work, TemplateNode const& node);
  void (*apply)(Work& work, TemplateNode const& node);
  Demand (*demand)(Work const& work, TemplateNode const& node);
};

// clang-format off
constexpr Instruction table[] = {
    {"addFrame", nothing,       addFrame,                 demandOfFrames},
    {"setAxis",  wishGridlines, setAxis,                  demandOfAxis},
    {"setColor", makeCycle,     setColor,                 demandOfColors},
    {"setCycle", separateCycle, setCycle,                 demandOfCycle},
    {"setFont",  nothing,       style<stylingOfFont>,     demandOfStyle<stylingOfFont>},
    {"setLook",  nothing,       style<stylingOfPart>,     demandOfStyle<stylingOfPart>},
    {"setStyle", nothing,       style<stylingOfElements>, demandOfStyle<stylingOfElements>}};
// clang-format on

Instruction const& instructionOf(TemplateNode const& node) {
  return *std::find_if(std::begin(table), std::end(table),
                       [&node](Instruction const& each) { return each.name == node.rule->name; });
}

TemplateFault tooMuch(TemplateNode const& node, std::string const& what) {
  return {node.at,
          "with this " + std::string(node.rule->name) + " the template " + what + " the chart; shorten it"};
}

}  // namespace

std::optional<TemplateFault> boundFault(TemplateWork const& work,
                                        std::vector<TemplateNode> const& instructions) {
  Demand all{0, 0};
  for (TemplateNode const& node : instructions) {
    Demand const demand = instructionOf(node).demand(work, node);
    all = {all.frames + demand.frames, all.values + demand.values};
    if (all.frames > mostFramesAdded)
      return tooMuch(node, "adds more than " + std::to_string(mostFramesAdded) + " frames to");
    if (all.values > mostValuesWritten)
      return tooMuch(node, "writes more than " + std::to_string(mostValuesWritten) + " values into");
  }
  return std::nullopt;
}

void carryOut(TemplateWork& work, std::vector<TemplateNode> const& instructions) {
  for (TemplateNode const& node : instructions) instructionOf(node).prepare(work, node);
  work.gridlines.grant(work.writer);
  for (TemplateNode const& node : instructions) instructionOf(node).apply(work, node);
}

}  // namespace kestrel::host
