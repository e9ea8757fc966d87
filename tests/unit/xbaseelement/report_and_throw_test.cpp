// Preconditions whose failure leaves the caller nothing to work with.

#include "chart_test.h"
#include "xdocument.h"
#include "xgraph.h"

#include "host/log.h"
#include "model/document.h"
#include "model/variables.h"

#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;

struct Precondition {
  char const* name;
  char const* message;
  void (*violate)(XGraph& graph, XVariable& scale);
};

void PrintTo(Precondition const& precondition, std::ostream* out) { *out << precondition.name; }

constexpr Precondition preconditions[] = {
    {"AddCaseNumVariable", "could not find source nowhere",
     [](XGraph& graph, XVariable&) { graph.AddCaseNumVariable("nowhere"); }},
    {"AddWeightVariable", "could not find source nowhere",
     [](XGraph& graph, XVariable&) { graph.AddWeightVariable("nowhere"); }},
    {"AddExistingVariable", "could not find source nowhere",
     [](XGraph& graph, XVariable&) { graph.AddExistingVariable(u"nowhere", false, u"column"); }},
    {"PanelingAddCrossVariable", "Panel variables must be categorical - sourceVariable0_SN",
     [](XGraph& graph, XVariable& scale) { graph.PanelingAddCrossVariable(scale, XGraph::ROLE_ROW); }},
    {"PanelingAddNestVariable", "Panel variables must be categorical - sourceVariable0_SN",
     [](XGraph& graph, XVariable& scale) { graph.PanelingAddNestVariable(scale, XGraph::ROLE_ROW); }},
};

class FailedPrecondition : public ChartTest {
 protected:
  FailedPrecondition() { recorder.clear(); }

  XDocument document;
  XGraph& graph{*document.getGraph()};
  std::unique_ptr<XSource> source{graph.AddSource()};
  XVariable scale{graph.AddAggregatedVariable(*source, false, ChartString(u"Age"))};
};

class FailedPreconditionOf : public FailedPrecondition, public ::testing::WithParamInterface<Precondition> {};

TEST_P(FailedPreconditionOf, IsLoggedAndThenThrownWithTheSameMessage) {
  std::size_t loggedWhenCaught = 0;
  std::string message;
  try {
    GetParam().violate(graph, scale);
  } catch (ChartException const& failure) {
    loggedWhenCaught = recorder.count(Operation::Error);
    message = failure.message();
  }
  EXPECT_EQ(message, GetParam().message);
  EXPECT_EQ(loggedWhenCaught, 1u);
  EXPECT_EQ(recorder.failures(), std::vector<std::string>{GetParam().message});
}

TEST_P(FailedPreconditionOf, IsNotShownToTheUser) {
  EXPECT_THROW(GetParam().violate(graph, scale), ChartException);
  EXPECT_EQ(recorder.count(Operation::BpError), 0u);
}

INSTANTIATE_TEST_SUITE_P(Operations, FailedPreconditionOf, ::testing::ValuesIn(preconditions),
                         [](auto const& test) { return std::string(test.param.name); });

TEST_F(FailedPrecondition, WithinAGuardGivesTwoLogEntriesAndOneUserMessage) {
  LumoVisualization& visualization = *document.getVisualization();
  LumoExpressionVariable& node = *visualization.addExpressionVariable(u"sum");
  EXPECT_NO_THROW(XVariable(node, std::vector<XVariable*>{&scale}));
  EXPECT_EQ(recorder.failures(),
            (std::vector<std::string>{"Too few variables in expression", "Error in XVariable::XVariable()"}));
  EXPECT_EQ(recorder.userMessages().size(), 1u);
}

TEST_F(FailedPrecondition, OfASystemVariableIsLoggedAsItsOwnAndAsTheGuards) {
  LumoSourceVariable& node = *document.getVisualization()->addSourceVariable(u"case");
  EXPECT_NO_THROW(XVariable(node, false, *source, true));
  EXPECT_EQ(recorder.failures(), (std::vector<std::string>{"Only $CASENUM System Variables supported.",
                                                           "Error in XVariable::XVariable()"}));
  EXPECT_EQ(recorder.userMessages().size(), 1u);
}

TEST_F(FailedPrecondition, OfALookupIsThrownWithoutALogEntry) {
  try {
    graph.getVariable(u"nowhere", 0);
    ADD_FAILURE() << "nothing was thrown";
  } catch (ChartException const& failure) {
    EXPECT_EQ(failure.message(), "could not find variable nowhere");
  }
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
