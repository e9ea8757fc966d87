// What survives a failure in the chain of the user's templates, whose texts live as long as the process.

#include "xdocument.h"

#include "chart_test.h"
#include "template_fixture.h"
#include "template_kinds.h"

#include "host/messages.h"

#include <gmock/gmock.h>

#include <ostream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::TemplateKind;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

using FailingChain = TemplateTest;

/// A step of one template.
struct StepRow {
  char const* name;
  Operation operation;
  /// Which call of that operation, where the first template of the chain is the one that fails.
  unsigned int call;
  bool held;
};

void PrintTo(StepRow const& row, std::ostream* out) { *out << row.name; }

class FailingTemplate : public TemplateTest,
                        public ::testing::WithParamInterface<std::tuple<KindRow, StepRow>> {
 protected:
  FailingTemplate() {
    choose(kind.kind, {"first", "second"});
    wantDumps();
  }

  KindRow const& kind = std::get<0>(GetParam());
  StepRow const& step = std::get<1>(GetParam());
};

TEST_P(FailingTemplate, IsReportedAndSkippedFromTheFirstQuestionOnAndPassesBefore) {
  recorder.throwAt(step.operation, step.call, OrdinaryFailure());
  if (step.held) {
    EXPECT_EQ(document.applyTemplates(), 1);
    EXPECT_THAT(reports(), ElementsAre(std::string("log: ") + kind.failure));
    EXPECT_THAT(linesOf("set "), ElementsAre("<first/>", "<second/>"));
    EXPECT_EQ(recorder.trace().back(), "Done Applying Templates");
  } else {
    EXPECT_THROW(document.applyTemplates(), OrdinaryFailure);
    EXPECT_THAT(reports(), IsEmpty());
    EXPECT_THAT(linesOf("set "), Not(::testing::Contains("<second/>")));
  }
}

TEST_P(FailingTemplate, LetsTheHostsSignalThroughAtOnce) {
  recorder.throwAt(step.operation, step.call, VexaGoToCaller());
  EXPECT_THROW(document.applyTemplates(), VexaGoToCaller);
  EXPECT_THAT(reports(), IsEmpty());
  EXPECT_THAT(linesOf("set "), Not(::testing::Contains("<second/>")));
  EXPECT_EQ(recorder.trace().back(), "Parsed Original XML");
}

INSTANTIATE_TEST_SUITE_P(
    Steps, FailingTemplate,
    ::testing::Combine(::testing::ValuesIn(kinds),
                       ::testing::Values(StepRow{"DumpOfTheText", Operation::PrintString, 1, false},
                                         StepRow{"Set", Operation::SetTemplate, 1, false},
                                         StepRow{"QuestionBefore", Operation::WillPrintString, 1, true},
                                         StepRow{"DumpBefore", Operation::PrintString, 2, true},
                                         StepRow{"Apply", Operation::ApplyTemplate, 1, true},
                                         StepRow{"QuestionAfter", Operation::WillPrintString, 2, true},
                                         StepRow{"DumpAfter", Operation::PrintString, 3, true})),
    [](auto const& test) {
      return std::string(std::get<0>(test.param).name) + std::get<1>(test.param).name;
    });

TEST_F(FailingChain, GoesOnBehindAStylesTemplateThatFails) {
  choose(TemplateKind::Styles, {"s1"});
  choose(TemplateKind::Options, {"o1"});
  choose(TemplateKind::Default, {"d1"});
  services.files->content["u1"] = "<u1/>";
  document.SetChartTemplate("u1");
  recorder.throwAt(Operation::ApplyTemplate, 1, OrdinaryFailure());
  EXPECT_EQ(document.applyTemplates(), 3);
  EXPECT_THAT(linesOf("set "), ElementsAre("<s1/>", "<o1/>", "<d1/>", "<u1/>"));
}

TEST_F(FailingChain, NotesWhereAFailureWasNoticed) {
  choose(TemplateKind::Styles, {"s1", "s2"}, {"", "<s2/>"});
  recorder.throwAt(Operation::ApplyTemplate, 1, OrdinaryFailure());
  document.applyTemplates();
  auto const logged = recorder.entries(Operation::Error);
  ASSERT_EQ(logged.size(), 2u);
  for (auto const& entry : logged) {
    EXPECT_THAT(entry.text("file"), ::testing::HasSubstr(".cpp"));
    EXPECT_GT(entry.number("line"), 0);
  }
}

TEST_F(FailingChain, DoesNotHoldAFailureOfItsOwnReport) {
  choose(TemplateKind::Styles, {"s1"});
  recorder.throwAt(Operation::ApplyTemplate, 1, OrdinaryFailure());
  recorder.throwAt(Operation::Error, 1, std::runtime_error("no log"));
  EXPECT_THROW(document.applyTemplates(), std::runtime_error);
}

/// A step of the chain that no guard holds.
class OpenStep : public TemplateTest, public ::testing::WithParamInterface<StepRow> {};

TEST_P(OpenStep, LetsEveryFailureThrough) {
  choose(TemplateKind::Chosen, {"c1"});
  recorder.throwAt(GetParam().operation, GetParam().call, OrdinaryFailure());
  EXPECT_THROW(document.applyTemplates(), OrdinaryFailure);
  recorder.behave();
  recorder.throwAt(GetParam().operation, GetParam().call, VexaGoToCaller());
  EXPECT_THROW(document.applyTemplates(), VexaGoToCaller);
  EXPECT_THAT(reports(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Steps, OpenStep,
                         ::testing::Values(StepRow{"FirstTrace", Operation::PrintDebugInfo, 1, false},
                                           StepRow{"TraceOfTheBaseline", Operation::PrintDebugInfo, 2, false},
                                           StepRow{"LastTrace", Operation::PrintDebugInfo, 3, false},
                                           StepRow{"Engine", Operation::StartTemplate, 1, false},
                                           StepRow{"ChosenEngine", Operation::StartTemplate, 2, false},
                                           StepRow{"UsersEngine", Operation::StartTemplate, 3, false},
                                           StepRow{"Names", Operation::TemplateNames, 1, false},
                                           StepRow{"Clean", Operation::TemplateSetIsDirty, 1, false},
                                           StepRow{"Frames", Operation::PackFrames, 1, false},
                                           StepRow{"Existence", Operation::TemplateExists, 1, false}),
                         [](auto const& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace kestrel::test
