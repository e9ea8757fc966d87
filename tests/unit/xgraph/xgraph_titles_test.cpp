// Titles, subtitle and footnotes.

#include "change_log.h"
#include "graph_fixture.h"

#include "host/chartbase.h"
#include "host/messages.h"
#include "model/labels.h"
#include "model/style.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::ElementsAre;

namespace {

struct Title {
  char const* name;
  bool (*add)(XGraph&, char16_t const* text);
  LumoLabelFrame* (*pointedAt)(LumoExtensionVis const&);
  char16_t const* frame;
  std::string attribute;
  std::string labelStyle;
  std::string context;
};

void PrintTo(Title const& row, std::ostream* out) { *out << row.name; }

Title const titles[] = {
    {"Title1", [](XGraph& graph, char16_t const* text) { return graph.AddTitle1(text); },
     [](LumoExtensionVis const& extension) { return extension.getTitle1(); }, ChartBase::_frame_title_1,
     "title1", "label_title_1s", "Error in XGraph::AddTitle1()"},
    {"Title2", [](XGraph& graph, char16_t const* text) { return graph.AddTitle2(text); },
     [](LumoExtensionVis const& extension) { return extension.getTitle2(); }, ChartBase::_frame_title_2,
     "title2", "label_title_2s", "Error in XGraph::AddTitle2()"},
    {"SubTitle", [](XGraph& graph, char16_t const* text) { return graph.AddSubTitle(text); },
     [](LumoExtensionVis const& extension) { return extension.getSubtitle(); }, ChartBase::_frame_subtitle_1,
     "subtitle", "label_subtitle_1s", "Error in XGraph::AddSubTitle()"},
    {"Footnote1", [](XGraph& graph, char16_t const* text) { return graph.AddFootnote1(text); },
     [](LumoExtensionVis const& extension) { return extension.getFootnote1(); }, ChartBase::_frame_footnote_1,
     "footnote1", "label_footnote_1s", "Error in XGraph::AddFootnote1()"},
    {"Footnote2", [](XGraph& graph, char16_t const* text) { return graph.AddFootnote2(text); },
     [](LumoExtensionVis const& extension) { return extension.getFootnote2(); }, ChartBase::_frame_footnote_2,
     "footnote2", "label_footnote_2s", "Error in XGraph::AddFootnote2()"},
    {"Footnote3", [](XGraph& graph, char16_t const* text) { return graph.AddFootnote3(text); },
     [](LumoExtensionVis const& extension) { return extension.getFootnote3(); }, ChartBase::_frame_footnote_3,
     "footnote3", "label_footnote_3s", "Error in XGraph::AddFootnote3()"},
};

class EachTitle : public GraphTest, public testing::WithParamInterface<Title> {
 protected:
  bool add(char16_t const* text) { return GetParam().add(graph, text); }
  LumoLabelFrame& onlyFrame() const { return *visualization.getLabelFrames().at(0); }
  LumoLabelFrame* pointedAt() const { return GetParam().pointedAt(*visualization.getExtension()); }
  std::string frameId() const { return utf8(GetParam().frame); }
};

/// All but the subtitle, which alone has only one frame.
class EachRepeatableTitle : public EachTitle {};

/// The same on a chart that has no extension yet.
class EachTitleOfABareChart : public EmptyChartTest, public testing::WithParamInterface<Title> {};

class SubTitle : public GraphTest {
 protected:
  LumoLabelFrame& addFrame() {
    LumoLabelFrame* const frame = visualization.addLabelFrame(u"theirs");
    visualization.getExtension()->setSubtitle(*frame);
    return *frame;
  }
};

class SubTitleQuery : public GraphTest {
 protected:
  LumoLabelFrame& addFrame(LumoLabel::ENUM_purpose purpose) {
    LumoLabelFrame* const frame = visualization.addLabelFrame(u"theirs");
    frame->addExtension();
    frame->addLabel()->setPurpose(purpose);
    return *frame;
  }
};

/// What marks a frame of its own as the subtitle.
constexpr auto subTitlePurpose = static_cast<LumoLabel::ENUM_purpose>(2);

std::string textOf(LumoLabelFrame const& frame) {
  return utf8(frame.getLabel()->getTexts().at(0)->getText());
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(, EachTitle, testing::ValuesIn(titles), caseName<Title>);
INSTANTIATE_TEST_SUITE_P(, EachTitleOfABareChart, testing::ValuesIn(titles), caseName<Title>);
INSTANTIATE_TEST_SUITE_P(, EachRepeatableTitle,
                         testing::Values(titles[0], titles[1], titles[3], titles[4], titles[5]),
                         caseName<Title>);

TEST_P(EachTitle, IsRefusedWithoutAText) { EXPECT_FALSE(add(nullptr)); }

TEST_P(EachTitle, IsRefusedWithAnEmptyText) { EXPECT_FALSE(add(u"")); }

TEST_P(EachTitle, ChangesNothingWithoutAText) {
  std::string const before = document.AsUTF8();
  add(nullptr);
  add(u"");
  EXPECT_EQ(document.AsUTF8(), before);
  expectNoReport(recorder);
}

TEST_P(EachTitleOfABareChart, DoesNotEvenMakeTheExtensionWithoutAText) {
  XGraph attached(visualization);
  GetParam().add(attached, nullptr);
  GetParam().add(attached, u"");
  EXPECT_EQ(visualization.getExtension(), nullptr);
}

TEST_P(EachTitleOfABareChart, MakesTheExtensionForAText) {
  XGraph attached(visualization);
  EXPECT_TRUE(GetParam().add(attached, u"Text"));
  ASSERT_NE(visualization.getExtension(), nullptr);
  EXPECT_EQ(GetParam().pointedAt(*visualization.getExtension()), visualization.getLabelFrames().front());
}

TEST_P(EachTitle, IsTakenWithAText) { EXPECT_TRUE(add(u"Text")); }

TEST_P(EachTitle, IsTakenWithABlank) { EXPECT_TRUE(add(u" ")); }

TEST_P(EachTitle, IsALabelFrameOfTheVisualization) {
  add(u"Text");
  EXPECT_THAT(ids(visualization.getLabelFrames()), ElementsAre(frameId()));
}

TEST_P(EachTitle, IsNamedByTheExtension) {
  add(u"Text");
  EXPECT_EQ(pointedAt(), &onlyFrame());
}

TEST_P(EachTitle, IsNamedByTheExtensionThatExists) {
  add(u"Text");
  EXPECT_EQ(elementsOf(visualization, u"extension").size(), 1u);
}

TEST_P(EachTitle, HasAFrameStyleOfItsName) {
  add(u"Text");
  ASSERT_NE(onlyFrame().getStyle(), nullptr);
  EXPECT_EQ(utf8(onlyFrame().getStyle()->getId()), frameId() + utf8(ChartBase::_default_style));
}

TEST_P(EachTitle, HasALabelStyleOfItsName) {
  add(u"Text");
  ASSERT_NE(onlyFrame().getLabel()->getStyle(), nullptr);
  EXPECT_EQ(utf8(onlyFrame().getLabel()->getStyle()->getId()), GetParam().labelStyle);
}

TEST_P(EachTitle, HasOneLabelWithoutId) {
  add(u"Text");
  EXPECT_EQ(attribute(onlyElementOf(visualization, u"label"), u"id"), "(absent)");
}

TEST_P(EachTitle, HasNoPurposeWritten) {
  add(u"Text");
  EXPECT_EQ(attribute(onlyElementOf(visualization, u"label"), u"purpose"), "(absent)");
}

TEST_P(EachTitle, HasOneText) {
  add(u"Größe & <Gewicht>");
  ASSERT_EQ(onlyFrame().getLabel()->getTexts().size(), 1u);
  EXPECT_EQ(textOf(onlyFrame()),
            "Gr\xc3\xb6\xc3\x9f"
            "e & <Gewicht>");
}

TEST_P(EachTitle, KeepsABackslashFollowedByN) {
  add(u"one\\ntwo");
  EXPECT_EQ(textOf(onlyFrame()), "one\\ntwo");
}

TEST_P(EachTitle, IsMadeInAFixedOrder) {
  std::string const id = frameId();
  ChangeLog log(document);
  add(u"Text");
  EXPECT_THAT(log.lines(),
              ElementsAre("visualization adds labelFrame", "labelFrame id=" + id,
                          "extension " + GetParam().attribute + "=" + id, "style adds style",
                          "style id=" + id + "s", "labelFrame style=" + id + "s", "labelFrame adds label",
                          "style adds style", "style id=" + GetParam().labelStyle,
                          "label style=" + GetParam().labelStyle, "label adds text", "text reads Text"));
}

TEST_P(EachTitle, MakesItsStylesWhereTheirIdsExist) {
  LumoStyle const* const frameStyle = graph.addStyle(ChartString((frameId() + "s").c_str()));
  LumoStyle const* const labelStyle = graph.addStyle(ChartString(GetParam().labelStyle.c_str()));
  add(u"Text");
  EXPECT_EQ(styleIds(visualization).size(), 4u);
  EXPECT_NE(onlyFrame().getStyle(), frameStyle);
  EXPECT_NE(onlyFrame().getLabel()->getStyle(), labelStyle);
}

TEST_P(EachTitle, ReportsAFailureAndIsRefused) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_FALSE(add(u"Text"));
  expectGuardReport(recorder, GetParam().context);
}

TEST_P(EachTitle, ReportsALateFailureAndKeepsWhatWasBuilt) {
  ChangeTrap const trap(document, 12, throwOrdinaryFailure());
  EXPECT_FALSE(add(u"Text"));
  expectGuardReport(recorder, GetParam().context);
  EXPECT_EQ(pointedAt(), &onlyFrame());
}

TEST_P(EachTitle, LetsTheHostsUnwindingSignalPass) {
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(add(u"Text"), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_P(EachRepeatableTitle, MakesAFurtherFrameOfTheSameIdAtTheSecondCall) {
  EXPECT_TRUE(add(u"one"));
  EXPECT_TRUE(add(u"two"));
  EXPECT_THAT(ids(visualization.getLabelFrames()), ElementsAre(frameId(), frameId()));
}

TEST_P(EachRepeatableTitle, PointsTheExtensionAtTheFrameOfTheSecondCall) {
  add(u"one");
  add(u"two");
  EXPECT_EQ(pointedAt(), visualization.getLabelFrames().at(1));
}

TEST_P(EachRepeatableTitle, LeavesTheFirstFrameAsItWas) {
  add(u"one");
  add(u"two");
  EXPECT_EQ(textOf(*visualization.getLabelFrames().at(0)), "one");
  EXPECT_EQ(textOf(*visualization.getLabelFrames().at(1)), "two");
}

TEST_P(EachRepeatableTitle, MakesItsStylesAgainAtTheSecondCall) {
  add(u"one");
  add(u"two");
  std::string const frameStyle = frameId() + "s";
  EXPECT_THAT(styleIds(visualization),
              ElementsAre(frameStyle, GetParam().labelStyle, frameStyle, GetParam().labelStyle));
}

TEST_F(GraphTest, TitlesAndFootnotesStandInTheOrderOfTheCalls) {
  std::vector<std::string> expected;
  for (Title const& title : titles) {
    title.add(graph, u"Text");
    expected.push_back(utf8(title.frame));
  }
  EXPECT_EQ(ids(visualization.getLabelFrames()), expected);
}

TEST_F(SubTitle, KeepsItsFrameAtTheSecondCall) {
  graph.AddSubTitle(u"one");
  LumoLabelFrame const* const frame = visualization.getLabelFrames().front();
  EXPECT_TRUE(graph.AddSubTitle(u"two"));
  EXPECT_THAT(visualization.getLabelFrames(), ElementsAre(frame));
  EXPECT_EQ(visualization.getExtension()->getSubtitle(), frame);
}

TEST_F(SubTitle, ReplacesItsTextAtTheSecondCall) {
  graph.AddSubTitle(u"one");
  graph.AddSubTitle(u"two");
  EXPECT_EQ(visualization.getLabelFrames().front()->getLabel()->getTexts().size(), 1u);
  EXPECT_EQ(textOf(*visualization.getLabelFrames().front()), "two");
}

TEST_F(SubTitle, ChangesNothingButTheTextAtTheSecondCall) {
  graph.AddSubTitle(u"one");
  ChangeLog log(document);
  graph.AddSubTitle(u"two");
  EXPECT_THAT(log.lines(), ElementsAre("text reads two"));
}

TEST_F(SubTitle, WritesTheFirstOfSeveralTexts) {
  LumoLabel* const label = addFrame().addLabel();
  label->addText()->setText(u"first");
  label->addText()->setText(u"second");
  EXPECT_TRUE(graph.AddSubTitle(u"new"));
  EXPECT_EQ(utf8(label->getTexts()[0]->getText()), "new");
  EXPECT_EQ(utf8(label->getTexts()[1]->getText()), "second");
}

TEST_F(SubTitle, AddsTheTextToALabelThatHasNone) {
  LumoLabel* const label = addFrame().addLabel();
  EXPECT_TRUE(graph.AddSubTitle(u"new"));
  ASSERT_EQ(label->getTexts().size(), 1u);
  EXPECT_EQ(utf8(label->getTexts().front()->getText()), "new");
}

TEST_F(SubTitle, IsTakenButLostOnAFrameWithoutLabel) {
  addFrame();
  std::string const before = document.AsUTF8();
  EXPECT_TRUE(graph.AddSubTitle(u"new"));
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(SubTitle, IsRefusedWithoutATextAlsoWhereItsFrameExists) {
  graph.AddSubTitle(u"one");
  EXPECT_FALSE(graph.AddSubTitle(u""));
  EXPECT_EQ(textOf(*visualization.getLabelFrames().front()), "one");
}

TEST_F(SubTitle, ReportsAFailureOfTheReplacementAndIsRefused) {
  graph.AddSubTitle(u"one");
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_FALSE(graph.AddSubTitle(u"two"));
  expectGuardReport(recorder, "Error in XGraph::AddSubTitle()");
}

TEST_F(SubTitle, GoesIntoAFrameThatOnlyTheExtensionNames) {
  visualization.addLabelFrame(ChartBase::_frame_subtitle_1);
  graph.AddSubTitle(u"new");
  EXPECT_EQ(visualization.getLabelFrames().size(), 2u);
}

TEST_F(SubTitleQuery, SaysNoForANewChart) { EXPECT_FALSE(graph.doesSubTitleExist()); }

TEST_F(EmptyChartTest, ThereIsNoSubTitleInAChartWithoutExtension) {
  EXPECT_FALSE(XGraph(visualization).doesSubTitleExist());
}

TEST_F(SubTitleQuery, SaysYesForAFrameThatTheExtensionNames) {
  graph.AddSubTitle(u"Text");
  EXPECT_TRUE(graph.doesSubTitleExist());
}

TEST_F(SubTitleQuery, SaysNoForTitlesAndFootnotes) {
  for (Title const& title : titles) {
    if (title.attribute != "subtitle") title.add(graph, u"Text");
  }
  EXPECT_FALSE(graph.doesSubTitleExist());
}

TEST_F(SubTitleQuery, SaysYesForAFrameThatSaysSoItself) {
  addFrame(subTitlePurpose);
  EXPECT_TRUE(graph.doesSubTitleExist());
}

TEST_F(SubTitleQuery, SaysYesForSuchAFrameBehindOthers) {
  graph.AddTitle1(u"Text");
  addFrame(subTitlePurpose);
  EXPECT_TRUE(graph.doesSubTitleExist());
}

TEST_F(EmptyChartTest, AFrameMayBeTheSubTitleOfAChartWithoutExtension) {
  LumoLabelFrame* const frame = visualization.addLabelFrame(u"theirs");
  frame->addExtension();
  frame->addLabel()->setPurpose(subTitlePurpose);
  EXPECT_TRUE(XGraph(visualization).doesSubTitleExist());
}

TEST_F(SubTitleQuery, SaysNoForAFrameWithoutExtension) {
  visualization.addLabelFrame(u"theirs")->addLabel()->setPurpose(subTitlePurpose);
  EXPECT_FALSE(graph.doesSubTitleExist());
}

TEST_F(SubTitleQuery, SaysNoForAFrameWithoutLabel) {
  visualization.addLabelFrame(u"theirs")->addExtension();
  EXPECT_FALSE(graph.doesSubTitleExist());
}

TEST_F(SubTitleQuery, SaysNoForAFrameOfAnotherPurpose) {
  for (int purpose : {0, 1, 3, 4, 5, 6}) addFrame(static_cast<LumoLabel::ENUM_purpose>(purpose));
  EXPECT_FALSE(graph.doesSubTitleExist());
}

TEST_F(SubTitleQuery, ChangesNothing) {
  graph.AddTitle1(u"Text");
  std::string const before = document.AsUTF8();
  static_cast<void>(graph.doesSubTitleExist());
  EXPECT_EQ(document.AsUTF8(), before);
}
