// The format element of a variable: explicit number formats, and what each of the host's format types makes
// of it.

#include "variable_fixture.h"

#include "host/messages.h"
#include "host/text.h"

#include <gmock/gmock.h>

#include <set>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FormatTest : public VariableTest {
 protected:
  LumoFormat* format() const {
    auto const formats = model.getFormats();
    return formats.empty() ? nullptr : formats.front();
  }

  XVariable variable{model};
};

TEST(HostFormat, IsFourBytesOfZeroAtFirst) {
  Vexa_Format const format;
  EXPECT_EQ(sizeof format, 4u);
  EXPECT_EQ(format.TypeEx(), 0u);
  EXPECT_EQ(format.Width(), 0);
  EXPECT_EQ(format.Decimals(), 0);
}

TEST(HostFormat, NumbersAreAtMostFortyWide) {
  EXPECT_EQ(Vexa_Format(Vexa_Format::FormatNumber, 100, 2).Width(), 40);
  EXPECT_EQ(Vexa_Format(Vexa_Format::FormatNumber, 41, 2).Width(), 40);
  EXPECT_EQ(Vexa_Format(Vexa_Format::FormatNumber, 40, 2).Width(), 40);
  EXPECT_EQ(Vexa_Format(Vexa_Format::FormatNumber, 8, 2).Width(), 8);
}

TEST(HostFormat, StringsKeepAnyWidth) {
  EXPECT_EQ(Vexa_Format(Vexa_Format::FormatString, 100, 0).Width(), 100);
  EXPECT_EQ(Vexa_Format(Vexa_Format::FormatTextString, 32767, 0).Width(), 32767);
}

TEST(HostFormat, OnlyTheTypesOneAndTwoAreStrings) {
  for (int type = 0; type < 256; ++type) {
    Vexa_Format const format(static_cast<Vexa_Format::FormatType>(type), 8, 0);
    EXPECT_EQ(format.IsString(), type == 1 || type == 2) << type;
  }
}

TEST(HostFormat, PartsAreCutToTheirFields) {
  Vexa_Format const format(static_cast<Vexa_Format::FormatType>(0x105), 0x10008, 0x102);
  EXPECT_EQ(format.TypeEx(), 5u);
  EXPECT_EQ(format.Width(), 8);
  EXPECT_EQ(format.Decimals(), 2);
}

TEST(HostFormat, TheLimitOfTheWidthIsThatOfTheTypeAtTheTime) {
  Vexa_Format format;
  format.Width(100);
  EXPECT_EQ(format.Width(), 40);
  format.Type(Vexa_Format::FormatString);
  EXPECT_EQ(format.Width(), 40);
  format.Width(100);
  EXPECT_EQ(format.Width(), 100);
  format.Type(Vexa_Format::FormatNumber);
  EXPECT_EQ(format.Width(), 100);
}

TEST(HostFormat, DecimalsAreNotLimited) {
  Vexa_Format format;
  format.Decimals(255);
  EXPECT_EQ(format.Decimals(), 255);
}

TEST(HostFormat, AWidthThatIsCutIsLimitedAfterThat) {
  EXPECT_EQ(Vexa_Format(Vexa_Format::FormatNumber, 0x10064, 2).Width(), 40);
}

using NumberFormatTest = FormatTest;

TEST_F(NumberFormatTest, FixesTheNumberOfDecimals) {
  EXPECT_TRUE(variable.SetNumberFormat(2, false, u"", u""));
  EXPECT_EQ(attribute(format(), u"minimumFractionDigits"), "2");
  EXPECT_EQ(attribute(format(), u"maximumFractionDigits"), "2");
}

TEST_F(NumberFormatTest, WritesInItsFixedOrder) {
  EXPECT_THAT(writesOf([&] { variable.SetNumberFormat(3, true, u"<", u">"); }),
              ElementsAre("sourceVariable adds format", "format minimumFractionDigits=3",
                          "format maximumFractionDigits=3", "format useGrouping=true", "format prefix=<",
                          "format suffix=>"));
}

TEST_F(NumberFormatTest, GroupingMayBeOff) {
  variable.SetNumberFormat(0, false, u"", u"");
  EXPECT_EQ(attribute(format(), u"useGrouping"), "false");
  EXPECT_EQ(attribute(format(), u"minimumFractionDigits"), "0");
}

TEST_F(NumberFormatTest, DecimalsAreCutTo32Bits) {
  variable.SetNumberFormat(0x100000003ul, false, u"", u"");
  EXPECT_EQ(attribute(format(), u"minimumFractionDigits"), "3");
  EXPECT_EQ(attribute(format(), u"maximumFractionDigits"), "3");
}

TEST_F(NumberFormatTest, EmptyAffixesLeaveWhatStands) {
  variable.SetFormatPrefix(u"<");
  variable.SetFormatSuffix(u">");
  EXPECT_TRUE(variable.SetNumberFormat(2, true, u"", u""));
  EXPECT_EQ(attribute(format(), u"prefix"), "<");
  EXPECT_EQ(attribute(format(), u"suffix"), ">");
}

TEST_F(NumberFormatTest, NullAffixesCountAsEmpty) {
  variable.SetFormatPrefix(u"<");
  EXPECT_TRUE(variable.SetNumberFormat(2, true, nullptr, nullptr));
  EXPECT_EQ(attribute(format(), u"prefix"), "<");
  EXPECT_EQ(attribute(format(), u"suffix"), "(absent)");
}

TEST_F(NumberFormatTest, OnlyTheFirstFormatIsWritten) {
  model.addFormat();
  model.addFormat();
  variable.SetNumberFormat(2, true, u"<", u">");
  ASSERT_EQ(model.getFormats().size(), 2u);
  EXPECT_EQ(attribute(model.getFormats()[1], u"useGrouping"), "(absent)");
}

TEST_F(NumberFormatTest, AFailureToMakeTheFormatIsReportedAndWhatFollowsFailsForTheCaller) {
  EXPECT_ANY_THROW(failAtChange(1, [&] { variable.SetNumberFormat(2, true, u"", u""); }));
  expectGuardReport(recorder, "Error in XVariable::SetNumberFormat()");
}

TEST_F(NumberFormatTest, AFailureOfALaterStepReachesTheCaller) {
  for (unsigned int const step : {2u, 3u, 4u, 5u, 6u}) {
    LumoSourceVariable& fresh = addVariable(u"fresh");
    XVariable wrapper(fresh);
    EXPECT_THROW(failAtChange(step, [&] { wrapper.SetNumberFormat(2, true, u"<", u">"); }), OrdinaryFailure)
        << step;
  }
  expectNoReport(recorder);
}

TEST_F(NumberFormatTest, TheUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { variable.SetNumberFormat(2, true, u"", u""); }), VexaGoToCaller);
  expectNoReport(recorder);
}

/// SetFormatPrefix and SetFormatSuffix differ only in what they write.
struct Affix {
  char const* name;
  bool (XVariable::*set)(char16_t const*);
  char16_t const* attribute;
};

void PrintTo(Affix const& affix, std::ostream* stream) { *stream << affix.name; }

class AffixTest : public FormatTest, public ::testing::WithParamInterface<Affix> {
 protected:
  bool set(char16_t const* text) { return (variable.*GetParam().set)(text); }
};

INSTANTIATE_TEST_SUITE_P(Affixes, AffixTest,
                         ::testing::Values(Affix{"Prefix", &XVariable::SetFormatPrefix, u"prefix"},
                                           Affix{"Suffix", &XVariable::SetFormatSuffix, u"suffix"}),
                         [](auto const& row) { return std::string(row.param.name); });

TEST_P(AffixTest, MakesTheFormatAndWritesIt) {
  bool done = false;
  EXPECT_THAT(writesOf([&] { done = set(u" EUR\\n"); }),
              ElementsAre("sourceVariable adds format", "format " + utf8(GetParam().attribute) + "= EUR\\n"));
  EXPECT_TRUE(done);
}

TEST_P(AffixTest, WritesOnTheFirstFormat) {
  model.addFormat();
  model.addFormat();
  EXPECT_TRUE(set(u"x"));
  ASSERT_EQ(model.getFormats().size(), 2u);
  EXPECT_EQ(attribute(model.getFormats()[0], GetParam().attribute), "x");
  EXPECT_EQ(attribute(model.getFormats()[1], GetParam().attribute), "(absent)");
}

TEST_P(AffixTest, ReplacesTheFormerOne) {
  set(u"a");
  EXPECT_TRUE(set(u"b"));
  EXPECT_EQ(attribute(format(), GetParam().attribute), "b");
}

TEST_P(AffixTest, AnEmptyOrNullTextDoesNothing) {
  EXPECT_FALSE(set(u""));
  EXPECT_FALSE(set(nullptr));
  EXPECT_FALSE(variable.doesFormatExist());
}

TEST_P(AffixTest, AnEmptyTextLeavesTheFormerOne) {
  set(u"a");
  EXPECT_FALSE(set(u""));
  EXPECT_EQ(attribute(format(), GetParam().attribute), "a");
}

TEST_P(AffixTest, AFailureIsReportedAsOneOfTheNumberFormat) {
  failAtChange(1, [&] { EXPECT_FALSE(set(u"x")); });
  expectGuardReport(recorder, "Error in XVariable::SetNumberFormat()");
}

TEST_P(AffixTest, AFailureToWriteItIsReportedInTheSameWay) {
  failAtChange(2, [&] { EXPECT_FALSE(set(u"x")); });
  expectGuardReport(recorder, "Error in XVariable::SetNumberFormat()");
  EXPECT_EQ(attribute(format(), GetParam().attribute), "(absent)");
}

TEST_P(AffixTest, TheUnwindingSignalPasses) {
  EXPECT_THROW(unwindAtChange(1, [&] { set(u"x"); }), VexaGoToCaller);
  expectNoReport(recorder);
}

/// What the host is asked for a format type, and the input pattern that the variable gets.
struct TypeRow {
  std::set<unsigned int> types;
  std::vector<Operation> calls;
  char const* inputPattern;
};

constexpr char const* noPattern = "(absent)";
constexpr char const* datePattern = "yyyy-MM-dd";
constexpr char const* dateTimePattern = "yyyy-MM-dd'T'HH:mm:ss.SSS";

/// Of a variable that is not categorical.
std::vector<TypeRow> const& typeRows() {
  static std::vector<TypeRow> const rows = {
      {{3, 4, 5, 8, 9, 12, 15, 16, 17, 31, 32, 40}, {Operation::FormatNumber}, noPattern},
      {{33, 34, 35, 36, 37}, {Operation::FormatCustomCurrency}, noPattern},
      {{20, 23, 24, 28, 29, 30, 38, 39}, {Operation::FormatDate}, datePattern},
      {{22, 86}, {Operation::FormatDate}, dateTimePattern},
      {{21, 85}, {Operation::FormatDate}, noPattern},
      {{25}, {Operation::FormatElapsedTime}, noPattern},
      {{26, 27}, {Operation::FormatDate}, datePattern},
  };
  return rows;
}

TypeRow rowOf(unsigned int type) {
  for (TypeRow const& row : typeRows()) {
    if (row.types.count(type) != 0) return row;
  }
  return {{type}, {}, noPattern};
}

class FormatTypeTest : public FormatTest, public ::testing::WithParamInterface<unsigned int> {
 protected:
  void setFormat(bool categorical) {
    model.setCategorical(categorical);
    recorder.clear();
    variable.setFormat(Vexa_Format(static_cast<Vexa_Format::FormatType>(GetParam()), 10, 3));
  }

  std::vector<host::Entry> formatCalls() const {
    std::vector<host::Entry> calls;
    for (host::Entry const& entry : recorder.entries()) {
      if (entry.has("type")) calls.push_back(entry);
    }
    return calls;
  }

  void expectCalls(std::vector<Operation> const& expected) const {
    auto const calls = formatCalls();
    ASSERT_EQ(calls.size(), expected.size());
    for (std::size_t index = 0; index < calls.size(); ++index) {
      EXPECT_EQ(calls[index].operation, expected[index]);
      EXPECT_EQ(calls[index].number("type"), GetParam());
      EXPECT_EQ(calls[index].number("width"), 10);
      EXPECT_EQ(calls[index].number("decimals"), 3);
    }
  }
};

INSTANTIATE_TEST_SUITE_P(AllNumbers, FormatTypeTest, ::testing::Range(0u, 256u));

TEST_P(FormatTypeTest, OfAVariableThatIsNotCategoricalAsksTheHostAsItsGroupSays) {
  setFormat(false);
  TypeRow const row = rowOf(GetParam());
  expectCalls(row.calls);
  EXPECT_EQ(attribute(&model, u"inputDateFormatPattern"), row.inputPattern);
  EXPECT_EQ(model.getFormats().size(), 1u);
  EXPECT_TRUE(format()->getRelabels().empty());
  expectNoReport(recorder);
}

TEST_P(FormatTypeTest, OfACategoricalVariableDiffersForDaysAndMonthsOnly) {
  setFormat(true);
  bool const named = GetParam() == 26 || GetParam() == 27;
  TypeRow const row = rowOf(GetParam());
  expectCalls(named ? std::vector<Operation>() : row.calls);
  EXPECT_EQ(attribute(&model, u"inputDateFormatPattern"), named ? noPattern : row.inputPattern);
  EXPECT_EQ(format()->getRelabels().size(), GetParam() == 26 ? 7u : GetParam() == 27 ? 12u : 0u);
  expectNoReport(recorder);
}

TEST_F(FormatTest, AStringLeavesAnEmptyFormat) {
  variable.setFormat(Vexa_Format(Vexa_Format::FormatString, 8, 0));
  EXPECT_TRUE(variable.doesFormatExist());
  EXPECT_THAT(attributeNames(*format()), IsEmpty());
  EXPECT_THAT(childTags(*format()), IsEmpty());
}

TEST_F(FormatTest, AFormatExistsOnceThereIsOne) {
  EXPECT_FALSE(variable.doesFormatExist());
  model.addFormat();
  EXPECT_TRUE(variable.doesFormatExist());
}

TEST_F(FormatTest, TheFirstFormatIsFilledAgain) {
  variable.setFormat(Vexa_Format(Vexa_Format::FormatString, 8, 0));
  variable.setFormat(Vexa_Format(Vexa_Format::FormatNumber, 8, 2));
  EXPECT_EQ(model.getFormats().size(), 1u);
}

TEST_F(FormatTest, TheFormatIsMadeBeforeTheHostIsAsked) {
  recorder.throwAt(Operation::FormatNumber, 1, OrdinaryFailure());
  variable.setFormat(Vexa_Format(Vexa_Format::FormatNumber, 8, 2));
  EXPECT_TRUE(variable.doesFormatExist());
  expectGuardReport(recorder, "Error in XVariable::setFormat()");
}

TEST_F(FormatTest, TheInputPatternIsWrittenBeforeTheHostIsAsked) {
  recorder.throwAt(Operation::FormatDate, 1, OrdinaryFailure());
  variable.setFormat(Vexa_Format(Vexa_Format::FormatDateTime, 20, 0));
  EXPECT_EQ(attribute(&model, u"inputDateFormatPattern"), dateTimePattern);
}

TEST_F(FormatTest, WhatTheHostAnswersIsNotRead) {
  recorder.failEvery(Operation::FormatNumber);
  recorder.failEvery(Operation::FormatDate);
  variable.setFormat(Vexa_Format(Vexa_Format::FormatNumber, 8, 2));
  variable.setFormat(Vexa_Format(Vexa_Format::FormatDate, 11, 0));
  expectNoReport(recorder);
}

TEST_F(FormatTest, ATimeKeepsTheInputPatternThatStands) {
  variable.setFormat(Vexa_Format(Vexa_Format::FormatDate, 11, 0));
  variable.setFormat(Vexa_Format(Vexa_Format::FormatTime, 8, 0));
  EXPECT_EQ(attribute(&model, u"inputDateFormatPattern"), datePattern);
}

TEST_F(FormatTest, AVariableOfAnotherKindGetsTheInputPatternToo) {
  LumoDerivedVariable& derivedModel = *visualization.addDerivedVariable(u"derived");
  XVariable derived(derivedModel);
  derived.setFormat(Vexa_Format(Vexa_Format::FormatDate, 11, 0));
  EXPECT_EQ(attribute(&derivedModel, u"inputDateFormatPattern"), datePattern);
  expectNoReport(recorder);
}

TEST_F(FormatTest, TheUnwindingSignalPasses) {
  recorder.throwEvery(Operation::FormatNumber, VexaGoToCaller());
  Vexa_Format const number(Vexa_Format::FormatNumber, 8, 2);
  EXPECT_THROW(variable.setFormat(number), VexaGoToCaller);
  EXPECT_THROW(variable.setFormatBasedOnVexaVariable(host), VexaGoToCaller);
  expectNoReport(recorder);
}

class SeenFormats : public XVariable {
 public:
  using XVariable::XVariable;

  void setFormat(Vexa_Format format) override {
    if (fails) throw OrdinaryFailure();
    seen.push_back(format.TypeEx());
  }

  bool fails = false;
  std::vector<unsigned int> seen;
};

TEST_F(FormatTest, TheHostsFormatGoesThroughTheVirtualSetFormat) {
  SeenFormats wrapper(model);
  host.format = Vexa_Format(Vexa_Format::FormatDate, 11, 0);
  wrapper.setFormatBasedOnVexaVariable(host);
  EXPECT_THAT(wrapper.seen, ElementsAre(20u));
}

TEST_F(FormatTest, AFailureOfTheHostsFormatIsReportedUnderItsOwnContext) {
  SeenFormats wrapper(model);
  wrapper.fails = true;
  wrapper.setFormatBasedOnVexaVariable(host);
  expectGuardReport(recorder, "Error in XVariable::setFormatBasedOnVexaVariable()");
}

TEST_F(FormatTest, TheHostsFormatIsThatOfTheVariableThatIsPassed) {
  ChosenVariable other;
  other.format = Vexa_Format(Vexa_Format::FormatDateTime, 20, 0);
  variable.setVexaVariable(host);
  variable.setFormatBasedOnVexaVariable(other);
  EXPECT_EQ(attribute(&model, u"inputDateFormatPattern"), dateTimePattern);
}

/// The two families of names that stand for values.
struct Names {
  char const* name;
  unsigned int type;
  void (XVariable::*add)(LumoFormat&, Vexa_Format);
  std::vector<std::string> longKeys;
};

void PrintTo(Names const& names, std::ostream* stream) { *stream << names.name; }

class NameRelabelTest : public FormatTest, public ::testing::WithParamInterface<Names> {
 protected:
  void SetUp() override {
    for (std::string const& key : GetParam().longKeys) {
      recorder.services().texts->texts[key] = "long " + key;
      recorder.services().texts->texts["TFO" + key] = "short " + key;
    }
  }

  void add(int width) {
    recorder.clear();
    (variable.*GetParam().add)(*model.addFormat(), Vexa_Format(typeOf(), width, 0));
  }

  Vexa_Format::FormatType typeOf() const { return static_cast<Vexa_Format::FormatType>(GetParam().type); }

  std::vector<std::string> relabels() const {
    std::vector<std::string> pairs;
    for (LumoRelabel const* relabel : format()->getRelabels()) {
      pairs.push_back(utf8(relabel->getFrom()) + "=" + utf8(relabel->getTo()));
    }
    return pairs;
  }

  /// Value by value, from 1.
  std::vector<std::string> expected(std::string const& before) const {
    std::vector<std::string> pairs;
    for (std::string const& key : GetParam().longKeys) {
      pairs.push_back(std::to_string(pairs.size() + 1) + "=" + before + key);
    }
    return pairs;
  }

  std::vector<std::string> keysAskedFor() const {
    std::vector<std::string> keys;
    for (host::Entry const& entry : recorder.entries(Operation::LookUp)) keys.push_back(entry.text("key"));
    return keys;
  }
};

INSTANTIATE_TEST_SUITE_P(
    Families, NameRelabelTest,
    ::testing::Values(Names{"DaysOfTheWeek",
                            26,
                            &XVariable::addDayOfWeekRelabels,
                            {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"}},
                      Names{"MonthsOfTheYear",
                            27,
                            &XVariable::addMonthOfYearRelabels,
                            {"January", "February", "March", "April", "May", "June", "July", "August",
                             "September", "October", "November", "December"}}),
    [](auto const& row) { return std::string(row.param.name); });

TEST_P(NameRelabelTest, AWidthAboveThreeGivesTheLongNames) {
  for (int const width : {4, 9, 40}) {
    add(width);
    EXPECT_EQ(keysAskedFor(), GetParam().longKeys);
  }
}

TEST_P(NameRelabelTest, LongNamesStandForTheNumbersFromOne) {
  add(4);
  EXPECT_EQ(relabels(), expected("long "));
}

TEST_P(NameRelabelTest, AWidthUpToThreeGivesTheShortNames) {
  std::vector<std::string> shortKeys;
  for (std::string const& key : GetParam().longKeys) shortKeys.push_back("TFO" + key);
  for (int const width : {0, 1, 3}) {
    add(width);
    EXPECT_EQ(keysAskedFor(), shortKeys);
  }
}

TEST_P(NameRelabelTest, ShortNamesStandForTheNumbersFromOne) {
  add(3);
  EXPECT_EQ(relabels(), expected("short "));
}

TEST_P(NameRelabelTest, TheDictionaryOfTheChartsIsOpenedOnTheHostsPath) {
  recorder.services().paths->dictionary = "/base/xx/";
  add(9);
  std::vector<std::string> lines = recorder.lines();
  ASSERT_GE(lines.size(), 5u);
  lines.resize(5);
  EXPECT_THAT(lines, ElementsAre(R"(PathInstance::getDictionaryPath(kind=3))",                            //
                                 R"(FacSTDictionary::FacSTDictionary(path="/base/xx/"))",                 //
                                 R"(FacSTDictionary::SetProcedure(procedure="GRAPH"))",                   //
                                 "FacSTDictionary::LookUp(key=\"" + GetParam().longKeys.front() + "\")",  //
                                 "OLang::GetLanguageCode()"));
}

TEST_P(NameRelabelTest, EachNameIsWrittenBeforeTheNextIsLookedUp) {
  std::vector<std::size_t> relabelsAtCall;
  LumoFormat& made = *model.addFormat();
  recorder.actAt(Operation::LookUp, 0, [&] { relabelsAtCall.push_back(made.getRelabels().size()); });
  (variable.*GetParam().add)(made, Vexa_Format(typeOf(), 9, 0));
  for (std::size_t call = 0; call < GetParam().longKeys.size(); ++call)
    EXPECT_EQ(relabelsAtCall.at(call), call);
}

TEST_P(NameRelabelTest, AnEmptyTextIsUsedAsItComes) {
  recorder.services().texts->texts[GetParam().longKeys[1]] = "";
  add(9);
  EXPECT_EQ(relabels()[1], "2=");
}

TEST_P(NameRelabelTest, AKeyThatTheDictionaryDoesNotKnowIsUsedAsItComes) {
  recorder.services().texts->texts.clear();
  add(9);
  EXPECT_EQ(relabels(), expected(""));
}

TEST_P(NameRelabelTest, TextsInTheLocalCodePageAreDecoded) {
  ChartString::setLocalCodePage("windows-1252");
  recorder.services().texts->texts[GetParam().longKeys[0]] = "März";
  // What the host's dictionaries give are bytes of that page.
  ASSERT_EQ(FacSTDictionary("").LookUp(GetParam().longKeys[0]), "M\xE4rz");
  add(9);
  EXPECT_EQ(relabels()[0], "1=März");
}

TEST_P(NameRelabelTest, AFailureReachesTheCaller) {
  recorder.throwAt(Operation::LookUp, 2, OrdinaryFailure());
  EXPECT_THROW(add(9), OrdinaryFailure);
  EXPECT_EQ(relabels().size(), 1u);
  expectNoReport(recorder);
}

TEST_P(NameRelabelTest, AFailureInsideSetFormatIsReportedByIt) {
  recorder.throwAt(Operation::LookUp, 2, OrdinaryFailure());
  model.setCategorical(true);
  variable.setFormat(Vexa_Format(typeOf(), 9, 0));
  expectGuardReport(recorder, "Error in XVariable::setFormat()");
  EXPECT_EQ(relabels().size(), 1u);
}

TEST_P(NameRelabelTest, SetFormatOfACategoricalVariableWritesThem) {
  model.setCategorical(true);
  variable.setFormat(Vexa_Format(typeOf(), 3, 0));
  EXPECT_EQ(relabels(), expected("short "));
}

TEST_P(NameRelabelTest, TheFlagIsReadWhenTheFormatIsSet) {
  variable.setFormat(Vexa_Format(typeOf(), 9, 0));
  EXPECT_THAT(relabels(), IsEmpty());
  variable.setCategorical(true);
  variable.setFormat(Vexa_Format(typeOf(), 9, 0));
  EXPECT_EQ(relabels(), expected("long "));
}

TEST_P(NameRelabelTest, AVariableThatIsCategoricalBeforeItsConstructionGetsThem) {
  LumoSourceVariable& flagged = addVariable(u"flagged");
  flagged.setCategorical(true);
  host.format = Vexa_Format(typeOf(), 9, 0);
  XVariable const constructed(flagged, host, source, &data);
  EXPECT_EQ(flagged.getFormats().front()->getRelabels().size(), GetParam().longKeys.size());
}

}  // namespace
}  // namespace kestrel::test
