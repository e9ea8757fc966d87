// Names, flags, labels and data of a variable.

#include "variable_fixture.h"
#include "xvariable.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double systemMissing = -1.7976931348623157e+308;

/// A wrapper without a host variable.
class PlainVariableTest : public VariableTest {
 protected:
  XVariable variable{model};
};

TEST_F(PlainVariableTest, GivesItsModelAndItsId) {
  EXPECT_EQ(&variable.getImplementation(), &model);
  EXPECT_EQ(static_cast<XBaseElement&>(variable).getImplementation(), &model);
  EXPECT_EQ(utf8(variable.GetID()), "sourceVariable0");
  EXPECT_EQ(variable.AsUTF8(), model.AsUTF8());
}

TEST_F(PlainVariableTest, TheCategoricalFlagIsTheModels) {
  EXPECT_FALSE(variable.getCategorical());
  EXPECT_THAT(writesOf([&] { variable.setCategorical(true); }),
              ElementsAre("sourceVariable categorical=true"));
  EXPECT_TRUE(variable.getCategorical());
  variable.setCategorical(false);
  EXPECT_FALSE(model.getCategorical());
}

TEST_F(PlainVariableTest, TheWeightFlagIsTheModels) {
  EXPECT_FALSE(variable.isWeightVariable());
  EXPECT_THAT(writesOf([&] { variable.SetWeight(true); }), ElementsAre("sourceVariable weight=true"));
  EXPECT_TRUE(variable.isWeightVariable());
  variable.SetWeight(false);
  EXPECT_FALSE(model.getWeight());
}

TEST_F(PlainVariableTest, EachCreatorHasItsWord) {
  struct Row {
    XVariable::CREATOR creator;
    int number;
    char const* word;
  };
  for (Row const row : {Row{XVariable::CreatorExternalDatasource, 0, "external_datasource"},
                        Row{XVariable::CreatorExternalSystem, 1, "external_system"},
                        Row{XVariable::CreatorExternalAggregate, 2, "external_aggregate"},
                        Row{XVariable::CreatorInternalAggregate, 3, "internal_aggregate"},
                        Row{XVariable::CreatorInternalVariable, 4, "internal_variable"}}) {
    EXPECT_EQ(row.creator, row.number);
    variable.setCreator(row.creator);
    EXPECT_EQ(utf8(model.getCreator()), row.word);
  }
}

TEST_F(PlainVariableTest, AnUnknownCreatorWritesAndReportsNothing) {
  variable.setCreator(XVariable::CreatorExternalAggregate);
  for (int const creator : {5, 6, -1, 100}) {
    EXPECT_THAT(writesOf([&] { variable.setCreator(static_cast<XVariable::CREATOR>(creator)); }), IsEmpty())
        << creator;
  }
  EXPECT_EQ(utf8(model.getCreator()), "external_aggregate");
  expectNoReport(recorder);
}

TEST_F(PlainVariableTest, TheDefaultLabelingVariableIsMarkedInItsDescription) {
  EXPECT_THAT(writesOf([&] { variable.makeDefaultLabelingVar(); }),
              ElementsAre("sourceVariable description=labeling"));
}

TEST_F(PlainVariableTest, LabelsAreWrittenUnchanged) {
  EXPECT_THAT(writesOf([&] { variable.setLabel(ChartString(u"  a\\nb  ")); }),
              ElementsAre("sourceVariable label=  a\\nb  "));
  EXPECT_THAT(writesOf([&] { variable.setShortLabel(ChartString(u" c\\nd ")); }),
              ElementsAre("sourceVariable shortLabel= c\\nd "));
}

TEST_F(PlainVariableTest, EmptyLabelsAreWritten) {
  variable.setLabel(ChartString());
  variable.setShortLabel(ChartString());
  EXPECT_EQ(attribute(&model, u"label"), "");
  EXPECT_EQ(attribute(&model, u"shortLabel"), "");
}

TEST_F(PlainVariableTest, GivesTheModelsLabelUnchanged) {
  EXPECT_TRUE(variable.getLabel().empty());
  model.setLabel(u" a\\nb ");
  EXPECT_EQ(variable.getLabel().toUTF8(), " a\\nb ");
}

/// The operations without a failure wrapper of their own.
struct Unguarded {
  char const* name;
  void (*run)(XVariable&);
};

void PrintTo(Unguarded const& operation, std::ostream* stream) { *stream << operation.name; }

class UnguardedVariableTest : public PlainVariableTest, public ::testing::WithParamInterface<Unguarded> {};

INSTANTIATE_TEST_SUITE_P(
    Operations, UnguardedVariableTest,
    ::testing::Values(
        Unguarded{"setCategorical", [](XVariable& variable) { variable.setCategorical(true); }},
        Unguarded{"setLabel", [](XVariable& variable) { variable.setLabel(ChartString(u"a")); }},
        Unguarded{"setShortLabel", [](XVariable& variable) { variable.setShortLabel(ChartString(u"a")); }},
        Unguarded{"SetWeight", [](XVariable& variable) { variable.SetWeight(true); }},
        Unguarded{"makeDefaultLabelingVar", [](XVariable& variable) { variable.makeDefaultLabelingVar(); }}),
    [](auto const& row) { return std::string(row.param.name); });

TEST_P(UnguardedVariableTest, AFailureReachesTheCaller) {
  EXPECT_THROW(failAtChange(1, [&] { GetParam().run(variable); }), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(PlainVariableTest, WithoutHostVariableTheLabelsAreTheModels) {
  EXPECT_TRUE(variable.getVexaVariableLabel().empty());
  EXPECT_TRUE(variable.getVexaVariableShortLabel().empty());
  model.setLabel(u"Age");
  model.setShortLabel(u"a");
  EXPECT_EQ(variable.getVexaVariableLabel().toUTF8(), "Age");
  EXPECT_EQ(variable.getVexaVariableShortLabel().toUTF8(), "a");
}

TEST_F(PlainVariableTest, EscapedLineBreaksOfTheModelsLabelsAreBroken) {
  model.setLabel(u"one\\ntwo");
  model.setShortLabel(u"three\\nfour");
  EXPECT_EQ(variable.getVexaVariableLabel().toUTF8(), "one\ntwo");
  EXPECT_EQ(variable.getVexaVariableShortLabel().toUTF8(), "three\nfour");
}

TEST_F(PlainVariableTest, TheModelsLabelIsNotTrimmed) {
  model.setLabel(u"  Age  ");
  EXPECT_EQ(variable.getVexaVariableLabel().toUTF8(), "  Age  ");
}

class HostLabelTest : public PlainVariableTest {
 protected:
  std::string label(char const* text) {
    host.label = text;
    variable.setVexaVariable(host);
    return variable.getVexaVariableLabel().toUTF8();
  }

  std::string shortLabel(char const* name) {
    host.name = name;
    variable.setVexaVariable(host);
    return variable.getVexaVariableShortLabel().toUTF8();
  }
};

TEST_F(HostLabelTest, AHostVariableGivesTheLabelFromThenOn) {
  model.setLabel(u"the model's");
  EXPECT_EQ(label("the host's"), "the host's");
}

TEST_F(HostLabelTest, LeadingBlanksAreCutAndTrailingOnesStay) { EXPECT_EQ(label("  Age  "), "Age  "); }

TEST_F(HostLabelTest, BlanksInsideStay) { EXPECT_EQ(label(" Age  of it"), "Age  of it"); }

TEST_F(HostLabelTest, ANullOrEmptyLabelIsEmptyWhateverTheModelSays) {
  model.setLabel(u"the model's");
  EXPECT_EQ(label(nullptr), "");
  EXPECT_EQ(label(""), "");
}

TEST_F(HostLabelTest, ALabelOfBlanksAloneIsEmpty) {
  model.setLabel(u"the model's");
  EXPECT_EQ(label(" "), "");
  EXPECT_EQ(label("    "), "");
}

TEST_F(HostLabelTest, ALabelOfOneCharacterIsTaken) { EXPECT_EQ(label("x"), "x"); }

TEST_F(HostLabelTest, EscapedLineBreaksAreBroken) {
  EXPECT_EQ(label("one\\ntwo"), "one\ntwo");
  EXPECT_EQ(shortLabel("three\\nfour"), "three\nfour");
}

TEST_F(HostLabelTest, TheShortLabelIsTheHostsName) {
  model.setShortLabel(u"the model's");
  EXPECT_EQ(shortLabel("age"), "age");
}

TEST_F(HostLabelTest, AnEmptyNameIsAnEmptyShortLabel) {
  model.setShortLabel(u"the model's");
  EXPECT_EQ(shortLabel(""), "");
}

TEST_F(HostLabelTest, TextsAreInTheLocalCodePage) {
  ChartString::setLocalCodePage("windows-1252");
  EXPECT_EQ(label("Gr\xF6\xDF"
                  "e"),
            "Größe");
  EXPECT_EQ(shortLabel("gr\xF6\xDF"
                       "e"),
            "größe");
}

TEST_F(HostLabelTest, AttachingAHostVariableWritesNothing) {
  EXPECT_THAT(writesOf([&] { variable.setVexaVariable(host); }), IsEmpty());
  EXPECT_THAT(data.asked, IsEmpty());
}

TEST_F(HostLabelTest, AHostVariableThatIsAttachedReplacesTheFormerOne) {
  ChosenVariable other;
  other.label = "other";
  variable.setVexaVariable(host);
  variable.setVexaVariable(other);
  EXPECT_EQ(variable.getVexaVariableLabel().toUTF8(), "other");
}

class VariableDataTest : public VariableTest {
 protected:
  OBS const cell{2.5};
  ChosenCase here;
};

TEST_F(VariableDataTest, ADataVariableGivesTheCellAtItsIndex) {
  XVariable variable(model, host, source, &data);
  here.cell = &cell;
  EXPECT_EQ(variable.getData(&here), 2.5);
  EXPECT_THAT(here.asked, ElementsAre(3u));
}

TEST_F(VariableDataTest, AnIndexOfZeroIsAnIndex) {
  data.index = 0;
  XVariable variable(model, host, source, &data);
  here.cell = &cell;
  EXPECT_EQ(variable.getData(&here), 2.5);
  EXPECT_THAT(here.asked, ElementsAre(0u));
}

TEST_F(VariableDataTest, WithoutCellTheValueIsMissing) {
  XVariable variable(model, host, source, &data);
  EXPECT_EQ(variable.getData(&here), systemMissing);
}

TEST_F(VariableDataTest, WithoutIteratorTheValueIsMissing) {
  EXPECT_EQ(XVariable(model, host, source, &data).getData(nullptr), systemMissing);
  EXPECT_EQ(XVariable(model, true, source, false).getData(nullptr), systemMissing);
}

TEST_F(VariableDataTest, ADataVariableThatTheSourceDoesNotKnowIsMissing) {
  data.index = -1;
  XVariable variable(model, host, source, &data);
  here.cell = &cell;
  EXPECT_EQ(variable.getData(&here), systemMissing);
  EXPECT_THAT(here.asked, IsEmpty());
}

TEST_F(VariableDataTest, ASystemVariableGivesTheCaseNumber) {
  XVariable variable(model, true, source, false);
  here.cell = &cell;
  here.caseNumber = 5000000000;
  EXPECT_EQ(variable.getData(&here), 5e9);
}

TEST_F(VariableDataTest, AWrappedVariableOverTheCaseNumberIsMissing) {
  model.setSourceName(u"$CASENUM");
  EXPECT_EQ(XVariable(model).getData(&here), systemMissing);
}

TEST_F(VariableDataTest, AnotherSystemVariableIsMissing) {
  EXPECT_EQ(XVariable(model, false, source, false).getData(&here), systemMissing);
}

TEST_F(VariableDataTest, AggregatedExpressionAndDerivedVariablesAreMissing) {
  XVariable aggregated(model, source);
  XVariable expression(*visualization.addExpressionVariable(u"e"), {&aggregated, &aggregated});
  XVariable derived(*visualization.addDerivedVariable(u"d"));
  here.cell = &cell;
  EXPECT_EQ(aggregated.getData(&here), systemMissing);
  EXPECT_EQ(expression.getData(&here), systemMissing);
  EXPECT_EQ(derived.getData(&here), systemMissing);
}

TEST_F(VariableDataTest, AnAttachedHostVariableGivesNoData) {
  XVariable variable(model, source);
  variable.setVexaVariable(host);
  here.cell = &cell;
  EXPECT_EQ(variable.getData(&here), systemMissing);
}

TEST_F(VariableDataTest, AMissingCellIsItsOwnValue) {
  OBS const missing(systemMissing);
  XVariable variable(model, host, source, &data);
  here.cell = &missing;
  EXPECT_EQ(variable.getData(&here), systemMissing);
  EXPECT_THAT(here.asked, ElementsAre(3u));
}

}  // namespace
}  // namespace kestrel::test
