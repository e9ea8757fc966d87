// The chain of the user's templates, whose texts and numbers live as long as the process.

#include "xdocument.h"

#include "chart_test.h"
#include "failing_baseline.h"
#include "golden.h"
#include "template_fixture.h"
#include "template_kinds.h"

#include "host/messages.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedDump;
using host::TemplateKind;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using TemplateChain = TemplateTest;

// --- The order

TEST_F(TemplateChain, IsStylesOptionsFramesDefaultsImmediateAndUserTemplates) {
  choose(TemplateKind::Styles, {"s1", "s2"});
  choose(TemplateKind::Options, {"o1"});
  choose(TemplateKind::Default, {"d1"});
  services.files->content["u1"] = "<u1/>";
  document.AddImmediateTemplate("<i1/>");
  document.SetChartTemplate("u1");
  EXPECT_EQ(document.applyTemplates(), 5);
  auto told = story();
  std::string const prefix = "set <?xml";
  for (std::string& line : told) {
    if (line.starts_with(prefix)) line = "set the immediate one";
  }
  EXPECT_THAT(
      told,
      ElementsAre("trace: Start Applying Templates", "trace: Parsed Original XML", "start with baseline",
                  "names of s", "fetch s1", "fetch s2", "now clean: s", "dump stemplate_1.qtp type 6",
                  "set <s1/>", "dump wanted? type 2", "apply", "dump wanted? type 3",
                  "dump stemplate_2.qtp type 6", "set <s2/>", "dump wanted? type 2", "apply",
                  "dump wanted? type 3", "names of o", "fetch o1", "now clean: o",
                  "dump otemplate_2.qtp type 6", "set <o1/>", "dump wanted? type 2", "apply",
                  "dump wanted? type 3", "pack with baseline", "is there c", "names of d", "fetch d1",
                  "now clean: d", "dump dtemplate_2.qtp type 6", "set <d1/>", "dump wanted? type 2", "apply",
                  "dump wanted? type 3", "start with baseline", "dump wanted? type 2",
                  "start without baseline", "dump itemplate_0.qtp type 6", "set the immediate one", "apply",
                  "dump wanted? type 3", "fetch u1", "dump utemplate_1.qtp type 6", "set <u1/>",
                  "dump wanted? type 2", "apply", "dump wanted? type 3", "trace: Done Applying Templates"));
}

TEST_F(TemplateChain, TakesTheChosenOnesInPlaceOfTheDefaultOnes) {
  choose(TemplateKind::Styles, {"s1"});
  choose(TemplateKind::Chosen, {"c1", "c2"});
  choose(TemplateKind::Default, {"d1"});
  EXPECT_EQ(document.applyTemplates(), 3);
  EXPECT_THAT(
      story(),
      ElementsAre("trace: Start Applying Templates", "trace: Parsed Original XML", "start with baseline",
                  "names of s", "fetch s1", "now clean: s", "dump stemplate_1.qtp type 6", "set <s1/>",
                  "dump wanted? type 2", "apply", "dump wanted? type 3", "names of o", "now clean: o",
                  "pack with baseline", "is there c", "start without baseline", "names of c", "fetch c1",
                  "fetch c2", "now clean: c", "dump ctemplate_1.qtp type 6", "set <c1/>",
                  "dump wanted? type 2", "apply", "dump wanted? type 3", "dump ctemplate_1.qtp type 6",
                  "set <c2/>", "dump wanted? type 2", "apply", "dump wanted? type 3", "start with baseline",
                  "trace: Done Applying Templates"));
}

TEST_F(TemplateChain, WithoutTemplatesStillLaysTheFramesOut) {
  EXPECT_EQ(document.applyTemplates(), 0);
  EXPECT_THAT(story(), ElementsAre("trace: Start Applying Templates", "trace: Parsed Original XML",
                                   "start with baseline", "names of s", "now clean: s", "names of o",
                                   "now clean: o", "pack with baseline", "is there c", "names of d",
                                   "now clean: d", "start with baseline", "trace: Done Applying Templates"));
}

TEST_F(TemplateChain, DoesNotAskForTheChosenOnesWhereTheyAreNotToBeApplied) {
  choose(TemplateKind::Chosen, {"c1"});
  choose(TemplateKind::Default, {"d1"});
  document.applyCTemplate(false);
  EXPECT_EQ(document.applyTemplates(), 1);
  EXPECT_THAT(linesOf("is there "), IsEmpty());
  EXPECT_THAT(linesOf("names of "), ElementsAre("s", "o", "d"));
  EXPECT_THAT(linesOf("now clean: "), ElementsAre("s", "o", "d"));
  EXPECT_TRUE(services.templateSettings->isDirty(TemplateKind::Chosen));
  EXPECT_THAT(linesOf("set "), ElementsAre("<d1/>"));
}

TEST_F(TemplateChain, LeavesTheDefaultOnesUnreadWhereTheChosenOnesApply) {
  choose(TemplateKind::Chosen, {"c1"});
  choose(TemplateKind::Default, {"d1"});
  EXPECT_EQ(document.applyTemplates(), 1);
  EXPECT_THAT(linesOf("names of "), ElementsAre("s", "o", "c"));
  EXPECT_TRUE(services.templateSettings->isDirty(TemplateKind::Default));
  EXPECT_FALSE(services.templateSettings->isDirty(TemplateKind::Chosen));
  EXPECT_THAT(linesOf("set "), ElementsAre("<c1/>"));
}

TEST_F(TemplateChain, WithChosenOnesThatCannotBeReadLeavesTheDefaultOnesOutAllTheSame) {
  choose(TemplateKind::Chosen, {"c1"}, {""});
  choose(TemplateKind::Default, {"d1"});
  EXPECT_EQ(document.applyTemplates(), 0);
  EXPECT_THAT(linesOf("set "), IsEmpty());
}

TEST_F(TemplateChain, OfAnEmptyDocumentReadsAndDoesNothing) {
  for (TemplateKind const kind :
       {TemplateKind::Styles, TemplateKind::Options, TemplateKind::Chosen, TemplateKind::Default}) {
    choose(kind, {"t"});
  }
  XDocument empty{std::string()};
  empty.SetChartTemplate("t");
  recorder.clear();
  EXPECT_EQ(empty.applyTemplates(), 0);
  EXPECT_THAT(story(), ElementsAre("trace: Start Applying Templates"));
  EXPECT_TRUE(services.templateSettings->isDirty(TemplateKind::Styles));
}

// --- The engines and the baseline

TEST_F(TemplateChain, HasOneEngineForStylesOptionsAndDefaultsAndOneForTheUsers) {
  choose(TemplateKind::Styles, {"s1"});
  choose(TemplateKind::Options, {"o1"});
  choose(TemplateKind::Default, {"d1"});
  services.files->content["u1"] = "<u1/>";
  document.SetChartTemplate("u1");
  document.applyTemplates();
  EXPECT_THAT(engine->calls, ElementsAre("1 sets <s1/>", "1 applies", "1 sets <o1/>", "1 applies",
                                         "1 sets <d1/>", "1 applies", "2 sets <u1/>", "2 applies"));
}

TEST_F(TemplateChain, HasAnEngineOfTheirOwnForTheChosenOnes) {
  choose(TemplateKind::Styles, {"s1"});
  choose(TemplateKind::Chosen, {"c1"});
  document.applyTemplates();
  EXPECT_THAT(engine->calls, ElementsAre("1 sets <s1/>", "1 applies", "2 sets <c1/>", "2 applies"));
  ASSERT_EQ(engine->starts.size(), 3u);
  EXPECT_EQ(engine->starts[1].baseline, nullptr);
}

TEST_F(TemplateChain, WorksOnTheChartItself) {
  choose(TemplateKind::Chosen, {"c1"});
  document.applyTemplates();
  ASSERT_EQ(engine->starts.size(), 3u);
  for (auto const& start : engine->starts) EXPECT_EQ(start.working, &visualization);
  EXPECT_EQ(layout->working, &visualization);
}

TEST_F(TemplateChain, HasACopyOfTheChartBeforeAnyTemplateAsItsBaseline) {
  visualization.setName(u"before");
  std::string const before = goldenText(visualization);
  choose(TemplateKind::Styles, {"s1"});
  nameAfterTemplates();
  document.applyTemplates();
  ASSERT_EQ(engine->starts.size(), 2u);
  EXPECT_NE(engine->starts[0].baseline, &visualization);
  EXPECT_EQ(engine->starts[0].baselineText, before);
  EXPECT_EQ(engine->starts[1].baseline, engine->starts[0].baseline);
  EXPECT_EQ(engine->starts[1].baselineText, before);
  EXPECT_NE(layout->baselineDocument, &model);
  EXPECT_EQ(layout->baselineText, before);
  EXPECT_EQ(name(), "<s1/>");
}

TEST_F(TemplateChain, MakesTheBaselineOfTheTextThatTheDocumentGives) {
  RetoldDocument retold(model,
                        R"(<visualization xmlns="http://xml.vexa.example/visualization" name="told"/>)");
  retold.applyTemplates();
  ASSERT_FALSE(engine->starts.empty());
  EXPECT_THAT(layout->baselineText, ::testing::HasSubstr("name=\"told\""));
  EXPECT_EQ(engine->starts[0].baselineText, layout->baselineText);
}

TEST_F(TemplateChain, GoesOnWithoutABaselineWhereTheTextDoesNotParse) {
  choose(TemplateKind::Styles, {"s1"});
  choose(TemplateKind::Options, {"o1"});
  choose(TemplateKind::Default, {"d1"});
  services.files->content["u1"] = "<u1/>";
  RetoldDocument retold(model, unparsable);
  retold.SetChartTemplate("u1");
  recorder.clear();
  EXPECT_EQ(retold.applyTemplates(), 4);
  EXPECT_THAT(recorder.trace(), ElementsAre("Start Applying Templates", "Done Applying Templates"));
  EXPECT_THAT(linesOf("start "), ElementsAre("without baseline", "without baseline"));
  EXPECT_THAT(linesOf("pack "), ElementsAre("without baseline"));
  EXPECT_EQ(layout->baselineDocument, nullptr);
  EXPECT_THAT(linesOf("set "), ElementsAre("<s1/>", "<o1/>", "<d1/>", "<u1/>"));
  EXPECT_EQ(linesOf("log: ").size(), 1u);
}

TEST_F(TemplateChain, GoesOnWithoutABaselineWhereTheCopyCannotBeMade) {
  choose(TemplateKind::Styles, {"s1"});
  {
    BaselineTrap const trap(throwOrdinaryFailure());
    EXPECT_EQ(document.applyTemplates(), 1);
  }
  EXPECT_THAT(reports(), IsEmpty());
  EXPECT_THAT(recorder.trace(),
              ElementsAre("Start Applying Templates", "Parsed Original XML", "Done Applying Templates"));
  EXPECT_THAT(linesOf("start "), ElementsAre("without baseline", "without baseline"));
  EXPECT_EQ(layout->baselineDocument, nullptr);
}

TEST_F(TemplateChain, LetsTheHostsSignalThroughWhereTheCopyIsMade) {
  BaselineTrap const trap(throwGoToCaller());
  EXPECT_THROW(document.applyTemplates(), VexaGoToCaller);
  EXPECT_THAT(story(), ElementsAre("trace: Start Applying Templates", "trace: Parsed Original XML"));
}

TEST_F(TemplateChain, TakesNoNoticeOfFramesThatWereNotLaidOut) {
  recorder.failEvery(Operation::PackFrames);
  choose(TemplateKind::Default, {"d1"});
  EXPECT_EQ(document.applyTemplates(), 1);
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(TemplateChain, CountsTheUsersTemplatesButNotTheImmediateOnes) {
  choose(TemplateKind::Options, {"o1", "o2"});
  services.files->content["u1"] = "<u1/>";
  document.AddImmediateTemplate("<i1/>");
  document.SetChartTemplate("u1");
  document.SetChartTemplate("nowhere");
  EXPECT_EQ(document.applyTemplates(), 3);
}

// --- What is kept between charts

TEST_F(TemplateChain, ReadsNoFileForASecondChartUnderTheSameSettings) {
  choose(TemplateKind::Styles, {"s1"});
  choose(TemplateKind::Options, {"o1"});
  choose(TemplateKind::Default, {"d1"});
  document.applyTemplates();
  services.files->content.clear();
  LumoDocument otherModel;
  XDocument other{otherModel};
  recorder.clear();
  EXPECT_EQ(other.applyTemplates(), 3);
  EXPECT_THAT(linesOf("names of "), IsEmpty());
  EXPECT_THAT(linesOf("fetch "), IsEmpty());
  EXPECT_THAT(linesOf("dirty? "), ElementsAre("s", "o", "d"));
  EXPECT_THAT(linesOf("set "), ElementsAre("<s1/>", "<o1/>", "<d1/>"));
}

TEST_F(TemplateChain, ReadsAgainWhereAListIsEmpty) {
  document.applyTemplates();
  recorder.clear();
  document.applyTemplates();
  EXPECT_THAT(linesOf("names of "), ElementsAre("s", "o", "d"));
}

TEST_F(TemplateChain, KeepsTheDefaultOnesWhileTheChosenOnesApply) {
  choose(TemplateKind::Default, {"d1"});
  document.applyTemplates();
  services.files->content.clear();
  choose(TemplateKind::Chosen, {"c1"});
  document.applyTemplates();
  document.applyCTemplate(false);
  recorder.clear();
  EXPECT_EQ(document.applyTemplates(), 1);
  EXPECT_THAT(linesOf("fetch "), IsEmpty());
  EXPECT_THAT(linesOf("set "), ElementsAre("<d1/>"));
}

class TemplateKindTest : public TemplateTest, public ::testing::WithParamInterface<KindRow> {
 protected:
  std::string letter() const { return {GetParam().letter}; }
  bool counts() const { return GetParam().kind == TemplateKind::Styles; }
  /// The number of the dumps of the n-th template, where there are none of another kind.
  int number(int n) const { return counts() ? n : 0; }

  /// Names of files of this kind.
  std::string first() const { return letter() + "1"; }
  std::string second() const { return letter() + "2"; }

  std::string textOf(std::string const& name) const { return "<" + name + "/>"; }
};

TEST_P(TemplateKindTest, IsReadOnceAndCleanedEachTime) {
  choose(GetParam().kind, {first()});
  document.applyTemplates();
  EXPECT_FALSE(services.templateSettings->isDirty(GetParam().kind));
  recorder.clear();
  document.applyTemplates();
  auto const told = story();
  auto const asked = std::find(told.begin(), told.end(), "dirty? " + letter());
  ASSERT_LT(asked, told.end() - 1);
  EXPECT_EQ(asked[1], "now clean: " + letter());
  EXPECT_THAT(linesOf("fetch "), IsEmpty());
  EXPECT_THAT(linesOf("set "), ElementsAre(textOf(first())));
}

TEST_P(TemplateKindTest, IsReadAgainWhenTheSettingsHaveChanged) {
  choose(GetParam().kind, {first(), second()});
  document.applyTemplates();
  choose(GetParam().kind, {second()}, {"<changed/>"});
  recorder.clear();
  EXPECT_EQ(document.applyTemplates(), 1);
  EXPECT_THAT(linesOf("fetch "), ElementsAre(second()));
  EXPECT_THAT(linesOf("set "), ElementsAre("<changed/>"));
  EXPECT_FALSE(services.templateSettings->isDirty(GetParam().kind));
}

TEST_P(TemplateKindTest, IsFetchedWithBothFlags) {
  choose(GetParam().kind, {first()});
  document.applyTemplates();
  auto const fetched = recorder.entries(Operation::Fetch);
  ASSERT_EQ(fetched.size(), 1u);
  EXPECT_TRUE(fetched[0].flag("first"));
  EXPECT_TRUE(fetched[0].flag("second"));
}

TEST_P(TemplateKindTest, ReportsAMissingFileInItsOwnWayAndGoesOn) {
  choose(GetParam().kind, {first(), second()}, {"", textOf(second())});
  EXPECT_EQ(document.applyTemplates(), 1);
  std::vector<std::string> expected;
  if (*GetParam().missing != '\0') expected.push_back(std::string("log: ") + GetParam().missing);
  EXPECT_EQ(reports(), expected);
  EXPECT_EQ(linesOf("dump " + std::string(GetParam().text)),
            (std::vector<std::string>{std::to_string(number(2)) + ".qtp type 6"}));
  EXPECT_THAT(linesOf("set "), ElementsAre(textOf(second())));
  EXPECT_EQ(recorder.count(Operation::ApplyTemplate), 1u);
}

TEST_P(TemplateKindTest, RemembersAFileThatIsMissing) {
  choose(GetParam().kind, {first()}, {""});
  document.applyTemplates();
  services.files->content[first()] = textOf(first());
  EXPECT_EQ(document.applyTemplates(), 0);
  EXPECT_EQ(linesOf("fetch ").size(), 1u);
}

TEST_P(TemplateKindTest, DumpsItsTextAndTheChartOnBothSidesOfIt) {
  choose(GetParam().kind, {first()});
  wantDumps();
  nameAfterTemplates();
  std::string const before = model.AsUTF8();
  document.applyTemplates();
  EXPECT_EQ(recorder.dumps(),
            (std::vector<RecordedDump>{{textOf(first()), GetParam().text, ".qtp", number(1), 6},
                                       {before, GetParam().before, ".xml", number(1), 2},
                                       {model.AsUTF8(), GetParam().after, ".xml", number(1), 3}}));
  EXPECT_NE(before, model.AsUTF8());
}

TEST_P(TemplateKindTest, DumpsTheTextThatTheDocumentGives) {
  choose(GetParam().kind, {first()});
  wantDumps();
  RetoldDocument retold(model, "<visualization/>");
  retold.applyTemplates();
  auto const dumps = recorder.dumps();
  ASSERT_EQ(dumps.size(), 3u);
  EXPECT_EQ(dumps[1].content, "<visualization/>");
  EXPECT_EQ(dumps[2].content, "<visualization/>");
}

TEST_P(TemplateKindTest, DumpsItsStepsInTheirOrder) {
  choose(GetParam().kind, {first()});
  wantDumps();
  document.applyTemplates();
  std::string const count = std::to_string(number(1));
  auto const told = story();
  auto const at = std::find(told.begin(), told.end(), "now clean: " + letter());
  ASSERT_LT(at, told.end() - 7);
  EXPECT_THAT(
      std::vector(at + 1, at + 8),
      ElementsAre("dump " + std::string(GetParam().text) + count + ".qtp type 6", "set " + textOf(first()),
                  "dump wanted? type 2", "dump " + std::string(GetParam().before) + count + ".xml type 2",
                  "apply", "dump wanted? type 3",
                  "dump " + std::string(GetParam().after) + count + ".xml type 3"));
}

TEST_P(TemplateKindTest, IsAppliedAndCountedAlsoWhereTheEngineRefusesIt) {
  choose(GetParam().kind, {first(), second()});
  recorder.failEvery(Operation::SetTemplate);
  EXPECT_EQ(document.applyTemplates(), 2);
  EXPECT_EQ(recorder.count(Operation::ApplyTemplate), 2u);
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_P(TemplateKindTest, LetsAFailureOfItsReadingThrough) {
  choose(GetParam().kind, {first()});
  recorder.throwAt(Operation::Fetch, 1, OrdinaryFailure());
  EXPECT_THROW(document.applyTemplates(), OrdinaryFailure);
  EXPECT_THAT(reports(), IsEmpty());
  EXPECT_TRUE(services.templateSettings->isDirty(GetParam().kind));
}

INSTANTIATE_TEST_SUITE_P(Kinds, TemplateKindTest, ::testing::ValuesIn(kinds),
                         [](auto const& test) { return std::string(test.param.name); });

// --- The numbers of the dumps

TEST_F(TemplateChain, LeavesTheNumberOfTheLastStylesTemplateToTheOtherKinds) {
  choose(TemplateKind::Styles, {"s1", "s2", "s3"});
  choose(TemplateKind::Options, {"o1", "o2"});
  choose(TemplateKind::Default, {"d1"});
  document.applyTemplates();
  EXPECT_THAT(dumpNames(), ElementsAre("stemplate_1.qtp", "stemplate_2.qtp", "stemplate_3.qtp",
                                       "otemplate_3.qtp", "otemplate_3.qtp", "dtemplate_3.qtp"));
}

TEST_F(TemplateChain, CountsStylesTemplatesThroughAllCharts) {
  choose(TemplateKind::Styles, {"s1", "s2"});
  choose(TemplateKind::Chosen, {"c1"});
  document.applyTemplates();
  LumoDocument otherModel;
  XDocument other{otherModel};
  recorder.clear();
  other.applyTemplates();
  EXPECT_THAT(dumpNames(), ElementsAre("stemplate_3.qtp", "stemplate_4.qtp", "ctemplate_4.qtp"));
}

TEST_F(TemplateChain, CountsStylesTemplatesThatAreMissingOrFail) {
  choose(TemplateKind::Styles, {"s1", "s2"}, {"", "<s2/>"});
  choose(TemplateKind::Options, {"o1"});
  recorder.throwAt(Operation::ApplyTemplate, 1, OrdinaryFailure());
  document.applyTemplates();
  EXPECT_THAT(dumpNames(), ElementsAre("stemplate_2.qtp", "otemplate_2.qtp"));
}

TEST_F(TemplateChain, NeverCountsTheOtherKinds) {
  choose(TemplateKind::Options, {"o1", "o2"});
  choose(TemplateKind::Default, {"d1"});
  document.applyTemplates();
  document.applyTemplates();
  EXPECT_THAT(dumpNames(), ElementsAre("otemplate_0.qtp", "otemplate_0.qtp", "dtemplate_0.qtp",
                                       "otemplate_0.qtp", "otemplate_0.qtp", "dtemplate_0.qtp"));
}

}  // namespace
}  // namespace kestrel::test
