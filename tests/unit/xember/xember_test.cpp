// Charts for the rendering engine: what is sent of them, and what is left of it where something fails.

#include "xember.h"

#include "attachment_tests.h"
#include "host_calls.h"
#include "sending_test.h"
#include "sent_alone_tests.h"
#include "told_sends.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class EngineChart : public SendingTest {
 protected:
  EngineChart() { chart.SetDescription(u"Größe"); }

  void addFile(std::string const& name, std::string const& content) {
    recorder.services().files->content[name] = content;
  }

  /// Everything that can be sent.
  void fill() {
    addFile("chart.json", "{\"chart\": 1}");
    addFile("lakes.json", "{\"lakes\": 1}");
    chart.setLumoJSON("chart.json");
    chart.setLumoJSONTemplate("{\"template\": 1}");
    chart.setOptions("size=2");
    chart.addGeoJSON("rivers", "{\"rivers\": 1}");
    chart.addGeoJSON("lakes.json");
  }

  std::string text(std::size_t index) { return contents().at(index).bytes; }

  xEmber chart;
};

TEST_F(EngineChart, GoesOutInItsOrder) {
  fill();
  EXPECT_TRUE(chart.sendChart());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 12u, 13u, 19u, 14u, 15u, 14u, 15u, 3u));
}

TEST_F(EngineChart, GoesOutInChartContentMessagesWithoutASubtype) {
  fill();
  chart.sendChart();
  for (auto const& content : contents()) {
    EXPECT_EQ(content.identifier, 307);
    EXPECT_EQ(content.subtype, 0u);
  }
}

TEST_F(EngineChart, HasItsDescriptionInBothForms) {
  chart.sendChart();
  EXPECT_EQ(bytesOf(0), "Größe");
  EXPECT_EQ(bytesOf(9), "Grosse");
}

TEST_F(EngineChart, CompressesItsTextsAndNeitherNamesNorOptions) {
  fill();
  chart.sendChart();
  EXPECT_EQ(inflated(text(2)), "{\"chart\": 1}");
  EXPECT_EQ(inflated(text(3)), "{\"template\": 1}");
  EXPECT_EQ(text(4), "size=2");
  EXPECT_EQ(text(5), "rivers");
  EXPECT_EQ(inflated(text(6)), "{\"rivers\": 1}");
  EXPECT_EQ(text(7), "lakes.json");
  EXPECT_EQ(inflated(text(8)), "{\"lakes\": 1}");
}

TEST_F(EngineChart, CompressesEachTextJustBeforeItIsSentButAnAttachmentBeforeItsName) {
  fill();
  chart.sendChart();
  std::string story;
  for (auto const& entry : recorder.entries()) {
    if (entry.operation == Operation::CompressString) story += "c";
    if (entry.operation == Operation::IpcPutC) story += "p";
  }
  // Both descriptions, both texts, the options, two attachments, the end record.
  EXPECT_EQ(story, "ppcpcppcppcppp");
}

TEST_F(EngineChart, WithNothingSetIsFalseThoughItsEndRecordIsSent) {
  EXPECT_FALSE(chart.sendChart());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 3u));
}

// Each alone: everything else is left out, and its result is that of the send.

TEST_F(EngineChart, OfNothingButItsTextIsSent) {
  addFile("chart.json", "{}");
  chart.setLumoJSON("chart.json");
  EXPECT_TRUE(chart.sendChart());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 12u, 3u));
}

TEST_F(EngineChart, OfNothingButATemplateIsSent) {
  chart.setLumoJSONTemplate("{}");
  EXPECT_TRUE(chart.sendChart());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 13u, 3u));
}

TEST_F(EngineChart, OfNothingButOptionsIsSent) {
  chart.setOptions("x");
  EXPECT_TRUE(chart.sendChart());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 19u, 3u));
}

TEST_F(EngineChart, OfNothingButAnAttachmentIsSent) {
  chart.addGeoJSON("a", "b");
  EXPECT_TRUE(chart.sendChart());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 14u, 15u, 3u));
}

// --- What is set

TEST_F(EngineChart, TakesItsTextFromAFile) {
  addFile("chart.json", "{}");
  EXPECT_TRUE(chart.setLumoJSON("chart.json"));
  auto const fetches = recorder.entries(Operation::Fetch);
  ASSERT_THAT(fetches, SizeIs(1));
  EXPECT_EQ(fetches[0].text("name"), "chart.json");
  EXPECT_TRUE(fetches[0].flag("first"));
  EXPECT_TRUE(fetches[0].flag("second"));
}

TEST_F(EngineChart, HasNoTextAnyMoreAfterAFileThatIsNotThere) {
  fill();
  EXPECT_FALSE(chart.setLumoJSON("missing.json"));
  chart.sendChart();
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 13u, 19u, 14u, 15u, 14u, 15u, 3u));
}

TEST_F(EngineChart, TakesTemplateAndOptionsAsTheyAre) {
  addFile("name", "from a file");
  chart.setLumoJSONTemplate("name");
  chart.setOptions("name");
  chart.sendChart();
  EXPECT_EQ(inflated(bytesOf(13)), "name");
  EXPECT_EQ(bytesOf(19), "name");
  EXPECT_EQ(recorder.count(Operation::Fetch), 0u);
}

TEST_F(EngineChart, KeepsWhatWasSetLast) {
  addFile("a.json", "a");
  addFile("b.json", "b");
  chart.setLumoJSON("a.json");
  chart.setLumoJSON("b.json");
  chart.setLumoJSONTemplate("a");
  chart.setLumoJSONTemplate("b");
  chart.setOptions("a");
  chart.setOptions("b");
  chart.sendChart();
  EXPECT_EQ(inflated(bytesOf(12)), "b");
  EXPECT_EQ(inflated(bytesOf(13)), "b");
  EXPECT_EQ(bytesOf(19), "b");
}

TEST_F(EngineChart, LeavesOutWhatWasSetToNothing) {
  fill();
  chart.setLumoJSONTemplate("");
  chart.setOptions("");
  chart.sendChart();
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 12u, 14u, 15u, 14u, 15u, 3u));
}

TEST_F(EngineChart, SendsOptionsOfExactlyAChunkInOneMessage) {
  chart.setOptions(pattern(33984));
  EXPECT_TRUE(chart.sendChart());
  EXPECT_THAT(onlyContent(contents(), 19).chunkSizes, ElementsAre(33984u));
}

// --- Failures

class EngineChartWithAFailedPut : public EngineChart, public ::testing::WithParamInterface<FailedPut> {};

TEST_P(EngineChartWithAFailedPut, SendsWhatDoesNotHangOnIt) {
  fill();
  recorder.failAt(Operation::IpcPutC, GetParam().put);
  EXPECT_EQ(chart.sendChart(), GetParam().result);
  EXPECT_EQ(types(), GetParam().types);
}

// Only the last content counts, which is that of the last attachment: put 9.
INSTANTIATE_TEST_SUITE_P(EachPut, EngineChartWithAFailedPut,
                         ::testing::Values(FailedPut{1, {}, false}, FailedPut{2, {0}, false},
                                           FailedPut{3, {0, 9, 13, 19, 14, 15, 14, 15, 3}, true},
                                           FailedPut{4, {0, 9, 12, 19, 14, 15, 14, 15, 3}, true},
                                           FailedPut{5, {0, 9, 12, 13, 14, 15, 14, 15, 3}, true},
                                           FailedPut{6, {0, 9, 12, 13, 19, 15, 14, 15, 3}, true},
                                           FailedPut{7, {0, 9, 12, 13, 19, 14, 14, 15, 3}, true},
                                           FailedPut{8, {0, 9, 12, 13, 19, 14, 15, 15, 3}, true},
                                           FailedPut{9, {0, 9, 12, 13, 19, 14, 15, 14, 3}, false},
                                           FailedPut{10, {0, 9, 12, 13, 19, 14, 15, 14, 15}, true}));

TEST_F(EngineChart, IsASuccessWhereItsLastContentIsThoughAllOthersFailed) {
  fill();
  for (unsigned int put = 3; put < 9; ++put) recorder.failAt(Operation::IpcPutC, put);
  EXPECT_TRUE(chart.sendChart());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 15u, 3u));
}

TEST_F(EngineChart, WithoutAttachmentsHasTheResultOfItsOptions) {
  chart.setLumoJSONTemplate("{}");
  chart.setOptions("x");
  recorder.failAt(Operation::IpcPutC, 4);
  EXPECT_FALSE(chart.sendChart());
}

TEST_F(EngineChart, WithoutOptionsHasTheResultOfItsTemplate) {
  addFile("chart.json", "{}");
  chart.setLumoJSON("chart.json");
  chart.setLumoJSONTemplate("{}");
  recorder.failAt(Operation::IpcPutC, 4);
  EXPECT_FALSE(chart.sendChart());
}

TEST_F(EngineChart, WithoutATemplateHasTheResultOfItsText) {
  addFile("chart.json", "{}");
  chart.setLumoJSON("chart.json");
  recorder.failAt(Operation::IpcPutC, 3);
  EXPECT_FALSE(chart.sendChart());
}

TEST_F(EngineChart, WhoseCompressionGivesNoBytesCountsAsSent) {
  fill();
  recorder.failEvery(Operation::CompressString);
  EXPECT_TRUE(chart.sendChart());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 19u, 14u, 14u, 3u));
}

TEST_F(EngineChart, TellsNobodyOfFailures) {
  fill();
  chart.setLumoJSON("missing.json");
  chart.addGeoJSON("missing.json");
  recorder.failEvery(Operation::IpcPutC);
  chart.sendChart();
  expectNoReport(recorder);
}

TEST_F(EngineChart, LetsThroughWhatTheHostThrows) {
  expectToLetThrough(recorder, {Operation::Fetch}, [this] { chart.setLumoJSON("missing.json"); });
  expectToLetThrough(recorder, {Operation::Fetch}, [this] { chart.addGeoJSON("missing.json"); });
  fill();
  expectToLetThrough(recorder,
                     {put(0), put(9), Operation::PrintDebugInfo,    //
                      Operation::CompressString, put(12),           //
                      Operation::CompressString, put(13), put(19),  //
                      Operation::CompressString, put(14), put(15),  //
                      Operation::CompressString, put(14), put(15), put(3)},
                     [this] { chart.sendChart(); });
}

/// What it has in common with other documents sent on their own side.
struct EngineCharts {
  using Document = xEmber;
  static bool send(Document& document) { return document.sendChart(); }
  static constexpr int editor = 3;
  static constexpr bool keepsDefault = true;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Ember, SentAlone, EngineCharts);
INSTANTIATE_TYPED_TEST_SUITE_P(Ember, Attachments, EngineCharts);

// --- What it inherits

TEST_F(EngineChart, IsSentThroughTheOperationsOfADocument) {
  ToldSends<xEmber> own;
  addFile("chart.json", "{}");
  own.setLumoJSON("chart.json");
  own.setLumoJSONTemplate("{}");
  own.setOptions("x");
  own.addGeoJSON("a", "b");
  own.failing = {"done"};
  EXPECT_TRUE(own.sendChart());
  EXPECT_THAT(own.story, ElementsAre("description", "12", "13", "19", "14", "15", "done"));
  EXPECT_THAT(got(), IsEmpty());
}

}  // namespace
}  // namespace kestrel::test
