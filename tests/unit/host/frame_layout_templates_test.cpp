// Templates that give texts another size after their frames have been packed.

#include "frame_layout_fixture.h"
#include "template_fixture.h"

#include "host/templates.h"

#include <filesystem>
#include <fstream>
#include <iterator>

using namespace kestrel::test;

namespace {

char const titledChart[] =
    R"(<graph id="g"/>)"
    R"(<labelFrame id="frame_title_1"><label style="a"><text>T</text></label></labelFrame>)"
    R"(<labelFrame id="frame_subtitle_1"><label style="b"><text>S</text></label></labelFrame>)"
    R"(<labelFrame id="frame_footnote_1"><label><text>F</text></label></labelFrame>)"
    R"(<labelFrame id="frame_footnote_2"><label style="b"><text>F</text></label></labelFrame>)"
    R"(<style id="a" font_size="12pt"/><style id="b" font_size="9pt"/>)";

std::string shipped(std::string const& name) {
  std::ifstream file(std::filesystem::path(KESTREL_SHARE_DIR) / "templates" / (name + ".xml"));
  return {std::istreambuf_iterator<char>(file), {}};
}

class TemplatesAfterPacking : public TemplateTest {
 protected:
  TemplatesAfterPacking() { load(titledChart); }

  void pack() { FramePacker().packFrames(chart->visualization(), nullptr); }

  Box boxOf(std::size_t frame) { return Reader().boxOf(*chart->visualization().getLabelFrames().at(frame)); }

  /// From the top of the page to its end.
  void expectInOrder() {
    std::vector<Box> boxes = {boxOf(0), boxOf(1), Reader().boxOf(*chart->visualization().getGraphs().front()),
                              boxOf(2), boxOf(3)};
    EXPECT_EQ(boxes.front().top, 0);
    EXPECT_EQ(boxes.back().bottom, pageHeight);
    for (std::size_t at = 1; at < boxes.size(); ++at) EXPECT_EQ(boxes[at - 1].bottom, boxes[at].top) << at;
  }

  double heightOf(std::size_t frame) { return boxOf(frame).bottom - boxOf(frame).top; }

  /// The locations as text, in document order.
  std::string locations() {
    std::string all;
    for (LumoLabelFrame const* frame : chart->visualization().getLabelFrames()) {
      for (LumoLocation const* location : frame->getLocations()) all += location->AsUTF8() + "\n";
    }
    return all;
  }
};

TEST_F(TemplatesAfterPacking, MoveWhatLiesAroundALargerTitle) {
  pack();
  apply(R"(<setFont part="title" size="36pt"/>)");
  EXPECT_EQ(heightOf(0), 84);
  EXPECT_EQ(boxOf(1).top, 84);
  expectInOrder();
}

TEST_F(TemplatesAfterPacking, MoveFootnotesToo) {
  pack();
  apply(R"(<setFont part="footnote" size="36pt"/>)");
  EXPECT_EQ(heightOf(2), 84);
  EXPECT_EQ(heightOf(3), 84);
  expectInOrder();
}

TEST_F(TemplatesAfterPacking, OfLargeTypeLeaveNoOverlap) {
  pack();
  EXPECT_TRUE(applyText(shipped("large_type")));
  EXPECT_EQ(heightOf(0), 66);  // 28 pt
  EXPECT_EQ(heightOf(1), 52);  // 22 pt
  EXPECT_EQ(heightOf(2), 38);  // 16 pt
  expectInOrder();
}

TEST_F(TemplatesAfterPacking, GiveWhatPackingWouldGiveThen) {
  pack();
  applyText(shipped("large_type"));
  std::string const moved = chart->text();
  pack();
  EXPECT_EQ(chart->text(), moved);
}

TEST_F(TemplatesAfterPacking, AreTheSameTheSecondTime) {
  pack();
  applyText(shipped("large_type"));
  std::string const once = chart->text();
  applyText(shipped("large_type"));
  EXPECT_EQ(chart->text(), once);
}

TEST_F(TemplatesAfterPacking, ThatChangeNoFontOfALabelChangeNoLocation) {
  pack();
  // Shows that nothing is packed: packing would move the subtitle.
  chart->visualization().getLabelFrames()[0]->getLabel()->getTexts().front()->setText(u"One\nTwo");
  std::string const before = locations();
  apply(R"(<setFont part="title" family="Serif" weight="bold" color="#102030"/>)"
        R"(<setFont part="axisLabel" size="40pt"/><setFont part="title" size="12pt"/>)"
        R"(<addFrame type="graph"/>)");
  EXPECT_EQ(locations(), before);
}

TEST_F(TemplatesAfterPacking, LeaveWhatOthersHavePlaced) {
  LumoLabelFrame& title = *chart->visualization().getLabelFrames().front();
  place(title, LumoLocation::PartTop, u"0px");
  place(title, LumoLocation::PartHeight, u"20px");
  pack();
  apply(R"(<setFont part="all" size="36pt"/>)");
  EXPECT_EQ(boxOf(0).bottom, 20);
  EXPECT_EQ(boxOf(1).top, 20);
  EXPECT_EQ(title.getLocations().size(), 2u);
}

TEST_F(TemplatesAfterPacking, LeaveAChartThatNobodyHasPacked) {
  apply(R"(<setFont part="all" size="36pt"/>)");
  EXPECT_EQ(locations(), "");
}

TEST_F(TemplatesAfterPacking, LeaveLocationsThatAreToBePreserved) {
  pack();
  std::string const before = locations();
  chart->visualization().addExtension()->setPreserveLocations(true);
  apply(R"(<setFont part="all" size="36pt"/>)");
  EXPECT_EQ(locations(), before);
}

TEST_F(TemplatesAfterPacking, LeaveTheLocationsOfAHostWithAnotherLayout) {
  pack();
  std::string const before = locations();
  kestrel::host::Host host = kestrel::host::Host::current();
  host.frameLayout = std::make_shared<kestrel::host::NoFrameLayout>();
  kestrel::host::ScopedHost const other(host);
  apply(R"(<setFont part="all" size="36pt"/>)");
  EXPECT_EQ(locations(), before);
}

}  // namespace
