#include "template_writer.h"

#include "host/chartbase.h"
#include "kestrelhost/template_engine.h"
#include "model/tokens.h"

#include <xercesc/dom/DOMNamedNodeMap.hpp>

using xercesc::DOMNamedNodeMap;
using xercesc::DOMNode;

namespace kestrel::host {

namespace {

ChartString utf16(std::string_view text) {
  ChartString result;
  result.assignUTF8(std::string(text));
  return result;
}

/// Without the prefix: an id with a colon would be no name.
char16_t const* localNameOf(DOMNode const& node) {
  char16_t const* const local = node.getLocalName();
  return local != nullptr ? local : node.getNodeName();
}

/// `style`, `cellStyle`, `markStyle` and so on.
bool namesAStyle(std::u16string_view attribute) {
  return attribute == LumoUni::_style || attribute.ends_with(u"Style");
}

LumoStyle* styleIn(StyleSlot const& slot) {
  char16_t const* const id = slot.owner->getAttribute(slot.attribute);
  return id == nullptr ? nullptr : slot.owner->getStyleById(id);
}

/// The slots that share a style; each slot without one stands alone.
struct StyledSlots {
  LumoStyle* style;
  StyleSlots slots;
};

std::vector<StyledSlots> byStyle(StyleSlots const& slots) {
  std::vector<StyledSlots> groups;
  std::unordered_map<LumoStyle const*, std::size_t> places;
  for (StyleSlot const& slot : slots) {
    LumoStyle* const style = styleIn(slot);
    auto const [place, isNew] = places.try_emplace(style, groups.size());
    if (isNew || style == nullptr) {
      groups.push_back({style, {slot}});
    } else {
      groups[place->second].slots.push_back(slot);
    }
  }
  return groups;
}

void copyValues(LumoStyle const& from, LumoStyle& to) {
  DOMNamedNodeMap const& attributes = *from.getImplementation()->getAttributes();
  for (XMLSize_t at = 0; at < attributes.getLength(); ++at) {
    DOMNode const& attribute = *attributes.item(at);
    if (std::u16string_view(attribute.getNodeName()) == LumoUni::_id) continue;
    to.getImplementation()->setAttribute(attribute.getNodeName(), attribute.getNodeValue());
  }
}

}  // namespace

Look lookOf(TemplateNode const& node) {
  Look look{{}, node.at};
  for (TemplateNode::Value const& value : node.values) {
    if (node.rule->takesLook && value.attribute->name == "number") continue;
    look.values.emplace_back(value.attribute->name, value.text);
  }
  return look;
}

bool isVariantOf(char16_t const* id, std::u16string_view base) {
  if (id == nullptr) return false;
  std::u16string_view const text(id);
  if (!text.starts_with(base) || text.size() < base.size() + 2 || text[base.size()] != u'_') return false;
  return text.find_first_not_of(u"0123456789", base.size() + 1) == std::u16string_view::npos;
}

TemplateWriter::TemplateWriter(LumoVisualization& chart, std::string const& text, TemplateObserver* observer)
    : mChart(chart), mText(text), mObserver(observer) {
  forEachElement(chart, [this](LumoBaseElement const& object) {
    if (auto const* const cycle = dynamic_cast<LumoCycle const*>(&object)) {
      for (LumoStyle const* const style : cycle->getStyles()) ++mUses[style];
    }
    DOMNamedNodeMap const& attributes = *object.getImplementation()->getAttributes();
    for (XMLSize_t at = 0; at < attributes.getLength(); ++at) {
      DOMNode const& attribute = *attributes.item(at);
      if (!namesAStyle(attribute.getNodeName())) continue;
      if (LumoStyle const* const style = mChart.getStyleById(attribute.getNodeValue())) ++mUses[style];
    }
  });
}

void TemplateWriter::write(StyleSlots const& slots, Look const& look) {
  for (StyledSlots const& group : byStyle(slots)) write(styleFor(group.style, group.slots), look);
}

LumoStyle& TemplateWriter::styleFor(LumoStyle* current, StyleSlots const& slots) {
  std::size_t& uses = mUses[current];
  if (current != nullptr && uses <= slots.size()) return *current;
  StyleSlot const& first = slots.front();
  std::u16string const made =
      u"template_" + std::u16string(localNameOf(*first.owner->getImplementation())) + u"_" + first.attribute;
  LumoStyle& style = makeStyle(current == nullptr ? made : std::u16string(current->getId()));
  if (current != nullptr) {
    copyValues(*current, style);
    uses -= slots.size();
  }
  for (StyleSlot const& slot : slots) slot.attach(*slot.owner, style);
  mUses[&style] = slots.size();
  if (current != nullptr && mObserver != nullptr) mObserver->copied(*current, style);
  return style;
}

void TemplateWriter::write(LumoStyle& style, Look const& look) {
  for (auto const& [attribute, value] : look.values) {
    style.getImplementation()->setAttribute(utf16(attribute).xc_str(), utf16(value).xc_str());
    tell(style, attribute, value, look.at);
  }
}

void TemplateWriter::tell(LumoBaseElement const& element, std::string_view attribute, std::string_view value,
                          TemplatePosition at) const {
  if (mObserver == nullptr) return;
  mObserver->written({element, std::string(attribute), std::string(value), mText, at.line, at.column});
}

ChartString TemplateWriter::uniqueId(std::u16string const& base) {
  ChartString id(base.c_str());
  while (mChart.doesIdExist(id.xc_str())) {
    id.assign(base.c_str());
    id.append(u'_');
    id.append(++mLastNumbers[base]);
  }
  return id;
}

LumoStyle& TemplateWriter::makeStyle(std::u16string const& id) {
  ChartString const unique = uniqueId(id);
  LumoStyle& style = *container().addStyle();
  style.setId(unique.xc_str());
  return style;
}

LumoStyle& TemplateWriter::container() {
  if (mContainer != nullptr) return *mContainer;
  LumoStyle* variant = nullptr;
  for (LumoStyle* const style : mChart.getStyles()) {
    char16_t const* const id = style->getId();
    if (id != nullptr && std::u16string_view(id) == ChartBase::_container) return *(mContainer = style);
    if (variant == nullptr && isVariantOf(id, ChartBase::_container)) variant = style;
  }
  // Something else has the id, and an earlier template has made do.
  bool const isTaken = mChart.doesIdExist(ChartBase::_container);
  if (isTaken && variant != nullptr) return *(mContainer = variant);
  ChartString const id = uniqueId(ChartBase::_container);
  mContainer = mChart.addStyle();
  mContainer->setId(id.xc_str());
  return *mContainer;
}

LumoStyle& TemplateWriter::ownStyle(LumoCycle& cycle, LumoStyle& style) {
  if (mUses[&style] <= 1) return style;
  LumoStyle& own = *cycle.addStyle();
  DOMNode& place = *style.getImplementation();
  place.getParentNode()->insertBefore(own.getImplementation(), &place);
  copy(style, own);
  mUses[&own] = 1;
  toContainer(style);
  return own;
}

void TemplateWriter::removeFromCycle(LumoStyle& style) {
  if (mUses[&style] > 1) {
    toContainer(style);
    return;
  }
  // The model has no operation for it. The id goes first, so that nothing finds the style any more.
  style.setId(nullptr);
  xercesc::DOMElement* const element = style.getImplementation();
  element->getParentNode()->removeChild(element);
}

void TemplateWriter::addCopy(LumoCycle& cycle, LumoStyle const& style) {
  LumoStyle& added = *cycle.addStyle();
  mUses[&added] = 1;
  copy(style, added);
}

/// Out of its cycle. It stays the same object, so that all that refer to it go on doing so.
void TemplateWriter::toContainer(LumoStyle& style) {
  container().getImplementation()->appendChild(style.getImplementation());
  --mUses[&style];
}

void TemplateWriter::copy(LumoStyle const& from, LumoStyle& to) const {
  copyValues(from, to);
  if (mObserver != nullptr) mObserver->copied(from, to);
}

}  // namespace kestrel::host
