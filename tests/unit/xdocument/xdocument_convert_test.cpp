// How chart text becomes a chart: current markup directly, older and foreign text by way of the converter.

#include "document_record.h"
#include "story.h"

#include "chart_test.h"

#include "host/java.h"
#include "host/messages.h"
#include "kestrelhost/conversion.h"
#include "model/document.h"
#include "xdocument.h"

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
using ::testing::IsEmpty;

constexpr char current[] = "<visualization xmlns=\"http://xml.vexa.example/visualization\" id=\"converted\"/>";

constexpr char started[] = "trace: Starting Chart Creation";
constexpr char ended[] = "trace: XDocument destructor finished.";
constexpr char unknownError[] = "user: Unknown Error occurred while converting to LumoML2.0.";

/// What the Java side is asked before a text is given to it, where nothing runs yet.
constexpr char const* startOfJava[] = {
    "VexaJVM::GetInstance",           "VexaJVM::IsStarted",         "VexaJVM::StartJVM",
    "VexaJVM::IsStarted",             "VexaJVM::AttachCurrentThread", "LumoConverter::GetInstance",
    "LumoConverter::IsStarted",       "VexaJVM::GetEnv",            "LumoConverter::StartConverter",
};

/// That start, and what follows it.
std::vector<std::string> afterStart(std::vector<std::string> const& rest) {
  std::vector<std::string> story = {started};
  story.insert(story.end(), std::begin(startOfJava), std::end(startOfJava));
  story.insert(story.end(), rest.begin(), rest.end());
  return story;
}

class Conversion : public ChartTest {
 protected:
  Conversion() { takes(current); }

  /// Makes the converter give that text for every one.
  void takes(std::string const& result) {
    auto const give = [result](std::string const&, std::string& out) {
      out = result;
      return true;
    };
    java.pdl = give;
    java.upgrading = give;
  }

  void refuses(std::string const& message) {
    java.pdl = nullptr;
    java.upgrading = nullptr;
    java.message = message;
  }

  /// What was told to the user, and logged, in that order, by one document.
  std::vector<std::string> reports() const {
    std::vector<std::string> told;
    for (std::string const& event : storyOf(recorder)) {
      if (event.rfind("user: ", 0) == 0 || event.rfind("log: ", 0) == 0) told.push_back(event);
    }
    return told;
  }

  static XDocument fromPDL(std::string const& text, bool reportErrors = true) {
    return XDocument(text, true, reportErrors);
  }
  static XDocument fromLumoML14(std::string const& text, bool reportErrors = true) {
    return XDocument(text, false, reportErrors);
  }

  host::ScriptedJava& java = *recorder.services().java;
};

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
  EXPECT_EQ(utf8(document.getVisualization()->getImplementation()->getOwnerDocument()->getXmlVersion()), "1.0");
}

TEST_F(CurrentMarkup, KeepsTheVersionThatItDeclares) {
  XDocument const document(std::string("<?xml version='1.1'?>") + current);
  EXPECT_EQ(utf8(document.getVisualization()->getImplementation()->getOwnerDocument()->getXmlVersion()), "1.1");
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
  EXPECT_EQ(message, (RecordedMessage{"Failed to parse LumoML2.0.  Error message returned was " + reason + ".",
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
  std::vector<std::string> expected = {started, "trace: Parsed lumoml"};
  expected.insert(expected.end(), std::begin(startOfJava), std::end(startOfJava));
  expected.insert(expected.end(), {"trace: Before Calling Converter", "LumoConverter::UpgradeXML",
                                   "trace: After Calling Converter", "trace: Parsed XML"});
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

TEST_F(Conversion, StartsJavaAndTheConverterOnFirstUse) {
  XDocument const document = fromPDL("GRAPH");
  EXPECT_EQ(storyOf(recorder),
            afterStart({"trace: Before Calling Converter", "LumoConverter::PDLtoXML",
                        "trace: After Calling Converter", "trace: Parsed XML"}));
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

/// One way to fail, by whether the user is to be told.
struct FailureCase {
  char const* name;
  bool fromPDL;
  void (*arrange)(host::Recorder& recorder);
  std::vector<std::string> reports;
  /// The part of them that stays where the user is not to be told.
  std::vector<std::string> quietReports;
};

void PrintTo(FailureCase const& failure, std::ostream* out) { *out << failure.name; }

FailureCase failureCase(char const* name, bool fromPDL, void (*arrange)(host::Recorder&),
                        std::vector<std::string> reports) {
  std::vector<std::string> quiet;
  for (std::string const& report : reports) {
    if (report.rfind("user: ", 0) != 0) quiet.push_back(report);
  }
  return {name, fromPDL, arrange, std::move(reports), std::move(quiet)};
}

class FailedConversion : public Conversion, public ::testing::WithParamInterface<FailureCase> {};

TEST_P(FailedConversion, IsReportedInItsOwnOrder) {
  GetParam().arrange(recorder);
  XDocument const document("TEXT", GetParam().fromPDL, true);
  EXPECT_FALSE(document.implementationExists());
  EXPECT_EQ(reports(), GetParam().reports);
}

TEST_P(FailedConversion, IsOnlyLoggedWhereTheUserIsNotToBeTold) {
  GetParam().arrange(recorder);
  XDocument const document("TEXT", GetParam().fromPDL, false);
  EXPECT_FALSE(document.implementationExists());
  EXPECT_EQ(reports(), GetParam().quietReports);
}

TEST_P(FailedConversion, TellsTheUserAtTheUsualPlaceAndLevel) {
  GetParam().arrange(recorder);
  XDocument const document("TEXT", GetParam().fromPDL, true);
  for (RecordedMessage const& message : recorder.userMessages()) {
    EXPECT_EQ(message.show, 2);
    EXPECT_EQ(message.level, 2);
  }
}

JException keptFailure("the Java side's own words");

constexpr bool pdl = true;
constexpr bool lumoML14 = false;

template <typename Exception>
constexpr void throwAtUpgrade(host::Recorder& recorder, Exception exception) {
  recorder.throwAt(Operation::UpgradeXML, 1, exception);
}

INSTANTIATE_TEST_SUITE_P(
    By, FailedConversion,
    ::testing::Values(
        failureCase(
            "NoMachine", pdl, [](host::Recorder& r) { r.services().java->machineThere = false; },
            {"log: Could not get JVM instance in XDocument::convertXML()", "user: Could Not Start JVM"}),
        // The user first, unlike the others around it.
        failureCase(
            "MachineThatDoesNotStart", pdl, [](host::Recorder& r) { r.services().java->machineStarts = false; },
            {"user: Could Not Start JVM", "log: Error in XDocument::convertXML() - Could not start JVM."}),
        failureCase(
            "NoConverter", pdl, [](host::Recorder& r) { r.services().java->converterThere = false; },
            {"log: Could not get LumoConverter instance in XDocument::convertXML()",
             "user: Could Not Start JVM"}),
        failureCase(
            "NoEnvironment", pdl, [](host::Recorder& r) { r.services().java->environmentThere = false; },
            {"log: Could not get JNIEnv in XDocument::convertXML()", "user: Could Not Start JVM"}),
        failureCase(
            "NeitherConverterNorEnvironment", pdl,
            [](host::Recorder& r) {
              r.services().java->converterThere = false;
              r.services().java->environmentThere = false;
            },
            {"log: Could not get LumoConverter instance in XDocument::convertXML()",
             "user: Could Not Start JVM"}),
        failureCase(
            "RefusedDescription", pdl,
            [](host::Recorder& r) {
              r.services().java->pdl = nullptr;
              r.services().java->message = "Line 3: unknown word: GRAF";
            },
            {"user: PDL error Line 3:\n     unknown word: GRAF\n \nPDL:\nTEXT",
             "log: Could not convert PDL to XML in XDocument::convertXML() - Line 3:\n     unknown word: GRAF"}),
        failureCase(
            "RefusedDescriptionWithoutAMessage", pdl,
            [](host::Recorder& r) { r.services().java->pdl = nullptr; },
            {"user: PDL error none\n \nPDL:\nTEXT",
             "log: Could not convert PDL to XML in XDocument::convertXML() - none"}),
        failureCase(
            "RefusedUpgrade", lumoML14,
            [](host::Recorder& r) {
              r.services().java->upgrading = nullptr;
              r.services().java->message = "Line 3: unknown element";
            },
            {"user: Could not convert LumoML1.4 into LumoML2.0.  Error message returned was Line 3: unknown "
             "element.",
             "log: Could not convert LumoML1.4 to LumoML2.2+ in XDocument::convertXML(lumoml2_x) - could not "
             "convert lumoml1.4 to lumoml2.2 - Line 3: unknown element"}),
        failureCase(
            "RefusedUpgradeWithoutAMessage", lumoML14,
            [](host::Recorder& r) { r.services().java->upgrading = nullptr; },
            {"user: Could not convert LumoML1.4 into LumoML2.0.  Error message returned was none.",
             "log: Could not convert LumoML1.4 to LumoML2.2+ in XDocument::convertXML(lumoml2_x) - could not "
             "convert lumoml1.4 to lumoml2.2 - none"}),
        failureCase(
            "AJavaFailureByPointer", pdl,
            [](host::Recorder& r) { r.throwAt(Operation::PDLtoXML, 1, &keptFailure); },
            {"user: the Java side's own words", "log: Error in XDocument::convertXML() - JException"}),
        failureCase(
            "AJavaFailureByValue", pdl,
            [](host::Recorder& r) { r.throwAt(Operation::PDLtoXML, 1, keptFailure); },
            {unknownError, "log: Error in XDocument::convertXML() - exception"}),
        failureCase(
            "AnOrdinaryFailure", lumoML14,
            [](host::Recorder& r) { r.throwAt(Operation::UpgradeXML, 1, OrdinaryFailure()); },
            {unknownError, "log: Error in XDocument::convertXML() - exception"}),
        failureCase(
            "AFailureOfTheFirstTraceLine", pdl,
            // The first line is that of the document.
            [](host::Recorder& r) { r.throwAt(Operation::PrintDebugInfo, 2, OrdinaryFailure()); },
            {unknownError, "log: Error in XDocument::convertXML() - exception"})),
    [](auto const& test) { return std::string(test.param.name); });

/// Failures of the start, which the user hears of in any case.
class FailedStart : public Conversion, public ::testing::WithParamInterface<Operation> {};

TEST_P(FailedStart, IsToldToTheUserWhateverTheCallerWants) {
  recorder.throwAt(GetParam(), 1, OrdinaryFailure());
  EXPECT_FALSE(fromPDL("GRAPH", false).implementationExists());
  // With an arrow here.
  EXPECT_THAT(reports(), ElementsAre(unknownError, "log: Error in XDocument::convertXML() -> exception"));
}

TEST_P(FailedStart, OfAJavaFailureByPointerIsNoOtherOne) {
  recorder.throwAt(GetParam(), 1, &keptFailure);
  EXPECT_FALSE(fromPDL("GRAPH", true).implementationExists());
  EXPECT_THAT(reports(), ElementsAre(unknownError, "log: Error in XDocument::convertXML() -> exception"));
}

TEST_P(FailedStart, LetsTheHostsSignalThroughWithoutAReport) {
  recorder.throwAt(GetParam(), 1, VexaGoToCaller());
  EXPECT_THROW(fromPDL("GRAPH"), VexaGoToCaller);
  expectNoReport(recorder);
}

INSTANTIATE_TEST_SUITE_P(Steps, FailedStart,
                         ::testing::Values(Operation::MachineInstance, Operation::MachineIsStarted,
                                           Operation::StartMachine, Operation::AttachThread,
                                           Operation::ConverterInstance, Operation::ConverterIsStarted,
                                           Operation::GetEnvironment, Operation::StartConverter),
                         [](auto const& test) {
                           std::string name(nameOf(test.param));
                           std::erase(name, ':');
                           return name;
                         });

class RefusedDescription : public Conversion {};

TEST_F(RefusedDescription, WithoutAColonKeepsItsMessageUnchanged) {
  refuses("unknown word");
  fromPDL("GRAPH");
  EXPECT_EQ(recorder.userMessages().front().text, "PDL error unknown word\n \nPDL:\nGRAPH");
}

TEST_F(RefusedDescription, BreaksItsMessageBehindAColonAtItsEnd) {
  refuses("unknown word:");
  fromPDL("GRAPH");
  EXPECT_EQ(recorder.userMessages().front().text, "PDL error unknown word:\n    \n \nPDL:\nGRAPH");
}

TEST_F(RefusedDescription, BreaksItsMessageBehindTheFirstOfTwoColons) {
  refuses("a:b:c");
  fromPDL("GRAPH");
  EXPECT_EQ(recorder.userMessages().front().text, "PDL error a:\n    b:c\n \nPDL:\nGRAPH");
}

TEST_F(RefusedDescription, IsShownAsATextFromOutside) {
  refuses("^1");
  fromPDL("GRAPH");
  EXPECT_EQ(recorder.userMessages().front(),
            (RecordedMessage{"PDL error ^1\n \nPDL:\nGRAPH",
                             true,
                             "PDL error ^1",
                             {RecordedCell{"^1\n \nPDL:\nGRAPH", false}},
                             2,
                             2}));
}

TEST_F(RefusedDescription, IsTracedBetweenTheConverterAndTheUser) {
  refuses("a:b");
  fromPDL("GRAPH");
  EXPECT_EQ(storyOf(recorder),
            afterStart({"trace: Before Calling Converter", "LumoConverter::PDLtoXML",
                        "LumoConverter::GetErrorMessage", "trace: a:\n    b",
                        "user: PDL error a:\n    b\n \nPDL:\nGRAPH",
                        "log: Could not convert PDL to XML in XDocument::convertXML() - a:\n    b",
                        "trace: After Calling Converter", ended}));
}

TEST_F(RefusedDescription, HasItsMessageInUTF8AndItsTextInTheLocalCodePage) {
  recorder.services().locale->page = "windows-1252";
  host::ScopedHost const scope(recorder.host());
  refuses("Größe");
  fromPDL("M\xE4rz");
  EXPECT_EQ(recorder.userMessages().front().text, "PDL error Größe\n \nPDL:\nMärz");
}

class RefusedUpgrade : public Conversion {};

TEST_F(RefusedUpgrade, IsToldBetweenTheTwoTraceLines) {
  refuses("bad");
  fromLumoML14("<graph/>");
  std::string const message = "Could not convert LumoML1.4 into LumoML2.0.  Error message returned was bad.";
  EXPECT_EQ(storyOf(recorder),
            afterStart({"trace: Before Calling Converter", "LumoConverter::UpgradeXML",
                        "LumoConverter::GetErrorMessage", "user: " + message,
                        "log: Could not convert LumoML1.4 to LumoML2.2+ in XDocument::convertXML(lumoml2_x) - "
                        "could not convert lumoml1.4 to lumoml2.2 - bad",
                        "trace: After Calling Converter", ended}));
}

TEST_F(RefusedUpgrade, HasItsMessageInTheLocalCodePage) {
  recorder.services().locale->page = "windows-1252";
  host::ScopedHost const scope(recorder.host());
  refuses("Gr\xF6\xDF" "e");
  fromLumoML14("<graph/>");
  EXPECT_EQ(recorder.userMessages().front().cells, (std::vector<RecordedCell>{{"Größe", false}}));
}

class ConvertedText : public Conversion {};

TEST_F(ConvertedText, ThatDoesNotParseIsToldWithTheParsersMessage) {
  takes("<visualization>");
  fromPDL("GRAPH");
  ASSERT_EQ(recorder.userMessages().size(), 1u);
  std::string const reason = recorder.userMessages().front().cells.at(0).text;
  EXPECT_NE(reason, "");
  EXPECT_EQ(recorder.userMessages().front(),
            (RecordedMessage{"Failed to parse LumoML2.0.  Error message returned was " + reason + ".",
                             true,
                             "Failed to parse LumoML2.0.  Error message returned was ^1.",
                             {RecordedCell{reason, false}},
                             2,
                             2}));
  EXPECT_EQ(storyOf(recorder),
            afterStart({"trace: Before Calling Converter", "LumoConverter::PDLtoXML",
                        "trace: After Calling Converter", "dump parseError_0.xml type 0",
                        "log: parseDocument fatal error while parsing: " + reason,
                        "user: Failed to parse LumoML2.0.  Error message returned was " + reason + ".",
                        "log: Error in XDocument::convertXML() - could not parse converted document.", ended}));
}

TEST_F(ConvertedText, ThatDoesNotParseIsOnlyLoggedWhereTheUserIsNotToBeTold) {
  takes("<visualization>");
  fromPDL("GRAPH", false);
  EXPECT_EQ(recorder.count(Operation::BpError), 0u);
  EXPECT_EQ(recorder.failures().back(),
            "Error in XDocument::convertXML() - could not parse converted document.");
}

TEST_F(ConvertedText, ThatIsEmptyDoesNotParse) {
  takes("");
  EXPECT_FALSE(fromPDL("GRAPH").implementationExists());
}

TEST_F(ConvertedText, IsNotLookedAtForItsRoot) {
  takes("<graph/>");
  XDocument const document = fromLumoML14("<graph/>");
  EXPECT_TRUE(document.implementationExists());
  EXPECT_EQ(recorder.count(Operation::UpgradeXML), 1u);
}

class InnerFailure : public Conversion {};

TEST_F(InnerFailure, ByPointerShowsItsTextAsOneFromOutsideAndIsNotFreed) {
  recorder.throwAt(Operation::UpgradeXML, 1, &keptFailure);
  fromLumoML14("<graph/>");
  EXPECT_EQ(recorder.userMessages().front(),
            (RecordedMessage{"the Java side's own words", false, "", {}, 2, 2}));
  EXPECT_EQ(keptFailure.getMessage(), "the Java side's own words");
}

TEST_F(InnerFailure, LetsTheHostsSignalThroughWithoutAReport) {
  recorder.throwAt(Operation::PDLtoXML, 1, VexaGoToCaller());
  EXPECT_THROW(fromPDL("GRAPH"), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(InnerFailure, WhoseReportFailsIsReportedByTheOuterHandlers) {
  recorder.throwAt(Operation::PDLtoXML, 1, OrdinaryFailure());
  recorder.throwAt(Operation::BpError, 1, OrdinaryFailure());
  EXPECT_FALSE(fromPDL("GRAPH").implementationExists());
  EXPECT_THAT(reports(), ElementsAre(unknownError, unknownError,
                                     "log: Error in XDocument::convertXML() -> exception"));
}

TEST_F(InnerFailure, WhoseReportUnwindsLetsTheSignalThrough) {
  recorder.throwAt(Operation::PDLtoXML, 1, OrdinaryFailure());
  recorder.throwAt(Operation::BpError, 1, VexaGoToCaller());
  EXPECT_THROW(fromPDL("GRAPH"), VexaGoToCaller);
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
