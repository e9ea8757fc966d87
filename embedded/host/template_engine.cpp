#include "kestrelhost/template_engine.h"

#include "label_height.h"
#include "template_instructions.h"
#include "template_parser.h"
#include "template_shelf.h"

#include "kestrelhost/host.h"

#include <optional>
#include <utility>

namespace kestrel::host {

namespace {

void report(std::vector<TemplateFault> const& faults) {
  for (TemplateFault const& fault : faults) {
    Host::current().log->error("template, line " + std::to_string(fault.at.line) + ", column " +
                                   std::to_string(fault.at.column) + ": " + fault.text,
                               {}, 0);
  }
}

class XmlTemplate : public TemplateApplication {
 public:
  XmlTemplate(LumoVisualization& chart, std::shared_ptr<TemplateObserver> observer,
              std::shared_ptr<TemplateShelf> shelf)
      : mChart(chart), mObserver(std::move(observer)), mShelf(std::move(shelf)) {}

  bool set(std::string const& xml) override {
    mTemplate = mShelf->find(xml);
    if (mTemplate != nullptr) return true;
    ReadTemplate read = readTemplate(xml);
    report(read.faults);
    if (!read.faults.empty()) return false;
    mTemplate = std::make_shared<SoundTemplate const>(SoundTemplate{xml, std::move(read.instructions)});
    mShelf->keep(mTemplate);
    return true;
  }

  void apply() override {
    if (mTemplate == nullptr || mTemplate->instructions.empty()) return;
    // An observer that sets another template must not take this one away.
    std::shared_ptr<SoundTemplate const> const applied = mTemplate;
    TemplateWork work(mChart, applied->text, mObserver.get());
    if (std::optional<TemplateFault> const fault = boundFault(work, applied->instructions)) {
      report({*fault});
      return;
    }
    std::vector<int> const heights = heightsOfLabels(mChart);
    carryOut(work, applied->instructions);
    // Frames may have been packed already, for the fonts that they had then.
    if (heightsOfLabels(mChart) != heights) Host::current().frameLayout->refit(mChart);
  }

 private:
  LumoVisualization& mChart;
  std::shared_ptr<TemplateObserver> mObserver;
  std::shared_ptr<TemplateShelf> mShelf;
  std::shared_ptr<SoundTemplate const> mTemplate;
};

}  // namespace

TemplateObserver::~TemplateObserver() = default;
void TemplateObserver::copied(LumoStyle const&, LumoStyle const&) {}

XmlTemplateEngine::XmlTemplateEngine(std::shared_ptr<TemplateObserver> observer)
    : mObserver(std::move(observer)), mShelf(std::make_shared<TemplateShelf>()) {}

std::unique_ptr<TemplateApplication> XmlTemplateEngine::start(LumoVisualization& working,
                                                              LumoVisualization*) {
  return std::make_unique<XmlTemplate>(working, mObserver, mShelf);
}

}  // namespace kestrel::host
