#include "recorder_journal.h"

#include "host/data_types.h"
#include "model/chartstring.h"

#include <utility>

namespace kestrel::host {

namespace {

using Arguments = Recorder::Journal::Arguments;
using JournalHold = std::shared_ptr<Recorder::Journal>;

std::int64_t number(unsigned long value) { return static_cast<std::int64_t>(value); }

/// A service that notes what it is asked before it passes it on.
template <typename Service>
class Recorded : public Service {
 public:
  Recorded(std::shared_ptr<Service> inner, JournalHold journal)
      : mInner(std::move(inner)), mJournal(std::move(journal)) {}

 protected:
  bool noted(Operation operation, Arguments arguments = {}) {
    return mJournal->note(operation, std::move(arguments));
  }

  Service& inner() { return *mInner; }
  JournalHold const& journal() { return mJournal; }

 private:
  std::shared_ptr<Service> mInner;
  JournalHold mJournal;
};

class RecordedChannel : public Recorded<Channel> {
 public:
  using Recorded::Recorded;

  int put(std::int64_t identifier, void const* bytes, std::size_t length) override {
    std::string const content(static_cast<char const*>(bytes), length);
    if (!noted(Operation::IpcPutC, {{"identifier", identifier}, {"bytes", content}})) return 1;
    return inner().put(identifier, bytes, length);
  }
};

class RecordedLog : public Recorded<Log> {
 public:
  using Recorded::Recorded;

  void error(std::string const& message, std::string const& file, unsigned int line) override {
    Arguments arguments{{"message", message}, {"file", file}, {"line", number(line)}};
    if (noted(Operation::Error, std::move(arguments))) inner().error(message, file, line);
  }

  void note(std::string const& message) override {
    if (noted(Operation::Note, {{"message", message}})) inner().note(message);
  }
};

class RecordedMessages : public Recorded<UserMessages> {
 public:
  using Recorded::Recorded;

  void show(BpCellText const& text, BpErrorShow show, BpErrorLevel level) override {
    Arguments arguments{{"text", text.text()},
                        {"fixed", text.fixed()},
                        {"show", std::int64_t{show}},
                        {"level", std::int64_t{level}}};
    if (auto const* composite = dynamic_cast<BpComposite const*>(&text)) addCells(arguments, *composite);
    if (noted(Operation::BpError, std::move(arguments))) inner().show(text, show, level);
  }

 private:
  static void addCells(Arguments& arguments, BpComposite const& composite) {
    arguments.push_back({"pattern", composite.pattern()});
    int position = 0;
    for (BpString const& cell : composite.cells()) {
      std::string const suffix = std::to_string(++position);
      arguments.push_back({"cell" + suffix, cell.text()});
      arguments.push_back({"fixed" + suffix, cell.fixed()});
    }
  }
};

class RecordedTrace : public Recorded<Trace> {
 public:
  using Recorded::Recorded;

  void line(std::string const& text) override {
    if (noted(Operation::PrintDebugInfo, {{"line", text}})) inner().line(text);
  }
};

class RecordedDumps : public Recorded<Dumps> {
 public:
  using Recorded::Recorded;

  bool wanted(ChartBase::PRINTTYPE type) override {
    return noted(Operation::WillPrintString, {{"type", std::int64_t{type}}}) && inner().wanted(type);
  }

  void print(std::string const& content, std::string const& prefix, std::string const& suffix,
             unsigned long counter, ChartBase::PRINTTYPE type) override {
    Arguments arguments{{"content", content},
                        {"prefix", prefix},
                        {"suffix", suffix},
                        {"number", number(counter)},
                        {"type", std::int64_t{type}}};
    bool const succeeds = noted(Operation::PrintString, std::move(arguments));
    if (succeeds) inner().print(content, prefix, suffix, counter, type);
  }
};

class RecordedFiles : public Recorded<Files> {
 public:
  using Recorded::Recorded;

  std::string fetch(std::string const& name, bool first, bool second) override {
    bool const succeeds = noted(Operation::Fetch, {{"name", name}, {"first", first}, {"second", second}});
    return succeeds ? inner().fetch(name, first, second) : std::string();
  }
};

class RecordedPaths : public Recorded<Paths> {
 public:
  using Recorded::Recorded;

  std::string basePath(int kind) override {
    bool const succeeds = noted(Operation::BasePath, {{"kind", std::int64_t{kind}}});
    return succeeds ? inner().basePath(kind) : std::string();
  }

  std::string dictionaryPath(int kind) override {
    bool const succeeds = noted(Operation::DictionaryPath, {{"kind", std::int64_t{kind}}});
    return succeeds ? inner().dictionaryPath(kind) : std::string();
  }
};

class RecordedTable : public Recorded<TextTable> {
 public:
  using Recorded::Recorded;

  void setProcedure(std::string const& procedure) override {
    if (noted(Operation::SetProcedure, {{"procedure", procedure}})) inner().setProcedure(procedure);
  }

  bool find(std::string const& key, std::string& text, unsigned long& index) override {
    return noted(Operation::LookUp, {{"key", key}}) && inner().find(key, text, index);
  }
};

class RecordedTexts : public Recorded<Texts> {
 public:
  using Recorded::Recorded;

  std::unique_ptr<TextTable> open(std::string const& path) override {
    bool const succeeds = noted(Operation::OpenDictionary, {{"path", path}});
    std::shared_ptr<TextTable> table = succeeds ? inner().open(path) : FixedTexts().open(path);
    return std::make_unique<RecordedTable>(std::move(table), journal());
  }
};

class RecordedLocale : public Recorded<Locale> {
 public:
  using Recorded::Recorded;

  std::string languageCode() override {
    return noted(Operation::LanguageCode) ? inner().languageCode() : std::string();
  }

  std::string localeName() override {
    return noted(Operation::LocaleName) ? inner().localeName() : std::string();
  }
  std::string codePage() override { return inner().codePage(); }
};

class RecordedCalendar : public Recorded<Calendar> {
 public:
  using Recorded::Recorded;

  bool breakUp(double value, DateParts& parts) override {
    return noted(Operation::BreakUpDate, {{"value", value}}) && inner().breakUp(value, parts);
  }
};

class RecordedFormats : public Recorded<DisplayFormats> {
 public:
  using Recorded::Recorded;

  bool number(LumoFormat& element, Vexa_Format& format) override {
    return noteFormat(Operation::FormatNumber, format) && inner().number(element, format);
  }

  bool customCurrency(LumoFormat& element, Vexa_Format& format) override {
    return noteFormat(Operation::FormatCustomCurrency, format) && inner().customCurrency(element, format);
  }

  bool date(LumoFormat& element, Vexa_Format& format) override {
    return noteFormat(Operation::FormatDate, format) && inner().date(element, format);
  }

  bool elapsedTime(LumoFormat& element, Vexa_Format& format) override {
    return noteFormat(Operation::FormatElapsedTime, format) && inner().elapsedTime(element, format);
  }

 private:
  bool noteFormat(Operation operation, Vexa_Format const& format) {
    return noted(operation, {{"type", std::int64_t{format.TypeEx()}},
                             {"width", std::int64_t{format.Width()}},
                             {"decimals", std::int64_t{format.Decimals()}}});
  }
};

class RecordedChartTexts : public Recorded<ChartTexts> {
 public:
  using Recorded::Recorded;

  ChartString createUniqueId(ChartString const& id, LumoVisualization& visualization) override {
    bool const succeeds = noted(Operation::CreateUniqueId, {{"id", id.toUTF8()}});
    return succeeds ? inner().createUniqueId(id, visualization) : ChartString();
  }

  void updateText(ChartString& text, FacSTDictionary* dictionary, std::string const& encoding) override {
    bool const succeeds = noted(Operation::UpdateText, {{"text", text.toUTF8()}, {"encoding", encoding}});
    if (succeeds) inner().updateText(text, dictionary, encoding);
  }
};

class RecordedTemplateSettings : public Recorded<TemplateSettings> {
 public:
  using Recorded::Recorded;

  std::vector<std::string> names(TemplateKind kind) override {
    return noteKind(Operation::TemplateNames, kind) ? inner().names(kind) : std::vector<std::string>();
  }

  bool exists(TemplateKind kind) override {
    return noteKind(Operation::TemplateExists, kind) && inner().exists(kind);
  }

  bool isDirty(TemplateKind kind) override {
    return noteKind(Operation::TemplateIsDirty, kind) && inner().isDirty(kind);
  }

  void setDirty(TemplateKind kind, bool dirty) override {
    Arguments arguments{{"kind", std::int64_t{static_cast<int>(kind)}}, {"dirty", dirty}};
    if (noted(Operation::TemplateSetIsDirty, std::move(arguments))) inner().setDirty(kind, dirty);
  }

 private:
  bool noteKind(Operation operation, TemplateKind kind) {
    return noted(operation, {{"kind", std::int64_t{static_cast<int>(kind)}}});
  }
};

class RecordedApplication : public Recorded<TemplateApplication> {
 public:
  using Recorded::Recorded;

  bool set(std::string const& xml) override {
    return noted(Operation::SetTemplate, {{"xml", xml}}) && inner().set(xml);
  }

  void apply() override {
    if (noted(Operation::ApplyTemplate)) inner().apply();
  }
};

class RecordedTemplateEngine : public Recorded<TemplateEngine> {
 public:
  using Recorded::Recorded;

  std::unique_ptr<TemplateApplication> start(LumoVisualization& working,
                                             LumoVisualization* baseline) override {
    bool const succeeds = noted(Operation::StartTemplate, {{"baseline", baseline != nullptr}});
    FixedTemplateEngine refusing;
    refusing.accepts = false;
    std::shared_ptr<TemplateApplication> application =
        succeeds ? inner().start(working, baseline) : refusing.start(working, baseline);
    return std::make_unique<RecordedApplication>(std::move(application), journal());
  }
};

class RecordedFrameLayout : public Recorded<FrameLayout> {
 public:
  using Recorded::Recorded;

  bool pack(LumoVisualization& visualization, LumoDocument* baseline) override {
    return noted(Operation::PackFrames, {{"baseline", baseline != nullptr}}) &&
           inner().pack(visualization, baseline);
  }
  void refit(LumoVisualization& visualization) override { inner().refit(visualization); }
};

class RecordedDataDump : public Recorded<DataDump> {
 public:
  using Recorded::Recorded;

  std::string join(std::string const& compressedXml, unsigned char const* stream, unsigned long size,
                   char16_t const* encoding) override {
    std::string const bytes(reinterpret_cast<char const*>(stream), stream != nullptr ? size : 0);
    bool const succeeds = noted(
        Operation::GetEntireXML,
        {{"compressed", compressedXml}, {"stream", bytes}, {"encoding", ChartString(encoding).toUTF8()}});
    return succeeds ? inner().join(compressedXml, stream, size, encoding) : std::string();
  }
};

class RecordedJava : public Recorded<JavaSide> {
 public:
  using Recorded::Recorded;

  bool hasMachine() override { return noted(Operation::MachineInstance) && inner().hasMachine(); }
  bool machineStarted() override { return noted(Operation::MachineIsStarted) && inner().machineStarted(); }
  bool startMachine() override { return noted(Operation::StartMachine) && inner().startMachine(); }
  JNIEnv_* environment() override {
    return noted(Operation::GetEnvironment) ? inner().environment() : nullptr;
  }

  int attachThread(JNIEnv_** environment) override {
    return noted(Operation::AttachThread) ? inner().attachThread(environment) : 1;
  }

  bool hasConverter() override { return noted(Operation::ConverterInstance) && inner().hasConverter(); }
  bool converterStarted() override {
    return noted(Operation::ConverterIsStarted) && inner().converterStarted();
  }

  bool startConverter(JNIEnv_* environment) override {
    return noted(Operation::StartConverter) && inner().startConverter(environment);
  }

  bool convertPdl(std::string const& in, std::string& out) override {
    return noted(Operation::PDLtoXML, {{"in", in}}) && inner().convertPdl(in, out);
  }

  bool upgrade(std::string const& in, std::string& out) override {
    return noted(Operation::UpgradeXML, {{"in", in}}) && inner().upgrade(in, out);
  }

  std::string errorMessage() override {
    return noted(Operation::GetErrorMessage) ? inner().errorMessage() : std::string();
  }

  // No operation of the host interface: callers of that cannot see it.
  std::string upgradeReport() override { return inner().upgradeReport(); }

  std::string applyStyleSheet(std::string const& styleSheet, std::string const& chart) override {
    bool const succeeds = noted(Operation::ApplyStyleSheet, {{"styleSheet", styleSheet}, {"chart", chart}});
    return succeeds ? inner().applyStyleSheet(styleSheet, chart) : std::string();
  }

  std::string convertTemplate(std::string const& request) override {
    bool const succeeds = noted(Operation::ConvertTemplate, {{"request", request}});
    return succeeds ? inner().convertTemplate(request) : std::string();
  }
};

class RecordedCompression : public Recorded<Compression> {
 public:
  using Recorded::Recorded;

  int compress(std::string const& in, std::string& out) override {
    if (noted(Operation::CompressString, {{"in", in}})) return inner().compress(in, out);
    out.clear();
    return 1;
  }
};

/// Passes on what another observer says, if there is one.
class RecordedStores : public StoreObserver {
 public:
  RecordedStores(std::shared_ptr<StoreObserver> inner, JournalHold journal)
      : mInner(inner ? std::move(inner) : std::make_shared<StoreObserver>()), mJournal(std::move(journal)) {}

  bool addDataSource(std::string const& source, unsigned int rows) override {
    return mJournal->note(Operation::AddDataSource, {{"source", source}, {"rows", number(rows)}}) &&
           mInner->addDataSource(source, rows);
  }

  bool addVariable(std::string const& source, std::string const& column) override {
    return mJournal->note(Operation::AddVariable, {{"source", source}, {"column", column}}) &&
           mInner->addVariable(source, column);
  }

  bool setVariableValue(std::string const& source, std::string const& column, unsigned int row,
                        double value) override {
    Arguments arguments{{"source", source}, {"column", column}, {"row", number(row)}, {"value", value}};
    return mJournal->note(Operation::SetVariableValue, std::move(arguments)) &&
           mInner->setVariableValue(source, column, row, value);
  }

  bool getDataPointer(std::string const& source, std::string const& column) override {
    return mJournal->note(Operation::GetDataPointer, {{"source", source}, {"column", column}}) &&
           mInner->getDataPointer(source, column);
  }

  bool getRowCount(std::string const& source) override {
    return mJournal->note(Operation::GetRowCount, {{"source", source}}) && mInner->getRowCount(source);
  }

  bool getSourceNames() override {
    return mJournal->note(Operation::GetSourceNames) && mInner->getSourceNames();
  }

  bool getVariableNames(std::string const& source) override {
    return mJournal->note(Operation::GetVariableNames, {{"source", source}}) &&
           mInner->getVariableNames(source);
  }

  bool getDataStream() override {
    return mJournal->note(Operation::GetDataStream) && mInner->getDataStream();
  }

 private:
  std::shared_ptr<StoreObserver> mInner;
  JournalHold mJournal;
};

}  // namespace

Host recordedHost(Host const& inner, JournalHold const& journal) {
  Host host;
  host.channel = std::make_shared<RecordedChannel>(inner.channel, journal);
  host.log = std::make_shared<RecordedLog>(inner.log, journal);
  host.messages = std::make_shared<RecordedMessages>(inner.messages, journal);
  host.trace = std::make_shared<RecordedTrace>(inner.trace, journal);
  host.dumps = std::make_shared<RecordedDumps>(inner.dumps, journal);
  host.files = std::make_shared<RecordedFiles>(inner.files, journal);
  host.paths = std::make_shared<RecordedPaths>(inner.paths, journal);
  host.texts = std::make_shared<RecordedTexts>(inner.texts, journal);
  host.locale = std::make_shared<RecordedLocale>(inner.locale, journal);
  host.calendar = std::make_shared<RecordedCalendar>(inner.calendar, journal);
  host.formats = std::make_shared<RecordedFormats>(inner.formats, journal);
  host.chartTexts = std::make_shared<RecordedChartTexts>(inner.chartTexts, journal);
  host.templateSettings = std::make_shared<RecordedTemplateSettings>(inner.templateSettings, journal);
  host.templateEngine = std::make_shared<RecordedTemplateEngine>(inner.templateEngine, journal);
  host.frameLayout = std::make_shared<RecordedFrameLayout>(inner.frameLayout, journal);
  host.dataDump = std::make_shared<RecordedDataDump>(inner.dataDump, journal);
  host.java = std::make_shared<RecordedJava>(inner.java, journal);
  host.compression = std::make_shared<RecordedCompression>(inner.compression, journal);
  host.storeObserver = std::make_shared<RecordedStores>(inner.storeObserver, journal);
  return host;
}

}  // namespace kestrel::host
