#include "host/chartbase.h"
#include "model/document.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <string>

namespace {

class ChartIdTest : public testing::Test {
 protected:
  std::string unique(char16_t const* id) {
    return ChartBase::CreateUniqueId(ChartString(id), *document.getVisualization()).toUTF8();
  }

  LumoDocument document;
};

TEST_F(ChartIdTest, IsTheIdItselfWhereItIsFree) { EXPECT_EQ(unique(u"majorTicks"), "majorTicks"); }

TEST_F(ChartIdTest, HasTheLowestNumberThatIsFree) {
  document.getVisualization()->addGraph(u"a");
  EXPECT_EQ(unique(u"a"), "a_1");
  document.getVisualization()->addGraph(u"a_1");
  document.getVisualization()->addGraph(u"a_3");
  EXPECT_EQ(unique(u"a"), "a_2");
}

TEST_F(ChartIdTest, IsUniqueEachTimeItIsUsed) {
  std::set<std::string> ids;
  for (int count = 0; count < 20; ++count) {
    ChartString const id = ChartBase::CreateUniqueId(ChartString(u"style"), *document.getVisualization());
    document.getVisualization()->addGraph(id.xc_str());
    EXPECT_TRUE(ids.insert(id.toUTF8()).second);
  }
}

TEST(ChartBaseConstantsTest, HaveTheirTexts) {
  EXPECT_EQ(std::u16string(ChartBase::_container), u"container");
  EXPECT_EQ(std::u16string(ChartBase::_default_style), u"s");
  EXPECT_EQ(std::u16string(ChartBase::_matrixscatter), u"matrixscatter");
  EXPECT_EQ(std::u16string(ChartBase::_percent), u"%");
  EXPECT_EQ(std::u16string(ChartBase::_utf8), u"UTF-8");
}

TEST(ChartBaseConstantsTest, AreDifferentIds) {
  char16_t const* const ids[] = {ChartBase::_container,
                                 ChartBase::_frame_data_1,
                                 ChartBase::_frame_graph_1,
                                 ChartBase::_frame_title_1,
                                 ChartBase::_frame_title_2,
                                 ChartBase::_frame_subtitle_1,
                                 ChartBase::_frame_footnote_1,
                                 ChartBase::_frame_footnote_2,
                                 ChartBase::_frame_footnote_3,
                                 ChartBase::_styleCyclePattern,
                                 ChartBase::_styleCycleRepository,
                                 ChartBase::_frame_statistics_summary_1};
  std::set<std::u16string> const different(std::begin(ids), std::end(ids));
  EXPECT_EQ(different.size(), std::size(ids));
}

}  // namespace
