// Who gave a value to the look of a chart.

#include "explain/provenance.h"

#include "chart_test.h"
#include "explain/explanation.h"
#include "problem.h"

#include "model/graph.h"
#include "model/style.h"

#include <gmock/gmock.h>

using kestrel::tool::explainElements;
using kestrel::tool::explanationJson;
using kestrel::tool::explanationText;
using kestrel::tool::FollowedTemplates;
using kestrel::tool::Origin;
using kestrel::tool::Provenance;
using testing::HasSubstr;

namespace {

class ProvenanceOfAChart : public kestrel::test::ChartTest {
 protected:
  /// All that is known of the only value of the chart.
  Provenance::Explained only() const {
    auto explained = provenance->explain(chart);
    EXPECT_EQ(explained.size(), 1u);
    return explained.empty() ? Provenance::Explained{} : explained.front();
  }

  std::string text(bool all) const {
    return explanationText({"c.xml", {}, explainElements(chart, *provenance)}, all);
  }

  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
  std::shared_ptr<Provenance> provenance = std::make_shared<Provenance>();
};

TEST_F(ProvenanceOfAChart, IsTheDefaultLooksForWhatIsNewAfterThem) {
  provenance->noteBuilder(chart);
  chart.addStyle()->setColor(u"#000001");
  provenance->noteDefaultLooks(chart);
  EXPECT_EQ(only().given.back().origin.kind, Origin::Kind::DefaultLooks);
  EXPECT_THAT(text(false), HasSubstr("0 from the builder, 1 from the default looks, 0 from templates\n"));
  EXPECT_THAT(text(false), HasSubstr("  color  #000001  default looks\n"));
}

TEST_F(ProvenanceOfAChart, IsTheDefaultLooksForWhatTheyChange) {
  LumoStyle& style = *chart.addStyle();
  style.setColor(u"#000001");
  provenance->noteBuilder(chart);
  style.setColor(u"#000002");
  provenance->noteDefaultLooks(chart);
  EXPECT_THAT(text(true), HasSubstr("  color  #000002  builder (#000001), default looks\n"));
}

TEST_F(ProvenanceOfAChart, IsStillTheBuilderForWhatTheDefaultLooksLeave) {
  chart.addStyle()->setColor(u"#000001");
  provenance->noteBuilder(chart);
  provenance->noteDefaultLooks(chart);
  EXPECT_EQ(only().given.size(), 1u);
  EXPECT_EQ(only().given.back().origin.kind, Origin::Kind::Builder);
}

TEST_F(ProvenanceOfAChart, IsTheDefaultLooksForWhatNobodyElseHasGiven) {
  chart.addStyle()->setColor(u"#000001");
  EXPECT_EQ(only().given.back().origin.kind, Origin::Kind::DefaultLooks);
}

TEST_F(ProvenanceOfAChart, HasNoGridlinesThatNobodyWants) {
  chart.addGraph(u"g")->addCoordinates(u"c")->addDimension()->addAxis()->addMajorTicks();
  provenance->noteBuilder(chart);
  EXPECT_TRUE(provenance->explain(chart).empty());
}

TEST_F(ProvenanceOfAChart, IsNotToldOfValuesThatAreGoneAgain) {
  LumoStyle& style = *chart.addStyle();
  style.setSize(u"3pt");
  provenance->noteBuilder(chart);
  style.removeSize();
  EXPECT_TRUE(provenance->explain(chart).empty());
}

TEST_F(ProvenanceOfAChart, IsThePlaceInTheTemplateForAFrameThatItMadeWithoutALook) {
  std::string const frame =
      "<template xmlns=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization\">\n"
      "  <addFrame type=\"visualization\"/></template>";
  FollowedTemplates engine(provenance, {{"t.xml", frame}});
  auto const application = engine.start(chart, nullptr);
  ASSERT_TRUE(application->set(frame));
  application->apply();
  EXPECT_THAT(text(false), HasSubstr("  frame  true  t.xml:2:3\n"));
  EXPECT_THAT(explanationJson({"c.xml", {}, explainElements(chart, *provenance)}, false),
              HasSubstr("\"line\": 2,\n          \"column\": 3\n"));
}

TEST_F(ProvenanceOfAChart, IsTheDefaultLooksForWhatChangedBehindATemplate) {
  std::string const look =
      "<template xmlns=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization\">"
      "<setLook part=\"chart\"><style color=\"red\"/></setLook></template>";
  FollowedTemplates engine(provenance, {{"t.xml", look}});
  auto const application = engine.start(chart, nullptr);
  ASSERT_TRUE(application->set(look));
  application->apply();
  chart.getStyleById(u"template_visualization_style")->setColor(u"blue");
  auto const given = only().given;
  ASSERT_EQ(given.size(), 2u);
  EXPECT_EQ(given.front().value, "red");
  EXPECT_EQ(given.back().origin.kind, Origin::Kind::DefaultLooks);
  EXPECT_EQ(given.back().value, "blue");
}

TEST_F(ProvenanceOfAChart, SaysThatATemplateIsOneTooMany) {
  FollowedTemplates engine(provenance, {});
  auto const application = engine.start(chart, nullptr);
  try {
    application->set("<template/>");
    FAIL();
  } catch (kestrel::tool::Problem const& problem) {
    EXPECT_THAT(problem.what(), HasSubstr("the chart gets more templates than the 0 that were given"));
  }
}

TEST_F(ProvenanceOfAChart, NamesTheFirstOfTwoStylesOfOneIdAsTheOneInUse) {
  chart.addGraph(u"g")->setCellStyle(*[this] {
    LumoStyle* const style = chart.addStyle();
    style->setId(u"s");
    style->setColor(u"#000001");
    return style;
  }());
  LumoStyle& second = *chart.addStyle();
  second.setId(u"s");
  second.setColor(u"#000002");
  auto const elements = explainElements(chart, *provenance);
  ASSERT_EQ(elements.size(), 2u);
  EXPECT_EQ(elements[0].uses.size(), 1u);
  EXPECT_TRUE(elements[1].uses.empty());
}

}  // namespace
