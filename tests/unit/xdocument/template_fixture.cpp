#include "template_fixture.h"

#include "chart_test.h"
#include "golden.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <ostream>
#include <utility>

namespace kestrel::test {

void PrintTo(FailingStep const& step, std::ostream* out) { *out << step.name; }
std::string nameOfStep(::testing::TestParamInfo<FailingStep> const& test) { return test.param.name; }

namespace {

class WatchedApplication : public host::TemplateApplication {
 public:
  WatchedApplication(WatchedEngine& engine, std::size_t number, LumoVisualization& working)
      : mEngine(engine), mNumber(std::to_string(number)), mWorking(working) {}

  bool set(std::string const& xml) override {
    mEngine.calls.push_back(mNumber + " sets " + xml);
    mText = xml;
    return true;
  }

  void apply() override {
    mEngine.calls.push_back(mNumber + " applies");
    if (mEngine.application) mEngine.application(mWorking, mText);
  }

 private:
  WatchedEngine& mEngine;
  std::string mNumber;
  LumoVisualization& mWorking;
  std::string mText;
};

}  // namespace

std::unique_ptr<host::TemplateApplication> WatchedEngine::start(LumoVisualization& working,
                                                                LumoVisualization* baseline) {
  starts.push_back({&working, baseline, baseline == nullptr ? std::string() : goldenText(*baseline)});
  return std::make_unique<WatchedApplication>(*this, starts.size(), working);
}

bool WatchedLayout::pack(LumoVisualization& visualization, LumoDocument* baseline) {
  working = &visualization;
  baselineDocument = baseline;
  if (baseline != nullptr) baselineText = goldenText(*baseline->getVisualization());
  return true;
}

TemplateTest::TemplateTest() { recorder.clear(); }

void TemplateTest::TearDown() { EXPECT_THAT(schemaErrors(model.AsUTF8()), ::testing::IsEmpty()); }

host::Host TemplateTest::watchedHost() const {
  host::Host host = services.host();
  host.templateEngine = engine;
  host.frameLayout = layout;
  return host;
}

void TemplateTest::choose(host::TemplateKind kind, std::vector<std::string> const& names) {
  std::vector<std::string> contents;
  for (std::string const& name : names) contents.push_back("<" + name + "/>");
  choose(kind, names, contents);
}

void TemplateTest::choose(host::TemplateKind kind, std::vector<std::string> const& names,
                          std::vector<std::string> const& contents) {
  services.templateSettings->set(kind, names);
  for (std::size_t at = 0; at < names.size(); ++at) services.files->content[names[at]] = contents.at(at);
}

void TemplateTest::wantDumps() {
  services.dumps->categories = {ChartBase::PrintBeforeTemplate, ChartBase::PrintAfterTemplate};
}

void TemplateTest::nameAfterTemplates() {
  engine->application = [](LumoVisualization& chart, std::string const& text) {
    ChartString name;
    name.assignUTF8(text);
    chart.setName(name.xc_str());
  };
}

std::vector<std::string> TemplateTest::linesOf(std::string const& beginning) const {
  std::vector<std::string> lines;
  for (std::string const& line : story()) {
    if (line.starts_with(beginning)) lines.push_back(line.substr(beginning.size()));
  }
  return lines;
}

std::vector<std::string> TemplateTest::dumpNames() const {
  std::vector<std::string> names;
  for (host::RecordedDump const& dump : recorder.dumps()) {
    names.push_back(dump.prefix + std::to_string(dump.number) + dump.suffix);
  }
  return names;
}

std::vector<std::string> TemplateTest::reports() const {
  std::vector<std::string> told;
  for (std::string const& line : story()) {
    if (line.starts_with("user: ") || line.starts_with("log: ")) told.push_back(line);
  }
  return told;
}

std::string TemplateTest::name() const { return attribute(&visualization, u"name"); }

}  // namespace kestrel::test
