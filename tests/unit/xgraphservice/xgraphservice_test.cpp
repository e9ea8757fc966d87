// What goes to a client that makes the chart itself, and what is left of it where something fails.

#include "xgraphservice.h"

#include "host_calls.h"
#include "schema_validator.h"
#include "sending_test.h"
#include "sent_alone_tests.h"
#include "told_sends.h"

#include "host/data_store.h"
#include "model/chartstring.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// The text of a service template.
std::string document(std::string const& element) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + element;
}

class Service : public SendingTest {
 protected:
  Service() {
    service.SetDescription(u"Größe");
    store.AddDataSource("source0", 0);
    store.AddVariable("source0", "age", nullptr);
    store.SetVariableValue("source0", "age", 0, 41.5);
    recorder.clear();
  }

  /// Everything that can be sent.
  void fill() {
    service.setChartOptions("type=bar");
    service.createDocument(ChartString(u"source0"));
    service.addVariable("age", 0);
    service.SetChartData(&store);
  }

  /// The service template as it was sent, which must be one by the schema.
  std::string sentTemplate() {
    std::string const text = bytesOf(21);
    EXPECT_THAT(serviceTemplateSchemaErrors(text), IsEmpty());
    return text;
  }

  VarDataProcessor store;
  XGraphService service;
};

TEST_F(Service, GoesOutInItsOrder) {
  fill();
  EXPECT_TRUE(service.sendChartOptions());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 20u, 21u, 5u, 8u, 3u));
}

TEST_F(Service, GoesOutInChartContentMessages) {
  fill();
  service.sendChartOptions();
  for (auto const& message : got()) EXPECT_EQ(message.identifier, 307);
}

TEST_F(Service, HasItsDescriptionInBothForms) {
  service.sendChartOptions();
  EXPECT_EQ(bytesOf(0), "Größe");
  EXPECT_EQ(bytesOf(9), "Grosse");
}

TEST_F(Service, HasTheSubtypeFourForItsOptionsAlone) {
  fill();
  service.sendChartOptions();
  for (auto const& content : contents()) EXPECT_EQ(content.subtype, content.type == 20 ? 4u : 0u);
}

TEST_F(Service, SendsItsOptionsAsTheyAre) {
  std::string const options("a=1\n\0b", 6);
  EXPECT_TRUE(service.setChartOptions(options));
  service.sendChartOptions();
  EXPECT_EQ(got().at(2).bytes, std::string("\x14\x04\0\0\x06\0\0\0"
                                           "a=1\n\0b"
                                           "\0\0\0\0",
                                           18));
}

TEST_F(Service, SendsLongOptionsWhole) {
  service.setChartOptions(pattern(70000));
  EXPECT_TRUE(service.sendChartOptions());
  EXPECT_THAT(onlyContent(contents(), 20).chunkSizes, ElementsAre(33984u, 33984u, 2032u));
  EXPECT_EQ(bytesOf(20), pattern(70000));
}

TEST_F(Service, SaysOfEmptyOptionsThatTheyAreAndTakesThem) {
  EXPECT_TRUE(service.setChartOptions("a"));
  EXPECT_FALSE(service.setChartOptions(""));
  EXPECT_TRUE(service.sendChartOptions());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 3u));
}

TEST_F(Service, KeepsTheOptionsThatWereSetLast) {
  service.setChartOptions("a");
  service.setChartOptions("b");
  service.sendChartOptions();
  EXPECT_EQ(bytesOf(20), "b");
}

TEST_F(Service, NeverCompresses) {
  fill();
  service.sendChartOptions();
  EXPECT_EQ(recorder.count(Operation::CompressString), 0u);
}

// --- The service template

TEST_F(Service, HasATemplateWithNothingButItsSource) {
  EXPECT_TRUE(service.createDocument(ChartString(u"source0")));
  service.sendChartOptions();
  EXPECT_EQ(sentTemplate(), document("<serviceTemplate source=\"source0\"/>"));
}

TEST_F(Service, HasAnEmptySourceWhereItIsEmpty) {
  service.createDocument(ChartString());
  service.sendChartOptions();
  EXPECT_EQ(sentTemplate(), document("<serviceTemplate source=\"\"/>"));
}

TEST_F(Service, HasItsVariablesInTheOrderOfTheCallsWithTheNumbersOfTheCaller) {
  service.createDocument(ChartString(u"s"));
  service.addVariable("age", 7);
  service.addVariable("sex", 0);
  service.addVariable("age", 12);
  service.sendChartOptions();
  EXPECT_EQ(sentTemplate(), document("<serviceTemplate source=\"s\">"
                                     "<sourceVariable index=\"7\" name=\"age\"/>"
                                     "<sourceVariable index=\"0\" name=\"sex\"/>"
                                     "<sourceVariable index=\"12\" name=\"age\"/>"
                                     "</serviceTemplate>"));
}

TEST_F(Service, WritesANumberBelowZeroWithoutItsSign) {
  service.createDocument(ChartString(u"s"));
  service.addVariable("age", -1);
  service.addVariable("sex", 2147483647);
  service.sendChartOptions();
  EXPECT_EQ(sentTemplate(), document("<serviceTemplate source=\"s\">"
                                     "<sourceVariable index=\"18446744073709551615\" name=\"age\"/>"
                                     "<sourceVariable index=\"2147483647\" name=\"sex\"/>"
                                     "</serviceTemplate>"));
}

TEST_F(Service, EscapesWhatMarkupNeeds) {
  service.createDocument(ChartString(u"a<b&\"c\""));
  service.addVariable("Größe < 5 & mehr", 1);
  service.addVariable("", 2);
  service.sendChartOptions();
  EXPECT_EQ(sentTemplate(), document("<serviceTemplate source=\"a&lt;b&amp;&quot;c&quot;\">"
                                     "<sourceVariable index=\"1\" "
                                     "name=\"Größe &lt; 5 &amp; mehr\"/>"
                                     "<sourceVariable index=\"2\" name=\"\"/>"
                                     "</serviceTemplate>"));
}

TEST_F(Service, DecodesNamesAsTextsOfTheOutputLanguageAndLooksNoneUp) {
  recorder.services().texts->texts["age"] = "Alter";
  service.createDocument(ChartString(u"s"));
  service.addVariable("age", 0);
  EXPECT_EQ(recorder.count(Operation::LanguageCode), 1u);
  EXPECT_EQ(recorder.count(Operation::LookUp), 0u);
  service.sendChartOptions();
  EXPECT_NE(sentTemplate().find("name=\"age\""), std::string::npos);
}

TEST_F(Service, SendsALongTemplateWhole) {
  service.createDocument(ChartString(u"s"));
  for (int index = 0; index < 2000; ++index) service.addVariable("variable", index);
  EXPECT_TRUE(service.sendChartOptions());
  EXPECT_THAT(onlyContent(contents(), 21).chunkSizes, SizeIs(3));
  EXPECT_NE(sentTemplate().find("index=\"1999\""), std::string::npos);
}

TEST_F(Service, IsPrintedAnewAtEachSend) {
  service.createDocument(ChartString(u"s"));
  service.sendChartOptions();
  service.addVariable("age", 3);
  service.sendChartOptions();
  std::vector<std::string> templates;
  for (auto const& content : contents())
    if (content.type == 21) templates.push_back(content.bytes);
  EXPECT_THAT(templates, ElementsAre(document("<serviceTemplate source=\"s\"/>"),
                                     document("<serviceTemplate source=\"s\">"
                                              "<sourceVariable index=\"3\" name=\"age\"/>"
                                              "</serviceTemplate>")));
}

TEST_F(Service, BeginsAnewWithASecondTemplate) {
  service.createDocument(ChartString(u"first"));
  service.addVariable("age", 0);
  EXPECT_TRUE(service.createDocument(ChartString(u"second")));
  service.sendChartOptions();
  EXPECT_EQ(sentTemplate(), document("<serviceTemplate source=\"second\"/>"));
}

TEST_F(Service, TakesNoVariableBeforeThereIsATemplate) {
  service.addVariable("age", 0);
  EXPECT_EQ(recorder.count(Operation::LanguageCode), 0u);
  service.createDocument(ChartString(u"s"));
  service.sendChartOptions();
  EXPECT_EQ(sentTemplate(), document("<serviceTemplate source=\"s\"/>"));
}

TEST_F(Service, WithoutATemplateSendsNeitherThatNorData) {
  service.setChartOptions("a");
  service.SetChartData(&store);
  EXPECT_TRUE(service.sendChartOptions());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 20u, 3u));
}

// --- Data

TEST_F(Service, AnnouncesAndSendsTheDataOfItsStore) {
  fill();
  unsigned int size = 0;
  std::unique_ptr<unsigned char[]> const stream(store.GetDataStream(size));
  service.sendChartOptions();
  EXPECT_EQ(bytesOf(8), std::string(reinterpret_cast<char const*>(stream.get()), size));
  EXPECT_EQ(announced(contents(), 5), size);
}

TEST_F(Service, WithoutAStoreSendsItsTemplateAloneAndSucceeds) {
  service.createDocument(ChartString(u"s"));
  EXPECT_TRUE(service.sendChartOptions());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 21u, 3u));
}

TEST_F(Service, KeepsItsStoreForTheNextSend) {
  fill();
  EXPECT_TRUE(service.sendChartOptions());
  EXPECT_TRUE(service.sendChartOptions());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 20u, 21u, 5u, 8u, 3u, 0u, 9u, 20u, 21u, 5u, 8u, 3u));
}

// --- Failures

class ServiceWithAFailedPut : public Service, public ::testing::WithParamInterface<FailedPut> {};

TEST_P(ServiceWithAFailedPut, SendsWhatDoesNotHangOnIt) {
  fill();
  recorder.failAt(Operation::IpcPutC, GetParam().put);
  EXPECT_EQ(service.sendChartOptions(), GetParam().result);
  EXPECT_EQ(types(), GetParam().types);
}

// Only the data itself counts: put 6.
INSTANTIATE_TEST_SUITE_P(EachPut, ServiceWithAFailedPut,
                         ::testing::Values(FailedPut{1, {}, false}, FailedPut{2, {0}, false},
                                           FailedPut{3, {0, 9, 21, 5, 8, 3}, true},
                                           FailedPut{4, {0, 9, 20, 5, 8, 3}, true},
                                           FailedPut{5, {0, 9, 20, 21, 8, 3}, true},
                                           FailedPut{6, {0, 9, 20, 21, 5, 3}, false},
                                           FailedPut{7, {0, 9, 20, 21, 5, 8}, true}));

TEST_F(Service, WithoutATemplateHasTheResultOfItsOptions) {
  service.setChartOptions("a");
  recorder.failAt(Operation::IpcPutC, 3);
  EXPECT_FALSE(service.sendChartOptions());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 3u));
}

TEST_F(Service, WithoutAStoreSucceedsThoughItsTemplateFailed) {
  service.createDocument(ChartString(u"s"));
  recorder.failAt(Operation::IpcPutC, 3);
  EXPECT_TRUE(service.sendChartOptions());
  EXPECT_THAT(types(), ElementsAre(0u, 9u, 3u));
}

TEST_F(Service, SendsNothingAtAllBehindADescriptionThatFailed) {
  fill();
  recorder.failAt(Operation::IpcPutC, 1);
  service.sendChartOptions();
  EXPECT_EQ(puts(), 1u);
  EXPECT_EQ(recorder.count(Operation::GetDataStream), 0u);
}

TEST_F(Service, TellsNobodyOfFailures) {
  fill();
  recorder.failEvery(Operation::IpcPutC);
  service.sendChartOptions();
  expectNoReport(recorder);
}

TEST_F(Service, LetsThroughWhatTheHostThrows) {
  fill();
  expectToLetThrough(recorder,
                     {put(0), put(9), Operation::PrintDebugInfo, put(20), put(21), Operation::GetDataStream,
                      put(5), put(8), put(3)},
                     [this] { service.sendChartOptions(); });
  expectToLetThrough(recorder, {Operation::LanguageCode}, [this] { service.addVariable("sex", 1); });
}

/// What it has in common with other documents sent on their own side.
struct Services {
  using Document = XGraphService;
  static bool send(Document& document) { return document.sendChartOptions(); }
  static constexpr int editor = 1;
  static constexpr bool keepsDefault = true;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Service, SentAlone, Services);

// --- What it inherits

TEST_F(Service, IsSentThroughTheOperationsOfADocument) {
  ToldSends<XGraphService> own;
  own.setChartOptions("a");
  own.createDocument(ChartString(u"s"));
  own.failing = {"done"};
  EXPECT_TRUE(own.sendChartOptions());
  EXPECT_THAT(own.story, ElementsAre("description", "20", "21", "data", "done"));
  EXPECT_THAT(got(), IsEmpty());
}

TEST_F(Service, HasTheResultOfTheOperationThatSendsItsData) {
  ToldSends<XGraphService> own;
  own.createDocument(ChartString(u"s"));
  own.failing = {"data"};
  EXPECT_FALSE(own.sendChartOptions());
}

}  // namespace
}  // namespace kestrel::test
