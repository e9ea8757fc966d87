#include "host/templates.h"

#include "template_chart.h"

#include "kestrelhost/host.h"
#include "model/elements.h"
#include "model/graph.h"

namespace kestrel::host {

namespace {

class FixedTemplate : public TemplateApplication {
 public:
  explicit FixedTemplate(bool accepts) : mAccepts(accepts) {}

  bool set(std::string const&) override { return mAccepts; }
  void apply() override {}

 private:
  bool mAccepts;
};

std::size_t indexOf(TemplateKind kind) { return static_cast<std::size_t>(kind); }

}  // namespace

TemplateSettings::~TemplateSettings() = default;
TemplateApplication::~TemplateApplication() = default;
TemplateEngine::~TemplateEngine() = default;
FrameLayout::~FrameLayout() = default;
void FrameLayout::refit(LumoVisualization&) {}
DataDump::~DataDump() = default;

void TemplateLists::set(TemplateKind kind, std::vector<std::string> names) {
  mLists[indexOf(kind)] = {std::move(names), true};
}

std::vector<std::string> TemplateLists::names(TemplateKind kind) { return mLists[indexOf(kind)].names; }
bool TemplateLists::exists(TemplateKind kind) { return !mLists[indexOf(kind)].names.empty(); }
bool TemplateLists::isDirty(TemplateKind kind) { return mLists[indexOf(kind)].dirty; }
void TemplateLists::setDirty(TemplateKind kind, bool dirty) { mLists[indexOf(kind)].dirty = dirty; }

class NoTemplateEngine::Refusal : public TemplateApplication {
 public:
  explicit Refusal(bool& noted) : mNoted(noted) {}

  bool set(std::string const&) override {
    if (!mNoted)
      Host::current().log->note("this host has no template language: chart templates are not applied");
    mNoted = true;
    return false;
  }
  void apply() override {}

 private:
  bool& mNoted;
};

std::unique_ptr<TemplateApplication> NoTemplateEngine::start(LumoVisualization&, LumoVisualization*) {
  return std::make_unique<Refusal>(mNoted);
}

std::unique_ptr<TemplateApplication> FixedTemplateEngine::start(LumoVisualization&, LumoVisualization*) {
  return std::make_unique<FixedTemplate>(accepts);
}

bool NoFrameLayout::pack(LumoVisualization&, LumoDocument*) { return false; }

std::string NoDataDump::join(std::string const&, unsigned char const*, unsigned long, char16_t const*) {
  if (!mNoted) Host::current().log->note("this host cannot join a chart and its data into one dump");
  mNoted = true;
  return {};
}

namespace {

class Settings : public XTemplate {
 public:
  explicit Settings(TemplateKind kind) : mKind(kind) {}

  std::vector<std::string> Get() const override { return Host::current().templateSettings->names(mKind); }
  bool Exists() const override { return Host::current().templateSettings->exists(mKind); }
  bool isDirty() const override { return Host::current().templateSettings->isDirty(mKind); }
  void setIsDirty(bool dirty) override { Host::current().templateSettings->setDirty(mKind, dirty); }

 private:
  TemplateKind mKind;
};

Settings styles(TemplateKind::Styles);
Settings options(TemplateKind::Options);
Settings chosen(TemplateKind::Chosen);
Settings defaults(TemplateKind::Default);

}  // namespace

}  // namespace kestrel::host

using kestrel::host::Host;

XTemplate::~XTemplate() = default;

XTemplate* STemplate::_impl = &kestrel::host::styles;
XTemplate* OTemplate::_impl = &kestrel::host::options;
XTemplate* CTemplate::_impl = &kestrel::host::chosen;
XTemplate* DTemplate::_impl = &kestrel::host::defaults;

std::vector<std::string> STemplate::Get() const { return _impl->Get(); }
bool STemplate::isDirty() const { return _impl->isDirty(); }
void STemplate::setIsDirty(bool dirty) { _impl->setIsDirty(dirty); }

std::vector<std::string> OTemplate::Get() const { return _impl->Get(); }
bool OTemplate::isDirty() const { return _impl->isDirty(); }
void OTemplate::setIsDirty(bool dirty) { _impl->setIsDirty(dirty); }

std::vector<std::string> CTemplate::Get() const { return _impl->Get(); }
bool CTemplate::Exists() const { return _impl->Exists(); }
bool CTemplate::isDirty() const { return _impl->isDirty(); }
void CTemplate::setIsDirty(bool dirty) { _impl->setIsDirty(dirty); }

std::vector<std::string> DTemplate::Get() const { return _impl->Get(); }
bool DTemplate::isDirty() const { return _impl->isDirty(); }
void DTemplate::setIsDirty(bool dirty) { _impl->setIsDirty(dirty); }

class ChartTemplate::Application {
 public:
  std::unique_ptr<kestrel::host::TemplateApplication> work;
};

ChartTemplate::ChartTemplate(LumoVisualization& working, LumoVisualization* baseline)
    : mApplication(new Application{Host::current().templateEngine->start(working, baseline)}) {}
ChartTemplate::~ChartTemplate() = default;

bool ChartTemplate::setTemplate(std::string const& xml) { return mApplication->work->set(xml); }
void ChartTemplate::applyTemplate() { mApplication->work->apply(); }

BaseTemplate::BaseTemplate(LumoVisualization const* baseline, LumoVisualization& working)
    : mBaseline(baseline), mWorking(working) {}
BaseTemplate::~BaseTemplate() = default;

void BaseTemplate::getAllElements(LumoGraph const& graph, std::vector<CTElementType*>& elements) {
  auto const append = [&elements](auto const& list) {
    elements.insert(elements.end(), list.begin(), list.end());
  };
  append(graph.getAreas());
  append(graph.getEdges());
  append(graph.getIntervals());
  append(graph.getLines());
  append(graph.getPaths());
  append(graph.getPoints());
  append(graph.getPolygons());
  append(graph.getSchemas());
}

std::vector<LumoDimension*> BaseTemplate::getDimensionsByRole(LumoGraph const& graph,
                                                              ChartString const& role) const {
  std::vector<LumoDimension*> found;
  std::string const wanted = role.toUTF8();
  if (wanted.empty()) return found;
  for (LumoCoordinates const* coordinates : graph.getCoordinatess()) {
    for (LumoDimension* const dimension : coordinates->getDimensions()) {
      if (kestrel::host::roleOf(*dimension) == wanted) found.push_back(dimension);
    }
  }
  return found;
}

FramePacker::FramePacker() = default;
FramePacker::~FramePacker() = default;

bool FramePacker::packFrames(LumoVisualization& visualization, LumoDocument* baseline) const {
  return Host::current().frameLayout->pack(visualization, baseline);
}

ChartTransformer::ChartTransformer(std::string const& compressedXml, unsigned char const* stream,
                                   unsigned long size)
    : mCompressedXml(compressedXml), mStream(stream), mSize(size) {}
ChartTransformer::~ChartTransformer() = default;

std::string ChartTransformer::getEntireXML(char16_t const* encoding) {
  return Host::current().dataDump->join(mCompressedXml, mStream, mSize, encoding);
}
