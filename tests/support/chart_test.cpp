#include "chart_test.h"

#include "host/messages.h"
#include "model/chartstring.h"

#include <xercesc/dom/DOMNamedNodeMap.hpp>
#include <xercesc/dom/DOMNodeList.hpp>

#include <utility>

namespace kestrel::test {

ChangeTrap::ChangeTrap(LumoDocument& document, unsigned int n, std::function<void()> action)
    : mDocument(document), mTrapped(n), mAction(std::move(action)) {
  mDocument.setChangeObserver(this);
}

ChangeTrap::~ChangeTrap() { mDocument.setChangeObserver(nullptr); }

void ChangeTrap::beforeChange(Kind, LumoBaseElement const&) {
  ++mChanges;
  if (mTrapped == 0 || mChanges == mTrapped) mAction();
}

std::function<void()> throwOrdinaryFailure() {
  return [] { throw OrdinaryFailure(); };
}

std::function<void()> throwGoToCaller() {
  return [] { throw VexaGoToCaller(); };
}

std::vector<xercesc::DOMElement*> elementsOf(LumoBaseElement const& element, char16_t const* tag) {
  auto* const nodes = element.getImplementation()->getElementsByTagName(tag);
  std::vector<xercesc::DOMElement*> elements;
  for (XMLSize_t index = 0, count = nodes->getLength(); index < count; ++index) {
    elements.push_back(static_cast<xercesc::DOMElement*>(nodes->item(index)));
  }
  return elements;
}

xercesc::DOMElement* onlyElementOf(LumoBaseElement const& element, char16_t const* tag) {
  auto const elements = elementsOf(element, tag);
  EXPECT_EQ(elements.size(), 1u) << "elements of the tag " << utf8(tag);
  return elements.size() == 1 ? elements.front() : nullptr;
}

std::string attribute(xercesc::DOMElement const* element, char16_t const* name) {
  if (element == nullptr || !element->hasAttribute(name)) return "(absent)";
  return utf8(element->getAttribute(name));
}

std::string attribute(LumoBaseElement const* element, char16_t const* name) {
  return element == nullptr ? "(absent)" : attribute(element->getImplementation(), name);
}

std::vector<std::string> attributeNames(LumoBaseElement const& element) {
  auto const* const attributes = element.getImplementation()->getAttributes();
  std::vector<std::string> names;
  for (XMLSize_t index = 0, count = attributes->getLength(); index < count; ++index) {
    names.push_back(utf8(attributes->item(index)->getNodeName()));
  }
  return names;
}

std::vector<std::string> childTags(LumoBaseElement const& element) {
  std::vector<std::string> tags;
  for (auto* child = element.getImplementation()->getFirstElementChild(); child != nullptr;
       child = child->getNextElementSibling()) {
    tags.push_back(utf8(child->getLocalName() != nullptr ? child->getLocalName() : child->getTagName()));
  }
  return tags;
}

std::vector<std::string> idsOf(LumoBaseElement const& element, char16_t const* tag) {
  std::vector<std::string> ids;
  for (auto* found : elementsOf(element, tag)) ids.push_back(attribute(found, u"id"));
  return ids;
}

std::string utf8(char16_t const* text) { return ChartString(text).toUTF8(); }

namespace {

std::vector<host::Entry> reportsOf(host::Recorder const& recorder) {
  std::vector<host::Entry> reports;
  for (auto const& entry : recorder.entries()) {
    if (entry.operation == host::Operation::BpError || entry.operation == host::Operation::Error) {
      reports.push_back(entry);
    }
  }
  return reports;
}

}  // namespace

void expectGuardReport(host::Recorder const& recorder, std::string const& context) {
  auto const reports = reportsOf(recorder);
  ASSERT_EQ(reports.size(), 2u) << "one user message and one log entry";
  ASSERT_EQ(reports[0].operation, host::Operation::BpError);
  EXPECT_EQ(reports[0].text("text"), "Unknown Error occurred while converting to LumoML2.0.");
  EXPECT_TRUE(reports[0].flag("fixed"));
  EXPECT_EQ(reports[0].number("show"), 2);
  EXPECT_EQ(reports[0].number("level"), 2);
  ASSERT_EQ(reports[1].operation, host::Operation::Error);
  EXPECT_EQ(reports[1].text("message"), context);
}

void expectNoReport(host::Recorder const& recorder) {
  EXPECT_TRUE(reportsOf(recorder).empty())
      << "reported: " << (reportsOf(recorder).empty() ? "" : reportsOf(recorder).front().line());
}

}  // namespace kestrel::test
