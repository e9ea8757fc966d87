#include "xbaseelement.h"

#include "chart_test.h"
#include "schema_validator.h"

#include "host/log.h"
#include "kestrelhost/chart_services.h"
#include "model/document.h"
#include "model/graph.h"
#include "model/printing.h"
#include "model/style.h"
#include "model/variables.h"

#include <gmock/gmock.h>
#include <xercesc/dom/DOM.hpp>

#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;

/// A wrapper on the graph of a chart that has a style container.
class Wrapper : public ChartTest {
 protected:
  Wrapper() { container.setId(u"container"); }
  void TearDown() override { EXPECT_THAT(schemaErrors(document.AsUTF8()), ::testing::IsEmpty()); }

  std::size_t styles() const { return container.getStyles().size(); }

  LumoDocument document;
  LumoVisualization& visualization = *document.getVisualization();
  LumoStyle& container = *visualization.addStyle();
  LumoGraph& graph = *visualization.addGraph(u"graph");
  XBaseElement wrapper{graph};
};

TEST_F(Wrapper, StandsForTheModelObjectThatItWasMadeOn) { EXPECT_EQ(wrapper.getImplementation(), &graph); }

TEST_F(Wrapper, LeavesTheModelObjectInTheChartWhenItEnds) {
  { XBaseElement const shortLived(graph); }
  EXPECT_EQ(visualization.getGraphs(), std::vector<LumoGraph*>{&graph});
  EXPECT_EQ(attribute(&graph, u"id"), "graph");
}

TEST_F(Wrapper, GivesTheTextOfItsModelObject) {
  EXPECT_EQ(wrapper.AsUTF8(), graph.AsUTF8());
  EXPECT_NE(wrapper.AsUTF8().find("id=\"graph\""), std::string::npos);
}

class FormatWithOwnText : public LumoFormat {
 public:
  using LumoFormat::LumoFormat;
  std::string AsUTF8() const override { return "its own text"; }
};

TEST_F(Wrapper, GivesTheTextThatTheModelObjectsOwnClassMakes) {
  xercesc::DOMDocument* const dom =
      xercesc::DOMImplementationRegistry::getDOMImplementation(u"LS")->createDocument(nullptr, u"format",
                                                                                      nullptr);
  {
    FormatWithOwnText format(dom->getDocumentElement());
    EXPECT_EQ(XBaseElement(format).AsUTF8(), "its own text");
  }
  dom->release();
}

/// What hosts may do: put their own behaviour behind the two virtual operations.
class OwnWrapper : public XBaseElement {
 public:
  using XBaseElement::XBaseElement;
  std::string AsUTF8() const override { return "overridden"; }
  LumoStyle* AddStyle(ChartString const&, bool) override { return nullptr; }
};

TEST_F(Wrapper, CanBeOverriddenInItsTextAndItsStyles) {
  OwnWrapper own(graph);
  XBaseElement& base = own;
  EXPECT_EQ(base.AsUTF8(), "overridden");
  EXPECT_EQ(base.AddStyle(ChartString(u"s"), false), nullptr);
}

TEST_F(Wrapper, NamesTheStyleOfAnIdByOneMoreLetter) {
  EXPECT_EQ(XBaseElement::getStyleId(u"axis_axisx_1").toUTF8(), "axis_axisx_1s");
  EXPECT_EQ(XBaseElement::getStyleId(u"").toUTF8(), "s");
  EXPECT_EQ(XBaseElement::getStyleId(nullptr).toUTF8(), "s");
}

TEST_F(Wrapper, ReadsLocalTextsAndDictionaryTextsAsTheSharedFunctionsDo) {
  recorder.services().locale->page = "windows-1252";
  host::ScopedHost const scope(recorder.host());
  EXPECT_EQ(XBaseElement::ChartStringFromLocalCodePage("M\xE4rz").toUTF8(), "März");
  EXPECT_EQ(recorder.count(Operation::LanguageCode), 0u);
  EXPECT_EQ(XBaseElement::ChartStringFromOLANG("M\xE4rz").toUTF8(), "März");
  EXPECT_EQ(recorder.count(Operation::LanguageCode), 1u);
}

class EscapedLineBreak : public Wrapper,
                         public ::testing::WithParamInterface<std::pair<char const*, char const*>> {};

TEST_P(EscapedLineBreak, BecomesALineFeed) {
  ChartString text(GetParam().first);
  wrapper.replaceNewline(text);
  EXPECT_EQ(text.toUTF8(), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Texts, EscapedLineBreak,
                         ::testing::Values(std::pair{"", ""}, std::pair{"one line", "one line"},
                                           std::pair{"first\\nsecond", "first\nsecond"},
                                           std::pair{"\\n\\n", "\n\n"},
                                           // A real line feed stays, and so does any other backslash.
                                           std::pair{"first\nsecond", "first\nsecond"},
                                           std::pair{"tab\\t, end\\", "tab\\t, end\\"},
                                           std::pair{"\\N", "\\N"},
                                           // Two characters at a time, from the left.
                                           std::pair{"\\\\n", "\\\n"}));

class ModelLog : public Wrapper {
 protected:
  ModelLog() : mBefore(LumoErrorHandler::setSink(keep)) {}
  ~ModelLog() override {
    LumoErrorHandler::setSink(mBefore);
    kept.clear();
  }

  static void keep(LumoException const& failure) { kept.push_back(failure); }

  static std::vector<LumoException> kept;

 private:
  LumoErrorHandler::Sink mBefore;
};

std::vector<LumoException> ModelLog::kept;

TEST_F(ModelLog, TakesWhatAHostLogsThroughAWrapper) {
  wrapper.LogError("went wrong", "somewhere.cpp", 12);
  ASSERT_EQ(kept.size(), 1u);
  EXPECT_EQ(kept[0].getMessage(), "went wrong");
  EXPECT_EQ(kept[0].getFile(), "somewhere.cpp");
  EXPECT_EQ(kept[0].getLine(), 12u);
}

TEST_F(ModelLog, IsNotTheProductsLog) {
  wrapper.LogError("went wrong", "somewhere.cpp", 12);
  EXPECT_TRUE(recorder.entries().empty());
}

TEST_F(ModelLog, IsNotUsedByTheLibraryItself) {
  wrapper.getXDimension(*graph.addCoordinates(u"coordinates"), true);
  LumoCoordinates& coordinates = *graph.addCoordinates(u"others");
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  wrapper.getXDimension(coordinates, true);
  EXPECT_TRUE(kept.empty());
}

class Style : public Wrapper {};

TEST_F(Style, ThatExistsIsFoundAndNoneIsAdded) {
  LumoStyle* const existing = container.addStyle();
  existing->setId(u"axis_1s");
  EXPECT_EQ(wrapper.AddStyle(ChartString(u"axis_1s"), false), existing);
  EXPECT_EQ(styles(), 1u);
}

TEST_F(Style, IsFoundWhereverItStandsInTheChart) {
  LumoStyle* const nested = container.addStyle()->addStyle();
  nested->setId(u"axis_1s");
  EXPECT_EQ(wrapper.AddStyle(ChartString(u"axis_1s"), false), nested);
}

TEST_F(Style, ThatDoesNotExistIsMadeWithItsIdUnderTheContainer) {
  LumoStyle* const made = wrapper.AddStyle(ChartString(u"axis_1s"), false);
  EXPECT_EQ(container.getStyles(), std::vector<LumoStyle*>{made});
  EXPECT_EQ(attribute(made, u"id"), "axis_1s");
}

TEST_F(Style, ThatNeedNotBeUniqueAsksTheHostForNoId) {
  wrapper.AddStyle(ChartString(u"axis_1s"), false);
  EXPECT_EQ(recorder.count(Operation::CreateUniqueId), 0u);
}

TEST_F(Style, ThatMustBeUniqueGetsTheIdThatTheHostMakes) {
  LumoStyle* const first = wrapper.AddStyle(ChartString(u"label"), true);
  LumoStyle* const second = wrapper.AddStyle(ChartString(u"label"), true);
  EXPECT_EQ(container.getStyles(), (std::vector<LumoStyle*>{first, second}));
  EXPECT_EQ(attribute(first, u"id"), "label");
  EXPECT_EQ(attribute(second, u"id"), "label_1");
  EXPECT_EQ(recorder.lines(), (std::vector<std::string>{"ChartBase::CreateUniqueId(id=\"label\")",
                                                        "ChartBase::CreateUniqueId(id=\"label\")"}));
}

class SameIdForAll : public host::UsualChartTexts {
 public:
  ChartString createUniqueId(ChartString const&, LumoVisualization& chart) override {
    asked = &chart;
    return u"taken";
  }
  LumoVisualization* asked = nullptr;
};

TEST_F(Style, IsFoundWhereTheHostsUniqueIdExistsAllTheSame) {
  LumoStyle* const existing = container.addStyle();
  existing->setId(u"taken");
  auto const texts = std::make_shared<SameIdForAll>();
  host::Host host = recorder.services().host();
  host.chartTexts = texts;
  host::ScopedHost const scope(host);
  EXPECT_EQ(wrapper.AddStyle(ChartString(u"label"), true), existing);
  EXPECT_EQ(texts->asked, &visualization);
  EXPECT_EQ(styles(), 1u);
}

TEST_F(Style, IsNoneWhereTheIdIsThatOfSomethingElse) {
  EXPECT_EQ(wrapper.AddStyle(ChartString(u"graph"), false), nullptr);
  EXPECT_EQ(styles(), 0u);
}

TEST_F(Style, NeedsAContainerWhereItHasToBeMade) {
  container.setId(u"other");
  EXPECT_THROW(wrapper.AddStyle(ChartString(u"axis_1s"), false), ChartException);
  EXPECT_TRUE(recorder.entries().empty());
}

TEST_F(Style, NeedsNoContainerWhereItExists) {
  container.setId(u"other");
  EXPECT_EQ(wrapper.AddStyle(ChartString(u"other"), false), &container);
}

TEST_F(Style, LetsAFailureOfTheModelPassToTheCaller) {
  ChangeTrap const trap(document, 1, throwOrdinaryFailure());
  EXPECT_THROW(wrapper.AddStyle(ChartString(u"axis_1s"), false), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(Style, ThatCouldNotBeNamedStaysInTheChart) {
  ChangeTrap const trap(document, 2, throwOrdinaryFailure());
  EXPECT_THROW(wrapper.AddStyle(ChartString(u"axis_1s"), false), OrdinaryFailure);
  EXPECT_EQ(styles(), 1u);
}

}  // namespace
}  // namespace kestrel::test
