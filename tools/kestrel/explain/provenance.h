#pragma once

#include "chart_looks.h"
#include "chart_templates.h"

#include "kestrelhost/template_engine.h"

#include <xercesc/dom/DOMElement.hpp>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class LumoVisualization;

namespace kestrel::tool {

/// Who gave a value to a chart.
struct Origin {
  enum class Kind { Builder, DefaultLooks, Template };

  Kind kind;
  /// Of a template: where the tag begins that says so.
  std::string file;
  unsigned int line = 0;
  unsigned int column = 0;
};

struct GivenValue {
  Origin origin;
  std::string value;
};

/// Keeps, for each value of the look of one chart, who gave it, one after the other.
class Provenance : public host::TemplateObserver {
 public:
  /// What the chart has now, its text gave it.
  void noteBuilder(LumoVisualization const& chart);
  /// What the chart has now and had not before, the default looks gave it.
  void noteDefaultLooks(LumoVisualization const& chart);
  /// What is written from now on, this template writes. It must outlive its use.
  void begin(TemplateFile const& file) { mFile = &file; }

  void written(host::TemplateWrite const& write) override;
  void copied(LumoStyle const& from, LumoStyle const& to) override;

  struct Explained {
    xercesc::DOMElement const* element;
    std::string name;
    std::string value;
    /// Never empty. The last one won.
    std::vector<GivenValue> given;
  };
  /// Of each value that the chart has now, in document order. Ticks without a gridline count where a template
  /// wants them so.
  std::vector<Explained> explain(LumoVisualization const& chart) const;

 private:
  using Values = std::map<std::string, std::vector<GivenValue>>;

  std::vector<GivenValue> givenOf(LookValue const& look) const;
  void note(LumoVisualization const& chart, Origin const& origin);

  std::map<xercesc::DOMElement const*, Values> mGiven;
  TemplateFile const* mFile = nullptr;
};

/// The template language of the embedded host, whose work a provenance follows.
class FollowedTemplates : public host::TemplateEngine {
 public:
  /// The templates in the order in which the chart gets them.
  FollowedTemplates(std::shared_ptr<Provenance> provenance, std::vector<TemplateFile> files)
      : mProvenance(std::move(provenance)), mFiles(std::move(files)), mEngine(mProvenance) {}

  std::unique_ptr<host::TemplateApplication> start(LumoVisualization& working,
                                                   LumoVisualization* baseline) override;

 private:
  class Application;

  std::shared_ptr<Provenance> mProvenance;
  std::vector<TemplateFile> mFiles;
  std::size_t mNext = 0;
  bool mStarted = false;
  host::XmlTemplateEngine mEngine;
};

}  // namespace kestrel::tool
