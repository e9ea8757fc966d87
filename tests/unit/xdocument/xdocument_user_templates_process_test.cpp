// The numbers of the dumps of user and immediate templates, which live as long as the process.

#include "xdocument.h"

#include "chart_test.h"
#include "template_fixture.h"

#include "host/messages.h"

#include <gmock/gmock.h>

#include <string>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedDump;
using ::testing::ElementsAre;

class UserTemplateNumbers : public TemplateTest {
 protected:
  UserTemplateNumbers() { services.files->content = {{"u1", "<u1/>"}, {"u2", "<u2/>"}, {"u3", "<u3/>"}}; }

  void use(std::vector<std::string> const& names) {
    for (std::string const& name : names) document.SetChartTemplate(name);
  }
};

TEST_F(UserTemplateNumbers, StartAtOneForATextAndTheChartOnBothSidesOfIt) {
  use({"u1"});
  wantDumps();
  nameAfterTemplates();
  std::string const before = model.AsUTF8();
  document.applyUserTemplates(nullptr);
  EXPECT_EQ(recorder.dumps(), (std::vector<RecordedDump>{{"<u1/>", "utemplate_", ".qtp", 1, 6},
                                                         {before, "bUtemplate_", ".xml", 1, 2},
                                                         {model.AsUTF8(), "aUtemplate_", ".xml", 1, 3}}));
  EXPECT_NE(before, model.AsUTF8());
}

TEST_F(UserTemplateNumbers, GoOnBehindAMissingFileAndAFailure) {
  use({"u1", "nowhere", "u2", "u3"});
  recorder.throwAt(Operation::ApplyTemplate, 2, OrdinaryFailure());
  EXPECT_EQ(document.applyUserTemplates(nullptr), 2);
  EXPECT_THAT(dumpNames(), ElementsAre("utemplate_1.qtp", "utemplate_3.qtp", "utemplate_4.qtp"));
}

TEST_F(UserTemplateNumbers, GoOnThroughAllCharts) {
  use({"u1", "u2"});
  document.applyUserTemplates(nullptr);
  LumoDocument otherModel;
  XDocument other{otherModel};
  other.SetChartTemplate("u1");
  recorder.clear();
  other.applyUserTemplates(nullptr);
  EXPECT_THAT(dumpNames(), ElementsAre("utemplate_3.qtp"));
}

TEST_F(UserTemplateNumbers, AreNotThoseOfTheChain) {
  choose(host::TemplateKind::Styles, {"s1", "s2"});
  use({"u1"});
  document.applyTemplates();
  EXPECT_THAT(linesOf("dump u"), ElementsAre("template_1.qtp type 6"));
}

TEST_F(UserTemplateNumbers, StayWhereTheyWereWhereTheHostsSignalPasses) {
  use({"u1"});
  recorder.throwAt(Operation::ApplyTemplate, 1, VexaGoToCaller());
  EXPECT_THROW(document.applyUserTemplates(nullptr), VexaGoToCaller);
  document.applyUserTemplates(nullptr);
  EXPECT_THAT(dumpNames(), ElementsAre("utemplate_1.qtp", "utemplate_1.qtp"));
}

TEST_F(UserTemplateNumbers, OfImmediateTemplatesAreAlwaysZero) {
  document.AddImmediateTemplate("<i1/>");
  use({"u1"});
  wantDumps();
  document.applyUserTemplates(nullptr);
  document.applyImmediateTemplate("<i2/>");
  EXPECT_THAT(linesOf("dump bI"), ElementsAre("template_0.xml type 2", "template_0.xml type 2"));
  EXPECT_THAT(linesOf("dump i"), ElementsAre("template_0.qtp type 6", "template_0.qtp type 6"));
  EXPECT_THAT(linesOf("dump aI"), ElementsAre("template_0.xml type 3", "template_0.xml type 3"));
}

}  // namespace
}  // namespace kestrel::test
