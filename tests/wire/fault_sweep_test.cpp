// A chart with content of every kind, with each call of the host and each change of the chart failing in
// turn.

#include "chart_test.h"
#include "full_chart.h"
#include "schema_validator.h"
#include "wire_decoder.h"

#include "host/messages.h"
#include "kestrelhost/data_store.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::test {
namespace {

using host::Entry;
using host::Operation;
using ::testing::IsEmpty;
using ::testing::ValuesIn;

using Types = std::vector<std::uint32_t>;
using Reports = std::vector<std::string>;

Types const wholeChart{0, 9, 2, 4, 1, 5, 8, 10, 11, 6, 11, 6, 3};
Types const chartWithoutData{0, 9, 2, 4, 1, 10, 11, 6, 11, 6, 3};

/// What the user and the log were told, in order.
Reports reportsOf(host::Recorder const& recorder) {
  Reports reports;
  for (Entry const& entry : recorder.entries()) {
    if (entry.operation == Operation::BpError) reports.push_back("user: " + entry.text("text"));
    if (entry.operation == Operation::Error) reports.push_back("log: " + entry.text("message"));
  }
  return reports;
}

/// What comes of an ordinary exception at a step.
enum class Outcome {
  /// The chart is given up at once.
  GivenUp,
  /// The rest of the contents is given up, and the end record goes out.
  Closed,
  /// The template is given up.
  WithoutTemplate,
  /// The style sheet is given up.
  WithoutStyleSheet
};

Reports reportsFor(Outcome outcome) {
  switch (outcome) {
    case Outcome::GivenUp:
      return {"log: Failed to send chart.", "user: Chart XML Send Error"};
    case Outcome::Closed:
      return {"log: Failed to send chart XML or data"};
    case Outcome::WithoutTemplate:
      return {"log: Failure occurred while applying user template: house.template",
              "user: An error occurred while applying a chart template"};
    case Outcome::WithoutStyleSheet:
      return {"user: Error occurred while applying a stylesheet house style.",
              "log: Error in XDocument::applyStyleSheet() - house style"};
  }
  return {};
}

/// Calls of one operation, by their numbers in one send, and what an exception in each of them does.
struct Step {
  Operation operation;
  unsigned int first;
  unsigned int last;
  Outcome outcome;
};

constexpr Step steps[] = {
    // The data is made to agree, with the names of the dates.
    {Operation::GetSourceNames, 1, 1, Outcome::GivenUp},
    {Operation::GetVariableNames, 1, 3, Outcome::GivenUp},
    {Operation::AddVariable, 1, 1, Outcome::GivenUp},
    {Operation::DictionaryPath, 1, 1, Outcome::GivenUp},
    {Operation::OpenDictionary, 1, 1, Outcome::GivenUp},
    {Operation::SetProcedure, 1, 1, Outcome::GivenUp},
    {Operation::LookUp, 1, 20, Outcome::GivenUp},
    {Operation::LanguageCode, 1, 20, Outcome::GivenUp},
    {Operation::GetDataPointer, 1, 1, Outcome::GivenUp},
    {Operation::GetRowCount, 1, 1, Outcome::GivenUp},
    {Operation::BreakUpDate, 1, 2, Outcome::GivenUp},
    // The default looks, and the language.
    {Operation::DictionaryPath, 2, 2, Outcome::GivenUp},
    {Operation::OpenDictionary, 2, 2, Outcome::GivenUp},
    {Operation::BasePath, 1, 1, Outcome::GivenUp},
    {Operation::SetProcedure, 2, 2, Outcome::GivenUp},
    {Operation::LocaleName, 1, 1, Outcome::GivenUp},
    {Operation::LanguageCode, 21, 21, Outcome::GivenUp},
    // The templates of the settings.
    {Operation::PrintDebugInfo, 1, 2, Outcome::GivenUp},
    {Operation::StartTemplate, 1, 1, Outcome::GivenUp},
    {Operation::TemplateNames, 1, 3, Outcome::GivenUp},
    {Operation::TemplateSetIsDirty, 1, 3, Outcome::GivenUp},
    {Operation::PackFrames, 1, 1, Outcome::GivenUp},
    {Operation::TemplateExists, 1, 1, Outcome::GivenUp},
    // The template that is a text.
    {Operation::StartTemplate, 2, 3, Outcome::GivenUp},
    {Operation::WillPrintString, 1, 2, Outcome::GivenUp},
    {Operation::PrintString, 1, 3, Outcome::GivenUp},
    {Operation::SetTemplate, 1, 1, Outcome::GivenUp},
    {Operation::ApplyTemplate, 1, 1, Outcome::GivenUp},
    // The template that is a file.
    {Operation::Fetch, 1, 1, Outcome::GivenUp},
    {Operation::PrintString, 4, 4, Outcome::GivenUp},
    {Operation::SetTemplate, 2, 2, Outcome::GivenUp},
    {Operation::WillPrintString, 3, 4, Outcome::WithoutTemplate},
    {Operation::PrintString, 5, 6, Outcome::WithoutTemplate},
    {Operation::ApplyTemplate, 2, 2, Outcome::WithoutTemplate},
    {Operation::PrintDebugInfo, 3, 3, Outcome::GivenUp},
    // The style sheet.
    {Operation::PrintDebugInfo, 4, 5, Outcome::WithoutStyleSheet},
    {Operation::ApplyStyleSheet, 1, 1, Outcome::WithoutStyleSheet},
    // The description, which is looked up.
    {Operation::DictionaryPath, 3, 3, Outcome::GivenUp},
    {Operation::OpenDictionary, 3, 3, Outcome::GivenUp},
    {Operation::SetProcedure, 3, 3, Outcome::GivenUp},
    {Operation::LookUp, 21, 21, Outcome::GivenUp},
    {Operation::LanguageCode, 22, 22, Outcome::GivenUp},
    {Operation::IpcPutC, 1, 2, Outcome::GivenUp},
    {Operation::PrintDebugInfo, 6, 6, Outcome::GivenUp},
    // The chart text with its dump, the data, the maps and the two files.
    {Operation::CompressString, 1, 1, Outcome::Closed},
    {Operation::WillPrintString, 5, 5, Outcome::Closed},
    {Operation::GetDataStream, 1, 2, Outcome::Closed},
    {Operation::GetEntireXML, 1, 1, Outcome::Closed},
    {Operation::PrintString, 7, 7, Outcome::Closed},
    {Operation::IpcPutC, 3, 12, Outcome::Closed},
    {Operation::PrintDebugInfo, 7, 9, Outcome::Closed},
    {Operation::Fetch, 2, 3, Outcome::Closed},
    // The end record, and the store that is cleared behind it.
    {Operation::IpcPutC, 13, 13, Outcome::GivenUp},
    {Operation::AddDataSource, 1, 1, Outcome::GivenUp},
};

/// One call of the table.
struct Call {
  Operation operation;
  unsigned int number;
  Outcome outcome;
};

void PrintTo(Call const& call, std::ostream* out) { *out << nameOf(call.operation) << ' ' << call.number; }

std::vector<Call> calls() {
  std::vector<Call> all;
  for (Step const& step : steps) {
    for (unsigned int number = step.first; number <= step.last; ++number) {
      all.push_back({step.operation, number, step.outcome});
    }
  }
  return all;
}

/// A send in which nothing fails.
struct GoodSend {
  GoodSend() {
    FullChart chart;
    result = chart.send();
    reports = reportsOf(chart.recorder);
    messages = chart.got();
    std::map<Operation, unsigned int> numbers;
    for (Entry const& entry : chart.recorder.entries()) {
      calls.emplace_back(entry.operation, ++numbers[entry.operation]);
    }
  }

  /// How many messages have gone out before that call.
  std::size_t putsBefore(Call const& call) const {
    std::size_t puts = 0;
    for (auto const& [operation, number] : calls) {
      if (operation == call.operation && number == call.number) break;
      if (operation == Operation::IpcPutC) ++puts;
    }
    return puts;
  }

  bool result = false;
  Reports reports;
  std::vector<host::Message> messages;
  std::vector<std::pair<Operation, unsigned int>> calls;
};

GoodSend const& goodSend() {
  static GoodSend const good;
  return good;
}

Types typesOfMessages(std::vector<host::Message> const& messages) {
  Types types;
  for (host::Message const& message : messages) types.push_back(decodeMessage(message).type);
  return types;
}

Types firstTypes(std::size_t count) {
  return {wholeChart.begin(), wholeChart.begin() + std::ptrdiff_t(count)};
}

/// The chart text holds the day, and so do its sizes.
bool dependsOnTheDay(std::uint32_t type) { return type == 1 || type == 2 || type == 4; }

/// Each message that went out before a failure is the one that goes out without it.
void expectUntouched(std::vector<host::Message> const& messages, std::size_t count) {
  for (std::size_t at = 0; at < count; ++at) {
    if (dependsOnTheDay(wholeChart.at(at))) continue;
    EXPECT_EQ(messages.at(at), goodSend().messages.at(at)) << at;
  }
}

/// The document that has failed is sent again, with nothing failing.
void expectSecondSend(FullChart& chart, Types const& types) {
  EXPECT_TRUE(chart.document.implementationExists());
  EXPECT_THAT(schemaErrors(chart.document.AsUTF8()), IsEmpty());
  chart.recorder.behave();
  chart.services.channel->clear();
  EXPECT_TRUE(chart.send());
  EXPECT_THAT(reportsOf(chart.recorder), IsEmpty());
  EXPECT_EQ(typesOf(decodeContents(chart.got())), types);
  EXPECT_THAT(schemaErrors(inflated(onlyContent(decodeContents(chart.got()), 1).bytes)), IsEmpty());
}

TEST(FaultSweep, StartsFromASendInWhichNothingFails) {
  EXPECT_TRUE(goodSend().result);
  EXPECT_THAT(goodSend().reports, IsEmpty());
  EXPECT_EQ(typesOfMessages(goodSend().messages), wholeChart);
}

TEST(FaultSweep, HasEveryCallOfTheHostOnce) {
  std::multiset<std::pair<Operation, unsigned int>> swept;
  for (Call const& call : calls()) swept.emplace(call.operation, call.number);
  std::multiset<std::pair<Operation, unsigned int>> const made(goodSend().calls.begin(),
                                                               goodSend().calls.end());
  EXPECT_EQ(swept, made);
}

class FaultSweepOverCalls : public ::testing::TestWithParam<Call> {
 protected:
  FaultSweepOverCalls() : mStoresBefore(host::liveStores()) { chart.emplace(); }

  ~FaultSweepOverCalls() override {
    chart.reset();
    EXPECT_EQ(host::liveStores(), mStoresBefore);
  }

  std::size_t putsBefore() const { return goodSend().putsBefore(GetParam()); }

  /// What reaches the client around an ordinary exception.
  Types typesSent() const {
    switch (GetParam().outcome) {
      case Outcome::GivenUp:
        return firstTypes(putsBefore());
      case Outcome::Closed: {
        Types types = firstTypes(putsBefore());
        types.push_back(3);
        return types;
      }
      default:
        return wholeChart;
    }
  }

  /// The editor that the end record offers: that of files from the first one on that has gone out.
  std::uint64_t editor() const { return !isClosed() || putsBefore() >= 10 ? 2 : 1; }

  bool isClosed() const { return GetParam().outcome == Outcome::Closed; }

  bool isOnlyReported() const {
    return GetParam().outcome == Outcome::WithoutTemplate || GetParam().outcome == Outcome::WithoutStyleSheet;
  }

  std::size_t const mStoresBefore;
  std::optional<FullChart> chart;
};

TEST_P(FaultSweepOverCalls, AnOrdinaryExceptionIsReportedAndLeavesTheDocumentUsable) {
  chart->recorder.throwAt(GetParam().operation, GetParam().number, OrdinaryFailure());
  EXPECT_EQ(chart->send(), isOnlyReported());
  EXPECT_EQ(reportsOf(chart->recorder), reportsFor(GetParam().outcome));
  EXPECT_EQ(typesOfMessages(chart->got()), typesSent());
  expectUntouched(chart->got(), putsBefore());
  if (isClosed() || isOnlyReported()) {
    EXPECT_EQ(littleEndianAt(onlyContent(decodeContents(chart->got()), 3).bytes, 4, 4), editor());
  }
  // Only what gives the chart up keeps the store.
  expectSecondSend(*chart, GetParam().outcome == Outcome::GivenUp ? wholeChart : chartWithoutData);
}

TEST_P(FaultSweepOverCalls, TheHostsSignalPassesWithoutAReportAndLeavesTheDocumentUsable) {
  chart->recorder.throwAt(GetParam().operation, GetParam().number, VexaGoToCaller());
  EXPECT_THROW(chart->send(), VexaGoToCaller);
  EXPECT_THAT(reportsOf(chart->recorder), IsEmpty());
  EXPECT_EQ(typesOfMessages(chart->got()), firstTypes(putsBefore()));
  expectUntouched(chart->got(), putsBefore());
  expectSecondSend(*chart, wholeChart);
}

INSTANTIATE_TEST_SUITE_P(Steps, FaultSweepOverCalls, ValuesIn(calls()), [](auto const& test) {
  std::string name;
  for (char const letter : nameOf(test.param.operation)) {
    if (letter != ':' && letter != '_') name += letter;
  }
  return name + std::to_string(test.param.number);
});

/// A put that fails, and what comes of it.
struct FailedPut {
  unsigned int number;
  bool result;
  Types types;
  Reports reports;
};

void PrintTo(FailedPut const& put, std::ostream* out) { *out << "put " << put.number; }

class FaultSweepOverPuts : public ::testing::TestWithParam<FailedPut> {};

TEST_P(FaultSweepOverPuts, AFailureLeavesTheDocumentUsable) {
  FullChart chart;
  chart.recorder.failAt(Operation::IpcPutC, GetParam().number);
  EXPECT_EQ(chart.send(), GetParam().result);
  EXPECT_EQ(reportsOf(chart.recorder), GetParam().reports);
  EXPECT_EQ(typesOfMessages(chart.got()), GetParam().types);
  expectUntouched(chart.got(), GetParam().number - 1);
  expectSecondSend(chart, chartWithoutData);
}

/// The types of a whole chart without the n-th message.
Types without(unsigned int number) {
  Types types = wholeChart;
  types.erase(types.begin() + number - 1);
  return types;
}

INSTANTIATE_TEST_SUITE_P(
    Puts, FaultSweepOverPuts,
    ::testing::Values(FailedPut{1, false, {}, {"log: Failed to send chart description"}},
                      FailedPut{2, false, {0}, {"log: Failed to send chart description"}},
                      FailedPut{3, true, without(3), {}}, FailedPut{4, true, without(4), {}},
                      FailedPut{5, false, {0, 9, 2, 4, 3}, {"log: Failed to send chart XML"}},
                      FailedPut{6, true, without(6), {}},
                      FailedPut{7, true, without(7), {"log: Failed to send chart data"}},
                      FailedPut{8, true, without(8), {}}, FailedPut{9, true, without(9), {}},
                      FailedPut{10, true, without(10), {}}, FailedPut{11, true, without(11), {}},
                      FailedPut{12, false, without(12), {}},
                      FailedPut{13, false, without(13), {"log: Failed to send chart done message"}}),
    [](auto const& test) { return std::to_string(test.param.number); });

/// A call that fails without an exception, and what comes of it. Of all others nothing comes at all.
struct QuietFailure {
  Operation operation;
  unsigned int number;
  Types types;
  Reports reports;
};

std::vector<QuietFailure> const& quietFailures() {
  Types const oneFile{0, 9, 2, 4, 1, 5, 8, 10, 11, 6, 3};
  static std::vector<QuietFailure> const all{
      {Operation::LocaleName, 1, wholeChart, {"log: VexaMBDefaultLocaleName() returned empty string."}},
      {Operation::Fetch, 1, wholeChart, {"user: The specified template house.template was not found."}},
      // What is empty has no message.
      {Operation::CompressString, 1, {0, 9, 2, 5, 8, 10, 11, 6, 11, 6, 3}, {}},
      {Operation::GetDataStream, 2, chartWithoutData, {}},
      {Operation::Fetch, 2, oneFile, {"user: first.csv not a valid file name..."}},
      {Operation::Fetch, 3, oneFile, {"user: second.csv not a valid file name..."}}};
  return all;
}

QuietFailure failureOf(Call const& call) {
  for (QuietFailure const& row : quietFailures()) {
    if (row.operation == call.operation && row.number == call.number) return row;
  }
  return {call.operation, call.number, wholeChart, {}};
}

TEST(FaultSweep, OverQuietFailuresOfAllButPutsLosesWhatFailedAndNothingElse) {
  for (Call const& call : calls()) {
    if (call.operation == Operation::IpcPutC) continue;
    SCOPED_TRACE(std::string(nameOf(call.operation)) + " " + std::to_string(call.number));
    std::size_t const stores = host::liveStores();
    {
      QuietFailure const expected = failureOf(call);
      FullChart chart;
      chart.recorder.failAt(call.operation, call.number);
      EXPECT_TRUE(chart.send());
      EXPECT_EQ(reportsOf(chart.recorder), expected.reports);
      EXPECT_EQ(typesOfMessages(chart.got()), expected.types);
      EXPECT_EQ(chart.got().back(), goodSend().messages.back());
      expectSecondSend(chart, chartWithoutData);
    }
    EXPECT_EQ(host::liveStores(), stores);
  }
}

/// How many changes of the chart a send makes.
unsigned int changesOfASend() {
  FullChart chart;
  ChangeTrap const counter(chart.model, 1, [] {});
  chart.send();
  return counter.changes();
}

/// The n-th change of the chart runs the action; true where there is no such change.
bool sendWithTrap(FullChart& chart, unsigned int change, std::function<void()> const& action) {
  ChangeTrap const trap(chart.model, change, action);
  return chart.send();
}

TEST(FaultSweep, OverChangesOfTheChartReportsAnOrdinaryExceptionAndLeavesTheDocumentUsable) {
  unsigned int const changes = changesOfASend();
  ASSERT_GT(changes, 10u);
  for (unsigned int change = 1; change <= changes; ++change) {
    SCOPED_TRACE("change " + std::to_string(change));
    std::size_t const stores = host::liveStores();
    {
      FullChart chart;
      EXPECT_FALSE(sendWithTrap(chart, change, throwOrdinaryFailure()));
      EXPECT_EQ(reportsOf(chart.recorder), reportsFor(Outcome::GivenUp));
      EXPECT_THAT(chart.got(), IsEmpty());
      expectSecondSend(chart, wholeChart);
    }
    EXPECT_EQ(host::liveStores(), stores);
    if (::testing::Test::HasFailure()) return;
  }
}

TEST(FaultSweep, OverChangesOfTheChartLetsTheHostsSignalPassAndLeavesTheDocumentUsable) {
  unsigned int const changes = changesOfASend();
  for (unsigned int change = 1; change <= changes; ++change) {
    SCOPED_TRACE("change " + std::to_string(change));
    FullChart chart;
    EXPECT_THROW(sendWithTrap(chart, change, throwGoToCaller()), VexaGoToCaller);
    EXPECT_THAT(reportsOf(chart.recorder), IsEmpty());
    EXPECT_THAT(chart.got(), IsEmpty());
    expectSecondSend(chart, wholeChart);
    if (::testing::Test::HasFailure()) return;
  }
}

}  // namespace
}  // namespace kestrel::test
