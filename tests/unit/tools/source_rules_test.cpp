// What the inspection of a capture says of data that does not fit its chart text.

#include "capture_builder.h"
#include "inspect/inspection.h"

#include <gmock/gmock.h>

using kestrel::tool::Inspection;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Of a chart with the children, beside data with the column "a" of the source "source0".
std::vector<std::string> faultsOf(std::string const& text, std::string const& data = dataStream(2)) {
  CaptureBuilder const capture = CaptureBuilder()
                                     .content(0, "x")
                                     .content(9, "x")
                                     .chartText(text)
                                     .content(5, std::string(data.size(), '\0'))
                                     .content(8, data)
                                     .endRecord();
  Inspection const inspection(capture.bytes());
  std::vector<std::string> texts;
  for (auto const& fault : inspection.faults()) texts.push_back(fault.text);
  return texts;
}

std::string chart(std::string const& children) { return "<visualization>" + children + "</visualization>"; }

std::string const source = R"(<userSource id="source0"/>)";

TEST(SourceRules, AreKeptByColumnsOfTheSource) {
  EXPECT_THAT(faultsOf(chart(source + R"(<sourceVariable id="v" source="source0" sourceName="a"/>)")),
              IsEmpty());
}

TEST(SourceRules, AreKeptByASourceWithoutRows) {
  EXPECT_THAT(
      faultsOf(chart(source + R"(<sourceVariable id="v" source="source0" sourceName="a"/>)"), dataStream(0)),
      IsEmpty());
}

TEST(SourceRules, FindAUserSourceWithoutAStream) {
  EXPECT_THAT(faultsOf(chart(source + R"(<userSource id="source1"/>)")),
              ElementsAre("data has no stream for 'source1', a user source of the chart"));
}

TEST(SourceRules, FindAVariableWithoutAColumn) {
  EXPECT_THAT(faultsOf(chart(source + R"(<sourceVariable id="v" source="source0" sourceName="b"/>)")),
              ElementsAre("data has no column 'b' of 'source0', which a variable of the chart names"));
}

TEST(SourceRules, FindAVariableOfASourceThatIsNotThere) {
  EXPECT_THAT(faultsOf(chart(source + R"(<sourceVariable id="v" source="s" sourceName="a"/>)")),
              ElementsAre("data has no column 'a' of 's', which a variable of the chart names"));
}

TEST(SourceRules, LookBeyondPrefixes) {
  EXPECT_THAT(faultsOf(R"(<c:visualization xmlns:c="urn:c"><c:userSource id="s"/></c:visualization>)"),
              ElementsAre("data has no stream for 's', a user source of the chart"));
}

TEST(SourceRules, DoNotBindOtherSources) {
  for (char const* const kind :
       {"embeddedSource", "databaseSource", "delimitedFileSource", "streamingSource"}) {
    EXPECT_THAT(
        faultsOf(chart(source + "<" + kind + R"( id="s"/><sourceVariable source="s" sourceName="b"/>)")),
        IsEmpty())
        << kind;
  }
}

TEST(SourceRules, DoNotBindVariablesWithoutSourceOrColumn) {
  EXPECT_THAT(
      faultsOf(chart(source + R"(<sourceVariable source="source0"/><sourceVariable sourceName="b"/>)")),
      IsEmpty());
}

TEST(SourceRules, DoNotBindAChartWithoutData) {
  CaptureBuilder const capture = CaptureBuilder().content(0, "x").chartText(chart(source)).endRecord();
  EXPECT_THAT(Inspection(capture.bytes()).faults(), IsEmpty());
}

TEST(SourceRules, PassOverAChartTextThatCannotBeRead) {
  std::string deep;
  for (int i = 0; i < 1001; ++i) deep += "<a>";
  std::string const wrong = R"(<userSource id="s"/>)";
  for (std::string const& text : {std::string("<visualization>" + wrong),
                                  "<!DOCTYPE visualization [<!ENTITY e \"x\">]>" + chart(wrong), deep}) {
    EXPECT_THAT(faultsOf(text), IsEmpty());
  }
}

}  // namespace
