#pragma once

#include "schema_validator.h"
#include "story.h"
#include "xdocument.h"

#include "kestrelhost/host.h"
#include "kestrelhost/recorder.h"
#include "kestrelhost/templates.h"
#include "model/document.h"

#include <gtest/gtest.h>

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::test {

/// Notes which charts it was started on and which start each text went to, and does to a chart what it is
/// told.
class WatchedEngine : public host::TemplateEngine {
 public:
  struct Start {
    LumoVisualization* working;
    LumoVisualization* baseline;
    /// The baseline's text at the start; empty without one.
    std::string baselineText;
  };

  std::unique_ptr<host::TemplateApplication> start(LumoVisualization& working,
                                                   LumoVisualization* baseline) override;

  std::vector<Start> starts;
  /// Such as "1 sets <a/>" and "1 applies": the first start's.
  std::vector<std::string> calls;
  /// Run with the text that was set last.
  std::function<void(LumoVisualization&, std::string const& text)> application;
};

/// Notes what it was asked to lay out.
class WatchedLayout : public host::FrameLayout {
 public:
  bool pack(LumoVisualization& visualization, LumoDocument* baseline) override;

  LumoVisualization* working = nullptr;
  LumoDocument* baselineDocument = nullptr;
  std::string baselineText;
};

/// A chart under a host whose template engine is watched. At first there are no templates.
class TemplateTest : public ::testing::Test {
 protected:
  TemplateTest();
  void TearDown() override;

  /// Names the templates of a kind, and puts a file with that text behind each name: `<b1/>` for "b1".
  void choose(host::TemplateKind kind, std::vector<std::string> const& names);
  void choose(host::TemplateKind kind, std::vector<std::string> const& names,
              std::vector<std::string> const& contents);

  /// The chart before a template, and the one after it.
  void wantDumps();

  /// Each template text becomes the name of the chart when it is applied.
  void nameAfterTemplates();

  std::vector<std::string> story() const { return storyOf(recorder); }
  /// The lines that begin so, without that beginning.
  std::vector<std::string> linesOf(std::string const& beginning) const;
  /// Prefix, number and suffix of each dump.
  std::vector<std::string> dumpNames() const;
  /// What was told to the user, and logged, in that order.
  std::vector<std::string> reports() const;
  std::string name() const;

  host::MemoryServices services;
  std::shared_ptr<WatchedEngine> engine = std::make_shared<WatchedEngine>();
  std::shared_ptr<WatchedLayout> layout = std::make_shared<WatchedLayout>();
  host::Recorder recorder{watchedHost()};
  host::ScopedHost scope{recorder.host()};
  LumoDocument model;
  LumoVisualization& visualization{*model.getVisualization()};
  XDocument document{model};

 private:
  host::Host watchedHost() const;
};

/// A step of an operation that is made to fail, by the call of the host that it consists of.
struct FailingStep {
  char const* name;
  host::Operation operation;
  unsigned int call;
};

void PrintTo(FailingStep const& step, std::ostream* out);
std::string nameOfStep(::testing::TestParamInfo<FailingStep> const& test);

/// A document whose text is another one than its chart's.
class RetoldDocument : public XDocument {
 public:
  RetoldDocument(LumoDocument& chart, std::string text) : XDocument(chart), mText(std::move(text)) {}
  std::string AsUTF8() const override { return mText; }

 private:
  std::string mText;
};

/// Text that is no chart.
inline constexpr char unparsable[] = "<visualization>";

}  // namespace kestrel::test
