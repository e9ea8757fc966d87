// The pass over the options or styles templates, and what else is read from templates.

#include "xdocument.h"

#include "chart_test.h"
#include "failing_baseline.h"
#include "failing_paths.h"
#include "golden.h"
#include "template_fixture.h"

#include "host/log.h"
#include "host/messages.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::TemplateKind;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- The pass over options or styles

using StyleTemplate = TemplateTest;

TEST_F(StyleTemplate, IsEachOfTheOptions) {
  choose(TemplateKind::Options, {"o1", "o2"});
  choose(TemplateKind::Styles, {"s1"});
  document.applyStyleTemplate();
  EXPECT_THAT(story(), ElementsAre("trace: Parsed Original XML", "start with baseline", "names of o",
                                   "fetch o1", "set <o1/>", "apply", "fetch o2", "set <o2/>", "apply"));
}

TEST_F(StyleTemplate, IsEachOfTheStylesWhereThereAreNoOptions) {
  choose(TemplateKind::Styles, {"s1", "s2"});
  document.applyStyleTemplate();
  EXPECT_THAT(story(),
              ElementsAre("trace: Parsed Original XML", "start with baseline", "names of o", "names of s",
                          "fetch s1", "set <s1/>", "apply", "fetch s2", "set <s2/>", "apply"));
}

TEST_F(StyleTemplate, IsNotOneOfTheStylesWhereNoOptionCanBeRead) {
  choose(TemplateKind::Styles, {"s1"});
  choose(TemplateKind::Options, {"o1"}, {""});
  document.applyStyleTemplate();
  EXPECT_THAT(linesOf("set "), IsEmpty());
}

TEST_F(StyleTemplate, HasTheChartAndACopyOfItToWorkOn) {
  visualization.setName(u"before");
  std::string const before = goldenText(visualization);
  choose(TemplateKind::Options, {"o1", "o2"});
  document.applyStyleTemplate();
  ASSERT_EQ(engine->starts.size(), 1u);
  EXPECT_EQ(engine->starts[0].working, &visualization);
  EXPECT_NE(engine->starts[0].baseline, &visualization);
  EXPECT_EQ(engine->starts[0].baselineText, before);
}

TEST_F(StyleTemplate, LeavesTheSettingsAsDirtyAsTheyWere) {
  choose(TemplateKind::Options, {"o1"});
  document.applyStyleTemplate();
  EXPECT_TRUE(services.templateSettings->isDirty(TemplateKind::Options));
}

TEST_F(StyleTemplate, IsReadAgainEachTime) {
  choose(TemplateKind::Options, {"o1"});
  services.templateSettings->setDirty(TemplateKind::Options, false);
  document.applyStyleTemplate();
  services.files->content["o1"] = "<changed/>";
  recorder.clear();
  document.applyStyleTemplate();
  EXPECT_THAT(linesOf("set "), ElementsAre("<changed/>"));
}

TEST_F(StyleTemplate, IsFetchedWithBothFlags) {
  choose(TemplateKind::Options, {"o1"});
  document.applyStyleTemplate();
  auto const fetched = recorder.entries(Operation::Fetch);
  ASSERT_EQ(fetched.size(), 1u);
  EXPECT_TRUE(fetched[0].flag("first"));
  EXPECT_TRUE(fetched[0].flag("second"));
}

TEST_F(StyleTemplate, ThatIsMissingIsLoggedByName) {
  choose(TemplateKind::Options, {"o1", "o2"}, {"", "<o2/>"});
  document.applyStyleTemplate();
  EXPECT_THAT(reports(), ElementsAre("log: Could not find the chart style template: o1"));
  EXPECT_THAT(linesOf("set "), ElementsAre("<o2/>"));
}

TEST_F(StyleTemplate, WithoutANameIsSkippedSilently) {
  choose(TemplateKind::Options, {"", "o2"}, {"", "<o2/>"});
  document.applyStyleTemplate();
  EXPECT_THAT(reports(), IsEmpty());
  EXPECT_THAT(linesOf("set "), ElementsAre("<o2/>"));
}

TEST_F(StyleTemplate, ThatTheEngineRefusesIsApplied) {
  choose(TemplateKind::Options, {"o1"});
  recorder.failEvery(Operation::SetTemplate);
  document.applyStyleTemplate();
  EXPECT_EQ(recorder.count(Operation::ApplyTemplate), 1u);
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(StyleTemplate, ThatFailsIsLoggedByNameAndTheNextOneGoesOn) {
  choose(TemplateKind::Options, {"o1", "o2"});
  recorder.throwAt(Operation::ApplyTemplate, 1, OrdinaryFailure());
  document.applyStyleTemplate();
  EXPECT_THAT(reports(), ElementsAre("log: Failure occurred while applying style template: o1"));
  EXPECT_THAT(linesOf("set "), ElementsAre("<o1/>", "<o2/>"));
}

TEST_F(StyleTemplate, LetsTheHostsSignalThroughWhereItIsApplied) {
  choose(TemplateKind::Options, {"o1", "o2"});
  recorder.throwAt(Operation::ApplyTemplate, 1, VexaGoToCaller());
  EXPECT_THROW(document.applyStyleTemplate(), VexaGoToCaller);
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(StyleTemplate, HasNoBaselineWhereTheTextDoesNotParse) {
  choose(TemplateKind::Options, {"o1"});
  RetoldDocument retold(model, unparsable);
  recorder.clear();
  retold.applyStyleTemplate();
  EXPECT_THAT(recorder.trace(), IsEmpty());
  EXPECT_THAT(linesOf("start "), ElementsAre("without baseline"));
  EXPECT_THAT(linesOf("set "), ElementsAre("<o1/>"));
}

TEST_F(StyleTemplate, HasNoBaselineWhereTheCopyCannotBeMade) {
  choose(TemplateKind::Options, {"o1"});
  BaselineTrap const trap(throwOrdinaryFailure());
  document.applyStyleTemplate();
  EXPECT_THAT(linesOf("start "), ElementsAre("without baseline"));
  EXPECT_THAT(linesOf("set "), ElementsAre("<o1/>"));
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(StyleTemplate, LetsTheHostsSignalThroughWhereTheCopyIsMade) {
  BaselineTrap const trap(throwGoToCaller());
  EXPECT_THROW(document.applyStyleTemplate(), VexaGoToCaller);
}

TEST_F(StyleTemplate, OfAnEmptyDocumentIsNone) {
  choose(TemplateKind::Options, {"o1"});
  XDocument empty{std::string()};
  recorder.clear();
  empty.applyStyleTemplate();
  EXPECT_THAT(story(), IsEmpty());
}

class OpenStyleTemplate : public StyleTemplate, public ::testing::WithParamInterface<FailingStep> {};

TEST_P(OpenStyleTemplate, LetsEveryFailureThrough) {
  choose(TemplateKind::Styles, {"s1"});
  recorder.throwAt(GetParam().operation, GetParam().call, OrdinaryFailure());
  EXPECT_THROW(document.applyStyleTemplate(), OrdinaryFailure);
  recorder.behave();
  recorder.clear();
  recorder.throwAt(GetParam().operation, GetParam().call, VexaGoToCaller());
  EXPECT_THROW(document.applyStyleTemplate(), VexaGoToCaller);
  EXPECT_THAT(reports(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Steps, OpenStyleTemplate,
                         ::testing::Values(FailingStep{"Trace", Operation::PrintDebugInfo, 1},
                                           FailingStep{"Engine", Operation::StartTemplate, 1},
                                           FailingStep{"Options", Operation::TemplateNames, 1},
                                           FailingStep{"Styles", Operation::TemplateNames, 2},
                                           FailingStep{"Fetch", Operation::Fetch, 1},
                                           FailingStep{"Set", Operation::SetTemplate, 1}),
                         nameOfStep);

// --- Files of the template folder

using TemplateFile = TemplateTest;

TEST_F(TemplateFile, IsFetchedFromTheFolderBehindTheBaseFolder) {
  services.files->content["/base/template/box.xml"] = "<box/>";
  EXPECT_EQ(document.fetchTemplateFile("box.xml"), "<box/>");
  EXPECT_THAT(recorder.lines(),
              ElementsAre("PathInstance::getBasePath(kind=3)",
                          "FetchFile::fetch(name=\"/base/template/box.xml\", first=true, second=true)"));
}

TEST_F(TemplateFile, HasNoSeparatorBehindTheBaseFolder) {
  services.paths->base = "/base";
  document.fetchTemplateFile("../box.xml");
  EXPECT_THAT(linesOf("fetch "), ElementsAre("/basetemplate/../box.xml"));
}

TEST_F(TemplateFile, ThatIsUnknownIsEmptyWithoutAReport) {
  EXPECT_EQ(document.fetchTemplateFile("box.xml"), "");
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(TemplateFile, OfAHostWithoutPathsIsAFailure) {
  NoPaths const none;
  EXPECT_THROW(document.fetchTemplateFile("box.xml"), ChartException);
}

// --- What the options templates say of colours

struct ColorsOnlyRow {
  char const* name;
  std::vector<std::string> contents;
  bool expected;
  std::size_t read;
};

void PrintTo(ColorsOnlyRow const& row, std::ostream* out) { *out << row.name; }

class ColorsOnly : public TemplateTest, public ::testing::WithParamInterface<ColorsOnlyRow> {};

TEST_P(ColorsOnly, IsWhatAllOptionsThatCanBeReadAskFor) {
  std::vector<std::string> const all = {"o1", "o2", "o3"};
  auto const count = static_cast<std::ptrdiff_t>(GetParam().contents.size());
  choose(TemplateKind::Options, {all.begin(), all.begin() + count}, GetParam().contents);
  EXPECT_EQ(XDocument::useColorsOnly(), GetParam().expected);
  EXPECT_EQ(recorder.count(Operation::Fetch), GetParam().read);
  EXPECT_EQ(recorder.count(Operation::TemplateNames), 1u);
  EXPECT_EQ(recorder.entries().size(), 1 + GetParam().read);
}

INSTANTIATE_TEST_SUITE_P(
    Options, ColorsOnly,
    ::testing::Values(ColorsOnlyRow{"None", {}, true, 0},
                      ColorsOnlyRow{"One", {"<a ColorsOnly='1'/>"}, true, 1},
                      ColorsOnlyRow{"OneWithout", {"<a/>"}, false, 1},
                      ColorsOnlyRow{"OneMissing", {""}, true, 1},
                      ColorsOnlyRow{"TheWordInAComment", {"<!--no ColorsOnly--><a/>"}, true, 1},
                      ColorsOnlyRow{"TheWordInNoXml", {"ColorsOnly"}, true, 1},
                      ColorsOnlyRow{"TheWordInAnotherCase", {"<a colorsOnly='1'/>"}, false, 1},
                      ColorsOnlyRow{"FirstWithout", {"<a/>", "<ColorsOnly/>"}, false, 1},
                      ColorsOnlyRow{"SecondWithout", {"<ColorsOnly/>", "<a/>", "<a/>"}, false, 2},
                      ColorsOnlyRow{"MissingBetween", {"<ColorsOnly/>", "", "<ColorsOnly/>"}, true, 3}),
    [](auto const& test) { return std::string(test.param.name); });

TEST_F(TemplateTest, StylesHaveNoSayInColorsOnly) {
  choose(TemplateKind::Styles, {"s1"});
  EXPECT_TRUE(XDocument::useColorsOnly());
}

class TemplateColors : public TemplateTest {
 protected:
  std::vector<std::string> colors() {
    std::vector<std::string> texts;
    for (ChartString const& color : XDocument::getColors()) texts.push_back(color.toUTF8());
    return texts;
  }

  std::vector<std::string> colorsOf(std::string const& content) {
    choose(TemplateKind::Options, {"o1"}, {content});
    return colors();
  }
};

TEST_F(TemplateColors, AreThoseOfEveryStyleInOrder) {
  EXPECT_THAT(colorsOf("<t><setColor><cycle><style color='#1'/><style color='#2'/></cycle><style "
                       "color='#1'/></setColor></t>"),
              ElementsAre("#1", "#2", "#1"));
}

TEST_F(TemplateColors, AreThoseOfTheFirstSettingAlone) {
  EXPECT_THAT(
      colorsOf("<t><style color='#0'/><x><setColor><style color='#1'/></setColor></x><setColor><style "
               "color='#2'/></setColor></t>"),
      ElementsAre("#1"));
}

TEST_F(TemplateColors, AreNoneOfAFirstSettingWithoutStyles) {
  EXPECT_THAT(colorsOf("<t><setColor/><setColor><style color='#2'/></setColor></t>"), IsEmpty());
}

TEST_F(TemplateColors, AreEmptyForAStyleThatNamesNone) {
  EXPECT_THAT(colorsOf("<t><setColor><style/><style color=''/><style color='#1'/></setColor></t>"),
              ElementsAre("", "", "#1"));
}

TEST_F(TemplateColors, AreNoneWithoutSuchASetting) {
  EXPECT_THAT(colorsOf("<t><style color='#1'/></t>"), IsEmpty());
  EXPECT_THAT(recorder.trace(), ElementsAre("Parsed template"));
}

TEST_F(TemplateColors, AreReadOutOfTemplatesWithANamespace) {
  EXPECT_THAT(colorsOf("<template xmlns='urn:t'><setColor><style color='#1'/></setColor></template>"),
              ElementsAre("#1"));
}

TEST_F(TemplateColors, AreThoseOfAllFilesOneBehindTheOther) {
  std::string const one = "<t><setColor><style color='#1'/></setColor></t>";
  choose(TemplateKind::Options, {"o1", "o2", "o3"}, {one, "", one});
  EXPECT_THAT(colors(), ElementsAre("#1", "#1"));
  EXPECT_THAT(story(), ElementsAre("names of o", "fetch o1", "trace: Parsed template", "fetch o2", "fetch o3",
                                   "trace: Parsed template"));
}

TEST_F(TemplateColors, AreThoseOfTheOtherFilesWhereOneDoesNotParse) {
  choose(TemplateKind::Options, {"o1", "o2"},
         {"<t><setColor><style color='#1'/>", "<t><setColor><style color='#2'/></setColor></t>"});
  EXPECT_THAT(colors(), ElementsAre("#2"));
  EXPECT_THAT(recorder.trace(), ElementsAre("Parsed template"));
  EXPECT_EQ(recorder.count(Operation::BpError), 0u);
}

TEST_F(TemplateColors, AreNoneWithoutOptions) {
  EXPECT_THAT(colors(), IsEmpty());
  EXPECT_THAT(story(), ElementsAre("names of o"));
}

}  // namespace
}  // namespace kestrel::test
