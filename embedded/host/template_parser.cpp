#include "template_parser.h"

#include "template_tags.h"

#include "model/chartstring.h"
#include "model/document.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

namespace kestrel::host {

namespace {

std::string utf8(char16_t const* text) { return ChartString(text).toUTF8(); }

/// A name or a value as a message shows it.
std::string shown(std::string_view text) {
  constexpr std::size_t longest = 40;
  if (text.size() <= longest) return std::string(text);
  std::size_t end = longest;
  while ((static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  return std::string(text.substr(0, end)) + "...";
}

/// Message texts are one line.
std::string oneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char each) { return static_cast<unsigned char>(each) < ' '; }, ' ');
  return text;
}

/// What to do about a name that is none of these.
std::string mend(std::string_view wrong, Names const& names, std::string const& verb) {
  constexpr std::size_t mostListed = 12;
  bool const isListed = !names.empty() && names.size() <= mostListed;
  return didYouMean(wrong, names, isListed ? "it " + verb + " " + listed(names) : "remove it");
}

/// Of well-formed UTF-16: two surrogates are one character.
std::size_t countCharacters(std::u16string_view text) {
  auto const count =
      std::count_if(text.begin(), text.end(), [](char16_t unit) { return unit < 0xDC00 || unit > 0xDFFF; });
  return static_cast<std::size_t>(count);
}

/// Ends the parse of a text that is not worth reading on.
struct Enough {};

class Reader final : public xercesc::DefaultHandler {
 public:
  explicit Reader(std::string const& text) : mTags(text) {}

  ReadTemplate take() { return {std::move(mInstructions), std::move(mFaults)}; }
  void add(TemplatePosition at, std::string text) { mFaults.push_back({at, oneLine(std::move(text))}); }

  void setDocumentLocator(xercesc::Locator const* locator) override { mLocator = locator; }
  /// How far the text has been read; its beginning where nobody knows.
  TemplatePosition readTo() const {
    if (mLocator == nullptr || mLocator->getLineNumber() == 0) return {1, 1};
    return here();
  }
  [[noreturn]] void refuseDocumentType() {
    refuse(mTags.before(here()), "a document type declaration is not allowed; remove it");
  }
  void startElement(XMLCh const* uri, XMLCh const* localName, XMLCh const* name,
                    xercesc::Attributes const& attributes) override;
  void endElement(XMLCh const* uri, XMLCh const* localName, XMLCh const* name) override;
  void characters(XMLCh const* text, XMLSize_t length) override;
  void startCDATA() override { textFault("a CDATA section"); }

  void warning(xercesc::SAXParseException const&) override {}
  void error(xercesc::SAXParseException const& fault) override { throw fault; }
  void fatalError(xercesc::SAXParseException const& fault) override { throw fault; }

 private:
  /// An element that has begun and not ended. One that nothing is known of has no rule.
  struct Open {
    TemplateNode node;
    std::size_t faultsBefore;
    bool hasText = false;
    /// How many elements of each kind have begun in it.
    std::map<ElementRule::Child const*, unsigned long> counts = {};
  };

  TemplatePosition here() const {
    return {static_cast<unsigned int>(mLocator->getLineNumber()),
            static_cast<unsigned int>(mLocator->getColumnNumber())};
  }
  void fault(TemplatePosition at, std::string text);
  [[noreturn]] void refuse(TemplatePosition at, std::string text) {
    add(at, std::move(text));
    throw Enough();
  }

  ElementRule const* ruleOf(TemplatePosition at, std::string const& uri, std::string const& name);
  void checkRoot(TemplatePosition at, std::string const& uri, std::string const& name);
  void readAttributes(TemplateNode& node, xercesc::Attributes const& attributes);
  void readAttribute(TemplateNode& node, std::string const& uri, std::string const& name,
                     char16_t const* value);
  void checkEnd(Open const& element);
  /// One for an element is enough.
  void textFault(std::string const& what);

  TagStarts mTags;
  xercesc::Locator const* mLocator = nullptr;
  std::vector<Open> mOpen;
  unsigned int mElements = 0;
  std::vector<TemplateNode> mInstructions;
  std::vector<TemplateFault> mFaults;
};

void Reader::fault(TemplatePosition at, std::string text) {
  if (mFaults.size() == mostTemplateFaults) {
    refuse(at, "there are more faults than " + std::to_string(mostTemplateFaults) + "; mend those first");
  }
  add(at, std::move(text));
}

void Reader::checkRoot(TemplatePosition at, std::string const& uri, std::string const& name) {
  std::string const& wanted = utf8(templateNamespace);
  if (name == templateRoot().name && uri == wanted) return;
  refuse(at, "the root element " + shown(name) + (uri.empty() ? "" : " of " + shown(uri)) +
                 " is no template; begin with <template xmlns=\"" + wanted + "\">");
}

ElementRule const* Reader::ruleOf(TemplatePosition at, std::string const& uri, std::string const& name) {
  if (mOpen.empty()) {
    checkRoot(at, uri, name);
    return &templateRoot();
  }
  TemplateNode const& parent = mOpen.back().node;
  if (parent.rule == nullptr) return nullptr;
  std::string const parentName(parent.rule->name);
  if (uri != utf8(templateNamespace)) {
    fault(at, "the element " + shown(name) + " is not in the namespace of templates; put it there");
    return nullptr;
  }
  ElementRule::Child const* const child = parent.rule->child(name);
  if (child == nullptr) {
    Names const places = parentsOf(name);
    fault(at, places.empty() ? "unknown element " + shown(name) + " in " + parentName + "; " +
                                   mend(name, parent.rule->childNames(), "holds")
                             : "the element " + name + " does not belong in " + parentName +
                                   "; its place is in " + listed(places));
    return nullptr;
  }
  if (++mOpen.back().counts[child] == child->most + 1UL) {
    fault(at, "a second " + name + " in " + parentName + "; keep one");
  }
  return child->rule;
}

void Reader::readAttribute(TemplateNode& node, std::string const& uri, std::string const& name,
                           char16_t const* value) {
  std::string const element(node.rule->name);
  AttributeRule const* const attribute = uri.empty() ? node.rule->attribute(name) : nullptr;
  if (attribute == nullptr) {
    fault(node.at, "unknown attribute " + shown(name) + " of " + element + "; " +
                       mend(name, node.rule->attributeNames(), "has"));
    return;
  }
  if (countCharacters(value) > longestValue) {
    fault(node.at, "the attribute " + name + " of " + element + " is longer than " +
                       std::to_string(longestValue) + " characters; shorten it");
    return;
  }
  std::string text = utf8(value);
  ValueRule const& rule = *attribute->value;
  if (!accepts(rule, text)) {
    fault(node.at, "the attribute " + name + " of " + element + " is \"" + shown(text) + "\", which is " +
                       valueFault(rule, text));
    return;
  }
  node.values.push_back({attribute, writtenAs(rule, std::move(text))});
}

void Reader::readAttributes(TemplateNode& node, xercesc::Attributes const& attributes) {
  // The root's own say nothing about the chart.
  if (node.rule == &templateRoot()) return;
  for (XMLSize_t at = 0; at < attributes.getLength(); ++at) {
    std::string const uri = utf8(attributes.getURI(at));
    if (uri == "http://www.w3.org/2001/XMLSchema-instance") continue;
    readAttribute(node, uri, utf8(attributes.getQName(at)), attributes.getValue(at));
  }
  for (AttributeRule const& attribute : node.rule->attributes) {
    if (attribute.need == AttributeRule::Need::Optional) continue;
    if (attributes.getIndex(ChartString(std::string(attribute.name).c_str()).xc_str()) >= 0) continue;
    fault(node.at,
          std::string(node.rule->name) + " lacks the attribute " + std::string(attribute.name) + "; add it");
  }
}

void Reader::startElement(XMLCh const* uri, XMLCh const* localName, XMLCh const*,
                          xercesc::Attributes const& attributes) {
  TemplatePosition const at = mTags.before(here());
  if (mOpen.size() == deepestTemplate) {
    refuse(at, "the elements are nested more than " + std::to_string(deepestTemplate) +
                   " levels deep; nest them less");
  }
  if (++mElements > mostTemplateElements) {
    refuse(at, "the template has more than " + std::to_string(mostTemplateElements) + " elements; split it");
  }
  std::size_t const faultsBefore = mFaults.size();
  TemplateNode node{ruleOf(at, utf8(uri), utf8(localName)), at, {}, {}};
  if (node.rule != nullptr) readAttributes(node, attributes);
  mOpen.push_back({std::move(node), faultsBefore});
}

void Reader::checkEnd(Open const& element) {
  TemplateNode const& node = element.node;
  std::string const name(node.rule->name);
  for (ElementRule::Child const& child : node.rule->children) {
    if (child.least == 0 || mFaults.size() > element.faultsBefore) continue;
    if (element.counts.find(&child) == element.counts.end()) {
      fault(node.at, name + " has no " + std::string(child.rule->name) + "; add one");
    }
  }
  if (node.rule->faults == nullptr || mFaults.size() > element.faultsBefore) return;
  for (TemplateFault& each : node.rule->faults(node)) fault(each.at, std::move(each.text));
}

void Reader::endElement(XMLCh const*, XMLCh const*, XMLCh const*) {
  mTags.before(here());
  Open element = std::move(mOpen.back());
  mOpen.pop_back();
  if (element.node.rule == nullptr) return;
  checkEnd(element);
  if (mOpen.empty()) {
    mInstructions = std::move(element.node.children);
  } else {
    mOpen.back().node.children.push_back(std::move(element.node));
  }
}

void Reader::characters(XMLCh const* text, XMLSize_t length) {
  if (std::u16string_view(text, length).find_first_not_of(u" \t\r\n") == std::u16string_view::npos) return;
  textFault("text");
}

void Reader::textFault(std::string const& what) {
  if (mOpen.empty() || mOpen.back().node.rule == nullptr || mOpen.back().hasText) return;
  mOpen.back().hasText = true;
  fault(mTags.textBefore(here()),
        "there is " + what + " in " + std::string(mOpen.back().node.rule->name) + "; remove it");
}

/// A parser that knows namespaces and nothing outside of the text. Handlers hear only of declarations that
/// declare something, so this one looks itself.
class Parser final : public xercesc::SAX2XMLReaderImpl {
 public:
  explicit Parser(Reader& reader) : mReader(reader) {
    using xercesc::XMLUni;
    setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
    setFeature(XMLUni::fgSAX2CoreValidation, false);
    setFeature(XMLUni::fgXercesSchema, false);
    setFeature(XMLUni::fgXercesLoadSchema, false);
    setFeature(XMLUni::fgXercesLoadExternalDTD, false);
    setFeature(XMLUni::fgXercesDisableDefaultEntityResolution, true);
    setContentHandler(&reader);
    // The scanner tells of a document type only where somebody listens to such things.
    setLexicalHandler(&reader);
    setErrorHandler(&reader);
  }

  void doctypeDecl(xercesc::DTDElementDecl const&, XMLCh const*, XMLCh const*, bool, bool) override {
    mReader.refuseDocumentType();
  }

 private:
  Reader& mReader;
};

}  // namespace

ReadTemplate readTemplate(std::string const& text) {
  Reader reader(text);
  if (text.size() > longestTemplate) {
    reader.add({1, 1}, "the text has " + std::to_string(text.size()) + " bytes, and a template may have " +
                           std::to_string(longestTemplate) + "; shorten it");
    return reader.take();
  }
  if (std::optional<TemplatePosition> const bad = TagStarts::badUtf8(text)) {
    reader.add(*bad, "the text is no UTF-8 here; mend its bytes or declare its encoding");
    return reader.take();
  }
  LumoDocument::holdXmlLibrary();
  Parser parser(reader);
  try {
    auto const* const bytes = reinterpret_cast<XMLByte const*>(text.data());
    parser.parse(xercesc::MemBufInputSource(bytes, text.size(), "template"));
  } catch (Enough const&) {
    // It has said why.
  } catch (xercesc::SAXParseException const& fault) {
    reader.add({static_cast<unsigned int>(fault.getLineNumber()),
                static_cast<unsigned int>(fault.getColumnNumber())},
               "the text is not well formed: " + utf8(fault.getMessage()) + "; mend it there");
  } catch (xercesc::XMLException const& fault) {
    reader.add(reader.readTo(),
               "the text cannot be read: " + utf8(fault.getMessage()) + "; mend its encoding");
  }
  return reader.take();
}

}  // namespace kestrel::host
