// Words and side information on the chart as a whole.

#include "xdocument.h"

#include "change_log.h"
#include "chart_test.h"
#include "document_record.h"
#include "schema_validator.h"
#include "xgraph.h"

#include "host/log.h"
#include "host/messages.h"
#include "model/document.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/variables.h"

#include <gmock/gmock.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A document on a chart, which is held against its schema at the end.
class Words : public ChartTest {
 protected:
  void TearDown() override { EXPECT_THAT(schemaErrors(document.AsUTF8()), IsEmpty()); }

  std::vector<std::string> writesOf(std::function<void()> const& operation) {
    ChangeLog log(model);
    operation();
    return log.lines();
  }

  LumoDocument model;
  LumoVisualization& visualization{*model.getVisualization()};
  XDocument document{model};
};

/// A document without a chart.
class NoWords : public ChartTest {
 protected:
  NoWords() { recorder.clear(); }

  XDocument document{std::string()};
};

// --- The language

class Language : public Words {
 protected:
  host::FixedLocale& locale = *recorder.services().locale;
};

TEST_F(Language, IsTheHostsAndTheCreatorIsItsCode) {
  recorder.clear();
  locale.name = "de_DE.UTF-8";
  locale.language = "de";
  EXPECT_THAT(writesOf([this] { document.setLanguage(); }),
              ElementsAre("visualization lang=de-DE", "visualization creator=de"));
  EXPECT_THAT(recorder.lines(), ElementsAre("VexaMBDefaultLocaleName_A()", "OLang::GetLanguageCode()"));
}

TEST_F(Language, StaysWhereThereIsOne) {
  visualization.setLang(u"fr");
  visualization.setCreator(u"me");
  EXPECT_THAT(writesOf([this] { document.setLanguage(); }), IsEmpty());
  EXPECT_EQ(recorder.count(Operation::LocaleName), 0u);
  EXPECT_EQ(recorder.count(Operation::LanguageCode), 0u);
}

TEST_F(Language, StaysAtASecondCall) {
  document.setLanguage();
  locale.name = "de_DE.UTF-8";
  EXPECT_THAT(writesOf([this] { document.setLanguage(); }), IsEmpty());
  EXPECT_EQ(attribute(&visualization, u"lang"), "en-US");
}

TEST_F(Language, TakesThePlaceOfAnEmptyOneAndOfAnyCreator) {
  visualization.setLang(u"");
  visualization.setCreator(u"me");
  document.setLanguage();
  EXPECT_EQ(attribute(&visualization, u"lang"), "en-US");
  EXPECT_EQ(attribute(&visualization, u"creator"), "en");
}

struct LocaleForm {
  char const* name;
  std::string locale;
  std::string language;
};
void PrintTo(LocaleForm const& row, std::ostream* out) { *out << row.name; }

class LanguageOfALocale : public Language, public ::testing::WithParamInterface<LocaleForm> {};

TEST_P(LanguageOfALocale, HasNoLastPartAndDashes) {
  locale.name = GetParam().locale;
  document.setLanguage();
  EXPECT_EQ(attribute(&visualization, u"lang"), GetParam().language);
  EXPECT_EQ(attribute(&visualization, u"creator"), "en");
  expectNoReport(recorder);
}

INSTANTIATE_TEST_SUITE_P(Locales, LanguageOfALocale,
                         ::testing::Values(LocaleForm{"WithEncoding", "en_US.UTF-8", "en-US"},
                                           LocaleForm{"WithoutEncoding", "pt_BR", "pt-BR"},
                                           LocaleForm{"LanguageAlone", "ru.KOI8-R", "ru"},
                                           LocaleForm{"TwoDots", "de_DE.ISO.8859", "de-DE.ISO"},
                                           LocaleForm{"ThreeParts", "zh_Hant_TW.Big5", "zh-Hant-TW"},
                                           LocaleForm{"AlreadyWithDashes", "zh-Hans-CN", "zh-Hans-CN"},
                                           LocaleForm{"UnderscoreBehindTheDot", "ja_JP.euc_JP", "ja-JP"},
                                           LocaleForm{"ModifierBehindTheDot", "sr_RS.UTF-8@latin", "sr-RS"},
                                           LocaleForm{"ModifierAlone", "sr_RS@latin", "sr-RS@latin"},
                                           LocaleForm{"DotAtTheEnd", "C.", "C"},
                                           LocaleForm{"AsLongAsItMayBe", std::string(123, 'x'),
                                                      std::string(123, 'x')}),
                         [](auto const& tested) { return tested.param.name; });

class NoLocale : public Language, public ::testing::WithParamInterface<LocaleForm> {};

TEST_P(NoLocale, IsLoggedAndGivesAnEmptyLanguage) {
  locale.name = GetParam().locale;
  locale.language = "de";
  EXPECT_THAT(writesOf([this] { document.setLanguage(); }),
              ElementsAre("visualization lang=", "visualization creator=de"));
  EXPECT_THAT(recorder.failures(), ElementsAre("VexaMBDefaultLocaleName() returned empty string."));
  EXPECT_THAT(recorder.userMessages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Locales, NoLocale,
                         ::testing::Values(LocaleForm{"Empty", "", ""},
                                           LocaleForm{"EncodingAlone", ".UTF-8", ""},
                                           LocaleForm{"TooLong", std::string(124, 'x'), ""}),
                         [](auto const& tested) { return tested.param.name; });

TEST_F(Language, IsAskedForAgainWhereTheHostHadNone) {
  locale.name = "";
  document.setLanguage();
  locale.name = "de_DE";
  document.setLanguage();
  EXPECT_EQ(attribute(&visualization, u"lang"), "de-DE");
}

TEST_F(Language, IsEmptyWhereTheHostFails) {
  recorder.failAt(Operation::LocaleName, 1);
  document.setLanguage();
  EXPECT_EQ(attribute(&visualization, u"lang"), "");
  EXPECT_THAT(recorder.failures(), ElementsAre("VexaMBDefaultLocaleName() returned empty string."));
}

TEST_F(Language, LetsFailuresOfTheHostPass) {
  recorder.throwAt(Operation::LocaleName, 1, VexaGoToCaller());
  EXPECT_THROW(document.setLanguage(), VexaGoToCaller);
  EXPECT_EQ(attribute(&visualization, u"lang"), "(absent)");
  recorder.behave();
  recorder.throwAt(Operation::LanguageCode, 1, OrdinaryFailure());
  EXPECT_THROW(document.setLanguage(), OrdinaryFailure);
  EXPECT_EQ(attribute(&visualization, u"lang"), "en-US");
  EXPECT_EQ(attribute(&visualization, u"creator"), "(absent)");
  expectNoReport(recorder);
}

TEST_F(Language, LetsFailuresOfTheChartPass) {
  {
    ChangeTrap const trap(model, 1, throwOrdinaryFailure());
    EXPECT_THROW(document.setLanguage(), OrdinaryFailure);
  }
  EXPECT_EQ(attribute(&visualization, u"lang"), "(absent)");
  ChangeTrap const trap(model, 2, throwGoToCaller());
  EXPECT_THROW(document.setLanguage(), VexaGoToCaller);
  EXPECT_EQ(attribute(&visualization, u"lang"), "en-US");
  EXPECT_EQ(attribute(&visualization, u"creator"), "(absent)");
  expectNoReport(recorder);
}

TEST_F(NoWords, AskTheHostForNoLanguage) {
  document.setLanguage();
  EXPECT_THAT(recorder.lines(), IsEmpty());
}

// --- Extensions

using Extensions = Words;

TEST_F(Extensions, AreWrittenIntoANewRecord) {
  EXPECT_THAT(writesOf([this] { document.addExtension(u"mine", u"a value"); }),
              ElementsAre("visualization adds extension", "extension mine=a value"));
}

TEST_F(Extensions, AreWrittenIntoTheRecordThatThereIs) {
  LumoExtensionVis const* const record = visualization.addExtension();
  document.addExtension(u"first", u"1");
  document.addExtension(u"second", u"2");
  document.addExtension(u"first", u"3");
  EXPECT_EQ(visualization.getExtension(), record);
  EXPECT_EQ(attribute(record, u"first"), "3");
  EXPECT_EQ(attribute(record, u"second"), "2");
}

TEST_F(Extensions, AreEmptyWhereTheValueIsNull) {
  document.addExtension(u"mine", nullptr);
  EXPECT_EQ(attribute(visualization.getExtension(), u"mine"), "");
}

TEST_F(Extensions, AreFailuresWhereTheNameIsNone) {
  EXPECT_ANY_THROW(document.addExtension(nullptr, u"value"));
  EXPECT_ANY_THROW(document.addExtension(u"two words", u"value"));
  expectNoReport(recorder);
}

TEST_F(Extensions, MakeTheGraphInItsExternalForm) {
  LumoGraph* const first = visualization.addGraph(u"first");
  document.addExtension(u"mine", u"value");
  XGraph const* const made = recordOf(document).mGraph.get();
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(document.getGraph(), made);
  EXPECT_EQ(document.getExternalGraph(), made);
  EXPECT_EQ(document.getGraph()->getGraph(), first);
  EXPECT_EQ(attribute(&visualization, u"id"), "(absent)");
  EXPECT_EQ(attribute(&visualization, u"version"), "(absent)");
  EXPECT_EQ(recordOf(document).mChartData, nullptr);
}

TEST_F(Extensions, UseTheGraphThatThereIs) {
  XGraph const* const graph = document.getGraph();
  document.addExtension(u"mine", u"value");
  EXPECT_EQ(recordOf(document).mGraph.get(), graph);
}

TEST_F(Extensions, LetFailuresPass) {
  {
    ChangeTrap const trap(model, 1, throwOrdinaryFailure());
    EXPECT_THROW(document.addExtension(u"mine", u"value"), OrdinaryFailure);
  }
  ChangeTrap const trap(model, 2, throwGoToCaller());
  EXPECT_THROW(document.addExtension(u"mine", u"value"), VexaGoToCaller);
  EXPECT_THAT(attributeNames(*visualization.getExtension()), IsEmpty());
  expectNoReport(recorder);
}

TEST_F(NoWords, HaveNoExtensionsControllersOrSuffixes) {
  EXPECT_THROW(document.addExtension(u"mine", u"value"), ChartException);
  EXPECT_THROW(document.addSwingController("spin"), ChartException);
  EXPECT_THROW(document.addPercentSuffixToYAxis(), ChartException);
  EXPECT_EQ(recordOf(document).mGraph, nullptr);
}

// --- Controllers

using Controllers = Words;

TEST_F(Controllers, RunAFunctionOnTheGraph) {
  document.getGraph();
  EXPECT_THAT(writesOf([this] { document.addSwingController("spin(3)"); }),
              ElementsAre("visualization adds swingController", "swingController function=spin(3)",
                          "swingController target=frame_data_1"));
}

TEST_F(Controllers, AreAddedAtEachCall) {
  document.getGraph();
  document.addSwingController("spin");
  document.addSwingController("");
  ASSERT_EQ(visualization.getSwingControllers().size(), 2u);
  EXPECT_EQ(attribute(visualization.getSwingControllers()[1], u"function"), "");
}

TEST_F(Controllers, RunOnTheFirstGraphOfAChartThatCameFromOutside) {
  visualization.addGraph(u"first");
  visualization.addGraph(u"second");
  document.addSwingController("spin");
  EXPECT_EQ(attribute(visualization.getSwingControllers().front(), u"target"), "first");
  EXPECT_EQ(attribute(&visualization, u"version"), "(absent)");
}

TEST_F(Controllers, TakeTheFunctionInTheLocalCodePage) {
  recorder.services().locale->page = "windows-1252";
  host::ScopedHost const scope(recorder.host());
  visualization.addGraph(u"first");
  document.addSwingController("gr\xFC\xDF");
  EXPECT_EQ(attribute(visualization.getSwingControllers().front(), u"function"), "gr\xC3\xBC\xC3\x9F");
}

TEST_F(Controllers, WithoutAGraphAreAFailureBehindTheFunction) {
  EXPECT_THROW(document.addSwingController("spin"), ChartException);
  ASSERT_EQ(visualization.getSwingControllers().size(), 1u);
  EXPECT_THAT(attributeNames(*visualization.getSwingControllers().front()), ElementsAre("function"));
  expectNoReport(recorder);
}

TEST_F(Controllers, LetFailuresPass) {
  document.getGraph();
  ChangeTrap const trap(model, 2, throwGoToCaller());
  EXPECT_THROW(document.addSwingController("spin"), VexaGoToCaller);
  EXPECT_THAT(attributeNames(*visualization.getSwingControllers().front()), IsEmpty());
}

// --- Percent

/// A chart with two dimensions, whose second has an axis with ticks.
class Percent : public Words {
 protected:
  std::vector<std::string> writes(bool expected) {
    return writesOf([&] { EXPECT_EQ(document.addPercentSuffixToYAxis(), expected); });
  }

  LumoGraph& graph = *visualization.addGraph(u"graph");
  LumoCoordinates& coordinates = *graph.addCoordinates(u"coordinates0");
  LumoDimension& first = *coordinates.addDimension();
};

TEST_F(Percent, StandsBehindTheNumbersOfTheAxisAndOfTheLabels) {
  coordinates.addDimension()->addAxis()->addMajorTicks();
  graph.addInterval(u"bars")->addLabeling();
  EXPECT_THAT(writes(true), ElementsAre("majorTicks adds format", "format suffix=%", "labeling adds format",
                                        "format suffix=%"));
}

TEST_F(Percent, StandsOnTheFirstAxisOfTheSecondDimensionOnly) {
  first.addAxis()->addMajorTicks();
  LumoDimension& second = *coordinates.addDimension();
  LumoMajorTicks const& ticks = *second.addAxis()->addMajorTicks();
  LumoMajorTicks const& further = *second.addAxis()->addMajorTicks();
  coordinates.addDimension()->addAxis()->addMajorTicks();
  EXPECT_EQ(writes(true).size(), 2u);
  EXPECT_EQ(ticks.getFormats().size(), 1u);
  EXPECT_THAT(further.getFormats(), IsEmpty());
}

TEST_F(Percent, IsAddedToFormatsThatThereAre) {
  LumoMajorTicks& ticks = *coordinates.addDimension()->addAxis()->addMajorTicks();
  ticks.addFormat();
  writes(true);
  ASSERT_EQ(ticks.getFormats().size(), 2u);
  EXPECT_THAT(attributeNames(*ticks.getFormats()[0]), IsEmpty());
}

TEST_F(Percent, StandsOnTheFirstLabelsOfTheFirstIntervalsOnly) {
  LumoInterval& bars = *graph.addInterval(u"bars");
  LumoLabeling const& labels = *bars.addLabeling();
  LumoLabeling const& further = *bars.addLabeling();
  LumoLabeling const& others = *graph.addInterval(u"others")->addLabeling();
  writes(false);
  EXPECT_EQ(labels.getFormats().size(), 1u);
  EXPECT_THAT(further.getFormats(), IsEmpty());
  EXPECT_THAT(others.getFormats(), IsEmpty());
}

TEST_F(Percent, IsNotLookedForInTheSecondIntervals) {
  graph.addInterval(u"bars");
  graph.addInterval(u"others")->addLabeling();
  EXPECT_THAT(writes(false), IsEmpty());
}

TEST_F(Percent, IsMissingWhereTheAxisHasNoTicks) {
  coordinates.addDimension()->addAxis();
  coordinates.getDimensions()[1]->addAxis()->addMajorTicks();
  EXPECT_THAT(writes(false), IsEmpty());
}

TEST_F(Percent, IsMissingWhereThereIsNoAxis) {
  coordinates.addDimension();
  EXPECT_THAT(writes(false), IsEmpty());
}

TEST_F(Percent, IsMissingInOneDimensionButForTheLabels) {
  first.addAxis()->addMajorTicks();
  graph.addInterval(u"bars")->addLabeling();
  EXPECT_THAT(writes(false), ElementsAre("labeling adds format", "format suffix=%"));
}

TEST_F(Percent, IsThatOfTheFirstGraphAndItsFirstCoordinates) {
  LumoCoordinates& further = *graph.addCoordinates(u"coordinates1");
  further.addDimension();
  further.addDimension()->addAxis()->addMajorTicks();
  visualization.addGraph(u"second")->addInterval(u"bars")->addLabeling();
  EXPECT_THAT(writes(false), IsEmpty());
}

TEST_F(Words, OfPercentNeedNoCoordinates) {
  visualization.addGraph(u"graph");
  EXPECT_FALSE(document.addPercentSuffixToYAxis());
}

TEST_F(Words, OfPercentNeedAGraph) {
  EXPECT_THROW(document.addPercentSuffixToYAxis(), ChartException);
  expectNoReport(recorder);
}

TEST_F(Percent, LetsFailuresPassAndStaysWhereItWasWritten) {
  coordinates.addDimension()->addAxis()->addMajorTicks();
  LumoInterval& bars = *graph.addInterval(u"bars");
  bars.addLabeling();
  ChangeTrap const trap(model, 3, throwGoToCaller());
  EXPECT_THROW(document.addPercentSuffixToYAxis(), VexaGoToCaller);
  EXPECT_EQ(elementsOf(visualization, u"format").size(), 1u);
  EXPECT_THAT(bars.getLabelings().front()->getFormats(), IsEmpty());
  expectNoReport(recorder);
}

// --- Names of sources

class SourceNames : public Words {
 protected:
  void count(std::vector<std::string> const& names) { document.getSourceNameCount(names, found, notFound); }

  unsigned int found = 7;
  unsigned int notFound = 7;
};

TEST_F(SourceNames, OfEveryKindAreFound) {
  visualization.addDatabaseSource(u"database");
  visualization.addDelimitedFileSource(u"file");
  visualization.addEmbeddedSource(u"embedded");
  visualization.addStreamingSource(u"streaming");
  visualization.addUserSource(u"user");
  count({"user", "streaming", "embedded", "file", "database"});
  EXPECT_EQ(found, 5u);
  EXPECT_EQ(notFound, 0u);
}

TEST_F(SourceNames, ThatAreNoneAreCountedApart) {
  visualization.addUserSource(u"source0");
  visualization.addSourceVariable(u"variable");
  count({"source0", "Source0", "source", "source01", "", "variable"});
  EXPECT_EQ(found, 1u);
  EXPECT_EQ(notFound, 5u);
}

TEST_F(SourceNames, AreCountedAsOftenAsTheyAreAskedFor) {
  visualization.addUserSource(u"source0");
  count({"source0", "other", "source0", "other", "source0"});
  EXPECT_EQ(found, 3u);
  EXPECT_EQ(notFound, 2u);
}

TEST_F(SourceNames, OfTwoSourcesAreFoundOnce) {
  visualization.addUserSource(u"same");
  visualization.addEmbeddedSource(u"same");
  count({"same"});
  EXPECT_EQ(found, 1u);
}

TEST_F(SourceNames, StartFromNothing) {
  count({});
  EXPECT_EQ(found, 0u);
  EXPECT_EQ(notFound, 0u);
}

TEST_F(SourceNames, AreInTheLocalCodePage) {
  recorder.services().locale->page = "windows-1252";
  host::ScopedHost const scope(recorder.host());
  visualization.addUserSource(u"gr\u00FC\u00DF");
  count({"gr\xFC\xDF"});
  EXPECT_EQ(found, 1u);
}

TEST_F(SourceNames, ChangeNothing) {
  visualization.addUserSource(u"source0");
  EXPECT_THAT(writesOf([this] { count({"source0", "other"}); }), IsEmpty());
  EXPECT_EQ(recordOf(document).mGraph, nullptr);
}

TEST_F(NoWords, HaveNoSourcesWhichIsReported) {
  unsigned int found = 7;
  unsigned int notFound = 7;
  EXPECT_NO_THROW(document.getSourceNameCount({"source0"}, found, notFound));
  EXPECT_EQ(found, 0u);
  EXPECT_EQ(notFound, 0u);
  expectGuardReport(recorder, "Error in XDocument::getSourceNameCount()");
}

}  // namespace
}  // namespace kestrel::test
