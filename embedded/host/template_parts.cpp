// The parts of a chart that a template addresses by name: where their styles are.

#include "template_parts.h"

#include "model/tokens.h"

#include <algorithm>

namespace kestrel::host {

namespace {

constexpr char16_t style[] = u"style";
constexpr char16_t textFrameStyle[] = u"textFrameStyle";

using Axes = std::vector<LumoAxis*>;

void addLine(LumoAxis& axis, StyleSlots& slots) {
  slots.push_back({&axis, style, attachTo<LumoAxis, &LumoAxis::setStyle>});
}

void addLabel(CTLabelType* label, StyleSlots& slots) {
  if (label != nullptr) slots.push_back({label, style, attachTo<CTLabelType, &CTLabelType::setStyle>});
}
void addLabelFrame(CTLabelType* label, StyleSlots& slots) {
  if (label == nullptr) return;
  slots.push_back({label, textFrameStyle, attachTo<CTLabelType, &CTLabelType::setTextFrameStyle>});
}

void addTitle(LumoAxis& axis, StyleSlots& slots) { addLabel(axis.getLabel(), slots); }
void addTitleFrame(LumoAxis& axis, StyleSlots& slots) { addLabelFrame(axis.getLabel(), slots); }

void addTickLabel(LumoAxis& axis, StyleSlots& slots) {
  LumoMajorTicks* const ticks = axis.getMajorTicks();
  if (ticks != nullptr) slots.push_back({ticks, style, attachTo<LumoMajorTicks, &LumoMajorTicks::setStyle>});
}
void addTickLabelFrame(LumoAxis& axis, StyleSlots& slots) {
  LumoMajorTicks* const ticks = axis.getMajorTicks();
  if (ticks == nullptr) return;
  slots.push_back({ticks, u"tickFrameStyle", attachTo<LumoMajorTicks, &LumoMajorTicks::setTickFrameStyle>});
}
void addTickMark(LumoAxis& axis, StyleSlots& slots) {
  LumoMajorTicks* const ticks = axis.getMajorTicks();
  if (ticks == nullptr) return;
  slots.push_back({ticks, LumoUni::_markStyle, attachTo<LumoMajorTicks, &LumoMajorTicks::setMarkStyle>});
}
void addGridline(LumoAxis& axis, StyleSlots& slots) {
  LumoMajorTicks const* const ticks = axis.getMajorTicks();
  if (ticks == nullptr || ticks->getGridline() == nullptr) return;
  slots.push_back({ticks->getGridline(), style, attachByName});
}

template <void (*add)(LumoAxis&, StyleSlots&)>
void ofAxes(TemplatedChart const& chart, std::string_view role, StyleSlots& slots) {
  for (TemplatedChart::Axis const& each : chart.axes) {
    if (role.empty() || each.role == role) add(*each.axis, slots);
  }
}

template <void (*add)(LumoAxis&, StyleSlots&)>
void ofPanels(TemplatedChart const& chart, std::string_view, StyleSlots& slots) {
  for (LumoAxis* const axis : chart.panelAxes) add(*axis, slots);
}

template <FrameUse use>
void textOf(TemplatedChart const& chart, std::string_view, StyleSlots& slots) {
  for (TemplatedChart::Frame const& each : chart.frames) {
    if (each.use == use) addLabel(each.frame->getLabel(), slots);
  }
}
template <FrameUse use>
void frameOf(TemplatedChart const& chart, std::string_view, StyleSlots& slots) {
  for (TemplatedChart::Frame const& each : chart.frames) {
    if (each.use != use) continue;
    slots.push_back({each.frame, style, attachTo<LumoLabelFrame, &LumoLabelFrame::setStyle>});
  }
}

void chartItself(TemplatedChart const& chart, std::string_view, StyleSlots& slots) {
  slots.push_back({&chart.visualization, style, attachByName});
}
void graphCells(TemplatedChart const& chart, std::string_view, StyleSlots& slots) {
  for (TemplatedChart::Graph const& each : chart.graphs) {
    slots.push_back({each.graph, u"cellStyle", attachTo<LumoGraph, &LumoGraph::setCellStyle>});
  }
}

void legendBoxes(TemplatedChart const& chart, std::string_view, StyleSlots& slots) {
  for (LumoLegend* const legend : chart.legends) {
    slots.push_back({legend, style, attachTo<LumoLegend, &LumoLegend::setStyle>});
  }
}
void legendLabels(TemplatedChart const& chart, std::string_view, StyleSlots& slots) {
  for (LumoLegend* const legend : chart.legends) {
    slots.push_back({legend, u"tickTextStyle", attachTo<LumoLegend, &LumoLegend::setTickTextStyle>});
  }
}
void legendTitles(TemplatedChart const& chart, std::string_view, StyleSlots& slots) {
  for (LumoLegend const* const legend : chart.legends) {
    for (LumoLabel* const label : legend->getLabels()) addLabel(label, slots);
  }
}

void dataLabels(TemplatedChart const& chart, std::string_view, StyleSlots& slots) {
  for (LumoLabeling* const labeling : chart.labelings) {
    slots.push_back({labeling, style, attachTo<LumoLabeling, &LumoLabeling::setStyle>});
  }
}
void dataLabelFrames(TemplatedChart const& chart, std::string_view, StyleSlots& slots) {
  for (LumoLabeling* const labeling : chart.labelings) {
    slots.push_back({labeling, textFrameStyle, attachTo<LumoLabeling, &LumoLabeling::setTextFrameStyle>});
  }
}

template <typename Guide>
void guides(TemplatedChart const& chart, std::string_view, StyleSlots& slots) {
  for (CTGuideType* const guide : chart.guides) {
    if (dynamic_cast<Guide*>(guide) == nullptr) continue;
    slots.push_back({guide, style, attachTo<CTGuideType, &CTGuideType::setStyle>});
  }
}

struct Part {
  std::string_view name;
  enum { Drawn, Text } kind;
  enum { Plain, Axial } place;
  void (*collect)(TemplatedChart const& chart, std::string_view role, StyleSlots& slots);
};

// clang-format off
constexpr Part parts[] = {
    {"chart",          Part::Drawn, Part::Plain, chartItself},
    {"graph",          Part::Drawn, Part::Plain, graphCells},
    {"title",          Part::Text,  Part::Plain, textOf<FrameUse::Title>},
    {"titleFrame",     Part::Drawn, Part::Plain, frameOf<FrameUse::Title>},
    {"subtitle",       Part::Text,  Part::Plain, textOf<FrameUse::Subtitle>},
    {"subtitleFrame",  Part::Drawn, Part::Plain, frameOf<FrameUse::Subtitle>},
    {"footnote",       Part::Text,  Part::Plain, textOf<FrameUse::Footnote>},
    {"footnoteFrame",  Part::Drawn, Part::Plain, frameOf<FrameUse::Footnote>},
    {"summary",        Part::Text,  Part::Plain, textOf<FrameUse::Summary>},
    {"summaryFrame",   Part::Drawn, Part::Plain, frameOf<FrameUse::Summary>},
    {"otherLabel",     Part::Text,  Part::Plain, textOf<FrameUse::Other>},
    {"otherFrame",     Part::Drawn, Part::Plain, frameOf<FrameUse::Other>},
    {"axisLine",       Part::Drawn, Part::Axial, ofAxes<addLine>},
    {"axisLabel",      Part::Text,  Part::Axial, ofAxes<addTitle>},
    {"axisLabelFrame", Part::Drawn, Part::Axial, ofAxes<addTitleFrame>},
    {"tickLabel",      Part::Text,  Part::Axial, ofAxes<addTickLabel>},
    {"tickLabelFrame", Part::Drawn, Part::Axial, ofAxes<addTickLabelFrame>},
    {"tickMark",       Part::Drawn, Part::Axial, ofAxes<addTickMark>},
    {"gridline",       Part::Drawn, Part::Axial, ofAxes<addGridline>},
    {"panelLine",      Part::Drawn, Part::Plain, ofPanels<addLine>},
    {"panelTitle",     Part::Text,  Part::Plain, ofPanels<addTitle>},
    {"panelTitleFrame",Part::Drawn, Part::Plain, ofPanels<addTitleFrame>},
    {"panelLabel",     Part::Text,  Part::Plain, ofPanels<addTickLabel>},
    {"panelLabelFrame",Part::Drawn, Part::Plain, ofPanels<addTickLabelFrame>},
    {"legend",         Part::Drawn, Part::Plain, legendBoxes},
    {"legendLabel",    Part::Text,  Part::Plain, legendLabels},
    {"legendTitle",    Part::Text,  Part::Plain, legendTitles},
    {"dataLabel",      Part::Text,  Part::Plain, dataLabels},
    {"dataLabelFrame", Part::Drawn, Part::Plain, dataLabelFrames},
    {"referenceLine",  Part::Drawn, Part::Plain, guides<LumoLineGuide>},
    {"functionLine",   Part::Drawn, Part::Plain, guides<LumoFunctionGuide>},
    {"referencePlane", Part::Drawn, Part::Plain, guides<LumoPlaneGuide>},
};
// clang-format on

}  // namespace

void attachByName(LumoBaseElement& owner, LumoStyle const& named) {
  owner.getImplementation()->setAttribute(style, named.getId());
}

Names partNames() {
  Names names;
  for (Part const& part : parts) names.push_back(part.name);
  return names;
}

Names fontPartNames() {
  Names names = {everyText};
  for (Part const& part : parts) {
    if (part.kind == Part::Text) names.push_back(part.name);
  }
  return names;
}

bool isAxial(std::string_view name) {
  return std::any_of(std::begin(parts), std::end(parts),
                     [name](Part const& part) { return part.name == name && part.place == Part::Axial; });
}

StyleSlots slotsOfPart(TemplatedChart const& chart, std::string_view name, std::string_view role) {
  StyleSlots slots;
  for (Part const& part : parts) {
    bool const meant = name == everyText ? part.kind == Part::Text : part.name == name;
    if (meant) part.collect(chart, role, slots);
  }
  return slots;
}

}  // namespace kestrel::host
