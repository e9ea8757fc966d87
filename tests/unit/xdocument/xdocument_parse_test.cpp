// The parse that all chart text goes through: what it gives, what it reports, and what it refuses.

#include "xdocument.h"

#include "chart_test.h"
#include "story.h"

#include "support/chart_parser.h"

#include "host/messages.h"
#include "kestrelhost/log.h"

#include <gmock/gmock.h>
#include <sys/mman.h>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/RuntimeException.hpp>
#include <xercesc/util/XMLExceptMsgs.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedDump;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using xercesc::XercesDOMParser;

/// A text of that many elements, each within the one before.
std::string nested(std::size_t depth) {
  std::string text;
  for (std::size_t level = 1; level < depth; ++level) text += "<a>";
  text += "<a/>";
  for (std::size_t level = 1; level < depth; ++level) text += "</a>";
  return text;
}

class Parse : public ChartTest {
 protected:
  xercesc::DOMDocument* parse(std::string const& text) {
    return XDocument::parseDocument(text, errorText, &parser);
  }

  /// Keeps the XML library ready.
  LumoDocument model;
  XercesDOMParser parser{nullptr, xercesc::XMLPlatformUtils::fgMemoryManager, nullptr};
  std::string errorText = "as it was";
};

TEST_F(Parse, WithoutAParserGivesNothingAndLeavesTheErrorTextAsItIs) {
  EXPECT_EQ(XDocument::parseDocument("<a/>", errorText, nullptr), nullptr);
  EXPECT_EQ(errorText, "as it was");
  EXPECT_THAT(recorder.entries(), IsEmpty());
}

TEST_F(Parse, GivesTheDocumentThatTheParserKeeps) {
  xercesc::DOMDocument* const document = parse("<a b='1'/>");
  ASSERT_NE(document, nullptr);
  EXPECT_EQ(document, parser.getDocument());
  EXPECT_EQ(attribute(document->getDocumentElement(), u"b"), "1");
  EXPECT_EQ(errorText, "as it was");
  EXPECT_THAT(recorder.entries(), IsEmpty());
}

TEST_F(Parse, NamesTheTextAfterItsMaker) {
  xercesc::DOMDocument const* const document = parse("<a/>");
  ASSERT_NE(document, nullptr);
  EXPECT_EQ(utf8(document->getDocumentURI()), "ChartBase");
}

TEST_F(Parse, UnderstandsNamespaces) {
  xercesc::DOMDocument* const document = parse("<v:a xmlns:v='urn:names'/>");
  ASSERT_NE(document, nullptr);
  EXPECT_EQ(utf8(document->getDocumentElement()->getNamespaceURI()), "urn:names");
  EXPECT_EQ(utf8(document->getDocumentElement()->getLocalName()), "a");
}

TEST_F(Parse, SetsTheParserUp) {
  parser.setValidationScheme(XercesDOMParser::Val_Always);
  parser.setDoNamespaces(false);
  parser.setDoSchema(false);
  parser.setIncludeIgnorableWhitespace(true);
  parse("<a/>");
  EXPECT_EQ(parser.getValidationScheme(), XercesDOMParser::Val_Never);
  EXPECT_TRUE(parser.getDoNamespaces());
  EXPECT_TRUE(parser.getDoSchema());
  EXPECT_FALSE(parser.getIncludeIgnorableWhitespace());
}

TEST_F(Parse, AllowsTheParserNothingOutsideTheText) {
  parse("<a/>");
  EXPECT_FALSE(parser.getLoadSchema());
  EXPECT_FALSE(parser.getLoadExternalDTD());
  EXPECT_TRUE(parser.getDisableDefaultEntityResolution());
}

TEST_F(Parse, TakesItsHandlerAwayFromTheParserWhenItIsDone) {
  parse("<a/>");
  EXPECT_EQ(parser.getErrorHandler(), nullptr);
  EXPECT_EQ(parser.getEntityResolver(), nullptr);
  parse("<a>");
  EXPECT_EQ(parser.getErrorHandler(), nullptr);
  EXPECT_EQ(parser.getEntityResolver(), nullptr);
}

TEST_F(Parse, ReadsUTF8) {
  xercesc::DOMDocument* const document = parse("<a b='Größe \xF0\x9F\x90\xA7'/>");
  ASSERT_NE(document, nullptr);
  EXPECT_EQ(attribute(document->getDocumentElement(), u"b"), "Größe \xF0\x9F\x90\xA7");
}

TEST_F(Parse, OfMalformedTextGivesNothingAndTheParsersMessage) {
  EXPECT_EQ(parse("<a><b></a>"), nullptr);
  EXPECT_NE(errorText, "as it was");
  EXPECT_NE(errorText.find("'b'"), std::string::npos) << errorText;
}

TEST_F(Parse, OfMalformedTextDumpsTheTextAndThenLogsTheMessage) {
  parse("<a><b></a>");
  EXPECT_THAT(storyOf(recorder), ElementsAre("dump parseError_0.xml type 0",
                                             "log: parseDocument fatal error while parsing: " + errorText));
  EXPECT_EQ(recorder.dumps(), (std::vector<RecordedDump>{{"<a><b></a>", "parseError_", ".xml", 0, 0}}));
}

TEST_F(Parse, OfMalformedTextNeverTellsTheUser) {
  parse("<a><b></a>");
  EXPECT_EQ(recorder.count(Operation::BpError), 0u);
}

TEST_F(Parse, OfAnEmptyTextFails) {
  EXPECT_EQ(parse(""), nullptr);
  EXPECT_NE(errorText, "as it was");
}

TEST_F(Parse, LeavesTheParserReusableAfterAFailure) {
  parse("<a><b></a>");
  xercesc::DOMDocument* const document = parse("<a b='1'/>");
  ASSERT_NE(document, nullptr);
  EXPECT_EQ(attribute(document->getDocumentElement(), u"b"), "1");
}

TEST_F(Parse, LetsAFailureOfTheDumpPassToTheCaller) {
  recorder.throwAt(Operation::PrintString, 1, VexaGoToCaller());
  EXPECT_THROW(parse("<a>"), VexaGoToCaller);
  EXPECT_EQ(parser.getErrorHandler(), nullptr);
}

/// A parser that fails in the middle of a text.
class FailingParser : public XercesDOMParser {
 public:
  explicit FailingParser(std::function<void()> fail) : mFail(std::move(fail)) {}

  void startElement(xercesc::XMLElementDecl const&, unsigned int, XMLCh const*,
                    xercesc::RefVectorOf<xercesc::XMLAttr> const&, XMLSize_t, bool, bool) override {
    mFail();
  }

 private:
  std::function<void()> mFail;
};

class ParseThatThrows : public Parse {
 protected:
  void expectSwallowed(std::function<void()> fail) {
    FailingParser failing(std::move(fail));
    EXPECT_EQ(XDocument::parseDocument("<a/>", errorText, &failing), nullptr);
    EXPECT_EQ(errorText, "as it was");
    EXPECT_THAT(storyOf(recorder), ElementsAre("log: parseDocument fatal error while parsing"));
    EXPECT_EQ(failing.getErrorHandler(), nullptr);
  }
};

TEST_F(ParseThatThrows, AnOrdinaryExceptionLogsItsFailureWithoutADump) {
  expectSwallowed(throwOrdinaryFailure());
}

// Unlike everywhere else.
TEST_F(ParseThatThrows, TheHostsSignalSwallowsIt) { expectSwallowed(throwGoToCaller()); }

// The XML library turns what it throws itself into a failure of the text.
TEST_F(ParseThatThrows, AFailureOfTheXMLLibraryLogsItWithItsMessageAndADump) {
  FailingParser failing([] { ThrowXML(xercesc::RuntimeException, xercesc::XMLExcepts::CPtr_PointerIsZero); });
  EXPECT_EQ(XDocument::parseDocument("<a/>", errorText, &failing), nullptr);
  EXPECT_EQ(errorText, "NULL pointer");
  EXPECT_THAT(storyOf(recorder), ElementsAre("dump parseError_0.xml type 0",
                                             "log: parseDocument fatal error while parsing: NULL pointer"));
}

TEST_F(ParseThatThrows, AnExceptionOfAParserThatHasNoPlaceLogsItsFailureWithoutADump) {
  expectSwallowed([] { throw xercesc::SAXException("no place"); });
}

TEST_F(ParseThatThrows, AParseExceptionLogsItWithItsMessageAndADump) {
  FailingParser failing([] { throw xercesc::SAXParseException(u"of their own", u"", u"", 1, 1); });
  EXPECT_EQ(XDocument::parseDocument("<a/>", errorText, &failing), nullptr);
  EXPECT_EQ(errorText, "of their own");
  EXPECT_THAT(storyOf(recorder), ElementsAre("dump parseError_0.xml type 0",
                                             "log: parseDocument fatal error while parsing: of their own"));
}

/// Whether the text goes through a parser of ours or through a plain one of the caller's.
class AnyParser : public Parse, public ::testing::WithParamInterface<bool> {
 protected:
  AnyParser() {
    if (GetParam()) {
      used = makeChartParser();
    } else {
      used = std::make_unique<XercesDOMParser>(nullptr, xercesc::XMLPlatformUtils::fgMemoryManager, nullptr);
    }
    errorText.clear();
  }

  bool accepts(std::string const& text) {
    return XDocument::parseDocument(text, errorText, used.get()) != nullptr;
  }

  /// Refused as malformed text is, for that reason.
  void expectRefused(std::string const& text, std::string const& reason) {
    recorder.clear();
    EXPECT_FALSE(accepts(text));
    EXPECT_EQ(errorText, reason);
    EXPECT_THAT(storyOf(recorder), ElementsAre("dump parseError_0.xml type 0",
                                               "log: parseDocument fatal error while parsing: " + reason));
  }

  std::unique_ptr<XercesDOMParser> used;

  std::string const noDoctype = "A document type declaration is not allowed in chart text.";
  std::string const tooDeep = "Elements are nested too deeply: chart text may have 1000 levels.";
};

TEST_P(AnyParser, RefusesADocumentTypeDeclaration) {
  expectRefused("<!DOCTYPE a><a/>", noDoctype);
  expectRefused("<?xml version='1.0'?><!DOCTYPE a [<!ELEMENT a EMPTY>]><a/>", noDoctype);
  expectRefused("<!DOCTYPE a SYSTEM 'file:///nowhere/a.dtd'><a/>", noDoctype);
}

TEST_P(AnyParser, RefusesAnExternalEntity) {
  expectRefused("<!DOCTYPE a [<!ENTITY secret SYSTEM 'file:///etc/hostname'>]><a>&secret;</a>", noDoctype);
  expectRefused("<!DOCTYPE a [<!ENTITY % secret SYSTEM 'file:///etc/hostname'> %secret;]><a/>", noDoctype);
}

TEST_P(AnyParser, RefusesEntitiesThatGrowWithoutBound) {
  std::string laughs = "<!DOCTYPE a [<!ENTITY laugh0 'ha'>";
  for (int level = 1; level < 10; ++level) {
    std::string const smaller = "&laugh" + std::to_string(level - 1) + ";";
    laughs += "<!ENTITY laugh" + std::to_string(level) + " '";
    for (int time = 0; time < 10; ++time) laughs += smaller;
    laughs += "'>";
  }
  expectRefused(laughs + "]><a>&laugh9;</a>", noDoctype);
}

TEST_P(AnyParser, RefusesElementsThatAreNestedTooDeeply) {
  expectRefused(nested(1001), tooDeep);
  expectRefused(nested(2000), tooDeep);
}

TEST_P(AnyParser, TakesElementsThatAreNestedDeeply) { EXPECT_TRUE(accepts(nested(1000))) << errorText; }

TEST_P(AnyParser, TakesManyElementsBesideEachOther) {
  std::string text = "<a>";
  for (int count = 0; count < 3000; ++count) text += count % 2 == 0 ? "<b/>" : "<b></b>";
  EXPECT_TRUE(accepts(text + "</a>")) << errorText;
}

TEST_P(AnyParser, TakesGoodTextAfterItHasRefusedAnother) {
  EXPECT_FALSE(accepts(nested(1500)));
  EXPECT_FALSE(accepts("<!DOCTYPE a><a/>"));
  EXPECT_TRUE(accepts(nested(1000))) << errorText;
  EXPECT_EQ(utf8(used->getDocument()->getDocumentElement()->getTagName()), "a");
}

TEST_P(AnyParser, TakesATextThatNamesASchemaWithoutLookingForIt) {
  EXPECT_TRUE(
      accepts("<a xmlns='urn:names' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
              "xsi:schemaLocation='urn:names file:///nowhere/names.xsd'/>"))
      << errorText;
  EXPECT_THAT(recorder.entries(), IsEmpty());
}

TEST_P(AnyParser, RefusesMalformedTextByTheParsersOwnMessage) {
  EXPECT_FALSE(accepts("<a><b></a>"));
  EXPECT_NE(errorText.find("'b'"), std::string::npos) << errorText;
}

INSTANTIATE_TEST_SUITE_P(Parsers, AnyParser, ::testing::Bool(),
                         [](auto const& test) { return test.param ? "Ours" : "Plain"; });

/// A plain parser that notes what it is asked to bring from outside.
class AskedParser : public XercesDOMParser {
 public:
  xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier* resource) override {
    asked.push_back(utf8(resource->getSystemId()));
    return XercesDOMParser::resolveEntity(resource);
  }

  std::vector<std::string> asked;
};

TEST_F(Parse, AsksForNoSchemaThatTheTextNames) {
  AskedParser asking;
  auto const* const document = XDocument::parseDocument(
      "<a xmlns='urn:names' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
      "xsi:schemaLocation='urn:names file:///nowhere/names.xsd'><b "
      "xsi:noNamespaceSchemaLocation='file:///nowhere/b.xsd'/></a>",
      errorText, &asking);
  EXPECT_NE(document, nullptr);
  EXPECT_THAT(asking.asked, IsEmpty());
}

/// A plain parser that counts the elements that it sees.
class CountingParser : public XercesDOMParser {
 public:
  void startElement(xercesc::XMLElementDecl const& declaration, unsigned int uri, XMLCh const* prefix,
                    xercesc::RefVectorOf<xercesc::XMLAttr> const& attributes, XMLSize_t count, bool isEmpty,
                    bool isRoot) override {
    ++elements;
    XercesDOMParser::startElement(declaration, uri, prefix, attributes, count, isEmpty, isRoot);
  }

  int elements = 0;
};

TEST_F(Parse, LeavesMalformedTextToTheCallersParser) {
  CountingParser counting;
  EXPECT_EQ(XDocument::parseDocument("<a><b></a>", errorText, &counting), nullptr);
  EXPECT_EQ(counting.elements, 2);
}

TEST_F(Parse, DoesNotLetTheCallersParserSeeWhatIsRefused) {
  CountingParser counting;
  EXPECT_EQ(XDocument::parseDocument(nested(1001), errorText, &counting), nullptr);
  EXPECT_EQ(counting.elements, 0);
}

std::string withAttributes(std::size_t count) {
  std::string text = "<a";
  for (std::size_t at = 0; at < count; ++at) text += " a" + std::to_string(at) + "=''";
  return text + "/>";
}

TEST_F(Parse, TakesAnElementWithAsManyAttributesAsMayBe) {
  EXPECT_NE(XDocument::parseDocument(withAttributes(mostAttributes), errorText, makeChartParser().get()),
            nullptr);
}

TEST_F(Parse, RefusesAnElementWithMoreAttributes) {
  EXPECT_EQ(XDocument::parseDocument(withAttributes(mostAttributes + 1), errorText, makeChartParser().get()),
            nullptr);
  EXPECT_EQ(errorText, "An element has too many attributes: in chart text it may have 10000.");
}

TEST_F(Parse, RefusesMoreElementsAndAttributesThanFitIntoMemory) {
  // The root counts too.
  auto const text = [](std::size_t pairs) {
    std::string elements = "<r>";
    for (std::size_t at = 0; at < pairs; ++at) elements += "<a b=''/>";
    return elements + "</r>";
  };
  EXPECT_NO_THROW(refuseUnsafeText(text(mostNodes / 2 - 1), parser));
  EXPECT_THROW(refuseUnsafeText(text(mostNodes / 2), parser), xercesc::SAXParseException);
}

TEST_F(Parse, RefusesATextThatIsLongerThanAnyChart) {
  // Reserved, and never read or filled.
  std::size_t const size = longestText + 1;
  void* const pages = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(pages, MAP_FAILED);
  EXPECT_THROW(refuseUnsafeText(std::string_view(static_cast<char const*>(pages), size), parser),
               xercesc::SAXParseException);
  EXPECT_THROW(refuseUnsafeText(std::string_view(static_cast<char const*>(pages), size), *makeChartParser()),
               xercesc::SAXParseException);
  ::munmap(pages, size);
}

}  // namespace
}  // namespace kestrel::test
