// Templates of the command line as the host and a chart get them.

#include "chart_templates.h"

#include "chart_test.h"
#include "problem.h"
#include "xdocument.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

using kestrel::host::TemplateKind;
using kestrel::tool::ChartTemplates;
using testing::ElementsAre;

namespace {

std::string templateOf(std::string const& name) {
  return "<template xmlns=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization\" name=\"" +
         name + "\"/>";
}

class TemplatesOfTheCommandLine : public kestrel::test::ChartTest {
 protected:
  TemplatesOfTheCommandLine() { std::filesystem::create_directories(mFolder); }
  ~TemplatesOfTheCommandLine() override { std::filesystem::remove_all(mFolder); }

  std::string pathOf(std::string const& name) const { return mFolder + "/" + name + ".xml"; }
  /// Writes a template of that name.
  std::string file(std::string const& name) const {
    std::ofstream(pathOf(name)) << templateOf(name);
    return pathOf(name);
  }

 private:
  std::string mFolder = testing::TempDir() + "kestrel_templates_" + std::to_string(::getpid());
};

TEST_F(TemplatesOfTheCommandLine, BecomeSettingsOfTheHost) {
  kestrel::host::Host host;
  ChartTemplates({{file("a"), file("b")}, {file("c")}, {file("d")}}).install(host, "chart");
  EXPECT_THAT(host.templateSettings->names(TemplateKind::Styles), ElementsAre(pathOf("a"), pathOf("b")));
  EXPECT_THAT(host.templateSettings->names(TemplateKind::Options), ElementsAre(pathOf("c")));
}

TEST_F(TemplatesOfTheCommandLine, TakeThePlaceOfThoseOfTheChartBefore) {
  kestrel::host::Host host;
  ChartTemplates({}).install(host, "chart");
  EXPECT_TRUE(host.templateSettings->isDirty(TemplateKind::Styles));
  EXPECT_TRUE(host.templateSettings->isDirty(TemplateKind::Options));
}

TEST_F(TemplatesOfTheCommandLine, GoToTheChartInTheirOrder) {
  ChartTemplates const templates({{file("a")}, {file("b")}, {file("c"), file("d")}});
  XDocument document;
  templates.addTo(document);
  EXPECT_THAT(document.getTemplates(), ElementsAre(pathOf("c"), pathOf("d")));
}

TEST_F(TemplatesOfTheCommandLine, AreListedAsAChartGetsThem) {
  std::vector<std::string> paths;
  for (auto const& each : ChartTemplates({{file("d")}, {file("c")}, {file("b"), file("a")}}).inOrder())
    paths.push_back(each.path);
  EXPECT_THAT(paths, ElementsAre(pathOf("d"), pathOf("c"), pathOf("b"), pathOf("a")));
}

TEST_F(TemplatesOfTheCommandLine, StayAsTheyWereChecked) {
  ChartTemplates const templates({{file("a")}, {}, {}});
  std::ofstream(pathOf("a")) << "something else";
  kestrel::host::Host host;
  templates.install(host, "chart");
  EXPECT_EQ(host.files->fetch(pathOf("a"), true, true), templateOf("a"));
}

TEST_F(TemplatesOfTheCommandLine, LeaveOtherFilesToTheHost) {
  kestrel::host::Host host;
  auto const files = std::make_shared<kestrel::host::MemoryFiles>();
  files->content["other"] = "content";
  host.files = files;
  ChartTemplates({{file("a")}, {}, {}}).install(host, "chart");
  EXPECT_EQ(host.files->fetch("other", true, true), "content");
}

TEST_F(TemplatesOfTheCommandLine, AreCheckedWithoutAWordInTheLogOfTheHost) {
  std::ofstream(pathOf("bad")) << "<x/>";
  EXPECT_THROW(ChartTemplates({{}, {}, {pathOf("bad")}}), kestrel::tool::Problem);
  kestrel::test::expectNoReport(recorder);
}

}  // namespace
