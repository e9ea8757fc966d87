// Immediate and user templates.

#include "xdocument.h"

#include "chart_test.h"
#include "template_fixture.h"

#include "host/log.h"
#include "host/messages.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedCell;
using host::RecordedDump;
using host::RecordedMessage;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- Immediate templates

using ImmediateTemplate = TemplateTest;

TEST_F(ImmediateTemplate, IsSetAndAppliedOnTheChartWithoutABaseline) {
  EXPECT_TRUE(document.applyImmediateTemplate("<i/>"));
  ASSERT_EQ(engine->starts.size(), 1u);
  EXPECT_EQ(engine->starts[0].working, &visualization);
  EXPECT_EQ(engine->starts[0].baseline, nullptr);
  EXPECT_EQ(engine->calls.size(), 2u);
  EXPECT_EQ(engine->calls.back(), "1 applies");
}

TEST_F(ImmediateTemplate, StandsInTheRootElementThatTemplatesHave) {
  document.applyImmediateTemplate("<i/>");
  EXPECT_THAT(
      linesOf("set "),
      ElementsAre(
          "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?><template Vexa-Version=\"2.10\" "
          "xmlns=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization\" "
          "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
          "xsi:schemaLocation=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization "
          "http://xml.vexa.example/software/analytics/vexa/xml/visualization/"
          "lumoml-template-3.5.xsd\"><i/></template>"));
}

TEST_F(ImmediateTemplate, TakesTheFragmentAsItIs) {
  document.applyImmediateTemplate("a & <b");
  EXPECT_TRUE(linesOf("set ").at(0).ends_with("xsd\">a & <b</template>"));
}

TEST_F(ImmediateTemplate, TakesItsStepsInTheirOrder) {
  document.applyImmediateTemplate("<i/>");
  auto const set = linesOf("set ");
  ASSERT_EQ(set.size(), 1u);
  EXPECT_THAT(story(),
              ElementsAre("dump wanted? type 2", "start without baseline", "dump itemplate_0.qtp type 6",
                          "set " + set[0], "apply", "dump wanted? type 3"));
}

TEST_F(ImmediateTemplate, DumpsTheChartOnBothSidesWhereThatIsWanted) {
  wantDumps();
  engine->application = [](LumoVisualization& chart, std::string const&) { chart.setName(u"new"); };
  std::string const before = model.AsUTF8();
  document.applyImmediateTemplate("<i/>");
  auto const set = linesOf("set ");
  ASSERT_EQ(set.size(), 1u);
  EXPECT_EQ(recorder.dumps(), (std::vector<RecordedDump>{{before, "bItemplate_", ".xml", 0, 2},
                                                         {set[0], "itemplate_", ".qtp", 0, 6},
                                                         {model.AsUTF8(), "aItemplate_", ".xml", 0, 3}}));
  EXPECT_THAT(story(), ElementsAre("dump wanted? type 2", "dump bItemplate_0.xml type 2",
                                   "start without baseline", "dump itemplate_0.qtp type 6", "set " + set[0],
                                   "apply", "dump wanted? type 3", "dump aItemplate_0.xml type 3"));
}

TEST_F(ImmediateTemplate, DumpsTheTextThatTheDocumentGives) {
  wantDumps();
  RetoldDocument retold(model, "<visualization/>");
  retold.applyImmediateTemplate("<i/>");
  auto const dumps = recorder.dumps();
  ASSERT_EQ(dumps.size(), 3u);
  EXPECT_EQ(dumps[0].content, "<visualization/>");
  EXPECT_EQ(dumps[2].content, "<visualization/>");
}

TEST_F(ImmediateTemplate, IsAppliedAlsoWhereTheEngineRefusesIt) {
  recorder.failEvery(Operation::SetTemplate);
  EXPECT_FALSE(document.applyImmediateTemplate("<i"));
  EXPECT_EQ(engine->calls, std::vector<std::string>{"1 applies"});
  EXPECT_THAT(story().back(), "dump wanted? type 3");
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(ImmediateTemplate, OfAnEmptyDocumentIsNotApplied) {
  XDocument empty{std::string()};
  recorder.clear();
  EXPECT_FALSE(empty.applyImmediateTemplate("<i/>"));
  EXPECT_THAT(story(), IsEmpty());
}

class FailingImmediateTemplate : public ImmediateTemplate,
                                 public ::testing::WithParamInterface<FailingStep> {};

TEST_P(FailingImmediateTemplate, LetsEveryFailureThrough) {
  wantDumps();
  recorder.throwAt(GetParam().operation, GetParam().call, OrdinaryFailure());
  EXPECT_THROW(document.applyImmediateTemplate("<i/>"), OrdinaryFailure);
  recorder.behave();
  recorder.clear();
  recorder.throwAt(GetParam().operation, GetParam().call, VexaGoToCaller());
  EXPECT_THROW(document.applyImmediateTemplate("<i/>"), VexaGoToCaller);
  EXPECT_THAT(reports(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Steps, FailingImmediateTemplate,
                         ::testing::Values(FailingStep{"QuestionBefore", Operation::WillPrintString, 1},
                                           FailingStep{"DumpBefore", Operation::PrintString, 1},
                                           FailingStep{"Engine", Operation::StartTemplate, 1},
                                           FailingStep{"DumpOfTheText", Operation::PrintString, 2},
                                           FailingStep{"Set", Operation::SetTemplate, 1},
                                           FailingStep{"Apply", Operation::ApplyTemplate, 1},
                                           FailingStep{"QuestionAfter", Operation::WillPrintString, 2},
                                           FailingStep{"DumpAfter", Operation::PrintString, 3}),
                         nameOfStep);

// --- User templates

class UserTemplates : public TemplateTest {
 protected:
  UserTemplates() { services.files->content = {{"u1", "<u1/>"}, {"u2", "<u2/>"}, {"u3", "<u3/>"}}; }

  void use(std::vector<std::string> const& names) {
    for (std::string const& name : names) document.SetChartTemplate(name);
  }

  /// The story without the numbers, which depend on the tests before.
  std::vector<std::string> storyWithoutNumbers() const {
    auto told = story();
    for (std::string& line : told) {
      if (line.starts_with("dump ") && !line.starts_with("dump wanted"))
        line = line.substr(0, line.find('_'));
      if (line.starts_with("set <?xml")) line = "set " + line.substr(line.find("xsd\">") + 5);
    }
    return told;
  }
};

TEST_F(UserTemplates, ComeBehindTheImmediateOnes) {
  document.AddImmediateTemplate("<i1/>");
  document.AddImmediateTemplate("<i2/>");
  use({"u2", "u1"});
  EXPECT_EQ(document.applyUserTemplates(nullptr), 2);
  EXPECT_THAT(
      storyWithoutNumbers(),
      ElementsAre("start without baseline", "dump wanted? type 2", "start without baseline", "dump itemplate",
                  "set <i1/></template>", "apply", "dump wanted? type 3", "dump wanted? type 2",
                  "start without baseline", "dump itemplate", "set <i2/></template>", "apply",
                  "dump wanted? type 3", "fetch u2", "dump utemplate", "set <u2/>", "dump wanted? type 2",
                  "apply", "dump wanted? type 3", "fetch u1", "dump utemplate", "set <u1/>",
                  "dump wanted? type 2", "apply", "dump wanted? type 3"));
}

TEST_F(UserTemplates, DumpTheChartOnBothSidesWhereThatIsWanted) {
  wantDumps();
  use({"u1"});
  document.applyUserTemplates(nullptr);
  EXPECT_THAT(storyWithoutNumbers(), ElementsAre("start without baseline", "fetch u1", "dump utemplate",
                                                 "set <u1/>", "dump wanted? type 2", "dump bUtemplate",
                                                 "apply", "dump wanted? type 3", "dump aUtemplate"));
}

TEST_F(UserTemplates, WorkOnTheChartWithTheBaselineThatIsGiven) {
  LumoDocument other;
  use({"u1", "u2"});
  document.applyUserTemplates(other.getVisualization());
  ASSERT_EQ(engine->starts.size(), 1u);
  EXPECT_EQ(engine->starts[0].working, &visualization);
  EXPECT_EQ(engine->starts[0].baseline, other.getVisualization());
  EXPECT_THAT(engine->calls, ElementsAre("1 sets <u1/>", "1 applies", "1 sets <u2/>", "1 applies"));
}

TEST_F(UserTemplates, GiveNoBaselineToTheImmediateOnes) {
  LumoDocument other;
  document.AddImmediateTemplate("<i1/>");
  document.applyUserTemplates(other.getVisualization());
  EXPECT_THAT(linesOf("start "), ElementsAre("with baseline", "without baseline"));
}

TEST_F(UserTemplates, AreFetchedByTheirNamesAsTheyAre) {
  services.files->content["/a folder/u&1.xml"] = "<u/>";
  use({"/a folder/u&1.xml"});
  EXPECT_EQ(document.applyUserTemplates(nullptr), 1);
  auto const fetched = recorder.entries(Operation::Fetch);
  ASSERT_EQ(fetched.size(), 1u);
  EXPECT_EQ(fetched[0].text("name"), "/a folder/u&1.xml");
  EXPECT_TRUE(fetched[0].flag("first"));
  EXPECT_TRUE(fetched[0].flag("second"));
}

TEST_F(UserTemplates, DoNotCountImmediateOnes) {
  document.AddImmediateTemplate("<i1/>");
  EXPECT_EQ(document.applyUserTemplates(nullptr), 0);
}

TEST_F(UserTemplates, AreReadAndAppliedAgainEachTime) {
  document.AddImmediateTemplate("<i1/>");
  use({"u1"});
  document.applyUserTemplates(nullptr);
  services.files->content["u1"] = "<changed/>";
  recorder.clear();
  EXPECT_EQ(document.applyUserTemplates(nullptr), 1);
  auto const told = storyWithoutNumbers();
  EXPECT_THAT(told, ::testing::Contains("set <i1/></template>"));
  EXPECT_THAT(told, ::testing::Contains("set <changed/>"));
}

TEST_F(UserTemplates, AreLeftOutOfAChartThatIsNotToBeModified) {
  document.AddImmediateTemplate("<i1/>");
  use({"u1"});
  document.doNotModify(false);
  EXPECT_EQ(document.applyUserTemplates(nullptr), 0);
  EXPECT_THAT(linesOf("fetch "), IsEmpty());
  EXPECT_THAT(storyWithoutNumbers(), ::testing::Contains("set <i1/></template>"));
}

TEST_F(UserTemplates, AreAppliedToSuchAChartWhereTheCallerKeepsThem) {
  document.AddImmediateTemplate("<i1/>");
  use({"u1"});
  document.doNotModify(true);
  EXPECT_EQ(document.applyUserTemplates(nullptr), 1);
  auto const told = storyWithoutNumbers();
  EXPECT_THAT(told, ::testing::Contains("set <i1/></template>"));
  EXPECT_THAT(told, ::testing::Contains("set <u1/>"));
}

TEST_F(UserTemplates, ThatAreMissingAreToldToTheUserByName) {
  use({"no^1where", "u1"});
  EXPECT_EQ(document.applyUserTemplates(nullptr), 1);
  EXPECT_EQ(recorder.userMessages(),
            (std::vector<RecordedMessage>{{"The specified template no^1where was not found.",
                                           true,
                                           "The specified template ^1 was not found.",
                                           {RecordedCell{"no^1where", false}},
                                           2,
                                           2}}));
  EXPECT_EQ(recorder.count(Operation::Error), 0u);
  EXPECT_THAT(linesOf("set "), ElementsAre("<u1/>"));
}

TEST_F(UserTemplates, ThatTheEngineRefusesAreAppliedAndCounted) {
  recorder.failEvery(Operation::SetTemplate);
  use({"u1"});
  EXPECT_EQ(document.applyUserTemplates(nullptr), 1);
  EXPECT_EQ(recorder.count(Operation::ApplyTemplate), 1u);
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(UserTemplates, OfAnEmptyDocumentAreAFailure) {
  XDocument empty{std::string()};
  EXPECT_THROW(empty.applyUserTemplates(nullptr), ChartException);
}

TEST_F(UserTemplates, WithAFailingImmediateOneAreNotReached) {
  document.AddImmediateTemplate("<i1/>");
  use({"u1"});
  recorder.throwAt(Operation::ApplyTemplate, 1, OrdinaryFailure());
  EXPECT_THROW(document.applyUserTemplates(nullptr), OrdinaryFailure);
  EXPECT_THAT(linesOf("fetch "), IsEmpty());
}

class HeldUserTemplate : public UserTemplates, public ::testing::WithParamInterface<FailingStep> {
 protected:
  HeldUserTemplate() {
    wantDumps();
    use({"u1", "u2"});
  }
};

TEST_P(HeldUserTemplate, IsLoggedByNameThenToldToTheUserAndTheNextOneGoesOn) {
  recorder.throwAt(GetParam().operation, GetParam().call, OrdinaryFailure());
  EXPECT_EQ(document.applyUserTemplates(nullptr), 1);
  EXPECT_THAT(reports(), ElementsAre("log: Failure occurred while applying user template: u1",
                                     "user: An error occurred while applying a chart template"));
  EXPECT_EQ(recorder.userMessages(),
            (std::vector<RecordedMessage>{
                {"An error occurred while applying a chart template", true, "", {}, 2, 2}}));
  EXPECT_THAT(linesOf("set "), ElementsAre("<u1/>", "<u2/>"));
}

TEST_P(HeldUserTemplate, LetsTheHostsSignalThroughWithoutAReport) {
  recorder.throwAt(GetParam().operation, GetParam().call, VexaGoToCaller());
  EXPECT_THROW(document.applyUserTemplates(nullptr), VexaGoToCaller);
  EXPECT_THAT(reports(), IsEmpty());
  EXPECT_THAT(linesOf("set "), ElementsAre("<u1/>"));
}

INSTANTIATE_TEST_SUITE_P(Steps, HeldUserTemplate,
                         ::testing::Values(FailingStep{"QuestionBefore", Operation::WillPrintString, 1},
                                           FailingStep{"DumpBefore", Operation::PrintString, 2},
                                           FailingStep{"Apply", Operation::ApplyTemplate, 1},
                                           FailingStep{"QuestionAfter", Operation::WillPrintString, 2},
                                           FailingStep{"DumpAfter", Operation::PrintString, 3}),
                         nameOfStep);

class OpenUserTemplate : public HeldUserTemplate {};

TEST_P(OpenUserTemplate, LetsEveryFailureThrough) {
  recorder.throwAt(GetParam().operation, GetParam().call, OrdinaryFailure());
  EXPECT_THROW(document.applyUserTemplates(nullptr), OrdinaryFailure);
  recorder.behave();
  recorder.clear();
  recorder.throwAt(GetParam().operation, GetParam().call, VexaGoToCaller());
  EXPECT_THROW(document.applyUserTemplates(nullptr), VexaGoToCaller);
  EXPECT_THAT(reports(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Steps, OpenUserTemplate,
                         ::testing::Values(FailingStep{"Engine", Operation::StartTemplate, 1},
                                           FailingStep{"Fetch", Operation::Fetch, 1},
                                           FailingStep{"DumpOfTheText", Operation::PrintString, 1},
                                           FailingStep{"Set", Operation::SetTemplate, 1}),
                         nameOfStep);

TEST_F(UserTemplates, LetAFailureOfTheMessageAboutAMissingOneThrough) {
  use({"nowhere"});
  recorder.throwAt(Operation::BpError, 1, OrdinaryFailure());
  EXPECT_THROW(document.applyUserTemplates(nullptr), OrdinaryFailure);
  EXPECT_THAT(linesOf("log: "), IsEmpty());
}

}  // namespace
}  // namespace kestrel::test
