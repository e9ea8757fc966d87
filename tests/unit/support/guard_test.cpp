#include "support/guard.h"

#include "chart_test.h"

#include "host/java.h"
#include "host/log.h"
#include "host/messages.h"

#include <xercesc/dom/DOMException.hpp>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;

constexpr char context[] = "Error in XClass::method()";

class Guard : public ChartTest {};
class GuardThatOnlyLogs : public ChartTest {};

/// Counts its copies, so that a test can tell the object that was thrown from one made of it.
struct MarkedSignal : VexaGoToCaller {
  explicit MarkedSignal(int& counter) : copies(counter) {}
  MarkedSignal(MarkedSignal const& other) : VexaGoToCaller(other), copies(other.copies) { ++copies; }
  int& copies;
};

TEST_F(Guard, ReportsNothingWhenTheBodySucceeds) {
  int runs = 0;
  guarded(context, [&] { ++runs; });
  EXPECT_EQ(runs, 1);
  EXPECT_TRUE(recorder.entries().empty());
}

TEST_F(Guard, TellsTheUserFirstAndThenTheLogAndGoesOn) {
  EXPECT_NO_THROW(guarded(context, [] { throw OrdinaryFailure(); }));
  expectGuardReport(recorder, context);
}

TEST_F(Guard, ReportsWhateverIsThrownInTheSameWay) {
  static JException javaFailure("text of its own");
  std::vector<std::function<void()>> const failures = {
      [] { throw 1; },
      [] { throw "text of its own"; },
      [] { throw std::runtime_error("text of its own"); },
      [] { throw ChartException("text of its own", "file", 1); },
      [] { throw xercesc::DOMException(xercesc::DOMException::SYNTAX_ERR); },
      [] { throw JException("text of its own"); },
      [] { throw &javaFailure; },  // NOLINT(misc-throw-by-value-catch-by-reference)
  };
  for (auto const& fail : failures) {
    recorder.clear();
    guarded(context, fail);
    expectGuardReport(recorder, context);
  }
}

TEST_F(Guard, LogsThePlaceOfTheGuardedCall) {
  unsigned int const line = __LINE__ + 1;
  guarded(context, [] { throw OrdinaryFailure(); });
  auto const entries = recorder.entries(Operation::Error);
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].text("file"), __FILE__);
  EXPECT_EQ(entries[0].number("line"), line);
}

TEST_F(Guard, LetsTheHostsSignalThroughWithoutAReport) {
  EXPECT_THROW(guarded(context, [] { throw VexaGoToCaller(); }), VexaGoToCaller);
  EXPECT_TRUE(recorder.entries().empty());
}

TEST_F(Guard, LetsTheVeryObjectOfTheSignalThrough) {
  int copies = 0;
  MarkedSignal const* thrown = nullptr;
  MarkedSignal const* caught = nullptr;
  int copiesWhenThrown = -1;
  try {
    guarded(context, [&] {
      try {
        throw MarkedSignal(copies);
      } catch (MarkedSignal const& signal) {
        thrown = &signal;
        copiesWhenThrown = copies;
        throw;
      }
    });
  } catch (MarkedSignal const& signal) {
    caught = &signal;
  }
  EXPECT_NE(caught, nullptr);
  EXPECT_EQ(caught, thrown);
  EXPECT_EQ(copies, copiesWhenThrown);
}

TEST_F(Guard, KeepsWhatTheBodyHadStoredBeforeItFailed) {
  int result = 0;
  guarded(context, [&] {
    result = 7;
    throw OrdinaryFailure();
  });
  EXPECT_EQ(result, 7);
}

TEST_F(Guard, LogsAFailureThatTheBodyReportedItselfASecondTime) {
  guarded(context, [] { reportAndThrow("the body's own message"); });
  EXPECT_EQ(recorder.failures(), (std::vector<std::string>{"the body's own message", context}));
  EXPECT_EQ(recorder.userMessages().size(), 1u);
}

TEST_F(Guard, OfTwoNestedOnesOnlyTheInnerReports) {
  bool wentOn = false;
  guarded("Error in XOuter::method()", [&] {
    guarded(context, [] { throw OrdinaryFailure(); });
    wentOn = true;
  });
  EXPECT_TRUE(wentOn);
  expectGuardReport(recorder, context);
}

TEST_F(Guard, DoesNotHoldAFailureOfTheUserMessage) {
  recorder.throwAt(Operation::BpError, 1, std::runtime_error("no user"));
  EXPECT_THROW(guarded(context, [] { throw OrdinaryFailure(); }), std::runtime_error);
  EXPECT_EQ(recorder.count(Operation::Error), 0u);
}

TEST_F(Guard, DoesNotHoldAFailureOfTheLog) {
  recorder.throwAt(Operation::Error, 1, std::runtime_error("no log"));
  EXPECT_THROW(guarded(context, [] { throw OrdinaryFailure(); }), std::runtime_error);
  EXPECT_EQ(recorder.count(Operation::BpError), 1u);
}

TEST_F(Guard, DoesNotHoldASignalOfTheUserMessage) {
  recorder.throwAt(Operation::BpError, 1, VexaGoToCaller());
  EXPECT_THROW(guarded(context, [] { throw OrdinaryFailure(); }), VexaGoToCaller);
}

TEST_F(GuardThatOnlyLogs, TellsTheLogAndNotTheUser) {
  EXPECT_NO_THROW(guardedLogOnly("Failed to set something", [] { throw OrdinaryFailure(); }));
  EXPECT_EQ(recorder.failures(), std::vector<std::string>{"Failed to set something"});
  EXPECT_TRUE(recorder.userMessages().empty());
}

TEST_F(GuardThatOnlyLogs, ReportsNothingWhenTheBodySucceeds) {
  int runs = 0;
  guardedLogOnly("Failed to set something", [&] { ++runs; });
  EXPECT_EQ(runs, 1);
  EXPECT_TRUE(recorder.entries().empty());
}

TEST_F(GuardThatOnlyLogs, LetsTheHostsSignalThroughWithoutAReport) {
  EXPECT_THROW(guardedLogOnly("Failed to set something", [] { throw VexaGoToCaller(); }), VexaGoToCaller);
  EXPECT_TRUE(recorder.entries().empty());
}

TEST_F(GuardThatOnlyLogs, DoesNotHoldAFailureOfTheLog) {
  recorder.throwAt(Operation::Error, 1, std::runtime_error("no log"));
  EXPECT_THROW(guardedLogOnly("Failed to set something", [] { throw OrdinaryFailure(); }),
               std::runtime_error);
}

}  // namespace
}  // namespace kestrel::test
