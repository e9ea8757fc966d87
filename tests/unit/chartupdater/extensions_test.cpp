// The record that names a chart's special parts.

#include "updater_fixture.h"
#include "work_growth.h"

#include "host/chartbase.h"
#include "host/messages.h"
#include "model/graph.h"
#include "model/labels.h"

#include <gmock/gmock.h>

#include <ostream>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

class Record : public UpdaterTest {
 protected:
  LumoLabelFrame& addFrame(char16_t const* id, std::vector<char16_t const*> const& texts = {u"words"}) {
    LumoLabelFrame& frame = *visualization.addLabelFrame(id);
    LumoLabel& label = *frame.addLabel();
    for (char16_t const* text : texts) label.addText()->setText(text);
    return frame;
  }

  LumoLabelFrame& addFrameOfPurpose(int purpose) {
    LumoLabelFrame& frame = addFrame(u"frame");
    frame.getLabel()->setPurpose(static_cast<LumoLabel::ENUM_purpose>(purpose));
    return frame;
  }

  static void place(LumoLabelFrame& frame, char16_t const* position) {
    frame.addExtension()->setAttribute(u"position", position);
  }

  static std::vector<std::string> textsOf(LumoLabelFrame const& frame) {
    std::vector<std::string> texts;
    for (LumoText const* text : frame.getLabel()->getTexts()) texts.push_back(utf8(text->getText()));
    return texts;
  }

  /// What the slots hold, in the order in which they were filled: "title1=frame_title_1".
  std::vector<std::string> slotsAfterwards() {
    std::vector<std::string> slots;
    for (std::string const& line : writesOf([this] { updater.addExtensions(); })) {
      std::string const word = "extension ";
      if (line.rfind(word, 0) == 0) slots.push_back(line.substr(word.size()));
    }
    return slots;
  }

  std::vector<std::string> updatedTexts() const {
    std::vector<std::string> texts;
    for (auto const& entry : recorder.entries(Operation::UpdateText)) texts.push_back(entry.text("text"));
    return texts;
  }
};

TEST_F(Record, IsMadeWhereThereIsNone) {
  EXPECT_THAT(writesOf([this] { updater.addExtensions(); }), ElementsAre("visualization adds extension"));
}

TEST_F(Record, IsTheOneThatIsThere) {
  visualization.addExtension()->setAttribute(u"mine", u"kept");
  addFrame(u"frame_title_1");
  updater.addExtensions();
  EXPECT_EQ(elementsOf(visualization, u"extension").size(), 1u);
  EXPECT_THAT(attributeNames(record()), ElementsAre("mine", "title1"));
}

// --- The host

TEST_F(Record, AsksTheHostForItsDictionaryOnce) {
  recorder.ignore(Operation::LookUp);
  addFrame(u"first", {u"one"});
  addFrame(u"second", {u"two"});
  updater.addExtensions();
  EXPECT_THAT(recorder.lines(), ElementsAre("PathInstance::getDictionaryPath(kind=3)",
                                            R"(FacSTDictionary::FacSTDictionary(path="/base/en/"))",
                                            "PathInstance::getBasePath(kind=3)",
                                            R"(FacSTDictionary::SetProcedure(procedure="GRAPH"))",
                                            R"(ChartBase::updateText(text="one", encoding="CP1252"))",
                                            R"(ChartBase::updateText(text="two", encoding="CP1252"))"));
}

TEST_F(Record, AsksForTheDictionaryAlsoWhereThereIsNoText) {
  updater.addExtensions();
  EXPECT_EQ(recorder.count(Operation::OpenDictionary), 1u);
  EXPECT_EQ(recorder.count(Operation::SetProcedure), 1u);
  EXPECT_EQ(recorder.count(Operation::UpdateText), 0u);
}

struct CodePage {
  char const* name;
  char const* base;
  char const* dictionary;
  char const* codePage;
};
void PrintTo(CodePage const& row, std::ostream* out) { *out << row.name; }

class CodePageOfTexts : public Record, public ::testing::WithParamInterface<CodePage> {};

TEST_P(CodePageOfTexts, GoesByTheLanguagesFolder) {
  recorder.services().paths->base = GetParam().base;
  recorder.services().paths->dictionary = GetParam().dictionary;
  addFrame(u"frame");
  updater.addExtensions();
  ASSERT_EQ(recorder.count(Operation::UpdateText), 1u);
  EXPECT_EQ(recorder.entries(Operation::UpdateText)[0].text("encoding"), GetParam().codePage);
  EXPECT_EQ(recorder.entries(Operation::OpenDictionary)[0].text("path"), GetParam().dictionary);
}

INSTANTIATE_TEST_SUITE_P(
    Languages, CodePageOfTexts,
    ::testing::Values(CodePage{"Russian", "/base/", "/base/ru/", "CP1251"},
                      CodePage{"Polish", "/base/", "/base/pl/", "CP1250"},
                      CodePage{"ChineseInTaiwan", "/base/", "/base/zh_tw/", "CP950"},
                      CodePage{"ChineseInChina", "/base/", "/base/zh-cn/", "CP936"},
                      CodePage{"Korean", "/base/", "/base/ko/", "CP949"},
                      CodePage{"Japanese", "/base/", "/base/ja/", "CP932"},
                      CodePage{"English", "/base/", "/base/en/", "CP1252"},
                      CodePage{"German", "/base/", "/base/de/", "CP1252"},
                      CodePage{"TaiwanWithADash", "/base/", "/base/zh-tw/", "CP1252"},
                      CodePage{"ChinaWithAnUnderscore", "/base/", "/base/zh_cn/", "CP1252"},
                      CodePage{"UpperCase", "/base/", "/base/RU/", "CP1252"},
                      CodePage{"FoldersBelow", "/base/", "/base/ru/charts/pl/", "CP1251"},
                      CodePage{"NoSlashAtTheEnd", "/base/", "/base/ru", "CP1251"},
                      CodePage{"BaseWithoutItsSlash", "/base", "/base/ru/", "CP1252"},
                      CodePage{"OtherBaseOfTheSameLength", "/base/", "/core/ru/", "CP1251"},
                      CodePage{"NoFolder", "/base/", "/base/", "CP1252"},
                      CodePage{"NoBase", "", "ru/", "CP1251"},
                      CodePage{"ShorterThanTheBase", "/long/base/", "/ru/", "CP1252"},
                      CodePage{"NoPathAtAll", "", "", "CP1252"}),
    [](auto const& tested) { return tested.param.name; });

TEST_F(Record, LetsEveryFailureOfTheHostPass) {
  LumoLabelFrame const& frame = addFrame(u"frame_title_1");
  for (Operation const operation : {Operation::DictionaryPath, Operation::OpenDictionary, Operation::BasePath,
                                    Operation::SetProcedure, Operation::UpdateText}) {
    recorder.behave();
    recorder.throwEvery(operation, VexaGoToCaller());
    EXPECT_THROW(updater.addExtensions(), VexaGoToCaller);
    recorder.behave();
    recorder.throwEvery(operation, OrdinaryFailure());
    EXPECT_THROW(updater.addExtensions(), OrdinaryFailure);
  }
  expectNoReport(recorder);
  EXPECT_THAT(attributeNames(record()), IsEmpty());
  EXPECT_THAT(textsOf(frame), ElementsAre("words"));
}

// --- Texts

TEST_F(Record, MakesOneTextOfSeveral) {
  LumoLabelFrame const& frame = addFrame(u"frame", {u"a ", u"b", nullptr, u" c"});
  updater.addExtensions();
  EXPECT_THAT(textsOf(frame), ElementsAre("a b c"));
  EXPECT_THAT(updatedTexts(), ElementsAre("a b c"));
}

TEST_F(Record, TranslatesTheWholeText) {
  recorder.services().texts->texts = {{"Mean of age", "Mittelwert"}, {"Mean", "wrong"}};
  LumoLabelFrame const& frame = addFrame(u"frame", {u"Mean", u" of age"});
  updater.addExtensions();
  EXPECT_THAT(textsOf(frame), ElementsAre("Mittelwert"));
}

TEST_F(Record, GivesALabelWithoutTextAnEmptyOne) {
  LumoLabelFrame const& frame = addFrame(u"frame_statistics_summary_1", {});
  updater.addExtensions();
  EXPECT_THAT(textsOf(frame), ElementsAre(""));
  EXPECT_THAT(updatedTexts(), ElementsAre(""));
}

TEST_F(Record, LeavesTheFiguresOfALabel) {
  LumoLabelFrame& frame = addFrame(u"frame", {u"words"});
  frame.getLabel()->addDescriptionGroup(graph)->addText()->setText(u"Mean = ");
  updater.addExtensions();
  EXPECT_THAT(childTags(*frame.getLabel()), ElementsAre("descriptionGroup", "text"));
  EXPECT_THAT(childTags(*frame.getLabel()->getDescriptionGroups()[0]), ElementsAre("text"));
  EXPECT_THAT(updatedTexts(), ElementsAre("words"));
}

TEST_F(Record, TranslatesTheLabelsOfFramesOnly) {
  graph.addCoordinates(u"coordinates0")->addDimension()->addAxis()->addLabel()->addText()->setText(u"axis");
  visualization.addLegend(u"legend")->addLabel()->addText()->setText(u"legend");
  updater.addExtensions();
  EXPECT_THAT(updatedTexts(), IsEmpty());
}

TEST_F(Record, TranslatesTheFramesOfContainersToo) {
  addFrame(u"first", {u"one"});
  visualization.addContainer(u"part")->addLabelFrame(u"inner")->addLabel()->addText()->setText(u"two");
  addFrame(u"last", {u"three"});
  updater.addExtensions();
  EXPECT_THAT(updatedTexts(), ElementsAre("one", "two", "three"));
}

TEST_F(Record, TranslatesTheTextsAnewAtEachCall) {
  recorder.services().texts->texts = {{"one", "two"}, {"two", "three"}};
  LumoLabelFrame const& frame = addFrame(u"frame", {u"one"});
  updater.addExtensions();
  updater.addExtensions();
  EXPECT_THAT(textsOf(frame), ElementsAre("three"));
}

// --- Titles and footnotes

struct Slot {
  char const* name;
  char16_t const* word;
  char const* slot;
};
void PrintTo(Slot const& row, std::ostream* out) { *out << row.name; }

struct Purpose {
  int purpose;
  std::vector<std::string> slots;
};
void PrintTo(Purpose const& row, std::ostream* out) { *out << row.purpose; }

class SlotOfAPurpose : public Record, public ::testing::WithParamInterface<Purpose> {};

TEST_P(SlotOfAPurpose, IsFilled) {
  addFrameOfPurpose(GetParam().purpose);
  EXPECT_THAT(slotsAfterwards(), ElementsAreArray(GetParam().slots));
}

INSTANTIATE_TEST_SUITE_P(Purposes, SlotOfAPurpose,
                         ::testing::Values(Purpose{0, {}}, Purpose{1, {"title1=frame"}},
                                           Purpose{2, {"title2=frame"}}, Purpose{3, {"subtitle=frame"}},
                                           Purpose{4, {"footnote1=frame"}}, Purpose{5, {"footnote2=frame"}},
                                           Purpose{6, {"footnote3=frame"}}, Purpose{7, {}}),
                         [](auto const& tested) { return "Purpose" + std::to_string(tested.param.purpose); });

class SlotOfAPosition : public Record, public ::testing::WithParamInterface<Slot> {};

TEST_P(SlotOfAPosition, IsFilled) {
  place(addFrame(u"frame"), GetParam().word);
  EXPECT_EQ(slotsAfterwards(), std::vector<std::string>{std::string(GetParam().slot) + "=frame"});
}

INSTANTIATE_TEST_SUITE_P(Positions, SlotOfAPosition,
                         ::testing::Values(Slot{"Title", u"title", "title1"},
                                           Slot{"Subtitle", u"subtitle", "title2"},
                                           Slot{"Subsubtitle", u"subsubtitle", "subtitle"},
                                           Slot{"Footnote", u"footnote", "footnote1"},
                                           Slot{"Subfootnote", u"subfootnote", "footnote2"}),
                         [](auto const& tested) { return tested.param.name; });

class OtherPosition : public Record, public ::testing::WithParamInterface<char16_t const*> {};

TEST_P(OtherPosition, FillsNothingWhateverTheId) {
  place(addFrame(u"frame_title_1"), GetParam());
  EXPECT_THAT(slotsAfterwards(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Words, OtherPosition,
                         ::testing::Values(u"subsubfootnote", u"Title", u"", u"frame_title_1"));

TEST_F(Record, OfAFrameWithoutPositionKeepsTheIdOut) {
  addFrame(u"frame_title_1").addExtension();
  EXPECT_THAT(slotsAfterwards(), IsEmpty());
}

class SlotOfAnId : public Record, public ::testing::WithParamInterface<Slot> {};

TEST_P(SlotOfAnId, IsFilledWithOrWithoutALabel) {
  visualization.addLabelFrame(GetParam().word);
  std::string const filled = std::string(GetParam().slot) + "=" + utf8(GetParam().word);
  EXPECT_EQ(slotsAfterwards(), std::vector<std::string>{filled});
  visualization.getLabelFrames().front()->addLabel();
  visualization.getLabelFrames().front()->getLabel()->addText()->setText(u"words");
  EXPECT_EQ(slotsAfterwards(), std::vector<std::string>{"writes the same"});
}

INSTANTIATE_TEST_SUITE_P(
    Ids, SlotOfAnId,
    ::testing::Values(Slot{"Title1", u"frame_title_1", "title1"}, Slot{"Title2", u"frame_title_2", "title2"},
                      Slot{"Subtitle", u"frame_subtitle_1", "subtitle"},
                      Slot{"Footnote1", u"frame_footnote_1", "footnote1"},
                      Slot{"Footnote2", u"frame_footnote_2", "footnote2"},
                      Slot{"Footnote3", u"frame_footnote_3", "footnote3"},
                      Slot{"StatisticsSummary", u"frame_statistics_summary_1", "statisticsSummary0"}),
    [](auto const& tested) { return tested.param.name; });

TEST_F(Record, TakesNoFrameWithoutLabelExtensionAndKnownId) {
  visualization.addLabelFrame(u"frame_title_3");
  visualization.addLabelFrame(nullptr);
  EXPECT_THAT(slotsAfterwards(), IsEmpty());
}

TEST_F(Record, HasAFrameInTwoSlotsByPurposeAndPosition) {
  place(addFrameOfPurpose(5), u"footnote");
  EXPECT_THAT(slotsAfterwards(), ElementsAre("footnote2=frame", "footnote1=frame"));
}

TEST_F(Record, HasAFrameInTwoSlotsByPurposeAndId) {
  addFrame(u"frame_subtitle_1").getLabel()->setPurpose(LumoLabel::PurposeTitle2);
  EXPECT_THAT(slotsAfterwards(), ElementsAre("title2=frame_subtitle_1", "subtitle=frame_subtitle_1"));
}

TEST_F(Record, HasTheLaterOneOfTwoFramesForASlot) {
  addFrame(u"frame_title_1");
  addFrameOfPurpose(1);
  EXPECT_THAT(slotsAfterwards(), ElementsAre("title1=frame_title_1", "title1=frame"));
}

// --- Blank ones

TEST_F(Record, DropsABlankTitleBehindFillingIt) {
  addFrame(u"frame_title_1", {u" ", u"\t\n "});
  EXPECT_THAT(slotsAfterwards(), ElementsAre("title1=frame_title_1", "removes title1"));
  EXPECT_EQ(record().getTitle1(), nullptr);
}

TEST_F(Record, DropsBlankTitlesAndTheFirstFootnoteInThisOrderAndNothingElse) {
  for (char16_t const* id :
       {u"frame_footnote_3", u"frame_footnote_2", u"frame_footnote_1", u"frame_subtitle_1", u"frame_title_2",
        u"frame_title_1", u"frame_statistics_summary_1"}) {
    addFrame(id, {u" "});
  }
  auto const slots = slotsAfterwards();
  ASSERT_EQ(slots.size(), 10u);
  EXPECT_THAT(std::vector<std::string>(slots.begin() + 7, slots.end()),
              ElementsAre("removes title1", "removes title2", "removes footnote1"));
  EXPECT_THAT(attributeNames(record()),
              ElementsAre("footnote2", "footnote3", "statisticsSummary0", "subtitle"));
}

TEST_F(Record, LeavesTheTextOfABlankTitleAsItIs) {
  LumoLabelFrame const& frame = addFrame(u"frame_title_1", {u"  "});
  updater.addExtensions();
  EXPECT_THAT(textsOf(frame), ElementsAre("  "));
}

TEST_F(Record, DropsATitleWhoseTranslationIsBlank) {
  recorder.services().texts->texts = {{"none", " "}};
  addFrame(u"frame_title_1", {u"none"});
  updater.addExtensions();
  EXPECT_EQ(record().getTitle1(), nullptr);
}

TEST_F(Record, DropsATitleWithoutText) {
  addFrame(u"frame_title_1", {});
  updater.addExtensions();
  EXPECT_EQ(record().getTitle1(), nullptr);
}

TEST_F(Record, KeepsATitleWithBlanksAroundItsWords) {
  LumoLabelFrame const& frame = addFrame(u"frame_title_1", {u" words "});
  updater.addExtensions();
  EXPECT_EQ(record().getTitle1(), &frame);
  EXPECT_THAT(textsOf(frame), ElementsAre(" words "));
}

TEST_F(Record, KeepsATitleWithoutLabel) {
  LumoLabelFrame const* const frame = visualization.addLabelFrame(u"frame_title_1");
  updater.addExtensions();
  EXPECT_EQ(record().getTitle1(), frame);
}

TEST_F(Record, DropsABlankTitleThatWasInItBefore) {
  LumoLabelFrame const& frame = addFrame(u"frame", {u""});
  visualization.addExtension()->setTitle2(frame);
  updater.addExtensions();
  EXPECT_EQ(record().getTitle2(), nullptr);
}

// --- Legends

TEST_F(Record, NumbersLegendsFromOne) {
  visualization.addLegend(u"first");
  visualization.addLegend(u"second");
  visualization.addContainer(u"part")->addLegend(u"third");
  EXPECT_THAT(slotsAfterwards(), ElementsAre("legend1=first", "legend2=second", "legend3=third"));
}

TEST_F(Record, KeepsTheLegendsInTheirSlots) {
  visualization.addLegend(u"first");
  LumoLegend const* const second = visualization.addLegend(u"second");
  LumoExtensionVis& extension = *visualization.addExtension();
  extension.setLegend(1, *second);
  EXPECT_THAT(slotsAfterwards(), ElementsAre("legend2=first"));
  EXPECT_THAT(slotsAfterwards(), IsEmpty());
}

TEST_F(Record, DoesNotLookBehindAnEmptySlot) {
  LumoLegend const* const legend = visualization.addLegend(u"first");
  visualization.addExtension()->setLegend(2, *legend);
  EXPECT_THAT(slotsAfterwards(), ElementsAre("legend1=first"));
}

TEST_F(Record, TellsLegendsOfTheSameIdApart) {
  visualization.addLegend(u"same");
  LumoLegend const* const second = visualization.addLegend(u"same");
  EXPECT_THAT(slotsAfterwards(), ElementsAre("legend1=same", "legend2=same"));
  EXPECT_EQ(record().getLegend(2), second);
}

TEST_F(Record, LetsASlotOfALegendThatIsGoneBeFilled) {
  visualization.addExtension()->setAttribute(ChartString(u"legend1"), ChartString(u"gone"));
  visualization.addLegend(u"first");
  EXPECT_THAT(slotsAfterwards(), ElementsAre("legend1=first"));
}

// --- The repository

TEST_F(Record, HasTheLastRepository) {
  visualization.addStyleCycle(ChartBase::_styleCycleRepository);
  LumoStyleCycle const* const last = visualization.addStyleCycle(ChartBase::_styleCycleRepository);
  visualization.addStyleCycle(u"other");
  updater.addExtensions();
  EXPECT_EQ(record().getStyleCycleRepository(), last);
}

TEST_F(Record, HasNoRepositoryWhereThereIsNone) {
  visualization.addStyleCycle(u"other");
  visualization.addStyleCycle(nullptr);
  EXPECT_THAT(slotsAfterwards(), IsEmpty());
}

// --- All of them

TEST_F(Record, IsFilledInAFixedOrder) {
  visualization.addStyleCycle(ChartBase::_styleCycleRepository);
  visualization.addLegend(u"legend");
  place(addFrame(u"title", {u" ", u" "}), u"title");
  addFrame(u"frame_footnote_2");
  EXPECT_THAT(
      writesOf([this] { updater.addExtensions(); }),
      ElementsAre("visualization adds extension", "text is removed", "text is removed", "label adds text",
                  "text reads   ", "extension title1=title", "text is removed", "label adds text",
                  "text reads words", "extension footnote2=frame_footnote_2", "extension removes title1",
                  "extension legend1=legend", "extension styleCycleRepository=styleCycleRepository"));
}

TEST_F(Record, NamesTheVeryObjects) {
  LumoLabelFrame const& title = addFrame(u"frame_title_1");
  LumoLegend const* const legend = visualization.addLegend(u"legend");
  updater.addExtensions();
  EXPECT_EQ(record().getTitle1(), &title);
  EXPECT_EQ(record().getLegend(1), legend);
}

TEST_F(Record, LetsEveryFailurePassAndKeepsWhatWasWritten) {
  FailingOperation const operation = {
      [](ChartOfOneRun& chart) {
        LumoVisualization& made = *chart.document.getVisualization();
        LumoLabel& label = *made.addLabelFrame(u"frame_title_1")->addLabel();
        label.addText()->setText(u" ");
        label.setPurpose(LumoLabel::PurposeFootnote3);
        made.addLegend(u"legend");
        made.addStyleCycle(ChartBase::_styleCycleRepository);
      },
      [](ChartOfOneRun& chart) { ChartUpdater(chart.document).addExtensions(); }};
  expectFailuresToPass(recorder, operation);
}

TEST(RecordedLegends, AreRecordedOneByOne) {
  // Two thousand took half a minute when every slot was read again for each of them.
  auto const record = [](std::size_t count) {
    LumoDocument document;
    for (std::size_t at = 0; at < count; ++at) document.getVisualization()->addLegend(u"legend");
    ChartUpdater(document).addExtensions();
    EXPECT_NE(document.getVisualization()->getExtension()->getLegend(static_cast<unsigned int>(count)),
              nullptr);
  };
  EXPECT_LT(secondsOf(record, 2000), 5);
}

}  // namespace
}  // namespace kestrel::test
