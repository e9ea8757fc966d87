// Network diagrams.

#include "built_chart.h"
#include "customizecharts.h"
#include "every_failure.h"
#include "xsource.h"
#include "xvariable.h"

#include "host/data_store.h"
#include "host/log.h"
#include "model/aesthetics.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/style.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

using Lines = std::vector<std::string>;

/// Parts of a network diagram, each in the order of its writes.
Lines const graphPlaced = {"graph adds location", "location part=5",     "location method=1",
                           "graph adds location", "location part=0",     "location method=0",
                           "location value=0px",  "graph adds location", "location part=1",
                           "location method=0",   "location value=625px"};
Lines const edgesWeighed = {"edge adds size", "size id=edgeWeight", "size low=0.5pt", "size high=2.5pt",
                            "size variable=weight"};
Lines const pointsSized = {"style size=3%", "style size_min=40pt", "style size_max=60pt"};
Lines const locationsKept = {"visualization adds extension", "extension preserveLocations=true"};
Lines const cellsPadded = {"style adds style", "style id=graphStyle", "graph cellStyle=graphStyle",
                           "style padding=40pt"};
Lines const legendMade = {"visualization adds legend",
                          "legend id=legend1",  //
                          "style adds style",
                          "style id=legendStyle",              //
                          "legend tickTextStyle=legendStyle",  //
                          "legend adds legendTarget",
                          "legendTarget id=legendT"};
Lines const legendPlaced = {
    "legend adds location", "location part=3", "location method=3", "location target=graph",  //
    "legend adds location", "location part=5", "location method=1",                           //
    "legend adds location", "location part=4", "location method=1",                           //
    "legend adds location", "location part=1", "location method=0", "location value=625px"};
Lines const framePlaced = {
    "labelFrame adds location", "location part=5", "location method=1",                          //
    "labelFrame adds location", "location part=1", "location method=0", "location value=625px",  //
    "labelFrame adds location", "location part=0", "location method=0", "location value=0px"};
Lines const frameAtTheBottom = {"labelFrame adds location", "location part=3", "location method=0",
                                "location value=100%"};

Lines together(std::vector<Lines> const& parts) {
  Lines lines;
  for (Lines const& part : parts) lines.insert(lines.end(), part.begin(), part.end());
  return lines;
}

/// A graph with coordinates, edges and points, and a variable for the weights.
class Network : public BuiltChartTest {
 protected:
  Network() {
    LumoStyle& style = *container.addStyle();
    style.setId(u"points");
    point.setStyle(style);
  }

  void customize() { customizeCharts(visualization).customizeNetworkDiagram(weight); }

  Lines writes() {
    return writesOf([this] { customize(); });
  }

  /// Part, method, and value or target of each location.
  static Lines locationsOf(LumoLabelFrame const& frame) {
    Lines values;
    for (LumoLocation const* location : frame.getLocations()) {
      bool const isTied = location->getMethod() == LumoLocation::Method3;
      values.push_back(std::to_string(location->getPart()) + " " + std::to_string(location->getMethod()) +
                       " " + attribute(location, isTied ? u"target" : u"value"));
    }
    return values;
  }

  LumoCoordinates& coordinates = *graph.addCoordinates(u"coordinates0");
  LumoEdge& edge = *graph.addEdge(u"edge");
  LumoPoint& point = *graph.addPoint(u"point");
  VarDataProcessor store;
  XSource source{visualization, store};
  LumoSourceVariable& model = addVariable(u"weight");
  XVariable weight{model, source};
};

// --- What every one gets

TEST_F(Network, IsLaidOutInAFixedOrder) {
  EXPECT_THAT(writes(), ElementsAreArray(
                            together({graphPlaced, edgesWeighed, pointsSized, locationsKept, cellsPadded})));
}

TEST_F(Network, IsLaidOutWithAllItsPartsInAFixedOrder) {
  visualization.addLocation(LumoLocation::PartTop);
  visualization.addLabelFrame(u"title");
  coordinates.addSameRatioTransform();
  coordinates.addDimension();
  LumoSourceVariable& shown = addVariable(u"shown");
  LumoShape& shape = *edge.addShape();
  shape.setVariable(shown);
  shape.addSymbolMapping();
  point.addTransparency();
  EXPECT_THAT(writes(), ElementsAreArray(together(
                            {{"location is removed"},
                             graphPlaced,
                             {"sameRatioTransform is removed", "symbolMapping is removed"},
                             edgesWeighed,
                             {"shape is removed", "edge adds dash", "dash id=dash1", "dash variable=shown"},
                             legendMade,
                             {"legendTarget target=dash1"},
                             legendPlaced,
                             framePlaced,
                             frameAtTheBottom,
                             pointsSized,
                             {"transparency low=0.6", "transparency high=0.01"},
                             locationsKept,
                             {"dimension upperMargin=0%", "dimension lowerMargin=0%"},
                             cellsPadded})));
}

TEST_F(Network, LosesItsOwnLocationsAndKeepsThoseOfTheGraph) {
  visualization.addLocation(LumoLocation::PartLeft);
  visualization.addLocation(LumoLocation::PartTop);
  graph.addLocation(LumoLocation::PartTop);
  customize();
  EXPECT_THAT(visualization.getLocations(), IsEmpty());
  EXPECT_EQ(graph.getLocations().size(), 4u);
}

TEST_F(Network, IsTheFirstGraph) {
  LumoGraph& second = *visualization.addGraph(u"second");
  second.addEdge(u"others");
  customize();
  EXPECT_THAT(second.getLocations(), IsEmpty());
  EXPECT_THAT(second.getEdges().front()->getSizes(), IsEmpty());
}

TEST_F(Network, LosesTheSameRatioOfItsFirstCoordinatesOnly) {
  coordinates.addSameRatioTransform();
  coordinates.addSameRatioTransform();
  LumoCoordinates& other = *graph.addCoordinates(u"coordinates1");
  other.addSameRatioTransform();
  customize();
  EXPECT_THAT(coordinates.getSameRatioTransforms(), IsEmpty());
  EXPECT_EQ(other.getSameRatioTransforms().size(), 1u);
}

TEST_F(Network, HasNoMarginsInAnyDimension) {
  for (int dimension = 0; dimension < 3; ++dimension) coordinates.addDimension();
  graph.addCoordinates(u"coordinates1")->addDimension();
  customize();
  for (LumoDimension const* dimension : coordinates.getDimensions()) {
    EXPECT_EQ(attribute(dimension, u"upperMargin"), "0%");
    EXPECT_EQ(attribute(dimension, u"lowerMargin"), "0%");
  }
  EXPECT_THAT(attributeNames(*graph.getCoordinates(1)->getDimensions()[0]), IsEmpty());
}

TEST_F(Network, KeepsTheRecordThatItHas) {
  LumoExtensionVis const* const record = visualization.addExtension();
  customize();
  EXPECT_EQ(visualization.getExtension(), record);
  EXPECT_EQ(attribute(record, u"preserveLocations"), "true");
}

TEST_F(Network, PadsTheCellStyleThatItHas) {
  LumoStyle& cells = *container.addStyle();
  cells.setId(u"mine");
  graph.setCellStyle(cells);
  customize();
  EXPECT_EQ(graph.getCellStyle(), &cells);
  EXPECT_EQ(utf8(cells.getId()), "mine");
  EXPECT_EQ(attribute(&cells, u"padding"), "40pt");
  EXPECT_THAT(idsOf(visualization, u"style"), ElementsAre("container", "points", "mine"));
}

TEST_F(Network, PutsItsStylesIntoTheFirstContainerStyle) {
  visualization.addStyle()->setId(u"container");
  edge.addColor();
  customize();
  EXPECT_EQ(container.getStyles().size(), 3u);
  EXPECT_THAT(visualization.getStyles()[1]->getStyles(), IsEmpty());
}

TEST_F(Network, MakesAContainerStyleWhereThereIsNone) {
  container.setId(u"other");
  customize();
  ASSERT_EQ(visualization.getStyles().size(), 2u);
  EXPECT_EQ(utf8(visualization.getStyles()[1]->getId()), "container");
  EXPECT_EQ(graph.getCellStyle(), visualization.getStyles()[1]->getStyles().front());
}

// --- Edges

TEST_F(Network, WeighsTheFirstEdgesByTheVariable) {
  LumoEdge const& others = *graph.addEdge(u"others");
  edge.addSize();
  customize();
  ASSERT_EQ(edge.getSizes().size(), 2u);
  EXPECT_EQ(edge.getSizes()[1]->getVariable(), &model);
  EXPECT_THAT(others.getSizes(), IsEmpty());
}

TEST_F(Network, HasNoLegendForEdgesWithoutColorAndShape) {
  edge.addDash();
  customize();
  EXPECT_THAT(visualization.getLegends(), IsEmpty());
}

TEST_F(Network, ExplainsTheColorOfItsEdges) {
  LumoColor& color = *edge.addColor();
  color.setDomain(*visualization.addCategoricalDomain(u"domain"));
  color.setId(u"color1");
  edge.addColor();
  EXPECT_THAT(writes(), ElementsAreArray(together({graphPlaced,
                                                   edgesWeighed,
                                                   {"color removes domain"},
                                                   legendMade,
                                                   {"legendTarget target=color1"},
                                                   legendPlaced,
                                                   pointsSized,
                                                   locationsKept,
                                                   cellsPadded})));
  LumoLegend const& legend = *visualization.getLegends().front();
  EXPECT_EQ(legend.getLegendTargets().front()->getTarget(), &color);
  EXPECT_EQ(legend.getTickTextStyle(), container.getStyles()[1]);
}

TEST_F(Network, KeepsTheShapesOfColoredEdgesButForTheirSymbols) {
  edge.addColor();
  LumoShape& first = *edge.addShape();
  first.addSymbolMapping();
  first.addSymbolMapping();
  LumoShape& second = *edge.addShape();
  second.addSymbolMapping();
  customize();
  EXPECT_THAT(edge.getShapes(), ElementsAre(&first, &second));
  EXPECT_THAT(first.getSymbolMappings(), IsEmpty());
  EXPECT_EQ(second.getSymbolMappings().size(), 1u);
  EXPECT_THAT(edge.getDashs(), IsEmpty());
}

TEST_F(Network, MakesADashOfTheFirstShapeAndDropsTheOthers) {
  edge.addShape()->setVariable(addVariable(u"first"));
  edge.addShape()->setVariable(addVariable(u"second"));
  customize();
  EXPECT_THAT(edge.getShapes(), IsEmpty());
  ASSERT_EQ(edge.getDashs().size(), 1u);
  EXPECT_EQ(utf8(edge.getDashs()[0]->getVariable()->getId()), "first");
  EXPECT_EQ(visualization.getLegends()[0]->getLegendTargets()[0]->getTarget(), edge.getDashs()[0]);
}

TEST_F(Network, MakesADashWithoutVariableOfSuchAShape) {
  edge.addShape();
  customize();
  EXPECT_EQ(attributeNames(*edge.getDashs().front()), Lines{"id"});
}

TEST_F(Network, TakesTheLocationsThatANewLegendHas) {
  edge.addColor();
  auto const behindTheLegendsId = static_cast<unsigned int>(graphPlaced.size() + edgesWeighed.size() + 3);
  ChangeTrap const trap(document, behindTheLegendsId,
                        [this] { visualization.getLegends().front()->addLocation(LumoLocation::PartTop); });
  customize();
  std::vector<int> parts;
  for (LumoLocation const* location : visualization.getLegends().front()->getLocations())
    parts.push_back(location->getPart());
  EXPECT_THAT(parts, ElementsAre(3, 5, 4, 1));
}

TEST_F(Network, AddsItsLegendBesideOthers) {
  edge.addColor();
  visualization.addLegend(u"legend1");
  customize();
  EXPECT_THAT(idsOf(visualization, u"legend"), ElementsAre("legend1", "legend1"));
  EXPECT_THAT(visualization.getLegends()[0]->getLocations(), IsEmpty());
  EXPECT_EQ(visualization.getLegends()[1]->getLocations().size(), 4u);
}

// --- Frames

TEST_F(Network, HasItsOnlyFrameAtTheBottom) {
  LumoLabelFrame& frame = *visualization.addLabelFrame(u"only");
  frame.addLocation(LumoLocation::PartTop);
  customize();
  EXPECT_THAT(locationsOf(frame), ElementsAre("5 1 (absent)", "1 0 625px", "0 0 0px", "3 0 100%"));
}

TEST_F(Network, HasTheFirstOfTwoFramesOnTheSecond) {
  LumoLabelFrame const& first = *visualization.addLabelFrame(u"first");
  LumoLabelFrame const& second = *visualization.addLabelFrame(u"second");
  customize();
  EXPECT_THAT(locationsOf(first), ElementsAre("5 1 (absent)", "1 0 625px", "0 0 0px", "3 3 second"));
  EXPECT_THAT(locationsOf(second), ElementsAre("5 1 (absent)", "1 0 625px", "0 0 0px", "3 0 100%"));
}

TEST_F(Network, HasTheLastOfThreeFramesAtTheBottomAndTheOthersFree) {
  LumoLabelFrame const& first = *visualization.addLabelFrame(u"first");
  LumoLabelFrame const& second = *visualization.addLabelFrame(u"second");
  LumoLabelFrame const& third = *visualization.addLabelFrame(u"third");
  customize();
  EXPECT_THAT(locationsOf(first), ElementsAre("5 1 (absent)", "1 0 625px", "0 0 0px"));
  EXPECT_THAT(locationsOf(second), ElementsAre("5 1 (absent)", "1 0 625px", "0 0 0px"));
  EXPECT_THAT(locationsOf(third), ElementsAre("5 1 (absent)", "1 0 625px", "0 0 0px", "3 0 100%"));
}

TEST_F(Network, LeavesTheFramesOfContainersAlone) {
  LumoLabelFrame const& frame = *visualization.addContainer(u"part")->addLabelFrame(u"frame");
  customize();
  EXPECT_THAT(frame.getLocations(), IsEmpty());
}

// --- Points

TEST_F(Network, SizesTheFirstPointsOnly) {
  LumoStyle& style = *container.addStyle();
  style.setId(u"others");
  LumoPoint& others = *graph.addPoint(u"others");
  others.setStyle(style);
  others.addTransparency();
  customize();
  EXPECT_THAT(attributeNames(style), ElementsAre("id"));
  EXPECT_THAT(attributeNames(*others.getTransparencys().front()), IsEmpty());
}

TEST_F(Network, SetsTheFirstTransparencyOfItsPoints) {
  LumoTransparency const& first = *point.addTransparency();
  LumoTransparency const& second = *point.addTransparency();
  customize();
  EXPECT_EQ(attribute(&first, u"low"), "0.6");
  EXPECT_EQ(attribute(&first, u"high"), "0.01");
  EXPECT_THAT(attributeNames(second), IsEmpty());
}

// --- What is missing

/// A chart that is no network diagram.
class NoNetwork : public BuiltChartTest {
 protected:
  void customize() { customizeCharts(visualization).customizeNetworkDiagram(weight); }

  XVariable weight{addVariable(u"weight")};
};

TEST_F(NoNetwork, WithoutCoordinatesIsAFailureBehindThePlacing) {
  ChangeTrap const changes(document, 0, [] {});
  EXPECT_THROW(customize(), ChartException);
  EXPECT_EQ(graph.getLocations().size(), 3u);
  EXPECT_EQ(changes.changes(), graphPlaced.size());
  expectNoReport(recorder);
}

TEST_F(NoNetwork, WithoutEdgesIsAFailureBehindTheCoordinates) {
  LumoCoordinates& coordinates = *graph.addCoordinates(u"coordinates0");
  coordinates.addSameRatioTransform();
  EXPECT_THROW(customize(), ChartException);
  EXPECT_THAT(coordinates.getSameRatioTransforms(), IsEmpty());
}

TEST_F(NoNetwork, WithoutPointsIsAFailureBehindTheFrames) {
  graph.addCoordinates(u"coordinates0");
  graph.addEdge(u"edge");
  visualization.addLabelFrame(u"frame");
  EXPECT_THROW(customize(), ChartException);
  EXPECT_EQ(graph.getEdges().front()->getSizes().size(), 1u);
  EXPECT_EQ(visualization.getLabelFrames().front()->getLocations().size(), 4u);
  EXPECT_EQ(visualization.getExtension(), nullptr);
}

TEST_F(NoNetwork, WithoutAStyleOfItsPointsIsAFailure) {
  graph.addCoordinates(u"coordinates0");
  graph.addEdge(u"edge");
  graph.addPoint(u"point")->addTransparency();
  EXPECT_THROW(customize(), ChartException);
  EXPECT_THAT(attributeNames(*graph.getPoints().front()->getTransparencys().front()), IsEmpty());
}

TEST_F(NoNetwork, WithoutAGraphIsAFailureBehindTheContainerStyle) {
  LumoDocument empty;
  empty.getVisualization()->addLocation(LumoLocation::PartLeft);
  EXPECT_THROW(customizeCharts(*empty.getVisualization()).customizeNetworkDiagram(weight), ChartException);
  EXPECT_THAT(idsOf(*empty.getVisualization(), u"style"), ElementsAre("container"));
  EXPECT_THAT(empty.getVisualization()->getLocations(), IsEmpty());
}

TEST_F(Network, LetsEveryFailurePassAndKeepsWhatWasWritten) {
  FailingOperation const operation = {
      [](ChartOfOneRun& chart) {
        LumoVisualization& made = *chart.document.getVisualization();
        LumoGraph& drawn = *chart.graph.getGraph();
        drawn.addCoordinates(u"coordinates0")->addDimension();
        drawn.addEdge(u"edge")->addShape()->addSymbolMapping();
        LumoStyle& style = *made.addStyle();
        style.setId(u"points");
        LumoPoint& points = *drawn.addPoint(u"point");
        points.setStyle(style);
        points.addTransparency();
        made.addLabelFrame(u"first");
        made.addLabelFrame(u"second");
        made.addLocation(LumoLocation::PartLeft);
      },
      [this](ChartOfOneRun& chart) {
        customizeCharts(*chart.document.getVisualization()).customizeNetworkDiagram(weight);
      }};
  expectFailuresToPass(recorder, operation);
}

}  // namespace
}  // namespace kestrel::test
