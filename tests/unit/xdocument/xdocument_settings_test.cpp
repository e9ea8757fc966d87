// What the caller asks of a document.

#include "xdocument.h"

#include "chart_test.h"
#include "document_record.h"

#include "host/data_store.h"
#include "host/messages.h"
#include "model/document.h"

#include <gmock/gmock.h>

#include <string>
#include <tuple>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Settings : public ChartTest {
 protected:
  LumoDocument model;
  XDocument document{model};
  decltype(recordOf(document)) record = recordOf(document);
};

TEST_F(Settings, TakeADescriptionInEitherForm) {
  document.SetDescription(u"Heights");
  EXPECT_EQ(document.GetDescription().toUTF8(), "Heights");
  document.SetDescription(ChartString(u"Weights"));
  EXPECT_EQ(document.GetDescription().toUTF8(), "Weights");
}

TEST_F(Settings, TakeANullDescriptionAsNone) {
  document.SetDescription(u"Heights");
  document.SetDescription(static_cast<char16_t const*>(nullptr));
  EXPECT_TRUE(document.GetDescription().empty());
}

TEST_F(Settings, GiveACopyOfTheDescription) {
  document.SetDescription(u"Heights");
  ChartString copy = document.GetDescription();
  copy.append(u" changed");
  EXPECT_EQ(document.GetDescription().toUTF8(), "Heights");
}

TEST_F(Settings, TakeAComment) {
  document.SetComment(u"made by hand");
  EXPECT_EQ(record.mComment.toUTF8(), "made by hand");
}

TEST_F(Settings, TakeACommentWithSingleHyphens) {
  document.SetComment(u"-by-hand - or not-");
  EXPECT_EQ(record.mComment.toUTF8(), "-by-hand - or not-");
}

TEST_F(Settings, KeepTheOlderCommentWhereTheNewOneHasTwoHyphensAnywhere) {
  document.SetComment(u"older");
  for (char16_t const* refused : {u"--", u"--new", u"new--", u"n--w", u"n---w"}) {
    document.SetComment(refused);
    EXPECT_EQ(record.mComment.toUTF8(), "older");
  }
}

TEST_F(Settings, TakeAnEmptyCommentAsNone) {
  document.SetComment(u"older");
  document.SetComment(u"");
  EXPECT_TRUE(record.mComment.empty());
}

TEST_F(Settings, TakeANullCommentAsNone) {
  document.SetComment(u"older");
  document.SetComment(nullptr);
  EXPECT_TRUE(record.mComment.empty());
}

TEST_F(Settings, LeaveTheChartAloneWhenACommentIsTaken) {
  std::string const before = document.AsUTF8();
  document.SetComment(u"made by hand");
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(Settings, WriteANameIntoTheChartAtOnce) {
  document.SetName(u"Penguins");
  EXPECT_EQ(attribute(document.getVisualization(), u"name"), "Penguins");
}

TEST_F(Settings, WriteTheLastNameAndNoneForNull) {
  document.SetName(u"Penguins");
  document.SetName(u"");
  EXPECT_EQ(attribute(document.getVisualization(), u"name"), "");
  document.SetName(nullptr);
  EXPECT_EQ(attribute(document.getVisualization(), u"name"), "(absent)");
}

TEST_F(Settings, LogThatANameCouldNotBeWrittenAndTellNobody) {
  ChangeTrap const trap(model, 1, throwOrdinaryFailure());
  EXPECT_NO_THROW(document.SetName(u"Penguins"));
  EXPECT_THAT(recorder.failures(), ElementsAre("Failed to set chart name"));
  EXPECT_THAT(recorder.userMessages(), IsEmpty());
  EXPECT_EQ(attribute(document.getVisualization(), u"name"), "(absent)");
}

TEST_F(Settings, LetTheHostsUnwindingSignalPassWhereANameIsWritten) {
  ChangeTrap const trap(model, 1, throwGoToCaller());
  EXPECT_THROW(document.SetName(u"Penguins"), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(Settings, WriteNoNameWithoutAChart) {
  XDocument empty{std::string()};
  recorder.clear();
  EXPECT_NO_THROW(empty.SetName(u"Penguins"));
  EXPECT_THAT(recorder.lines(), IsEmpty());
}

TEST_F(Settings, ProtectTheChartWhateverTheArgumentSays) {
  document.doNotModify(false);
  EXPECT_TRUE(record.mDoNotModify);
  EXPECT_FALSE(record.mKeepFileTemplates);
  document.doNotModify(true);
  EXPECT_TRUE(record.mDoNotModify);
  EXPECT_TRUE(record.mKeepFileTemplates);
}

TEST_F(Settings, KeepTheLastAnswerAboutFileTemplates) {
  document.doNotModify(true);
  document.doNotModify(false);
  EXPECT_TRUE(record.mDoNotModify);
  EXPECT_FALSE(record.mKeepFileTemplates);
}

TEST_F(Settings, KeepTemplatesInTheOrderOfTheirCallsWithDuplicatesAndWithoutEmptyOnes) {
  document.SetChartTemplate("b.lumotemplate");
  document.SetChartTemplate("");
  document.SetChartTemplate("a.lumotemplate");
  document.SetChartTemplate("b.lumotemplate");
  EXPECT_THAT(document.getTemplates(), ElementsAre("b.lumotemplate", "a.lumotemplate", "b.lumotemplate"));
}

TEST_F(Settings, KeepImmediateTemplatesInTheSameWay) {
  document.AddImmediateTemplate("<b/>");
  document.AddImmediateTemplate("");
  document.AddImmediateTemplate("<a/>");
  document.AddImmediateTemplate("<b/>");
  EXPECT_THAT(document.getInlineTemplates(), ElementsAre("<b/>", "<a/>", "<b/>"));
}

TEST_F(Settings, KeepCsvFilesInTheSameWay) {
  document.AddCSVFile("b.csv");
  document.AddCSVFile("");
  document.AddCSVFile("a.csv");
  document.AddCSVFile("b.csv");
  EXPECT_THAT(record.mCSVFiles, ElementsAre("b.csv", "a.csv", "b.csv"));
}

TEST_F(Settings, GiveTheListsThemselves) {
  document.getTemplates().emplace_back("mine");
  document.getInlineTemplates().emplace_back("<mine/>");
  EXPECT_EQ(&document.getTemplates(), &record.mTemplates);
  EXPECT_EQ(&document.getInlineTemplates(), &record.mInlineTemplates);
  EXPECT_THAT(record.mTemplates, ElementsAre("mine"));
  EXPECT_THAT(record.mInlineTemplates, ElementsAre("<mine/>"));
}

TEST_F(Settings, KeepWhetherTheChartCanBeEdited) {
  EXPECT_EQ(document.getEditable(), XDocument::EditableDefault);
  document.setEditable(static_cast<XDocument::EDITABLE>(7));
  EXPECT_EQ(document.getEditable(), 7);
}

TEST_F(Settings, KeepTheEditor) {
  document.setEditor(XDocument::EditorInteractive);
  EXPECT_EQ(record.mEditor, 3);
}

TEST_F(Settings, KeepTheFlagsForTheCompletion) {
  document.setAdvancedCheck(false);
  document.setTableSwatch(true);
  document.applyCTemplate(false);
  EXPECT_FALSE(record.mAdvancedCheck);
  EXPECT_TRUE(record.mTableSwatch);
  EXPECT_FALSE(record.mApplyCTemplate);
  document.setAdvancedCheck(true);
  document.setTableSwatch(false);
  document.applyCTemplate(true);
  EXPECT_TRUE(record.mAdvancedCheck);
  EXPECT_FALSE(record.mTableSwatch);
  EXPECT_TRUE(record.mApplyCTemplate);
}

TEST_F(Settings, KeepTheFourActionsOnFramesAndGridlinesApart) {
  document.SetOuterFrame(XDocument::TemplParamShow);
  EXPECT_EQ(std::tuple(document.GetOuterFrame(), document.GetInnerFrame(), document.GetXAxisGridlines(),
                       document.GetYAxisGridlines()),
            std::tuple(1, 0, 0, 0));
  document.SetInnerFrame(XDocument::TemplParamHide);
  document.SetXAxisGridlines(XDocument::TemplParamShow);
  document.SetYAxisGridlines(XDocument::TemplParamHide);
  EXPECT_EQ(std::tuple(document.GetOuterFrame(), document.GetInnerFrame(), document.GetXAxisGridlines(),
                       document.GetYAxisGridlines()),
            std::tuple(1, 2, 1, 2));
  document.SetOuterFrame(XDocument::TemplParamLeave);
  EXPECT_EQ(document.GetOuterFrame(), 0);
}

TEST_F(Settings, KeepTheColorsInOrder) {
  document.AddColorSpec({9, 255, 128, 0});
  document.AddColorSpec({8, 1, 2, 3});
  auto const& colors = document.GetColorSpecs();
  ASSERT_EQ(colors.size(), 2u);
  EXPECT_EQ(std::tuple(colors[0].first, colors[0].red, colors[0].green, colors[0].blue),
            std::tuple(9, 255, 128, 0));
  EXPECT_EQ(std::tuple(colors[1].first, colors[1].red, colors[1].green, colors[1].blue),
            std::tuple(8, 1, 2, 3));
  EXPECT_EQ(&colors, &record.mColorSpecs);
}

TEST_F(Settings, TakeTheNameOfAStyleSheetFirst) {
  document.setStyleSheet("plain.xsl", "<sheet/>");
  EXPECT_EQ(record.mStyleSheetName, "plain.xsl");
  EXPECT_EQ(record.mStyleSheet, "<sheet/>");
  document.setStyleSheet("", "");
  EXPECT_EQ(record.mStyleSheetName, "");
  EXPECT_EQ(record.mStyleSheet, "");
}

TEST_F(Settings, TakeTheNamesOfMapsFirst) {
  document.setLUMOMap("data.map", "data bytes");
  document.setLUMORefMap("reference.map", "reference bytes");
  EXPECT_EQ(std::tuple(record.mDataMapName, record.mDataMap, record.mRefMapName, record.mRefMap),
            std::tuple("data.map", "data bytes", "reference.map", "reference bytes"));
  document.setLUMOMap("", "");
  EXPECT_EQ(std::tuple(record.mDataMapName, record.mDataMap, record.mRefMapName, record.mRefMap),
            std::tuple("", "", "reference.map", "reference bytes"));
}

TEST_F(Settings, TakeTheCallersDataStore) {
  VarDataProcessor store;
  document.SetChartData(&store);
  EXPECT_EQ(record.mChartData, &store);
  EXPECT_TRUE(record.mChartDataExternal);
}

TEST_F(Settings, TakeNoDataStoreAsTheCallersToo) {
  document.SetChartData(nullptr);
  EXPECT_EQ(record.mChartData, nullptr);
  EXPECT_TRUE(record.mChartDataExternal);
}

TEST(SettingValues, AreThoseOfTheClient) {
  EXPECT_EQ(XDocument::TemplParamLeave, 0);
  EXPECT_EQ(XDocument::TemplParamShow, 1);
  EXPECT_EQ(XDocument::TemplParamHide, 2);
  EXPECT_EQ(XDocument::ConvertFromLumoML14, 0);
  EXPECT_EQ(XDocument::ConvertFromPDL, 1);
  EXPECT_EQ(XDocument::EditorDefault, 1);
  EXPECT_EQ(XDocument::EditorAttachedFile, 2);
  EXPECT_EQ(XDocument::EditorInteractive, 3);
  EXPECT_EQ(XDocument::EditableDefault, 0);
}

}  // namespace
}  // namespace kestrel::test
