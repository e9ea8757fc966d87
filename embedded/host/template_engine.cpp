#include "kestrelhost/template_engine.h"

#include "label_height.h"
#include "template_chart.h"
#include "template_cycles.h"
#include "template_elements.h"
#include "template_frames.h"
#include "template_parser.h"
#include "template_parts.h"
#include "template_shelf.h"
#include "template_writer.h"

#include "kestrelhost/host.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace kestrel::host {

namespace {

/// A chart and the means to write into it, for one template.
struct Work {
  TemplatedChart chart;
  TemplateWriter writer;
};

unsigned int aestheticNumber(TemplateNode const& node) {
  return static_cast<unsigned int>(node.get("aestheticNumber").front() - '0');
}

void makeCycle(Work& work, TemplateNode const& node) {
  makeColorCycles(work.chart, work.writer, aestheticNumber(node));
}

void setColor(Work& work, TemplateNode const& node) {
  setColors(work.chart, work.writer, aestheticNumber(node), node.children.front());
}

void setCycle(Work& work, TemplateNode const& node) {
  setCycles(work.chart, work.writer, node.get("aesthetic"), node.children.front());
}

void setStyle(Work& work, TemplateNode const& node) {
  StyleSlots const slots = slotsOfElements(work.chart, node.get("type"), node.get("subtype"));
  work.writer.write(slots, lookOf(node.children.front()));
}

void setLook(Work& work, TemplateNode const& node) {
  StyleSlots const slots = slotsOfPart(work.chart, node.get("part"), node.get("role"));
  work.writer.write(slots, lookOf(node.children.front()));
}

void setFont(Work& work, TemplateNode const& node) {
  static constexpr std::pair<std::string_view, std::string_view> properties[] = {{"family", "font_family"},
                                                                                 {"size", "font_size"},
                                                                                 {"weight", "font_weight"},
                                                                                 {"style", "font_style"},
                                                                                 {"color", "color"}};
  Look look{{}, node.at};
  for (auto const& [attribute, property] : properties) {
    if (node.find(attribute) != nullptr) look.values.emplace_back(property, node.get(attribute));
  }
  std::string_view const part = node.find("part") == nullptr ? everyText : node.get("part");
  work.writer.write(slotsOfPart(work.chart, part, node.get("role")), look);
}

double numberIn(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

/// An attribute of `setAxis`, and how the ticks of an axis take it.
struct TickSetting {
  std::string_view attribute;
  /// As observers are told of it.
  std::string_view written;
  void (*apply)(LumoMajorTicks& ticks, TemplateNode const& node);
};

constexpr TickSetting gridlines = {"gridlines", "gridline",
                                   [](LumoMajorTicks& ticks, TemplateNode const& node) {
                                     bool const there = ticks.getGridline() != nullptr;
                                     bool const wanted = node.isTrue("gridlines");
                                     if (wanted && !there) ticks.addGridline();
                                     if (!wanted && there) ticks.removeGridlines();
                                   }};

constexpr TickSetting tickSettings[] = {
    {"tickLength", "length",
     [](LumoMajorTicks& ticks, TemplateNode const& node) {
       ticks.setLength(ChartString(node.find("tickLength")->c_str()).xc_str());
     }},
    {"labelAngle", "labelAngle",
     [](LumoMajorTicks& ticks, TemplateNode const& node) {
       ticks.setLabelAngle(numberIn(node.get("labelAngle")));
     }},
    {"stagger", "stagger",
     [](LumoMajorTicks& ticks, TemplateNode const& node) { ticks.setStagger(node.isTrue("stagger")); }}};

void setTicks(Work& work, TemplateNode const& node, TickSetting const& setting) {
  if (node.find(setting.attribute) == nullptr) return;
  for (TemplatedChart::Axis const& each : work.chart.axes) {
    LumoMajorTicks* const ticks = each.axis->getMajorTicks();
    bool const meant = node.find("role") == nullptr || node.get("role") == each.role;
    if (ticks == nullptr || !meant) continue;
    setting.apply(*ticks, node);
    work.writer.tell(*ticks, setting.written, node.get(setting.attribute), node.at);
  }
}

void setGridlines(Work& work, TemplateNode const& node) { setTicks(work, node, gridlines); }

void setAxis(Work& work, TemplateNode const& node) {
  for (TickSetting const& setting : tickSettings) setTicks(work, node, setting);
}

void addFrame(Work& work, TemplateNode const& node) { addFrames(work.chart, work.writer, node); }

void nothing(Work&, TemplateNode const&) {}

/// Carried out in two rounds: first all of a template make what is to be styled, then all style it. So the
/// second time that a template is applied, it finds nothing that it did not find the first time.
struct Instruction {
  std::string_view name;
  void (*prepare)(Work& work, TemplateNode const& node);
  void (*apply)(Work& work, TemplateNode const& node);
};

constexpr Instruction instructions[] = {{"addFrame", nothing, addFrame},   {"setAxis", setGridlines, setAxis},
                                        {"setColor", makeCycle, setColor}, {"setCycle", nothing, setCycle},
                                        {"setFont", nothing, setFont},     {"setLook", nothing, setLook},
                                        {"setStyle", nothing, setStyle}};

Instruction const& instructionOf(TemplateNode const& node) {
  return *std::find_if(std::begin(instructions), std::end(instructions),
                       [&node](Instruction const& each) { return each.name == node.rule->name; });
}

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
    std::vector<int> const heights = heightsOfLabels(mChart);
    Work work{TemplatedChart(mChart), TemplateWriter(mChart, applied->text, mObserver.get())};
    for (TemplateNode const& node : applied->instructions) instructionOf(node).prepare(work, node);
    for (TemplateNode const& node : applied->instructions) instructionOf(node).apply(work, node);
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
