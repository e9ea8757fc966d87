// What becomes of each form of reply.

#include "schema_validator.h"
#include "template_fixture.h"

#include "host/messages.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char templateFailed[] = "Failed to convert visualization template... ^1.";
constexpr char noAccess[] = "File ^1 has no access...";

class Reply : public LumoTemplateTest {
 protected:
  /// Names and flags of the files that were asked for.
  std::vector<std::string> fetched() const {
    std::vector<std::string> names;
    for (host::Entry const& entry : recorder.entries(Operation::Fetch)) {
      EXPECT_TRUE(entry.flag("first") && entry.flag("second"));
      names.push_back(entry.text("name"));
    }
    return names;
  }
};

TEST_F(Reply, ThatIsEmptyFails) {
  replies("");
  EXPECT_FALSE(convert());
  EXPECT_THAT(recorder.userMessages(),
              ElementsAre(message(templateFailed, {"Reading the XML file has failed ...", true}, 3)));
  EXPECT_THAT(recorder.failures(), IsEmpty());
}

TEST_F(Reply, ThatIsNoXmlIsReportedAndNoFailure) {
  replies("<reply>");
  lumoML = "as it was";
  EXPECT_TRUE(convert());
  EXPECT_EQ(lumoML, "as it was");
  EXPECT_THAT(recorder.userMessages(),
              ElementsAre(message(templateFailed, {"returnedDoc exception", true}, 3)));
  EXPECT_EQ(recorder.failures().size(), 1u);
}

TEST_F(Reply, ThatMayLoadOtherFilesIsRefused) {
  replies(
      "<!DOCTYPE a [<!ENTITY e SYSTEM \"file:///etc/hostname\">]><a><Lumoml "
      "success=\"true\">&e;</Lumoml></a>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(lumoML, "");
  EXPECT_THAT(recorder.userMessages(),
              ElementsAre(message(templateFailed, {"returnedDoc exception", true}, 3)));
}

TEST_F(Reply, WithNothingThatIsKnownChangesNothing) {
  chart.setDataMapName("a.map", XLumoTemplate::LOCATION_LOCAL);
  lumoML = "chart";
  styleSheet = "sheet";
  EXPECT_TRUE(convert());
  EXPECT_EQ(lumoML, "chart");
  EXPECT_EQ(styleSheet, "sheet");
  EXPECT_EQ(chart.getDataMapName().toUTF8(), "a.map");
  EXPECT_THAT(fetched(), IsEmpty());
  expectNoReport(recorder);
}

TEST_F(Reply, OfTheSchemaIsTaken) {
  std::string const reply =
      "<lumoTemplate xmlns=\"http://xml.vexa.example/vexa/viewer/lumoTemplate\" type=\"reply\">"
      "<mapInfo dataMapURI=\"file:/a.map\"/><styleSheet success=\"true\">&lt;sheet/&gt;</styleSheet>"
      "<Lumoml success=\"true\"><visualization xmlns=\"http://xml.vexa.example/visualization\"/></Lumoml>"
      "</lumoTemplate>";
  EXPECT_THAT(templateReplySchemaErrors(reply), IsEmpty());
  services.files->content["/a.map"] = "map";
  replies(reply);
  EXPECT_TRUE(convert());
  EXPECT_EQ(lumoML, "<visualization xmlns=\"http://xml.vexa.example/visualization\"/>");
  EXPECT_EQ(styleSheet, "<sheet/>");
  EXPECT_EQ(chart.getDataMapContents(), "map");
  expectNoReport(recorder);
}

// --- The chart

TEST_F(Reply, GivesTheFirstChildElementIndented) {
  replies(
      "<reply><Lumoml success=\"true\">\n <!-- chart --> text <v b=\"2\" a=\"1\"><g/><t>in <i/></t></v>"
      "<w/></Lumoml></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(lumoML, "<v a=\"1\" b=\"2\">\n  <g/>\n  <t>in <i/></t>\n</v>");
  expectNoReport(recorder);
}

TEST_F(Reply, GivesTheFirstChildNodeWhereThereIsNoElement) {
  replies("<reply><Lumoml success=\"true\">GRAPH &lt;<!-- more --></Lumoml></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(lumoML, "GRAPH &lt;");
}

TEST_F(Reply, GivesNoChartWhereThereIsNoChild) {
  replies("<reply><Lumoml success=\"true\"/></reply>");
  lumoML = "as it was";
  EXPECT_TRUE(convert());
  EXPECT_EQ(lumoML, "as it was");
  expectNoReport(recorder);
}

TEST_F(Reply, HasItsChartWhereverItStands) {
  replies("<a><b><Lumoml success=\"true\"><v/></Lumoml></b><Lumoml success=\"false\"/></a>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(lumoML, "<v/>");
  expectNoReport(recorder);
}

TEST_F(Reply, MayBeNothingButTheChart) {
  replies("<Lumoml success=\"true\"><v/></Lumoml>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(lumoML, "<v/>");
}

TEST_F(Reply, OfAFailedTemplateIsReportedAndNoFailure) {
  replies("<reply><Lumoml success=\"false\" errorCode=\"There is no slot z\"><v/></Lumoml></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(lumoML, "");
  EXPECT_THAT(recorder.userMessages(),
              ElementsAre(message(templateFailed, {"There is no slot z", false}, 3)));
  EXPECT_THAT(recorder.failures(), IsEmpty());
}

TEST_F(Reply, HasFailedUnlessItSaysTrue) {
  for (char const* success : {"", "success=\"\"", "success=\"TRUE\"", "success=\"1\""}) {
    recorder.clear();
    replies(std::string("<reply><Lumoml ") + success + "><v/></Lumoml></reply>");
    EXPECT_TRUE(convert());
    EXPECT_EQ(lumoML, "");
    EXPECT_THAT(recorder.userMessages(), ElementsAre(message(templateFailed, {"", false}, 3)));
  }
}

// --- Maps

TEST_F(Reply, GivesTheMaps) {
  services.files->content["C:/a b.map"] = "data";
  services.files->content["//tmp/b.map"] = "reference";
  chart.setDataMapName("old", XLumoTemplate::LOCATION_LOCAL);
  replies(
      "<reply><mapInfo errorCode=\"\" dataMapURI=\"+file:/C:/a%20b.map\" refMapURI=\"file:///tmp/b.map\"/>"
      "</reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(chart.getDataMapName().toUTF8(), "+file:/C:/a%20b.map");
  EXPECT_EQ(chart.getRefMapName().toUTF8(), "file:///tmp/b.map");
  EXPECT_EQ(chart.getDataMapFileName(), "C:/a b.map");
  EXPECT_EQ(chart.getRefMapFileName(), "//tmp/b.map");
  EXPECT_EQ(chart.getDataMapContents(), "data");
  EXPECT_EQ(chart.getRefMapContents(), "reference");
  EXPECT_THAT(fetched(), ElementsAre("C:/a b.map", "//tmp/b.map"));
  expectNoReport(recorder);
}

TEST_F(Reply, GivesMapsWithNamesInAnyScript) {
  services.files->content
      ["/Stra\xC3\x9F"
       "e/\xE4\xB8\x96.map"] = "data";
  replies(
      "<reply><mapInfo dataMapURI=\"file:/Stra\xC3\x9F"
      "e/\xE4\xB8\x96.map\"/></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(chart.getDataMapFileName(),
            "/Stra\xC3\x9F"
            "e/\xE4\xB8\x96.map");
  EXPECT_EQ(chart.getDataMapContents(), "data");
}

TEST_F(Reply, WithoutMapsEmptiesThem) {
  chart.setDataMapName("old", XLumoTemplate::LOCATION_LOCAL);
  replies("<reply><mapInfo/></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(chart.getDataMapName().toUTF8(), "");
  EXPECT_THAT(fetched(), ElementsAre("", ""));
  expectNoReport(recorder);
}

TEST_F(Reply, TellsOfEachMapThatCannotBeReadAndGoesOn) {
  replies(
      "<reply><mapInfo dataMapURI=\"file:/a%20.map\" refMapURI=\"file:/b.map\"/>"
      "<Lumoml success=\"true\"><v/></Lumoml><styleSheet success=\"true\">s</styleSheet></reply>");
  EXPECT_TRUE(convert());
  EXPECT_THAT(recorder.userMessages(),
              ElementsAre(message(noAccess, {"/a .map", false}, 2), message(noAccess, {"/b.map", false}, 2)));
  EXPECT_THAT(recorder.failures(), IsEmpty());
  EXPECT_EQ(lumoML, "<v/>");
  EXPECT_EQ(styleSheet, "s");
}

TEST_F(Reply, NamesBothMapsBeforeItFetchesThem) {
  replies("<reply><mapInfo dataMapURI=\"a\" refMapURI=\"b\"/></reply>");
  recorder.throwAt(Operation::Fetch, 1, OrdinaryFailure());
  EXPECT_THROW(convert(), OrdinaryFailure);
  EXPECT_EQ(chart.getDataMapFileName(), "a");
  EXPECT_EQ(chart.getRefMapFileName(), "b");
}

TEST_F(Reply, FetchesBothMapsBeforeItTells) {
  replies("<reply><mapInfo dataMapURI=\"a\" refMapURI=\"b\"/></reply>");
  recorder.throwAt(Operation::BpError, 1, OrdinaryFailure());
  EXPECT_THROW(convert(), OrdinaryFailure);
  EXPECT_THAT(fetched(), ElementsAre("a", "b"));
}

TEST_F(Reply, WithAMapCodeTellsItAndFails) {
  chart.setstyleSheetName("plain.xsl", XLumoTemplate::LOCATION_FILE);
  chart.setDataMapName("old", XLumoTemplate::LOCATION_LOCAL);
  replies(
      "<reply><mapInfo errorCode=\"Map ^1 not found:world\" dataMapURI=\"file:/a.map\"/>"
      "<Lumoml success=\"true\"><v/></Lumoml><styleSheet success=\"true\">s</styleSheet></reply>");
  EXPECT_FALSE(convert());
  EXPECT_THAT(recorder.userMessages(), ElementsAre(message("Map ^1 not found", {"world", false}, 3)));
  EXPECT_THAT(recorder.failures(), IsEmpty());
  EXPECT_THAT(fetched(), IsEmpty());
  EXPECT_EQ(chart.getDataMapName().toUTF8(), "old");
  EXPECT_EQ(lumoML, "<v/>");
  EXPECT_EQ(styleSheet, "");
}

TEST_F(Reply, SplitsAMapCodeAtItsFirstColon) {
  replies("<reply><mapInfo errorCode=\"No ^1:file:/a:b\"/></reply>");
  EXPECT_FALSE(convert());
  EXPECT_THAT(recorder.userMessages(), ElementsAre(message("No ^1", {"file:/a:b", false}, 3)));
}

TEST_F(Reply, TakesAMapCodeWithoutAColonWhole) {
  replies("<reply><mapInfo errorCode=\"No map ^1\"/></reply>");
  EXPECT_FALSE(convert());
  EXPECT_THAT(recorder.userMessages(), ElementsAre(message("No map ^1", {"", false}, 3)));
}

TEST_F(Reply, OfAFailedTemplateStillGivesTheMaps) {
  services.files->content["a"] = "data";
  replies("<reply><Lumoml success=\"false\"/><mapInfo dataMapURI=\"a\"/></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(chart.getDataMapContents(), "data");
}

TEST_F(Reply, ReadsNoMapThatTheHostWithholds) {
  services.files->content["/etc/passwd"] = "secret";
  recorder.failEvery(Operation::Fetch);
  replies("<reply><mapInfo dataMapURI=\"file:/etc/passwd\"/></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(chart.getDataMapContents(), "");
  EXPECT_THAT(recorder.userMessages(), ElementsAre(message(noAccess, {"/etc/passwd", false}, 2)));
}

// --- Style sheets

TEST_F(Reply, GivesTheStyleSheet) {
  replies("<reply><styleSheet success=\"true\">&lt;a b=\"\xC3\xA9\"/&gt;</styleSheet></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(styleSheet, "<a b=\"\xC3\xA9\"/>");
  expectNoReport(recorder);
}

TEST_F(Reply, GivesOfAStyleSheetItsFirstTextAlone) {
  replies(
      "<reply><styleSheet success=\"true\"><!-- c "
      "--><e>no</e><![CDATA[nor]]>first<e/>second</styleSheet></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(styleSheet, "first");
}

TEST_F(Reply, GivesAnEmptyStyleSheetWhereThereIsNoText) {
  styleSheet = "as it was";
  replies("<reply><styleSheet success=\"true\"/></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(styleSheet, "");
}

TEST_F(Reply, OfAFailedStyleSheetIsReportedAndStillGivesIt) {
  chart.setstyleSheetName("plain", XLumoTemplate::LOCATION_LOCAL);
  replies("<reply><styleSheet success=\"false\" errorCode=\"line 3\">half</styleSheet></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(styleSheet, "half");
  EXPECT_THAT(
      recorder.userMessages(),
      ElementsAre(message("Failed to convert visualization style sheet... ^1.", {"plain", false}, 2)));
  EXPECT_THAT(recorder.failures(), ElementsAre("Error in XLumoTemplate::convert() - plain line 3"));
}

TEST_F(Reply, TellsTheUserOfAFailedStyleSheetFirst) {
  replies("<reply><styleSheet success=\"false\"/></reply>");
  recorder.throwAt(Operation::BpError, 1, OrdinaryFailure());
  EXPECT_THROW(convert(), OrdinaryFailure);
  EXPECT_THAT(recorder.failures(), IsEmpty());
}

TEST_F(Reply, OfAFailedTemplateGivesNoStyleSheet) {
  replies("<reply><styleSheet success=\"false\">s</styleSheet><Lumoml success=\"false\"/></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(styleSheet, "");
  EXPECT_THAT(recorder.userMessages(), ElementsAre(message(templateFailed, {"", false}, 3)));
}

TEST_F(Reply, FetchesTheChosenFileAlsoWhereItHasNoName) {
  styleSheet = "as it was";
  chart.setstyleSheetName("", XLumoTemplate::LOCATION_FILE);
  replies("<reply><styleSheet success=\"true\">theirs</styleSheet></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(styleSheet, "");
  EXPECT_THAT(fetched(), ElementsAre(""));
  expectNoReport(recorder);
}

TEST_F(Reply, GivesNoStyleSheetWhereAFileIsChosen) {
  services.files->content["plain.xsl"] = "<mine/>";
  chart.setstyleSheetName("plain.xsl", XLumoTemplate::LOCATION_FILE);
  replies("<reply><styleSheet success=\"false\">theirs</styleSheet></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(styleSheet, "<mine/>");
  EXPECT_THAT(fetched(), ElementsAre("plain.xsl"));
  expectNoReport(recorder);
}

TEST_F(Reply, OfAFailedTemplateLeavesTheStyleSheetOfAFile) {
  services.files->content["plain.xsl"] = "<mine/>";
  chart.setstyleSheetName("plain.xsl", XLumoTemplate::LOCATION_FILE);
  replies("<reply><Lumoml success=\"false\"/></reply>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(styleSheet, "<mine/>");
}

TEST_F(Reply, EmptiesTheStyleSheetOfAFileThatCannotBeReadSilently) {
  chart.setstyleSheetName("gone", XLumoTemplate::LOCATION_FILE);
  styleSheet = "as it was";
  EXPECT_TRUE(convert());
  EXPECT_EQ(styleSheet, "");
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
