// Sources and variables that are looked up by their names.

#include "graph_fixture.h"

#include "host/log.h"
#include "model/variables.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::ElementsAre;

namespace {

struct SourceLookup {
  char const* name;
  void (*add)(XGraph&, std::string const& source);
};

void PrintTo(SourceLookup const& row, std::ostream* out) { *out << row.name; }

SourceLookup const caseNumber{
    "CaseNum", [](XGraph& graph, std::string const& source) { graph.AddCaseNumVariable(source); }};
SourceLookup const weight{"Weight",
                          [](XGraph& graph, std::string const& source) { graph.AddWeightVariable(source); }};
SourceLookup const existing{"Existing", [](XGraph& graph, std::string const& source) {
                              ChartString id;
                              id.assignUTF8(source);
                              graph.AddExistingVariable(id, false, u"theirs");
                            }};

class EachSourceLookup : public GraphTest, public testing::WithParamInterface<SourceLookup> {
 protected:
  /// The message of what the factory throws, or "(nothing)".
  std::string failureOf(std::string const& source) {
    try {
      GetParam().add(graph, source);
    } catch (ChartException const& failure) {
      return failure.message();
    }
    return "(nothing)";
  }
};

/// Those that are given bytes.
class EachSourceNameLookup : public EachSourceLookup {};

class GetVariable : public GraphTest {
 protected:
  LumoSourceVariable& addSourceVariable(char16_t const* id, char16_t const* column) {
    LumoSourceVariable* const variable = visualization.addSourceVariable(id);
    variable->setSourceName(column);
    return *variable;
  }

  CTVariableType* find(ChartString const& name, unsigned int occurrence) const {
    return &graph.getVariable(name, occurrence).getImplementation();
  }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, EachSourceLookup, testing::Values(caseNumber, weight, existing),
                         caseName<SourceLookup>);
INSTANTIATE_TEST_SUITE_P(, EachSourceNameLookup, testing::Values(caseNumber, weight), caseName<SourceLookup>);

TEST_P(EachSourceLookup, ThrowsForASourceThatIsNotThere) {
  EXPECT_EQ(failureOf("missing"), "could not find source missing");
}

TEST_P(EachSourceLookup, NamesTheSourceAsItWasPassed) {
  EXPECT_EQ(failureOf("Gr\xc3\xb6\xc3\x9f"
                      "e 1"),
            "could not find source Gr\xc3\xb6\xc3\x9f"
            "e 1");
}

TEST_P(EachSourceNameLookup, NamesTheSourceByteForByteAlsoWhereItIsNoUTF8) {
  EXPECT_EQ(failureOf("Gr\xF6\xDF"
                      "e \xFF"),
            "could not find source Gr\xF6\xDF"
            "e \xFF");
}

TEST_P(EachSourceLookup, LogsTheFailureAndTellsNoUser) {
  failureOf("missing");
  EXPECT_THAT(recorder.failures(), ElementsAre("could not find source missing"));
  EXPECT_TRUE(recorder.userMessages().empty());
}

TEST_P(EachSourceLookup, MakesNoVariableForASourceThatIsNotThere) {
  auto const source = addSource();
  std::string const before = document.AsUTF8();
  failureOf("source1");
  EXPECT_EQ(document.AsUTF8(), before);
}

TEST_P(EachSourceLookup, RegistersNoColumnForASourceThatIsNotThere) {
  failureOf("missing");
  EXPECT_EQ(recorder.count(kestrel::host::Operation::AddVariable), 0u);
}

TEST_P(EachSourceLookup, LooksAtUserSourcesOnly) {
  visualization.addEmbeddedSource(u"embedded");
  EXPECT_EQ(failureOf("embedded"), "could not find source embedded");
}

TEST_F(GetVariable, FindsASourceVariableByItsColumn) {
  LumoSourceVariable& variable = addSourceVariable(u"sourceVariable0", u"mass");
  EXPECT_EQ(find(u"mass", 0), &variable);
}

TEST_F(GetVariable, DoesNotFindASourceVariableByItsId) {
  addSourceVariable(u"sourceVariable0", u"mass");
  EXPECT_THROW(graph.getVariable(u"sourceVariable0", 0), ChartException);
}

TEST_F(GetVariable, IgnoresTheCaseOfTheColumn) {
  LumoSourceVariable& variable = addSourceVariable(u"sourceVariable0", u"Mass");
  EXPECT_EQ(find(u"mASS", 0), &variable);
}

TEST_F(GetVariable, FindsADerivedVariableByItsId) {
  LumoDerivedVariable* const variable = visualization.addDerivedVariable(u"derived");
  EXPECT_EQ(find(u"derived", 0), variable);
}

TEST_F(GetVariable, IgnoresTheCaseOfTheId) {
  LumoDerivedVariable* const variable = visualization.addDerivedVariable(u"Derived");
  EXPECT_EQ(find(u"dERIVED", 0), variable);
}

TEST_F(GetVariable, TakesTheFirstMatchForOccurrenceZero) {
  LumoSourceVariable& first = addSourceVariable(u"sourceVariable0", u"x");
  addSourceVariable(u"sourceVariable1", u"x");
  EXPECT_EQ(find(u"x", 0), &first);
}

TEST_F(GetVariable, CountsTheMatchesInOrder) {
  addSourceVariable(u"sourceVariable0", u"x");
  addSourceVariable(u"sourceVariable1", u"y");
  LumoSourceVariable& second = addSourceVariable(u"sourceVariable2", u"X");
  EXPECT_EQ(find(u"x", 1), &second);
}

TEST_F(GetVariable, CountsDerivedMatchesBehindAllSourceMatches) {
  LumoDerivedVariable* const derived = visualization.addDerivedVariable(u"x");
  addSourceVariable(u"sourceVariable0", u"X");
  EXPECT_EQ(find(u"x", 1), derived);
}

TEST_F(GetVariable, CountsDerivedMatchesAmongEachOtherToo) {
  addSourceVariable(u"sourceVariable0", u"x");
  visualization.addDerivedVariable(u"x");
  LumoDerivedVariable* const second = visualization.addDerivedVariable(u"X");
  EXPECT_EQ(find(u"x", 2), second);
}

TEST_F(GetVariable, DoesNotLookAtExpressions) {
  visualization.addExpressionVariable(u"x");
  EXPECT_THROW(graph.getVariable(u"x", 0), ChartException);
}

TEST_F(GetVariable, GivesAWrapperWithoutColumn) {
  addSourceVariable(u"sourceVariable0", u"mass");
  EXPECT_EQ(graph.getVariable(u"mass", 0).getSourceName(), "");
}

TEST_F(GetVariable, ThrowsForANameThatIsNotThere) {
  addSourceVariable(u"sourceVariable0", u"mass");
  try {
    graph.getVariable(u"größe", 0);
    ADD_FAILURE() << "found";
  } catch (ChartException const& failure) {
    EXPECT_EQ(failure.message(),
              "could not find variable gr\xc3\xb6\xc3\x9f"
              "e");
  }
}

TEST_F(GetVariable, ThrowsForAnOccurrenceBeyondAllMatches) {
  addSourceVariable(u"sourceVariable0", u"x");
  visualization.addDerivedVariable(u"x");
  EXPECT_THROW(graph.getVariable(u"x", 2), ChartException);
}

TEST_F(GetVariable, ThrowsWithoutAnyReport) {
  EXPECT_THROW(graph.getVariable(u"x", 0), ChartException);
  expectNoReport(recorder);
}

TEST_F(GetVariable, FindsWhatAnAttachedGraphBrings) {
  LumoSourceVariable& variable = addSourceVariable(u"sourceVariable0", u"mass");
  EXPECT_EQ(&XGraph(visualization).getVariable(u"mass", 0).getImplementation(), &variable);
}

TEST_F(GetVariable, ChangesNothing) {
  addSourceVariable(u"sourceVariable0", u"mass");
  std::string const before = document.AsUTF8();
  graph.getVariable(u"mass", 0);
  EXPECT_EQ(document.AsUTF8(), before);
}
