#include "support/failure.h"

#include "chart_test.h"

#include "host/log.h"
#include "host/messages.h"

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedCell;
using host::RecordedMessage;

class Failure : public ChartTest {
 protected:
  /// What `action` throws.
  template <typename Action>
  static ChartException thrownBy(Action action) {
    try {
      action();
    } catch (ChartException const& failure) {
      return failure;
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
  }
};

TEST_F(Failure, ThatIsReportedAndThrownIsLoggedBeforeItIsThrown) {
  std::size_t loggedWhenCaught = 0;
  try {
    reportAndThrow("nothing to work with");
  } catch (ChartException const&) {
    loggedWhenCaught = recorder.count(Operation::Error);
  }
  EXPECT_EQ(loggedWhenCaught, 1u);
  EXPECT_EQ(recorder.failures(), std::vector<std::string>{"nothing to work with"});
}

TEST_F(Failure, ThatIsReportedAndThrownIsThrownByValueWithItsMessage) {
  EXPECT_EQ(thrownBy([] { reportAndThrow("nothing to work with"); }).message(), "nothing to work with");
}

TEST_F(Failure, ThatIsReportedAndThrownIsNotShownToTheUser) {
  EXPECT_THROW(reportAndThrow("nothing to work with"), ChartException);
  EXPECT_EQ(recorder.count(Operation::BpError), 0u);
}

TEST_F(Failure, ThatIsReportedAndThrownNamesThePlaceOfTheCallInBoth) {
  unsigned int const line = __LINE__ + 1;
  ChartException const thrown = thrownBy([] { reportAndThrow("nothing to work with"); });
  EXPECT_EQ(thrown.file(), __FILE__);
  EXPECT_EQ(thrown.line(), line);
  EXPECT_EQ(recorder.entries(Operation::Error).front().text("file"), __FILE__);
  EXPECT_EQ(recorder.entries(Operation::Error).front().number("line"), line);
}

TEST_F(Failure, ThatIsOnlyThrownIsNotLogged) {
  EXPECT_EQ(thrownBy([] { throwFailure("not found"); }).message(), "not found");
  EXPECT_TRUE(recorder.entries().empty());
}

TEST_F(Failure, IsLoggedWithMessageFileAndLine) {
  logFailure("went wrong", "somewhere.cpp", 12);
  auto const entries = recorder.entries();
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].line(),
            "ChartErrorHandler::error(message=\"went wrong\", file=\"somewhere.cpp\", line=12)");
}

TEST_F(Failure, OfAMissingObjectIsAnExceptionThatNamesIt) {
  int* const nothing = nullptr;
  EXPECT_EQ(thrownBy([&] { present(nothing, "axis"); }).message(), "There is no axis");
  EXPECT_TRUE(recorder.entries().empty());
}

TEST_F(Failure, IsNoneWhereTheObjectIsThere) {
  int object = 1;
  EXPECT_EQ(&present(&object, "axis"), &object);
}

TEST_F(Failure, IsToldToTheUserAsAFixedText) {
  tellUser("Chart XML Send Error");
  EXPECT_EQ(recorder.userMessages(),
            (std::vector<RecordedMessage>{{"Chart XML Send Error", true, "", {}, 2, 2}}));
}

TEST_F(Failure, IsToldToTheUserWithADetailThatIsNotFixed) {
  tellUser("PDL error ^1", "bad line");
  EXPECT_EQ(recorder.userMessages(),
            (std::vector<RecordedMessage>{
                {"PDL error bad line", true, "PDL error ^1", {RecordedCell{"bad line", false}}, 2, 2}}));
}

TEST_F(Failure, IsToldToTheUserAsGravelyAsItIsSaidWithADetailOfTheSystem) {
  tellUser("Failed... ^1.", BpString("no reply", true), BpLevelSevere);
  EXPECT_EQ(recorder.userMessages(),
            (std::vector<RecordedMessage>{
                {"Failed... no reply.", true, "Failed... ^1.", {RecordedCell{"no reply", true}}, 2, 3}}));
}

TEST_F(Failure, KeepsAPlaceholderThatStandsInTheDetail) {
  tellUser("PDL error ^1", "^1 and ^2");
  EXPECT_EQ(recorder.userMessages().front().text, "PDL error ^1 and ^2");
}

}  // namespace
}  // namespace kestrel::test
