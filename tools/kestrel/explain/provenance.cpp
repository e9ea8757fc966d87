#include "provenance.h"

#include "problem.h"

#include "model/document.h"
#include "model/style.h"

#include <string>
#include <utility>

namespace kestrel::tool {

namespace {

constexpr char const* gridlineName = "gridline";

}  // namespace

void Provenance::note(LumoVisualization const& chart, Origin const& origin) {
  for (LookValue const& look : looksOf(chart)) {
    std::vector<GivenValue>& given = mGiven[look.element][look.name];
    if (given.empty() || given.back().value != look.value) given.push_back({origin, look.value});
  }
}

void Provenance::noteBuilder(LumoVisualization const& chart) { note(chart, {Origin::Kind::Builder, {}}); }

void Provenance::noteDefaultLooks(LumoVisualization const& chart) {
  note(chart, {Origin::Kind::DefaultLooks, {}});
}

void Provenance::written(host::TemplateWrite const& write) {
  mGiven[write.element.getImplementation()][write.attribute].push_back(
      {{Origin::Kind::Template, mFile->path, write.line, write.column}, write.value});
}

void Provenance::copied(LumoStyle const& from, LumoStyle const& to) {
  mGiven[to.getImplementation()] = mGiven[from.getImplementation()];
}

std::vector<Provenance::Explained> Provenance::explain(LumoVisualization const& chart) const {
  std::vector<Explained> all;
  for (LookValue const& look : looksOf(chart)) {
    Explained explained{look.element, look.name, look.value, givenOf(look)};
    bool const isByTemplate = explained.given.back().origin.kind == Origin::Kind::Template;
    if (isByTemplate || look.name != gridlineName || look.value == "true")
      all.push_back(std::move(explained));
  }
  return all;
}

std::vector<GivenValue> Provenance::givenOf(LookValue const& look) const {
  std::vector<GivenValue> all;
  auto const values = mGiven.find(look.element);
  if (values != mGiven.end()) {
    auto const given = values->second.find(look.name);
    if (given != values->second.end()) all = given->second;
  }
  // What nobody told of comes from the library's own steps, also where it is behind what somebody gave.
  if (all.empty() || all.back().value != look.value)
    all.push_back({{Origin::Kind::DefaultLooks, {}}, look.value});
  return all;
}

/// A template that takes its turn each time that a text is set.
class FollowedTemplates::Application : public host::TemplateApplication {
 public:
  Application(FollowedTemplates& engine, LumoVisualization& working, LumoVisualization* baseline)
      : mEngine(engine), mApplication(engine.mEngine.start(working, baseline)) {}

  bool set(std::string const& xml) override {
    if (mEngine.mNext == mEngine.mFiles.size()) {
      throw Problem("the chart gets more templates than the " + std::to_string(mEngine.mFiles.size()) +
                        " that were given; none of them says where the last one comes from",
                    Exit::BadInput);
    }
    mEngine.mProvenance->begin(mEngine.mFiles[mEngine.mNext++]);
    return mApplication->set(xml);
  }
  void apply() override { mApplication->apply(); }

 private:
  FollowedTemplates& mEngine;
  std::unique_ptr<host::TemplateApplication> mApplication;
};

std::unique_ptr<host::TemplateApplication> FollowedTemplates::start(LumoVisualization& working,
                                                                    LumoVisualization* baseline) {
  // The first template engine of a chart starts between the default looks and the templates.
  if (!mStarted) mProvenance->noteDefaultLooks(working);
  mStarted = true;
  return std::make_unique<Application>(*this, working, baseline);
}

}  // namespace kestrel::tool
