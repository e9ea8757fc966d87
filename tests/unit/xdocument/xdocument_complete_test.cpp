// The one step that turns a chart into the one that goes to the client.

#include "xdocument.h"

#include "change_log.h"
#include "completion_fixture.h"
#include "document_record.h"
#include "xgraph.h"
#include "xvariable.h"

#include "host/log.h"
#include "host/messages.h"

#include <gmock/gmock.h>
#include <xercesc/parsers/XercesDOMParser.hpp>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Completion = CompletionTest;

// --- The order

/// A chart in which every step has something to do.
class CompletionOfEverything : public CompletionTest {
 protected:
  CompletionOfEverything() {
    document.getExternalGraph();
    document.setTableSwatch(true);
    addOriginal(u"age", {u"%"});
    document.AddColorSpec(red);
    document.SetOuterFrame(hide);
    document.SetInnerFrame(show);
    document.SetXAxisGridlines(show);
    document.SetYAxisGridlines(show);
    recorder.clear();
  }

  /// The steps that have been done by now, in the order in which they are to be done.
  std::string done() const {
    std::string steps;
    auto const add = [&steps](bool isDone, char const* step) { steps += isDone ? step : ""; };
    add(attribute(&visualization, u"date") != "(absent)", "looks ");
    add(attribute(&visualization, u"lang") != "(absent)", "language ");
    add(recorder.count(Operation::PackFrames) > 0, "templates ");
    add(sizesIn(shapes) == std::vector<std::string>{"(absent)"}, "sizes ");
    add(!cluster.getFormats().empty(), "formats ");
    auto const applied = static_cast<std::ptrdiff_t>(fragments().size());
    if (applied > 0) steps += std::to_string(applied) + " fragments ";
    add(xTicks.getGridline() != nullptr, "x ");
    add(yTicks.getGridline() != nullptr, "y ");
    return steps;
  }

  LumoStyleCycle& shapes = addCycle(u"shapes", {u"5px"});
  LumoShape& shape = addShape(shapes);
  LumoSourceVariable& cluster = addCluster(u"ageX");
};

TEST_F(CompletionOfEverything, DoesEachStepInItsPlace) {
  std::vector<std::string> at;
  auto const note = [&] { at.push_back(done()); };
  // The trace begins the chain, and its last engine is that of the user's templates.
  recorder.actAt(Operation::PrintDebugInfo, 1, note);
  recorder.actAt(Operation::PackFrames, 1, note);
  // Six of colours, two of frames.
  for (unsigned int call = 1; call <= 8; ++call) recorder.actAt(Operation::SetTemplate, call, note);
  complete();
  note();
  std::string const before = "looks language templates sizes formats ";
  EXPECT_THAT(at, ElementsAre("looks language ", "looks language templates ", before + "1 fragments ",
                              before + "2 fragments ", before + "3 fragments ", before + "4 fragments ",
                              before + "5 fragments ", before + "6 fragments ", before + "7 fragments ",
                              before + "8 fragments ", before + "8 fragments x y "));
}

TEST_F(CompletionOfEverything, AppliesColoursThenTheOuterThenTheInnerFrame) {
  complete();
  auto const applied = fragments();
  ASSERT_EQ(applied.size(), 8u);
  for (std::size_t at = 0; at < 5; ++at) EXPECT_TRUE(applied[at].starts_with("<setColor "));
  EXPECT_TRUE(applied[5].starts_with("<setStyle "));
  EXPECT_EQ(applied[6], outerHidden);
  EXPECT_EQ(applied[7], innerShown);
}

TEST_F(CompletionOfEverything, WritesTheLooksThenTheLanguageThenTheRest) {
  ChangeLog log(model);
  complete();
  auto const lines = log.lines();
  std::size_t previous = 0;
  for (std::string const expected : {"visualization date=", "visualization lang=en-US", "style removes size",
                                     "sourceVariable adds format"}) {
    auto const found = std::find_if(lines.begin(), lines.end(),
                                    [&](std::string const& line) { return line.starts_with(expected); });
    ASSERT_NE(found, lines.end()) << expected;
    auto const at = static_cast<std::size_t>(found - lines.begin());
    EXPECT_LE(previous, at) << expected;
    previous = at;
  }
  EXPECT_THAT(std::vector(lines.end() - 2, lines.end()),
              ElementsAre("majorTicks adds gridline", "majorTicks adds gridline"));
}

TEST_F(CompletionOfEverything, DoesTheXAxesBeforeTheYAxes) {
  std::vector<std::string> at;
  {
    ChangeTrap const trap(model, 0, [&] { at.push_back(done()); });
    complete();
  }
  ASSERT_GE(at.size(), 2u);
  EXPECT_TRUE(at.back().ends_with(" x "));
  EXPECT_TRUE(at[at.size() - 2].ends_with(" fragments "));
}

TEST_F(CompletionOfEverything, DoesTheSameWhateverItsArgumentSays) {
  std::string const text = model.AsUTF8();
  auto const completed = [&](bool argument) {
    xercesc::XercesDOMParser parser;
    std::string errorText;
    LumoDocument copy(XDocument::parseDocument(text, errorText, &parser));
    XDocument other(copy);
    other.AddColorSpec(blue);
    other.SetInnerFrame(hide);
    other.SetXAxisGridlines(show);
    recorder.clear();
    other.CompleteChart(argument);
    auto lines = recorder.lines();
    lines.push_back(copy.AsUTF8());
    return lines;
  };
  auto const withFalse = completed(false);
  EXPECT_EQ(withFalse, completed(true));
  EXPECT_THAT(withFalse.back(), ::testing::HasSubstr("<gridline"));
}

TEST_F(CompletionOfEverything, DoesEverythingAgainAtASecondCall) {
  complete();
  auto const first = fragments();
  recorder.clear();
  shapes.getCycles().front()->getStyles().front()->setSize(u"7px");
  complete();
  EXPECT_EQ(fragments(), first);
  EXPECT_THAT(sizesIn(shapes), ElementsAre("(absent)"));
  EXPECT_THAT(suffixes(cluster), ElementsAre("%", "%"));
  EXPECT_THAT(recorder.trace(),
              ElementsAre("Start Applying Templates", "Parsed Original XML", "Done Applying Templates"));
}

TEST_F(Completion, OfAPlainChartIsLooksLanguageAndTemplates) {
  complete();
  EXPECT_NE(attribute(&visualization, u"date"), "(absent)");
  EXPECT_EQ(attribute(&visualization, u"lang"), "en-US");
  EXPECT_THAT(recorder.trace(),
              ElementsAre("Start Applying Templates", "Parsed Original XML", "Done Applying Templates"));
  EXPECT_THAT(fragments(), IsEmpty());
  EXPECT_EQ(xTicks.getGridline(), nullptr);
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(Completion, AppliesImmediateAndUserTemplatesWithinTheChain) {
  services.files->content["u1"] = "<u1/>";
  document.SetChartTemplate("u1");
  document.AddImmediateTemplate("<i1/>");
  document.SetOuterFrame(show);
  complete();
  EXPECT_THAT(fragments(), ElementsAre("<i1/>", outerShown));
  EXPECT_THAT(linesOf("set <u"), ElementsAre("1/>"));
  EXPECT_THAT(linesOf("start "),
              ElementsAre("with baseline", "with baseline", "without baseline", "without baseline"));
}

TEST_F(Completion, HasNoLooksWhereTheyWereAddedBefore) {
  recordOf(document).mAddDefaultLooks = false;
  complete();
  EXPECT_EQ(attribute(&visualization, u"date"), "(absent)");
  EXPECT_EQ(attribute(&visualization, u"lang"), "en-US");
}

TEST_F(Completion, GivesEveryCallTheLooksAnew) {
  complete();
  visualization.setDate(u"1999-01-01");
  complete();
  EXPECT_NE(attribute(&visualization, u"date"), "1999-01-01");
}

// --- Charts that are not to be modified

class ProtectedCompletion : public CompletionOfEverything, public ::testing::WithParamInterface<bool> {
 protected:
  ProtectedCompletion() { document.doNotModify(GetParam()); }
};

TEST_P(ProtectedCompletion, LeavesLooksLanguageChainShapesAndClustersAlone) {
  choose(host::TemplateKind::Styles, {"s1"});
  complete();
  EXPECT_EQ(attribute(&visualization, u"date"), "(absent)");
  EXPECT_EQ(attribute(&visualization, u"lang"), "(absent)");
  EXPECT_THAT(recorder.trace(), IsEmpty());
  EXPECT_THAT(linesOf("names of "), IsEmpty());
  EXPECT_EQ(recorder.count(Operation::PackFrames), 0u);
  EXPECT_THAT(sizesIn(shapes), ElementsAre("5px"));
  EXPECT_THAT(suffixes(cluster), IsEmpty());
}

TEST_P(ProtectedCompletion, StillHasColoursFramesAndGridlines) {
  complete();
  auto const applied = fragments();
  ASSERT_EQ(applied.size(), 8u);
  EXPECT_EQ(applied[6], outerHidden);
  EXPECT_EQ(applied[7], innerShown);
  EXPECT_NE(xTicks.getGridline(), nullptr);
  EXPECT_NE(yTicks.getGridline(), nullptr);
}

TEST_P(ProtectedCompletion, AppliesImmediateTemplatesFirstAndUserTemplatesWithoutABaseline) {
  services.files->content["u1"] = "<u1/>";
  document.SetChartTemplate("u1");
  document.AddImmediateTemplate("<i1/>");
  complete();
  ASSERT_EQ(fragments().size(), 9u);
  EXPECT_EQ(fragments().front(), "<i1/>");
  EXPECT_EQ(linesOf("set <u1"), GetParam() ? std::vector<std::string>{"/>"} : std::vector<std::string>());
  EXPECT_EQ(linesOf("start ").front(), "without baseline");
}

INSTANTIATE_TEST_SUITE_P(KeepingFileTemplates, ProtectedCompletion, ::testing::Bool());

// --- Failures

/// A step that writes to the chart, by how far the completion has come by then.
struct WritingStep {
  char const* name;
  char const* done;
};

void PrintTo(WritingStep const& step, std::ostream* out) { *out << step.name; }

class FailingWrite : public CompletionOfEverything, public ::testing::WithParamInterface<WritingStep> {
 protected:
  /// Completes the chart; the first write of the step fails.
  void completeUpToFailure(std::function<void()> const& failure) {
    ChangeTrap const trap(model, 0, [&] {
      if (done() == GetParam().done) failure();
    });
    complete();
  }
};

TEST_P(FailingWrite, PassesToTheCallerAndEndsTheCompletion) {
  EXPECT_THROW(completeUpToFailure(throwOrdinaryFailure()), OrdinaryFailure);
  EXPECT_EQ(done(), GetParam().done);
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_P(FailingWrite, PassesTheHostsSignalToo) {
  EXPECT_THROW(completeUpToFailure(throwGoToCaller()), VexaGoToCaller);
  EXPECT_EQ(done(), GetParam().done);
  EXPECT_THAT(reports(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Steps, FailingWrite,
    ::testing::Values(WritingStep{"Looks", ""}, WritingStep{"Language", "looks "},
                      WritingStep{"Sizes", "looks language templates "},
                      WritingStep{"Formats", "looks language templates sizes "},
                      WritingStep{"XGridlines", "looks language templates sizes formats 8 fragments "},
                      WritingStep{"YGridlines", "looks language templates sizes formats 8 fragments x "}),
    [](auto const& test) { return std::string(test.param.name); });

TEST_F(Completion, DoesNoFurtherStepBehindAFailure) {
  document.AddColorSpec(red);
  document.SetOuterFrame(show);
  document.SetXAxisGridlines(show);
  recorder.throwAt(Operation::ApplyTemplate, 3, OrdinaryFailure());
  EXPECT_THROW(complete(), OrdinaryFailure);
  EXPECT_EQ(fragments().size(), 3u);
  EXPECT_EQ(xTicks.getGridline(), nullptr);
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(Completion, GoesOnBehindAUserTemplateThatFails) {
  services.files->content["u1"] = "<u1/>";
  document.SetChartTemplate("u1");
  document.SetChartTemplate("nowhere");
  document.SetOuterFrame(show);
  recorder.throwAt(Operation::ApplyTemplate, 1, OrdinaryFailure());
  complete();
  EXPECT_THAT(reports(), ElementsAre("log: Failure occurred while applying user template: u1",
                                     "user: An error occurred while applying a chart template",
                                     "user: The specified template nowhere was not found."));
  EXPECT_THAT(fragments(), ElementsAre(outerShown));
}

TEST_F(Completion, OfAnEmptyDocumentIsAFailure) {
  XDocument empty{std::string()};
  EXPECT_THROW(empty.CompleteChart(false), ChartException);
  empty.doNotModify(true);
  EXPECT_THROW(empty.CompleteChart(false), ChartException);
}

// --- The text of the completed chart

using CompletedText = CompletionTest;

TEST_F(CompletedText, IsThatOfTheChartBehindTheCompletion) {
  document.SetXAxisGridlines(show);
  engine->application = [](LumoVisualization& chart, std::string const&) { chart.setName(u"applied"); };
  document.SetOuterFrame(show);
  std::string const text = document.getChartXML();
  EXPECT_EQ(text, model.AsUTF8());
  EXPECT_THAT(text, ::testing::HasSubstr("<gridline"));
  EXPECT_THAT(text, ::testing::HasSubstr("name=\"applied\""));
  EXPECT_THAT(text, ::testing::HasSubstr("lang=\"en-US\""));
}

TEST_F(CompletedText, IsWhatTheDocumentGives) {
  RetoldDocument retold(model, "<visualization/>");
  EXPECT_EQ(retold.getChartXML(), "<visualization/>");
}

TEST_F(CompletedText, SendsNothing) {
  document.getChartXML();
  EXPECT_EQ(recorder.count(Operation::IpcPutC), 0u);
  EXPECT_EQ(attribute(&visualization, u"type"), "(absent)");
}

TEST_F(CompletedText, OfAnEmptyDocumentIsEmptyAndNothingIsApplied) {
  XDocument empty{std::string()};
  empty.AddColorSpec(red);
  recorder.clear();
  EXPECT_EQ(empty.getChartXML(), "");
  EXPECT_THAT(story(), IsEmpty());
}

TEST_F(CompletedText, LetsEveryFailureThrough) {
  document.SetOuterFrame(show);
  recorder.throwAt(Operation::ApplyTemplate, 1, OrdinaryFailure());
  EXPECT_THROW(document.getChartXML(), OrdinaryFailure);
  recorder.behave();
  recorder.throwAt(Operation::ApplyTemplate, 1, VexaGoToCaller());
  EXPECT_THROW(document.getChartXML(), VexaGoToCaller);
  EXPECT_THAT(reports(), IsEmpty());
}

// --- What the host customizes

/// A chart whose point element combines colour and pattern.
class CombinedStyles : public CompletionTest {
 protected:
  void combine() {
    LumoStyleBy& styleBy = *point.addStyleBy(nullptr);
    styleBy.setId(u"both");
    styleBy.setVariable(*visualization.addSourceVariable(u"variable"));
    styleBy.setStyleCycle(*visualization.addStyleCycle(u"color_pattern"));
  }
};

TEST_F(CombinedStyles, AreTakenApartWhereTheHostWantsThat) {
  combine();
  EXPECT_TRUE(document.customizeSPCharts());
  EXPECT_THAT(childTags(point), ElementsAre("shape", "color"));
}

TEST_F(CombinedStyles, AreNoneInAChartWithoutThem) {
  EXPECT_FALSE(document.customizeSPCharts());
  EXPECT_THAT(childTags(point), IsEmpty());
}

TEST_F(CombinedStyles, AreNotTakenApartByTheCompletion) {
  combine();
  complete();
  EXPECT_THAT(childTags(point), ElementsAre("styleBy"));
}

TEST_F(CombinedStyles, LetAFailureThrough) {
  combine();
  ChangeTrap const trap(model, 1, throwOrdinaryFailure());
  EXPECT_THROW(document.customizeSPCharts(), OrdinaryFailure);
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(CombinedStyles, OfAnEmptyDocumentAreAFailure) {
  XDocument empty{std::string()};
  EXPECT_THROW(empty.customizeSPCharts(), ChartException);
}

/// A chart with an edge element.
class NetworkDiagram : public CompletionTest {
 protected:
  NetworkDiagram() {
    LumoStyle& style = *visualization.addStyle();
    style.setId(u"points");
    point.setStyle(style);
  }

  LumoEdge& edge{*graph.addEdge(u"edge")};
  LumoSourceVariable& weight{*visualization.addSourceVariable(u"weight")};
  XVariable variable{weight};
};

TEST_F(NetworkDiagram, HasEdgesAsWideAsTheVariableSays) {
  document.tweakNetworkDiagram(variable);
  ASSERT_EQ(edge.getSizes().size(), 1u);
  EXPECT_EQ(edge.getSizes().front()->getVariable(), &weight);
}

TEST_F(NetworkDiagram, IsNotLaidOutByTheCompletion) {
  complete();
  EXPECT_THAT(edge.getSizes(), IsEmpty());
}

TEST_F(NetworkDiagram, LetsAFailureThrough) {
  ChangeTrap const trap(model, 1, throwOrdinaryFailure());
  EXPECT_THROW(document.tweakNetworkDiagram(variable), OrdinaryFailure);
  EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(NetworkDiagram, OfAnEmptyDocumentIsAFailure) {
  XDocument empty{std::string()};
  EXPECT_THROW(empty.tweakNetworkDiagram(variable), ChartException);
}

}  // namespace
}  // namespace kestrel::test
