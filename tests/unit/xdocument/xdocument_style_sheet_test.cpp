// The style sheet's pass over the finished chart text.

#include "xdocument.h"

#include "chart_test.h"
#include "document_record.h"
#include "story.h"

#include "host/java.h"
#include "host/messages.h"
#include "kestrelhost/compression.h"
#include "model/document.h"

#include <gmock/gmock.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedCell;
using host::RecordedMessage;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class StyleSheet : public ChartTest {
 protected:
  StyleSheet() {
    document.setStyleSheet("house style", "<sheet/>");
    recorder.services().java->styleSheets = [this](std::string const&, std::string const&) { return reply; };
    recorder.clear();
  }

  /// The chart text "<chart/>" as the style sheet leaves it.
  std::string reworked() {
    std::string text = "<chart/>";
    EXPECT_FALSE(recordOf(document).applyStyleSheet(text));
    return text;
  }

  std::string sentText() {
    std::string text;
    EXPECT_TRUE(host::decompress(payloadOf(recorder, CXT_XML), text));
    return text;
  }

  std::string reply = "<styled/>";
  LumoDocument model;
  XDocument document{model};
};

TEST_F(StyleSheet, IsGivenTheTextBetweenTwoLinesOfTrace) {
  reworked();
  EXPECT_THAT(recorder.lines(),
              ElementsAre("ChartBase::printDebugInfo(line=\"Before calling applyStyleSheet()\")",
                          "plotDeskConverter::applyStyleSheet(styleSheet=\"<sheet/>\", chart=\"<chart/>\")",
                          "ChartBase::printDebugInfo(line=\"After calling applyStyleSheet()\")"));
}

TEST_F(StyleSheet, ReplacesTheText) { EXPECT_EQ(reworked(), "<styled/>"); }

TEST_F(StyleSheet, ThatGivesNothingLeavesTheText) {
  reply = "";
  EXPECT_EQ(reworked(), "<chart/>");
  EXPECT_THAT(recorder.trace(),
              ElementsAre("Before calling applyStyleSheet()", "After calling applyStyleSheet()"));
  expectNoReport(recorder);
}

TEST_F(StyleSheet, MayGiveATextOfNoughts) {
  reply = std::string("\0", 1);
  EXPECT_EQ(reworked(), reply);
}

TEST_F(StyleSheet, ThatIsEmptyAsksTheHostForNothing) {
  document.setStyleSheet("house style", "");
  recorder.clear();
  EXPECT_EQ(reworked(), "<chart/>");
  EXPECT_THAT(recorder.entries(), IsEmpty());
}

TEST_F(StyleSheet, OfADocumentThatHasNoneAsksTheHostForNothing) {
  XDocument plain;
  std::string text = "<chart/>";
  recorder.clear();
  EXPECT_FALSE(recordOf(plain).applyStyleSheet(text));
  EXPECT_EQ(text, "<chart/>");
  EXPECT_THAT(recorder.entries(), IsEmpty());
}

struct Failure {
  char const* name;
  std::function<void()> raise;
};

void PrintTo(Failure const& failure, std::ostream* out) { *out << failure.name; }

class FailingStyleSheet : public StyleSheet, public ::testing::WithParamInterface<Failure> {
 protected:
  FailingStyleSheet() { recorder.actAt(Operation::ApplyStyleSheet, 1, GetParam().raise); }
};

TEST_P(FailingStyleSheet, IsToldToTheUserAndThenToTheLog) {
  EXPECT_EQ(reworked(), "<chart/>");
  EXPECT_THAT(storyOf(recorder),
              ElementsAre("trace: Before calling applyStyleSheet()", "plotDeskConverter::applyStyleSheet",
                          "user: Error occurred while applying a stylesheet house style.",
                          "log: Error in XDocument::applyStyleSheet() - house style"));
  EXPECT_EQ(recorder.userMessages(),
            (std::vector<RecordedMessage>{{"Error occurred while applying a stylesheet house style.",
                                           true,
                                           "Error occurred while applying a stylesheet ^1.",
                                           {RecordedCell{"house style", false}},
                                           2,
                                           2}}));
}

TEST_P(FailingStyleSheet, DoesNotKeepTheChartFromTheClient) {
  EXPECT_TRUE(document.SendChart(false, true, false));
  EXPECT_EQ(sentText(), document.AsUTF8());
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 3));
  EXPECT_THAT(recorder.failures(), ElementsAre("Error in XDocument::applyStyleSheet() - house style"));
}

INSTANTIATE_TEST_SUITE_P(Kinds, FailingStyleSheet,
                         ::testing::Values(Failure{"OfAnyKind", [] { throw OrdinaryFailure(); }},
                                           Failure{"Standard", [] { throw std::runtime_error("no engine"); }},
                                           Failure{"OfTheJavaSide", [] { throw JException("no class"); }},
                                           Failure{"OfTheJavaSideByPointer",
                                                   [] {
                                                     static JException kept("no class");
                                                     throw &kept;
                                                   }}),
                         [](auto const& test) { return std::string(test.param.name); });

TEST_F(StyleSheet, WithoutANameFailsWithNothingInItsPlace) {
  document.setStyleSheet("", "<sheet/>");
  recorder.throwAt(Operation::ApplyStyleSheet, 1, OrdinaryFailure());
  reworked();
  EXPECT_EQ(recorder.userMessages().at(0).text, "Error occurred while applying a stylesheet .");
  EXPECT_THAT(recorder.failures(), ElementsAre("Error in XDocument::applyStyleSheet() - "));
}

TEST_F(StyleSheet, ShowsItsNameAsItIs) {
  document.setStyleSheet("50 % ^1", "<sheet/>");
  recorder.throwAt(Operation::ApplyStyleSheet, 1, OrdinaryFailure());
  reworked();
  EXPECT_EQ(recorder.userMessages().at(0).text, "Error occurred while applying a stylesheet 50 % ^1.");
}

TEST_F(StyleSheet, ReportsAFailureOfTheTraceBeforeItToo) {
  recorder.throwAt(Operation::PrintDebugInfo, 1, OrdinaryFailure());
  EXPECT_EQ(reworked(), "<chart/>");
  EXPECT_EQ(recorder.count(Operation::ApplyStyleSheet), 0u);
  EXPECT_THAT(recorder.failures(), ElementsAre("Error in XDocument::applyStyleSheet() - house style"));
}

TEST_F(StyleSheet, KeepsWhatItGaveWhereTheTraceBehindItFails) {
  recorder.throwAt(Operation::PrintDebugInfo, 2, OrdinaryFailure());
  EXPECT_EQ(reworked(), "<styled/>");
  EXPECT_THAT(recorder.failures(), ElementsAre("Error in XDocument::applyStyleSheet() - house style"));
}

TEST_F(StyleSheet, LetsTheHostsSignalThrough) {
  recorder.throwAt(Operation::ApplyStyleSheet, 1, VexaGoToCaller());
  std::string text = "<chart/>";
  EXPECT_THROW(recordOf(document).applyStyleSheet(text), VexaGoToCaller);
  EXPECT_EQ(text, "<chart/>");
  expectNoReport(recorder);
}

TEST_F(StyleSheet, LetsTheHostsSignalThroughTheSendBeforeAnythingGoesOut) {
  recorder.throwAt(Operation::ApplyStyleSheet, 1, VexaGoToCaller());
  EXPECT_THROW(document.SendChart(false, true, false), VexaGoToCaller);
  EXPECT_THAT(typesOf(recorder), IsEmpty());
  expectNoReport(recorder);
}

TEST_F(StyleSheet, ReworksTheTextThatIsSentAndNotTheChart) {
  std::string given;
  recorder.services().java->styleSheets = [&](std::string const&, std::string const& chart) {
    given = chart;
    return reply;
  };
  EXPECT_TRUE(document.SendChart(false, true, false));
  EXPECT_EQ(sentText(), "<styled/>");
  EXPECT_EQ(document.AsUTF8(), given);
  EXPECT_THAT(given, HasSubstr("type=\"31000000\""));
}

TEST_F(StyleSheet, ThatGivesNothingSendsTheChartAsItStands) {
  reply = "";
  EXPECT_TRUE(document.SendChart(false, true, false));
  EXPECT_EQ(sentText(), document.AsUTF8());
}

TEST_F(StyleSheet, IsAppliedAgainAtASecondSend) {
  document.SendChart(false, true, false);
  document.SendChart(false, true, false);
  EXPECT_EQ(recorder.count(Operation::ApplyStyleSheet), 2u);
}

TEST_F(StyleSheet, IsAppliedBeforeTheFirstMessage) {
  document.SetDescription(u"Heights");
  document.SendChart(false, true, false);
  auto const story = storyOf(recorder);
  ASSERT_GE(story.size(), 4u);
  EXPECT_THAT(std::vector(story.begin(), story.begin() + 4),
              ElementsAre("trace: Before calling applyStyleSheet()", "plotDeskConverter::applyStyleSheet",
                          "trace: After calling applyStyleSheet()", "put 0"));
}

}  // namespace
}  // namespace kestrel::test
