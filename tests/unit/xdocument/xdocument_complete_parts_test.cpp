// What the completion does to shapes, clusters, colours, frames and gridlines.

#include "xdocument.h"

#include "change_log.h"
#include "completion_fixture.h"
#include "document_record.h"

#include "host/log.h"
#include "model/paneling.h"
#include "model/tokens.h"

#include <gmock/gmock.h>
#include <xercesc/dom/DOMDocument.hpp>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- Sizes of shapes

class ShapeSizes : public CompletionTest {
 protected:
  LumoStyleCycle& first = addCycle(u"first", {u"1px", u"2px"});
  LumoStyleCycle& second = addCycle(u"second", {u"3px"});
};

TEST_F(ShapeSizes, GoFromEveryStyleOfEveryCycleOfEveryShape) {
  first.addCycle()->addStyle()->setSize(u"4px");
  addShape(first);
  addShape(second);
  complete();
  EXPECT_THAT(sizesIn(first), ElementsAre("(absent)", "(absent)", "(absent)"));
  EXPECT_THAT(sizesIn(second), ElementsAre("(absent)"));
}

TEST_F(ShapeSizes, GoInTheOrderOfTheShapesInTheDocument) {
  addShape(second);
  addShape(first);
  std::vector<std::string> sizes;
  {
    ChangeTrap const trap(model, 0, [&] {
      std::string now;
      for (LumoStyleCycle const* cycle : {&first, &second}) {
        for (std::string const& size : sizesIn(*cycle)) now += size + " ";
      }
      if (sizes.empty() || sizes.back() != now) sizes.push_back(now);
    });
    complete();
  }
  EXPECT_THAT(sizes, ElementsAre("1px 2px 3px ", "1px 2px (absent) ", "(absent) 2px (absent) "));
}

TEST_F(ShapeSizes, StayInCyclesOfOtherAesthetics) {
  addShape(first);
  point.addColor()->setCycle(second);
  complete();
  EXPECT_THAT(sizesIn(second), ElementsAre("3px"));
}

TEST_F(ShapeSizes, StayInStylesThatAreInNoCycle) {
  addShape(first);
  LumoStyle& style = *visualization.addStyle();
  style.setSize(u"9px");
  complete();
  EXPECT_EQ(attribute(&style, u"size"), "9px");
}

TEST_F(ShapeSizes, AreOnlyWhatIsTakenFromAStyle) {
  LumoStyle& style = *first.getCycles().front()->getStyles().front();
  style.setColor(u"#ff0000");
  addShape(first);
  complete();
  EXPECT_EQ(attribute(&style, u"color"), "#ff0000");
}

TEST_F(ShapeSizes, OfAShapeWithoutACycleAreNone) {
  point.addShape();
  addShape(first);
  complete();
  EXPECT_THAT(sizesIn(first), ElementsAre("(absent)", "(absent)"));
}

TEST_F(ShapeSizes, OfAShapeThatTheModelDoesNotKnowAreNone) {
  auto& parent = *point.getImplementation();
  parent.appendChild(parent.getOwnerDocument()->createElementNS(parent.getNamespaceURI(), LumoUni::_shape));
  addShape(first);
  complete();
  EXPECT_THAT(sizesIn(first), ElementsAre("(absent)", "(absent)"));
}

// --- Variables that cluster

class ClusterFormats : public CompletionTest {
 protected:
  ClusterFormats() { document.setTableSwatch(true); }

  void completeWithGraph() {
    document.getExternalGraph();
    complete();
  }
};

TEST_F(ClusterFormats, AreThoseOfTheVariableWhoseColumnIsTheIdWithoutItsLastCharacter) {
  auto const& original = addOriginal(u"age", {u"%", u" kg"});
  auto const& cluster = addCluster(u"ageX");
  completeWithGraph();
  EXPECT_THAT(suffixes(cluster), ElementsAre("%", " kg"));
  EXPECT_THAT(suffixes(original), ElementsAre("%", " kg"));
}

TEST_F(ClusterFormats, ComeBehindTheOnesThatAreThere) {
  addOriginal(u"age", {u"%"});
  auto& cluster = addCluster(u"ageX");
  cluster.addFormat()->setSuffix(u" m");
  completeWithGraph();
  EXPECT_THAT(suffixes(cluster), ElementsAre(" m", "%"));
}

TEST_F(ClusterFormats, AreFoundWithoutRegardToCase) {
  addOriginal(u"AGE", {u"%"});
  auto const& cluster = addCluster(u"ageX");
  completeWithGraph();
  EXPECT_THAT(suffixes(cluster), ElementsAre("%"));
}

TEST_F(ClusterFormats, AreThoseOfTheFirstMatch) {
  addOriginal(u"age", {u"%"});
  addOriginal(u"age", {u" kg"});
  auto const& cluster = addCluster(u"ageX");
  completeWithGraph();
  EXPECT_THAT(suffixes(cluster), ElementsAre("%"));
}

TEST_F(ClusterFormats, GoToTheClusterOfEveryDimensionOfEveryGraph) {
  addOriginal(u"age", {u"%"});
  auto const& cluster = addCluster(u"ageX");
  auto& ofY = *visualization.addSourceVariable(u"ageY");
  y.setClusterVariable(ofY);
  auto& ofOthers = *visualization.addSourceVariable(u"ageO");
  graph.addCoordinates(u"more")->addDimension()->setClusterVariable(ofOthers);
  auto& ofOtherGraph = *visualization.addSourceVariable(u"ageG");
  visualization.addGraph(u"other")->addCoordinates(u"its")->addDimension()->setClusterVariable(ofOtherGraph);
  completeWithGraph();
  for (LumoSourceVariable const* variable :
       std::vector<LumoSourceVariable const*>{&cluster, &ofY, &ofOthers, &ofOtherGraph}) {
    EXPECT_THAT(suffixes(*variable), ElementsAre("%")) << attribute(variable, u"id");
  }
}

TEST_F(ClusterFormats, GoTwiceToAClusterOfTwoDimensions) {
  addOriginal(u"age", {u"%"});
  auto const& cluster = addCluster(u"ageX");
  y.setClusterVariable(cluster);
  completeWithGraph();
  EXPECT_THAT(suffixes(cluster), ElementsAre("%", "%"));
}

TEST_F(ClusterFormats, AreNoneWithoutTheTableSwatch) {
  document.setTableSwatch(false);
  addOriginal(u"age", {u"%"});
  auto const& cluster = addCluster(u"ageX");
  completeWithGraph();
  EXPECT_THAT(suffixes(cluster), IsEmpty());
}

TEST_F(ClusterFormats, WithoutAClusterNeedNoGraph) {
  document.SetOuterFrame(show);
  complete();
  EXPECT_THAT(fragments(), ElementsAre(outerShown));
}

TEST_F(ClusterFormats, OfAnUnknownVariablePassToTheCaller) {
  addOriginal(u"weight", {u"%"});
  addCluster(u"ageX");
  document.SetOuterFrame(show);
  EXPECT_THROW(completeWithGraph(), ChartException);
  EXPECT_THAT(fragments(), IsEmpty());
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(ClusterFormats, WithoutAGraphBuilderPassToTheCaller) {
  addOriginal(u"age", {u"%"});
  addCluster(u"ageX");
  EXPECT_THROW(complete(), ChartException);
  EXPECT_THAT(reports(), IsEmpty());
}

/// Two graphs: the looks of the first one's area are those of the second one's only cell.
class Swatches : public ClusterFormats {
 protected:
  Swatches() {
    LumoStyleCycle& looks = addCycle(u"looks", {u"1px"});
    looks.getCycles().front()->getStyles().front()->setColor(u"#123456");
    graph.addArea(u"area")->addColor()->setCycle(looks);
    cell = visualization.addStyle();
    cell->setId(u"cell");
    LumoFacetLayout& panels = *visualization.addGraph(u"swatches")->addFacetLayout();
    panels.addSetCellProperties()->addSetFrameStyle()->setStyle(*cell);
  }

  LumoStyle* cell;
};

TEST_F(Swatches, TakeTheLooksOfTheFirstGraph) {
  complete();
  EXPECT_EQ(attribute(cell, u"color"), "#123456");
}

TEST_F(Swatches, StayAsTheyAreWithoutTheTableSwatch) {
  document.setTableSwatch(false);
  complete();
  EXPECT_EQ(attribute(cell, u"color"), "(absent)");
}

TEST_F(Swatches, ComeBeforeTheFormatsOfClusters) {
  addOriginal(u"age", {u"%"});
  auto const& cluster = addCluster(u"ageX");
  document.getExternalGraph();
  recordOf(document).mAddDefaultLooks = false;
  std::vector<std::string> lines;
  {
    ChangeLog log(model);
    complete();
    lines = log.linesOf({"style", "sourceVariable"});
  }
  EXPECT_THAT(lines, ElementsAre("style color=#123456", "sourceVariable adds format"));
  EXPECT_THAT(suffixes(cluster), ElementsAre("%"));
}

// --- Colours

using ColorsOfTheHost = CompletionTest;

std::string setColor(char const* number, std::string const& styles) {
  return std::string("<setColor aestheticNumber=\"") + number + "\"><cycle>" + styles + "</cycle></setColor>";
}

constexpr char setStyleRed[] =
    "<setStyle type='scatter' subtype='simple'><style color='#ff0000'/></setStyle>"
    "<setStyle type='histogram'><style color='#ff0000'/></setStyle>"
    "<setStyle type='bar' subtype='simple'><style color='#ff0000'/></setStyle>"
    "<setStyle type='range' subtype='simple'><style color='#ff0000'/></setStyle>"
    "<setStyle type='line' subtype='3D'><style color='#ff0000'/></setStyle>"
    "<setStyle type='schema' subtype='simple'><style color='#ff0000'/></setStyle>"
    "<setStyle type='schema' subtype='fenceStyle'><style color='#ff0000'/></setStyle>"
    "<setStyle type='area' subtype='simple'><style color='#ff0000'/></setStyle>";

TEST_F(ColorsOfTheHost, OneGoesToEachAestheticAndToTheStyles) {
  document.AddColorSpec(red);
  complete();
  std::string const style = "<style color=\"#ff0000\"/>";
  EXPECT_THAT(fragments(), ElementsAre(setColor("1", style), setColor("2", style), setColor("3", style),
                                       setColor("4", style), setColor("5", style), setStyleRed));
}

TEST_F(ColorsOfTheHost, AllGoToTheAestheticsAndTheFirstToTheStyles) {
  document.AddColorSpec(red);
  document.AddColorSpec(red);
  document.AddColorSpec(blue);
  complete();
  std::string const styles = "<style color=\"#ff0000\"/><style color=\"#ff0000\"/><style color=\"#1020ff\"/>";
  EXPECT_THAT(fragments(), ElementsAre(setColor("1", styles), setColor("2", styles), setColor("3", styles),
                                       setColor("4", styles), setColor("5", styles), setStyleRed));
}

TEST_F(ColorsOfTheHost, HaveTheirPartsHeldWithinAByte) {
  document.AddColorSpec({0, 300, 1, 256});
  complete();
  ASSERT_FALSE(fragments().empty());
  EXPECT_EQ(fragments()[0], setColor("1", "<style color=\"#ff01ff\"/>"));
}

TEST_F(ColorsOfTheHost, ThatAreNoneHaveNoFragments) {
  complete();
  EXPECT_THAT(fragments(), IsEmpty());
}

TEST_F(ColorsOfTheHost, AreAppliedFragmentByFragmentWithoutABaseline) {
  document.doNotModify(false);
  document.AddColorSpec(red);
  complete();
  EXPECT_EQ(linesOf("start "), std::vector<std::string>(7, "without baseline"));
  EXPECT_EQ(recorder.count(Operation::ApplyTemplate), 6u);
  EXPECT_EQ(engine->calls.size(), 12u);
  EXPECT_TRUE(engine->calls[10].starts_with("7 sets "));
}

TEST_F(ColorsOfTheHost, ThatTheEngineRefusesDoNotStopTheRest) {
  document.AddColorSpec(red);
  document.SetOuterFrame(show);
  document.SetXAxisGridlines(show);
  recorder.failEvery(Operation::SetTemplate);
  complete();
  EXPECT_EQ(fragments().size(), 7u);
  EXPECT_NE(xTicks.getGridline(), nullptr);
  EXPECT_THAT(reports(), IsEmpty());
}

// --- Frames

struct FrameRow {
  char const* name;
  int outer;
  int inner;
  std::vector<std::string> expected;
};

void PrintTo(FrameRow const& row, std::ostream* out) { *out << row.name; }

class Frames : public CompletionTest, public ::testing::WithParamInterface<FrameRow> {};

TEST_P(Frames, AreTheFragmentsOfTheirSettings) {
  document.SetOuterFrame(static_cast<XDocument::TEMPL_PARAM_ACT>(GetParam().outer));
  document.SetInnerFrame(static_cast<XDocument::TEMPL_PARAM_ACT>(GetParam().inner));
  complete();
  EXPECT_EQ(fragments(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, Frames,
    ::testing::Values(FrameRow{"Neither", 0, 0, {}}, FrameRow{"OuterShown", 1, 0, {outerShown}},
                      FrameRow{"OuterHidden", 2, 0, {outerHidden}}, FrameRow{"OuterUnknown", 3, 0, {}},
                      FrameRow{"OuterNegative", -1, 0, {}}, FrameRow{"InnerShown", 0, 1, {innerShown}},
                      FrameRow{"InnerHidden", 0, 2, {innerHidden}}, FrameRow{"InnerUnknown", 0, 3, {}},
                      FrameRow{"BothShown", 1, 1, {outerShown, innerShown}},
                      FrameRow{"BothHidden", 2, 2, {outerHidden, innerHidden}}),
    [](auto const& test) { return std::string(test.param.name); });

// --- Gridlines

struct GridlineRow {
  char const* name;
  int action;
  bool before;
  std::size_t after;
};

void PrintTo(GridlineRow const& row, std::ostream* out) { *out << row.name; }

class Gridlines : public CompletionTest, public ::testing::WithParamInterface<GridlineRow> {
 protected:
  static std::size_t countOf(LumoMajorTicks const& ticks) { return elementsOf(ticks, u"gridline").size(); }
  XDocument::TEMPL_PARAM_ACT action() const {
    return static_cast<XDocument::TEMPL_PARAM_ACT>(GetParam().action);
  }
};

TEST_P(Gridlines, OfTheXAxesFollowTheirSetting) {
  if (GetParam().before) xTicks.addGridline();
  document.SetXAxisGridlines(action());
  complete();
  EXPECT_EQ(countOf(xTicks), GetParam().after);
  EXPECT_EQ(countOf(yTicks), 0u);
}

TEST_P(Gridlines, OfTheYAxesFollowTheirSetting) {
  if (GetParam().before) yTicks.addGridline();
  xTicks.addGridline();
  document.SetYAxisGridlines(action());
  complete();
  EXPECT_EQ(countOf(yTicks), GetParam().after);
  EXPECT_EQ(countOf(xTicks), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, Gridlines,
    ::testing::Values(GridlineRow{"LeftWithout", 0, false, 0}, GridlineRow{"LeftWith", 0, true, 1},
                      GridlineRow{"ShownWithout", 1, false, 1}, GridlineRow{"ShownWith", 1, true, 1},
                      GridlineRow{"HiddenWithout", 2, false, 0}, GridlineRow{"HiddenWith", 2, true, 0},
                      GridlineRow{"UnknownWithout", 3, false, 0}, GridlineRow{"UnknownWith", 3, true, 1}),
    [](auto const& test) { return std::string(test.param.name); });

class GridlinesOfAxes : public CompletionTest, public ::testing::WithParamInterface<int> {
 protected:
  GridlinesOfAxes() {
    auto const action = static_cast<XDocument::TEMPL_PARAM_ACT>(GetParam());
    document.SetXAxisGridlines(action);
    document.SetYAxisGridlines(action);
  }
};

TEST_P(GridlinesOfAxes, WithoutTicksMakeNone) {
  LumoAxis& bare = *x.addAxis();
  complete();
  EXPECT_EQ(bare.getMajorTicks(), nullptr);
  EXPECT_THAT(childTags(bare), IsEmpty());
}

TEST_P(GridlinesOfAxes, AreDoneBehindAnAxisWithoutTicks) {
  x.addAxis();
  LumoMajorTicks& behind = *x.addAxis()->addMajorTicks();
  if (GetParam() == hide) behind.addGridline();
  complete();
  EXPECT_EQ(behind.getGridline() != nullptr, GetParam() == show);
}

TEST_P(GridlinesOfAxes, AreDoneInEveryGraphAndItsCoordinates) {
  LumoDimension& more = *graph.addCoordinates(u"more")->addDimension();
  LumoDimension& other = *visualization.addGraph(u"other")->addCoordinates(u"its")->addDimension();
  std::vector<LumoMajorTicks*> all;
  for (LumoDimension* dimension : {&more, &other}) all.push_back(dimension->addAxis()->addMajorTicks());
  if (GetParam() == hide) {
    for (LumoMajorTicks* ticks : all) ticks->addGridline();
  }
  complete();
  for (LumoMajorTicks const* ticks : all) EXPECT_EQ(ticks->getGridline() != nullptr, GetParam() == show);
}

INSTANTIATE_TEST_SUITE_P(Settings, GridlinesOfAxes, ::testing::Values(1, 2));

using GridlinesTogether = CompletionTest;

TEST_F(GridlinesTogether, AreChangedInBothWaysAtOnce) {
  xTicks.addGridline();
  document.SetXAxisGridlines(hide);
  document.SetYAxisGridlines(show);
  complete();
  EXPECT_EQ(xTicks.getGridline(), nullptr);
  EXPECT_NE(yTicks.getGridline(), nullptr);
}

TEST_F(GridlinesTogether, LeaveTheDepthAxesAlone) {
  LumoMajorTicks const& depth = *coordinates.addDimension()->addAxis()->addMajorTicks();
  document.SetXAxisGridlines(show);
  document.SetYAxisGridlines(show);
  complete();
  EXPECT_EQ(depth.getGridline(), nullptr);
}

}  // namespace
}  // namespace kestrel::test
