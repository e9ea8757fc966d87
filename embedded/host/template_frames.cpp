// Frames around the chart and around the data of its graphs.

#include "template_frames.h"

#include <charconv>

namespace kestrel::host {

namespace {

constexpr char16_t framePrefix[] = u"template_frame";

std::size_t numberIn(std::string_view text, std::size_t absent) {
  std::size_t number = absent;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

void stretch(LumoLabelFrame& frame) {
  constexpr std::pair<LumoLocation::ENUM_part, char16_t const*> places[] = {
      {LumoLocation::PartLeft, u"0%"},
      {LumoLocation::PartRight, u"100%"},
      {LumoLocation::PartTop, u"0%"},
      {LumoLocation::PartBottom, u"100%"}};
  for (auto const& [part, value] : places) {
    LumoLocation& location = *frame.addLocation(part);
    location.setMethod(LumoLocation::MethodValue);
    location.setValue(value);
  }
}

StyleSlot slotOf(LumoLabelFrame& frame) {
  return {&frame, u"style", attachTo<LumoLabelFrame, &LumoLabelFrame::setStyle>};
}
StyleSlot slotOf(LumoFrameGuide& guide) {
  return {&guide, u"style", attachTo<CTGuideType, &CTGuideType::setStyle>};
}

/// A label frame without a label that an earlier addFrame made.
bool isFurtherFrame(LumoLabelFrame const& frame) {
  char16_t const* const id = frame.getId();
  return id != nullptr && std::u16string_view(id).starts_with(framePrefix) && frame.getLabel() == nullptr;
}

/// What an addFrame looks at in one place: the frames that are there, the place's own first.
StyleSlots framesOfChart(LumoVisualization& chart) {
  StyleSlots slots = {{&chart, u"style", attachByName}};
  for (LumoLabelFrame* const frame : chart.getLabelFrames()) {
    if (isFurtherFrame(*frame)) slots.push_back(slotOf(*frame));
  }
  return slots;
}
StyleSlots framesOfGraph(LumoGraph& graph) {
  StyleSlots slots = {{&graph, u"cellStyle", attachTo<LumoGraph, &LumoGraph::setCellStyle>}};
  for (LumoFrameGuide* const guide : graph.getFrameGuides()) slots.push_back(slotOf(*guide));
  return slots;
}

/// As observers are told of a frame that is new.
constexpr std::string_view toldName = "frame";

StyleSlots addToChart(LumoVisualization& chart, TemplateWriter& writer, std::size_t count,
                      TemplatePosition at) {
  StyleSlots slots;
  for (std::size_t added = 0; added < count; ++added) {
    LumoLabelFrame& frame = *chart.addLabelFrame(writer.uniqueId(framePrefix).xc_str());
    stretch(frame);
    writer.tell(frame, toldName, "true", at);
    slots.push_back(slotOf(frame));
  }
  return slots;
}
StyleSlots addToGraph(LumoGraph& graph, TemplateWriter const& writer, std::size_t count,
                      TemplatePosition at) {
  StyleSlots slots;
  for (std::size_t added = 0; added < count; ++added) {
    LumoFrameGuide& frame = *graph.addFrameGuide();
    writer.tell(frame, toldName, "true", at);
    slots.push_back(slotOf(frame));
  }
  return slots;
}

/// A style with a number is for that frame alone, one without for all.
void styleFrames(StyleSlots const& frames, TemplateWriter& writer, std::vector<TemplateNode> const& styles) {
  for (TemplateNode const& style : styles) {
    std::size_t const number = numberIn(style.get("number"), 0);
    for (std::size_t at = 0; at < frames.size(); ++at) {
      if (number == 0 || number == at + 1) writer.write({frames[at]}, lookOf(style));
    }
  }
}

}  // namespace

void addFrames(TemplatedChart const& chart, TemplateWriter& writer, TemplateNode const& instruction) {
  bool const styleOnly = instruction.isTrue("styleOnly");
  std::string_view const count = instruction.get("count");
  std::vector<StyleSlots> places;
  if (instruction.get("type") == "visualization") {
    LumoVisualization& visualization = chart.visualization;
    places.push_back(styleOnly ? framesOfChart(visualization)
                               : addToChart(visualization, writer, numberIn(count, 1), instruction.at));
  } else {
    for (TemplatedChart::Graph const& each : chart.graphs) {
      LumoGraph& graph = *each.graph;
      places.push_back(styleOnly ? framesOfGraph(graph)
                                 : addToGraph(graph, writer, numberIn(count, 1), instruction.at));
    }
  }
  for (StyleSlots& frames : places) {
    std::size_t const meant = numberIn(count, frames.size());
    if (meant < frames.size())
      frames.erase(frames.begin() + static_cast<std::ptrdiff_t>(meant), frames.end());
    styleFrames(frames, writer, instruction.children);
  }
}

}  // namespace kestrel::host
