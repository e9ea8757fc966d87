// How each failure of a conversion is reported.

#include "xdocument.h"

#include "conversion_fixture.h"

#include "host/java.h"
#include "host/messages.h"

#include <gmock/gmock.h>

#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedCell;
using host::RecordedMessage;
using ::testing::ElementsAre;

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

class FailedConversion : public ConversionTest, public ::testing::WithParamInterface<FailureCase> {};

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

INSTANTIATE_TEST_SUITE_P(
    By, FailedConversion,
    ::testing::Values(
        failureCase("NoMachine", pdl, [](host::Recorder& r) { r.services().java->machineThere = false; },
                    {"log: Could not get JVM instance in XDocument::convertXML()",
                     "user: Could Not Start JVM"}),
        // The user first, unlike the others around it.
        failureCase("MachineThatDoesNotStart", pdl,
                    [](host::Recorder& r) { r.services().java->machineStarts = false; },
                    {"user: Could Not Start JVM",
                     "log: Error in XDocument::convertXML() - Could not start JVM."}),
        failureCase("NoConverter", pdl, [](host::Recorder& r) { r.services().java->converterThere = false; },
                    {"log: Could not get LumoConverter instance in XDocument::convertXML()",
                     "user: Could Not Start JVM"}),
        failureCase("NoEnvironment", pdl,
                    [](host::Recorder& r) { r.services().java->environmentThere = false; },
                    {"log: Could not get JNIEnv in XDocument::convertXML()", "user: Could Not Start JVM"}),
        failureCase("NeitherConverterNorEnvironment", pdl,
                    [](host::Recorder& r) {
                      r.services().java->converterThere = false;
                      r.services().java->environmentThere = false;
                    },
                    {"log: Could not get LumoConverter instance in XDocument::convertXML()",
                     "user: Could Not Start JVM"}),
        failureCase("RefusedDescription", pdl,
                    [](host::Recorder& r) {
                      r.services().java->pdl = nullptr;
                      r.services().java->message = "Line 3: unknown word: GRAF";
                    },
                    {"user: PDL error Line 3:\n     unknown word: GRAF\n \nPDL:\nTEXT",
                     "log: Could not convert PDL to XML in XDocument::convertXML() - Line 3:\n     unknown "
                     "word: GRAF"}),
        failureCase("RefusedDescriptionWithoutAMessage", pdl,
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
        failureCase("AJavaFailureByPointer", pdl,
                    [](host::Recorder& r) { r.throwAt(Operation::PDLtoXML, 1, &keptFailure); },
                    {"user: the Java side's own words",
                     "log: Error in XDocument::convertXML() - JException"}),
        failureCase("AJavaFailureByValue", pdl,
                    [](host::Recorder& r) { r.throwAt(Operation::PDLtoXML, 1, keptFailure); },
                    {unknownError, "log: Error in XDocument::convertXML() - exception"}),
        failureCase("AnOrdinaryFailure", lumoML14,
                    [](host::Recorder& r) { r.throwAt(Operation::UpgradeXML, 1, OrdinaryFailure()); },
                    {unknownError, "log: Error in XDocument::convertXML() - exception"}),
        failureCase("AFailureOfTheFirstTraceLine", pdl,
                    // The first line is that of the document.
                    [](host::Recorder& r) { r.throwAt(Operation::PrintDebugInfo, 2, OrdinaryFailure()); },
                    {unknownError, "log: Error in XDocument::convertXML() - exception"})),
    [](auto const& test) { return std::string(test.param.name); });

/// Failures of the start, which the user hears of in any case.
class FailedStart : public ConversionTest, public ::testing::WithParamInterface<Operation> {};

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

class RefusedDescription : public ConversionTest {};

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
  EXPECT_EQ(recorder.userMessages().front(), (RecordedMessage{"PDL error ^1\n \nPDL:\nGRAPH",
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

class RefusedUpgrade : public ConversionTest {};

TEST_F(RefusedUpgrade, IsToldBetweenTheTwoTraceLines) {
  refuses("bad");
  fromLumoML14("<graph/>");
  std::string const message = "Could not convert LumoML1.4 into LumoML2.0.  Error message returned was bad.";
  EXPECT_EQ(
      storyOf(recorder),
      afterStart({"trace: Before Calling Converter", "LumoConverter::UpgradeXML",
                  "LumoConverter::GetErrorMessage", "user: " + message,
                  "log: Could not convert LumoML1.4 to LumoML2.2+ in XDocument::convertXML(lumoml2_x) - "
                  "could not convert lumoml1.4 to lumoml2.2 - bad",
                  "trace: After Calling Converter", ended}));
}

TEST_F(RefusedUpgrade, HasItsMessageInTheLocalCodePage) {
  recorder.services().locale->page = "windows-1252";
  host::ScopedHost const scope(recorder.host());
  refuses(
      "Gr\xF6\xDF"
      "e");
  fromLumoML14("<graph/>");
  EXPECT_EQ(recorder.userMessages().front().cells, (std::vector<RecordedCell>{{"Größe", false}}));
}

class ConvertedText : public ConversionTest {};

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
  EXPECT_EQ(
      storyOf(recorder),
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

class InnerFailure : public ConversionTest {};

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
  EXPECT_THAT(reports(),
              ElementsAre(unknownError, unknownError, "log: Error in XDocument::convertXML() -> exception"));
}

TEST_F(InnerFailure, WhoseReportUnwindsLetsTheSignalThrough) {
  recorder.throwAt(Operation::PDLtoXML, 1, OrdinaryFailure());
  recorder.throwAt(Operation::BpError, 1, VexaGoToCaller());
  EXPECT_THROW(fromPDL("GRAPH"), VexaGoToCaller);
}

}  // namespace
}  // namespace kestrel::test
