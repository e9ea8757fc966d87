// Roles, heights and places of label frames.

#include "frame_layout_fixture.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>

#include <set>

using namespace kestrel::test;
using kestrel::host::StackedFrames;

namespace {

// --- Roles

struct RoleRow {
  char const* name;
  char16_t const* id;
  void (LumoExtensionVis::*record)(LumoLabelFrame const&);
  LumoLabel::ENUM_purpose purpose;
  bool onTop;
};
constexpr RoleRow roles[] = {
    {"Title1", u"frame_title_1", &LumoExtensionVis::setTitle1, LumoLabel::PurposeTitle1, true},
    {"Title2", u"frame_title_2", &LumoExtensionVis::setTitle2, LumoLabel::PurposeTitle2, true},
    {"Subtitle", u"frame_subtitle_1", &LumoExtensionVis::setSubtitle, LumoLabel::PurposeSubtitle, true},
    {"Summary", u"frame_statistics_summary_1", nullptr, LumoLabel::PurposeNone, false},
    {"Footnote1", u"frame_footnote_1", &LumoExtensionVis::setFootnote1, LumoLabel::PurposeFootnote1, false},
    {"Footnote2", u"frame_footnote_2", &LumoExtensionVis::setFootnote2, LumoLabel::PurposeFootnote2, false},
    {"Footnote3", u"frame_footnote_3", &LumoExtensionVis::setFootnote3, LumoLabel::PurposeFootnote3, false},
};

void PrintTo(RoleRow const& row, std::ostream* out) { *out << row.name; }

class FrameRoleTest : public FrameLayoutTest, public testing::WithParamInterface<RoleRow> {
 protected:
  void expectAtItsEnd(LumoLabelFrame const& frame) {
    Box const box = boxOf(frame);
    EXPECT_EQ(box.left, 0);
    EXPECT_EQ(box.right, pageWidth);
    EXPECT_EQ(GetParam().onTop ? box.top : pageHeight - box.bottom, 0);
    EXPECT_EQ(box.bottom - box.top, 28);
  }
};

TEST_P(FrameRoleTest, ComesFromTheId) {
  LumoLabelFrame const& frame = addFrame(GetParam().id);
  EXPECT_TRUE(pack());
  expectAtItsEnd(frame);
}

TEST_P(FrameRoleTest, ComesFromTheRecord) {
  LumoLabelFrame const& frame = addFrame(u"other");
  if (GetParam().record != nullptr) {
    (record().*GetParam().record)(frame);
  } else {
    record().setStatisticsSummary(frame, 0);
  }
  EXPECT_TRUE(pack());
  expectAtItsEnd(frame);
}

TEST_P(FrameRoleTest, ComesFromThePurpose) {
  LumoLabelFrame const& frame = addFrame(GetParam().purpose);
  // A summary has none. Its frame ends where those without a role do.
  EXPECT_TRUE(pack());
  expectAtItsEnd(frame);
}

TEST_P(FrameRoleTest, BoundsTheGraphAndTheLegends) {
  LumoLabelFrame const& frame = addFrame(GetParam().id);
  LumoGraph const& graph = *chart().addGraph(u"graph");
  LumoLegend const* const legends[] = {chart().addLegend(u"legend1"), chart().addLegend(u"legend2")};
  EXPECT_TRUE(pack());
  expectNoOverlap();
  for (LumoLegend const* legend : legends) {
    EXPECT_EQ(boxOf(*legend).top, boxOf(graph).top);
    EXPECT_EQ(boxOf(*legend).bottom, boxOf(graph).bottom);
  }
  EXPECT_EQ(boxOf(graph).top, GetParam().onTop ? boxOf(frame).bottom : 0);
  EXPECT_EQ(boxOf(graph).bottom, GetParam().onTop ? pageHeight : boxOf(frame).top);
  EXPECT_EQ(graph.getLocations().size(), 1u);
}

TEST_P(FrameRoleTest, WithABlankTextGetsNoRoom) {
  LumoLabelFrame const& frame = addFrame(GetParam().id, u" \t\n ");
  LumoGraph const& graph = *chart().addGraph(u"graph");
  EXPECT_FALSE(pack());
  EXPECT_TRUE(frame.getLocations().empty());
  EXPECT_TRUE(graph.getLocations().empty());
}

TEST_P(FrameRoleTest, KeepsLocationsOfOthers) {
  LumoLabelFrame& frame = addFrame(GetParam().id);
  frame.addLocation(LumoLocation::PartLeft)->setValue(u"20px");
  std::string const before = document.AsUTF8();
  EXPECT_FALSE(pack());
  EXPECT_EQ(document.AsUTF8(), before);
}

INSTANTIATE_TEST_SUITE_P(Roles, FrameRoleTest, testing::ValuesIn(roles),
                         [](auto const& each) { return std::string(each.param.name); });

/// A bit for each role of the table.
class FrameCombinationTest : public FrameLayoutTest, public testing::WithParamInterface<unsigned int> {};

TEST_P(FrameCombinationTest, StandsInOrderWithoutOverlap) {
  chart().addGraph(u"graph");
  std::vector<LumoLabelFrame*> frames;
  for (std::size_t row = std::size(roles); row-- > 0;) {
    if ((GetParam() >> row & 1) != 0) frames.insert(frames.begin(), &addFrame(roles[row].id));
  }
  EXPECT_EQ(pack(), !frames.empty());
  expectNoOverlap();
  for (std::size_t at = 1; at < frames.size(); ++at) expectBelowEachOther(*frames[at - 1], *frames[at]);
}

INSTANTIATE_TEST_SUITE_P(AllOfSeven, FrameCombinationTest, testing::Range(0u, 1u << std::size(roles)));

TEST_F(FrameLayoutTest, PutsThePartsInTheOrderOfAReader) {
  LumoLabelFrame const& footnote3 = addFrame(u"frame_footnote_3");
  LumoLabelFrame const& footnote1 = addFrame(u"frame_footnote_1");
  LumoLabelFrame const& subtitle = addFrame(u"frame_subtitle_1");
  LumoGraph const& graph = *chart().addGraph(u"graph");
  LumoLabelFrame const& summary = addFrame(u"frame_statistics_summary_5");
  LumoLabelFrame const& footnote2 = addFrame(u"frame_footnote_2");
  LumoLabelFrame const& title2 = addFrame(u"frame_title_2");
  LumoLabelFrame const& title1 = addFrame(u"frame_title_1");
  EXPECT_TRUE(pack());
  expectNoOverlap();
  expectBelowEachOther(title1, title2, subtitle, graph, summary, footnote1, footnote2, footnote3);
  EXPECT_EQ(boxOf(title1).top, 0);
  EXPECT_EQ(boxOf(title2).top, boxOf(title1).bottom);
  EXPECT_EQ(boxOf(footnote3).bottom, pageHeight);
  EXPECT_EQ(boxOf(footnote2).bottom, boxOf(footnote3).top);
}

TEST_F(FrameLayoutTest, TheRecordCountsBeforeThePurposeAndThePurposeBeforeTheId) {
  LumoLabelFrame const& byRecord = addFrame(LumoLabel::PurposeTitle1, u"frame_title_1");
  record().setFootnote1(byRecord);
  LumoLabelFrame const& byPurpose = addFrame(LumoLabel::PurposeFootnote2, u"frame_title_2");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(byPurpose).bottom, pageHeight);
  EXPECT_EQ(boxOf(byRecord).bottom, boxOf(byPurpose).top);
}

TEST_F(FrameLayoutTest, TheFirstSlotOfAFrameCounts) {
  LumoLabelFrame const& twice = addFrame(u"a");
  record().setFootnote2(twice);
  record().setTitle2(twice);
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(twice).top, 0);
}

TEST_F(FrameLayoutTest, SummariesFollowTheirNumber) {
  LumoLabelFrame const& tenth = addFrame(u"frame_statistics_summary_10");
  LumoLabelFrame const& second = addFrame(u"frame_statistics_summary_2");
  LumoLabelFrame const& second2 = addFrame(u"b");
  LumoLabelFrame const& first = addFrame(u"a");
  record().setStatisticsSummary(first, 0);
  record().setStatisticsSummary(second2, 1);
  EXPECT_TRUE(pack());
  expectNoOverlap();
  expectBelowEachOther(first, second2, second, tenth);
}

TEST_F(FrameLayoutTest, TitlesOfOneRoleStandBelowEachOther) {
  LumoLabelFrame const& first = addFrame(u"frame_title_1");
  LumoLabelFrame const& second = addFrame(u"frame_title_1");
  record().setTitle1(second);
  LumoLabelFrame const& next = addFrame(u"frame_title_2");
  EXPECT_TRUE(pack());
  expectNoOverlap();
  expectBelowEachOther(first, second, next);
}

TEST_F(FrameLayoutTest, AFootnoteThatCannotBeATargetIsLeftOut) {
  LumoLabelFrame const& first = addFrame(u"frame_footnote_1");
  LumoLabelFrame const& second = addFrame(u"frame_footnote_1");
  chart().addGraph(u"graph");
  EXPECT_TRUE(pack());
  EXPECT_FALSE(first.getLocations().empty());
  EXPECT_TRUE(second.getLocations().empty());
  expectNoOverlap();
}

TEST_F(FrameLayoutTest, AFootnoteWithoutAnIdGetsTheUsualOne) {
  LumoLabelFrame const& other = addFrame(u"frame_footnote_2");
  record().setFootnote1(other);
  LumoLabelFrame const& frame = addFrame(LumoLabel::PurposeFootnote2, nullptr);
  EXPECT_TRUE(pack());
  EXPECT_EQ(ChartString(frame.getId()).toUTF8(), "frame_footnote_2_1");
  expectNoOverlap();
  EXPECT_EQ(boxOf(other).bottom, boxOf(frame).top);
}

TEST_F(FrameLayoutTest, ATitleWithoutAnIdStaysWithout) {
  LumoLabelFrame const& frame = addFrame(LumoLabel::PurposeTitle1, nullptr);
  EXPECT_TRUE(pack());
  EXPECT_TRUE(ChartString(frame.getId()).empty());
}

// --- Heights

struct HeightRow {
  char16_t const* text;
  char16_t const* fontSize;
  double height;
};

class FrameHeightTest : public FrameLayoutTest, public testing::WithParamInterface<HeightRow> {};

TEST_P(FrameHeightTest, FollowsFromLinesAndFontSize) {
  LumoLabelFrame& title = addFrame(u"frame_title_1", GetParam().text);
  if (GetParam().fontSize != nullptr) setFontSize(title, GetParam().fontSize);
  LumoLabelFrame& footnote = addFrame(u"frame_footnote_1", GetParam().text);
  if (GetParam().fontSize != nullptr) setFontSize(footnote, GetParam().fontSize);
  EXPECT_TRUE(pack());
  EXPECT_EQ(heightOf(title), GetParam().height);
  EXPECT_EQ(heightOf(footnote), GetParam().height);
}

INSTANTIATE_TEST_SUITE_P(Rows, FrameHeightTest,
                         testing::Values(HeightRow{u"One", nullptr, 28},               // 16 px * 1.75
                                         HeightRow{u"One\nTwo", nullptr, 48},          // 16 px * 3
                                         HeightRow{u"One\n\nThree", nullptr, 68},      // 16 px * 4.25
                                         HeightRow{u"One", u"12pt", 28},               //
                                         HeightRow{u"One", u"12px", 21},               //
                                         HeightRow{u"One", u"10px", 18},               // 17.5
                                         HeightRow{u"One", u"9pt", 21},                // 12 px
                                         HeightRow{u"One", u" 12px ", 21},             //
                                         HeightRow{u"One", u"12", 21},                 //
                                         HeightRow{u"One", u"0.5in", 84},              // 48 px
                                         HeightRow{u"One", u"2.54cm", 168},            // 96 px
                                         HeightRow{u"One", u"25.4mm", 168},            //
                                         HeightRow{u"One", u"+12px", 21},              //
                                         HeightRow{u"One", u"+-12px", 28},             //
                                         HeightRow{u"One", u"12 px", 28},              //
                                         HeightRow{u"One", u"200%", 56},               // of the usual size
                                         HeightRow{u"One", u"72pt", 168},              //
                                         HeightRow{u"One\nTwo\nThree", u"72pt", 408},  // 96 px * 4.25
                                         HeightRow{u"One", u"0px", 28},                // no size
                                         HeightRow{u"One", u"-4pt", 28},               //
                                         HeightRow{u"One", u"big", 28},                //
                                         HeightRow{u"One", u"12furlong", 28},          //
                                         HeightRow{u"One", u"nan", 28},                //
                                         HeightRow{u"One", u"inf", 28},                //
                                         HeightRow{u"One", u"1e300pt", 3500},          // 2000 px at most
                                         HeightRow{u"One", u"0.01px", 2}));            // 1 px at least

TEST_F(FrameLayoutTest, TheFontSizeOfTheLabelCountsBeforeThatOfTheFrame) {
  LumoLabelFrame& title = addFrame(u"frame_title_1");
  LumoStyle& style = *chart().addStyle();
  style.setId(u"frame");
  style.setFontSize(u"20px", u"", u"");
  title.setStyle(style);
  EXPECT_TRUE(pack());
  EXPECT_EQ(heightOf(title), 35);
  setFontSize(title, u"12px");
  EXPECT_TRUE(pack());
  EXPECT_EQ(heightOf(title), 21);
}

TEST_F(FrameLayoutTest, TheTextsOfALabelAreOneText) {
  LumoLabelFrame& title = addFrame(u"frame_title_1", u"One");
  title.getLabel()->addText()->setText(u" two\nand");
  title.getLabel()->addText()->setText(u" three");
  EXPECT_TRUE(pack());
  EXPECT_EQ(heightOf(title), 48);
}

TEST_F(FrameLayoutTest, FiguresOfASummaryHaveTheLinesOfTheirTexts) {
  LumoGraph& graph = *chart().addGraph(u"graph");
  LumoLabelFrame& summary = addFrame(u"frame_statistics_summary_1", u"");
  LumoDescriptionGroup& group = *summary.getLabel()->addDescriptionGroup(graph);
  for (char16_t const* text : {u"Mean = ", u"\nStd. Dev. = ", u"\nN = "}) {
    group.addText()->setText(text);
    group.addDescription(LumoDescription::Name5);
  }
  EXPECT_TRUE(pack());
  EXPECT_EQ(heightOf(summary), 68);
  expectNoOverlap();
}

TEST_F(FrameLayoutTest, AFigureWithoutATextHasALine) {
  LumoGraph& graph = *chart().addGraph(u"graph");
  LumoLabelFrame& summary = addFrame(u"frame_statistics_summary_1", u"");
  summary.getLabel()->addDescriptionGroup(graph)->addDescription(LumoDescription::Name6);
  EXPECT_TRUE(pack());
  EXPECT_EQ(heightOf(summary), 28);
}

TEST_F(FrameLayoutTest, AGroupWithNothingInItIsBlank) {
  LumoGraph& graph = *chart().addGraph(u"graph");
  LumoLabelFrame& summary = addFrame(u"frame_statistics_summary_1", u"");
  summary.getLabel()->addDescriptionGroup(graph);
  EXPECT_FALSE(pack());
}

TEST_F(FrameLayoutTest, AFrameWithoutALabelIsBlank) {
  chart().addLabelFrame(u"frame_title_1");
  EXPECT_FALSE(pack());
}

TEST_F(FrameLayoutTest, LineFeedsThatTheStyleIgnoresMakeNoLines) {
  std::string const text =
      R"(<visualization xmlns="http://xml.vexa.example/visualization" version="2.8">)"
      R"(<labelFrame id="frame_title_1"><label style="s"><text>One)"
      "\n"
      R"(Two</text></label></labelFrame><style id="s" ignoreNewLines="true"/></visualization>)";
  xercesc::XercesDOMParser parser;
  parser.setDoNamespaces(true);
  parser.parse(
      xercesc::MemBufInputSource(reinterpret_cast<XMLByte const*>(text.data()), text.size(), "chart"));
  LumoDocument parsed(parser.getDocument());
  LumoVisualization& visualization = *parsed.getVisualization();
  EXPECT_TRUE(StackedFrames().pack(visualization, nullptr));
  EXPECT_EQ(heightOf(*visualization.getLabelFrames().front()), 28);
}

TEST_F(FrameLayoutTest, VeryManyLinesEndSomewhere) {
  std::u16string const text(100'000, u'\n');
  LumoLabelFrame const& title = addFrame(u"frame_title_1", (u"a" + text).c_str());
  EXPECT_TRUE(pack());
  EXPECT_EQ(heightOf(title), 16 * (1000 * 1.25 + 0.5));
}

// --- What stays

TEST_F(FrameLayoutTest, TouchesNothingWhereLocationsArePreserved) {
  addFrame(u"frame_title_1");
  addFrame(u"frame_footnote_1");
  chart().addGraph(u"graph");
  record().setPreserveLocations(true);
  std::string const before = document.AsUTF8();
  EXPECT_FALSE(pack());
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(FrameLayoutTest, LaysOutWhereLocationsAreNotPreserved) {
  addFrame(u"frame_title_1");
  record().setPreserveLocations(false);
  EXPECT_TRUE(pack());
}

TEST_F(FrameLayoutTest, PreservesLocationsOfItsOwnToo) {
  LumoLabelFrame& title = addFrame(u"frame_title_1");
  EXPECT_TRUE(pack());
  record().setPreserveLocations(true);
  title.getLabel()->getTexts().front()->setText(u"One\nTwo");
  EXPECT_FALSE(pack());
  EXPECT_EQ(heightOf(title), 28);
}

TEST_F(FrameLayoutTest, TwiceGivesTheSame) {
  for (RoleRow const& row : roles) addFrame(row.id);
  addFrame(LumoLabel::PurposeFootnote3, nullptr);
  chart().addGraph(u"graph");
  chart().addLegend(u"legend");
  EXPECT_TRUE(pack());
  std::string const once = document.AsUTF8();
  EXPECT_TRUE(pack());
  EXPECT_EQ(document.AsUTF8(), once);
}

TEST_F(FrameLayoutTest, WithTheChartItselfAsABaselineGivesTheSame) {
  addFrame(u"frame_title_1");
  addFrame(u"frame_footnote_1");
  LumoDocument baseline;
  baseline.getVisualization()->addLabelFrame(u"frame_title_1")->addLocation(LumoLocation::PartTop);
  EXPECT_TRUE(StackedFrames().pack(chart(), &baseline));
  std::string const once = document.AsUTF8();
  EXPECT_TRUE(StackedFrames().pack(chart(), &document));
  EXPECT_EQ(document.AsUTF8(), once);
}

TEST_F(FrameLayoutTest, ATextThatChangedIsLaidOutAnew) {
  LumoLabelFrame& title = addFrame(u"frame_title_1");
  LumoLabelFrame const& subtitle = addFrame(u"frame_subtitle_1");
  LumoGraph const& graph = *chart().addGraph(u"graph");
  EXPECT_TRUE(pack());
  title.getLabel()->getTexts().front()->setText(u"One\nTwo");
  EXPECT_TRUE(pack());
  EXPECT_EQ(heightOf(title), 48);
  EXPECT_EQ(boxOf(subtitle).top, 48);
  EXPECT_EQ(boxOf(graph).top, 76);
  title.getLabel()->getTexts().front()->setText(u"");
  EXPECT_TRUE(pack());
  EXPECT_TRUE(title.getLocations().empty());
  EXPECT_EQ(boxOf(subtitle).top, 0);
}

TEST_F(FrameLayoutTest, TheLastFrameThatGoesFreesTheGraph) {
  LumoLabelFrame& title = addFrame(u"frame_title_1");
  LumoGraph const& graph = *chart().addGraph(u"graph");
  EXPECT_TRUE(pack());
  title.getLabel()->removeTexts();
  EXPECT_FALSE(pack());
  EXPECT_TRUE(graph.getLocations().empty());
}

TEST_F(FrameLayoutTest, AGraphKeepsLocationsOfOthers) {
  addFrame(u"frame_title_1");
  LumoGraph& graph = *chart().addGraph(u"graph");
  graph.addLocation(LumoLocation::PartTop)->setValue(u"50px");
  EXPECT_TRUE(pack());
  EXPECT_EQ(graph.getLocations().size(), 1u);
  EXPECT_EQ(boxOf(graph).top, 50);
}

TEST_F(FrameLayoutTest, TheSizeOfTheChartStaysAsItIs) {
  addFrame(u"frame_title_1");
  chart().addLocation(LumoLocation::PartHeight)->setValue(u"506px");
  EXPECT_TRUE(pack());
  EXPECT_EQ(chart().getLocations().size(), 1u);
}

TEST_F(FrameLayoutTest, FramesMakeRoomForAFixedTitle) {
  LumoLabelFrame& title = addFrame(u"frame_title_1");
  place(title, LumoLocation::PartTop, u"0px");
  place(title, LumoLocation::PartHeight, u"40px");
  LumoLabelFrame const& title2 = addFrame(u"frame_title_2");
  chart().addGraph(u"graph");
  EXPECT_TRUE(pack());
  EXPECT_EQ(title.getLocations().size(), 2u);
  EXPECT_EQ(boxOf(title2).top, 40);
  expectNoOverlap();
}

TEST_F(FrameLayoutTest, FramesMakeRoomForAFixedTitleOfUnknownHeight) {
  LumoLabelFrame& title = addFrame(u"frame_title_2");
  place(title, LumoLocation::PartTop, u"0%");
  LumoLabelFrame const& title1 = addFrame(u"frame_title_1");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(title1).top, 28);
}

TEST_F(FrameLayoutTest, FramesStandAboveAFixedTitleWhereTheyFit) {
  LumoLabelFrame& title = addFrame(u"frame_title_2");
  place(title, LumoLocation::PartBottom, u"68px");
  place(title, LumoLocation::PartHeight, u"40px");
  LumoLabelFrame const& title1 = addFrame(u"frame_title_1");
  LumoLabelFrame const& subtitle = addFrame(u"frame_subtitle_1");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(title1).top, 0);
  EXPECT_EQ(boxOf(title1).bottom, 28);
  EXPECT_EQ(boxOf(subtitle).top, 68);
}

TEST_F(FrameLayoutTest, TheGraphStartsBelowAFixedTitle) {
  LumoLabelFrame& title = addFrame(u"frame_title_1");
  place(title, LumoLocation::PartTop, u"0px");
  LumoGraph const& graph = *chart().addGraph(u"graph");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(graph).top, 28);
}

TEST_F(FrameLayoutTest, FootnotesLieOnThoseThatAreFixedAtTheEnd) {
  LumoLabelFrame& footnote1 = addFrame(u"frame_footnote_1");
  LumoLabelFrame& footnote3 = addFrame(u"frame_footnote_3");
  place(footnote3, LumoLocation::PartBottom, u"100%");
  place(footnote3, LumoLocation::PartHeight, u"10px");
  layOn(footnote1, footnote3);
  place(footnote1, LumoLocation::PartHeight, u"20px");
  LumoLabelFrame const& footnote2 = addFrame(u"frame_footnote_2");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(footnote2).bottom, pageHeight - 30);
  expectNoOverlap();
}

TEST_F(FrameLayoutTest, FixedFramesThatLieOnEachOtherAreNoFloor) {
  LumoLabelFrame& footnote1 = addFrame(u"frame_footnote_1");
  LumoLabelFrame& footnote2 = addFrame(u"frame_footnote_2");
  layOn(footnote1, footnote2);
  layOn(footnote2, footnote1);
  LumoLabelFrame const& footnote3 = addFrame(u"frame_footnote_3");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(footnote3).bottom, pageHeight);
}

TEST_F(FrameLayoutTest, FixedFramesThatLieInACircleEndTheSearch) {
  LumoLabelFrame& footnote1 = addFrame(u"frame_footnote_1");
  LumoLabelFrame& footnote2 = addFrame(u"frame_footnote_2");
  layOn(footnote1, footnote2);
  place(footnote1, LumoLocation::PartBottom, u"100%");
  layOn(footnote2, footnote1);
  LumoLabelFrame const& footnote3 = addFrame(u"frame_footnote_3");
  EXPECT_TRUE(pack());
  EXPECT_EQ(ChartString(footnote3.getLocations().at(2)->getAttribute(u"target")).toUTF8(),
            "frame_footnote_2");
}

TEST_F(FrameLayoutTest, FramesMakeRoomForAFixedTitleBetweenTwoSides) {
  LumoLabelFrame& title = addFrame(u"frame_title_1");
  place(title, LumoLocation::PartTop, u"0px");
  place(title, LumoLocation::PartBottom, u"61px");
  LumoLabelFrame const& title2 = addFrame(u"frame_title_2");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(title2).top, 61);
}

TEST_F(FrameLayoutTest, AFixedTitleWhosePlaceIsNotKnownIsNoObstacle) {
  LumoLabelFrame& automatic = addFrame(u"frame_title_1");
  place(automatic, LumoLocation::PartTop, u"0px");
  automatic.getLocations().front()->setMethod(LumoLocation::Method1);
  place(addFrame(u"frame_title_2"), LumoLocation::PartTop, u"1%");
  LumoLabelFrame const& subtitle = addFrame(u"frame_subtitle_1");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(subtitle).top, 0);
}

TEST_F(FrameLayoutTest, AFixedFloorWithoutAnIdGetsTheUsualOne) {
  LumoLabelFrame& footnote1 = addFrame(LumoLabel::PurposeFootnote1, nullptr);
  place(footnote1, LumoLocation::PartBottom, u"100%");
  place(footnote1, LumoLocation::PartHeight, u"10px");
  LumoLabelFrame const& footnote2 = addFrame(u"frame_footnote_2");
  EXPECT_TRUE(pack());
  EXPECT_EQ(ChartString(footnote1.getId()).toUTF8(), "frame_footnote_1");
  EXPECT_EQ(boxOf(footnote2).bottom, pageHeight - 10);
}

TEST_F(FrameLayoutTest, AFixedFrameThatCannotBeATargetIsNoFloor) {
  addFrame(u"frame_footnote_1", u"");
  place(addFrame(u"frame_footnote_1"), LumoLocation::PartBottom, u"100%");
  LumoLabelFrame const& footnote2 = addFrame(u"frame_footnote_2");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(footnote2).bottom, pageHeight);
}

TEST_F(FrameLayoutTest, AFixedFrameWithAnotherSideAtTheEndIsNoFloor) {
  place(addFrame(u"frame_footnote_1"), LumoLocation::PartRight, u"100%");
  LumoLabelFrame const& footnote2 = addFrame(u"frame_footnote_2");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(footnote2).bottom, pageHeight);
}

TEST_F(FrameLayoutTest, ValuesFarOutOfThePageAreLimited) {
  LumoLabelFrame& title = addFrame(u"frame_title_1");
  place(title, LumoLocation::PartTop, u"-1e300px");
  place(title, LumoLocation::PartBottom, u"1e300px");
  LumoLabelFrame const& title2 = addFrame(u"frame_title_2");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(title2).top, 10'000'000);
}

// --- Charts of other forms

TEST_F(FrameLayoutTest, AnEmptyChartHasNothingToLayOut) {
  std::string const before = document.AsUTF8();
  EXPECT_FALSE(pack());
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_F(FrameLayoutTest, AChartWithoutAGraphIsLaidOut) {
  for (RoleRow const& row : roles) addFrame(row.id);
  EXPECT_TRUE(pack());
  expectNoOverlap();
}

TEST_F(FrameLayoutTest, SeveralGraphsShareTheSpaceBetween) {
  addFrame(u"frame_title_1");
  addFrame(u"frame_footnote_1");
  LumoGraph const& first = *chart().addGraph(u"graph");
  LumoGraph const& second = *chart().addGraph(u"graph2");
  EXPECT_TRUE(pack());
  for (LumoGraph const* graph : {&first, &second}) {
    EXPECT_EQ(boxOf(*graph).top, 28);
    EXPECT_EQ(boxOf(*graph).bottom, pageHeight - 28);
  }
}

TEST_F(FrameLayoutTest, AContainerLiesBetweenTheFramesAroundIt) {
  addFrame(u"frame_title_1");
  LumoContainer& container = *chart().addContainer(u"c");
  container.addGraph(u"graph");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(container).top, 28);
  EXPECT_TRUE(container.getGraphs().front()->getLocations().empty());
}

TEST_F(FrameLayoutTest, AContainerIsAPageOfItsOwn) {
  LumoLabelFrame const& outer = addFrame(u"frame_title_1");
  LumoContainer& container = *chart().addContainer(u"c");
  LumoLabelFrame const& inner = addFrame(container, u"frame_title_2", u"One\nTwo");
  LumoGraph const& graph = *container.addGraph(u"graph");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(outer).top, 0);
  EXPECT_EQ(boxOf(inner).top, 0);
  EXPECT_EQ(boxOf(graph).top, 48);
  std::string const once = document.AsUTF8();
  EXPECT_TRUE(pack());
  EXPECT_EQ(document.AsUTF8(), once);
}

TEST_F(FrameLayoutTest, LocationsCountThroughTheChart) {
  addFrame(u"frame_title_1");
  LumoContainer& container = *chart().addContainer(u"c");
  addFrame(container, u"frame_title_2", u"Text");
  EXPECT_TRUE(pack());
  std::multiset<std::string> ids;
  for (LumoLabelFrame const* frame : {chart().getLabelFrames().front(), container.getLabelFrames().front()}) {
    for (LumoLocation const* location : frame->getLocations())
      ids.insert(ChartString(location->getId()).toUTF8());
  }
  for (LumoLocation const* location : container.getLocations())
    ids.insert(ChartString(location->getId()).toUTF8());
  EXPECT_EQ(ids, (std::multiset<std::string>{"packed_1", "packed_2", "packed_3", "packed_4", "packed_5",
                                             "packed_6", "packed_7", "packed_8", "packed_9"}));
}

TEST_F(FrameLayoutTest, WritesTheseLocations) {
  addFrame(u"frame_title_1");
  addFrame(u"frame_footnote_1");
  addFrame(u"frame_footnote_2");
  chart().addGraph(u"graph");
  EXPECT_TRUE(pack());
  std::vector<std::string> written;
  for (LumoLabelFrame const* frame : chart().getLabelFrames()) {
    for (LumoLocation const* location : frame->getLocations()) written.push_back(location->AsUTF8());
  }
  for (LumoLocation const* location : chart().getGraphs().front()->getLocations())
    written.push_back(location->AsUTF8());
  std::string const start = R"(<location xmlns="http://xml.vexa.example/visualization" id="packed_)";
  std::vector<std::string> const expected = {R"(1" method="0" part="0" value="0%"/>)",
                                             R"(2" method="0" part="1" value="100%"/>)",
                                             R"(3" method="0" part="2" value="0px"/>)",
                                             R"(4" method="0" part="5" value="28px"/>)",
                                             R"(9" method="0" part="0" value="0%"/>)",
                                             R"(10" method="0" part="1" value="100%"/>)",
                                             R"(11" method="3" part="3" target="frame_footnote_2"/>)",
                                             R"(12" method="0" part="5" value="28px"/>)",
                                             R"(5" method="0" part="0" value="0%"/>)",
                                             R"(6" method="0" part="1" value="100%"/>)",
                                             R"(7" method="0" part="3" value="100%"/>)",
                                             R"(8" method="0" part="5" value="28px"/>)",
                                             R"(13" method="0" part="2" value="28px"/>)",
                                             R"(14" method="3" part="3" target="frame_footnote_1"/>)"};
  ASSERT_EQ(written.size(), expected.size());
  for (std::size_t at = 0; at < expected.size(); ++at) EXPECT_EQ(written[at], start + expected[at]);
}

}  // namespace
