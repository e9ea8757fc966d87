#include "chart.h"
#include "schema_validator.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string firstError(std::string const& xml) {
  std::vector<std::string> const errors = schemaErrors(xml);
  return errors.empty() ? "" : errors.front();
}

TEST(Schema, KnowsEverythingThatTheModelWrites) {
  LumoDocument document;
  describeEverything(*document.getVisualization());
  EXPECT_EQ(firstError(document.AsUTF8()), "");
}

TEST(Schema, KnowsAnEmptyChart) { EXPECT_EQ(firstError(LumoDocument().AsUTF8()), ""); }

TEST(Schema, TakesChildrenInAnyOrder) {
  EXPECT_EQ(firstError(chartText(
                "<style/><graph/><style/><categoricalDomain><simpleSort/><range/><categories/><format/>"
                "</categoricalDomain><graph/>")),
            "");
}

TEST(Schema, TakesIdsMoreThanOnce) { EXPECT_EQ(firstError(chartText("<style id='s'/><style id='s'/>")), ""); }

TEST(Schema, TakesReferencesToNothing) {
  EXPECT_EQ(firstError(chartText("<graph cellStyle='nobody'/>")), "");
}

TEST(Schema, TakesAnyTextOnAnExtension) {
  EXPECT_EQ(firstError(chartText("<extension dataSetName_0='x' legend17='l'/>")), "");
}

TEST(Schema, RefusesUnknownElements) { EXPECT_NE(firstError(chartText("<unheard/>")), ""); }
TEST(Schema, RefusesUnknownAttributes) { EXPECT_NE(firstError(chartText("<graph unheard='of'/>")), ""); }
TEST(Schema, RefusesElementsInTheWrongPlace) { EXPECT_NE(firstError(chartText("<axis/>")), ""); }
TEST(Schema, RefusesTextWhereNoneBelongs) { EXPECT_NE(firstError(chartText("<graph>text</graph>")), ""); }
TEST(Schema, RefusesANumberThatIsNone) { EXPECT_NE(firstError(chartText("<location part='left'/>")), ""); }
TEST(Schema, RefusesATruthValueThatIsNone) { EXPECT_NE(firstError(chartText("<style visible='yes'/>")), ""); }
TEST(Schema, RefusesAChartWithoutItsNamespace) { EXPECT_NE(firstError("<visualization/>"), ""); }
TEST(Schema, RefusesTextThatIsNoXml) { EXPECT_NE(firstError("<visualization"), ""); }

}  // namespace
