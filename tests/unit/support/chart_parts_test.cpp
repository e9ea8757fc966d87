#include "support/chart_parts.h"

#include "chart_test.h"

#include "host/log.h"
#include "model/document.h"
#include "model/graph.h"
#include "model/variables.h"

#include <gmock/gmock.h>
#include <xercesc/dom/DOM.hpp>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;

TEST(Extension, IsMadeWhereTheChartHasNone) {
  LumoDocument document;
  LumoVisualization& visualization = *document.getVisualization();
  LumoExtensionVis& extension = findOrMakeExtension(visualization);
  EXPECT_EQ(visualization.getExtension(), &extension);
}

TEST(Extension, OfTheChartIsUsedWhereItIsThere) {
  LumoDocument document;
  LumoVisualization& visualization = *document.getVisualization();
  LumoExtensionVis* extension = visualization.addExtension();
  EXPECT_EQ(&findOrMakeExtension(visualization), extension);
  EXPECT_EQ(elementsOf(visualization, u"extension").size(), 1u);
}

TEST(VisualizationOf, AnElementIsTheChartThatItBelongsTo) {
  LumoDocument document;
  LumoVisualization& visualization = *document.getVisualization();
  EXPECT_EQ(&visualizationOf(*visualization.addGraph(u"graph")), &visualization);
  EXPECT_EQ(&visualizationOf(visualization), &visualization);
}

TEST(VisualizationOf, AnElementOfNoChartIsAFailure) {
  LumoDocument::holdXmlLibrary();
  xercesc::DOMDocument* const theirs = xercesc::DOMImplementation::getImplementation()->createDocument();
  {
    LumoFormat const stray(theirs->createElement(u"format"));
    EXPECT_EQ(stray.getVisualization(), nullptr);
    EXPECT_THROW(visualizationOf(stray), ChartException);
  }
  theirs->release();
}

class Domains : public ChartTest {
 protected:
  std::vector<std::string> intervalIds() const { return idsOf(visualization, u"intervalDomain"); }
  std::vector<std::string> categoricalIds() const { return idsOf(visualization, u"categoricalDomain"); }

  LumoDocument document;
  LumoVisualization& visualization = *document.getVisualization();
};

TEST_F(Domains, AreNumberedFromZeroByTheCountOfTheirKind) {
  addIntervalDomain(visualization);
  addCategoricalDomain(visualization);
  addIntervalDomain(visualization);
  addCategoricalDomain(visualization);
  EXPECT_THAT(intervalIds(), ElementsAre("intervalDomain0", "intervalDomain1"));
  EXPECT_THAT(categoricalIds(), ElementsAre("categoricalDomain0", "categoricalDomain1"));
}

TEST_F(Domains, CountThoseThatTheChartBroughtAlong) {
  visualization.addIntervalDomain(u"theirs");
  visualization.addCategoricalDomain(u"others");
  addIntervalDomain(visualization);
  addCategoricalDomain(visualization);
  EXPECT_THAT(intervalIds(), ElementsAre("theirs", "intervalDomain1"));
  EXPECT_THAT(categoricalIds(), ElementsAre("others", "categoricalDomain1"));
}

TEST_F(Domains, AreThoseThatWereAdded) {
  LumoIntervalDomain& interval = addIntervalDomain(visualization);
  LumoCategoricalDomain& categorical = addCategoricalDomain(visualization);
  EXPECT_EQ(visualization.getIntervalDomains().front(), &interval);
  EXPECT_EQ(visualization.getCategoricalDomains().front(), &categorical);
}

}  // namespace
}  // namespace kestrel::test
