// The operations that log a failure without telling the user.

#include "chart_test.h"
#include "source_texts.h"
#include "xdocument.h"
#include "xgraph.h"

#include "host/messages.h"

#include <ostream>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

/// An operation of which a failure is logged and not told to the user.
struct ShortFormOperation {
  char const* name;
  char const* message;
  void (*run)(XDocument& document, XGraph& graph);
};

void PrintTo(ShortFormOperation const& operation, std::ostream* out) { *out << operation.name; }

constexpr ShortFormOperation shortForms[] = {
    {"XDocument_SetName", "Failed to set chart name",
     [](XDocument& document, XGraph&) { document.SetName(u"name"); }},
    {"XGraph_setOuterFrameHeight", "setOuterFrameHeight fatal error",
     [](XDocument&, XGraph& graph) { graph.setOuterFrameHeight(5); }},
    {"XGraph_setOuterFrameWidth", "setOuterFrameWidth fatal error",
     [](XDocument&, XGraph& graph) { graph.setOuterFrameWidth(5); }},
};

class ShortForm : public ChartTest, public ::testing::WithParamInterface<ShortFormOperation> {
 protected:
  LumoDocument model;
  XDocument document{model};
  /// Made before anything fails.
  XGraph& graph{*document.getGraph()};
};

INSTANTIATE_TEST_SUITE_P(All, ShortForm, ::testing::ValuesIn(shortForms),
                         [](auto const& test) { return std::string(test.param.name); });

TEST_P(ShortForm, LogsWithoutTellingTheUser) {
  recorder.clear();
  ChangeTrap const trap(model, 1, throwOrdinaryFailure());
  EXPECT_NO_THROW(GetParam().run(document, graph));
  EXPECT_EQ(recorder.failures(), std::vector<std::string>{GetParam().message});
  EXPECT_TRUE(recorder.userMessages().empty());
}

TEST_P(ShortForm, ReportsNothingWhereNothingFails) {
  recorder.clear();
  GetParam().run(document, graph);
  expectNoReport(recorder);
}

TEST_P(ShortForm, LetsTheHostsSignalThroughWithoutALogEntry) {
  ChangeTrap const trap(model, 1, throwGoToCaller());
  EXPECT_THROW(GetParam().run(document, graph), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST(ShortFormTable, HasEveryShortFormOfTheSources) {
  std::set<std::string> listed;
  for (ShortFormOperation const& operation : shortForms) listed.insert(operation.message);
  EXPECT_EQ(listed, matchesInTheSources(std::regex("guardedLogOnly\\(\\s*\"([^\"]*)\"")));
}

}  // namespace
}  // namespace kestrel::test
