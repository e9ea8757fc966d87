// The order of a variable's categories.

#include "variable_fixture.h"

#include "host/messages.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;

class SortedVariableTest : public VariableTest {
 protected:
  LumoCategoricalDomain* domain(std::size_t index = 0) const {
    return visualization.getCategoricalDomains().at(index);
  }

  XVariable variable{model};
};

TEST_F(SortedVariableTest, WritesInItsFixedOrder) {
  EXPECT_THAT(writesOf([&] { variable.sortCategories(true); }),
              ElementsAre("visualization adds categoricalDomain", "categoricalDomain id=categoricalDomain0",
                          "categoricalDomain adds variableReference", "variableReference ref=sourceVariable0",
                          "categoricalDomain adds simpleSort", "simpleSort descending=true",
                          "simpleSort method=2", "sourceVariable domain=categoricalDomain0"));
}

TEST_F(SortedVariableTest, TheDirectionIsWritten) {
  variable.sortCategories(false);
  EXPECT_EQ(attribute(domain()->getSimpleSorts().front(), u"descending"), "false");
}

TEST_F(SortedVariableTest, TheDomainIsOfTheVariable) {
  variable.sortCategories(true);
  EXPECT_EQ(model.getDomain(), domain());
  ASSERT_EQ(domain()->getVariableReferences().size(), 1u);
  EXPECT_EQ(domain()->getVariableReferences().front()->getRef(), &model);
}

TEST_F(SortedVariableTest, SortingTwiceMakesTwoDomainsOfWhichTheSecondCounts) {
  variable.sortCategories(true);
  variable.sortCategories(false);
  EXPECT_THAT(idsOf(visualization, u"categoricalDomain"),
              ElementsAre("categoricalDomain0", "categoricalDomain1"));
  EXPECT_EQ(model.getDomain(), domain(1));
}

TEST_F(SortedVariableTest, DomainsThatWereThereCount) {
  visualization.addCategoricalDomain(u"other");
  visualization.addIntervalDomain(u"another");
  variable.sortCategories(true);
  EXPECT_EQ(utf8(model.getDomain()->getId()), "categoricalDomain1");
}

TEST_F(SortedVariableTest, AFailureIsReportedAndWhatWasWrittenStays) {
  failAtChange(8, [&] { variable.sortCategories(true); });
  expectGuardReport(recorder, "Error in XVariable::sortCategories()");
  EXPECT_EQ(model.getDomain(), nullptr);
  EXPECT_EQ(domain()->getSimpleSorts().size(), 1u);
}

TEST_F(SortedVariableTest, TheUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { variable.sortCategories(true); }), VexaGoToCaller);
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
