// How chart text becomes a chart: current markup directly, older and foreign text by way of the converter.

#include "xdocument.h"

#include "conversion_fixture.h"
#include "document_record.h"

#include "host/java.h"
#include "host/messages.h"
#include "model/document.h"

#include <gmock/gmock.h>
#include <xercesc/dom/DOM.hpp>

#include <cfenv>
#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedCell;
using host::RecordedMessage;
using ::testing::ElementsAre;

class Conversion : public ConversionTest {};

class CurrentMarkup : public Conversion {};

TEST_F(CurrentMarkup, IsParsedWithoutTheConverter) {
  XDocument const document{std::string(current)};
  EXPECT_EQ(attribute(document.getVisualization(), u"id"), "converted");
  EXPECT_THAT(storyOf(recorder), ElementsAre(started, "trace: Parsed lumoml"));
}

TEST_F(CurrentMarkup, IsWhateverHasAnyOtherRootThanAGraph) {
  for (char const* text : {"<nonsense/>", "<v:graph xmlns:v='urn:v'/>", "<Graph/>", "<graphs/>"}) {
    XDocument const document{std::string(text)};
    EXPECT_TRUE(document.implementationExists()) << text;
  }
  EXPECT_EQ(recorder.count(Operation::MachineInstance), 0u);
}

TEST_F(CurrentMarkup, WithoutADeclaredVersionIsOfTheFirstOne) {
  XDocument const document{std::string(current)};
  EXPECT_EQ(utf8(document.getVisualization()->getImplementation()->getOwnerDocument()->getXmlVersion()),
            "1.0");
}

TEST_F(CurrentMarkup, KeepsTheVersionThatItDeclares) {
  XDocument const document(std::string("<?xml version='1.1'?>") + current);
  EXPECT_EQ(utf8(document.getVisualization()->getImplementation()->getOwnerDocument()->getXmlVersion()),
            "1.1");
}

TEST_F(CurrentMarkup, ThatIsEmptyIsToldToTheUserAndLogged) {
  XDocument const document{std::string()};
  EXPECT_THAT(storyOf(recorder), ElementsAre(unknownError, "log: Empty XML string received"));
  EXPECT_EQ(recorder.userMessages().front(),
            (RecordedMessage{"Unknown Error occurred while converting to LumoML2.0.", true, "", {}, 2, 2}));
}

TEST_F(CurrentMarkup, ThatIsMalformedIsToldWithTheParsersMessage) {
  XDocument const document(std::string("<a><b></a>"));
  EXPECT_FALSE(document.implementationExists());
  ASSERT_EQ(recorder.userMessages().size(), 1u);
  RecordedMessage const message = recorder.userMessages().front();
  std::string const reason = message.cells.at(0).text;
  EXPECT_NE(reason.find("'b'"), std::string::npos);
  EXPECT_EQ(message,
            (RecordedMessage{"Failed to parse LumoML2.0.  Error message returned was " + reason + ".",
                             true,
                             "Failed to parse LumoML2.0.  Error message returned was ^1.",
                             {RecordedCell{reason, false}},
                             2,
                             2}));
  EXPECT_THAT(storyOf(recorder),
              ElementsAre(started, "dump parseError_0.xml type 0",
                          "log: parseDocument fatal error while parsing: " + reason, "user: " + message.text,
                          "log: Could not parse in XDocument::XDocument(lumoml2_x) - " + reason));
}

class OldMarkup : public Conversion {};

TEST_F(OldMarkup, IsKnownByItsRootAndGoesThroughTheConverterAsItIs) {
  std::string const text = "<?xml version='1.0'?><graph id='old'><anything/></graph>";
  XDocument const document(text);
  EXPECT_EQ(attribute(document.getVisualization(), u"id"), "converted");
  EXPECT_EQ(recorder.entries(Operation::UpgradeXML).front().text("in"), text);
  EXPECT_EQ(recorder.count(Operation::PDLtoXML), 0u);
}

TEST_F(OldMarkup, IsKnownByItsRootAlsoWithANamespace) {
  XDocument const document("<graph xmlns='urn:anything'/>");
  EXPECT_EQ(recorder.count(Operation::UpgradeXML), 1u);
}

TEST_F(OldMarkup, IsConvertedBehindItsFirstParse) {
  XDocument const document("<graph/>");
  std::vector<std::string> expected = convertedBy("LumoConverter::UpgradeXML");
  expected.insert(expected.begin() + 1, "trace: Parsed lumoml");
  EXPECT_EQ(storyOf(recorder), expected);
}

TEST_F(OldMarkup, IsParsedAndConvertedWithOneParser) {
  XDocument document("<graph/>");
  EXPECT_EQ(document.getVisualization()->getImplementation()->getOwnerDocument(),
            recordOf(document).mParser->getDocument());
}

TEST_F(OldMarkup, TellsTheUserOfAFailure) {
  refuses("bad");
  XDocument const document("<graph/>");
  EXPECT_FALSE(document.implementationExists());
  EXPECT_EQ(recorder.count(Operation::BpError), 1u);
}

TEST_F(OldMarkup, SwallowsEvenTheHostsSignal) {
  recorder.throwAt(Operation::UpgradeXML, 1, VexaGoToCaller());
  XDocument const document("<graph/>");
  EXPECT_FALSE(document.implementationExists());
  EXPECT_THAT(reports(), ElementsAre("user: Failed to parse LumoML2.0.  Error message returned was .",
                                     "log: Error in XDocument::XDocument(lumoml2_x) - "));
  EXPECT_EQ(recorder.userMessages().front().cells, (std::vector<RecordedCell>{{"", false}}));
}

TEST_F(OldMarkup, HoldsAFailureOfTheReportWithinTheConversion) {
  recorder.throwAt(Operation::StartConverter, 1, OrdinaryFailure());
  recorder.throwAt(Operation::BpError, 1, OrdinaryFailure());
  XDocument const document("<graph/>");
  EXPECT_FALSE(document.implementationExists());
  EXPECT_THAT(reports(),
              ElementsAre(unknownError, "user: Failed to parse LumoML2.0.  Error message returned was .",
                          "log: Error in XDocument::XDocument(lumoml2_x) - "));
}

TEST_F(Conversion, StartsJavaAndTheConverterOnFirstUse) {
  XDocument const document = fromPDL("GRAPH");
  EXPECT_EQ(storyOf(recorder), convertedBy("LumoConverter::PDLtoXML"));
  EXPECT_EQ(attribute(document.getVisualization(), u"id"), "converted");
}

TEST_F(Conversion, StartsNothingThatRuns) {
  java.machineRuns = true;
  java.converterRuns = true;
  XDocument const document = fromPDL("GRAPH");
  EXPECT_TRUE(document.implementationExists());
  EXPECT_EQ(recorder.count(Operation::StartMachine), 0u);
  EXPECT_EQ(recorder.count(Operation::StartConverter), 0u);
  EXPECT_EQ(recorder.count(Operation::AttachThread), 1u);
}

TEST_F(Conversion, DoesNotLookAtTheResultsOfStarting) {
  recorder.actAt(Operation::StartMachine, 1, [this] { java.machineRuns = true; });
  recorder.failAt(Operation::StartMachine, 1);
  recorder.failAt(Operation::StartConverter, 1);
  EXPECT_TRUE(fromPDL("GRAPH").implementationExists());
}

TEST_F(Conversion, GivesAChartThatTheDocumentOwnsWithItsParser) {
  XDocument document = fromPDL("GRAPH");
  EXPECT_TRUE(recordOf(document).mOwnsDocument);
  EXPECT_EQ(document.getVisualization()->getImplementation()->getOwnerDocument(),
            recordOf(document).mParser->getDocument());
}

TEST_F(Conversion, OfADescriptionReadsItInTheLocalCodePage) {
  recorder.services().locale->page = "windows-1252";
  host::ScopedHost const scope(recorder.host());
  XDocument const document = fromPDL("TITLE 'M\xE4rz'");
  EXPECT_EQ(recorder.entries(Operation::PDLtoXML).front().text("in"), "TITLE 'März'");
}

TEST_F(Conversion, OfADescriptionInUTF8ReadsItAsThat) {
  recorder.services().locale->page = "windows-1252";
  host::ScopedHost const scope(recorder.host());
  XDocument const document("TITLE 'März'", XDocument::UseUTF8);
  EXPECT_EQ(recorder.entries(Operation::PDLtoXML).front().text("in"), "TITLE 'März'");
}

TEST_F(Conversion, OfADescriptionInUTF8TellsTheUserOfFailures) {
  refuses("bad");
  XDocument const document("GRAPH", XDocument::UseUTF8);
  EXPECT_EQ(recorder.count(Operation::BpError), 1u);
}

TEST_F(Conversion, OfOldMarkupPassesItsBytesUnchanged) {
  recorder.services().locale->page = "windows-1252";
  host::ScopedHost const scope(recorder.host());
  XDocument const document = fromLumoML14("<graph t='M\xE4rz'/>");
  EXPECT_EQ(recorder.entries(Operation::UpgradeXML).front().text("in"), "<graph t='M\xE4rz'/>");
}

TEST_F(Conversion, OfAnEmptyDescriptionIsTheConvertersBusiness) {
  EXPECT_TRUE(fromPDL("").implementationExists());
  EXPECT_EQ(recorder.entries(Operation::PDLtoXML).front().text("in"), "");
}

class FloatingPoint : public Conversion {
 protected:
  FloatingPoint() {
    std::fesetround(FE_DOWNWARD);
    java.pdl = [](std::string const&, std::string& out) {
      std::fesetround(FE_UPWARD);
      out = current;
      return true;
    };
  }
  ~FloatingPoint() override { std::fesetround(FE_TONEAREST); }
};

TEST_F(FloatingPoint, IsTheCallersAgainBehindTheConverter) {
  EXPECT_TRUE(fromPDL("GRAPH").implementationExists());
  EXPECT_EQ(std::fegetround(), FE_DOWNWARD);
}

TEST_F(FloatingPoint, IsTheCallersAgainBehindTheStartOfJava) {
  recorder.actAt(Operation::StartMachine, 1, [] { std::fesetround(FE_TOWARDZERO); });
  java.machineStarts = false;
  fromPDL("GRAPH");
  EXPECT_EQ(std::fegetround(), FE_DOWNWARD);
}

TEST_F(FloatingPoint, IsTheCallersAgainBehindAnEarlyEnd) {
  recorder.actAt(Operation::ConverterInstance, 1, [] { std::fesetround(FE_TOWARDZERO); });
  java.converterThere = false;
  fromPDL("GRAPH");
  EXPECT_EQ(std::fegetround(), FE_DOWNWARD);
}

TEST_F(FloatingPoint, IsTheCallersAgainBehindAFailure) {
  recorder.actAt(Operation::PDLtoXML, 1, [] {
    std::fesetround(FE_UPWARD);
    throw OrdinaryFailure();
  });
  fromPDL("GRAPH");
  EXPECT_EQ(std::fegetround(), FE_DOWNWARD);
}

TEST_F(FloatingPoint, IsTheCallersAgainBehindAFailureOfTheStart) {
  recorder.actAt(Operation::StartConverter, 1, [] {
    std::fesetround(FE_UPWARD);
    throw OrdinaryFailure();
  });
  fromPDL("GRAPH");
  EXPECT_EQ(std::fegetround(), FE_DOWNWARD);
}

TEST_F(FloatingPoint, IsTheCallersAgainBehindTheHostsSignal) {
  recorder.actAt(Operation::PDLtoXML, 1, [] {
    std::fesetround(FE_UPWARD);
    throw VexaGoToCaller();
  });
  EXPECT_THROW(fromPDL("GRAPH"), VexaGoToCaller);
  EXPECT_EQ(std::fegetround(), FE_DOWNWARD);
}

TEST_F(FloatingPoint, IsTheCallersAlreadyWhereTheOuterHandlersReport) {
  int rounding = -1;
  recorder.actAt(Operation::StartConverter, 1, [] {
    std::fesetround(FE_UPWARD);
    throw OrdinaryFailure();
  });
  recorder.actAt(Operation::BpError, 1, [&] { rounding = std::fegetround(); });
  fromPDL("GRAPH");
  EXPECT_EQ(rounding, FE_DOWNWARD);
}

class Dumps : public Conversion {};

TEST_F(Dumps, AreNeitherMadeNorAskedForUnlessTheEnvironmentSaysSo) {
  recorder.services().dumps->categories = {ChartBase::PrintConversion};
  fromPDL("GRAPH");
  fromLumoML14("<graph/>");
  EXPECT_EQ(recorder.count(Operation::PrintString), 0u);
  EXPECT_EQ(recorder.count(Operation::WillPrintString), 0u);
}

}  // namespace
}  // namespace kestrel::test
