// A chart whose contents take several messages each, with each message failing in turn.

#include "chart_test.h"
#include "full_chart.h"
#include "wire_decoder.h"
#include "xgraph.h"

#include "host/messages.h"
#include "kestrelhost/data_store.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Message;
using host::Operation;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// Two full chunks, and more.
constexpr std::size_t longSize = 80'000;

/// Letters that no compression makes few.
std::u16string noise(std::size_t size) {
  std::mt19937 numbers(1);
  std::u16string text(size, u' ');
  for (char16_t& letter : text) letter = static_cast<char16_t>(u'A' + numbers() % 26);
  return text;
}

struct LongChart : FullChart {
  LongChart() {
    XVariable const column = document.getGraph()->AddAggregatedVariable(*source, false, ChartString(u"long"));
    for (int row = 0; row < 2'000; ++row) source->AddRow()->addDataValue(column, row + 0.5);
    document.SetDescription(std::u16string(longSize, u'd').c_str());
    document.SetComment(noise(2 * longSize).c_str());
    document.setLUMOMap("regions", std::string(longSize, 'm'));
    for (auto const& name : {"first.csv", "second.csv"})
      services.files->content[name] = std::string(longSize, 'c');
  }
};

/// A content of a send in which nothing fails, and its messages in that send.
struct SentContent {
  std::uint32_t type;
  std::size_t first;
  std::size_t count;

  std::size_t end() const { return first + count; }
};

class LongContents : public ::testing::Test {
 protected:
  LongContents() {
    LongChart chart;
    EXPECT_TRUE(chart.send());
    good = chart.got();
    for (DecodedContent const& content : decodeContents(good)) {
      std::size_t const first = contents.empty() ? 0 : contents.back().end();
      contents.push_back({content.type, first, content.chunkSizes.size()});
    }
  }

  SentContent const& contentOf(std::size_t message) const {
    return *std::find_if(contents.begin(), contents.end(),
                         [&](SentContent const& content) { return message < content.end(); });
  }

  SentContent const& last() const { return contents.back(); }

  /// Behind the first file.
  std::size_t endOfAFile() const {
    return std::find_if(contents.begin(), contents.end(),
                        [](SentContent const& content) { return content.type == 6; })
        ->end();
  }

  /// The messages before that one, and those from another one on.
  std::vector<Message> without(std::size_t from, std::size_t to) const {
    std::vector<Message> messages(good.begin(), good.begin() + std::ptrdiff_t(from));
    messages.insert(messages.end(), good.begin() + std::ptrdiff_t(to), good.end());
    return messages;
  }

  /// What arrives where a message fails: its content is given up, and what stands on it.
  std::vector<Message> arriving(std::size_t message) const {
    SentContent const& content = contentOf(message);
    if (content.type == 0 || content.type == 9) return without(message, good.size());
    if (content.type == 1) return without(message, last().first);
    return without(message, content.end());
  }

  /// Whatever comes behind a failure hides it, but for these.
  bool resultOf(std::size_t message) const {
    SentContent const& content = contentOf(message);
    bool const isLastFile = content.type == 6 && content.end() == last().first;
    constexpr std::uint32_t deciding[] = {0, 9, 1, 3};
    return !isLastFile && std::count(std::begin(deciding), std::end(deciding), content.type) == 0;
  }

  static std::vector<std::string> reportsOf(std::uint32_t type) {
    static std::map<std::uint32_t, std::string> const reports{{0, "Failed to send chart description"},
                                                              {9, "Failed to send chart description"},
                                                              {1, "Failed to send chart XML"},
                                                              {8, "Failed to send chart data"},
                                                              {3, "Failed to send chart done message"}};
    auto const found = reports.find(type);
    return found == reports.end() ? std::vector<std::string>() : std::vector{found->second};
  }

  /// What an exception leaves: nothing more from outside the inner guard, else the end record.
  std::vector<Message> arrivingAroundException(std::size_t message) const {
    return without(message, isGuardedInside(message) ? last().first : good.size());
  }

  bool isGuardedInside(std::size_t message) const {
    std::uint32_t const type = contentOf(message).type;
    return type != 0 && type != 9 && type != 3;
  }

  /// The same messages; of those that the day is part of, the same types. An end record tells the editor.
  static void expectMessages(std::vector<Message> const& got, std::vector<Message> const& expected,
                             std::uint32_t editor) {
    ASSERT_THAT(got, SizeIs(expected.size()));
    for (std::size_t at = 0; at < got.size(); ++at) {
      std::uint32_t const type = decodeMessage(expected[at]).type;
      EXPECT_EQ(decodeMessage(got[at]).type, type) << at;
      bool const differs = type == 1 || type == 2 || type == 4 || type == 3;
      EXPECT_TRUE(differs || got[at] == expected[at]) << at;
      if (type == 3) {
        EXPECT_EQ(endRecord(decodeContents(got)), (EndRecord{0, editor}));
      }
    }
  }

  /// Makes the chart anew for every message of it, for the sweep to let that one fail.
  template <typename Sweep>
  void overEveryMessage(Sweep sweep) {
    std::size_t const stores = host::liveStores();
    for (std::size_t message = 0; message < good.size() && !HasFailure(); ++message) {
      SCOPED_TRACE("message " + std::to_string(message + 1));
      LongChart chart;
      sweep(chart, message);
    }
    EXPECT_EQ(host::liveStores(), stores);
  }

  std::vector<Message> good;
  std::vector<SentContent> contents;
};

unsigned int putOf(std::size_t message) { return static_cast<unsigned int>(message + 1); }

TEST_F(LongContents, TakeSeveralMessagesEachButForNamesAndTheEndRecord) {
  std::vector<std::uint32_t> types;
  for (SentContent const& content : contents) {
    types.push_back(content.type);
    bool const isShort = content.type == 11 || content.type == 3;
    EXPECT_TRUE(isShort ? content.count == 1 : content.count > 1) << content.type;
  }
  EXPECT_EQ(types, (std::vector<std::uint32_t>{0, 9, 2, 4, 1, 5, 8, 10, 11, 6, 11, 6, 3}));
}

TEST_F(LongContents, AreGivenUpFromAFailedMessageOn) {
  overEveryMessage([this](LongChart& chart, std::size_t message) {
    chart.recorder.failAt(Operation::IpcPutC, putOf(message));
    EXPECT_EQ(chart.send(), resultOf(message));
    EXPECT_EQ(chart.recorder.failures(), reportsOf(contentOf(message).type));
    EXPECT_THAT(chart.recorder.userMessages(), IsEmpty());
    // The editor of files, wherever the chart comes to its files.
    expectMessages(chart.got(), arriving(message), contentOf(message).type == 1 ? 1 : 2);
  });
}

TEST_F(LongContents, EndTheChartWhereAMessageThrows) {
  overEveryMessage([this](LongChart& chart, std::size_t message) {
    chart.recorder.throwAt(Operation::IpcPutC, putOf(message), OrdinaryFailure());
    EXPECT_FALSE(chart.send());
    char const* const report =
        isGuardedInside(message) ? "Failed to send chart XML or data" : "Failed to send chart.";
    EXPECT_EQ(chart.recorder.failures(), std::vector<std::string>{report});
    EXPECT_THAT(chart.recorder.userMessages(), SizeIs(isGuardedInside(message) ? 0 : 1));
    expectMessages(chart.got(), arrivingAroundException(message), message < endOfAFile() ? 1 : 2);
  });
}

TEST_F(LongContents, EndWhereTheHostUnwinds) {
  overEveryMessage([this](LongChart& chart, std::size_t message) {
    chart.recorder.throwAt(Operation::IpcPutC, putOf(message), VexaGoToCaller());
    EXPECT_THROW(chart.send(), VexaGoToCaller);
    EXPECT_THAT(chart.recorder.failures(), IsEmpty());
    EXPECT_THAT(chart.recorder.userMessages(), IsEmpty());
    expectMessages(chart.got(), without(message, good.size()), 0);
  });
}

}  // namespace
}  // namespace kestrel::test
