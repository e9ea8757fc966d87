#include "change_log.h"

#include "chart_test.h"

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>

#include <algorithm>

namespace kestrel::test {

ChangeLog::ChangeLog(LumoDocument& document) : mDocument(document) { mDocument.setChangeObserver(this); }

ChangeLog::~ChangeLog() { mDocument.setChangeObserver(nullptr); }

/// A change is announced before it happens: what came of it is seen when the next one is announced.
void ChangeLog::beforeChange(Kind kind, LumoBaseElement const& element) {
  settle();
  mKind = kind;
  mElement = &element;
  mBefore = attributesOf(element);
}

ChangeLog::Attributes ChangeLog::attributesOf(LumoBaseElement const& element) {
  Attributes attributes;
  auto const* const nodes = element.getImplementation()->getAttributes();
  for (XMLSize_t index = 0, count = nodes->getLength(); index < count; ++index) {
    auto const* const node = nodes->item(index);
    attributes[utf8(node->getNodeName())] = utf8(node->getNodeValue());
  }
  return attributes;
}

std::string ChangeLog::attributeChange() const {
  Attributes const after = attributesOf(*mElement);
  for (auto const& [name, value] : after) {
    auto const before = mBefore.find(name);
    if (before == mBefore.end() || before->second != value)
      return std::string(name).append("=").append(value);
  }
  for (auto const& [name, value] : mBefore) {
    if (after.count(name) == 0) return "removes " + name;
  }
  return "writes the same";
}

std::string ChangeLog::change() const {
  auto const* const element = mElement->getImplementation();
  switch (mKind) {
    case Kind::AddElement:
      return "adds " + utf8(element->getLastElementChild()->getTagName());
    case Kind::RemoveElement:
      return "is removed";
    case Kind::MoveElement:
      return "is moved";
    case Kind::SetText:
      return "reads " + utf8(element->getTextContent());
    case Kind::SetComment:
      return "gets a comment";
    case Kind::SetAttribute:
    case Kind::RemoveAttribute:
      break;
  }
  return attributeChange();
}

void ChangeLog::settle() {
  if (mElement == nullptr) return;
  mLines.push_back(utf8(mElement->getImplementation()->getTagName()) + " " + change());
  mElement = nullptr;
}

std::vector<std::string> ChangeLog::lines() {
  settle();
  return mLines;
}

std::vector<std::string> ChangeLog::linesOf(std::vector<std::string> const& tags) {
  std::vector<std::string> found;
  for (std::string const& line : lines()) {
    if (std::find(tags.begin(), tags.end(), line.substr(0, line.find(' '))) != tags.end())
      found.push_back(line);
  }
  return found;
}

}  // namespace kestrel::test
