// The dumps of a conversion and their numbers, which count through the life of a process.

#include "xdocument.h"

#include "chart_test.h"
#include "story.h"

#include "host/java.h"
#include "host/messages.h"
#include "kestrelhost/conversion.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedDump;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char current[] = "<visualization xmlns=\"http://xml.vexa.example/visualization\"/>";

class ConversionDumps : public ChartTest {
 protected:
  ConversionDumps() {
    ::setenv("DumpChartXMLPath", "", 1);
    behave();
  }

  /// A Java side on which everything works.
  void behave() {
    recorder.behave();
    java = host::ScriptedJava();
    java.pdl = [](std::string const&, std::string& out) {
      out = current;
      return true;
    };
    java.upgrading = java.pdl;
    recorder.services().dumps->categories.clear();
  }

  static void convertPDL() { XDocument const document("GRAPH", true, true); }
  static void upgrade() { XDocument const document("<graph/>", false, true); }

  /// The number that the next conversion has.
  std::int64_t nextNumber() {
    behave();
    recorder.clear();
    upgrade();
    return recorder.dumps().at(0).number;
  }

  host::ScriptedJava& java = *recorder.services().java;
};

TEST_F(ConversionDumps, OfAnUpgradeHoldTheTextBeforeAndAfterUnderOneNumber) {
  upgrade();
  EXPECT_EQ(recorder.dumps(), (std::vector<RecordedDump>{{"<graph/>", "xml_backend_1.4_", ".xml", 1, 1},
                                                         {current, "xml_backend_2.0_", ".xml", 1, 1}}));
}

TEST_F(ConversionDumps, OfAnUpgradeAreNotAskedForFirst) {
  upgrade();
  EXPECT_EQ(recorder.count(Operation::WillPrintString), 0u);
}

TEST_F(ConversionDumps, StandAroundTheConverter) {
  java.machineRuns = true;
  java.converterRuns = true;
  upgrade();
  auto const story = storyOf(recorder);
  auto const before = std::find(story.begin(), story.end(), "trace: Before Calling Converter");
  ASSERT_NE(before, story.end());
  auto const parsed = std::find(before, story.end(), "trace: Parsed XML");
  ASSERT_NE(parsed, story.end());
  EXPECT_THAT(std::vector(before, parsed),
              ElementsAre("trace: Before Calling Converter", "dump xml_backend_1.4_1.xml type 1",
                          "LumoConverter::UpgradeXML", "trace: After Calling Converter",
                          "dump xml_backend_2.0_1.xml type 1"));
}

TEST_F(ConversionDumps, OfADescriptionHoldItWhereThatIsWanted) {
  recorder.services().dumps->categories = {ChartBase::PrintConversion};
  convertPDL();
  EXPECT_EQ(recorder.dumps(), (std::vector<RecordedDump>{{"GRAPH", "pdl_", ".pdl", 1, 1},
                                                         {current, "xml_backend_2.0_", ".xml", 1, 1}}));
  EXPECT_EQ(recorder.entries(Operation::WillPrintString).front().number("type"), 1);
}

TEST_F(ConversionDumps, OfADescriptionHoldOnlyTheResultWhereItIsNotWanted) {
  convertPDL();
  EXPECT_EQ(recorder.count(Operation::WillPrintString), 1u);
  EXPECT_EQ(recorder.dumps(), (std::vector<RecordedDump>{{current, "xml_backend_2.0_", ".xml", 1, 1}}));
}

TEST_F(ConversionDumps, OfADescriptionHoldItInUTF8) {
  recorder.services().dumps->categories = {ChartBase::PrintConversion};
  recorder.services().locale->page = "windows-1252";
  host::ScopedHost const scope(recorder.host());
  XDocument const document("M\xE4rz", true, true);
  EXPECT_EQ(recorder.dumps().front().content, "März");
}

TEST_F(ConversionDumps, HoldTheResultAlsoWhereItDoesNotParse) {
  java.upgrading = [](std::string const&, std::string& out) {
    out = "<broken";
    return true;
  };
  upgrade();
  ASSERT_EQ(recorder.dumps().size(), 3u);
  EXPECT_EQ(recorder.dumps()[1], (RecordedDump{"<broken", "xml_backend_2.0_", ".xml", 1, 1}));
  EXPECT_EQ(recorder.dumps()[2], (RecordedDump{"<broken", "parseError_", ".xml", 0, 0}));
}

TEST_F(ConversionDumps, HoldNoResultOfAFailedConversion) {
  java.upgrading = nullptr;
  upgrade();
  EXPECT_EQ(recorder.dumps(), (std::vector<RecordedDump>{{"<graph/>", "xml_backend_1.4_", ".xml", 1, 1}}));
}

TEST_F(ConversionDumps, AreMadeWhereTheVariableIsThereWhateverItSays) {
  ::setenv("DumpChartXMLPath", "0", 1);
  upgrade();
  EXPECT_EQ(recorder.dumps().size(), 2u);
}

TEST_F(ConversionDumps, AreNotMadeWithoutTheVariableThoughTheRunsCount) {
  ::unsetenv("DumpChartXMLPath");
  recorder.services().dumps->categories = {ChartBase::PrintConversion};
  convertPDL();
  upgrade();
  EXPECT_THAT(recorder.dumps(), IsEmpty());
  ::setenv("DumpChartXMLPath", "", 1);
  EXPECT_EQ(nextNumber(), 3);
}

TEST_F(ConversionDumps, ShareTheirNumbersBetweenBothLanguages) {
  upgrade();
  convertPDL();
  XDocument const document("GRAPH", XDocument::UseUTF8);
  EXPECT_EQ(nextNumber(), 4);
}

TEST_F(ConversionDumps, AreNumberedAlsoWhereTheTextWasParsedFirst) {
  XDocument const document("<graph/>");
  EXPECT_EQ(recorder.dumps().front().number, 1);
  EXPECT_EQ(nextNumber(), 2);
}

/// What a run that ends in some way does to the number of the next one.
struct RunEnd {
  char const* name;
  std::int64_t next;
  void (*arrange)(host::Recorder& recorder);
};

void PrintTo(RunEnd const& end, std::ostream* out) { *out << end.name; }

class NumberBehind : public ConversionDumps, public ::testing::WithParamInterface<RunEnd> {};

TEST_P(NumberBehind, IsTheNextOneOnlyForARunThatCounts) {
  GetParam().arrange(recorder);
  try {
    convertPDL();
  } catch (VexaGoToCaller const&) {
    // One of the ways to end.
  }
  EXPECT_EQ(nextNumber(), GetParam().next);
}

JException keptFailure("kept");

INSTANTIATE_TEST_SUITE_P(
    RunThatEndsBy, NumberBehind,
    ::testing::Values(
        RunEnd{"Success", 2, [](host::Recorder&) {}},
        RunEnd{"NoMachine", 1, [](host::Recorder& r) { r.services().java->machineThere = false; }},
        RunEnd{"MachineThatDoesNotStart", 2,
               [](host::Recorder& r) { r.services().java->machineStarts = false; }},
        RunEnd{"NoConverter", 1, [](host::Recorder& r) { r.services().java->converterThere = false; }},
        RunEnd{"NoEnvironment", 1, [](host::Recorder& r) { r.services().java->environmentThere = false; }},
        RunEnd{"Refusal", 2, [](host::Recorder& r) { r.services().java->pdl = nullptr; }},
        RunEnd{"MalformedResult", 2,
               [](host::Recorder& r) {
                 r.services().java->pdl = [](std::string const&, std::string& out) {
                   out = "<broken";
                   return true;
                 };
               }},
        RunEnd{"JavaFailureByPointer", 2,
               [](host::Recorder& r) { r.throwAt(Operation::PDLtoXML, 1, &keptFailure); }},
        RunEnd{"OrdinaryFailure", 2,
               [](host::Recorder& r) { r.throwAt(Operation::PDLtoXML, 1, OrdinaryFailure()); }},
        RunEnd{"FailureOfTheStart", 1,
               [](host::Recorder& r) { r.throwAt(Operation::StartConverter, 1, OrdinaryFailure()); }},
        RunEnd{"HostsSignal", 1,
               [](host::Recorder& r) { r.throwAt(Operation::PDLtoXML, 1, VexaGoToCaller()); }}),
    [](auto const& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace kestrel::test
