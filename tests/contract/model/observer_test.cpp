#include "operations.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Kind = LumoChangeObserver::Kind;

/// Notes every change; throws at the n-th when told to.
class Trap final : public LumoChangeObserver {
 public:
  void beforeChange(Kind kind, LumoBaseElement const& element) override {
    seen.push_back({kind, utf8(element.getImplementation()->getTagName())});
    if (seen.size() == throwAt) throw std::runtime_error("no further");
  }

  struct Change {
    Kind kind;
    std::string element;
    bool operator==(Change const&) const = default;
  };

  std::vector<Change> seen;
  std::size_t throwAt = 0;
};

std::ostream& operator<<(std::ostream& out, Trap::Change const& change) {
  return out << static_cast<int>(change.kind) << ' ' << change.element;
}

class Observer : public testing::Test {
 protected:
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
  Trap trap;

  void watch() { document.setChangeObserver(&trap); }
};

using Changes = std::vector<Trap::Change>;

TEST_F(Observer, HearsOfAnAddedElementThroughItsParent) {
  LumoGraph& graph = graphIn(chart);
  watch();
  graph.addFaceting();
  EXPECT_EQ(trap.seen, (Changes{{Kind::AddElement, "graph"}}));
}

TEST_F(Observer, HearsOfEachStepOfAnAdder) {
  watch();
  chart.addGraph(u"g");
  EXPECT_EQ(trap.seen, (Changes{{Kind::AddElement, "visualization"}, {Kind::SetAttribute, "graph"}}));
}

TEST_F(Observer, HearsOfAttributesSetAndRemoved) {
  LumoStyle& style = styleIn(chart);
  watch();
  style.setColor(u"red");
  style.setVisible(true);
  style.setColor(nullptr);
  style.removeVisible();
  EXPECT_EQ(trap.seen, (Changes{{Kind::SetAttribute, "style"},
                                {Kind::SetAttribute, "style"},
                                {Kind::RemoveAttribute, "style"},
                                {Kind::RemoveAttribute, "style"}}));
}

TEST_F(Observer, HearsNothingWhenNothingChanges) {
  LumoStyle& style = styleIn(chart);
  watch();
  style.removeColor();
  style.setColor(nullptr);
  style.removeExtensions();
  chart.removeLocations();
  chart.setComment(nullptr);
  style.getColor();
  document.AsUTF8();
  EXPECT_EQ(trap.seen, Changes{});
}

TEST_F(Observer, HearsOfReferences) {
  LumoGraph& graph = graphIn(chart);
  LumoStyle& style = styleIn(chart);
  watch();
  graph.setCellStyle(style);
  EXPECT_EQ(trap.seen, (Changes{{Kind::SetAttribute, "graph"}}));
}

TEST_F(Observer, HearsOfReferencesThatFollowAnId) {
  LumoGraph& graph = graphIn(chart);
  LumoStyle& style = styleIn(chart);
  graph.setCellStyle(style);
  watch();
  style.setId(u"renamed");
  EXPECT_EQ(trap.seen, (Changes{{Kind::SetAttribute, "style"}, {Kind::SetAttribute, "graph"}}));
}

TEST_F(Observer, HearsOfEachRemovedElement) {
  LumoLabel& label = labelIn(chart);
  label.addText();
  label.addText();
  watch();
  label.removeTexts();
  EXPECT_EQ(trap.seen, (Changes{{Kind::RemoveElement, "text"}, {Kind::RemoveElement, "text"}}));
}

TEST_F(Observer, HearsOfMovedElements) {
  chart.addContainer(u"c")->addGraph(u"g");
  watch();
  chart.reparentContainerChildren();
  EXPECT_EQ(trap.seen, (Changes{{Kind::MoveElement, "graph"}}));
}

TEST_F(Observer, HearsOfTextsAndComments) {
  LumoText& text = *labelIn(chart).addText();
  watch();
  text.setText(u"a");
  chart.setComment(u"b");
  EXPECT_EQ(trap.seen, (Changes{{Kind::SetText, "text"}, {Kind::SetComment, "visualization"}}));
}

TEST_F(Observer, HearsOfElementsOfAParsedChart) {
  ParsedChart parsed(chartText("<graph/>"));
  parsed.document().setChangeObserver(&trap);
  parsed.chart().getGraphs().at(0)->addPoint(nullptr);
  EXPECT_EQ(trap.seen, (Changes{{Kind::AddElement, "graph"}}));
}

TEST_F(Observer, IsNoLongerHeardAfterNull) {
  watch();
  document.setChangeObserver(nullptr);
  graphIn(chart);
  EXPECT_EQ(trap.seen, Changes{});
}

TEST_F(Observer, AThrowLeavesTheChartAsItWas) {
  LumoLabel& label = labelIn(chart);
  LumoText& text = *label.addText();
  text.setText(u"a text");
  LumoStyle& style = styleIn(chart);
  label.setStyle(style);
  std::string const before = document.AsUTF8();
  watch();
  std::vector<std::function<void()>> const changes{
      [&] { label.addText(); },
      [&] { label.removeTexts(); },
      [&] { text.setText(u"other"); },
      [&] { style.setId(u"renamed"); },
      [&] { style.setColor(u"red"); },
      [&] { label.setTextFrameStyle(style); },
      [&] { style.setId(nullptr); },
      [&] { chart.setComment(u"comment"); },
      [&] {
        chart.reparentStyles(style);
        chart.addStyle();
      },
      [&] { variableIn(chart).addFormat(); },
  };
  for (std::size_t i = 0; i < changes.size(); ++i) {
    trap.seen.clear();
    trap.throwAt = 1;
    EXPECT_THROW(changes[i](), std::runtime_error) << i;
    EXPECT_EQ(document.AsUTF8(), before) << i;
  }
}

TEST_F(Observer, AThrowWhileReferencesFollowLeavesAllOfThem) {
  LumoStyle& style = styleIn(chart, u"s");
  for (int i = 0; i < 3; ++i) graphIn(chart).setCellStyle(style);
  std::string const before = document.AsUTF8();
  watch();
  for (std::size_t n = 1; n <= 4; ++n) {
    trap.seen.clear();
    trap.throwAt = n;
    EXPECT_THROW(style.setId(u"renamed"), std::runtime_error);
    EXPECT_EQ(document.AsUTF8(), before) << n;
  }
  trap.throwAt = 0;
  style.setId(u"renamed");
  EXPECT_EQ(utf8(chart.getGraphs().at(2)->getAttribute(u"cellStyle")), "renamed");
}

TEST_F(Observer, AThrowAtAnyChangeLeavesAUsableChart) {
  std::size_t changes = 0;
  {
    LumoDocument whole;
    Trap counter;
    whole.setChangeObserver(&counter);
    describeEverything(*whole.getVisualization());
    changes = counter.seen.size();
  }
  ASSERT_GT(changes, 500U);
  for (std::size_t n = 1; n <= changes; ++n) {
    LumoDocument part;
    Trap trapAt;
    trapAt.throwAt = n;
    part.setChangeObserver(&trapAt);
    EXPECT_THROW(describeEverything(*part.getVisualization()), std::runtime_error) << n;
    part.setChangeObserver(nullptr);
    styleIn(*part.getVisualization(), u"afterwards");
    ParsedChart parsed(part.AsUTF8());
    EXPECT_NE(parsed.chart().getStyleById(u"afterwards"), nullptr) << n;
  }
}

}  // namespace
