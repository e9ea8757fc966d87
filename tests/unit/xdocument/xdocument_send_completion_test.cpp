// The completion of a chart that is sent.

#include "xdocument.h"

#include "completion_fixture.h"
#include "document_record.h"

#include "host/data_store.h"
#include "host/messages.h"
#include "kestrelhost/compression.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedMessage;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// A chart with a hidden outer frame, whose templates give it a name.
class SentCompletion : public CompletionTest {
 protected:
  SentCompletion() {
    document.SetDescription(u"Heights");
    document.SetOuterFrame(XDocument::TemplParamHide);
    engine->application = [](LumoVisualization& chart, std::string const&) { chart.setName(u"applied"); };
    recorder.clear();
  }

  bool send() { return document.SendChart(false, false, false); }

  /// The chart text that went to the client last.
  std::string sentText() const {
    std::string compressed;
    for (SentMessage const& message : messagesOf(recorder)) {
      if (message.type == CXT_XML) compressed = message.payload;
    }
    std::string text;
    EXPECT_TRUE(host::decompress(compressed, text));
    return text;
  }

  std::ptrdiff_t placeOf(std::string const& line) const {
    auto const told = story();
    auto const found = std::find(told.begin(), told.end(), line);
    EXPECT_NE(found, told.end()) << line;
    return found - told.begin();
  }
};

TEST_F(SentCompletion, MakesTheTextThatGoesToTheClient) {
  EXPECT_TRUE(send());
  EXPECT_EQ(sentText(), model.AsUTF8());
  EXPECT_THAT(sentText(), HasSubstr("name=\"applied\""));
  EXPECT_THAT(sentText(), HasSubstr("lang=\"en-US\""));
  EXPECT_EQ(fragments().size(), 1u);
}

TEST_F(SentCompletion, IsBetweenTheStampAndTheFirstMessage) {
  std::string description;
  recorder.actAt(Operation::PrintDebugInfo, 1,
                 [&] { description = attribute(&visualization, u"description"); });
  EXPECT_TRUE(send());
  EXPECT_EQ(recorder.trace().front(), "Start Applying Templates");
  EXPECT_EQ(description, "Heights");
  EXPECT_LT(placeOf("trace: Done Applying Templates"), placeOf("apply"));
  EXPECT_LT(placeOf("apply"), placeOf("put 0"));
}

TEST_F(SentCompletion, IsLeftOutWhereTheChartIsComplete) {
  for (bool const ignored : {false, true}) {
    EXPECT_TRUE(document.SendChart(ignored, true, false));
    EXPECT_THAT(fragments(), IsEmpty());
    EXPECT_THAT(recorder.trace(), Not(::testing::Contains("Start Applying Templates")));
    EXPECT_EQ(attribute(&visualization, u"lang"), "(absent)");
    EXPECT_EQ(attribute(&visualization, u"type"), "31000000");
  }
}

TEST_F(SentCompletion, IsTheSameWhateverTheFirstFlagSays) {
  EXPECT_TRUE(document.SendChart(true, false, false));
  EXPECT_EQ(fragments().size(), 1u);
  EXPECT_EQ(attribute(&visualization, u"lang"), "en-US");
  EXPECT_NE(attribute(&visualization, u"date"), "(absent)");
}

TEST_F(SentCompletion, IsDoneAgainAtASecondSend) {
  send();
  visualization.setName(u"changed");
  recorder.clear();
  EXPECT_TRUE(send());
  EXPECT_EQ(fragments().size(), 1u);
  EXPECT_THAT(sentText(), HasSubstr("name=\"applied\""));
}

TEST_F(SentCompletion, OfAProtectedChartAppliesWhatTheCallerAskedFor) {
  document.doNotModify(true);
  EXPECT_TRUE(send());
  EXPECT_EQ(fragments().size(), 1u);
  EXPECT_THAT(sentText(), HasSubstr("name=\"applied\""));
  EXPECT_EQ(attribute(&visualization, u"lang"), "(absent)");
  EXPECT_EQ(attribute(&visualization, u"type"), "(absent)");
}

TEST_F(SentCompletion, WithAUserTemplateThatFailsStillGoesOut) {
  services.files->content["u1"] = "<u1/>";
  document.SetChartTemplate("u1");
  recorder.throwAt(Operation::ApplyTemplate, 1, OrdinaryFailure());
  EXPECT_TRUE(send());
  EXPECT_THAT(reports(), ElementsAre("log: Failure occurred while applying user template: u1",
                                     "user: An error occurred while applying a chart template"));
  EXPECT_THAT(typesOf(recorder), ElementsAre(0, 9, 2, 4, 1, 3));
}

class FailedCompletion : public SentCompletion, public ::testing::WithParamInterface<FailingStep> {
 protected:
  FailedCompletion() {
    document.SetChartData(&store);
    recorder.clear();
  }

  VarDataProcessor store;
};

TEST_P(FailedCompletion, IsReportedAndNothingGoesOut) {
  recorder.throwAt(GetParam().operation, GetParam().call, OrdinaryFailure());
  EXPECT_FALSE(send());
  EXPECT_THAT(reports(), ElementsAre("log: Failed to send chart.", "user: Chart XML Send Error"));
  EXPECT_EQ(recorder.userMessages(),
            (std::vector<RecordedMessage>{{"Chart XML Send Error", true, "", {}, 2, 2}}));
  EXPECT_THAT(messagesOf(recorder), IsEmpty());
  EXPECT_EQ(recordOf(document).mChartData, &store);
}

TEST_P(FailedCompletion, LetsTheHostsSignalThroughWithoutAReport) {
  recorder.throwAt(GetParam().operation, GetParam().call, VexaGoToCaller());
  EXPECT_THROW(send(), VexaGoToCaller);
  EXPECT_THAT(reports(), IsEmpty());
  EXPECT_THAT(messagesOf(recorder), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Steps, FailedCompletion,
                         ::testing::Values(FailingStep{"Language", Operation::LocaleName, 1},
                                           FailingStep{"Chain", Operation::PackFrames, 1},
                                           FailingStep{"OuterFrame", Operation::SetTemplate, 1},
                                           FailingStep{"OuterFramesEffect", Operation::ApplyTemplate, 1}),
                         nameOfStep);

TEST_F(SentCompletion, OfAnEmptyDocumentIsNone) {
  XDocument empty{std::string()};
  empty.SetOuterFrame(XDocument::TemplParamShow);
  recorder.clear();
  EXPECT_FALSE(empty.SendChart(false, false, false));
  EXPECT_EQ(recorder.count(Operation::StartTemplate), 0u);
}

}  // namespace
}  // namespace kestrel::test
