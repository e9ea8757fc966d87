#include "chart_templates.h"

#include "files.h"
#include "problem.h"
#include "shipped_files.h"
#include "xdocument.h"

#include "kestrelhost/host.h"
#include "kestrelhost/template_engine.h"
#include "model/document.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string_view>
#include <utility>

namespace kestrel::tool {

namespace {

constexpr ShippedFiles shipped{"shipped template", "templates", ".xml"};

/// Keeps what an engine says of a template.
class FaultLog : public host::Log {
 public:
  void error(std::string const& message, std::string const&, unsigned int) override {
    faults.push_back(message);
  }
  void note(std::string const&) override {}

  std::vector<std::string> faults;
};

/// How an engine begins what it says of a template.
constexpr std::string_view begin = "template, line ";

/// "template, line 3, column 5: text" of an engine becomes "FILE:3:5: text".
std::string atPlace(std::string const& file, std::string_view fault) {
  constexpr std::string_view middle = ", column ";
  std::size_t const column = fault.find(middle);
  std::size_t const text = fault.find(": ");
  if (!fault.starts_with(begin) || column == std::string_view::npos || text == std::string_view::npos ||
      text < column)
    return file + ": " + std::string(fault);
  return file + ":" + std::string(fault.substr(begin.size(), column - begin.size())) + ":" +
         std::string(fault.substr(column + middle.size()));
}

/// What is wrong with a template, a line each.
std::vector<std::string> faultsOf(TemplateFile const& file) {
  if (file.text.empty()) return {file.path + ": is empty; a template has a root element"};
  host::Host host = host::Host::current();
  auto const log = std::make_shared<FaultLog>();
  host.log = log;
  host::ScopedHost const scope(host);
  LumoDocument const document;
  bool const good = host::XmlTemplateEngine().start(*document.getVisualization(), nullptr)->set(file.text);
  std::vector<std::string> faults;
  for (std::string const& fault : log->faults) faults.push_back(atPlace(file.path, fault));
  if (!good && faults.empty()) faults.push_back(file.path + ": is no template");
  return faults;
}

std::vector<TemplateFile> read(std::vector<std::string> const& names) {
  std::vector<TemplateFile> files;
  for (std::string const& name : names) {
    std::string path = shipped.pathOf(name);
    std::string text = readFile(path);
    files.push_back({std::move(path), std::move(text)});
  }
  return files;
}

std::vector<std::string> pathsOf(std::vector<TemplateFile> const& files) {
  std::vector<std::string> paths;
  paths.reserve(files.size());
  for (TemplateFile const& file : files) paths.push_back(file.path);
  return paths;
}

/// Templates in memory, and other files as another service has them.
class CheckedFiles : public host::Files {
 public:
  CheckedFiles(std::vector<TemplateFile> const& files, std::shared_ptr<host::Files> others)
      : mOthers(std::move(others)) {
    for (TemplateFile const& file : files) mTexts.emplace(file.path, file.text);
  }

  std::string fetch(std::string const& name, bool first, bool second) override {
    auto const found = mTexts.find(name);
    return found == mTexts.end() ? mOthers->fetch(name, first, second) : found->second;
  }

 private:
  std::map<std::string, std::string> mTexts;
  std::shared_ptr<host::Files> mOthers;
};

/// The log of a host, without what an engine says of the template of a file.
class TemplateFaults : public host::Log {
 public:
  TemplateFaults(std::shared_ptr<host::Log> others, std::string chart,
                 std::shared_ptr<std::vector<std::string>> notApplied)
      : mOthers(std::move(others)), mChart(std::move(chart)), mNotApplied(std::move(notApplied)) {}

  /// Of whom the engine speaks from now on; null where that is no file.
  void expect(TemplateFile const* file) { mFile = file; }

  void error(std::string const& message, std::string const& file, unsigned int line) override {
    if (mFile == nullptr || !message.starts_with(begin)) return mOthers->error(message, file, line);
    mNotApplied->push_back(atPlace(mFile->path, message) + "; " + mChart + " is made without this template");
  }
  void note(std::string const& message) override { mOthers->note(message); }

 private:
  std::shared_ptr<host::Log> mOthers;
  std::string mChart;
  std::shared_ptr<std::vector<std::string>> mNotApplied;
  TemplateFile const* mFile = nullptr;
};

/// An engine that says which file it is at.
class FileTemplates : public host::TemplateEngine {
 public:
  FileTemplates(std::shared_ptr<host::TemplateEngine> engine, std::vector<TemplateFile> files,
                std::shared_ptr<TemplateFaults> faults)
      : mEngine(std::move(engine)), mFiles(std::move(files)), mFaults(std::move(faults)) {}

  std::unique_ptr<host::TemplateApplication> start(LumoVisualization& working,
                                                   LumoVisualization* baseline) override {
    return std::make_unique<Application>(*this, mEngine->start(working, baseline));
  }

 private:
  class Application : public host::TemplateApplication {
   public:
    Application(FileTemplates& engine, std::unique_ptr<host::TemplateApplication> application)
        : mEngine(engine), mApplication(std::move(application)) {}

    bool set(std::string const& xml) override {
      mFile = mEngine.next(xml);
      return mApplication->set(xml);
    }
    void apply() override {
      mEngine.mFaults->expect(mFile);
      mApplication->apply();
      mEngine.mFaults->expect(nullptr);
    }

   private:
    FileTemplates& mEngine;
    std::unique_ptr<host::TemplateApplication> mApplication;
    TemplateFile const* mFile = nullptr;
  };

  /// Files may have the same text: each takes its turn. Null for a template of the library.
  TemplateFile const* next(std::string const& text) {
    auto const found = std::find_if(mFiles.begin() + mNext, mFiles.end(),
                                    [&text](TemplateFile const& file) { return file.text == text; });
    if (found == mFiles.end()) return nullptr;
    mNext = found - mFiles.begin() + 1;
    return &*found;
  }

  std::shared_ptr<host::TemplateEngine> mEngine;
  std::vector<TemplateFile> mFiles;
  std::vector<TemplateFile>::difference_type mNext = 0;
  std::shared_ptr<TemplateFaults> mFaults;
};

/// Tells all but the last one, which is a Problem.
void refuse(std::vector<std::string> const& faults, Exit exit) {
  if (faults.empty()) return;
  for (std::size_t at = 0; at + 1 < faults.size(); ++at) tell(faults[at]);
  throw Problem(faults.back(), exit);
}

}  // namespace

std::vector<std::string> shippedTemplates() { return shipped.names(); }

ChartTemplates::ChartTemplates(TemplateRequest const& request)
    : mStyles(read(request.styles)), mOptions(read(request.options)), mUser(read(request.user)) {
  std::vector<std::string> faults;
  std::set<std::string> checked;
  for (TemplateFile const& file : inOrder()) {
    if (!checked.insert(file.path).second) continue;
    std::vector<std::string> const more = faultsOf(file);
    faults.insert(faults.end(), more.begin(), more.end());
  }
  refuse(faults, Exit::BadInput);
}

void ChartTemplates::install(host::Host& host, std::string const& chart,
                             std::shared_ptr<host::TemplateEngine> engine) const {
  auto settings = std::make_shared<host::TemplateLists>();
  settings->set(host::TemplateKind::Styles, pathsOf(mStyles));
  settings->set(host::TemplateKind::Options, pathsOf(mOptions));
  host.templateSettings = std::move(settings);
  host.files = std::make_shared<CheckedFiles>(inOrder(), host.files);
  auto faults = std::make_shared<TemplateFaults>(host.log, chart, mNotApplied);
  host.log = faults;
  if (engine == nullptr) engine = std::make_shared<host::XmlTemplateEngine>();
  host.templateEngine = std::make_shared<FileTemplates>(std::move(engine), inOrder(), std::move(faults));
}

void ChartTemplates::requireApplied() const { refuse(*mNotApplied, Exit::NotWritten); }

void ChartTemplates::addTo(XDocument& document) const {
  for (TemplateFile const& file : mUser) document.SetChartTemplate(file.path);
}

std::vector<TemplateFile> ChartTemplates::inOrder() const {
  std::vector<TemplateFile> files = mStyles;
  files.insert(files.end(), mOptions.begin(), mOptions.end());
  files.insert(files.end(), mUser.begin(), mUser.end());
  return files;
}

}  // namespace kestrel::tool
