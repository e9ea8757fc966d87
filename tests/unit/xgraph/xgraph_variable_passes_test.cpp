// The passes over the finished chart that complete its variables.

#include "change_log.h"
#include "formatless_variable.h"

#include "host/messages.h"
#include "model/variables.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using CopiedFormats = FormatlessVariable;

}  // namespace

// --- A format of another variable of the same column

TEST_F(CopiedFormats, HaveTheRelabelsOfTheDonorInOrder) {
  LumoFormat& format = *addDonor(u"donor").addFormat();
  LumoFormat& first = *visualization.getSourceVariables().at(1)->getFormats().at(0);
  first.addRelabel(u"2", u"two");
  first.addRelabel(u"1", u"one");
  first.addRelabel(u"2", u"");
  format.addRelabel(u"3", u"of the second format");
  EXPECT_THAT(writes(),
              ElementsAre("sourceVariable adds format", "format adds relabel", "relabel from=2",
                          "relabel to=two", "format adds relabel", "relabel from=1", "relabel to=one",
                          "format adds relabel", "relabel from=2", "relabel to="));
}

TEST_F(CopiedFormats, AreWrittenInAFixedOrder) {
  LumoSourceVariable& donor = addDonor(u"donor");
  donor.setShortLabel(u"m");
  donor.setLabel(u"Mass");
  LumoFormat& format = *donor.getFormats().front();
  format.setSuffix(u" g");
  format.setPrefix(u"~");
  format.addRelabel(u"0", u"none");
  EXPECT_THAT(writes(), ElementsAre("sourceVariable adds format", "format adds relabel", "relabel from=0",
                                    "relabel to=none", "format prefix=~", "format suffix= g",
                                    "sourceVariable label=Mass", "sourceVariable shortLabel=m"));
}

TEST_F(CopiedFormats, GoToTheVariableWithoutOne) {
  addDonor(u"donor").getFormats().front()->setPrefix(u"~");
  graph.copyVariableFormats();
  ASSERT_EQ(bare.getFormats().size(), 1u);
  EXPECT_EQ(utf8(bare.getFormats().front()->getPrefix()), "~");
}

TEST_F(CopiedFormats, HaveNoEmptyTexts) {
  LumoSourceVariable& donor = addDonor(u"donor");
  donor.setLabel(u"");
  donor.setShortLabel(u"");
  donor.getFormats().front()->setPrefix(u"");
  donor.getFormats().front()->setSuffix(u"");
  EXPECT_THAT(writes(), ElementsAre("sourceVariable adds format"));
}

TEST_F(CopiedFormats, AreEmptyForADonorWithAnEmptyFormat) {
  addDonor(u"donor");
  EXPECT_THAT(writes(), ElementsAre("sourceVariable adds format"));
}

TEST_F(CopiedFormats, LeaveTheLabelsOfTheVariable) {
  LumoSourceVariable& donor = addDonor(u"donor");
  donor.setLabel(u"Theirs");
  donor.setShortLabel(u"theirs");
  bare.setLabel(u"Own");
  bare.setShortLabel(u"own");
  EXPECT_THAT(writes(), ElementsAre("sourceVariable adds format"));
}

TEST_F(CopiedFormats, ReplaceEmptyLabelsOfTheVariable) {
  LumoSourceVariable& donor = addDonor(u"donor");
  donor.setLabel(u"Theirs");
  donor.setShortLabel(u"theirs");
  bare.setLabel(u"");
  bare.setShortLabel(u"");
  EXPECT_THAT(writes(), ElementsAre("sourceVariable adds format", "sourceVariable label=Theirs",
                                    "sourceVariable shortLabel=theirs"));
}

TEST_F(CopiedFormats, EachLabelIsDecidedAlone) {
  LumoSourceVariable& donor = addDonor(u"donor");
  donor.setLabel(u"Theirs");
  donor.setShortLabel(u"theirs");
  bare.setLabel(u"Own");
  EXPECT_THAT(writes(), ElementsAre("sourceVariable adds format", "sourceVariable shortLabel=theirs"));
}

TEST_F(CopiedFormats, HaveNothingElseOfTheDonor) {
  LumoSourceVariable& donor = addDonor(u"donor");
  donor.setCategorical(true);
  donor.setCreator(u"theirs");
  donor.setDescription(u"theirs");
  donor.setInputDateFormatPattern(u"yyyy");
  LumoFormat& format = *donor.getFormats().front();
  format.setBaseFormat(LumoFormat::BaseFormat1);
  format.setPattern(u"yyyy");
  format.setErrorCharacter(u"*");
  format.setMinimumFractionDigits(1);
  format.setMaximumFractionDigits(2);
  format.setUseGrouping(true);
  EXPECT_THAT(writes(), ElementsAre("sourceVariable adds format"));
}

TEST_F(CopiedFormats, LeaveTheDonorAsItIs) {
  LumoSourceVariable& donor = addDonor(u"donor");
  donor.setLabel(u"Mass");
  donor.getFormats().front()->addRelabel(u"1", u"one");
  std::string const before = donor.AsUTF8();
  graph.copyVariableFormats();
  EXPECT_EQ(donor.AsUTF8(), before);
}

TEST_F(CopiedFormats, ComeFromTheFirstVariableThatHasOne) {
  addVariable(u"another", u"mass").setLabel(u"Label without format");
  addDonor(u"first").getFormats().front()->setPrefix(u"1");
  addDonor(u"second").getFormats().front()->setPrefix(u"2");
  graph.copyVariableFormats();
  EXPECT_EQ(utf8(bare.getFormats().at(0)->getPrefix()), "1");
  EXPECT_EQ(bare.getFormats().size(), 1u) << "one donor is enough";
  EXPECT_EQ(bare.getLabel(), nullptr);
}

TEST_F(CopiedFormats, ComeFromVariablesBeforeToo) {
  addDonor(u"donor").getFormats().front()->setPrefix(u"~");
  LumoSourceVariable& last = addVariable(u"last", u"mass");
  graph.copyVariableFormats();
  ASSERT_EQ(last.getFormats().size(), 1u);
  EXPECT_EQ(utf8(last.getFormats().front()->getPrefix()), "~");
}

TEST_F(CopiedFormats, ComeAlsoFromAVariableThatHasJustReceivedOne) {
  bare.setLabel(u"Label of the first");
  addDonor(u"donor").setLabel(u"Label of the donor");
  LumoSourceVariable& last = addVariable(u"last", u"mass");
  graph.copyVariableFormats();
  EXPECT_EQ(utf8(last.getLabel()), "Label of the first");
}

TEST_F(CopiedFormats, IgnoreTheCaseOfTheColumn) {
  addDonor(u"donor", u"MaSS");
  EXPECT_THAT(writes(), ElementsAre("sourceVariable adds format"));
}

TEST_F(CopiedFormats, ComeFromNoOtherColumn) {
  addDonor(u"mass", u"length");
  addDonor(u"bare", u"masses");
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(CopiedFormats, ComeFromNoDerivedVariable) {
  visualization.addDerivedVariable(u"mass")->addFormat();
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(CopiedFormats, AreNotMadeWhereNoVariableHasOne) {
  addVariable(u"another", u"mass").setLabel(u"Mass");
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(CopiedFormats, DoNotTouchAVariableThatHasOne) {
  bare.addFormat();
  LumoSourceVariable& donor = addDonor(u"donor");
  donor.setLabel(u"Mass");
  donor.getFormats().front()->addRelabel(u"1", u"one");
  EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(CopiedFormats, AreKeptWhereALaterOneFails) {
  addDonor(u"donor");
  LumoSourceVariable& last = addVariable(u"last", u"mass");
  ChangeTrap const trap(document, 2, throwOrdinaryFailure());
  EXPECT_EQ(graph.copyVariableFormats(), 0);
  expectGuardReport(recorder, context);
  EXPECT_EQ(bare.getFormats().size(), 1u);
  EXPECT_THAT(last.getFormats(), IsEmpty());
}

TEST_F(CopiedFormats, LetTheHostsUnwindingSignalPass) {
  addDonor(u"donor");
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(graph.copyVariableFormats(), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(EmptyChartTest, FormatsAreCopiedAlsoInAChartWithoutGraph) {
  LumoSourceVariable& bare = *visualization.addSourceVariable(u"bare");
  bare.setSourceName(u"mass");
  LumoSourceVariable& lonely = *visualization.addSourceVariable(u"lonely");
  lonely.setSourceName(u"length");
  LumoSourceVariable& donor = *visualization.addSourceVariable(u"donor");
  donor.setSourceName(u"mass");
  donor.addFormat();
  XGraph attached(visualization);
  EXPECT_EQ(attached.copyVariableFormats(), 0);
  expectNoReport(recorder);
  EXPECT_EQ(bare.getFormats().size(), 1u);
  EXPECT_THAT(lonely.getFormats(), IsEmpty());
}

// --- Category lists

namespace {

class CategoryLists : public GraphTest {
 protected:
  static void fill(LumoCategoricalDomain& filled) {
    filled.addCategories()->setText(u"a;b");
    filled.addSimpleSort()->addCategoryOrder()->setText(u"b;a");
  }

  LumoCategoricalDomain& addDomain(char16_t const* id) {
    LumoCategoricalDomain& added = *visualization.addCategoricalDomain(id);
    fill(added);
    return added;
  }

  static LumoFormat& addFormat(CTVariableType& formatted, LumoFormat::ENUM_baseFormat base, bool relabelled) {
    LumoFormat& format = *formatted.addFormat();
    if (base != LumoFormat::BaseFormatNone) format.setBaseFormat(base);
    if (relabelled) format.addRelabel(u"a", u"A");
    return format;
  }

  std::vector<std::string> writes() {
    ChangeLog log(document);
    EXPECT_EQ(graph.UpdateCategoricalDomains(), 0);
    return log.lines();
  }

  LumoCategoricalDomain& domain = addDomain(u"species");
  LumoSourceVariable& variable = *visualization.addSourceVariable(u"variable");
};

struct BaseRow {
  char const* name;
  LumoFormat::ENUM_baseFormat base;
  bool relabelled;
  bool dropped;
};

void PrintTo(BaseRow const& row, std::ostream* out) { *out << row.name; }

class CategoryListsOfAFormat : public CategoryLists, public testing::WithParamInterface<BaseRow> {};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, CategoryListsOfAFormat,
                         testing::Values(BaseRow{"None", LumoFormat::BaseFormatNone, true, false},
                                         BaseRow{"One", LumoFormat::BaseFormat1, true, true},
                                         BaseRow{"OneWithoutRelabels", LumoFormat::BaseFormat1, false, false},
                                         BaseRow{"Two", LumoFormat::BaseFormat2, true, false},
                                         BaseRow{"Three", LumoFormat::BaseFormat3, true, true},
                                         BaseRow{"ThreeWithoutRelabels", LumoFormat::BaseFormat3, false,
                                                 false}),
                         caseName<BaseRow>);

TEST_P(CategoryListsOfAFormat, AreDroppedOrNot) {
  addFormat(variable, GetParam().base, GetParam().relabelled);
  domain.addVariableReference(variable);
  EXPECT_EQ(writes().empty(), !GetParam().dropped);
  EXPECT_EQ(domain.getCategoriess().empty(), GetParam().dropped);
  EXPECT_EQ(domain.getSimpleSorts().at(0)->getCategoryOrders().empty(), GetParam().dropped);
}

TEST_F(CategoryLists, AreDroppedBeforeTheOrdersOfEachSort) {
  fill(domain);
  addFormat(variable, LumoFormat::BaseFormat1, true);
  domain.addVariableReference(variable);
  EXPECT_THAT(writes(), ElementsAre("categories is removed", "categories is removed",
                                    "categoryOrder is removed", "categoryOrder is removed"));
  EXPECT_EQ(domain.getSimpleSorts().size(), 2u);
  EXPECT_EQ(domain.getVariableReferences().size(), 1u);
}

TEST_F(CategoryLists, StayWithoutAnyVariable) { EXPECT_THAT(writes(), IsEmpty()); }

TEST_F(CategoryLists, AreDroppedForALaterVariable) {
  domain.addVariableReference(*visualization.addSourceVariable(u"plain"));
  addFormat(variable, LumoFormat::BaseFormat1, true);
  domain.addVariableReference(variable);
  domain.addVariableReference(*visualization.addSourceVariable(u"plain too"));
  EXPECT_FALSE(writes().empty());
}

TEST_F(CategoryLists, AreDroppedForALaterFormat) {
  addFormat(variable, LumoFormat::BaseFormat2, true);
  addFormat(variable, LumoFormat::BaseFormat1, false);
  addFormat(variable, LumoFormat::BaseFormat3, true);
  addFormat(variable, LumoFormat::BaseFormatNone, false);
  domain.addVariableReference(variable);
  EXPECT_FALSE(writes().empty());
}

TEST_F(CategoryLists, AreDroppedForADerivedVariable) {
  LumoDerivedVariable& derived = *visualization.addDerivedVariable(u"derived");
  addFormat(derived, LumoFormat::BaseFormat1, true);
  domain.addVariableReference(derived);
  EXPECT_FALSE(writes().empty());
}

TEST_F(CategoryLists, ReferencesToNothingArePassedOver) {
  domain.addVariableReference(variable)->getImplementation()->removeAttribute(u"ref");
  addFormat(variable, LumoFormat::BaseFormat1, true);
  domain.addVariableReference(variable);
  ASSERT_EQ(domain.getVariableReferences().front()->getRef(), nullptr);
  EXPECT_FALSE(writes().empty());
  expectNoReport(recorder);
}

TEST_F(CategoryLists, OfEachDomainAreDecidedAlone) {
  LumoCategoricalDomain& plain = addDomain(u"plain");
  LumoCategoricalDomain& last = addDomain(u"last");
  addFormat(variable, LumoFormat::BaseFormat1, true);
  domain.addVariableReference(variable);
  last.addVariableReference(variable);
  graph.UpdateCategoricalDomains();
  EXPECT_THAT(domain.getCategoriess(), IsEmpty());
  EXPECT_EQ(plain.getCategoriess().size(), 1u);
  EXPECT_EQ(plain.getSimpleSorts().at(0)->getCategoryOrders().size(), 1u);
  EXPECT_THAT(last.getCategoriess(), IsEmpty());
}

TEST_F(CategoryLists, ReportAFailureAndKeepWhatWasWritten) {
  addFormat(variable, LumoFormat::BaseFormat1, true);
  domain.addVariableReference(variable);
  ChangeTrap const trap(document, 2, throwOrdinaryFailure());
  EXPECT_EQ(graph.UpdateCategoricalDomains(), 0);
  expectGuardReport(recorder, "Error in XGraph::UpdateCategoricalDomains()");
  EXPECT_THAT(domain.getCategoriess(), IsEmpty());
  EXPECT_EQ(domain.getSimpleSorts().at(0)->getCategoryOrders().size(), 1u);
}

TEST_F(CategoryLists, LetTheHostsUnwindingSignalPass) {
  addFormat(variable, LumoFormat::BaseFormat1, true);
  domain.addVariableReference(variable);
  ChangeTrap const trap(document, 1, throwGoToCaller());
  EXPECT_THROW(graph.UpdateCategoricalDomains(), VexaGoToCaller);
  expectNoReport(recorder);
}

// --- Expressions

TEST_F(GraphTest, TweakingExpressionVariablesDoesNothing) {
  visualization.addExpressionVariable(u"sum")->setExpression(u"a+b");
  recorder.clear();
  ChangeLog log(document);
  EXPECT_EQ(graph.tweakExpressionVars(), 0);
  EXPECT_THAT(log.lines(), IsEmpty());
  EXPECT_THAT(recorder.lines(), IsEmpty());
}
