#include "template_chart.h"

#include "frame_roles.h"

#include <array>
#include <string_view>

using xercesc::DOMElement;
using xercesc::DOMNode;

namespace kestrel::host {

namespace {

char16_t const* localNameOf(DOMNode const& node) {
  char16_t const* const local = node.getLocalName();
  return local != nullptr ? local : node.getNodeName();
}

/// The model keeps each object under the name of its element; null for an element that it does not know.
LumoBaseElement* objectOf(DOMElement const& element) {
  return static_cast<LumoBaseElement*>(element.getUserData(localNameOf(element)));
}

/// The next element in document order that is in `top`, or null.
DOMElement* next(DOMElement& element, DOMElement const& top) {
  if (DOMElement* const child = element.getFirstElementChild()) return child;
  for (DOMNode* node = &element; node != nullptr && node != &top; node = node->getParentNode()) {
    auto* const current = dynamic_cast<DOMElement*>(node);
    if (current == nullptr) return nullptr;
    if (DOMElement* const sibling = current->getNextElementSibling()) return sibling;
  }
  return nullptr;
}

bool isNamed(DOMElement const& element, char16_t const* name) {
  return std::u16string_view(localNameOf(element)) == name;
}

FrameUse useOf(FrameRoles const& roles, LumoLabelFrame const& frame) {
  switch (roles.of(frame).role) {
    case FrameRole::Title1:
    case FrameRole::Title2:
      return FrameUse::Title;
    case FrameRole::Subtitle:
      return FrameUse::Subtitle;
    case FrameRole::StatisticsSummary:
      return FrameUse::Summary;
    case FrameRole::Footnote1:
    case FrameRole::Footnote2:
    case FrameRole::Footnote3:
      return FrameUse::Footnote;
    case FrameRole::Other:
      break;
  }
  return FrameUse::Other;
}

bool isInSpace(LumoGraph const& graph) {
  for (LumoCoordinates const* coordinates : graph.getCoordinatess()) {
    if (!coordinates->getRectangularTransforms().empty()) return true;
    if (coordinates->getDimensions().size() + coordinates->getDimensionReferences().size() > 2) return true;
  }
  return false;
}

}  // namespace

void forEachElement(LumoBaseElement& top, std::function<void(LumoBaseElement&)> const& visit) {
  DOMElement& root = *top.getImplementation();
  for (DOMElement* element = &root; element != nullptr; element = next(*element, root)) {
    if (LumoBaseElement* const object = objectOf(*element)) visit(*object);
  }
}

std::string_view roleOf(LumoDimension const& dimension) {
  static constexpr std::array<std::string_view, 3> roles = {"x", "y", "z"};
  std::size_t place = 0;
  DOMElement const* element = dimension.getImplementation()->getPreviousElementSibling();
  // No further than there are roles: a chart may have very many dimensions.
  for (; element != nullptr && place < roles.size(); element = element->getPreviousElementSibling()) {
    if (isNamed(*element, LumoDimension::getElementName()) ||
        isNamed(*element, LumoDimensionReference::getElementName())) {
      ++place;
    }
  }
  return place < roles.size() ? roles[place] : std::string_view();
}

TemplatedChart::TemplatedChart(LumoVisualization& chart) : visualization(chart) {
  FrameRoles const roles(chart);
  forEachElement(chart, [this, &roles](LumoBaseElement& object) {
    if (auto* const graph = dynamic_cast<LumoGraph*>(&object)) {
      graphs.push_back({graph, {}, isInSpace(*graph)});
    } else if (auto* const element = dynamic_cast<CTElementType*>(&object)) {
      if (!graphs.empty()) graphs.back().elements.push_back(element);
    } else if (auto* const axis = dynamic_cast<LumoAxis*>(&object)) {
      DOMNode const* const parent = axis->getImplementation()->getParentNode();
      auto* const holder = objectOf(dynamic_cast<DOMElement const&>(*parent));
      if (auto const* const dimension = dynamic_cast<LumoDimension*>(holder)) {
        axes.push_back({axis, roleOf(*dimension)});
      } else {
        panelAxes.push_back(axis);
      }
    } else if (auto* const legend = dynamic_cast<LumoLegend*>(&object)) {
      legends.push_back(legend);
    } else if (auto* const frame = dynamic_cast<LumoLabelFrame*>(&object)) {
      if (frame->getLabel() != nullptr) frames.push_back({frame, useOf(roles, *frame)});
    } else if (auto* const labeling = dynamic_cast<LumoLabeling*>(&object)) {
      labelings.push_back(labeling);
    } else if (auto* const guide = dynamic_cast<CTGuideType*>(&object)) {
      guides.push_back(guide);
    }
  });
}

}  // namespace kestrel::host
