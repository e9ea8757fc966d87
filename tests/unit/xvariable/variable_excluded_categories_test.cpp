// Categories that are left out of the chart.

#include "variable_fixture.h"

#include "host/messages.h"

#include <gmock/gmock.h>
#include <xercesc/dom/DOMNode.hpp>
#include <xercesc/dom/DOMNodeList.hpp>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char const* context = "Error in XVariable::excludeCategory()";

class ExcludedCategories : public VariableTest {
 protected:
  std::vector<LumoCategoricalDomain*> domains() const { return visualization.getCategoricalDomains(); }

  LumoCategoricalDomain& addDomain(char16_t const* id) {
    LumoCategoricalDomain& domain = *visualization.addCategoricalDomain(id);
    model.setDomain(domain);
    return domain;
  }

  static LumoCategories& addList(LumoCategoricalDomain& domain, char16_t const* text, bool remove) {
    LumoCategories& list = *domain.addCategories();
    if (text != nullptr) list.setText(text);
    if (remove) list.setRemove(true);
    return list;
  }

  /// The lists of the domain as the chart has them, those that are left out as "-text".
  static std::vector<std::string> lists(LumoCategoricalDomain const& domain) {
    std::vector<std::string> texts;
    for (LumoCategories const* list : domain.getCategoriess()) {
      texts.push_back((list->getRemove() ? "-" : "") + utf8(list->getText()));
    }
    return texts;
  }

  XVariable variable{model};
};

TEST_F(ExcludedCategories, TheFirstIsWrittenInItsFixedOrder) {
  // The text itself goes past the model, into the document.
  EXPECT_THAT(writesOf([&] { variable.excludeCategory(u"a"); }),
              ElementsAre("visualization adds categoricalDomain", "categoricalDomain id=categoricalDomain0",
                          "categoricalDomain adds variableReference", "variableReference ref=sourceVariable0",
                          "sourceVariable domain=categoricalDomain0", "categoricalDomain adds categories",
                          "categories remove=true"));
}

TEST_F(ExcludedCategories, TheFirstIsTheTextNodeOfItsList) {
  variable.excludeCategory(u"a");
  auto const* const element = domains().at(0)->getCategoriess().at(0)->getImplementation();
  ASSERT_EQ(element->getChildNodes()->getLength(), 1u);
  EXPECT_EQ(element->getFirstChild()->getNodeType(), xercesc::DOMNode::TEXT_NODE);
  EXPECT_EQ(utf8(element->getFirstChild()->getNodeValue()), "a");
}

TEST_F(ExcludedCategories, TheFirstMakesADomainOfTheVariable) {
  variable.excludeCategory(u"a");
  ASSERT_EQ(domains().size(), 1u);
  EXPECT_EQ(model.getDomain(), domains()[0]);
  ASSERT_EQ(domains()[0]->getVariableReferences().size(), 1u);
  EXPECT_EQ(domains()[0]->getVariableReferences()[0]->getRef(), &model);
  EXPECT_THAT(domains()[0]->getSimpleSorts(), IsEmpty());
}

TEST_F(ExcludedCategories, AreGatheredInOneList) {
  variable.excludeCategory(u"a");
  variable.excludeCategory(u"b");
  variable.excludeCategory(u"c");
  ASSERT_EQ(domains().size(), 1u);
  EXPECT_THAT(lists(*domains()[0]), ElementsAre("-a;b;c"));
}

TEST_F(ExcludedCategories, ALaterOneIsWrittenThroughTheModel) {
  variable.excludeCategory(u"a");
  EXPECT_THAT(writesOf([&] { variable.excludeCategory(u"b"); }), ElementsAre("categories reads a;b"));
}

TEST_F(ExcludedCategories, StandTwiceIfTheyAreLeftOutTwice) {
  variable.excludeCategory(u"a");
  variable.excludeCategory(u"a");
  EXPECT_THAT(lists(*domains().at(0)), ElementsAre("-a;a"));
}

TEST_F(ExcludedCategories, AreWrittenAsTheyStand) {
  variable.excludeCategory(u" <a>\\n&;");
  EXPECT_THAT(lists(*domains().at(0)), ElementsAre("- <a>\\n&;"));
}

TEST_F(ExcludedCategories, TheEmptyTextMakesNothing) {
  EXPECT_THAT(writesOf([&] { variable.excludeCategory(u""); }), IsEmpty());
  EXPECT_THAT(domains(), IsEmpty());
  expectNoReport(recorder);
}

TEST_F(ExcludedCategories, TheEmptyTextLeavesTheOnesThatAreThere) {
  variable.excludeCategory(u"a");
  EXPECT_THAT(writesOf([&] { variable.excludeCategory(u""); }), IsEmpty());
}

TEST_F(ExcludedCategories, GoToTheDomainThatTheVariableHas) {
  visualization.addCategoricalDomain(u"another");
  LumoCategoricalDomain& own = addDomain(u"own");
  EXPECT_THAT(writesOf([&] { variable.excludeCategory(u"a"); }),
              ElementsAre("categoricalDomain adds categories", "categories remove=true"));
  EXPECT_THAT(lists(own), ElementsAre("-a"));
}

TEST_F(ExcludedCategories, GoToTheDomainOfASortedVariable) {
  variable.sortCategories(true);
  variable.excludeCategory(u"a");
  ASSERT_EQ(domains().size(), 1u);
  EXPECT_THAT(childTags(*domains()[0]), ElementsAre("variableReference", "simpleSort", "categories"));
}

TEST_F(ExcludedCategories, OfAVariableWhoseDomainIsGoneGoToANewOne) {
  model.getImplementation()->setAttribute(u"domain", u"gone");
  variable.excludeCategory(u"a");
  ASSERT_EQ(domains().size(), 1u);
  EXPECT_EQ(attribute(&model, u"domain"), "categoricalDomain0");
  EXPECT_THAT(lists(*domains()[0]), ElementsAre("-a"));
}

TEST_F(ExcludedCategories, OfAVariableWhoseDomainIsNoListGoToANewOne) {
  visualization.addIntervalDomain(u"span");
  model.getImplementation()->setAttribute(u"domain", u"span");
  variable.excludeCategory(u"a");
  ASSERT_EQ(domains().size(), 1u);
  EXPECT_EQ(model.getDomain(), domains()[0]);
  EXPECT_THAT(lists(*domains()[0]), ElementsAre("-a"));
}

TEST_F(ExcludedCategories, ANewDomainCountsThoseBefore) {
  visualization.addCategoricalDomain(u"another");
  variable.excludeCategory(u"a");
  EXPECT_THAT(idsOf(visualization, u"categoricalDomain"), ElementsAre("another", "categoricalDomain1"));
}

TEST_F(ExcludedCategories, LeaveListsOfCategoriesThatStay) {
  LumoCategoricalDomain& own = addDomain(u"own");
  addList(own, u"x;y", false);
  variable.excludeCategory(u"a");
  EXPECT_THAT(lists(own), ElementsAre("x;y", "-a"));
}

TEST_F(ExcludedCategories, GoToEveryListOfThem) {
  LumoCategoricalDomain& own = addDomain(u"own");
  addList(own, u"x", true);
  addList(own, u"y", false);
  addList(own, u"z", true);
  EXPECT_THAT(writesOf([&] { variable.excludeCategory(u"a"); }),
              ElementsAre("categories reads x;a", "categories reads z;a"));
  EXPECT_THAT(lists(own), ElementsAre("-x;a", "y", "-z;a"));
}

TEST_F(ExcludedCategories, HaveNoSeparatorInAListThatWasEmpty) {
  LumoCategoricalDomain& own = addDomain(u"own");
  addList(own, nullptr, true);
  addList(own, u"", true);
  variable.excludeCategory(u"a");
  EXPECT_THAT(lists(own), ElementsAre("-a", "-a"));
}

TEST_F(ExcludedCategories, AreInTheTextOfTheChart) {
  variable.excludeCategory(u"a");
  variable.excludeCategory(u"b");
  EXPECT_NE(document.AsUTF8().find("remove=\"true\">a;b<"), std::string::npos) << document.AsUTF8();
}

TEST_F(ExcludedCategories, AFailureIsReportedAndWhatWasWrittenStays) {
  failAtChange(6, [&] { variable.excludeCategory(u"a"); });
  expectGuardReport(recorder, context);
  EXPECT_EQ(model.getDomain(), domains().at(0));
  EXPECT_THAT(domains()[0]->getCategoriess(), IsEmpty());
}

TEST_F(ExcludedCategories, AFailureOfALaterOneIsReported) {
  variable.excludeCategory(u"a");
  failAtChange(1, [&] { variable.excludeCategory(u"b"); });
  expectGuardReport(recorder, context);
  EXPECT_THAT(lists(*domains().at(0)), ElementsAre("-a"));
}

TEST_F(ExcludedCategories, LetTheHostsUnwindingSignalPass) {
  EXPECT_THROW(unwindAtChange(1, [&] { variable.excludeCategory(u"a"); }), VexaGoToCaller);
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
