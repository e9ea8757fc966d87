// Frames without a role, and ids that somebody else has.

#include "frame_layout_fixture.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

template <typename Part>
std::vector<std::string> idsOfLocations(Part const& part) {
  std::vector<std::string> ids;
  for (LumoLocation const* location : part.getLocations()) {
    ids.push_back(ChartString(location->getId()).toUTF8());
  }
  return ids;
}

// --- Without a role

TEST_F(FrameLayoutTest, FramesWithoutARoleStandBelowTheFootnotesInTheirOrder) {
  LumoLabelFrame const& first = addFrame(u"source");
  LumoLabelFrame const& footnote3 = addFrame(u"frame_footnote_3");
  LumoLabelFrame const& second = addFrame(u"frame_title_10");
  LumoLabelFrame const& third = addFrame(u"frame_statistics_summary_1a");
  LumoLabelFrame const& title = addFrame(u"frame_title_1");
  LumoGraph const& graph = *chart().addGraph(u"graph");
  EXPECT_TRUE(pack());
  expectNoOverlap();
  expectBelowEachOther(title, graph, footnote3, first, second, third);
  EXPECT_EQ(boxOf(third).bottom, pageHeight);
}

TEST_F(FrameLayoutTest, AFrameWithoutARoleAndAnIdGetsAnId) {
  LumoLabelFrame const& first = addFrame(u"");
  LumoLabelFrame const& second = addFrame(nullptr);
  EXPECT_TRUE(pack());
  expectNoOverlap();
  EXPECT_EQ(ChartString(second.getId()).toUTF8(), "frame_other_1");
  EXPECT_EQ(ChartString(first.getId()).toUTF8(), "frame_other_1_1");
}

TEST_F(FrameLayoutTest, ABlankFrameWithoutARoleGetsNoRoom) {
  LumoLabelFrame const& frame = addFrame(u"source", u" ");
  EXPECT_FALSE(pack());
  EXPECT_THAT(frame.getLocations(), IsEmpty());
}

TEST_F(FrameLayoutTest, TitlesKeepClearOfAFixedFrameWithoutARole) {
  LumoLabelFrame& note = addFrame(u"note");
  place(note, LumoLocation::PartLeft, u"80%");
  place(note, LumoLocation::PartTop, u"10px");
  place(note, LumoLocation::PartHeight, u"30px");
  LumoLabelFrame const& title = addFrame(u"frame_title_1");
  EXPECT_TRUE(pack());
  EXPECT_EQ(note.getLocations().size(), 3u);
  EXPECT_EQ(boxOf(title).top, 40);
}

TEST_F(FrameLayoutTest, FootnotesLieOnAFixedFrameWithoutARoleAtTheEnd) {
  LumoLabelFrame& note = addFrame(u"note");
  place(note, LumoLocation::PartBottom, u"100%");
  place(note, LumoLocation::PartHeight, u"30px");
  LumoLabelFrame const& footnote = addFrame(u"frame_footnote_1");
  EXPECT_TRUE(pack());
  expectNoOverlap();
  EXPECT_EQ(boxOf(footnote).bottom, pageHeight - 30);
}

TEST_F(FrameLayoutTest, AFixedFrameWithoutARoleMayLieOverTheData) {
  LumoLabelFrame& note = addFrame(u"note");
  place(note, LumoLocation::PartTop, u"28px");
  place(note, LumoLocation::PartHeight, u"30px");
  addFrame(u"frame_title_1");
  LumoGraph const& graph = *chart().addGraph(u"graph");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(graph).top, 28);
}

TEST_F(FrameLayoutTest, ATextAcrossTheWholePageIsNoLineToKeepClearOf) {
  LumoLabelFrame& mark = addFrame(u"mark");
  place(mark, LumoLocation::PartTop, u"0%");
  place(mark, LumoLocation::PartBottom, u"100%");
  LumoLabelFrame const& title = addFrame(u"frame_title_1");
  LumoLabelFrame const& footnote = addFrame(u"frame_footnote_1");
  EXPECT_TRUE(pack());
  EXPECT_EQ(boxOf(title).top, 0);
  EXPECT_EQ(boxOf(footnote).bottom, pageHeight);
}

// --- Ids

TEST_F(FrameLayoutTest, NumbersThatOtherElementsHaveAreLeftOut) {
  chart().addGraph(u"packed_1");
  LumoStyle& style = *chart().addStyle();
  style.setId(u"packed_3");
  LumoLabelFrame const& title = addFrame(u"frame_title_1");
  EXPECT_TRUE(pack());
  EXPECT_THAT(idsOfLocations(title), ElementsAre("packed_2", "packed_4", "packed_5", "packed_6"));
  std::string const once = document.AsUTF8();
  EXPECT_TRUE(pack());
  EXPECT_EQ(document.AsUTF8(), once);
  EXPECT_EQ(ChartString(style.getId()).toUTF8(), "packed_3");
}

TEST_F(FrameLayoutTest, ALocationOfThePageKeepsItsIdWhateverItIs) {
  LumoLocation& height = *chart().addLocation(LumoLocation::PartHeight);
  height.setId(u"packed_1");
  LumoLabelFrame const& title = addFrame(u"frame_title_1");
  EXPECT_TRUE(pack());
  EXPECT_THAT(idsOfLocations(chart()), ElementsAre("packed_1"));
  EXPECT_THAT(idsOfLocations(title), ElementsAre("packed_2", "packed_3", "packed_4", "packed_5"));
}

TEST_F(FrameLayoutTest, IdsThatOnlyBeginLikeItsOwnAreOfSomebodyElse) {
  for (char16_t const* id : {u"packed_", u"packed_by_hand", u"packed_1a"}) {
    addFrame(u"frame_title_1").addLocation(LumoLocation::PartLeft)->setId(id);
  }
  std::string const before = document.AsUTF8();
  EXPECT_FALSE(pack());
  EXPECT_EQ(document.AsUTF8(), before);
}

}  // namespace
