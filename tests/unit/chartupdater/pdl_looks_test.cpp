// Charts that were converted from PDL.

#include "change_log.h"
#include "updater_fixture.h"

#include "host/chartbase.h"
#include "model/graph.h"
#include "model/labels.h"
#include "model/paneling.h"

#include <gmock/gmock.h>

#include <ostream>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PDLLooks : public UpdaterTest {
 protected:
  /// What they write beside the default looks, in order.
  std::vector<std::string> ownWrites() {
    return beforeDefaultLooks(writesOf([this] { updater.AddDefaultPDLLooks(); }));
  }
};

TEST_F(PDLLooks, AreTheDefaultLooksWhereThereIsNothingToDo) { EXPECT_THAT(ownWrites(), IsEmpty()); }

// --- Styles and containers

TEST_F(PDLLooks, MoveStylesIntoTheContainerFirst) {
  graph.addCoordinates(u"coordinates0")->addDimension()->addAxis()->setId(u"axis");
  LumoStyle& style = *visualization.addStyle();
  style.setId(u"mine");
  EXPECT_THAT(ownWrites(), ElementsAre("style is moved"));
  EXPECT_THAT(container.getStyles(), ElementsAre(&style));
}

/// A chart without a graph at the top.
class ContainedGraph : public ChartTest {
 protected:
  ContainedGraph() { visualization.addStyle()->setId(ChartBase::_container); }

  std::vector<std::string> ownWrites() {
    ChangeLog log(document);
    ChartUpdater(document).AddDefaultPDLLooks();
    return beforeDefaultLooks(log.lines());
  }

  static void locate(LumoGraph& located, std::vector<int> const& methods) {
    for (int const method : methods) {
      located.addLocation(LumoLocation::PartLeft)->setMethod(static_cast<LumoLocation::ENUM_method>(method));
    }
  }

  LumoDocument document;
  LumoVisualization& visualization = *document.getVisualization();
  LumoContainer& part = *visualization.addContainer(u"part");
  LumoGraph& graph = *part.addGraph(u"graph");
};

TEST_F(ContainedGraph, ComesToTheTopBeforeTheContainersLoseTheirLocations) {
  part.addLocation(LumoLocation::PartLeft);
  visualization.addContainer(u"second")->addLocation(LumoLocation::PartTop);
  EXPECT_THAT(ownWrites(), ElementsAre("graph is moved", "location is removed", "location is removed"));
  EXPECT_THAT(visualization.getGraphs(), ElementsAre(&graph));
  EXPECT_EQ(visualization.getContainers().size(), 2u);
}

TEST_F(ContainedGraph, KeepsItsLocationsWhereNoneGoesByATarget) {
  locate(graph, {0, 1});
  ownWrites();
  EXPECT_EQ(graph.getLocations().size(), 2u);
}

TEST_F(ContainedGraph, LosesAllLocationsWhereOneGoesByATarget) {
  locate(graph, {0, 3, 1});
  EXPECT_THAT(ownWrites(), ElementsAre("graph is moved", "location is removed", "location is removed",
                                       "location is removed"));
  EXPECT_THAT(graph.getLocations(), IsEmpty());
}

TEST_F(ContainedGraph, LosesItsLocationsByItsOwnMethodsOnly) {
  LumoGraph& second = *part.addGraph(u"second");
  locate(graph, {0});
  locate(second, {3});
  ownWrites();
  EXPECT_EQ(graph.getLocations().size(), 1u);
  EXPECT_THAT(second.getLocations(), IsEmpty());
}

TEST_F(ContainedGraph, GetsItsAxesFormattedAsAnyGraph) {
  LumoCoordinates& coordinates = *graph.addCoordinates(u"coordinates0");
  coordinates.addDimension();
  LumoMajorTicks const& ticks = *coordinates.addDimension()->addAxis()->addMajorTicks();
  addSummary(*graph.addInterval(u"bars"), 10);
  ownWrites();
  EXPECT_EQ(ticks.getFormats().size(), 1u);
}

TEST_F(ContainedGraph, StaysWithItsLocationsWhereAnotherGraphIsAtTheTop) {
  visualization.addGraph(u"top");
  part.addLocation(LumoLocation::PartLeft);
  locate(graph, {3});
  EXPECT_THAT(ownWrites(), IsEmpty());
  EXPECT_THAT(part.getGraphs(), ElementsAre(&graph));
}

TEST_F(PDLLooks, NeedNoGraph) {
  LumoDocument empty;
  EXPECT_NO_THROW(ChartUpdater(empty).AddDefaultPDLLooks());
  EXPECT_EQ(empty.getVisualization()->getStyleCycles().size(), 1u);
}

// --- Ticks

/// An axis whose label and ticks have styles.
class TickStyles : public PDLLooks {
 protected:
  LumoStyle& addStyle(char16_t const* id) {
    LumoStyle& style = *container.addStyle();
    style.setId(id);
    return style;
  }

  LumoAxis& axis = *graph.addCoordinates(u"coordinates0")->addDimension()->addAxis();
  LumoMajorTicks& ticks = *axis.addMajorTicks();
  LumoLabel& label = *axis.addLabel();
  LumoStyle& shared = addStyle(u"shared");
};

TEST_F(TickStyles, SplitOffWhereBothAreTheLabels) {
  axis.setId(u"axisx");
  shared.setColor(u"red");
  label.setStyle(shared);
  ticks.setMarkStyle(shared);
  ticks.setStyle(shared);
  EXPECT_THAT(ownWrites(), ElementsAre("style adds style", "style id=axisxmarkStyle",
                                       "majorTicks markStyle=axisxmarkStyle", "style adds style",
                                       "style id=axisxtickStyle", "majorTicks style=axisxtickStyle"));
  ASSERT_EQ(container.getStyles().size(), 3u);
  EXPECT_EQ(ticks.getMarkStyle(), container.getStyles()[1]);
  EXPECT_EQ(ticks.getStyle(), container.getStyles()[2]);
  EXPECT_EQ(label.getStyle(), &shared);
  EXPECT_EQ(utf8(shared.getId()), "shared");
  EXPECT_EQ(utf8(ticks.getMarkStyle()->getColor()), "red");
  EXPECT_EQ(utf8(ticks.getStyle()->getColor()), "red");
}

TEST_F(TickStyles, SplitOffOneByOne) {
  axis.setId(u"axisx");
  LumoStyle const& own = addStyle(u"own");
  label.setStyle(shared);
  ticks.setMarkStyle(own);
  ticks.setStyle(shared);
  EXPECT_THAT(ownWrites(),
              ElementsAre("style adds style", "style id=axisxtickStyle", "majorTicks style=axisxtickStyle"));
  EXPECT_EQ(ticks.getMarkStyle(), &own);
}

TEST_F(TickStyles, StayWhereTheyAreTheirOwn) {
  LumoStyle const& own = addStyle(u"own");
  label.setStyle(shared);
  ticks.setMarkStyle(own);
  ticks.setStyle(own);
  EXPECT_THAT(ownWrites(), IsEmpty());
}

TEST_F(TickStyles, StayWhereTheyAreAnotherStyleOfTheSameId) {
  LumoStyle const& twin = addStyle(u"shared");
  label.setStyle(shared);
  ticks.setStyle(twin);
  EXPECT_THAT(ownWrites(), IsEmpty());
}

TEST_F(TickStyles, AreNotMadeWhereTheLabelHasNone) { EXPECT_THAT(ownWrites(), IsEmpty()); }

TEST_F(TickStyles, AreNotMadeWhereOnlyTheLabelHasOne) {
  label.setStyle(shared);
  EXPECT_THAT(ownWrites(), IsEmpty());
}

TEST_F(TickStyles, HaveTheSuffixesAloneWhereTheAxisHasNoId) {
  label.setStyle(shared);
  ticks.setStyle(shared);
  ownWrites();
  EXPECT_EQ(utf8(ticks.getStyle()->getId()), "tickStyle");
}

TEST_F(TickStyles, SplitOffOnEveryAxisOfTheChart) {
  LumoAxis& panels = *graph.addFacetLayout()->addFacetLevel(u"level", 1)->addAxis();
  panels.setId(u"panels");
  panels.addLabel()->setStyle(shared);
  panels.addMajorTicks()->setMarkStyle(shared);
  updater.AddDefaultPDLLooks();
  EXPECT_EQ(utf8(panels.getMajorTicks()->getMarkStyle()->getId()), "panelsmarkStyle");
}

TEST_F(PDLLooks, PassAxesWithoutLabelOrTicks) {
  LumoDimension& dimension = *graph.addCoordinates(u"coordinates0")->addDimension();
  LumoStyle& style = *container.addStyle();
  style.setId(u"style");
  dimension.addAxis()->addLabel()->setStyle(style);
  dimension.addAxis()->addMajorTicks()->setStyle(style);
  dimension.addAxis();
  EXPECT_THAT(ownWrites(), IsEmpty());
}

// --- Formats of values

/// A graph whose second dimension has an axis with ticks.
class ValueFormats : public PDLLooks {
 protected:
  ValueFormats() {
    categories.addAxis()->addMajorTicks();
    values.addAxis()->addMajorTicks();
  }

  LumoMajorTicks& ticks() { return *values.getAxiss().front()->getMajorTicks(); }

  LumoCoordinates& coordinates = *graph.addCoordinates(u"coordinates0");
  LumoDimension& categories = *coordinates.addDimension();
  LumoDimension& values = *coordinates.addDimension();
  LumoInterval& bars = *graph.addInterval(u"bars");
};

struct Method {
  int method;
  int digits;
};
void PrintTo(Method const& row, std::ostream* out) { *out << row.method; }

class FormatOfAMethod : public ValueFormats, public ::testing::WithParamInterface<Method> {};

TEST_P(FormatOfAMethod, HasTheDigitsOfACountOrOfAShare) {
  addSummary(bars, GetParam().method);
  std::string const digits = std::to_string(GetParam().digits);
  EXPECT_THAT(ownWrites(), ElementsAre("majorTicks adds format", "format useGrouping=true",
                                       "format minimumFractionDigits=" + digits,
                                       "format maximumFractionDigits=" + digits));
  EXPECT_EQ(ticks().getFormats().size(), 1u);
  EXPECT_THAT(categories.getAxiss().front()->getMajorTicks()->getFormats(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Methods, FormatOfAMethod,
                         ::testing::Values(Method{10, 0}, Method{11, 0}, Method{14, 0}, Method{20, 1},
                                           Method{26, 0}, Method{31, 0}, Method{34, 1}, Method{35, 1},
                                           Method{36, 1}, Method{37, 1}),
                         [](auto const& tested) { return "Method" + std::to_string(tested.param.method); });

class OtherMethod : public ValueFormats, public ::testing::WithParamInterface<int> {};

TEST_P(OtherMethod, GivesNoFormat) {
  addSummary(bars, GetParam());
  EXPECT_THAT(ownWrites(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Methods, OtherMethod,
                         ::testing::Values(0, 3, 7, 9, 12, 13, 15, 19, 21, 22, 23, 25, 27, 30, 32, 33, 38));

TEST_F(ValueFormats, AreOfTheFirstStatisticThatHasOne) {
  addSummary(bars, 3);
  addSummary(bars, 20);
  addSummary(bars, 26);
  ownWrites();
  ASSERT_EQ(ticks().getFormats().size(), 1u);
  EXPECT_EQ(attribute(ticks().getFormats().front(), u"maximumFractionDigits"), "1");
}

TEST_F(ValueFormats, AreNotAddedToTicksThatHaveOne) {
  ticks().addFormat();
  addSummary(bars, 26);
  EXPECT_THAT(ownWrites(), IsEmpty());
}

TEST_F(ValueFormats, AreAddedOnEveryAxisOfTheDimensionThatNeedsThem) {
  ticks().addFormat();
  LumoMajorTicks const& second = *values.addAxis()->addMajorTicks();
  values.addAxis();
  LumoMajorTicks const& last = *values.addAxis()->addMajorTicks();
  addSummary(bars, 26);
  ownWrites();
  EXPECT_EQ(ticks().getFormats().size(), 1u);
  EXPECT_EQ(second.getFormats().size(), 1u);
  EXPECT_EQ(last.getFormats().size(), 1u);
}

TEST_F(ValueFormats, AreNotAddedToTheThirdDimensionOrOtherCoordinates) {
  LumoMajorTicks const& third = *coordinates.addDimension()->addAxis()->addMajorTicks();
  LumoCoordinates& second = *graph.addCoordinates(u"coordinates1");
  second.addDimension();
  LumoMajorTicks const& other = *second.addDimension()->addAxis()->addMajorTicks();
  addSummary(bars, 26);
  ownWrites();
  EXPECT_THAT(third.getFormats(), IsEmpty());
  EXPECT_THAT(other.getFormats(), IsEmpty());
}

TEST_F(ValueFormats, AreAddedForElementsOfEveryKind) {
  addSummary(*graph.addPolygon(u"polygon"), 26);
  EXPECT_EQ(ownWrites().size(), 4u);
}

TEST_F(ValueFormats, AreAddedToEachGraphByItsOwnElements) {
  visualization.addGraph(u"second")->addInterval(u"others");
  addSummary(*visualization.getGraphs()[1]->getIntervals()[0], 26);
  EXPECT_THAT(ownWrites(), IsEmpty());
}

TEST_F(PDLLooks, AddNoFormatToOneDimension) {
  graph.addCoordinates(u"coordinates0")->addDimension()->addAxis()->addMajorTicks();
  addSummary(*graph.addInterval(u"bars"), 26);
  EXPECT_THAT(ownWrites(), IsEmpty());
}

TEST_F(PDLLooks, NeedNoCoordinates) {
  addSummary(*graph.addInterval(u"bars"), 26);
  EXPECT_THAT(ownWrites(), IsEmpty());
}

// --- Statistics in space

TEST_F(PDLLooks, ExtendEveryStatisticOfAreasAndLinesInSpace) {
  LumoArea& area = *graph.addArea(u"area");
  area.addZ();
  addSummary(area, 3);
  LumoLine& line = *graph.addLine(u"line");
  line.addZ();
  addSummary(line, 0);
  addSummary(line, 26);
  EXPECT_THAT(ownWrites(), ElementsAre("summaryStatistic augment=2", "summaryStatistic augment=2",
                                       "summaryStatistic augment=2"));
}

TEST_F(PDLLooks, LeaveStatisticsInThePlaneAlone) {
  graph.addLine(u"line")->addY();
  addSummary(*graph.getLines().front(), 3);
  EXPECT_THAT(ownWrites(), IsEmpty());
}

TEST_F(PDLLooks, LeaveStatisticsOfOtherElementsInSpaceAlone) {
  std::vector<CTElementType*> const elements = {graph.addPoint(u"point"), graph.addInterval(u"bars"),
                                                graph.addPath(u"path"),   graph.addEdge(u"edge"),
                                                graph.addSchema(u"box"),  graph.addPolygon(u"polygon")};
  for (CTElementType* element : elements) {
    element->addZ();
    addSummary(*element, 3);
  }
  EXPECT_THAT(ownWrites(), IsEmpty());
}

// --- All of them

TEST_F(ValueFormats, ComeBeforeTheExtensionOfTheirStatistic) {
  LumoLine& line = *graph.addLine(u"line");
  line.addZ();
  addSummary(line, 3);
  addSummary(line, 26);
  EXPECT_THAT(ownWrites(), ElementsAre("summaryStatistic augment=2", "majorTicks adds format",
                                       "format useGrouping=true", "format minimumFractionDigits=0",
                                       "format maximumFractionDigits=0", "summaryStatistic augment=2"));
}

TEST_F(PDLLooks, LetEveryFailurePassAndKeepWhatWasWritten) {
  FailingOperation const operation = {
      [](ChartOfOneRun& chart) {
        LumoGraph& made = *chart.graph.getGraph();
        LumoStyle& style = *chart.document.getVisualization()->addStyle();
        style.setId(u"shared");
        LumoCoordinates& coordinates = *made.addCoordinates(u"coordinates0");
        coordinates.addDimension();
        LumoAxis& axis = *coordinates.addDimension()->addAxis();
        axis.addLabel()->setStyle(style);
        axis.addMajorTicks()->setStyle(style);
        LumoLine& line = *made.addLine(u"line");
        line.addZ();
        addSummary(line, 26);
      },
      [](ChartOfOneRun& chart) { ChartUpdater(chart.document).AddDefaultPDLLooks(); }};
  expectFailuresToPass(recorder, operation);
}

}  // namespace
}  // namespace kestrel::test
